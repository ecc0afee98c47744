#include "Printer.h"

namespace {

constexpr double twipsPerCm = 1440.0 / 2.54;
// Positions are sums of many line heights; a rounding remainder must not start a page.
constexpr double slack = 1e-9;

} // namespace

double Printer::toCm(double value) const
{
    return m_scale == Scale::Twips ? value / twipsPerCm : value;
}

double Printer::fromCm(double cm) const
{
    return m_scale == Scale::Twips ? cm * twipsPerCm : cm;
}

double Printer::scaleWidth() const
{
    return fromCm(paper().printableWidth);
}

double Printer::scaleHeight() const
{
    return fromCm(paper().printableHeight);
}

double Printer::width() const
{
    return paper().width * twipsPerCm;
}

double Printer::textWidth(const QString &text) const
{
    return fromCm(textWidthCm(text, m_font));
}

double Printer::textHeight(const QString &) const
{
    return fromCm(lineHeightCm(m_font));
}

void Printer::print(const QString &line)
{
    const double height = lineHeightCm(m_font);
    if (m_y > slack && m_y + height > paper().printableHeight + slack)
        newPage();
    if (stopped())
        return;
    if (!line.isEmpty())
        drawText(m_x, m_y, line, m_font);
    m_x = 0;
    m_y += height;
}

void Printer::line(double x1, double y1, double x2, double y2)
{
    if (!stopped())
        drawLine(toCm(x1), toCm(y1), toCm(x2), toCm(y2), m_drawWidth);
    m_x = toCm(x2);
    m_y = toCm(y2);
}

void Printer::paintPicture(const QImage &picture, double left, double top, double width, double height)
{
    if (!stopped() && !picture.isNull())
        drawPicture(picture, toCm(left), toCm(top), toCm(width), toCm(height));
}

void Printer::newPage()
{
    if (stopped())
        return;
    ++m_page;
    m_x = 0;
    m_y = 0;
    if (m_watcher && !m_watcher(m_page)) {
        m_cancelled = true;
        return;
    }
    startPage();
}

void Printer::endDoc()
{
    if (!stopped())
        finishDocument();
}

void Printer::setPrintQuality(int quality)
{
    if (!stopped())
        applyQuality(quality);
}

void Printer::fail(const RuntimeFailure &failure)
{
    if (!m_failure)
        m_failure = failure;
}

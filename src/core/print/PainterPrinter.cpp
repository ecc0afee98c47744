#include "PainterPrinter.h"

#include <QPagedPaintDevice>

#include <malloc.h>

namespace {

// A draw width counts in the dots of a 600-dpi printer, whatever the device's resolution.
constexpr double dotsPerInchOfDrawWidth = 600;

bool sameFont(const Printer::Font &a, const Printer::Font &b)
{
    return a.name == b.name && a.size == b.size && a.bold == b.bold && a.italic == b.italic;
}

} // namespace

PainterPrinter::PainterPrinter(QPagedPaintDevice &device)
    : m_device(device)
{
    // Qt's paged devices build each page in a buffer that grows and goes again; with the
    // allocator's defaults every page maps, faults in and hands back its memory anew, which
    // costs more than the drawing. While a job runs, freed memory is kept for the next page.
    mallopt(M_MMAP_THRESHOLD, 256 << 20);
    mallopt(M_TRIM_THRESHOLD, 256 << 20);
}

PainterPrinter::~PainterPrinter()
{
    // The allocator's own starting values, so that the program hands memory back again.
    mallopt(M_MMAP_THRESHOLD, 128 << 10);
    mallopt(M_TRIM_THRESHOLD, 128 << 10);
}

int PainterPrinter::dotsForQuality(int quality)
{
    switch (quality) {
    case -1:
        return 150;
    case -2:
        return 300;
    case -3:
        return 600;
    case -4:
        return 1200;
    default:
        return quality > 0 ? quality : 0;
    }
}

Printer::Paper PainterPrinter::paper() const
{
    const QPageLayout layout = m_device.pageLayout();
    const QRectF printable = layout.paintRect(QPageLayout::Millimeter);
    return { layout.fullRect(QPageLayout::Millimeter).width() / 10, printable.width() / 10, printable.height() / 10 };
}

const QFontMetricsF &PainterPrinter::metrics(const Font &font) const
{
    if (!m_metricsFont || !sameFont(*m_metricsFont, font) || m_metricsDots != resolution()) {
        m_qfont = QFont(font.name == QLatin1String("Arial") ? QStringLiteral("Liberation Sans") : font.name);
        m_qfont.setPointSizeF(font.size);
        m_qfont.setBold(font.bold);
        m_qfont.setItalic(font.italic);
        m_metrics.emplace(m_qfont, &m_device);
        m_metricsFont = font;
        m_metricsDots = resolution();
    }
    return *m_metrics;
}

double PainterPrinter::textWidthCm(const QString &text, const Font &font) const
{
    return metrics(font).horizontalAdvance(text) / dotsPerCm();
}

double PainterPrinter::lineHeightCm(const Font &font) const
{
    return metrics(font).height() / dotsPerCm();
}

bool PainterPrinter::painting()
{
    if (!m_begun) {
        m_begun = true;
        if (!m_painter.begin(&m_device))
            fail({ 482, QStringLiteral("Druckerfehler") });
    }
    return m_painter.isActive();
}

void PainterPrinter::drawText(double x, double y, const QString &text, const Font &font)
{
    const QFontMetricsF &fontMetrics = metrics(font);
    if (!painting())
        return;
    m_painter.setFont(m_qfont);
    m_painter.drawText(QPointF(x * dotsPerCm(), y * dotsPerCm() + fontMetrics.ascent()), text);
}

void PainterPrinter::drawLine(double x1, double y1, double x2, double y2, int dots)
{
    if (!painting())
        return;
    const double scale = dotsPerCm();
    m_painter.setPen(QPen(Qt::black, dots * resolution() / dotsPerInchOfDrawWidth, Qt::SolidLine, Qt::FlatCap));
    m_painter.drawLine(QPointF(x1 * scale, y1 * scale), QPointF(x2 * scale, y2 * scale));
}

void PainterPrinter::drawPicture(const QImage &picture, double left, double top, double width, double height)
{
    if (!painting())
        return;
    const double scale = dotsPerCm();
    m_painter.drawImage(QRectF(left * scale, top * scale, width * scale, height * scale), picture);
}

void PainterPrinter::abandon()
{
    if (m_painter.isActive())
        m_painter.end();
}

void PainterPrinter::startPage()
{
    // A page break before anything was drawn still gives the first page.
    if (painting() && !m_device.newPage())
        fail({ 482, QStringLiteral("Druckerfehler") });
}

void PainterPrinter::finishDocument()
{
    // An empty document is still one page.
    if (!painting())
        return;
    m_painter.end();
    deliver();
}

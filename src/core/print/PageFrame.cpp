#include "PageFrame.h"

#include "app/NumberText.h"

#include <algorithm>

std::variant<double, RuntimeFailure> fontSizeFrom(const QString &text)
{
    const std::optional<double> size = parseNumberText(text);
    if (!size)
        return RuntimeFailure { 13, QStringLiteral("Typen unverträglich") };
    // The largest size a printer font takes; nothing is drawn in a font of no size.
    if (*size <= 0 || *size > 2160)
        return RuntimeFailure { 380, QStringLiteral("Ungültiger Eigenschaftswert") };
    return *size;
}

PageFrame::PageFrame(Printer &printer, QString probe)
    : m_printer(&printer)
    , m_probe(std::move(probe))
{
}

std::variant<PageFrame, RuntimeFailure> PageFrame::setUp(Printer &printer, const QString &fontSizeText)
{
    const auto size = fontSizeFrom(fontSizeText);
    if (const auto *failure = std::get_if<RuntimeFailure>(&size))
        return *failure;
    printer.setFontName(QStringLiteral("Arial"));
    printer.setScaleMode(Printer::Scale::Centimetres);
    printer.setFontBold(false);
    printer.setFontItalic(false);
    printer.setFontSize(std::get<double>(size));
    return PageFrame(printer, fontSizeText);
}

std::variant<PageFrame, RuntimeFailure> PageFrame::startJob(Printer &printer, const QString &fontSizeText)
{
    auto job = setUp(printer, fontSizeText);
    if (auto *frame = std::get_if<PageFrame>(&job); frame && frame->overflows())
        frame->startNextPage(true, QString());
    return job;
}

double PageFrame::footerTop() const
{
    // A footer taller than its 0.8 cm would run off the page and open one of its own.
    return m_printer->scaleHeight() - std::max(0.8, m_printer->textHeight(m_probe));
}

bool PageFrame::overflows() const
{
    return m_printer->currentY() + m_printer->textHeight(m_probe) >= footerTop() - 0.2;
}

QString PageFrame::pageText(int number)
{
    return QStringLiteral("- Seite  ") + QString::number(number);
}

void PageFrame::startNextPage(bool newPage, const QString &caption)
{
    if (newPage)
        m_printer->newPage();
    ++m_pageNumber;
    printFooter(pageText(m_pageNumber) + QStringLiteral(" - ") + caption);
    m_printer->setCurrentY(2);
}

void PageFrame::printFooter(const QString &footer)
{
    m_printer->setCurrentY(footerTop());
    m_printer->setCurrentX((m_printer->scaleWidth() - m_printer->textWidth(footer)) / 2);
    m_printer->print(footer);
}

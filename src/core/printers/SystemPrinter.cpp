#include "SystemPrinter.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPrinterInfo>

QStringList SystemPrinter::deviceNames()
{
    return QPrinterInfo::availablePrinterNames();
}

QString SystemPrinter::defaultDeviceName()
{
    return QPrinterInfo::defaultPrinterName();
}

std::unique_ptr<SystemPrinter> SystemPrinter::named(const QString &deviceName)
{
    const QPrinterInfo info = QPrinterInfo::printerInfo(deviceName);
    if (info.isNull())
        return nullptr;
    auto printer = std::make_unique<QPrinter>(info, QPrinter::HighResolution);
    printer->setDocName(QStringLiteral("Silberbuch"));
    return std::unique_ptr<SystemPrinter>(new SystemPrinter(std::move(printer)));
}

SystemPrinter::SystemPrinter(std::unique_ptr<QPrinter> owned)
    : PainterPrinter(*owned)
    , m_owned(std::move(owned))
    , m_printer(*m_owned)
{
    m_printer.setPageSize(QPageSize(QPageSize::A4));
}

SystemPrinter::SystemPrinter(QPrinter &printer)
    : PainterPrinter(printer)
    , m_printer(printer)
{
    m_printer.setPageSize(QPageSize(QPageSize::A4));
}

SystemPrinter::~SystemPrinter()
{
    // A job of our own that the user stopped, or that failed, is not sent.
    if (m_owned && (cancelled() || failure()))
        m_printer.abort();
    abandon();
}

void SystemPrinter::applyQuality(int quality)
{
    if (const int dots = dotsForQuality(quality); dots > 0 && m_printer.supportedResolutions().contains(dots))
        m_printer.setResolution(dots);
}

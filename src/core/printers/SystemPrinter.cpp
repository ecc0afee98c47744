#include "SystemPrinter.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPrinterInfo>

QStringList SystemPrinter::deviceNames()
{
    return QPrinterInfo::availablePrinterNames();
}

std::unique_ptr<SystemPrinter> SystemPrinter::named(const QString &deviceName)
{
    const QPrinterInfo info = QPrinterInfo::printerInfo(deviceName);
    if (info.isNull())
        return nullptr;
    return std::unique_ptr<SystemPrinter>(new SystemPrinter(info));
}

SystemPrinter::SystemPrinter(const QPrinterInfo &info)
    : PainterPrinter(m_printer)
    , m_printer(info, QPrinter::HighResolution)
{
    m_printer.setPageSize(QPageSize(QPageSize::A4));
    m_printer.setDocName(QStringLiteral("Silberbuch"));
}

SystemPrinter::~SystemPrinter()
{
    // A job the user stopped, or one that failed, is not sent.
    if (cancelled() || failure())
        m_printer.abort();
    abandon();
}

void SystemPrinter::applyQuality(int quality)
{
    if (const int dots = dotsForQuality(quality); dots > 0 && m_printer.supportedResolutions().contains(dots))
        m_printer.setResolution(dots);
}

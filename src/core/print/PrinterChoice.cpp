#include "PrinterChoice.h"

#include "app/Settings.h"

namespace printerchoice {

namespace {

const QString printerGroup = QStringLiteral("Printer");
const QString deviceKey = QStringLiteral("Device");

} // namespace

QString pdfFileEntry()
{
    return QStringLiteral("PDF-Datei");
}

List listOf(const QStringList &devices, const QString &stored, const QString &current, const QString &preset)
{
    List list;
    list.entries = devices;
    list.entries << pdfFileEntry();
    const QString wanted = stored.isEmpty() ? current : stored;
    list.selected = static_cast<int>(list.entries.indexOf(wanted));
    if (!preset.isEmpty() && list.entries.contains(preset))
        list.selected = static_cast<int>(list.entries.indexOf(preset));
    return list;
}

QString storedDevice(const Settings &settings)
{
    return settings.groupValue(printerGroup, deviceKey);
}

bool storeDevice(Settings &settings, const QString &device)
{
    return settings.setGroupValue(printerGroup, deviceKey, device);
}

std::optional<int> listQuality(bool goodQuality)
{
    if (!goodQuality)
        return std::nullopt;
    return -4;
}

int sheetQuality(SheetQuality choice)
{
    switch (choice) {
    case SheetQuality::Good:
        return -1;
    case SheetQuality::Normal:
        return -3;
    case SheetQuality::Poor:
        break;
    }
    return -4;
}

} // namespace printerchoice

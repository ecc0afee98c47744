#pragma once

#include <QString>
#include <QStringList>

#include <optional>

class Settings;

// The printer lists of the print dialogs: the system's printers, then the entry that prints
// into a PDF file, so that a machine without a printer can print too.
namespace printerchoice {

QString pdfFileEntry(); // "PDF-Datei"

struct List
{
    QStringList entries;
    int selected = -1; // none when neither the stored, the current nor the preset name is there
};

// The stored device name selects its entry, or, with none stored, the current printer's;
// a preset name that is in the list wins over both.
List listOf(const QStringList &devices, const QString &stored, const QString &current, const QString &preset);

// The device name kept under "Printer" / "Device"; empty when none is.
QString storedDevice(const Settings &settings);
bool storeDevice(Settings &settings, const QString &device);

// The quality of the list path: its three tests all ask "Gute Qualität", which ends at -4;
// the other two choices leave the printer as it is.
std::optional<int> listQuality(bool goodQuality);
// The sheet's path: good -1, normal -3, poor -4, as the dialog has always set them.
enum class SheetQuality { Good, Normal, Poor };
int sheetQuality(SheetQuality choice);

} // namespace printerchoice

#pragma once

#include <QString>

#include <optional>

class QCheckBox;
class QComboBox;
class QFrame;
class QGroupBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QWidget;
class Settings;
struct Session;

// Pieces the two print dialogs share: the printer box and the quality box, filled and read
// the same way.
namespace printdialog {

struct PrinterBox
{
    QGroupBox *frame; // "Drucken auf"
    QComboBox *printers;
    QCheckBox *standard; // "Als Standarddrucker festlegen"
};
PrinterBox printerBox(const char *frameName, const char *comboName, const char *checkName, QWidget *parent);

struct QualityBox
{
    QGroupBox *frame; // "Druckqualität"
    QRadioButton *good;
    QRadioButton *normal; // chosen at the start
    QRadioButton *poor;
};
// The names of the frame and of the good, normal and poor options.
QualityBox qualityBox(const char *frameName, const char *const names[3], QWidget *parent);

// Step 2a of the print dialogs, for lists: heading, printer, quality, size and date, the font
// size, and the buttons "<< Abbrechen", "Vorschau" and "Drucken >>".
struct ListFrame
{
    QFrame *frame;
    QLabel *heading;
    PrinterBox printer;
    QualityBox quality;
    QGroupBox *other; // "Sonstiges"
    QCheckBox *size;
    QCheckBox *date;
    QLineEdit *fontSize;
    QPushButton *cancel;
    QPushButton *preview;
    QPushButton *print;
};
// With `digitsOnly`, the font size takes digits alone.
ListFrame listFrame(QWidget *parent, bool digitsOnly);

// A font size box that holds no size the print-outs take is refused with a message and gets
// the focus back; true when the size can be printed.
bool fontSizeAccepted(QWidget *dialog, QLineEdit *box);

// The "<< Abbrechen", "Vorschau", "Drucken >>" row of a step.
QHBoxLayout *buttonRow(QPushButton *cancel, QPushButton *preview, QPushButton *print);
QPushButton *button(const char *name, const QString &caption, QWidget *parent);

// The system's printers and "PDF-Datei", the stored or current one selected, or the preset.
void fillPrinters(QComboBox *printers, const Settings &settings, const Session &session, const QString &preset);
// The chosen entry becomes the program's printer and, with the box ticked, the stored one.
// Gives the entry, or empty when nothing is selected.
QString choosePrinter(const PrinterBox &box, Settings &settings, Session &session);

} // namespace printdialog

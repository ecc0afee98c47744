#include "PrintDialogParts.h"

#include "common/Prompts.h"

#include "app/Session.h"
#include "app/Settings.h"
#include "print/PrinterChoice.h"
#include "print/TypedFontSize.h"
#include "printers/SystemPrinter.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QGroupBox>
#include <QRadioButton>
#include <QVBoxLayout>

namespace printdialog {

PrinterBox printerBox(const char *frameName, const char *comboName, const char *checkName, QWidget *parent)
{
    PrinterBox box { new QGroupBox(QStringLiteral("Drucken auf"), parent), nullptr, nullptr };
    box.frame->setObjectName(QLatin1String(frameName));
    box.printers = new QComboBox(box.frame);
    box.printers->setObjectName(QLatin1String(comboName));
    box.printers->setToolTip(QStringLiteral("Drucker festlegen"));
    box.printers->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    box.standard = new QCheckBox(QStringLiteral("Als Standarddrucker festlegen"), box.frame);
    box.standard->setObjectName(QLatin1String(checkName));
    box.standard->setToolTip(QStringLiteral("als Standarddrucker für diese Applikation festlegen"));
    auto *layout = new QVBoxLayout(box.frame);
    layout->addWidget(box.printers);
    layout->addWidget(box.standard);
    return box;
}

QualityBox qualityBox(const char *frameName, const char *const names[3], QWidget *parent)
{
    auto *frame = new QGroupBox(QStringLiteral("Druckqualität"), parent);
    frame->setObjectName(QLatin1String(frameName));
    const QString captions[3]
        = { QStringLiteral("Gute Qualität / Langsam"), QStringLiteral("Normale Qualität / Normal"),
              QStringLiteral("Schlechte Qualität / Schnell") };
    QRadioButton *options[3];
    auto *layout = new QVBoxLayout(frame);
    for (int i = 0; i < 3; ++i) {
        options[i] = new QRadioButton(captions[i], frame);
        options[i]->setObjectName(QLatin1String(names[i]));
        layout->addWidget(options[i]);
    }
    options[1]->setChecked(true);
    return { frame, options[0], options[1], options[2] };
}

QPushButton *button(const char *name, const QString &caption, QWidget *parent)
{
    auto *made = new QPushButton(caption, parent);
    made->setObjectName(QLatin1String(name));
    made->setAutoDefault(false);
    return made;
}

bool fontSizeAccepted(QWidget *dialog, QLineEdit *box)
{
    const std::optional<QString> refusal = typedFontSizeRefusal(box->text());
    if (!refusal)
        return true;
    Prompts::message(dialog, *refusal, Prompts::Icon::Warning);
    box->setFocus();
    box->selectAll();
    return false;
}

QHBoxLayout *buttonRow(QPushButton *cancel, QPushButton *preview, QPushButton *print)
{
    auto *row = new QHBoxLayout;
    row->addWidget(cancel);
    row->addStretch();
    row->addWidget(preview);
    row->addWidget(print);
    return row;
}

ListFrame listFrame(QWidget *parent, bool digitsOnly)
{
    static const char *const qualityNames[3] = { "listGoodQuality", "listNormalQuality", "listPoorQuality" };
    ListFrame f {};
    f.frame = new QFrame(parent);
    f.frame->setObjectName(QStringLiteral("listPage"));
    f.heading = new QLabel(f.frame);
    f.heading->setObjectName(QStringLiteral("listHeading"));
    QFont bold = f.heading->font();
    bold.setBold(true);
    f.heading->setFont(bold);
    f.printer = printerBox("listPrinterBox", "listPrinterCombo", "listStandardCheck", f.frame);
    f.quality = qualityBox("listQualityBox", qualityNames, f.frame);
    f.other = new QGroupBox(QStringLiteral("Sonstiges"), f.frame);
    f.other->setObjectName(QStringLiteral("listOtherBox"));
    f.size = new QCheckBox(QStringLiteral("Größe der Dateien mitdrucken"), f.other);
    f.size->setObjectName(QStringLiteral("sizeCheck"));
    f.date = new QCheckBox(QStringLiteral("Datum der Dateien mitdrucken"), f.other);
    f.date->setObjectName(QStringLiteral("dateCheck"));
    f.date->setChecked(true);
    auto *sizeLabel = new QLabel(QStringLiteral("Schriftgröße:"), f.other);
    sizeLabel->setObjectName(QStringLiteral("fontSizeLabel"));
    f.fontSize = new QLineEdit(QStringLiteral("10"), f.other);
    f.fontSize->setObjectName(QStringLiteral("fontSizeEdit"));
    f.fontSize->setMaximumWidth(60);
    // A key passes only as a digit or a backspace; a pasted text is held to the same.
    if (digitsOnly)
        f.fontSize->setValidator(
            new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), f.fontSize));
    auto *otherLayout = new QGridLayout(f.other);
    otherLayout->addWidget(f.size, 0, 0, 1, 3);
    otherLayout->addWidget(f.date, 1, 0, 1, 3);
    otherLayout->addWidget(sizeLabel, 2, 0);
    otherLayout->addWidget(f.fontSize, 2, 1);
    otherLayout->setColumnStretch(2, 1);
    f.cancel = button("listCancelButton", QStringLiteral("<< Abbrechen"), f.frame);
    f.preview = button("listPreviewButton", QStringLiteral("Vorschau"), f.frame);
    f.print = button("listPrintButton", QStringLiteral("Drucken >>"), f.frame);

    auto *boxes = new QGridLayout;
    boxes->addWidget(f.printer.frame, 0, 0, 1, 2);
    boxes->addWidget(f.quality.frame, 1, 0);
    boxes->addWidget(f.other, 1, 1);
    auto *layout = new QVBoxLayout(f.frame);
    layout->addWidget(f.heading);
    layout->addLayout(boxes);
    layout->addStretch();
    layout->addLayout(buttonRow(f.cancel, f.preview, f.print));
    return f;
}

void fillPrinters(QComboBox *printers, const Settings &settings, const Session &session, const QString &preset)
{
    const QString current
        = session.currentPrinter.isEmpty() ? SystemPrinter::defaultDeviceName() : session.currentPrinter;
    const printerchoice::List list = printerchoice::listOf(SystemPrinter::deviceNames(),
        printerchoice::storedDevice(settings), current.isEmpty() ? printerchoice::pdfFileEntry() : current, preset);
    printers->clear();
    printers->addItems(list.entries);
    printers->setCurrentIndex(list.selected);
}

QString choosePrinter(const PrinterBox &box, Settings &settings, Session &session)
{
    if (box.printers->currentIndex() >= 0)
        session.currentPrinter = box.printers->currentText();
    if (box.standard->isChecked() && !printerchoice::storeDevice(settings, session.currentPrinter))
        Prompts::message(box.frame->window(), settings.writeFailure(), Prompts::Icon::Critical);
    return session.currentPrinter;
}

} // namespace printdialog

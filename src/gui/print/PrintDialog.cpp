#include "PrintDialog.h"

#include "app/Program.h"
#include "common/Prompts.h"

#include "app/DataPaths.h"
#include "print/PrinterChoice.h"
#include "print/PrintedFolderTree.h"
#include "print/TreePrinter.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {

const QString noImage = QStringLiteral("Kein Laufwerks_Abbild verfügbar!");

QWidget *page(const char *name, QWidget *parent)
{
    auto *made = new QWidget(parent);
    made->setObjectName(QLatin1String(name));
    return made;
}

} // namespace

PrintDialog::PrintDialog(Program &program, PrintLink link)
    : QDialog(nullptr)
    , m_program(program)
    , m_link(std::move(link))
{
    m_program.adopt(this);
    setObjectName(QStringLiteral("PrintDialog"));
    setWindowTitle(QStringLiteral("Drucken"));
    m_frames = new QStackedWidget(this);

    QWidget *frame1 = page("Frame1", m_frames);
    auto *label1 = new QLabel(QStringLiteral("Was möchten Sie Drucken?"), frame1);
    label1->setObjectName(QStringLiteral("Label1"));
    QFont bold = label1->font();
    bold.setBold(true);
    label1->setFont(bold);
    const QString captions[5] = { QStringLiteral("Die Liste aller CDs in diesem Archiv"),
        QStringLiteral("Alle Kommentare zu der aktuell ausgewählten CD"),
        QStringLiteral("Die Dateiliste der aktuell ausgewählten CD"),
        QStringLiteral("Die Ordnerstruktur der aktuell ausgewählten CD"),
        QStringLiteral("einen Steckbrief der aktuell ausgewählten CD") };
    auto *frame1Layout = new QVBoxLayout(frame1);
    frame1Layout->addWidget(label1);
    for (int i = 0; i < 5; ++i) {
        m_options[i] = new QRadioButton(captions[i], frame1);
        m_options[i]->setObjectName(QStringLiteral("Option%1").arg(i + 1));
        frame1Layout->addWidget(m_options[i]);
    }
    auto *command1 = printdialog::button("Command1", QStringLiteral("Info"), frame1);
    auto *command2 = printdialog::button("Command2", QStringLiteral("<< Abbrechen"), frame1);
    auto *command3 = printdialog::button("Command3", QStringLiteral("Weiter >>"), frame1);
    auto *row1 = new QHBoxLayout;
    row1->addWidget(command2);
    row1->addStretch();
    row1->addWidget(command1);
    row1->addWidget(command3);
    frame1Layout->addStretch();
    frame1Layout->addLayout(row1);

    m_list = printdialog::listFrame(m_frames, true);

    QWidget *frame3 = page("Frame3", m_frames);
    auto *label5 = new QLabel(QStringLiteral("> Drucken eines Steckbriefes für die aktuell ausgewählte CD"), frame3);
    label5->setObjectName(QStringLiteral("Label5"));
    label5->setFont(bold);
    m_sheetPrinter = printdialog::printerBox("Frame4", "cboPrinters", "chkStandard", frame3);
    static const char *const sheetQualities[3] = { "Option8", "Option7", "Option6" };
    m_sheetQuality = printdialog::qualityBox("Frame5", sheetQualities, frame3);
    auto *frame6 = new QGroupBox(QStringLiteral("Sonstiges"), frame3);
    frame6->setObjectName(QStringLiteral("Frame6"));
    auto *label4 = new QLabel(QStringLiteral("Schriftgröße:"), frame6);
    label4->setObjectName(QStringLiteral("Label4"));
    m_commentSize = new QLineEdit(QStringLiteral("10"), frame6);
    m_commentSize->setObjectName(QStringLiteral("Text2"));
    m_commentSize->setMaximumWidth(60);
    m_cover = new QCheckBox(QStringLiteral("Cover-Bild mitdrucken"), frame6);
    m_cover->setObjectName(QStringLiteral("Check4"));
    m_cover->setChecked(true);
    auto *frame6Layout = new QGridLayout(frame6);
    frame6Layout->addWidget(label4, 0, 0);
    frame6Layout->addWidget(m_commentSize, 0, 1);
    frame6Layout->addWidget(m_cover, 1, 0, 1, 3);
    frame6Layout->setColumnStretch(2, 1);
    auto *command6 = printdialog::button("Command6", QStringLiteral("<< Abbrechen"), frame3);
    auto *sheetPreview = printdialog::button("cmdVorschau", QStringLiteral("Vorschau"), frame3);
    auto *command7 = printdialog::button("Command7", QStringLiteral("Drucken >>"), frame3);
    auto *boxes = new QGridLayout;
    boxes->addWidget(m_sheetPrinter.frame, 0, 0, 1, 2);
    boxes->addWidget(m_sheetQuality.frame, 1, 0);
    boxes->addWidget(frame6, 1, 1);
    auto *frame3Layout = new QVBoxLayout(frame3);
    frame3Layout->addWidget(label5);
    frame3Layout->addLayout(boxes);
    frame3Layout->addStretch();
    frame3Layout->addLayout(printdialog::buttonRow(command6, sheetPreview, command7));

    m_frames->addWidget(frame1);
    m_frames->addWidget(m_list.frame);
    m_frames->addWidget(frame3);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_frames);

    // Without a CD on display only the title list can be printed.
    const bool cdSelected = m_link.List2 && m_link.List2->currentItem() && m_link.List2->currentItem()->isSelected();
    for (int i = 1; i < 5; ++i)
        m_options[i]->setEnabled(cdSelected);
    fillPrinterLists();
    resize(sizeHint().expandedTo(QSize(375, 320)));

    connect(command1, &QPushButton::clicked, this, [this] {
        Prompts::message(this,
            QStringLiteral("Der Steckbrief enthält den Titel der CD, das Archiv, alle Kommentare zur CD, das Cover, "
                           "und weitere CD-Informationen."),
            Prompts::Icon::Information);
    });
    connect(command2, &QPushButton::clicked, this, &QDialog::close);
    connect(command3, &QPushButton::clicked, this, &PrintDialog::Command3_Click);
    connect(m_list.cancel, &QPushButton::clicked, this, &QDialog::close);
    connect(m_list.print, &QPushButton::clicked, this, &PrintDialog::Command4_Click);
    connect(m_list.preview, &QPushButton::clicked, this, [this] {
        if (const auto refusal = listRefusal())
            return Prompts::message(this, *refusal), void();
        printrun::preview(this, printerchoice::listQuality(m_list.quality.good->isChecked()),
            [this](Printer &printer) { return printList(printer); });
    });
    connect(command6, &QPushButton::clicked, this, &QDialog::close);
    connect(command7, &QPushButton::clicked, this, &PrintDialog::Command7_Click);
    connect(sheetPreview, &QPushButton::clicked, this, [this] {
        printrun::preview(this, sheetQuality(), [this](Printer &printer) { return printSheet(printer); });
    });
}

void PrintDialog::setPrinterDefault(const QString &device)
{
    m_printerDefault = device;
    fillPrinterLists();
}

void PrintDialog::fillPrinterLists()
{
    for (QComboBox *printers : { m_sheetPrinter.printers, m_list.printer.printers })
        printdialog::fillPrinters(printers, m_program.settings(), m_program.session(), m_printerDefault);
}

void PrintDialog::Command3_Click()
{
    static const char *const headings[4] = { "> Drucken der Liste aller Namen der CDs in diesem Archiv",
        "> Drucken aller Kommentare zu der aktuell ausgewählten CD",
        "> Drucken der Dateiliste der aktuell ausgewählten CD",
        "> Drucken der Ordnerstruktur der aktuell ausgewählten CD" };
    for (int16_t mode = 0; mode < 4; ++mode) {
        if (!m_options[mode]->isChecked())
            continue;
        PrintMode = mode;
        m_list.heading->setText(QString::fromUtf8(headings[mode]));
        m_list.size->setVisible(mode == 2);
        m_list.date->setVisible(mode == 2);
        if (mode == 3 && m_link.showImageTab)
            m_link.showImageTab();
    }
    m_frames->setCurrentIndex(m_options[4]->isChecked() ? 2 : 1);
}

std::optional<QString> PrintDialog::listRefusal() const
{
    // Asked before anything else, so no file is asked for in vain.
    if (PrintMode == 2 && !QFileInfo::exists(datapaths::imageFile(m_program.dataFolder(), m_link.lblsn->text().toInt())))
        return noImage;
    if (PrintMode == 3 && m_link.folderTree().firstNode() < 0)
        return noImage;
    return std::nullopt;
}

PrintSettings PrintDialog::settings(const QString &fontSize) const
{
    return { m_program.session().archiveName, fontSize, QDateTime::currentDateTime() };
}

PrintOutcome PrintDialog::printList(Printer &printer) const
{
    const PrintSettings print = settings(m_list.fontSize->text());
    const QString title = m_link.Text2->text();
    switch (PrintMode) {
    case 1: {
        QStringList comments;
        for (int i = 0; i < m_link.List1->count(); ++i)
            comments << m_link.List1->item(i)->text();
        return Print1_Kommentare(printer, print, title, comments);
    }
    case 2:
        return Print1_Dateien(printer, print, title,
            datapaths::imageFile(m_program.dataFolder(), m_link.lblsn->text().toInt()),
            { m_list.size->isChecked(), m_list.date->isChecked() });
    case 3:
        return Print1_Ordner(
            printer, print, title, PrintedFolderTree(m_link.folderTree(), m_link.selectedNode()));
    default: {
        QStringList entries;
        for (int i = 0; i < m_link.List2->count(); ++i)
            entries << m_link.List2->item(i)->text();
        return Print1_list(printer, print, entries);
    }
    }
}

PrintOutcome PrintDialog::printSheet(Printer &printer) const
{
    SheetContent content { m_link.Text2->text(), m_link.lblsn->text(), m_link.lblDateien->text(),
        m_link.lblOrdner->text(), {}, m_link.Picture2->pixmap().toImage() };
    for (int i = 0; i < m_link.List1->count(); ++i)
        content.comments << m_link.List1->item(i)->text();
    // The box is measured in the list's size, whose box this step does not show.
    return Print1_Steckbrief(
        printer, settings(m_list.fontSize->text()), content, { m_commentSize->text(), m_cover->isChecked() });
}

std::optional<int> PrintDialog::sheetQuality() const
{
    using printerchoice::SheetQuality;
    const SheetQuality choice = m_sheetQuality.good->isChecked() ? SheetQuality::Good
        : m_sheetQuality.normal->isChecked()                      ? SheetQuality::Normal
                                                                  : SheetQuality::Poor;
    return printerchoice::sheetQuality(choice);
}

void PrintDialog::Command4_Click()
{
    const QString device = printdialog::choosePrinter(m_list.printer, m_program.settings(), m_program.session());
    m_cancelPrint = false;
    if (const auto refusal = listRefusal()) {
        Prompts::message(this, *refusal);
        close();
        return;
    }
    if (printrun::printOn(this, device, printerchoice::listQuality(m_list.quality.good->isChecked()),
            [this](Printer &target) { return printList(target); }))
        close();
}

void PrintDialog::Command7_Click()
{
    const QString device = printdialog::choosePrinter(m_sheetPrinter, m_program.settings(), m_program.session());
    m_cancelPrint = false;
    printrun::printOn(this, device, sheetQuality(), [this](Printer &target) { return printSheet(target); });
}

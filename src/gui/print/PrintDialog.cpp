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
    m_pages = new QStackedWidget(this);

    QWidget *choicePage = page("choicePage", m_pages);
    auto *choiceHeading = new QLabel(QStringLiteral("Was möchten Sie Drucken?"), choicePage);
    choiceHeading->setObjectName(QStringLiteral("choiceHeading"));
    QFont bold = choiceHeading->font();
    bold.setBold(true);
    choiceHeading->setFont(bold);
    const QString captions[5] = { QStringLiteral("Die Liste aller CDs in diesem Archiv"),
        QStringLiteral("Alle Kommentare zu der aktuell ausgewählten CD"),
        QStringLiteral("Die Dateiliste der aktuell ausgewählten CD"),
        QStringLiteral("Die Ordnerstruktur der aktuell ausgewählten CD"),
        QStringLiteral("einen Steckbrief der aktuell ausgewählten CD") };
    auto *choiceLayout = new QVBoxLayout(choicePage);
    choiceLayout->addWidget(choiceHeading);
    static const char *const optionNames[5]
        = { "cdListOption", "commentListOption", "fileListOption", "folderTreeOption", "sheetOption" };
    for (int i = 0; i < 5; ++i) {
        m_options[i] = new QRadioButton(captions[i], choicePage);
        m_options[i]->setObjectName(QLatin1String(optionNames[i]));
        choiceLayout->addWidget(m_options[i]);
    }
    auto *infoButton = printdialog::button("infoButton", QStringLiteral("Info"), choicePage);
    auto *choiceCancel
        = printdialog::button("choiceCancelButton", QStringLiteral("<< Abbrechen"), choicePage);
    auto *nextButton = printdialog::button("nextButton", QStringLiteral("Weiter >>"), choicePage);
    auto *choiceButtons = new QHBoxLayout;
    choiceButtons->addWidget(choiceCancel);
    choiceButtons->addStretch();
    choiceButtons->addWidget(infoButton);
    choiceButtons->addWidget(nextButton);
    choiceLayout->addStretch();
    choiceLayout->addLayout(choiceButtons);

    m_list = printdialog::listFrame(m_pages, true);

    QWidget *sheetPage = page("sheetPage", m_pages);
    auto *sheetHeading = new QLabel(
        QStringLiteral("> Drucken eines Steckbriefes für die aktuell ausgewählte CD"), sheetPage);
    sheetHeading->setObjectName(QStringLiteral("sheetHeading"));
    sheetHeading->setFont(bold);
    m_sheetPrinter
        = printdialog::printerBox("sheetPrinterBox", "sheetPrinterCombo", "sheetStandardCheck", sheetPage);
    static const char *const sheetQualities[3]
        = { "sheetGoodQuality", "sheetNormalQuality", "sheetPoorQuality" };
    m_sheetQuality = printdialog::qualityBox("sheetQualityBox", sheetQualities, sheetPage);
    auto *sheetOther = new QGroupBox(QStringLiteral("Sonstiges"), sheetPage);
    sheetOther->setObjectName(QStringLiteral("sheetOtherBox"));
    auto *commentSizeLabel = new QLabel(QStringLiteral("Schriftgröße:"), sheetOther);
    commentSizeLabel->setObjectName(QStringLiteral("commentSizeLabel"));
    m_commentSize = new QLineEdit(QStringLiteral("10"), sheetOther);
    m_commentSize->setObjectName(QStringLiteral("commentSizeEdit"));
    m_commentSize->setMaximumWidth(60);
    m_cover = new QCheckBox(QStringLiteral("Cover-Bild mitdrucken"), sheetOther);
    m_cover->setObjectName(QStringLiteral("coverCheck"));
    m_cover->setChecked(true);
    auto *sheetOtherLayout = new QGridLayout(sheetOther);
    sheetOtherLayout->addWidget(commentSizeLabel, 0, 0);
    sheetOtherLayout->addWidget(m_commentSize, 0, 1);
    sheetOtherLayout->addWidget(m_cover, 1, 0, 1, 3);
    sheetOtherLayout->setColumnStretch(2, 1);
    auto *sheetCancel = printdialog::button("sheetCancelButton", QStringLiteral("<< Abbrechen"), sheetPage);
    auto *sheetPreview = printdialog::button("sheetPreviewButton", QStringLiteral("Vorschau"), sheetPage);
    auto *sheetPrint = printdialog::button("sheetPrintButton", QStringLiteral("Drucken >>"), sheetPage);
    auto *boxes = new QGridLayout;
    boxes->addWidget(m_sheetPrinter.frame, 0, 0, 1, 2);
    boxes->addWidget(m_sheetQuality.frame, 1, 0);
    boxes->addWidget(sheetOther, 1, 1);
    auto *sheetLayout = new QVBoxLayout(sheetPage);
    sheetLayout->addWidget(sheetHeading);
    sheetLayout->addLayout(boxes);
    sheetLayout->addStretch();
    sheetLayout->addLayout(printdialog::buttonRow(sheetCancel, sheetPreview, sheetPrint));

    m_pages->addWidget(choicePage);
    m_pages->addWidget(m_list.frame);
    m_pages->addWidget(sheetPage);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_pages);

    // Without a CD on display only the title list can be printed.
    const bool cdSelected
        = m_link.cdList && m_link.cdList->currentItem() && m_link.cdList->currentItem()->isSelected();
    for (int i = 1; i < 5; ++i)
        m_options[i]->setEnabled(cdSelected);
    fillPrinterLists();
    resize(sizeHint().expandedTo(QSize(375, 320)));

    connect(infoButton, &QPushButton::clicked, this, [this] {
        Prompts::message(this,
            QStringLiteral("Der Steckbrief enthält den Titel der CD, das Archiv, alle Kommentare zur CD, das Cover, "
                           "und weitere CD-Informationen."),
            Prompts::Icon::Information);
    });
    connect(choiceCancel, &QPushButton::clicked, this, &QDialog::close);
    connect(nextButton, &QPushButton::clicked, this, &PrintDialog::showChosenPage);
    connect(m_list.cancel, &QPushButton::clicked, this, &QDialog::close);
    connect(m_list.print, &QPushButton::clicked, this, &PrintDialog::printListOnChosenPrinter);
    connect(m_list.preview, &QPushButton::clicked, this, [this] {
        if (!printdialog::fontSizeAccepted(this, m_list.fontSize))
            return;
        if (const auto refusal = listRefusal())
            return Prompts::message(this, *refusal), void();
        printrun::preview(this, printerchoice::listQuality(m_list.quality.good->isChecked()),
            [this](Printer &printer) { return printList(printer); });
    });
    connect(sheetCancel, &QPushButton::clicked, this, &QDialog::close);
    connect(sheetPrint, &QPushButton::clicked, this, &PrintDialog::printSheetOnChosenPrinter);
    connect(sheetPreview, &QPushButton::clicked, this, [this] {
        if (printdialog::fontSizeAccepted(this, m_commentSize))
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

void PrintDialog::showChosenPage()
{
    static const char *const headings[4] = { "> Drucken der Liste aller Namen der CDs in diesem Archiv",
        "> Drucken aller Kommentare zu der aktuell ausgewählten CD",
        "> Drucken der Dateiliste der aktuell ausgewählten CD",
        "> Drucken der Ordnerstruktur der aktuell ausgewählten CD" };
    for (int16_t mode = 0; mode < 4; ++mode) {
        if (!m_options[mode]->isChecked())
            continue;
        m_printMode = mode;
        m_list.heading->setText(QString::fromUtf8(headings[mode]));
        m_list.size->setVisible(mode == 2);
        m_list.date->setVisible(mode == 2);
        if (mode == 3 && m_link.showImageTab)
            m_link.showImageTab();
    }
    m_pages->setCurrentIndex(m_options[4]->isChecked() ? 2 : 1);
}

std::optional<QString> PrintDialog::listRefusal() const
{
    // Asked before anything else, so no file is asked for in vain.
    if (m_printMode == 2
        && !QFileInfo::exists(
            datapaths::imageFile(m_program.dataFolder(), m_link.imageIdLabel->text().toInt())))
        return noImage;
    if (m_printMode == 3 && m_link.folderTree().firstNode() < 0)
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
    const QString title = m_link.titleLabel->text();
    switch (m_printMode) {
    case 1: {
        QStringList comments;
        for (int i = 0; i < m_link.commentList->count(); ++i)
            comments << m_link.commentList->item(i)->text();
        return printCommentList(printer, print, title, comments);
    }
    case 2:
        return printFileList(printer, print, title,
            datapaths::imageFile(m_program.dataFolder(), m_link.imageIdLabel->text().toInt()),
            { m_list.size->isChecked(), m_list.date->isChecked() });
    case 3:
        return printFolderTree(
            printer, print, title, PrintedFolderTree(m_link.folderTree(), m_link.selectedNode()));
    default: {
        QStringList entries;
        for (int i = 0; i < m_link.cdList->count(); ++i)
            entries << m_link.cdList->item(i)->text();
        return printCdList(printer, print, entries);
    }
    }
}

PrintOutcome PrintDialog::printSheet(Printer &printer) const
{
    SheetContent content { m_link.titleLabel->text(), m_link.imageIdLabel->text(),
        m_link.fileCountLabel->text(), m_link.folderCountLabel->text(), {},
        m_link.coverPicture->pixmap().toImage() };
    for (int i = 0; i < m_link.commentList->count(); ++i)
        content.comments << m_link.commentList->item(i)->text();
    // The box is measured in the list's size, whose box this step does not show.
    return printCdSheet(
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

void PrintDialog::printListOnChosenPrinter()
{
    if (!printdialog::fontSizeAccepted(this, m_list.fontSize))
        return;
    const QString device = printdialog::choosePrinter(m_list.printer, m_program.settings(), m_program.session());
    m_printerNotChosen = false;
    if (const auto refusal = listRefusal()) {
        Prompts::message(this, *refusal);
        close();
        return;
    }
    // The title list names the archive it lists.
    const QString printedName = m_printMode == 0 ? m_program.session().archiveName : m_link.titleLabel->text();
    if (printrun::printOn(this, device, { m_program.settings(), printedName },
            printerchoice::listQuality(m_list.quality.good->isChecked()),
            [this](Printer &target) { return printList(target); }))
        close();
}

void PrintDialog::printSheetOnChosenPrinter()
{
    if (!printdialog::fontSizeAccepted(this, m_commentSize))
        return;
    const QString device = printdialog::choosePrinter(m_sheetPrinter, m_program.settings(), m_program.session());
    m_printerNotChosen = false;
    printrun::printOn(this, device, { m_program.settings(), m_link.titleLabel->text() }, sheetQuality(),
        [this](Printer &target) { return printSheet(target); });
}

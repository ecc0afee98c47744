#include "MainWindowRun.h"
#include "PdfText.h"
#include "Screenshot.h"
#include "TestPaths.h"

#include "app/Settings.h"
#include "print/PrintDialog.h"
#include "print/ListPrints.h"
#include "print/PdfPrinter.h"
#include "print/PrintRun.h"
#include "print/ResultsPrintDialog.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

class PrintDialogTest : public ::testing::Test
{
protected:
    // Shows the main window with the CD `selected` (0: none), opens the print dialog from it
    // and, given an option, chooses that print-out and moves on to its page.
    PrintDialog *openPrintDialog(int selected = 0, const char *option = nullptr)
    {
        m_main.show();
        if (selected)
            m_main.select(selected);
        m_main.control<QAction>("printAction")->trigger();
        m_main.run.settle();
        PrintDialog *form = m_main.run.form<PrintDialog>();
        if (form && option) {
            control<QRadioButton>(form, option)->setChecked(true);
            control<QPushButton>(form, "nextButton")->click();
        }
        return form;
    }

    // Clicks the print button with the file dialog of "PDF-Datei" answered by a file of the
    // test's own; gives the file's text, and its page count in m_pages.
    QString printToPdf(PrintDialog *form, const char *button, const QString &name)
    {
        const QString path = m_out.filePath(name);
        m_main.run.prompts().answerFile(Prompts::FileAnswer { path, 0 });
        control<QPushButton>(form, button)->click();
        m_main.run.settle();
        m_pages = pdfPages(path);
        return pdfText(path);
    }

    MainWindowRun m_main;
    QTemporaryDir m_out;
    int m_pages = -1;
};

TEST_F(PrintDialogTest, SheetOfTheSelectedCdIntoAPdfFile)
{
    PrintDialog *form = openPrintDialog(7, "sheetOption");
    ASSERT_NE(form, nullptr);
    for (const char *option : { "commentListOption", "fileListOption", "folderTreeOption", "sheetOption" })
        EXPECT_TRUE(control<QRadioButton>(form, option)->isEnabled()) << option;
    EXPECT_TRUE(control<QWidget>(form, "sheetPage")->isVisible());
    screenshot(form, u"PrintDialog-Steckbrief"_s);
    EXPECT_EQ(control<QComboBox>(form, "sheetPrinterCombo")->currentText(), u"PDF-Datei"_s);

    // pdftotext lays the blanks out anew.
    const QString text = printToPdf(form, "sheetPrintButton", u"steckbrief.pdf"_s).simplified();
    for (const QString &expected :
        { u"Archiv: Test CD: Abc"_s, u"Kommentare zur CD:"_s, u"eins"_s, u"zwei"_s, u"Seriennummer: 1001"_s })
        EXPECT_TRUE(text.contains(expected)) << expected.toStdString() << "\n" << text.toStdString();
    // One page, and the sheet's print leaves the dialog open.
    EXPECT_EQ(std::tuple(m_pages, form->printerNotChosen(), m_main.run.form<PrintDialog>()),
        std::tuple(1, false, form));
}

TEST_F(PrintDialogTest, TitleListWithoutASelectedCdAndTheStoredPrinter)
{
    PrintDialog *form = openPrintDialog(0, "cdListOption");
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(control<QRadioButton>(form, "cdListOption")->isEnabled());
    for (const char *option : { "commentListOption", "fileListOption", "folderTreeOption", "sheetOption" })
        EXPECT_FALSE(control<QRadioButton>(form, option)->isEnabled()) << option;
    EXPECT_TRUE(control<QWidget>(form, "listPage")->isVisible());
    EXPECT_FALSE(control<QCheckBox>(form, "sizeCheck")->isVisible());
    screenshot(form, u"PrintDialog-Liste"_s);

    // The size box takes digits alone.
    auto *size = control<QLineEdit>(form, "fontSizeEdit");
    size->setFocus();
    size->end(false);
    QTest::keyClicks(size, u"a2b"_s);
    EXPECT_EQ(size->text(), u"102"_s);
    size->setText(u"10"_s);

    control<QCheckBox>(form, "listStandardCheck")->setChecked(true);
    const QString text = printToPdf(form, "listPrintButton", u"liste.pdf"_s);
    EXPECT_TRUE(text.contains(u"--- Archiv: Test. Liste der CD-Titel Stand:"_s)) << text.toStdString();
    EXPECT_LT(text.indexOf(u"Nr. 3 birne"_s), text.indexOf(u"Nr. 7 Abc"_s));
    EXPECT_TRUE(text.contains(u"- Ende der Liste -"_s));
    EXPECT_EQ(m_main.run.form<PrintDialog>(), nullptr);
    EXPECT_EQ(m_main.run.program().settings().groupValue(u"Printer"_s, u"Device"_s), u"PDF-Datei"_s);
}

TEST_F(PrintDialogTest, FileListOfACdWithoutImageIsRefusedBeforeTheFileIsAskedFor)
{
    PrintDialog *form = openPrintDialog(12, "fileListOption");
    EXPECT_TRUE(control<QCheckBox>(form, "sizeCheck")->isVisible());
    control<QPushButton>(form, "listPrintButton")->click();
    m_main.run.settle();
    ASSERT_EQ(m_main.run.prompts().shown().size(), 1u);
    EXPECT_EQ(m_main.run.prompts().shown()[0].text, u"Kein Laufwerks_Abbild verfügbar!"_s);
}

TEST_F(PrintDialogTest, FolderTreeFromTheImageTab)
{
    PrintDialog *form = openPrintDialog(7, "folderTreeOption");
    EXPECT_EQ(m_main.paneShown(), u"imagePage"_s);
    const QString text = printToPdf(form, "listPrintButton", u"ordner.pdf"_s);
    for (const QString &expected : { u"Ordnerstruktur"_s, u"* Archiv: Test*** CD: Abc"_s, u"Abc (d:)"_s })
        EXPECT_TRUE(text.contains(expected)) << expected.toStdString() << "\n" << text.toStdString();
}

// A stored printer that has gone leaves the lists without a selection; a preset device that
// is there is selected over it.
TEST_F(PrintDialogTest, GonePrinterAndPresetDevice)
{
    m_main.run.program().settings().setGroupValue(u"Printer"_s, u"Device"_s, u"Abgebaut"_s);
    PrintDialog *form = openPrintDialog();
    for (const char *list : { "sheetPrinterCombo", "listPrinterCombo" })
        EXPECT_EQ(control<QComboBox>(form, list)->currentIndex(), -1) << list;
    form->setPrinterDefault(u"PDF-Datei"_s);
    for (const char *list : { "sheetPrinterCombo", "listPrinterCombo" })
        EXPECT_EQ(control<QComboBox>(form, list)->currentText(), u"PDF-Datei"_s) << list;
}

// A PDF file that is there is replaced only after "Ja"; "Nein" brings the file dialog back.
// The dialog proposes the CD's title, and next time the folder printed into.
TEST_F(PrintDialogTest, PdfIntoAnExistingFileAsksFirst)
{
    const QString old = writeFile(m_out.filePath(u"alt.pdf"_s), "alte Liste");
    PrintDialog *form = openPrintDialog(7, "sheetOption");
    ASSERT_NE(form, nullptr);
    PromptScript &prompts = m_main.run.prompts();
    prompts.clear();
    prompts.answerFile(Prompts::FileAnswer { old, 0 });
    prompts.answerMessage(Prompts::Answer::No);
    prompts.answerFile(Prompts::FileAnswer { m_out.filePath(u"neu.pdf"_s), 0 });
    control<QPushButton>(form, "sheetPrintButton")->click();
    m_main.run.settle();
    ASSERT_EQ(prompts.shown().size(), 3u);
    EXPECT_EQ(prompts.shown()[0].file.fileName, u"Abc.pdf"_s);
    EXPECT_EQ(std::tuple(prompts.shown()[1].title, prompts.shown()[1].text),
        std::tuple(u"Überschreiben?"_s, u"Wollen Sie die vorhandene Datei überschreiben?"_s));
    EXPECT_EQ(prompts.shown()[2].kind, PromptScript::Kind::File);
    EXPECT_EQ(fileBytes(old), QByteArray("alte Liste"));
    EXPECT_EQ(pdfPages(m_out.filePath(u"neu.pdf"_s)), 1);

    // "Ja" replaces it; the dialog starts in the folder used last.
    prompts.clear();
    prompts.answerFile(Prompts::FileAnswer { old, 0 });
    prompts.answerMessage(Prompts::Answer::Yes);
    control<QPushButton>(form, "sheetPrintButton")->click();
    m_main.run.settle();
    ASSERT_EQ(prompts.shown().size(), 2u);
    EXPECT_EQ(QDir(prompts.shown()[0].file.directory), QDir(m_out.path()));
    EXPECT_EQ(pdfPages(old), 1);
}

// Counts the preview windows that open while it lives, notes the pages of the last one, and
// closes each at once.
class PreviewWatch
{
public:
    PreviewWatch()
    {
        m_poll.setInterval(10);
        QObject::connect(&m_poll, &QTimer::timeout, [this] {
            if (auto *dialog = qobject_cast<QPrintPreviewDialog *>(QApplication::activeModalWidget())) {
                ++m_opened;
                auto *widget = dialog->findChild<QPrintPreviewWidget *>();
                m_pages = widget ? widget->pageCount() : -2;
                dialog->reject();
            }
        });
        m_poll.start();
    }
    int opened() const { return m_opened; }
    int pages() const { return m_pages; }

private:
    QTimer m_poll;
    int m_opened = 0;
    int m_pages = -1;
};

const QString kFontSizeRefusal = u"Bitte geben Sie als Schriftgröße eine Zahl von 1 bis 72 ein."_s;

// A size box that holds no printable size: the message, no file asked for, no preview, and
// the dialog stays open with the box as it was.
TEST_F(PrintDialogTest, FontSizeThatIsNoSizeIsRefusedAndTheDialogStays)
{
    const std::tuple<const char *, const char *, const char *, QString> cases[] = {
        { "list, empty", "cdListOption", "fontSizeEdit", u""_s },
        { "list, too large", "cdListOption", "fontSizeEdit", u"500"_s },
        { "sheet comments, letters", "sheetOption", "commentSizeEdit", u"zehn"_s },
    };
    for (const auto &[what, option, box, text] : cases) {
        SCOPED_TRACE(what);
        PrintDialog *form = openPrintDialog(7, option);
        ASSERT_NE(form, nullptr);
        control<QLineEdit>(form, box)->setText(text);
        const QString page = QString::fromLatin1(option) == u"sheetOption"_s ? u"sheet"_s : u"list"_s;
        PreviewWatch previews;
        m_main.run.prompts().clear();
        for (const QString &button : { page + u"PrintButton"_s, page + u"PreviewButton"_s }) {
            control<QPushButton>(form, button.toLatin1().constData())->click();
            m_main.run.settle();
        }
        EXPECT_EQ(m_main.run.prompts().messages(), (QStringList { kFontSizeRefusal, kFontSizeRefusal }));
        EXPECT_EQ(m_main.run.prompts().shown().size(), 2u); // no file dialog
        EXPECT_EQ(std::tuple(previews.opened(), m_main.run.form<PrintDialog>(), control<QLineEdit>(form, box)->text()),
            std::tuple(0, form, text));
        form->close();
        m_main.run.settle();
    }
}

TEST_F(PrintDialogTest, ResultsFontSizeThatIsNoSizeIsRefusedAndTheDialogStays)
{
    m_main.show();
    for (const QString &text : { u"zehn"_s, u"73"_s }) {
        SCOPED_TRACE(text.toStdString());
        auto *dialog = new ResultsPrintDialog(
            m_main.run.program().session(), m_main.run.program().settings(), u"word"_s, nullptr);
        dialog->show();
        control<QLineEdit>(dialog, "fontSizeEdit")->setText(text);
        PreviewWatch previews;
        m_main.run.prompts().clear();
        for (const char *button : { "listPrintButton", "listPreviewButton" }) {
            control<QPushButton>(dialog, button)->click();
            m_main.run.settle();
        }
        EXPECT_EQ(m_main.run.prompts().messages(), (QStringList { kFontSizeRefusal, kFontSizeRefusal }));
        EXPECT_EQ(m_main.run.prompts().shown().size(), 2u);
        EXPECT_EQ(std::tuple(previews.opened(), dialog->isVisible()), std::tuple(0, true));
        delete dialog;
    }
}

// The title list of `count` CDs, printed as a long print-out.
PrintOutcome printList(Printer &target, int count)
{
    QStringList entries;
    for (int i = 1; i <= count; ++i)
        entries << u"%1 CD %1"_s.arg(i);
    return printCdList(target, { u"Musik"_s, u"10"_s, QDateTime::currentDateTime() }, entries);
}

// A long print-out shows its pages as they go; a cancel there ends the job, and the file it
// would have replaced stays as it was.
TEST(PrintRun, WaitWindowCountsPagesAndCancelLeavesTheOldFile)
{
    PromptScript prompts;
    QTemporaryDir dir;
    const QString path = writeFile(dir.filePath(u"liste.pdf"_s), "alte Liste");

    QString progress;
    QTimer poll;
    poll.setInterval(0);
    QObject::connect(&poll, &QTimer::timeout, [&] {
        for (QWidget *waiting : QApplication::topLevelWidgets()) {
            if (waiting->objectName() != u"ProgressWindow"_s || !waiting->isVisible())
                continue;
            progress = control<QLabel>(waiting, "progressLabel")->text();
            if (progress == u"Seite 3"_s)
                control<QPushButton>(waiting, "cancelButton")->click();
        }
    });
    poll.start();
    PdfPrinter printer(path);
    const bool printed = printrun::print(
        nullptr, printer, std::nullopt, [](Printer &target) { return printList(target, 2000); });
    poll.stop();
    EXPECT_EQ(std::tuple(printed, progress, prompts.shown().size(), fileBytes(path),
                  QDir(dir.path()).entryList(QDir::Files)),
        std::tuple(false, u"Seite 3"_s, size_t(0), QByteArray("alte Liste"), QStringList { u"liste.pdf"_s }));
}

// The preview draws the same pages; it closes like any dialog.
TEST(PrintRun, PreviewShowsThePages)
{
    PromptScript prompts;
    PreviewWatch previews;
    printrun::preview(nullptr, std::nullopt, [](Printer &target) { return printList(target, 200); });
    EXPECT_TRUE(previews.opened() == 1 && previews.pages() >= 3 && prompts.shown().empty()) << previews.pages();
}

} // namespace

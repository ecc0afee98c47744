#include "CaptureDrive.h"
#include "MainWindowStandIn.h"
#include "QStringPrinting.h"
#include "Screenshot.h"
#include "TempCatalog.h"
#include "TreeBuilder.h"

#include "common/PromptScript.h"
#include "records/changecd.h"
#include "records/newCD.h"

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

namespace {

const QString savedMessage = QStringLiteral("CD erfolgreich gespeichert!");

class CdEditorTest : public ::testing::Test
{
protected:
    // Opens newCD, or changecd over the CD `selected` in the main window.
    template <class Dialog> void open(int selected = 0)
    {
        delete m_open.data();
        m_main.select(selected);
        m_open = new Dialog(m_catalog.session(), m_catalog.settings(), m_main.link());
        m_open->show();
    }

    template <typename T> T *control(const char *name) { return ::control<T>(m_open.data(), name); }
    void click(const char *button) { control<QPushButton>(button)->click(); }
    void setText(const char *box, const QString &text) { control<QLineEdit>(box)->setText(text); }

    // Clicks "Speichern"; a saved dialog frees itself.
    void save()
    {
        click("Command3");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // Chooses a one-coloured cover of the given size, then captures the drive from the dialog
    // the editor opens.
    void coverAndCapture(const CaptureDrive &drive, int width, int height, const char *captureMode)
    {
        const QString path
            = m_catalog.scratch(QStringLiteral("bilder")) + QStringLiteral("/cover%1.jpg").arg(width);
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(QColor(30, 90, 160));
        ASSERT_TRUE(image.save(path, "JPG"));
        m_prompts.answerFile(Prompts::FileAnswer { path, 0 });
        click("Command4");
        click("Command2");
        EXPECT_EQ(m_catalog.session().captureMode, QLatin1String(captureMode));
        ASSERT_TRUE(drive.capture(m_open->findChild<abbild *>()));
        EXPECT_EQ(control<QLabel>("Label3")->text(),
            QStringLiteral("Vorhanden! ID: ") + QString::number(drive.id()));
    }

    // The row of CD `number`, checked against `expected` but for the cover, whose picture is
    // scaled to 300 x 150.
    void expectRow(int number, CdRow expected)
    {
        const auto row = m_catalog.store().selectByNumber(number);
        ASSERT_TRUE(row.ok()) << row.error.message.toStdString();
        expected.cover = row.value.cover;
        EXPECT_EQ(row.value, expected);
        EXPECT_EQ(
            QImage(datapaths::coverFile(m_catalog.dataFolder(), row.value.cover)).size(), QSize(300, 150));
    }

    void TearDown() override
    {
        delete m_open.data();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    TempCatalog m_catalog;
    MainWindowStandIn m_main;
    PromptScript m_prompts;
    QPointer<CdEditor> m_open;
};

} // namespace

// The whole road of a new CD: title, number, comments typed and pasted, a cover, an image
// captured from a folder made a drive, and the row, cover file and image file that result.
TEST_F(CdEditorTest, NewCdWithCommentsCoverAndCapturedImage)
{
    const QString volume = m_catalog.scratch(QStringLiteral("volume"));
    TreeBuilder tree(volume);
    tree.file(QStringLiteral("liesmich.txt"), 1834, 1047462067);
    tree.file(QStringLiteral("Bilder/haus.jpg"), 482113, 1027879364);
    const CaptureDrive drive(m_catalog.settings(), volume);
    ASSERT_NE(drive.id(), 0);

    open<newCD>();
    setText("Text1", QStringLiteral("Urlaub 2003"));
    control<QLineEdit>("Text2")->clear();
    QTest::keyClicks(control<QLineEdit>("Text2"), QStringLiteral("0a0-7")); // digits only
    QTest::keyClicks(control<QLineEdit>("Text4"), QStringLiteral("Word"));
    QTest::keyClick(control<QLineEdit>("Text4"), Qt::Key_Return);
    QApplication::clipboard()->setText(QStringLiteral("Excel 2000\r\n\r\nTreiber für Drucker\r\n"));
    click("Command11");
    coverAndCapture(drive, 600, 300, "2");
    screenshot(m_open, QStringLiteral("newCD"));
    save();
    EXPECT_TRUE(m_open.isNull());
    EXPECT_EQ(m_prompts.messages(),
        (QStringList { QStringLiteral("Der CD Inhalt wurde erfolgreich eingelesen!"), savedMessage }));
    expectRow(7,
        { 7, QStringLiteral("Urlaub 2003"), drive.id(),
            QStringLiteral("Sta1|Word|Excel 2000|Treiber für Drucker|End1"), false, {} });
    QFile image(datapaths::imageFile(m_catalog.dataFolder(), drive.id()));
    ASSERT_TRUE(image.open(QIODevice::ReadOnly));
    EXPECT_TRUE(image.readAll().contains(drive.letter().toLatin1() + "\\liesmich.txt|1834|"));
    EXPECT_EQ(std::pair(m_main.refreshes(), m_main.sorts()), std::pair(1, 0));
}

// The capture, the cover and the new title reach the row at saving only; its number stays.
TEST_F(CdEditorTest, ChangeCdKeepsItsNumberAndStoresCaptureAndCoverAtSaving)
{
    const QString volume = m_catalog.scratch(QStringLiteral("neu"));
    TreeBuilder(volume).file(QStringLiteral("a.txt"), 1, 1044057600);
    const CaptureDrive drive(m_catalog.settings(), volume);
    m_catalog.archive().row(
        { 5, QStringLiteral("Fünf"), 77, QStringLiteral("Sta1|a|b|End1"), true, QStringLiteral("0") });

    open<changecd>(5);
    EXPECT_EQ(control<QLineEdit>("Text1")->text(), QStringLiteral("Fünf"));
    EXPECT_EQ(control<QLabel>("Label3")->text(), QStringLiteral("Vorhanden! ID: 77"));
    auto *list2 = control<QListWidget>("List2");
    m_prompts.answerInput(QStringLiteral("A"));
    emit list2->itemDoubleClicked(list2->item(0)); // edits here, unlike in a new CD
    setText("Text1", QStringLiteral("Fünf neu"));
    setText("Text4", QStringLiteral("c|d"));
    click("Command9");
    coverAndCapture(drive, 100, 50, "3");
    EXPECT_EQ(m_catalog.store().selectByNumber(5).value.imageId, 77);
    save();
    EXPECT_EQ(m_prompts.messages().last(), savedMessage);
    expectRow(
        5, { 5, QStringLiteral("Fünf neu"), drive.id(), QStringLiteral("Sta1|A|b|c|d|End1"), false, {} });
}

// The number rules themselves are tested in the core; here a refusal reaches the user and keeps
// the dialog and the rows as they were.
TEST_F(CdEditorTest, SavingRefusesWithItsMessageAndLeavesTheDialogOpen)
{
    const std::pair<QString, QString> refused[] = { // number, title
        { QStringLiteral("005"), QStringLiteral("X") }, { QStringLiteral("9"), QString(51, u'x') }
    };
    const QStringList messages
        = { QStringLiteral("Fehler! Die gewünschte CD Nummer wird schon verwendet. Bitte geben "
                           "Sie eine andere CD Nummer ein, da jede Nummer nur einmal vergeben "
                           "werden darf!"),
              QStringLiteral("Der Titel ist zu lang: Er darf höchstens 50 Zeichen haben.") };
    m_catalog.archive().cd(1, QStringLiteral("Eins")).cd(5, QStringLiteral("Fünf"));
    open<newCD>();
    for (const auto &[number, title] : refused) {
        setText("Text1", title);
        setText("Text2", number);
        save();
        ASSERT_FALSE(m_open.isNull()) << "a refusal keeps the dialog open";
        EXPECT_EQ(control<QLineEdit>("Text1")->text(), title);
    }
    EXPECT_EQ(m_prompts.messages(), messages);
    EXPECT_TRUE(m_prompts.shown()[0].icon == Prompts::Icon::Critical
        && m_prompts.shown()[1].icon == Prompts::Icon::Critical);
    EXPECT_EQ(m_catalog.store().selectAll().value.size(), 2u);
    EXPECT_EQ(m_main.refreshes(), 0);
}

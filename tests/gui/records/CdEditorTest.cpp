#include "CaptureDrive.h"
#include "Control.h"
#include "MainWindowStandIn.h"
#include "QStringPrinting.h"
#include "Screenshot.h"
#include "TempCatalog.h"
#include "TreeBuilder.h"

#include "app/DataPaths.h"
#include "common/PromptScript.h"
#include "records/CdEditor.h"
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
const QString capturedMessage = QStringLiteral("Der CD Inhalt wurde erfolgreich eingelesen!");

class CdEditorTest : public ::testing::Test
{
protected:
    CdEditor *openNew() { return track(new newCD(m_catalog.session(), m_catalog.settings(), m_main.link())); }
    CdEditor *openChange(int selected)
    {
        m_main.select(selected);
        return track(new changecd(m_catalog.session(), m_catalog.settings(), m_main.link()));
    }

    // A control of the dialog opened last.
    template <typename T> T *control(const char *name) { return ::control<T>(m_open.data(), name); }
    void click(const char *button) { control<QPushButton>(button)->click(); }

    // Clicks "Speichern"; a saved dialog frees itself.
    void save()
    {
        click("Command3");
        settle();
    }

    // A one-coloured picture in the test's own folder.
    QString picture(int width, int height)
    {
        const QString path = m_catalog.scratch(QStringLiteral("bilder"))
            + QStringLiteral("/cover%1x%2.jpg").arg(width).arg(height);
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(QColor(30, 90, 160));
        EXPECT_TRUE(image.save(path, "JPG"));
        return path;
    }

    QSize coverSize(const QString &number)
    {
        return QImage(datapaths::coverFile(m_catalog.dataFolder(), number)).size();
    }

    static void settle() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    void TearDown() override
    {
        delete m_open.data();
        settle();
    }

    TempCatalog m_catalog;
    MainWindowStandIn m_main;
    PromptScript m_prompts;
    QPointer<CdEditor> m_open;

private:
    CdEditor *track(CdEditor *editor)
    {
        delete m_open.data();
        m_open = editor;
        editor->show();
        return editor;
    }
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

    CdEditor *editor = openNew();
    control<QLineEdit>("Text1")->setText(QStringLiteral("Urlaub 2003"));
    auto *text2 = control<QLineEdit>("Text2");
    text2->clear();
    QTest::keyClicks(text2, QStringLiteral("0a0-7")); // digits only
    auto *text4 = control<QLineEdit>("Text4");
    QTest::keyClicks(text4, QStringLiteral("Word"));
    QTest::keyClick(text4, Qt::Key_Return);
    QApplication::clipboard()->setText(QStringLiteral("Excel 2000\r\n\r\nTreiber für Drucker\r\n"));
    click("Command11");
    m_prompts.answerFile(Prompts::FileAnswer { picture(600, 300), 0 });
    click("Command4");

    click("Command2");
    EXPECT_EQ(m_catalog.session().captureMode, QStringLiteral("2"));
    ASSERT_TRUE(drive.capture(editor->findChild<abbild *>()));
    EXPECT_EQ(
        control<QLabel>("Label3")->text(), QStringLiteral("Vorhanden! ID: ") + QString::number(drive.id()));

    screenshot(editor, QStringLiteral("newCD"));
    save();
    EXPECT_TRUE(m_open.isNull());
    EXPECT_EQ(m_prompts.messages(), (QStringList { capturedMessage, savedMessage }));
    const auto row = m_catalog.store().selectByNumber(7);
    ASSERT_TRUE(row.ok()) << row.error.message.toStdString();
    EXPECT_EQ(row.value,
        (CdRow { 7, QStringLiteral("Urlaub 2003"), drive.id(),
            QStringLiteral("Sta1|Word|Excel 2000|Treiber für Drucker|End1"), false, row.value.cover }));
    EXPECT_EQ(coverSize(row.value.cover), QSize(300, 150));

    QFile image(datapaths::imageFile(m_catalog.dataFolder(), drive.id()));
    ASSERT_TRUE(image.open(QIODevice::ReadOnly));
    const QByteArray content = image.readAll();
    const QByteArray letter = drive.letter().toLatin1();
    EXPECT_TRUE(content.startsWith(">" + letter + "\r\n")) << content.constData();
    EXPECT_TRUE(content.contains(letter + "\\liesmich.txt|1834|")) << content.constData();
    EXPECT_TRUE(content.contains(">" + letter + "\\Bilder\r\n")) << content.constData();
    EXPECT_EQ(m_main.refreshes(), 1);
    EXPECT_EQ(m_main.sorts(), 0);
}

// The capture, the cover and the new title reach the row at saving only; its number stays.
TEST_F(CdEditorTest, ChangeCdKeepsItsNumberAndStoresCaptureAndCoverAtSaving)
{
    const QString volume = m_catalog.scratch(QStringLiteral("neu"));
    TreeBuilder(volume).file(QStringLiteral("a.txt"), 1, 1044057600);
    const CaptureDrive drive(m_catalog.settings(), volume);
    m_catalog.archive().row(
        CdRow { 5, QStringLiteral("Fünf"), 77, QStringLiteral("Sta1|a|b|End1"), true, QStringLiteral("0") });

    CdEditor *editor = openChange(5);
    EXPECT_EQ(control<QLineEdit>("Text1")->text(), QStringLiteral("Fünf"));
    EXPECT_EQ(control<QLabel>("Label3")->text(), QStringLiteral("Vorhanden! ID: 77"));
    auto *list2 = control<QListWidget>("List2");
    m_prompts.answerInput(QStringLiteral("A"));
    emit list2->itemDoubleClicked(list2->item(0)); // edits here, unlike in a new CD
    control<QLineEdit>("Text1")->setText(QStringLiteral("Fünf neu"));
    control<QLineEdit>("Text4")->setText(QStringLiteral("c|d"));
    click("Command9");
    m_prompts.answerFile(Prompts::FileAnswer { picture(100, 50), 0 });
    click("Command4");

    click("Command2");
    EXPECT_EQ(m_catalog.session().captureMode, QStringLiteral("3"));
    ASSERT_TRUE(drive.capture(editor->findChild<abbild *>()));
    EXPECT_EQ(
        control<QLabel>("Label3")->text(), QStringLiteral("Vorhanden! ID: ") + QString::number(drive.id()));
    EXPECT_EQ(m_catalog.store().selectByNumber(5).value.imageId, 77);
    save();
    EXPECT_EQ(m_prompts.messages().last(), savedMessage);
    const CdRow first = m_catalog.store().selectByNumber(5).value;
    EXPECT_EQ(first,
        (CdRow { 5, QStringLiteral("Fünf neu"), drive.id(), QStringLiteral("Sta1|A|b|c|d|End1"), false,
            first.cover }));
    ASSERT_NE(first.cover, QStringLiteral("0"));
    EXPECT_EQ(coverSize(first.cover), QSize(300, 150));
}

TEST_F(CdEditorTest, SavingRefusesWithItsMessageAndLeavesTheDialogOpen)
{
    const QString limit = QStringLiteral("Fehler: Es können maximal 32000 CDs archiviert werden. Bitte "
                                         "verwenden Sie eine CD Nummer die in diesem Bereich liegt.");
    const QString taken = QStringLiteral("Fehler! Die gewünschte CD Nummer wird schon verwendet. Bitte geben "
                                         "Sie eine andere CD Nummer ein, da jede Nummer nur einmal vergeben "
                                         "werden darf!");
    const struct
    {
        const char *why;
        int changing; // the selected CD of a change, 0 for a new CD
        QString number;
        QString title;
        QString message;
    } refused[] = {
        { "new: above the limit", 0, QStringLiteral("32001"), QStringLiteral("X"), limit },
        { "new: zero counts as taken", 0, QStringLiteral("0"), QStringLiteral("X"), taken },
        { "new: a number in use", 0, QStringLiteral("005"), QStringLiteral("X"), taken },
        { "new: no number", 0, QString(), QStringLiteral("X"),
            QStringLiteral("Bitte geben Sie eine CD Nummer ein.") },
        { "new: title too long", 0, QStringLiteral("9"), QString(51, u'x'),
            QStringLiteral("Der Titel ist zu lang: Er darf höchstens 50 Zeichen haben.") },
        { "change: another's number", 1, QStringLiteral("5"), QStringLiteral("X"), taken },
    };
    m_catalog.archive().cd(1, QStringLiteral("Eins")).cd(5, QStringLiteral("Fünf"));
    for (const auto &c : refused) {
        m_prompts.clear();
        c.changing ? openChange(c.changing) : openNew();
        control<QLineEdit>("Text1")->setText(c.title);
        control<QLineEdit>("Text2")->setText(c.number);
        save();
        ASSERT_FALSE(m_open.isNull()) << c.why << ": a refusal keeps the dialog open";
        ASSERT_EQ(m_prompts.shown().size(), 1u) << c.why;
        EXPECT_EQ(m_prompts.shown()[0].text, c.message) << c.why;
        EXPECT_EQ(m_prompts.shown()[0].icon, Prompts::Icon::Critical) << c.why;
        EXPECT_EQ(control<QLineEdit>("Text1")->text(), c.title) << c.why;
        EXPECT_EQ(m_catalog.store().selectAll().value.size(), 2u) << c.why;
        EXPECT_EQ(m_catalog.store().selectByNumber(1).value.name, QStringLiteral("Eins")) << c.why;
    }
    EXPECT_EQ(m_main.refreshes(), 0);
}

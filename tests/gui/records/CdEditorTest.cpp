#include "MainWindowStandIn.h"
#include "QStringPrinting.h"
#include "Screenshot.h"
#include "TempCatalog.h"
#include "TreeBuilder.h"

#include "app/DataPaths.h"
#include "common/PromptScript.h"
#include "images/DriveListBox.h"
#include "images/DriveTable.h"
#include "images/abbild.h"
#include "records/CdEditor.h"
#include "records/changecd.h"
#include "records/cover.h"
#include "records/newCD.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QFile>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace {

const QString limitMessage
    = QStringLiteral("Fehler: Es können maximal 32000 CDs archiviert werden. Bitte verwenden "
                     "Sie eine CD Nummer die in diesem Bereich liegt.");
const QString takenMessage
    = QStringLiteral("Fehler! Die gewünschte CD Nummer wird schon verwendet. Bitte geben Sie "
                     "eine andere CD Nummer ein, da jede Nummer nur einmal vergeben werden "
                     "darf!");
const QString savedMessage = QStringLiteral("CD erfolgreich gespeichert!");

template <typename T> T *control(QWidget *window, const char *name)
{
    T *found = window->findChild<T *>(QString::fromLatin1(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

QStringList lines(QListWidget *list)
{
    QStringList out;
    for (int i = 0; i < list->count(); ++i)
        out << list->item(i)->text();
    return out;
}

// The dialogs free themselves when closed; this runs the pending deletions.
void settle()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// A one-coloured GIF, which Qt reads but cannot write: LZW codes of three bits, a clear
// code before every pair of pixels, so the code width never grows.
QByteArray gifBytes(int width, int height)
{
    QByteArray gif("GIF89a");
    const auto le16 = [&gif](int v) {
        gif += char(v & 0xff);
        gif += char((v >> 8) & 0xff);
    };
    le16(width);
    le16(height);
    gif += QByteArray("\x80\x00\x00\x00\x00\x00\x1e\x5a\xa0", 9); // two colours: black, the cover's blue
    gif += char(0x2c);
    le16(0);
    le16(0);
    le16(width);
    le16(height);
    gif += char(0);
    gif += char(2); // minimum code size
    QByteArray data;
    uint32_t bits = 0;
    int count = 0;
    const auto code = [&](uint32_t c) {
        bits |= c << count;
        count += 3;
        while (count >= 8) {
            data += char(bits & 0xff);
            bits >>= 8;
            count -= 8;
        }
    };
    for (int pixel = 0; pixel < width * height; ++pixel) {
        if (pixel % 2 == 0)
            code(4);
        code(1);
    }
    code(5);
    if (count > 0)
        data += char(bits & 0xff);
    for (qsizetype at = 0; at < data.size(); at += 255) {
        const QByteArray block = data.mid(at, 255);
        gif += char(block.size());
        gif += block;
    }
    gif += char(0);
    gif += char(0x3b);
    return gif;
}

QString picture(TempCatalog &catalog, int width, int height, const char *format)
{
    const QString path = catalog.scratch(QStringLiteral("bilder")) + QStringLiteral("/cover.")
        + QString::fromLatin1(format).toLower();
    if (qstrcmp(format, "GIF") == 0) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(gifBytes(width, height));
        return path;
    }
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(QColor(30, 90, 160));
    EXPECT_TRUE(image.save(path, format));
    return path;
}

class CdEditorTest : public ::testing::Test
{
protected:
    CdEditor *openNew() { return track(new newCD(m_catalog.session(), m_catalog.settings(), m_main.link())); }
    CdEditor *openChange(int selected)
    {
        m_main.select(selected);
        return track(new changecd(m_catalog.session(), m_catalog.settings(), m_main.link()));
    }

    CdEditor *track(CdEditor *editor)
    {
        m_open = editor;
        editor->show();
        return editor;
    }

    void TearDown() override
    {
        delete m_open.data();
        settle();
    }

    TempCatalog m_catalog;
    MainWindowStandIn m_main;
    PromptScript m_prompts;
    QPointer<CdEditor> m_open;
};

} // namespace

TEST_F(CdEditorTest, NewCdProposesANumberByPosition)
{
    struct Case
    {
        const char *why;
        std::vector<int> numbers;
        QString proposal;
    };
    const Case cases[] = {
        { "empty archive keeps the design value", {}, QStringLiteral("001") },
        { "next after a run", { 1, 2, 3 }, QStringLiteral("004") },
        { "first gap", { 1, 3 }, QStringLiteral("002") },
        { "gap at the start is passed over", { 5, 7 }, QStringLiteral("002") },
        { "a number in use when 1 is missing", { 2, 3 }, QStringLiteral("002") },
    };
    for (const Case &c : cases) {
        TempCatalog catalog;
        for (int number : c.numbers)
            catalog.archive().cd(number, QStringLiteral("CD %1").arg(number));
        MainWindowStandIn main;
        newCD editor(catalog.session(), catalog.settings(), main.link());
        EXPECT_EQ(control<QLineEdit>(&editor, "Text2")->text(), c.proposal) << c.why;
    }
}

TEST_F(CdEditorTest, CaptionsOfTheTwoDialogs)
{
    m_catalog.archive().cd(3, QStringLiteral("Drei"));
    CdEditor *fresh = openNew();
    EXPECT_EQ(fresh->objectName(), QStringLiteral("newCD"));
    EXPECT_EQ(fresh->windowTitle(), QStringLiteral("Neue CD Erstellen"));
    EXPECT_EQ(control<QGroupBox>(fresh, "Frame3")->title(),
        QStringLiteral("Laufwerksstruktur / Abbild der Laufwerksstruktur von einer CD erstellen:"));
    EXPECT_EQ(control<QLabel>(fresh, "Label1")->text(), QStringLiteral("Titel der neuen  CD:"));
    EXPECT_EQ(control<QPushButton>(fresh, "Command9")->text(), QStringLiteral("Kommentar &hinzufügen "));
    EXPECT_EQ(control<QToolButton>(fresh, "Command10")->toolTip(),
        QStringLiteral("Info: Was ist ein Laufwerksabbild?"));
    EXPECT_FALSE(control<QPushButton>(fresh, "Command1")->isEnabled());
    EXPECT_FALSE(control<QPushButton>(fresh, "Command7")->isVisibleTo(fresh));
    EXPECT_EQ(control<QLabel>(fresh, "Label3")->text(), QStringLiteral("nicht vorhanden!"));
    delete fresh;

    CdEditor *change = openChange(3);
    EXPECT_EQ(change->objectName(), QStringLiteral("changecd"));
    EXPECT_EQ(change->windowTitle(), QStringLiteral("CD bearbeiten"));
    EXPECT_EQ(control<QGroupBox>(change, "Frame3")->title(),
        QStringLiteral("Laufwerksstruktur / Abbild der Laufwerksstruktur"));
    EXPECT_EQ(control<QLabel>(change, "Label1")->text(), QStringLiteral("Titel der neuen  CD:"));
}

// The whole road of a new CD: title, number, comments typed and pasted, a cover, an image
// captured from a folder made a drive, and the row, cover file and image file that result.
TEST_F(CdEditorTest, NewCdWithCommentsCoverAndCapturedImage)
{
    const QString volume = m_catalog.scratch(QStringLiteral("volume"));
    TreeBuilder tree(volume);
    tree.file(QStringLiteral("liesmich.txt"), 1834, 1047462067);
    tree.file(QStringLiteral("Bilder/haus.jpg"), 482113, 1027879364);
    DriveTable table(m_catalog.settings());
    const Drive drive = table.driveForFolder(volume);
    ASSERT_FALSE(drive.letter.isEmpty());
    const int32_t id = table.getSerial(drive);
    ASSERT_NE(id, 0);
    const QString coverPath = picture(m_catalog, 600, 300, "JPG");

    CdEditor *editor = openNew();
    editor->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(editor));
    auto *text1 = control<QLineEdit>(editor, "Text1");
    auto *text2 = control<QLineEdit>(editor, "Text2");
    auto *text4 = control<QLineEdit>(editor, "Text4");
    auto *list2 = control<QListWidget>(editor, "List2");

    text1->setFocus();
    QTest::keyClicks(text1, QStringLiteral("Urlaub 2003"));
    QTest::keyClick(text1, Qt::Key_Return);
    EXPECT_TRUE(text4->hasFocus()); // Enter in the title moves on to the comment
    text2->clear();
    QTest::keyClicks(text2, QStringLiteral("007"));
    QTest::keyClicks(text4, QStringLiteral("Word"));
    QTest::keyClick(text4, Qt::Key_Return);
    EXPECT_EQ(text4->text(), QString());
    EXPECT_TRUE(text4->hasFocus());
    EXPECT_TRUE(control<QPushButton>(editor, "Command1")->isEnabled());
    QApplication::clipboard()->setText(QStringLiteral("Excel 2000\r\n\r\nTreiber für Drucker\r\n"));
    control<QPushButton>(editor, "Command11")->click();
    EXPECT_EQ(lines(list2),
        (QStringList {
            QStringLiteral("Word"), QStringLiteral("Excel 2000"), QStringLiteral("Treiber für Drucker") }));

    m_prompts.answerFile(Prompts::FileAnswer { coverPath, 0 });
    control<QPushButton>(editor, "Command4")->click();
    EXPECT_EQ(control<QLabel>(editor, "Label10")->text(), QStringLiteral("Vorhanden"));
    EXPECT_EQ(control<QPushButton>(editor, "Command4")->text(), QStringLiteral("CD Cover Bild ändern"));
    auto *command7 = control<QPushButton>(editor, "Command7");
    EXPECT_TRUE(command7->isVisibleTo(editor));
    command7->click();
    auto *view = editor->findChild<cover *>();
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(control<QLabel>(view, "Picture1")->pixmap().size(), QSize(300, 150));

    control<QPushButton>(editor, "Command2")->click();
    EXPECT_EQ(m_catalog.session().captureMode, QStringLiteral("2"));
    auto *capture = editor->findChild<abbild *>();
    ASSERT_NE(capture, nullptr);
    ASSERT_TRUE(control<DriveListBox>(capture, "Drive1")->selectDrive(drive.letter));
    QSignalSpy ended(capture, &abbild::captureEnded);
    control<QPushButton>(capture, "aufnahhme")->click();
    ASSERT_TRUE(ended.wait(20000));
    EXPECT_EQ(
        control<QLabel>(editor, "Label3")->text(), QStringLiteral("Vorhanden! ID: ") + QString::number(id));

    screenshot(editor, QStringLiteral("newCD"));
    control<QPushButton>(editor, "Command3")->click();
    EXPECT_EQ(m_prompts.messages(),
        (QStringList { QStringLiteral("Der CD Inhalt wurde erfolgreich eingelesen!"), savedMessage }));

    const auto row = m_catalog.store().selectByNumber(7);
    ASSERT_TRUE(row.ok()) << row.error.message.toStdString();
    EXPECT_EQ(row.value.name, QStringLiteral("Urlaub 2003"));
    EXPECT_EQ(row.value.imageId, id);
    EXPECT_EQ(row.value.comments, QStringLiteral("Sta1|Word|Excel 2000|Treiber für Drucker|End1"));
    EXPECT_FALSE(row.value.lent);
    ASSERT_NE(row.value.cover, QStringLiteral("0"));
    EXPECT_EQ(QImage(datapaths::coverFile(m_catalog.dataFolder(), row.value.cover)).size(), QSize(300, 150));

    QFile image(datapaths::imageFile(m_catalog.dataFolder(), id));
    ASSERT_TRUE(image.open(QIODevice::ReadOnly));
    const QByteArray content = image.readAll();
    const QByteArray letter = drive.letter.toLatin1();
    EXPECT_TRUE(content.startsWith(">" + letter + "\r\n")) << content.constData();
    EXPECT_TRUE(content.contains(letter + "\\liesmich.txt|1834|")) << content.constData();
    EXPECT_TRUE(content.contains(">" + letter + "\\Bilder\r\n")) << content.constData();

    EXPECT_EQ(m_main.refreshes(), 1);
    EXPECT_EQ(m_main.sorts(), 0);
    settle();
    EXPECT_TRUE(m_open.isNull()); // saved and closed
}

TEST_F(CdEditorTest, NewCdWithoutCommentsSavesTheBareFrame)
{
    m_catalog.session().listSorted = true;
    CdEditor *editor = openNew();
    control<QLineEdit>(editor, "Text1")->setText(QStringLiteral("Leer"));
    control<QPushButton>(editor, "Command3")->click();
    const auto row = m_catalog.store().selectByNumber(1);
    ASSERT_TRUE(row.ok());
    EXPECT_EQ(row.value.comments, QStringLiteral("Sta1|End1"));
    EXPECT_EQ(row.value.cover, QStringLiteral("0"));
    EXPECT_EQ(row.value.imageId, 0);
    EXPECT_EQ(m_main.refreshes(), 1);
    EXPECT_EQ(m_main.sorts(), 1); // a sorted list is sorted again
}

TEST_F(CdEditorTest, ChangeCdOpensWithTheSelectedRowAndKeepsItsNumber)
{
    m_catalog.archive().row(
        CdRow { 5, QStringLiteral("Fünf"), 77, QStringLiteral("Sta1|a|b|End1"), true, QStringLiteral("0") });
    CdEditor *editor = openChange(5);
    EXPECT_EQ(control<QLineEdit>(editor, "Text1")->text(), QStringLiteral("Fünf"));
    EXPECT_EQ(control<QLineEdit>(editor, "Text2")->text(), QStringLiteral("5"));
    EXPECT_EQ(lines(control<QListWidget>(editor, "List2")),
        (QStringList { QStringLiteral("a"), QStringLiteral("b") }));
    EXPECT_TRUE(control<QPushButton>(editor, "Command1")->isEnabled());
    EXPECT_EQ(control<QLabel>(editor, "Label3")->text(), QStringLiteral("Vorhanden! ID: 77"));
    EXPECT_EQ(control<QLabel>(editor, "Label10")->text(), QStringLiteral("Nicht vorhanden!"));
    EXPECT_EQ(control<QLabel>(editor, "Label10")->palette().color(QPalette::WindowText), QColor(255, 0, 0));
    EXPECT_EQ(control<QPushButton>(editor, "Command4")->text(), QStringLiteral("CD Cover Bild hinzufügen"));

    control<QLineEdit>(editor, "Text1")->setText(QStringLiteral("Fünf neu"));
    control<QLineEdit>(editor, "Text4")->setText(QStringLiteral("c|d"));
    control<QPushButton>(editor, "Command9")->click();
    control<QPushButton>(editor, "Command3")->click();
    EXPECT_EQ(m_prompts.messages(), QStringList { savedMessage });
    const auto row = m_catalog.store().selectByNumber(5);
    ASSERT_TRUE(row.ok());
    EXPECT_EQ(row.value,
        (CdRow { 5, QStringLiteral("Fünf neu"), 77, QStringLiteral("Sta1|a|b|c|d|End1"), false,
            QStringLiteral("0") }));
    settle();

    // A comment with a bar comes back as two.
    CdEditor *again = openChange(5);
    EXPECT_EQ(lines(control<QListWidget>(again, "List2")).size(), 4);
}

TEST_F(CdEditorTest, ChangeCdWithoutCommentsWritesAnEmptyOne)
{
    m_catalog.archive().cd(2, QStringLiteral("Zwei"), QStringLiteral("Sta1|End1"));
    CdEditor *editor = openChange(2);
    EXPECT_FALSE(control<QPushButton>(editor, "Command1")->isEnabled());
    control<QPushButton>(editor, "Command3")->click();
    EXPECT_EQ(m_catalog.store().selectByNumber(2).value.comments, QStringLiteral("Sta1||End1"));
    settle();
    CdEditor *again = openChange(2);
    EXPECT_EQ(lines(control<QListWidget>(again, "List2")), QStringList { QString() });
}

TEST_F(CdEditorTest, ChangeCdStoresTheCoverAnewAtEverySave)
{
    m_catalog.archive().cd(4, QStringLiteral("Vier"));
    CdEditor *editor = openChange(4);
    m_prompts.answerFile(Prompts::FileAnswer { picture(m_catalog, 100, 50, "BMP"), 0 });
    control<QPushButton>(editor, "Command4")->click();
    EXPECT_FALSE(control<QPushButton>(editor, "Command7")->isVisibleTo(editor)); // no viewer here
    control<QPushButton>(editor, "Command3")->click();
    settle();
    const QString first = m_catalog.store().selectByNumber(4).value.cover;
    ASSERT_NE(first, QStringLiteral("0"));

    CdEditor *again = openChange(4);
    EXPECT_EQ(control<QLabel>(again, "Label10")->text(), QStringLiteral("Vorhanden"));
    EXPECT_EQ(control<QPushButton>(again, "Command4")->text(), QStringLiteral("CD Cover Bild ändern"));
    control<QPushButton>(again, "Command3")->click();
    const QString second = m_catalog.store().selectByNumber(4).value.cover;
    ASSERT_NE(second, QStringLiteral("0"));
    EXPECT_NE(second, first);
    const QString data = m_catalog.dataFolder();
    EXPECT_TRUE(QFile::exists(datapaths::coverFile(data, first)));
    EXPECT_EQ(QImage(datapaths::coverFile(data, second)).size(), QSize(300, 150));
}

TEST_F(CdEditorTest, ChangeCdOfARowThatIsGoneStaysEmpty)
{
    CdEditor *editor = openChange(9);
    EXPECT_EQ(control<QLineEdit>(editor, "Text1")->text(), QString());
    EXPECT_EQ(control<QLineEdit>(editor, "Text2")->text(), QStringLiteral("001"));
    EXPECT_TRUE(m_prompts.shown().empty());
}

TEST_F(CdEditorTest, SavingChecksTheNumber)
{
    struct Case
    {
        const char *why;
        int changing; // the selected CD of a change, 0 for a new CD
        QString number;
        QString title;
        QString message;
    };
    const QString longTitle(51, u'x');
    const Case refused[] = {
        { "new: above the limit", 0, QStringLiteral("32001"), QStringLiteral("X"), limitMessage },
        { "new: far above the limit", 0, QStringLiteral("99999999999"), QStringLiteral("X"), limitMessage },
        { "new: zero counts as taken", 0, QStringLiteral("0"), QStringLiteral("X"), takenMessage },
        { "new: zeros count as taken", 0, QStringLiteral("000"), QStringLiteral("X"), takenMessage },
        { "new: a number in use", 0, QStringLiteral("5"), QStringLiteral("X"), takenMessage },
        { "new: in use with leading zeros", 0, QStringLiteral("005"), QStringLiteral("X"), takenMessage },
        { "new: no number", 0, QString(), QStringLiteral("X"),
            QStringLiteral("Bitte geben Sie eine CD Nummer ein.") },
        { "new: title too long", 0, QStringLiteral("9"), longTitle,
            QStringLiteral("Der Titel ist zu lang: Er darf höchstens 50 Zeichen haben.") },
        { "change: another's number", 1, QStringLiteral("5"), QStringLiteral("X"), takenMessage },
        { "change: above the limit", 1, QStringLiteral("32001"), QStringLiteral("X"), limitMessage },
        { "change: zero", 1, QStringLiteral("0"), QStringLiteral("X"), takenMessage },
        { "change: no number", 1, QString(), QStringLiteral("X"),
            QStringLiteral("Bitte geben Sie eine CD Nummer ein.") },
    };
    m_catalog.archive().cd(1, QStringLiteral("Eins")).cd(5, QStringLiteral("Fünf"));
    for (const Case &c : refused) {
        m_prompts.clear();
        CdEditor *editor = c.changing ? openChange(c.changing) : openNew();
        control<QLineEdit>(editor, "Text1")->setText(c.title);
        control<QLineEdit>(editor, "Text2")->setText(c.number);
        control<QPushButton>(editor, "Command3")->click();
        ASSERT_EQ(m_prompts.shown().size(), 1u) << c.why;
        EXPECT_EQ(m_prompts.shown()[0].text, c.message) << c.why;
        EXPECT_EQ(m_prompts.shown()[0].icon, Prompts::Icon::Critical) << c.why;
        settle();
        EXPECT_FALSE(m_open.isNull()) << c.why << ": a refusal keeps the dialog open";
        EXPECT_EQ(control<QLineEdit>(editor, "Text1")->text(), c.title) << c.why;
        EXPECT_EQ(m_catalog.store().selectAll().value.size(), 2u) << c.why;
        EXPECT_EQ(m_catalog.store().selectByNumber(1).value.name, QStringLiteral("Eins")) << c.why;
        delete editor;
    }
    EXPECT_EQ(m_main.refreshes(), 0);
}

TEST_F(CdEditorTest, SavingAcceptsTheseNumbers)
{
    struct Case
    {
        const char *why;
        int changing;
        QString number;
        int stored;
    };
    const Case accepted[] = {
        { "new: the limit itself", 0, QStringLiteral("32000"), 32000 },
        { "new: leading zeros vanish", 0, QStringLiteral("007"), 7 },
        { "change: its own number", 1, QStringLiteral("1"), 1 },
        { "change: its own number with zeros", 1, QStringLiteral("001"), 1 },
        { "change: a free number moves the row", 1, QStringLiteral("12"), 12 },
    };
    for (const Case &c : accepted) {
        TempCatalog catalog;
        catalog.archive().cd(1, QStringLiteral("Eins")).cd(5, QStringLiteral("Fünf"));
        MainWindowStandIn main;
        main.select(c.changing);
        PromptScript prompts;
        CdEditor *editor = c.changing
            ? static_cast<CdEditor *>(new changecd(catalog.session(), catalog.settings(), main.link()))
            : new newCD(catalog.session(), catalog.settings(), main.link());
        QPointer<CdEditor> alive(editor);
        control<QLineEdit>(editor, "Text1")->setText(QStringLiteral("Neu"));
        control<QLineEdit>(editor, "Text2")->setText(c.number);
        control<QPushButton>(editor, "Command3")->click();
        EXPECT_EQ(prompts.messages(), QStringList { savedMessage }) << c.why;
        EXPECT_EQ(catalog.store().selectByNumber(c.stored).value.name, QStringLiteral("Neu")) << c.why;
        if (c.changing && c.stored != c.changing) {
            EXPECT_FALSE(catalog.store().selectByNumber(c.changing).ok()) << c.why;
        }
        settle();
        EXPECT_TRUE(alive.isNull()) << c.why;
        delete alive.data();
    }
}

// The row a change saves into is the one selected when saving, not when opening.
TEST_F(CdEditorTest, ChangeCdSavesIntoTheRowSelectedAtSaving)
{
    m_catalog.archive().cd(1, QStringLiteral("Eins")).cd(5, QStringLiteral("Fünf"));
    CdEditor *editor = openChange(1);
    m_main.select(5);
    control<QLineEdit>(editor, "Text2")->setText(QStringLiteral("5"));
    control<QPushButton>(editor, "Command3")->click();
    EXPECT_EQ(m_prompts.messages(), QStringList { savedMessage });
    EXPECT_EQ(m_catalog.store().selectByNumber(5).value.name, QStringLiteral("Eins"));
    EXPECT_EQ(m_catalog.store().selectByNumber(1).value.name, QStringLiteral("Eins"));
}

TEST_F(CdEditorTest, NumberBoxTakesDigitsAndBackspaceOnly)
{
    CdEditor *editor = openNew();
    auto *text2 = control<QLineEdit>(editor, "Text2");
    text2->clear();
    QTest::keyClicks(text2, QStringLiteral("1a2-3 ,4"));
    EXPECT_EQ(text2->text(), QStringLiteral("1234"));
    QTest::keyClick(text2, Qt::Key_Backspace);
    EXPECT_EQ(text2->text(), QStringLiteral("123"));
    QTest::keyClick(text2, Qt::Key_Left);
    QTest::keyClick(text2, Qt::Key_Delete);
    EXPECT_EQ(text2->text(), QStringLiteral("12"));
    QTest::keyClick(text2, Qt::Key_Return);
    EXPECT_EQ(text2->text(), QStringLiteral("12"));
    EXPECT_FALSE(m_catalog.store().selectByNumber(12).ok()); // Enter saves nothing
}

TEST_F(CdEditorTest, CommentButtons)
{
    CdEditor *editor = openNew();
    auto *list2 = control<QListWidget>(editor, "List2");
    auto *text4 = control<QLineEdit>(editor, "Text4");
    auto *command1 = control<QPushButton>(editor, "Command1");
    auto *command8 = control<QPushButton>(editor, "Command8");

    QTest::keyClick(text4, Qt::Key_Return); // empty: nothing added
    EXPECT_EQ(list2->count(), 0);
    EXPECT_FALSE(command1->isEnabled());

    QApplication::clipboard()->clear();
    control<QPushButton>(editor, "Command11")->click();
    EXPECT_EQ(list2->count(), 0);
    EXPECT_FALSE(command1->isEnabled());

    for (const char *comment : { "eins", "zwei", "drei" }) {
        text4->setText(QString::fromLatin1(comment));
        control<QPushButton>(editor, "Command9")->click();
    }
    EXPECT_TRUE(command1->isEnabled());

    command8->click(); // nothing selected: no prompt
    command1->click();
    EXPECT_TRUE(m_prompts.shown().empty());
    EXPECT_EQ(list2->count(), 3);

    list2->setCurrentRow(1);
    m_prompts.answerInput(QStringLiteral("zwei neu"));
    m_prompts.answerInput(QString());
    m_prompts.answerInput(std::nullopt);
    command8->click();
    command8->click();
    command8->click();
    EXPECT_EQ(lines(list2),
        (QStringList { QStringLiteral("eins"), QStringLiteral("zwei neu"), QStringLiteral("drei") }));
    ASSERT_EQ(m_prompts.shown().size(), 3u);
    EXPECT_EQ(m_prompts.shown()[0].text, QStringLiteral("Kommentar bearbeiten"));
    EXPECT_EQ(m_prompts.shown()[0].title, QStringLiteral("Komentar bearbeiten"));
    EXPECT_EQ(m_prompts.shown()[0].defaultText, QStringLiteral("zwei"));

    // A double click edits in the change dialog only.
    emit list2->itemDoubleClicked(list2->item(0));
    EXPECT_EQ(m_prompts.shown().size(), 3u);

    command1->click();
    EXPECT_EQ(lines(list2), (QStringList { QStringLiteral("eins"), QStringLiteral("drei") }));
    command1->click(); // the deletion left nothing selected
    EXPECT_EQ(list2->count(), 2);
    for (int row : { 1, 0 }) {
        list2->setCurrentRow(row);
        command1->click();
    }
    EXPECT_EQ(list2->count(), 0);
    EXPECT_TRUE(command1->isEnabled());
}

TEST_F(CdEditorTest, ChangeCdEditsOnDoubleClick)
{
    m_catalog.archive().cd(3, QStringLiteral("Drei"), QStringLiteral("Sta1|alt|End1"));
    CdEditor *editor = openChange(3);
    auto *list2 = control<QListWidget>(editor, "List2");
    m_prompts.answerInput(QStringLiteral("neu"));
    emit list2->itemDoubleClicked(list2->item(0));
    EXPECT_EQ(lines(list2), QStringList { QStringLiteral("neu") });
}

TEST_F(CdEditorTest, ImageInfoText)
{
    CdEditor *editor = openNew();
    control<QToolButton>(editor, "Command10")->click();
    ASSERT_EQ(m_prompts.shown().size(), 1u);
    const PromptScript::Shown &shown = m_prompts.shown()[0];
    EXPECT_EQ(shown.title, QStringLiteral("Info: Laufwerksabbild / Abbild der Laufwerksstruktur"));
    EXPECT_EQ(shown.icon, Prompts::Icon::Information);
    EXPECT_TRUE(
        shown.text.startsWith(QStringLiteral("Hier können Sie die komplette Dateien und Ordnerstruktur Ihres "
                                             "Datenträgers(CD, Festplatte, ...) einlesen")));
    EXPECT_TRUE(shown.text.contains(QStringLiteral("Datenstruktur erstellt.\r\n\r\nDies dient dazu")));
    EXPECT_TRUE(
        shown.text.endsWith(QStringLiteral("Sehr nützlich ist dies z.b. auch zum Archivieren von MP3s, "
                                           "Dokumenten, etc.")));
}

TEST_F(CdEditorTest, AFileThatIsNoPicture)
{
    const QString bad = m_catalog.scratch(QStringLiteral("bilder")) + QStringLiteral("/kaputt.jpg");
    QFile file(bad);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("kein Bild");
    file.close();
    m_catalog.archive().cd(3, QStringLiteral("Drei"));

    for (int changing : { 0, 3 }) {
        m_prompts.clear();
        CdEditor *editor = changing ? openChange(changing) : openNew();
        m_prompts.answerFile(Prompts::FileAnswer { bad, 0 });
        control<QPushButton>(editor, "Command4")->click();
        ASSERT_EQ(m_prompts.messages().size(), 1);
        EXPECT_EQ(m_prompts.messages()[0],
            changing ? QStringLiteral("Laufzeitfehler '481':\n\nUngültiges Bild")
                     : QStringLiteral("Ungültiges Bild!"));
        EXPECT_EQ(control<QLabel>(editor, "Label10")->text(), QStringLiteral("Nicht vorhanden!"));
        EXPECT_EQ(
            control<QPushButton>(editor, "Command4")->text(), QStringLiteral("CD Cover Bild hinzufügen"));
        const auto &request = m_prompts.shown()[0].file;
        ASSERT_EQ(request.nameFilters.size(), 1);
        EXPECT_TRUE(request.nameFilters[0].startsWith(QStringLiteral("Bilddateien (")));
        delete editor;
    }
}

TEST_F(CdEditorTest, CoverFormatsTheLoaderReads)
{
    for (const char *format : { "JPG", "GIF", "BMP", "TIFF" }) {
        TempCatalog catalog;
        MainWindowStandIn main;
        PromptScript prompts;
        newCD editor(catalog.session(), catalog.settings(), main.link());
        prompts.answerFile(Prompts::FileAnswer { picture(catalog, 100, 400, format), 0 });
        control<QPushButton>(&editor, "Command4")->click();
        EXPECT_TRUE(prompts.messages().isEmpty()) << format;
        EXPECT_EQ(control<QLabel>(&editor, "Label10")->text(), QStringLiteral("Vorhanden")) << format;
        control<QPushButton>(&editor, "Command3")->click();
        const QString number = catalog.store().selectByNumber(1).value.cover;
        EXPECT_EQ(QImage(datapaths::coverFile(catalog.dataFolder(), number)).size(), QSize(75, 300))
            << format;
    }
}

TEST_F(CdEditorTest, EnteridWithZeroChangesNothing)
{
    CdEditor *editor = openNew();
    editor->enterid(0);
    EXPECT_EQ(control<QLabel>(editor, "Label3")->text(), QStringLiteral("nicht vorhanden!"));
    editor->enterid(-1408263712);
    EXPECT_EQ(control<QLabel>(editor, "Label3")->text(), QStringLiteral("Vorhanden! ID: -1408263712"));
    EXPECT_EQ(control<QLabel>(editor, "Label3")->palette().color(QPalette::WindowText), QColor(0, 0, 0));
    control<QPushButton>(editor, "Command3")->click();
    EXPECT_EQ(m_catalog.store().selectByNumber(1).value.imageId, -1408263712);
}

TEST_F(CdEditorTest, ChangeCdTakesTheIdOfItsCapture)
{
    const QString volume = m_catalog.scratch(QStringLiteral("neu"));
    TreeBuilder(volume).file(QStringLiteral("a.txt"), 1, 1044057600);
    DriveTable table(m_catalog.settings());
    const Drive drive = table.driveForFolder(volume);
    const int32_t id = table.getSerial(drive);
    m_catalog.archive().cd(6, QStringLiteral("Sechs"), QStringLiteral("Sta1|End1"), 5);

    CdEditor *editor = openChange(6);
    control<QPushButton>(editor, "Command2")->click();
    EXPECT_EQ(m_catalog.session().captureMode, QStringLiteral("3"));
    auto *capture = editor->findChild<abbild *>();
    ASSERT_NE(capture, nullptr);
    ASSERT_TRUE(control<DriveListBox>(capture, "Drive1")->selectDrive(drive.letter));
    QSignalSpy ended(capture, &abbild::captureEnded);
    control<QPushButton>(capture, "aufnahhme")->click();
    ASSERT_TRUE(ended.wait(20000));
    EXPECT_EQ(
        control<QLabel>(editor, "Label3")->text(), QStringLiteral("Vorhanden! ID: ") + QString::number(id));
    EXPECT_EQ(m_catalog.store().selectByNumber(6).value.imageId, 5); // not before saving
    control<QPushButton>(editor, "Command3")->click();
    EXPECT_EQ(m_catalog.store().selectByNumber(6).value.imageId, id);
}

TEST_F(CdEditorTest, CancelSavesNothingAndShowsTheMainWindow)
{
    m_catalog.archive().row(
        CdRow { 2, QStringLiteral("Zwei"), 5, QStringLiteral("Sta1|End1"), true, QStringLiteral("0") });
    CdEditor *editor = openChange(2);
    editor->enterid(99);
    control<QLineEdit>(editor, "Text1")->setText(QStringLiteral("anders"));
    control<QPushButton>(editor, "Command5")->click();
    settle();
    EXPECT_TRUE(m_open.isNull());
    EXPECT_TRUE(m_main.window().isVisible());
    EXPECT_EQ(m_catalog.store().selectByNumber(2).value,
        (CdRow { 2, QStringLiteral("Zwei"), 5, QStringLiteral("Sta1|End1"), true, QStringLiteral("0") }));
    EXPECT_EQ(m_main.refreshes(), 0);
}

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
#include "images/wait.h"

#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

const QString successMessage = QStringLiteral("Der CD Inhalt wurde erfolgreich eingelesen!");

template <typename T> T *control(QWidget *window, const char *name)
{
    T *found = window->findChild<T *>(QString::fromLatin1(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

class AbbildTest : public ::testing::Test
{
protected:
    AbbildTest()
        : m_volume(m_catalog.scratch(QStringLiteral("volume")))
        , m_tree(m_volume)
    {
        m_tree.file(QStringLiteral("notiz.txt"), 17, 1044057600);
        m_tree.file(QStringLiteral("Bilder/haus.jpg"), 482113, 1027879364);
        m_tree.folder(QStringLiteral("Leer/auch leer"));
        DriveTable table(m_catalog.settings());
        m_drive = table.driveForFolder(m_volume);
        m_id = table.getSerial(m_drive);
    }

    // Opens the dialog in a capture mode, on the test's volume.
    abbild *open(const QString &mode)
    {
        m_catalog.session().captureMode = mode;
        m_dialog = new abbild(m_catalog.session(), m_catalog.settings(), m_main.link());
        m_dialog->show();
        EXPECT_TRUE(control<DriveListBox>(m_dialog, "Drive1")->selectDrive(m_drive.letter));
        return m_dialog;
    }

    // Clicks "Abbild erstellen" and waits for the capture and its messages to end.
    void capture()
    {
        QSignalSpy ended(m_dialog.data(), &abbild::captureEnded);
        control<QPushButton>(m_dialog, "aufnahhme")->click();
        ASSERT_TRUE(ended.wait(20000));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QByteArray image() const
    {
        QFile file(datapaths::imageFile(const_cast<TempCatalog &>(m_catalog).dataFolder(), m_id));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QByteArray line(const char *rest) const { return m_drive.letter.toLatin1() + rest; }

    void TearDown() override
    {
        delete m_dialog.data();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    TempCatalog m_catalog;
    MainWindowStandIn m_main;
    PromptScript m_prompts;
    QString m_volume;
    TreeBuilder m_tree;
    Drive m_drive;
    int32_t m_id = 0;
    QPointer<abbild> m_dialog;
};

} // namespace

TEST_F(AbbildTest, ControlsAtStart)
{
    abbild *dialog = open(QStringLiteral("1"));
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Laufwerksabbild erstellen"));
    EXPECT_TRUE(control<QRadioButton>(dialog, "Option1")->isChecked());
    EXPECT_EQ(control<QLineEdit>(dialog, "Text1")->text(), QStringLiteral("*.*"));
    EXPECT_FALSE(control<QLineEdit>(dialog, "Text1")->isEnabled());
    EXPECT_TRUE(control<QCheckBox>(dialog, "Check1")->isChecked());

    control<QRadioButton>(dialog, "Option2")->click();
    EXPECT_TRUE(control<QLineEdit>(dialog, "Text1")->isEnabled());
    control<QRadioButton>(dialog, "Option1")->click();
    EXPECT_FALSE(control<QLineEdit>(dialog, "Text1")->isEnabled());

    control<QPushButton>(dialog, "Command2")->click();
    EXPECT_EQ(m_prompts.messages(),
        QStringList { QStringLiteral("Geben Sie hier einen Filter ein. Wenn Sie z.B: *.txt "
                                     "eingeben, werden nur Text-Dateien gesucht und eingelesen.") });
}

TEST_F(AbbildTest, ModeOneStoresTheIdInTheSelectedRow)
{
    m_catalog.archive().cd(3, QStringLiteral("Drei")).cd(4, QStringLiteral("Vier"));
    m_main.select(4);
    m_catalog.session().listSorted = true;
    open(QStringLiteral("1"));
    capture();
    EXPECT_EQ(m_prompts.messages(), QStringList { successMessage });
    EXPECT_EQ(m_catalog.store().selectByNumber(4).value.imageId, m_id);
    EXPECT_EQ(m_catalog.store().selectByNumber(3).value.imageId, 0);
    EXPECT_EQ(m_main.refreshes(), 1);
    EXPECT_EQ(m_main.sorts(), 1);
    EXPECT_EQ(m_catalog.session().captureMode, QStringLiteral("0"));
    EXPECT_TRUE(m_dialog.isNull());
    EXPECT_EQ(m_catalog.settings().value(SettingKey::DefDrive), m_drive.listText());
    // Pruned: the empty folders are gone; the rest in the order the folder lists.
    QByteArray expected = ">" + line("\r\n");
    for (const QString &name : m_tree.listingOrder()) {
        if (name == QLatin1String("notiz.txt"))
            expected += line("\\notiz.txt|17|01.02.2003\r\n");
        else if (name == QLatin1String("Bilder"))
            expected
                += ">" + line("\\Bilder\r\n") + line("\\Bilder\\haus.jpg|482113|28.07.2002 18:02:44\r\n");
    }
    EXPECT_EQ(image(), expected + "\r\n") << image().constData();
}

TEST_F(AbbildTest, ModesTwoAndThreeHandTheIdOver)
{
    for (const QString &mode : { QStringLiteral("2"), QStringLiteral("3") }) {
        open(mode);
        QSignalSpy captured(m_dialog.data(), &abbild::imageCaptured);
        capture();
        ASSERT_EQ(captured.size(), 1) << mode.toStdString();
        EXPECT_EQ(captured[0][0].value<int32_t>(), m_id);
        EXPECT_EQ(m_catalog.session().captureMode, mode);
        EXPECT_TRUE(m_dialog.isNull());
    }
    EXPECT_EQ(m_main.refreshes(), 0);
}

TEST_F(AbbildTest, FilterAndEmptyFolders)
{
    struct Case
    {
        const char *why;
        bool filter;
        QString pattern;
        bool prune;
        QByteArray expected;
    };
    const QByteArray root = ">" + line("\r\n");
    const Case cases[] = {
        { "only txt, pruned", true, QStringLiteral("*.txt"), true,
            root + line("\\notiz.txt|17|01.02.2003\r\n\r\n") },
        { "all files, empty folders kept", false, QStringLiteral("*.txt"), false, {} },
    };
    for (const Case &c : cases) {
        open(QStringLiteral("2"));
        if (c.filter) {
            control<QRadioButton>(m_dialog, "Option2")->click();
            control<QLineEdit>(m_dialog, "Text1")->setText(c.pattern);
        }
        control<QCheckBox>(m_dialog, "Check1")->setChecked(c.prune);
        capture();
        if (!c.expected.isEmpty()) {
            EXPECT_EQ(image(), c.expected) << c.why;
        } else {
            EXPECT_TRUE(image().contains(">" + line("\\Leer\\auch leer\r\n"))) << c.why;
        }
    }
}

TEST_F(AbbildTest, ACancelledCaptureKeepsTheOldImage)
{
    QDir().mkpath(datapaths::imageFolder(m_catalog.dataFolder()));
    QFile old(datapaths::imageFile(m_catalog.dataFolder(), m_id));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write(">x:\r\n\r\n");
    old.close();

    m_catalog.archive().cd(4, QStringLiteral("Vier"));
    m_main.select(4);
    open(QStringLiteral("1"));
    QObject::connect(m_dialog.data(), &abbild::captureStarted, m_dialog.data(), [this] {
        auto *window = m_dialog->findChild<class wait *>();
        ASSERT_NE(window, nullptr);
        EXPECT_FALSE(control<QPushButton>(m_dialog, "aufnahhme")->isEnabled());
        control<QPushButton>(window, "cmdCancel")->click();
    });
    capture();
    EXPECT_EQ(m_prompts.messages(),
        QStringList { QStringLiteral("Die Erstellung des Laufwerksabbilds wurde abgebrochen.") });
    EXPECT_EQ(image(), QByteArray(">x:\r\n\r\n"));
    EXPECT_EQ(m_catalog.store().selectByNumber(4).value.imageId, 0);
    EXPECT_EQ(m_catalog.session().captureMode, QStringLiteral("1"));
    ASSERT_FALSE(m_dialog.isNull()); // still open for another try
    EXPECT_TRUE(control<QPushButton>(m_dialog, "aufnahhme")->isEnabled());
    EXPECT_EQ(m_dialog->findChild<class wait *>(), nullptr);
}

TEST_F(AbbildTest, WaitShowsProgressWhileTheCaptureRuns)
{
    // Enough folders for the walk to report on its way, made directly for speed.
    QDir music(m_volume);
    music.mkdir(QStringLiteral("Musik"));
    music.cd(QStringLiteral("Musik"));
    for (int i = 0; i < 2000; ++i)
        music.mkdir(QStringLiteral("Album %1").arg(i));
    open(QStringLiteral("2"));
    QPointer<class wait> window;
    QObject::connect(m_dialog.data(), &abbild::captureStarted, m_dialog.data(),
        [this, &window] { window = m_dialog->findChild<class wait *>(); });
    QSignalSpy ended(m_dialog.data(), &abbild::captureEnded);
    control<QPushButton>(m_dialog, "aufnahhme")->click();
    ASSERT_FALSE(window.isNull());
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Bitte warten..."));
    EXPECT_EQ(control<QLabel>(window, "Label1")->text(), QStringLiteral("Bitte warten..."));
    EXPECT_EQ(control<QLabel>(window, "Label2")->text(),
        QStringLiteral("Das Datenträger-Abbild wird gerade erstellt..."));
    EXPECT_TRUE(control<QPushButton>(window, "cmdCancel")->isVisible());

    // The window lives until the capture has ended; each new progress line is recorded.
    QStringList progress;
    while (window) {
        const QString now = window->findChild<QLabel *>(QStringLiteral("lblProgress"))->toolTip();
        if (progress.isEmpty() || progress.last() != now)
            progress << now;
        QTest::qWait(2);
    }
    ASSERT_TRUE(!ended.isEmpty() || ended.wait(20000));
    EXPECT_EQ(progress.first(), QStringLiteral("Ordner: 0   Dateien: 0   ") + m_drive.letter);
    for (const QString &text : progress)
        EXPECT_TRUE(text.startsWith(QStringLiteral("Ordner: "))) << text.toStdString();
    EXPECT_EQ(m_prompts.messages(), QStringList { successMessage });
}

// A picture of the wait window on the way through a large folder of the system, for a person
// to look at; runs only when pictures are asked for.
TEST_F(AbbildTest, WaitPicturedDuringALongCapture)
{
    if (qEnvironmentVariableIsEmpty("SILBERBUCH_SCREENSHOTS"))
        GTEST_SKIP() << "set SILBERBUCH_SCREENSHOTS to a folder for the picture";
    m_drive = DriveTable(m_catalog.settings()).driveForFolder(QStringLiteral("/usr/share"));
    open(QStringLiteral("2"));
    QPointer<class wait> window;
    QObject::connect(m_dialog.data(), &abbild::captureStarted, m_dialog.data(),
        [this, &window] { window = m_dialog->findChild<class wait *>(); });
    control<QPushButton>(m_dialog, "aufnahhme")->click();
    bool pictured = false;
    while (window) {
        const QString now = window->findChild<QLabel *>(QStringLiteral("lblProgress"))->toolTip();
        if (!pictured && now.contains(u'\\')) {
            screenshot(window, QStringLiteral("wait"));
            pictured = true;
        }
        QTest::qWait(2);
    }
    EXPECT_TRUE(pictured) << "the capture ended before it reported a folder";
}

TEST_F(AbbildTest, AFolderBecomesADrive)
{
    abbild *dialog = open(QStringLiteral("2"));
    const QString folder = m_catalog.scratch(QStringLiteral("Sicherung"));
    m_prompts.answerFile(Prompts::FileAnswer { folder, 0 });
    control<QPushButton>(dialog, "cmdAddFolder")->click();
    auto *drive1 = control<DriveListBox>(dialog, "Drive1");
    const std::optional<Drive> added = DriveTable(m_catalog.settings()).find(drive1->letter());
    ASSERT_TRUE(added.has_value());
    EXPECT_EQ(added->mountPoint, folder);
    EXPECT_EQ(drive1->currentText(), added->listText());
    EXPECT_EQ(m_prompts.shown()[0].file.mode, Prompts::FileRequest::Mode::Folder);

    m_prompts.answerFile(Prompts::FileAnswer { folder + QStringLiteral("/gibt es nicht"), 0 });
    control<QPushButton>(dialog, "cmdAddFolder")->click();
    ASSERT_EQ(m_prompts.messages().size(), 1);
    EXPECT_TRUE(m_prompts.messages()[0].startsWith(QStringLiteral("Der Ordner \"")))
        << m_prompts.messages()[0].toStdString();
    EXPECT_EQ(drive1->letter(), added->letter);
}

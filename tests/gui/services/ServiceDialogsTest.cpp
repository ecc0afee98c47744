#include "Control.h"
#include "DesktopRun.h"
#include "FakeHttpServer.h"
#include "Screenshot.h"

#include "services/Abouts.h"
#include "services/Form8.h"
#include "services/frmOptions.h"
#include "services/frmnewVersion.h"
#include "services/frmupdate.h"

#include "app/AutostartEntry.h"
#include "app/DataFolder.h"
#include "services/ServiceRequest.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

// The dialogs ask the test's server instead of the maker's.
class ServiceDialogsTest : public ::testing::Test
{
protected:
    void SetUp() override { qputenv("SILBERBUCH_SERVICE_URL", m_server.baseAddress().toUtf8()); }
    void TearDown() override { qunsetenv("SILBERBUCH_SERVICE_URL"); }

    FakeHttpServer m_server;
};

// Which replies count as news or thanks is the core's; here one of each reaches its window.
TEST_F(ServiceDialogsTest, UpdateCheckShowsTheNewVersionOrSaysThereIsNone)
{
    for (const auto &[body, shownVersion] : { std::pair("5.0", ""), std::pair("5.0.1", "5.0.1") }) {
        SCOPED_TRACE(body);
        const bool news = *shownVersion != 0;
        DesktopRun run;
        run.settings().setValue(SettingKey::Start, u"17"_s);
        m_server.answer(body);
        frmupdate *dialog = run.program().show<frmupdate>();
        screenshot(dialog, u"frmupdate"_s);
        dialog->Command1_Click();
        run.settle();
        EXPECT_EQ(m_server.requestLine(),
            "GET /members/Tolvan/updates.pl?value1=17|" + service::userName().toUtf8() + " HTTP/1.0");
        EXPECT_EQ(run.prompts().messages().join(u'|'),
            news ? QString() : u"Es ist zur Zeit keine aktualisierte Version vorhanden!"_s);
        frmnewVersion *found = run.form<frmnewVersion>();
        // The update dialog stays behind the news.
        ASSERT_EQ(std::pair(found != nullptr, run.form<frmupdate>() != nullptr), std::pair(news, news));
        if (found) {
            screenshot(found, u"frmnewVersion"_s);
            EXPECT_EQ(
                control<QLabel>(found, "Label1")->text() + u'|' + control<QLabel>(found, "Label3")->text(),
                QString::fromLatin1(shownVersion) + u"|5.1"_s);
            control<QPushButton>(found, "Command1")->click();
            EXPECT_EQ(run.opened(), QList<QUrl> { QUrl(service::vendorWebAddress()) });
        }
    }
}

TEST_F(ServiceDialogsTest, WishIsSentAsOneLineAndOnlyDankeThanks)
{
    const std::pair<QByteArray, QString> cases[] = {
        { "Danke",
            u"Vielen Dank für Ihren Vorschlag!\r\nIch werde versuchen ihn in der nächsten Version umzusetzen."_s },
        { "danke", u"Fehler: Bitte wenden Sie sich an den Support!"_s },
    };
    for (const auto &[body, message] : cases) {
        SCOPED_TRACE(body.toStdString());
        DesktopRun run;
        m_server.answer(body);
        Form8 *dialog = run.program().show<Form8>();
        control<QPlainTextEdit>(dialog, "Text1")->setPlainText(u"Mehr Größe #2\nbitte"_s);
        control<QLineEdit>(dialog, "Text2")->setText(u"a@b.de"_s);
        screenshot(dialog, u"Form8"_s);
        dialog->Command1_Click();
        run.settle();
        EXPECT_EQ(m_server.requestLine(),
            "GET /members/Tolvan/wunsch.pl?value1=3|a@b.de|Mehr%20Gr%F6%DFe%20%232%20bitte|"
                + service::userName().toUtf8() + " HTTP/1.0");
        EXPECT_EQ(run.prompts().messages(), QStringList { message });
        EXPECT_EQ(run.form<Form8>(), nullptr);
    }
}

// The save flow: which keys are written, when a restart is offered and what it starts, and
// the autostart entry written and removed.
TEST_F(ServiceDialogsTest, OptionsSaveStoresTheValuesAndOffersARestart)
{
    QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(config.path()));
    // stored path (nullptr: never stored), folder chosen, typed path, autostart, restart offered
    const std::tuple<const char *, const char *, bool, QString, bool, bool> cases[] = {
        { "first save always offers a restart", nullptr, false, {}, false, true },
        { "nothing changed", "/daten", true, u"/daten"_s, false, false },
        { "another folder", "/daten", true, u"/mnt/netz/silberbuch"_s, true, true },
        { "a path with slashes stays as typed", "/daten", true, u"/daten/"_s, false, true },
    };
    for (const auto &[what, storedPath, chooseFolder, typedPath, autostart, restartOffered] : cases) {
        SCOPED_TRACE(what);
        DesktopRun run;
        if (storedPath) {
            run.settings().setValue(SettingKey::pfad, u"False"_s);
            run.settings().setValue(SettingKey::path, QString::fromUtf8(storedPath));
        }
        shellopen::ShellRecorder shell;
        frmOptions *dialog = run.program().show<frmOptions>();
        EXPECT_EQ(control<QLineEdit>(dialog, "Text1")->isEnabled(), storedPath != nullptr);
        if (chooseFolder) {
            control<QRadioButton>(dialog, "Option2")->click();
            control<QLineEdit>(dialog, "Text1")->setText(typedPath);
        }
        control<QCheckBox>(dialog, "Check1")->setChecked(autostart);
        control<QCheckBox>(dialog, "Check3")->setChecked(true);
        screenshot(dialog, u"frmOptions"_s);
        run.prompts().answerMessage(Prompts::Answer::Ok);
        run.prompts().answerMessage(Prompts::Answer::Yes);
        dialog->Command1_Click();
        run.settle();
        QStringList expected { u"Einstellungen gespeichert!"_s };
        if (restartOffered)
            expected << u"Hinweis: Die Änderungen werden erst nach einem Neustart der Anwendung wirksam. "
                        u"Anwendung neustarten?"_s;
        EXPECT_EQ(run.prompts().messages(), expected);
        // The restart starts the program minimized, and the dialog and all windows are gone.
        EXPECT_EQ(std::tuple(
                      shell.started().size(), shell.started().value(0).value(1), run.program().loadedCount()),
            std::tuple(restartOffered ? 1 : 0, restartOffered ? u"-minimized"_s : QString(), 0));
        const Settings &stored = run.settings();
        EXPECT_EQ(QStringList({ stored.value(SettingKey::autostart), stored.value(SettingKey::autoarchiv),
                      stored.value(SettingKey::pfad), stored.value(SettingKey::path) }),
            QStringList({ autostart ? u"1"_s : u"0"_s, u"1"_s, chooseFolder ? u"False"_s : u"True"_s,
                chooseFolder ? typedPath : programFolder() }));
        EXPECT_EQ(QFileInfo::exists(autostart::entryPath()), autostart);
    }
    qunsetenv("XDG_CONFIG_HOME");
}

TEST_F(ServiceDialogsTest, OptionsLoadFallsBackOnAValueThatIsNoNumber)
{
    DesktopRun run;
    run.settings().setValue(SettingKey::autostart, u"ja"_s);
    run.settings().setValue(SettingKey::pfad, u"False"_s);
    run.settings().setValue(SettingKey::path, u"/daten"_s);
    frmOptions *dialog = run.program().show<frmOptions>();
    EXPECT_EQ(std::tuple(control<QRadioButton>(dialog, "Option1")->isChecked(),
                  control<QLineEdit>(dialog, "Text1")->text(), run.settings().value(SettingKey::autostart),
                  run.settings().value(SettingKey::pfad)),
        std::tuple(true, programFolder(), u"0"_s, u"True"_s));
    control<QAbstractButton>(dialog, "Command10")->click();
    EXPECT_EQ(run.prompts().shown().back().title, u"Infos: Datenbank-Pfad ändern"_s);
}

TEST_F(ServiceDialogsTest, AboutLeadsToTheMakersSite)
{
    DesktopRun run;
    Abouts *about = run.program().show<Abouts>();
    screenshot(about, u"Abouts"_s);
    EXPECT_EQ(control<QLabel>(about, "Label6")->text(), u"Silberbuch 5.1"_s);
    QPushButton *site = control<QPushButton>(about, "Command15");
    EXPECT_EQ(site->text(), service::vendorWebAddressText());
    site->click();
    control<QPushButton>(about, "Command1")->click();
    run.settle();
    EXPECT_EQ(std::tuple(run.opened(), run.form<Abouts>()),
        std::tuple(QList<QUrl> { QUrl(service::vendorWebAddress()) }, nullptr));
}

} // namespace

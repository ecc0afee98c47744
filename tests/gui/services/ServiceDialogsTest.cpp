#include "Control.h"
#include "DesktopRun.h"
#include "FakeHttpServer.h"
#include "Screenshot.h"

#include "services/AboutDialog.h"
#include "services/WishDialog.h"
#include "services/OptionsDialog.h"
#include "services/NewVersionDialog.h"
#include "services/UpdateCheckDialog.h"

#include "app/MainWindow.h"
#include "app/Startup.h"

#include "app/AutostartEntry.h"
#include "app/StartDecision.h"
#include "app/DataFolder.h"
#include "services/ServiceRequest.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSystemTrayIcon>

using namespace Qt::StringLiterals;

namespace {

// The dialogs ask the test's server instead of the maker's, and the autostart entry goes to a
// configuration folder of the test's.
class ServiceDialogsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        qputenv("SILBERBUCH_SERVICE_URL", m_server.baseAddress().toUtf8());
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_config.path()));
    }
    void TearDown() override
    {
        qunsetenv("SILBERBUCH_SERVICE_URL");
        qunsetenv("XDG_CONFIG_HOME");
    }

    FakeHttpServer m_server;
    QTemporaryDir m_config;
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
        UpdateCheckDialog *dialog = run.program().show<UpdateCheckDialog>();
        screenshot(dialog, u"UpdateCheckDialog"_s);
        dialog->checkForUpdate();
        run.settle();
        EXPECT_EQ(m_server.requestLine(),
            "GET /members/Tolvan/updates.pl?value1=17|" + service::userName().toUtf8() + " HTTP/1.0");
        EXPECT_EQ(run.prompts().messages().join(u'|'),
            news ? QString() : u"Es ist zur Zeit keine aktualisierte Version vorhanden!"_s);
        NewVersionDialog *found = run.form<NewVersionDialog>();
        // The update dialog stays behind the news.
        ASSERT_EQ(std::pair(found != nullptr, run.form<UpdateCheckDialog>() != nullptr), std::pair(news, news));
        if (found) {
            screenshot(found, u"NewVersionDialog"_s);
            EXPECT_EQ(control<QLabel>(found, "offeredVersionLabel")->text() + u'|'
                    + control<QLabel>(found, "runningVersionLabel")->text(),
                QString::fromLatin1(shownVersion) + u"|5.1"_s);
            control<QPushButton>(found, "downloadButton")->click();
            EXPECT_EQ(run.opened(), QList<QUrl> { QUrl(service::vendorWebAddress()) });
        }
    }
}

// The reply is shown as the text it is, one line of the label's font: an error page is no
// heading, and tables nested thousands deep are no layout to recurse into.
TEST_F(ServiceDialogsTest, NewVersionShowsTheReplyAsPlainText)
{
    const std::pair<const char *, QByteArray> cases[] = {
        { "error page", "<h1>500 Internal Server Error</h1>" },
        { "tables nested 3000 deep", QByteArray("<table><tr><td>").repeated(3000) },
    };
    for (const auto &[what, body] : cases) {
        SCOPED_TRACE(what);
        DesktopRun run;
        m_server.answer(body, 500);
        run.program().show<UpdateCheckDialog>()->checkForUpdate();
        run.settle();
        NewVersionDialog *found = run.form<NewVersionDialog>();
        ASSERT_NE(found, nullptr);
        const QLabel *label = control<QLabel>(found, "offeredVersionLabel");
        const QImage shot = found->grab().toImage();
        EXPECT_EQ(std::tuple(label->text(), label->heightForWidth(label->width()), shot.isNull()),
            std::tuple(QString::fromLatin1(body), label->fontMetrics().height(), false));
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
        WishDialog *dialog = run.program().show<WishDialog>();
        control<QPlainTextEdit>(dialog, "wishEdit")->setPlainText(u"Mehr Größe #2\nbitte"_s);
        control<QLineEdit>(dialog, "emailEdit")->setText(u"a@b.de"_s);
        screenshot(dialog, u"WishDialog"_s);
        dialog->sendWish();
        run.settle();
        EXPECT_EQ(m_server.requestLine(),
            "GET /members/Tolvan/wunsch.pl?value1=3|a@b.de|Mehr%20Gr%F6%DFe%20%232%20bitte|"
                + service::userName().toUtf8() + " HTTP/1.0");
        EXPECT_EQ(run.prompts().messages(), QStringList { message });
        EXPECT_EQ(run.form<WishDialog>(), nullptr);
    }
}

// The save flow: which keys are written, when a restart is offered and what it starts, and
// the autostart entry written and removed.
TEST_F(ServiceDialogsTest, OptionsSaveStoresTheValuesAndOffersARestart)
{
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
        OptionsDialog *dialog = run.program().show<OptionsDialog>();
        EXPECT_EQ(control<QLineEdit>(dialog, "pathEdit")->isEnabled(), storedPath != nullptr);
        if (chooseFolder) {
            control<QRadioButton>(dialog, "ownPathOption")->click();
            control<QLineEdit>(dialog, "pathEdit")->setText(typedPath);
        }
        control<QCheckBox>(dialog, "autostartCheck")->setChecked(autostart);
        control<QCheckBox>(dialog, "chooseArchiveCheck")->setChecked(true);
        screenshot(dialog, u"OptionsDialog"_s);
        run.prompts().answerMessage(Prompts::Answer::Ok);
        run.prompts().answerMessage(Prompts::Answer::Yes);
        dialog->saveSettings();
        run.settle();
        QStringList expected { u"Einstellungen gespeichert!"_s };
        if (restartOffered)
            expected << u"Hinweis: Die Änderungen werden erst nach einem Neustart der Anwendung wirksam. "
                        u"Anwendung neustarten?"_s;
        EXPECT_EQ(run.prompts().messages(), expected);
        // The restart starts the program again, and the dialog and all windows are gone.
        EXPECT_EQ(std::pair(shell.started().size(), run.program().loadedCount()),
            std::pair(qsizetype(restartOffered ? 1 : 0), 0));
        const Settings &stored = run.settings();
        EXPECT_EQ(QStringList({ stored.value(SettingKey::autostart), stored.value(SettingKey::autoarchiv),
                      stored.value(SettingKey::pfad), stored.value(SettingKey::path) }),
            QStringList({ autostart ? u"1"_s : u"0"_s, u"1"_s, chooseFolder ? u"False"_s : u"True"_s,
                chooseFolder ? typedPath : programFolder() }));
        EXPECT_EQ(QFileInfo::exists(autostart::entryPath()), autostart);
    }
}

// The restart starts the same program with the same arguments, nothing added: "-minimized" would
// send it to the tray. The new run brings its main window up minimized all the same.
TEST_F(ServiceDialogsTest, OptionsRestartStartsTheProgramAsTheUserDidWithItsWindowMinimized)
{
    QStringList started;
    QStringList environment;
    {
        DesktopRun run; // no path stored yet: the first save offers the restart
        shellopen::ShellRecorder shell;
        run.prompts().answerMessage(Prompts::Answer::Ok);
        run.prompts().answerMessage(Prompts::Answer::Yes);
        run.program().show<OptionsDialog>()->saveSettings();
        run.settle();
        ASSERT_EQ(shell.started().size(), 1);
        started = shell.started().front();
        environment = shell.startedEnvironments().front();
    }
    EXPECT_EQ(started, QStringList { QCoreApplication::applicationFilePath() } + QCoreApplication::arguments().mid(1));

    // The new run, with the variables it was given and the default archive to open.
    for (const QString &variable : environment) {
        const qsizetype equals = variable.indexOf(u'=');
        qputenv(variable.left(equals).toLocal8Bit().constData(), variable.mid(equals + 1).toLocal8Bit());
    }
    DesktopRun again(wholeCommandLine(started));
    again.archive(u"B"_s);
    again.settings().setValue(SettingKey::Start, u"2"_s);
    again.settings().setValue(SettingKey::autoarchiv, u"0"_s);
    again.settings().setValue(SettingKey::Standard, u"B"_s);
    again.program().show<Startup>()->openNextWindow();
    again.settle();
    MainWindow *main = again.form<MainWindow>();
    ASSERT_NE(main, nullptr);
    EXPECT_EQ(std::tuple(main->isVisible(), main->isMinimized(), main->trayIcon()->isVisible(),
                  again.prompts().messages()),
        std::tuple(true, true, false, QStringList()));
}

// A stored value that can't be read resets autostart, the archive question and the path choice,
// and the dialog shows exactly the reset values: a save then stores them, not the old ones.
TEST_F(ServiceDialogsTest, OptionsLoadShowsTheResetValuesAfterAValueThatCannotBeRead)
{
    // name, autostart, autoarchiv, pfad as stored
    const std::tuple<const char *, const char *, const char *, const char *> cases[] = {
        { "autostart no number", "abc", "1", "False" },
        { "archive question no number", "1", "ja", "False" },
        { "path choice no truth value", "1", "1", "vielleicht" },
    };
    for (const auto &[what, autostartValue, autoarchiv, pfad] : cases) {
        SCOPED_TRACE(what);
        DesktopRun run;
        Settings &settings = run.settings();
        settings.setValue(SettingKey::autostart, QString::fromLatin1(autostartValue));
        settings.setValue(SettingKey::autoarchiv, QString::fromLatin1(autoarchiv));
        settings.setValue(SettingKey::pfad, QString::fromLatin1(pfad));
        settings.setValue(SettingKey::path, u"/daten"_s);
        OptionsDialog *dialog = run.program().show<OptionsDialog>();
        const auto stored = [&] {
            return QStringList { settings.value(SettingKey::autostart), settings.value(SettingKey::autoarchiv),
                settings.value(SettingKey::pfad), settings.value(SettingKey::path) };
        };
        const QStringList reset { u"0"_s, u"0"_s, u"True"_s, u"/daten"_s };
        const QStringList shown { control<QCheckBox>(dialog, "autostartCheck")->isChecked() ? u"1"_s : u"0"_s,
            control<QCheckBox>(dialog, "chooseArchiveCheck")->isChecked() ? u"1"_s : u"0"_s,
            control<QRadioButton>(dialog, "standardPathOption")->isChecked() ? u"True"_s : u"False"_s,
            control<QLineEdit>(dialog, "pathEdit")->text() };
        EXPECT_EQ(std::pair(shown, stored()), std::pair(reset, reset));
        control<QAbstractButton>(dialog, "pathInfoButton")->click();
        EXPECT_EQ(run.prompts().shown().back().title, u"Infos: Datenbank-Pfad ändern"_s);
        // Saved as shown: the same values, and no restart, since nothing changed.
        run.prompts().clear();
        run.prompts().answerMessage(Prompts::Answer::Ok);
        dialog->saveSettings();
        run.settle();
        EXPECT_EQ(std::pair(run.prompts().messages(), stored()),
            std::pair(QStringList { u"Einstellungen gespeichert!"_s }, reset));
    }
}

TEST_F(ServiceDialogsTest, AboutLeadsToTheMakersSite)
{
    DesktopRun run;
    AboutDialog *about = run.program().show<AboutDialog>();
    screenshot(about, u"AboutDialog"_s);
    EXPECT_EQ(control<QLabel>(about, "programNameLabel")->text(), u"Silberbuch 5.1"_s);
    QPushButton *site = control<QPushButton>(about, "siteButton");
    EXPECT_EQ(site->text(), service::vendorWebAddressText());
    site->click();
    control<QPushButton>(about, "backButton")->click();
    run.settle();
    EXPECT_EQ(std::tuple(run.opened(), run.form<AboutDialog>()),
        std::tuple(QList<QUrl> { QUrl(service::vendorWebAddress()) }, nullptr));
}

} // namespace

#include "DesktopRun.h"
#include "QStringPrinting.h"

#include "app/Hauptfenster.h"
#include "archives/Form4.h"
#include "archives/openarchiv.h"

#include "archives/ArchiveCatalog.h"

#include <QAction>
#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>

namespace {

QStringList entries(QWidget *window)
{
    QStringList names;
    const auto *list = window->findChild<QListWidget *>(QStringLiteral("List1"));
    for (int i = 0; i < list->count(); ++i)
        names << list->item(i)->text();
    return names;
}

template <class T = QWidget> T *control(QWidget *window, const char *name)
{
    T *found = window->findChild<T *>(QString::fromLatin1(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

bool archiveFile(DesktopRun &run, const QString &name)
{
    return QFileInfo::exists(run.home() + QStringLiteral("/archive/") + name + QStringLiteral(".mdb"));
}

} // namespace

TEST(openarchiv, SeveralArchivesSelectTheFirstAndWaitForTheUser)
{
    DesktopRun run;
    run.archive(QStringLiteral("Musik"));
    run.archive(QStringLiteral("Backup"));
    openarchiv *chooser = run.program().show<openarchiv>();
    run.settle(20);
    ASSERT_NE(run.form<openarchiv>(), nullptr);
    EXPECT_EQ(chooser->windowTitle(), QStringLiteral("Öffnen eines Archives"));
    EXPECT_EQ(entries(chooser), (QStringList { QStringLiteral("Backup"), QStringLiteral("Musik") }));
    EXPECT_EQ(control<QLineEdit>(chooser, "Text1")->text(), QStringLiteral("Backup"));
    EXPECT_EQ(run.form<Hauptfenster>(), nullptr);
}

TEST(openarchiv, OneArchiveWhileChangingIsNotOpenedByItself)
{
    DesktopRun run;
    run.archive(QStringLiteral("Einzig"));
    run.session().changingArchive = true;
    openarchiv *chooser = run.program().show<openarchiv>();
    run.settle(20);
    EXPECT_EQ(run.form<openarchiv>(), chooser);
    EXPECT_TRUE(control<QLineEdit>(chooser, "Text1")->text().isEmpty());
    EXPECT_EQ(run.form<Hauptfenster>(), nullptr);
}

TEST(openarchiv, OpenChecksTheTypedNameExactly)
{
    struct Case
    {
        const char *name;
        const char *typed;
        int selectRow;
        QStringList messages;
        bool opens;
    };
    const Case cases[] = {
        { "nothing chosen", "", -1, { QStringLiteral("Bitte wählen Sie ein Archiv aus der Liste aus!") },
            false },
        { "another case is not found", "musik", -1, { archiveNotFoundMessage() }, false },
        { "unknown name", "Filme", -1, { archiveNotFoundMessage() }, false },
        { "exact name opens", "Musik", -1, {}, true },
    };
    for (const Case &c : cases) {
        DesktopRun run;
        run.archive(QStringLiteral("Musik"));
        run.archive(QStringLiteral("Backup"));
        openarchiv *chooser = run.program().show<openarchiv>();
        control<QListWidget>(chooser, "List1")->setCurrentRow(c.selectRow);
        control<QLineEdit>(chooser, "Text1")->setText(QString::fromUtf8(c.typed));
        run.prompts().clear();
        control<QPushButton>(chooser, "Command1")->click();
        run.settle();
        EXPECT_EQ(run.prompts().messages(), c.messages) << c.name;
        EXPECT_EQ(run.form<Hauptfenster>() != nullptr, c.opens) << c.name;
        EXPECT_EQ(run.form<openarchiv>() == nullptr, c.opens) << c.name;
        if (c.opens) {
            EXPECT_EQ(run.session().archiveName, QString::fromUtf8(c.typed)) << c.name;
        }
    }
}

TEST(openarchiv, TypedNameWithExtensionPassesButItsArchiveCannotOpen)
{
    DesktopRun run;
    run.archive(QStringLiteral("Musik"));
    run.archive(QStringLiteral("Backup"));
    openarchiv *chooser = run.program().show<openarchiv>();
    control<QLineEdit>(chooser, "Text1")->setText(QStringLiteral("Musik.mdb"));
    run.prompts().clear();
    chooser->Command1_Click();
    run.settle();
    EXPECT_TRUE(run.session().archivePath.endsWith(QStringLiteral("/archive/Musik.mdb.mdb")));
    // The main window reports the archive it cannot read and stays, empty.
    ASSERT_EQ(run.prompts().shown().size(), 1u);
    EXPECT_EQ(run.prompts().shown()[0].icon, Prompts::Icon::Critical);
    ASSERT_NE(run.form<Hauptfenster>(), nullptr);
    EXPECT_EQ(run.form<Hauptfenster>()->findChild<QListWidget *>(QStringLiteral("List2"))->count(), 0);
}

TEST(openarchiv, NoArchiveAsksForAFirstOneAtOnce)
{
    DesktopRun run;
    run.session().startedAskingArchive = QStringLiteral("1");
    run.prompts().answerInput(QStringLiteral("Erstes"));
    run.program().show<openarchiv>();
    ASSERT_EQ(run.prompts().shown().size(), 1u);
    EXPECT_EQ(run.prompts().shown()[0].title, QStringLiteral("Neues Archiv erstellen"));
    EXPECT_EQ(run.prompts().shown()[0].text,
        QStringLiteral("Bitte geben Sie einen Namen für das neue Archiv ein:"));
    EXPECT_TRUE(archiveFile(run, QStringLiteral("Erstes")));
    ASSERT_NE(run.form<Hauptfenster>(), nullptr);
    EXPECT_TRUE(run.session().archiveChosen);
    // At a start the chooser goes a moment later, after its load.
    run.settle(20);
    EXPECT_EQ(run.form<openarchiv>(), nullptr);
    EXPECT_EQ(run.program().loadedCount(), 1);
}

TEST(openarchiv, CancelledFirstNameLeavesTheEmptyWindow)
{
    DesktopRun run;
    run.prompts().answerInput(std::nullopt);
    openarchiv *chooser = run.program().show<openarchiv>();
    run.settle(20);
    EXPECT_EQ(run.form<openarchiv>(), chooser);
    EXPECT_TRUE(entries(chooser).isEmpty());
}

TEST(openarchiv, DeleteByPopupKeepsTheNameTakenUntilReopened)
{
    DesktopRun run;
    run.archive(QStringLiteral("Alt"));
    run.archive(QStringLiteral("Neu"));
    openarchiv *chooser = run.program().show<openarchiv>();
    auto *list = control<QListWidget>(chooser, "List1");
    list->setCurrentRow(0);
    auto *menu = control<QMenu>(chooser, "m1");
    EXPECT_EQ(menu->actions().size(), 2);

    run.prompts().answerMessage(Prompts::Answer::No);
    chooser->mdelete_Click();
    EXPECT_TRUE(archiveFile(run, QStringLiteral("Alt"))) << "No keeps it";

    run.prompts().clear();
    run.prompts().answerMessage(Prompts::Answer::Yes);
    chooser->mdelete_Click();
    EXPECT_EQ(run.prompts().messages(),
        QStringList { QStringLiteral("Wollen Sie das ausgewählte Archiv wirklich unwiderruflich löschen?") });
    EXPECT_FALSE(archiveFile(run, QStringLiteral("Alt")));
    EXPECT_EQ(entries(chooser), QStringList { QStringLiteral("Neu") });
    EXPECT_TRUE(control<QLineEdit>(chooser, "Text1")->text().isEmpty());

    // The deleted name is still taken for a new archive; the second answer, empty, ends it.
    run.prompts().clear();
    run.prompts().answerInput(QStringLiteral("Alt"));
    run.prompts().answerInput(QString());
    chooser->Command2_Click();
    EXPECT_EQ(run.prompts().messages(),
        QStringList { ArchiveCatalog::duplicateNameMessage(QStringLiteral("Alt")) });
    EXPECT_FALSE(archiveFile(run, QStringLiteral("Alt")));
}

TEST(openarchiv, DeletingAnArchiveWhoseFileIsGoneStillRemovesTheEntry)
{
    DesktopRun run;
    run.archive(QStringLiteral("A"));
    run.archive(QStringLiteral("B"));
    openarchiv *chooser = run.program().show<openarchiv>();
    control<QListWidget>(chooser, "List1")->setCurrentRow(1);
    QFile::remove(run.home() + QStringLiteral("/archive/B.mdb"));
    run.prompts().answerMessage(Prompts::Answer::Yes);
    chooser->mdelete_Click();
    ASSERT_EQ(run.prompts().shown().size(), 2u);
    EXPECT_EQ(run.prompts().shown()[1].icon, Prompts::Icon::Critical);
    EXPECT_TRUE(run.prompts().shown()[1].text.startsWith(QStringLiteral("Fehler: Die Datenbankdatei")));
    EXPECT_EQ(entries(chooser), QStringList { QStringLiteral("A") });
}

TEST(openarchiv, DefaultArchiveNeedsASelection)
{
    DesktopRun run;
    run.archive(QStringLiteral("A"));
    run.archive(QStringLiteral("B"));
    openarchiv *chooser = run.program().show<openarchiv>();
    control<QListWidget>(chooser, "List1")->setCurrentRow(-1);
    chooser->Command5_Click();
    ASSERT_EQ(run.prompts().shown().size(), 1u);
    EXPECT_EQ(run.prompts().shown()[0].text, QStringLiteral("Fehler: Kein Archiv ausgewählt!"));
    EXPECT_EQ(run.prompts().shown()[0].icon, Prompts::Icon::Critical);
    EXPECT_FALSE(run.settings().contains(SettingKey::Standard));

    control<QListWidget>(chooser, "List1")->setCurrentRow(1);
    chooser->Command5_Click();
    EXPECT_EQ(run.settings().value(SettingKey::Standard), QStringLiteral("B"));
    EXPECT_TRUE(run.prompts().messages().last().startsWith(
        QStringLiteral("Archiv B wurde als Standard festgelegt.")));
}

TEST(openarchiv, CancelEndsTheRunAtAStartAndReturnsWhileChanging)
{
    for (const bool changing : { false, true }) {
        DesktopRun run;
        run.archive(QStringLiteral("A"));
        run.archive(QStringLiteral("B"));
        run.openArchive(QStringLiteral("A"));
        run.session().changingArchive = changing;
        bool ended = false;
        QObject::connect(&run.program(), &Program::allUnloaded, [&ended] { ended = true; });
        openarchiv *chooser = run.program().show<openarchiv>();
        control<QLineEdit>(chooser, "Text1")->setText(QStringLiteral("B"));
        chooser->Command3_Click();
        run.settle();
        EXPECT_EQ(ended, !changing) << changing;
        EXPECT_EQ(run.form<Hauptfenster>() != nullptr, changing) << changing;
        EXPECT_EQ(run.session().archiveName, QStringLiteral("A")) << "the archive is not changed";
    }
}

TEST(openarchiv, EndButtonUnloadsEveryWindow)
{
    DesktopRun run;
    run.archive(QStringLiteral("A"));
    run.openArchive(QStringLiteral("A"));
    run.program().show<Hauptfenster>();
    run.session().changingArchive = true;
    openarchiv *chooser = run.program().show<openarchiv>();
    chooser->Command4_Click();
    run.settle();
    EXPECT_EQ(run.program().loadedCount(), 0);
}

TEST(Form4, CreatesTheFirstArchiveAndItsStartChoice)
{
    struct Case
    {
        const char *name;
        const char *typed;
        bool option1;
        const char *file;
        const char *standard; // nullptr: not stored
        const char *autoarchiv;
    };
    const Case cases[] = {
        { "preset name, open automatically", "Alle Meine CDs", true, "Alle Meine CDs", "Alle Meine CDs",
            "0" },
        { "empty name becomes default", "", true, "default", "", "0" },
        { "let the user choose", "Musik", false, "Musik", nullptr, "1" },
    };
    for (const Case &c : cases) {
        DesktopRun run;
        Form4 *form = run.program().show<Form4>();
        EXPECT_EQ(control<QLineEdit>(form, "Text1")->text(), QStringLiteral("Alle Meine CDs"));
        control<QLineEdit>(form, "Text1")->setText(QString::fromLatin1(c.typed));
        control<QRadioButton>(form, c.option1 ? "Option1" : "Option2")->setChecked(true);
        form->Command1_Click();
        run.settle();
        EXPECT_TRUE(archiveFile(run, QString::fromLatin1(c.file))) << c.name;
        EXPECT_EQ(run.settings().contains(SettingKey::Standard), c.standard != nullptr) << c.name;
        if (c.standard) {
            EXPECT_EQ(run.settings().value(SettingKey::Standard), QString::fromLatin1(c.standard)) << c.name;
        }
        EXPECT_EQ(run.settings().value(SettingKey::autoarchiv), QString::fromLatin1(c.autoarchiv)) << c.name;
        EXPECT_EQ(run.form<Form4>(), nullptr) << c.name;
        ASSERT_NE(run.form<Hauptfenster>(), nullptr) << c.name;
        EXPECT_EQ(run.session().archiveName, QString::fromLatin1(c.file)) << c.name;
    }
}

TEST(Form4, TakenNameAsksAgainAndTheTextBoxBecomesTheDefault)
{
    DesktopRun run;
    run.archive(QStringLiteral("Alle Meine CDs"));
    Form4 *form = run.program().show<Form4>();
    run.prompts().answerInput(QString()); // empty: "default"
    form->Command1_Click();
    run.settle();
    ASSERT_EQ(run.prompts().shown().size(), 2u);
    EXPECT_EQ(run.prompts().shown()[0].text,
        ArchiveCatalog::duplicateNameMessage(QStringLiteral("Alle Meine CDs")));
    EXPECT_EQ(run.prompts().shown()[1].text,
        QStringLiteral("Bitte geben Sie einen Namen für das neue Archives ein:"));
    EXPECT_TRUE(archiveFile(run, QStringLiteral("default")));
    EXPECT_EQ(run.session().archiveName, QStringLiteral("default"));
    // The text box, not the name used, names the default archive.
    EXPECT_EQ(run.settings().value(SettingKey::Standard), QStringLiteral("Alle Meine CDs"));
}

#include "DesktopRun.h"
#include "QStringPrinting.h"

#include "app/Hauptfenster.h"
#include "archives/Form4.h"
#include "archives/openarchiv.h"

#include "archives/ArchiveCatalog.h"

#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

QListWidget *list(QWidget *chooser)
{
    return chooser->findChild<QListWidget *>(u"List1"_s);
}
QLineEdit *textBox(QWidget *window)
{
    return window->findChild<QLineEdit *>(u"Text1"_s);
}

QStringList entries(QWidget *chooser)
{
    QStringList names;
    for (int i = 0; i < list(chooser)->count(); ++i)
        names << list(chooser)->item(i)->text();
    return names;
}

bool archiveFile(DesktopRun &run, const QString &name)
{
    return QFileInfo::exists(datapaths::archiveFile(run.home(), name));
}

openarchiv *chooser(DesktopRun &run, const QStringList &archives = { u"A"_s, u"B"_s })
{
    for (const QString &name : archives)
        run.archive(name);
    return run.program().show<openarchiv>();
}

} // namespace

TEST(openarchiv, ListsTheArchivesSelectsTheFirstAndWaits)
{
    DesktopRun run;
    openarchiv *shown = chooser(run, { u"Musik"_s, u"Backup"_s });
    run.settle(20);
    EXPECT_EQ(run.form<openarchiv>(), shown);
    EXPECT_EQ(entries(shown), (QStringList { u"Backup"_s, u"Musik"_s }));
    EXPECT_EQ(textBox(shown)->text(), u"Backup"_s);

    DesktopRun changing;
    changing.session().changingArchive = true;
    shown = chooser(changing, { u"Einzig"_s });
    changing.settle(20);
    EXPECT_EQ(changing.form<openarchiv>(), shown) << "one archive is not opened by itself while changing";
    EXPECT_TRUE(textBox(shown)->text().isEmpty());
}

TEST(openarchiv, OpenChecksTheTypedNameExactly)
{
    const struct
    {
        const char *typed;
        QStringList messages;
    } cases[] = {
        { "", { u"Bitte wählen Sie ein Archiv aus der Liste aus!"_s } },
        { "a", { archiveNotFoundMessage() } },
        { "B", {} },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.typed);
        DesktopRun run;
        openarchiv *shown = chooser(run);
        list(shown)->setCurrentRow(-1);
        textBox(shown)->setText(QString::fromLatin1(c.typed));
        shown->Command1_Click();
        run.settle();
        const bool opens = c.messages.isEmpty();
        EXPECT_EQ(run.prompts().messages(), c.messages);
        EXPECT_EQ(run.form<Hauptfenster>() != nullptr, opens);
        EXPECT_EQ(run.form<openarchiv>() == nullptr, opens);
        EXPECT_EQ(run.session().archiveName, opens ? u"B"_s : QString());
    }
}

TEST(openarchiv, NoArchiveAsksForAFirstOneAtOnce)
{
    DesktopRun run;
    run.session().startedAskingArchive = u"1"_s;
    run.prompts().answerInput(u"Erstes"_s);
    run.program().show<openarchiv>();
    ASSERT_EQ(run.prompts().shown().size(), 1u);
    EXPECT_EQ(run.prompts().shown()[0].text, u"Bitte geben Sie einen Namen für das neue Archiv ein:"_s);
    EXPECT_TRUE(archiveFile(run, u"Erstes"_s));
    ASSERT_NE(run.form<Hauptfenster>(), nullptr);
    run.settle(20);
    EXPECT_EQ(run.program().loadedCount(), 1) << "at a start the chooser goes after its load";

    DesktopRun cancelled;
    cancelled.prompts().answerInput(std::nullopt);
    openarchiv *empty = cancelled.program().show<openarchiv>();
    cancelled.settle(20);
    EXPECT_EQ(cancelled.form<openarchiv>(), empty) << "a cancelled name leaves the empty chooser";
    EXPECT_TRUE(entries(empty).isEmpty());
}

TEST(openarchiv, DeleteAsksAndKeepsTheNameTakenUntilReopened)
{
    DesktopRun run;
    openarchiv *shown = chooser(run);
    list(shown)->setCurrentRow(0);
    run.prompts().answerMessage(Prompts::Answer::No);
    shown->mdelete_Click();
    EXPECT_TRUE(archiveFile(run, u"A"_s)) << "No keeps it";

    run.prompts().clear();
    run.prompts().answerMessage(Prompts::Answer::Yes);
    shown->mdelete_Click();
    EXPECT_EQ(run.prompts().messages(),
        QStringList { u"Wollen Sie das ausgewählte Archiv wirklich unwiderruflich löschen?"_s });
    EXPECT_FALSE(archiveFile(run, u"A"_s));
    EXPECT_EQ(entries(shown), QStringList { u"B"_s });
    EXPECT_TRUE(textBox(shown)->text().isEmpty());

    // The second answer, empty, ends the asking.
    run.prompts().clear();
    run.prompts().answerInput(u"A"_s);
    run.prompts().answerInput(QString());
    shown->Command2_Click();
    EXPECT_EQ(run.prompts().messages(), QStringList { ArchiveCatalog::duplicateNameMessage(u"A"_s) });
    EXPECT_FALSE(archiveFile(run, u"A"_s));
}

TEST(openarchiv, DefaultArchiveNeedsASelection)
{
    DesktopRun run;
    openarchiv *shown = chooser(run);
    list(shown)->setCurrentRow(-1);
    shown->Command5_Click();
    EXPECT_EQ(run.prompts().messages(), QStringList { u"Fehler: Kein Archiv ausgewählt!"_s });
    EXPECT_FALSE(run.settings().contains(SettingKey::Standard));

    list(shown)->setCurrentRow(1);
    shown->Command5_Click();
    EXPECT_EQ(run.settings().value(SettingKey::Standard), u"B"_s);
    EXPECT_TRUE(run.prompts().messages().last().startsWith(u"Archiv B wurde als Standard festgelegt."_s));
}

TEST(openarchiv, CancelEndsTheRunAtAStartAndReturnsWhileChangingAndEndUnloadsAll)
{
    for (const bool changing : { false, true }) {
        SCOPED_TRACE(changing ? "changing" : "at a start");
        DesktopRun run;
        run.openArchive(u"A"_s);
        run.session().changingArchive = changing;
        bool ended = false;
        QObject::connect(&run.program(), &Program::allUnloaded, [&ended] { ended = true; });
        openarchiv *shown = chooser(run);
        textBox(shown)->setText(u"B"_s);
        shown->Command3_Click();
        run.settle();
        EXPECT_EQ(ended, !changing);
        EXPECT_EQ(run.form<Hauptfenster>() != nullptr, changing);
        EXPECT_EQ(run.session().archiveName, u"A"_s) << "the archive is not changed";
        if (changing) {
            run.program().show<openarchiv>()->Command4_Click();
            run.settle();
            EXPECT_EQ(run.program().loadedCount(), 0) << "the end button unloads every window";
        }
    }
}

TEST(Form4, CreatesTheFirstArchiveAndItsStartChoice)
{
    const struct
    {
        const char *typed;
        bool option1;
        const char *file;
        const char *standard; // "-": not stored
        const char *autoarchiv;
    } cases[] = {
        { "Alle Meine CDs", true, "Alle Meine CDs", "Alle Meine CDs", "0" },
        { "", true, "default", "", "0" },
        { "Musik", false, "Musik", "-", "1" },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.typed);
        DesktopRun run;
        Form4 *form = run.program().show<Form4>();
        EXPECT_EQ(textBox(form)->text(), u"Alle Meine CDs"_s);
        textBox(form)->setText(QString::fromLatin1(c.typed));
        form->findChild<QRadioButton *>(c.option1 ? u"Option1"_s : u"Option2"_s)->setChecked(true);
        form->Command1_Click();
        run.settle();
        const Settings &settings = run.settings();
        EXPECT_TRUE(archiveFile(run, QString::fromLatin1(c.file)));
        EXPECT_EQ(settings.contains(SettingKey::Standard) ? settings.value(SettingKey::Standard) : u"-"_s,
            QString::fromLatin1(c.standard));
        EXPECT_EQ(settings.value(SettingKey::autoarchiv), QString::fromLatin1(c.autoarchiv));
        EXPECT_EQ(run.form<Form4>(), nullptr);
        EXPECT_NE(run.form<Hauptfenster>(), nullptr);
        EXPECT_EQ(run.session().archiveName, QString::fromLatin1(c.file));
    }
}

TEST(Form4, TakenNameAsksAgainAndTheTextBoxBecomesTheDefault)
{
    DesktopRun run;
    run.archive(u"Alle Meine CDs"_s);
    run.prompts().answerInput(QString()); // empty: "default"
    run.program().show<Form4>()->Command1_Click();
    run.settle();
    ASSERT_EQ(run.prompts().shown().size(), 2u);
    EXPECT_EQ(run.prompts().shown()[0].text, ArchiveCatalog::duplicateNameMessage(u"Alle Meine CDs"_s));
    EXPECT_EQ(run.prompts().shown()[1].text, u"Bitte geben Sie einen Namen für das neue Archives ein:"_s);
    EXPECT_EQ(run.session().archiveName, u"default"_s);
    // The text box, not the name used, names the default archive.
    EXPECT_EQ(run.settings().value(SettingKey::Standard), u"Alle Meine CDs"_s);
}

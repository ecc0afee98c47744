#include "Control.h"
#include "DesktopRun.h"
#include "QStringPrinting.h"

#include "app/Hauptfenster.h"
#include "archives/ArchiveCatalog.h"
#include "archives/Form4.h"
#include "archives/openarchiv.h"

#include <QFileInfo>
#include <QLineEdit>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

QLineEdit *textBox(QWidget *window)
{
    return control<QLineEdit>(window, "Text1");
}
QListWidget *list(QWidget *chooser)
{
    return control<QListWidget>(chooser, "List1");
}

bool archiveFile(DesktopRun &run, const QString &name)
{
    return QFileInfo::exists(datapaths::archiveFile(run.home(), name));
}

openarchiv *chooser(DesktopRun &run)
{
    run.archive(u"B"_s);
    run.archive(u"A"_s);
    return run.program().show<openarchiv>();
}

} // namespace

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
        EXPECT_EQ(entries(list(shown)), (QStringList { u"A"_s, u"B"_s }));
        EXPECT_EQ(textBox(shown)->text(), u"A"_s) << "the first is selected";
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

TEST(openarchiv, DeleteAsksFirst)
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
    EXPECT_EQ(entries(list(shown)), QStringList { u"B"_s });
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
        textBox(form)->setText(QString::fromLatin1(c.typed));
        control<QRadioButton>(form, c.option1 ? "Option1" : "Option2")->setChecked(true);
        form->Command1_Click();
        run.settle();
        const Settings &settings = run.settings();
        EXPECT_TRUE(archiveFile(run, QString::fromLatin1(c.file)));
        EXPECT_EQ(settings.contains(SettingKey::Standard) ? settings.value(SettingKey::Standard) : u"-"_s,
            QString::fromLatin1(c.standard));
        EXPECT_EQ(settings.value(SettingKey::autoarchiv), QString::fromLatin1(c.autoarchiv));
        EXPECT_NE(run.form<Hauptfenster>(), nullptr);
        EXPECT_EQ(run.session().archiveName, QString::fromLatin1(c.file));
    }
}

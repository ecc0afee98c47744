#include "MainWindowRun.h"

#include "archives/ArchiveCatalog.h"
#include "archives/FirstArchiveDialog.h"
#include "archives/ArchiveChooser.h"

#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

const auto textBox = [](QWidget *window) { return control<QLineEdit>(window, "nameEdit"); };
const auto list = [](QWidget *chooser) { return control<QListWidget>(chooser, "archiveList"); };

ArchiveChooser *chooser(DesktopRun &run)
{
    run.archive(u"B"_s);
    run.archive(u"A"_s);
    return run.program().show<ArchiveChooser>();
}

} // namespace

TEST(ArchiveChooser, OpenChecksTheTypedNameExactly)
{
    const std::pair<const char *, QStringList> cases[]
        = { { "", { u"Bitte wählen Sie ein Archiv aus der Liste aus!"_s } },
              { "a", { archiveNotFoundMessage() } }, { "B", {} } };
    for (const auto &[typed, messages] : cases) {
        SCOPED_TRACE(typed);
        DesktopRun run;
        ArchiveChooser *shown = chooser(run);
        EXPECT_EQ(entries(list(shown)) << textBox(shown)->text(), (QStringList { u"A"_s, u"B"_s, u"A"_s }))
            << "the first is selected";
        list(shown)->setCurrentRow(-1);
        textBox(shown)->setText(QString::fromLatin1(typed));
        shown->openTypedArchive();
        run.settle();
        const bool opens = messages.isEmpty();
        EXPECT_EQ(run.prompts().messages(), messages);
        EXPECT_EQ(std::tuple(run.form<MainWindow>() != nullptr, run.form<ArchiveChooser>() == nullptr,
                      run.session().archiveName),
            std::tuple(opens, opens, opens ? u"B"_s : QString()));
    }
}

// The default needs a selection; deleting asks first and keeps the file on "No".
TEST(ArchiveChooser, DefaultAndDeleteWorkOnTheSelection)
{
    DesktopRun run;
    ArchiveChooser *shown = chooser(run);
    list(shown)->setCurrentRow(-1);
    shown->makeSelectedDefault();
    EXPECT_EQ(run.prompts().messages(), QStringList { u"Fehler: Kein Archiv ausgewählt!"_s });
    EXPECT_FALSE(run.settings().contains(SettingKey::Standard));
    list(shown)->setCurrentRow(1);
    shown->makeSelectedDefault();
    EXPECT_EQ(run.settings().value(SettingKey::Standard), u"B"_s);
    EXPECT_TRUE(run.prompts().messages().last().startsWith(u"Archiv B wurde als Standard festgelegt."_s));

    list(shown)->setCurrentRow(0);
    for (const auto answer : { Prompts::Answer::No, Prompts::Answer::Yes }) {
        run.prompts().clear();
        run.prompts().answerMessage(answer);
        shown->deleteArchive();
        EXPECT_EQ(run.prompts().messages(),
            QStringList { u"Wollen Sie das ausgewählte Archiv wirklich unwiderruflich löschen?"_s });
        EXPECT_EQ(
            QFileInfo::exists(datapaths::archiveFile(run.home(), u"A"_s)), answer == Prompts::Answer::No)
            << "No keeps it";
    }
    EXPECT_EQ(entries(list(shown)), QStringList { u"B"_s });
}

// Cancel ends the run at a start and returns to the main window while changing, the archive
// unchanged. After the open archive was deleted nothing is left to return to: cancel keeps the
// chooser and says why, and closing it ends the run.
TEST(ArchiveChooser, CancelEndsTheRunReturnsOrStaysAfterTheOpenArchiveWasDeleted)
{
    // changing, open archive deleted, the run ended, the main window back
    const std::tuple<bool, bool, bool, bool> cases[]
        = { { false, false, true, false }, { true, false, false, true }, { true, true, false, false } };
    for (const auto &[changing, deleted, ends, returns] : cases) {
        SCOPED_TRACE(std::to_string(changing) + std::to_string(deleted));
        DesktopRun run;
        run.openArchive(u"A"_s);
        run.session().changingArchive = changing;
        bool ended = false;
        QObject::connect(&run.program(), &Program::allUnloaded, [&ended] { ended = true; });
        ArchiveChooser *shown = chooser(run);
        textBox(shown)->setText(deleted ? u"A"_s : u"B"_s);
        if (deleted) {
            run.prompts().answerMessage(Prompts::Answer::Yes);
            shown->deleteArchive();
            ASSERT_FALSE(QFileInfo::exists(run.session().archivePath));
        }
        shown->cancel();
        run.settle();
        EXPECT_EQ(std::tuple(ended, run.form<MainWindow>() != nullptr, run.form<ArchiveChooser>()),
            std::tuple(ends, returns, deleted ? shown : nullptr));
        EXPECT_EQ(run.session().archiveName, u"A"_s) << "the archive is not changed";
        if (deleted) {
            EXPECT_EQ(run.prompts().messages().last(),
                u"Das geöffnete Archiv wurde gelöscht. Bitte wählen Sie ein anderes Archiv aus."_s);
            shown->close();
            run.settle();
            EXPECT_TRUE(ended);
        } else if (changing) {
            run.program().show<ArchiveChooser>()->quit();
            run.settle();
            EXPECT_EQ(run.program().loadedCount(), 0) << "the end button unloads every window";
        }
    }
}

// Names the list, a backup or a file name cannot hold are refused with their reason, in the
// chooser's input box (which asks again) and in the first archive's text box alike.
TEST(ArchiveChooser, NewArchiveNamesAreCheckedByTheCatalog)
{
    const QStringList refused = { u".hidden"_s, u"a\nb"_s, u"Ωmega"_s };
    QStringList reasons;
    for (const QString &name : refused)
        reasons.append(checkNewArchiveName(name).message);
    const auto archiveFiles = [](DesktopRun &run) {
        return QDir(datapaths::archiveFolder(run.home())).entryList(QDir::Files | QDir::Hidden);
    };
    {
        DesktopRun run;
        ArchiveChooser *shown = chooser(run);
        for (const QString &name : refused + QStringList { u"Übersicht"_s })
            run.prompts().answerInput(name);
        shown->createArchive();
        run.settle();
        EXPECT_EQ(run.prompts().messages(), reasons);
        EXPECT_EQ(std::pair(archiveFiles(run), run.session().archiveName),
            std::pair(QStringList { u"A.mdb"_s, u"B.mdb"_s, u"Übersicht.mdb"_s }, u"Übersicht"_s));
    }
    DesktopRun run;
    FirstArchiveDialog *dialog = run.program().show<FirstArchiveDialog>();
    for (const QString &name : refused) {
        textBox(dialog)->setText(name);
        dialog->createArchive();
        run.settle();
    }
    EXPECT_EQ(std::tuple(run.prompts().messages(), archiveFiles(run), run.form<FirstArchiveDialog>()),
        std::tuple(reasons, QStringList(), dialog));
}

TEST(FirstArchiveDialog, CreatesTheFirstArchiveAndItsStartChoice)
{
    // typed, opens automatically, file, standard ("-": not stored), autoarchiv
    const std::tuple<QString, bool, QString, QString, QString> cases[]
        = { { u"Alle Meine CDs"_s, true, u"Alle Meine CDs"_s, u"Alle Meine CDs"_s, u"0"_s },
              { u""_s, true, u"default"_s, u""_s, u"0"_s },
              { u"Musik"_s, false, u"Musik"_s, u"-"_s, u"1"_s } };
    for (const auto &[typed, opensAutomatically, file, standard, autoarchiv] : cases) {
        SCOPED_TRACE(typed.toStdString());
        DesktopRun run;
        FirstArchiveDialog *dialog = run.program().show<FirstArchiveDialog>();
        textBox(dialog)->setText(typed);
        control<QRadioButton>(dialog, opensAutomatically ? "openAutomaticallyOption" : "chooseEachTimeOption")
            ->setChecked(true);
        dialog->createArchive();
        run.settle();
        const Settings &settings = run.settings();
        EXPECT_EQ(std::tuple(QFileInfo::exists(datapaths::archiveFile(run.home(), file)),
                      settings.contains(SettingKey::Standard) ? settings.value(SettingKey::Standard) : u"-"_s,
                      settings.value(SettingKey::autoarchiv), run.session().archiveName),
            std::tuple(true, standard, autoarchiv, file));
        EXPECT_NE(run.form<MainWindow>(), nullptr);
    }
}

TEST(CdList, AlphabeticalSortWidensTheGapAndNumericOrderRestoresIt)
{
    MainWindowRun m;
    MainWindow *main = m.show();
    m.select(7);
    main->sortByTitle();
    // Binary order, capitals before small letters; the selection is lost, the display stays.
    EXPECT_EQ(std::tuple(m.entries().join(u'|'), m.run.session().listSorted, m.list()->currentRow(),
                  m.text("titleLabel")),
        std::tuple(u"7  Abc|12  Zebra|3  birne"_s, true, -1, u"Abc"_s));
    m.select(12);
    EXPECT_EQ(main->selectedCd(), 12) << "the number is found behind the wider gap";
    main->sortByNumber();
    EXPECT_EQ(std::pair(m.entries().first(), m.run.session().listSorted), std::pair(u"3 birne"_s, false));
}

TEST(CdList, DeleteAsksRemovesTheEntryAndKeepsTheDisplay)
{
    MainWindowRun m;
    MainWindow *main = m.show();
    m.select(7);
    m.run.prompts().answerMessage(Prompts::Answer::No);
    m.run.prompts().answerMessage(Prompts::Answer::Yes);
    main->deleteSelectedCd();
    EXPECT_EQ(m.list()->count(), 3) << "No keeps it";
    main->deleteSelectedCd();
    EXPECT_EQ(m.run.prompts().messages(),
        (QStringList { u"Wollen Sie die CD (Nummer: 7) wirklich löschen?"_s,
            u"Wollen Sie die CD (Nummer: 7) wirklich löschen?"_s, u"CD wurde aus dem Archiv entfernt!"_s }));
    // List and count lose the CD; its title stays on display, without its comments.
    EXPECT_EQ(m.entries().join(u'|') + u'/' + m.text("cdCountLabel") + u'/'
            + m.entries("commentList").join(u'|') + u'/' + m.text("titleLabel"),
        u"3 birne|12 Zebra/2//Abc"_s);
    EXPECT_EQ(m.archive->store().selectByNumber(7).error.kind, ArchiveError::Kind::NotFound);
    EXPECT_TRUE(QFile::exists(datapaths::imageFile(m.run.home(), 1001))) << "the image stays";
}

TEST(CdDetailView, ShowsTheHeadCommentsAndCounts)
{
    MainWindowRun m;
    m.archive->cd(30, u"Verloren"_s, u"Sta1|End1"_s, 4242);
    m.show();
    m.select(7);
    EXPECT_EQ(
        m.text("titleLabel") + u'|' + m.text("numberLabel") + u'|' + m.text("serialLabel"), u"Abc|7|1001"_s);
    EXPECT_EQ(m.entries("commentList"), (QStringList { u"eins"_s, u"zwei"_s }));
    // Nine file lines, the ZIP's closing row among them; five folder lines less the root.
    EXPECT_EQ(m.text("fileCountLabel") + u'|' + m.text("folderCountLabel"), u"9|4"_s);

    // A missing image file acts as no image and leaves the counts of the CD before.
    m.select(30);
    EXPECT_EQ(m.text("titleLabel") + u'|' + m.text("serialLabel") + u'|' + m.text("fileCountLabel"),
        u"Verloren|0|9"_s);
    m.showTab(2);
    EXPECT_EQ(m.run.prompts().messages(), QStringList { u"Kein CD Abbild vorhanden!"_s });
    EXPECT_EQ(m.paneShown(), u"commentsPage"_s);

    m.select(3);
    EXPECT_EQ(
        m.text("fileCountLabel") + u'|' + m.text("folderCountLabel"), u"Nicht Verfügbar!|Nicht Verfügbar!"_s);
}

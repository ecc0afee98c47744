#include "DesktopRun.h"
#include "Screenshot.h"

#include "transfer/ExportDialog.h"
#include "transfer/ImportDialog.h"
#include "transfer/OldDatabaseImport.h"

#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

// Backup, HTML export, restore and the import of an old text database, each through its
// dialog with the file dialogs and questions answered by the test.
TEST(TransferDialogs, EachWayThroughItsDialog)
{
    DesktopRun run;
    run.archive(u"Musik"_s)->cd(1, u"Eins"_s, u"Sta1|Jazz|End1"_s);
    run.openArchive(u"Musik"_s);
    QTemporaryDir out;
    // Clicks the dialog's start button with `file` answered in the file dialog.
    const auto go = [&run](auto *dialog, const QString &file) {
        run.prompts().answerFile(Prompts::FileAnswer { file, 0 });
        dialog->carryOutChoice();
        run.settle();
    };

    ExportDialog *exporter = run.program().show<ExportDialog>();
    screenshot(exporter, u"ExportDialog"_s);
    EXPECT_EQ(exporter->windowTitle(), u"Exportieren"_s);
    // The name typed without its extension gets the filter's.
    go(exporter, out.filePath(u"musik"_s));
    EXPECT_EQ(run.prompts().messages().last(), u"Das Backup wurde erfolgreich erstellt!"_s);
    EXPECT_TRUE(QFileInfo::exists(out.filePath(u"musik.bup"_s)));

    exporter = run.program().show<ExportDialog>();
    exporter->findChild<QRadioButton *>(u"secondChoice"_s)->setChecked(true);
    go(exporter, out.filePath(u"musik.html"_s));
    EXPECT_EQ(run.opened().last(), QUrl::fromLocalFile(out.filePath(u"musik.html"_s)));
    EXPECT_NE(run.form<ExportDialog>(), nullptr); // the HTML way leaves the dialog open
    exporter->close();
    run.settle();

    ImportDialog *importer = run.program().show<ImportDialog>();
    screenshot(importer, u"ImportDialog"_s);
    EXPECT_EQ(importer->windowTitle(), u"Importieren "_s);
    importer->findChild<QRadioButton *>(u"secondChoice"_s)->setChecked(true);
    run.prompts().answerMessage(Prompts::Answer::Yes);
    go(importer, out.filePath(u"musik.bup"_s));
    EXPECT_TRUE(run.prompts().messages().contains(
        u"Das Archiv Musik ist bereits vorhanden. Wollen Sie es durch das Archiv aus dem Backup ersetzen?"_s));
    EXPECT_EQ(run.prompts().messages().last(),
        u"Das Archiv wurde erfolgreich Importiert! Sie können es nun unter 'Archiv wechseln' im Hauptfenster auswählen!"_s);

    // A section whose image is named by no number is left out, and a warning names it.
    writeFile(out.filePath(u"LWS/abc.dat"_s), ">d:\r\n\r\n");
    const QString ini = writeFile(out.filePath(u"Daten/alt.ini"_s),
        "[Urlaub]\r\nSeriennummer=no\r\nFotos\r\n\r\n[Kaputt]\r\nSeriennummer=abc\r\n\r\n");
    go(run.program().show<ImportDialog>(), ini);
    EXPECT_TRUE(QFileInfo::exists(datapaths::archiveFile(run.home(), u"alt.ini"_s)));
    EXPECT_EQ(run.prompts().messages().mid(run.prompts().messages().size() - 2),
        QStringList({ u"Diese CDs der alten Datenbank konnten nicht übernommen werden: [Kaputt]."_s,
            olddatabase::successMessage() }));
    EXPECT_EQ(run.form<ImportDialog>(), nullptr);
}

} // namespace

#include "ExportDialog.h"

#include "TransferDialogParts.h"

#include "app/Program.h"
#include "app/ShellOpen.h"
#include "common/Prompts.h"
#include "screen/FileDialogs.h"

#include "transfer/Backup.h"
#include "transfer/HtmlExport.h"

#include <QFileInfo>
#include <QPushButton>
#include <QRadioButton>

using transferdialog::buildChoice;
using transferdialog::whileWaiting;

ExportDialog::ExportDialog(Program &program)
    : QDialog(nullptr)
    , m_program(program)
{
    m_program.adopt(this);
    setObjectName(QStringLiteral("ExportDialog"));
    setWindowTitle(QStringLiteral("Exportieren"));
    QPushButton *next = nullptr;
    m_firstChoice = buildChoice(this, QStringLiteral("> Exportieren von Silberbuch - Daten"),
        QStringLiteral("Ein Sicherheits-Backup des aktuellen Archives erstellen"),
        QStringLiteral("Das aktuelle Archiv in HTML exportieren"), &next);
    connect(next, &QPushButton::clicked, this, &ExportDialog::carryOutChoice);
}

void ExportDialog::carryOutChoice()
{
    if (m_firstChoice->isChecked())
        makeBackup();
    else
        exportHtml();
}

void ExportDialog::makeBackup()
{
    FileDialogs dialog(this);
    dialog.filter = QStringLiteral("Backup|*.bup");
    dialog.fileName = m_program.session().archiveName + QStringLiteral(".bup");
    QString target;
    while (true) {
        // The file name as the dialog's rule completes it ("daten" becomes "daten.bup"). A
        // cancel ends the backup, also at the second showing, where the old program went on
        // and wrote a file named ".bup" into the current folder.
        if (dialog.askFileToSave().isEmpty())
            return;
        target = dialog.fileName;
        if (!QFileInfo::exists(target)
            || Prompts::message(this, QStringLiteral("Wollen Sie die vorhandene Datei überschreiben?"),
                   Prompts::Icon::None, QStringLiteral("Überschreiben?"), Prompts::Buttons::YesNo)
                == Prompts::Answer::Yes)
            break;
    }
    const QString error = whileWaiting(this, QStringLiteral("Das Backup wird erstellt..."), [&](class ProgressWindow *window) {
        return backup::write(m_program.session().archivePath, m_program.dataFolder(), target, true,
            [window](int done, int total) {
                window->setProgressText(QStringLiteral("%1 von %2 Dateien").arg(done).arg(total));
                QApplication::processEvents();
            });
    });
    if (!error.isEmpty()) {
        Prompts::message(this, error, Prompts::Icon::Critical);
        return;
    }
    Prompts::message(this, QStringLiteral("Das Backup wurde erfolgreich erstellt!"), Prompts::Icon::Information);
    close();
}

void ExportDialog::exportHtml()
{
    FileDialogs dialog(this);
    dialog.fileName = m_program.session().archiveName + QStringLiteral(".html");
    const QString path = dialog.askFileToSave();
    if (path.isEmpty())
        return;
    const htmlexport::Result result = htmlexport::exportArchiveToHtml(m_program.session().archivePath, path);
    if (!result.ok()) {
        Prompts::message(this, result.error, Prompts::Icon::Critical);
        return;
    }
    shellopen::open(this, QUrl::fromLocalFile(path));
}

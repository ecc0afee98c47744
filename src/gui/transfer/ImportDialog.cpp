#include "ImportDialog.h"

#include "TransferDialogParts.h"

#include "app/Program.h"
#include "common/Prompts.h"
#include "screen/FileDialogs.h"

#include "app/DataPaths.h"
#include "transfer/Backup.h"
#include "transfer/OldDatabaseImport.h"

#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

using transferdialog::buildChoice;
using transferdialog::whileWaiting;

ImportDialog::ImportDialog(Program &program)
    : QDialog(nullptr)
    , m_program(program)
{
    m_program.adopt(this);
    setObjectName(QStringLiteral("ImportDialog"));
    setWindowTitle(QStringLiteral("Importieren "));
    QPushButton *next = nullptr;
    m_firstChoice = buildChoice(this, QStringLiteral("> Importieren von Silberbuch - Daten"),
        QStringLiteral("Eine Datenbank aus einer älteren Version des Silberbuchs "),
        QStringLiteral("Eine Datenbank aus einem Sicherheitsbackup dieser Version"), &next);
    findChild<QLabel *>(QStringLiteral("questionLabel"))
        ->setText(QStringLiteral("Was möchten Sie importieren?"));
    connect(next, &QPushButton::clicked, this, &ImportDialog::carryOutChoice);
}

void ImportDialog::carryOutChoice()
{
    if (m_firstChoice->isChecked())
        importOld();
    else
        restoreBackup();
}

void ImportDialog::importOld()
{
    FileDialogs dialog(this);
    dialog.filter = QStringLiteral("Alte Silberbuch-Datenbanken|*.ini");
    const QString path = dialog.askFileToOpen();
    if (path.isEmpty())
        return;
    const QString data = m_program.dataFolder();
    QString name = olddatabase::archiveNameFor(path);
    while (QFileInfo::exists(datapaths::archiveFile(data, name))) {
        const std::optional<QString> answer = Prompts::input(this,
            QStringLiteral("Ein Archiv mit dem Namen der Ini-Datei ist bereits vorhanden. Bitte geben Sie einen neuen "
                           "Archivnamen ein:"),
            QStringLiteral("Archiv bereits vorhanden!"));
        // A cancel leaves the dialog open, rather than making an archive called ".mdb".
        if (!answer || answer->isEmpty())
            return;
        name = *answer;
    }
    const olddatabase::ImportResult result = olddatabase::importIni(path, data, name);
    if (!result.ok()) {
        Prompts::message(this, result.error, Prompts::Icon::Critical);
        return;
    }
    if (!result.leftOut.isEmpty())
        Prompts::message(this, olddatabase::leftOutMessage(result.leftOut), Prompts::Icon::Warning);
    Prompts::message(this, olddatabase::successMessage(), Prompts::Icon::Information);
    close();
}

void ImportDialog::restoreBackup()
{
    FileDialogs dialog(this);
    const QString path = dialog.askFileToOpen();
    if (path.isEmpty())
        return;
    const backup::RestoreResult result
        = whileWaiting(this, QStringLiteral("Das Backup wird importiert..."), [&](class ProgressWindow *) {
              return backup::restore(path, m_program.dataFolder(), [this](const QString &archive) {
                  return Prompts::message(this, backup::replaceQuestion(archive), Prompts::Icon::Question, {},
                             Prompts::Buttons::YesNo)
                      == Prompts::Answer::Yes;
              });
          });
    if (!result.ok()) {
        Prompts::message(this, result.error, Prompts::Icon::Critical);
        return;
    }
    for (const QString &notice : result.notices)
        Prompts::message(this, notice, Prompts::Icon::Information);
    Prompts::message(this,
        QStringLiteral("Das Archiv wurde erfolgreich Importiert! Sie können es nun unter 'Archiv wechseln' im "
                       "Hauptfenster auswählen!"),
        Prompts::Icon::Information);
    close();
}

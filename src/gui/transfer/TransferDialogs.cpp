#include "TransferDialogs.h"

#include "app/Program.h"
#include "app/ShellOpen.h"
#include "common/Prompts.h"
#include "images/wait.h"
#include "screen/cCommonDialog.h"

#include "app/DataPaths.h"
#include "transfer/Backup.h"
#include "transfer/HtmlExport.h"
#include "transfer/OldDatabaseImport.h"

#include <QApplication>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

// The frame both dialogs share: heading, question, two choices, "Weiter >>" and "<< Abbrechen".
QRadioButton *buildChoice(QDialog *dialog, const QString &heading, const QString &first, const QString &second,
    QPushButton **next)
{
    auto *label2 = new QLabel(heading, dialog);
    label2->setObjectName(QStringLiteral("Label2"));
    QFont bold = label2->font();
    bold.setBold(true);
    label2->setFont(bold);
    auto *label1 = new QLabel(QStringLiteral("Was möchten Sie tun?"), dialog);
    label1->setObjectName(QStringLiteral("Label1"));
    auto *option1 = new QRadioButton(first, dialog);
    option1->setObjectName(QStringLiteral("Option1"));
    option1->setChecked(true);
    auto *option2 = new QRadioButton(second, dialog);
    option2->setObjectName(QStringLiteral("Option2"));
    *next = new QPushButton(QStringLiteral("Weiter >>"), dialog);
    (*next)->setObjectName(QStringLiteral("Command1"));
    auto *cancel = new QPushButton(QStringLiteral("<< Abbrechen"), dialog);
    cancel->setObjectName(QStringLiteral("Command2"));
    QObject::connect(cancel, &QPushButton::clicked, dialog, &QDialog::close);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cancel);
    buttons->addStretch();
    buttons->addWidget(*next);
    auto *layout = new QVBoxLayout(dialog);
    for (QWidget *widget : std::initializer_list<QWidget *> { label2, label1, option1, option2 })
        layout->addWidget(widget);
    layout->addLayout(buttons);
    return option1;
}

// The wait window over `parent` while `work` runs, with the hourglass.
template <typename Work> auto whileWaiting(QWidget *parent, const QString &text, Work &&work)
{
    class wait *window = new class wait(parent);
    window->setText(text);
    window->show();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QApplication::processEvents();
    auto result = work(window);
    QApplication::restoreOverrideCursor();
    window->close();
    window->deleteLater();
    return result;
}

} // namespace

Exportieren::Exportieren(Program &program)
    : QDialog(nullptr)
    , m_program(program)
{
    m_program.adopt(this);
    setObjectName(QStringLiteral("Exportieren"));
    setWindowTitle(QStringLiteral("Exportieren"));
    QPushButton *next = nullptr;
    m_option1 = buildChoice(this, QStringLiteral("> Exportieren von Silberbuch - Daten"),
        QStringLiteral("Ein Sicherheits-Backup des aktuellen Archives erstellen"),
        QStringLiteral("Das aktuelle Archiv in HTML exportieren"), &next);
    connect(next, &QPushButton::clicked, this, &Exportieren::Command1_Click);
}

void Exportieren::Command1_Click()
{
    if (m_option1->isChecked())
        makeBackup();
    else
        exportHtml();
}

void Exportieren::makeBackup()
{
    cCommonDialog dialog(this);
    dialog.Filter = QStringLiteral("Backup|*.bup");
    dialog.filename = m_program.session().archiveName + QStringLiteral(".bup");
    QString target;
    while (true) {
        target = dialog.ShowSave();
        if (target.isEmpty())
            return;
        if (!QFileInfo::exists(target)
            || Prompts::message(this, QStringLiteral("Wollen Sie die vorhandene Datei überschreiben?"),
                   Prompts::Icon::None, QStringLiteral("Überschreiben?"), Prompts::Buttons::YesNo)
                == Prompts::Answer::Yes)
            break;
    }
    const QString error = whileWaiting(this, QStringLiteral("Das Backup wird erstellt..."), [&](class wait *window) {
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

void Exportieren::exportHtml()
{
    cCommonDialog dialog(this);
    dialog.filename = m_program.session().archiveName + QStringLiteral(".html");
    const QString path = dialog.ShowSave();
    if (path.isEmpty())
        return;
    const htmlexport::Result result = htmlexport::exportArchiveToHtml(m_program.session().archivePath, path);
    if (!result.ok()) {
        Prompts::message(this, result.error, Prompts::Icon::Critical);
        return;
    }
    shellopen::open(this, QUrl::fromLocalFile(path));
}

Importieren::Importieren(Program &program)
    : QDialog(nullptr)
    , m_program(program)
{
    m_program.adopt(this);
    setObjectName(QStringLiteral("Importieren"));
    setWindowTitle(QStringLiteral("Importieren "));
    QPushButton *next = nullptr;
    m_option1 = buildChoice(this, QStringLiteral("> Importieren von Silberbuch - Daten"),
        QStringLiteral("Eine Datenbank aus einer älteren Version des Silberbuchs "),
        QStringLiteral("Eine Datenbank aus einem Sicherheitsbackup dieser Version"), &next);
    findChild<QLabel *>(QStringLiteral("Label1"))->setText(QStringLiteral("Was möchten Sie importieren?"));
    connect(next, &QPushButton::clicked, this, &Importieren::Command1_Click);
}

void Importieren::Command1_Click()
{
    if (m_option1->isChecked())
        importOld();
    else
        restoreBackup();
}

void Importieren::importOld()
{
    cCommonDialog dialog(this);
    dialog.Filter = QStringLiteral("Alte Silberbuch-Datenbanken|*.ini");
    const QString path = dialog.ShowOpen();
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
    Prompts::message(this, olddatabase::successMessage(), Prompts::Icon::Information);
    close();
}

void Importieren::restoreBackup()
{
    cCommonDialog dialog(this);
    const QString path = dialog.ShowOpen();
    if (path.isEmpty())
        return;
    const backup::RestoreResult result
        = whileWaiting(this, QStringLiteral("Das Backup wird importiert..."), [&](class wait *) {
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

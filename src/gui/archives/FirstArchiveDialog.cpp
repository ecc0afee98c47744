#include "FirstArchiveDialog.h"

#include "app/MainWindow.h"
#include "app/Program.h"
#include "ui_FirstArchiveDialog.h"

#include "app/Settings.h"
#include "archives/ArchiveCatalog.h"
#include "common/Prompts.h"

FirstArchiveDialog::FirstArchiveDialog(Program &program)
    : QWidget(nullptr, Qt::Window)
    , m_program(program)
    , m_ui(std::make_unique<Ui::FirstArchiveDialog>())
{
    m_program.adopt(this);
    m_ui->setupUi(this);
    m_names = ArchiveCatalog(m_program.dataFolder()).names();
    connect(m_ui->okButton, &QPushButton::clicked, this, &FirstArchiveDialog::createArchive);
    connect(m_ui->nameEdit, &QLineEdit::returnPressed, this, &FirstArchiveDialog::createArchive);
}

FirstArchiveDialog::~FirstArchiveDialog() = default;

void FirstArchiveDialog::createArchive()
{
    QString name = m_ui->nameEdit->text();
    if (name.isEmpty())
        name = QStringLiteral("default");
    // Here an empty answer means "default", not a cancel.
    while (m_names.contains(name)) {
        Prompts::message(this, ArchiveCatalog::duplicateNameMessage(name));
        name = Prompts::input(this, QStringLiteral("Bitte geben Sie einen Namen für das neue Archives ein:"),
            QStringLiteral("Neues Archiv erstellen"))
                   .value_or(QString());
        if (name.isEmpty())
            name = QStringLiteral("default");
    }

    const ArchiveCatalog catalog(m_program.dataFolder());
    if (const ArchiveError error = catalog.create(name, m_names); !error.ok()) {
        Prompts::message(this, error.message, Prompts::Icon::Critical);
        return;
    }
    Session &session = m_program.session();
    session.archivePath = catalog.pathOf(name);
    session.archiveName = name;

    // The text box, not the name finally used, becomes the default archive.
    Settings &settings = m_program.settings();
    if (m_ui->openAutomaticallyOption->isChecked()) {
        settings.setValue(SettingKey::Standard, m_ui->nameEdit->text());
        settings.setValue(SettingKey::autoarchiv, QStringLiteral("0"));
    } else {
        settings.setValue(SettingKey::autoarchiv, QStringLiteral("1"));
    }
    m_program.show<MainWindow>();
    m_program.unload(this);
}

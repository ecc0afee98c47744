#include "WelcomeDialog.h"

#include "Program.h"
#include "archives/FirstArchiveDialog.h"
#include "ui_WelcomeDialog.h"

WelcomeDialog::WelcomeDialog(Program &program)
    : QWidget(nullptr, Qt::Window)
    , m_program(program)
    , m_ui(std::make_unique<Ui::WelcomeDialog>())
{
    m_program.adopt(this);
    m_ui->setupUi(this);
    connect(m_ui->newArchiveButton, &QPushButton::clicked, this, &WelcomeDialog::createNewArchive);
    connect(m_ui->importButton, &QPushButton::clicked, this, &WelcomeDialog::importOlderArchive);
}

WelcomeDialog::~WelcomeDialog() = default;

void WelcomeDialog::createNewArchive()
{
    m_program.show<FirstArchiveDialog>();
    m_program.unload(this);
}

void WelcomeDialog::importOlderArchive()
{
    // The import window ends the run when it closes; while the program has none, the
    // welcome stays.
    if (m_program.open(QStringLiteral("ImportDialog")))
        m_program.unload(this);
}

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
    connect(m_ui->Command3, &QPushButton::clicked, this, &WelcomeDialog::Command3_Click);
    connect(m_ui->Command2, &QPushButton::clicked, this, &WelcomeDialog::Command2_Click);
}

WelcomeDialog::~WelcomeDialog() = default;

void WelcomeDialog::Command3_Click()
{
    m_program.show<FirstArchiveDialog>();
    m_program.unload(this);
}

void WelcomeDialog::Command2_Click()
{
    // The import window ends the run when it closes; while the program has none, the
    // welcome stays.
    if (m_program.open(QStringLiteral("ImportDialog")))
        m_program.unload(this);
}

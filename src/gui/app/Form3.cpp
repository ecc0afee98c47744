#include "Form3.h"

#include "Program.h"
#include "archives/Form4.h"
#include "ui_Form3.h"

Form3::Form3(Program &program)
    : QWidget(nullptr, Qt::Window)
    , m_program(program)
    , m_ui(std::make_unique<Ui::Form3>())
{
    m_program.adopt(this);
    m_ui->setupUi(this);
    connect(m_ui->Command3, &QPushButton::clicked, this, &Form3::Command3_Click);
    connect(m_ui->Command2, &QPushButton::clicked, this, &Form3::Command2_Click);
}

Form3::~Form3() = default;

void Form3::Command3_Click()
{
    m_program.show<Form4>();
    m_program.unload(this);
}

void Form3::Command2_Click()
{
    // The import window ends the run when it closes; while the program has none, the
    // welcome stays.
    if (m_program.open(QStringLiteral("Importieren")))
        m_program.unload(this);
}

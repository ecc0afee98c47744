#include "frmupdate.h"

#include "frmnewVersion.h"

#include "app/Program.h"
#include "common/Prompts.h"

#include "app/Settings.h"
#include "common/Cp1252.h"
#include "services/HttpGet.h"
#include "services/ServiceRequest.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

frmupdate::frmupdate(Program &program)
    : QDialog(nullptr)
    , m_program(program)
{
    m_program.adopt(this);
    setObjectName(QStringLiteral("frmupdate"));
    setWindowTitle(QStringLiteral("Nach Updates suchen"));
    auto *label1 = new QLabel(QStringLiteral("Klicken Sie auf die Schaltfläche \"Nach Updates suchen\" um auf dem "
                                             "Server von Ravelin mögliche Aktualisierungen für dieses Programm zu "
                                             "finden. (Hierzu müssen Sie mit dem Internet verbunden sein.)"),
        this);
    label1->setObjectName(QStringLiteral("Label1"));
    label1->setWordWrap(true);
    // The query's work field: the user has no business with it.
    m_text1 = new QLineEdit(this);
    m_text1->setObjectName(QStringLiteral("Text1"));
    m_text1->setVisible(false);
    auto *command1 = new QPushButton(QStringLiteral("Nach Updates suchen"), this);
    command1->setObjectName(QStringLiteral("Command1"));
    auto *command2 = new QPushButton(QStringLiteral("Abbrechen"), this);
    command2->setObjectName(QStringLiteral("Command2"));
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(command1);
    buttons->addWidget(command2);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label1);
    layout->addWidget(m_text1);
    layout->addLayout(buttons);
    setMinimumWidth(460);
    connect(command1, &QPushButton::clicked, this, &frmupdate::Command1_Click);
    connect(command2, &QPushButton::clicked, this, &QDialog::close);
}

void frmupdate::Command1_Click()
{
    const QString start = m_program.settings().value(SettingKey::Start, QStringLiteral("3"));
    const QString user = service::userName();
    m_text1->setText(start + QLatin1Char('|') + user);
    // The hourglass on the dialog; the request itself keeps the events going.
    setCursor(Qt::WaitCursor);
    const QByteArray reply = service::httpGetOnce(service::updateAddress(service::baseAddress(), start, user));
    if (!service::isNewerVersion(reply)) {
        Prompts::message(this, QStringLiteral("Es ist zur Zeit keine aktualisierte Version vorhanden!"));
        unsetCursor();
        close();
        return;
    }
    if (frmnewVersion *found = m_program.show<frmnewVersion>())
        found->Version(cp1252::toQString(std::string_view(reply.constData(), static_cast<size_t>(reply.size()))));
    unsetCursor();
}

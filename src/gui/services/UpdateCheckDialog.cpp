#include "UpdateCheckDialog.h"

#include "DialogParts.h"
#include "NewVersionDialog.h"

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

UpdateCheckDialog::UpdateCheckDialog(Program &program)
    : QDialog(nullptr)
    , m_program(program)
{
    m_program.adopt(this);
    setObjectName(QStringLiteral("UpdateCheckDialog"));
    setWindowTitle(QStringLiteral("Nach Updates suchen"));
    QLabel *introLabel = dialogparts::label("introLabel",
        QStringLiteral(
            "Klicken Sie auf die Schaltfläche \"Nach Updates suchen\" um auf dem Server von Ravelin "
            "mögliche Aktualisierungen für dieses Programm zu finden. (Hierzu müssen Sie mit dem "
            "Internet verbunden sein.)"),
        this);
    // The query's work field: the user has no business with it.
    m_queryEdit = new QLineEdit(this);
    m_queryEdit->setObjectName(QStringLiteral("queryEdit"));
    m_queryEdit->setVisible(false);
    QLayout *buttons = nullptr;
    QPushButton *confirmButton
        = dialogparts::buttonRow(this, QStringLiteral("Nach Updates suchen"), &buttons);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(introLabel);
    layout->addWidget(m_queryEdit);
    layout->addLayout(buttons);
    setMinimumWidth(460);
    connect(confirmButton, &QPushButton::clicked, this, &UpdateCheckDialog::checkForUpdate);
}

void UpdateCheckDialog::checkForUpdate()
{
    const QString start = m_program.settings().value(SettingKey::Start, QStringLiteral("3"));
    const QString user = service::userName();
    m_queryEdit->setText(start + QLatin1Char('|') + user);
    // The hourglass on the dialog; the request itself keeps the events going.
    setCursor(Qt::WaitCursor);
    const QByteArray reply = service::httpGetOnce(service::updateAddress(service::baseAddress(), start, user));
    if (!service::isNewerVersion(reply)) {
        Prompts::message(this, QStringLiteral("Es ist zur Zeit keine aktualisierte Version vorhanden!"));
        unsetCursor();
        close();
        return;
    }
    if (NewVersionDialog *found = m_program.show<NewVersionDialog>())
        found->showOfferedVersion(
            cp1252::toQString(std::string_view(reply.constData(), static_cast<size_t>(reply.size()))));
    unsetCursor();
}

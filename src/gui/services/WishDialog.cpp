#include "WishDialog.h"

#include "DialogParts.h"

#include "app/Program.h"
#include "common/Prompts.h"

#include "app/Settings.h"
#include "services/HttpGet.h"
#include "services/ServiceRequest.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

WishDialog::WishDialog(Program &program)
    : QDialog(nullptr)
    , m_program(program)
{
    m_program.adopt(this);
    setObjectName(QStringLiteral("WishDialog"));
    setWindowTitle(QStringLiteral("Wunschfunktion"));
    QLabel *introLabel = dialogparts::label("introLabel",
        QStringLiteral(
            "Hier haben Sie die Möglichkeit Ihre Wünsche bezüglich neuer Funktionen, Designänderungen, "
            "Verbesserungen, etc direkt an Ravelin zu senden. "),
        this);
    m_wishEdit = new QPlainTextEdit(this);
    m_wishEdit->setObjectName(QStringLiteral("wishEdit"));
    auto *emailLabel
        = new QLabel(QStringLiteral("Optional: Ihre E-Mail Adresse für eventuelle Rückfragen:"), this);
    emailLabel->setObjectName(QStringLiteral("emailLabel"));
    m_emailEdit = new QLineEdit(this);
    m_emailEdit->setObjectName(QStringLiteral("emailEdit"));
    QLayout *buttons = nullptr;
    QPushButton *confirmButton = dialogparts::buttonRow(this, QStringLiteral("Wünsche senden"), &buttons);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(introLabel);
    layout->addWidget(m_wishEdit);
    layout->addWidget(emailLabel);
    layout->addWidget(m_emailEdit);
    layout->addLayout(buttons);
    resize(460, 340);
    connect(confirmButton, &QPushButton::clicked, this, &WishDialog::sendWish);
}

void WishDialog::sendWish()
{
    // The text box of the wish ends its lines in CR LF, as the server expects them.
    QString wish = m_wishEdit->toPlainText();
    wish.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    const QString start = m_program.settings().value(SettingKey::Start, QStringLiteral("3"));
    setCursor(Qt::WaitCursor);
    const QByteArray reply = service::httpGetOnce(
        service::wishAddress(service::baseAddress(), start, m_emailEdit->text(), wish, service::userName()));
    if (service::isThanks(reply))
        Prompts::message(this,
            QStringLiteral("Vielen Dank für Ihren Vorschlag!\r\nIch werde versuchen ihn in der nächsten Version "
                           "umzusetzen."),
            Prompts::Icon::Information);
    else
        Prompts::message(this, QStringLiteral("Fehler: Bitte wenden Sie sich an den Support!"));
    unsetCursor();
    close();
}

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
    QLabel *label1 = dialogparts::label("Label1",
        QStringLiteral("Hier haben Sie die Möglichkeit Ihre Wünsche bezüglich neuer Funktionen, Designänderungen, "
                       "Verbesserungen, etc direkt an Ravelin zu senden. "),
        this);
    m_text1 = new QPlainTextEdit(this);
    m_text1->setObjectName(QStringLiteral("Text1"));
    auto *label2 = new QLabel(QStringLiteral("Optional: Ihre E-Mail Adresse für eventuelle Rückfragen:"), this);
    label2->setObjectName(QStringLiteral("Label2"));
    m_text2 = new QLineEdit(this);
    m_text2->setObjectName(QStringLiteral("Text2"));
    QLayout *buttons = nullptr;
    QPushButton *command1 = dialogparts::commandRow(this, QStringLiteral("Wünsche senden"), &buttons);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label1);
    layout->addWidget(m_text1);
    layout->addWidget(label2);
    layout->addWidget(m_text2);
    layout->addLayout(buttons);
    resize(460, 340);
    connect(command1, &QPushButton::clicked, this, &WishDialog::Command1_Click);
}

void WishDialog::Command1_Click()
{
    // The text box of the wish ends its lines in CR LF, as the server expects them.
    QString wish = m_text1->toPlainText();
    wish.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    const QString start = m_program.settings().value(SettingKey::Start, QStringLiteral("3"));
    setCursor(Qt::WaitCursor);
    const QByteArray reply = service::httpGetOnce(
        service::wishAddress(service::baseAddress(), start, m_text2->text(), wish, service::userName()));
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

#include "NewVersionDialog.h"

#include "DialogParts.h"

#include "app/Program.h"
#include "app/ShellOpen.h"

#include "services/ServiceRequest.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

NewVersionDialog::NewVersionDialog(Program &program)
    : QDialog(nullptr)
    , m_program(program)
{
    m_program.adopt(this);
    setObjectName(QStringLiteral("NewVersionDialog"));
    setWindowTitle(QStringLiteral("Neue Version gefunden"));
    m_label1 = dialogparts::label("Label1", QStringLiteral("Fehler!"), this);
    // The server's reply is shown as the text it is: an error page is no heading, and a page
    // of nested tables must not reach the rich-text layout. A long reply is cut at the
    // dialog's edge instead of widening it.
    m_label1->setTextFormat(Qt::PlainText);
    m_label1->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto *command1 = new QPushButton(QStringLiteral("Downloadseite aufrufen"), this);
    command1->setObjectName(QStringLiteral("Command1"));
    auto *command2 = new QPushButton(QStringLiteral("Abbrechen"), this);
    command2->setObjectName(QStringLiteral("Command2"));
    auto *layout = new QGridLayout(this);
    layout->addWidget(dialogparts::label("Label2",
                          QStringLiteral("Es wurde eine Aktualisierung für den Silberbuch gefunden. Die aktuelle "
                                         "Versionsnummer beträgt:"),
                          this),
        0, 0, 1, 2);
    layout->addWidget(dialogparts::label("Label3", QStringLiteral("5.1"), this), 1, 0, 1, 2);
    layout->addWidget(
        dialogparts::label("Label4", QStringLiteral("Die verfügbare Aktualisierung trägt die Versionsnummer:"), this), 2, 0, 1, 2);
    layout->addWidget(m_label1, 3, 0, 1, 2);
    layout->addWidget(
        dialogparts::label("Label5", QStringLiteral("Klicken Sie hier um auf die Downloadseite für das Update zu gelangen:"), this),
        4, 0, 1, 2);
    layout->addWidget(command1, 5, 0);
    layout->addWidget(command2, 5, 1);
    setMinimumWidth(420);
    connect(command1, &QPushButton::clicked, this, [this] { shellopen::open(this, QUrl(service::vendorWebAddress())); });
    connect(command2, &QPushButton::clicked, this, &QDialog::close);
}

void NewVersionDialog::Version(const QString &text)
{
    m_label1->setText(text);
}

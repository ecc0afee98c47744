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
    m_offeredVersionLabel = dialogparts::label("offeredVersionLabel", QStringLiteral("Fehler!"), this);
    // The server's reply is shown as the text it is: an error page is no heading, and a page
    // of nested tables must not reach the rich-text layout. A long reply is cut at the
    // dialog's edge instead of widening it.
    m_offeredVersionLabel->setTextFormat(Qt::PlainText);
    m_offeredVersionLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto *downloadButton = new QPushButton(QStringLiteral("Downloadseite aufrufen"), this);
    downloadButton->setObjectName(QStringLiteral("downloadButton"));
    auto *cancelButton = new QPushButton(QStringLiteral("Abbrechen"), this);
    cancelButton->setObjectName(QStringLiteral("cancelButton"));
    auto *layout = new QGridLayout(this);
    layout->addWidget(
        dialogparts::label("runningVersionIntroLabel",
            QStringLiteral("Es wurde eine Aktualisierung für den Silberbuch gefunden. Die aktuelle "
                           "Versionsnummer beträgt:"),
            this),
        0, 0, 1, 2);
    layout->addWidget(dialogparts::label("runningVersionLabel", QStringLiteral("5.1"), this), 1, 0, 1, 2);
    layout->addWidget(dialogparts::label("offeredVersionIntroLabel",
                          QStringLiteral("Die verfügbare Aktualisierung trägt die Versionsnummer:"), this),
        2, 0, 1, 2);
    layout->addWidget(m_offeredVersionLabel, 3, 0, 1, 2);
    layout->addWidget(
        dialogparts::label("downloadIntroLabel",
            QStringLiteral("Klicken Sie hier um auf die Downloadseite für das Update zu gelangen:"), this),
        4, 0, 1, 2);
    layout->addWidget(downloadButton, 5, 0);
    layout->addWidget(cancelButton, 5, 1);
    setMinimumWidth(420);
    connect(downloadButton, &QPushButton::clicked, this,
        [this] { shellopen::open(this, QUrl(service::vendorWebAddress())); });
    connect(cancelButton, &QPushButton::clicked, this, &QDialog::close);
}

void NewVersionDialog::showOfferedVersion(const QString &text)
{
    m_offeredVersionLabel->setText(text);
}

#include "TitleDriveDialog.h"

#include "app/Session.h"
#include "app/Settings.h"
#include "common/Prompts.h"
#include "images/DriveListBox.h"
#include "images/DriveTable.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

TitleDriveDialog::TitleDriveDialog(Session &session, Settings &settings, QWidget *parent)
    : QDialog(parent)
    , m_session(session)
    , m_settings(settings)
    , m_driveList(new DriveListBox(this))
{
    setObjectName(QStringLiteral("TitleDriveDialog"));
    setWindowTitle(QStringLiteral("Laufwerk auswählen"));
    auto *promptLabel = new QLabel(
        QStringLiteral(
            "Bitte wählen Sie das Laufwerk aus, dessen Datenträgerbezeichnung übernommen werden soll:"),
        this);
    promptLabel->setObjectName(QStringLiteral("promptLabel"));
    promptLabel->setWordWrap(true);
    m_driveList->setObjectName(QStringLiteral("driveList"));
    auto *readButton = new QPushButton(QStringLiteral("Titel Einlesen"), this);
    readButton->setObjectName(QStringLiteral("readButton"));
    readButton->setDefault(true);
    auto *cancelButton = new QPushButton(QStringLiteral("Abbrechen"), this);
    cancelButton->setObjectName(QStringLiteral("cancelButton"));
    cancelButton->setAutoDefault(false);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(readButton);
    buttons->addWidget(cancelButton);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(promptLabel);
    layout->addWidget(m_driveList);
    layout->addLayout(buttons);
    setMinimumWidth(380);

    connect(readButton, &QPushButton::clicked, this, &TitleDriveDialog::readTitle);
    connect(cancelButton, &QPushButton::clicked, this, &QDialog::reject);

    DriveTable table(m_settings);
    m_driveList->reload(table);
    const QString stored = m_settings.value(SettingKey::DefDrive, QStringLiteral("C:"));
    // A stored drive that is gone is reported; the list offers the others.
    if (!m_driveList->selectDrive(stored))
        Prompts::runtimeError(this, 68, QStringLiteral("Gerät nicht verfügbar"));
}

void TitleDriveDialog::readTitle()
{
    const QString text = m_driveList->currentText();
    m_settings.setValue(SettingKey::DefDrive, text);
    m_session.titleDriveLetter = text.left(1);
    accept();
}

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
    , m_drive1(new DriveListBox(this))
{
    setObjectName(QStringLiteral("TitleDriveDialog"));
    setWindowTitle(QStringLiteral("Laufwerk auswählen"));
    auto *label1 = new QLabel(
        QStringLiteral(
            "Bitte wählen Sie das Laufwerk aus, dessen Datenträgerbezeichnung übernommen werden soll:"),
        this);
    label1->setObjectName(QStringLiteral("Label1"));
    label1->setWordWrap(true);
    m_drive1->setObjectName(QStringLiteral("Drive1"));
    auto *command1 = new QPushButton(QStringLiteral("Titel Einlesen"), this);
    command1->setObjectName(QStringLiteral("Command1"));
    command1->setDefault(true);
    auto *command2 = new QPushButton(QStringLiteral("Abbrechen"), this);
    command2->setObjectName(QStringLiteral("Command2"));
    command2->setAutoDefault(false);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(command1);
    buttons->addWidget(command2);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label1);
    layout->addWidget(m_drive1);
    layout->addLayout(buttons);
    setMinimumWidth(380);

    connect(command1, &QPushButton::clicked, this, &TitleDriveDialog::readTitle);
    connect(command2, &QPushButton::clicked, this, &QDialog::reject);

    DriveTable table(m_settings);
    m_drive1->reload(table);
    const QString stored = m_settings.value(SettingKey::DefDrive, QStringLiteral("C:"));
    // A stored drive that is gone is reported; the list offers the others.
    if (!m_drive1->selectDrive(stored))
        Prompts::runtimeError(this, 68, QStringLiteral("Gerät nicht verfügbar"));
}

void TitleDriveDialog::readTitle()
{
    const QString text = m_drive1->currentText();
    m_settings.setValue(SettingKey::DefDrive, text);
    m_session.titleDriveLetter = text.left(1);
    accept();
}

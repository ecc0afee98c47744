#include "OptionsDialog.h"

#include "DialogParts.h"

#include "app/MainWindow.h"
#include "app/Program.h"
#include "app/ShellOpen.h"
#include "common/Prompts.h"

#include "app/DataFolder.h"
#include "app/Settings.h"
#include "services/Options.h"
#include "services/Restart.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGroupBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

OptionsDialog::OptionsDialog(Program &program)
    : QDialog(nullptr)
    , m_program(program)
{
    m_program.adopt(this);
    setObjectName(QStringLiteral("OptionsDialog"));
    setWindowTitle(QStringLiteral("Allgemeine Optionen"));

    auto *headingLabel = new QLabel(QStringLiteral("> Allgemeine Optionen des Silberbuchs"), this);
    headingLabel->setObjectName(QStringLiteral("headingLabel"));
    QFont heading = headingLabel->font();
    heading.setBold(true);
    headingLabel->setFont(heading);
    m_autostartCheck = new QCheckBox(
        QStringLiteral("Silberbuch bei jedem Start des Systems mitladen und minimieren"), this);
    m_autostartCheck->setObjectName(QStringLiteral("autostartCheck"));
    m_chooseArchiveCheck
        = new QCheckBox(QStringLiteral("Bei jedem Start des Silberbuchs das Archiv auswählen lassen"), this);
    m_chooseArchiveCheck->setObjectName(QStringLiteral("chooseArchiveCheck"));

    auto *pathGroup = new QGroupBox(QStringLiteral("Datenbank Pfad:"), this);
    pathGroup->setObjectName(QStringLiteral("pathGroup"));
    m_standardPathOption
        = new QRadioButton(QStringLiteral("Standard-Pfad Verwenden (SLB-Verzeichniss)"), pathGroup);
    m_standardPathOption->setObjectName(QStringLiteral("standardPathOption"));
    m_ownPathOption = new QRadioButton(QStringLiteral("Pfad wählen (z.B. für Netzwerke):"), pathGroup);
    m_ownPathOption->setObjectName(QStringLiteral("ownPathOption"));
    m_pathEdit = new QLineEdit(pathGroup);
    m_pathEdit->setObjectName(QStringLiteral("pathEdit"));
    m_browseButton = new QPushButton(QStringLiteral("Browse"), pathGroup);
    m_browseButton->setObjectName(QStringLiteral("browseButton"));
    auto *pathInfoButton = new QToolButton(pathGroup);
    pathInfoButton->setObjectName(QStringLiteral("pathInfoButton"));
    pathInfoButton->setIcon(style()->standardIcon(QStyle::SP_MessageBoxInformation));
    pathInfoButton->setToolTip(QStringLiteral("Info: Was ist ein Laufwerksabbild?"));
    auto *pathGroupLayout = new QGridLayout(pathGroup);
    pathGroupLayout->addWidget(m_standardPathOption, 0, 0, 1, 2);
    pathGroupLayout->addWidget(pathInfoButton, 0, 2);
    pathGroupLayout->addWidget(m_ownPathOption, 1, 0, 1, 3);
    pathGroupLayout->addWidget(m_pathEdit, 2, 0, 1, 2);
    pathGroupLayout->addWidget(m_browseButton, 2, 2);

    QLayout *buttons = nullptr;
    QPushButton *confirmButton
        = dialogparts::buttonRow(this, QStringLiteral("Einstellungen speichern"), &buttons);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(headingLabel);
    layout->addWidget(m_autostartCheck);
    layout->addWidget(m_chooseArchiveCheck);
    layout->addWidget(pathGroup);
    layout->addLayout(buttons);

    connect(m_standardPathOption, &QRadioButton::clicked, this, [this] {
        m_pathEdit->setEnabled(false);
        m_browseButton->setEnabled(false);
    });
    connect(m_ownPathOption, &QRadioButton::clicked, this, [this] {
        m_pathEdit->setEnabled(true);
        m_browseButton->setEnabled(true);
    });
    connect(m_browseButton, &QPushButton::clicked, this, [this] {
        Prompts::FileRequest request;
        request.mode = Prompts::FileRequest::Mode::Folder;
        request.directory = m_pathEdit->text();
        // A cancelled choice gives an empty text, and that is what the field then shows.
        m_pathEdit->setText(Prompts::file(this, request).value_or(Prompts::FileAnswer {}).path);
    });
    connect(pathInfoButton, &QToolButton::clicked, this, [this] {
        Prompts::message(
            this, options::pathInformation(), Prompts::Icon::Information, options::pathInformationTitle());
    });
    connect(confirmButton, &QPushButton::clicked, this, &OptionsDialog::saveSettings);
    showLoaded();
}

void OptionsDialog::showLoaded()
{
    const options::Values values = options::load(m_program.settings(), programFolder());
    m_autostartCheck->setChecked(values.autostart);
    m_chooseArchiveCheck->setChecked(values.chooseArchive);
    m_standardPathOption->setChecked(values.standardPath);
    m_ownPathOption->setChecked(!values.standardPath);
    m_pathEdit->setText(values.path);
    m_pathEdit->setEnabled(!values.standardPath);
    m_browseButton->setEnabled(!values.standardPath);
}

void OptionsDialog::saveSettings()
{
    // The path is stored as typed: no separator is rewritten, nothing is checked.
    const options::Values values { m_autostartCheck->isChecked(), m_chooseArchiveCheck->isChecked(),
        m_standardPathOption->isChecked(), m_pathEdit->text() };
    Settings &settings = m_program.settings();
    const bool restart = options::needsRestart(settings, values, programFolder());
    if (!options::save(settings, values, QCoreApplication::applicationFilePath())) {
        Prompts::message(this, settings.writeFailure(), Prompts::Icon::Critical);
        return;
    }
    Prompts::message(this, QStringLiteral("Einstellungen gespeichert!"), Prompts::Icon::Information);
    if (restart
        && Prompts::message(this,
               QStringLiteral("Hinweis: Die Änderungen werden erst nach einem Neustart der Anwendung wirksam. "
                              "Anwendung neustarten?"),
               Prompts::Icon::None, {}, Prompts::Buttons::YesNo)
            == Prompts::Answer::Yes) {
        const restart::Command again
            = restart::commandFor(QCoreApplication::applicationFilePath(), QCoreApplication::arguments().mid(1));
        // The main window's own close routine stores its layout and unloads every window.
        if (MainWindow *main = m_program.form<MainWindow>())
            main->close();
        else
            m_program.closeAllWindows();
        shellopen::startDetached(again.program, again.arguments, again.environment);
        return;
    }
    close();
}

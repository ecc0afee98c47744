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

    auto *label2 = new QLabel(QStringLiteral("> Allgemeine Optionen des Silberbuchs"), this);
    label2->setObjectName(QStringLiteral("Label2"));
    QFont heading = label2->font();
    heading.setBold(true);
    label2->setFont(heading);
    m_check1 = new QCheckBox(QStringLiteral("Silberbuch bei jedem Start des Systems mitladen und minimieren"), this);
    m_check1->setObjectName(QStringLiteral("Check1"));
    m_check3 = new QCheckBox(QStringLiteral("Bei jedem Start des Silberbuchs das Archiv auswählen lassen"), this);
    m_check3->setObjectName(QStringLiteral("Check3"));

    auto *frame1 = new QGroupBox(QStringLiteral("Datenbank Pfad:"), this);
    frame1->setObjectName(QStringLiteral("Frame1"));
    m_option1 = new QRadioButton(QStringLiteral("Standard-Pfad Verwenden (SLB-Verzeichniss)"), frame1);
    m_option1->setObjectName(QStringLiteral("Option1"));
    m_option2 = new QRadioButton(QStringLiteral("Pfad wählen (z.B. für Netzwerke):"), frame1);
    m_option2->setObjectName(QStringLiteral("Option2"));
    m_text1 = new QLineEdit(frame1);
    m_text1->setObjectName(QStringLiteral("Text1"));
    m_command3 = new QPushButton(QStringLiteral("Browse"), frame1);
    m_command3->setObjectName(QStringLiteral("Command3"));
    auto *command10 = new QToolButton(frame1);
    command10->setObjectName(QStringLiteral("Command10"));
    command10->setIcon(style()->standardIcon(QStyle::SP_MessageBoxInformation));
    command10->setToolTip(QStringLiteral("Info: Was ist ein Laufwerksabbild?"));
    auto *frameLayout = new QGridLayout(frame1);
    frameLayout->addWidget(m_option1, 0, 0, 1, 2);
    frameLayout->addWidget(command10, 0, 2);
    frameLayout->addWidget(m_option2, 1, 0, 1, 3);
    frameLayout->addWidget(m_text1, 2, 0, 1, 2);
    frameLayout->addWidget(m_command3, 2, 2);

    QLayout *buttons = nullptr;
    QPushButton *command1 = dialogparts::commandRow(this, QStringLiteral("Einstellungen speichern"), &buttons);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label2);
    layout->addWidget(m_check1);
    layout->addWidget(m_check3);
    layout->addWidget(frame1);
    layout->addLayout(buttons);

    connect(m_option1, &QRadioButton::clicked, this, [this] {
        m_text1->setEnabled(false);
        m_command3->setEnabled(false);
    });
    connect(m_option2, &QRadioButton::clicked, this, [this] {
        m_text1->setEnabled(true);
        m_command3->setEnabled(true);
    });
    connect(m_command3, &QPushButton::clicked, this, [this] {
        Prompts::FileRequest request;
        request.mode = Prompts::FileRequest::Mode::Folder;
        request.directory = m_text1->text();
        // A cancelled choice gives an empty text, and that is what the field then shows.
        m_text1->setText(Prompts::file(this, request).value_or(Prompts::FileAnswer {}).path);
    });
    connect(command10, &QToolButton::clicked, this, [this] {
        Prompts::message(
            this, options::pathInformation(), Prompts::Icon::Information, options::pathInformationTitle());
    });
    connect(command1, &QPushButton::clicked, this, &OptionsDialog::Command1_Click);
    showLoaded();
}

void OptionsDialog::showLoaded()
{
    const options::Values values = options::load(m_program.settings(), programFolder());
    m_check1->setChecked(values.autostart);
    m_check3->setChecked(values.chooseArchive);
    m_option1->setChecked(values.standardPath);
    m_option2->setChecked(!values.standardPath);
    m_text1->setText(values.path);
    m_text1->setEnabled(!values.standardPath);
    m_command3->setEnabled(!values.standardPath);
}

void OptionsDialog::Command1_Click()
{
    // The path is stored as typed: no separator is rewritten, nothing is checked.
    const options::Values values { m_check1->isChecked(), m_check3->isChecked(), m_option1->isChecked(),
        m_text1->text() };
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
            m_program.unloadAll();
        shellopen::startDetached(again.program, again.arguments, again.environment);
        return;
    }
    close();
}

#pragma once

#include <QDialog>

class Program;
class QCheckBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

// "Allgemeine Optionen": the data folder, the start with the system and the archive question.
class OptionsDialog : public QDialog
{
    Q_OBJECT

public:
    explicit OptionsDialog(Program &program);

    void saveSettings();

private:
    void showLoaded();

    Program &m_program;
    QCheckBox *m_autostartCheck;
    QCheckBox *m_chooseArchiveCheck;
    QRadioButton *m_standardPathOption;
    QRadioButton *m_ownPathOption;
    QLineEdit *m_pathEdit;
    QPushButton *m_browseButton;
};

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

    void Command1_Click();

private:
    void showLoaded();

    Program &m_program;
    QCheckBox *m_check1;
    QCheckBox *m_check3;
    QRadioButton *m_option1;
    QRadioButton *m_option2;
    QLineEdit *m_text1;
    QPushButton *m_command3;
};

#pragma once

#include <QDialog>

class Program;
class QRadioButton;

// "Importieren": an old text database, or a backup of this version.
class Importieren : public QDialog
{
    Q_OBJECT

public:
    explicit Importieren(Program &program);
    void Command1_Click();

private:
    void importOld();
    void restoreBackup();

    Program &m_program;
    QRadioButton *m_option1;
};

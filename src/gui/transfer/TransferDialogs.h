#pragma once

#include <QDialog>

class Program;
class QRadioButton;

// "Exportieren": a backup of the open archive, or its export as HTML pages.
class Exportieren : public QDialog
{
    Q_OBJECT

public:
    explicit Exportieren(Program &program);
    void Command1_Click();

private:
    void makeBackup();
    void exportHtml();

    Program &m_program;
    QRadioButton *m_option1;
};

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

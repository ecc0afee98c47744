#pragma once

#include <QDialog>

class Program;
class QRadioButton;

// "ImportDialog": an old text database, or a backup of this version.
class ImportDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ImportDialog(Program &program);
    void carryOutChoice();

private:
    void importOld();
    void restoreBackup();

    Program &m_program;
    QRadioButton *m_firstChoice;
};

#pragma once

#include <QDialog>

class Program;
class QRadioButton;

// "ExportDialog": a backup of the open archive, or its export as HTML pages.
class ExportDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ExportDialog(Program &program);
    void carryOutChoice();

private:
    void makeBackup();
    void exportHtml();

    Program &m_program;
    QRadioButton *m_firstChoice;
};

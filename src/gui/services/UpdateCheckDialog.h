#pragma once

#include <QDialog>

class Program;
class QLineEdit;

// "Nach Updates suchen": asks the maker's server for the current version.
class UpdateCheckDialog : public QDialog
{
    Q_OBJECT

public:
    explicit UpdateCheckDialog(Program &program);

    void checkForUpdate();

private:
    Program &m_program;
    QLineEdit *m_queryEdit;
};

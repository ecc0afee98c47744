#pragma once

#include <QDialog>

class Program;

// "About": the program, its maker and the way to the maker's web site.
class AboutDialog : public QDialog
{
    Q_OBJECT

public:
    explicit AboutDialog(Program &program);

private:
    Program &m_program;
};

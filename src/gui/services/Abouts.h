#pragma once

#include <QDialog>

class Program;

// "About": the program, its maker and the way to the maker's web site.
class Abouts : public QDialog
{
    Q_OBJECT

public:
    explicit Abouts(Program &program);

private:
    Program &m_program;
};

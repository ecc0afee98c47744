#pragma once

#include <QDialog>

class Program;
class QLineEdit;
class QPlainTextEdit;

// "Wunschfunktion": sends a wish for the program to the maker's server.
class WishDialog : public QDialog
{
    Q_OBJECT

public:
    explicit WishDialog(Program &program);

    void sendWish();

private:
    Program &m_program;
    QPlainTextEdit *m_wishEdit;
    QLineEdit *m_emailEdit;
};

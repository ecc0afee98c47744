#pragma once

#include <QDialog>

class Program;
class QLabel;

// "Neue Version gefunden": the running version beside the one the server offers.
class NewVersionDialog : public QDialog
{
    Q_OBJECT

public:
    explicit NewVersionDialog(Program &program);

    // Shows the offered version.
    void showOfferedVersion(const QString &text);

private:
    Program &m_program;
    QLabel *m_offeredVersionLabel;
};

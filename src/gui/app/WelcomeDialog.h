#pragma once

#include <QWidget>

#include <memory>

class Program;

namespace Ui {
class WelcomeDialog;
}

// The welcome dialog of the first start: a new archive (FirstArchiveDialog) or the import of an older
// version's data. Closing it by its frame ends the run, as no other window is open.
class WelcomeDialog : public QWidget
{
    Q_OBJECT

public:
    explicit WelcomeDialog(Program &program);
    ~WelcomeDialog() override;

private:
    void createNewArchive();
    void importOlderArchive();

    Program &m_program;
    std::unique_ptr<Ui::WelcomeDialog> m_ui;
};

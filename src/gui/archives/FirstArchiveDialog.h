#pragma once

#include <QStringList>
#include <QWidget>

#include <memory>

class Program;

namespace Ui {
class FirstArchiveDialog;
}

// Creates the very first archive and says whether it opens by itself at every start.
// Then the main window opens on it.
class FirstArchiveDialog : public QWidget
{
    Q_OBJECT

public:
    explicit FirstArchiveDialog(Program &program);
    ~FirstArchiveDialog() override;

    void createArchive();

private:
    Program &m_program;
    std::unique_ptr<Ui::FirstArchiveDialog> m_ui;
    QStringList m_names; // the archives as they were at load
};

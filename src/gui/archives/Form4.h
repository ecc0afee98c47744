#pragma once

#include <QStringList>
#include <QWidget>

#include <memory>

class Program;

namespace Ui {
class Form4;
}

// Creates the very first archive and says whether it opens by itself at every start.
// Then the main window opens on it.
class Form4 : public QWidget
{
    Q_OBJECT

public:
    explicit Form4(Program &program);
    ~Form4() override;

    void Command1_Click();

private:
    Program &m_program;
    std::unique_ptr<Ui::Form4> m_ui;
    QStringList m_names; // the archives as they were at load
};

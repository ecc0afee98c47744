#pragma once

#include <QWidget>

#include <memory>

class Program;

namespace Ui {
class Form3;
}

// The welcome dialog of the first start: a new archive (Form4) or the import of an older
// version's data. Closing it by its frame ends the run, as no other window is open.
class Form3 : public QWidget
{
    Q_OBJECT

public:
    explicit Form3(Program &program);
    ~Form3() override;

private:
    void Command3_Click();
    void Command2_Click();

    Program &m_program;
    std::unique_ptr<Ui::Form3> m_ui;
};

#pragma once

#include <QStringList>
#include <QWidget>

#include <memory>

class Program;
class QMenu;
class QTimer;

namespace Ui {
class ArchiveChooser;
}

// The archive chooser: opens, creates, deletes and marks the default archive. At a start
// it opens the only archive by itself and asks for a first one when there is none; from the
// main window it always lets the user choose. Closing it with no choice made at a start
// ends the run.
class ArchiveChooser : public QWidget
{
    Q_OBJECT

public:
    explicit ArchiveChooser(Program &program);
    ~ArchiveChooser() override;

    void openTypedArchive();
    void createArchive();
    void cancel();
    void quit();
    void makeSelectedDefault();
    void deleteArchive();

protected:
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void takeSelectedName();
    void openSelectedArchive();
    void openChosen(const QString &name);

    Program &m_program;
    std::unique_ptr<Ui::ArchiveChooser> m_ui;
    QStringList m_files; // the archives as they were at load, for the name checks
    QMenu *m_archiveMenu;
    QTimer *m_openOnlyArchiveTimer; // the delayed open of the only archive
    QTimer *m_unloadTimer; // the delayed unload after a creation at a start
};

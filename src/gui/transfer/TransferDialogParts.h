#pragma once

#include "images/ProgressWindow.h"

#include <QApplication>
#include <QString>

class QDialog;
class QPushButton;
class QRadioButton;
class QWidget;

// Pieces the two transfer dialogs share.
namespace transferdialog {

// The frame both dialogs share: heading, question, two choices, "Weiter >>" and "<< Abbrechen".
QRadioButton *buildChoice(QDialog *dialog, const QString &heading, const QString &first, const QString &second,
    QPushButton **next);

// The wait window over `parent` while `work` runs, with the hourglass.
template <typename Work> auto whileWaiting(QWidget *parent, const QString &text, Work &&work)
{
    class ProgressWindow *window = new class ProgressWindow(parent);
    window->setText(text);
    window->show();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QApplication::processEvents();
    auto result = work(window);
    QApplication::restoreOverrideCursor();
    window->close();
    window->deleteLater();
    return result;
}

} // namespace transferdialog

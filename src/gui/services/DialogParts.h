#pragma once

#include <QString>

class QDialog;
class QLabel;
class QLayout;
class QPushButton;
class QWidget;

// Pieces the small service dialogs share.
namespace dialogparts {

// A label that wraps its text, named for the tests.
QLabel *label(const char *name, const QString &text, QWidget *parent);

// The row at the foot of a dialog: "Command1" with `caption` beside "Command2" "Abbrechen",
// which closes the dialog. Gives Command1 and its row.
QPushButton *commandRow(QDialog *dialog, const QString &caption, QLayout **row);

} // namespace dialogparts

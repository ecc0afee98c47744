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

// The row at the foot of a dialog: "confirmButton" with `caption` beside "cancelButton"
// "Abbrechen", which closes the dialog. Gives the confirm button and its row.
QPushButton *buttonRow(QDialog *dialog, const QString &caption, QLayout **row);

} // namespace dialogparts

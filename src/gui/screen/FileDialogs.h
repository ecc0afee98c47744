#pragma once

#include <QString>

class QWidget;

// The open and save file dialogs behind one object: the caller sets Filter and filename,
// calls ShowOpen or ShowSave and reads filename back; an empty filename means, as a rule,
// a cancel. The fields keep what the dialogs leave in them, so a second dialog on the same
// object starts where the first ended (see ShowSave).
class FileDialogs
{
public:
    explicit FileDialogs(QWidget *owner = nullptr);

    QString Filter; // "name|pattern|name|pattern"; holds its converted form after a dialog
    QString filename; // in and out: the chosen file with its path
    QString FileTitle; // out: the chosen file without its path
    QString DialogTitle;
    QString DefaultExt; // the extension that ShowSave appends where missing
    QString InitDir; // start folder; the current folder when empty
    QString Tag; // free for the caller
    int FilterIndex = 0; // in and out: the chosen filter pair, from 1

    // The chosen path, or an empty text for a cancel.
    QString ShowOpen(const QString &startFolder = {});
    // The chosen path with the extension rules applied, also after a cancel: a dialog
    // whose FilterIndex an earlier success has set leaves the bare extension in filename.
    QString ShowSave(const QString &startFolder = {});

private:
    enum class Kind { Open, Save };
    // Shows the dialog; true on a choice, with filename, FileTitle and FilterIndex set.
    bool show(Kind kind, const QString &startFolder);

    QWidget *m_owner;
};

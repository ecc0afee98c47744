#pragma once

#include <QString>

class QWidget;

// The open and save file dialogs behind one object: the caller sets filter and fileName,
// calls askFileToOpen or askFileToSave and reads fileName back; an empty fileName means, as
// a rule, a cancel. The fields keep what the dialogs leave in them, so a second dialog on the
// same object starts where the first ended (see askFileToSave).
class FileDialogs
{
public:
    explicit FileDialogs(QWidget *owner = nullptr);

    QString filter; // "name|pattern|name|pattern"; holds its converted form after a dialog
    QString fileName; // in and out: the chosen file with its path
    QString defaultExtension; // the extension that askFileToSave appends where missing
    QString initialFolder; // start folder; the current folder when empty
    int filterIndex = 0; // in and out: the chosen filter pair, from 1

    // The chosen path, or an empty text for a cancel.
    QString askFileToOpen(const QString &startFolder = {});
    // The chosen path with the extension rules applied, also after a cancel: a dialog
    // whose filterIndex an earlier success has set leaves the bare extension in fileName.
    QString askFileToSave(const QString &startFolder = {});

private:
    enum class Kind { Open, Save };
    // Shows the dialog; true on a choice, with fileName and filterIndex set.
    bool show(Kind kind, const QString &startFolder);

    QWidget *m_owner;
};

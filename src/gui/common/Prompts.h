#pragma once

#include <QString>
#include <QStringList>

#include <optional>

class QWidget;

// Every modal question of the program goes through here: message boxes, the input box and
// the file dialogs. While a PromptScript is alive, nothing is shown and the answers come
// from the script, so that a test can drive a window without a person.
class Prompts
{
public:
    enum class Icon { None, Information, Warning, Critical, Question };
    enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
    enum class Answer { Ok, Cancel, Yes, No };

    struct FileRequest
    {
        enum class Mode { Open, Save, Folder };
        Mode mode = Mode::Open;
        QString title;
        QString directory;
        QString fileName;
        QStringList nameFilters;
        int selectedFilter = -1; // index into nameFilters, -1 for the first
    };
    struct FileAnswer
    {
        QString path;
        int filterIndex = 0; // index into the request's nameFilters
    };

    // A modal message. An empty title leaves the window's title to the system.
    static Answer message(QWidget *parent, const QString &text, Icon icon = Icon::None,
        const QString &title = {}, Buttons buttons = Buttons::Ok);

    // The input box: the text as confirmed, or nothing for a cancel.
    static std::optional<QString> input(
        QWidget *parent, const QString &prompt, const QString &title, const QString &defaultText = {});

    // An open or save file dialog, or a folder choice: the chosen path, or nothing for a cancel.
    static std::optional<FileAnswer> file(QWidget *parent, const FileRequest &request);

    // The report of a failure that the program doesn't handle in its own words: the error
    // number and text under the stop icon. The operation is abandoned, the program goes on.
    static void runtimeError(QWidget *parent, int number, const QString &text);
};

#include "Prompts.h"

#include "PromptScript.h"

#include "search/RuntimeFailure.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

namespace {

QMessageBox::Icon boxIcon(Prompts::Icon icon)
{
    switch (icon) {
    case Prompts::Icon::Information:
        return QMessageBox::Information;
    case Prompts::Icon::Warning:
        return QMessageBox::Warning;
    case Prompts::Icon::Critical:
        return QMessageBox::Critical;
    case Prompts::Icon::Question:
        return QMessageBox::Question;
    case Prompts::Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

// The buttons carry German captions whatever translations are installed.
void addButtons(QMessageBox &box, Prompts::Buttons buttons)
{
    const auto add = [&box](QMessageBox::StandardButton which, const QString &caption) {
        box.addButton(which)->setText(caption);
    };
    switch (buttons) {
    case Prompts::Buttons::Ok:
        add(QMessageBox::Ok, QStringLiteral("OK"));
        break;
    case Prompts::Buttons::OkCancel:
        add(QMessageBox::Ok, QStringLiteral("OK"));
        add(QMessageBox::Cancel, QStringLiteral("Abbrechen"));
        break;
    case Prompts::Buttons::YesNo:
        add(QMessageBox::Yes, QStringLiteral("&Ja"));
        add(QMessageBox::No, QStringLiteral("&Nein"));
        break;
    case Prompts::Buttons::YesNoCancel:
        add(QMessageBox::Yes, QStringLiteral("&Ja"));
        add(QMessageBox::No, QStringLiteral("&Nein"));
        add(QMessageBox::Cancel, QStringLiteral("Abbrechen"));
        break;
    }
}

Prompts::Answer answerOf(QMessageBox::StandardButton button)
{
    switch (button) {
    case QMessageBox::Yes:
        return Prompts::Answer::Yes;
    case QMessageBox::No:
        return Prompts::Answer::No;
    case QMessageBox::Cancel:
        return Prompts::Answer::Cancel;
    default:
        return Prompts::Answer::Ok;
    }
}

} // namespace

Prompts::Answer Prompts::message(
    QWidget *parent, const QString &text, Icon icon, const QString &title, Buttons buttons)
{
    if (PromptScript *script = PromptScript::active())
        return script->takeMessage({ PromptScript::Kind::Message, text, title, icon, {}, {} }, buttons);
    QMessageBox box(boxIcon(icon), title, text, QMessageBox::NoButton, parent);
    // Messages quote titles and file names, which are never markup.
    box.setTextFormat(Qt::PlainText);
    addButtons(box, buttons);
    box.exec();
    // Closing the box by its window button counts as its escape button, Cancel or No or OK.
    const QMessageBox::StandardButton pressed = box.standardButton(box.clickedButton());
    if (pressed == QMessageBox::NoButton)
        return buttons == Buttons::YesNo ? Answer::No : buttons == Buttons::Ok ? Answer::Ok : Answer::Cancel;
    return answerOf(pressed);
}

std::optional<QString> Prompts::input(
    QWidget *parent, const QString &prompt, const QString &title, const QString &defaultText)
{
    if (PromptScript *script = PromptScript::active())
        return script->takeInput({ PromptScript::Kind::Input, prompt, title, Icon::None, defaultText, {} });
    QInputDialog dialog(parent);
    dialog.setWindowTitle(title);
    dialog.setLabelText(prompt);
    dialog.setTextValue(defaultText);
    dialog.setOkButtonText(QStringLiteral("OK"));
    dialog.setCancelButtonText(QStringLiteral("Abbrechen"));
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.textValue();
}

std::optional<Prompts::FileAnswer> Prompts::file(QWidget *parent, const FileRequest &request)
{
    if (PromptScript *script = PromptScript::active())
        return script->takeFile({ PromptScript::Kind::File, {}, request.title, Icon::None, {}, request });
    QFileDialog dialog(parent, request.title, request.directory);
    const bool save = request.mode == FileRequest::Mode::Save;
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    if (request.mode == FileRequest::Mode::Folder) {
        dialog.setFileMode(QFileDialog::Directory);
        dialog.setOption(QFileDialog::ShowDirsOnly);
    } else {
        dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    }
    // The callers ask about an existing file themselves where they care.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    if (!request.nameFilters.isEmpty()) {
        dialog.setNameFilters(request.nameFilters);
        if (request.selectedFilter >= 0 && request.selectedFilter < request.nameFilters.size())
            dialog.selectNameFilter(request.nameFilters.at(request.selectedFilter));
    }
    if (!request.fileName.isEmpty())
        dialog.selectFile(request.fileName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const auto chosenFilter = request.nameFilters.indexOf(dialog.selectedNameFilter());
    return FileAnswer { dialog.selectedFiles().constFirst(),
        static_cast<int>(std::max<qsizetype>(chosenFilter, 0)) };
}

void Prompts::runtimeError(QWidget *parent, int number, const QString &text)
{
    message(parent, RuntimeFailure { number, text }.message(), Icon::Critical);
}

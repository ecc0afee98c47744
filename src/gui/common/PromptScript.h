#pragma once

#include "Prompts.h"

#include <deque>
#include <vector>

// Answers for the prompts, given in advance by a test. While an instance is alive every
// prompt is taken from it and recorded instead of shown. Answers are used in the order
// given, separately for each kind; a prompt with no answer left gets the default button
// of a message (OK or Yes) or a cancel of an input box or file dialog.
class PromptScript
{
public:
    enum class Kind { Message, Input, File };
    struct Shown
    {
        Kind kind = Kind::Message;
        QString text; // message text or input prompt
        QString title;
        Prompts::Icon icon = Prompts::Icon::None;
        QString defaultText; // input box
        Prompts::FileRequest file;
    };

    PromptScript();
    ~PromptScript();
    PromptScript(const PromptScript &) = delete;
    PromptScript &operator=(const PromptScript &) = delete;

    static PromptScript *active();

    void answerMessage(Prompts::Answer answer);
    void answerInput(std::optional<QString> text);
    void answerFile(std::optional<Prompts::FileAnswer> answer);

    const std::vector<Shown> &shown() const { return m_shown; }
    // The texts of the messages shown so far, in order.
    QStringList messages() const;
    void clear() { m_shown.clear(); }

    Prompts::Answer takeMessage(const Shown &shown, Prompts::Buttons buttons);
    std::optional<QString> takeInput(const Shown &shown);
    std::optional<Prompts::FileAnswer> takeFile(const Shown &shown);

private:
    PromptScript *m_previous = nullptr;
    std::deque<Prompts::Answer> m_messages;
    std::deque<std::optional<QString>> m_inputs;
    std::deque<std::optional<Prompts::FileAnswer>> m_files;
    std::vector<Shown> m_shown;
};

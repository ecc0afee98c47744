#include "PromptScript.h"

namespace {
PromptScript *current = nullptr;
}

PromptScript::PromptScript()
    : m_previous(current)
{
    current = this;
}

PromptScript::~PromptScript()
{
    current = m_previous;
}

PromptScript *PromptScript::active()
{
    return current;
}

void PromptScript::answerMessage(Prompts::Answer answer)
{
    m_messages.push_back(answer);
}

void PromptScript::answerInput(std::optional<QString> text)
{
    m_inputs.push_back(std::move(text));
}

void PromptScript::answerFile(std::optional<Prompts::FileAnswer> answer)
{
    m_files.push_back(std::move(answer));
}

QStringList PromptScript::messages() const
{
    QStringList out;
    for (const Shown &s : m_shown)
        if (s.kind == Kind::Message)
            out << s.text;
    return out;
}

Prompts::Answer PromptScript::takeMessage(const Shown &shown, Prompts::Buttons buttons)
{
    m_shown.push_back(shown);
    if (m_messages.empty())
        return buttons == Prompts::Buttons::YesNo || buttons == Prompts::Buttons::YesNoCancel
            ? Prompts::Answer::Yes
            : Prompts::Answer::Ok;
    const Prompts::Answer answer = m_messages.front();
    m_messages.pop_front();
    return answer;
}

std::optional<QString> PromptScript::takeInput(const Shown &shown)
{
    m_shown.push_back(shown);
    std::optional<QString> answer;
    if (!m_inputs.empty()) {
        answer.swap(m_inputs.front());
        m_inputs.pop_front();
    }
    return answer;
}

std::optional<Prompts::FileAnswer> PromptScript::takeFile(const Shown &shown)
{
    m_shown.push_back(shown);
    std::optional<Prompts::FileAnswer> answer;
    if (!m_files.empty()) {
        answer.swap(m_files.front());
        m_files.pop_front();
    }
    return answer;
}

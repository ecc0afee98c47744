#include "Program.h"

#include "app/DataFolder.h"
#include "common/Prompts.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

#include <algorithm>

Program::Program(Settings &settings, const QString &commandLine, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_commandLine(commandLine)
{
}

Program::~Program()
{
    for (const QPointer<QWidget> &window : m_forms)
        if (window)
            window->removeEventFilter(this);
}

QString Program::dataFolder()
{
    QString notice;
    const QString folder = getDataFolder(m_session, m_settings, &notice);
    if (!notice.isEmpty())
        Prompts::message(nullptr, notice, Prompts::Icon::Critical);
    return folder;
}

QWidget *Program::form(const QString &className) const
{
    for (const QPointer<QWidget> &window : m_forms)
        if (window && QLatin1String(window->metaObject()->className()) == className)
            return window;
    return nullptr;
}

void Program::adopt(QWidget *window)
{
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->installEventFilter(this);
    connect(window, &QObject::destroyed, this, [this](QObject *gone) { forget(gone); });
    m_forms.emplace_back(window);
}

bool Program::isLoaded(const QWidget *window) const
{
    return std::any_of(
        m_forms.begin(), m_forms.end(), [window](const QPointer<QWidget> &form) { return form == window; });
}

int Program::loadedCount() const
{
    return static_cast<int>(std::count_if(
        m_forms.begin(), m_forms.end(), [](const QPointer<QWidget> &form) { return !form.isNull(); }));
}

void Program::unload(QWidget *window)
{
    if (!isLoaded(window))
        return;
    // A hidden window gets its close event too, so that its unload handler always runs.
    QCloseEvent close;
    QCoreApplication::sendEvent(window, &close);
    window->hide();
    window->deleteLater();
}

void Program::closeAllWindows()
{
    while (!m_forms.empty()) {
        QPointer<QWidget> last = m_forms.back();
        if (last)
            unload(last);
        if (!m_forms.empty() && m_forms.back() == last)
            m_forms.pop_back();
    }
}

void Program::setOpener(const QString &name, Opener opener)
{
    m_openers.insert(name, std::move(opener));
}

bool Program::open(const QString &name)
{
    const auto opener = m_openers.constFind(name);
    if (opener == m_openers.constEnd())
        return false;
    (*opener)(*this);
    return true;
}

bool Program::eventFilter(QObject *watched, QEvent *event)
{
    // The window is unloaded from the moment its close begins, so that its own close handler
    // can unload all others without meeting itself.
    if (event->type() == QEvent::Close)
        forget(watched);
    return QObject::eventFilter(watched, event);
}

void Program::showLoaded(QWidget *window)
{
    window->show();
    window->raise();
    window->activateWindow();
}

void Program::forget(const QObject *window)
{
    const auto before = m_forms.size();
    m_forms.erase(std::remove_if(m_forms.begin(), m_forms.end(),
                      [window](const QPointer<QWidget> &form) { return form.isNull() || form == window; }),
        m_forms.end());
    if (m_forms.size() != before)
        checkEnd();
}

void Program::checkEnd()
{
    // A handler that unloads one window and shows the next must not end the run between
    // the two, so the test waits until the handler is done.
    if (m_endCheckPending)
        return;
    m_endCheckPending = true;
    QTimer::singleShot(0, this, [this] {
        m_endCheckPending = false;
        if (loadedCount() == 0)
            emit allUnloaded();
    });
}

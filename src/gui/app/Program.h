#pragma once

#include "app/Session.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

class Settings;

// One run of the desktop program: the shared session, the settings, the command line and the
// windows that are loaded. Each window is a single instance known by its class name; it is
// created on first use and gone once it is unloaded. When the last window has gone,
// allUnloaded() tells the program to end.
class Program : public QObject
{
    Q_OBJECT

public:
    Program(Settings &settings, const QString &commandLine, QObject *parent = nullptr);
    ~Program() override;

    Session &session() { return m_session; }
    Settings &settings() { return m_settings; }
    // The whole command line after the program's name.
    const QString &commandLine() const { return m_commandLine; }

    // The data folder, built afresh for each use. When the configured folder can't be used,
    // the notice about the fallback is shown (once per run, by the folder rule).
    QString dataFolder();

    // A loaded window of that class, or nothing.
    QWidget *form(const QString &className) const;
    template <class W> W *form() const
    {
        return qobject_cast<W *>(form(QString::fromLatin1(W::staticMetaObject.className())));
    }

    // Makes the window of class W known, loading it (with the arguments after the program) when
    // it isn't, and shows it. A window
    // that unloads itself while it loads gives nothing.
    template <class W, class... Args> W *show(Args &&...arguments)
    {
        W *window = form<W>();
        if (!window) {
            window = new W(*this, std::forward<Args>(arguments)...);
            if (!isLoaded(window))
                return nullptr;
        }
        showLoaded(window);
        return window;
    }

    // Every window calls this first thing in its constructor: from then on it is loaded, is
    // deleted when it closes, and counts for the end of the run.
    void adopt(QWidget *window);
    bool isLoaded(const QWidget *window) const;
    int loadedCount() const;

    // Closes the window: its close handler runs, visible or not, then it is deleted.
    void unload(QWidget *window);
    // Unloads every window, the last loaded first.
    void closeAllWindows();

    // Windows that other parts of the program provide, opened by their class name. Without
    // an opener for the name nothing happens, and open() says so.
    using Opener = std::function<void(Program &)>;
    void setOpener(const QString &name, Opener opener);
    bool open(const QString &name);

signals:
    void allUnloaded();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showLoaded(QWidget *window);
    void forget(const QObject *window);
    void checkEnd();

    Session m_session;
    Settings &m_settings;
    QString m_commandLine;
    std::vector<QPointer<QWidget>> m_forms;
    QHash<QString, Opener> m_openers;
    bool m_endCheckPending = false;
};

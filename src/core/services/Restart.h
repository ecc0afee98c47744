#pragma once

#include <QString>
#include <QStringList>

// Starting the program again once the options changed: as the user started it, with the first
// window minimized. The wish for a minimized window travels in the new process's environment,
// not on its command line, where "-minimized" means a start with the desktop session (which
// goes to the tray or tells that autostart is on).
namespace restart {

struct Command
{
    QString program;
    QStringList arguments;
    QStringList environment; // "NAME=value", set for the new process alone
};

// Starts `executable` with the arguments this run was given (after the program's name), none
// added and none taken away.
Command commandFor(const QString &executable, const QStringList &arguments);

// Whether this run was started by such a restart. The wish is taken out of the environment,
// so that programs this run starts don't inherit it.
bool takeMinimizedWindowWish();

} // namespace restart

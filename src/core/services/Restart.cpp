#include "Restart.h"

#include <QtGlobal>

namespace restart {

namespace {

constexpr char kMinimizedWindowVariable[] = "SILBERBUCH_RESTART_MINIMIZED";

} // namespace

Command commandFor(const QString &executable, const QStringList &arguments)
{
    return { executable, arguments, { QString::fromLatin1(kMinimizedWindowVariable) + QStringLiteral("=1") } };
}

bool takeMinimizedWindowWish()
{
    const bool wished = qEnvironmentVariable(kMinimizedWindowVariable) == QLatin1String("1");
    qunsetenv(kMinimizedWindowVariable);
    return wished;
}

} // namespace restart

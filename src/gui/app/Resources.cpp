#include "Resources.h"

#include "app/Installation.h"

#include <QIcon>
#include <QStandardPaths>
#include <QtGlobal>

namespace resources {

namespace {

QString shared(const char *name)
{
    return installation::resourceFolder() + QLatin1Char('/') + QLatin1String(name);
}

} // namespace

void init()
{
    static const bool done = [] {
        // Without a desktop theme the toolbar and file pictures come from the one installed
        // with the program's packages, found in the usual data folders.
        QStringList searchPaths = QIcon::themeSearchPaths();
        for (const QString &folder : QStandardPaths::locateAll(QStandardPaths::GenericDataLocation,
                 QStringLiteral("icons"), QStandardPaths::LocateDirectory))
            if (!searchPaths.contains(folder))
                searchPaths << folder;
        QIcon::setThemeSearchPaths(searchPaths);
        if (QIcon::themeName().isEmpty() || QIcon::themeName() == QLatin1String("hicolor"))
            QIcon::setThemeName(QStringLiteral("Adwaita"));
        QIcon::setFallbackThemeName(QStringLiteral("Adwaita"));
        return true;
    }();
    Q_UNUSED(done);
}

QString startupPicture()
{
    return shared("Startup.png");
}

QString programIcon()
{
    return shared("Silberbuch.png");
}

QString helpPage()
{
    return shared("Hilfe.html");
}

} // namespace resources

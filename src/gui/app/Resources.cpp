#include "Resources.h"

#include <QIcon>
#include <QStandardPaths>
#include <QtGlobal>

// Outside any namespace, as the resource initialiser requires.
static void initSilberbuchResources()
{
    Q_INIT_RESOURCE(silberbuch);
}

namespace resources {

void init()
{
    static const bool done = [] {
        initSilberbuchResources();
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
    return QStringLiteral(":/silberbuch/Startup.png");
}

QString programIcon()
{
    return QStringLiteral(":/silberbuch/Silberbuch.png");
}

QString helpPage()
{
    return QStringLiteral(":/silberbuch/Hilfe.html");
}

} // namespace resources

#include "StartupFolders.h"

#include "DataFolder.h"
#include "DataPaths.h"
#include "NumberText.h"
#include "common/Temporaries.h"

#include <QDir>
#include <QFile>

#include <cmath>

namespace {

bool writePlaceholder(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    const qint64 length = static_cast<qint64>(sizeof kPlaceholderLine) - 1;
    return file.write(kPlaceholderLine, length) == length;
}

// A folder the lookup does not find is created, and creating one that exists fails: an
// empty folder left behind thus sends the start down the failure road. The placeholder
// files are there so that this never happens to a folder the program made itself.
bool createFolderWithPlaceholder(const QString &folder, const QString &placeholderName)
{
    if (dirFinds(folder))
        return true;
    return QDir().mkdir(folder) && writePlaceholder(folder + placeholderName);
}

bool countStart(Settings &settings)
{
    const Settings::Update update(settings);
    const std::optional<double> count = parseNumberText(settings.value(SettingKey::Start, QStringLiteral("0")));
    // A counter that is no whole number is treated like a failed step: the start counts as
    // the first one.
    if (!count || std::trunc(*count) != *count || std::fabs(*count) > 1e15)
        return false;
    settings.setValue(SettingKey::Start, QString::number(static_cast<qint64>(*count) + 1));
    return true;
}

} // namespace

void removeDebris(const QString &dataFolder)
{
    for (const QString &folder :
        { datapaths::archiveFolder(dataFolder), datapaths::imageFolder(dataFolder), datapaths::coverFolder(dataFolder) })
        temporaries::removeAllStale(folder);
}

bool prepareDataFolder(const QString &dataFolder, Settings &settings)
{
    removeDebris(dataFolder);
    const QString archives = datapaths::archiveFolder(dataFolder);
    const bool done = createFolderWithPlaceholder(archives, QStringLiteral("def2.ini"))
                      && createFolderWithPlaceholder(datapaths::imageFolder(dataFolder), QStringLiteral("temp.tm1"))
                      && (dirFinds(archives + QStringLiteral("def.ini"))
                          || writePlaceholder(archives + QStringLiteral("def.ini")))
                      && countStart(settings);
    if (!done)
        settings.setValue(SettingKey::Start, QStringLiteral("1"));
    return done;
}

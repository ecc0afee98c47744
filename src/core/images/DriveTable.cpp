#include "DriveTable.h"

#include "MountInfo.h"
#include "VolumeIdentity.h"
#include "app/Settings.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>

namespace {

const QString kGroup = QStringLiteral("Drives");
const QString kRootLetter = QStringLiteral("c:");

// Keys of the group: "d" holds the folder, "d.folder" marks a folder the user made a drive,
// "d.id" the id drawn for a volume without a serial of its own.
QString keyOf(const QString &letter, const char *suffix = "")
{
    return letter.left(1) + QString::fromLatin1(suffix);
}

bool isSamePlace(const QString &a, const QString &b)
{
    const QString canonicalA = QFileInfo(a).canonicalFilePath();
    return !canonicalA.isEmpty() ? canonicalA == QFileInfo(b).canonicalFilePath()
                                 : QDir::cleanPath(a) == QDir::cleanPath(b);
}

// A later mount on the same point covers an earlier one.
const Mount *mountAt(const QString &mountPoint, const std::vector<Mount> &mounts)
{
    const auto found = std::find_if(
        mounts.rbegin(), mounts.rend(), [&](const Mount &mount) { return mount.mountPoint == mountPoint; });
    return found == mounts.rend() ? nullptr : &*found;
}

} // namespace

DriveTable::DriveTable(Settings &settings, VolumeSources sources)
    : m_settings(settings)
    , m_sources(std::move(sources))
{
}

std::vector<Drive> DriveTable::drives()
{
    const Settings::Update update(m_settings);
    const std::vector<Mount> mounts = readMountInfo(m_sources.mountInfo);
    std::vector<Drive> result;
    for (const Entry &entry : entriesWithNewMounts(mounts))
        result.push_back(describe(entry, mounts));
    return result;
}

std::optional<Drive> DriveTable::find(const QString &letter)
{
    const Settings::Update update(m_settings);
    const std::vector<Mount> mounts = readMountInfo(m_sources.mountInfo);
    const std::optional<Entry> entry = entryOf(normalLetter(letter), entriesWithNewMounts(mounts));
    if (!entry)
        return std::nullopt;
    return describe(*entry, mounts);
}

AddDriveResult DriveTable::addFolder(const QString &letter, const QString &folder)
{
    const Settings::Update update(m_settings);
    AddDriveResult result;
    const QString drive = normalLetter(letter);
    if (drive.isEmpty()) {
        result.error = QStringLiteral("„%1“ ist kein gültiger Laufwerksbuchstabe. Erlaubt sind a: bis z:.")
                           .arg(letter);
        return result;
    }
    if (!QFileInfo(folder).isDir()) {
        result.error = QStringLiteral("Der Ordner „%1“ existiert nicht.").arg(folder);
        return result;
    }
    const std::vector<Mount> mounts = readMountInfo(m_sources.mountInfo);
    const std::vector<Entry> known = entriesWithNewMounts(mounts);
    if (const auto taken = entryOf(drive, known)) {
        result.error = QStringLiteral("Der Laufwerksbuchstabe %1 ist bereits vergeben (%2).")
                           .arg(drive, taken->mountPoint);
        return result;
    }
    for (const Entry &entry : known) {
        if (isSamePlace(folder, entry.mountPoint)) {
            result.error
                = QStringLiteral("Der Ordner „%1“ ist bereits das Laufwerk %2.").arg(folder, entry.letter);
            return result;
        }
    }
    result.drive
        = describe(store(drive, QDir::cleanPath(QFileInfo(folder).absoluteFilePath()), true), mounts);
    if (!problem().isEmpty())
        return { {}, problem() };
    return result;
}

bool DriveTable::isAddedFolder(const QString &letter)
{
    const std::optional<Entry> entry = entryOf(normalLetter(letter), entries());
    return entry && entry->folder && entry->letter != kRootLetter;
}

QString DriveTable::removeFolder(const QString &letter)
{
    const Settings::Update update(m_settings);
    const QString drive = normalLetter(letter);
    if (drive.isEmpty())
        return QStringLiteral("„%1“ ist kein gültiger Laufwerksbuchstabe. Erlaubt sind a: bis z:.").arg(letter);
    if (!isAddedFolder(drive))
        return QStringLiteral("Das Laufwerk %1 ist kein hinzugefügter Ordner und kann nicht entfernt werden.").arg(drive);
    bool saved = m_settings.removeGroupValue(kGroup, keyOf(drive));
    for (const char *suffix : { ".folder", ".id" })
        saved = m_settings.removeGroupValue(kGroup, keyOf(drive, suffix)) && saved;
    return saved ? QString() : m_settings.writeFailure();
}

Drive DriveTable::driveForFolder(const QString &folder)
{
    const Settings::Update update(m_settings);
    if (!QFileInfo(folder).isDir())
        return {};
    const std::vector<Mount> mounts = readMountInfo(m_sources.mountInfo);
    const std::vector<Entry> known = entriesWithNewMounts(mounts);
    for (const Entry &entry : known) {
        if (isSamePlace(folder, entry.mountPoint))
            return describe(entry, mounts);
    }
    const QString letter = nextFreeLetter(known);
    if (letter.isEmpty())
        return {};
    const Drive drive = describe(store(letter, QDir::cleanPath(QFileInfo(folder).absoluteFilePath()), true), mounts);
    return problem().isEmpty() ? drive : Drive {};
}

int32_t DriveTable::getSerial(const Drive &drive)
{
    const Settings::Update update(m_settings);
    const std::optional<Entry> entry = entryOf(normalLetter(drive.letter), entries());
    if (!entry)
        return 0;
    return describe(*entry, readMountInfo(m_sources.mountInfo)).serial;
}

QString DriveTable::volumeName(const QString &letter)
{
    const std::optional<Drive> drive = find(letter);
    return drive && drive->serial != 0 ? drive->label : QString();
}

QString DriveTable::problem() const
{
    return m_writeFailed ? m_settings.writeFailure() : QString();
}

QString DriveTable::normalLetter(const QString &text)
{
    const bool shape = text.size() == 1 || (text.size() == 2 && text[1] == QLatin1Char(':'));
    const QChar letter = text.isEmpty() ? QChar() : text[0].toLower();
    if (!shape || letter < QLatin1Char('a') || letter > QLatin1Char('z'))
        return {};
    return letter + QLatin1Char(':');
}

std::vector<DriveTable::Entry> DriveTable::entries() const
{
    std::vector<Entry> result { { kRootLetter, QStringLiteral("/"), true } };
    for (const QString &key : m_settings.groupKeys(kGroup)) {
        const QString letter = normalLetter(key);
        if (key.size() != 1 || letter.isEmpty() || letter == kRootLetter)
            continue;
        result.push_back({ letter, m_settings.groupValue(kGroup, key),
            m_settings.groupValue(kGroup, keyOf(letter, ".folder")) == QLatin1String("1") });
    }
    std::sort(
        result.begin(), result.end(), [](const Entry &a, const Entry &b) { return a.letter < b.letter; });
    return result;
}

std::vector<DriveTable::Entry> DriveTable::entriesWithNewMounts(const std::vector<Mount> &mounts)
{
    std::vector<Entry> known = entries();
    bool added = false;
    for (const Mount &mount : mounts) {
        if (mount.mountPoint == QLatin1String("/") || !isUserFileSystem(mount)
            || !QFileInfo(mount.mountPoint).isDir())
            continue;
        const bool seen = std::any_of(known.begin(), known.end(),
            [&](const Entry &entry) { return entry.mountPoint == mount.mountPoint; });
        if (seen)
            continue;
        const QString letter = nextFreeLetter(known);
        if (letter.isEmpty())
            break;
        known.push_back(store(letter, mount.mountPoint, false));
        added = true;
    }
    if (added)
        std::sort(
            known.begin(), known.end(), [](const Entry &a, const Entry &b) { return a.letter < b.letter; });
    return known;
}

std::optional<DriveTable::Entry> DriveTable::entryOf(
    const QString &letter, const std::vector<Entry> &known) const
{
    const auto found = std::find_if(
        known.begin(), known.end(), [&](const Entry &entry) { return entry.letter == letter; });
    if (letter.isEmpty() || found == known.end())
        return std::nullopt;
    return *found;
}

QString DriveTable::nextFreeLetter(const std::vector<Entry> &known) const
{
    for (char c = 'd'; c <= 'z'; ++c) {
        const QString letter = QLatin1Char(c) + QStringLiteral(":");
        if (!entryOf(letter, known))
            return letter;
    }
    return {};
}

DriveTable::Entry DriveTable::store(const QString &letter, const QString &mountPoint, bool folder)
{
    bool saved = m_settings.setGroupValue(kGroup, keyOf(letter), mountPoint);
    if (folder)
        saved = m_settings.setGroupValue(kGroup, keyOf(letter, ".folder"), QStringLiteral("1")) && saved;
    else if (!m_settings.groupValue(kGroup, keyOf(letter, ".folder")).isEmpty())
        saved = m_settings.removeGroupValue(kGroup, keyOf(letter, ".folder")) && saved;
    m_writeFailed = m_writeFailed || !saved;
    return { letter, mountPoint, folder };
}

Drive DriveTable::describe(const Entry &entry, const std::vector<Mount> &mounts)
{
    Drive drive;
    drive.letter = entry.letter;
    drive.mountPoint = entry.mountPoint;
    const Mount *mount = mountAt(entry.mountPoint, mounts);
    if (mount != nullptr)
        drive.label = volumeid::label(*mount, m_sources);
    if (drive.label.isEmpty())
        drive.label = QFileInfo(entry.mountPoint).fileName();
    // A disc drive's folder stays when the disc is taken out; only a folder drive counts
    // as present by its folder alone.
    if (mount == nullptr && !(entry.folder && QFileInfo(entry.mountPoint).isDir()))
        return drive;
    const std::optional<uint32_t> serial
        = mount != nullptr ? volumeid::serial(*mount, m_sources) : std::nullopt;
    drive.serial = serial ? static_cast<int32_t>(*serial) : keptId(entry.letter);
    return drive;
}

int32_t DriveTable::keptId(const QString &letter)
{
    bool ok = false;
    const int32_t kept = m_settings.groupValue(kGroup, keyOf(letter, ".id")).toInt(&ok);
    if (ok && kept != 0)
        return kept;
    int32_t drawn = 0;
    while (drawn == 0)
        drawn = static_cast<int32_t>(QRandomGenerator::system()->generate());
    if (!m_settings.setGroupValue(kGroup, keyOf(letter, ".id"), QString::number(drawn)))
        m_writeFailed = true;
    return drawn;
}

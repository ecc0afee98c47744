#include "Settings.h"

#include <QDir>
#include <QLockFile>

#include "DataFolder.h"

#include <QVariant>

#include <array>

namespace {

struct KeyEntry
{
    SettingKey key;
    const char *name;
    QString (*declaredDefault)();
};

// Every key of the group with its default, in the order of the enum.
constexpr std::array<KeyEntry, 12> kKeys = {{
    {SettingKey::Start, "Start", [] { return QStringLiteral("0"); }},
    {SettingKey::Standard, "Standard", [] { return QString(); }},
    {SettingKey::autoarchiv, "autoarchiv", [] { return QStringLiteral("1"); }},
    {SettingKey::autostart, "autostart", [] { return QStringLiteral("0"); }},
    {SettingKey::pfad, "pfad", [] { return QStringLiteral("True"); }},
    {SettingKey::path, "path", [] { return programFolder(); }},
    {SettingKey::Breite, "Breite", [] { return QStringLiteral("12240"); }},
    {SettingKey::Hoehe, "Hoehe", [] { return QStringLiteral("7575"); }},
    {SettingKey::StartupMaximized, "StartupMaximized", [] { return QStringLiteral("0"); }},
    {SettingKey::TabStrip, "TabStrip", [] { return QStringLiteral("1"); }},
    {SettingKey::Sort, "Sort", [] { return QStringLiteral("0"); }},
    {SettingKey::DefDrive, "DefDrive", [] { return QStringLiteral("C:"); }},
}};

constexpr bool tableFollowsEnum()
{
    for (size_t i = 0; i < kKeys.size(); ++i) {
        if (static_cast<size_t>(kKeys[i].key) != i)
            return false;
    }
    return true;
}
static_assert(tableFollowsEnum(), "the key table must list the keys in the order of SettingKey");

const KeyEntry &entry(SettingKey key)
{
    return kKeys[static_cast<size_t>(key)];
}

QString settingsKey(SettingKey key)
{
    return QStringLiteral("Settings/") + QString::fromLatin1(entry(key).name);
}

QString groupKey(const QString &group, const QString &key)
{
    return group + QLatin1Char('/') + key;
}

QString storeLocation()
{
    const QString chosen = qEnvironmentVariable("SILBERBUCH_CONFIG");
    if (!chosen.isEmpty())
        return chosen;
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Silberbuch"),
                     QStringLiteral("Silberbuch"))
        .fileName();
}

} // namespace

Settings::Settings()
    : m_store(storeLocation(), QSettings::IniFormat)
{
}

Settings::Settings(const QString &iniPath)
    : m_store(iniPath, QSettings::IniFormat)
{
}

QString Settings::keyName(SettingKey key)
{
    return QString::fromLatin1(entry(key).name);
}

QString Settings::declaredDefault(SettingKey key)
{
    return entry(key).declaredDefault();
}

QString Settings::value(SettingKey key) const
{
    if (!contains(key))
        return declaredDefault(key);
    return read(settingsKey(key), {});
}

QString Settings::value(SettingKey key, const QString &readerDefault) const
{
    return read(settingsKey(key), readerDefault);
}

Settings::Update::Update(Settings &settings)
    : m_settings(settings)
{
    if (m_settings.m_updates++ > 0)
        return;
    m_lock = std::make_unique<QLockFile>(m_settings.fileName() + QStringLiteral(".update-lock"));
    // Not QSettings's own ".lock", which it takes while it writes. A process that died holding
    // the lock leaves it behind; its pid tells that it is stale. One killed between making the
    // lock file and writing its pid leaves an empty file that only its age can tell: a lock is
    // held for the milliseconds of one read-modify-write, so a few seconds are old enough.
    m_lock->setStaleLockTime(3000);
    // Where no lock can be made the folder is read-only: the writes will fail and say so.
    if (!m_lock->lock())
        m_lock.reset();
    m_settings.m_store.sync();
}

Settings::Update::~Update()
{
    --m_settings.m_updates;
}

bool Settings::contains(SettingKey key) const
{
    return m_store.contains(settingsKey(key));
}

bool Settings::setValue(SettingKey key, const QString &text)
{
    return write(settingsKey(key), text);
}

QString Settings::groupValue(const QString &group, const QString &key, const QString &def) const
{
    return read(groupKey(group, key), def);
}

bool Settings::setGroupValue(const QString &group, const QString &key, const QString &text)
{
    return write(groupKey(group, key), text);
}

QStringList Settings::groupKeys(const QString &group) const
{
    m_store.beginGroup(group);
    const QStringList keys = m_store.childKeys();
    m_store.endGroup();
    return keys;
}

bool Settings::removeGroupValue(const QString &group, const QString &key)
{
    m_store.remove(groupKey(group, key));
    return saved();
}

QString Settings::writeFailure() const
{
    return QStringLiteral("Die Einstellungen konnten nicht gespeichert werden: Die Datei \"")
        + QDir::toNativeSeparators(fileName())
        + QStringLiteral("\" ist schreibgeschützt, oder auf dem Datenträger ist kein Platz mehr.");
}

QString Settings::read(const QString &fullKey, const QString &def) const
{
    const QVariant stored = m_store.value(fullKey);
    if (!stored.isValid())
        return def;
    // A hand-edited value with an unquoted comma comes back as a list; keep it one text.
    if (stored.typeId() == QMetaType::QStringList)
        return stored.toStringList().join(QStringLiteral(", "));
    return stored.toString();
}

bool Settings::write(const QString &fullKey, const QString &text)
{
    m_store.setValue(fullKey, text);
    return saved();
}

// Written at once: a later crash must not lose the start counter or a window layout.
bool Settings::saved()
{
    m_store.sync();
    return m_store.status() == QSettings::NoError;
}

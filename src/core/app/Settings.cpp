#include "Settings.h"

#include "DataFolder.h"
#include "IniDocument.h"
#include "common/Temporaries.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>

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

const QString kGroup = QStringLiteral("Settings");

QString keyOf(SettingKey key)
{
    return QString::fromLatin1(entry(key).name);
}

IniDocument readDocument(const QString &path)
{
    QFile file(path);
    return IniDocument::parse(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
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
    : m_path(storeLocation())
{
}

Settings::Settings(const QString &iniPath)
    : m_path(iniPath)
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
    return read(kGroup, keyOf(key), {});
}

QString Settings::value(SettingKey key, const QString &readerDefault) const
{
    return read(kGroup, keyOf(key), readerDefault);
}

Settings::Update::Update(Settings &settings)
    : m_settings(settings)
{
    if (m_settings.m_updates++ > 0)
        return;
    m_lock = std::make_unique<QLockFile>(m_settings.fileName() + QStringLiteral(".update-lock"));
    // Not the ".lock" that each write takes. A process that died holding
    // the lock leaves it behind; its pid tells that it is stale. One killed between making the
    // lock file and writing its pid leaves an empty file that only its age can tell: a lock is
    // held for the milliseconds of one read-modify-write, so a few seconds are old enough.
    m_lock->setStaleLockTime(3000);
    // Where no lock can be made the folder is read-only: the writes will fail and say so.
    if (!m_lock->lock())
        m_lock.reset();
}

Settings::Update::~Update()
{
    --m_settings.m_updates;
}

bool Settings::contains(SettingKey key) const
{
    return readDocument(m_path).value(kGroup, keyOf(key)).has_value();
}

bool Settings::setValue(SettingKey key, const QString &text)
{
    return change([&](IniDocument &document) { document.setValue(kGroup, keyOf(key), text); });
}

QString Settings::groupValue(const QString &group, const QString &key, const QString &def) const
{
    return read(group, key, def);
}

bool Settings::setGroupValue(const QString &group, const QString &key, const QString &text)
{
    return change([&](IniDocument &document) { document.setValue(group, key, text); });
}

QStringList Settings::groupKeys(const QString &group) const
{
    return readDocument(m_path).keys(group);
}

bool Settings::removeGroupValue(const QString &group, const QString &key)
{
    return change([&](IniDocument &document) { document.remove(group, key); });
}

QString Settings::writeFailure() const
{
    return QStringLiteral("Die Einstellungen konnten nicht gespeichert werden: Die Datei \"")
        + QDir::toNativeSeparators(fileName())
        + QStringLiteral("\" ist schreibgeschützt, oder auf dem Datenträger ist kein Platz mehr.");
}

QString Settings::read(const QString &group, const QString &key, const QString &def) const
{
    return readDocument(m_path).value(group, key).value_or(def);
}

// Written at once: a later crash must not lose the start counter or a window layout. The
// file is read again under a lock of its own, so that the writes of other processes between
// two of ours are kept.
bool Settings::change(const std::function<void(IniDocument &)> &edit)
{
    if (!QDir().mkpath(QFileInfo(m_path).absolutePath()))
        return false;
    QLockFile lock(m_path + QStringLiteral(".lock"));
    lock.setStaleLockTime(3000);
    if (!lock.lock())
        return false;
    IniDocument document = readDocument(m_path);
    edit(document);
    return temporaries::replaceFile(m_path, document.text());
}

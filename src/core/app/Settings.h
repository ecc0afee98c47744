#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class IniDocument;
class QLockFile;

// The keys of the group "Settings". Each has one declared default (see Settings.cpp); a
// reader that needs another default passes it explicitly.
enum class SettingKey {
    Start,            // start counter, plain decimal
    Standard,         // name of the default archive
    autoarchiv,       // "1": ask for the archive at every start
    autostart,        // "1": start with the desktop session
    pfad,             // truth value: the data folder is the program folder
    path,             // the data folder when pfad is false
    Breite,           // main window width in twips
    Hoehe,            // main window height in twips
    StartupMaximized, // main window state: 0 normal, 1 minimized, 2 maximized
    TabStrip,         // selected tab of the main window, 1 to 3
    Sort,             // "1" when the CD list stood in alphabetical order
    DefDrive,         // last drive used for an image
};

// The user's settings: an INI file, every value a text. Each value is read from the file at
// the moment it is needed and written at once, so two instances see each other's writes. A
// write replaces the whole file through a temporary one: a full disk leaves the old file.
// Several processes of the program share the file: whoever reads a value to decide what to
// write (a free drive letter, the next start count) holds an Update from the read to the write.
class Settings
{
public:
    // Holds the settings file for this process from a read to the write that follows it:
    // a lock file beside the settings, taken by the outermost Update of a Settings.
    class Update
    {
    public:
        explicit Update(Settings &settings);
        ~Update();
        Update(const Update &) = delete;
        Update &operator=(const Update &) = delete;

    private:
        Settings &m_settings;
        std::unique_ptr<QLockFile> m_lock;
    };

    // The user's store: the file named by $SILBERBUCH_CONFIG when set, else the per-user
    // store of the application "Silberbuch".
    Settings();
    explicit Settings(const QString &iniPath);

    Settings(const Settings &) = delete;
    Settings &operator=(const Settings &) = delete;

    static QString keyName(SettingKey key);
    static QString declaredDefault(SettingKey key);

    // The stored text, or the declared default when the key is missing.
    QString value(SettingKey key) const;
    // The stored text, or this reader's own default when the key is missing.
    QString value(SettingKey key, const QString &readerDefault) const;
    bool contains(SettingKey key) const;
    // Writes reach the file at once; false when it could not be written (read-only, disk
    // full), and writeFailure() then says so.
    bool setValue(SettingKey key, const QString &text);

    // Other groups ("Drives", "Printer").
    QString groupValue(const QString &group, const QString &key, const QString &def = {}) const;
    bool setGroupValue(const QString &group, const QString &key, const QString &text);
    QStringList groupKeys(const QString &group) const;
    bool removeGroupValue(const QString &group, const QString &key);

    QString fileName() const { return m_path; }
    // The German message for a write that did not reach the file.
    QString writeFailure() const;

private:
    QString read(const QString &group, const QString &key, const QString &def) const;
    // Reads the file, changes it and writes it whole; false when that failed.
    bool change(const std::function<void(IniDocument &)> &edit);

    QString m_path;
    int m_updates = 0;
};

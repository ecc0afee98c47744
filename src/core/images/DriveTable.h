#pragma once

#include "Drive.h"
#include "VolumeSources.h"

#include <QString>

#include <optional>
#include <vector>

class Settings;
struct Mount;

// A new drive, or the German message why it cannot be made.
struct AddDriveResult
{
    Drive drive;
    QString error;
    bool ok() const { return error.isEmpty(); }
};

// The drive letters of the catalogue. Images begin with a letter such as "d:", and Linux
// has none, so the letters are kept in the settings (group "Drives"): c: is the root of the
// file system, every other mounted file system of the user gets the next free letter from
// d: the first time it is seen and keeps it, also while it is not mounted, and any folder
// can be made a drive. Each call reads the mount table afresh, so a medium that came or
// went since the last call is seen, and holds the settings from its read to its write, so
// two processes never hand out one letter twice.
class DriveTable
{
public:
    explicit DriveTable(Settings &settings, VolumeSources sources = {});

    // Every drive, in letter order. A drive with nothing mounted has the serial 0.
    std::vector<Drive> drives();
    // The drive of a letter given as "d", "D" or "d:"; nothing when the letter has none.
    std::optional<Drive> find(const QString &letter);
    // Makes an existing folder the drive of a free letter.
    AddDriveResult addFolder(const QString &letter, const QString &folder);
    // Whether the letter is a folder the user made a drive (not a mounted volume).
    bool isAddedFolder(const QString &letter);
    // Takes a folder drive out of the table, its kept id with it; mounted volumes keep their
    // letters. The German reason when it cannot be done.
    QString removeFolder(const QString &letter);
    // The drive that stands for the folder; a folder that is none yet becomes one under the
    // next free letter. The letter is empty when the folder does not exist or no letter is
    // free.
    Drive driveForFolder(const QString &folder);

    // The image id of the drive as it is mounted now: the volume's serial, or an id drawn
    // once at random and kept with the drive where the volume has none; 0 when nothing is
    // mounted there or the folder is gone.
    int32_t getSerial(const Drive &drive);
    // The volume name that a CD's title is read from: the drive's label, empty when the
    // letter has no drive or nothing is mounted there.
    QString volumeName(const QString &letter);

    // Why a letter or an id just given could not be kept: the settings could not be written.
    // Empty when everything was saved.
    QString problem() const;

    // "d:" for "d", "D" or "D:"; empty for anything that is no drive letter.
    static QString normalLetter(const QString &text);

private:
    struct Entry
    {
        QString letter;
        QString mountPoint;
        bool folder = false; // made a drive by the user, present as long as the folder exists
    };

    std::vector<Entry> entries() const;
    std::vector<Entry> entriesWithNewMounts(const std::vector<Mount> &mounts);
    std::optional<Entry> entryOf(const QString &letter, const std::vector<Entry> &entries) const;
    QString nextFreeLetter(const std::vector<Entry> &entries) const;
    Entry store(const QString &letter, const QString &mountPoint, bool folder);
    Drive describe(const Entry &entry, const std::vector<Mount> &mounts);
    int32_t keptId(const QString &letter);

    Settings &m_settings;
    VolumeSources m_sources;
    bool m_writeFailed = false;
};

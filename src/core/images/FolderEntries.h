#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

// One entry of a folder as the walk needs it, read while the folder was open.
struct FolderEntry
{
    std::string name; // file system bytes
    std::string name1252; // the image's form: code page 1252, "?" for what a line cannot hold
    unsigned char type = 0; // DT_DIR, DT_REG, ...
    bool onOtherDevice = false; // a folder that is a mount point: written, not entered
    bool statusKnown = false; // size and date were read (files that pass the filter)
    int64_t size = 0;
    int64_t mtimeSeconds = 0;
};

// How reading a folder went. Unlistable folders (no permission, gone meanwhile) are part of
// every real volume and get the image's nameless line; any other failure (too many open
// files, no memory, an I/O error) would leave the image silently short, so it stops the walk.
struct FolderRead
{
    enum class State { Read, Unlistable, Failed };
    State state = State::Read;
    int error = 0; // errno of a failure
    std::vector<FolderEntry> entries; // in the order of the Windows file system
};

class CaptureFilter;

// A folder that cannot be listed for this errno is part of every real volume.
bool isUnlistable(int error);

// Reads the folder `relativePath` below the open folder `anchorFd` whole, closes it again and
// sorts the entries. Entries are stat'ed where the walk needs more than the type: folders for
// their device (against `device`, the volume's), files for size and date when their name
// passes `filter`.
FolderRead readFolder(int anchorFd, const char *relativePath, dev_t device, const CaptureFilter &filter);

// NTFS lists a folder sorted: each UTF-16 code unit of the name upper-cased by the simple
// mapping, compared unit by unit; names equal that way keep the order of their bytes.
void sortAsNtfs(std::vector<FolderEntry> &entries);
// The comparison behind sortAsNtfs, on file system (UTF-8) names.
bool ntfsLess(std::string_view left, std::string_view right);

#pragma once

#include <QString>

#include <string>
#include <vector>

// One entry of a ZIP or RAR file as it goes into an entry line: code page 1252 bytes. The
// name is the packer's; the image writer puts "?" for a "|" or a control character in it, and
// a "\" stays, as it is the packer's folder separator.
struct ArchiveEntry
{
    std::string name;
    std::string size;
    std::string date;
};

// The rows that the image gets for one archive, in order. A ZIP listing always ends with a
// row whose three fields are empty (it becomes the line "<archive>\||"); a RAR listing has
// no such row. `error` is set (German) only when the capture has to stop; the rows are then
// empty.
struct ArchiveListing
{
    std::vector<ArchiveEntry> rows;
    QString error;
};

// The most stored entries a ZIP may have; one more stops the capture.
inline constexpr int kMaxZipEntries = 32767;

// Walks the local file headers from the front of the file, never the central directory:
// an entry with compressed size 0 (folder, empty file) is skipped, and the walk ends at the
// first place without a local header signature, so an entry written with a data descriptor
// ends the listing. Names are the stored bytes, sizes the compressed ones.
// `path` is in the file system's bytes.
ArchiveListing listZip(const std::string &path);

// Lists the entries of a RAR (version 4 or 5) file from its headers, never unpacking. An
// entry is kept only when the part of its name behind the first path separator holds a
// "." (the whole name when it has no separator), which is what leaves folders out. "\"
// becomes "/", the size is the unpacked size as a signed 32-bit number, the date the day
// of the modification time. A damaged, encrypted-header or unreadable archive gives the
// entries read up to that point. Each volume of a multi-volume set is listed on its own.
ArchiveListing listRar(const std::string &path);

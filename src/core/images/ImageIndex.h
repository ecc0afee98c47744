#pragma once

#include "TextArena.h"
#include "TextLookup.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct stat;

// A drive image indexed for browsing. The file is read once, front to back; the folder tree
// and, for every folder, the byte ranges of its file lines are noted on the way, so that
// listing a folder reads that folder's lines only. Folder texts are views into copies the
// index keeps (code page 1252 bytes) and live as long as the index.
//
// Lines end at CR LF or at a lone CR; a lone LF stays inside its line.
class ImageIndex
{
public:
    struct Folder
    {
        std::string_view key; // the line from its second character: "d:\Bilder", "d:" for a root
        std::string_view text; // the root's key, else the name after the last backslash
        int32_t parent = -1; // index in folders(), -1 for a root
    };

    // File-specific pictures, or the one standard picture for every row.
    enum class Icons { FileSpecific, None };

    struct Row
    {
        std::string_view name;
        std::string_view size;
        std::string_view date;
        int32_t icon = 0; // index into Listing::iconTypes
    };

    struct Listing
    {
        // The folder's lines as read from the file; the rows are views into them.
        std::shared_ptr<const std::string> lines;
        // The file types to fetch a picture for, in this order. With file-specific icons: the
        // distinct types of the folder as they first appear, then one empty type. With none:
        // the single type "dat". A type can hold a backslash (a file without a dot in a
        // folder with one); no picture exists for such a type.
        std::vector<std::string_view> iconTypes;
        std::vector<Row> rows;
    };

    // Reads the file. One that cannot be read gives an index with isLoaded() false, no
    // folders and no rows.
    static std::shared_ptr<const ImageIndex> load(const QString &path);

    ImageIndex(const ImageIndex &) = delete;
    ImageIndex &operator=(const ImageIndex &) = delete;

    const QString &path() const { return m_path; }
    bool isLoaded() const { return m_loaded; }
    // False once the file's size or modification time differ from those at the load, or
    // the file is gone (or has come since).
    bool isCurrent() const;

    // The folder lines in file order, each under an earlier one, up to the first line the
    // tree cannot take: a folder line whose parent is not in the tree or whose key is
    // already there, or a file line in the root without "|". Nothing after it is in the tree.
    const std::vector<Folder> &folders() const { return m_folders; }

    // Lines beginning with ">" and other non-empty lines, counted over the whole file.
    int64_t folderLineCount() const { return m_folderLines; }
    int64_t fileLineCount() const { return m_fileLines; }

    // The file lines whose folder (the line up to its last backslash) is exactly `folder`,
    // in file order, read from the file. A line without "|" is stepped over. A row whose
    // name is already in the listing is not added; its size and date replace those of the
    // row added before it.
    //
    // Icons: the type table takes the type of each line, "dat" for a path without a dot or
    // ending in a digit. A row then looks up its type by the plain rule (the text after the
    // last dot), so "lied.mp3" finds no entry and keeps the icon of the row before (the
    // first icon for the first row).
    //
    // Empty when the file has changed since the load or cannot be read.
    Listing listFolder(std::string_view folder, Icons icons) const;

private:
    struct FileState
    {
        int64_t size = -1;
        int64_t modifiedNs = -1;
        bool operator==(const FileState &) const = default;
    };
    static FileState stateFrom(const struct stat &info);
    static FileState stateOf(const QString &path);

    ImageIndex() = default;
    // Indexes the lines of the open file as they are read; false when it could not be read whole.
    bool index(int fd, uint64_t size);
    // The bytes of the folder's runs, one after the other, and where each run ends in them;
    // empty when the file has changed.
    std::string readRuns(int32_t firstRun, uint32_t lines, std::vector<size_t> &runEnds) const;

    // The state of the one pass that builds the index.
    struct Indexing;
    friend struct Indexing;

    QString m_path;
    bool m_loaded = false;
    FileState m_state;
    TextArena m_texts;

    std::vector<Folder> m_folders;
    int64_t m_folderLines = 0;
    int64_t m_fileLines = 0;

    // The file lines of a folder lie in runs of consecutive lines; each run is a byte range
    // of the file, and a folder's runs are chained in file order. The runs are few (about
    // two per folder), so nothing is kept per line.
    struct Run
    {
        uint64_t begin = 0;
        uint64_t end = 0;
        int32_t next = -1;
    };
    // What the index knows of one folder text: its node in the tree and its file lines.
    struct Place
    {
        std::string_view text;
        int32_t node = -1;
        int32_t firstRun = -1;
        int32_t lastRun = -1;
        uint32_t lines = 0;
    };
    std::vector<Place> m_places;
    TextLookup m_placeNumbers;
    std::vector<Run> m_runs;
};

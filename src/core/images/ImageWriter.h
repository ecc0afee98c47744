#pragma once

#include "common/Temporaries.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Writes one drive image: code page 1252 lines ending in CR LF, no byte order mark, one
// empty end line. The file is written under a temporary name next to the target and takes
// the target's name only in commit(), so an image that is not finished never replaces the
// old one; a writer destroyed without commit() removes its temporary file.
//
// Lines are held in one buffer until they are final. Until then the last ones can be taken
// back (the pruned walk drops the line of a folder that turned out empty), so the caller
// says through settle() how many of the latest lines may still go.
//
// A "|" or a control character (CR and LF among them) inside a folder, file or entry name
// becomes "?", so every name stays on its line and in its field.
class ImageWriter
{
public:
    // `targetPath`: the image's final path in file system bytes.
    explicit ImageWriter(std::string targetPath);
    ~ImageWriter();
    ImageWriter(const ImageWriter &) = delete;
    ImageWriter &operator=(const ImageWriter &) = delete;

    // Creates the temporary file. False with error() set when that fails.
    bool open();

    // ">" + the drive ("d:").
    void rootLine(std::string_view drive);
    // ">" + folder + "\" + name: a folder, or a ZIP or RAR file that holds entries.
    void folderLine(std::string_view folder, std::string_view name);
    // folder + "\" + name + "|" + size + "|" + date: the size as the signed low 32 bits,
    // the date the UTC text of `mtimeSeconds` (seconds since 1970).
    void fileLine(std::string_view folder, std::string_view name, int64_t size, int64_t mtimeSeconds);
    // archive + "\" + name + "|" + size + "|" + date, the fields as the lister gives them.
    void entryLine(std::string_view folder, std::string_view archive, std::string_view name,
        std::string_view size, std::string_view date);

    // Takes back the latest line that is not yet final.
    void dropLastLine();
    // Every line but the latest `mayStillDrop` ones is final.
    void settle(size_t mayStillDrop);

    // Writes the end line and what is left. False with error() set on failure.
    bool finish();
    // Puts the finished file, once it is on disk, in the target's place.
    bool commit();

    // errno of the first failure, 0 when none.
    int error() const { return m_file.error(); }

private:
    void beginLine();
    void endLine();
    void appendPath(std::string_view folder, std::string_view name);
    void writeOut();

    temporaries::AtomicFile m_file;
    std::string m_buffer;
    size_t m_finalEnd = 0; // bytes of m_buffer that are final
    std::vector<size_t> m_starts; // where the lines after m_finalEnd begin
};

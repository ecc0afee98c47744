#include "ImageIndex.h"

#include "ImageLine.h"
#include "LineBlockReader.h"
#include "LineScanner.h"

#include <QFile>

#include <algorithm>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <unordered_set>

namespace {

// The type by which the icon table is built: "dat" also when the path ends in a digit.
std::string_view tableType(std::string_view fullPath)
{
    if (!fullPath.empty() && fullPath.back() >= '0' && fullPath.back() <= '9')
        return "dat";
    return imageline::fileType(fullPath);
}

// Compares the short folder texts tested at almost every line without a call: loads that
// overlap at the end stay within the `size` bytes of both.
inline bool sameBytes(const char *a, const char *b, size_t size)
{
    // The empty folder text may have no bytes at all behind it.
    if (size == 0)
        return true;
#if defined(__SSE2__)
    if (size >= 16) {
        const auto equal16 = [](const char *x, const char *y) {
            return _mm_movemask_epi8(_mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i *>(x)),
                       _mm_loadu_si128(reinterpret_cast<const __m128i *>(y))))
                == 0xFFFF;
        };
        for (size_t at = 0; at + 16 < size; at += 16)
            if (!equal16(a + at, b + at))
                return false;
        return equal16(a + size - 16, b + size - 16);
    }
#endif
    if (size >= 8) {
        uint64_t x[2];
        uint64_t y[2];
        std::memcpy(&x[0], a, 8);
        std::memcpy(&x[1], a + size - 8, 8);
        std::memcpy(&y[0], b, 8);
        std::memcpy(&y[1], b + size - 8, 8);
        return x[0] == y[0] && x[1] == y[1];
    }
    return std::memcmp(a, b, size) == 0;
}

// Reads `count` bytes from `offset` on; false when the file ends first or cannot be read.
bool readAt(int fd, char *into, size_t count, uint64_t offset)
{
    while (count > 0) {
        const ssize_t got = ::pread(fd, into, count, static_cast<off_t>(offset));
        if (got <= 0)
            return false;
        into += got;
        count -= static_cast<size_t>(got);
        offset += static_cast<uint64_t>(got);
    }
    return true;
}

} // namespace

ImageIndex::FileState ImageIndex::stateFrom(const struct stat &info)
{
    return { static_cast<int64_t>(info.st_size),
        static_cast<int64_t>(info.st_mtim.tv_sec) * 1000000000 + static_cast<int64_t>(info.st_mtim.tv_nsec) };
}

ImageIndex::FileState ImageIndex::stateOf(const QString &path)
{
    struct stat info;
    if (::stat(QFile::encodeName(path).constData(), &info) != 0)
        return {};
    return stateFrom(info);
}

std::shared_ptr<const ImageIndex> ImageIndex::load(const QString &path)
{
    std::shared_ptr<ImageIndex> image(new ImageIndex);
    image->m_path = path;
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return image;
    struct stat info;
    if (::fstat(fd, &info) == 0 && S_ISREG(info.st_mode)) {
        image->m_state = stateFrom(info);
        image->m_loaded = image->index(fd, static_cast<uint64_t>(info.st_size));
    }
    ::close(fd);
    if (image->m_loaded)
        return image;
    // A file that could not be read whole gives an empty index, not part of one.
    std::shared_ptr<ImageIndex> empty(new ImageIndex);
    empty->m_path = path;
    empty->m_state = image->m_state;
    return empty;
}

bool ImageIndex::isCurrent() const
{
    return stateOf(m_path) == m_state;
}

struct ImageIndex::Indexing
{
    explicit Indexing(ImageIndex &image)
        : image(image)
    {
    }

    uint64_t offsetOf(const char *at) const { return blockOffset + static_cast<uint64_t>(at - block); }

    // Any line that is not a file line of the run's folder: it ends the run, and starts a
    // new one when it is a file line.
    void line(std::string_view line, size_t lastBackslash)
    {
        if (line.empty()) {
            closeRun(offsetOf(line.data()));
            return;
        }
        if (line.front() == '>') {
            closeRun(offsetOf(line.data()));
            ++image.m_folderLines;
            if (treeOpen)
                treeOpen = addFolder(line);
            return;
        }
        const std::string_view folder
            = lastBackslash == std::string_view::npos ? std::string_view() : line.substr(0, lastBackslash);
        // A file in the root without "|" is where the tree loader stops.
        if (treeOpen && folder.size() == 2 && line.find('|') == std::string_view::npos)
            treeOpen = false;
        if (runOpen && folder == runFolder) {
            ++runLines;
            return;
        }
        closeRun(offsetOf(line.data()));
        runPlace = placeOf(folder);
        Place &place = image.m_places[static_cast<size_t>(runPlace)];
        runFolder = place.text;
        const auto run = static_cast<int32_t>(image.m_runs.size());
        image.m_runs.push_back({ offsetOf(line.data()), 0, -1 });
        if (place.lastRun >= 0)
            image.m_runs[static_cast<size_t>(place.lastRun)].next = run;
        else
            place.firstRun = run;
        place.lastRun = run;
        runLines = 1;
        runOpen = true;
    }

    void closeRun(uint64_t end)
    {
        if (!runOpen)
            return;
        Place &place = image.m_places[static_cast<size_t>(runPlace)];
        image.m_runs[static_cast<size_t>(place.lastRun)].end = end;
        place.lines += runLines;
        image.m_fileLines += runLines;
        runOpen = false;
    }

    // The number of a folder text's place, made on first sight. The files of a folder mostly
    // follow its folder line or the lines of a subfolder, so the latest place and the folders
    // above the latest folder are tried before the table.
    int32_t placeOf(std::string_view text)
    {
        std::vector<Place> &places = image.m_places;
        if (latestPlace >= 0 && text == places[static_cast<size_t>(latestPlace)].text)
            return latestPlace;
        const std::vector<Folder> &folders = image.m_folders;
        for (int32_t node = static_cast<int32_t>(folders.size()) - 1; node >= 0;
             node = folders[static_cast<size_t>(node)].parent)
            if (folders[static_cast<size_t>(node)].key == text)
                return latestPlace = nodePlaces[static_cast<size_t>(node)];
        latestPlace = image.m_placeNumbers.find(text);
        return latestPlace >= 0 ? latestPlace : newPlace(text);
    }

    // The number of a folder text's place, looked up in the table only: for texts seldom
    // seen before, such as the keys of folder lines.
    int32_t newPlace(std::string_view text)
    {
        std::vector<Place> &places = image.m_places;
        const std::string_view kept = image.m_texts.keep(text);
        const auto [number, added] = image.m_placeNumbers.add(kept);
        if (added)
            places.push_back({ kept });
        return latestPlace = number;
    }

    // Adds a folder line to the tree; false when the tree cannot take it.
    bool addFolder(std::string_view line)
    {
        std::vector<Folder> &folders = image.m_folders;
        Folder folder;
        if (!imageline::isRoot(line)) {
            // Depth first, the parent is mostly the folder before or one of its ancestors.
            const std::string_view parentKey = imageline::parentKey(line);
            int32_t parent = static_cast<int32_t>(folders.size()) - 1;
            while (parent >= 0 && folders[static_cast<size_t>(parent)].key != parentKey)
                parent = folders[static_cast<size_t>(parent)].parent;
            if (parent < 0) {
                const int32_t place = image.m_placeNumbers.find(parentKey);
                if (place < 0 || image.m_places[static_cast<size_t>(place)].node < 0)
                    return false;
                parent = image.m_places[static_cast<size_t>(place)].node;
            }
            folder.parent = parent;
        }
        const std::string_view key = imageline::folderKey(line);
        Place &place = image.m_places[static_cast<size_t>(newPlace(key))];
        if (place.node >= 0)
            return false;
        place.node = static_cast<int32_t>(folders.size());
        nodePlaces.push_back(latestPlace);
        folder.key = place.text;
        const std::string_view text = imageline::nodeText(line);
        folder.text = key.empty() ? folder.key : folder.key.substr(static_cast<size_t>(text.data() - key.data()));
        folders.push_back(folder);
        return true;
    }

    ImageIndex &image;
    // The block being scanned and its position in the file.
    const char *block = nullptr;
    uint64_t blockOffset = 0;
    bool treeOpen = true;
    // The run being extended: consecutive file lines of one folder.
    std::string_view runFolder;
    int32_t runPlace = -1;
    uint32_t runLines = 0;
    bool runOpen = false;
    int32_t latestPlace = -1;
    std::vector<int32_t> nodePlaces; // the place of each folder in the tree
};

bool ImageIndex::index(int fd, uint64_t size)
{
    Indexing indexing(*this);
    const auto onLine = [&indexing](std::string_view line, size_t lastBackslash) {
        // Most lines are files in the folder of the line before: they only lengthen the run.
        // Root files go the long way while the tree may still stop at one of them.
        const std::string_view folder = indexing.runFolder;
        if (indexing.runOpen && lastBackslash == folder.size() && !(indexing.treeOpen && folder.size() == 2)
            && line.front() != '>' && sameBytes(line.data(), folder.data(), folder.size())) {
            ++indexing.runLines;
            return;
        }
        indexing.line(line, lastBackslash);
    };

    LineBlockReader reader(fd, size);
    LineBlockReader::Block block;
    uint64_t end = 0;
    while (reader.next(block)) {
        indexing.block = block.data;
        indexing.blockOffset = block.offset;
        linescanner::forEachLine(block.data, block.size, onLine);
        end = block.offset + block.size;
    }
    indexing.closeRun(end);
    return reader.readWhole();
}

std::string ImageIndex::readRuns(int32_t firstRun, uint32_t lines, std::vector<size_t> &runEnds) const
{
    std::string bytes;
    if (lines == 0)
        return bytes;
    const int fd = ::open(QFile::encodeName(m_path).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return bytes;
    struct stat info;
    bool whole = ::fstat(fd, &info) == 0 && stateFrom(info) == m_state;
    for (int32_t r = firstRun; whole && r >= 0; r = m_runs[static_cast<size_t>(r)].next) {
        const Run &run = m_runs[static_cast<size_t>(r)];
        const size_t at = bytes.size();
        bytes.resize(at + static_cast<size_t>(run.end - run.begin));
        whole = readAt(fd, bytes.data() + at, bytes.size() - at, run.begin);
        runEnds.push_back(bytes.size());
    }
    ::close(fd);
    if (!whole) {
        bytes.clear();
        runEnds.clear();
    }
    return bytes;
}

ImageIndex::Listing ImageIndex::listFolder(std::string_view folder, Icons icons) const
{
    Listing listing;
    std::vector<imageline::FileFields> lines;
    if (const int32_t number = m_placeNumbers.find(folder); number >= 0) {
        const Place &place = m_places[static_cast<size_t>(number)];
        std::vector<size_t> runEnds;
        const auto bytes = std::make_shared<const std::string>(readRuns(place.firstRun, place.lines, runEnds));
        listing.lines = bytes;
        lines.reserve(place.lines);
        // Run by run: a run may end in a lone CR and the next begin with an LF, which read
        // together would make one line end of two.
        size_t runStart = 0;
        for (const size_t runEnd : runEnds) {
            linescanner::forEachLine(bytes->data() + runStart, runEnd - runStart, [&lines](std::string_view line, size_t) {
                imageline::FileFields fields;
                if (imageline::cutFileLine(line, fields))
                    lines.push_back(fields);
            });
            runStart = runEnd;
        }
    }

    const auto findType = [&listing](std::string_view type) -> int32_t {
        for (size_t t = 0; t < listing.iconTypes.size(); ++t)
            if (listing.iconTypes[t] == type)
                return static_cast<int32_t>(t);
        return -1;
    };
    if (icons == Icons::None) {
        listing.iconTypes.push_back("dat");
    } else {
        for (const imageline::FileFields &fields : lines)
            if (const std::string_view type = tableType(fields.fullPath); findType(type) < 0)
                listing.iconTypes.push_back(type);
        listing.iconTypes.push_back(std::string_view());
    }

    listing.rows.reserve(lines.size());
    std::unordered_set<std::string_view> names;
    int32_t icon = 0;
    for (const imageline::FileFields &fields : lines) {
        if (icons == Icons::FileSpecific)
            if (const int32_t found = findType(imageline::fileType(fields.fullPath)); found >= 0)
                icon = found;
        if (!fields.name.empty() && !names.insert(fields.name).second) {
            if (!listing.rows.empty()) {
                listing.rows.back().size = fields.size;
                listing.rows.back().date = fields.date;
            }
            continue;
        }
        listing.rows.push_back({ fields.name, fields.size, fields.date, icon });
    }
    return listing;
}

#include "ImageIndex.h"

#include "ImageLine.h"

#include <QFile>

#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <unordered_set>

namespace {

// The end of the line that starts at `p`: the first CR, or the end of the data.
const char *lineEnd(const char *p, const char *end)
{
    const void *cr = std::memchr(p, '\r', static_cast<size_t>(end - p));
    return cr ? static_cast<const char *>(cr) : end;
}

// Where the next line starts after a line ending at `e`: behind CR LF or a lone CR.
const char *nextLine(const char *e, const char *end)
{
    if (e == end)
        return end;
    return (e + 1 < end && e[1] == '\n') ? e + 2 : e + 1;
}

// The type by which the icon table is built: "dat" also when the path ends in a digit.
std::string_view tableType(std::string_view fullPath)
{
    if (!fullPath.empty() && fullPath.back() >= '0' && fullPath.back() <= '9')
        return "dat";
    return imageline::fileType(fullPath);
}

bool readWhole(int fd, char *into, size_t size)
{
    size_t done = 0;
    while (done < size) {
        const ssize_t got = ::read(fd, into + done, size - done);
        if (got <= 0)
            return false;
        done += static_cast<size_t>(got);
    }
    return true;
}

} // namespace

ImageIndex::FileState ImageIndex::stateOf(const QString &path)
{
    struct stat info;
    if (::stat(QFile::encodeName(path).constData(), &info) != 0)
        return {};
    return {static_cast<int64_t>(info.st_size), static_cast<int64_t>(info.st_mtim.tv_sec) * 1000000000
                                                    + static_cast<int64_t>(info.st_mtim.tv_nsec)};
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
        image->m_state = {static_cast<int64_t>(info.st_size), static_cast<int64_t>(info.st_mtim.tv_sec) * 1000000000
                                                                  + static_cast<int64_t>(info.st_mtim.tv_nsec)};
        image->m_size = static_cast<size_t>(info.st_size);
        image->m_bytes = std::make_unique_for_overwrite<char[]>(image->m_size);
        image->m_loaded = readWhole(fd, image->m_bytes.get(), image->m_size);
    }
    ::close(fd);
    if (image->m_loaded)
        image->index();
    else
        image->m_size = 0;
    return image;
}

bool ImageIndex::isCurrent() const
{
    return stateOf(m_path) == m_state;
}

void ImageIndex::index()
{
    const char *const begin = m_bytes.get();
    const char *const end = begin + m_size;

    std::unordered_map<std::string_view, int32_t> nodeOf;
    bool treeOpen = true;

    // Per file line: its group and start, grouped after the pass. The files of one folder
    // mostly follow each other, so the last group is tried before the table.
    std::vector<uint32_t> groupOfLine;
    std::vector<uint64_t> startOfLine;
    std::vector<std::string_view> groupFolders;
    std::unordered_map<std::string_view, uint32_t> groupIds;
    std::string_view lastFolder;
    uint32_t lastGroup = UINT32_MAX;

    for (const char *p = begin; p < end;) {
        const char *e = lineEnd(p, end);
        const std::string_view line(p, static_cast<size_t>(e - p));
        const uint64_t start = static_cast<uint64_t>(p - begin);
        p = nextLine(e, end);
        if (line.empty())
            continue;

        if (line.front() == '>') {
            ++m_folderLines;
            if (!treeOpen)
                continue;
            Folder folder;
            folder.key = imageline::folderKey(line);
            folder.text = imageline::nodeText(line);
            if (!imageline::isRoot(line)) {
                const auto parent = nodeOf.find(imageline::parentKey(line));
                if (parent == nodeOf.end()) {
                    treeOpen = false;
                    continue;
                }
                folder.parent = parent->second;
            }
            if (!nodeOf.emplace(folder.key, static_cast<int32_t>(m_folders.size())).second) {
                treeOpen = false;
                continue;
            }
            m_folders.push_back(folder);
            continue;
        }

        ++m_fileLines;
        const std::string_view folder = imageline::folderOf(line);
        if (treeOpen && folder.size() == 2 && line.find('|') == std::string_view::npos)
            treeOpen = false;
        if (lastGroup == UINT32_MAX || folder != lastFolder) {
            const auto [it, added] = groupIds.emplace(folder, static_cast<uint32_t>(groupFolders.size()));
            if (added)
                groupFolders.push_back(folder);
            lastFolder = folder;
            lastGroup = it->second;
        }
        groupOfLine.push_back(lastGroup);
        startOfLine.push_back(start);
    }

    std::vector<uint32_t> next(groupFolders.size() + 1, 0);
    for (const uint32_t group : groupOfLine)
        ++next[group + 1];
    for (size_t g = 0; g < groupFolders.size(); ++g) {
        m_groups.emplace(groupFolders[g], Range{next[g], next[g + 1]});
        next[g + 1] += next[g];
    }
    m_fileLineStarts.resize(startOfLine.size());
    for (size_t i = 0; i < startOfLine.size(); ++i)
        m_fileLineStarts[next[groupOfLine[i]]++] = startOfLine[i];
}

ImageIndex::Listing ImageIndex::listFolder(std::string_view folder, Icons icons) const
{
    Listing listing;
    std::vector<imageline::FileFields> lines;
    if (const auto group = m_groups.find(folder); group != m_groups.end()) {
        const char *const begin = m_bytes.get();
        const char *const end = begin + m_size;
        lines.reserve(group->second.count);
        for (uint32_t i = 0; i < group->second.count; ++i) {
            const char *p = begin + m_fileLineStarts[group->second.first + i];
            imageline::FileFields fields;
            if (imageline::cutFileLine(std::string_view(p, static_cast<size_t>(lineEnd(p, end) - p)), fields))
                lines.push_back(fields);
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
        listing.rows.push_back({fields.name, fields.size, fields.date, icon});
    }
    return listing;
}

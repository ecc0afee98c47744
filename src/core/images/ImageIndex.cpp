#include "ImageIndex.h"

#include "ImageLine.h"
#include "LineScanner.h"

#include <QFile>

#include <algorithm>
#include <condition_variable>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <sys/mman.h>
#include <sys/stat.h>
#include <thread>
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

constexpr size_t hugePage = size_t(2) << 20;

} // namespace

// Block by block, so that indexing follows the read closely.
class ImageIndex::BackgroundRead
{
public:
    struct Progress
    {
        size_t arrived = 0;
        bool ended = false;
    };

    BackgroundRead(int fd, char *into, size_t size)
        : m_thread([this, fd, into, size] { run(fd, into, size); })
    {
    }

    ~BackgroundRead() { m_thread.join(); }

    BackgroundRead(const BackgroundRead &) = delete;
    BackgroundRead &operator=(const BackgroundRead &) = delete;

    // Waits until more than `seen` bytes have arrived, or the read has ended.
    Progress waitBeyond(size_t seen)
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [&] { return m_progress.arrived > seen || m_progress.ended; });
        return m_progress;
    }

private:
    static constexpr size_t block = size_t(4) << 20;

    void run(int fd, char *into, size_t size)
    {
        size_t done = 0;
        while (done < size) {
            const ssize_t got = ::read(fd, into + done, std::min(block, size - done));
            if (got <= 0)
                break;
            done += static_cast<size_t>(got);
            publish(done, false);
        }
        publish(done, true);
    }

    void publish(size_t arrived, bool ended)
    {
        {
            const std::lock_guard lock(m_mutex);
            m_progress = { arrived, ended };
        }
        m_changed.notify_one();
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    Progress m_progress;
    std::thread m_thread;
};

ImageIndex::Buffer::Buffer(size_t size)
    : m_size(size)
{
    if (size == 0)
        return;
    m_mapped = (size + hugePage - 1) / hugePage * hugePage;
    void *memory = ::mmap(nullptr, m_mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        m_mapped = 0;
        m_size = 0;
        return;
    }
    if (size >= hugePage)
        ::madvise(memory, m_mapped, MADV_HUGEPAGE);
    m_data = static_cast<char *>(memory);
}

ImageIndex::Buffer::~Buffer()
{
    if (m_mapped)
        ::munmap(m_data, m_mapped);
}

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
        const auto size = static_cast<size_t>(info.st_size);
        image->m_bytes = std::make_unique<Buffer>(size);
        if (image->m_bytes->size() == size) {
            BackgroundRead reading(fd, image->m_bytes->data(), size);
            image->m_loaded = image->index(reading);
        }
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
        , begin(image.m_bytes->data())
    {
    }

    // Any line that is not a file line of the run's folder: it ends the run, and starts a
    // new one when it is a file line.
    void line(std::string_view line, size_t lastBackslash)
    {
        if (line.empty()) {
            closeRun(line.data());
            return;
        }
        if (line.front() == '>') {
            closeRun(line.data());
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
        closeRun(line.data());
        if (!haveGroup || folder != runFolder) {
            const auto [it, added]
                = image.m_groupOf.emplace(folder, static_cast<uint32_t>(image.m_groups.size()));
            if (added)
                image.m_groups.emplace_back();
            runGroup = it->second;
            runFolder = folder;
            haveGroup = true;
        }
        Group &group = image.m_groups[runGroup];
        const auto run = static_cast<int32_t>(image.m_runs.size());
        image.m_runs.push_back({ static_cast<uint64_t>(line.data() - begin), 0, -1 });
        if (group.last >= 0)
            image.m_runs[static_cast<size_t>(group.last)].next = run;
        else
            group.first = run;
        group.last = run;
        runLines = 1;
        runOpen = true;
    }

    void closeRun(const char *at)
    {
        if (!runOpen)
            return;
        Group &group = image.m_groups[runGroup];
        image.m_runs[static_cast<size_t>(group.last)].end = static_cast<uint64_t>(at - begin);
        group.lines += runLines;
        image.m_fileLines += runLines;
        runOpen = false;
    }

    // Adds a folder line to the tree; false when the tree cannot take it.
    bool addFolder(std::string_view line)
    {
        Folder folder;
        folder.key = imageline::folderKey(line);
        folder.text = imageline::nodeText(line);
        std::vector<Folder> &folders = image.m_folders;
        if (!imageline::isRoot(line)) {
            // Depth first, the parent is mostly the folder before or one of its ancestors.
            const std::string_view parentKey = imageline::parentKey(line);
            int32_t parent = static_cast<int32_t>(folders.size()) - 1;
            while (parent >= 0 && folders[static_cast<size_t>(parent)].key != parentKey)
                parent = folders[static_cast<size_t>(parent)].parent;
            if (parent < 0) {
                const auto found = nodeOf.find(parentKey);
                if (found == nodeOf.end())
                    return false;
                parent = found->second;
            }
            folder.parent = parent;
        }
        if (!nodeOf.emplace(folder.key, static_cast<int32_t>(folders.size())).second)
            return false;
        folders.push_back(folder);
        return true;
    }

    ImageIndex &image;
    const char *begin;
    std::unordered_map<std::string_view, int32_t> nodeOf;
    bool treeOpen = true;
    // The run being extended: consecutive file lines of one folder.
    std::string_view runFolder;
    uint32_t runGroup = 0;
    uint32_t runLines = 0;
    bool haveGroup = false;
    bool runOpen = false;
};

bool ImageIndex::index(BackgroundRead &reading)
{
    Indexing indexing(*this);
    const auto onLine = [&indexing](std::string_view line, size_t lastBackslash) {
        // Most lines are files in the folder of the line before: they only lengthen the run.
        // Root files go the long way while the tree may still stop at one of them.
        const std::string_view folder = indexing.runFolder;
        if (indexing.runOpen && lastBackslash == folder.size() && !(indexing.treeOpen && folder.size() == 2)
            && line.front() != '>' && std::memcmp(line.data(), folder.data(), folder.size()) == 0) {
            ++indexing.runLines;
            return;
        }
        indexing.line(line, lastBackslash);
    };

    const char *const data = m_bytes->data();
    size_t indexed = 0;
    BackgroundRead::Progress progress;
    do {
        progress = reading.waitBeyond(progress.arrived);
        const size_t cut
            = progress.ended ? progress.arrived : linescanner::lastLineEnd(data, indexed, progress.arrived);
        if (cut > indexed) {
            linescanner::forEachLine(data + indexed, cut - indexed, onLine);
            indexed = cut;
        }
    } while (!progress.ended);
    indexing.closeRun(data + indexed);
    return progress.arrived == m_bytes->size();
}

ImageIndex::Listing ImageIndex::listFolder(std::string_view folder, Icons icons) const
{
    Listing listing;
    std::vector<imageline::FileFields> lines;
    if (const auto found = m_groupOf.find(folder); found != m_groupOf.end()) {
        const Group &group = m_groups[found->second];
        lines.reserve(group.lines);
        for (int32_t r = group.first; r >= 0; r = m_runs[static_cast<size_t>(r)].next) {
            const Run &run = m_runs[static_cast<size_t>(r)];
            linescanner::forEachLine(
                m_bytes->data() + run.begin, run.end - run.begin, [&lines](std::string_view line, size_t) {
                    imageline::FileFields fields;
                    if (imageline::cutFileLine(line, fields))
                        lines.push_back(fields);
                });
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

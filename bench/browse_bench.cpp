// Browsing a large drive image: the time to load it (tree, counts, folder index) and the
// time of a folder click, beside one plain sequential read of the same file in the way
// `cat` reads it. Usage: browse_bench [--generate] [image file]; without a file a generated
// image of one million lines goes to a temporary file.

#include "images/ImageIndex.h"

#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <functional>
#include <random>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double millisecondsOf(const std::function<void()> &work)
{
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double percentile(std::vector<double> values, double share)
{
    std::sort(values.begin(), values.end());
    return values[static_cast<size_t>(share * static_cast<double>(values.size() - 1))];
}

// A volume in the order a walk writes it: depth first, files and subfolders of a folder
// mixed, some ZIP and RAR files listed as folders, German names in code page 1252.
class ImageGenerator
{
public:
    explicit ImageGenerator(size_t lines)
        : m_target(lines)
    {
    }

    std::string generate()
    {
        m_out = ">d:\r\n";
        m_lines = 1;
        folder("d:", 0);
        while (m_lines < m_target)
            folder("d:\\Mehr " + std::to_string(m_lines), 1, true);
        m_out += "\r\n";
        return std::move(m_out);
    }

private:
    void folder(const std::string &path, int depth, bool announce = false)
    {
        if (announce)
            line('>' + path);
        // Most folders are small, a few are large.
        const int files = (m_random() % 20 == 0) ? 500 + static_cast<int>(m_random() % 1500)
                                                 : static_cast<int>(m_random() % 60);
        const int subfolders = depth < 4 ? 2 + static_cast<int>(m_random() % 7) : 0;
        const int entries = files + subfolders;
        for (int i = 0; i < entries && m_lines < m_target; ++i) {
            if (static_cast<int>(m_random() % static_cast<unsigned>(entries)) < subfolders && depth < 4) {
                folder(path + '\\' + pick(s_folders) + ' ' + std::to_string(i), depth + 1, true);
            } else if (m_random() % 40 == 0) {
                archive(path + '\\' + pick(s_stems) + std::to_string(i) + (m_random() % 2 ? ".zip" : ".rar"));
            } else {
                file(
                    path + '\\' + pick(s_stems) + ' ' + std::to_string(i) + '.' + pick(s_types), " 18:02:44");
            }
        }
    }

    void archive(const std::string &path)
    {
        line('>' + path);
        const int entries = 1 + static_cast<int>(m_random() % 80);
        for (int i = 0; i < entries && m_lines < m_target; ++i)
            file(
                path + '\\' + pick(s_folders) + '/' + pick(s_stems) + std::to_string(i) + '.' + pick(s_types),
                "");
        if (path.ends_with(".zip"))
            line(path + "\\||");
    }

    void file(const std::string &fullPath, const char *time)
    {
        line(fullPath + '|' + std::to_string(m_random() % 5000000) + "|28.07.2002" + time);
    }

    void line(const std::string &text)
    {
        m_out += text;
        m_out += "\r\n";
        ++m_lines;
    }

    template <size_t N> const char *pick(const char *const (&table)[N]) { return table[m_random() % N]; }

    static constexpr const char *s_folders[] = { "Bilder", "Musik", "Dokumente", "Programme", "Setup",
        "Urlaub 2003", "Projekte", "Backup", "Treiber", "Spiele", "R\xE4tsel", "M\xFCller" };
    static constexpr const char *s_stems[] = { "liesmich", "garten", "bericht", "rechnung", "track", "foto",
        "vertrag", "Mahnung_M\xFCller", "index", "daten", "b\xFCro", "haus" };
    static constexpr const char *s_types[]
        = { "txt", "jpg", "mp3", "doc", "exe", "dll", "pdf", "xls", "html", "avi" };

    size_t m_target;
    size_t m_lines = 0;
    std::string m_out;
    std::mt19937 m_random { 7 };
};

// The way `cat` reads: 128 KiB blocks into one reused buffer, nothing kept.
void plainRead(const QString &path)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY);
    std::vector<char> block(128 * 1024);
    while (::read(fd, block.data(), block.size()) > 0) { }
    ::close(fd);
}

void writeImage(const QString &path)
{
    // With the closing empty line the file holds one million lines.
    const std::string image = ImageGenerator(1000000 - 1).generate();
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
        std::exit(1);
    }
    file.write(image.data(), static_cast<qint64>(image.size()));
}

} // namespace

int main(int argc, char **argv)
{
    const bool generateOnly = argc > 1 && std::string(argv[1]) == "--generate";
    const int pathArgument = generateOnly ? 2 : 1;
    QTemporaryDir temp;
    QString path = argc > pathArgument ? QString::fromLocal8Bit(argv[pathArgument])
                                       : temp.filePath(QStringLiteral("1.dat"));
    if (generateOnly || argc <= pathArgument)
        writeImage(path);
    if (generateOnly)
        return 0;

    constexpr int rounds = 7;
    plainRead(path); // warm the page cache
    std::vector<double> reads, loads;
    std::shared_ptr<const ImageIndex> image;
    for (int i = 0; i < rounds; ++i) {
        reads.push_back(millisecondsOf([&] { plainRead(path); }));
        image.reset();
        loads.push_back(millisecondsOf([&] { image = ImageIndex::load(path); }));
    }

    std::vector<double> clicks;
    size_t largest = 0;
    double largestMs = 0;
    std::mt19937 random(3);
    const auto &folders = image->folders();
    for (int i = 0; i < 2000; ++i) {
        const auto &folder = folders[random() % folders.size()];
        size_t rows = 0;
        const double ms = millisecondsOf(
            [&] { rows = image->listFolder(folder.key, ImageIndex::Icons::FileSpecific).rows.size(); });
        clicks.push_back(ms);
        if (rows > largest) {
            largest = rows;
            largestMs = ms;
        }
    }

    const double read = median(reads);
    const double load = median(loads);
    std::printf("image: %lld lines (%lld folders), %.1f MB\n",
        static_cast<long long>(image->fileLineCount() + image->folderLineCount()),
        static_cast<long long>(image->folderLineCount()), static_cast<double>(QFile(path).size()) / 1e6);
    std::printf("plain sequential read (128 KiB blocks): %.2f ms (median of %d)\n", read, rounds);
    std::printf("tree load: %.2f ms (median of %d), %.2f x the plain read\n", load, rounds, load / read);
    std::printf(
        "folder click over %zu random folders: median %.3f ms, 90th percentile %.3f ms, max %.3f ms\n",
        clicks.size(), median(clicks), percentile(clicks, 0.9),
        *std::max_element(clicks.begin(), clicks.end()));
    std::printf("largest folder clicked: %zu rows in %.3f ms\n", largest, largestMs);
    std::printf("load_ms=%.3f\n", load);
    return 0;
}

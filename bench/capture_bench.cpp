// Capture of a large generated volume. "generate DIR" builds 200,000 files in 20,000 folders
// (sparse files with varied sizes and dates, German and English names); "capture DIR DATA
// [--prune] [--filter F]" captures DIR once into DATA/lws/1.dat and prints the wall time,
// the counts, the image size and the peak resident memory of the process.
// capture_vs_find.sh runs both and sets the time against find's walk of the same tree.

#include "images/ImageCapture.h"

#include <QString>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <random>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int kTopFolders = 20;
constexpr int kMiddleFolders = 9; // per top folder
constexpr int kLeafFolders = 110; // per middle folder
constexpr int kFilesPerFolder = 10; // 20 + 180 + 19,800 folders, 200,000 files

const char *const kStems[] = { "liesmich", "garten", "bericht", "rechnung", "track", "setup", "foto",
    "vertrag", "Mahnung_Müller", "index", "main", "daten", "urlaub", "haus", "kinder", "büro", "readme",
    "notes", "Grüße", "Übersicht" };
const char *const kTypes[] = { "txt", "jpg", "mp3", "doc", "exe", "dll", "pdf", "xls", "html", "png" };

bool makeFolder(const std::string &path)
{
    return ::mkdir(path.c_str(), 0755) == 0 || errno == EEXIST;
}

bool fillFolder(const std::string &folder, std::mt19937 &random)
{
    for (int i = 0; i < kFilesPerFolder; ++i) {
        const std::string name = folder + "/" + kStems[random() % std::size(kStems)] + " " + std::to_string(i)
            + "." + kTypes[random() % std::size(kTypes)];
        const int fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
        if (fd < 0)
            return false;
        // Sparse: the sizes are real, the disk stays empty.
        const off_t size = static_cast<off_t>(random() % 5000000);
        const time_t when = static_cast<time_t>(946684800 + random() % 700000000);
        const timespec times[2] = { { when, 0 }, { when, 0 } };
        const bool ok = ::ftruncate(fd, size) == 0 && ::futimens(fd, times) == 0;
        ::close(fd);
        if (!ok)
            return false;
    }
    return true;
}

int generate(const std::string &root)
{
    std::mt19937 random(5);
    if (!makeFolder(root))
        return 1;
    for (int a = 0; a < kTopFolders; ++a) {
        const std::string top = root + "/Archiv " + std::to_string(a);
        if (!makeFolder(top) || !fillFolder(top, random))
            return 1;
        for (int b = 0; b < kMiddleFolders; ++b) {
            const std::string middle = top + "/Projekt Übersicht " + std::to_string(b);
            if (!makeFolder(middle) || !fillFolder(middle, random))
                return 1;
            for (int c = 0; c < kLeafFolders; ++c) {
                const std::string leaf = middle + "/Ordner " + std::to_string(c);
                if (!makeFolder(leaf) || !fillFolder(leaf, random))
                    return 1;
            }
        }
    }
    std::printf("generated %d folders, %d files in %s\n",
        kTopFolders * (1 + kMiddleFolders * (1 + kLeafFolders)),
        kTopFolders * (1 + kMiddleFolders * (1 + kLeafFolders)) * kFilesPerFolder, root.c_str());
    return 0;
}

int capture(const std::string &root, const std::string &data, bool prune, const QString &filter)
{
    const auto start = std::chrono::steady_clock::now();
    const CaptureResult result
        = ImageCapture(QString::fromStdString(data))
              .capture(QStringLiteral("d:"), QString::fromStdString(root), 1, filter, prune);
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    if (!result.ok()) {
        std::fprintf(stderr, "%s\n", result.error.toUtf8().constData());
        return 1;
    }
    struct stat image;
    ::stat((data + "/lws/1.dat").c_str(), &image);
    rusage usage {};
    ::getrusage(RUSAGE_SELF, &usage);
    std::printf("seconds %.4f folders %u files %u image_bytes %lld peak_rss_kb %ld\n", seconds,
        result.folders, result.files, static_cast<long long>(image.st_size), usage.ru_maxrss);
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc >= 3 && std::strcmp(argv[1], "generate") == 0)
        return generate(argv[2]);
    if (argc >= 4 && std::strcmp(argv[1], "capture") == 0) {
        bool prune = false;
        QString filter = QStringLiteral("*.*");
        for (int i = 4; i < argc; ++i) {
            if (std::strcmp(argv[i], "--prune") == 0)
                prune = true;
            else if (std::strcmp(argv[i], "--filter") == 0 && i + 1 < argc)
                filter = QString::fromUtf8(argv[++i]);
        }
        return capture(argv[2], argv[3], prune, filter);
    }
    std::fprintf(stderr, "capture_bench generate DIR | capture DIR DATA [--prune] [--filter F]\n");
    return 2;
}

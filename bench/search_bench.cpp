// The file search over all CDs of an archive of 500 CDs whose images hold 5 million lines,
// for a word with hits and for one without, on one worker and on one per core.
//
//   search_bench                   makes the data in a temporary folder and times it
//   search_bench make DATA         makes the data folder DATA (archive "Bench" and images)
//   search_bench run DATA [RUNS]   times the searches over DATA, RUNS runs each (default 9)

#include "SearchBenchData.h"

#include "app/DataPaths.h"
#include "archives/ArchiveStore.h"
#include "search/FileSearch.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <thread>

namespace {

constexpr size_t kCds = 500;
constexpr size_t kLines = 5000000;
const QString kArchive = QStringLiteral("Bench");

bool makeData(const QString &dataFolder)
{
    QDir().mkpath(datapaths::imageFolder(dataFolder));
    QDir().mkpath(datapaths::archiveFolder(dataFolder));
    const QString mdb = datapaths::archiveFile(dataFolder, kArchive);
    QFile::remove(mdb);
    if (const ArchiveError error = ArchiveStore::create(mdb); !error.ok()) {
        std::fprintf(stderr, "%s\n", error.message.toLocal8Bit().constData());
        return false;
    }
    const ArchiveStore store(mdb);
    const std::vector<size_t> counts = searchbench::lineCounts(kCds, kLines, 7);
    std::mt19937 ids(99);
    searchbench::ImageGenerator generator(2003);
    for (size_t i = 0; i < kCds; ++i) {
        CdRow row;
        row.number = static_cast<int32_t>(i + 1);
        row.name = QStringLiteral("CD %1 %2").arg(i + 1).arg(QString::fromLatin1(searchbench::kFolders[i % 20]));
        row.imageId = static_cast<int32_t>(ids() | 1u); // serial numbers, about half of them negative
        row.comments = QStringLiteral("Sta1|End1");
        const std::string image = generator.image(counts[i], static_cast<char>('d' + i % 4));
        QFile file(datapaths::imageFile(dataFolder, row.imageId));
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
            file.write(image.data(), static_cast<qint64>(image.size())) != static_cast<qint64>(image.size())) {
            std::fprintf(stderr, "cannot write %s\n", file.fileName().toLocal8Bit().constData());
            return false;
        }
        if (const ArchiveError error = store.addRow(row); !error.ok()) {
            std::fprintf(stderr, "%s\n", error.message.toLocal8Bit().constData());
            return false;
        }
    }
    return true;
}

struct Timing
{
    double minimum;
    double median;
    size_t hits;
};

Timing measure(const FileSearch &search, const ArchiveStore &store, const QString &word, int runs)
{
    using clock = std::chrono::steady_clock;
    std::vector<double> seconds;
    size_t hits = search.searchArchive(store, word).hits.size(); // warms the page cache
    for (int run = 0; run < runs; ++run) {
        const auto start = clock::now();
        hits = search.searchArchive(store, word).hits.size();
        seconds.push_back(std::chrono::duration<double>(clock::now() - start).count());
    }
    std::sort(seconds.begin(), seconds.end());
    return {seconds.front(), seconds[seconds.size() / 2], hits};
}

int runAll(const QString &dataFolder, int runs)
{
    const ArchiveStore store(datapaths::archiveFile(dataFolder, kArchive));
    qint64 bytes = 0;
    for (const QFileInfo &image : QDir(datapaths::imageFolder(dataFolder)).entryInfoList({QStringLiteral("*.dat")}))
        bytes += image.size();
    const double megabytes = static_cast<double>(bytes) / 1e6;
    std::printf("%zu CDs, %.1f MB of images, %d runs each, warm cache\n", kCds, megabytes, runs);
    const int cores = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    for (const QString &word : {QStringLiteral("haus"), QStringLiteral("zebrafink")}) {
        for (int workers : {1, cores}) {
            const Timing timing = measure(FileSearch(dataFolder, workers), store, word, runs);
            std::printf("%-10s %d worker(s): median %7.1f ms, best %7.1f ms, %8.0f MB/s, %zu hits\n",
                        word.toLatin1().constData(), workers, timing.median * 1e3, timing.minimum * 1e3,
                        megabytes / timing.median, timing.hits);
            if (workers == cores)
                break;
        }
    }
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments().mid(1);
    if (arguments.size() >= 2 && arguments[0] == QLatin1String("make"))
        return makeData(arguments[1]) ? 0 : 1;
    if (arguments.size() >= 2 && arguments[0] == QLatin1String("run"))
        return runAll(arguments[1], arguments.size() > 2 ? arguments[2].toInt() : 9);
    if (!arguments.isEmpty()) {
        std::fprintf(stderr, "search_bench [make DATA | run DATA [RUNS]]\n");
        return 2;
    }
    QTemporaryDir data;
    if (!makeData(data.path()))
        return 1;
    return runAll(data.path(), 9);
}

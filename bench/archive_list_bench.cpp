// Time of a ZIP listing: our walk over the local headers beside the library's streaming ZIP
// reader, which walks the same headers, on a ZIP of many small entries and one of a few
// large ones. With $SILBERBUCH_FIXTURES set it also times the RAR listing of every RAR
// fixture. Prints milliseconds per listing and entries per second.

#include "images/ArchiveListing.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <archive.h>
#include <archive_entry.h>

#include <chrono>
#include <cstdio>
#include <functional>
#include <string>

namespace {

void put16(std::string &out, uint32_t value)
{
    out.push_back(static_cast<char>(value & 0xFF));
    out.push_back(static_cast<char>((value >> 8) & 0xFF));
}

void put32(std::string &out, uint32_t value)
{
    put16(out, value & 0xFFFF);
    put16(out, value >> 16);
}

// Local headers of stored entries, as a packer writes them when it knows the sizes first.
std::string writeZip(const QString &path, int entries, uint32_t dataSize)
{
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    const std::string data(dataSize, 'x');
    for (int i = 0; i < entries; ++i) {
        const std::string name
            = "Bilder/" + std::to_string(2000 + i % 20) + "/urlaub_" + std::to_string(i) + ".jpg";
        std::string header = "PK\x03\x04";
        put16(header, 20); // version needed
        put16(header, 0); // flags
        put16(header, 0); // stored
        put16(header, 0x20A3); // time
        put16(header, 0x2A43); // date
        put32(header, 0); // CRC-32, not checked by either reader when listing
        put32(header, dataSize);
        put32(header, dataSize);
        put16(header, static_cast<uint32_t>(name.size()));
        put16(header, 0);
        header += name;
        file.write(header.data(), static_cast<qint64>(header.size()));
        file.write(data.data(), static_cast<qint64>(data.size()));
    }
    return QFile::encodeName(path).toStdString();
}

size_t libraryListing(const std::string &path)
{
    archive *reader = archive_read_new();
    archive_read_support_format_zip_streamable(reader);
    size_t entries = 0;
    if (archive_read_open_filename(reader, path.c_str(), 64 * 1024) == ARCHIVE_OK) {
        archive_entry *entry = nullptr;
        while (archive_read_next_header(reader, &entry) == ARCHIVE_OK) {
            ++entries;
            archive_read_data_skip(reader);
        }
    }
    archive_read_free(reader);
    return entries;
}

// Milliseconds per run, repeated for at least one second.
double millisecondsPerRun(const std::function<size_t()> &run, size_t &entries)
{
    using clock = std::chrono::steady_clock;
    const auto start = clock::now();
    int runs = 0;
    std::chrono::duration<double> elapsed { 0 };
    while (elapsed.count() < 1.0) {
        entries = run();
        ++runs;
        elapsed = clock::now() - start;
    }
    return elapsed.count() * 1000.0 / runs;
}

void compareZip(const char *what, const std::string &path)
{
    size_t ours = 0;
    size_t theirs = 0;
    const double ourTime = millisecondsPerRun([&] { return listZip(path).rows.size() - 1; }, ours);
    const double theirTime = millisecondsPerRun([&] { return libraryListing(path); }, theirs);
    std::printf("%-28s listZip %8.2f ms (%zu entries, %.1f M entries/s) | streaming reader %8.2f ms (%zu "
                "entries) | ratio %.2f\n",
        what, ourTime, ours, ours / ourTime / 1000.0, theirTime, theirs, theirTime / ourTime);
}

void timeRarFixtures(const QString &folder)
{
    const QStringList names = QDir(folder).entryList({ QStringLiteral("*.rar") }, QDir::Files);
    for (const QString &name : names) {
        const std::string path = QFile::encodeName(QDir(folder).filePath(name)).toStdString();
        size_t rows = 0;
        const double time = millisecondsPerRun([&] { return listRar(path).rows.size(); }, rows);
        std::printf("%-36s listRar %8.3f ms (%zu rows)\n", name.toUtf8().constData(), time, rows);
    }
}

} // namespace

int main()
{
    QTemporaryDir dir;
    compareZip("32767 entries of 100 bytes", writeZip(dir.filePath(QStringLiteral("klein.zip")), 32767, 100));
    compareZip("100 entries of 1 MiB", writeZip(dir.filePath(QStringLiteral("gross.zip")), 100, 1 << 20));
    const QString fixtures = qEnvironmentVariable("SILBERBUCH_FIXTURES");
    if (!fixtures.isEmpty())
        timeRarFixtures(QDir(fixtures).filePath(QStringLiteral("rar")));
    return 0;
}

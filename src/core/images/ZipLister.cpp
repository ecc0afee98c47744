#include "ArchiveListing.h"

#include "BufferedFileReader.h"
#include "DosDate.h"

#include <QFile>

#include <cerrno>
#include <cstring>

namespace {

// The local header after its signature: version, flags, method, time, date, CRC-32,
// compressed and uncompressed size, name length, extra field length.
constexpr size_t kHeaderRest = 26;
constexpr size_t kDateAt = 8;
constexpr size_t kCompressedSizeAt = 14;
constexpr size_t kNameLengthAt = 22;
constexpr size_t kExtraLengthAt = 24;

uint16_t word16(const unsigned char *at)
{
    return static_cast<uint16_t>(at[0] | (at[1] << 8));
}

uint32_t word32(const unsigned char *at)
{
    return static_cast<uint32_t>(at[0]) | (static_cast<uint32_t>(at[1]) << 8)
        | (static_cast<uint32_t>(at[2]) << 16) | (static_cast<uint32_t>(at[3]) << 24);
}

bool atLocalHeader(BufferedFileReader &file)
{
    char signature[4];
    return file.read(signature, sizeof signature) && std::memcmp(signature, "PK\x03\x04", 4) == 0;
}

QString openFailure(const std::string &path, int error)
{
    const QString name = QFile::decodeName(QByteArray::fromStdString(path));
    if (error == ENOENT || error == ENOTDIR)
        return QStringLiteral("Datei nicht gefunden: „%1“").arg(name);
    if (error == EACCES || error == EPERM)
        return QStringLiteral("Zugriff verweigert: Die ZIP-Datei „%1“ kann nicht gelesen werden.").arg(name);
    return QStringLiteral("Fehler beim Zugriff auf Pfad/Datei: Die ZIP-Datei „%1“ kann nicht gelesen werden.")
        .arg(name);
}

QString overflowFailure(const std::string &path)
{
    return QStringLiteral("Überlauf: Die ZIP-Datei „%1“ hat mehr als %2 Einträge.")
        .arg(QFile::decodeName(QByteArray::fromStdString(path)))
        .arg(kMaxZipEntries);
}

} // namespace

ArchiveListing listZip(const std::string &path)
{
    ArchiveListing listing;
    BufferedFileReader file(path);
    if (file.openError() != 0) {
        listing.error = openFailure(path, file.openError());
        return listing;
    }
    unsigned char header[kHeaderRest];
    while (atLocalHeader(file) && file.read(reinterpret_cast<char *>(header), sizeof header)) {
        const uint32_t compressedSize = word32(header + kCompressedSizeAt);
        std::string name(word16(header + kNameLengthAt), '\0');
        if (!file.read(name.data(), name.size()))
            break;
        file.skip(word16(header + kExtraLengthAt));
        // Size 0 marks what holds no data here: folders, empty files, and entries whose
        // sizes follow in a data descriptor. The last of these stops the walk below.
        if (compressedSize != 0) {
            if (static_cast<int>(listing.rows.size()) == kMaxZipEntries) {
                listing.rows.clear();
                listing.error = overflowFailure(path);
                return listing;
            }
            const auto signedSize = static_cast<int32_t>(compressedSize);
            listing.rows.push_back(
                ArchiveEntry { std::move(name), signedSize > 0 ? std::to_string(signedSize) : std::string(),
                    dosDateText(word16(header + kDateAt)) });
        }
        file.skip(compressedSize);
    }
    listing.rows.emplace_back();
    return listing;
}

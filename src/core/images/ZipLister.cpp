#include "ArchiveListing.h"

#include "BufferedFileReader.h"
#include "DosDate.h"

#include "common/Cp1252.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <optional>
#include <string_view>

namespace {

// The local header after its signature: version, flags, method, time, date, CRC-32,
// compressed and uncompressed size, name length, extra field length.
constexpr size_t kHeaderRest = 26;
constexpr size_t kFlagsAt = 2;
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

// General-purpose flag bit 11: the name is UTF-8.
constexpr uint16_t kUtf8Name = 0x0800;
// The extra field that carries a UTF-8 form of the name: version 1, the CRC-32 of the header's
// name, then the name.
constexpr uint16_t kUnicodePathField = 0x7075;

// The UTF-8 name of a Unicode path field in `extra`, if there is one.
std::optional<std::string_view> unicodePath(std::string_view extra)
{
    while (extra.size() >= 4) {
        const auto *at = reinterpret_cast<const unsigned char *>(extra.data());
        const uint16_t id = static_cast<uint16_t>(at[0] | (at[1] << 8));
        const size_t size = static_cast<size_t>(at[2] | (at[3] << 8));
        if (size > extra.size() - 4)
            break;
        const std::string_view data = extra.substr(4, size);
        if (id == kUnicodePathField && data.size() >= 5 && data[0] == 1)
            return data.substr(5);
        extra.remove_prefix(4 + size);
    }
    return std::nullopt;
}

// Names flagged or carried as UTF-8 are converted as file names are; any other name is the
// bytes the packer wrote.
std::string entryName(std::string name, uint16_t flags, std::string_view extra)
{
    if (const std::optional<std::string_view> utf8 = unicodePath(extra))
        return cp1252::fromUtf8(*utf8);
    if (flags & kUtf8Name)
        return cp1252::fromUtf8(name);
    return name;
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
        // A cut extra field counts as none: the entry still lists, as the header says.
        std::string extra(word16(header + kExtraLengthAt), '\0');
        if (!file.read(extra.data(), extra.size()))
            extra.clear();
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
                ArchiveEntry { entryName(std::move(name), word16(header + kFlagsAt), extra), signedSize > 0 ? std::to_string(signedSize) : std::string(),
                    dosDateText(word16(header + kDateAt)) });
        }
        file.skip(compressedSize);
    }
    listing.rows.emplace_back();
    return listing;
}

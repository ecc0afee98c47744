#include "Backup.h"

#include "ArchiveBytes.h"
#include "BackupNames.h"
#include "StagedFiles.h"

#include "app/DataFolder.h"
#include "app/DataPaths.h"
#include "archives/ArchiveStore.h"
#include "archives/JetConversion.h"
#include "common/Cp1252.h"
#include "common/Temporaries.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <vector>

namespace backup {

namespace {

// A length below this is stored in two bytes; this value itself marks four more bytes.
constexpr quint32 kLongForm = 0xFFFF;
constexpr qint64 kCopyBlock = qint64 { 1 } << 20;
// The count is a 16-bit number in the Windows version; more files overflow it.
constexpr qint64 kMostFiles = 32767;
// The least a record takes: two short lengths, empty name and content.
constexpr qint64 kLeastRecord = 4;
// Longer names are no paths the Windows version could have stored.
constexpr qint64 kLongestStoredName = 32767;

struct Packed
{
    QString path; // the file on disk
    QByteArray name; // as stored: code page 1252, "\" between folders
    qint64 size = 0;
};

QByteArray storedName(const QString &path)
{
    QString name = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    name.replace(QLatin1Char('/'), QLatin1Char('\\'));
    return QByteArray::fromStdString(cp1252::fromQString(name));
}

qint64 lengthFieldSize(qint64 length)
{
    return length < kLongForm ? 2 : 6;
}

qint64 recordSize(qint64 nameLength, qint64 contentLength)
{
    return lengthFieldSize(nameLength) + nameLength + lengthFieldSize(contentLength) + contentLength;
}

QByteArray lengthField(qint64 length)
{
    QByteArray field;
    const auto put = [&field](quint32 value, int bytes) {
        for (int i = 0; i < bytes; ++i, value >>= 8)
            field.append(static_cast<char>(value & 0xFF));
    };
    if (length < kLongForm) {
        put(static_cast<quint32>(length), 2);
    } else {
        put(kLongForm, 2);
        put(static_cast<quint32>(length), 4);
    }
    return field;
}

// The database, then each existing image, then each existing cover, in the order of the two
// queries; a file that several rows share is packed once per row.
std::optional<std::vector<Packed>> filesOf(const QString &mdbPath, const QString &dataFolder, QString *error)
{
    std::vector<Packed> files { { mdbPath, storedName(mdbPath), QFileInfo(mdbPath).size() } };
    const ArchiveStore store(mdbPath);
    const auto images = store.selectNumbers(QStringLiteral("Select cd_seriennummer FROM cds WHERE cd_seriennummer<>0"));
    const auto covers = store.selectNumbers(QStringLiteral("Select cd_cover FROM cds WHERE cd_cover<>''"));
    if (!images.ok() || !covers.ok()) {
        *error = images.ok() ? covers.error.message : images.error.message;
        return std::nullopt;
    }
    const auto add = [&](const QString &path) {
        const QFileInfo info(path);
        if (info.isFile())
            files.push_back({ path, storedName(path), info.size() });
    };
    for (const int32_t id : images.value)
        add(datapaths::imageFile(dataFolder, id));
    for (const int32_t cover : covers.value)
        add(datapaths::coverFile(dataFolder, QString::number(cover)));
    return files;
}

QString cannotWrite(const QString &path)
{
    return QStringLiteral("Die Datei \"") + QDir::toNativeSeparators(path)
        + QStringLiteral("\" kann nicht geschrieben werden (Datenträger voll oder schreibgeschützt?).");
}

// Why the file at `path` cannot go into a backup under its name; empty when it can. The
// restore gives back the name behind the last "\" as code page 1252 stores it.
QString unstorableName(const QString &path)
{
    const QString name = QFileInfo(path).fileName();
    const QString missing = cp1252::missingCharacters(name);
    if (!missing.isEmpty())
        return QStringLiteral("Der Dateiname \"") + name
            + QStringLiteral("\" enthält Zeichen, die ein Backup nicht speichern kann (\"") + missing
            + QStringLiteral("\"): Backups speichern Namen in der Zeichentabelle Windows-1252. Es wurde kein "
                             "Backup geschrieben.");
    if (!isPlainFileName(name))
        return QStringLiteral("Der Dateiname \"") + shownName(name)
            + QStringLiteral("\" enthält einen umgekehrten Schrägstrich oder ein Steuerzeichen und kann in einem "
                             "Backup nicht gespeichert werden. Es wurde kein Backup geschrieben.");
    return {};
}

bool writeAll(QIODevice &out, const QByteArray &bytes)
{
    return out.write(bytes) == bytes.size();
}

// Copies `length` bytes from `at` in `in` to `out`, a block at a time.
bool copyRange(QFile &in, qint64 at, qint64 length, QIODevice &out)
{
    if (!in.seek(at))
        return false;
    while (length > 0) {
        const QByteArray block = in.read(std::min(length, kCopyBlock));
        if (block.isEmpty() || !writeAll(out, block))
            return false;
        length -= block.size();
    }
    return true;
}

// Copies exactly `size` bytes of the file at `path` to `out`.
bool copyInto(QIODevice &out, const QString &path, qint64 size)
{
    QFile in(path);
    return in.open(QIODevice::ReadOnly) && in.size() == size && copyRange(in, 0, size, out);
}

// One record as the file holds it: where its name and its content lie.
struct Record
{
    qint64 nameAt = 0;
    qint64 nameLength = 0;
    qint64 contentAt = 0;
    qint64 contentLength = 0;
    qint64 end = 0;
};

// Reads a record's header at `at`; nothing when a length runs past `limit`.
std::optional<Record> recordAt(QFile &file, qint64 at, qint64 limit)
{
    const auto length = [&](qint64 &position) -> std::optional<qint64> {
        if (position + 2 > limit || !file.seek(position))
            return std::nullopt;
        const QByteArray two = file.read(2);
        if (two.size() != 2)
            return std::nullopt;
        quint32 value = static_cast<quint8>(two[0]) | (static_cast<quint32>(static_cast<quint8>(two[1])) << 8);
        position += 2;
        if (value == kLongForm) {
            const QByteArray four = file.read(4);
            if (position + 4 > limit || four.size() != 4)
                return std::nullopt;
            value = 0;
            for (int i = 3; i >= 0; --i)
                value = (value << 8) | static_cast<quint8>(four[i]);
            position += 4;
        }
        return static_cast<qint64>(value);
    };
    Record record;
    qint64 position = at;
    const std::optional<qint64> nameLength = length(position);
    if (!nameLength || position + *nameLength > limit)
        return std::nullopt;
    record.nameAt = position;
    record.nameLength = *nameLength;
    position += *nameLength;
    const std::optional<qint64> contentLength = length(position);
    if (!contentLength || position + *contentLength > limit)
        return std::nullopt;
    record.contentAt = position;
    record.contentLength = *contentLength;
    record.end = position + *contentLength;
    return record;
}

QByteArray bytesAt(QFile &file, qint64 at, qint64 length)
{
    return file.seek(at) ? file.read(length) : QByteArray();
}

const QString kNothingRestored = QStringLiteral(" Es wurde nichts wiederhergestellt.");

QString notABackup(const QString &file)
{
    return QStringLiteral("Die Datei \"") + QDir::toNativeSeparators(file)
        + QStringLiteral("\" ist kein vollständiges Backup.") + kNothingRestored;
}

QString notAnArchive(const QString &storedName)
{
    return QStringLiteral("Die Datei \"") + shownName(storedName) + QStringLiteral("\" im Backup ist kein Archiv.")
        + kNothingRestored;
}

// Where a packed file goes, by the last four characters of its leaf name; empty for none.
QString targetOf(const QString &leaf, const QString &dataFolder)
{
    const QString ending = leaf.right(4);
    if (ending == QLatin1String(".mdb"))
        return datapaths::archiveFolder(dataFolder) + leaf;
    if (ending == QLatin1String(".dat"))
        return datapaths::imageFolder(dataFolder) + leaf;
    if (ending == QLatin1String(".bmp"))
        return datapaths::coverFolder(dataFolder) + leaf;
    return {};
}

// A packed file that the restore writes.
struct Entry
{
    Record record;
    QString storedName;
    QString target;
    archivebytes::Kind archive = archivebytes::Kind::None; // for an archive database
};

struct Contents
{
    std::vector<Entry> entries;
    QString error;
};

// The count text, trimmed, as a number.
std::optional<qint64> countOf(QFile &in, const Record &count)
{
    bool number = false;
    const qint64 value
        = bytesAt(in, count.contentAt, std::min<qint64>(count.contentLength, 64)).trimmed().toLongLong(&number);
    return number ? std::optional(value) : std::nullopt;
}

// Reads the whole file and checks it: the two outer records, the counted inner records (what
// follows either is the tail of an older, longer file and is ignored), every name a plain file
// name, every packed archive database one, and at least one of them.
Contents contentsOf(QFile &in, const QString &file, const QString &dataFolder)
{
    Contents contents;
    const qint64 size = in.size();
    const std::optional<Record> count = recordAt(in, 0, size);
    const std::optional<Record> stream = count ? recordAt(in, count->end, size) : std::nullopt;
    const std::optional<qint64> records = count ? countOf(in, *count) : std::nullopt;
    // Checked before a record is read, so that a wild count costs nothing.
    if (!stream || !records || *records < 1 || *records > kMostFiles
        || *records > stream->contentLength / kLeastRecord) {
        contents.error = notABackup(file);
        return contents;
    }
    bool anArchive = false;
    qint64 at = stream->contentAt;
    for (qint64 i = 0; i < *records; ++i) {
        const std::optional<Record> record = recordAt(in, at, stream->end);
        if (!record) {
            contents.error = notABackup(file);
            return contents;
        }
        at = record->end;
        const qint64 nameLength = std::min(record->nameLength, kLongestStoredName + 1);
        const QByteArray bytes = bytesAt(in, record->nameAt, nameLength);
        const QString name = cp1252::toQString(std::string_view(bytes.constData(), bytes.size()));
        if (nameLength > kLongestStoredName || !isPlainFileName(leafName(name))) {
            contents.error = QStringLiteral("Das Backup enthält den ungültigen Dateinamen \"") + shownName(name)
                + QStringLiteral("\".") + kNothingRestored;
            return contents;
        }
        Entry entry { *record, name, targetOf(leafName(name), dataFolder) };
        if (entry.target.isEmpty())
            continue;
        if (entry.target.endsWith(QLatin1String(".mdb"))) {
            entry.archive = archivebytes::kindOf(
                bytesAt(in, record->contentAt, std::min(record->contentLength, archivebytes::kHeadSize)));
            if (entry.archive == archivebytes::Kind::None) {
                contents.error = notAnArchive(name);
                return contents;
            }
            anArchive = true;
        }
        contents.entries.push_back(entry);
    }
    if (!anArchive)
        contents.error = QStringLiteral("Das Backup \"") + QDir::toNativeSeparators(file)
            + QStringLiteral("\" enthält kein Archiv.") + kNothingRestored;
    return contents;
}

} // namespace

QString leafName(const QString &path)
{
    return path.mid(path.lastIndexOf(QLatin1Char('\\')) + 1);
}

QString replaceQuestion(const QString &archiveName)
{
    return QStringLiteral("Das Archiv ") + archiveName
        + QStringLiteral(" ist bereits vorhanden. Wollen Sie es durch das Archiv aus dem Backup ersetzen?");
}

QString write(const QString &mdbPath, const QString &dataFolder, const QString &target, bool replace,
    const std::function<void(int done, int total)> &progress)
{
    if (QFileInfo::exists(target) && !replace)
        return QStringLiteral("Die Datei \"") + QDir::toNativeSeparators(target)
            + QStringLiteral("\" ist bereits vorhanden. Mit --replace wird sie ersetzt.");
    QString error;
    const std::optional<std::vector<Packed>> files = filesOf(mdbPath, dataFolder, &error);
    if (!files)
        return error;
    if (static_cast<qint64>(files->size()) > kMostFiles)
        return QStringLiteral("Überlauf: Das Archiv hat mehr als 32767 Dateien für das Backup.");
    for (const Packed &file : *files)
        if (const QString refusal = unstorableName(file.path); !refusal.isEmpty())
            return refusal;

    qint64 innerSize = 0;
    for (const Packed &file : *files)
        innerSize += recordSize(file.name.size(), file.size);
    const QByteArray countName = storedName(programFolder() + QStringLiteral("/TmpC.txt"));
    const QByteArray countText = ' ' + QByteArray::number(static_cast<qulonglong>(files->size())) + " \r\n";
    const QByteArray innerName = storedName(target + QLatin1Char('2'));

    temporaries::AtomicFile out(target);
    bool ok = out.open()
        && writeAll(out, lengthField(countName.size()) + countName + lengthField(countText.size()) + countText)
        && writeAll(out, lengthField(innerName.size()) + innerName + lengthField(innerSize));
    int done = 0;
    for (const Packed &file : *files) {
        if (!ok)
            break;
        ok = writeAll(out, lengthField(file.name.size()) + file.name + lengthField(file.size));
        if (ok && !copyInto(out, file.path, file.size)) {
            ok = false;
            if (out.error() == 0)
                error = QStringLiteral("Die Datei \"") + QDir::toNativeSeparators(file.path)
                    + QStringLiteral("\" kann nicht gelesen werden oder hat sich während des Backups geändert.");
        }
        if (progress)
            progress(++done, static_cast<int>(files->size()));
    }
    if (ok && out.commit())
        return {};
    return error.isEmpty() ? cannotWrite(target) : error;
}

RestoreResult restore(const QString &file, const QString &dataFolder,
    const std::function<bool(const QString &archiveName)> &mayReplace)
{
    RestoreResult result;
    QFile in(file);
    if (!in.open(QIODevice::ReadOnly)) {
        result.error = QStringLiteral("Die Datei \"") + QDir::toNativeSeparators(file)
            + QStringLiteral("\" kann nicht gelesen werden.");
        return result;
    }
    // Everything is checked before anything is written.
    const Contents contents = contentsOf(in, file, dataFolder);
    if (!contents.error.isEmpty()) {
        result.error = contents.error;
        return result;
    }
    for (const Entry &entry : contents.entries)
        if (entry.archive != archivebytes::Kind::None && QFileInfo::exists(entry.target)
            && !mayReplace(QFileInfo(entry.target).completeBaseName())) {
            result.error = QStringLiteral("Das Archiv ") + QFileInfo(entry.target).completeBaseName()
                + QStringLiteral(" ist bereits vorhanden.") + kNothingRestored;
            return result;
        }

    // All files are written aside first and take their places together, so that a failure
    // leaves the data folder as it was.
    StagedFiles staged(QStringLiteral(".restore-"));
    for (const Entry &entry : contents.entries) {
        if (!staged.stage(entry.target, [&](QFile &out) {
                return copyRange(in, entry.record.contentAt, entry.record.contentLength, out);
            })) {
            result.error = cannotWrite(staged.failedTarget()) + kNothingRestored;
            return result;
        }
        if (entry.archive == archivebytes::Kind::Ours && !archivebytes::hasCdsTable(staged.lastStaged())) {
            result.error = notAnArchive(entry.storedName);
            return result;
        }
    }
    if (!staged.commit()) {
        result.error = cannotWrite(staged.failedTarget()) + kNothingRestored;
        return result;
    }
    for (const Entry &entry : contents.entries) {
        result.written << entry.target;
        if (entry.archive == archivebytes::Kind::Jet) {
            const JetConversion conversion = convertIfJet(entry.target);
            if (!conversion.ok())
                result.notices << conversion.error.message;
            else if (conversion.converted)
                result.notices << conversion.notice;
        }
    }
    return result;
}

} // namespace backup

#include "CliCommand.h"
#include "CliData.h"
#include "CliOptions.h"

#include "app/DataFolder.h"
#include "app/DataPaths.h"
#include "common/Cp1252.h"
#include "images/ImageIndex.h"

#include <algorithm>
#include <vector>

namespace {

const char *const kUsage = "image show ID [--folder ORDNER]";

const QString kFolder = QStringLiteral("--folder");

// The folder tree, two blanks of indent per level, in the order of the image.
void printTree(const ImageIndex &index)
{
    const std::vector<ImageIndex::Folder> &folders = index.folders();
    std::vector<int> depth(folders.size(), 0);
    for (size_t i = 0; i < folders.size(); ++i) {
        const int32_t parent = folders[i].parent;
        if (parent >= 0)
            depth[i] = depth[static_cast<size_t>(parent)] + 1;
        printLine(QString(depth[i] * 2, QLatin1Char(' ')) + cp1252::toQString(folders[i].text));
    }
}

// The files of one folder as the file list shows them: name, size, date, tab-separated.
void printFolder(const ImageIndex &index, std::string_view key)
{
    const QChar tab = QLatin1Char('\t');
    for (const ImageIndex::Row &row : index.listFolder(key, ImageIndex::Icons::None).rows)
        printLine(cp1252::toQString(row.name) + tab + cp1252::toQString(row.size) + tab
            + cp1252::toQString(row.date));
}

int image(CliContext &context)
{
    const CliOptions options(context.words, { kFolder });
    const QStringList &words = options.plainWords();
    if (!options.ok() || words.size() != 2 || words.first() != QLatin1String("show"))
        return usageError(kUsage);
    const std::optional<int32_t> parsedId = wholeNumber(words[1]);
    if (!parsedId)
        return refuse(imageIdNotWholeMessage());
    const int32_t id = *parsedId;

    CliData data(context);
    if (!data.ok())
        return refuse(data.problem());
    const QString path = datapaths::imageFile(data.dataFolder(), id);
    if (!fileExists(path))
        return refuse(QStringLiteral("Das Laufwerksabbild %1 existiert nicht.").arg(id));
    const std::shared_ptr<const ImageIndex> index = ImageIndex::load(path);
    if (!index->isLoaded())
        return refuse(QStringLiteral("Das Laufwerksabbild %1 kann nicht gelesen werden.").arg(id));

    if (!options.has(kFolder)) {
        printTree(*index);
        return ExitOk;
    }
    // Folder names cannot hold "/", so it may stand for the image's "\".
    QString folder = options.value(kFolder);
    folder.replace(QLatin1Char('/'), QLatin1Char('\\'));
    const std::string key = cp1252::fromQString(folder);
    const auto &folders = index->folders();
    if (std::none_of(
            folders.begin(), folders.end(), [&](const ImageIndex::Folder &f) { return f.key == key; }))
        return refuse(
            QStringLiteral("Der Ordner \"%1\" ist im Abbild %2 nicht enthalten.").arg(folder).arg(id));
    printFolder(*index, key);
    return ExitOk;
}

const CliCommand registration(
    "image", kUsage, &image,
    "Zeigt ein Laufwerksabbild: die Ordner oder die Dateien eines Ordners.");

} // namespace

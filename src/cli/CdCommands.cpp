#include "CliCommand.h"
#include "CliData.h"
#include "CliOptions.h"

#include "archives/ArchiveStore.h"
#include "archives/CdList.h"
#include "records/CdSaver.h"
#include "records/CommentCodec.h"
#include "records/CoverImage.h"
#include "records/CoverStore.h"

#include <optional>

namespace {

const char *const kUsage
    = "cd list [--alpha]\n"
      "  cd add --number N --title TITEL [--comment KOMMENTAR]... [--image ID] [--cover DATEI]\n"
      "  cd edit N [--number M] [--title TITEL] [--comment KOMMENTAR]... [--image ID] "
      "[--cover DATEI]\n"
      "  cd show N\n"
      "  cd delete N";

const QString kNumber = QStringLiteral("--number");
const QString kTitle = QStringLiteral("--title");
const QString kComment = QStringLiteral("--comment");
const QString kImage = QStringLiteral("--image");
const QString kCover = QStringLiteral("--cover");
const QStringList kEditorOptions = { kNumber, kTitle, kComment, kImage, kCover };

// The archive of the call, or the reason why there is none.
struct Target
{
    std::optional<ArchiveStore> store;
    QString dataFolder;
    QString problem;
};

Target targetOf(const CliContext &context)
{
    CliData data(context);
    if (!data.ok())
        return { std::nullopt, {}, data.problem() };
    QString problem;
    const QString path = data.archivePath(&problem);
    if (path.isEmpty())
        return { std::nullopt, {}, problem };
    return { ArchiveStore(path), data.dataFolder(), {} };
}

// The CD a verb names, read from the call's archive, or the exit code of the refusal.
struct NamedCd
{
    Target target;
    CdRow row;
    int refusal = ExitOk;
};

NamedCd readNamedCd(const CliContext &context, int32_t number)
{
    NamedCd named{ targetOf(context), {}, ExitOk };
    if (!named.target.store) {
        named.refusal = refuse(named.target.problem);
        return named;
    }
    auto found = named.target.store->selectByNumber(number);
    if (!found.ok())
        named.refusal = refuse(found.error.message);
    else
        named.row = std::move(found.value);
    return named;
}

// Applies --image and --cover to a draft; the German reason when one of them is refused.
QString applyImageAndCover(const CliOptions &options, CdDraft &draft)
{
    if (options.has(kImage)) {
        const std::optional<int32_t> id = wholeNumber(options.value(kImage));
        if (!id)
            return imageIdNotWholeMessage();
        draft.imageId = *id;
    }
    if (options.has(kCover)) {
        const coverimage::Loaded loaded = coverimage::loadPicture(options.value(kCover));
        if (!loaded.error.isEmpty())
            return loaded.error;
        draft.cover = coverimage::fitCover(loaded.picture);
    }
    return {};
}

int report(const CdSaver::Outcome &outcome)
{
    if (!outcome.saved)
        return refuse(outcome.message);
    printLine(outcome.message);
    return ExitOk;
}

int listCds(CliContext &context)
{
    const CliOptions options(context.words.mid(1), {}, { QStringLiteral("--alpha") });
    if (!options.ok() || !options.plainWords().isEmpty())
        return usageError(kUsage);
    const Target target = targetOf(context);
    if (!target.store)
        return refuse(target.problem);
    const auto rows = target.store->selectAll();
    if (!rows.ok())
        return refuse(rows.error.message);
    cdlist::Fill fill = cdlist::entriesOf(rows.value);
    if (options.has(QStringLiteral("--alpha"))) {
        bool listSorted = false;
        cdlist::sortByTitle(fill.entries, listSorted);
    }
    for (const QString &entry : fill.entries)
        printLine(entry);
    return fill.error.isEmpty() ? ExitOk : refuse(fill.error);
}

int addCd(CliContext &context)
{
    const CliOptions options(context.words.mid(1), kEditorOptions);
    if (!options.ok() || !options.plainWords().isEmpty() || !options.has(kNumber) || !options.has(kTitle))
        return usageError(kUsage);
    CdDraft draft;
    draft.numberText = options.value(kNumber);
    draft.title = options.value(kTitle);
    draft.comments = options.values(kComment);
    if (const QString refused = applyImageAndCover(options, draft); !refused.isEmpty())
        return refuse(refused);
    const Target target = targetOf(context);
    if (!target.store)
        return refuse(target.problem);
    const CoverStore covers(target.dataFolder);
    return report(CdSaver(*target.store, covers).saveNewCd(draft));
}

int editCd(CliContext &context)
{
    const CliOptions options(context.words.mid(1), kEditorOptions);
    const std::optional<int32_t> number = wholeNumber(options.plainWords().value(0));
    if (!options.ok() || options.plainWords().size() != 1 || !number)
        return usageError(kUsage);
    const NamedCd named = readNamedCd(context, *number);
    if (named.refusal != ExitOk)
        return named.refusal;
    const CdRow &row = named.row;
    const CoverStore covers(named.target.dataFolder);

    // Options not given keep the row's values, as the editor shows them.
    CdDraft draft;
    draft.numberText = options.has(kNumber) ? options.value(kNumber) : QString::number(row.number);
    draft.title = options.has(kTitle) ? options.value(kTitle) : row.name;
    draft.comments = options.has(kComment) ? options.values(kComment) : commentcodec::decode(row.comments);
    draft.imageId = row.imageId;
    if (!row.cover.isEmpty() && row.cover != QLatin1String("0")) {
        // The editor holds the stored picture and saves it anew; a lost file keeps its number.
        draft.cover = covers.load(row.cover);
        if (draft.cover.isNull())
            draft.keptCover = row.cover;
    }
    if (const QString refused = applyImageAndCover(options, draft); !refused.isEmpty())
        return refuse(refused);
    return report(CdSaver(*named.target.store, covers).saveChangedCd(row.number, draft));
}

int showCd(CliContext &context)
{
    const std::optional<int32_t> number = wholeNumber(context.words.value(1));
    if (context.words.size() != 2 || !number)
        return usageError(kUsage);
    const NamedCd named = readNamedCd(context, *number);
    if (named.refusal != ExitOk)
        return named.refusal;
    const CdRow &row = named.row;
    printLine(QStringLiteral("Nummer: ") + QString::number(row.number));
    printLine(QStringLiteral("Titel: ") + row.name);
    printLine(QStringLiteral("Abbild-ID: ") + QString::number(row.imageId));
    for (const QString &comment : commentcodec::decode(row.comments))
        printLine(QStringLiteral("Kommentar: ") + comment);
    printLine(QStringLiteral("Cover: ") + row.cover);
    return ExitOk;
}

int deleteCd(CliContext &context)
{
    const std::optional<int32_t> number = wholeNumber(context.words.value(1));
    if (context.words.size() != 2 || !number)
        return usageError(kUsage);
    if (*number < 0)
        return refuse(cdlist::noCdSelectedMessage());
    const Target target = targetOf(context);
    if (!target.store)
        return refuse(target.problem);
    const ArchiveError error = target.store->deleteRow(*number);
    if (!error.ok())
        return refuse(error.message);
    printLine(cdlist::deletedMessage());
    return ExitOk;
}

int cd(CliContext &context)
{
    const QString action = context.words.value(0);
    if (action == QLatin1String("list"))
        return listCds(context);
    if (action == QLatin1String("add"))
        return addCd(context);
    if (action == QLatin1String("edit"))
        return editCd(context);
    if (action == QLatin1String("show"))
        return showCd(context);
    if (action == QLatin1String("delete"))
        return deleteCd(context);
    return usageError(kUsage);
}

const CliCommand registration(
    "cd", kUsage, &cd,
    "CDs des Archivs auflisten, anlegen, ändern, zeigen und löschen.");

} // namespace

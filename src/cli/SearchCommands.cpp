#include "CliCommand.h"
#include "CliData.h"
#include "CliOptions.h"
#include "FileSearchCall.h"

#include "archives/ArchiveStore.h"
#include "common/Cp1252.h"
#include "search/CommentSearch.h"
#include "search/FileSearch.h"
#include "search/ResultsFile.h"

#include <QDateTime>

#include <algorithm>
#include <cstdio>
#include <optional>

namespace {

const char *const kUsage = "search WORT [--cd N] [--exact] [--save DATEI]\n"
                           "  search WORT --comments [--cd N] [--exact]";

const QString kCd = QStringLiteral("--cd");
const QString kExact = QStringLiteral("--exact");
const QString kComments = QStringLiteral("--comments");
const QString kSave = QStringLiteral("--save");

// The hit entries in UTF-8, one a line, written at once: a search may hit millions of lines.
// Most entries are plain ASCII, which is UTF-8 already.
void printHits(const HitList &hits)
{
    std::string out;
    for (const std::string_view hit : hits) {
        const bool ascii = std::all_of(hit.begin(), hit.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
        if (ascii)
            out += hit;
        else
            out += cp1252::toUtf8(hit);
        out += '\n';
    }
    std::fwrite(out.data(), 1, out.size(), stdout);
}

int runCommentSearch(const ArchiveStore &store, const QString &word, std::optional<int> cd, bool exact)
{
    const CommentSearchResult result = searchComments(store, word, cd, exact);
    if (result.outcome != CommentSearchOutcome::Found)
        return refuse(result.message);
    for (const QString &number : result.foundCdNumbers)
        printLine(number);
    return ExitOk;
}

int runFileSearch(const ArchiveStore &store, const QString &dataFolder, const QString &word, std::optional<int> cd,
                bool exact, const QString &saveTo)
{
    QString refusal;
    const FileSearchResult result = searchFiles(store, dataFolder, word, cd, exact, &refusal);
    if (!refusal.isEmpty())
        return refuse(refusal);
    if (result.outcome != FileSearchOutcome::Hits)
        return refuse(result.message);
    printHits(result.hits);
    if (saveTo.isEmpty())
        return ExitOk;
    const auto failure = ResultsFile::save(saveTo, word, result.hits.entries(), QDateTime::currentDateTime());
    if (failure)
        return refuse(failure->message());
    return ExitOk;
}

int search(CliContext &context)
{
    const CliOptions options(context.words, {kCd, kSave}, {kExact, kComments});
    if (!options.ok() || options.plainWords().size() != 1 || (options.has(kComments) && options.has(kSave)))
        return usageError(kUsage);
    std::optional<int> cd;
    if (options.has(kCd)) {
        cd = wholeNumber(options.value(kCd));
        if (!cd)
            return refuse(cdNumberNotWholeMessage());
    }
    const CliData data(context);
    const QString archive = data.archiveOrRefuse();
    if (archive.isEmpty())
        return ExitRefused;
    const ArchiveStore store(archive);
    const QString &word = options.plainWords().first();
    if (options.has(kComments))
        return runCommentSearch(store, word, cd, options.has(kExact));
    return runFileSearch(store, data.dataFolder(), word, cd, options.has(kExact), options.value(kSave));
}

const CliCommand registration(
    "search", kUsage, &search,
    "Sucht Dateien in den Laufwerksabbildern oder mit --comments CDs nach Kommentaren; --save speichert die Treffer.");

} // namespace

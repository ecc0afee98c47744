#include "FileSearchCall.h"

#include "archives/ArchiveStore.h"

FileSearchResult searchFiles(const ArchiveStore &store, const QString &dataFolder, const QString &word,
    std::optional<int> cd, bool exact, QString *refusal)
{
    const FileSearch search(dataFolder);
    if (!cd)
        return search.searchArchive(store, word);
    const StoreResult<CdRow> row = store.selectByNumber(*cd);
    if (!row.ok()) {
        *refusal = row.error.message;
        return {};
    }
    return search.searchOneCd({ row.value.number, row.value.name, row.value.imageId }, word, exact);
}

#include "CommentSearch.h"

#include "CommentQuery.h"
#include "SearchMessages.h"

#include "archives/ArchiveStore.h"

CommentSearchResult searchComments(const ArchiveStore &store, const QString &word, std::optional<int> currentCd,
                                   bool explicitMatch)
{
    CommentSearchResult result;
    if (word.isEmpty()) {
        result.outcome = CommentSearchOutcome::EmptyWord;
        result.message = searchmessages::emptyWord();
        return result;
    }
    const CommentQuery query = commentQuery(word, currentCd, explicitMatch);
    const StoreResult<std::vector<int32_t>> numbers = store.selectNumbers(query.boundText, query.binds);
    if (!numbers.ok()) {
        result.outcome = CommentSearchOutcome::Failed;
        result.message = numbers.error.message;
        return result;
    }
    for (int32_t number : numbers.value)
        result.foundCdNumbers.push_back(QString::number(number));
    if (result.foundCdNumbers.empty()) {
        result.outcome = CommentSearchOutcome::NoMatch;
        result.message = searchmessages::noMatchingCd();
        return result;
    }
    result.outcome = CommentSearchOutcome::Found;
    return result;
}

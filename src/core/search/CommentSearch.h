#pragma once

#include <QString>

#include <optional>
#include <vector>

class ArchiveStore;

// How a comment search ended. Found: the navigator opens over `foundCdNumbers`. EmptyWord
// (no icon) and NoMatch (stop icon) show `message`; Failed shows `message` as a critical one.
enum class CommentSearchOutcome { Found, EmptyWord, NoMatch, Failed };

struct CommentSearchResult
{
    CommentSearchOutcome outcome = CommentSearchOutcome::NoMatch;
    // The numbers of the CDs whose comments hold the word, as texts, in ascending order. Every
    // search but a refused empty word replaces the session's found numbers with these.
    std::vector<QString> foundCdNumbers;
    QString message;
};

// Searches the comments of the archive's CDs for `word` (wildcards act, case is ignored).
// `currentCd` set: only that CD; `explicitMatch`: the word must be one whole comment item.
CommentSearchResult searchComments(const ArchiveStore &store, const QString &word, std::optional<int> currentCd,
                                   bool explicitMatch);

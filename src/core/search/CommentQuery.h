#pragma once

#include <QString>
#include <QVariantList>

#include <optional>

// The query of the comment search. `text` is the query as the catalogue words it, the word
// inside quotes exactly as typed; `boundText` is the same query with "?" in place of the
// quoted pattern, which travels in `binds`, so that an apostrophe in the word is searched for.
struct CommentQuery
{
    QString text;
    QString boundText;
    QVariantList binds;
};

// `currentCd` set: only that CD ("der aktuell geöffneten CD"); `explicitMatch`: the word must
// be one whole comment item, between "|" on both sides.
CommentQuery commentQuery(const QString &word, std::optional<int> currentCd, bool explicitMatch);

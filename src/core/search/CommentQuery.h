#pragma once

#include <QString>
#include <QVariantList>

#include <optional>

// The query of the comment search: `boundText` has "?" in place of the pattern, which
// travels in `binds`, so that an apostrophe in the word is searched for.
struct CommentQuery
{
    QString boundText;
    QVariantList binds;
};

// `currentCd` set: only that CD ("der aktuell geöffneten CD"); `explicitMatch`: the word must
// be one whole comment item, between "|" on both sides.
CommentQuery commentQuery(const QString &word, std::optional<int> currentCd, bool explicitMatch);

#include "CommentQuery.h"

namespace {

// The pieces around the pattern, in their order; `pattern` is either the quoted pattern or "?".
QString assemble(const QString &pattern, std::optional<int> currentCd)
{
    QString query = QStringLiteral("SELECT cd_nummer FROM cds ");
    if (currentCd)
        query += QStringLiteral("WHERE cd_nummer=") + QString::number(*currentCd) + QStringLiteral(" AND ");
    else
        query += QStringLiteral("WHERE ");
    query += QStringLiteral("cd_inhalt LIKE ");
    query += pattern;
    query += QStringLiteral(" ORDER BY cd_nummer");
    return query;
}

} // namespace

CommentQuery commentQuery(const QString &word, std::optional<int> currentCd, bool explicitMatch)
{
    const QString opening = explicitMatch ? QStringLiteral("*|") : QStringLiteral("*");
    const QString closing = explicitMatch ? QStringLiteral("|*") : QStringLiteral("*");
    const QString pattern = opening + word + closing;
    CommentQuery query;
    query.text = assemble(QStringLiteral("'") + pattern + QStringLiteral("'"), currentCd);
    query.boundText = assemble(QStringLiteral("?"), currentCd);
    query.binds = {pattern};
    return query;
}

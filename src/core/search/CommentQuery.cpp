#include "CommentQuery.h"

namespace {

// The query around the pattern, which travels as the one bound value.
QString assemble(std::optional<int> currentCd)
{
    QString query = QStringLiteral("SELECT cd_nummer FROM cds ");
    if (currentCd)
        query += QStringLiteral("WHERE cd_nummer=") + QString::number(*currentCd) + QStringLiteral(" AND ");
    else
        query += QStringLiteral("WHERE ");
    query += QStringLiteral("cd_inhalt LIKE ? ORDER BY cd_nummer");
    return query;
}

} // namespace

CommentQuery commentQuery(const QString &word, std::optional<int> currentCd, bool explicitMatch)
{
    const QString opening = explicitMatch ? QStringLiteral("*|") : QStringLiteral("*");
    const QString closing = explicitMatch ? QStringLiteral("|*") : QStringLiteral("*");
    const QString pattern = opening + word + closing;
    CommentQuery query;
    query.boundText = assemble(currentCd);
    query.binds = {pattern};
    return query;
}

#pragma once

#include "ArchiveError.h"
#include "common/LikePattern.h"

#include <QString>
#include <QVariantList>

#include <functional>

struct sqlite3;
struct sqlite3_stmt;

// One archive database, open for the length of one operation: the constructor opens it,
// the destructor closes it, so nothing stays open between two user actions. Failures of
// the engine come back as German messages.
class ArchiveConnection
{
public:
    enum class Mode { Existing, Create };

    // Existing: the file must be there. Create: the file must not be there yet.
    ArchiveConnection(const QString &path, Mode mode);
    ~ArchiveConnection();
    ArchiveConnection(const ArchiveConnection &) = delete;
    ArchiveConnection &operator=(const ArchiveConnection &) = delete;

    const ArchiveError &openError() const { return m_openError; }

    using RowReader = std::function<void(sqlite3_stmt *)>;
    // Runs one statement with its parameters bound in order; readRow sees each result row.
    ArchiveError run(const QString &sql, const QVariantList &binds = {}, const RowReader &readRow = {});
    // Runs write in one transaction, committed only when it succeeds.
    ArchiveError transaction(const std::function<ArchiveError()> &write);
    // Rows changed by the last statement.
    int changes() const;

private:
    ArchiveError failure(int code) const;
    ArchiveError fileMissing() const;

    QString m_path;
    sqlite3 *m_db = nullptr;
    ArchiveError m_openError;
    LikePattern::Error m_patternError = LikePattern::Error::None;
};

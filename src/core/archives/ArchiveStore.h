#pragma once

#include "ArchiveError.h"
#include "CdRow.h"

#include <QString>
#include <QVariantList>

#include <cstdint>
#include <vector>

// One archive: a database file <data>/archive/<name>.mdb with the table cds. Every call
// opens the file, does its work and closes it again; writes run in one transaction, so a
// failure leaves the archive as it was. Nothing is thrown: each result carries its error.
class ArchiveStore
{
public:
    explicit ArchiveStore(const QString &mdbPath);

    // Whether cd_name takes at most 50 characters. Archives imported from old text databases
    // have no such limit, so that their titles come over whole.
    enum class TitleLimit { Fifty, None };

    // Creates the file with an empty table cds. Fails when the file exists.
    static ArchiveError create(const QString &mdbPath, TitleLimit limit = TitleLimit::Fifty);

    const QString &path() const { return m_path; }

    // "Select * FROM cds": every row, in cd_nummer order.
    StoreResult<std::vector<CdRow>> selectAll() const;
    // The row of one number; NotFound when there is none.
    StoreResult<CdRow> selectByNumber(int32_t number) const;
    // The rows that have a drive image, in cd_nummer order.
    StoreResult<std::vector<CdRow>> selectWithImage() const;
    // Runs a query text whose first column is cd_nummer, with "?" parameters bound in order,
    // and returns that column. LIKE in the text follows the catalogue's pattern rule.
    StoreResult<std::vector<int32_t>> selectNumbers(
        const QString &queryText, const QVariantList &binds = {}) const;

    // DuplicateNumber when the number is taken, TitleTooLong over 50 characters.
    ArchiveError addRow(const CdRow &row) const;
    // Adds the rows in one transaction: all of them or, on a failure, none.
    ArchiveError addRows(const std::vector<CdRow> &rows) const;
    // Replaces the row of oldNumber, its number included; NotFound when it is gone.
    ArchiveError updateRow(int32_t oldNumber, const CdRow &row) const;
    ArchiveError deleteRow(int32_t number) const;
    ArchiveError setImageId(int32_t number, int32_t imageId) const;

private:
    StoreResult<std::vector<CdRow>> selectRows(const QString &queryText) const;
    ArchiveError write(const QString &statement, const QVariantList &binds, int32_t number) const;

    QString m_path;
};

#pragma once

#include "app/DataPaths.h"
#include "archives/ArchiveStore.h"

#include <QDir>

#include <gtest/gtest.h>

// Builds an archive in a data folder row by row, through the real store. Header only, so
// that only the tests that link the archive store need it.
class ArchiveBuilder
{
public:
    ArchiveBuilder(const QString &dataFolder, const QString &name)
        : m_store(datapaths::archiveFile(dataFolder, name))
    {
        QDir().mkpath(datapaths::archiveFolder(dataFolder));
        const ArchiveError error = ArchiveStore::create(m_store.path());
        EXPECT_TRUE(error.ok()) << error.message.toStdString();
    }

    ArchiveBuilder &row(const CdRow &row)
    {
        const ArchiveError error = m_store.addRow(row);
        EXPECT_TRUE(error.ok()) << error.message.toStdString();
        return *this;
    }

    ArchiveBuilder &cd(int32_t number, const QString &name,
        const QString &comments = QStringLiteral("Sta1|End1"), int32_t imageId = 0,
        const QString &cover = QStringLiteral("0"))
    {
        return row(CdRow { number, name, imageId, comments, false, cover });
    }

    const ArchiveStore &store() const { return m_store; }
    const QString &path() const { return m_store.path(); }

private:
    ArchiveStore m_store;
};

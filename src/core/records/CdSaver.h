#pragma once

#include "CdDraft.h"
#include "CoverStore.h"
#include "archives/ArchiveStore.h"

#include <QString>

#include <cstdint>
#include <optional>

// Saving a CD from either dialog: the number checks, the comment text, the cover file and
// the row, in that order. A refused save changes nothing, on disk or in the archive.
class CdSaver
{
public:
    struct Outcome
    {
        bool saved = false;
        QString message; // German: the confirmation, or why nothing was saved
    };

    CdSaver(const ArchiveStore &store, const CoverStore &covers);

    // A new row.
    Outcome saveNewCd(const CdDraft &draft) const;
    // The row of oldNumber, which may keep its number or take a free one.
    Outcome saveChangedCd(int32_t oldNumber, const CdDraft &draft) const;

private:
    Outcome save(const CdDraft &draft, std::optional<int32_t> oldNumber) const;

    const ArchiveStore &m_store;
    const CoverStore &m_covers;
};

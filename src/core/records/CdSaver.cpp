#include "CdSaver.h"

#include "CdSaveRules.h"
#include "CommentCodec.h"

CdSaver::CdSaver(const ArchiveStore &store, const CoverStore &covers)
    : m_store(store)
    , m_covers(covers)
{
}

CdSaver::Outcome CdSaver::saveNewCd(const CdDraft &draft) const
{
    return save(draft, std::nullopt);
}

CdSaver::Outcome CdSaver::saveChangedCd(int32_t oldNumber, const CdDraft &draft) const
{
    return save(draft, oldNumber);
}

CdSaver::Outcome CdSaver::save(const CdDraft &draft, std::optional<int32_t> oldNumber) const
{
    const auto rows = m_store.selectAll();
    if (!rows.ok())
        return { false, rows.error.message };
    const QStringList numbers = cdsaverules::numberList(rows.value);
    const cdsaverules::NumberCheck check = oldNumber
        ? cdsaverules::checkChangeCdNumber(draft.numberText, numbers, QString::number(*oldNumber))
        : cdsaverules::checkNewCdNumber(draft.numberText, numbers);
    if (!check.ok())
        return { false, check.message };

    CdRow row;
    row.number = check.number;
    row.name = draft.title;
    row.imageId = draft.imageId;
    row.comments = oldNumber ? commentcodec::encodeChangeCd(draft.comments)
                             : commentcodec::encodeNewCd(draft.comments);
    row.lent = false; // saving clears the lent-out mark
    row.cover = draft.keptCover;
    const bool newCover = !draft.cover.isNull();
    if (newCover) {
        const StoreResult<QString> stored = m_covers.save(draft.cover);
        if (!stored.ok())
            return { false, stored.error.message };
        row.cover = stored.value;
    }
    const ArchiveError error = oldNumber ? m_store.updateRow(*oldNumber, row) : m_store.addRow(row);
    if (!error.ok()) {
        if (newCover)
            m_covers.remove(row.cover);
        return { false, error.message };
    }
    return { true, cdsaverules::savedMessage() };
}

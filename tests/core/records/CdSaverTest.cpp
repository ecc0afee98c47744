#include "records/CdSaver.h"

#include "ArchiveBuilder.h"
#include "QStringPrinting.h"

#include <QTemporaryDir>

namespace {

using namespace Qt::StringLiterals;

class CdSaverTest : public ::testing::Test
{
protected:
    // Without a number the draft is a new CD, else the changed CD of that number.
    CdSaver::Outcome save(CdDraft draft, std::optional<int32_t> changing = {}) const
    {
        const CdSaver saver(m_archive.store(), m_covers);
        return changing ? saver.saveChangedCd(*changing, draft) : saver.saveNewCd(draft);
    }
    std::vector<CdRow> rows() const { return m_archive.store().selectAll().value; }
    QStringList coverFiles() const
    {
        return QDir(m_dir.filePath(u"Covers"_s)).entryList(QDir::Files, QDir::Name);
    }
    static CdDraft withCover(CdDraft draft)
    {
        draft.cover = QImage(300, 150, QImage::Format_RGB32);
        draft.cover.fill(Qt::green);
        return draft;
    }

    QTemporaryDir m_dir;
    ArchiveBuilder m_archive { m_dir.path(), u"Test"_s };
    CoverStore m_covers { m_dir.path(),
        [second = false]() mutable { return (second = !second) ? 0.1 : 0.2; } };
};

TEST_F(CdSaverTest, NewCdIsStoredWithTheNewCdEncodingAndItsCover)
{
    EXPECT_EQ(save({ u"007"_s, u"Urlaub 2003"_s, {}, 0 }).message, u"CD erfolgreich gespeichert!"_s);
    ASSERT_TRUE(save(withCover({ u"3"_s, u"Mit Bild"_s, { u"a"_s, u"b"_s }, -42 })).saved);
    EXPECT_EQ(rows(),
        (std::vector<CdRow> { { 3, u"Mit Bild"_s, -42, u"Sta1|a|b|End1"_s, false, u"50000"_s },
            { 7, u"Urlaub 2003"_s, 0, u"Sta1|End1"_s, false, u"0"_s } }));
    EXPECT_EQ(coverFiles(), QStringList { u"50000.bmp"_s });
}

// Refused by the number rules, by the store (the cover is taken back) or by the cover folder.
TEST_F(CdSaverTest, RefusedSavesChangeNothing)
{
    m_archive.cd(5, u"Vorhanden"_s).cd(6, u"Sechs"_s);
    const std::vector<CdRow> before = rows();
    const std::tuple<std::optional<int32_t>, QString, QString, const char *> cases[]
        = { { {}, u"5"_s, u"x"_s, "Fehler! Die gewünschte CD Nummer" },
              { {}, u"7"_s, QString(51, u't'), "Der Titel ist zu lang" },
              { 8, u"8"_s, u"x"_s, "Die CD (Nummer: 8) wurde im Archiv nicht gefunden." } };
    for (const auto &[changing, number, title, messageStart] : cases) {
        SCOPED_TRACE(messageStart);
        const CdSaver::Outcome outcome = save(withCover({ number, title, { u"k"_s }, 9 }), changing);
        const QString start = QString::fromUtf8(messageStart);
        EXPECT_EQ(std::tuple(outcome.saved, outcome.message.left(start.size()), rows(), coverFiles()),
            std::tuple(false, start, before, QStringList()));
    }
    QFile blocker(m_dir.filePath(u"Covers"_s)); // a file where the folder should be
    ASSERT_TRUE(QDir(blocker.fileName()).removeRecursively() && blocker.open(QIODevice::WriteOnly));
    EXPECT_EQ(save(withCover({ u"7"_s, u"x"_s, {}, 0 })).message,
        u"Der Ordner \"%1\" kann nicht angelegt werden."_s.arg(
            QDir::toNativeSeparators(blocker.fileName() + u'/')));
    EXPECT_EQ(rows(), before);
    ASSERT_TRUE(QFile::remove(m_archive.path()));
    const CdSaver::Outcome noArchive = save({ u"1"_s, u"x"_s, {}, 0 });
    EXPECT_TRUE(!noArchive.saved && noArchive.message.contains(u"wurde nicht gefunden"_s))
        << noArchive.message.toStdString();
}

// The editor writes its own encoding, clears the lent mark, may move the CD to a free number,
// and stores each picture anew, keeping the old file.
TEST_F(CdSaverTest, ChangedCdIsRewrittenByTheEditorsRules)
{
    m_archive.row({ 5, u"Alt"_s, 77, u"Sta1|End1"_s, true, u"0"_s }).cd(6, u"Nachbar"_s);
    ASSERT_TRUE(save({ u"5"_s, u"Neu"_s, {}, 77 }, 5).saved);
    EXPECT_EQ(rows().front(), (CdRow { 5, u"Neu"_s, 77, u"Sta1||End1"_s, false, u"0"_s }));

    ASSERT_TRUE(save(withCover({ u"0010"_s, u"Zehn"_s, {}, 0 }), 5).saved);
    ASSERT_TRUE(save(withCover({ u"10"_s, u"Zehn"_s, {}, 0 }), 10).saved);
    EXPECT_EQ(rows().size(), 2u);
    EXPECT_EQ(rows().back(), (CdRow { 10, u"Zehn"_s, 0, u"Sta1||End1"_s, false, u"100000"_s }));
    EXPECT_EQ(coverFiles(), (QStringList { u"100000.bmp"_s, u"50000.bmp"_s }));
}

} // namespace

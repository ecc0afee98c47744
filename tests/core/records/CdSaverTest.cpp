#include "records/CdSaver.h"

#include "ArchiveBuilder.h"
#include "QStringPrinting.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <deque>

namespace {

const QString kSaved = QStringLiteral("CD erfolgreich gespeichert!");

class CdSaverTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_dir.isValid());
        m_archive = std::make_unique<ArchiveBuilder>(m_dir.path(), QStringLiteral("Test"));
        m_covers = std::make_unique<CoverStore>(
            m_dir.path(), [this] { return m_draws.at(m_next++ % m_draws.size()); });
    }

    CdSaver saver() const { return CdSaver(m_archive->store(), *m_covers); }
    std::vector<CdRow> rows() const { return m_archive->store().selectAll().value; }
    QStringList coverFiles() const
    {
        return QDir(m_dir.filePath(QStringLiteral("Covers"))).entryList(QDir::Files, QDir::Name);
    }
    static QImage cover()
    {
        QImage image(300, 150, QImage::Format_RGB32);
        image.fill(Qt::green);
        return image;
    }

    QTemporaryDir m_dir;
    std::unique_ptr<ArchiveBuilder> m_archive;
    std::vector<double> m_draws = { 0.1, 0.2, 0.3 };
    size_t m_next = 0;
    std::unique_ptr<CoverStore> m_covers;
};

TEST_F(CdSaverTest, NewCdIsStoredWithItsOwnEncodingAndNoCover)
{
    const CdDraft draft { QStringLiteral("007"), QStringLiteral("Urlaub 2003"), {}, 0 };
    const CdSaver::Outcome outcome = saver().saveNewCd(draft);
    EXPECT_TRUE(outcome.saved);
    EXPECT_EQ(outcome.message, kSaved);
    ASSERT_EQ(rows().size(), 1u);
    EXPECT_EQ(rows().front(),
        (CdRow {
            7, QStringLiteral("Urlaub 2003"), 0, QStringLiteral("Sta1|End1"), false, QStringLiteral("0") }));
}

TEST_F(CdSaverTest, NewCdWithCoverStoresTheBitmapAndItsNumber)
{
    CdDraft draft { QStringLiteral("3"), QStringLiteral("Mit Bild"),
        { QStringLiteral("a"), QStringLiteral("b") }, -42 };
    draft.cover = cover();
    ASSERT_TRUE(saver().saveNewCd(draft).saved);
    const CdRow row = rows().front();
    EXPECT_EQ(row.cover, QStringLiteral("50000"));
    EXPECT_EQ(row.imageId, -42);
    EXPECT_EQ(row.comments, QStringLiteral("Sta1|a|b|End1"));
    EXPECT_EQ(coverFiles(), QStringList { QStringLiteral("50000.bmp") });
}

TEST_F(CdSaverTest, RefusedSavesChangeNothing)
{
    m_archive->cd(5, QStringLiteral("Vorhanden"));
    struct Case
    {
        const char *name;
        QString number;
        QString title;
        const char *messageStart;
    };
    const Case cases[] = {
        { "taken", QStringLiteral("5"), QStringLiteral("x"), "Fehler! Die gewünschte CD Nummer" },
        { "zero", QStringLiteral("0"), QStringLiteral("x"), "Fehler! Die gewünschte CD Nummer" },
        { "overLimit", QStringLiteral("32001"), QStringLiteral("x"), "Fehler: Es können maximal 32000" },
        { "titleTooLong", QStringLiteral("6"), QString(51, QLatin1Char('t')), "Der Titel ist zu lang" },
        { "notANumber", QStringLiteral("sechs"), QStringLiteral("x"), "Die CD Nummer darf nur" },
    };
    for (const Case &c : cases) {
        CdDraft draft { c.number, c.title, { QStringLiteral("k") }, 9 };
        draft.cover = cover();
        const CdSaver::Outcome outcome = saver().saveNewCd(draft);
        EXPECT_FALSE(outcome.saved) << c.name;
        EXPECT_TRUE(outcome.message.startsWith(QString::fromUtf8(c.messageStart)))
            << outcome.message.toStdString();
        EXPECT_EQ(rows().size(), 1u) << c.name;
        EXPECT_EQ(rows().front().name, QStringLiteral("Vorhanden")) << c.name;
        EXPECT_TRUE(coverFiles().isEmpty()) << c.name;
    }
}

TEST_F(CdSaverTest, ChangedCdKeepsItsNumberAndLosesTheLentMark)
{
    m_archive->row(
        CdRow { 5, QStringLiteral("Alt"), 77, QStringLiteral("Sta1|End1"), true, QStringLiteral("0") });
    m_archive->cd(6, QStringLiteral("Nachbar"));
    const CdDraft draft { QStringLiteral("5"), QStringLiteral("Neu"), {}, 77 };
    const CdSaver::Outcome outcome = saver().saveChangedCd(5, draft);
    EXPECT_TRUE(outcome.saved) << outcome.message.toStdString();
    EXPECT_EQ(rows().front(),
        (CdRow { 5, QStringLiteral("Neu"), 77, QStringLiteral("Sta1||End1"), false, QStringLiteral("0") }));
}

TEST_F(CdSaverTest, ChangedCdMayMoveToAFreeNumberButNotToATakenOne)
{
    m_archive->cd(5, QStringLiteral("Fünf")).cd(6, QStringLiteral("Sechs"));
    const CdSaver::Outcome taken
        = saver().saveChangedCd(5, CdDraft { QStringLiteral("6"), QStringLiteral("x"), {}, 0 });
    EXPECT_FALSE(taken.saved);
    EXPECT_EQ(rows().front().name, QStringLiteral("Fünf"));

    ASSERT_TRUE(
        saver().saveChangedCd(5, CdDraft { QStringLiteral("0010"), QStringLiteral("Zehn"), {}, 0 }).saved);
    EXPECT_EQ(rows().back(),
        (CdRow { 10, QStringLiteral("Zehn"), 0, QStringLiteral("Sta1||End1"), false, QStringLiteral("0") }));
    EXPECT_EQ(rows().size(), 2u);
}

TEST_F(CdSaverTest, EachSaveWithACoverWritesANewFileAndKeepsTheOld)
{
    m_archive->cd(1, QStringLiteral("Eins"));
    CdDraft draft { QStringLiteral("1"), QStringLiteral("Eins"), {}, 0 };
    draft.cover = cover();
    ASSERT_TRUE(saver().saveChangedCd(1, draft).saved);
    ASSERT_TRUE(saver().saveChangedCd(1, draft).saved);
    EXPECT_EQ(coverFiles(), (QStringList { QStringLiteral("100000.bmp"), QStringLiteral("50000.bmp") }));
    EXPECT_EQ(rows().front().cover, QStringLiteral("100000"));
}

TEST_F(CdSaverTest, KeptCoverNumberIsWrittenWhenThereIsNoPicture)
{
    m_archive->cd(1, QStringLiteral("Eins"), QStringLiteral("Sta1|End1"), 0, QStringLiteral("4711"));
    CdDraft draft { QStringLiteral("1"), QStringLiteral("Eins"), {}, 0 };
    draft.keptCover = QStringLiteral("4711");
    ASSERT_TRUE(saver().saveChangedCd(1, draft).saved);
    EXPECT_EQ(rows().front().cover, QStringLiteral("4711"));
}

TEST_F(CdSaverTest, RowOrArchiveGoneIsReportedInGerman)
{
    const CdSaver::Outcome gone
        = saver().saveChangedCd(8, CdDraft { QStringLiteral("8"), QStringLiteral("x"), {}, 0 });
    EXPECT_FALSE(gone.saved);
    EXPECT_EQ(gone.message, QStringLiteral("Die CD (Nummer: 8) wurde im Archiv nicht gefunden."));

    ASSERT_TRUE(QFile::remove(m_archive->path()));
    const CdSaver::Outcome noArchive
        = saver().saveNewCd(CdDraft { QStringLiteral("1"), QStringLiteral("x"), {}, 0 });
    EXPECT_FALSE(noArchive.saved);
    EXPECT_TRUE(noArchive.message.contains(QStringLiteral("wurde nicht gefunden")))
        << noArchive.message.toStdString();
}

} // namespace

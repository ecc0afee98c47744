#include "archives/ArchiveCatalog.h"

#include "ArchiveBuilder.h"
#include "QStringPrinting.h"
#include "app/Settings.h"
#include "archives/ArchiveStore.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using Kind = ArchiveError::Kind;

class ArchiveCatalogTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_dir.isValid()); }

    QString data() const { return m_dir.path(); }
    QString path(const QString &relative) const { return m_dir.filePath(relative); }
    void touch(const QString &relative, const QByteArray &bytes = "x") const
    {
        QDir().mkpath(QFileInfo(path(relative)).path());
        QFile file(path(relative));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QTemporaryDir m_dir;
};

TEST_F(ArchiveCatalogTest, NamesAreTheMdbFilesLessTheirExtension)
{
    for (const char *file : { "archive/b.mdb", "archive/Zebra.mdb", "archive/apfel.mdb", "archive/zebra.mdb",
             "archive/Alle Meine CDs.mdb", "archive/notiz.txt", "archive/GROSS.MDB", "archive/.versteckt.mdb",
             "archive/x.mdb.bak", "lws/1.mdb" })
        touch(QString::fromUtf8(file));
    QDir().mkpath(path(QStringLiteral("archive/Ordner.mdb")));
    EXPECT_EQ(ArchiveCatalog(data()).names(),
        (QStringList { QStringLiteral("Alle Meine CDs"), QStringLiteral("apfel"), QStringLiteral("b"),
            QStringLiteral("Zebra"), QStringLiteral("zebra") }));
}

TEST_F(ArchiveCatalogTest, MissingArchiveFolderListsNothing)
{
    EXPECT_TRUE(ArchiveCatalog(data()).names().isEmpty());
}

TEST_F(ArchiveCatalogTest, CreateMakesTheFolderAndAnEmptyArchive)
{
    const ArchiveCatalog catalog(data());
    ASSERT_TRUE(catalog.create(QStringLiteral("Alle Meine CDs"), catalog.names()).ok());
    EXPECT_TRUE(QFile::exists(path(QStringLiteral("archive/Alle Meine CDs.mdb"))));
    EXPECT_EQ(catalog.names(), QStringList { QStringLiteral("Alle Meine CDs") });
    const auto rows = ArchiveStore(catalog.pathOf(QStringLiteral("Alle Meine CDs"))).selectAll();
    EXPECT_TRUE(rows.ok());
    EXPECT_TRUE(rows.value.empty());
}

TEST_F(ArchiveCatalogTest, CreateRefusesListedNamesAndBadNames)
{
    ArchiveBuilder existing(data(), QStringLiteral("Musik"));
    existing.cd(1, QStringLiteral("Bleibt"));
    const ArchiveCatalog catalog(data());
    struct Case
    {
        const char *name;
        QString archive;
        QStringList listed;
        Kind kind;
        QString message;
    };
    const Case cases[] = {
        { "listed", QStringLiteral("Musik"), catalog.names(), Kind::DuplicateName,
            QStringLiteral(
                "Fehler! Es existiert bereits ein Archiv mit dem Namen Musik !\r\nBitte wählen Sie einen "
                "anderen Namen") },
        { "listedThoughDeletedSince", QStringLiteral("Alt"), { QStringLiteral("Alt") }, Kind::DuplicateName,
            ArchiveCatalog::duplicateNameMessage(QStringLiteral("Alt")) },
        { "empty", QString(), {}, Kind::BadName,
            QStringLiteral("Der Name des Archivs darf nicht leer sein.") },
        { "slash", QStringLiteral("a/b"), {}, Kind::BadName,
            QStringLiteral(
                "Der Name \"a/b\" kann nicht als Dateiname verwendet werden. Bitte wählen Sie einen anderen "
                "Namen.") },
        { "upward", QStringLiteral("../Musik"), {}, Kind::BadName, {} },
        { "fileThoughNotListed", QStringLiteral("Musik"), {}, Kind::FileError, {} },
    };
    for (const Case &c : cases) {
        const ArchiveError error = catalog.create(c.archive, c.listed);
        EXPECT_EQ(error.kind, c.kind) << c.name;
        if (!c.message.isEmpty()) {
            EXPECT_EQ(error.message, c.message) << c.name;
        }
    }
    EXPECT_EQ(catalog.names(), QStringList { QStringLiteral("Musik") });
    EXPECT_EQ(existing.store().selectAll().value.size(), 1u);
    EXPECT_FALSE(QFile::exists(path(QStringLiteral("Musik.mdb"))));
}

TEST_F(ArchiveCatalogTest, NamesDifferingInCaseAreDifferentArchives)
{
    const ArchiveCatalog catalog(data());
    ASSERT_TRUE(catalog.create(QStringLiteral("musik"), {}).ok());
    EXPECT_TRUE(catalog.create(QStringLiteral("Musik"), catalog.names()).ok());
    EXPECT_EQ(catalog.names(), (QStringList { QStringLiteral("Musik"), QStringLiteral("musik") }));
}

TEST_F(ArchiveCatalogTest, RemoveDeletesTheArchiveFileAlone)
{
    ArchiveBuilder(data(), QStringLiteral("Weg"))
        .cd(1, QStringLiteral("x"), QStringLiteral("Sta1|End1"), 5, QStringLiteral("8"));
    ArchiveBuilder(data(), QStringLiteral("Bleibt"));
    touch(QStringLiteral("lws/5.dat"));
    touch(QStringLiteral("Covers/8.bmp"));
    const ArchiveCatalog catalog(data());
    ASSERT_TRUE(catalog.remove(QStringLiteral("Weg")).ok());
    EXPECT_EQ(catalog.names(), QStringList { QStringLiteral("Bleibt") });
    EXPECT_TRUE(QFile::exists(path(QStringLiteral("lws/5.dat"))));
    EXPECT_TRUE(QFile::exists(path(QStringLiteral("Covers/8.bmp"))));

    const ArchiveError missing = catalog.remove(QStringLiteral("Weg"));
    EXPECT_EQ(missing.kind, Kind::NotFound);
    EXPECT_EQ(missing.message,
        QStringLiteral("Fehler: Die Datenbankdatei für das ausgewählte Archiv wurde nicht "
                       "gefunden. Das Archiv wird aus der Liste entfernt!"));
}

TEST_F(ArchiveCatalogTest, ArchiveCopiedInByHandIsListedAndOpens)
{
    QTemporaryDir elsewhere;
    ArchiveBuilder(elsewhere.path(), QStringLiteral("Fremd")).cd(3, QStringLiteral("Mitgebracht"));
    QDir().mkpath(path(QStringLiteral("archive")));
    ASSERT_TRUE(QFile::copy(datapaths::archiveFile(elsewhere.path(), QStringLiteral("Fremd")),
        path(QStringLiteral("archive/Kopie.mdb"))));
    const ArchiveCatalog catalog(data());
    ASSERT_EQ(catalog.names(), QStringList { QStringLiteral("Kopie") });
    const auto rows = ArchiveStore(catalog.pathOf(QStringLiteral("Kopie"))).selectAll();
    ASSERT_EQ(rows.value.size(), 1u);
    EXPECT_EQ(rows.value.front().name, QStringLiteral("Mitgebracht"));
}

TEST(ArchiveNameMatchTest, TypedNameMatchesEntryOrEntryWithExtensionBinary)
{
    const QStringList entries = { QStringLiteral("Musik"), QStringLiteral("Filme") };
    struct Case
    {
        const char *typed;
        bool found;
    };
    const Case cases[] = {
        { "Musik", true },
        { "Musik.mdb", true },
        { "Filme", true },
        { "musik", false },
        { "Musik.MDB", false },
        { "Musi", false },
        { "Musik ", false },
        { "Musik.mdb.mdb", false },
    };
    for (const Case &c : cases)
        EXPECT_EQ(archiveNameMatches(QString::fromUtf8(c.typed), entries), c.found) << c.typed;
}

TEST(DefaultArchiveTest, StoredInTheSettingStandard)
{
    QTemporaryDir dir;
    Settings settings(dir.filePath(QStringLiteral("settings.ini")));
    EXPECT_TRUE(defaultArchive(settings).isEmpty());
    EXPECT_EQ(setDefaultArchive(settings, QStringLiteral("Musik")),
        QStringLiteral(
            "Archiv Musik wurde als Standard festgelegt. Nun kann dieses bei jedem Start des "
            "Silberbuchs automatisch gestartet werden. Diese Option können Sie im Hauptfenster unter "
            "Optionen einstellen"));
    EXPECT_EQ(settings.value(SettingKey::Standard), QStringLiteral("Musik"));
    EXPECT_EQ(
        defaultArchive(Settings(dir.filePath(QStringLiteral("settings.ini")))), QStringLiteral("Musik"));
}

} // namespace

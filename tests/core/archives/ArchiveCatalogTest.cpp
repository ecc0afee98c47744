#include "archives/ArchiveCatalog.h"

#include "ArchiveBuilder.h"
#include "QStringPrinting.h"
#include "TestPaths.h"

#include <QTemporaryDir>

namespace {

using namespace Qt::StringLiterals;
using Kind = ArchiveError::Kind;

class ArchiveCatalogTest : public ::testing::Test
{
protected:
    QString path(const QString &relative) const { return m_dir.filePath(relative); }
    void touch(const QString &relative) const { writeFile(path(relative)); }

    QTemporaryDir m_dir;
    const ArchiveCatalog m_catalog { m_dir.path() };
};

TEST_F(ArchiveCatalogTest, NamesAreTheMdbFilesLessTheirExtension)
{
    EXPECT_TRUE(m_catalog.names().isEmpty());
    for (const char *file :
        { "b.mdb", "Zebra.mdb", "apfel.mdb", "zebra.mdb", "notiz.txt", "GROSS.MDB", ".v.mdb" })
        touch(u"archive/"_s + QString::fromUtf8(file));
    touch(u"lws/1.mdb"_s);
    QDir().mkpath(path(u"archive/Ordner.mdb"_s));
    // An archive copied in from Windows keeps its ".MDB" and is found by its name.
    EXPECT_EQ(m_catalog.names(), (QStringList { u"apfel"_s, u"b"_s, u"GROSS"_s, u"Zebra"_s, u"zebra"_s }));
    EXPECT_EQ(m_catalog.pathOf(u"GROSS"_s), path(u"archive/GROSS.MDB"_s));
    EXPECT_EQ(m_catalog.pathOf(u"neu"_s), path(u"archive/neu.mdb"_s));
}

TEST_F(ArchiveCatalogTest, CreateAndRemoveTouchOnlyTheArchiveFile)
{
    ASSERT_TRUE(m_catalog.create(u"musik"_s, {}).ok());
    ASSERT_TRUE(m_catalog.create(u"Musik"_s, m_catalog.names()).ok()); // letter case makes another name
    // Every character of code page 1252 may stand in a name, a dot too where it does not lead.
    for (const QString &name : { u"Übersicht"_s, u"Preise in € – «Œuvre» ™ ß ÿ"_s, u"v1.2"_s })
        EXPECT_TRUE(m_catalog.create(name, {}).ok()) << name.toStdString();
    EXPECT_EQ(m_catalog.names(),
        (QStringList { u"Musik"_s, u"musik"_s, u"Preise in € – «Œuvre» ™ ß ÿ"_s, u"v1.2"_s, u"Übersicht"_s }));
    for (const QString &name : { u"Übersicht"_s, u"Preise in € – «Œuvre» ™ ß ÿ"_s, u"v1.2"_s })
        ASSERT_TRUE(m_catalog.remove(name).ok()) << name.toStdString();
    EXPECT_EQ(m_catalog.names(), (QStringList { u"Musik"_s, u"musik"_s }));
    const auto rows = ArchiveStore(m_catalog.pathOf(u"Musik"_s)).selectAll();
    EXPECT_TRUE(rows.ok() && rows.value.empty());

    ArchiveBuilder(m_dir.path(), u"Weg"_s).cd(1, u"x"_s, u"Sta1|End1"_s, 5, u"8"_s);
    touch(u"lws/5.dat"_s);
    touch(u"Covers/8.bmp"_s);
    ASSERT_TRUE(m_catalog.remove(u"Weg"_s).ok());
    EXPECT_EQ(m_catalog.names(), (QStringList { u"Musik"_s, u"musik"_s }));
    EXPECT_TRUE(QFile::exists(path(u"lws/5.dat"_s)) && QFile::exists(path(u"Covers/8.bmp"_s)));
    EXPECT_EQ(m_catalog.remove(u"Weg"_s).kind, Kind::NotFound); // its message is the command line test's
}

TEST_F(ArchiveCatalogTest, CreateRefusesListedNamesAndBadNames)
{
    const QString kControl = u"Der Name des Archivs enthält ein Steuerzeichen (etwa einen Zeilenumbruch oder einen "
                             u"Tabulator). Bitte wählen Sie einen anderen Namen."_s;
    const auto outside = [](const QString &name, const QString &character) {
        return u"Der Name \""_s + name + u"\" enthält das Zeichen \""_s + character
            + u"\", das in Sicherungen und HTML-Seiten nicht gespeichert werden kann. Erlaubt sind die Zeichen des "
              u"westeuropäischen Zeichensatzes (Windows-1252). Bitte wählen Sie einen anderen Namen."_s;
    };
    ArchiveBuilder(m_dir.path(), u"Musik"_s).cd(1, u"Bleibt"_s);
    const std::tuple<QString, QStringList, Kind, QString> cases[] = { // name, names listed, kind, message
        { u"Musik"_s, { u"Musik"_s }, Kind::DuplicateName,
            u"Fehler! Es existiert bereits ein Archiv mit dem Namen Musik !\r\nBitte wählen Sie einen anderen Namen"_s },
        { QString(), {}, Kind::BadName, u"Der Name des Archivs darf nicht leer sein."_s },
        { u"a/b"_s, {}, Kind::BadName,
            u"Der Name \"a/b\" kann nicht als Dateiname verwendet werden. Bitte wählen Sie einen anderen Namen."_s },
        { u"a\\b"_s, {}, Kind::BadName,
            u"Der Name \"a\\b\" kann nicht als Dateiname verwendet werden. Bitte wählen Sie einen anderen Namen."_s },
        { u"Alt..Neu"_s, {}, Kind::BadName,
            u"Der Name \"Alt..Neu\" kann nicht als Dateiname verwendet werden. Bitte wählen Sie einen anderen Namen."_s },
        // Hidden: no list would show it, so it could be neither opened nor deleted.
        { u".hidden"_s, {}, Kind::BadName,
            u"Der Name \".hidden\" beginnt mit einem Punkt: Das Archiv wäre eine versteckte Datei und erschiene in "
            u"keiner Liste. Bitte wählen Sie einen anderen Namen."_s },
        // A line break would split the archive list; the other controls reach terminals raw.
        { u"a\nb"_s, {}, Kind::BadName, kControl },
        { u"Tab\tname"_s, {}, Kind::BadName, kControl },
        { u"esc\x1b[2J"_s, {}, Kind::BadName, kControl },
        { u"c1\u0085"_s, {}, Kind::BadName, kControl },
        // Backups store names in code page 1252, where "Ωmega" would come back as "?mega".
        { u"Ωmega"_s, {}, Kind::BadName, outside(u"Ωmega"_s, u"Ω"_s) },
        { u"Lachen 😀"_s, {}, Kind::BadName, outside(u"Lachen 😀"_s, u"😀"_s) },
        // The file exists though the caller did not list it.
        { u"Musik"_s, {}, Kind::FileError,
            u"Die Datei \"%1\" existiert bereits."_s.arg(m_catalog.pathOf(u"Musik"_s)) }
    };
    for (const auto &[archive, listed, kind, message] : cases) {
        const ArchiveError error = m_catalog.create(archive, listed);
        EXPECT_EQ(std::pair(error.kind, error.message), std::pair(kind, message)) << archive.toStdString();
    }
    EXPECT_EQ(QDir(path(u"archive"_s)).entryList(QDir::Files | QDir::Hidden), QStringList { u"Musik.mdb"_s });
    EXPECT_EQ(ArchiveStore(m_catalog.pathOf(u"Musik"_s)).selectAll().value.size(), 1u);
    EXPECT_FALSE(QFile::exists(path(u"Musik.mdb"_s)));
}

TEST(ArchiveNameMatchTest, TypedNameMatchesEntryOrEntryWithExtensionBinary)
{
    const QStringList entries = { u"Musik"_s, u"Filme"_s };
    const std::pair<const char *, bool> cases[] = { { "Musik", true }, { "Musik.mdb", true },
        { "musik", false }, { "Musik.MDB", false }, { "Musi", false } };
    for (const auto &[typed, found] : cases)
        EXPECT_EQ(archiveNameMatches(QString::fromUtf8(typed), entries), found) << typed;
}

} // namespace

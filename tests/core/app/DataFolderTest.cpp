#include "AppTestFolder.h"

#include "app/DataFolder.h"

#include <QFileInfo>

namespace {

using namespace Qt::StringLiterals;
using DataFolderTest = AppTestFolder;

// pfad true means the program folder, read afresh at each call; otherwise the folder in path
// without one closing separator, or else the program folder with a notice naming the path.
TEST_F(DataFolderTest, PfadAndPathChooseTheFolder)
{
    QDir().mkpath(path(u"net"_s));
    writeFile(path(u"plain.txt"_s), "x");
    // pfad and path stored (nullptr: not stored), the folder (nullptr: the program folder), the
    // path the notice names (nullptr: no notice)
    using S = const char *;
    const std::tuple<S, S, S, S> cases[] = { { nullptr, "net", nullptr, nullptr },
        { "False", "net\\", "net", nullptr }, { "Falsch", "net/", "net", nullptr },
        { "False", "unplugged/Silberbuch\\", nullptr, "unplugged/Silberbuch" },
        { "False", "plain.txt", nullptr, "plain.txt" }, { "vielleicht", "net", nullptr, "" },
        { "False", nullptr, nullptr, nullptr } };
    int row = 0;
    for (const auto &[pfad, stored, folder, notice] : cases) {
        SCOPED_TRACE(std::string(pfad ? pfad : "-") + " " + (stored ? stored : "-"));
        Settings own(path(u"case%1.ini"_s.arg(++row)));
        if (pfad)
            own.setValue(SettingKey::pfad, QString::fromLatin1(pfad));
        if (stored)
            own.setValue(SettingKey::path, path(QString::fromLatin1(stored)));
        Session session;
        QString message;
        const QString expected = folder ? path(QString::fromLatin1(folder)) : programPath();
        EXPECT_EQ(getDataFolder(session, own, &message), expected);
        const QString named = notice && *notice ? path(QString::fromLatin1(notice)) : QString();
        EXPECT_EQ(message, notice ? dataFolderFallbackMessage(named) : QString());
        EXPECT_EQ(session.dataFolderCache, pfad ? expected : QString());
    }
}

// The folder of the first call stays for the session, even when the stored path is there
// later, and its notice is given once.
TEST_F(DataFolderTest, FirstCallFixesTheFolderAndTheNoticeComesOnce)
{
    settings().setValue(SettingKey::pfad, u"False"_s);
    settings().setValue(SettingKey::path, path(u"net/Silberbuch\\"_s));
    Session session;
    QString message;
    EXPECT_EQ(getDataFolder(session, settings(), &message), programPath());
    EXPECT_EQ(message,
        u"Hinweis: Der angegebene Pfad zur Datenbank ("_s + path(u"net/Silberbuch"_s)
            + u") ist zur Zeit nicht verfügbar. Es wird nun der Standard-Pfad verwendet (SLB-Verzeichniss)!"_s);
    QDir().mkpath(path(u"net/Silberbuch"_s));
    message.clear();
    EXPECT_EQ(getDataFolder(session, settings(), &message), programPath());
    EXPECT_TRUE(message.isEmpty());
}

} // namespace

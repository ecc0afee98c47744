#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct CliRun
{
    int exitCode = -1;
    QStringList lines;
    QString error;
};

// The program against a settings file of the test's own.
class DriveCommandsTest : public ::testing::Test
{
protected:
    CliRun run(const QStringList &arguments)
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(
            QStringLiteral("SILBERBUCH_CONFIG"), m_dir.filePath(QStringLiteral("silberbuch.ini")));
        environment.insert(QStringLiteral("SILBERBUCH_HOME"), m_dir.filePath(QStringLiteral("home")));
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(SILBERBUCH_CLI), QStringList { QStringLiteral("drives") } + arguments);
        EXPECT_TRUE(process.waitForFinished(30000));
        CliRun result;
        result.exitCode = process.exitCode();
        result.lines
            = QString::fromUtf8(process.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        result.error = QString::fromUtf8(process.readAllStandardError()).trimmed();
        return result;
    }
    QString folder(const QString &name)
    {
        QDir(m_dir.path()).mkpath(name);
        return m_dir.filePath(name);
    }

    QTemporaryDir m_dir;
};

} // namespace

TEST_F(DriveCommandsTest, ListsTheRootAsDriveCWithFourFields)
{
    const CliRun listed = run({});
    ASSERT_EQ(listed.exitCode, 0) << listed.error.toStdString();
    ASSERT_FALSE(listed.lines.isEmpty());
    const QStringList fields = listed.lines.first().split(QLatin1Char('\t'));
    ASSERT_EQ(fields.size(), 4);
    EXPECT_EQ(fields[0], QStringLiteral("c:"));
    EXPECT_EQ(fields[2], QStringLiteral("/"));
    EXPECT_NE(fields[3].toInt(), 0);
}

TEST_F(DriveCommandsTest, AddedFolderIsListedFromThenOn)
{
    const QString musik = folder(QStringLiteral("Musik"));
    const CliRun added = run({ QStringLiteral("add"), QStringLiteral("Y"), musik });
    ASSERT_EQ(added.exitCode, 0) << added.error.toStdString();
    ASSERT_EQ(added.lines.size(), 1);
    const QStringList fields = added.lines.first().split(QLatin1Char('\t'));
    ASSERT_EQ(fields.size(), 4);
    EXPECT_EQ(fields.mid(0, 3), (QStringList { QStringLiteral("y:"), QStringLiteral("Musik"), musik }));
    EXPECT_NE(fields[3].toInt(), 0);
    EXPECT_TRUE(run({}).lines.contains(added.lines.first()));
}

TEST_F(DriveCommandsTest, RefusedInputExitsWithOneAndAGermanMessage)
{
    const QString musik = folder(QStringLiteral("Musik"));
    ASSERT_EQ(run({ QStringLiteral("add"), QStringLiteral("y:"), musik }).exitCode, 0);
    const QString missing = m_dir.filePath(QStringLiteral("fehlt"));
    const std::vector<std::pair<QStringList, QString>> cases = {
        { { QStringLiteral("add"), QStringLiteral("7"), musik },
            QStringLiteral("„7“ ist kein gültiger Laufwerksbuchstabe. Erlaubt sind a: bis z:.") },
        { { QStringLiteral("add"), QStringLiteral("c"), musik },
            QStringLiteral("Der Laufwerksbuchstabe c: ist bereits vergeben (/).") },
        { { QStringLiteral("add"), QStringLiteral("y"), folder(QStringLiteral("Filme")) },
            QStringLiteral("Der Laufwerksbuchstabe y: ist bereits vergeben (%1).").arg(musik) },
        { { QStringLiteral("add"), QStringLiteral("x"), missing },
            QStringLiteral("Der Ordner „%1“ existiert nicht.").arg(missing) },
    };
    for (const auto &[arguments, message] : cases) {
        SCOPED_TRACE(arguments.join(QLatin1Char(' ')).toStdString());
        const CliRun refused = run(arguments);
        EXPECT_EQ(refused.exitCode, 1);
        EXPECT_EQ(refused.error, message);
        EXPECT_TRUE(refused.lines.isEmpty());
    }
}

TEST_F(DriveCommandsTest, WrongWordsAreAUsageError)
{
    for (const QStringList &arguments : { QStringList { QStringLiteral("add"), QStringLiteral("x") },
             QStringList { QStringLiteral("zeigen") } }) {
        const CliRun wrong = run(arguments);
        EXPECT_EQ(wrong.exitCode, 2);
        EXPECT_TRUE(wrong.error.startsWith(QStringLiteral("Aufruf: silberbuch-cli drives")))
            << wrong.error.toStdString();
    }
}

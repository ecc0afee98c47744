#include "JetTable.h"

#include "JetChildReader.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using jetchild::Kind;
using jetchild::Outcome;

constexpr char kJetSignature[] = "Standard Jet DB";
constexpr qint64 kSignatureOffset = 4;
// Jet 4 pages are 4096 bytes; a file shorter than its header page cannot hold a table.
constexpr qint64 kHeaderPage = 2048;

QString quoted(const QString &path)
{
    return QStringLiteral("\"") + QDir::toNativeSeparators(path) + QStringLiteral("\"");
}

QString unreadable(const QString &path, const QString &reason)
{
    return QStringLiteral("Die Jet-Datenbank ") + quoted(path) + QStringLiteral(" kann nicht gelesen werden: ")
        + reason;
}

// A child killed at its limits, or one that died on its own, gives the same answer: the user
// can do the same about either.
QString brokenOff()
{
    return QStringLiteral("Sie ist so beschädigt, dass das Lesen abgebrochen werden musste (Grenzen: ")
        + QString::number(jetchild::kSeconds) + QStringLiteral(" Sekunden, ")
        + QString::number(jetchild::kMemoryBytes >> 20) + QStringLiteral(" MB Speicher).");
}

// What came back from the reading child.
struct ChildRun
{
    QByteArray stream;
    bool started = false;
    bool finished = false; // ended by itself with exit code 0, within the time and size
};

// Collects the child's stream until it closes the pipe, the time is up or the stream grows
// beyond what a sound archive sends; a child still running then is killed.
void collect(ChildRun &run, int fd, pid_t pid)
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point deadline = Clock::now() + std::chrono::seconds(jetchild::kSeconds);
    bool ended = false;
    while (!ended && static_cast<quint64>(run.stream.size()) <= jetchild::kMemoryBytes) {
        const auto left
            = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
        pollfd watched { fd, POLLIN, 0 };
        const int ready = left > 0 ? ::poll(&watched, 1, static_cast<int>(left)) : 0;
        if (ready < 0 && errno == EINTR)
            continue;
        if (ready <= 0)
            break;
        char buffer[64 * 1024];
        const ssize_t got = ::read(fd, buffer, sizeof buffer);
        if (got < 0 && errno == EINTR)
            continue;
        ended = got <= 0;
        if (got > 0)
            run.stream.append(buffer, got);
    }
    if (!ended)
        ::kill(pid, SIGKILL);
    int status = 0;
    while (::waitpid(pid, &status, 0) < 0 && errno == EINTR) { }
    run.finished = ended && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

ChildRun runChild(const QString &path, const QString &tableName)
{
    ChildRun run;
    // Everything the child needs is made before the fork.
    const QByteArray encodedPath = QFile::encodeName(path);
    const QByteArray name = tableName.toUtf8();
    const qint64 size = QFileInfo(path).size();
    int pipeEnds[2];
    if (::pipe2(pipeEnds, O_CLOEXEC) != 0)
        return run;
    const pid_t pid = ::fork();
    if (pid == 0) {
        ::close(pipeEnds[0]);
        jetchild::readTableAndExit(pipeEnds[1], encodedPath.constData(), name.constData(), size);
    }
    ::close(pipeEnds[1]);
    run.started = pid > 0;
    if (run.started)
        collect(run, pipeEnds[0], pid);
    ::close(pipeEnds[0]);
    return run;
}

// Reads the frames of the child's stream in order; any frame that runs past the end leaves
// the reader failed.
class StreamReader
{
public:
    explicit StreamReader(const QByteArray &bytes)
        : m_bytes(bytes)
    {
    }

    bool failed() const { return m_failed; }

    template <typename Number> Number number()
    {
        Number value {};
        if (take(sizeof value))
            std::memcpy(&value, m_bytes.constData() + m_at - sizeof value, sizeof value);
        return value;
    }

    QByteArray text()
    {
        const auto length = number<quint32>();
        return take(length) ? m_bytes.mid(m_at - length, length) : QByteArray();
    }

private:
    bool take(qsizetype count)
    {
        m_failed = m_failed || count > m_bytes.size() - m_at;
        if (!m_failed)
            m_at += count;
        return !m_failed;
    }

    const QByteArray &m_bytes;
    qsizetype m_at = 0;
    bool m_failed = false;
};

QVariant fieldValue(Kind kind, const QByteArray &text, bool isNull)
{
    if (kind == Kind::Boolean)
        return QVariant(!isNull);
    if (isNull)
        return {};
    if (kind == Kind::Number)
        return QVariant(text.toLongLong());
    return QVariant(QString::fromUtf8(text));
}

JetTableRead decode(const QByteArray &stream, const QString &path, const QString &tableName)
{
    JetTableRead result;
    StreamReader in(stream);
    std::vector<Kind> kinds;
    char tag = 0;
    while (!in.failed() && tag != jetchild::kEndTag) {
        tag = in.number<char>();
        if (tag == jetchild::kColumnTag) {
            kinds.push_back(static_cast<Kind>(in.number<quint8>()));
            result.table.columns.append(QString::fromUtf8(in.text()));
        } else if (tag == jetchild::kRowTag) {
            std::vector<QVariant> row;
            row.reserve(kinds.size());
            for (const Kind kind : kinds) {
                const bool isNull = in.number<quint8>() != 0;
                row.push_back(fieldValue(kind, in.text(), isNull));
            }
            result.table.rows.push_back(std::move(row));
        } else if (tag != jetchild::kEndTag) {
            return { {}, unreadable(path, brokenOff()) };
        }
    }
    const auto outcome = static_cast<Outcome>(in.number<quint32>());
    const auto rowsRead = in.number<quint64>();
    const auto rowsInTable = in.number<quint64>();
    if (in.failed())
        return { {}, unreadable(path, brokenOff()) };
    switch (outcome) {
    case Outcome::Read:
        break;
    case Outcome::NoCatalog:
        result.error = unreadable(
            path, QStringLiteral("Ihr Verzeichnis der Tabellen ist beschädigt oder verschlüsselt."));
        break;
    case Outcome::Incomplete:
        result.error = unreadable(path, QStringLiteral("Die Datei ist unvollständig."));
        break;
    case Outcome::NoTable:
        result.error = unreadable(
            path, QStringLiteral("Sie enthält keine lesbare Tabelle \"") + tableName + QStringLiteral("\"."));
        break;
    case Outcome::RowsMissing:
        result.error = unreadable(path,
            QStringLiteral("Die Tabelle \"") + tableName
                + QStringLiteral("\" ist beschädigt: Es konnten nur ") + QString::number(rowsRead)
                + QStringLiteral(" von ") + QString::number(rowsInTable)
                + QStringLiteral(" Zeilen gelesen werden."));
        break;
    }
    return result;
}

} // namespace

bool isJetFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray head = file.read(kSignatureOffset + sizeof kJetSignature - 1);
    return head.mid(kSignatureOffset) == QByteArray(kJetSignature);
}

JetTableRead readJetTable(const QString &path, const QString &tableName)
{
    if (!isJetFile(path) || QFileInfo(path).size() < kHeaderPage)
        return { {}, unreadable(path, QStringLiteral("Die Datei ist keine vollständige Jet-Datenbank.")) };
    const ChildRun run = runChild(path, tableName);
    if (!run.started)
        return { {}, unreadable(path, QStringLiteral("Der Leseprozess kann nicht gestartet werden.")) };
    if (!run.finished)
        return { {}, unreadable(path, brokenOff()) };
    return decode(run.stream, path, tableName);
}

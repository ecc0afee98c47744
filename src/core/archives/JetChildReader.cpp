#include "JetChildReader.h"

#include <glib.h>
// glib first: the header below uses its types without including it.
#include <mdbtools.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace jetchild {

namespace {

// Collects frames and hands them to the pipe in large writes; a parent that stopped
// listening ends the child.
class Stream
{
public:
    explicit Stream(int fd)
        : m_fd(fd)
    {
    }

    void byte(char value)
    {
        m_buffer.push_back(value);
        flushWhenFull();
    }

    template <typename Number> void number(Number value)
    {
        m_buffer.append(reinterpret_cast<const char *>(&value), sizeof value);
        flushWhenFull();
    }

    void text(const char *value)
    {
        const size_t length = std::strlen(value);
        number(static_cast<uint32_t>(length));
        m_buffer.append(value, length);
        flushWhenFull();
    }

    void flush()
    {
        const char *data = m_buffer.data();
        size_t left = m_buffer.size();
        while (left > 0) {
            const ssize_t written = ::write(m_fd, data, left);
            if (written < 0 && errno == EINTR)
                continue;
            if (written <= 0)
                ::_exit(1);
            data += written;
            left -= static_cast<size_t>(written);
        }
        m_buffer.clear();
    }

private:
    void flushWhenFull()
    {
        if (m_buffer.size() >= 64 * 1024)
            flush();
    }

    int m_fd;
    std::string m_buffer;
};

// The address space the child inherits from the program: the limit is counted on top of it.
uint64_t inheritedAddressSpace()
{
    const int fd = ::open("/proc/self/statm", O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return 0;
    char text[64] = {};
    const ssize_t length = ::read(fd, text, sizeof text - 1);
    ::close(fd);
    if (length <= 0)
        return 0;
    return std::strtoull(text, nullptr, 10) * static_cast<uint64_t>(::sysconf(_SC_PAGESIZE));
}

void limit(int resource, uint64_t value)
{
    const rlimit limits { value, value };
    ::setrlimit(resource, &limits);
}

// The program's own crash handlers (a fuzzer's, a sanitizer's) must not run for the reader:
// its failures are expected, and the parent reports them.
void enterChild()
{
    for (const int signal : { SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGXCPU, SIGPIPE })
        std::signal(signal, SIG_DFL);
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_CPU, kSeconds);
    limit(RLIMIT_AS, inheritedAddressSpace() + kMemoryBytes);
    const int null = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (null >= 0) {
        ::dup2(null, STDOUT_FILENO);
        ::dup2(null, STDERR_FILENO);
    }
}

Kind kindOf(const MdbColumn *column)
{
    switch (column->col_type) {
    case MDB_BOOL:
        return Kind::Boolean;
    case MDB_BYTE:
    case MDB_INT:
    case MDB_LONGINT:
        return Kind::Number;
    default:
        return Kind::Text;
    }
}

// The null mask of the row that mdb_fetch_row has just read: libmdb binds every value as text,
// which alone cannot tell NULL (and, for booleans, false) from an empty text.
std::vector<bool> nullMask(MdbTableDef *table)
{
    std::vector<bool> nulls(table->num_cols, false);
    int rowStart = 0;
    size_t rowSize = 0;
    if (mdb_find_row(table->entry->mdb, static_cast<int>(table->cur_row) - 1, &rowStart, &rowSize) != 0)
        return nulls;
    std::vector<MdbField> fields(table->num_cols + 1);
    const int count = mdb_crack_row(table, rowStart, rowSize, fields.data());
    for (int i = 0; i < count; ++i) {
        const auto colnum = static_cast<size_t>(fields[i].colnum);
        if (colnum < nulls.size())
            nulls[colnum] = fields[i].is_null != 0;
    }
    return nulls;
}

// Nothing is closed or freed: the process ends right after.
Outcome writeTable(Stream &out, const char *path, const char *tableName, int64_t fileSize, uint64_t &rowsRead,
    uint64_t &rowsInTable)
{
    MdbHandle *mdb = mdb_open(path, MDB_NOFLAGS);
    if (!mdb)
        return Outcome::NoCatalog;
    // Jet files grow by whole pages; one cut short can send the catalogue reader astray.
    if (mdb->fmt->pg_size <= 0 || fileSize % mdb->fmt->pg_size != 0)
        return Outcome::Incomplete;
    if (!mdb_read_catalog(mdb, MDB_TABLE))
        return Outcome::NoCatalog;
    std::string name = tableName;
    MdbTableDef *table = mdb_read_table_by_name(mdb, name.data(), MDB_TABLE);
    if (!table || !mdb_read_columns(table) || mdb_rewind_table(table) != 0)
        return Outcome::NoTable;
    const unsigned columnCount = table->num_cols;
    std::vector<std::vector<char>> buffers(columnCount, std::vector<char>(mdb->bind_size + 1));
    for (unsigned c = 0; c < columnCount; ++c) {
        const auto *column = static_cast<MdbColumn *>(g_ptr_array_index(table->columns, c));
        out.byte(kColumnTag);
        out.byte(static_cast<char>(kindOf(column)));
        out.text(column->name);
        mdb_bind_column(table, static_cast<int>(c) + 1, buffers[c].data(), nullptr);
    }
    while (mdb_fetch_row(table)) {
        const std::vector<bool> nulls = nullMask(table);
        out.byte(kRowTag);
        for (unsigned c = 0; c < columnCount; ++c) {
            out.byte(nulls[c] ? 1 : 0);
            out.text(buffers[c].data());
        }
        ++rowsRead;
    }
    rowsInTable = table->num_rows;
    return rowsRead == rowsInTable ? Outcome::Read : Outcome::RowsMissing;
}

} // namespace

void readTableAndExit(int fd, const char *path, const char *tableName, int64_t fileSize)
{
    enterChild();
    Stream out(fd);
    uint64_t rowsRead = 0;
    uint64_t rowsInTable = 0;
    const Outcome outcome = writeTable(out, path, tableName, fileSize, rowsRead, rowsInTable);
    out.byte(kEndTag);
    out.number(static_cast<uint32_t>(outcome));
    out.number(rowsRead);
    out.number(rowsInTable);
    out.flush();
    ::_exit(0);
}

} // namespace jetchild

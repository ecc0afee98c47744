#pragma once

#include <cstdint>

// libmdb reads a Jet table in a child process of its own: on a damaged file it can loop while
// its memory grows, crash, or flood standard error with warnings. The child runs under a memory
// and a time limit, its output is thrown away, and it sends the table to its parent through a
// pipe. It is forked from a running Qt program, so nothing here touches Qt: libmdb and plain
// POSIX calls only, and the process ends with _exit.
namespace jetchild {

// The child's limits: address space beyond what it inherits, and processor time. The parent
// waits the same number of seconds by the clock before it kills the child.
constexpr uint64_t kMemoryBytes = uint64_t(256) << 20;
constexpr int kSeconds = 10;

// What the child found, sent as the last frame of its stream.
enum class Outcome : uint32_t { Read, NoCatalog, Incomplete, NoTable, RowsMissing };

// How the text libmdb binds for a column is to be taken.
enum class Kind : uint8_t { Number, Boolean, Text };

// The stream: frames that start with a tag byte. Numbers are in the machine's own byte order
// (both ends are the same program); a text is a uint32 length and its UTF-8 bytes.
//   'c' kind text                 a column; all columns come before the first row
//   'r' (null-byte text)*columns  a row; the null byte is 1 for NULL (for a boolean: false)
//   'e' outcome rowsRead rowsInTable (uint32, uint64, uint64): always the last frame
constexpr char kColumnTag = 'c';
constexpr char kRowTag = 'r';
constexpr char kEndTag = 'e';

// Runs in the child right after fork: sets the limits, sends standard output and error to
// /dev/null, writes the table `tableName` of the file at `path` (fileSize bytes long) to fd and
// ends the process.
[[noreturn]] void readTableAndExit(int fd, const char *path, const char *tableName, int64_t fileSize);

} // namespace jetchild

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// Reads a file front to back in large blocks and skips forward without reading, so that a
// walk over many small headers costs few system calls and a walk over large entries costs
// one seek each.
class BufferedFileReader
{
public:
    explicit BufferedFileReader(const std::string &path);
    ~BufferedFileReader();
    BufferedFileReader(const BufferedFileReader &) = delete;
    BufferedFileReader &operator=(const BufferedFileReader &) = delete;

    // 0 when the file is open, else the errno of the failed open.
    int openError() const { return m_openError; }

    // Copies the next `count` bytes; false when the file ends (or cannot be read) first.
    bool read(char *destination, size_t count);
    // Moves forward by `count` bytes; a position behind the end makes the next read fail.
    void skip(uint64_t count);

private:
    bool fill();

    int m_fd = -1;
    int m_openError = 0;
    std::vector<char> m_buffer;
    size_t m_begin = 0;
    size_t m_end = 0;
    uint64_t m_pendingSkip = 0;
};

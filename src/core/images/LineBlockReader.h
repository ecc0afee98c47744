#pragma once

#include <array>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <thread>
#include <vector>

// Reads an open file front to back on a thread of its own, in blocks that end at line ends
// (behind CR LF or a CR that the next byte does not follow with LF), so that the caller
// scans one block while the next ones are read. The blocks are small enough to stay in the
// processor's cache between the read and the scan; a line longer than a block makes its
// block grow.
class LineBlockReader
{
public:
    struct Block
    {
        const char *data = nullptr;
        size_t size = 0;
        uint64_t offset = 0; // of data[0] in the file
    };

    // Reads the first `size` bytes of `fd`, which stays open until the reader is gone.
    LineBlockReader(int fd, uint64_t size);
    ~LineBlockReader();
    LineBlockReader(const LineBlockReader &) = delete;
    LineBlockReader &operator=(const LineBlockReader &) = delete;

    // Hands the next block, valid until the next call; false when no block is left. The last
    // block ends where the `size` bytes end, with or without a line end.
    bool next(Block &block);
    // After next() gave false: whether all `size` bytes were read.
    bool readWhole();

private:
    static constexpr size_t slotCount = 4;

    struct Slot
    {
        std::vector<char> bytes;
        size_t size = 0;
        uint64_t offset = 0;
    };

    void run(int fd, uint64_t size);
    // Waits until the slot of block `n` is free; false when the reader is to stop.
    bool waitForSlot(uint64_t n);
    void publish(uint64_t blocks, bool ended, bool whole);

    std::array<Slot, slotCount> m_slots;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    uint64_t m_published = 0; // blocks read
    uint64_t m_handed = 0; // blocks handed to the caller
    uint64_t m_released = 0; // blocks the caller is done with
    bool m_ended = false;
    bool m_whole = false;
    bool m_stop = false;
    std::thread m_thread;
};

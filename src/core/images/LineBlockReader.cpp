#include "LineBlockReader.h"

#include "LineScanner.h"

#include <algorithm>
#include <cstring>
#include <unistd.h>

namespace {
constexpr size_t readSize = size_t(256) << 10;
}

LineBlockReader::LineBlockReader(int fd, uint64_t size)
    : m_thread([this, fd, size] { run(fd, size); })
{
}

LineBlockReader::~LineBlockReader()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stop = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

bool LineBlockReader::next(Block &block)
{
    std::unique_lock lock(m_mutex);
    if (m_released < m_handed) {
        m_released = m_handed;
        m_changed.notify_all();
    }
    m_changed.wait(lock, [this] { return m_published > m_handed || m_ended; });
    if (m_published == m_handed)
        return false;
    const Slot &slot = m_slots[m_handed % slotCount];
    block = { slot.bytes.data(), slot.size, slot.offset };
    ++m_handed;
    return true;
}

bool LineBlockReader::readWhole()
{
    const std::lock_guard lock(m_mutex);
    return m_whole;
}

bool LineBlockReader::waitForSlot(uint64_t n)
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this, n] { return n - m_released < slotCount || m_stop; });
    return !m_stop;
}

void LineBlockReader::publish(uint64_t blocks, bool ended, bool whole)
{
    {
        const std::lock_guard lock(m_mutex);
        m_published = blocks;
        m_ended = ended;
        m_whole = whole;
    }
    m_changed.notify_all();
}

void LineBlockReader::run(int fd, uint64_t size)
{
    uint64_t done = 0;
    uint64_t offset = 0;
    uint64_t blocks = 0;
    const char *carryFrom = nullptr;
    size_t carry = 0;
    bool failed = false;
    while (done < size && !failed) {
        if (!waitForSlot(blocks))
            return;
        Slot &slot = m_slots[blocks % slotCount];
        if (slot.bytes.size() < carry + readSize)
            slot.bytes.resize(carry + readSize);
        // The line cut by the end of the block before opens this one.
        if (carry)
            std::memcpy(slot.bytes.data(), carryFrom, carry);
        size_t have = carry;
        size_t cut = 0;
        while (cut == 0 && done < size) {
            if (slot.bytes.size() < have + readSize)
                slot.bytes.resize(have + readSize);
            const ssize_t got
                = ::read(fd, slot.bytes.data() + have, static_cast<size_t>(std::min<uint64_t>(readSize, size - done)));
            if (got <= 0) {
                failed = true;
                break;
            }
            have += static_cast<size_t>(got);
            done += static_cast<uint64_t>(got);
            cut = done == size ? have : linescanner::lastLineEnd(slot.bytes.data(), 0, have);
        }
        if (failed)
            break;
        slot.size = cut;
        slot.offset = offset;
        offset += cut;
        carry = have - cut;
        carryFrom = slot.bytes.data() + cut;
        publish(++blocks, false, false);
    }
    publish(blocks, true, !failed && done == size);
}

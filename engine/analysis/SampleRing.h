#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstring>
#include <vector>

namespace kestreleq::analysis
{

/** Samples on their way from one thread to another, without locks: one thread pushes, one thread reads. */
class SampleRing
{
public:
    /** Empties the ring and sizes it: capacity is a power of two, of which one place stays free. Allocates. Never while
        another thread pushes or reads. */
    void prepare (std::size_t capacity)
    {
        samples.assign (capacity, 0.0f);
        mask = capacity - 1;
        writeIndex = 0;
        readIndex = 0;
    }

    /** Takes as many of the samples as there is room for, the oldest ones. The pushing thread; neither locks nor
        allocates. */
    void push (const float* source, std::size_t count)
    {
        const auto write = writeIndex.load (std::memory_order_relaxed);
        const auto room = (readIndex.load (std::memory_order_acquire) - write - 1) & mask;
        count = std::min (count, room);

        const auto first = std::min (count, samples.size() - write);
        std::memcpy (samples.data() + write, source, first * sizeof (float));
        std::memcpy (samples.data(), source + first, (count - first) * sizeof (float));
        writeIndex.store ((write + count) & mask, std::memory_order_release);
    }

    /** The number of samples that can be read. The reading thread. */
    std::size_t available() const
    {
        return (writeIndex.load (std::memory_order_acquire) - readIndex.load (std::memory_order_relaxed)) & mask;
    }

    /** Moves the oldest samples out, at most as many as are available. The reading thread. */
    void read (float* destination, std::size_t count)
    {
        const auto read = readIndex.load (std::memory_order_relaxed);
        const auto first = std::min (count, samples.size() - read);
        std::memcpy (destination, samples.data() + read, first * sizeof (float));
        std::memcpy (destination + first, samples.data(), (count - first) * sizeof (float));
        skip (count);
    }

    /** Drops the oldest samples, at most as many as are available. The reading thread. */
    void skip (std::size_t count)
    {
        readIndex.store ((readIndex.load (std::memory_order_relaxed) + count) & mask, std::memory_order_release);
    }

private:
    static_assert (std::atomic<std::size_t>::is_always_lock_free);

    std::vector<float> samples;
    std::size_t mask = 0;
    alignas (64) std::atomic<std::size_t> writeIndex { 0 }; // a cache line each: two threads write them
    alignas (64) std::atomic<std::size_t> readIndex { 0 };
};

} // namespace kestreleq::analysis

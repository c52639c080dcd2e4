// The head of a buffer that copies of a String or an Array share. Not for use outside these two.
#pragma once

#include <Pegasus/Common/Config.h>

#include <atomic>

PEGASUS_NAMESPACE_BEGIN

/// Counts the owners of a buffer whose elements lie behind it. Only a sole owner writes to the
/// elements, so copies of a value may live on different threads.
struct SharedBuffer {
    explicit SharedBuffer(Uint32 room) noexcept : capacity(room) {}

    void retain() noexcept { references.fetch_add(1, std::memory_order_relaxed); }

    /// Gives up one share; true when it was the last, and the caller destroys the buffer.
    bool release() noexcept {
        // A sole owner needs no atomic write: nobody else can take a share meanwhile.
        return isUnique() || references.fetch_sub(1, std::memory_order_acq_rel) == 1;
    }

    bool isUnique() const noexcept { return references.load(std::memory_order_acquire) == 1; }

    std::atomic<Uint32> references{1};
    Uint32 size = 0;
    Uint32 capacity;
};

/// Throws IndexOutOfBoundsException.
[[noreturn]] PEGASUS_EXPORT void throwIndexOutOfBounds();

PEGASUS_NAMESPACE_END

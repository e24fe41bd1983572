// Position arithmetic of the double ring buffer: pure functions over the
// three ring fields, no storage and no locking.
#pragma once

#include <cstdint>

// The ring fields an operation needs. Invariants: 0 <= count <= capacity;
// head is -1 when count is 0, else in [0, capacity).
struct RingState {
    std::int32_t count;     // values held
    std::int32_t head;      // array position of the newest value
    std::int32_t capacity;  // length of the array
};

// Array position of the value of age `index` (0 = oldest, -1 = newest), or -1
// when that age does not map to a held value. The wrap is applied once only,
// so on a full ring an age equal to the capacity reads the oldest value again;
// callers rely on these aliases.
constexpr std::int32_t RingReadPosition(const RingState& ring, std::int32_t index) noexcept {
    // 64-bit so that a large index added to head cannot overflow; every
    // result that passes the final test fits 32 bits.
    std::int64_t position;  // [INT32_MIN - 1, INT32_MAX + capacity]
    if (index >= 0) {
        position = std::int64_t{index} + ring.head - ring.count + 1;
        if (position >= ring.capacity) position -= ring.capacity;
        if (position < 0) position += ring.capacity;
    } else {
        position = std::int64_t{ring.head} + index + 1;
        if (position < 0) position += ring.capacity;
    }
    if (position < 0 || position >= ring.count) return -1;
    return static_cast<std::int32_t>(position);
}

// True when put_Element(index) overwrites array position `index` itself
// rather than appending. The index is a raw array position, not an age:
// after the ring has wrapped the two differ, and stored data depends on it.
constexpr bool RingOverwrites(const RingState& ring, std::int32_t index) noexcept {
    return index >= 0 && index < ring.count;
}

// Advances the ring for an append and returns the array position to store
// at. Once full, the oldest value's position is reused. Needs capacity >= 1.
constexpr std::int32_t RingAppend(RingState& ring) noexcept {
    if (ring.count < ring.capacity) {
        ring.head = ring.count;
        ++ring.count;
    } else {
        ++ring.head;  // head < capacity <= INT32_MAX, no overflow
        if (ring.head == ring.capacity) ring.head -= ring.capacity;
    }
    return ring.head;
}

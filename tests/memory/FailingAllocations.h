#pragma once

#include <cstdint>
#include <limits>

namespace corvale::TestSupport {

// While it lives, operator new throws std::bad_alloc on this thread: at the given allocation, counted from 1, or from
// there on.
class FailingAllocations {
public:
    enum class Mode : std::uint8_t { once, fromThenOn };

    FailingAllocations(std::int64_t first, Mode mode);
    ~FailingAllocations();
    FailingAllocations(const FailingAllocations&) = delete;
    FailingAllocations& operator=(const FailingAllocations&) = delete;

    // Whether one has failed; none does after the last allocation of what was tried.
    bool haveStruck() const;
};

}  // namespace corvale::TestSupport

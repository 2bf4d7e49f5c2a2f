#include "tests/memory/FailingAllocations.h"

#include <cstdlib>
#include <new>

namespace {

struct Plan {
    std::int64_t left = std::numeric_limits<std::int64_t>::max();  // allocations that succeed
    bool goesOn = false;
    bool hasStruck = false;
};

thread_local Plan plan;

void refuseAsPlanned() {
    if (plan.left > 0) {
        --plan.left;
        return;
    }
    plan.hasStruck = true;
    if (!plan.goesOn) {
        plan.left = std::numeric_limits<std::int64_t>::max();
    }
    throw std::bad_alloc();
}

void* memoryOf(std::size_t size) {
    void* const memory = std::malloc(size == 0 ? 1 : size);
    return memory != nullptr ? memory : throw std::bad_alloc();
}

}  // namespace

// All that the standard library calls, since what one gives another takes back.
void* operator new(std::size_t size) {
    refuseAsPlanned();
    return memoryOf(size);
}
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void* operator new[](std::size_t size, const std::nothrow_t& never) noexcept { return operator new(size, never); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { std::free(memory); }

namespace corvale::TestSupport {

FailingAllocations::FailingAllocations(std::int64_t first, Mode mode) {
    plan = {first - 1, mode == Mode::fromThenOn, false};
}

FailingAllocations::~FailingAllocations() { plan = {}; }

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): of this object's time
bool FailingAllocations::haveStruck() const { return plan.hasStruck; }

}  // namespace corvale::TestSupport

#pragma once

#include <cstdio>
#include <cstdlib>

namespace corvale {

// Ends the process with a message that names the broken rule and its place. Used where going on would show wrong data.
[[noreturn]] inline void requirementFailed(const char* rule, const char* file, int line) {
    std::fprintf(stderr, "corvale: %s (%s:%d)\n", rule, file, line);
    std::abort();
}

}  // namespace corvale

// Checks a programming contract in every build, unlike assert, which a release build drops.
#define CORVALE_REQUIRE(condition, rule) \
    ((condition) ? static_cast<void>(0) : ::corvale::requirementFailed(rule, __FILE__, __LINE__))

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "CorvaleKit/base/Require.h"
#include "tests/support/XMLTwins.h"

// Reads any part of a workbook, as events, as a worksheet and as shared strings, through the short cut and through the
// general parser alone. The first byte says which texts are wanted of the events.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::string_view part(reinterpret_cast<const char*>(data) + 1, size - 1);
    constexpr unsigned seeds = 8;
    CORVALE_REQUIRE(corvale::XMLTwins::agree(part, data[0] % seeds), "the parsers do not read the same");
    return 0;
}

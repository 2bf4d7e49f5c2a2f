#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/base/Require.h"
#include "CorvaleKit/engine/StoredForms.h"

namespace {

using namespace corvale;

template <typename Decode>
auto decodedOrNone(std::string_view json, Decode decode) -> std::optional<decltype(decode(json))> {
    try {
        return decode(json);
    } catch (const DecodingError&) {
        return std::nullopt;
    }
}

// Anything but a DecodingError ends the fuzzer, and so does one from a text of our own.
template <typename Decode>
void checkRoundTrip(std::string_view json, Decode decode) {
    if (const auto value = decodedOrNone(json, decode)) {
        const std::string text = StoredForms::encoded(*value);
        const auto again = decode(text);
        CORVALE_REQUIRE(again == *value, "a stored value reads back as another");
        CORVALE_REQUIRE(StoredForms::encoded(again) == text, "a stored value is written in two ways");
    }
}

}  // namespace

// What is read is written so that it reads back to the same value and the same text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view json(reinterpret_cast<const char*>(data), size);
    checkRoundTrip(json, StoredForms::decodedDiffOptions);
    checkRoundTrip(json, StoredForms::decodedRowMatch);
    return 0;
}

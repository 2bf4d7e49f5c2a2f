#include <cstddef>
#include <cstdint>
#include <string_view>

#include "CorvaleKit/base/Require.h"
#include "CorvaleKit/loading/CSV.h"
#include "fuzz/GridPromises.h"
#include "tests/support/Grids.h"
#include "tests/support/SlowCSV.h"

namespace {

void requireParsed(std::string_view text, char delimiter) {
    using namespace corvale;
    const CellGrid grid = CSV::parse(Bytes(text), delimiter);
    CORVALE_REQUIRE(Grids::texts(grid) == SlowCSV::parse(text, delimiter), "a text is parsed otherwise");
    requireTrueStretches(grid);
}

}  // namespace

// Any bytes are decoded, judged and parsed exactly as the slow reader does it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace corvale;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const Bytes decoded = CSV::decodeText(Bytes(bytes));
    const std::string_view text = decoded.view();
    CORVALE_REQUIRE(text == SlowCSV::decodeText(bytes), "a text is decoded otherwise");
    CORVALE_REQUIRE(CSV::looksLikeText(text) == SlowCSV::looksLikeText(text), "a text is judged otherwise");

    const char detected = CSV::detectDelimiter(text);
    CORVALE_REQUIRE(detected == SlowCSV::detectDelimiter(text), "another delimiter is detected");
    CORVALE_REQUIRE(Grids::texts(CSV::parse(Bytes(text))) == SlowCSV::parse(text, detected),
                    "a text is parsed otherwise with the delimiter that is detected");
    for (const char delimiter : {',', '\t', ';'}) {
        requireParsed(text, delimiter);
    }
    return 0;
}

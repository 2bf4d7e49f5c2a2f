#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/loading/XLSX.h"
#include "fuzz/GridPromises.h"

// Reads the first sheets of any file as a workbook.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t sheetsRead = 3;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    try {
        const std::size_t count = corvale::XLSX::sheets(bytes).size();
        CORVALE_REQUIRE(count > 0, "a workbook without sheets was opened");
        for (std::size_t i = 0; i < std::min(count, sheetsRead); ++i) {
            requireWorksheetGrid(corvale::XLSX::readSheet(bytes, static_cast<std::int64_t>(i)));
        }
    } catch (const corvale::UserFailure& failure) {
        CORVALE_REQUIRE(!failure.message().empty(), "a failure says nothing");
    }
    return 0;
}

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/base/Require.h"
#include "CorvaleKit/loading/DataLoader.h"
#include "CorvaleKit/text/Text.h"

namespace {

using corvale::DataTable;

constexpr std::array<std::string_view, 8> fileNames = {
    "a.csv", "a.tsv", "a.xlsx", "A.XLSX", "a.numbers", "a.xls", ".xls", ""};

void requireUniqueNames(const DataTable& table) {
    std::set<std::string> names;
    for (const auto& header : table.headers()) {
        CORVALE_REQUIRE(!header.empty(), "a column has no name");
        CORVALE_REQUIRE(names.insert(corvale::Text::lowercased(header)).second, "two columns have the same name");
    }
}

void requireWholeRows(const DataTable& table) {
    CORVALE_REQUIRE(table.rowNumbers().size() == table.rows().size(), "a row has no number");
    std::int64_t number = table.headerRowNumber();
    CORVALE_REQUIRE(number >= 1, "the header row lies above the first");
    for (std::size_t i = 0; i < table.rows().size(); ++i) {
        CORVALE_REQUIRE(table.rowNumber(i) > number, "row numbers do not ascend");
        number = table.rowNumber(i);
        const auto row = table.rows()[i];
        CORVALE_REQUIRE(row.size() == table.headers().size(), "a row is not as wide as the headers");
        bool isBlank = true;
        for (const std::string_view cell : row) {
            isBlank = isBlank && corvale::Text::isBlank(cell);
        }
        CORVALE_REQUIRE(!isBlank, "a blank row was kept");
    }
}

void requireSmallTop(const DataTable& table) {
    CORVALE_REQUIRE(table.topRows().size() <= 12, "there are more than twelve top rows");
    for (const auto row : table.topRows()) {
        CORVALE_REQUIRE(row.size() <= 12, "a top row has more than twelve cells");
    }
}

}  // namespace

// A file whose name, sheet and header row its first bytes choose loads as a table that keeps the promises of one, or
// fails with a sentence for the user.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) {
        return 0;
    }
    const std::string_view name = fileNames[data[0] % fileNames.size()];
    const std::int64_t sheet = data[1] % 4 - 1;
    const auto headerRow = data[2] == 0 ? std::nullopt : std::optional<std::int64_t>(data[2]);
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 3, size - 3);
    try {
        const DataTable table = corvale::DataLoader::load(corvale::Bytes(bytes), name, sheet, headerRow);
        CORVALE_REQUIRE(!table.headers().empty(), "a table without columns was loaded");
        CORVALE_REQUIRE(table.sourceName() == name, "the table has another name than its file");
        requireUniqueNames(table);
        requireWholeRows(table);
        requireSmallTop(table);
    } catch (const corvale::UserFailure& failure) {
        CORVALE_REQUIRE(!failure.message().empty(), "a failure says nothing");
    }
    return 0;
}

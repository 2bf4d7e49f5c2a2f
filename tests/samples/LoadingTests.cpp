#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/samples/SampleFiles.h"

namespace corvale {
namespace {

using nlohmann::json;

// What every loaded table keeps to.
std::string brokenPromise(const json& table) {
    const std::size_t width = table.at("headers").size();
    const auto& numbers = table.at("rowNumbers");
    if (width == 0) {
        return "no columns";
    }
    if (numbers.size() != table.at("rows").size()) {
        return "not one number a row";
    }
    for (const auto& row : table.at("rows")) {
        if (row.size() != width) {
            return "a row that is not as wide as the headers";
        }
    }
    std::int64_t last = table.at("headerRowNumber");
    for (const std::int64_t number : numbers) {
        if (number <= last) {
            return "row numbers that do not ascend";
        }
        last = number;
    }
    const auto& top = table.at("topRows");
    const bool isSmall =
        top.size() <= 12 && std::all_of(top.begin(), top.end(), [](const json& row) { return row.size() <= 12; });
    return isSmall ? "" : "more than twelve top rows or cells";
}

// True when it was a table.
bool expectTableOrTrouble(const std::vector<std::string>& arguments) {
    const auto result = SampleFiles::runBounded(arguments);
    EXPECT_EQ(SampleFiles::misbehaviour(result), "") << testing::PrintToString(arguments);
    if (result.status == 0) {
        EXPECT_EQ(brokenPromise(json::parse(result.output)), "") << testing::PrintToString(arguments);
    }
    return result.status == 0;
}

std::size_t sheetCount(const std::string& path) {
    const auto result = SampleFiles::runBounded({"sheets", path});
    EXPECT_EQ(SampleFiles::misbehaviour(result), "") << path;
    return result.status == 0 ? json::parse(result.output).size() : 0;
}

std::vector<std::string> sourceFolders() {
    std::vector<std::string> all;
    for (const std::string part : {"csv", "xlsx"}) {
        for (const std::string& folder : SampleFiles::folders(part)) {
            all.push_back(folder.empty() ? "" : part + "/" + folder);
        }
    }
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}

class SampleLoading : public testing::TestWithParam<std::string> {};

// Each sheet of each file: the first eight stand for a workbook of more. Up to a third of a folder may be broken or
// empty, and all of one with hardly a file.
TEST_P(SampleLoading, EveryFileGivesATableOrOneSentence) {
    if (GetParam().empty()) {
        GTEST_SKIP() << "the CMake option CORVALE_SAMPLES names no folder of sample files";
    }
    constexpr std::size_t sheetsTried = 8;
    constexpr std::size_t fewFiles = 3;
    const auto files = SampleFiles::files(GetParam());
    ASSERT_FALSE(files.empty());
    std::size_t tables = 0;
    for (const auto& file : files) {
        tables += expectTableOrTrouble({"table", file.string()}) ? 1 : 0;
        const std::size_t sheets = std::min(sheetCount(file.string()), sheetsTried);
        for (std::size_t sheet = 2; sheet <= sheets; ++sheet) {
            expectTableOrTrouble({"table", file.string(), "--sheet", std::to_string(sheet)});
        }
    }
    if (files.size() > fewFiles) {
        EXPECT_GE(3 * tables, 2 * files.size()) << tables << " of " << files.size() << " files give a table";
    }
}

INSTANTIATE_TEST_SUITE_P(Samples, SampleLoading, testing::ValuesIn(sourceFolders()),
                         [](const auto& test) { return SampleFiles::testName(test.param); });

}  // namespace
}  // namespace corvale

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "tests/samples/SampleFiles.h"

namespace corvale {
namespace {

using nlohmann::json;

std::string sidePath(const std::string& pair, const std::string& side) {
    for (const auto& file : SampleFiles::files(std::filesystem::path("pairs") / pair)) {
        if (file.stem() == side) {
            return file.string();
        }
    }
    ADD_FAILURE() << pair << " has no " << side << " file";
    return {};
}

// The indexes of one side that the rows name, in their order.
std::vector<std::size_t> indexes(const json& rows, const char* side) {
    std::vector<std::size_t> all;
    for (const auto& row : rows) {
        if (row.contains(side)) {
            all.push_back(row[side]);
        }
    }
    return all;
}

bool areAllOnce(std::vector<std::size_t> found, std::size_t count) {
    std::sort(found.begin(), found.end());
    for (std::size_t i = 0; i < found.size(); ++i) {
        if (found[i] != i) {
            return false;
        }
    }
    return found.size() == count;
}

std::string expectedStatus(const json& row) {
    if (!row.contains("left")) {
        return "added";
    }
    if (!row.contains("right")) {
        return "removed";
    }
    return row.at("changes").empty() ? "same" : "changed";
}

bool isCompared(const json& column) {
    return column.contains("left") && column.contains("right") && !column.at("ignored");
}

// Counts what the summary should say.
json counted(const json& result) {
    std::map<std::string, std::int64_t> counts = {{"added", 0},
                                                  {"removed", 0},
                                                  {"changed", 0},
                                                  {"same", 0},
                                                  {"changedCells", 0},
                                                  {"typeOnlyCells", 0},
                                                  {"addedColumns", 0},
                                                  {"removedColumns", 0}};
    json byColumn = json::object();
    for (const auto& row : result.at("rows")) {
        ++counts[row.at("status")];
        for (const auto& change : row.at("changes")) {
            ++counts["changedCells"];
            counts["typeOnlyCells"] += change.at("kind") != "value" ? 1 : 0;
            auto& count = byColumn[std::to_string(change.at("column").get<std::size_t>())];
            count = count.is_null() ? 1 : count.get<int>() + 1;
        }
    }
    for (const auto& column : result.at("columns")) {
        counts["addedColumns"] += column.contains("left") ? 0 : 1;
        counts["removedColumns"] += column.contains("right") ? 0 : 1;
    }
    json summary = counts;
    summary["changesByColumn"] = byColumn;
    return summary;
}

void expectRowsKeepTheirPromises(const json& result) {
    const auto& columns = result.at("columns");
    for (const auto& row : result.at("rows")) {
        ASSERT_EQ(row.at("status"), expectedStatus(row)) << row;
        std::int64_t last = -1;
        for (const auto& change : row.at("changes")) {
            ASSERT_GT(change.at("column"), last) << row;
            last = change.at("column");
            ASSERT_TRUE(isCompared(columns.at(static_cast<std::size_t>(last)))) << row;
        }
    }
}

void expectVisibleRowsAreTheDifferences(const json& result) {
    std::vector<std::size_t> differences;
    for (std::size_t i = 0; i < result.at("rows").size(); ++i) {
        if (result.at("rows")[i].at("status") != "same") {
            differences.push_back(i);
        }
    }
    EXPECT_EQ(result.at("visible").get<std::vector<std::size_t>>(), differences);
}

void expectSoundComparison(std::vector<std::string> arguments, const std::string& before, const std::string& after) {
    SCOPED_TRACE(testing::PrintToString(arguments));
    arguments.insert(arguments.begin(), {"compare", before, after, "--format", "json"});
    const auto run = SampleFiles::runBounded(arguments);
    ASSERT_EQ(SampleFiles::misbehaviour(run), "");
    ASSERT_NE(run.status, 2) << run.error;
    const json result = json::parse(run.output);
    const auto& rows = result.at("rows");
    EXPECT_TRUE(areAllOnce(indexes(rows, "left"), result.at("before").at("rowCount")));
    EXPECT_TRUE(areAllOnce(indexes(rows, "right"), result.at("after").at("rowCount")));
    if (result.at("match").contains("rowOrder")) {
        const auto left = indexes(rows, "left");
        const auto right = indexes(rows, "right");
        EXPECT_TRUE(std::is_sorted(left.begin(), left.end()));
        EXPECT_TRUE(std::is_sorted(right.begin(), right.end()));
    }
    expectRowsKeepTheirPromises(result);
    expectVisibleRowsAreTheDifferences(result);
    const json summary = counted(result);
    EXPECT_EQ(result.at("summary"), summary);
    const bool differs =
        summary["same"] != rows.size() || summary["addedColumns"] != 0 || summary["removedColumns"] != 0;
    EXPECT_EQ(run.status, differs ? 1 : 0);
}

class SamplePairs : public testing::TestWithParam<std::string> {};

TEST_P(SamplePairs, CompareSoundly) {
    if (GetParam().empty()) {
        GTEST_SKIP() << "the CMake option CORVALE_SAMPLES names no folder of sample files";
    }
    const std::string before = sidePath(GetParam(), "before");
    const std::string after = sidePath(GetParam(), "after");
    const std::vector<std::vector<std::string>> choices = {
        {},
        {"--row-order"},
        {"--by-position", "--keep-whitespace"},
        {"--row-order", "--ignore-case", "--ignore-number-format", "--number-style", "commaDecimal"},
    };
    for (const auto& choice : choices) {
        expectSoundComparison(choice, before, after);
        expectSoundComparison(choice, after, before);
    }
}

TEST_P(SamplePairs, AFileAgainstItselfIsTheSame) {
    if (GetParam().empty()) {
        GTEST_SKIP() << "the CMake option CORVALE_SAMPLES names no folder of sample files";
    }
    const std::string after = sidePath(GetParam(), "after");
    const auto run = SampleFiles::runBounded({"compare", after, after, "--row-order", "--format", "summary"});
    EXPECT_EQ(run.status, 0) << run.error << run.output;
}

INSTANTIATE_TEST_SUITE_P(Samples, SamplePairs, testing::ValuesIn(SampleFiles::folders("pairs")),
                         [](const auto& test) { return SampleFiles::testName(test.param); });

}  // namespace
}  // namespace corvale

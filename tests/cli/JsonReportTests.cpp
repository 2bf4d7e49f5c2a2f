#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "CorvaleKit/engine/DiffEngine.h"
#include "cli/JsonReport.h"

namespace corvale::Cli::JsonReport {
namespace {

using Rows = std::vector<std::vector<std::string>>;

// What a report function hands to its sink.
template <typename Write>
std::string written(const Write& write) {
    std::string document;
    write([&](std::string_view piece) { document += piece; });
    return document;
}

std::string resultDocument(DiffResult result, const std::vector<std::int64_t>& visible) {
    result.duration = 0.1;
    return written([&](const JsonWriter::Sink& sink) { writeResult(result, visible, sink); });
}

TEST(JsonReport, SheetsAreAnArray) {
    EXPECT_EQ(written([](const auto& sink) { writeSheets({"A", "“B”\n"}, sink); }), "[\"A\",\"“B”\\n\"]\n");
    EXPECT_EQ(written([](const auto& sink) { writeSheets({}, sink); }), "[]\n");
}

TEST(JsonReport, ATableHasARowALine) {
    const DataTable table({"ID", "N"}, {{"1", "a"}, {"2", ""}}, "t.csv", {2, 4}, 1);
    EXPECT_EQ(written([&](const auto& sink) { writeTable(table, sink); }),
              "{\"headers\":[\"ID\",\"N\"],\n"
              "\"rows\":[\n"
              "[\"1\",\"a\"],\n"
              "[\"2\",\"\"]],\n"
              "\"sourceName\":\"t.csv\",\n"
              "\"rowNumbers\":[2,4],\n"
              "\"headerRowNumber\":1,\n"
              "\"topRows\":[]}\n");
}

TEST(JsonReport, ATableIsReadBackFromItsReport) {
    const DataTable table({"ID", "“N”\n"}, {{"1", "a\t\\"}, {"2", ""}, {"", "é\""}}, "t.csv", {2, 4, 9}, 1);
    const std::string document = written([&](const auto& sink) { writeTable(table, sink); });
    EXPECT_EQ(DataTable::decoded(document), table);
    auto form = nlohmann::json::parse(document);
    form.erase("topRows");
    EXPECT_EQ(form, nlohmann::json::parse(table.encoded()));
}

TEST(JsonReport, TopRowsAreAsWideAsTheyWere) {
    DataTable::Parts parts;
    parts.headers = {"A", "B"};
    parts.topRows = CellRows(CellGrid::fromTexts({{"A", "B"}, {}, {"x"}}));
    const std::string document = written([&](const auto& sink) { writeTable(DataTable(parts), sink); });
    EXPECT_EQ(nlohmann::json::parse(document)["topRows"], nlohmann::json::parse(R"([["A","B"],[],["x"]])"));
}

TEST(JsonReport, TheKeyIsNullWhereNoneIsSuggested) {
    EXPECT_EQ(written([](const auto& sink) { writeKey({}, sink); }), "{\"suggestedKey\":null,\n\"candidates\":[]}\n");
}

TEST(JsonReport, CandidatesKeepTheirOrderAndTheirDigits) {
    EXPECT_EQ(written([](const auto& sink) {
                  writeKey({{"ID", 1, 1.0 / 3, 6.75}, {"N", 0.5, 1, 0.1}}, sink);
              }),
              "{\"suggestedKey\":\"ID\",\n"
              "\"candidates\":[\n"
              "{\"column\":\"ID\",\"uniqueness\":1,\"overlap\":0.3333333333333333,\"score\":6.75},\n"
              "{\"column\":\"N\",\"uniqueness\":0.5,\"overlap\":1,\"score\":0.1}]}\n");
}

TEST(JsonReport, AResultHasEveryFieldInOrder) {
    const DataTable before({"ID", "N", "Old"}, {{"1", "a", "x"}, {"1", "b", "x"}, {"", "c", "x"}}, "a.csv");
    const DataTable after(
        {"ID", "N", "New"}, {{"1", "A", "x"}, {"1", "b", "x"}, {"3", "d", "x"}}, "b.csv", {3, 4, 6}, 2);
    const DiffResult result = DiffEngine::compare(before, after, RowMatch::key({"ID"}), {}, NumberStyle::dotDecimal);
    EXPECT_EQ(resultDocument(result, {0, 2}),
              "{\"before\":{\"headers\":[\"ID\",\"N\",\"Old\"],\"rowNumbers\":[2,3,4],\"headerRowNumber\":1,"
              "\"sourceName\":\"a.csv\",\"rowCount\":3},\n"
              "\"after\":{\"headers\":[\"ID\",\"N\",\"New\"],\"rowNumbers\":[3,4,6],\"headerRowNumber\":2,"
              "\"sourceName\":\"b.csv\",\"rowCount\":3},\n"
              "\"columns\":[\n"
              "{\"name\":\"ID\",\"left\":0,\"right\":0,\"ignored\":true},\n"
              "{\"name\":\"N\",\"left\":1,\"right\":1,\"ignored\":false},\n"
              "{\"name\":\"Old\",\"left\":2,\"ignored\":false},\n"
              "{\"name\":\"New\",\"right\":2,\"ignored\":false}],\n"
              "\"rows\":[\n"
              "{\"status\":\"changed\",\"left\":0,\"right\":0,\"key\":\"1\",\"changes\":[{\"column\":1,\"kind\":"
              "\"letterCase\"}]},\n"
              "{\"status\":\"same\",\"left\":1,\"right\":1,\"key\":\"1\",\"changes\":[]},\n"
              "{\"status\":\"removed\",\"left\":2,\"key\":\"\",\"changes\":[]},\n"
              "{\"status\":\"added\",\"right\":2,\"key\":\"3\",\"changes\":[]}],\n"
              "\"duplicates\":[\n"
              "{\"key\":\"1\",\"side\":\"before\",\"rowNumbers\":[2,3]},\n"
              "{\"key\":\"1\",\"side\":\"after\",\"rowNumbers\":[3,4]}],\n"
              "\"blankKeys\":{\"before\":[4],\"after\":[]},\n"
              "\"match\":{\"key\":{\"_0\":[\"ID\"]}},\n"
              "\"options\":{\"ignoreCase\":false,\"ignoreWhitespace\":true,\"ignoreNumberFormat\":false,"
              "\"ignoreColumnOrder\":true,\"ignoredColumns\":[],\"numberStyle\":\"automatic\"},\n"
              "\"numberStyle\":\"dotDecimal\",\n"
              "\"columnOrderChanged\":false,\n"
              "\"summary\":{\"added\":1,\"removed\":1,\"changed\":1,\"same\":1,\"changedCells\":1,\"typeOnlyCells\":1,"
              "\"addedColumns\":1,\"removedColumns\":1,\"changesByColumn\":{\"1\":1}},\n"
              "\"visible\":[0,2],\n"
              "\"duration\":0.1}\n");
}

TEST(JsonReport, ARenamedColumnHasItsNewName) {
    DiffOptions options;
    options.ignoreColumnOrder = false;
    const DiffResult result = DiffEngine::compare(DataTable({"Qty"}, {{"1"}}, "a.csv"),
                                                  DataTable({"Quantity"}, {{"2"}}, "b.csv"),
                                                  RowMatch::rowOrder(),
                                                  options,
                                                  NumberStyle::commaDecimal);
    const auto document = nlohmann::json::parse(resultDocument(result, {}));
    EXPECT_EQ(document["columns"][0],
              nlohmann::json::parse(R"({"name":"Qty","left":0,"right":0,"ignored":false,"renamedTo":"Quantity"})"));
    EXPECT_EQ(document["match"], nlohmann::json::parse(R"({"rowOrder":{}})"));
    EXPECT_EQ(document["numberStyle"], "commaDecimal");
    EXPECT_EQ(document["rows"][0]["key"], "2");
}

TEST(JsonReport, AnyTextReadsBack) {
    const std::string odd("\"\\/\b\f\n\r\t\x01\x1F\x7F é 日 😀");
    const DataTable table({odd}, {{odd}}, odd);
    const auto document = nlohmann::json::parse(written([&](const auto& sink) { writeTable(table, sink); }));
    EXPECT_EQ(document["headers"][0], odd);
    EXPECT_EQ(document["rows"][0][0], odd);
    EXPECT_EQ(document["sourceName"], odd);
}

TEST(JsonReport, ALargeResultIsNeverHeldWhole) {
    Rows rows;
    for (int i = 0; i < 5000; ++i) {
        rows.push_back({std::to_string(i), "x"});
    }
    const DataTable table({"ID", "N"}, rows, "a.csv");
    const DiffResult result = DiffEngine::compare(table, table, RowMatch::key({"ID"}), {}, NumberStyle::dotDecimal);
    std::size_t longest = 0;
    std::string document;
    writeResult(result, {}, [&](std::string_view piece) {
        longest = std::max(longest, piece.size());
        document += piece;
    });
    EXPECT_LT(longest, 70000U);
    EXPECT_EQ(nlohmann::json::parse(document)["rows"].size(), 5000U);
}

}  // namespace
}  // namespace corvale::Cli::JsonReport

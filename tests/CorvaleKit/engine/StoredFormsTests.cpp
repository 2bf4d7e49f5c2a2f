#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/engine/StoredForms.h"

namespace corvale::StoredForms {
namespace {

template <typename Decode>
std::string failure(Decode decode, std::string_view json) {
    try {
        decode(json);
    } catch (const DecodingError& error) {
        return error.what();
    }
    return "no failure";
}

std::string optionsFailure(std::string_view json) { return failure(decodedDiffOptions, json); }
std::string matchFailure(std::string_view json) { return failure(decodedRowMatch, json); }

constexpr std::string_view wrongCount = "Invalid number of keys found, expected one.";

DiffOptions unusualOptions() {
    DiffOptions options;
    options.ignoreCase = true;
    options.ignoreWhitespace = false;
    options.ignoreNumberFormat = true;
    options.ignoreColumnOrder = false;
    options.ignoredColumns = {"Note", "\"quoted\"\n", "Zürich", "", "note"};
    options.numberStyle = NumberStyle::commaDecimal;
    return options;
}

TEST(StoredOptions, AreWrittenWithAllKeysInOrder) {
    EXPECT_EQ(encoded(DiffOptions{}),
              R"({"ignoreCase":false,"ignoreWhitespace":true,"ignoreNumberFormat":false,"ignoreColumnOrder":true,)"
              R"("ignoredColumns":[],"numberStyle":"automatic"})");
    EXPECT_EQ(encoded(unusualOptions()),
              R"({"ignoreCase":true,"ignoreWhitespace":false,"ignoreNumberFormat":true,"ignoreColumnOrder":false,)"
              R"("ignoredColumns":["","\"quoted\"\n","Note","Zürich","note"],"numberStyle":"commaDecimal"})");
}

TEST(StoredOptions, ReadBackToTheSameValue) {
    EXPECT_EQ(decodedDiffOptions(encoded(DiffOptions{})), DiffOptions{});
    EXPECT_EQ(decodedDiffOptions(encoded(unusualOptions())), unusualOptions());
}

TEST(StoredOptions, TakeDefaultsForMissingKeys) {
    DiffOptions expected;
    expected.ignoreCase = false;
    expected.ignoreWhitespace = true;
    expected.ignoreNumberFormat = false;
    expected.ignoreColumnOrder = true;
    expected.ignoredColumns = {};
    expected.numberStyle = NumberStyle::commaDecimal;
    EXPECT_EQ(decodedDiffOptions(R"({"numberStyle": "commaDecimal"})"), expected);
    EXPECT_EQ(decodedDiffOptions("{}"), DiffOptions{});
}

TEST(StoredOptions, TakeEachKeyByItself) {
    const auto changed = [](auto change) {
        DiffOptions options;
        change(options);
        return options;
    };
    struct Case {
        std::string_view json;
        DiffOptions options;
    };
    const std::vector<Case> cases = {
        {R"({"ignoreCase":true})", changed([](DiffOptions& o) { o.ignoreCase = true; })},
        {R"({"ignoreWhitespace":false})", changed([](DiffOptions& o) { o.ignoreWhitespace = false; })},
        {R"({"ignoreNumberFormat":true})", changed([](DiffOptions& o) { o.ignoreNumberFormat = true; })},
        {R"({"ignoreColumnOrder":false})", changed([](DiffOptions& o) { o.ignoreColumnOrder = false; })},
        {R"({"ignoredColumns":["b","a","b"]})", changed([](DiffOptions& o) {
             o.ignoredColumns = {"a", "b"};
         })},
        {R"({"numberStyle":"dotDecimal"})", changed([](DiffOptions& o) { o.numberStyle = NumberStyle::dotDecimal; })},
        {R"({"ignoreWhitespace":null,"ignoredColumns":null,"numberStyle":null})", DiffOptions{}},
        {R"({"somethingNewer":[1,2],"ignoreCase":true})", changed([](DiffOptions& o) { o.ignoreCase = true; })},
    };
    for (const auto& [json, options] : cases) {
        EXPECT_EQ(decodedDiffOptions(json), options) << json;
    }
}

TEST(StoredOptions, RefuseWrongTypesAndUnknownStyles) {
    EXPECT_EQ(optionsFailure("[]"), "Expected an object, found array.");
    EXPECT_EQ(optionsFailure("null"), "Expected an object, found null.");
    EXPECT_EQ(optionsFailure(R"({"numberStyle":"germanStyle"})"), "\"germanStyle\" is no number style.");
    EXPECT_EQ(optionsFailure(R"({"numberStyle":"CommaDecimal"})"), "\"CommaDecimal\" is no number style.");
    for (const std::string_view json : {"",
                                        "{",
                                        "{}x",
                                        "{\"ignoreCase\":}",
                                        "\xFF",
                                        R"({"ignoreCase":"true"})",
                                        R"({"ignoreCase":1})",
                                        R"({"ignoredColumns":"Note"})",
                                        R"({"ignoredColumns":[1]})",
                                        R"({"ignoredColumns":[null]})",
                                        R"({"ignoredColumns":{"a":"b"}})",
                                        R"({"numberStyle":1})",
                                        R"({"numberStyle":["dotDecimal"]})"}) {
        EXPECT_THROW(decodedDiffOptions(json), DecodingError) << json;
    }
}

TEST(StoredMatch, HoldsTheKeyColumnsUnderItsCase) {
    EXPECT_EQ(encoded(RowMatch::key({"ID"})), R"({"key":{"_0":["ID"]}})");
    EXPECT_EQ(encoded(RowMatch::key({"Order", "Line \"no\""})), R"({"key":{"_0":["Order","Line \"no\""]}})");
    EXPECT_EQ(encoded(RowMatch::key({})), R"({"key":{"_0":[]}})");
    EXPECT_EQ(encoded(RowMatch::rowOrder()), R"({"rowOrder":{}})");
}

TEST(StoredMatch, ReadsBackToTheSameValue) {
    for (const auto& match :
         {RowMatch::key({"ID"}), RowMatch::key({"b", "a", "b"}), RowMatch::key({}), RowMatch::rowOrder()}) {
        EXPECT_EQ(decodedRowMatch(encoded(match)), match) << encoded(match);
    }
    EXPECT_NE(RowMatch::key({}), RowMatch::rowOrder());
}

TEST(StoredMatch, RefusesAnyNumberOfKeysButOne) {
    EXPECT_EQ(matchFailure("{}"), wrongCount);
    EXPECT_EQ(matchFailure(R"({"key":{"_0":["ID"]},"rowOrder":{}})"), wrongCount);
    EXPECT_EQ(matchFailure(R"({"rowOrder":{},"newer":{}})"), wrongCount);
}

TEST(StoredMatch, RefusesUnknownCasesAndWrongPayloads) {
    EXPECT_EQ(matchFailure(R"({"byMagic":{}})"), "\"byMagic\" is no way to match rows.");
    EXPECT_EQ(matchFailure(R"({"rowOrder":null})"), "Expected an object, found null.");
    EXPECT_EQ(matchFailure(R"({"key":["ID"]})"), "Expected an object, found array.");
    for (const std::string_view json : {"",
                                        "[]",
                                        "\"key\"",
                                        R"({"key":{}})",
                                        R"({"key":{"_1":["ID"]}})",
                                        R"({"key":{"_0":"ID"}})",
                                        R"({"key":{"_0":[1]}})",
                                        R"({"key":{"_0":null}})",
                                        R"({"rowOrder":[]})",
                                        R"({"Key":{"_0":["ID"]}})"}) {
        EXPECT_THROW(decodedRowMatch(json), DecodingError) << json;
    }
}

TEST(StoredForms, AreWrittenIntoADocumentUnderWay) {
    std::string document;
    JsonWriter json(document);
    json.beginObject();
    json.key("match");
    write(json, RowMatch::rowOrder());
    json.key("options");
    write(json, DiffOptions{});
    json.endObject();
    json.flush();
    EXPECT_EQ(document, R"({"match":{"rowOrder":{}},"options":)" + encoded(DiffOptions{}) + "}");
}

}  // namespace
}  // namespace corvale::StoredForms

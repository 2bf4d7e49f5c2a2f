#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <bit>
#include <cstdint>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "CorvaleKit/base/JsonWriter.h"

namespace corvale {
namespace {

std::string written(const std::function<void(JsonWriter&)>& write) {
    std::string document;
    JsonWriter json(document);
    write(json);
    json.flush();
    return document;
}

std::string writtenText(std::string_view value) {
    return written([&](JsonWriter& json) { json.text(value); });
}

std::string writtenNumber(double value) {
    return written([&](JsonWriter& json) { json.number(value); });
}

TEST(JsonWriter, EmptyTextsReadLikeAsManySingleOnes) {
    for (const std::size_t count : {0U, 1U, 2U, 999U, 1000U, 1001U, 2500U, 100'000U}) {
        for (const bool follows : {false, true}) {
            std::string inBulk;
            std::string oneByOne;
            JsonWriter bulk(inBulk);
            JsonWriter single(oneByOne);
            for (JsonWriter* json : {&bulk, &single}) {
                json->beginArray();
                if (follows) {
                    json->text("first");
                }
            }
            bulk.emptyTexts(count);
            for (std::size_t i = 0; i < count; ++i) {
                single.text("");
            }
            for (JsonWriter* json : {&bulk, &single}) {
                json->text("last");
                json->endArray();
                json->flush();
            }
            EXPECT_EQ(inBulk, oneByOne) << count;
        }
    }
}

TEST(JsonWriter, WritesNestedValuesWithCommasBetweenThem) {
    const std::string document = written([](JsonWriter& json) {
        json.beginObject();
        json.key("a");
        json.beginArray();
        json.integer(1);
        json.boolean(true);
        json.boolean(false);
        json.null();
        json.endArray();
        json.key("b");
        json.beginObject();
        json.endObject();
        json.key("c");
        json.text("x");
        json.key("d");
        json.beginArray();
        json.beginArray();
        json.endArray();
        json.beginArray();
        json.number(0.5);
        json.endArray();
        json.endArray();
        json.endObject();
    });
    EXPECT_EQ(document, R"({"a":[1,true,false,null],"b":{},"c":"x","d":[[],[0.5]]})");
}

TEST(JsonWriter, EscapesWhatJsonForbidsInTexts) {
    struct Case {
        std::string_view value;
        std::string_view document;
    };
    const std::vector<Case> cases = {
        {"", R"("")"},
        {"plain", R"("plain")"},
        {"\"", R"("\"")"},
        {"\\", R"("\\")"},
        {"a\"b\\c", R"("a\"b\\c")"},
        {"line\nfeed\rreturn\ttab", R"("line\nfeed\rreturn\ttab")"},
        {std::string_view("\0", 1), "\"\\u0000\""},
        {"\b\f\x1F", "\"\\u0008\\u000c\\u001f\""},
        {"\x7F", "\"\x7F\""},
        {"é “quoted” 😀", "\"é “quoted” 😀\""},
        {"\u2028/</script>", "\"\u2028/</script>\""},
    };
    for (const auto& [value, document] : cases) {
        EXPECT_EQ(writtenText(value), document);
    }
}

TEST(JsonWriter, EveryAsciiCharacterReadsBack) {
    for (int c = 0; c <= 0x7F; ++c) {
        const std::string value = {'a', static_cast<char>(c), 'b'};
        EXPECT_EQ(nlohmann::json::parse(writtenText(value)).get<std::string>(), value) << c;
    }
}

TEST(JsonWriter, KeysAreEscapedToo) {
    const std::string document = written([](JsonWriter& json) {
        json.beginObject();
        json.key("a \"b\"\n");
        json.integer(1);
        json.endObject();
    });
    EXPECT_EQ(document, R"({"a \"b\"\n":1})");
}

TEST(JsonWriter, IntegersReachBothEndsOf64Bits) {
    EXPECT_EQ(written([](JsonWriter& json) { json.integer(std::numeric_limits<std::int64_t>::min()); }),
              "-9223372036854775808");
    EXPECT_EQ(written([](JsonWriter& json) { json.integer(std::numeric_limits<std::int64_t>::max()); }),
              "9223372036854775807");
}

TEST(JsonWriter, NumbersAreTheShortestThatReadBack) {
    struct Case {
        double value;
        std::string_view document;
    };
    const std::vector<Case> cases = {
        {0, "0"},
        {-0.0, "-0"},
        {1, "1"},
        {0.1, "0.1"},
        {1.0 / 3, "0.3333333333333333"},
        {1e21, "1e+21"},
        {5e-324, "5e-324"},
    };
    for (const auto& [value, document] : cases) {
        EXPECT_EQ(writtenNumber(value), document);
    }
}

TEST(JsonWriter, AnyDoubleReadsBackToTheSameBits) {
    std::mt19937_64 random(20);
    for (int i = 0; i < 20'000; ++i) {
        const auto value = std::bit_cast<double>(random());
        if (value - value == 0) {
            const auto back = nlohmann::json::parse(writtenNumber(value)).get<double>();
            EXPECT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(value)) << value;
        }
    }
}

TEST(JsonWriter, InfinitiesAndNotANumberAreNull) {
    using Limits = std::numeric_limits<double>;
    for (const double value : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()}) {
        EXPECT_EQ(writtenNumber(value), "null");
    }
    EXPECT_EQ(written([](JsonWriter& json) {
                  json.beginArray();
                  json.integer(1);
                  json.number(Limits::quiet_NaN());
                  json.integer(2);
                  json.endArray();
              }),
              "[1,null,2]");
}

TEST(JsonWriter, HandsOverPiecesThatMakeUpTheDocument) {
    std::vector<std::string> pieces;
    JsonWriter json([&pieces](std::string_view piece) { pieces.emplace_back(piece); });
    nlohmann::json expected = nlohmann::json::array();
    json.beginArray();
    for (int i = 0; i < 40'000; ++i) {
        json.text(std::to_string(i));
        expected.push_back(std::to_string(i));
    }
    json.endArray();
    const std::size_t beforeTheEnd = pieces.size();
    json.flush();

    EXPECT_GE(beforeTheEnd, 3U) << "a long document leaves before its end";
    std::string document;
    for (const auto& piece : pieces) {
        EXPECT_FALSE(piece.empty());
        EXPECT_LT(piece.size(), 128U * 1024U);
        document += piece;
    }
    EXPECT_EQ(nlohmann::json::parse(document), expected);
}

TEST(JsonWriter, ATextLargerThanTheBufferArrivesWhole) {
    std::string value(300'000, 'x');
    value[0] = '\n';
    value[131'072] = '"';
    value.back() = '\\';
    EXPECT_EQ(nlohmann::json::parse(writtenText(value)).get<std::string>(), value);
}

TEST(JsonWriter, ArraysOfTextsAndOfIntegersAreWrittenWhole) {
    const auto array = [](const std::vector<std::string>& texts, const std::vector<std::int64_t>& integers) {
        return written([&](JsonWriter& json) {
            json.beginArray();
            json.texts(texts);
            json.integers(integers);
            json.endArray();
        });
    };
    EXPECT_EQ(array({"a", "", "\""}, {1, -2}), R"([["a","","\""],[1,-2]])");
    EXPECT_EQ(array({}, {}), "[[],[]]");
}

TEST(JsonWriter, ALineBreakStandsBehindTheComma) {
    EXPECT_EQ(written([](JsonWriter& json) {
                  json.beginObject();
                  json.key("a");
                  json.beginArray();
                  json.lineBreak();
                  json.integer(1);
                  json.lineBreak();
                  json.integer(2);
                  json.endArray();
                  json.lineBreak();
                  json.key("b");
                  json.null();
                  json.endObject();
              }),
              "{\"a\":[\n1,\n2],\n\"b\":null}");
}

TEST(JsonWriter, FlushingNothingHandsOverNothing) {
    int pieces = 0;
    JsonWriter json([&pieces](std::string_view) { ++pieces; });
    json.flush();
    json.null();
    json.flush();
    json.flush();
    EXPECT_EQ(pieces, 1);
}

}  // namespace
}  // namespace corvale

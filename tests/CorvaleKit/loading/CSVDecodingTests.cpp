#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CorvaleKit/loading/CSV.h"
#include "tests/support/SlowCSV.h"

namespace corvale {
namespace {

using namespace std::string_view_literals;

std::string decoded(std::string_view bytes) {
    const Bytes text = CSV::decodeText(Bytes(bytes));
    return std::string(text.view());
}

TEST(TextDecoding, LooksAtTheFirstBytes) {
    struct Case {
        std::string_view what;
        std::string_view bytes;
        std::string_view text;
    };
    const std::vector<Case> cases = {
        {"nothing", "", ""},
        {"plain", "a,b\r\n", "a,b\r\n"},
        {"UTF-8", "é€😀", "é€😀"},
        {"UTF-8 with a mark",
         "\xEF\xBB\xBF"
         "é,b",
         "é,b"},
        {"a mark alone", "\xEF\xBB\xBF", ""},
        {"only one mark goes",
         "\xEF\xBB\xBF\xEF\xBB\xBF"
         "a",
         "\uFEFF"
         "a"},
        {"marked UTF-8 with bad bytes is never code page 1252",
         "\xEF\xBB\xBF"
         "a\xE9z\xE2\x82!",
         "a\uFFFDz\uFFFD!"},
        {"half a mark", "\xEF\xBB", "ï»"},
        {"UTF-16 LE",
         "\xFF\xFE"
         "a\0,\0\xE9\0\x3D\xD8\x00\xDE"sv,
         "a,é😀"},
        {"UTF-16 BE",
         "\xFE\xFF"
         "\0a\0,\0\xE9\xD8\x3D\xDE\x00"sv,
         "a,é😀"},
        {"UTF-16 LE, nothing behind the mark", "\xFF\xFE", ""},
        {"UTF-16 BE, nothing behind the mark", "\xFE\xFF", ""},
        {"UTF-16 LE, several marks",
         "\xFF\xFE\xFF\xFE\xFF\xFE"
         "a\0\xFF\xFE"sv,
         "a\uFEFF"},
        {"UTF-16 BE, several marks",
         "\xFE\xFF\xFE\xFF"
         "\0a"sv,
         "a"},
        {"UTF-16 LE of odd length",
         "\xFF\xFE"
         "a\0b"sv,
         ""},
        {"UTF-16 BE of odd length",
         "\xFE\xFF"
         "\0a\0"sv,
         ""},
        {"UTF-16 LE, a high surrogate alone",
         "\xFF\xFE\x3D\xD8"
         "a\0"sv,
         ""},
        {"UTF-16 LE, a high surrogate at the end",
         "\xFF\xFE"
         "a\0\x3D\xD8"sv,
         ""},
        {"UTF-16 LE, a low surrogate alone",
         "\xFF\xFE"
         "a\0\x00\xDE"sv,
         ""},
        {"UTF-16 BE, a high surrogate alone", "\xFE\xFF\xD8\x3D\0a"sv, ""},
        {"UTF-16 BE, surrogates in the wrong order", "\xFE\xFF\xDE\x00\xD8\x3D"sv, ""},
        {"the marks of UTF-32 LE are those of UTF-16 LE", "\xFF\xFE\0\0a\0\0\0"sv, "\0a\0"sv},
        {"UTF-16 without a mark is read as UTF-8", "a\0,\0"sv, "a\0,\0"sv},
        {"one byte of a mark", "\xFF", "ÿ"},
        {"code page 1252", "caf\xE9", "café"},
        {"code page 1252, the part that is not Latin-1", "\x80\x82\x8E\x93quoted\x94\x96\x99\x9F", "€‚Ž“quoted”–™Ÿ"},
        {"code page 1252, no-break space",
         "1\xA0"
         "000\xE9",
         "1\u00A0000é"},
        {"one bad byte turns good UTF-8 into code page 1252", "\xC3\xA9 \xE9", "Ã© é"},
        {"neither UTF-8 nor code page 1252", "\xC3\xA9\x81\xE9", "é\uFFFD\uFFFD"},
        {"a cut sequence is one replacement", "\x81\xE2\x82", "\uFFFD\uFFFD"},
        {"an encoded surrogate beside an undefined byte", "\xED\xA0\x80\x8D", "\uFFFD\uFFFD\uFFFD\uFFFD"},
    };
    for (const auto& [what, bytes, text] : cases) {
        EXPECT_EQ(decoded(bytes), text) << what;
    }
}

TEST(TextDecoding, CodePage1252LacksExactlyFiveBytes) {
    for (unsigned byte = 0x80; byte <= 0xFF; ++byte) {
        // The blank behind keeps any lead byte from making a sequence.
        const std::string bytes = {static_cast<char>(byte), ' '};
        const bool isUndefined = byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 || byte == 0x9D;
        EXPECT_EQ(decoded(bytes), isUndefined ? "\uFFFD " : SlowCSV::fromCodePage1252(bytes)) << byte;
        EXPECT_EQ(decoded(bytes) == "\uFFFD ", isUndefined) << byte;
    }
}

TEST(TextDecoding, BytesThatAreUtf8AreHandedBackWithoutACopy) {
    for (const std::string_view text : {"plain,text\n"sv, "naïve,text\n"sv}) {
        Bytes bytes(text);
        const char* place = bytes.data();
        EXPECT_EQ(CSV::decodeText(std::move(bytes)).data(), place);

        Bytes marked("\xEF\xBB\xBF" + std::string(text));
        const char* behindTheMark = marked.data() + 3;
        EXPECT_EQ(CSV::decodeText(std::move(marked)).data(), behindTheMark);
    }
}

TEST(TextDecoding, LongTextsInEveryEncodingArriveWhole) {
    std::string utf8;
    std::string codePage;
    std::string utf16 = "\xFF\xFE";
    for (int i = 0; i < 200'000; ++i) {
        utf8 += "aé";
        codePage += "a\xE9";
        utf16 += "a\0\xE9\0"sv;
    }
    EXPECT_EQ(decoded(codePage), utf8);
    EXPECT_EQ(decoded(utf16), utf8);
    EXPECT_EQ(decoded(codePage + '\x81').substr(0, 4), "a\uFFFD");
}

TEST(TextDecoding, AgreesWithTheSlowTwinOnRandomBytes) {
    const std::vector<std::string_view> starts = {"", "\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF", "\xEF\xBB", "\xFF"};
    const std::string_view alphabet = "a,\"\n\x00\x80\x81\x9D\xA0\xBB\xBF\xC3\xD8\xDC\xE2\xED\xEF\xF0\xFE\xFF"sv;
    std::mt19937 random(5);
    for (int i = 0; i < 30'000; ++i) {
        std::string bytes(starts[random() % starts.size()]);
        for (auto left = random() % 10; left > 0; --left) {
            bytes += alphabet[random() % alphabet.size()];
        }
        ASSERT_EQ(decoded(bytes), SlowCSV::decodeText(bytes)) << testing::PrintToString(bytes);
    }
}

}  // namespace
}  // namespace corvale

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/loading/CSV.h"
#include "tests/support/Repeated.h"
#include "tests/support/SlowCSV.h"

namespace corvale {
namespace {

using TestSupport::repeated;

constexpr std::size_t sampled = 65536;

TEST(TextSniffing, AnEmptyTextPasses) { EXPECT_TRUE(CSV::looksLikeText("")); }

TEST(TextSniffing, AMillionNulBytesFail) { EXPECT_FALSE(CSV::looksLikeText(std::string(1'000'000, '\0'))); }

TEST(TextSniffing, OneInFiftyIsTheMost) {
    for (const std::string suspect : {"\x01", "\u007F", "\u0080", "\u009F", "\uFFFD"}) {
        EXPECT_TRUE(CSV::looksLikeText(suspect + std::string(60, 'a')));
        EXPECT_TRUE(CSV::looksLikeText(suspect + std::string(49, 'a')));
        EXPECT_FALSE(CSV::looksLikeText(suspect + std::string(48, 'a')));
        EXPECT_TRUE(CSV::looksLikeText(suspect + suspect + std::string(98, 'a')));
        EXPECT_FALSE(CSV::looksLikeText(suspect + suspect + std::string(97, 'a')));
        EXPECT_FALSE(CSV::looksLikeText(suspect));
    }
}

TEST(TextSniffing, TheSuspectScalarsAreTheControlsAndTheReplacement) {
    for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
        if (scalar == 0x3100) {
            scalar = 0xFF00;
        } else if (scalar == 0x10100) {
            scalar = 0x10FF00;
        }
        std::string text;
        SlowUtf8::append(text, scalar);
        const bool isLineOrTab = scalar == 0x09 || scalar == 0x0A || scalar == 0x0D;
        const bool isSuspect =
            (scalar < 0x20 && !isLineOrTab) || (scalar >= 0x7F && scalar <= 0x9F) || scalar == 0xFFFD;
        ASSERT_EQ(CSV::looksLikeText(text), !isSuspect) << std::hex << static_cast<unsigned>(scalar);
    }
}

TEST(TextSniffing, OnlyTheFirstCharactersAreLookedAt) {
    const std::string controls(100'000, '\x01');
    EXPECT_TRUE(CSV::looksLikeText(std::string(sampled, 'a') + controls));
    EXPECT_FALSE(CSV::looksLikeText(std::string(sampled / 2, 'a') + controls));
    const std::string enough(sampled - sampled / 50, 'a');
    EXPECT_TRUE(CSV::looksLikeText(enough + controls));
    EXPECT_FALSE(CSV::looksLikeText(enough.substr(1) + controls));
}

TEST(TextSniffing, TheCutCountsCharactersAndTheTestCountsScalars) {
    // 65,536 characters of two scalars each: the controls behind them are past the cut.
    EXPECT_TRUE(CSV::looksLikeText(repeated("e\u0301", sampled) + std::string(100'000, '\x01')));
    EXPECT_TRUE(CSV::looksLikeText(repeated("\r\n", sampled) + std::string(100'000, '\x01')));
    // 49 scalars in one character and one suspect: 50 scalars.
    EXPECT_TRUE(CSV::looksLikeText("e" + repeated("\u0301", 48) + "\x01"));
    EXPECT_FALSE(CSV::looksLikeText("e" + repeated("\u0301", 47) + "\x01"));
}

TEST(TextSniffing, AgreesWithTheSlowTwin) {
    const std::vector<std::string_view> parts = {
        "a", "aaaaaaaaaaaaaaaaaaaaaaaa", "\r\n", "e\u0301", "\x01", "\u0085", "\uFFFD", "👩‍👩‍👧‍👦"};
    std::mt19937 random(6);
    for (int i = 0; i < 2'000; ++i) {
        std::string text;
        for (auto left = random() % 30; left > 0; --left) {
            const auto part = random() % 20;
            text += parts[part < parts.size() ? part : 1];
        }
        ASSERT_EQ(CSV::looksLikeText(text), SlowCSV::looksLikeText(text)) << testing::PrintToString(text);
    }
}

}  // namespace
}  // namespace corvale

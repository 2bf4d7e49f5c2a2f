#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/text/Utf8.h"
#include "tests/support/AllTexts.h"
#include "tests/support/SlowUtf8.h"

namespace corvale::Utf8 {
namespace {

constexpr std::string_view interestingBytes(
    "\x00\x41\x7F\x80\x8F\x90\x9F\xA0\xBF\xC0\xC1\xC2\xDF\xE0\xE1\xEC\xED\xEE\xEF\xF0\xF1\xF3\xF4\xF5\xFF", 25);

std::vector<Scalar> walkedForwards(std::string_view text) {
    std::vector<Scalar> walk;
    for (std::size_t i = 0; i < text.size(); i += walk.back().length) {
        walk.push_back(scalarAt(text, i));
    }
    return walk;
}

std::vector<Scalar> walkedBackwards(std::string_view text) {
    std::vector<Scalar> walk;
    for (std::size_t end = text.size(); end > 0; end -= walk.front().length) {
        walk.insert(walk.begin(), scalarBefore(text, end));
    }
    return walk;
}

bool sameWalk(const std::vector<Scalar>& a, const std::vector<Scalar>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const Scalar& left, const Scalar& right) {
        return left.value == right.value && left.length == right.length;
    });
}

std::string hex(std::string_view bytes) { return testing::PrintToString(std::vector<int>(bytes.begin(), bytes.end())); }

void expectAgreementWithTheSlowTwin(std::string_view text) {
    const auto forwards = walkedForwards(text);
    std::vector<char32_t> values;
    for (const Scalar& scalar : forwards) {
        values.push_back(scalar.value);
    }
    const auto expected = SlowUtf8::scalars(text);
    EXPECT_EQ(values, expected) << hex(text);
    EXPECT_TRUE(sameWalk(walkedBackwards(text), forwards)) << hex(text);
    EXPECT_EQ(isValid(text), SlowUtf8::isValid(text)) << hex(text);
    EXPECT_EQ(repaired(text), SlowUtf8::encoded(expected)) << hex(text);
}

AllTexts::Alphabet bytesOf(std::string_view bytes) {
    AllTexts::Alphabet alphabet;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        alphabet.push_back(bytes.substr(i, 1));
    }
    return alphabet;
}

TEST(Utf8, OneReplacementPerMaximalInvalidSubpart) {
    struct Case {
        std::string_view bytes;
        std::string_view repaired;
    };
    const std::vector<Case> cases = {
        {"", ""},
        {"abc", "abc"},
        {"é€😀", "é€😀"},
        {"\x80", "\uFFFD"},
        {"a\xBF\x80z", "a\uFFFD\uFFFDz"},
        {"\xC0\xAF", "\uFFFD\uFFFD"},  // an overlong slash: no byte of it can start a sequence
        {"\xC1\xBF", "\uFFFD\uFFFD"},
        {"\xE0\x80\xAF", "\uFFFD\uFFFD\uFFFD"},  // overlong in three bytes
        {"\xF0\x80\x80\xAF", "\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},  // a surrogate
        {"\xED\xBF\xBF", "\uFFFD\uFFFD\uFFFD"},
        {"\xED\x9F\xBF", "\uD7FF"},
        {"\xEE\x80\x80", "\uE000"},
        {"\xF4\x8F\xBF\xBF", "\U0010FFFF"},
        {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},  // above the last scalar
        {"\xF5\x80\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xFE\xFF", "\uFFFD\uFFFD"},
        {"\xC3", "\uFFFD"},
        {"\xC3z", "\uFFFDz"},
        {"\xE2\x82", "\uFFFD"},  // two bytes of three: one subpart
        {"\xE2\x82z", "\uFFFDz"},
        {"\xE2\x82\xE2\x82\xAC", "\uFFFD€"},
        {"\xF0\x9F\x98", "\uFFFD"},
        {"\xF0\x9F\x98z", "\uFFFDz"},
        {"\xF1\x80\x80\xE1\x80\xC2z", "\uFFFD\uFFFD\uFFFDz"},
        // The worked examples of the Unicode Standard, chapter 3, on substitution of maximal subparts.
        {"\xC0\xAF\xE0\x80\xBF\xF0\x81\x82\x41", "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDA"},
        {"\xED\xA0\x80\xED\xBF\xBF\xED\xAF\x41", "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDA"},
        {"\xF4\x91\x92\x93\xFF\x41\x80\xBF\x42", "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDA\uFFFD\uFFFDB"},
        {"\xE1\x80\xE2\xF0\x91\x92\xF1\xBF\x41", "\uFFFD\uFFFD\uFFFD\uFFFDA"},
    };
    for (const auto& [bytes, expected] : cases) {
        EXPECT_EQ(repaired(bytes), expected) << hex(bytes);
        EXPECT_EQ(isValid(bytes), bytes == expected) << hex(bytes);
    }
}

TEST(Utf8, AgreesWithTheSlowTwinOnAllShortTexts) {
    AllTexts::forEach(bytesOf(interestingBytes), 3, expectAgreementWithTheSlowTwin);
    AllTexts::forEach(bytesOf("\x41\x80\xA0\xC2\xE0\xED\xF0\xF4"), 5, expectAgreementWithTheSlowTwin);
}

TEST(Utf8, AgreesWithTheSlowTwinOnLongTextsWithPlainRuns) {
    std::mt19937 random(7);
    for (int i = 0; i < 3'000; ++i) {
        std::string text;
        while (text.size() < random() % 200) {
            text.append(random() % 40, 'x');
            text += random() % 2 == 0 ? "é€😀" : "";
            text += interestingBytes[random() % interestingBytes.size()];
        }
        expectAgreementWithTheSlowTwin(text);
    }
}

TEST(Utf8, EveryScalarSurvivesEncodingAndDecoding) {
    for (char32_t value = 0; value <= 0x10FFFF; ++value) {
        if (value == 0xD800) {
            value = 0xE000;
        }
        std::string text;
        append(text, value);
        const Scalar back = scalarAt(text, 0);
        const Scalar backFromTheEnd = scalarBefore(text, text.size());
        ASSERT_EQ(back.value, value);
        ASSERT_EQ(back.length, text.size());
        ASSERT_EQ(backFromTheEnd.value, value);
        ASSERT_EQ(backFromTheEnd.length, text.size());
        ASSERT_TRUE(isValid(text));
    }
}

TEST(Utf8, AnOddByteIsFoundAtEveryPlaceOfALongText) {
    for (std::size_t size = 1; size < 100; ++size) {
        for (std::size_t place = 0; place < size; ++place) {
            std::string text(size, 'x');
            EXPECT_TRUE(isAscii(text));
            text[place] = '\x80';
            EXPECT_FALSE(isAscii(text)) << place << " of " << size;
            EXPECT_FALSE(isValid(text)) << place << " of " << size;
            EXPECT_EQ(asciiEnd(text, 0), place);
            EXPECT_EQ(asciiEnd(text, place / 2), place);
            EXPECT_EQ(asciiEnd(text, place + 1), size);
        }
    }
}

TEST(Utf8, ASequenceCutByTheEndIsNotReadPastIt) {
    const std::string_view euro = "€";
    EXPECT_EQ(scalarAt(euro.substr(0, 2), 0).value, U'\uFFFD');
    EXPECT_EQ(scalarAt(euro.substr(0, 2), 0).length, 2U);
    EXPECT_EQ(scalarBefore(euro, 2).value, U'\uFFFD');
    EXPECT_EQ(scalarBefore(euro, 2).length, 2U);
}

}  // namespace
}  // namespace corvale::Utf8

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "CorvaleKit/base/Bytes.h"
#include "CorvaleKit/engine/Normalizer.h"
#include "CorvaleKit/text/WhitespaceScan.h"
#include "tests/support/AllTexts.h"
#include "tests/support/SlowNormalizer.h"

namespace corvale {
namespace {

// All forms of the scan against the rule. The copy ends where the text ends, so that the address sanitizer sees a byte
// read too far.
void expectScansAgree(const std::string& text) {
    const bool expected = SlowNormalizer::needsWhitespaceNormalization(text);
    const std::vector<char> exact(text.begin(), text.end());
    const std::string_view view(exact.data(), exact.size());
    ASSERT_EQ(WhitespaceScan::needsNormalization(view), expected) << testing::PrintToString(text);
    ASSERT_EQ(Normalizer::needsWhitespaceNormalization(view), expected) << testing::PrintToString(text);
    if (!text.empty()) {
        // Neighbours that would be found if they counted.
        const Bytes padded(" " + text + " \t\xC2");
        const auto cell = padded.view().substr(1, text.size());
        ASSERT_EQ(WhitespaceScan::paddedNeedsNormalization(cell), expected) << testing::PrintToString(text);
    }
}

TEST(WhitespaceScan, AgreesWithTheRuleOnAllShortTexts) {
    const AllTexts::Alphabet alphabet = {
        "a", " ", "\t", "\n", "\r", "\u00A0", "\u2003", "é", std::string_view("\0", 1)};
    AllTexts::forEach(alphabet, 5, expectScansAgree);
}

TEST(WhitespaceScan, AgreesWithTheRuleWhereverInALongTextTheBytesStand) {
    const std::vector<std::string> marks = {" ", "  ", "\t", "\n", "\r", "\xC2", "\x1F", "\x01", "\xA0", "\x7F", "   "};
    for (std::size_t size = 0; size < 70; ++size) {
        for (const auto& mark : marks) {
            for (std::size_t place = 0; place + mark.size() <= size; ++place) {
                std::string text(size, 'x');
                text.replace(place, mark.size(), mark);
                expectScansAgree(text);
            }
        }
    }
}

TEST(WhitespaceScan, AgreesWithTheRuleOnRandomTexts) {
    const AllTexts::Alphabet alphabet = {"a", "b", "c", "d", "e", "f", " ", "é", "x y", "\u00A0", "\t"};
    std::mt19937 source(1);
    for (int i = 0; i < 20'000; ++i) {
        expectScansAgree(AllTexts::random(alphabet, 50, source));
    }
}

TEST(WhitespaceScan, BlocksAreUncleanInTheObviousFormAndInTheFastOne) {
    const std::string_view bytes("a \t\n\r\xC2\x01\x1F", 8);
    std::mt19937 source(2);
    for (int i = 0; i < 50'000; ++i) {
        std::string block(WhitespaceScan::blockSize, 'x');
        for (auto left = source() % 4; left > 0; --left) {
            block[source() % block.size()] = bytes[source() % bytes.size()];
        }
        ASSERT_EQ(WhitespaceScan::blockIsUnclean(block.data()), WhitespaceScan::blockIsUncleanPlain(block.data()))
            << testing::PrintToString(block);
    }
}

// Both forms of the look at a stretch of cells against the rule, cell by cell.
void expectCellsAgree(const std::string& text) {
    for (const char delimiter : {',', '\t'}) {
        bool expected = true;
        for (std::size_t start = 0; start <= text.size();) {
            const std::size_t end = std::min(text.find(delimiter, start), text.size());
            expected = expected && !SlowNormalizer::needsWhitespaceNormalization(text.substr(start, end - start));
            start = end + 1;
        }
        // Neighbours that would be found if they counted.
        const Bytes padded(" " + text + "  \t\xC2");
        const auto cells = padded.view().substr(1, text.size());
        ASSERT_EQ(WhitespaceScan::areTidyCells(cells, delimiter), expected) << testing::PrintToString(text);
        ASSERT_EQ(WhitespaceScan::areTidyCellsPlain(cells, delimiter), expected) << testing::PrintToString(text);
    }
}

TEST(WhitespaceScan, TellsTidyCellsOfAllShortStretches) {
    AllTexts::forEach({"a", " ", ",", "\t", "\u00A0", "é", std::string_view("\0", 1)}, 5, expectCellsAgree);
}

TEST(WhitespaceScan, TellsTidyCellsOfLongStretches) {
    const std::vector<std::string> marks = {" ", "  ", ", ", " ,", ",,", "\t", "\xC2", ",\t", " \t"};
    for (std::size_t size = 0; size < 70; ++size) {
        for (const auto& mark : marks) {
            for (std::size_t place = 0; place + mark.size() <= size; ++place) {
                std::string text(size, 'x');
                text.replace(place, mark.size(), mark);
                expectCellsAgree(text);
            }
        }
    }
    const AllTexts::Alphabet alphabet = {"a", "b", "c", "d,", "e", "f", "x y", "é", "g,h"};
    std::mt19937 source(3);
    for (int i = 0; i < 20'000; ++i) {
        expectCellsAgree(AllTexts::random(alphabet, 50, source));
    }
}

}  // namespace
}  // namespace corvale

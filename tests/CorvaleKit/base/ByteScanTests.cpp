#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/base/ByteScan.h"
#include "CorvaleKit/base/Bytes.h"

namespace corvale::ByteScan {
namespace {

std::string randomText(std::mt19937& random, std::string_view alphabet, std::size_t size) {
    std::string text(size, ' ');
    std::generate(text.begin(), text.end(), [&] { return alphabet[random() % alphabet.size()]; });
    return text;
}

TEST(ByteScan, MatchesMarkEveryPositionOfABlock) {
    for (std::size_t position = 0; position < blockSize; ++position) {
        for (const char wanted : {',', '\r', '\n'}) {
            std::string block(blockSize, 'x');
            block[position] = wanted;
            EXPECT_EQ(matches(block.data(), ',', '\r', '\n'), std::uint64_t{1} << position);
        }
    }
}

TEST(ByteScan, MatchesAgreeWithThePlainForm) {
    std::mt19937 random(1);
    for (int i = 0; i < 5'000; ++i) {
        const std::string block =
            randomText(random, i % 2 == 0 ? "a,\r\n" : std::string_view("\0\x80\xFF,", 4), blockSize);
        EXPECT_EQ(matches(block.data(), ',', '\x80', '\n'), plainMatches(block.data(), ',', '\x80', '\n'));
    }
}

TEST(ByteScan, FinderAgreesWithALoopFromEveryStart) {
    std::mt19937 random(2);
    for (std::size_t size = 0; size < 300; ++size) {
        const Bytes text(randomText(random, "aaaaaaaaaaaaaaaaaaaaaaaaaaa,\r\n", size));
        for (std::size_t from = 0; from <= size; ++from) {
            Finder finder(text.data(), size, ',', '\r', '\n');
            const std::size_t expected = std::min(text.view().find_first_of(",\r\n", from), size);
            EXPECT_EQ(finder.next(from), expected) << size << " bytes from " << from;
        }
    }
}

TEST(ByteScan, FinderGivesOneMatchAfterTheOther) {
    std::mt19937 random(4);
    for (int i = 0; i < 2'000; ++i) {
        const Bytes text(randomText(random, "aaaaaaaaaaaaaaaaa,\r\n", random() % 500));
        Finder finder(text.data(), text.size(), ',', '\r', '\n');
        std::size_t found = finder.next(random() % (text.size() + 1));
        while (found < text.size()) {
            const std::size_t expected = std::min(text.view().find_first_of(",\r\n", found + 1), text.size());
            found = finder.following();
            ASSERT_EQ(found, expected);
        }
    }
}

// More matches than it looks ahead for at once, a block of nothing else among them.
TEST(ByteScan, FinderMissesNoneOfManyMatches) {
    std::mt19937 random(5);
    for (const std::string_view alphabet : {",", ",a", ",aaaa", ",aaaaaaaaaaaaaaaaaaaaaaaaaa"}) {
        for (const std::size_t size : {447U, 448U, 449U, 511U, 512U, 513U, 576U, 5'000U, 50'000U}) {
            const Bytes text(randomText(random, alphabet, size));
            Finder finder(text.data(), text.size(), ',', ',', ',');
            std::size_t found = finder.next(0);
            for (std::size_t i = 0; i < size; ++i) {
                if (text.view()[i] == ',') {
                    ASSERT_EQ(found, i) << size << " bytes of " << alphabet;
                    found = finder.following();
                }
            }
            EXPECT_EQ(found, size);
        }
    }
}

TEST(ByteScan, FinderGoesForwardInAnySteps) {
    std::mt19937 random(3);
    for (int i = 0; i < 2'000; ++i) {
        const Bytes text(randomText(random, "aaaaaaaaaaaaaaaaaaaaaaaaaaa,\r\n", random() % 500));
        Finder finder(text.data(), text.size(), ',', '\r', '\n');
        for (std::size_t from = 0; from <= text.size(); from += 1 + random() % 90) {
            const std::size_t found = finder.next(from);
            EXPECT_EQ(found, std::min(text.view().find_first_of(",\r\n", from), text.size()));
            from = found;
        }
    }
}

TEST(ByteScan, FinderDoesNotTakeThePaddingForAMatch) {
    for (const std::size_t size : {0U, 1U, 63U, 64U, 65U, 128U}) {
        const Bytes text(std::string(size, 'x'));
        Finder finder(text.data(), size, '\0', '\0', '\0');
        EXPECT_EQ(finder.next(0), size);
        EXPECT_EQ(finder.next(size), size);
    }
}

}  // namespace
}  // namespace corvale::ByteScan

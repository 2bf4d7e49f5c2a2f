#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/loading/CSV.h"
#include "tests/support/Grids.h"
#include "tests/support/SlowCSV.h"

namespace corvale {
namespace {

TEST(DelimiterDetection, TakesWhatTheFirstRecordHasMostOf) {
    struct Case {
        std::string_view text;
        char delimiter;
    };
    const std::vector<Case> cases = {
        {"", ','},
        {"a", ','},
        {"a b\nc;d", ','},
        {"a,b", ','},
        {"a;b", ';'},
        {"a\tb", '\t'},
        {"a,b;c;d", ';'},
        {"a,b\tc", ','},   // comma beats tab
        {"a\tb;c", '\t'},  // tab beats semicolon
        {"a;b,c", ','},    // comma beats semicolon
        {"a;b\tc,d", ','},
        {"a;b;c\td\te", '\t'},
        {"a;b;c\td", ';'},
        {"a|b|c", ','},
        {"a\n;;;", ','},  // the first record only
        {"a\r;;;", ','},
        {"\n;;;", ','},
        {"\"a,b\";c", ';'},  // inside quotes nothing counts
        {"\"a,b,c\"\td", '\t'},
        {"\"a,\nb\";c\n,,,", ';'},  // nor does a line break there end the record
        {"\"a,\r\nb\";c\r\n,,,", ';'},
        {"a\"b,c\"d;e", ';'},  // any quote flips, also in the middle of a cell
        {"\"a\"\",b\";c", ';'},
        {"\"open;;;\n;;;", ','},
        {"é;ü", ';'},
    };
    for (const auto& [text, delimiter] : cases) {
        EXPECT_EQ(CSV::detectDelimiter(text), delimiter) << text;
        EXPECT_EQ(SlowCSV::detectDelimiter(text), delimiter) << text;
    }
}

TEST(DelimiterDetection, AgreesWithTheSlowTwinOnRandomTexts) {
    const std::string_view alphabet = "a,,;;\t\t\"\r\n";
    std::mt19937 random(8);
    for (int i = 0; i < 50'000; ++i) {
        std::string text(random() % 14, ' ');
        for (char& c : text) {
            c = alphabet[random() % (random() % 4 == 0 ? alphabet.size() : 8)];
        }
        ASSERT_EQ(CSV::detectDelimiter(text), SlowCSV::detectDelimiter(text)) << testing::PrintToString(text);
    }
}

TEST(DelimiterDetection, ParsingWithoutADelimiterDetectsIt) {
    EXPECT_EQ(Grids::texts(CSV::parse(Bytes(std::string_view("a;b;c\n1,5;2,5;3\n")))),
              (Grids::Rows{{"a", "b", "c"}, {"1,5", "2,5", "3"}}));
    EXPECT_EQ(Grids::texts(CSV::parse(Bytes(std::string_view("a;b;c\n1,5;2,5;3\n")), ',')),
              (Grids::Rows{{"a;b;c"}, {"1", "5;2", "5;3"}}));
}

}  // namespace
}  // namespace corvale

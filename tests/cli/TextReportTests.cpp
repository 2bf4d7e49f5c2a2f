#include <gtest/gtest.h>

#include <sstream>

#include "CorvaleKit/engine/DiffEngine.h"
#include "CorvaleKit/engine/DiffFilter.h"
#include "CorvaleKit/text/Text.h"
#include "cli/TextReport.h"

namespace corvale::Cli {
namespace {

using Rows = std::vector<std::vector<std::string>>;

DataTable table(const char* name, const Rows& rows) { return {rows.front(), Rows(rows.begin() + 1, rows.end()), name}; }

// A comparison and how it is shown; the fields are what the tests vary.
struct Shown {
    Rows before;
    Rows after;
    RowMatch match = RowMatch::key({"ID"});
    DiffOptions options = {};
    ListChoice list = {};
    TextStyle style = {};
    bool isSuggested = false;

    DiffResult result() const {
        return DiffEngine::compare(
            table("a.csv", before), table("b.csv", after), match, options, NumberStyle::dotDecimal);
    }
    std::string text() const {
        const DiffResult compared = result();
        TextReportContext context;
        context.before.path = "old/a.csv";
        context.after.path = "b.csv";
        context.matchIsSuggested = isSuggested;
        context.list = list;
        context.style = style;
        DiffFilter filter;
        filter.show = list.show;
        std::string report;
        writeTextReport(compared, filter.apply(compared), context, [&](std::string_view piece) { report += piece; });
        return report;
    }
};

TEST(TextReport, ShowsFilesMatchRowsAndCounts) {
    const Shown shown{{{"ID", "Name", "Price", "Stock"},
                       {"A-1", "Lamp", "9.90", "12"},
                       {"A-2", "Hose", "19.00", "4"},
                       {"A-3", "Rug", "5", "1"},
                       {"A-4", "Mat", "7", "2"}},
                      {{"ID", "Name", "Price", "Stock"},
                       {"A-1", "Lamp", "10.50", "7"},
                       {"A-4", "Mat", "7", "2"},
                       {"A-3", "rug", "5.0", ""},
                       {"A-9", "Kettle", "24.50", ""}}};
    EXPECT_EQ(shown.text(),
              "Before   old/a.csv  4 rows, 4 columns\n"
              "After    b.csv      4 rows, 4 columns\n"
              "Matched  by ID\n"
              "\n"
              "~ A-1  row 2\n"
              "    Price: 9.90 → 10.50\n"
              "    Stock: 12   → 7\n"
              "- A-2  row 3\n"
              "    Name: Hose · Price: 19.00 · Stock: 4\n"
              "~ A-3  row 4\n"
              "    Name:  Rug → rug  (letter case)\n"
              "    Price: 5   → 5.0  (number format)\n"
              "    Stock: 1   → (empty)\n"
              "+ A-9  row 5\n"
              "    Name: Kettle · Price: 24.50\n"
              "\n"
              "Rows     1 added, 1 removed, 2 changed, 1 the same\n"
              "Cells    5 changed, 2 only in number format, letter case or spaces\n");
}

TEST(TextReport, ARowThatMovedHasBothNumbers) {
    const Shown shown{{{"ID", "N"}, {"1", "a"}, {"2", "b"}}, {{"ID", "N"}, {"2", "c"}, {"1", "a"}}};
    EXPECT_NE(shown.text().find("~ 2  row 3 → 2\n"), std::string::npos) << shown.text();
}

TEST(TextReport, ByRowOrderTheRowNumberIsTheKey) {
    Shown shown{{{"N"}, {"a"}, {"b"}}, {{"N"}, {"a"}, {"x"}, {"b"}}, RowMatch::rowOrder()};
    EXPECT_EQ(shown.text(),
              "Before   old/a.csv  2 rows, 1 column\n"
              "After    b.csv      3 rows, 1 column\n"
              "Matched  by row order\n"
              "\n"
              "+ row 3\n"
              "    N: x\n"
              "\n"
              "Rows     1 added, 0 removed, 0 changed, 2 the same\n");
    shown.isSuggested = true;
    EXPECT_NE(shown.text().find("Matched  by row order, as no column tells the rows apart\n"), std::string::npos);
}

TEST(TextReport, NoDifferencesIsSaidInOneLine) {
    const Shown shown{{{"ID"}, {"1"}}, {{"ID"}, {"1"}}};
    EXPECT_EQ(shown.text(),
              "Before   old/a.csv  1 row, 1 column\n"
              "After    b.csv      1 row, 1 column\n"
              "Matched  by ID\n"
              "\n"
              "No differences: 1 row is the same.\n");
}

TEST(TextReport, ColumnsThatDifferAreInTheHeadingAndCounted) {
    const Shown shown{{{"ID", "Old", "A", "B"}, {"1", "x", "y", "z"}}, {{"ID", "B", "A", "New"}, {"1", "z", "y", "w"}}};
    EXPECT_EQ(shown.text(),
              "Before   old/a.csv  1 row, 4 columns\n"
              "After    b.csv      1 row, 4 columns\n"
              "Matched  by ID\n"
              "Columns  - Old, + New, in another order\n"
              "\n"
              "Rows     0 added, 0 removed, 0 changed, 1 the same\n"
              "Columns  1 added, 1 removed\n");
}

TEST(TextReport, OptionsInForceAreNamed) {
    Shown shown{{{"ID", "Qty", "Seen"}, {"1", "1,5", "x"}}, {{"ID", "Quantity", "Seen"}, {"1", "1,50", "y"}}};
    shown.options.ignoreCase = true;
    shown.options.ignoreWhitespace = false;
    shown.options.ignoreNumberFormat = true;
    shown.options.ignoreColumnOrder = false;
    shown.options.ignoredColumns = {"Seen"};
    shown.options.numberStyle = NumberStyle::commaDecimal;
    shown.isSuggested = true;
    EXPECT_EQ(shown.text(),
              "Before   old/a.csv  1 row, 3 columns\n"
              "After    b.csv      1 row, 3 columns\n"
              "Matched  by ID (suggested)\n"
              "Columns  Qty → Quantity\n"
              "Options  letter case ignored, extra spaces count, number format ignored (decimal comma), "
              "columns matched by position, Seen ignored\n"
              "\n"
              "No differences: 1 row is the same.\n");
}

TEST(TextReport, SpacesThatDifferAreQuoted) {
    Shown shown{{{"ID", "N"}, {"1", "Ann "}}, {{"ID", "N"}, {"1", "Ann"}}};
    shown.options.ignoreWhitespace = false;
    EXPECT_NE(shown.text().find("    N: “Ann ” → “Ann”  (spaces)\n"), std::string::npos) << shown.text();
    EXPECT_NE(shown.text().find("Cells    1 changed, all only in number format, letter case or spaces\n"),
              std::string::npos);
}

TEST(TextReport, RepeatedAndMissingKeysComeLast) {
    const Shown shown{{{"ID", "N"}, {"1", "a"}, {"1", "b"}, {"", "c"}},
                      {{"ID", "N"}, {"1", "a"}, {"1", "b"}, {" ", "d"}}};
    const std::string text = shown.text();
    EXPECT_NE(text.find("- (no key)  row 4\n    N: c\n"), std::string::npos) << text;
    EXPECT_NE(text.find("Rows     1 added, 1 removed, 0 changed, 2 the same\n"
                        "\n"
                        "Repeated keys, paired in order:\n"
                        "    1  Before rows 2, 3\n"
                        "    1  After rows 2, 3\n"
                        "\n"
                        "Rows without a key, never paired:\n"
                        "    Before row 4\n"
                        "    After row 4\n"),
              std::string::npos)
        << text;
}

TEST(TextReport, LongListsOfRepeatedKeysAreCut) {
    Shown shown{{{"ID"}}, {{"ID"}}};
    for (int key = 0; key < 12; ++key) {
        shown.before.push_back({"k" + std::to_string(key)});
        shown.before.push_back({"k" + std::to_string(key)});
    }
    for (int i = 0; i < 12; ++i) {
        shown.before.push_back({"k0"});
    }
    const std::string text = shown.text();
    EXPECT_NE(text.find("    k0  Before rows 2, 3, 26, 27, 28, 29, 30, 31, 32, 33 and 4 more\n"), std::string::npos)
        << text;
    EXPECT_NE(text.find("    k9  Before rows 20, 21\n    and 2 more\n"), std::string::npos) << text;
}

TEST(TextReport, ABlankKeyOfSeveralColumnsIsNoKey) {
    const Shown shown{{{"A", "B", "N"}, {"", " ", "x"}}, {{"A", "B", "N"}, {"1", "", "y"}}, RowMatch::key({"A", "B"})};
    const std::string text = shown.text();
    EXPECT_NE(text.find("Matched  by A + B\n"), std::string::npos) << text;
    EXPECT_NE(text.find("- (no key)  row 2\n"), std::string::npos) << text;
    EXPECT_NE(text.find("+ 1 ·   row 2\n"), std::string::npos) << text;
}

TEST(TextReport, AListThatIsNotTheUsualOneIsCounted) {
    Shown shown{{{"ID", "N"}, {"1", "a"}, {"2", "b"}}, {{"ID", "N"}, {"1", "c"}, {"2", "b"}}};
    EXPECT_EQ(shown.text().find("Listed"), std::string::npos);
    shown.list.show = DiffFilter::Show::all;
    EXPECT_NE(shown.text().find("= 2  row 3\n"), std::string::npos);
    EXPECT_NE(shown.text().find("Listed   2 of 2 rows\n"), std::string::npos) << shown.text();
    shown.list.show = DiffFilter::Show::added;
    EXPECT_NE(shown.text().find("Matched  by ID\n\nRows "), std::string::npos) << shown.text();
    EXPECT_NE(shown.text().find("Listed   0 of 2 rows\n"), std::string::npos);
}

TEST(TextReport, NothingInAFileReachesTheTerminalAsAnOrder) {
    const Shown shown{{{"ID", "N\x1b[2J"}, {"\x1b]0;x\a", "a\nb"}, {"2", "\x1b[31m"}},
                      {{"ID", "N\x1b[2J"}, {"\x1b]0;x\a", "a\tc"}, {"3", "\u009B31m"}}};
    const std::string text = shown.text();
    EXPECT_EQ(text.find('\x1b'), std::string::npos);
    EXPECT_EQ(text.find('\a'), std::string::npos);
    EXPECT_EQ(text.find("\u009B"), std::string::npos);
    EXPECT_NE(text.find("~ ␛]0;x␇  row 2\n    N␛[2J: a↵b → a⇥c\n"), std::string::npos) << text;
}

TEST(TextReport, ColoursFollowTheStatus) {
    Shown shown{{{"ID", "N"}, {"1", "a"}, {"2", "b"}}, {{"ID", "N"}, {"1", "c"}, {"3", "d"}}};
    const std::string plain = shown.text();
    shown.style.colour = true;
    std::string coloured = shown.text();
    EXPECT_NE(coloured.find("\x1b[33m~\x1b[0m \x1b[1m1\x1b[0m  \x1b[2mrow 2\x1b[0m\n"), std::string::npos) << coloured;
    EXPECT_NE(coloured.find("\x1b[31ma\x1b[0m\x1b[2m → \x1b[0m\x1b[32mc\x1b[0m"), std::string::npos) << coloured;
    EXPECT_NE(coloured.find("\x1b[32m+\x1b[0m"), std::string::npos);
    EXPECT_NE(coloured.find("\x1b[31m-\x1b[0m"), std::string::npos);
    for (std::size_t start = 0; (start = coloured.find('\x1b', start)) != std::string::npos;) {
        coloured.erase(start, coloured.find('m', start) + 1 - start);
    }
    EXPECT_EQ(coloured, plain);
}

TEST(TextReport, ANarrowTerminalGetsShortLines) {
    const std::string sentence = "The quick brown fox jumps over the lazy dog";
    Shown shown{{{"ID", "A rather long column name", "N"},
                 {"a-very-long-key-that-goes-on-and-on", sentence, "1"},
                 {"2", "x", "y"}},
                {{"ID", "A rather long column name", "N"},
                 {"a-very-long-key-that-goes-on-and-on", sentence + "s", "2"},
                 {"3", sentence, "日本語日本語日本語日本語"}}};
    shown.style.width = 40;
    EXPECT_EQ(shown.text(),
              "Before   old/a.csv  2 rows, 3 columns\n"
              "After    b.csv      2 rows, 3 columns\n"
              "Matched  by ID\n"
              "\n"
              "~ a-very-long-key…-goes-on-and-on  row 2\n"
              "    A rather lon…: …lazy dog → …azy dogs\n"
              "    N:             1 → 2\n"
              "- 2  row 3\n"
              "    A rather long column name: x · N: y\n"
              "+ 3  row 3\n"
              "    A rather long column name: The quic…\n"
              "    N: 日本語日本語日本語日本語\n"
              "\n"
              "Rows     1 added, 1 removed, 1 changed, 0 the same\n"
              "Cells    2 changed\n");
}

TEST(TextReport, LongKeysThatDifferAtTheirEndsStayApart) {
    const std::string site = "https://example.org/very/long/path/to/item-";
    Shown shown{{{"ID"}, {site + "0001"}}, {{"ID"}, {site + "0002"}}};
    shown.style.width = 40;
    const std::string text = shown.text();
    EXPECT_NE(text.find("- https://example…th/to/item-0001  row 2\n"), std::string::npos) << text;
    EXPECT_NE(text.find("+ https://example…th/to/item-0002  row 2\n"), std::string::npos) << text;
}

TEST(TextReport, LongKeysLeaveRoomForTheRowsThatRepeatThem) {
    const std::string key = "https://example.org/very/long/path/to/item-0001";
    Shown shown{{{"ID"}, {key}, {key}, {"2"}, {"2"}}, {{"ID"}, {key}, {key}}};
    shown.style.width = 40;
    const std::string text = shown.text();
    EXPECT_NE(text.find("Repeated keys, paired in order:\n"
                        "    https://e…tem-0001  Before rows 2, 3\n"
                        "    2  Before rows 4, 5\n"
                        "    https://e…item-0001  After rows 2, 3\n"),
              std::string::npos)
        << text;
}

TEST(TextReport, ManyRowsThatRepeatALongKeyLeaveIt) {
    Shown shown{{{"ID"}}, {{"ID"}}};
    for (int i = 0; i < 8; ++i) {
        shown.before.push_back({"https://example.org/very/long/path/to/item-0001"});
    }
    shown.style.width = 48;
    EXPECT_NE(shown.text().find("    https://exa…/item-0001  Before rows 2, 3, 4…\n"), std::string::npos)
        << shown.text();
}

std::size_t widestBlockLine(const std::string& text) {
    std::istringstream lines(text);
    std::size_t widest = 0;
    for (std::string line; std::getline(lines, line) && line.rfind("Rows ", 0) != 0;) {
        widest = std::max(widest, Text::displayWidth(line));
    }
    return widest;
}

TEST(TextReport, NoLineOfABlockIsWiderThanTheTerminal) {
    Shown shown{{{"ID", "Name", "A column"}, {"1", "abcdef", "x"}, {"2", "日本語", "y"}, {"3", "", "z"}},
                {{"ID", "Name", "A column"}, {"1", "", "日本語日本語日本"}, {"2", "Abcd", "Y"}, {"4", "w", "v"}}};
    for (std::size_t width = 20; width < 60; ++width) {
        shown.style.width = width;
        EXPECT_LE(widestBlockLine(shown.text()), width) << shown.text();
    }
}

TEST(TextReport, WhatARowHoldsEndsAfterThreeLines) {
    Shown shown{{{"ID"}}, {{"ID"}, {"1"}}};
    for (int column = 0; column < 30; ++column) {
        shown.after[0].push_back("Column" + std::to_string(column));
        shown.after[1].push_back("value");
    }
    shown.style.width = 40;
    EXPECT_NE(shown.text().find("+ 1  row 2\n"
                                "    Column0: value · Column1: value\n"
                                "    Column2: value · Column3: value\n"
                                "    Column4: value · Column5: value …\n"
                                "\n"),
              std::string::npos)
        << shown.text();
    shown.style.width.reset();
    EXPECT_NE(shown.text().find(" · Column29: value\n"), std::string::npos);
}

TEST(TextReport, ManyRowsComeInPieces) {
    Shown shown{{{"ID", "N"}}, {{"ID", "N"}}};
    for (int i = 0; i < 20000; ++i) {
        shown.after.push_back({std::to_string(i), "x"});
    }
    const DiffResult result = shown.result();
    std::size_t longest = 0;
    std::size_t total = 0;
    writeTextReport(result, DiffFilter{}.apply(result), {}, [&](std::string_view piece) {
        longest = std::max(longest, piece.size());
        total += piece.size();
    });
    EXPECT_GT(total, 400000U);
    EXPECT_LT(longest, 70000U);
}

}  // namespace
}  // namespace corvale::Cli

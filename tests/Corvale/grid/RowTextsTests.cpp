#include <gtest/gtest.h>

#include <string>

#include "Corvale/grid/RowTexts.h"
#include "tests/Corvale/grid/GridResults.h"

namespace corvale {
namespace {

using Side = DuplicateKey::Side;
using Status = DiffRow::Status;

// A single row "1" with the given values in columns A, B, C and so on.
DiffResult changed(const std::vector<std::string>& before, const std::vector<std::string>& after) {
    std::vector<std::string> headers{"ID"};
    std::vector<std::string> left{"1"};
    std::vector<std::string> right{"1"};
    for (std::size_t i = 0; i < before.size(); ++i) {
        headers.emplace_back(1, static_cast<char>('A' + i));
        left.push_back(before[i]);
        right.push_back(after[i]);
    }
    return DiffEngine::compare(DataTable(headers, {left}, "before.csv"),
                               DataTable(headers, {right}, "after.csv"),
                               RowMatch::key({"ID"}),
                               {},
                               NumberStyle::dotDecimal);
}

TEST(RowTexts, EveryStatusHasAWordAndASymbol) {
    struct Case {
        Status status;
        const char16_t* word;
        const char16_t* symbol;
    };
    const Case cases[] = {
        {Status::added, u"Added", u"plus.circle.fill"},
        {Status::removed, u"Removed", u"minus.circle.fill"},
        {Status::changed, u"Changed", u"pencil.circle.fill"},
        {Status::same, u"Unchanged", u"equal.circle"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(RowTexts::statusWord(c.status), QString::fromUtf16(c.word));
        EXPECT_EQ(RowTexts::statusSymbol(c.status), QString::fromUtf16(c.symbol));
    }
}

TEST(RowTexts, SummaryListsThreeChangesAndCountsSeveralOthers) {
    struct Case {
        std::vector<std::string> before;
        std::vector<std::string> after;
        const char16_t* summary;
    };
    const Case cases[] = {
        {{"1"}, {"1"}, u""},
        {{"89.00"}, {"94.00"}, u"A: 89.00 to 94.00"},
        {{"1", "5"}, {"2", "8"}, u"A: 1 to 2, B: 5 to 8"},
        {{"1", "5", "x"}, {"2", "8", "y"}, u"A: 1 to 2, B: 5 to 8, C: x to y"},
        {{"1", "5", "x", "q"}, {"2", "8", "y", "r"}, u"A: 1 to 2, B: 5 to 8, C: x to y, D: q to r"},
        {{"1", "5", "x", "q", "s"}, {"2", "8", "y", "r", "t"}, u"A: 1 to 2, B: 5 to 8, C: x to y, and 2 more changes"},
        {{""}, {"new"}, u"A: (empty) to new"},
        {{"one\ntwo"}, {"%1 %2"}, u"A: one two to %1 %2"},
    };
    for (const Case& c : cases) {
        const auto result = changed(c.before, c.after);
        EXPECT_EQ(RowTexts::summary(result, result.rows[0]), QString::fromUtf16(c.summary));
    }
}

TEST(RowTexts, SummaryCutsLongTexts) {
    const auto result = changed({std::string(16384, 'x')}, {"y"});
    EXPECT_EQ(RowTexts::summary(result, result.rows[0]),
              QStringLiteral("A: ") + QString(60, u'x') + QStringLiteral("… to y"));
}

TEST(RowTexts, SummaryReadsInOrderWhateverDirectionAValueHas) {
    const auto result = changed({"שלום", "\u202Eabc"}, {"Pen", "x"});
    EXPECT_EQ(RowTexts::summary(result, result.rows[0]),
              QStringLiteral("A: \u2068שלום\u2069 to Pen, B: \u2068\u202Eabc\u2069 to x"));
}

TEST(RowTexts, ALineIsSpokenWithStatusNumbersKeyAndChanges) {
    const auto result = GridResults::compared("ID,Price\nb,1\na,2\nsame,1\n", "ID,Price\na,3\nsame,1\nc,1\n");
    std::vector<QString> spoken;
    for (const DiffRow row : result.rows) {
        spoken.push_back(RowTexts::spoken(result, row));
    }
    const std::vector<QString> expected = {
        QStringLiteral("Removed, Before: 2, After: –, b"),
        QStringLiteral("Changed, Before: 3, After: 2, a, Price: 2 to 3"),
        QStringLiteral("Unchanged, Before: 4, After: 3, same"),
        QStringLiteral("Added, Before: –, After: 4, c"),
    };
    EXPECT_EQ(spoken, expected);
}

TEST(RowTexts, TitleIsTheKeyOrSaysThatThereIsNone) {
    const auto keyed = GridResults::compared("ID,A\nk 1,x\n", "ID,A\nk 1,y\n");
    EXPECT_EQ(RowTexts::title(keyed, keyed.rows[0], 30), QStringLiteral("k 1"));
    const auto blank = GridResults::compared("ID,A\n1,x\n", "ID,A\n1,x\n ,y\n");
    EXPECT_EQ(RowTexts::title(blank, blank.rows[1], 30), QStringLiteral("(blank key)"));
    const auto ordered = GridResults::compared("ID,A\n1,x\n", "ID,A\n1,y\n", "");
    EXPECT_EQ(RowTexts::title(ordered, ordered.rows[0], 0), QStringLiteral("Row 2"));
}

TEST(RowTexts, OfALongKeyBothEndsAreSaid) {
    const std::string key = "first" + std::string(3'000'000, 'k') + "last";
    const auto result = GridResults::compared("ID,A\n" + key + ",x\n", "ID,A\n" + key + ",y\n");
    const DiffRow row = result.rows[0];
    EXPECT_EQ(RowTexts::title(result, row, 6), QStringLiteral("firstk…kklast"));
    EXPECT_EQ(RowTexts::spoken(result, row),
              QStringLiteral("Changed, Before: 2, After: 2, first%1…%2last, A: x to y")
                  .arg(QString(25, u'k'), QString(26, u'k')));
}

TEST(RowTexts, ValuesOfACellAreCut) {
    const GridCell plain{GridCell::Kind::plain, GridGeometry::CellSide::both, "abcd", {}, {}};
    EXPECT_EQ(RowTexts::cell(plain, 3), QStringLiteral("abc…"));
    EXPECT_EQ(RowTexts::cell(plain, 4), QStringLiteral("abcd"));
    const GridCell changed{GridCell::Kind::changed, GridGeometry::CellSide::both, {}, "abcd", "xy"};
    EXPECT_EQ(RowTexts::cell(changed, 3), QStringLiteral("abc… to xy"));
}

TEST(RowTexts, TheTitleOfABlankKeyOfSeveralColumnsSaysThatThereIsNone) {
    const auto result = DiffEngine::compare(Tables::table("A,B,V\n,,2\n1,,3\n"),
                                            Tables::table("A,B,V\n"),
                                            RowMatch::key({"A", "B"}),
                                            {},
                                            NumberStyle::dotDecimal);
    EXPECT_EQ(RowTexts::title(result, result.rows[0], 30), QStringLiteral("(blank key)"));
    EXPECT_EQ(RowTexts::title(result, result.rows[1], 30), QStringLiteral("1 · "));
}

TEST(RowTexts, ACopiedRowHasALineForEachSideThatHasIt) {
    const auto result = GridResults::compared("ID,A,Old\n1,x,o\n2,y,p\n", "ID,A,New\n1,z,n\n3,q,r\n");
    std::vector<QString> copied;
    for (const DiffRow row : result.rows) {
        copied.push_back(RowTexts::copied(result, row));
    }
    const std::vector<QString> expected = {
        QStringLiteral("Before\t2\t1\tx\to\t\nAfter\t2\t1\tz\t\tn"),
        QStringLiteral("Before\t3\t2\ty\tp\t"),
        QStringLiteral("After\t3\t3\tq\t\tr"),
    };
    EXPECT_EQ(copied, expected);
}

TEST(RowTexts, CopiedTextsThatWouldBreakTheTableAreQuoted) {
    const auto result = changed({"a\tb", "c\nd", "e\"f", "g,h"}, {"1", "2", "3", "4"});
    EXPECT_EQ(RowTexts::copied(result, result.rows[0]),
              QStringLiteral("Before\t2\t1\t\"a\tb\"\t\"c\nd\"\t\"e\"\"f\"\tg,h\nAfter\t2\t1\t1\t2\t3\t4"));
}

}  // namespace
}  // namespace corvale

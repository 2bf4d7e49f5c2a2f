#include <gtest/gtest.h>

#include <array>
#include <set>
#include <string>

#include "CorvaleKit/reports/ReportStrings.h"

namespace corvale {
namespace {

using Field = std::string ReportStrings::*;

constexpr std::array<Field, 44> fields = {
    &ReportStrings::title,
    &ReportStrings::summary,
    &ReportStrings::changes,
    &ReportStrings::cellChanges,
    &ReportStrings::status,
    &ReportStrings::key,
    &ReportStrings::column,
    &ReportStrings::before,
    &ReportStrings::after,
    &ReportStrings::difference,
    &ReportStrings::added,
    &ReportStrings::removed,
    &ReportStrings::changed,
    &ReportStrings::same,
    &ReportStrings::rowsAdded,
    &ReportStrings::rowsRemoved,
    &ReportStrings::rowsChanged,
    &ReportStrings::rowsSame,
    &ReportStrings::cellsChanged,
    &ReportStrings::typeOnlyCells,
    &ReportStrings::columnsAdded,
    &ReportStrings::columnsRemoved,
    &ReportStrings::matchedBy,
    &ReportStrings::rowOrder,
    &ReportStrings::ignored,
    &ReportStrings::duplicateKeys,
    &ReportStrings::rows,
    &ReportStrings::beforeFile,
    &ReportStrings::afterFile,
    &ReportStrings::rowBefore,
    &ReportStrings::rowAfter,
    &ReportStrings::generated,
    &ReportStrings::noDifferences,
    &ReportStrings::kindValue,
    &ReportStrings::kindNumberFormat,
    &ReportStrings::kindLetterCase,
    &ReportStrings::kindWhitespace,
    &ReportStrings::optionCase,
    &ReportStrings::optionWhitespace,
    &ReportStrings::optionNumbers,
    &ReportStrings::optionColumnOrder,
    &ReportStrings::columnOrderChanged,
    &ReportStrings::yes,
    &ReportStrings::blankKey,
};
static_assert(sizeof(ReportStrings) == fields.size() * sizeof(std::string));

// In the order of the fields.
constexpr std::array<const char*, 44> english = {
    "Corvale report",
    "Summary",
    "Changes",
    "Cell changes",
    "Status",
    "Key",
    "Column",
    "Before",
    "After",
    "Difference",
    "Added",
    "Removed",
    "Changed",
    "Unchanged",
    "Rows added",
    "Rows removed",
    "Rows changed",
    "Rows unchanged",
    "Cells changed",
    "Cells that differ only in number format, case or spacing",
    "Columns added",
    "Columns removed",
    "Rows matched by",
    "row order",
    "Ignored",
    "Duplicate keys",
    "Rows",
    "Before file",
    "After file",
    "Row (before)",
    "Row (after)",
    "Made with Corvale on this Mac. Nothing was uploaded.",
    "No differences.",
    "Value",
    "Number format only",
    "Letter case only",
    "Spacing only",
    "letter case",
    "extra spaces",
    "number formatting",
    "column order",
    "Column order changed",
    "Yes",
    "(blank key)",
};

TEST(ReportStrings, AreEnglishUnlessReplaced) {
    const ReportStrings strings;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        EXPECT_EQ(strings.*fields[i], english[i]);
    }
}

TEST(ReportStrings, NoneIsLeftInEnglishInSpanish) {
    const ReportStrings strings;
    const ReportStrings spanish = ReportStrings::spanish();
    for (const Field field : fields) {
        EXPECT_FALSE((spanish.*field).empty()) << strings.*field;
        EXPECT_NE(spanish.*field, strings.*field);
    }
}

TEST(ReportStrings, TellTheSheetsApart) {
    for (const ReportStrings& strings : {ReportStrings(), ReportStrings::spanish()}) {
        EXPECT_EQ(std::set({strings.summary, strings.changes, strings.cellChanges}).size(), 3U);
    }
}

TEST(ReportStrings, ValuesThatFollowALabelBeginSmall) {
    for (const ReportStrings& strings : {ReportStrings(), ReportStrings::spanish()}) {
        for (const Field field : {&ReportStrings::rowOrder,
                                  &ReportStrings::optionCase,
                                  &ReportStrings::optionWhitespace,
                                  &ReportStrings::optionNumbers,
                                  &ReportStrings::optionColumnOrder}) {
            const char first = (strings.*field).front();
            EXPECT_TRUE(first >= 'a' && first <= 'z') << strings.*field;
        }
    }
}

TEST(ReportStrings, OnesThatAreNotGivenKeepTheirEnglish) {
    const ReportStrings strings = {.title = "Stock take"};
    EXPECT_EQ(strings.title, "Stock take");
    EXPECT_EQ(strings.blankKey, "(blank key)");
    EXPECT_NE(strings, ReportStrings());
}

}  // namespace
}  // namespace corvale

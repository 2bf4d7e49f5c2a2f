#include <gtest/gtest.h>

#include "Corvale/model/Columns.h"

namespace corvale {
namespace {

using Names = std::vector<std::string>;

DataTable table(const Names& headers) { return {headers, {}, "table.csv"}; }

TEST(Columns, SharedOnesAreBeforesInItsOrderWithoutRegardToLetterCase) {
    struct Case {
        Names before;
        Names after;
        Names shared;
    };
    const std::vector<Case> cases = {
        {{"ID", "Name", "Price"}, {"Price", "ID"}, {"ID", "Price"}},
        {{"id", "NAME"}, {"Name", "ID"}, {"id", "NAME"}},
        {{"Größe"}, {"GRÖSSE", "GRÖßE"}, {"Größe"}},
        {{"ID "}, {"ID"}, {}},
        {{"a"}, {"b"}, {}},
        {{}, {"b"}, {}},
        {{"a"}, {}, {}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Columns::shared(table(c.before), table(c.after)), c.shared);
    }
}

TEST(Columns, AllAreBeforesAndThenThoseThatBeforeLacks) {
    EXPECT_EQ(Columns::all(table({"ID", "Price"}), table({"New", "PRICE", "Qty", "id"})),
              (Names{"ID", "Price", "New", "Qty"}));
    EXPECT_EQ(Columns::all(table({}), table({"a"})), (Names{"a"}));
    EXPECT_EQ(Columns::all(table({"a"}), table({})), (Names{"a"}));
}

TEST(Columns, AreIgnoredInAnyLetterCase) {
    DiffOptions options;
    options.ignoredColumns = {"PRICE", "größe"};
    EXPECT_TRUE(Columns::isIgnored(options, "Price"));
    EXPECT_TRUE(Columns::isIgnored(options, "GRÖßE"));
    EXPECT_FALSE(Columns::isIgnored(options, "Prices"));
    EXPECT_FALSE(Columns::isIgnored({}, "Price"));
}

TEST(Columns, TogglingIgnoresAColumnOrComparesItAgain) {
    DiffOptions options;
    options.ignoredColumns = {"PRICE"};
    Columns::toggleIgnored(options, "price");
    EXPECT_TRUE(options.ignoredColumns.empty());
    Columns::toggleIgnored(options, "Qty");
    Columns::toggleIgnored(options, "price");
    EXPECT_TRUE(Columns::isIgnored(options, "QTY"));
    EXPECT_TRUE(Columns::isIgnored(options, "Price"));
    EXPECT_EQ(options.ignoredColumns.size(), 2U);
}

}  // namespace
}  // namespace corvale

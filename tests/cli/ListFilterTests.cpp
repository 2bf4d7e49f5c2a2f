#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "cli/ListFilter.h"
#include "cli/NameChoice.h"

namespace corvale::Cli {
namespace {

TEST(ListFilter, AColumnIsFoundByItsNameOrElseIgnoringCase) {
    const std::vector<ColumnPair> columns{
        {"price", 0, 0, false, {}}, {"Price", 1, 1, false, {}}, {"Stock", 2, {}, false, {}}};
    const auto column = [&](const char* name) { return listFilter({DiffFilter::Show::all, name, ""}, columns).column; };
    EXPECT_EQ(column("Price"), 1);
    EXPECT_EQ(column("PRICE"), 0);
    EXPECT_EQ(column("stock"), 2);
    EXPECT_THROW(column("Age"), ColumnFailure);
}

TEST(ListFilter, TheOtherOptionsArePassedOn) {
    EXPECT_EQ(listFilter({DiffFilter::Show::removed, {}, "a b"}, {}),
              (DiffFilter{DiffFilter::Show::removed, std::nullopt, "a b"}));
}

}  // namespace
}  // namespace corvale::Cli

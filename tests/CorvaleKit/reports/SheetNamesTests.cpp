#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "CorvaleKit/reports/SheetNames.h"

namespace corvale {
namespace {

using Names = std::vector<std::string>;

Names cleaned(const Names& wanted) {
    SheetNames names;
    Names all;
    for (const std::string& name : wanted) {
        all.push_back(names.cleaned(name));
    }
    return all;
}

std::string repeated(const std::string& piece, std::size_t count) {
    std::string text;
    for (; count > 0; --count) {
        text += piece;
    }
    return text;
}

TEST(SheetNames, ForbiddenCharactersAreDropped) {
    struct Case {
        std::string wanted;
        std::string name;
    };
    const std::vector<Case> cases = {{"Changes", "Changes"},
                                     {"a[b]c:d*e?f/g\\h", "abcdefgh"},
                                     {"[]:*?/\\", "Sheet"},
                                     {"", "Sheet"},
                                     {"[x]", "x"},
                                     {" ", " "},
                                     {"A & B <\"'>", "A & B <\"'>"},
                                     {"Año/Übersicht", "AñoÜbersicht"}};
    for (const auto& [wanted, name] : cases) {
        EXPECT_EQ(cleaned({wanted}), Names{name}) << wanted;
    }
}

TEST(SheetNames, AreCutTo31Characters) {
    const std::string of31(31, 'a');
    EXPECT_EQ(cleaned({of31}), Names{of31});
    EXPECT_EQ(cleaned({of31 + "b"}), Names{of31});
    EXPECT_EQ(cleaned({repeated("[a]", 40)}), Names{of31});
}

TEST(SheetNames, AreCutBetweenCharactersOnly) {
    // A family of seven scalars, an accent of its own, a flag, a letter of two bytes.
    for (const std::string character : {"👨‍👩‍👧‍👦", "e\u0301", "🇪🇸", "é"}) {
        EXPECT_EQ(cleaned({repeated(character, 32)}), Names{repeated(character, 31)}) << character;
        EXPECT_EQ(cleaned({repeated(character, 31)}), Names{repeated(character, 31)}) << character;
        EXPECT_EQ(cleaned({repeated(character, 30), repeated(character, 30)}),
                  (Names{repeated(character, 30), repeated(character, 28) + " 2"}))
            << character;
    }
}

TEST(SheetNames, EqualNamesAreNumbered) {
    struct Case {
        Names wanted;
        Names names;
    };
    const std::vector<Case> cases = {
        {{"Changes", "changes"}, {"Changes", "changes 2"}},
        {{"Ä", "ä", "Ä"}, {"Ä", "ä 2", "Ä 3"}},
        {{"[", "]", "Sheet"}, {"Sheet", "Sheet 2", "Sheet 3"}},
        {{"A", "A 2", "A"}, {"A", "A 2", "A 3"}},
        {{"A", "A", "A 2"}, {"A", "A 2", "A 2 2"}},
        {{"A*", "A?"}, {"A", "A 2"}},
        {{std::string(31, 'x'), std::string(40, 'X')}, {std::string(31, 'x'), std::string(28, 'X') + " 2"}},
        {{std::string(28, 'x') + "abc", std::string(28, 'x') + "def", std::string(28, 'x') + "abc"},
         {std::string(28, 'x') + "abc", std::string(28, 'x') + "def", std::string(28, 'x') + " 2"}},
    };
    for (const auto& [wanted, names] : cases) {
        EXPECT_EQ(cleaned(wanted), names);
    }
}

TEST(SheetNames, ManyEqualNamesStayDifferent) {
    const Names names = cleaned(Names(300, "Changes"));
    EXPECT_EQ(names[0], "Changes");
    EXPECT_EQ(names[1], "Changes 2");
    EXPECT_EQ(names[299], "Changes 300");
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
}

}  // namespace
}  // namespace corvale

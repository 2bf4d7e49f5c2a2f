#include <gtest/gtest.h>

#include "Corvale/grid/VisibleSpaces.h"

namespace corvale {
namespace {

TEST(VisibleSpaces, EachKindOfWhiteSpaceHasItsMark) {
    struct Case {
        const char* text;
        const char16_t* visible;
    };
    const Case cases[] = {
        {"", u""},
        {"plain", u"plain"},
        {"a b", u"a·b"},
        {"  a  ", u"··a··"},
        {"a\tb", u"a→b"},
        {"a\nb", u"a⏎\nb"},
        {"a\rb", u"a⏎\nb"},
        {"a\r\nb", u"a⏎⏎\nb"},
        {"a\u00A0b", u"a␣b"},
        {"a\u202Fb", u"a␣b"},
        {"a\u2003b", u"a·b"},
        {"a\u2028b", u"a⏎\nb"},
        {"ä ö", u"ä·ö"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(VisibleSpaces::of(c.text).text, QString::fromUtf16(c.visible)) << c.text;
    }
}

TEST(VisibleSpaces, EachUnitKnowsWhereItCameFrom) {
    EXPECT_EQ(VisibleSpaces::of("a \nb").origins, (std::vector<int>{0, 1, 2, 2, 3}));
    EXPECT_EQ(VisibleSpaces::of("\r\n").origins, (std::vector<int>{0, 1, 1}));
}

}  // namespace
}  // namespace corvale

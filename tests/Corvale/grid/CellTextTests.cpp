#include <gtest/gtest.h>

#include <string>

#include "Corvale/grid/CellText.h"

namespace corvale {
namespace {

TEST(CellText, WholeKeepsEverything) {
    EXPECT_EQ(CellText::whole("a\nä\t 👩"), QStringLiteral("a\nä\t 👩"));
    EXPECT_EQ(CellText::whole({}), QString());
}

TEST(CellText, ShortenedCutsBetweenCharacters) {
    struct Case {
        const char* text;
        std::size_t characters;
        const char16_t* shortened;
    };
    const Case cases[] = {
        {"", 3, u""},
        {"abc", 3, u"abc"},
        {"abcd", 3, u"abc…"},
        {"äöü", 2, u"äö…"},
        {"e\u0301e\u0301e\u0301", 2, u"e\u0301e\u0301…"},
        {"a\nb\tc\r\nd", 20, u"a b c  d"},
        {"abc", 0, u"…"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(CellText::shortened(c.text, c.characters), QString::fromUtf16(c.shortened)) << c.text;
    }
}

TEST(CellText, MarksPiledOnOneCharacterCostNoMore) {
    std::string pile = "e";
    for (int i = 0; i < 100000; ++i) {
        pile += "\u0301";
    }
    const QString shown = CellText::shortened(pile, 2);
    EXPECT_LT(shown.size(), 20);
    EXPECT_TRUE(shown.endsWith(u'…'));
    EXPECT_FALSE(shown.contains(QChar::ReplacementCharacter));
}

TEST(CellText, OnOneLineHoldsAllThatFits) {
    const std::string cell(16384, 'i');
    const QString line = CellText::onOneLine(cell, 240);
    EXPECT_GE(line.size(), 120);
    EXPECT_LE(line.size(), 130);
    EXPECT_EQ(CellText::onOneLine("Terracotta pot", 240), QStringLiteral("Terracotta pot"));
    EXPECT_EQ(CellText::onOneLine("Terracotta pot", -3), QStringLiteral("T…"));
}

TEST(CellText, CutsNoCharacterInTwo) {
    const QString text = QStringLiteral("ab𝒳d");
    const std::vector<QString> shown = {QStringLiteral("…"),
                                        QStringLiteral("a…"),
                                        QStringLiteral("ab…"),
                                        QStringLiteral("ab…"),
                                        QStringLiteral("ab𝒳…"),
                                        text,
                                        text};
    for (qsizetype units = 0; units <= 6; ++units) {
        EXPECT_EQ(CellText::cut(text, units), shown[static_cast<std::size_t>(units)]) << units;
    }
    const QString page = QStringLiteral("a") + QStringLiteral("𝒳").repeated(600);
    EXPECT_TRUE(CellText::toolTip(page).isValidUtf16());
}

TEST(CellText, AToolTipCanBreakLongWordsBetweenCharacters) {
    const QString plain = QStringLiteral("Terracotta pot, <small>");
    EXPECT_EQ(CellText::toolTip(plain),
              QStringLiteral("<p style=\"white-space:pre-wrap\">Terracotta pot, &lt;small&gt;</p>"));
    const QString family = QStringLiteral("👩‍👩‍👧");
    const QString shown = CellText::toolTip(QStringLiteral("short ") + family.repeated(70));
    const QString broken = QStringLiteral("short ") + family.repeated(60) + QChar(0x200B) + family.repeated(10);
    EXPECT_TRUE(shown.contains(broken));
}

}  // namespace
}  // namespace corvale

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

TEST(CellText, KnowsWhetherALineIsAllOfAText) {
    struct Case {
        const char* text;
        const char16_t* line;
        bool isAll;
    };
    const Case cases[] = {
        {"", u"", true},
        {"a…", u"a…", true},
        {"abc", u"ab…", false},
        {"1\u00A0234", u"1 234", true},
        {"1\u202F234 \u2003€𝒳", u"1 234  €𝒳", true},
        {"1\u00A0234", u"1 2…", false},
        {"a\tb", u"a b", false},
        {"a\nb", u"a b", false},
        {"a\rb", u"a b", false},
        {"a\u2028b", u"a b", false},
        {"a\u0085b", u"a b", false},
        {"€€€€", u"€€€€", true},
        {"€€€€", u"€€€…", false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(CellText::isAllOf(QString::fromUtf16(c.line), c.text), c.isAll) << c.text;
    }
}

TEST(CellText, EndsKeepsTheFirstAndTheLastCharacters) {
    struct Case {
        const char* text;
        std::size_t characters;
        const char16_t* ends;
    };
    const Case cases[] = {
        {"", 3, u""},
        {"abcdef", 3, u"abcdef"},
        {"abcdefg", 3, u"abc…efg"},
        {"äöüß€𝒳é", 2, u"äö…𝒳é"},
        {"a\nb\tc\u00A0d", 2, u"a … d"},
        {"abc", 0, u"…"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(CellText::ends(c.text, c.characters), QString::fromUtf16(c.ends)) << c.text;
    }
}

TEST(CellText, EndsCutsNoCharacterInTwo) {
    for (const char* const character : {"a", "é", "€", "𝒳"}) {
        const QString unit = QString::fromUtf8(character);
        for (const int before : {0, 1, 2, 3}) {
            const QString text = QString(before, u'x') + unit.repeated(40) + QString(3 - before, u'y');
            for (std::size_t characters = 0; characters < 25; ++characters) {
                const QString ends = CellText::ends(text.toStdString(), characters);
                EXPECT_TRUE(ends.isValidUtf16() && !ends.contains(QChar::ReplacementCharacter)) << characters;
                EXPECT_EQ(ends == text, 2 * characters >= 43) << characters;
                EXPECT_EQ(ends.count(u'…'), ends == text ? 0 : 1) << characters;
                EXPECT_TRUE(text.startsWith(ends.section(u'…', 0, 0)) && text.endsWith(ends.section(u'…', -1)));
            }
        }
    }
    std::string piles;
    for (int i = 0; i < 100'000; ++i) {
        piles += "\u0301";
    }
    EXPECT_LT(CellText::ends("e" + piles + "e" + piles, 2).size(), 20);
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
    for (const char* const character : {"a", "é", "€", "𝒳"}) {
        const QString longText = QString::fromUtf8(character).repeated(300);
        for (const qsizetype units : {0, 1, 2, 50, 99, 100, 101, 299, 300, 600, 601}) {
            EXPECT_EQ(CellText::cut(longText.toStdString(), units), CellText::cut(longText, units)) << units;
        }
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

#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include "Corvale/style/StyleSheet.h"

namespace corvale {
namespace {

QSet<QString> found(const QString& pattern, const QString& text) {
    QSet<QString> texts;
    const QRegularExpression expression(pattern);
    for (auto match = expression.globalMatch(text); match.hasNext();) {
        texts.insert(match.next().captured());
    }
    return texts;
}

TEST(StyleSheet, EveryNameIsReplacedByAColourOfThePalette) {
    for (const Scheme scheme : {Scheme::light, Scheme::dark}) {
        const Palette& palette = Palette::forScheme(scheme);
        const QString sheet = StyleSheet::make(palette);
        EXPECT_FALSE(sheet.contains(u'@'));
        QSet<QString> colors;
        for (const auto& named : namedColors(palette)) {
            colors.insert(named.color.name());
        }
        const QSet<QString> written = found(QStringLiteral("#[0-9a-f]{6,8}\\b"), sheet);
        EXPECT_GT(written.size(), 15);
        EXPECT_EQ(written - colors, QSet<QString>());
    }
}

TEST(StyleSheet, TheRulesNameNoColourThemselves) {
    QFile file(QStringLiteral(":/corvale/style.qss"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString rules = QString::fromUtf8(file.readAll());
    EXPECT_EQ(found(QStringLiteral("#[0-9A-Fa-f]{3,8}\\b|rgba?\\(|\\b(white|black|gray|red)\\b"), rules),
              QSet<QString>());
    EXPECT_EQ(rules.count(u'{'), rules.count(u'}'));
}

TEST(StyleSheet, DiffersBetweenTheSchemes) {
    EXPECT_NE(StyleSheet::make(Palette::forScheme(Scheme::light)), StyleSheet::make(Palette::forScheme(Scheme::dark)));
}

TEST(StyleSheet, WritesTheColourInPlaceOfItsName) {
    const QString sheet = StyleSheet::make(Palette::forScheme(Scheme::light));
    EXPECT_TRUE(sheet.contains(u"QMainWindow, QDialog { background: #f2f3f5; }"));
    EXPECT_TRUE(sheet.contains(u"QLabel[look=\"secondaryText\"] { color: #535b67; }"));
}

}  // namespace
}  // namespace corvale

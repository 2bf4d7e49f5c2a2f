#include <gtest/gtest.h>

#include <QLocale>
#include <string>
#include <utility>

#include "Corvale/grid/FieldValue.h"

namespace corvale {
namespace {

std::string marked(const FieldValue& value) {
    return value.text.mid(value.markBegin, value.markEnd - value.markBegin).toStdString();
}

std::string copied(const FieldValue& value, qsizetype begin, qsizetype end) {
    if (value.origins.empty()) {
        return value.original.mid(begin, end - begin).toStdString();
    }
    const int from = value.origins[static_cast<std::size_t>(begin)];
    return value.original.mid(from, value.origins[static_cast<std::size_t>(end) - 1] + 1 - from).toStdString();
}

FieldValues valuesOf(const std::string& before, const std::string& after,
                     RowField::Kind kind = RowField::Kind::changed) {
    RowField field;
    field.kind = kind;
    field.before = before;
    field.after = after;
    return FieldValues::of(field);
}

TEST(FieldValue, MarksBehindLineBreaksOfTwoCharacters) {
    RowField field;
    field.kind = RowField::Kind::changed;
    field.before = "a\r\nb";
    field.after = "a\r\nc";
    const FieldValue after = FieldValues::of(field).after;
    EXPECT_EQ(after.text, QStringLiteral("a\nc"));
    EXPECT_EQ(after.text.mid(after.markBegin, after.markEnd - after.markBegin), QStringLiteral("c"));
    field.after = "a\r\nb\r\n!";
    const FieldValue longer = FieldValues::of(field).after;
    EXPECT_EQ(longer.text.mid(longer.markBegin, longer.markEnd - longer.markBegin), QStringLiteral("\n!"));
}

TEST(FieldValue, MarksWhichSpacesDiffer) {
    RowField field;
    field.kind = RowField::Kind::formatOnly;
    field.isSpacing = true;
    field.before = "a b\nc";
    field.after = "a b \tc";
    const FieldValue before = FieldValues::of(field).before;
    EXPECT_EQ(before.text.mid(before.markBegin, before.markEnd - before.markBegin).remove(u'\n'), QStringLiteral("⏎"))
        << before.text.toStdString();
    const FieldValue after = FieldValues::of(field).after;
    EXPECT_EQ(after.text.mid(after.markBegin, after.markEnd - after.markBegin), QStringLiteral("·→"));
}

TEST(FieldValue, MarksWhatDiffersWithinALongOne) {
    for (const std::size_t length : {50'000U, 2'000'000U}) {
        const std::string head(length, 'a');
        const std::string tail(length, 'c');
        const auto [before, after] = valuesOf(head + "b" + tail, head + "xy" + tail);
        EXPECT_EQ(marked(before), "b");
        EXPECT_EQ(marked(after), "xy");
        EXPECT_EQ(after.text.mid(after.noteBefore).left(102), QString(100, u'a') + QStringLiteral("xy"));
        EXPECT_EQ(after.text.left(after.noteBefore),
                  QStringLiteral("[%1 characters left out]\n").arg(QLocale().toString(static_cast<int>(length) - 100)));
    }
}

TEST(FieldValue, OfALongOneIsWhatEachOfItsUnitsStandsFor) {
    const std::string lines = [] {
        std::string text;
        for (int i = 0; i < 20'000; ++i) {
            text += "é\r\n";
        }
        return text;
    }();
    const auto [before, after] = valuesOf(lines + "b" + lines, lines + "c" + lines);
    EXPECT_EQ(marked(after), "c");
    EXPECT_EQ(after.text.size(), static_cast<qsizetype>(after.origins.size()));
    EXPECT_EQ(copied(after, after.markBegin - 2, after.markEnd + 2), "é\r\ncé\r");
    EXPECT_EQ(copied(after, 0, after.text.size()), after.original.toStdString());
    const std::string head = after.text.left(after.noteBefore).toStdString();
    EXPECT_EQ(copied(after, 0, after.noteBefore), head);
    const std::string end = after.text.right(after.noteBehind).toStdString();
    EXPECT_EQ(copied(after, after.text.size() - after.noteBehind, after.text.size()), end);
    EXPECT_EQ(head.front(), '[');
    EXPECT_EQ(end.back(), ']');
}

TEST(FieldValue, ShowsTheSpacesOfALongOne) {
    const auto [before, after] =
        valuesOf(std::string(70'000, ' '), std::string(70'001, ' '), RowField::Kind::formatOnly);
    EXPECT_EQ(before.text.mid(before.noteBefore), QString(100, u'·'));
    EXPECT_EQ(after.text.mid(after.noteBefore), QString(101, u'·'));
    EXPECT_EQ(marked(after), "·");
}

TEST(FieldValue, CountsWhatIsLeftOutInScalars) {
    std::string text;
    for (int i = 0; i < 40'000; ++i) {
        text += "😀";
    }
    const auto [before, after] = valuesOf(text, text, RowField::Kind::plain);
    EXPECT_EQ(after.text.right(after.noteBehind),
              QStringLiteral("\n[%1 characters left out]").arg(QLocale().toString(40'000 - 32'767)));
    EXPECT_EQ(after.text.size(), 2 * 32'767 + after.noteBehind);
}

}  // namespace
}  // namespace corvale

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLocale>
#include <QTextCursor>
#include <QTextDocument>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Corvale/grid/FieldValue.h"
#include "Corvale/grid/ValueText.h"

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

// All texts of the characters up to a length.
std::vector<std::string> allTexts(std::string_view characters, std::size_t longest) {
    std::vector<std::string> texts{""};
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (texts[i].size() < longest) {
            for (const char character : characters) {
                texts.push_back(texts[i] + character);
            }
        }
    }
    return texts;
}

// A document that shows the value has a character for each unit of it, so that places are the same in both.
void expectUnitsShown(const FieldValue& value) {
    QTextDocument set;
    set.setPlainText(value.text);
    QTextDocument inserted;
    QTextCursor(&inserted).insertText(value.text);
    for (const QTextDocument* document : {&set, &inserted}) {
        EXPECT_EQ(document->characterCount(), value.text.size() + 1);  // one more ends the last paragraph
        EXPECT_EQ(document->toPlainText(), value.text);
    }
    EXPECT_TRUE(value.origins.empty() || value.origins.size() == static_cast<std::size_t>(value.text.size()));
}

QString copiedWhole(ValueText& view, const FieldValue& value) {
    view.setValue(value, {});
    view.selectAll();
    view.copy();
    return QApplication::clipboard()->text();
}

TEST(FieldValue, HasAUnitForEachCharacterOfADocumentThatShowsIt) {
    QWidget parent;
    ValueText view(&parent);
    for (const std::string& text : allTexts("a\r\n", 5)) {
        SCOPED_TRACE(QByteArray::fromStdString(text).toPercentEncoding().toStdString());
        const auto [before, after] = valuesOf(text + 'b', text + 'c');
        EXPECT_EQ(marked(after), text.empty() ? "" : "c");
        for (const FieldValue& value : {before, after}) {
            expectUnitsShown(value);
        }
        EXPECT_EQ(copiedWhole(view, after).toStdString(), text + 'c');
        if (!text.empty()) {
            const FieldValue added = valuesOf("", text).after;
            expectUnitsShown(added);
            EXPECT_EQ(copiedWhole(view, added).toStdString(), text);
        }
    }
}

TEST(FieldValue, HasAUnitForEachCharacterAlsoBesideANote) {
    QWidget parent;
    ValueText view(&parent);
    for (const std::string& text : allTexts("a\r\n", 2)) {
        SCOPED_TRACE(QByteArray::fromStdString(text).toPercentEncoding().toStdString());
        const std::string filler(32'767 - text.size(), 'x');
        const std::string cutBehind = filler + text + std::string(2000, 'y');
        const FieldValue behind = valuesOf("", cutBehind).after;
        ASSERT_GT(behind.noteBehind, 0);
        EXPECT_EQ(behind.original.left(32'767).toStdString(), filler + text);
        expectUnitsShown(behind);
        EXPECT_EQ(copiedWhole(view, behind), behind.original);
        // The stretch begins 100 characters before what differs.
        const std::string head = std::string(40'000, 'x') + text + std::string(100 - text.size(), 'y');
        const FieldValue inside = valuesOf(head + 'b' + cutBehind, head + 'c' + cutBehind).after;
        ASSERT_GT(inside.noteBefore, 0);
        ASSERT_GT(inside.noteBehind, 0);
        EXPECT_TRUE(inside.original.mid(inside.noteBefore).startsWith(QString::fromStdString(text) + u'y'));
        EXPECT_EQ(marked(inside), "c");
        expectUnitsShown(inside);
        EXPECT_EQ(copiedWhole(view, inside), inside.original);
    }
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

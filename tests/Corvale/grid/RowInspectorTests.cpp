#include <gtest/gtest.h>

#include <QClipboard>
#include <QFocusFrame>
#include <QLabel>
#include <QLocale>
#include <QScrollBar>
#include <algorithm>

#include "Corvale/grid/FieldList.h"
#include "Corvale/grid/FieldView.h"
#include "Corvale/grid/GridPlaceholder.h"
#include "Corvale/grid/InspectorHead.h"
#include "Corvale/grid/RowTexts.h"
#include "Corvale/grid/ValueText.h"
#include "tests/Corvale/grid/GridScene.h"

namespace corvale {
namespace {

using TestSupport::wideTable;
using Show = DiffFilter::Show;

// "[1,999,000 characters left out]", as numbers are written here.
QString leftOut(int characters) {
    return QStringLiteral("[%1 characters left out]").arg(QLocale().toString(characters));
}

class RowInspectorTest : public TestSupport::GridScene {
protected:
    void select(std::int64_t line) {
        m_grid.selectLine(line);
        settle();
    }
    QString before(std::size_t field) { return m_details.fields().view(field)->before().toPlainText(); }
    QString after(std::size_t field) { return m_details.fields().view(field)->after().toPlainText(); }
    // As the user does it.
    static QString copied(ValueText& value) {
        QTest::keyClick(&value, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&value, Qt::Key_C, Qt::ControlModifier);
        return QApplication::clipboard()->text();
    }
    QScrollBar& bar() { return *m_details.fields().verticalScrollBar(); }
    bool isOnScreen(std::size_t field) {
        const FieldView* view = m_details.fields().view(field);
        return view && m_details.fields().viewport()->rect().intersects(view->geometry());
    }
};

TEST(ValueText, ItsFirstHeightIsThatInTheGivenWidth) {
    QWidget parent;
    ValueText text(&parent);
    FieldValue value;
    value.text = value.original = QStringLiteral("Neither so short that any width would do, nor very long.");
    text.setValue(value, {});
    ASSERT_LT(text.width(), 600);
    EXPECT_EQ(text.heightIn(600), ValueText::lineHeight(text.font()));
    EXPECT_GT(text.heightIn(100), 2 * ValueText::lineHeight(text.font()));
}

TEST_F(RowInspectorTest, WithoutASelectionItSaysHowToSelect) {
    EXPECT_TRUE(m_details.placeholder().isVisible());
    openSample();
    EXPECT_TRUE(m_details.placeholder().isVisible());
    EXPECT_EQ(m_details.placeholder().subject(), GridPlaceholder::Subject::noRowSelected);
    select(0);
    EXPECT_FALSE(m_details.placeholder().isVisible());
    EXPECT_TRUE(m_details.head().isVisible());
    m_model.select(std::nullopt);
    EXPECT_TRUE(m_details.placeholder().isVisible());
}

TEST_F(RowInspectorTest, TheHeadTellsRowStatusAndChanges) {
    openSample();
    select(2);
    EXPECT_EQ(m_details.head().key(), QStringLiteral("SKU-1007"));
    EXPECT_EQ(m_details.head().status(), QStringLiteral("Changed"));
    EXPECT_EQ(m_details.head().beforeNumber(), QStringLiteral("Before: row 8"));
    EXPECT_EQ(m_details.head().afterNumber(), QStringLiteral("After: row 8"));
    EXPECT_EQ(m_details.head().summary(), QStringLiteral("Price: 89.00 to 79.00, Qty: 5 to 8"));
    select(6);
    EXPECT_EQ(m_details.head().status(), QStringLiteral("Removed"));
    EXPECT_EQ(m_details.head().beforeNumber(), QStringLiteral("Before: row 23"));
    EXPECT_EQ(m_details.head().afterNumber(), QStringLiteral("After: (not in this file)"));
    EXPECT_EQ(m_details.head().summary(), QString());
}

TEST_F(RowInspectorTest, OfALongKeyTheHeadKnowsBothEnds) {
    const std::string key = "first" + std::string(2'000, 'k') + "last";
    open("ID,A\n" + key + ",x\n", "ID,A\n" + key + ",y\n");
    select(0);
    const QString shown = m_details.head().key();
    EXPECT_TRUE(shown.startsWith(QStringLiteral("firstk")) && shown.endsWith(QStringLiteral("klast")));
    EXPECT_EQ(shown.size(), 480 + 1 + 480);
    const auto labels = m_details.head().findChildren<QLabel*>();
    const auto label = std::find_if(
        labels.begin(), labels.end(), [&](const QLabel* l) { return l->text().startsWith(QStringLiteral("first")); });
    ASSERT_NE(label, labels.end());
    EXPECT_TRUE((*label)->text().endsWith(QStringLiteral("klast"))) << (*label)->text().toStdString();
    EXPECT_EQ((*label)->text().count(u'…'), 1);
}

TEST_F(RowInspectorTest, OfALongSummaryWhatFitsIsShownWithASign) {
    const std::string name(50, 'n');
    std::string head = "ID";
    std::string before = "1";
    std::string after = "1";
    for (const char column : {'A', 'B', 'C', 'D'}) {
        head += ',' + name + column;
        before += ',' + std::string(10, column) + " words of an old value and some more 😀😀😀😀";
        after += ',' + std::string(10, column) + " words of a new value and some more 😀😀😀😀";
    }
    open(head + '\n' + before + '\n', head + '\n' + after + '\n');
    select(0);
    auto& summary = *m_details.head().findChild<ValueText*>();
    const QString whole = RowTexts::summary(*m_model.result(), m_model.result()->rows[0]);
    const int most = 8 * ValueText::lineHeight(summary.font());
    for (const int width : {264, 220, 300}) {
        m_details.setFixedWidth(width);
        settle();
        const QString shown = m_details.head().summary();
        EXPECT_LT(shown.size(), whole.size()) << width;
        EXPECT_TRUE(shown.isValidUtf16()) << width;
        EXPECT_TRUE(shown.endsWith(u'…')) << shown.toStdString();
        EXPECT_TRUE(whole.startsWith(shown.chopped(1))) << shown.toStdString();
        EXPECT_LE(summary.document()->size().height(), summary.height()) << width;
        EXPECT_EQ(summary.height(), most) << width;
        EXPECT_TRUE(summary.toolTip().contains(whole.right(50))) << summary.toolTip().toStdString();
        EXPECT_EQ(copied(summary), whole) << width;
    }
    const qsizetype inSmallFont = m_details.head().summary().size();
    auto& widget = *m_details.findChild<InspectorHead*>();
    QFont larger = widget.font();
    larger.setPixelSize(QFontInfo(larger).pixelSize() + 6);
    widget.setFont(larger);
    settle();
    EXPECT_LT(m_details.head().summary().size(), inSmallFont);
    EXPECT_EQ(summary.height(), 8 * ValueText::lineHeight(summary.font()));
    EXPECT_LE(summary.document()->size().height(), summary.height());
    m_details.setFixedWidth(1200);
    settle();
    EXPECT_EQ(m_details.head().summary(), whole);
    EXPECT_EQ(summary.toolTip(), QString());
    EXPECT_EQ(copied(summary), whole);
}

TEST_F(RowInspectorTest, AnotherHeightLeavesWhatIsSelectedInTheSummary) {
    openSample();
    select(2);
    auto& summary = *m_details.head().findChild<ValueText*>();
    summary.selectAll();
    m_window.resize(m_window.width(), m_window.height() + 40);
    settle();
    EXPECT_EQ(summary.textCursor().selectedText(), m_details.head().summary());
}

TEST_F(RowInspectorTest, InANarrowPaneTheNumbersTakeALineEach) {
    openSample();
    select(6);
    const auto label = [this](const QString& text) {
        const auto labels = m_details.head().findChildren<QLabel*>();
        return *std::find_if(labels.begin(), labels.end(), [&](const QLabel* l) { return l->text() == text; });
    };
    for (const int width : {220, 264, 480}) {
        m_details.setFixedWidth(width);
        settle();
        const QLabel* before = label(QStringLiteral("Before: row 23"));
        const QLabel* after = label(QStringLiteral("After: (not in this file)"));
        EXPECT_GE(before->width(), before->sizeHint().width()) << width;
        EXPECT_GE(after->width(), after->sizeHint().width()) << width;
        EXPECT_LE(after->geometry().right(), width - FieldView::padding) << width;
        EXPECT_FALSE(before->geometry().intersects(after->geometry())) << width;
        EXPECT_EQ(after->y() > before->y(), width == 220) << width;
    }
}

TEST_F(RowInspectorTest, InARightToLeftWindowTheTitlesStandOverTheirValues) {
    m_window.setLayoutDirection(Qt::RightToLeft);
    open(wideTable(3, 60, false), wideTable(3, 60, true));
    select(0);
    ASSERT_TRUE(m_details.fields().verticalScrollBar()->isVisible());
    const int fieldsLeft = m_details.fields().viewport()->mapTo(&m_details, QPoint()).x();
    EXPECT_EQ(fieldsLeft, m_details.head().mapTo(&m_details, QPoint()).x());
}

TEST_F(RowInspectorTest, InALowPaneThePlaceholderIsNotSquashed) {
    m_details.setFixedHeight(240);
    settle();
    const auto labels = m_details.placeholder().findChildren<QLabel*>();
    ASSERT_EQ(labels.size(), 2);
    int bottom = 0;
    for (const QLabel* label : labels) {
        EXPECT_GE(label->height(), label->heightForWidth(label->width()));
        EXPECT_GT(label->y(), bottom + 8);
        bottom = label->geometry().bottom();
    }
    EXPECT_GE(labels.front()->y(), 16 + 64 + 16);
    EXPECT_LE(bottom, m_details.height());
}

TEST_F(RowInspectorTest, EveryColumnIsAField) {
    openSample();
    select(2);
    ASSERT_EQ(m_details.fields().fieldCount(), 6U);
    EXPECT_EQ(before(0), QStringLiteral("SKU-1007"));
    EXPECT_EQ(after(0), QStringLiteral("SKU-1007"));
    EXPECT_EQ(before(3), QStringLiteral("89.00"));
    EXPECT_EQ(after(3), QStringLiteral("79.00"));
    EXPECT_EQ(m_details.fields().view(3)->before().accessibleName(), QStringLiteral("Price Before"));
    EXPECT_EQ(m_details.fields().view(3)->after().accessibleName(), QStringLiteral("Price After"));
}

TEST_F(RowInspectorTest, WhatIsNotThereIsSaid) {
    open("ID,A,Old\n1,x,o\n2,y,o\n", "ID,A,New\n1,,n\n3,z,n\n ,q,r\n");
    setFilter(Show::all);
    select(0);
    EXPECT_EQ(before(1), QStringLiteral("x"));
    EXPECT_EQ(after(1), QStringLiteral("(empty)"));
    EXPECT_EQ(after(2), QStringLiteral("(not in this file)"));
    EXPECT_EQ(before(3), QStringLiteral("(not in this file)"));
    select(1);
    EXPECT_EQ(after(0), QStringLiteral("(not in this file)"));
    EXPECT_EQ(m_model.result()->rows.size(), 4U);
    select(3);
    EXPECT_EQ(m_details.head().key(), QStringLiteral("(blank key)"));
}

TEST_F(RowInspectorTest, SpacesAreVisibleWhereNothingElseChanged) {
    DiffOptions options;
    options.ignoreWhitespace = false;
    setOptions(options);
    open("ID,A,B\n1,a b,a b\n", "ID,A,B\n1,a\u00A0\tb,a  c\n");
    select(0);
    EXPECT_EQ(before(1), QStringLiteral("a·b"));
    EXPECT_EQ(after(1), QStringLiteral("a␣→b"));
    EXPECT_EQ(before(2), QStringLiteral("a b"));
    EXPECT_EQ(copied(m_details.fields().view(1)->after()), QStringLiteral("a\u00A0\tb"));
    EXPECT_EQ(copied(m_details.fields().view(2)->after()), QStringLiteral("a  c"));
}

TEST_F(RowInspectorTest, ALineBreakOfTwoCharactersIsCopiedWhole) {
    open("ID,A\n1,\"a\r\nb\r\nc\"\n", "ID,A\n1,\"a\r\nb\r\nd\"\n");
    select(0);
    EXPECT_EQ(after(1), QStringLiteral("a\nb\nd"));
    ValueText& value = m_details.fields().view(1)->after();
    EXPECT_EQ(copied(value), QStringLiteral("a\r\nb\r\nd"));
    QTextCursor cursor = value.textCursor();
    cursor.setPosition(1);
    cursor.setPosition(4, QTextCursor::KeepAnchor);
    value.setTextCursor(cursor);
    value.copy();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("\r\nb\r\n"));
}

// As after a lost quote.
TEST_F(RowInspectorTest, OfARestOfAFileTheStretchThatDiffersShows) {
    const std::string head(2'000'000, 'a');
    const std::string tail(1'000'000, 'b');
    open("ID,A\n1," + head + "old" + tail + "\n", "ID,A\n1," + head + "new" + tail + "\n");
    select(0);
    const QString start = leftOut(1'999'900) + u'\n' + QString(100, u'a');
    EXPECT_TRUE(before(1).startsWith(start + QStringLiteral("oldb")));
    EXPECT_TRUE(after(1).startsWith(start + QStringLiteral("newb")));
    EXPECT_TRUE(after(1).endsWith(QStringLiteral("b\n") + leftOut(967'336)));
    EXPECT_LT(after(1).size(), 33'000);
}

TEST_F(RowInspectorTest, WhatIsLeftOutIsSaidLikeANoteAndInTheCopy) {
    const std::string text(40'000, 'a');
    open("ID,A\n", "ID,A\n1," + text + "\n");
    select(0);
    ValueText& value = m_details.fields().view(1)->after();
    const QString shown = QString(32'767, u'a') + u'\n' + leftOut(40'000 - 32'767);
    EXPECT_EQ(after(1), shown);
    EXPECT_EQ(copied(value), shown);
    QTextCursor cursor = value.textCursor();
    cursor.setPosition(32'767);
    EXPECT_FALSE(cursor.charFormat().fontItalic());
    cursor.movePosition(QTextCursor::End);
    EXPECT_TRUE(cursor.charFormat().fontItalic());
}

TEST(ValueText, EstimatesTheHeightOfWhatIsShownOfALongValue) {
    const QFont font;
    const int ofCell = ValueText::estimatedHeight(font, std::string(32'767, 'a'), 150);
    EXPECT_EQ(ValueText::estimatedHeight(font, std::string(3'000'000, 'a'), 150), ofCell);
    EXPECT_LT(ValueText::estimatedHeight(font, std::string(10'000, 'a'), 150), ofCell);
}

TEST_F(RowInspectorTest, ANoteIsNotCopied) {
    open("ID,A\n1,x\n", "ID,A\n1,\n");
    select(0);
    QApplication::clipboard()->setText(QStringLiteral("earlier"));
    EXPECT_EQ(copied(m_details.fields().view(1)->after()), QStringLiteral("earlier"));
    EXPECT_EQ(copied(m_details.fields().view(1)->before()), QStringLiteral("x"));
}

TEST_F(RowInspectorTest, HiddenDetailsCatchUpWhenTheyAreShown) {
    openSample();
    m_details.hide();
    select(2);
    EXPECT_EQ(m_details.fields().viewCount(), 0U);
    m_details.show();
    settle();
    EXPECT_EQ(before(3), QStringLiteral("89.00"));
    select(1);
    EXPECT_EQ(before(3), QStringLiteral("42.00"));
}

// As when a note of the strip above appears: the model has the new result already, and the pane was not told.
TEST_F(RowInspectorTest, AnotherHeightBeforeANewResultIsToldIsHarmless) {
    open("ID,Name\n1,Pen\n", "ID,Name\n1,Cup\n");
    select(0);
    int tries = 0;
    QObject::connect(&m_model, &AppModel::filterGenerationChanged, &m_window, [&] {
        m_window.resize(m_window.width(), m_window.height() - 20);
        m_details.layout()->activate();
        m_details.resize(m_details.width(), m_details.height() - 20);
        ++tries;
    });
    open(wideTable(3, 40, false), wideTable(3, 40, true));
    ASSERT_GT(tries, 0);
    EXPECT_EQ(m_model.result()->columns.size(), 41U);
    select(1);
    EXPECT_EQ(m_details.fields().fieldCount(), 41U);
}

TEST_F(RowInspectorTest, TheStretchThatDiffersIsMarked) {
    RowField field;
    field.kind = RowField::Kind::changed;
    field.before = "Dot grid notebook";
    field.after = "Dot grid notebook, A5";
    EXPECT_EQ(FieldValues::of(field).before.markBegin, FieldValues::of(field).before.markEnd);
    EXPECT_EQ(FieldValues::of(field).after.markBegin, 17);
    EXPECT_EQ(FieldValues::of(field).after.markEnd, 21);
    field.before = "ä42.00";
    field.after = "ä39.00";
    EXPECT_EQ(FieldValues::of(field).before.markBegin, 1);
    EXPECT_EQ(FieldValues::of(field).before.markEnd, 3);
    field.before = "old";
    field.after = "new";
    EXPECT_EQ(FieldValues::of(field).before.markEnd, 0);
}

TEST_F(RowInspectorTest, AThousandColumnsHaveViewsForWhatShows) {
    open(wideTable(3, 1000, false), wideTable(3, 1000, true));
    select(1);
    EXPECT_EQ(m_details.fields().fieldCount(), 1001U);
    EXPECT_LT(m_details.fields().viewCount(), 40U);
    EXPECT_EQ(m_details.fields().view(900), nullptr);
    auto* bar = m_details.fields().verticalScrollBar();
    bar->setValue(bar->maximum());
    ASSERT_NE(m_details.fields().view(1000), nullptr);
    EXPECT_EQ(after(1000), QStringLiteral("1.1000"));
    EXPECT_EQ(m_details.fields().view(0), nullptr);
    EXPECT_LT(m_details.fields().viewCount(), 40U);
    select(2);
    EXPECT_EQ(bar->value(), 0);
    EXPECT_EQ(after(3), QStringLiteral("new"));
}

TEST_F(RowInspectorTest, AThousandLongValuesHaveViewsForTheFirst) {
    const auto table = [](char last) {
        std::string csv = "Key";
        std::string row = "K";
        for (int column = 0; column < 1000; ++column) {
            csv += ",C" + std::to_string(column);
            row += ',' + std::string(16'383, 'w') + last;
        }
        return csv + '\n' + row + '\n';
    };
    open(table('x'), table('y'));
    select(0);
    EXPECT_EQ(m_details.fields().viewCount(), 3U);
    EXPECT_TRUE(after(1).endsWith(u'y'));
}

TEST_F(RowInspectorTest, ALongValueWrapsAndIsWhole) {
    const std::string text(16384, 'x');
    open("ID,A,B\n1," + text + ",b\n", "ID,A,B\n1," + text + "y,b\n");
    select(0);
    EXPECT_EQ(before(1).size(), 16384);
    EXPECT_EQ(after(1).size(), 16385);
    ValueText& value = m_details.fields().view(1)->after();
    EXPECT_LE(value.document()->size().width(), value.width());
    EXPECT_GE(value.height(), value.document()->size().height());
}

TEST_F(RowInspectorTest, ScrollingLeavesTheKeyboardWithItsValue) {
    open(wideTable(1, 60, false), wideTable(1, 60, true));
    select(0);
    ValueText& value = m_details.fields().view(0)->before();
    value.setFocus();
    for (const int place : {bar().maximum(), bar().maximum() / 2, bar().maximum()}) {
        bar().setValue(place);
        settle();
        EXPECT_EQ(bar().value(), place);
        EXPECT_EQ(QApplication::focusWidget(), &value);
        EXPECT_FALSE(isOnScreen(0));
        EXPECT_EQ(isOnScreen(60), place == bar().maximum());
    }
    EXPECT_EQ(value.toPlainText(), QStringLiteral("K0"));
    // Once the keyboard is elsewhere, the view is free for another field.
    m_grid.setFocus();
    bar().setValue(bar().maximum() - 1);
    EXPECT_EQ(m_details.fields().view(0), nullptr);
}

TEST_F(RowInspectorTest, ComingBackToTheWindowDoesNotScroll) {
    open(wideTable(1, 60, false), wideTable(1, 60, true));
    select(0);
    m_details.fields().view(0)->before().setFocus();
    bar().setValue(bar().maximum());
    QFocusEvent back(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(QApplication::focusWidget(), &back);
    EXPECT_EQ(bar().value(), bar().maximum());
    QFocusEvent byTab(QEvent::FocusIn, Qt::TabFocusReason);
    QApplication::sendEvent(QApplication::focusWidget(), &byTab);
    EXPECT_EQ(bar().value(), 0);
}

TEST_F(RowInspectorTest, AnotherRowLeavesTheKeyboardInItsColumn) {
    open(wideTable(3, 60, false), wideTable(3, 60, true));
    select(0);
    ValueText& value = m_details.fields().view(2)->after();
    value.setFocus();
    m_grid.showNextChange();
    m_grid.showNextChange();
    settle();
    EXPECT_EQ(m_grid.selectedLine(), 1);
    EXPECT_EQ(QApplication::focusWidget(), &value);
    EXPECT_EQ(value.toPlainText(), QStringLiteral("new"));
    m_model.compareAgain();
    settle();
    EXPECT_EQ(QApplication::focusWidget(), &value);
    EXPECT_EQ(&m_details.fields().view(2)->after(), &value);
    // A column that is gone has no field to keep it in.
    open("Key,C1\nK1,a\n", "Key,C1\nK1,b\n");
    EXPECT_EQ(m_details.fields().view(2), nullptr);
    EXPECT_FALSE(value.isVisible());
}

TEST_F(RowInspectorTest, TabGoesThroughTheValuesAndScrollsAlong) {
    open(wideTable(1, 60, false), wideTable(1, 60, true));
    select(0);
    m_details.fields().view(0)->before().setFocus();
    for (int i = 0; i < 80; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    ASSERT_NE(m_details.fields().view(40), nullptr);
    EXPECT_EQ(QApplication::focusWidget(), &m_details.fields().view(40)->before());
    EXPECT_TRUE(m_details.fields().viewport()->rect().intersects(m_details.fields().view(40)->geometry()));
}

TEST_F(RowInspectorTest, TheValueThatHasTheKeyboardHasARing) {
    open(wideTable(1, 60, false), wideTable(1, 60, true));
    select(0);
    m_details.fields().view(0)->before().setFocus(Qt::TabFocusReason);
    for (int i = 0; i < 80; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QApplication::processEvents();
        const auto rings = m_window.findChildren<QFocusFrame*>();
        EXPECT_TRUE(std::any_of(rings.begin(), rings.end(), [](const QFocusFrame* ring) {
            return ring->isVisible() && ring->widget() == QApplication::focusWidget();
        })) << i;
    }
}

}  // namespace
}  // namespace corvale

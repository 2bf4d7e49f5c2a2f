#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "Corvale/grid/GridPlaceholder.h"
#include "Corvale/style/Icons.h"
#include "Corvale/style/Theme.h"

namespace corvale {
namespace {

using Subject = GridPlaceholder::Subject;

TEST(GridPlaceholder, SaysWhyNothingIsThere) {
    const struct {
        Subject subject;
        const char16_t* symbol;
        const char16_t* title;
        const char16_t* text;
    } cases[] = {
        {Subject::noRowsMatch,
         u"line.3.horizontal.decrease.circle",
         u"No rows match",
         u"Try another filter, column or search."},
        {Subject::noDifferences,
         u"checkmark.seal",
         u"No differences",
         u"Every row and cell matches, with the options above."},
        {Subject::noRowSelected,
         u"cursorarrow.click",
         u"No row selected",
         u"Click a row (or use the arrow keys) to see every cell, before and after."},
    };
    const Theme theme(*qApp);
    QWidget window;
    GridPlaceholder changed(Subject::noRowSelected, theme, &window);
    for (const auto& c : cases) {
        const GridPlaceholder made(c.subject, theme, &window);
        changed.setSubject(c.subject);
        for (const GridPlaceholder* placeholder : {&made, &std::as_const(changed)}) {
            const auto labels = placeholder->findChildren<QLabel*>();
            ASSERT_EQ(labels.size(), 2);
            EXPECT_EQ(labels[0]->text(), QString::fromUtf16(c.title));
            EXPECT_EQ(labels[1]->text(), QString::fromUtf16(c.text));
            EXPECT_EQ(placeholder->symbol(), QString::fromUtf16(c.symbol));
            EXPECT_EQ(placeholder->message(),
                      QString::fromUtf16(c.title) + QStringLiteral(". ") + QString::fromUtf16(c.text));
        }
    }
}

TEST(GridPlaceholder, ShowsItsSymbolInTheColourOfItsMeaning) {
    const Theme theme(*qApp);
    for (const Subject subject : {Subject::noRowsMatch, Subject::noDifferences, Subject::noRowSelected}) {
        GridPlaceholder placeholder(subject, theme, nullptr);
        const bool isGood = subject == Subject::noDifferences;
        const Palette& palette = theme.palette();
        QImage expected(34, 34, QImage::Format_RGB32);
        expected.fill(isGood ? palette.added.fill : palette.surface2);
        QPainter painter(&expected);
        painter.drawPixmap(
            0, 0, Icons::pixmap(placeholder.symbol(), isGood ? palette.added.text : palette.text3, 34, 1));
        const auto children = placeholder.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
        QWidget* picture = *std::find_if(
            children.begin(), children.end(), [](QWidget* child) { return qobject_cast<QLabel*>(child) == nullptr; });
        const QImage shown = picture->grab(QRect(15, 15, 34, 34)).toImage();
        EXPECT_EQ(shown.convertToFormat(QImage::Format_RGB32), expected) << placeholder.symbol().toStdString();
    }
}

}  // namespace
}  // namespace corvale

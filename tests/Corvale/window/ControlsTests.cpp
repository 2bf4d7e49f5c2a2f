#include <QAccessible>
#include <QApplication>
#include <QScreen>
#include <QTest>

#include "Corvale/window/Button.h"
#include "Corvale/window/ChipLabel.h"
#include "Corvale/window/ElidedLabel.h"
#include "Corvale/window/FlowLayout.h"
#include "Corvale/window/PopupMenu.h"
#include "Corvale/window/RowLayout.h"
#include "Corvale/window/SymbolLabel.h"
#include "Corvale/window/Wording.h"
#include "tests/Corvale/window/WindowFixture.h"

// The parts that the views are made of.
namespace corvale {
namespace {

using TestSupport::theme;

QAccessibleInterface& accessible(QWidget& widget) { return *QAccessible::queryAccessibleInterface(&widget); }

TEST(Button, IsAButtonToAScreenReader) {
    Button button(Button::Face::bordered, theme(), nullptr);
    button.setLabel(QStringLiteral("Stock & more"), QStringLiteral("Sheet: "));
    button.setHelp(QStringLiteral("The sheet to compare"));
    EXPECT_EQ(accessible(button).role(), QAccessible::Button);
    EXPECT_EQ(accessible(button).text(QAccessible::Name), QStringLiteral("Sheet: Stock & more"));
    EXPECT_EQ(accessible(button).text(QAccessible::Description), QStringLiteral("The sheet to compare"));
    ASSERT_TRUE(accessible(button).actionInterface());
    int clicks = 0;
    QObject::connect(&button, &Button::clicked, &button, [&clicks] { ++clicks; });
    accessible(button).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    // Qt shows the press for a moment first.
    EXPECT_TRUE(QTest::qWaitFor([&clicks] { return clicks == 1; }));
}

TEST(Button, TellsWhetherItIsOn) {
    Button button(Button::Face::bordered, theme(), nullptr);
    button.setCheckable(true);
    EXPECT_TRUE(accessible(button).state().checkable);
    EXPECT_FALSE(accessible(button).state().checked);
    button.setChecked(true);
    EXPECT_TRUE(accessible(button).state().checked);
}

TEST(Button, AClickDoesNotSwitchIt) {
    Button button(Button::Face::bordered, theme(), nullptr);
    button.setCheckable(true);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_FALSE(button.isChecked());
}

TEST(Button, ReturnAndSpaceClick) {
    Button button(Button::Face::bordered, theme(), nullptr);
    int clicks = 0;
    QObject::connect(&button, &Button::clicked, &button, [&clicks] { ++clicks; });
    QTest::keyClick(&button, Qt::Key_Return);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(clicks, 2);
}

TEST(Button, KeysAndThePressOfTheMouseOpenItsMenu) {
    Button button(Button::Face::bordered, theme(), nullptr);
    button.setMenu(PopupMenu::Checking::closes,
                   [](PopupMenu& opened) { opened.addItem({.text = QStringLiteral("One"), .action = [] {}}); });
    PopupMenu* const menu = button.menu();
    button.show();
    for (const auto key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_Down}) {
        QTest::keyClick(&button, key);
        EXPECT_TRUE(menu->isVisible()) << key;
        EXPECT_TRUE(button.isDown());
        menu->close();
        EXPECT_FALSE(button.isDown());
    }
    QTest::mousePress(&button, Qt::LeftButton);
    EXPECT_TRUE(menu->isVisible());
    EXPECT_EQ(menu->actions().size(), 1);
}

TEST(Button, FillsItsMenuOnceAtEveryOpening) {
    Button button(Button::Face::bordered, theme(), nullptr);
    int fills = 0;
    button.setMenu(PopupMenu::Checking::closes, [&fills](PopupMenu& opened) {
        ++fills;
        opened.addItem({.text = QStringLiteral("One"), .action = [] {}});
    });
    button.show();
    for (const int opening : {1, 2}) {
        button.menu()->open();
        EXPECT_EQ(fills, opening);
        EXPECT_EQ(button.menu()->actions().size(), 1);
        button.menu()->close();
    }
}

TEST(Button, ItsMenuOpensOnTheScreenThoughItLiesBelow) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    QWidget window;
    window.setGeometry(screen.left(), screen.top(), 400, 3 * screen.height());
    Button button(Button::Face::bordered, theme(), &window);
    button.setMenu(PopupMenu::Checking::closes,
                   [](PopupMenu& opened) { opened.addItem({.text = QStringLiteral("One"), .action = [] {}}); });
    window.show();
    for (const int beyond : {-40, -1, 0, 1, 200, screen.height()}) {
        button.move(0, screen.height() + beyond);
        button.menu()->open();
        EXPECT_EQ(button.menu()->size(), button.menu()->sizeHint()) << beyond;
        EXPECT_TRUE(screen.contains(button.menu()->geometry())) << beyond;
        button.menu()->close();
    }
}

TEST(Button, TellsScreenReadersThatItOpensAMenu) {
    Button button(Button::Face::bordered, theme(), nullptr);
    button.setLabel(QStringLiteral("Any Column"));
    button.setHelp(QStringLiteral("Only rows with a change in one column"));
    button.setMenu(PopupMenu::Checking::closes,
                   [](PopupMenu& opened) { opened.addItem({.text = QStringLiteral("One"), .action = [] {}}); });
    button.show();
    EXPECT_EQ(accessible(button).role(), QAccessible::ButtonMenu);
    EXPECT_EQ(accessible(button).text(QAccessible::Name), QStringLiteral("Any Column"));
    EXPECT_EQ(accessible(button).text(QAccessible::Description),
              QStringLiteral("Only rows with a change in one column"));
    EXPECT_TRUE(accessible(button).state().hasPopup);
    EXPECT_FALSE(accessible(button).state().expanded);
    ASSERT_TRUE(accessible(button).actionInterface());
    EXPECT_TRUE(
        accessible(button).actionInterface()->actionNames().contains(QAccessibleActionInterface::showMenuAction()));
    accessible(button).actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(button.menu()->isVisible());
    EXPECT_TRUE(accessible(button).state().expanded);
    button.menu()->close();
    button.setEnabled(false);
    EXPECT_FALSE(
        accessible(button).actionInterface()->actionNames().contains(QAccessibleActionInterface::showMenuAction()));
}

TEST(Button, IsHigherAndWiderInALargerFont) {
    Button button(Button::Face::inCard, theme(), nullptr);
    button.setLabel(QStringLiteral("headers in row 1"));
    const QSize usual = button.sizeHint();
    EXPECT_EQ(usual.height(), 22);
    const QFont font = QApplication::font();
    QFont larger = font;
    larger.setPixelSize(40);
    QApplication::setFont(larger);
    EXPECT_GE(button.sizeHint().height(), 36);
    EXPECT_GT(button.sizeHint().width(), 2 * usual.width());
    QApplication::setFont(font);
    EXPECT_EQ(button.sizeHint(), usual);
}

TEST(Labels, AreTextToAScreenReader) {
    ElidedLabel elided(TextRole::body, theme(), nullptr);
    elided.setText(QStringLiteral("2 rows · 2 columns"));
    EXPECT_EQ(accessible(elided).role(), QAccessible::StaticText);
    EXPECT_EQ(accessible(elided).text(QAccessible::Name), QStringLiteral("2 rows · 2 columns"));
    SymbolLabel symbol({.symbol = QStringLiteral("key"),
                        .symbolSize = 16,
                        .text = TextRole::body,
                        .padding = 0,
                        .color = [](const Palette& palette) { return palette.text2; }},
                       QStringLiteral("Match rows by"),
                       theme(),
                       nullptr);
    EXPECT_EQ(accessible(symbol).role(), QAccessible::StaticText);
    EXPECT_EQ(accessible(symbol).text(QAccessible::Name), QStringLiteral("Match rows by"));
}

TEST(Button, SwitchingMovesNothing) {
    Button button(Button::Face::bordered, theme(), nullptr);
    button.setCheckable(true);
    button.setLabel(QStringLiteral("Row Details"));
    const QSize off = button.sizeHint();
    button.setChecked(true);
    EXPECT_EQ(button.sizeHint(), off);
}

TEST(ChipLabel, TellsScreenReadersItsCountAndState) {
    ChipLabel chip(ChipLabel::Kind::changed, theme(), nullptr);
    chip.setCount(6, QStringLiteral("7 cells"));
    chip.setSelected(true);
    EXPECT_EQ(accessible(chip).text(QAccessible::Name), QStringLiteral("Changed 6, 7 cells"));
    EXPECT_EQ(accessible(chip).text(QAccessible::Description), QStringLiteral("Show every change again"));
    EXPECT_TRUE(accessible(chip).state().checked);
    EXPECT_TRUE(accessible(chip).actionInterface());
}

TEST(FlowLayout, WrapsLikeWords) {
    QWidget parent;
    auto* const flow = new FlowLayout(8, 4, &parent);
    flow->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < 3; ++i) {
        auto* const item = new QWidget(&parent);
        item->setFixedSize(100, 20);
        flow->addWidget(item);
    }
    EXPECT_EQ(flow->sizeHint(), QSize(316, 20));
    EXPECT_EQ(flow->heightForWidth(316), 20);
    EXPECT_EQ(flow->heightForWidth(315), 44);
    EXPECT_EQ(flow->heightForWidth(100), 68);
    flow->setGeometry({0, 0, 250, 50});
    EXPECT_EQ(flow->itemAt(1)->geometry(), QRect(108, 0, 100, 20));
    EXPECT_EQ(flow->itemAt(2)->geometry(), QRect(0, 24, 100, 20));
    parent.setLayoutDirection(Qt::RightToLeft);
    flow->setGeometry({0, 0, 250, 50});
    EXPECT_EQ(flow->itemAt(0)->geometry(), QRect(150, 0, 100, 20));
}

TEST(RowLayout, ItemsGiveWayOneAfterTheOther) {
    QWidget parent;
    auto* const row = new RowLayout(10, &parent);
    std::vector<Button*> buttons;
    for (int i = 0; i < 3; ++i) {
        buttons.push_back(new Button(Button::Face::bordered, theme(), &parent));
        buttons.back()->setLabel(QStringLiteral("A label that is long"));
        buttons.back()->setNarrowest(50);
        row->addWidget(buttons.back());
    }
    row->setGivingWay({buttons[1], buttons[0]});
    const int full = buttons[0]->sizeHint().width();
    const auto widths = [&buttons] {
        return std::vector<int>{buttons[0]->width(), buttons[1]->width(), buttons[2]->width()};
    };
    row->setGeometry({0, 0, 3 * full + 20, 28});
    EXPECT_EQ(widths(), (std::vector<int>{full, full, full}));
    row->setGeometry({0, 0, 3 * full + 10, 28});
    EXPECT_EQ(widths(), (std::vector<int>{full, full - 10, full}));
    row->setGeometry({0, 0, 2 * full + 20 + 50 - 7, 28});
    EXPECT_EQ(widths(), (std::vector<int>{full - 7, 50, full}));
    EXPECT_EQ(row->minimumSize().width(), full + 100 + 20);
}

TEST(Wording, CountsAreSingularWhereTheyAreOne) {
    EXPECT_EQ(Wording::tableSize(DataTable({"A"}, {{"1"}}, "")), QStringLiteral("1 row · 1 column"));
    EXPECT_EQ(Wording::tableSize(DataTable({"A", "B"}, {}, "")), QStringLiteral("0 rows · 2 columns"));
}

TEST(Wording, NamesStayOnOneLine) {
    EXPECT_EQ(Wording::oneLine("Two\nlines\tand\xE2\x80\xA8more"), QStringLiteral("Two lines and more"));
}

TEST(Wording, LongNamesLoseTheirMiddleInMenus) {
    const std::string name = std::string(50, 'a') + std::string(50, 'z');
    EXPECT_EQ(Wording::menuText(name).toStdString(), std::string(30, 'a') + "…" + std::string(29, 'z'));
    EXPECT_EQ(Wording::menuText("Short"), QStringLiteral("Short"));
    std::string faces;
    for (int i = 0; i < 60; ++i) {
        faces += "😀";
    }
    EXPECT_TRUE(Wording::menuText("x" + faces).isValidUtf16());
    EXPECT_TRUE(Wording::menuText(faces).isValidUtf16());
}

}  // namespace
}  // namespace corvale

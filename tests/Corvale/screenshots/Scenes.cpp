#include "tests/Corvale/screenshots/Scenes.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QTest>
#include <algorithm>
#include <array>
#include <iterator>

#include "Corvale/grid/DiffGrid.h"
#include "Corvale/window/MainView.h"
#include "Corvale/window/MainWindow.h"
#include "Corvale/window/PopupMenu.h"
#include "CorvaleKit/reports/SampleData.h"
#include "tests/Corvale/screenshots/Stage.h"

namespace corvale::Screenshots {

namespace {

constexpr QSize usual(1280, 800);
constexpr QSize narrow(900, 600);
constexpr QSize narrowest(760, 480);

DataTable ordersBefore() {
    return DataTable({"Order ID", "Customer", "Item", "Qty", "Status"},
                     {{"O-20431", "Ana Ruiz", "Linen tea towel", "2", "Packed"},
                      {"O-20432", "Jonas Lindqvist", "Cotton cushion cover", "1", "Open"},
                      {"O-20432", "Jonas Lindqvist", "Brass bookends", "1", "Open"},
                      {"O-20433", "Priya Raman", "Seed starter kit", "4", "Open"},
                      {"O-20437", "Yuki Tanaka", "Fountain pen, matte black", "1", "Packed"},
                      {"O-20437", "Yuki Tanaka", "Ink bottle, deep teal", "1", "Packed"}},
                     "");
}

DataTable ordersAfter() {
    return DataTable({"Order ID", "Customer", "Item", "Qty", "Status"},
                     {{"O-20431", "Ana Ruiz", "Linen tea towel", "2", "Packed"},
                      {"O-20432", "Jonas Lindqvist", "Cotton cushion cover", "2", "Open"},
                      {"O-20432", "Jonas Lindqvist", "Brass bookends", "1", "Packed"},
                      {"O-20433", "Priya Raman", "Seed starter kit", "4", "open"},
                      {"O-20437", "Yuki Tanaka", "Fountain pen, matte black", "1", "Shipped"},
                      {"O-20437", "Yuki Tanaka", "Ink bottle, deep teal", "1", "Shipped"},
                      {"O-20437", "Yuki Tanaka", "Recycled envelopes, 25", "2", "Open"},
                      {"O-20440", "Ruth Adler", "Puzzle, 500 pieces", "1", "Open"},
                      {"O-20440", "Ruth Adler", "Wooden yo-yo", "2", "Open"}},
                     "");
}

// A long list of two months: some rows gone, some new, some changed, three without a key, some keys twice.
DataTable warehouseList(bool isAfter) {
    constexpr std::size_t rows = 20'000;
    std::vector<std::string> headers = {"SKU", "Item", "Category", "Bin", "Price", "Last updated", "Qty on hand"};
    if (isAfter) {
        std::swap(headers[3], headers[4]);
        headers.insert(headers.end(), {"Supplier code", "Reorder at"});
    }
    std::vector<std::vector<std::string>> table;
    for (std::size_t i = 0; i < rows; ++i) {
        if ((isAfter && i % 61 == 7) || (!isAfter && i % 17 == 3)) {
            continue;
        }
        const std::string sku = i < 3 ? "" : "SKU-" + std::to_string(100'000 + (i % 1700 == 9 ? i - 1 : i));
        std::string price = std::to_string(5 + i % 90) + (isAfter && i % 33 == 0 ? ".5" : ".50");
        std::string bin = "D" + std::to_string((i + (isAfter && i % 19 == 0 ? 1 : 0)) % 30);
        if (isAfter) {
            std::swap(price, bin);
        }
        table.push_back({sku,
                         "Waxed canvas throw, copper",
                         "Garden",
                         bin,
                         price,
                         isAfter ? "2025-11-30" : "2025-10-31",
                         std::to_string((i * 7 + (isAfter && i % 23 == 0 ? 3 : 0)) % 900)});
    }
    return DataTable(headers, table, "");
}

void compareOrders(Stage& stage) {
    stage.compare(ordersBefore(), ordersAfter(), "Orders - before.csv", "Orders - after.csv");
    stage.model->setMatch(MatchChoice::key("Order ID"));
    stage.platform.settle();
}

void compareWarehouses(Stage& stage) {
    stage.compare(warehouseList(false),
                  warehouseList(true),
                  "Stock list all warehouses - exported on the first of November, checked by purchasing, final 2.csv",
                  "Stock list all warehouses - exported on the first of December, checked by purchasing, final.csv");
    stage.model->setMatch(MatchChoice::key("SKU"));
    AppSettings settings = stage.model->settings();
    settings.options.ignoredColumns = {"Last updated"};
    stage.model->setSettings(settings);
    stage.platform.settle();
    stage.selectRow(40);
}

void dragOver(QWidget& target) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QStringLiteral("/Stock - November.xlsx"))});
    QDragEnterEvent enter({200, 30}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&target, &enter);
}

void showUnified(Stage& stage) {
    stage.compareStock();
    stage.selectRow(2);
}

void showSideBySide(Stage& stage) {
    AppSettings settings = stage.model->settings();
    settings.view = ViewMode::sideBySide;
    stage.model->setSettings(settings);
}

void showAllSideBySide(Stage& stage) {
    stage.compareStock();
    stage.model->toggleInspector();
    showSideBySide(stage);
    DiffFilter filter = stage.model->filter();
    filter.show = DiffFilter::Show::all;
    stage.model->setFilter(filter);
    stage.platform.settle();
    stage.selectRow(15);
    stage.window->view().grid().centerOn(20);
}

void showStates(Stage& stage) {
    showUnified(stage);
    DiffFilter filter = stage.model->filter();
    filter.show = DiffFilter::Show::changed;
    filter.search = "SKU";
    stage.model->setFilter(filter);
    stage.platform.settle();
    stage.named("Search rows").setFocus(Qt::TabFocusReason);
}

void showComparing(Stage& stage) {
    compareWarehouses(stage);
    stage.platform.pause();
    stage.model->compare();
    stage.platform.work();
    stage.platform.deliverHalf();
    if (!QTest::qWaitFor(
            [&stage] { return stage.window->findChild<QWidget*>(QStringLiteral("progress"))->isVisible(); })) {
        qFatal("no progress is shown");
    }
}

void openMenu(Stage& stage, const char* button) {
    showUnified(stage);
    stage.button(button).menu()->open();
}

void showWelcome(Stage& stage) {
    AppSettings settings = stage.model->settings();
    settings.onboardingDone = false;
    stage.model->setSettings(settings);
}

// Over a comparison, in its middle.
template <typename Window>
void openBeside(Stage& stage, const char* item) {
    showUnified(stage);
    stage.pick(item);
    auto& further = stage.further<Window>();
    QApplication::processEvents();
    const QRect window = stage.window->geometry();
    further.move(window.center() - further.rect().center());
}

void openMenuBar(Stage& stage, int place) {
    showUnified(stage);
    QMenuBar* const bar = stage.window->menuBar();
    QAction* const entry = bar->actions().at(place);
    entry->menu()->popup(bar->mapToGlobal(bar->actionGeometry(entry).bottomLeft()));
}

std::vector<Scene> besideTheWindow() {
    return {
        {"welcome", usual, showWelcome},
        {"settings", QSize(1280, 984), [](Stage& stage) { openBeside<SettingsView>(stage, "Settings…"); }},
        {"help",
         usual,
         [](Stage& stage) {
             openBeside<HelpView>(stage, "Corvale Help");
             stage.further<HelpView>().select(QStringLiteral("read"));
         }},
        {"about", usual, [](Stage& stage) { openBeside<AboutPanel>(stage, "About Corvale"); }},
        {"file-menu", usual, [](Stage& stage) { openMenuBar(stage, 0); }},
        {"edit-menu", usual, [](Stage& stage) { openMenuBar(stage, 1); }},
        {"compare-menu", usual, [](Stage& stage) { openMenuBar(stage, 2); }},
        {"help-menu", usual, [](Stage& stage) { openMenuBar(stage, 3); }},
    };
}

std::vector<Scene> filesAndResults() {
    const SampleData::Pair stock = SampleData::stock();
    return {
        {"empty", usual, [](Stage&) {}},
        {"one-file-drag",
         usual,
         [stock](Stage& stage) {
             stage.open(stock.before, Side::before, "Stock - October.xlsx");
             dragOver(stage.named("After file"));
         }},
        {"unified", usual, showUnified},
        {"side-by-side", usual, showAllSideBySide},
        {"side-by-side-narrowed",
         usual,
         [](Stage& stage) {
             showUnified(stage);
             showSideBySide(stage);
         }},
        {"no-rows-match",
         usual,
         [](Stage& stage) {
             stage.compareStock();
             stage.model->toggleInspector();
             DiffFilter filter;
             filter.search = "mug north";
             stage.model->setFilter(filter);
             stage.platform.settle();
         }},
        {"files-match",
         usual,
         [stock](Stage& stage) {
             stage.compare(stock.before, stock.before, "Stock - October.xlsx", "Stock - October (copy).xlsx");
             stage.model->toggleInspector();
         }},
        {"duplicate-keys",
         usual,
         [](Stage& stage) {
             compareOrders(stage);
             stage.model->toggleInspector();
             QApplication::processEvents();
             stage.button("5 duplicate keys").click();
         }},
        {"comparing", usual, showComparing},
        {"narrow", narrow, showUnified},
        {"narrowest", narrowest, compareWarehouses},
        {"large-file", usual, compareWarehouses},
        {"loading",
         usual,
         [stock](Stage& stage) {
             stage.open(stock.before, Side::before, "Stock - October.xlsx");
             stage.model->load(TestSupport::ScriptedPlatform::url("Stock - November.xlsx"), Side::after);
         }},
        {"problem",
         usual,
         [](Stage& stage) {
             stage.platform.files["photo.jpg"] = std::string("\xFF\xD8\xFF\xE0\0\0\0\0", 8);
             stage.model->load(TestSupport::ScriptedPlatform::url("photo.jpg"), Side::before);
             stage.platform.settle();
         }},
    };
}

std::vector<Scene> controls() {
    return {
        {"header-row-menu", usual, [](Stage& stage) { openMenu(stage, "Header row of the Before file"); }},
        {"ignore-menu", usual, [](Stage& stage) { openMenu(stage, "Ignoring 2 of 4"); }},
        {"match-menu", usual, [](Stage& stage) { openMenu(stage, "Match rows by: SKU (suggested)"); }},
        {"columns-menu", usual, [](Stage& stage) { openMenu(stage, "Any Column"); }},
        {"search-and-chip", usual, showStates},
        {"focus",
         usual,
         [](Stage& stage) {
             showUnified(stage);
             stage.named("Added 3").setFocus(Qt::TabFocusReason);
         }},
    };
}

}  // namespace

std::vector<Scene> scenes() {
    std::vector<Scene> all = besideTheWindow();
    for (std::vector<Scene>& some : std::array{filesAndResults(), controls()}) {
        std::move(some.begin(), some.end(), std::back_inserter(all));
    }
    return all;
}

}  // namespace corvale::Screenshots

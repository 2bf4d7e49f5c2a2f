#include "tests/Corvale/screenshots/Stage.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QTest>

#include "CorvaleKit/base/Require.h"
#include "CorvaleKit/reports/SampleData.h"
#include "CorvaleKit/reports/XLSXWriter.h"

namespace corvale::Screenshots {

namespace {

std::string workbook(const DataTable& table) {
    XLSXWriter::Sheet sheet{.name = "Stock"};
    std::vector<XLSXWriter::Cell> headers;
    for (const std::string& header : table.headers()) {
        headers.push_back({.value = header});
    }
    sheet.rows.push_back(headers);
    for (const CellRow row : table.rows()) {
        std::vector<XLSXWriter::Cell> cells;
        for (const std::string_view cell : row) {
            cells.push_back({.value = std::string(cell)});
        }
        sheet.rows.push_back(cells);
    }
    XLSXWriter writer;
    writer.sheets = {sheet, {.name = "Suppliers", .rows = {{{.value = "Name"}}}}, {.name = "Notes"}};
    return writer.data();
}

void addQuoted(std::string& text, std::string_view cell) { text.append("\"").append(cell).append("\""); }

std::string csv(const DataTable& table) {
    std::string text;
    for (const std::string& header : table.headers()) {
        text += text.empty() ? "" : ",";
        addQuoted(text, header);
    }
    text += "\n";
    for (const CellRow row : table.rows()) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            text += i == 0 ? "" : ",";
            addQuoted(text, row[i]);
        }
        text += "\n";
    }
    return text;
}

}  // namespace

void PausingPlatform::runOnMain(std::function<void()> work) {
    if (m_pauses) {
        m_held.push_back(std::move(work));
    } else {
        ScriptedPlatform::runOnMain(std::move(work));
    }
}

void PausingPlatform::deliverHalf() {
    for (std::size_t i = 0; i < m_held.size() / 2; ++i) {
        m_held[i]();
    }
}

Stage::Stage(Theme& theme, QSize size) {
    AppSettings settings;
    settings.onboardingDone = true;
    platform.stored["settings"] = settings.encoded();
    m_app = std::make_unique<CorvaleApp>(platform, theme, m_store);
    model = &m_app->model();
    window = &m_app->window();
    window->resize(size);
    m_app->start({});
    window->activateWindow();
    QApplication::processEvents();
}

void Stage::open(const DataTable& table, Side side, const std::string& name) {
    platform.files[name] = name.ends_with(".xlsx") ? workbook(table) : csv(table);
    model->load(TestSupport::ScriptedPlatform::url(name), side);
    platform.settle();
}

void Stage::compare(const DataTable& before, const DataTable& after, const std::string& beforeName,
                    const std::string& afterName) {
    open(before, Side::before, beforeName);
    open(after, Side::after, afterName);
}

void Stage::compareStock() {
    const SampleData::Pair stock = SampleData::stock();
    compare(stock.before, stock.after, "Stock - October.xlsx", "Stock - November.xlsx");
}

QWidget& Stage::named(const char* name) const {
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->accessibleName() == QString::fromUtf8(name)) {
            return *widget;
        }
    }
    CORVALE_REQUIRE(false, name);
}

Button& Stage::button(const char* name) const { return dynamic_cast<Button&>(named(name)); }

void Stage::selectRow(std::size_t visible) const { model->select(model->visible().at(visible)); }

void Stage::pick(const char* item) const {
    for (const QAction* menu : window->menuBar()->actions()) {
        for (QAction* action : menu->menu()->actions()) {
            if (action->text() == QString::fromUtf8(item)) {
                action->trigger();
                return;
            }
        }
    }
    CORVALE_REQUIRE(false, item);
}

QImage Stage::picture() const {
    // Two rounds: what a layout moves may lay out again.
    QApplication::processEvents();
    QApplication::processEvents();
    QImage image = window->grab().toImage();
    QPainter painter(&image);
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget != window && widget->isVisible()) {
            painter.drawPixmap(widget->pos() - window->pos(), widget->grab());
        }
    }
    return image;
}

}  // namespace corvale::Screenshots

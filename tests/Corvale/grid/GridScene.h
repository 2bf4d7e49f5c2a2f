#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QTest>
#include <QWidget>
#include <string>

#include "Corvale/grid/DiffGrid.h"
#include "Corvale/grid/OverviewStrip.h"
#include "Corvale/grid/RowInspector.h"
#include "Corvale/model/AppModel.h"
#include "Corvale/style/Theme.h"
#include "tests/Corvale/model/ScriptedPlatform.h"

namespace corvale::TestSupport {

// The grid with its overview and the row details beside it, in a window of 1280 x 557 of which the details take 264,
// on a model whose background work is done as soon as it is asked for.
class GridScene : public testing::Test {
protected:
    GridScene() {
        m_layout.setContentsMargins(0, 0, 0, 0);
        m_layout.setSpacing(0);
        m_layout.addWidget(&m_grid, 1);
        m_layout.addWidget(&m_overview);
        m_layout.addWidget(&m_details);
        m_details.setFixedWidth(264);
        m_window.resize(1280, 557);
        m_window.show();
        m_window.activateWindow();
        m_grid.setFocus();
    }

    // October's stock list and November's: 27 rows, of which 10 differ; the key is SKU.
    void openSample() {
        m_model.openSamples();
        settle();
    }

    void open(const std::string& before, const std::string& after) {
        m_platform.files = {{"before.csv", before}, {"after.csv", after}};
        m_model.open({ScriptedPlatform::url("before.csv"), ScriptedPlatform::url("after.csv")}, Side::before);
        settle();
    }

    void setView(ViewMode view) {
        AppSettings settings = m_model.settings();
        settings.view = view;
        m_model.setSettings(settings);
        settle();
    }

    void setOptions(const DiffOptions& options) {
        AppSettings settings = m_model.settings();
        settings.options = options;
        m_model.setSettings(settings);
        settle();
    }

    void setFilter(DiffFilter::Show show, const std::string& search = {}) {
        m_model.setFilter({show, std::nullopt, search});
        settle();
    }

    void settle() {
        m_platform.settle();
        QApplication::processEvents();
    }

    // The place of a line or a cell in the middle of its height.
    QPoint inLine(std::int64_t line, int x) const { return {x, m_grid.lineArea(line).center().y()}; }

    QWidget& viewport() { return *m_grid.viewport(); }

    ScriptedPlatform m_platform;
    AppModel m_model{m_platform};
    Theme m_theme{*qApp};
    QWidget m_window;
    QHBoxLayout m_layout{&m_window};
    DiffGrid m_grid{m_model, m_theme, &m_window};
    OverviewStrip m_overview{m_model, m_grid, m_theme, m_platform, &m_window};
    RowInspector m_details{m_model, m_theme, &m_window};
};

// `rows` rows of a key "K<row>" and `columns` further columns C1, C2 and so on, whose cells are "<row>.<column>"; on
// the other side each row's cell in column 1 + row % columns is "new".
inline std::string wideTable(int rows, int columns, bool isAfter) {
    std::string csv = "Key";
    for (int column = 1; column <= columns; ++column) {
        csv += ",C" + std::to_string(column);
    }
    for (int row = 0; row < rows; ++row) {
        csv += "\nK" + std::to_string(row);
        for (int column = 1; column <= columns; ++column) {
            const bool isNew = isAfter && column == 1 + row % columns;
            csv += isNew ? ",new" : "," + std::to_string(row) + "." + std::to_string(column);
        }
    }
    return csv + "\n";
}

}  // namespace corvale::TestSupport

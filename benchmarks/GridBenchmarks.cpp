// What the user waits for in the grid: the first picture of a result, a page of scrolling, another view, another width.
// On the offscreen platform, at 1920 x 1080.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPixmap>
#include <QScrollBar>
#include <memory>
#include <string>

#include "Corvale/grid/DiffGrid.h"
#include "Corvale/grid/FieldList.h"
#include "Corvale/grid/Overview.h"
#include "Corvale/grid/RowInspector.h"
#include "Corvale/model/AppModel.h"
#include "Corvale/style/Theme.h"
#include "tests/Corvale/model/ScriptedPlatform.h"

namespace corvale {
namespace {

constexpr QSize screen(1920, 1080);

// Every third row and within it every fourth cell changed, so that a page is full of both kinds; texts and numbers by
// turns, since the grid paints numbers faster.
std::string table(int rows, int columns, bool isAfter) {
    std::string csv = "Key";
    for (int column = 1; column < columns; ++column) {
        csv += ",Column " + std::to_string(column);
    }
    for (int row = 0; row < rows; ++row) {
        csv += "\nK" + std::to_string(row);
        for (int column = 1; column < columns; ++column) {
            const bool isChanged = isAfter && row % 3 == 0 && column % 4 == 0;
            csv += column % 2 == 0 ? "," : ",Towel ";
            csv += std::to_string(row % 1000 + column + (isChanged ? 1 : 0));
        }
    }
    return csv + '\n';
}

// A compared pair, made once for all measurements of its size.
class Pair {
public:
    Pair(int rows, int columns) {
        m_platform.files = {{"before.csv", table(rows, columns, false)}, {"after.csv", table(rows, columns, true)}};
        m_model.open(
            {TestSupport::ScriptedPlatform::url("before.csv"), TestSupport::ScriptedPlatform::url("after.csv")},
            Side::before);
        m_platform.settle();
        m_platform.files.clear();
        DiffFilter all;
        all.show = DiffFilter::Show::all;
        m_model.setFilter(all);
        m_platform.settle();
    }

    AppModel& model() { return m_model; }

    void setView(ViewMode view) {
        AppSettings settings = m_model.settings();
        settings.view = view;
        m_model.setSettings(settings);
    }

    static Pair& of(std::int64_t rows, std::int64_t columns) {
        static std::int64_t madeRows = 0;
        static std::int64_t madeColumns = 0;
        static std::unique_ptr<Pair> pair;
        if (!pair || madeRows != rows || madeColumns != columns) {
            // Two such pairs at once are more than many a machine holds.
            pair.reset();
            pair = std::make_unique<Pair>(static_cast<int>(rows), static_cast<int>(columns));
            madeRows = rows;
            madeColumns = columns;
        }
        return *pair;
    }

private:
    TestSupport::ScriptedPlatform m_platform;
    AppModel m_model{m_platform};
};

Theme& theme() {
    static Theme theme(*qApp);
    return theme;
}

Pair& pairOf(const benchmark::State& state) { return Pair::of(state.range(0), state.range(1)); }

void paint(QWidget& widget, QPixmap& picture) { widget.render(&picture); }

void firstPicture(benchmark::State& state) {
    AppModel& model = pairOf(state).model();
    QPixmap picture(screen);
    for (auto _ : state) {
        DiffGrid grid(model, theme(), nullptr);
        grid.resize(screen);
        paint(grid, picture);
    }
}

void scrollByPage(benchmark::State& state, ViewMode view) {
    Pair& pair = pairOf(state);
    pair.setView(view);
    DiffGrid grid(pair.model(), theme(), nullptr);
    grid.resize(screen);
    QPixmap picture(screen);
    paint(grid, picture);
    for (auto _ : state) {
        QScrollBar& bar = *grid.verticalScrollBar();
        bar.setValue(bar.value() == bar.maximum() ? 0 : bar.value() + bar.pageStep());
        paint(grid, picture);
    }
    pair.setView(ViewMode::unified);
}

void switchView(benchmark::State& state) {
    Pair& pair = pairOf(state);
    DiffGrid grid(pair.model(), theme(), nullptr);
    grid.resize(screen);
    QPixmap picture(screen);
    for (auto _ : state) {
        pair.setView(pair.model().settings().view == ViewMode::unified ? ViewMode::sideBySide : ViewMode::unified);
        paint(grid, picture);
    }
    pair.setView(ViewMode::unified);
}

void resizeGrid(benchmark::State& state) {
    Pair& pair = pairOf(state);
    pair.setView(ViewMode::sideBySide);
    DiffGrid grid(pair.model(), theme(), nullptr);
    QPixmap picture(screen);
    int width = screen.width();
    for (auto _ : state) {
        width = width == screen.width() ? screen.width() - 1 : screen.width();
        grid.resize(width, screen.height());
        paint(grid, picture);
    }
    pair.setView(ViewMode::unified);
}

void selectNextRow(benchmark::State& state) {
    AppModel& model = pairOf(state).model();
    model.select(0);
    RowInspector details(model, theme(), nullptr);
    details.resize(264, screen.height());
    QPixmap picture(details.size());
    paint(details, picture);
    for (auto _ : state) {
        model.selectNext();
        paint(details, picture);
    }
    model.select(std::nullopt);
}

// A thousand columns of values as long as a workbook allows; only the first ones show.
void selectLongValues(benchmark::State& state) {
    std::string names = "Key";
    std::string values = "K";
    for (int column = 0; column < 1000; ++column) {
        names += ",C" + std::to_string(column);
        values += ',' + std::string(16384, 'w');
    }
    TestSupport::ScriptedPlatform platform;
    AppModel model(platform);
    platform.files = {{"before.csv", names + '\n' + values + '\n'}, {"after.csv", names + '\n' + values + "x\n"}};
    model.open({TestSupport::ScriptedPlatform::url("before.csv"), TestSupport::ScriptedPlatform::url("after.csv")},
               Side::before);
    platform.settle();
    RowInspector details(model, theme(), nullptr);
    details.resize(264, screen.height());
    QPixmap picture(details.size());
    for (auto _ : state) {
        model.select(0);
        paint(details, picture);
        model.select(std::nullopt);
    }
}

void nextChange(benchmark::State& state) {
    AppModel& model = pairOf(state).model();
    DiffGrid grid(model, theme(), nullptr);
    grid.resize(screen);
    for (auto _ : state) {
        grid.showNextChange();
    }
    model.select(std::nullopt);
}

void countOverview(benchmark::State& state) {
    const DiffRows& rows = pairOf(state).model().result()->rows;
    for (auto _ : state) {
        benchmark::DoNotOptimize(Overview::count(rows));
    }
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgNames({"rows", "columns"})->Args({1000000, 60})->Args({1000, 1000})->Unit(benchmark::kMillisecond);
}

}  // namespace
}  // namespace corvale

int main(int argc, char** argv) {
    using namespace corvale;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QFont font = QApplication::font();
    font.setPixelSize(13);
    QApplication::setFont(font);
    benchmark::Initialize(&argc, argv);
    using benchmark::RegisterBenchmark;
    sizes(RegisterBenchmark("grid/firstPicture", firstPicture));
    sizes(RegisterBenchmark("grid/scrollByPage/unified", scrollByPage, ViewMode::unified));
    sizes(RegisterBenchmark("grid/scrollByPage/sideBySide", scrollByPage, ViewMode::sideBySide));
    sizes(RegisterBenchmark("grid/switchView", switchView));
    sizes(RegisterBenchmark("grid/resize", resizeGrid));
    sizes(RegisterBenchmark("grid/nextChange", nextChange));
    sizes(RegisterBenchmark("details/selectNextRow", selectNextRow));
    RegisterBenchmark("details/selectLongValues", selectLongValues)->Unit(benchmark::kMillisecond);
    sizes(RegisterBenchmark("overview/count", countOverview));
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

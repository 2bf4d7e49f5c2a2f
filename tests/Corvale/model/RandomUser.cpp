#include "tests/Corvale/model/RandomUser.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <utility>

#include "tests/support/Workbooks.h"

namespace corvale::TestSupport {

namespace {

// Enough rows for a comparison to be polled and to report progress a few times.
std::string longList(int step) {
    std::string csv = "ID,Name,Price\n";
    for (int row = 0; row < 6000; row += step) {
        csv += std::to_string(row) + ",item " + std::to_string(row % 7) + "," + std::to_string(row % (step + 9)) + "\n";
    }
    return csv;
}

// The first ones, whose column names differ in letter case alone or not at all.
constexpr std::size_t similarContents = 2;

// What a file may hold; any name may get any of them.
const std::vector<std::string>& contents() {
    using Workbooks::ofSheets;
    using Workbooks::textRows;
    static const std::vector<std::string> all = {
        "ID,Name,Price\n1,Pen,2\n2,Cup,3\n3,Hat,5\n",
        "id,NAME,Price\n1,Pen,2\n2,Cup,4\n4,Ink,1\n",
        "Price;Name;Colour\n2;Pen;red\n3;Cup;blue\n",
        "Stock list,,\n,,\nSKU,Name,Price\nA-1,Pen,2\nA-2,Cup,3\nA-2,Cup,9\n",
        "Name,Note\nx,\"two\nlines\"\ny,“quoted”\n",
        "ID\n",
        "",
        longList(1),
        longList(2),
        ofSheets({{"Stock", textRows({{"ID", "Name"}, {"1", "Pen"}, {"2", "Cup"}})},
                  {"Old", textRows({{"ID", "Name"}, {"2", "Cap"}, {"3", "Hat"}})}}),
        ofSheets({{"Empty", ""}, {"Stock", textRows({{"ID", "Price"}, {"1", "2"}})}}),
        ofSheets({{"Stock", textRows({{"ID", "Name"}, {"1", "Pen"}})}}).substr(0, 200),
        std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16),
    };
    return all;
}

constexpr std::array<const char*, 8> names = {
    "a.csv", "b.csv", "c.tsv", "book.xlsx", "new.xlsx", "old.xls", "old.numbers", "none.csv"};

// All that a user may be told here; anything else is an accident.
bool isKnown(std::string_view problem) {
    constexpr std::array<std::string_view, 16> endings = {
        "” doesn’t look like a CSV or Excel file.",
        "That sheet is empty. Pick another sheet from the menu under the file name.",
        "” is an older Excel file (.xls). Open it in Excel or Numbers, save it as .xlsx or CSV, then open that here.",
        "” is a Numbers file. In Numbers, choose File › Export To › Excel… (or CSV…), then open the exported file "
        "here.",
        "” is empty.",
        "” couldn’t be opened: No such file or directory.",
        "” changed while it was being read. Try again.",
        "It isn’t an Excel workbook (.xlsx). Older .xls files need saving as .xlsx or CSV first.",
        "It isn’t an Excel workbook (.xlsx).",
        "It isn’t a zip archive.",
        "The file’s directory is damaged.",
        "The file is damaged (its directory is cut off).",
        "The report couldn’t be saved: It would replace a file that is being compared.",
        "The report couldn’t be saved: It cannot be written.",
        "The report couldn’t be saved: No such file or directory.",
        "isn’t on this computer.",
    };
    return std::any_of(endings.begin(), endings.end(), [problem](auto ending) { return problem.ends_with(ending); });
}

}  // namespace

RandomUser::Mirror RandomUser::Mirror::of(const AppModel& model) {
    const auto nameOf = [](const std::optional<LoadedFile>& file) { return file ? file->name : std::string(); };
    return {nameOf(model.before()),
            nameOf(model.after()),
            model.loading(),
            model.match(),
            model.suggestedKey(),
            model.result().get(),
            model.progress(),
            model.filter(),
            model.visible(),
            model.selectedRow(),
            model.problem(),
            model.exporting(),
            model.settings()};
}

RandomUser::RandomUser(AppModel& model, Surroundings surroundings, unsigned seed)
    : m_model(model), m_surroundings(std::move(surroundings)), m_random(seed), m_mirror(Mirror::of(model)) {
    for (const char* const name : names) {
        m_folder.write(name, contents()[anyContent()]);
    }
    follow();
}

void RandomUser::work(int operations) {
    for (int done = 0; done < operations && !testing::Test::HasFailure();) {
        const int some = 1 + static_cast<int>(below(6));
        rush(some);
        done += some;
        m_surroundings.settle();
        expectOrder();
        m_log.clear();
    }
}

void RandomUser::rush(int operations) {
    for (int done = 0; done < operations; ++done) {
        act();
        if (chance(3)) {
            m_surroundings.deliver();
        }
    }
}

void RandomUser::expectVariety() const {
    if (testing::Test::HasFailure()) {
        return;
    }
    EXPECT_GT(m_tally.looks, 100);
    EXPECT_GT(m_tally.withResult, m_tally.looks / 4);
    EXPECT_LT(m_tally.withResult, m_tally.looks);
    EXPECT_GT(m_tally.byKey, m_tally.withResult / 4);
    EXPECT_LT(m_tally.byKey, m_tally.withResult);
    EXPECT_GT(m_tally.withSelection, 5);
    EXPECT_GT(m_tally.problems, 50);
    EXPECT_GT(m_tally.reports, 5);
}

void RandomUser::act() {
    static constexpr std::array<Action, 26> actions = {
        &RandomUser::changeFile,   &RandomUser::changeFile,  &RandomUser::choose,    &RandomUser::open,
        &RandomUser::open,         &RandomUser::openBoth,    &RandomUser::openBoth,  &RandomUser::openBoth,
        &RandomUser::openSamples,  &RandomUser::close,       &RandomUser::swap,      &RandomUser::setSheet,
        &RandomUser::setHeaderRow, &RandomUser::setMatch,    &RandomUser::compare,   &RandomUser::compareAgain,
        &RandomUser::compareAgain, &RandomUser::cancel,      &RandomUser::setFilter, &RandomUser::setFilter,
        &RandomUser::select,       &RandomUser::walk,        &RandomUser::walk,      &RandomUser::togglePane,
        &RandomUser::setOptions,   &RandomUser::exportReport};
    (this->*actions[below(actions.size())])();
}

QUrl RandomUser::anyFile() {
    const std::string name = names[below(names.size())];
    log(name);
    return QUrl::fromLocalFile(QString::fromStdString(m_folder.at(name)));
}

QUrl RandomUser::anyTarget() {
    if (chance(4)) {
        return chance(2) ? QUrl() : anyFile();
    }
    const std::string name = chance(5) ? "none/report.html" : "report.html";
    log(name);
    return QUrl::fromLocalFile(QString::fromStdString(m_folder.at(name)));
}

std::size_t RandomUser::anyContent() { return below(chance(2) ? similarContents : contents().size()); }

void RandomUser::changeFile() {
    const std::string name = names[below(names.size())];
    if (chance(4)) {
        log("remove " + name);
        std::filesystem::remove(m_folder.at(name));
    } else {
        const std::size_t place = anyContent();
        log("write " + std::to_string(place) + " to " + name);
        std::filesystem::rename(m_folder.write("unfinished", contents()[place]), m_folder.at(name));
    }
}

void RandomUser::choose() {
    log("choose");
    m_surroundings.answers.files.clear();
    for (std::size_t left = below(4); left > 0; --left) {
        m_surroundings.answers.files.append(anyFile());
    }
    m_model.choose(side());
}

void RandomUser::open() {
    log("open");
    m_model.open({anyFile()}, side());
}

void RandomUser::openBoth() {
    log("open both");
    const QUrl first = anyFile();
    m_model.open({first, anyFile()}, side());
}

void RandomUser::openSamples() {
    log("samples");
    m_model.openSamples();
}

void RandomUser::close() {
    log("close");
    m_model.close(side());
}

void RandomUser::swap() {
    log("swap");
    m_model.swap();
}

void RandomUser::setSheet() {
    log("sheet");
    m_model.setSheet(static_cast<std::int64_t>(below(4)) - 1, side());
}

void RandomUser::setHeaderRow() {
    log("header row");
    m_model.setHeaderRow(chance(3) ? std::nullopt : std::optional(static_cast<std::int64_t>(1 + below(4))), side());
}

void RandomUser::setMatch() {
    const std::vector<std::string> shared = m_model.sharedColumns();
    const bool isKey = !shared.empty() && !chance(3);
    const MatchChoice choice = isKey ? MatchChoice::key(shared[below(shared.size())]) : MatchChoice::rowOrder();
    log("match " + choice.column().value_or("row order"));
    m_model.setMatch(choice);
}

void RandomUser::compare() {
    log("compare");
    m_model.compare();
}

void RandomUser::compareAgain() {
    log("compare again");
    m_model.compareAgain();
}

void RandomUser::cancel() {
    log("cancel");
    m_model.cancel();
    m_wasCancelled = true;
}

void RandomUser::setFilter() {
    static const std::vector<std::string> searches = {"", "p", "pe", "pen", "item 3", "“", "nothing has this"};
    DiffFilter filter;
    filter.show = enumTexts<DiffFilter::Show>[below(enumTexts<DiffFilter::Show>.size())].value;
    filter.search = searches[below(searches.size())];
    if (chance(3)) {
        filter.column = static_cast<std::int64_t>(below(5)) - 1;
    }
    log("filter");
    m_filter = filter;
    m_model.setFilter(filter);
}

void RandomUser::select() {
    log("select");
    const std::size_t rows = m_model.result() ? m_model.result()->rows.size() : 0;
    m_model.select(chance(4) ? std::nullopt : std::optional(static_cast<std::int64_t>(below(rows + 2)) - 1));
}

void RandomUser::walk() {
    log("walk");
    chance(2) ? m_model.selectNext() : m_model.selectPrevious();
}

void RandomUser::togglePane() {
    log("pane");
    m_model.toggleInspector();
    m_model.setFocusSearch(chance(2));
    m_model.dismissProblem();
}

void RandomUser::setOptions() {
    AppSettings settings = m_model.settings();
    settings.onboardingDone = chance(2);
    settings.includeUnchangedInReports = chance(2);
    settings.options.ignoreCase = chance(2);
    settings.options.ignoreNumberFormat = chance(2);
    settings.options.ignoreColumnOrder = chance(2);
    settings.options.ignoredColumns.clear();
    if (const auto columns = m_model.ignorableColumns(); !columns.empty() && chance(2)) {
        settings.options.ignoredColumns.insert(columns[below(columns.size())]);
    }
    log("options");
    m_model.setSettings(settings);
}

void RandomUser::exportReport() {
    log("export");
    m_surroundings.answers.target = anyTarget();
    m_model.exportReport(chance(2) ? ReportKind::excel : ReportKind::html);
}

void RandomUser::follow() {
    const auto follows = [this](auto signal, auto take) {
        QObject::connect(&m_model, signal, &m_receiver, [this, take] { take(m_mirror, Mirror::of(m_model)); });
    };
    follows(&AppModel::beforeChanged, [](Mirror& ours, Mirror now) { ours.before = std::move(now.before); });
    follows(&AppModel::afterChanged, [](Mirror& ours, Mirror now) { ours.after = std::move(now.after); });
    follows(&AppModel::loadingChanged, [](Mirror& ours, Mirror now) { ours.loading = std::move(now.loading); });
    follows(&AppModel::matchChanged, [](Mirror& ours, Mirror now) { ours.match = std::move(now.match); });
    follows(&AppModel::suggestedKeyChanged,
            [](Mirror& ours, Mirror now) { ours.suggestedKey = std::move(now.suggestedKey); });
    follows(&AppModel::resultChanged, [](Mirror& ours, const Mirror& now) { ours.result = now.result; });
    follows(&AppModel::progressChanged, [](Mirror& ours, const Mirror& now) { ours.progress = now.progress; });
    follows(&AppModel::filterChanged, [](Mirror& ours, Mirror now) { ours.filter = std::move(now.filter); });
    follows(&AppModel::visibleChanged, [](Mirror& ours, Mirror now) { ours.visible = std::move(now.visible); });
    follows(&AppModel::selectedRowChanged, [](Mirror& ours, const Mirror& now) { ours.selectedRow = now.selectedRow; });
    follows(&AppModel::exportingChanged, [](Mirror& ours, const Mirror& now) { ours.exporting = now.exporting; });
    follows(&AppModel::settingsChanged, [](Mirror& ours, Mirror now) { ours.settings = std::move(now.settings); });
    follows(&AppModel::problemChanged, [this](Mirror& ours, Mirror now) {
        if (now.problem) {
            m_problems.insert(*now.problem);
        }
        ours.problem = std::move(now.problem);
    });
    QObject::connect(
        &m_model, &AppModel::exportingChanged, &m_receiver, [this] { m_tally.reports += m_model.exporting() ? 1 : 0; });
}

void RandomUser::expectOrder() {
    SCOPED_TRACE(m_log);
    ++m_tally.looks;
    expectQuiet();
    if (m_wasCancelled && !isUpToDate()) {
        // As the user asked for it; asked for a comparison, the model has to catch up.
        m_model.compare();
        m_surroundings.settle();
    }
    m_wasCancelled = false;
    if (m_model.result()) {
        expectSoundResult();
    } else {
        expectNothingShown();
    }
    if (m_model.before() && m_model.after()) {
        const auto shared = m_model.sharedColumns();
        const auto& column = m_model.match().column();
        EXPECT_TRUE(!column || std::find(shared.begin(), shared.end(), *column) != shared.end()) << *column;
    }
    // A column may have gone; the rest is the user's own.
    EXPECT_EQ(m_model.filter().show, m_filter.show);
    EXPECT_EQ(m_model.filter().search, m_filter.search);
    expectKnownProblem();
    expectAnnounced();
}

void RandomUser::expectQuiet() const {
    EXPECT_TRUE(m_model.loading().empty());
    EXPECT_FALSE(m_model.isLoading(Side::before));
    EXPECT_FALSE(m_model.isLoading(Side::after));
    EXPECT_FALSE(m_model.progress());
    EXPECT_FALSE(m_model.compareFlag());
    EXPECT_FALSE(m_model.exporting());
}

bool RandomUser::isUpToDate() const {
    const auto& result = m_model.result();
    if (!m_model.before() || !m_model.after()) {
        return true;
    }
    return result && result->before == m_model.before()->table && result->after == m_model.after()->table &&
           result->options == m_model.settings().options && result->match == m_model.match().rowMatch();
}

void RandomUser::expectSoundResult() {
    const DiffResult& result = *m_model.result();
    ++m_tally.withResult;
    ASSERT_TRUE(m_model.before() && m_model.after());
    EXPECT_TRUE(isUpToDate());
    EXPECT_EQ(m_model.visible(), m_model.filter().apply(result));
    const auto& column = m_model.filter().column;
    EXPECT_TRUE(!column || (*column >= 0 && *column < static_cast<std::int64_t>(result.columns.size())));
    const auto row = m_model.selectedRow();
    EXPECT_TRUE(!row || (*row >= 0 && *row < static_cast<std::int64_t>(result.rows.size())));
    m_tally.byKey += result.match.isKey() ? 1 : 0;
    m_tally.withSelection += row ? 1 : 0;
}

void RandomUser::expectNothingShown() const {
    EXPECT_FALSE(m_model.before() && m_model.after());
    EXPECT_TRUE(m_model.visible().empty());
    EXPECT_FALSE(m_model.selectedRow());
    EXPECT_FALSE(m_model.filter().column);
}

void RandomUser::expectKnownProblem() {
    for (const QString& problem : m_problems) {
        EXPECT_TRUE(isKnown(problem.toStdString())) << problem.toStdString();
        ++m_tally.problems;
    }
    m_problems.clear();
}

void RandomUser::expectAnnounced() const { EXPECT_TRUE(m_mirror == Mirror::of(m_model)) << "a change was not told"; }

}  // namespace corvale::TestSupport

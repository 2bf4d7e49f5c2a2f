#include "tests/Corvale/model/ModelTest.h"

#include <sstream>

#include "tests/support/Workbooks.h"

namespace corvale::TestSupport {

namespace {

// The cells of CSV without quotes.
std::vector<std::vector<std::string>> cellsOf(const std::string& csv) {
    std::vector<std::vector<std::string>> rows;
    std::istringstream lines(csv);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream cells(line);
        rows.emplace_back();
        for (std::string cell; std::getline(cells, cell, ',');) {
            rows.back().push_back(cell);
        }
    }
    return rows;
}

void appendWord(std::string& words, std::string_view word) {
    words += words.empty() ? "" : " ";
    words += word;
}

}  // namespace

std::string workbook(const std::vector<std::pair<std::string, std::string>>& sheets) {
    std::vector<Workbooks::Sheet> all;
    for (const auto& [name, csv] : sheets) {
        all.push_back({name, Workbooks::textRows(cellsOf(csv))});
    }
    return Workbooks::ofSheets(all);
}

ModelTest::ModelTest() {
    m_platform.files = {{"october.csv", "ID,Name,Price\n1,Pen,2\n2,Cup,3\n3,Hat,5\n"},
                        {"november.csv", "ID,Name,Price\n1,Pen,2\n2,Cup,4\n4,Ink,1\n"},
                        {"december.csv", "ID,Name,Price\n1,Pen,9\n2,Cup,4\n4,Ink,1\n"}};
}

void ModelTest::TearDown() {
    EXPECT_EQ(m_watch.brokenPromises(), "");
    EXPECT_EQ(brokenRule(m_model), "");
    m_platform.settle();
    EXPECT_EQ(m_watch.brokenPromises(), "");
    EXPECT_EQ(brokenRule(m_model), "");
}

void ModelTest::load(const std::string& name, Side side) { m_model.load(ScriptedPlatform::url(name), side); }

void ModelTest::openPair(const std::string& before, const std::string& after) {
    load(before, Side::before);
    load(after, Side::after);
    m_platform.settle();
    m_watch.take();
}

void ModelTest::step(std::size_t place) {
    m_platform.work(place);
    m_platform.deliver();
}

void ModelTest::recordResults() {
    QObject::connect(&m_model, &AppModel::resultChanged, &m_watch, [this] { m_results.push_back(compared()); });
}

std::string ModelTest::compared() const {
    const auto& result = m_model.result();
    return result ? result->before.sourceName() + " > " + result->after.sourceName() : "";
}

std::string ModelTest::files() const {
    const auto name = [](const std::optional<LoadedFile>& file) { return file ? file->name : std::string(); };
    return name(m_model.before()) + " > " + name(m_model.after());
}

std::string ModelTest::counts() const {
    if (!m_model.result()) {
        return "";
    }
    const DiffSummary& summary = m_model.result()->summary;
    return "+" + std::to_string(summary.added) + " -" + std::to_string(summary.removed) + " ~" +
           std::to_string(summary.changed) + " =" + std::to_string(summary.same);
}

std::string ModelTest::listed() const {
    std::string keys;
    for (const std::int64_t row : m_model.visible()) {
        appendWord(keys, m_model.result()->rows[static_cast<std::size_t>(row)].key);
    }
    return keys;
}

std::string ModelTest::selectedKey() const {
    const auto row = m_model.selectedRow();
    return row ? std::string(m_model.result()->rows[static_cast<std::size_t>(*row)].key) : "";
}

std::string ModelTest::problem() const { return m_model.problem().value_or(QString()).toStdString(); }

std::string ModelTest::loading() const {
    std::string words;
    for (const std::string& word : m_model.loading()) {
        appendWord(words, word);
    }
    return words;
}

}  // namespace corvale::TestSupport

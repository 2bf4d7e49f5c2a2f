#include "Corvale/model/AppModel.h"

#include <algorithm>
#include <utility>

#include "Corvale/model/Columns.h"
#include "Corvale/model/ModelOperation.h"
#include "CorvaleKit/base/Failures.h"

namespace corvale {

namespace {

const std::string settingsKey = "settings";
constexpr std::size_t signalCount = 21;  // of the model

AppSettings storedSettings(Platform& platform) {
    const auto data = platform.storedData(settingsKey);
    if (!data) {
        return {};
    }
    try {
        return AppSettings::decoded(*data);
    } catch (const DecodingError&) {
        return {};
    }
}

std::optional<AppModel::Sheet> sheetFor(const AppSettings& settings) {
    return settings.onboardingDone ? std::nullopt : std::optional(AppModel::Sheet::welcome);
}

}  // namespace

AppModel::AppModel(Platform& platform) : m_platform(platform), m_settings(storedSettings(platform)), m_jobs(platform) {
    m_sheet = sheetFor(m_settings);
    // So that none is lost where memory ends.
    m_changes.reserve(signalCount);
}

AppModel::~AppModel() {
    stopComparing();
    stopFiltering();
}

std::vector<std::string> AppModel::sharedColumns() const {
    return hasBothFiles() ? Columns::shared(before()->table, after()->table) : std::vector<std::string>();
}

std::vector<std::string> AppModel::ignorableColumns() const {
    return hasBothFiles() ? Columns::all(before()->table, after()->table) : std::vector<std::string>();
}

std::vector<HeaderRowChoice> AppModel::headerRowChoices(Side side) const {
    return file(side) ? corvale::headerRowChoices(file(side)->table) : std::vector<HeaderRowChoice>();
}

std::optional<std::int64_t> AppModel::automaticHeaderRow(Side side) const {
    return file(side) ? std::optional(file(side)->table.automaticHeaderRowNumber()) : std::nullopt;
}

void AppModel::select(std::optional<std::int64_t> row) {
    const Operation operation(*this);
    const auto rows = m_result ? static_cast<std::int64_t>(m_result->rows.size()) : 0;
    const bool isThere = row && *row >= 0 && *row < rows;
    set(m_selectedRow, isThere ? row : std::nullopt, &AppModel::selectedRowChanged);
    if (isThere) {
        set(m_showInspector, m_inspectorWanted, &AppModel::showInspectorChanged);
    }
}

void AppModel::selectNext() {
    const Operation operation(*this);
    const auto next =
        m_selectedRow ? std::upper_bound(m_visible.begin(), m_visible.end(), *m_selectedRow) : m_visible.begin();
    if (next != m_visible.end()) {
        select(*next);
    }
}

void AppModel::selectPrevious() {
    const Operation operation(*this);
    const auto end =
        m_selectedRow ? std::lower_bound(m_visible.begin(), m_visible.end(), *m_selectedRow) : m_visible.end();
    if (end != m_visible.begin()) {
        select(*(end - 1));
    }
}

void AppModel::toggleInspector() {
    const Operation operation(*this);
    set(m_inspectorWanted, !m_showInspector, &AppModel::inspectorWantedChanged);
    set(m_showInspector, m_inspectorWanted, &AppModel::showInspectorChanged);
}

void AppModel::setFocusSearch(bool wanted) {
    const Operation operation(*this);
    set(m_focusSearch, wanted, &AppModel::focusSearchChanged);
}

void AppModel::setSettings(const AppSettings& settings) {
    const Operation operation(*this);
    if (settings == m_settings) {
        return;
    }
    const bool optionsDiffer = settings.options != m_settings.options;
    set(m_settings, settings, &AppModel::settingsChanged);
    m_platform.storeData(settingsKey, m_settings.encoded());
    set(m_sheet, sheetFor(m_settings), &AppModel::sheetChanged);
    if (optionsDiffer) {
        compareWhenSettled();
    }
}

void AppModel::dismissProblem() {
    const Operation operation(*this);
    set(m_problem, std::optional<QString>(), &AppModel::problemChanged);
}

void AppModel::noteChange(Signal changed) {
    if (std::find(m_changes.begin(), m_changes.end(), changed) == m_changes.end()) {
        m_changes.push_back(changed);
    }
}

void AppModel::tell(const QString& problem) {
    const bool isNews = !m_problem || !m_problem->contains(problem);
    const QString all = m_problem && isNews ? *m_problem + QStringLiteral("\n\n") + problem : problem;
    if (isNews) {
        set(m_problem, std::optional(all), &AppModel::problemChanged);
    }
}

void AppModel::announce() {
    followOutdated();
    // Large values live until every receiver was told that they are gone. One of them may begin another operation,
    // which announces what is left here together with its own.
    auto retired = std::exchange(m_retired, {});
    while (!m_changes.empty()) {
        const Signal changed = m_changes.front();
        m_changes.erase(m_changes.begin());
        Q_EMIT(this->*changed)();
    }
    if (!retired.empty()) {
        m_jobs.discard(std::move(retired));
    }
}

}  // namespace corvale

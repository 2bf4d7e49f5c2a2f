#include "tests/Corvale/model/ModelWatch.h"

#include <algorithm>

namespace corvale::TestSupport {

namespace {

std::string digest(const void* address) { return std::to_string(reinterpret_cast<std::uintptr_t>(address)); }

template <typename Number>
std::string digest(const std::optional<Number>& number) {
    return number ? std::to_string(*number) : "none";
}

std::string digest(const std::optional<LoadedFile>& file) {
    return file ? file->name + digest(file->data.get()) + digest(&file->table.headers()) : "none";
}

std::string digest(const std::vector<std::int64_t>& indexes) {
    std::string all;
    for (const std::int64_t index : indexes) {
        all += std::to_string(index) + ' ';
    }
    return all;
}

std::string digest(const DiffFilter& filter) {
    return std::string(rawValue(filter.show)) + '/' + digest(filter.column) + '/' + filter.search;
}

std::string digest(const std::set<std::string>& words) {
    std::string all;
    for (const std::string& word : words) {
        all += word + ' ';
    }
    return all;
}

bool isWithin(const std::optional<std::int64_t>& index, std::size_t count) {
    return !index || (*index >= 0 && static_cast<std::size_t>(*index) < count);
}

bool isVisibleSound(const AppModel& model, std::size_t rows) {
    const auto& visible = model.visible();
    return std::is_sorted(visible.begin(), visible.end()) &&
           std::all_of(visible.begin(), visible.end(), [rows](std::int64_t row) { return isWithin(row, rows); });
}

}  // namespace

std::string brokenRule(const AppModel& model) {
    const bool hasBoth = model.before() && model.after();
    const std::size_t rows = model.result() ? model.result()->rows.size() : 0;
    const std::size_t columns = model.result() ? model.result()->columns.size() : 0;
    const std::vector<std::pair<bool, std::string>> rules = {
        {!model.result() || hasBoth, "a result has both files"},
        {!model.suggestedKey() || hasBoth, "a suggestion has both files"},
        {isVisibleSound(model, rows), "visible indexes rows of the result, ascending"},
        {isWithin(model.selectedRow(), rows), "the selected row is one of the result"},
        {isWithin(model.filter().column, columns), "the filter's column is one of the result"},
        {!model.isResultOutdated() || (model.result() && !model.progress()), "what is outdated is a result"},
        {model.progress().has_value() == (model.compareFlag() != nullptr), "progress is there while comparing"},
        {!model.compareFlag() || !model.compareFlag()->isCancelled(), "a cancelled comparison is forgotten"},
        {!model.compareFlag() || (hasBoth && model.loading().empty()), "comparing waits for reading"},
        {model.loading().count("before") == (model.isLoading(Side::before) ? 1U : 0U), "loading names Before"},
        {model.loading().count("after") == (model.isLoading(Side::after) ? 1U : 0U), "loading names After"},
        {model.sheet().has_value() != model.settings().onboardingDone, "the welcome sheet follows the settings"},
    };
    const auto broken = std::find_if(rules.begin(), rules.end(), [](const auto& rule) { return !rule.first; });
    return broken == rules.end() ? "" : broken->second;
}

ModelWatch::ModelWatch(AppModel& model) : m_model(model) {
    const AppModel& m = model;
    m_fields.reserve(20);
    watch("before", &AppModel::beforeChanged, [&m] { return digest(m.before()); });
    watch("after", &AppModel::afterChanged, [&m] { return digest(m.after()); });
    watch("loading", &AppModel::loadingChanged, [&m] { return digest(m.loading()); });
    watch("match", &AppModel::matchChanged, [&m] { return m.match().column().value_or(""); });
    watch("suggestedKey", &AppModel::suggestedKeyChanged, [&m] { return m.suggestedKey().value_or(""); });
    watch("result", &AppModel::resultChanged, [&m] { return digest(m.result().get()); });
    watch(
        "isResultOutdated", &AppModel::isResultOutdatedChanged, [&m] { return std::to_string(m.isResultOutdated()); });
    watch("progress", &AppModel::progressChanged, [&m] { return digest(m.progress()); });
    watch("filter", &AppModel::filterChanged, [&m] { return digest(m.filter()); });
    watch("visible", &AppModel::visibleChanged, [&m] { return digest(m.visible()); });
    watch("selectedRow", &AppModel::selectedRowChanged, [&m] { return digest(m.selectedRow()); });
    watch("showInspector", &AppModel::showInspectorChanged, [&m] { return std::to_string(m.showInspector()); });
    watch("inspectorWanted", &AppModel::inspectorWantedChanged, [&m] { return std::to_string(m.inspectorWanted()); });
    watch("focusSearch", &AppModel::focusSearchChanged, [&m] { return std::to_string(m.focusSearch()); });
    watch("sheet", &AppModel::sheetChanged, [&m] { return std::to_string(m.sheet().has_value()); });
    watch("problem", &AppModel::problemChanged, [&m] { return m.problem().value_or(QString()).toStdString(); });
    watch("exporting", &AppModel::exportingChanged, [&m] { return std::to_string(m.exporting()); });
    watch("settings", &AppModel::settingsChanged, [&m] { return m.settings().encoded(); });
    watch("compareFlag", &AppModel::compareFlagChanged, [&m] { return digest(m.compareFlag().get()); });
    watch("compareGeneration", &AppModel::compareGenerationChanged, [&m] {
        return std::to_string(m.compareGeneration());
    });
    watch(
        "filterGeneration", &AppModel::filterGenerationChanged, [&m] { return std::to_string(m.filterGeneration()); });
}

std::string ModelWatch::take() {
    std::sort(m_received.begin(), m_received.end());
    std::string all;
    for (const std::string& name : std::exchange(m_received, {})) {
        all += (all.empty() ? "" : " ") + name;
    }
    return all;
}

std::string ModelWatch::brokenPromises() {
    for (const Field& field : m_fields) {
        if (field.value() != field.announced) {
            m_broken += field.name + " changed unannounced. ";
        }
    }
    return m_broken;
}

void ModelWatch::watch(const std::string& name, Signal signal, std::function<std::string()> value) {
    m_fields.push_back({name, value, value()});
    connect(&m_model, signal, this, [this, place = m_fields.size() - 1] { receive(m_fields[place]); });
}

void ModelWatch::receive(Field& field) {
    m_received.push_back(field.name);
    const std::string value = field.value();
    if (value == field.announced) {
        m_broken += field.name + " was announced and had not changed. ";
    }
    field.announced = value;
    if (const std::string rule = brokenRule(m_model); !rule.empty()) {
        m_broken += "When " + field.name + " came, it did not hold that " + rule + ". ";
    }
}

}  // namespace corvale::TestSupport

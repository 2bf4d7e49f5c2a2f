#include "CorvaleKit/loading/WorkbookSheets.h"

#include <algorithm>
#include <functional>
#include <map>
#include <utility>

#include "CorvaleKit/loading/XMLEvents.h"

namespace corvale::XLSX {

namespace {

using Targets = std::map<std::string, std::string, std::less<>>;  // by relationship id

class RelationshipsHandler : public XMLEvents::Handler {
public:
    bool onStart(std::string_view name, const XMLEvents::Attributes& attributes) override {
        const auto id = attributes.find("Id");
        const auto target = attributes.find("Target");
        if (name == "Relationship" && id && target && target->size() <= longestTarget) {
            keep(*id, *target);
        }
        return false;
    }

    void onEnd(std::string_view, std::string&) override {}

    Targets takeTargets() { return std::move(m_targets); }

private:
    // Many sheets may share one target, and each has its own copy of the path.
    static constexpr std::size_t longestTarget = 1'024;
    static constexpr std::size_t mostTargets = 2 * mostSheets;

    void keep(std::string_view id, std::string_view target) {
        const auto known = m_targets.find(id);
        if (known != m_targets.end()) {
            known->second = target;
        } else if (m_targets.size() < mostTargets) {
            m_targets.emplace(id, target);
        }
    }

    Targets m_targets;
};

// Whatever prefix the part gives to the namespace of relationships.
std::optional<std::string_view> relationshipId(const XMLEvents::Attributes& attributes) {
    for (const XMLEvents::Attribute attribute : attributes) {
        if (attribute.name() == "id" || attribute.name().ends_with(":id")) {
            return attribute.value();
        }
    }
    return std::nullopt;
}

class WorkbookHandler : public XMLEvents::Handler {
public:
    explicit WorkbookHandler(Targets targets) : m_targets(std::move(targets)) {}

    bool onStart(std::string_view name, const XMLEvents::Attributes& attributes) override {
        if (name == "workbookPr") {
            const auto date1904 = attributes.find("date1904");
            m_workbook.date1904 = m_workbook.date1904 || date1904 == "1" || date1904 == "true";
        } else if (name == "sheet" && m_workbook.sheets.size() < mostSheets) {
            m_workbook.sheets.push_back(
                {std::string(attributes.find("name").value_or("")), partPath(targetOf(relationshipId(attributes)))});
        }
        return false;
    }

    void onEnd(std::string_view, std::string&) override {}

    WorkbookSheets takeWorkbook() { return std::move(m_workbook); }

private:
    // Of the sheet that comes next.
    std::string targetOf(std::optional<std::string_view> id) const {
        const auto target = id ? m_targets.find(*id) : m_targets.end();
        return target != m_targets.end() ? target->second
                                         : "worksheets/sheet" + std::to_string(m_workbook.sheets.size() + 1) + ".xml";
    }

    Targets m_targets;
    WorkbookSheets m_workbook;
};

}  // namespace

WorkbookSheets workbookSheets(std::string_view workbook, std::optional<std::string_view> relationships) {
    RelationshipsHandler targets;
    if (relationships) {
        XMLEvents::parse(*relationships, targets);
    }
    WorkbookHandler handler(targets.takeTargets());
    XMLEvents::parse(workbook, handler);
    return handler.takeWorkbook();
}

std::string partPath(std::string_view target) {
    if (target.starts_with('/')) {
        return std::string(target.substr(1));
    }
    std::vector<std::string_view> components{"xl"};
    while (!target.empty()) {
        const std::string_view component = target.substr(0, target.find('/'));
        target.remove_prefix(std::min(component.size() + 1, target.size()));
        if (component == "..") {
            if (!components.empty()) {
                components.pop_back();
            }
        } else if (!component.empty() && component != ".") {
            components.push_back(component);
        }
    }
    std::string path;
    for (const std::string_view component : components) {
        path += path.empty() ? "" : "/";
        path += component;
    }
    return path;
}

}  // namespace corvale::XLSX

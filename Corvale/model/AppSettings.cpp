#include "Corvale/model/AppSettings.h"

#include <nlohmann/json.hpp>

#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/base/JsonWriter.h"
#include "CorvaleKit/engine/StoredForms.h"

namespace corvale {

namespace {

using Json = nlohmann::json;

void writeValue(JsonWriter& json, bool value) { json.boolean(value); }
void writeValue(JsonWriter& json, const DiffOptions& options) { StoredForms::write(json, options); }
void writeValue(JsonWriter& json, ViewMode view) { json.text(rawValue(view)); }

void readValue(const Json& form, bool& value) { value = form.get<bool>(); }
void readValue(const Json& form, DiffOptions& options) { options = StoredForms::decodedDiffOptions(form.dump()); }

void readValue(const Json& form, ViewMode& view) {
    const auto text = form.get<std::string>();
    const auto known = fromRawValue<ViewMode>(text);
    if (!known) {
        throw DecodingError("\"" + text + "\" is no view.");
    }
    view = *known;
}

// The one list of the stored fields and their names, in the order in which they are written.
template <typename Settings, typename Visit>
void forEachField(Settings& settings, Visit visit) {
    visit("onboardingDone", settings.onboardingDone);
    visit("options", settings.options);
    visit("view", settings.view);
    visit("includeUnchangedInReports", settings.includeUnchangedInReports);
}

AppSettings settingsOf(const Json& form) {
    if (!form.is_object()) {
        throw DecodingError("Expected an object, found " + std::string(form.type_name()) + ".");
    }
    AppSettings settings;
    forEachField(settings, [&form](const char* name, auto& field) {
        const auto found = form.find(name);
        if (found != form.end() && !found->is_null()) {
            readValue(*found, field);
        }
    });
    return settings;
}

}  // namespace

std::string AppSettings::encoded() const {
    std::string target;
    JsonWriter json(target);
    json.beginObject();
    forEachField(*this, [&json](const char* name, const auto& field) {
        json.key(name);
        writeValue(json, field);
    });
    json.endObject();
    json.flush();
    return target;
}

AppSettings AppSettings::decoded(std::string_view json) {
    // Far deeper than the record is; beyond it, what walks through the values would run out of stack.
    constexpr int deepest = 16;
    const auto requireShallow = [](int depth, Json::parse_event_t, const Json&) {
        return depth <= deepest ? true : throw DecodingError("Nested too deeply.");
    };
    try {
        return settingsOf(Json::parse(json, requireShallow));
    } catch (const Json::exception& error) {
        throw DecodingError(error.what());
    }
}

}  // namespace corvale

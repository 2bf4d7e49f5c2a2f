#include "CorvaleKit/engine/StoredForms.h"

#include <nlohmann/json.hpp>

#include <vector>

#include "CorvaleKit/base/Failures.h"

namespace corvale::StoredForms {

namespace {

using Json = nlohmann::json;

constexpr const char* keyCase = "key";
constexpr const char* rowOrderCase = "rowOrder";
constexpr const char* payloadKey = "_0";

void writeValue(JsonWriter& json, bool value) { json.boolean(value); }
void writeValue(JsonWriter& json, const std::set<std::string>& texts) { json.texts(texts); }
void writeValue(JsonWriter& json, NumberStyle style) { json.text(rawValue(style)); }

void readValue(const Json& form, bool& value) { value = form.get<bool>(); }
void readValue(const Json& form, std::set<std::string>& texts) { texts = form.get<std::set<std::string>>(); }

void readValue(const Json& form, NumberStyle& style) {
    const auto text = form.get<std::string>();
    const auto known = fromRawValue<NumberStyle>(text);
    if (!known) {
        throw DecodingError("\"" + text + "\" is no number style.");
    }
    style = *known;
}

// The one list of the stored fields and their names, in the order in which they are written.
template <typename Options, typename Visit>
void forEachField(Options& options, Visit visit) {
    visit("ignoreCase", options.ignoreCase);
    visit("ignoreWhitespace", options.ignoreWhitespace);
    visit("ignoreNumberFormat", options.ignoreNumberFormat);
    visit("ignoreColumnOrder", options.ignoreColumnOrder);
    visit("ignoredColumns", options.ignoredColumns);
    visit("numberStyle", options.numberStyle);
}

const Json& requireObject(const Json& form) {
    if (!form.is_object()) {
        throw DecodingError("Expected an object, found " + std::string(form.type_name()) + ".");
    }
    return form;
}

DiffOptions optionsOf(const Json& form) {
    DiffOptions options;
    forEachField(options, [&form](const char* name, auto& field) {
        const auto found = form.find(name);
        if (found != form.end() && !found->is_null()) {
            readValue(*found, field);
        }
    });
    return options;
}

RowMatch matchOf(const Json& form) {
    if (form.size() != 1) {
        throw DecodingError("Invalid number of keys found, expected one.");
    }
    const auto only = form.begin();
    if (only.key() == rowOrderCase) {
        requireObject(only.value());
        return RowMatch::rowOrder();
    }
    if (only.key() == keyCase) {
        return RowMatch::key(requireObject(only.value()).at(payloadKey).get<std::vector<std::string>>());
    }
    throw DecodingError("\"" + only.key() + "\" is no way to match rows.");
}

// Reads an object, and turns what the JSON library throws into our own failure.
template <typename Read>
auto decoded(std::string_view json, Read read) {
    try {
        return read(requireObject(Json::parse(json)));
    } catch (const Json::exception& error) {
        throw DecodingError(error.what());
    }
}

template <typename Value>
std::string encodedValue(const Value& value) {
    std::string target;
    JsonWriter json(target);
    write(json, value);
    json.flush();
    return target;
}

}  // namespace

void write(JsonWriter& json, const DiffOptions& options) {
    json.beginObject();
    forEachField(options, [&json](const char* name, const auto& field) {
        json.key(name);
        writeValue(json, field);
    });
    json.endObject();
}

void write(JsonWriter& json, const RowMatch& match) {
    json.beginObject();
    json.key(match.isKey() ? keyCase : rowOrderCase);
    json.beginObject();
    if (match.isKey()) {
        json.key(payloadKey);
        json.texts(match.columns());
    }
    json.endObject();
    json.endObject();
}

std::string encoded(const DiffOptions& options) { return encodedValue(options); }
std::string encoded(const RowMatch& match) { return encodedValue(match); }

DiffOptions decodedDiffOptions(std::string_view json) { return decoded(json, optionsOf); }
RowMatch decodedRowMatch(std::string_view json) { return decoded(json, matchOf); }

}  // namespace corvale::StoredForms

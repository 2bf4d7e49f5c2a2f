#pragma once

#include <string>
#include <string_view>

#include "CorvaleKit/base/JsonWriter.h"
#include "CorvaleKit/engine/DiffOptions.h"

// The JSON forms in which options and matches are stored. Key names are fixed: settings written by one version are read
// by the next.
namespace corvale::StoredForms {

// Writes the value into a document under way.
void write(JsonWriter& json, const DiffOptions& options);
void write(JsonWriter& json, const RowMatch& match);

std::string encoded(const DiffOptions& options);
std::string encoded(const RowMatch& match);

// A missing or null key takes its default, so older settings still load. Throws DecodingError for anything that is not
// an object, a value of the wrong type or an unknown style.
DiffOptions decodedDiffOptions(std::string_view json);

// Throws DecodingError unless the object has exactly one key, "key" or "rowOrder", with its payload.
RowMatch decodedRowMatch(std::string_view json);

}  // namespace corvale::StoredForms

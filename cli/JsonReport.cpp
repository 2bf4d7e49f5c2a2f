#include "cli/JsonReport.h"

#include <optional>
#include <span>
#include <string_view>

#include "CorvaleKit/engine/EnumTexts.h"
#include "CorvaleKit/engine/StoredForms.h"
#include "CorvaleKit/loading/CellRowJson.h"
#include "cli/SummaryReport.h"

namespace corvale::Cli::JsonReport {

namespace {

void endDocument(JsonWriter& json, const JsonWriter::Sink& sink) {
    json.flush();
    sink("\n");
}

// A key that begins a line.
void lineKey(JsonWriter& json, std::string_view name) {
    json.lineBreak();
    json.key(name);
}

void writeRows(JsonWriter& json, const CellRows& rows) {
    json.beginArray();
    for (const CellRow row : rows) {
        json.lineBreak();
        writeCells(json, row);
    }
    json.endArray();
}

void writeOptional(JsonWriter& json, std::string_view name, const std::optional<std::int64_t>& number) {
    if (number) {
        json.key(name);
        json.integer(*number);
    }
}

void writeSource(JsonWriter& json, const DataTable& table) {
    json.beginObject();
    json.key("headers");
    json.texts(table.headers());
    json.key("rowNumbers");
    json.integers(table.rowNumbers());
    json.key("headerRowNumber");
    json.integer(table.headerRowNumber());
    json.key("sourceName");
    json.text(table.sourceName());
    json.key("rowCount");
    json.integer(static_cast<std::int64_t>(table.rows().size()));
    json.endObject();
}

void writeColumn(JsonWriter& json, const ColumnPair& column) {
    json.beginObject();
    json.key("name");
    json.text(column.name);
    writeOptional(json, "left", column.left);
    writeOptional(json, "right", column.right);
    json.key("ignored");
    json.boolean(column.ignored);
    if (column.renamedTo) {
        json.key("renamedTo");
        json.text(*column.renamedTo);
    }
    json.endObject();
}

void writeChanges(JsonWriter& json, std::span<const CellChange> changes) {
    json.beginArray();
    for (const CellChange& change : changes) {
        json.beginObject();
        json.key("column");
        json.integer(change.column);
        json.key("kind");
        json.text(rawValue(change.kind));
        json.endObject();
    }
    json.endArray();
}

void writeRow(JsonWriter& json, const DiffRow& row) {
    json.beginObject();
    json.key("status");
    json.text(rawValue(row.status));
    writeOptional(json, "left", row.left);
    writeOptional(json, "right", row.right);
    json.key("key");
    json.text(row.key);
    json.key("changes");
    writeChanges(json, row.changes);
    json.endObject();
}

void writeDuplicate(JsonWriter& json, const DuplicateKey& duplicate) {
    json.beginObject();
    json.key("key");
    json.text(duplicate.key);
    json.key("side");
    json.text(rawValue(duplicate.side));
    json.key("rowNumbers");
    json.integers(duplicate.rowNumbers);
    json.endObject();
}

// Each item on a line of its own.
template <typename Items, typename WriteItem>
void writeLines(JsonWriter& json, const Items& items, const WriteItem& writeItem) {
    json.beginArray();
    for (const auto& item : items) {
        json.lineBreak();
        writeItem(json, item);
    }
    json.endArray();
}

void writeBlankKeys(JsonWriter& json, const BlankKeys& blankKeys) {
    json.beginObject();
    json.key("before");
    json.integers(blankKeys.before);
    json.key("after");
    json.integers(blankKeys.after);
    json.endObject();
}

void writeSummary(JsonWriter& json, const DiffSummary& summary) {
    json.beginObject();
    for (const SummaryCount& count : summaryCounts(summary)) {
        json.key(count.name);
        json.integer(count.value);
    }
    json.key("changesByColumn");
    json.beginObject();
    for (const auto& [column, count] : summary.changesByColumn) {
        json.key(std::to_string(column));
        json.integer(count);
    }
    json.endObject();
    json.endObject();
}

void writeFindings(JsonWriter& json, const DiffResult& result) {
    lineKey(json, "columns");
    writeLines(json, result.columns, writeColumn);
    lineKey(json, "rows");
    writeLines(json, result.rows, writeRow);
    lineKey(json, "duplicates");
    writeLines(json, result.duplicates, writeDuplicate);
    lineKey(json, "blankKeys");
    writeBlankKeys(json, result.blankKeys);
}

void writeChoices(JsonWriter& json, const DiffResult& result) {
    lineKey(json, "match");
    StoredForms::write(json, result.match);
    lineKey(json, "options");
    StoredForms::write(json, result.options);
    lineKey(json, "numberStyle");
    json.text(rawValue(result.numberStyle));
    lineKey(json, "columnOrderChanged");
    json.boolean(result.columnOrderChanged);
}

}  // namespace

void writeSheets(const std::vector<std::string>& names, const JsonWriter::Sink& sink) {
    JsonWriter json(sink);
    json.texts(names);
    endDocument(json, sink);
}

void writeTable(const DataTable& table, const JsonWriter::Sink& sink) {
    JsonWriter json(sink);
    json.beginObject();
    json.key("headers");
    json.texts(table.headers());
    lineKey(json, "rows");
    writeRows(json, table.rows());
    lineKey(json, "sourceName");
    json.text(table.sourceName());
    lineKey(json, "rowNumbers");
    json.integers(table.rowNumbers());
    lineKey(json, "headerRowNumber");
    json.integer(table.headerRowNumber());
    lineKey(json, "topRows");
    writeRows(json, table.topRows());
    json.endObject();
    endDocument(json, sink);
}

void writeKey(const std::vector<KeySuggester::Candidate>& ranked, const JsonWriter::Sink& sink) {
    JsonWriter json(sink);
    json.beginObject();
    json.key("suggestedKey");
    const auto key = KeySuggester::suggestedKey(ranked);
    key ? json.text(*key) : json.null();
    lineKey(json, "candidates");
    writeLines(json, ranked, [](JsonWriter& target, const KeySuggester::Candidate& candidate) {
        target.beginObject();
        target.key("column");
        target.text(candidate.column);
        target.key("uniqueness");
        target.number(candidate.uniqueness);
        target.key("overlap");
        target.number(candidate.overlap);
        target.key("score");
        target.number(candidate.score);
        target.endObject();
    });
    json.endObject();
    endDocument(json, sink);
}

void writeResult(const DiffResult& result, const std::vector<std::int64_t>& visible, const JsonWriter::Sink& sink) {
    JsonWriter json(sink);
    json.beginObject();
    json.key("before");
    writeSource(json, result.before);
    lineKey(json, "after");
    writeSource(json, result.after);
    writeFindings(json, result);
    writeChoices(json, result);
    lineKey(json, "summary");
    writeSummary(json, result.summary);
    lineKey(json, "visible");
    json.integers(visible);
    lineKey(json, "duration");
    json.number(result.duration);
    json.endObject();
    endDocument(json, sink);
}

}  // namespace corvale::Cli::JsonReport

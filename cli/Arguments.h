#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/engine/DiffFilter.h"
#include "CorvaleKit/engine/DiffOptions.h"

// What a command line asks for. Texts are UTF-8, paths are as the system has them.
namespace corvale::Cli {

// A command line that cannot be carried out as it stands.
class UsageFailure : public UserFailure {
public:
    using UserFailure::UserFailure;
};

// One file, and which table of it.
struct FileChoice {
    std::string path;
    std::optional<std::string> sheet;       // digits: a number counted from 1; else a name
    std::optional<std::int64_t> headerRow;  // source row number, from 1; none: found automatically

    friend bool operator==(const FileChoice&, const FileChoice&) = default;
};

struct PairChoice {
    FileChoice before;
    FileChoice after;

    friend bool operator==(const PairChoice&, const PairChoice&) = default;
};

// Which rows are listed. Without a column any row may be.
struct ListChoice {
    DiffFilter::Show show = DiffFilter::Show::changes;
    std::optional<std::string> column;
    std::string search;

    friend bool operator==(const ListChoice&, const ListChoice&) = default;
};

struct SheetsCommand {
    std::string path;
};

struct TableCommand {
    FileChoice file;
};

struct KeyCommand {
    PairChoice files;
};

// Which comparison is wanted.
struct ComparisonChoice {
    PairChoice files;
    std::optional<RowMatch> match;  // none: the suggested key, else row order
    DiffOptions options;
};

struct CompareCommand {
    enum class Format { text, summary, json };

    ComparisonChoice comparison;
    ListChoice list;
    Format format = Format::text;
};

struct ReportCommand {
    enum class Kind { workbook, page };
    enum class Language { english, spanish };

    ComparisonChoice comparison;
    std::string path;
    Kind kind = Kind::workbook;
    Language language = Language::english;
    bool includeUnchanged = false;  // in a workbook; a page never does
};

// A text that was asked for in place of work: help, the version.
struct PrintCommand {
    std::string text;
};

using Command = std::variant<SheetsCommand, TableCommand, KeyCommand, CompareCommand, ReportCommand, PrintCommand>;

}  // namespace corvale::Cli

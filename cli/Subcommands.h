#pragma once

#include <optional>
#include <string_view>

#include "cli/Arguments.h"
#include "cli/Subcommand.h"

// The subcommands with their options, for the argument parser alone. A command is asked of the one that was chosen, and
// throws UsageFailure where the options given make none. The order of members is that of the help.
namespace corvale::Cli {

class SheetsSubcommand : public Subcommand {
public:
    explicit SheetsSubcommand(CLI::App& program);

    SheetsCommand command() const;

private:
    CLI::Option* m_file;
};

class TableSubcommand : public Subcommand {
public:
    explicit TableSubcommand(CLI::App& program);

    TableCommand command() const;

private:
    CLI::Option* m_file;
    CLI::Option* m_sheet;
    CLI::Option* m_headerRow;
};

// What reads two files.
class PairSubcommand : public Subcommand {
protected:
    PairSubcommand(CLI::App& program, const char* name, std::string_view help, std::string_view footer);

    PairChoice files() const;

private:
    FileChoice oneFile(const CLI::Option* path, const CLI::Option* ownSheet, const CLI::Option* ownHeaderRow) const;

    CLI::Option* m_before;
    CLI::Option* m_after;
    CLI::Option* m_sheet;
    CLI::Option* m_headerRow;
    CLI::Option* m_beforeSheet;
    CLI::Option* m_afterSheet;
    CLI::Option* m_beforeHeaderRow;
    CLI::Option* m_afterHeaderRow;
};

class KeySubcommand : public PairSubcommand {
public:
    explicit KeySubcommand(CLI::App& program);

    KeyCommand command() const;
};

// What compares them.
class ComparisonSubcommand : public PairSubcommand {
protected:
    ComparisonSubcommand(CLI::App& program, const char* name, std::string_view help, std::string_view footer);

    ComparisonChoice comparison() const;

private:
    std::optional<RowMatch> match() const;
    DiffOptions options() const;

    CLI::Option* m_key;
    CLI::Option* m_rowOrder;
    CLI::Option* m_ignoreCase;
    CLI::Option* m_keepWhitespace;
    CLI::Option* m_ignoreNumberFormat;
    CLI::Option* m_byPosition;
    CLI::Option* m_ignoreColumn;
    CLI::Option* m_numberStyle;
};

class CompareSubcommand : public ComparisonSubcommand {
public:
    explicit CompareSubcommand(CLI::App& program);

    CompareCommand command() const;

private:
    CLI::Option* m_show;
    CLI::Option* m_column;
    CLI::Option* m_search;
    CLI::Option* m_format;
};

class ReportSubcommand : public ComparisonSubcommand {
public:
    explicit ReportSubcommand(CLI::App& program);

    ReportCommand command() const;

private:
    CLI::Option* m_output;
    CLI::Option* m_includeUnchanged;
    CLI::Option* m_language;
};

}  // namespace corvale::Cli

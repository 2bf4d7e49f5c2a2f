#include "cli/Commands.h"

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "CorvaleKit/engine/Callbacks.h"
#include "CorvaleKit/engine/DiffEngine.h"
#include "CorvaleKit/engine/KeySuggester.h"
#include "CorvaleKit/loading/DataLoader.h"
#include "CorvaleKit/loading/XLSX.h"
#include "CorvaleKit/reports/Reports.h"
#include "cli/ExitStatus.h"
#include "cli/FileReading.h"
#include "cli/FileSaving.h"
#include "cli/Interrupt.h"
#include "cli/JsonReport.h"
#include "cli/ListFilter.h"
#include "cli/MatchChoice.h"
#include "cli/Paths.h"
#include "cli/Progress.h"
#include "cli/SummaryReport.h"
#include "cli/SystemLocale.h"
#include "cli/TableLoading.h"
#include "cli/Terminal.h"
#include "cli/TextReport.h"

namespace corvale::Cli {

namespace {

// Tables of gigabytes take their time to be given back piece by piece, and the system takes them all at once. So a
// command ends the process while its tables live; nothing that it holds needs more than its memory released.
[[noreturn]] void end(Output& output, int status) {
    output.flush();
    std::_Exit(status);
}

JsonWriter::Sink sinkTo(Output& output) {
    return [&output](std::string_view piece) { output.write(piece); };
}

[[noreturn]] void run(const PrintCommand& command, Output& output) {
    output.write(command.text);
    end(output, ExitStatus::same);
}

[[noreturn]] void run(const SheetsCommand& command, Output& output) {
    const std::string fileName = fileNameOf(command.path);
    DataLoader::refuseByName(fileName);
    const Bytes bytes = readFile(command.path);
    std::vector<std::string> names;
    if (DataLoader::isWorkbook(bytes.view(), fileName)) {
        names = sheetNames(XLSX::sheets(bytes.view()));
    }
    JsonReport::writeSheets(names, sinkTo(output));
    end(output, ExitStatus::same);
}

[[noreturn]] void run(const TableCommand& command, Output& output) {
    Progress progress(Terminal::canShowProgress(), "Reading");
    const DataTable table = loadTable(command.file).table;
    progress.end();
    JsonReport::writeTable(table, sinkTo(output));
    end(output, ExitStatus::same);
}

[[noreturn]] void run(const KeyCommand& command, Output& output) {
    Progress progress(Terminal::canShowProgress(), "Reading");
    const TablePair tables = loadPair(command.files);
    const std::vector<KeySuggester::Candidate> ranked =
        KeySuggester::candidates(tables.before.table, tables.after.table);
    progress.end();
    JsonReport::writeKey(ranked, sinkTo(output));
    end(output, ExitStatus::same);
}

DiffResult compare(const TablePair& tables, const RowMatch& match, const DiffOptions& options, Progress& progress) {
    const Interrupt::Deferral deferral;
    DiffResult result = DiffEngine::compare(tables.before.table,
                                            tables.after.table,
                                            match,
                                            options,
                                            systemNumberStyle(),
                                            {[&](double done) { progress.fraction(done); }, Interrupt::isRequested});
    // A request that came after the last poll counts too.
    stopIfCancelled(Interrupt::isRequested);
    return result;
}

// A wrong path shall not cost the time of a comparison, nor a slip of the hand one of the files.
void refuseReportPath(const ReportCommand& command) {
    refuseUnwritable(command.path);
    for (const FileChoice& file : {command.comparison.files.before, command.comparison.files.after}) {
        std::error_code error;
        if (std::filesystem::equivalent(command.path, file.path, error)) {
            throw FileFailure(quotedPath(command.path) + " is one of the files to compare.");
        }
    }
}

std::string reportBytes(const ReportCommand& command, const DiffResult& result) {
    const bool isSpanish = command.language == ReportCommand::Language::spanish;
    const ReportStrings strings = isSpanish ? ReportStrings::spanish() : ReportStrings();
    return command.kind == ReportCommand::Kind::page ? Reports::htmlReport(result, strings, isSpanish ? "es" : "en")
                                                     : Reports::excelReport(result, strings, command.includeUnchanged);
}

struct Comparison {
    DiffResult result;
    std::optional<std::string> beforeSheet;
    std::optional<std::string> afterSheet;
    bool matchIsSuggested = false;
};

Comparison loadAndCompare(const ComparisonChoice& choice, Progress& progress) {
    TablePair tables = loadPair(choice.files);
    progress.phase("Comparing");
    const MatchChoice match = chooseMatch(choice.match, choice.files, tables);
    DiffResult result = compare(tables, match.match, choice.options, progress);
    return {std::move(result), std::move(tables.before.sheet), std::move(tables.after.sheet), match.isSuggested};
}

void print(const CompareCommand& command, const Comparison& comparison, Output& output) {
    const DiffResult& result = comparison.result;
    const DiffFilter filter = listFilter(command.list, result.columns);
    switch (command.format) {
        case CompareCommand::Format::summary:
            output.write(summaryReport(result.summary));
            break;
        case CompareCommand::Format::json:
            JsonReport::writeResult(result, filter.apply(result), sinkTo(output));
            break;
        case CompareCommand::Format::text:
            writeTextReport(result,
                            filter.apply(result),
                            {{command.comparison.files.before.path, comparison.beforeSheet},
                             {command.comparison.files.after.path, comparison.afterSheet},
                             comparison.matchIsSuggested,
                             command.list,
                             Terminal::outputStyle()},
                            sinkTo(output));
            break;
    }
}

[[noreturn]] void run(const CompareCommand& command, Output& output) {
    Progress progress(Terminal::canShowProgress(), "Reading");
    const Comparison comparison = loadAndCompare(command.comparison, progress);
    progress.end();
    print(command, comparison, output);
    end(output, comparison.result.summary.hasDifferences() ? ExitStatus::different : ExitStatus::same);
}

[[noreturn]] void run(const ReportCommand& command, Output& output) {
    refuseReportPath(command);
    Progress progress(Terminal::canShowProgress(), "Reading");
    const DiffResult result = loadAndCompare(command.comparison, progress).result;
    progress.phase("Writing");
    saveFile(command.path, reportBytes(command, result));
    progress.end();
    end(output, ExitStatus::same);
}

}  // namespace

void run(const Command& command, Output& output) {
    std::visit([&](const auto& chosen) { run(chosen, output); }, command);
    std::abort();  // no command returns
}

}  // namespace corvale::Cli

#include "cli/TextHeading.h"

#include <string_view>
#include <vector>

#include "cli/DisplayText.h"
#include "cli/TextLine.h"

namespace corvale::Cli {

namespace {

// The longest label and two spaces.
constexpr std::size_t labelWidth = 9;

std::string counted(std::size_t number, std::string_view one, std::string_view many) {
    return DisplayText::grouped(number) + " " + std::string(number == 1 ? one : many);
}

void appendFile(std::string& target, std::string_view label, const FileChoice& file, const DataTable& table,
                const TextStyle& style) {
    std::string details;
    if (file.sheet) {
        details += "sheet " + DisplayText::printable(*file.sheet) + ", ";
    }
    details +=
        counted(table.rows().size(), "row", "rows") + ", " + counted(table.headers().size(), "column", "columns");
    TextLine line(target, style);
    line.add(label);
    line.padTo(labelWidth);
    const std::string path = DisplayText::printable(file.path);
    const std::size_t room = line.room() > details.size() + 12 ? line.room() - details.size() - 2 : line.room();
    line.add(DisplayText::shortenedAtStart(path, room), Ink::strong);
    if (line.room() >= details.size() + 2) {
        line.add("  ");
        line.add(details, Ink::faint);
    }
    line.end();
}

// Pieces of one kind of fact, as many as the line holds.
class FactLine {
public:
    FactLine(std::string& target, std::string_view label, const TextStyle& style)
        : m_line(target, style), m_label(label) {}

    void add(std::string_view fact, Ink ink = Ink::plain) {
        if (m_isEmpty) {
            m_line.add(m_label);
            m_line.padTo(labelWidth);
        } else {
            m_line.addFitting(", ");
        }
        m_isEmpty = false;
        m_line.addFitting(fact, ink);
    }
    void end() {
        if (!m_isEmpty) {
            m_line.end();
        }
    }

private:
    TextLine m_line;
    std::string_view m_label;
    bool m_isEmpty = true;
};

std::string joinedNames(const std::vector<std::string>& names) {
    std::string joined;
    for (const std::string& name : names) {
        joined += joined.empty() ? "" : " + ";
        joined += DisplayText::printable(name);
    }
    return joined;
}

void appendMatch(std::string& target, const DiffResult& result, const TextReportContext& context) {
    FactLine line(target, "Rows", context.style);
    if (result.match.isKey()) {
        line.add("matched by " + joinedNames(result.match.columns()) +
                 (context.matchIsSuggested ? " (suggested)" : ""));
    } else {
        line.add("matched by their order");
        if (context.matchIsSuggested) {
            line.add("for want of a column that tells them apart");
        }
    }
    line.end();
}

void appendColumns(std::string& target, const DiffResult& result, const TextStyle& style) {
    FactLine line(target, "Columns", style);
    for (const ColumnPair& column : result.columns) {
        const std::string name = DisplayText::printable(column.name);
        if (!column.left) {
            line.add("+ " + name, Ink::added);
        } else if (!column.right) {
            line.add("- " + name, Ink::removed);
        } else if (column.renamedTo) {
            line.add(name + " → " + DisplayText::printable(*column.renamedTo), Ink::changed);
        }
    }
    if (result.columnOrderChanged) {
        line.add("in another order", Ink::changed);
    }
    line.end();
}

void appendOptions(std::string& target, const DiffResult& result, const TextStyle& style) {
    const DiffOptions& options = result.options;
    FactLine line(target, "Options", style);
    if (options.ignoreCase) {
        line.add("letter case ignored");
    }
    if (!options.ignoreWhitespace) {
        line.add("extra spaces count");
    }
    if (options.ignoreNumberFormat) {
        line.add(result.numberStyle == NumberStyle::commaDecimal ? "number format ignored (decimal comma)"
                                                                 : "number format ignored (decimal point)");
    }
    if (!options.ignoreColumnOrder) {
        line.add("columns matched by position");
    }
    for (const std::string& name : options.ignoredColumns) {
        line.add(DisplayText::printable(name) + " ignored");
    }
    line.end();
}

}  // namespace

void appendHeading(std::string& target, const DiffResult& result, const TextReportContext& context) {
    appendFile(target, "Before", context.files.before, result.before, context.style);
    appendFile(target, "After", context.files.after, result.after, context.style);
    appendMatch(target, result, context);
    appendColumns(target, result, context.style);
    appendOptions(target, result, context.style);
    target += '\n';
}

}  // namespace corvale::Cli

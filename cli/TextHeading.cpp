#include "cli/TextHeading.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "CorvaleKit/text/Text.h"
#include "cli/DisplayText.h"
#include "cli/TextLine.h"

namespace corvale::Cli {

namespace {

// The longest label and two spaces.
constexpr std::size_t labelWidth = 9;
// A path cut shorter tells nothing any more.
constexpr std::size_t leastPathWidth = 16;

std::string detailsOf(const ComparedFile& file, const DataTable& table) {
    const std::string sheet =
        file.sheet && !file.sheet->empty() ? "sheet " + DisplayText::printable(*file.sheet) + ", " : "";
    return sheet + DisplayText::counted(table.rows().size(), "row", "rows") + ", " +
           DisplayText::counted(table.headers().size(), "column", "columns");
}

struct FileLine {
    std::string_view label;
    std::string path;
    std::string details;
};

// Paths go before details where a terminal has no room for both, and the ends of paths before their starts.
void appendFiles(std::string& target, const std::array<FileLine, 2>& files, const TextStyle& style) {
    const std::size_t detailsWidth =
        2 + std::max(Text::displayWidth(files[0].details), Text::displayWidth(files[1].details));
    const std::size_t pathWidth = std::max(Text::displayWidth(files[0].path), Text::displayWidth(files[1].path));
    for (const FileLine& file : files) {
        TextLine line(target, style);
        line.add(file.label);
        line.padTo(labelWidth);
        const bool hasDetails = line.room() >= detailsWidth + std::min(pathWidth, leastPathWidth);
        const std::size_t room = hasDetails ? line.room() - detailsWidth : line.room();
        line.add(DisplayText::shortenedAtStart(file.path, room), Ink::strong);
        if (hasDetails) {
            line.padTo(labelWidth + std::min(pathWidth, room) + 2);
            line.add(file.details, Ink::faint);
        }
        line.end();
    }
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
    FactLine line(target, "Matched", context.style);
    if (result.match.isKey()) {
        line.add("by " + joinedNames(result.match.columns()) + (context.matchIsSuggested ? " (suggested)" : ""));
    } else {
        line.add(context.matchIsSuggested ? "by row order, as no column tells the rows apart" : "by row order");
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
    appendFiles(target,
                {{{"Before", DisplayText::printable(context.before.path), detailsOf(context.before, result.before)},
                  {"After", DisplayText::printable(context.after.path), detailsOf(context.after, result.after)}}},
                context.style);
    appendMatch(target, result, context);
    appendColumns(target, result, context.style);
    appendOptions(target, result, context.style);
    target += '\n';
}

}  // namespace corvale::Cli

#include "Corvale/grid/GridLayout.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "CorvaleKit/engine/RowCells.h"
#include "CorvaleKit/text/Text.h"

namespace corvale {

namespace {

constexpr std::size_t measuredRows = 200;
constexpr double pointsPerCharacter = 7.5;
constexpr double padding = 22;
constexpr double minimumWidth = 84;
constexpr double maximumWidth = 240;
constexpr double unmeasuredWidth = 120;
constexpr double smallestScale = 0.55;
constexpr double unifiedFactor = 1.6;
// One character more than fits the maximum: what follows makes no column wider.
constexpr std::size_t countedCharacters = 30;

// Counts the longest text seen, and nothing that cannot be longer.
class LongestText {
public:
    explicit LongestText(std::size_t characters) : m_characters(characters) {}

    void see(std::string_view text) {
        if (m_characters < countedCharacters && text.size() > m_characters) {
            const auto counted = Text::characterCount(Text::firstCharacters(text, countedCharacters));
            m_characters = std::max(m_characters, counted);
        }
    }

    double width() const {
        const double wanted = static_cast<double>(m_characters) * pointsPerCharacter + padding;
        return std::clamp(wanted, minimumWidth, maximumWidth);
    }

private:
    std::size_t m_characters;
};

std::vector<LongestText> longestHeaders(const DiffResult& result) {
    std::vector<LongestText> longest;
    longest.reserve(result.columns.size());
    for (const ColumnPair& column : result.columns) {
        longest.emplace_back(Text::characterCount(Text::firstCharacters(column.name, countedCharacters)) + 2);
    }
    return longest;
}

std::unordered_map<std::int64_t, double> measuredWidths(const DiffResult& result) {
    auto longest = longestHeaders(result);
    for (std::size_t i = 0; i < std::min(measuredRows, result.rows.size()); ++i) {
        const RowCells cells(result, result.rows[i]);
        for (std::size_t c = 0; c < longest.size(); ++c) {
            longest[c].see(cells.before(result.columns[c]));
            longest[c].see(cells.after(result.columns[c]));
        }
    }
    std::unordered_map<std::int64_t, double> widths;
    for (std::size_t c = 0; c < longest.size(); ++c) {
        widths.emplace(static_cast<std::int64_t>(c), longest[c].width());
    }
    return widths;
}

// The columns that a table has, in its own order.
std::vector<std::int64_t> columnsOfSide(const std::vector<ColumnPair>& columns,
                                        std::optional<std::int64_t> ColumnPair::*side) {
    std::vector<std::int64_t> found;
    for (std::size_t c = 0; c < columns.size(); ++c) {
        if (columns[c].*side) {
            found.push_back(static_cast<std::int64_t>(c));
        }
    }
    std::sort(found.begin(), found.end(), [&](std::int64_t a, std::int64_t b) {
        return *(columns[static_cast<std::size_t>(a)].*side) < *(columns[static_cast<std::size_t>(b)].*side);
    });
    return found;
}

}  // namespace

GridLayout GridLayout::of(const DiffResult& result) {
    GridLayout layout;
    for (std::size_t c = 0; c < result.columns.size(); ++c) {
        layout.columns.push_back(static_cast<std::int64_t>(c));
    }
    layout.beforeColumns = columnsOfSide(result.columns, &ColumnPair::left);
    layout.afterColumns = columnsOfSide(result.columns, &ColumnPair::right);
    layout.widths = measuredWidths(result);
    return layout;
}

void GridLayout::fit(ViewMode view, std::optional<double> availableWidth) {
    scale = 1.0;
    if (view != ViewMode::sideBySide || !availableWidth) {
        return;
    }
    const double available = *availableWidth - numbersWidth - statusWidth - gapWidth;
    double total = 0;
    for (const auto* side : {&beforeColumns, &afterColumns}) {
        for (const std::int64_t column : *side) {
            total += width(column);
        }
    }
    if (available < total && total > 0) {
        scale = std::max(smallestScale, available / total);
    }
}

double GridLayout::width(std::int64_t column) const {
    const auto found = widths.find(column);
    return found == widths.end() ? unmeasuredWidth : found->second;
}

double GridLayout::drawnWidth(ViewMode view, std::int64_t column) const {
    return width(column) * (view == ViewMode::unified ? unifiedFactor : scale);
}

double GridLayout::contentWidth(ViewMode view) const {
    double sum = leadingWidth;
    if (view == ViewMode::unified) {
        for (const std::int64_t column : columns) {
            sum += drawnWidth(view, column);
        }
        return sum;
    }
    // From left to right, or the sum would be rounded otherwise than the edges of the cells.
    for (const std::int64_t column : beforeColumns) {
        sum += drawnWidth(view, column);
    }
    sum += gapWidth;
    for (const std::int64_t column : afterColumns) {
        sum += drawnWidth(view, column);
    }
    return sum;
}

}  // namespace corvale

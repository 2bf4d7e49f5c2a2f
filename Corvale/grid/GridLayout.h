#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "Corvale/model/AppSettings.h"
#include "Corvale/style/Metrics.h"
#include "CorvaleKit/engine/DiffResult.h"

namespace corvale {

// Which columns of a result are shown and how wide. Columns are indexes into DiffResult::columns throughout; widths are
// in points and depend on lengths of texts alone, not on a font.
struct GridLayout {
    // What a line begins with: the two row numbers, then the status.
    static constexpr double numbersWidth = 2 * Metrics::gridGutter;
    static constexpr double statusWidth = 130;
    static constexpr double leadingWidth = numbersWidth + statusWidth;
    // Between the halves of a line, side by side.
    static constexpr double gapWidth = Metrics::gridHalfGap;

    std::vector<std::int64_t> columns;        // unified, in display order
    std::vector<std::int64_t> beforeColumns;  // side by side on the left, in the order of the Before table
    std::vector<std::int64_t> afterColumns;   // on the right, in the order of the After table
    std::unordered_map<std::int64_t, double> widths;
    double scale = 1.0;  // of every width, side by side

    // Measures the header and the first 200 rows of each column, whatever the number of rows.
    static GridLayout of(const DiffResult& result);

    // Sets the scale: 1 unless side by side and too wide for `availableWidth`, that of a whole line.
    void fit(ViewMode view, std::optional<double> availableWidth);

    // Before the scale.
    double width(std::int64_t column) const;
    // As it is drawn: wider where old and new value share the cell.
    double drawnWidth(ViewMode view, std::int64_t column) const;
    // Of a whole line, which scrolls sideways.
    double contentWidth(ViewMode view) const;

    friend bool operator==(const GridLayout&, const GridLayout&) = default;
};

}  // namespace corvale

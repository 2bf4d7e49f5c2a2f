#include "CorvaleKit/loading/TableBuilder.h"

#include <absl/hash/hash.h>

#include <algorithm>
#include <string_view>
#include <utility>

#include "CorvaleKit/base/HashTables.h"
#include "CorvaleKit/text/Text.h"

namespace corvale::TableBuilder {

namespace {

constexpr std::size_t topRowCount = 12;
constexpr std::size_t topCellCount = 12;
constexpr std::size_t lastHeaderCandidate = 5;
constexpr std::size_t rowsLookedAhead = 5;

bool hasContent(std::string_view cell) {
    if (cell.empty()) {
        return false;
    }
    const auto first = static_cast<unsigned char>(cell.front());
    return (first > 0x20 && first < 0x80) || !Text::isBlank(cell);
}

bool isHeader(const CellRows& rows, std::size_t position) {
    const std::size_t next = position + 1;
    if (next >= rows.size() || isFilled(rows[position])) {
        return true;
    }
    const std::size_t end = std::min(rows.size(), next + rowsLookedAhead);
    for (std::size_t i = next; i < end; ++i) {
        if (isFilled(rows[i])) {
            return false;
        }
    }
    return true;
}

std::vector<std::uint32_t> nonBlankPositions(const CellRows& rows) {
    std::vector<std::uint32_t> positions;
    positions.reserve(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!isBlank(rows[i])) {
            positions.push_back(static_cast<std::uint32_t>(i));
        }
    }
    return positions;
}

// The entry of `nonBlank` that a 1-based source row number stands for.
std::size_t chosenPosition(const std::vector<std::uint32_t>& nonBlank, std::int64_t headerRow) {
    const auto found = std::lower_bound(nonBlank.begin(), nonBlank.end(), std::max<std::int64_t>(headerRow, 1) - 1);
    return std::min(static_cast<std::size_t>(found - nonBlank.begin()), nonBlank.size() - 1);
}

std::size_t largestWidth(const CellRows& rows, const std::vector<std::uint32_t>& positions) {
    std::size_t width = 0;
    for (const auto position : positions) {
        width = std::max(width, rows[position].size());
    }
    return width;
}

std::size_t automaticPosition(const CellRows& rows, const std::vector<std::uint32_t>& nonBlank) {
    const std::size_t looked = std::min(nonBlank.size(), lastHeaderCandidate + rowsLookedAhead + 1);
    std::vector<std::uint32_t> first(nonBlank.begin(), nonBlank.begin() + static_cast<std::ptrdiff_t>(looked));
    const std::size_t width = largestWidth(rows, first);
    return headerPosition(rows.selected(std::move(first), width));
}

struct HashIgnoringCase {
    std::size_t operator()(std::string_view name) const { return absl::HashOf(Text::lowercased(name)); }
};

struct EqualIgnoringCase {
    bool operator()(std::string_view a, std::string_view b) const { return Text::equalIgnoringCase(a, b); }
};

// Makes names unique without regard to letter case. Holds views: the names given to it stay in place while it lives.
class NameRegister {
public:
    explicit NameRegister(std::size_t count) { m_given.reserve(count); }

    bool isTaken(std::string_view name) const { return m_given.contains(name); }
    void enter(std::string_view name) { m_given.insert(name); }

    // The name followed by the first number from 2 on that makes it unique. Names are never given back, so the search
    // for a name goes on where the last one for it stopped.
    std::string numbered(std::string_view name) {
        std::uint64_t& number = m_nextNumber.try_emplace(Text::lowercased(name), 2).first->second;
        for (;; ++number) {
            std::string candidate = std::string(name) + ' ' + std::to_string(number);
            if (!isTaken(candidate)) {
                return candidate;
            }
        }
    }

private:
    HashSet<std::string_view, HashIgnoringCase, EqualIgnoringCase> m_given;
    HashMap<std::string, std::uint64_t> m_nextNumber;
};

std::string ownName(const CellRow& headers, std::size_t column) {
    if (column < headers.size()) {
        const auto written = Text::trimSpacesAndLineBreaks(headers[column]);
        if (!written.empty()) {
            return std::string(written);
        }
    }
    return "Column " + std::to_string(column + 1);
}

}  // namespace

bool isBlank(const CellRow& row) {
    return !row.isNotBlank() && !row.anyStored([](std::size_t, std::string_view cell) { return hasContent(cell); });
}

bool isFilled(const CellRow& row) {
    std::size_t count = 0;
    return row.anyStored([&count](std::size_t, std::string_view cell) { return hasContent(cell) && ++count == 2; });
}

std::size_t headerPosition(const CellRows& rows) {
    std::size_t position = 0;
    while (position < lastHeaderCandidate && !isHeader(rows, position)) {
        ++position;
    }
    return position;
}

DataTable build(const CellRows& rows, std::string sourceName, std::optional<std::int64_t> headerRow) {
    DataTable::Parts parts;
    parts.sourceName = std::move(sourceName);
    parts.topRows = rows.corner(topRowCount, topCellCount);
    std::vector<std::uint32_t> positions = nonBlankPositions(rows);
    if (positions.empty()) {
        return DataTable(std::move(parts));
    }
    const std::size_t automatic = automaticPosition(rows, positions);
    const std::size_t header = headerRow ? chosenPosition(positions, *headerRow) : automatic;
    const std::uint32_t headerSource = positions[header];
    parts.automaticHeaderRowNumber = std::int64_t{positions[automatic]} + 1;
    positions.erase(positions.begin(), positions.begin() + static_cast<std::ptrdiff_t>(header) + 1);

    const CellRow headerCells = rows[headerSource];
    const std::size_t width = std::max(headerCells.size(), largestWidth(rows, positions));
    parts.headers = columnNames(headerCells, width);
    parts.headerRowNumber = static_cast<std::int64_t>(headerSource) + 1;
    parts.rowNumbers.reserve(positions.size());
    for (const auto position : positions) {
        parts.rowNumbers.push_back(static_cast<std::int64_t>(position) + 1);
    }
    parts.rows = rows.selected(std::move(positions), width);
    return DataTable(std::move(parts));
}

std::vector<std::string> columnNames(const CellRow& headers, std::size_t count) {
    std::vector<std::string> names;
    names.reserve(count);
    NameRegister given(count);
    for (std::size_t column = 0; column < count; ++column) {
        std::string name = ownName(headers, column);
        names.push_back(given.isTaken(name) ? given.numbered(name) : std::move(name));
        given.enter(names.back());
    }
    return names;
}

}  // namespace corvale::TableBuilder

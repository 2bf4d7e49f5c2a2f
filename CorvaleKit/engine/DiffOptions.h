#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "CorvaleKit/engine/EnumTexts.h"

namespace corvale {

// How to read decimal and grouping separators.
enum class NumberStyle : std::uint8_t {
    automatic,     // from the files' numbers, else the user's locale
    dotDecimal,    // "." is decimal, "," groups thousands
    commaDecimal,  // "," is decimal, "." groups thousands
};

template <>
inline constexpr std::array<EnumText<NumberStyle>, 3> enumTexts<NumberStyle>{{
    {NumberStyle::automatic, "automatic"},
    {NumberStyle::dotDecimal, "dotDecimal"},
    {NumberStyle::commaDecimal, "commaDecimal"},
}};
static_assert(enumTextsAreInOrder<NumberStyle>());

// What counts as a difference.
struct DiffOptions {
    bool ignoreCase = false;
    bool ignoreWhitespace = true;          // spaces at the ends and runs of white space
    bool ignoreNumberFormat = false;       // numbers of equal value are equal
    bool ignoreColumnOrder = true;         // columns are paired by name, otherwise by position
    std::set<std::string> ignoredColumns;  // shown, never compared
    NumberStyle numberStyle = NumberStyle::automatic;

    friend bool operator==(const DiffOptions&, const DiffOptions&) = default;

    template <typename H>
    friend H AbslHashValue(H state, const DiffOptions& o) {
        return H::combine(std::move(state),
                          o.ignoreCase,
                          o.ignoreWhitespace,
                          o.ignoreNumberFormat,
                          o.ignoreColumnOrder,
                          o.ignoredColumns,
                          o.numberStyle);
    }
};

// How rows are matched: by the joined text of key columns, or by their order.
class RowMatch {
public:
    RowMatch() = default;
    static RowMatch rowOrder() { return {}; }
    // Names of the key columns, in the order in which their cells are joined.
    static RowMatch key(std::vector<std::string> columns) {
        RowMatch match;
        match.m_isKey = true;
        match.m_columns = std::move(columns);
        return match;
    }

    bool isKey() const { return m_isKey; }
    // Empty for row order.
    const std::vector<std::string>& columns() const& { return m_columns; }
    const std::vector<std::string>& columns() const&& = delete;

    friend bool operator==(const RowMatch&, const RowMatch&) = default;

    template <typename H>
    friend H AbslHashValue(H state, const RowMatch& match) {
        return H::combine(std::move(state), match.m_isKey, match.m_columns);
    }

private:
    bool m_isKey = false;
    std::vector<std::string> m_columns;
};

}  // namespace corvale

#include "CorvaleKit/loading/SheetCells.h"

#include <algorithm>
#include <utility>

#include "CorvaleKit/loading/XLSX.h"

namespace corvale::XLSX {

SheetCells::SheetCells(ByteArena texts) : m_texts(std::move(texts)) {}

void SheetCells::reserveFor(std::size_t bytes) {
    constexpr std::size_t bytesPerCell = 24;
    constexpr std::size_t bytesPerRow = 64;
    m_builder.reserve(bytes / bytesPerCell, std::min<std::size_t>(bytes / bytesPerRow, mostRows));
}

std::uint64_t SheetCells::keep(std::string_view text) { return cell(m_texts.append(text), text.size()); }

void SheetCells::place(std::uint32_t row, std::uint32_t column, std::uint64_t cell) {
    if (row > m_rowIndex) {
        endRowsUpTo(row);
    } else if (row < m_rowIndex || (!m_row.empty() && column <= m_row.back().column)) [[unlikely]] {
        m_late.push_back({row, column, cell});
        return;
    }
    m_row.push_back({column, cell});
}

void SheetCells::endRowsUpTo(std::uint32_t row) {
    m_builder.addRow(m_row);
    m_row.clear();
    while (++m_rowIndex < row) {
        m_builder.endRow();
    }
}

CellGrid SheetCells::finish() {
    if (!m_row.empty()) {
        m_builder.addRow(m_row);
    }
    if (!m_late.empty()) {
        m_builder.overwrite(std::move(m_late));
    }
    return m_builder.finish(m_texts.finish());
}

}  // namespace corvale::XLSX

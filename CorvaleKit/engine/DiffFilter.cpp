#include "CorvaleKit/engine/DiffFilter.h"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <utility>

#include "CorvaleKit/text/Text.h"

namespace corvale {

namespace {

using Show = DiffFilter::Show;
using Status = DiffRow::Status;

constexpr char separator = '\x1F';

bool shows(Show show, Status status) {
    switch (show) {
        case Show::all:
            return true;
        case Show::changes:
            return status != Status::same;
        case Show::added:
            return status == Status::added;
        case Show::removed:
            return status == Status::removed;
        case Show::changed:
            return status == Status::changed;
    }
    return false;
}

bool hasChangeIn(std::span<const CellChange> changes, std::int64_t column) {
    return std::any_of(
        changes.begin(), changes.end(), [column](const CellChange& change) { return change.column == column; });
}

// The pieces between spaces; tabs and other white space belong to a word.
std::vector<std::string> searchWords(std::string_view search) {
    const std::string text = Text::lowercased(search);
    std::vector<std::string> words;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find(' ', start), text.size());
        if (end > start) {
            words.push_back(text.substr(start, end - start));
        }
        start = end + 1;
    }
    return words;
}

// Looks for words in the key and all cells of one row after another. The text it looks in is held once.
class RowSearch {
public:
    RowSearch(const DiffResult& result, std::vector<std::string> words) : m_result(result), m_words(std::move(words)) {
        m_shownBefore.resize(result.before.headers().size(), false);
        m_shownAfter.resize(result.after.headers().size(), false);
        for (const auto& column : result.columns) {
            if (column.left) {
                m_shownBefore[static_cast<std::size_t>(*column.left)] = true;
            }
            if (column.right) {
                m_shownAfter[static_cast<std::size_t>(*column.right)] = true;
            }
        }
        m_wordsSpanCells = std::any_of(m_words.begin(), m_words.end(), [](const std::string& word) {
            return word.find(separator) != std::string::npos;
        });
    }

    bool finds(std::size_t index) {
        const DiffRow row = m_result.rows[index];
        m_text.assign(row.key);
        if (m_wordsSpanCells) {
            appendColumns(row);
        } else {
            appendFilledCells(row);
        }
        m_lowercased.clear();
        Text::appendLowercased(m_lowercased, m_text);
        return std::all_of(m_words.begin(), m_words.end(), [this](const std::string& word) {
            return m_lowercased.find(word) != std::string::npos;
        });
    }

private:
    void append(std::string_view cell) {
        m_text += separator;
        m_text += cell;
    }

    // Every cell in the order of the columns: what a word with a separator in it is looked for in.
    void appendColumns(const DiffRow& row) {
        for (const auto& column : m_result.columns) {
            if (column.left && row.left) {
                append(m_result.cellBefore(row, column));
            }
            if (column.right && row.right) {
                append(m_result.cellAfter(row, column));
            }
        }
    }

    // Any other word lies within one cell, so the order of the cells and the empty ones don't matter.
    void appendFilledCells(const DiffRow& row) {
        if (row.left) {
            appendFilledCells(m_result.before.rows()[static_cast<std::size_t>(*row.left)], m_shownBefore);
        }
        if (row.right) {
            appendFilledCells(m_result.after.rows()[static_cast<std::size_t>(*row.right)], m_shownAfter);
        }
    }

    void appendFilledCells(const CellRow& cells, const std::vector<bool>& shown) {
        cells.forEachStored([&](std::size_t column, std::string_view cell) {
            if (shown[column]) {
                append(cell);
            }
        });
    }

    const DiffResult& m_result;
    std::vector<std::string> m_words;
    bool m_wordsSpanCells = false;
    std::vector<bool> m_shownBefore;
    std::vector<bool> m_shownAfter;
    std::string m_text;
    std::string m_lowercased;
};

}  // namespace

std::vector<std::int64_t> DiffFilter::apply(const DiffResult& result) const {
    RowSearch rowSearch(result, searchWords(search));
    std::vector<std::int64_t> indexes;
    for (std::size_t i = 0; i < result.rows.size(); ++i) {
        const bool passes = shows(show, result.rows.status(i)) &&
                            (!column || hasChangeIn(result.rows.changes(i), *column)) && rowSearch.finds(i);
        if (passes) {
            indexes.push_back(static_cast<std::int64_t>(i));
        }
    }
    return indexes;
}

}  // namespace corvale

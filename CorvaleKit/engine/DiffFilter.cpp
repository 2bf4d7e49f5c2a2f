#include "CorvaleKit/engine/DiffFilter.h"

#include <algorithm>
#include <cstring>
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

// The key and cells of one row, each behind a separator, in a block that is used for row after row.
class RowText {
public:
    void clear() { m_size = 0; }
    std::string_view view() const { return std::string_view(m_block).substr(1, m_size - 1); }

    void append(std::string_view text) {
        char* const end = extend(text);
        text.copy(end, text.size());
    }

    // For a text that may be read past its end, as every filled cell of a table: most are copied in one move.
    void appendCell(std::string_view cell) {
        char* const end = extend(cell);
        if (cell.size() <= oneMove) {
            std::memcpy(end, cell.data(), oneMove);
        } else {
            std::memcpy(end, cell.data(), cell.size());
        }
    }

private:
    static constexpr std::size_t oneMove = 16;

    // Where the text goes; at least oneMove bytes.
    char* extend(std::string_view text) {
        const std::size_t needed = m_size + 1 + text.size() + oneMove;
        if (needed > m_block.size()) {
            m_block.resize(2 * needed);
        }
        m_block[m_size] = separator;
        char* const end = m_block.data() + m_size + 1;
        m_size += 1 + text.size();
        return end;
    }

    std::string m_block;
    std::size_t m_size = 0;
};

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
        if (m_words.empty()) {
            return true;
        }
        const DiffRow row = m_result.rows[index];
        m_text.clear();
        m_text.append(row.key);
        if (m_wordsSpanCells) {
            appendColumns(row);
        } else {
            appendFilledCells(row);
        }
        m_lowercased.clear();
        Text::appendLowercased(m_lowercased, m_text.view());
        return std::all_of(m_words.begin(), m_words.end(), [this](const std::string& word) {
            return m_lowercased.find(word) != std::string::npos;
        });
    }

private:
    // Every cell in the order of the columns: what a word with a separator in it is looked for in.
    void appendColumns(const DiffRow& row) {
        for (const auto& column : m_result.columns) {
            if (column.left && row.left) {
                m_text.append(m_result.cellBefore(row, column));
            }
            if (column.right && row.right) {
                m_text.append(m_result.cellAfter(row, column));
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
            if (shown[column] && !cell.empty()) {
                m_text.appendCell(cell);
            }
        });
    }

    const DiffResult& m_result;
    std::vector<std::string> m_words;
    bool m_wordsSpanCells = false;
    std::vector<bool> m_shownBefore;
    std::vector<bool> m_shownAfter;
    RowText m_text;
    std::string m_lowercased;
};

}  // namespace

std::vector<std::int64_t> DiffFilter::apply(const DiffResult& result, const CancelCheck& isCancelled) const {
    RowSearch rowSearch(result, searchWords(search));
    std::vector<std::int64_t> indexes;
    for (std::size_t i = 0; i < result.rows.size(); ++i) {
        if (i % rowsPerPoll == 0) {
            stopIfCancelled(isCancelled);
        }
        const bool passes = shows(show, result.rows.status(i)) &&
                            (!column || hasChangeIn(result.rows.changes(i), *column)) && rowSearch.finds(i);
        if (passes) {
            indexes.push_back(static_cast<std::int64_t>(i));
        }
    }
    return indexes;
}

}  // namespace corvale

#include <algorithm>
#include <cstring>
#include <utility>

#include "CorvaleKit/base/ByteScan.h"
#include "CorvaleKit/loading/CSV.h"
#include "CorvaleKit/loading/CellGridBuilder.h"
#include "CorvaleKit/text/WhitespaceScan.h"

namespace corvale::CSV {

namespace {

class Parser {
public:
    Parser(Bytes text, char delimiter)
        : m_bytes(std::move(text)),
          m_text(m_bytes.data()),
          m_size(m_bytes.size()),
          m_delimiter(delimiter),
          m_ends(m_text, m_size, delimiter, '\r', '\n') {}

    CellGrid parse() {
        reserve();
        m_grid.setDelimiter(m_delimiter);
        while (m_position < m_size) {
            readRow();
        }
        return m_grid.finish(std::move(m_bytes));
    }

private:
    // The start of the file tells how many cells and rows the rest will have, near enough to spare regrowing.
    void reserve() {
        const std::size_t sampled = std::min<std::size_t>(m_size, 256 * 1024);
        if (sampled == 0) {
            return;
        }
        const auto count = [&](char wanted) {
            return static_cast<std::size_t>(std::count(m_text, m_text + sampled, wanted));
        };
        const std::size_t rows = std::max(count('\n'), count('\r')) + 1;
        const std::size_t cells = count(m_delimiter) + rows;
        const double factor = 1.1 * static_cast<double>(m_size) / static_cast<double>(sampled);
        m_grid.reserve(static_cast<std::size_t>(static_cast<double>(cells) * factor),
                       static_cast<std::size_t>(static_cast<double>(rows) * factor));
    }

    void readRow() {
        if (startsWithContent()) {
            m_grid.markNotBlank();
        }
        m_isTidy = true;
        m_hasQuotes = false;
        m_stretch = m_position;
        do {
            if (m_text[m_position] == '"') {
                readQuotedCell();
            } else {
                readPlainCells();
            }
        } while (takeDelimiter());
        if (!m_hasQuotes) {
            m_grid.markPlain();
        }
        // While the row's bytes are at hand, its white space is looked at once for all comparisons to come.
        if (m_isTidy && isTidyUpTo(m_position)) {
            m_grid.markTidy();
        }
        m_grid.endRow();
        takeLineBreak();
    }

    // Whether the row's first cell does; a quick look that does not see every such cell.
    bool startsWithContent() const {
        const char first = m_text[m_position];
        return first > ' ' && first <= '~' && first != m_delimiter && first != '"';
    }

    // True when another cell follows that is to be read.
    bool takeDelimiter() {
        if (m_position == m_size || m_text[m_position] != m_delimiter) {
            return false;
        }
        if (++m_position == m_size) {
            m_grid.addCell(m_size, 0);
            return false;
        }
        return true;
    }

    void takeLineBreak() {
        if (m_position < m_size) {
            const char end = m_text[m_position++];
            m_position += end == '\r' && m_position < m_size && m_text[m_position] == '\n' ? 1U : 0U;
        }
    }

    // The cells without quotes from the last one with quotes on.
    bool isTidyUpTo(std::size_t end) const {
        return WhitespaceScan::areTidyCells({m_text + m_stretch, end - m_stretch}, m_delimiter);
    }

    // Leaves the position where the last of them ends: at the end of the row, of the text, or before a quoted cell.
    void readPlainCells() {
        std::size_t start = m_position;
        std::size_t end = m_ends.next(start);
        m_grid.addCell(start, end - start);
        while (end + 1 < m_size && m_text[end] == m_delimiter && m_text[end + 1] != '"') {
            start = end + 1;
            end = m_ends.following();
            m_grid.addCell(start, end - start);
        }
        m_position = end;
    }

    // Leaves the position at the delimiter or line break that ends the cell, or at the end of the text. At least two
    // bytes are between the cell and the next one: the delimiter, and the quote that the cell lost.
    void readQuotedCell() {
        m_isTidy = m_isTidy && isTidyUpTo(m_position);
        const std::size_t start = m_position + 1;
        std::size_t kept = start;  // the cell's text so far is [start, kept), moved left over dropped quotes
        std::size_t from = start;
        for (;;) {
            const std::size_t quote = find('"', from);
            keep(kept, from, quote);
            if (quote == m_size) {
                m_position = m_size;
                break;
            }
            const bool doubled = quote + 1 < m_size && m_text[quote + 1] == '"';
            if (!doubled) {
                m_position = m_ends.next(quote + 1);
                keep(kept, quote + 1, m_position);
                break;
            }
            keep(kept, quote, quote + 1);
            from = quote + 2;
        }
        m_grid.addCell(start, kept - start);
        m_isTidy = m_isTidy && !WhitespaceScan::needsNormalization({m_text + start, kept - start});
        m_stretch = m_position;
        m_hasQuotes = true;
    }

    std::size_t find(char wanted, std::size_t from) const {
        const void* found = std::memchr(m_text + from, wanted, m_size - from);
        return found != nullptr ? static_cast<std::size_t>(static_cast<const char*>(found) - m_text) : m_size;
    }

    void keep(std::size_t& kept, std::size_t from, std::size_t to) {
        if (kept != from) {
            std::memmove(m_text + kept, m_text + from, to - from);
        }
        kept += to - from;
    }

    Bytes m_bytes;
    char* m_text;
    std::size_t m_size;
    char m_delimiter;
    ByteScan::Finder m_ends;
    CellGridBuilder m_grid;
    std::size_t m_position = 0;
    bool m_hasQuotes = false;   // a cell of the row so far
    bool m_isTidy = true;       // of the row so far, but for its last stretch of cells without quotes
    std::size_t m_stretch = 0;  // where that starts
};

}  // namespace

CellGrid parse(Bytes text, std::optional<char> delimiter) {
    const char chosen = delimiter ? *delimiter : detectDelimiter(text.view());
    return Parser(std::move(text), chosen).parse();
}

}  // namespace corvale::CSV

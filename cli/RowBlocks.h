#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/engine/DiffResult.h"
#include "cli/Terminal.h"
#include "cli/TextLine.h"

namespace corvale::Cli {

// Writes result rows as blocks: a line with the row's mark, key and row numbers, then its changed cells, or what an
// added or removed row holds.
class RowBlocks {
public:
    // Both outlive the blocks.
    RowBlocks(const DiffResult& result, const TextStyle& style);

    void append(std::string& target, const DiffRow& row) const;

private:
    void appendTitle(std::string& target, const DiffRow& row) const;
    void appendChanges(std::string& target, const DiffRow& row) const;
    void appendContent(std::string& target, const DiffRow& row) const;
    std::string keyText(std::string_view key) const;
    std::string rowLabel(const DiffRow& row) const;

    const DiffResult& m_result;
    const TextStyle& m_style;
    std::vector<std::string> m_names;          // of the result's columns, printable
    std::vector<bool> m_isKeyColumn;           // per result column
    std::vector<std::size_t> m_beforeColumns;  // of a Before column the place in the result
    std::vector<std::size_t> m_afterColumns;   // of an After column
    std::size_t m_nameWidth = 0;               // room for the names of columns with changes
};

}  // namespace corvale::Cli

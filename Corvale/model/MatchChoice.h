#pragma once

#include <optional>
#include <string>
#include <utility>

#include "CorvaleKit/engine/DiffOptions.h"

namespace corvale {

// How the user wants rows to be paired: by the value in one column, or by their order.
class MatchChoice {
public:
    MatchChoice() = default;
    static MatchChoice rowOrder() { return {}; }
    static MatchChoice key(std::string column) {
        MatchChoice choice;
        choice.m_column = std::move(column);
        return choice;
    }

    // The name of the key column as Before has it; none for row order.
    const std::optional<std::string>& column() const& { return m_column; }

    RowMatch rowMatch() const { return m_column ? RowMatch::key({*m_column}) : RowMatch::rowOrder(); }

    // Whether rowMatch() equals `match`; takes no memory.
    bool gives(const RowMatch& match) const {
        if (!m_column || !match.isKey()) {
            return !m_column && !match.isKey();
        }
        return match.columns().size() == 1 && match.columns().front() == *m_column;
    }

    friend bool operator==(const MatchChoice&, const MatchChoice&) = default;

private:
    std::optional<std::string> m_column;
};

}  // namespace corvale

#include "Corvale/grid/ChangeWalk.h"

namespace corvale::ChangeWalk {

namespace {

// The listed rows, by line.
class Lines {
public:
    Lines(const DiffResult& result, const std::vector<std::int64_t>& visible)
        : m_rows(result.rows), m_visible(visible) {}

    std::int64_t count() const { return static_cast<std::int64_t>(m_visible.size()); }

    std::size_t changes(std::int64_t line) const {
        const auto row = static_cast<std::size_t>(m_visible[static_cast<std::size_t>(line)]);
        return m_rows.status(row) == DiffRow::Status::changed ? m_rows.changes(row).size() : 0;
    }

    // The nearest line with changes in [from, end) going up, or in (end, from] going down.
    std::optional<std::int64_t> find(std::int64_t from, std::int64_t end, std::int64_t step) const {
        for (std::int64_t line = from; line != end; line += step) {
            if (changes(line) > 0) {
                return line;
            }
        }
        return std::nullopt;
    }

private:
    const DiffRows& m_rows;
    const std::vector<std::int64_t>& m_visible;
};

}  // namespace

std::optional<Step> next(const DiffResult& result, const std::vector<std::int64_t>& visible, const Start& start) {
    const Lines lines(result, visible);
    std::int64_t from = start.line.value_or(0);
    if (start.line && start.change) {
        if (*start.change + 1 < lines.changes(from)) {
            return Step{{from, *start.change + 1}, false};
        }
        ++from;
    }
    if (const auto line = lines.find(from, lines.count(), 1)) {
        return Step{{*line, 0}, false};
    }
    if (const auto line = lines.find(0, from, 1)) {
        return Step{{*line, 0}, true};
    }
    return std::nullopt;
}

std::optional<Step> previous(const DiffResult& result, const std::vector<std::int64_t>& visible, const Start& start) {
    const Lines lines(result, visible);
    const std::int64_t from = start.line.value_or(lines.count());
    if (start.line && start.change && *start.change > 0) {
        return Step{{from, *start.change - 1}, false};
    }
    const auto lastChange = [&](std::int64_t line, bool wrapped) {
        return Step{{line, lines.changes(line) - 1}, wrapped};
    };
    if (const auto line = lines.find(from - 1, -1, -1)) {
        return lastChange(*line, false);
    }
    if (const auto line = lines.find(lines.count() - 1, from - 1, -1)) {
        return lastChange(*line, true);
    }
    return std::nullopt;
}

}  // namespace corvale::ChangeWalk

#include "CorvaleKit/engine/JoinedText.h"

#include <absl/hash/hash.h>
#include <absl/strings/string_view.h>

#include <algorithm>
#include <array>
#include <string>

namespace corvale {

namespace {

// Hashes a text that comes in pieces, in blocks of a fixed size, so that the cuts between the pieces do not count.
class PiecewiseHash {
public:
    void append(std::string_view text) {
        while (text.size() > m_block.size() - m_length) {
            const std::size_t room = m_block.size() - m_length;
            copyIn(text.substr(0, room));
            text.remove_prefix(room);
            m_state = finish();
            m_length = 0;
        }
        copyIn(text);
    }

    void append(char byte) {
        if (m_length == m_block.size()) {
            m_state = finish();
            m_length = 0;
        }
        m_block[m_length++] = byte;
    }

    void appendSeparators(std::size_t count) {
        for (; count > separators.size(); count -= separators.size()) {
            append(separators);
        }
        append(separators.substr(0, count));
    }

    std::size_t finish() const { return ofBlock(m_state, {m_block.data(), m_length}); }

    static constexpr std::size_t blockSize = 1024;
    // `before` is the hash of the blocks before it, 0 for the first one.
    static std::size_t ofBlock(std::size_t before, std::string_view block) {
        // Of absl's own view: where that is another type than the standard's, only it is hashed with a seed.
        return absl::HashOf(before, absl::string_view(block.data(), block.size()));
    }

private:
    static constexpr auto separatorBlock = [] {
        std::array<char, 64> block{};
        block.fill(JoinedText::separator);
        return block;
    }();
    static constexpr std::string_view separators{separatorBlock.data(), separatorBlock.size()};

    void copyIn(std::string_view text) {
        std::copy(text.begin(), text.end(), m_block.begin() + static_cast<std::ptrdiff_t>(m_length));
        m_length += text.size();
    }

    std::array<char, blockSize> m_block;
    std::size_t m_length = 0;
    std::size_t m_state = 0;
};

std::string joined(const ComparisonTexts::Row& row) {
    std::string text;
    for (std::size_t position = 0; position < row.size(); ++position) {
        if (position > 0) {
            text += JoinedText::separator;
        }
        text += row[position];
    }
    return text;
}

}  // namespace

std::size_t JoinedText::hash(const ComparisonTexts::Row& row) {
    if (row.size() == 1) {
        return hash(row[0]);
    }
    std::array<char, PiecewiseHash::blockSize> block;
    if (const auto length = row.copyJoined(separator, block)) {
        return PiecewiseHash::ofBlock(0, {block.data(), *length});
    }
    PiecewiseHash hash;
    if (!row.isThin()) {
        for (std::size_t position = 0; position < row.size(); ++position) {
            if (position > 0) {
                hash.append(separator);
            }
            hash.append(row[position]);
        }
        return hash.finish();
    }
    m_positions.clear();
    m_positions.add(row);
    std::size_t separated = 0;
    for (const std::size_t position : m_positions.sorted()) {
        hash.appendSeparators(position - separated);
        hash.append(row[position]);
        separated = position;
    }
    hash.appendSeparators(row.size() - 1 - separated);
    return hash.finish();
}

std::size_t JoinedText::hash(std::string_view joined) {
    if (joined.size() <= PiecewiseHash::blockSize) {
        return PiecewiseHash::ofBlock(0, joined);
    }
    PiecewiseHash hash;
    hash.append(joined);
    return hash.finish();
}

bool JoinedText::isEqual(const ComparisonTexts::Row& row, std::string_view joined) {
    for (std::size_t position = 0; position < row.size(); ++position) {
        if (position > 0) {
            if (joined.empty() || joined.front() != separator) {
                return false;
            }
            joined.remove_prefix(1);
        }
        const std::string_view cell = row[position];
        if (joined.substr(0, cell.size()) != cell) {
            return false;
        }
        joined.remove_prefix(cell.size());
    }
    return joined.empty();
}

bool JoinedText::isEqual(const ComparisonTexts::Row& a, const ComparisonTexts::Row& b) { return isEqual(a, joined(b)); }

}  // namespace corvale

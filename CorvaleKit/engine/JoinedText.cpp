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
        while (!text.empty()) {
            const auto piece = text.substr(0, makeRoom());
            std::copy(piece.begin(), piece.end(), m_block.begin() + static_cast<std::ptrdiff_t>(m_length));
            m_length += piece.size();
            text.remove_prefix(piece.size());
        }
    }

    void append(char byte, std::size_t count) {
        while (count > 0) {
            const std::size_t length = std::min(count, makeRoom());
            std::fill_n(m_block.begin() + static_cast<std::ptrdiff_t>(m_length), length, byte);
            m_length += length;
            count -= length;
        }
    }

    std::size_t finish() const { return ofBlock(m_state, {m_block.data(), m_length}); }

    // Of a text in one piece.
    static std::size_t of(std::string_view text) {
        if (text.size() <= blockSize) {
            return ofBlock(0, text);
        }
        PiecewiseHash hash;
        hash.append(text);
        return hash.finish();
    }

private:
    static constexpr std::size_t blockSize = 1024;

    // `before` is the hash of the blocks before it, 0 for the first one.
    static std::size_t ofBlock(std::size_t before, std::string_view block) {
        // Of absl's own view: where that is another type than the standard's, only it is hashed with a seed.
        return absl::HashOf(before, absl::string_view(block.data(), block.size()));
    }

    // How many bytes fit, at least one.
    std::size_t makeRoom() {
        if (m_length == m_block.size()) {
            m_state = finish();
            m_length = 0;
        }
        return m_block.size() - m_length;
    }

    std::array<char, blockSize> m_block;
    std::size_t m_length = 0;
    std::size_t m_state = 0;
};

using Stretch = ComparisonTexts::Row::Stretch;

// Hashes texts with delimiters between them. What is not appended is empty.
class DelimitedHash {
public:
    explicit DelimitedHash(char delimiter) : m_delimiter(delimiter) {}

    void append(const Stretch& stretch) {
        m_bytes.append(m_delimiter, stretch.first - m_last);
        m_bytes.append(stretch.text);
        m_last = stretch.first + stretch.count - 1;
        if (m_delimiter != JoinedText::separator) {
            m_hasSeparator = m_hasSeparator || stretch.text.find(JoinedText::separator) != std::string_view::npos;
            if (stretch.count == 1 && stretch.text.find(m_delimiter) != std::string_view::npos) {
                // Or rows with other texts would be the same bytes, and whoever wrote the files could make many such.
                m_hashOfPlaces = absl::HashOf(m_hashOfPlaces, stretch.first, stretch.text.size());
            }
        }
    }
    void append(std::size_t position, std::string_view text) { append({position, 1, text}); }

    // Of as many texts as `width`.
    std::size_t finish(std::size_t width) {
        m_bytes.append(m_delimiter, width - 1 - m_last);
        const std::size_t hash = m_bytes.finish();
        return m_hashOfPlaces == 0 ? hash : absl::HashOf(hash, m_hashOfPlaces);
    }

    // Whether a text has one, unless it is the delimiter.
    bool hasSeparator() const { return m_hasSeparator; }

private:
    char m_delimiter;
    bool m_hasSeparator = false;
    std::size_t m_last = 0;          // the position that the bytes reach
    std::size_t m_hashOfPlaces = 0;  // of the texts that have delimiters themselves; 0 when none has
    PiecewiseHash m_bytes;
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
    const std::size_t width = row.size();
    if (width <= 1) {
        return PiecewiseHash::of(width == 0 ? std::string_view() : row[0]);
    }
    if (const auto text = row.joinedBy(m_delimiter); text && text->find(separator) == std::string_view::npos) {
        return PiecewiseHash::of(*text);
    }
    DelimitedHash hash(m_delimiter);
    if (!row.forEachStretch(m_delimiter, [&hash](const Stretch& stretch) { hash.append(stretch); })) {
        append(row, hash);
    }
    if (!hash.hasSeparator()) {
        return hash.finish(width);
    }
    // Other rows may join to the same text.
    DelimitedHash separated(separator);
    append(row, separated);
    return separated.finish(width);
}

template <typename Hash>
void JoinedText::append(const ComparisonTexts::Row& row, Hash& hash) {
    if (!row.isThin()) {
        for (std::size_t position = 0; position < row.size(); ++position) {
            hash.append(position, row[position]);
        }
        return;
    }
    m_positions.clear();
    m_positions.add(row);
    for (const std::size_t position : m_positions.sorted()) {
        hash.append(position, row[position]);
    }
}

std::size_t JoinedText::hash(std::string_view joined, std::size_t width) const {
    const auto separators = static_cast<std::size_t>(std::count(joined.begin(), joined.end(), separator));
    // With more separators, a text has one itself, and where the texts begin does not count.
    if (width <= 1 || separators != width - 1) {
        return PiecewiseHash::of(joined);
    }
    DelimitedHash hash(m_delimiter);
    for (std::size_t position = 0; position < width; ++position) {
        const std::string_view text = joined.substr(0, joined.find(separator));
        hash.append(position, text);
        joined.remove_prefix(std::min(text.size() + 1, joined.size()));
    }
    return hash.finish(width);
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

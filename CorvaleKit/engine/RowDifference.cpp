#include "CorvaleKit/engine/RowDifference.h"

#include <algorithm>

#include "CorvaleKit/base/Require.h"

namespace corvale {

namespace {

constexpr std::size_t bitsPerWord = 64;

constexpr std::uint64_t bit(std::size_t position) { return std::uint64_t{1} << (position % bitsPerWord); }

}  // namespace

const std::vector<RowDifference::Kept>& RowDifference::kept(std::span<const std::uint32_t> a,
                                                            std::span<const std::uint32_t> b) {
    CORVALE_REQUIRE(a.size() + b.size() <= longest, "two sequences are too long for an exact difference");
    findPlaces(b);
    findGrowth(a);
    collect(a, b);
    return m_kept;
}

void RowDifference::findPlaces(std::span<const std::uint32_t> b) {
    m_elements.assign(b.begin(), b.end());
    std::sort(m_elements.begin(), m_elements.end());
    m_elements.erase(std::unique(m_elements.begin(), m_elements.end()), m_elements.end());
    m_words = (b.size() + bitsPerWord - 1) / bitsPerWord;
    m_places.assign(m_elements.size() * m_words, 0);
    for (std::size_t position = 0; position < b.size(); ++position) {
        const auto element = std::lower_bound(m_elements.begin(), m_elements.end(), b[position]);
        const auto index = static_cast<std::size_t>(element - m_elements.begin());
        m_places[index * m_words + position / bitsPerWord] |= bit(position);
    }
}

const std::uint64_t* RowDifference::placesOf(std::uint32_t element) const {
    const auto found = std::lower_bound(m_elements.begin(), m_elements.end(), element);
    if (found == m_elements.end() || *found != element) {
        return nullptr;
    }
    return m_places.data() + static_cast<std::size_t>(found - m_elements.begin()) * m_words;
}

void RowDifference::findGrowth(std::span<const std::uint32_t> a) {
    m_growth.assign((a.size() + 1) * m_words, ~std::uint64_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        const std::uint64_t* previous = m_growth.data() + i * m_words;
        std::uint64_t* next = m_growth.data() + (i + 1) * m_words;
        const std::uint64_t* places = placesOf(a[i]);
        if (places == nullptr) {
            std::copy(previous, previous + m_words, next);
            continue;
        }
        std::uint64_t carry = 0;
        for (std::size_t word = 0; word < m_words; ++word) {
            const std::uint64_t matches = previous[word] & places[word];
            const std::uint64_t sum = previous[word] + matches;
            const std::uint64_t sumAndCarry = sum + carry;
            carry = (sum < matches || sumAndCarry < sum) ? 1 : 0;
            next[word] = sumAndCarry | (previous[word] & ~places[word]);
        }
    }
}

bool RowDifference::growsAt(std::size_t a, std::size_t b) const {
    return (m_growth[a * m_words + b / bitsPerWord] & bit(b)) == 0;
}

// From the ends to the beginnings.
void RowDifference::collect(std::span<const std::uint32_t> a, std::span<const std::uint32_t> b) {
    m_kept.clear();
    std::size_t i = a.size();
    std::size_t j = b.size();
    while (i > 0 && j > 0) {
        if (a[i - 1] == b[j - 1]) {
            m_kept.push_back({static_cast<std::uint32_t>(--i), static_cast<std::uint32_t>(--j)});
        } else if (growsAt(i, j - 1)) {
            --i;
        } else {
            --j;
        }
    }
    std::reverse(m_kept.begin(), m_kept.end());
}

}  // namespace corvale

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace corvale {

// The minimal edit difference of two short sequences: the fewest elements to take out and to put in that make one the
// other. Myers' O(ND) search finds it sooner where the two are alike, but here they are what is left where nothing else
// was alike; worked out for 64 elements at a time (H. Hyyrö, "Bit-Parallel LCS-length Computation Revisited", AWOCA
// 2004) it costs the same for all, and next to nothing.
class RowDifference {
public:
    // Positions of an element that both sequences keep.
    struct Kept {
        std::uint32_t a = 0;
        std::uint32_t b = 0;

        friend bool operator==(const Kept&, const Kept&) = default;
    };

    // The kept elements, increasing on both sides; the list lives until the next call. Together the sequences have at
    // most `longest` elements. Of several minimal differences it is the one that keeps equal elements as far towards
    // the ends as possible and takes elements of b for put in before it takes those of a for taken out. Time and memory
    // are a sixty-fourth of the product of the lengths.
    const std::vector<Kept>& kept(std::span<const std::uint32_t> a, std::span<const std::uint32_t> b);

    static constexpr std::size_t longest = 2000;

private:
    void findPlaces(std::span<const std::uint32_t> b);
    void findGrowth(std::span<const std::uint32_t> a);
    const std::uint64_t* placesOf(std::uint32_t element) const;
    bool growsAt(std::size_t a, std::size_t b) const;
    void collect(std::span<const std::uint32_t> a, std::span<const std::uint32_t> b);

    std::size_t m_words = 0;                // for one bit an element of b
    std::vector<std::uint32_t> m_elements;  // of b, each once, ascending
    std::vector<std::uint64_t> m_places;    // m_words for each of m_elements: the bits of its positions in b
    // m_words for each number of leading elements of a, 0 included: the bit of a position in b is clear where one more
    // element of b, that one, makes for one more kept element.
    std::vector<std::uint64_t> m_growth;
    std::vector<Kept> m_kept;
};

}  // namespace corvale

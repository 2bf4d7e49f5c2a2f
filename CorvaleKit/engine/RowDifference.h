#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace corvale {

// The minimal edit difference of two short sequences: the fewest elements to take out and put in that make one the
// other. E. W. Myers, "An O(ND) Difference Algorithm and Its Variations", Algorithmica 1 (1986).
class RowDifference {
public:
    // Positions of an element that both sequences keep.
    struct Kept {
        std::uint32_t a = 0;
        std::uint32_t b = 0;

        friend bool operator==(const Kept&, const Kept&) = default;
    };

    // The kept elements, increasing on both sides; the list lives until the next call. Together the sequences have at
    // most `longest` elements. Of several minimal differences the choice is always the same. Time (n + m) d and memory
    // d * d bytes for d differences, at most 4 MB.
    const std::vector<Kept>& kept(std::span<const std::uint32_t> a, std::span<const std::uint32_t> b);

    static constexpr std::size_t longest = 2000;

private:
    // One more difference moves to a neighbouring diagonal: an element of b put in, or one of a taken out.
    struct Step {
        std::size_t differences = 0;
        std::size_t diagonal = 0;  // 0 to differences; a's position minus b's is 2 * diagonal - differences
    };

    std::uint16_t* reached(std::size_t differences) { return &m_reached[differences * (differences + 1) / 2]; }
    bool putsIn(Step step);
    std::size_t start(Step step);
    Step search(std::span<const std::uint32_t> a, std::span<const std::uint32_t> b);
    void collect(Step step);

    // The furthest position in a reached on every diagonal with 0 differences, then with 1, and so on: 1 + 2 + 3 + …
    // entries.
    std::vector<std::uint16_t> m_reached;
    std::vector<Kept> m_kept;
};

}  // namespace corvale

#pragma once

#include <compare>
#include <cstddef>
#include <iterator>

namespace corvale {

// Walks through a list that makes its items when they are asked for, `list[index]`. The list must outlive it; two
// iterators that are compared or subtracted belong to the same list.
template <typename List, typename Item>
class IndexIterator {
public:
    using iterator_concept = std::random_access_iterator_tag;
    // What predates concepts asks more of random access: items that stay where they are.
    using iterator_category = std::input_iterator_tag;
    using value_type = Item;
    using difference_type = std::ptrdiff_t;
    using pointer = const Item*;
    using reference = Item;

    IndexIterator() = default;
    IndexIterator(const List& list, std::size_t index) : m_list(&list), m_index(index) {}

    Item operator*() const { return (*m_list)[m_index]; }
    Item operator[](std::ptrdiff_t steps) const { return *(*this + steps); }

    IndexIterator& operator++() { return *this += 1; }
    IndexIterator& operator--() { return *this -= 1; }
    IndexIterator operator++(int) {
        const IndexIterator before = *this;
        ++*this;
        return before;
    }
    IndexIterator operator--(int) {
        const IndexIterator before = *this;
        --*this;
        return before;
    }
    IndexIterator& operator+=(std::ptrdiff_t steps) {
        m_index += static_cast<std::size_t>(steps);
        return *this;
    }
    IndexIterator& operator-=(std::ptrdiff_t steps) {
        m_index -= static_cast<std::size_t>(steps);
        return *this;
    }

    friend IndexIterator operator+(IndexIterator place, std::ptrdiff_t steps) { return place += steps; }
    friend IndexIterator operator+(std::ptrdiff_t steps, IndexIterator place) { return place += steps; }
    friend IndexIterator operator-(IndexIterator place, std::ptrdiff_t steps) { return place -= steps; }
    friend std::ptrdiff_t operator-(const IndexIterator& a, const IndexIterator& b) {
        return static_cast<std::ptrdiff_t>(a.m_index - b.m_index);
    }
    friend bool operator==(const IndexIterator& a, const IndexIterator& b) { return a.m_index == b.m_index; }
    friend std::strong_ordering operator<=>(const IndexIterator& a, const IndexIterator& b) {
        return a.m_index <=> b.m_index;
    }

private:
    const List* m_list = nullptr;
    std::size_t m_index = 0;
};

}  // namespace corvale

#pragma once

#include <absl/container/flat_hash_map.h>
#include <absl/container/flat_hash_set.h>

#include <cstddef>
#include <memory>
#include <utility>

namespace corvale {

// absl's hash tables where memory may run out. Theirs believe in the places of a larger table before they have its
// memory: when that is refused, they go on to read and free what is not theirs. These have the memory before the table
// changes, so that std::bad_alloc leaves it whole. Keys must move, and be hashed and compared, without throwing
// while a table grows, and values must be made so. The functions are those of absl, of which there are as many as we
// need; none takes anything out but clear().
template <typename Table>
class SafelyGrowing {
public:
    SafelyGrowing() = default;
    SafelyGrowing(const typename Table::hasher& hash, const typename Table::key_equal& equal)
        : m_table(0, hash, equal) {}

    std::size_t size() const { return m_table.size(); }
    bool empty() const { return m_table.empty(); }
    auto end() const { return m_table.end(); }

    void clear() { m_table.clear(); }
    void reserve(std::size_t count) {
        if (count > room()) {
            growTo(count);
        }
    }

    template <typename Key>
    auto find(const Key& key) {
        return m_table.find(key);
    }
    template <typename Key>
    auto find(const Key& key) const {
        return m_table.find(key);
    }
    template <typename Key>
    bool contains(const Key& key) const {
        return m_table.contains(key);
    }
    template <typename Key>
    void prefetch(const Key& key) const {
        m_table.prefetch(key);
    }

    template <typename Value>
    auto insert(Value&& value) {
        makeRoom();
        return m_table.insert(std::forward<Value>(value));
    }
    // NOLINTBEGIN(readability-identifier-naming): by the names that a reader knows from absl and the standard library
    template <typename Key, typename... Arguments>
    auto try_emplace(Key&& key, Arguments&&... arguments) {
        makeRoom();
        return m_table.try_emplace(std::forward<Key>(key), std::forward<Arguments>(arguments)...);
    }
    template <typename Key, typename Value>
    auto insert_or_assign(Key&& key, Value&& value) {
        makeRoom();
        return m_table.insert_or_assign(std::forward<Key>(key), std::forward<Value>(value));
    }
    template <typename Key, typename Construct>
    auto lazy_emplace(const Key& key, Construct&& construct) {
        makeRoom();
        return m_table.lazy_emplace(key, std::forward<Construct>(construct));
    }
    // NOLINTEND(readability-identifier-naming)
    template <typename Key>
    auto& operator[](Key&& key) {
        makeRoom();
        return m_table[std::forward<Key>(key)];
    }

private:
    // How many it holds at least before it would grow by itself.
    std::size_t room() const {
        const std::size_t places = m_table.capacity();
        return places - places / 8 - (places == 7 ? 1 : 0);
    }

    void makeRoom() {
        if (m_table.size() >= room()) [[unlikely]] {
            growTo(m_table.size() + 1);
        }
    }

    void growTo(std::size_t count) {
        // Until it has its memory it has nothing to give back, and must not try to.
        alignas(Table) std::byte place[sizeof(Table)];
        Table* const larger = std::construct_at(
            reinterpret_cast<Table*>(place), std::size_t{0}, m_table.hash_function(), m_table.key_eq());
        larger->reserve(count);
        const std::unique_ptr<Table, void (*)(Table*)> guard(larger, [](Table* table) { table->~Table(); });
        larger->merge(m_table);
        m_table.swap(*larger);
    }

    Table m_table;
};

template <typename Key, typename... Rest>
using HashSet = SafelyGrowing<absl::flat_hash_set<Key, Rest...>>;

template <typename Key, typename Value, typename... Rest>
using HashMap = SafelyGrowing<absl::flat_hash_map<Key, Value, Rest...>>;

}  // namespace corvale

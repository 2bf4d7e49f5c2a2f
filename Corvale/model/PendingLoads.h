#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "Corvale/model/LoadedFile.h"

namespace corvale {

// Which reads are under way, and for which side. A side has one at most: a newer one makes the result of an older one
// unwanted. Reads that were started together arrive together or not at all.
class PendingLoads {
public:
    using Id = std::uint64_t;

    Id start(Side side);
    std::vector<std::pair<Side, Id>> startTogether(const std::vector<Side>& sides);

    // False once the read was superseded or dropped.
    bool isCurrent(Id id) const { return find(id) != nullptr; }
    bool isPending(Side side) const { return m_loads[place(side)].has_value(); }
    bool empty() const { return !m_loads[0] && !m_loads[1]; }

    // `id` is current.
    void arrive(Id id, LoadedFile file);
    // Drops it and those started together with it. `id` is current.
    void fail(Id id);
    void drop(Side side) { m_loads[place(side)].reset(); }
    // What is being read for one side is wanted for the other.
    void swap() { std::swap(m_loads[0], m_loads[1]); }

    // The files that wait for no other one any more, with the side that wants them now.
    std::vector<std::pair<Side, LoadedFile>> takeArrived();

private:
    struct Load {
        Id id = 0;
        Id group = 0;
        std::optional<LoadedFile> file;
    };

    static std::size_t place(Side side) { return static_cast<std::size_t>(side); }
    const Load* find(Id id) const;
    bool isWaiting(Id group) const;

    std::array<std::optional<Load>, 2> m_loads;
    Id m_lastId = 0;
};

}  // namespace corvale

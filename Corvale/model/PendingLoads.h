#pragma once

#include <QUrl>
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "Corvale/model/CancelFlag.h"
#include "Corvale/model/LoadedFile.h"

namespace corvale {

// Which reads are under way, and for which side. A side has one at most: a newer one makes the result of an older one
// unwanted. Reads that were started together arrive together or not at all.
class PendingLoads {
public:
    using Id = std::uint64_t;

    // How the file of a side is read anew.
    struct Reread {
        std::int64_t sheet = 0;  // index into the names that the file has now
        std::optional<std::int64_t> headerRow;
        bool fromDisk = false;  // else from the bytes at hand

        friend bool operator==(const Reread&, const Reread&) = default;
    };

    struct Arrived {
        Side side = Side::before;  // the one that wants it now
        LoadedFile file;
        bool keepsMatch = false;
    };

    // What is still under way when this object goes is asked to stop.
    ~PendingLoads();
    PendingLoads() = default;
    PendingLoads(const PendingLoads&) = delete;
    PendingLoads& operator=(const PendingLoads&) = delete;

    // Of another file.
    Id start(Side side, const QUrl& url);
    // Of the side's own file with other choices. In place of an older such read it stays with those started together.
    Id restart(Side side, const Reread& reread);
    // Of the same files as they are on disk now; such reads keep the chosen match.
    std::vector<std::pair<Side, Id>> startTogether(const std::vector<std::pair<Side, Reread>>& rereads);

    // False once the read was superseded or dropped.
    bool isCurrent(Id id) const { return find(id) != nullptr; }
    bool isPending(Side side) const { return m_loads[place(side)].has_value(); }
    bool empty() const { return !m_loads[0] && !m_loads[1]; }
    // Asks the read to stop once it is superseded or dropped. `id` is current.
    std::shared_ptr<const CancelFlag> flag(Id id) const { return find(id)->flag; }
    // Of the other files that are being read.
    std::vector<QUrl> urls() const;
    // None when nothing is read for the side, or another file.
    std::optional<Reread> reread(Side side) const;

    // The match that the user chose meanwhile is to be kept by all that are under way.
    void keepMatch();
    // `id` is current.
    void arrive(Id id, LoadedFile file);
    // Drops it and those started together with it. `id` is current.
    void fail(Id id);
    void drop(Side side);
    // What is being read for one side is wanted for the other.
    void swap() { std::swap(m_loads[0], m_loads[1]); }

    // The files that wait for no other one any more.
    std::vector<Arrived> takeArrived();
    // Files that had arrived and were dropped while they waited: large values, for the caller to destroy elsewhere.
    std::vector<LoadedFile> takeUnwanted() { return std::exchange(m_unwanted, {}); }

private:
    struct Load {
        Id id = 0;
        Id group = 0;
        QUrl url;  // of another file
        std::optional<Reread> reread;
        bool keepsMatch = false;
        std::shared_ptr<CancelFlag> flag = std::make_shared<CancelFlag>();
        std::optional<LoadedFile> file;
    };

    static std::size_t place(Side side) { return static_cast<std::size_t>(side); }
    void put(Side side, Load load);
    const Load* find(Id id) const;
    bool isWaiting(Id group) const;

    std::array<std::optional<Load>, 2> m_loads;
    std::vector<LoadedFile> m_unwanted;
    Id m_lastId = 0;
};

}  // namespace corvale

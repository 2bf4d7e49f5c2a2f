#include "Corvale/model/PendingLoads.h"

#include <algorithm>

namespace corvale {

PendingLoads::Id PendingLoads::start(Side side) { return startTogether({side}).front().second; }

std::vector<std::pair<Side, PendingLoads::Id>> PendingLoads::startTogether(const std::vector<Side>& sides) {
    const Id group = m_lastId + 1;
    std::vector<std::pair<Side, Id>> started;
    for (const Side side : sides) {
        m_loads[place(side)] = Load{++m_lastId, group, std::nullopt};
        started.emplace_back(side, m_lastId);
    }
    return started;
}

void PendingLoads::arrive(Id id, LoadedFile file) {
    for (auto& load : m_loads) {
        if (load && load->id == id) {
            load->file = std::move(file);
            return;
        }
    }
}

void PendingLoads::fail(Id id) {
    const Id group = find(id)->group;
    for (auto& load : m_loads) {
        if (load && load->group == group) {
            load.reset();
        }
    }
}

std::vector<std::pair<Side, LoadedFile>> PendingLoads::takeArrived() {
    std::vector<Side> ready;
    for (const Side side : {Side::before, Side::after}) {
        const auto& load = m_loads[place(side)];
        if (load && !isWaiting(load->group)) {
            ready.push_back(side);
        }
    }
    std::vector<std::pair<Side, LoadedFile>> files;
    for (const Side side : ready) {
        files.emplace_back(side, std::move(*m_loads[place(side)]->file));
        drop(side);
    }
    return files;
}

const PendingLoads::Load* PendingLoads::find(Id id) const {
    for (const auto& load : m_loads) {
        if (load && load->id == id) {
            return &*load;
        }
    }
    return nullptr;
}

bool PendingLoads::isWaiting(Id group) const {
    return std::any_of(m_loads.begin(), m_loads.end(), [group](const std::optional<Load>& load) {
        return load && load->group == group && !load->file;
    });
}

}  // namespace corvale

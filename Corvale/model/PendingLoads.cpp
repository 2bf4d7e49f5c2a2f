#include "Corvale/model/PendingLoads.h"

#include <algorithm>

namespace corvale {

PendingLoads::~PendingLoads() {
    drop(Side::before);
    drop(Side::after);
}

PendingLoads::Id PendingLoads::start(Side side, const QUrl& url) {
    const Id id = ++m_lastId;
    put(side, {.id = id, .group = id, .url = url});
    return id;
}

PendingLoads::Id PendingLoads::restart(Side side, const Reread& reread) {
    const auto& older = m_loads[place(side)];
    const Id id = ++m_lastId;
    const Id group = older && older->reread ? older->group : id;
    put(side, {.id = id, .group = group, .reread = reread});
    return id;
}

std::vector<std::pair<Side, PendingLoads::Id>> PendingLoads::startTogether(
    const std::vector<std::pair<Side, Reread>>& rereads) {
    const Id group = m_lastId + 1;
    std::vector<std::pair<Side, Id>> started;
    for (const auto& [side, reread] : rereads) {
        put(side, {.id = ++m_lastId, .group = group, .reread = reread, .keepsMatch = true});
        started.emplace_back(side, m_lastId);
    }
    return started;
}

std::vector<QUrl> PendingLoads::urls() const {
    std::vector<QUrl> urls;
    for (const auto& load : m_loads) {
        if (load && !load->reread) {
            urls.push_back(load->url);
        }
    }
    return urls;
}

std::optional<PendingLoads::Reread> PendingLoads::reread(Side side) const {
    const auto& load = m_loads[place(side)];
    return load ? load->reread : std::nullopt;
}

void PendingLoads::keepMatch() {
    for (auto& load : m_loads) {
        if (load) {
            load->keepsMatch = true;
        }
    }
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
    for (const Side side : {Side::before, Side::after}) {
        const auto& load = m_loads[place(side)];
        if (load && load->group == group) {
            drop(side);
        }
    }
}

void PendingLoads::drop(Side side) {
    auto& load = m_loads[place(side)];
    if (!load) {
        return;
    }
    load->flag->cancel();
    if (load->file) {
        m_unwanted.push_back(std::move(*load->file));
    }
    load.reset();
}

std::vector<PendingLoads::Arrived> PendingLoads::takeArrived() {
    std::vector<Side> ready;
    for (const Side side : {Side::before, Side::after}) {
        const auto& load = m_loads[place(side)];
        if (load && !isWaiting(load->group)) {
            ready.push_back(side);
        }
    }
    std::vector<Arrived> arrived;
    for (const Side side : ready) {
        auto& load = m_loads[place(side)];
        arrived.push_back({side, std::move(*load->file), load->keepsMatch});
        load.reset();
    }
    return arrived;
}

void PendingLoads::put(Side side, Load load) {
    drop(side);
    m_loads[place(side)] = std::move(load);
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

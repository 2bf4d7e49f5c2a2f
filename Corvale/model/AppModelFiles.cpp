// What AppModel does with files: opening, choosing sheets and header rows, closing, swapping.

#include <utility>

#include "Corvale/model/AppModel.h"
#include "Corvale/model/FailureTexts.h"
#include "Corvale/model/FileLoading.h"
#include "Corvale/model/ModelOperation.h"
#include "CorvaleKit/loading/DataLoader.h"
#include "CorvaleKit/reports/SampleData.h"

namespace corvale {

namespace {

LoadedFile sampleFile(const DataTable& table) {
    LoadedFile file;
    file.name = table.sourceName();
    file.table = table;
    return file;
}

}  // namespace

void AppModel::choose(Side side) {
    const Operation operation(*this);
    const bool isBefore = side == Side::before;
    Platform::OpenPanel panel;
    panel.message = isBefore ? tr("Choose the older file (Before), or select two files to fill both sides.")
                             : tr("Choose the newer file (After).");
    panel.allowsSeveral = isBefore;
    panel.extensions = {QStringLiteral("xlsx"), QStringLiteral("csv"), QStringLiteral("tsv"), QStringLiteral("txt")};
    m_platform.showOpenPanel(
        panel, m_jobs.whileAlive(std::function([this, side](const QList<QUrl>& urls) { open(urls, side); })));
}

void AppModel::open(const QList<QUrl>& urls, Side side) {
    const Operation operation(*this);
    if (urls.size() == 1) {
        load(urls.front(), side);
    } else if (urls.size() > 1) {
        load(urls[0], Side::before);
        load(urls[1], Side::after);
    }
}

void AppModel::load(const QUrl& url, Side side) {
    const Operation operation(*this);
    try {
        DataLoader::refuseByName(FileLoading::nameOf(url));
    } catch (const DataLoader::Failure&) {
        tell(FailureTexts::ofLoading(std::current_exception()));
        return;
    }
    interruptComparison();
    startLoad(m_pendingLoads.start(side, url), [&platform = m_platform, url](const CancelCheck& isCancelled) {
        return FileLoading::read(platform, url, isCancelled);
    });
}

void AppModel::setSheet(std::int64_t index, Side side) {
    const Operation operation(*this);
    if (!canReread(side) || index < 0 || index >= static_cast<std::int64_t>(file(side)->sheetNames.size())) {
        return;
    }
    const PendingLoads::Reread wanted = wantedReading(side);
    if (index != wanted.sheet) {
        restart(side, {index, std::nullopt, wanted.fromDisk});
    }
}

void AppModel::setHeaderRow(std::optional<std::int64_t> row, Side side) {
    const Operation operation(*this);
    if (!canReread(side) || (row && *row < 1)) {
        return;
    }
    const PendingLoads::Reread wanted = wantedReading(side);
    if (row != wanted.headerRow) {
        restart(side, {wanted.sheet, row, wanted.fromDisk});
    }
}

// A sample has no bytes, and a file that another one is about to replace is not worth reading.
bool AppModel::canReread(Side side) const {
    return file(side) && file(side)->data && (!m_pendingLoads.isPending(side) || m_pendingLoads.reread(side));
}

// The choices that the file will have once all is read.
PendingLoads::Reread AppModel::wantedReading(Side side) const {
    return m_pendingLoads.reread(side).value_or(PendingLoads::Reread{file(side)->sheet, file(side)->headerRow, false});
}

void AppModel::restart(Side side, const PendingLoads::Reread& reread) {
    interruptComparison();
    startReread(side, m_pendingLoads.restart(side, reread), reread);
}

void AppModel::startReread(Side side, PendingLoads::Id id, const PendingLoads::Reread& reread) {
    LoadedFile old = *file(side);
    old.sheet = reread.sheet;
    old.headerRow = reread.headerRow;
    if (reread.fromDisk) {
        startLoad(id, [&platform = m_platform, old](const CancelCheck& isCancelled) {
            return FileLoading::readAgain(platform, old, isCancelled);
        });
    } else {
        startLoad(id, [old](const CancelCheck&) { return FileLoading::reparsed(old); });
    }
}

void AppModel::close(Side side) {
    const Operation operation(*this);
    m_pendingLoads.drop(side);
    if (file(side)) {
        stopComparing();
        abandonSuggestion();
        setFile(side, std::nullopt);
        set(m_suggestedKey, std::optional<std::string>(), &AppModel::suggestedKeyChanged);
        clearResult();
    }
    storeArrivedFiles();
}

void AppModel::swap() {
    const Operation operation(*this);
    interruptSuggestion();
    std::swap(m_files[0], m_files[1]);
    if (m_files[0] || m_files[1]) {
        noteChange(&AppModel::beforeChanged);
        noteChange(&AppModel::afterChanged);
    }
    m_pendingLoads.swap();
    m_isResultSwapped = !m_isResultSwapped;
    followNamesOfBefore();
    m_compareOwed = hasBothFiles();
    storeArrivedFiles();
}

void AppModel::openSamples() {
    const Operation operation(*this);
    interruptComparison();
    m_pendingLoads.drop(Side::before);
    m_pendingLoads.drop(Side::after);
    const SampleData::Pair samples = SampleData::stock();
    setFile(Side::before, sampleFile(samples.before));
    setFile(Side::after, sampleFile(samples.after));
    m_isPairNew = true;
    m_isMatchChosen = false;
    storeArrivedFiles();
}

void AppModel::compareAgain() {
    const Operation operation(*this);
    std::vector<std::pair<Side, PendingLoads::Reread>> rereads;
    for (const Side side : {Side::before, Side::after}) {
        if (canReread(side)) {
            rereads.emplace_back(side, wantedReading(side));
            rereads.back().second.fromDisk = true;
        }
    }
    if (rereads.empty()) {
        compareWhenSettled();
        return;
    }
    interruptComparison();
    for (const auto& [side, id] : m_pendingLoads.startTogether(rereads)) {
        startReread(side, id, *m_pendingLoads.reread(side));
    }
}

void AppModel::startLoad(PendingLoads::Id id, std::function<LoadedFile(const CancelCheck&)> work) {
    followPendingLoads();
    m_jobs.run(
        [work = std::move(work), isCancelled = checkOf(m_pendingLoads.flag(id))] {
            stopIfCancelled(isCancelled);
            return work(isCancelled);
        },
        [this, id](Outcome<LoadedFile>& outcome) { finishLoad(id, outcome); });
}

void AppModel::finishLoad(PendingLoads::Id id, Outcome<LoadedFile>& outcome) {
    const Operation operation(*this);
    if (!m_pendingLoads.isCurrent(id)) {
        return;
    }
    if (outcome.value) {
        m_pendingLoads.arrive(id, outcome.take());
    } else {
        const auto choices = choicesOfUnread();
        m_pendingLoads.fail(id);
        tell(FailureTexts::ofLoading(outcome.failure));
        for (const auto& [side, reread] : choices) {
            if (!m_pendingLoads.isPending(side)) {
                restart(side, reread);
            }
        }
    }
    storeArrivedFiles();
}

// What the user chose for files that were to be read from disk again, as it can be had from the bytes at hand.
std::vector<std::pair<Side, PendingLoads::Reread>> AppModel::choicesOfUnread() const {
    std::vector<std::pair<Side, PendingLoads::Reread>> choices;
    for (const Side side : {Side::before, Side::after}) {
        const auto reread = m_pendingLoads.reread(side);
        if (reread && reread->fromDisk &&
            (reread->sheet != file(side)->sheet || reread->headerRow != file(side)->headerRow)) {
            choices.emplace_back(side, PendingLoads::Reread{reread->sheet, reread->headerRow, false});
        }
    }
    return choices;
}

void AppModel::storeArrivedFiles() {
    for (auto& [side, file, keepsMatch] : m_pendingLoads.takeArrived()) {
        setFile(side, std::move(file));
        m_isPairNew = true;
        m_isMatchChosen = m_isMatchChosen && keepsMatch;
    }
    followPendingLoads();
    if (!m_pendingLoads.empty()) {
        return;
    }
    if (m_isPairNew) {
        suggestKey();
    } else if (m_compareOwed) {
        startComparing();
    }
}

void AppModel::setFile(Side side, std::optional<LoadedFile> file) {
    auto& current = m_files[static_cast<std::size_t>(side)];
    if (!current && !file) {
        return;
    }
    if (auto old = std::exchange(current, std::move(file))) {
        m_retired.push_back(std::make_shared<LoadedFile>(std::move(*old)));
    }
    noteChange(side == Side::before ? &AppModel::beforeChanged : &AppModel::afterChanged);
}

void AppModel::followPendingLoads() {
    for (LoadedFile& file : m_pendingLoads.takeUnwanted()) {
        m_retired.push_back(std::make_shared<LoadedFile>(std::move(file)));
    }
    std::set<std::string> loading;
    for (const Side side : {Side::before, Side::after}) {
        if (m_pendingLoads.isPending(side)) {
            loading.insert(side == Side::before ? "before" : "after");
        }
    }
    set(m_loading, std::move(loading), &AppModel::loadingChanged);
}

// While files are read, no result of older ones may appear. What was under way is taken up again if reading fails.
void AppModel::interruptComparison() {
    if (m_compareFlag) {
        m_compareOwed = true;
    }
    stopComparing();
    interruptSuggestion();
}

}  // namespace corvale

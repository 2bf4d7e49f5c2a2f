// How AppModel compares and filters.

#include <chrono>
#include <utility>

#include "Corvale/model/AppModel.h"
#include "Corvale/model/FailureTexts.h"
#include "Corvale/model/ModelOperation.h"
#include "Corvale/model/ProgressThrottle.h"
#include "CorvaleKit/engine/DiffEngine.h"

namespace corvale {

void AppModel::setMatch(const MatchChoice& choice) {
    const Operation operation(*this);
    set(m_match, choice, &AppModel::matchChanged);
    // The user's word counts more than a suggestion that is still being looked for.
    m_isMatchChosen = true;
    m_pendingLoads.keepMatch();
    compareWhenSettled();
}

void AppModel::compare() {
    const Operation operation(*this);
    compareWhenSettled();
}

// While files are read or a key is looked for, a comparison could only show what is about to change.
void AppModel::compareWhenSettled() {
    if (isSettled()) {
        startComparing();
    } else {
        m_compareOwed = hasBothFiles();
        m_comparesAfterSuggestion = true;
    }
}

void AppModel::startComparing() {
    m_compareOwed = false;
    if (!hasBothFiles()) {
        return;
    }
    if (m_compareFlag) {
        m_compareFlag->cancel();
    }
    const auto flag = std::make_shared<CancelFlag>();
    set(m_compareFlag, flag, &AppModel::compareFlagChanged);
    const std::uint64_t run = m_compareGeneration + 1;
    set(m_compareGeneration, run, &AppModel::compareGenerationChanged);
    set(m_progress, std::optional(0.0), &AppModel::progressChanged);

    const auto forward = m_jobs.relay(std::function([this, run](double fraction) {
        const Operation delivery(*this);
        if (run == m_compareGeneration && m_compareFlag) {
            set(m_progress, std::optional(fraction), &AppModel::progressChanged);
        }
    }));
    const auto report = [forward, throttle = ProgressThrottle()](double fraction) mutable {
        if (throttle.lets(fraction, std::chrono::steady_clock::now())) {
            forward(fraction);
        }
    };
    m_jobs.run(
        [before = before()->table,
         after = after()->table,
         match = m_match.rowMatch(),
         options = m_settings.options,
         style = m_platform.numberStyle(),
         view = resultView(),
         flag,
         report] {
            const DiffEngine::Callbacks callbacks{report, checkOf(flag)};
            return show(std::make_shared<const DiffResult>(
                            DiffEngine::compare(before, after, match, options, style, callbacks)),
                        view,
                        checkOf(flag));
        },
        [this, run, flag](Outcome<ShownResult>& outcome) { finishComparison(run, flag, outcome, Prepared::once); });
}

void AppModel::finishComparison(std::uint64_t run, const std::shared_ptr<CancelFlag>& flag,
                                Outcome<ShownResult>& outcome, Prepared prepared) {
    const Operation operation(*this);
    if (run != m_compareGeneration || flag->isCancelled()) {
        return;
    }
    if (!outcome.value) {
        tell(FailureTexts::ofComparing(outcome.failure));
        endComparison();
        return;
    }
    const ResultView wanted = resultView();
    if (outcome.value->view != wanted && prepared == Prepared::once) {
        // The user filtered or selected meanwhile.
        m_jobs.run(
            [result = outcome.value->result, wanted, flag] { return show(result, wanted, checkOf(flag)); },
            [this, run, flag](Outcome<ShownResult>& again) { finishComparison(run, flag, again, Prepared::twice); });
        return;
    }
    ShownResult shown = outcome.take();
    DiffFilter newest = filterIn(*shown.result, wanted);
    const bool isFiltered = newest == shown.filter;
    shown.filter = std::move(newest);
    if (shown.view.selectedRow != wanted.selectedRow) {
        shown.selectedRow = rowIn(*shown.result, wanted.selectedRow);
    }
    adopt(std::move(shown));
    endComparison();
    if (!isFiltered) {
        // Whoever never stops typing gets the result all the same; what passes the newest filter follows.
        refilter();
    }
}

void AppModel::adopt(ShownResult shown) {
    set(m_filter, std::move(shown.filter), &AppModel::filterChanged);
    stopFiltering();
    replaceResult(std::move(shown.result));
    set(m_visible, std::move(shown.visible), &AppModel::visibleChanged);
    set(m_selectedRow, shown.selectedRow, &AppModel::selectedRowChanged);
}

void AppModel::endComparison() {
    set(m_compareFlag, std::shared_ptr<CancelFlag>(), &AppModel::compareFlagChanged);
    set(m_progress, std::optional<double>(), &AppModel::progressChanged);
}

void AppModel::stopComparing() {
    if (m_compareFlag) {
        m_compareFlag->cancel();
        endComparison();
    }
}

void AppModel::cancel() {
    const Operation operation(*this);
    if (m_pendingLoads.empty()) {
        m_compareOwed = false;
        m_comparesAfterSuggestion = false;
        stopComparing();
        return;
    }
    m_pendingLoads.drop(Side::before);
    m_pendingLoads.drop(Side::after);
    storeArrivedFiles();
}

ResultView AppModel::resultView() const {
    return m_result ? viewOf(*m_result, m_filter, m_selectedRow, {m_match.rowMatch(), m_isResultSwapped})
                    : ResultView{m_filter, std::nullopt, std::nullopt};
}

void AppModel::clearResult() {
    if (!m_result) {
        return;
    }
    DiffFilter filter = m_filter;
    filter.column.reset();
    set(m_filter, std::move(filter), &AppModel::filterChanged);
    stopFiltering();
    replaceResult(nullptr);
    set(m_visible, std::vector<std::int64_t>(), &AppModel::visibleChanged);
    set(m_selectedRow, std::optional<std::int64_t>(), &AppModel::selectedRowChanged);
}

void AppModel::replaceResult(std::shared_ptr<const DiffResult> result) {
    if (auto old = std::exchange(m_result, std::move(result))) {
        m_retired.push_back(std::move(old));
    }
    m_isResultSwapped = false;
    noteChange(&AppModel::resultChanged);
}

// Takes no memory: it runs where nobody could be told that there is none.
void AppModel::followOutdated() {
    const bool isOfAnother = m_result && hasBothFiles() &&
                             !(m_result->before.isCopyOf(before()->table) && m_result->after.isCopyOf(after()->table) &&
                               m_match.gives(m_result->match) && m_result->options == m_settings.options);
    set(m_isResultOutdated, isOfAnother && isSettled() && !m_compareFlag, &AppModel::isResultOutdatedChanged);
}

void AppModel::setFilter(const DiffFilter& filter) {
    const Operation operation(*this);
    DiffFilter wanted = filter;
    const auto columns = m_result ? static_cast<std::int64_t>(m_result->columns.size()) : 0;
    if (wanted.column && (*wanted.column < 0 || *wanted.column >= columns)) {
        wanted.column.reset();
    }
    if (wanted != m_filter) {
        set(m_filter, std::move(wanted), &AppModel::filterChanged);
        refilter();
    }
}

void AppModel::refilter() {
    stopFiltering();
    if (!m_result) {
        return;
    }
    m_filterFlag = std::make_shared<CancelFlag>();
    m_jobs.run(
        [result = m_result, filter = m_filter, isCancelled = checkOf(m_filterFlag)] {
            return filter.apply(*result, isCancelled);
        },
        [this, run = m_filterGeneration](Outcome<std::vector<std::int64_t>>& outcome) {
            const Operation delivery(*this);
            if (run != m_filterGeneration) {
                return;
            }
            if (outcome.value) {
                set(m_visible, outcome.take(), &AppModel::visibleChanged);
            } else {
                tell(FailureTexts::ofComparing(outcome.failure));
            }
        });
}

// A filtering under way comes too late from now on.
void AppModel::stopFiltering() {
    if (m_filterFlag) {
        m_filterFlag->cancel();
    }
    set(m_filterGeneration, m_filterGeneration + 1, &AppModel::filterGenerationChanged);
}

}  // namespace corvale

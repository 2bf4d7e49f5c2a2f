#include "Corvale/updates/FeedUpdaterController.h"

#include <QSettings>
#include <utility>

#include "Corvale/updates/UpdateWindows.h"

namespace corvale {

namespace {

constexpr std::chrono::hours betweenChecks{24};

QString consentKey() { return QStringLiteral("updates/checksOnItsOwn"); }
QString startedKey() { return QStringLiteral("updates/hasStarted"); }
QString lastCheckKey() { return QStringLiteral("updates/lastCheck"); }
QString toldVersionKey() { return QStringLiteral("updates/toldVersion"); }

}  // namespace

FeedUpdaterController::FeedUpdaterController(Configuration configuration, QSettings& settings, UpdateWindows& windows)
    : m_configuration(std::move(configuration)), m_settings(settings), m_windows(windows) {
    connect(&m_schedule, &QTimer::timeout, this, &FeedUpdaterController::checkWhenDue);
}

void FeedUpdaterController::startUpdater() {
    const bool isFirstStart = !m_settings.value(startedKey(), false).toBool();
    m_settings.setValue(startedKey(), true);
    if (m_settings.contains(consentKey())) {
        checkWhenDue();
    } else if (!isFirstStart) {
        askForConsent();
    }
    m_schedule.start(m_configuration.betweenLooksAtTheClock);
}

void FeedUpdaterController::askForConsent() {
    m_windows.askForConsent([self = QPointer(this)](bool mayCheck) {
        if (self) {
            self->m_settings.setValue(consentKey(), mayCheck);
            self->checkWhenDue();
        }
    });
}

void FeedUpdaterController::checkWhenDue() {
    if (!m_settings.value(consentKey(), false).toBool() || m_scheduled) {
        return;
    }
    const QDateTime last = m_settings.value(lastCheckKey()).toDateTime();
    const QDateTime now = m_configuration.now();
    // One of tomorrow is of a clock that has been put right since.
    if (!last.isValid() || last > now || last.addDuration(betweenChecks) <= now) {
        fetch(true);
    }
}

void FeedUpdaterController::checkForUpdates() {
    if (!m_interactive) {
        fetch(false);
    }
}

void FeedUpdaterController::fetch(bool isScheduled) {
    (isScheduled ? m_scheduled : m_interactive) = new UpdateRequest(
        UpdateRequest::Method::get,
        m_configuration.feed,
        m_configuration.timeout,
        [this, isScheduled](const UpdateRequest::Answer& answer) { conclude(isScheduled, answer); },
        this);
}

void FeedUpdaterController::conclude(bool isScheduled, const UpdateRequest::Answer& answer) {
    (isScheduled ? m_scheduled : m_interactive) = nullptr;
    // Also when it failed: the next try is tomorrow's, not that of the next hour.
    m_settings.setValue(lastCheckKey(), m_configuration.now());
    const auto items = answer.isWhole ? parseAppcast(answer.body) : std::nullopt;
    const auto update =
        items ? newestUpdate(*items, m_configuration.program.version, m_configuration.system) : std::nullopt;
    if (update && !(isScheduled && wasTold(*update))) {
        offer(*update);
    } else if (!isScheduled && items) {
        m_windows.tell(UpdateTexts::upToDateTitle(), UpdateTexts::upToDate(m_configuration.program));
    } else if (!isScheduled) {
        m_windows.tell(UpdateTexts::couldNotCheckTitle(), UpdateTexts::couldNotCheck(m_configuration.program));
    }
}

// By itself the program speaks of each version once.
bool FeedUpdaterController::wasTold(const AppcastItem& item) const {
    return m_settings.value(toldVersionKey()).toString() == item.version;
}

void FeedUpdaterController::offer(const AppcastItem& item) {
    m_settings.setValue(toldVersionKey(), item.version);
    m_windows.offer(item, [windows = &m_windows, page = item.page] { windows->browse(page); });
}

}  // namespace corvale

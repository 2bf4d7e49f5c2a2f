#include "Corvale/updates/Updater.h"

#include <utility>

#include "Corvale/updates/StandardUpdaterController.h"
#include "Corvale/updates/UpdateWindows.h"

namespace corvale {

UpdateOutlook outlookOf(std::optional<int> httpStatus) {
    const int status = httpStatus.value_or(0);
    // Servers that do not know HEAD say so: 405 or 501 (RFC 9110, 15.5.6 and 15.6.2).
    if ((status >= 200 && status <= 299) || status == 405 || status == 501) {
        return UpdateOutlook::mayHaveUpdate;
    }
    // No feed, no new version.
    return status == 404 || status == 410 ? UpdateOutlook::upToDate : UpdateOutlook::couldNotCheck;
}

Updater::Updater(StandardUpdaterController& controller, UpdateWindows& windows, QUrl endpoint, ProgramIdentity program,
                 UpdateRequest::Milliseconds timeout)
    : m_controller(controller),
      m_windows(windows),
      m_endpoint(std::move(endpoint)),
      m_program(std::move(program)),
      m_timeout(timeout) {}

void Updater::checkForUpdates() {
    if (m_checking) {
        return;
    }
    setChecking(true);
    new UpdateRequest(
        UpdateRequest::Method::head,
        m_endpoint,
        m_timeout,
        [this](const UpdateRequest::Answer& answer) { conclude(outlookOf(answer.status)); },
        this);
}

void Updater::conclude(UpdateOutlook outlook) {
    setChecking(false);
    switch (outlook) {
        case UpdateOutlook::mayHaveUpdate:
            m_controller.checkForUpdates();
            break;
        case UpdateOutlook::upToDate:
            m_windows.tell(UpdateTexts::upToDateTitle(), UpdateTexts::upToDate(m_program));
            break;
        case UpdateOutlook::couldNotCheck:
            m_windows.tell(UpdateTexts::couldNotCheckTitle(), UpdateTexts::couldNotCheck(m_program));
            break;
    }
}

void Updater::setChecking(bool checking) {
    m_checking = checking;
    Q_EMIT checkingChanged();
}

}  // namespace corvale

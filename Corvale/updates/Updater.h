#pragma once

#include <QObject>
#include <QUrl>
#include <cstdint>
#include <optional>

#include "Corvale/updates/UpdateRequest.h"
#include "Corvale/updates/UpdateTexts.h"

namespace corvale {

class StandardUpdaterController;
class UpdateWindows;

// Whether it is worth the wait to look for a new version.
enum class UpdateOutlook : std::uint8_t { mayHaveUpdate, upToDate, couldNotCheck };

// What the answer to a HEAD request to the update endpoint means; without a status, none came.
UpdateOutlook outlookOf(std::optional<int> httpStatus);

// The check that the user asks for: a cheap request gives a clear answer at once when there is nothing new or no
// network, and only otherwise the controller looks in earnest. On the main thread.
class Updater : public QObject {
    Q_OBJECT

public:
    // Controller and windows outlive the updater.
    Updater(StandardUpdaterController& controller, UpdateWindows& windows, QUrl endpoint, ProgramIdentity program,
            UpdateRequest::Milliseconds timeout = UpdateRequest::usualTimeout);

    // True while a check that the user asked for asks the endpoint.
    bool checking() const { return m_checking; }
    // Does nothing while one is under way.
    void checkForUpdates();

Q_SIGNALS:
    void checkingChanged();

private:
    void conclude(UpdateOutlook outlook);
    void setChecking(bool checking);

    StandardUpdaterController& m_controller;
    UpdateWindows& m_windows;
    QUrl m_endpoint;
    ProgramIdentity m_program;
    UpdateRequest::Milliseconds m_timeout;
    bool m_checking = false;
};

}  // namespace corvale

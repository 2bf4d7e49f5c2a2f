#pragma once

#include <QDateTime>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QUrl>
#include <chrono>
#include <functional>

#include "Corvale/updates/Appcast.h"
#include "Corvale/updates/StandardUpdaterController.h"
#include "Corvale/updates/UpdateRequest.h"
#include "Corvale/updates/UpdateTexts.h"

class QSettings;

namespace corvale {

class UpdateWindows;

// Looks into a feed of versions, shows what is new and where it is to be had. It downloads nothing but the feed and
// runs nothing. On the main thread.
class FeedUpdaterController : public QObject, public StandardUpdaterController {
    Q_OBJECT

public:
    struct Configuration {
        QUrl feed;
        ProgramIdentity program;
        UpdateSystem system = UpdateSystem::current();
        UpdateRequest::Milliseconds timeout = UpdateRequest::usualTimeout;
        // How often the clock is looked at. A machine that slept wakes to a check within the hour.
        std::chrono::milliseconds betweenLooksAtTheClock = std::chrono::hours(1);
        std::function<QDateTime()> now = &QDateTime::currentDateTimeUtc;
    };

    // Settings and windows outlive the controller.
    FeedUpdaterController(Configuration configuration, QSettings& settings, UpdateWindows& windows);

    // Asks for consent at the second start: the first minute with a program is no time for questions.
    void startUpdater() override;
    // Does nothing while such a look is under way.
    void checkForUpdates() override;

private:
    void askForConsent();
    void checkWhenDue();
    void fetch(bool isScheduled);
    void conclude(bool isScheduled, const UpdateRequest::Answer& answer);
    bool wasTold(const AppcastItem& item) const;
    void offer(const AppcastItem& item);

    Configuration m_configuration;
    QSettings& m_settings;
    UpdateWindows& m_windows;
    QTimer m_schedule;
    QPointer<UpdateRequest> m_interactive;
    QPointer<UpdateRequest> m_scheduled;
};

}  // namespace corvale

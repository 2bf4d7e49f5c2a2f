#pragma once

namespace corvale {

// Finds new versions and shows them in windows of its own.
class StandardUpdaterController {
public:
    virtual ~StandardUpdaterController() = default;

    // Begins to look by itself about once a day, with the user's consent, and silently when there is nothing new.
    virtual void startUpdater() = 0;
    // Looks now, and says what it found.
    virtual void checkForUpdates() = 0;

protected:
    StandardUpdaterController() = default;
    StandardUpdaterController(const StandardUpdaterController&) = default;
    StandardUpdaterController& operator=(const StandardUpdaterController&) = default;
};

}  // namespace corvale

#pragma once

#include <QString>
#include <functional>

#include "Corvale/updates/Appcast.h"

namespace corvale {

// What the update checks say to the user, and ask. Whoever implements it comes back to the event loop before an answer,
// which comes on the main thread at most once.
class UpdateWindows {
public:
    virtual ~UpdateWindows() = default;

    // An alert with one button.
    virtual void tell(const QString& title, const QString& message) = 0;
    // Whether the program may look for new versions by itself.
    virtual void askForConsent(std::function<void(bool)> answer) = 0;
    // Shows what is new; `open` is called when the user wants to see where it is.
    virtual void offer(const AppcastItem& item, std::function<void()> open) = 0;
    // Shows a page in the user's browser.
    virtual void browse(const QUrl& page) = 0;

protected:
    UpdateWindows() = default;
    UpdateWindows(const UpdateWindows&) = default;
    UpdateWindows& operator=(const UpdateWindows&) = default;
};

}  // namespace corvale

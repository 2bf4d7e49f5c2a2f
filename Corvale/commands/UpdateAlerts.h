#pragma once

#include <QWidget>
#include <utility>

#include "Corvale/commands/AddressOpener.h"
#include "Corvale/updates/UpdateWindows.h"

namespace corvale {

// The update checks' windows over the main one, none of which waits for an answer.
class UpdateAlerts : public UpdateWindows {
public:
    // The window outlives the alerts.
    UpdateAlerts(QWidget& window, AddressOpener opener) : m_window(window), m_opener(std::move(opener)) {}

    void tell(const QString& title, const QString& message) override;
    void askForConsent(std::function<void(bool)> answer) override;
    void offer(const AppcastItem& item, std::function<void()> open) override;
    void browse(const QUrl& page) override;

private:
    QWidget& m_window;
    AddressOpener m_opener;
};

}  // namespace corvale

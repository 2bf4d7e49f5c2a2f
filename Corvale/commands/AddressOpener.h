#pragma once

#include <functional>

class QUrl;
class QWidget;

namespace corvale {

// Opens addresses with the desktop's programs: a browser, one for mail. Where there is none, the user gets the address.
class AddressOpener {
public:
    // Whether a program took the address.
    using Desktop = std::function<bool(const QUrl& address)>;

    // The desktop as Qt knows it.
    AddressOpener();
    explicit AddressOpener(Desktop desktop);

    // What there is to tell stands over the window.
    void open(const QUrl& address, QWidget& window) const;

private:
    Desktop m_desktop;
};

}  // namespace corvale

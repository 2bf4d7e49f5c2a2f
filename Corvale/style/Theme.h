#pragma once

#include <QObject>
#include <QPointer>

#include "Corvale/style/FocusRing.h"
#include "Corvale/style/Palette.h"

class QApplication;

namespace corvale {

class ControlStyle;

// Dresses every widget of the application, and follows the desktop between light and dark while it runs. Made once,
// after the application object and before its first widget; lives on the main thread.
//
// The palette of the application object stays the desktop's own, or a change of it could not be seen; ours goes to the
// widgets.
class Theme : public QObject {
    Q_OBJECT

public:
    explicit Theme(QApplication& application);

    Scheme scheme() const;
    const Palette& palette() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    // The widgets are dressed in the other scheme: paint anew, and take new icons.
    void changed();

private:
    void apply();

    QApplication& m_application;
    Scheme m_scheme;
    QPointer<ControlStyle> m_style;  // belongs to the application object
    FocusRing m_focusRing;
};

}  // namespace corvale

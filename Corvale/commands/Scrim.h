#pragma once

#include <QWidget>

namespace corvale {

class Theme;

// Darkens a window behind a sheet; as large as what it covers.
class Scrim : public QWidget {
    Q_OBJECT

public:
    // A child of `covered`. The theme outlives it.
    Scrim(Theme& theme, QWidget* covered);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Theme& m_theme;
};

}  // namespace corvale

#pragma once

#include <QFrame>

class QTableView;

namespace corvale {

class AppModel;
class DuplicateKeysModel;
class Theme;

// The keys that are on more than one row, in a window that closes at a click elsewhere.
class DuplicateList : public QFrame {
    Q_OBJECT

public:
    // Both outlive the list.
    DuplicateList(AppModel& model, Theme& theme, QWidget* parent);

    // Centred below what opens it, as far as its window allows.
    void openBelow(const QWidget& opener);

Q_SIGNALS:
    void closed();

protected:
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void fitHeight(int most);

    Theme& m_theme;
    DuplicateKeysModel* m_keys;
    QTableView* m_view;
    const QWidget* m_opener = nullptr;
};

}  // namespace corvale

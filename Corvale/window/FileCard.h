#pragma once

#include <QFrame>

#include "Corvale/model/LoadedFile.h"

class QSpacerItem;
class QStackedLayout;

namespace corvale {

class AppModel;
class Button;
class ElidedLabel;
class HeaderRowMenu;
class PopupMenu;
class Theme;

// One side's file, or the place to drop one on.
class FileCard : public QFrame {
    Q_OBJECT

public:
    // Both outlive the card.
    FileCard(Side side, AppModel& model, Theme& theme, QWidget* parent);

    // A drag that would fill this side is over the card or the window.
    bool targeted() const { return m_targeted; }
    void setTargeted(bool targeted);
    // In a narrow window some words give way.
    void setNarrow(bool narrow);

    void refresh();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* makeEmptyPage();
    QWidget* makeLoadingPage();
    QWidget* makeLoadedPage();
    void fillSheets(PopupMenu& menu);
    bool isEmpty() const;
    QString caption() const;
    int sideWidth() const;

    Side m_side;
    AppModel& m_model;
    Theme& m_theme;
    bool m_targeted = false;
    bool m_narrow = false;

    ElidedLabel* m_invitation = nullptr;
    ElidedLabel* m_name = nullptr;
    ElidedLabel* m_size = nullptr;
    Button* m_sheet = nullptr;
    HeaderRowMenu* m_headerRow = nullptr;
    QSpacerItem* m_sideBlock;
    QStackedLayout* m_pages;
    QWidget* m_emptyPage;
    QWidget* m_loadingPage;
    QWidget* m_loadedPage;
};

}  // namespace corvale

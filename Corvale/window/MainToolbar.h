#pragma once

#include <QWidget>

class QSpacerItem;

namespace corvale {

class AppModel;
class Button;
class PopupMenu;
class SearchField;
class SymbolLabel;
class Theme;
class ViewPicker;

// View, which rows are listed, reports, row details, search.
class MainToolbar : public QWidget {
    Q_OBJECT

public:
    // Both outlive the toolbar.
    MainToolbar(AppModel& model, Theme& theme, QWidget* parent);

    void refresh();

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Button* makeMenu(void (MainToolbar::*fill)(PopupMenu&));
    void layOut();
    void fillShow(PopupMenu& menu);
    void fillColumns(PopupMenu& menu);
    void fillExport(PopupMenu& menu);
    QString columnText() const;
    // Lets words go until the rest fits.
    void shrink();
    int widthAt(int level) const;
    void showWords();

    AppModel& m_model;
    Theme& m_theme;
    int m_level = -1;  // how many kinds of words are gone
    SymbolLabel* m_viewLabel;
    ViewPicker* m_view;
    QSpacerItem* m_groupGap;  // before the word Show
    SymbolLabel* m_showLabel;
    Button* m_show;
    Button* m_column;
    Button* m_export;
    Button* m_details;
    SearchField* m_search;
};

}  // namespace corvale

#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "Corvale/window/PopupMenu.h"
#include "CorvaleKit/engine/DiffOptions.h"

namespace corvale {

class AppModel;
class Button;
class Theme;

// How rows are matched and what does not count as a change. Shown while both sides have a file.
class MatchBar : public QWidget {
    Q_OBJECT

public:
    // Both outlive the bar.
    MatchBar(AppModel& model, Theme& theme, QWidget* parent);

    void refresh();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Button* makeMenu(PopupMenu::Checking checking, void (MatchBar::*fill)(PopupMenu&));
    void layOut();
    void fillMatch(PopupMenu& menu);
    void fillNumberStyle(PopupMenu& menu);
    void fillIgnore(PopupMenu& menu);
    void fillIgnoreColumns(PopupMenu& menu);
    void addOption(PopupMenu& menu, const QString& text, bool DiffOptions::*option, const QString& help = {});
    QString keyText(const std::string& column) const;
    QString matchText() const;
    QString automaticStyle() const;
    std::int64_t ignoredColumns() const;
    void change(const std::function<void(DiffOptions&)>& edit);

    AppModel& m_model;
    Theme& m_theme;
    std::vector<PopupMenu*> m_menus;
    QWidget* m_matchLabel;
    Button* m_match;
    Button* m_numberStyle;
    Button* m_ignore;
    Button* m_ignoreColumns;
};

}  // namespace corvale

#pragma once

#include <cstdint>
#include <optional>

#include "Corvale/model/LoadedFile.h"
#include "Corvale/window/Button.h"

namespace corvale {

class AppModel;
class PopupMenu;

// Chooses the row of one side's file that holds the column names.
class HeaderRowMenu : public Button {
    Q_OBJECT

public:
    // Both outlive the menu.
    HeaderRowMenu(Side side, AppModel& model, Theme& theme, QWidget* parent);

    void refresh();

private:
    void fill(PopupMenu& menu);
    void addRow(PopupMenu& menu, std::optional<std::int64_t> row, const QString& text);

    Side m_side;
    AppModel& m_model;
};

}  // namespace corvale

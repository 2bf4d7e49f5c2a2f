#include "Corvale/window/HeaderRowMenu.h"

#include "Corvale/model/AppModel.h"
#include "Corvale/window/PopupMenu.h"
#include "Corvale/window/Wording.h"

namespace corvale {

HeaderRowMenu::HeaderRowMenu(Side side, AppModel& model, Theme& theme, QWidget* parent)
    : Button(Face::inCard, theme, parent), m_side(side), m_model(model) {
    setHelp(tr("Choose the row with the column names (when the file has a title above its table)"));
    setMenu(PopupMenu::Checking::closes, [this](PopupMenu& menu) { fill(menu); });
    refresh();
}

void HeaderRowMenu::refresh() {
    if (const auto& file = m_model.file(m_side)) {
        setLabel(tr("headers in row %1").arg(file->table.headerRowNumber()));
    }
    setAccessibleName(m_side == Side::before ? tr("Header row of the Before file")
                                             : tr("Header row of the After file"));
}

void HeaderRowMenu::fill(PopupMenu& menu) {
    menu.addTitle(tr("Column names are in"));
    if (const auto row = m_model.automaticHeaderRow(m_side)) {
        addRow(menu, std::nullopt, tr("Automatic (row %1)").arg(*row));
    }
    for (const HeaderRowChoice& choice : m_model.headerRowChoices(m_side)) {
        addRow(menu, choice.rowNumber, tr("Row %1: %2").arg(choice.rowNumber).arg(Wording::oneLine(choice.preview)));
    }
}

void HeaderRowMenu::addRow(PopupMenu& menu, std::optional<std::int64_t> row, const QString& text) {
    menu.addItem({.text = text,
                  .action = [this, row] { m_model.setHeaderRow(row, m_side); },
                  .isChecked = [this, row] { return m_model.file(m_side) && m_model.file(m_side)->headerRow == row; }});
}

}  // namespace corvale

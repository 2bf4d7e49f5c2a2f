#pragma once

#include <QWidget>
#include <array>

#include "Corvale/window/ChipLabel.h"
#include "CorvaleKit/engine/DiffFilter.h"

namespace corvale {

class AppModel;
class Button;
class DuplicateList;
class SymbolLabel;
class Theme;

// The counts of the result, which filter the list at a click, and notes on what else differs.
class SummaryStrip : public QWidget {
    Q_OBJECT

public:
    // Both outlive the strip.
    SummaryStrip(AppModel& model, Theme& theme, QWidget* parent);

    // Whether the list of duplicate keys is open.
    bool showDuplicates() const;
    void refresh();

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Chip {
        ChipLabel* label;
        DiffFilter::Show show;
    };

    Chip makeChip(ChipLabel::Kind kind, DiffFilter::Show show);
    QWidget* makeNotes();
    // At the end of the notes.
    Button* addWarning(QWidget& notes);
    void refreshChips();
    void refreshNotes();
    void toggle(DiffFilter::Show show);
    void openDuplicates();
    void moveAlongChips(int step);

    AppModel& m_model;
    Theme& m_theme;
    SymbolLabel* m_verdict;
    std::array<Chip, 4> m_chips;
    Button* m_outdated = nullptr;
    SymbolLabel* m_newColumns = nullptr;
    SymbolLabel* m_removedColumns = nullptr;
    SymbolLabel* m_orderChanged = nullptr;
    SymbolLabel* m_emptyKeys = nullptr;
    SymbolLabel* m_formatOnly = nullptr;
    Button* m_duplicates = nullptr;
    QWidget* m_notes;
    DuplicateList* m_duplicateList;
};

}  // namespace corvale

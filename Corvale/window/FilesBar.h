#pragma once

#include <QWidget>

#include "Corvale/model/LoadedFile.h"

namespace corvale {

class AppModel;
class Button;
class FileCard;
class Theme;

// Before's card, the button that swaps the files, After's card.
class FilesBar : public QWidget {
    Q_OBJECT

public:
    // Both outlive the bar.
    FilesBar(AppModel& model, Theme& theme, QWidget* parent);

    FileCard* card(Side side) const { return side == Side::before ? m_before : m_after; }
    // Highlights the cards that a drop of so many files on the window fills; none for 0.
    void showTargets(qsizetype files);
    // The side that a single file dropped on the window fills: the empty one, After when both have a file.
    Side sideForDrop() const;

    void refresh();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    AppModel& m_model;
    FileCard* m_before;
    Button* m_swap;
    FileCard* m_after;
};

}  // namespace corvale

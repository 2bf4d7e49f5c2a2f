#pragma once

#include <QAbstractScrollArea>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "Corvale/grid/GridColumns.h"

namespace corvale {

class AppModel;
class FieldView;
class Theme;

// The fields of the selected row, one below the other. Has views for those on screen and their neighbours alone, so
// that a thousand columns cost no more than a few; the heights of the others are estimates.
class FieldList : public QAbstractScrollArea {
    Q_OBJECT

public:
    // Both outlive the list.
    FieldList(AppModel& model, const Theme& theme, QWidget* parent);

    // Shows the model's selected row, from the top when `fromTop` is true.
    void refresh(const GridColumns& columns, bool fromTop);
    std::size_t fieldCount() const { return m_heights.size(); }
    // Null while the field is far from what is on screen.
    FieldView* view(std::size_t field) const;
    // How many views there are, shown or kept for later.
    std::size_t viewCount() const { return m_views.size() + m_spare.size(); }

Q_SIGNALS:
    // The fields got another width, which is that of the viewport.
    void fieldWidthChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Range {
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    // Whether the model still has the row that was to be shown: while it tells everybody of a change, others may give
    // this list another size before its own turn comes.
    bool isCurrent() const;
    void catchUp();
    void estimateHeights();
    void sumHeights();
    void updateScrollBar();
    void layOutViews();
    bool measureViews(Range range);
    void placeViews();
    // Those of fields that exist keep the keyboard wherever they are.
    void recycleViews(Range kept);
    bool hasKeyboard(const FieldView& view) const;
    FieldView& viewFor(std::size_t field);
    void fill(FieldView& view, std::size_t field) const;
    FieldView* newView();
    Range fieldsOnScreen() const;
    void ensureFieldOnScreen(std::size_t field);
    std::size_t fieldAt(int y) const;

    AppModel& m_model;
    const Theme& m_theme;
    const GridColumns* m_columns = nullptr;
    std::weak_ptr<const DiffResult> m_result;  // that the columns are of
    std::optional<std::int64_t> m_row;
    std::vector<int> m_heights;
    std::vector<int> m_tops;  // one more than there are fields
    std::map<std::size_t, FieldView*> m_views;
    std::vector<FieldView*> m_spare;
    bool m_isLayingOut = false;
    bool m_isStale = false;    // another row is selected than the fields are of
    bool m_goesToTop = false;  // once they are shown
};

}  // namespace corvale

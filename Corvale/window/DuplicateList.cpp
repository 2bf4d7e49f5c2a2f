#include "Corvale/window/DuplicateList.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>

#include "Corvale/grid/CellText.h"
#include "Corvale/model/AppModel.h"
#include "Corvale/style/Look.h"
#include "Corvale/style/Metrics.h"
#include "Corvale/style/Theme.h"
#include "Corvale/style/Typography.h"
#include "Corvale/window/Drawing.h"
#include "Corvale/window/DuplicateKeysModel.h"

namespace corvale {

namespace {

constexpr int sideMargin = 16;
constexpr int lineHeight = 29;
constexpr int mostLinesShown = 10;
constexpr int leastLinesShown = 3;
constexpr int sideWidth = 78;
constexpr int rowsWidth = 150;
constexpr int distance = 6;  // from what opens it, and from the edges of the window

class LineDelegate : public QStyledItemDelegate {
public:
    LineDelegate(Theme& theme, QWidget* parent) : QStyledItemDelegate(parent), m_theme(theme) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const Palette& palette = m_theme.palette();
        if (option.state.testFlag(QStyle::State_Selected)) {
            painter->fillRect(option.rect, palette.accentTint);
        }
        painter->fillRect(QRect(option.rect.topLeft(), QSize(option.rect.width(), 1)), palette.line);
        const QColor color = index.column() == DuplicateKeysModel::side ? palette.text2 : palette.text;
        Drawing::text(*painter, textRect(option), index.data().toString(), font(index), color, elided(index));
    }

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        const QString text = index.data().toString();
        if (event->type() == QEvent::ToolTip && index.isValid() &&
            Drawing::textWidth(font(index), text) > textRect(option).width()) {
            QToolTip::showText(event->globalPos(), CellText::toolTip(text), view);
            return true;
        }
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }

private:
    static QRect textRect(const QStyleOptionViewItem& option) { return option.rect.adjusted(0, 1, -8, 0); }
    static QFont font(const QModelIndex& index) {
        return fontFor(index.column() == DuplicateKeysModel::key ? TextRole::bodyStrong : TextRole::body);
    }
    static Qt::TextElideMode elided(const QModelIndex& index) {
        return index.column() == DuplicateKeysModel::key ? Qt::ElideMiddle : Qt::ElideRight;
    }

    Theme& m_theme;
};

}  // namespace

DuplicateList::DuplicateList(AppModel& model, Theme& theme, QWidget* parent)
    : QFrame(parent, Qt::Popup),
      m_theme(theme),
      m_keys(new DuplicateKeysModel(model, this)),
      m_view(new QTableView(this)) {
    setAccessibleName(tr("Duplicate keys"));
    setFixedWidth(Metrics::duplicateList);
    auto* const title = new QLabel(tr("Duplicate keys"), this);
    title->setFont(fontFor(TextRole::panelTitle));
    auto* const text = new QLabel(
        tr("These keys are on more than one row. Corvale pairs them in order: the first with the first, and so on."),
        this);
    text->setFont(fontFor(TextRole::secondary));
    setLook(*text, Look::secondaryText);
    text->setWordWrap(true);
    text->setFixedHeight(text->heightForWidth(Metrics::duplicateList - 2 * sideMargin));

    m_view->setModel(m_keys);
    m_view->setItemDelegate(new LineDelegate(theme, m_view));
    m_view->setAccessibleName(tr("Duplicate keys"));
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setShowGrid(false);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setSelectionMode(QAbstractItemView::SingleSelection);
    m_view->setTabKeyNavigation(false);
    m_view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_view->horizontalHeader()->hide();
    m_view->verticalHeader()->hide();
    m_view->verticalHeader()->setMinimumSectionSize(lineHeight);
    m_view->verticalHeader()->setDefaultSectionSize(lineHeight);
    m_view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_view->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_view->horizontalHeader()->setSectionResizeMode(DuplicateKeysModel::key, QHeaderView::Stretch);
    m_view->setColumnWidth(DuplicateKeysModel::side, sideWidth);
    m_view->setColumnWidth(DuplicateKeysModel::rows, rowsWidth);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(sideMargin, 14, sideMargin, 8);
    column->setSpacing(0);
    column->addWidget(title);
    column->addSpacing(4);
    column->addWidget(text);
    column->addSpacing(10);
    column->addWidget(m_view);
    connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
}

void DuplicateList::openBelow(const QWidget& opener) {
    m_opener = &opener;
    m_keys->setOpen(true);
    m_view->setCurrentIndex(m_keys->index(0, DuplicateKeysModel::key));
    m_view->clearSelection();
    const QRect window(opener.window()->mapToGlobal(QPoint()), opener.window()->size());
    const QPoint centre = opener.mapToGlobal(QPoint(opener.width() / 2, opener.height() + distance));
    fitHeight(window.bottom() - distance - centre.y());
    const int farthest = window.right() - width() - distance;
    move(std::clamp(centre.x() - width() / 2, window.left() + distance, std::max(window.left() + distance, farthest)),
         centre.y());
    show();
    m_view->setFocus(Qt::PopupFocusReason);
}

void DuplicateList::fitHeight(int most) {
    const auto showLines = [this](int lines) {
        m_view->setFixedHeight(lineHeight * std::min(m_keys->rowCount(), lines));
        adjustSize();
    };
    showLines(mostLinesShown);
    const int tooHigh = height() - most;
    if (tooHigh > 0) {
        const int lines = (m_view->height() - tooHigh) / lineHeight;
        showLines(std::max(lines, leastLinesShown));
    }
}

void DuplicateList::hideEvent(QHideEvent* event) {
    QFrame::hideEvent(event);
    m_keys->setOpen(false);
    Q_EMIT closed();
}

void DuplicateList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        hide();
    } else {
        QFrame::keyPressEvent(event);
    }
}

void DuplicateList::mousePressEvent(QMouseEvent* event) {
    // A click on what opened the list closes it, and is not to open it again.
    const QPoint inOpener = m_opener->mapFromGlobal(event->globalPosition().toPoint());
    setAttribute(Qt::WA_NoMouseReplay, m_opener->rect().contains(inOpener));
    QFrame::mousePressEvent(event);
}

void DuplicateList::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), m_theme.palette().menu);
    painter.setPen(m_theme.palette().popupBorder);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace corvale

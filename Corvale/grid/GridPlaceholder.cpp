#include "Corvale/grid/GridPlaceholder.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

#include "Corvale/style/Look.h"
#include "Corvale/style/Shapes.h"
#include "Corvale/style/Theme.h"
#include "Corvale/style/Typography.h"

namespace corvale {

namespace {

constexpr int pictureSize = 64;
constexpr int pictureRadius = 16;
constexpr int symbolSize = 34;
constexpr int leastAbove = 16;
constexpr int liftedBy = 96;  // the middle that the eye takes is above that of the pane

QString symbolOf(GridPlaceholder::Subject subject) {
    switch (subject) {
        case GridPlaceholder::Subject::noRowsMatch:
            return QStringLiteral("line.3.horizontal.decrease.circle");
        case GridPlaceholder::Subject::noDifferences:
            return QStringLiteral("checkmark.seal");
        case GridPlaceholder::Subject::noRowSelected:
            break;
    }
    return QStringLiteral("cursorarrow.click");
}

QString titleOf(GridPlaceholder::Subject subject) {
    switch (subject) {
        case GridPlaceholder::Subject::noRowsMatch:
            return GridPlaceholder::tr("No rows match");
        case GridPlaceholder::Subject::noDifferences:
            return GridPlaceholder::tr("No differences");
        case GridPlaceholder::Subject::noRowSelected:
            break;
    }
    return GridPlaceholder::tr("No row selected");
}

QString textOf(GridPlaceholder::Subject subject) {
    switch (subject) {
        case GridPlaceholder::Subject::noRowsMatch:
            return GridPlaceholder::tr("Try another filter, column or search.");
        case GridPlaceholder::Subject::noDifferences:
            return GridPlaceholder::tr("Every row and cell matches, with the options above.");
        case GridPlaceholder::Subject::noRowSelected:
            break;
    }
    return GridPlaceholder::tr("Click a row (or use the arrow keys) to see every cell, before and after.");
}

}  // namespace

// The symbol in its box.
class GridPlaceholder::Picture : public QWidget {
public:
    Picture(const GridPlaceholder& owner, QWidget* parent) : QWidget(parent), m_owner(owner) {
        setFixedSize(pictureSize, pictureSize);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const Palette& palette = m_owner.m_theme.palette();
        const bool isGood = m_owner.subject() == Subject::noDifferences;
        QPainter painter(this);
        Shapes::box(painter,
                    rect(),
                    pictureRadius,
                    isGood ? palette.added.fill : palette.surface2,
                    isGood ? palette.added.fill : palette.line);
        QRect symbol(0, 0, symbolSize, symbolSize);
        symbol.moveCenter(rect().center());
        Shapes::symbol(painter, m_owner.symbol(), isGood ? palette.added.text : palette.text3, symbol);
    }

private:
    const GridPlaceholder& m_owner;
};

GridPlaceholder::GridPlaceholder(Subject subject, const Theme& theme, QWidget* parent)
    : QWidget(parent),
      m_subject(subject),
      m_theme(theme),
      m_picture(new Picture(*this, this)),
      m_title(new QLabel(this)),
      m_text(new QLabel(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 0, 16, liftedBy);
    layout->setSpacing(0);
    layout->addStretch();
    layout->addWidget(m_picture, 0, Qt::AlignHCenter);
    layout->addSpacing(16);
    layout->addWidget(m_title);
    layout->addSpacing(9);
    layout->addWidget(m_text);
    layout->addStretch();
    for (QLabel* label : {m_title, m_text}) {
        label->setAlignment(Qt::AlignHCenter);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    setLook(*m_text, Look::secondaryText);
    updateFonts();
    setSubject(subject);
}

void GridPlaceholder::setSubject(Subject subject) {
    m_subject = subject;
    m_title->setText(titleOf(subject));
    m_text->setText(textOf(subject));
    m_picture->update();
    lift();
}

QString GridPlaceholder::symbol() const { return symbolOf(m_subject); }

QString GridPlaceholder::message() const { return titleOf(m_subject) + QStringLiteral(". ") + textOf(m_subject); }

void GridPlaceholder::updateFonts() {
    m_title->setFont(fontFor(TextRole::stateTitle, font()));
    m_text->setFont(fontFor(TextRole::body, font()));
}

void GridPlaceholder::lift() {
    // Less where the pane is low, or the lines would be pushed into each other.
    const QMargins margins = layout()->contentsMargins();
    const int needed = layout()->totalHeightForWidth(width()) - margins.bottom();
    const int room = height() - needed - 2 * leastAbove;
    layout()->setContentsMargins(margins.left(), 0, margins.right(), std::clamp(room, 0, liftedBy));
}

void GridPlaceholder::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    lift();
}

void GridPlaceholder::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) {
        updateFonts();
    }
    QWidget::changeEvent(event);
}

}  // namespace corvale

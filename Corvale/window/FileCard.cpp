#include "Corvale/window/FileCard.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QStackedLayout>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "Corvale/model/AppModel.h"
#include "Corvale/style/Metrics.h"
#include "Corvale/style/Theme.h"
#include "Corvale/style/Typography.h"
#include "Corvale/window/Button.h"
#include "Corvale/window/Drawing.h"
#include "Corvale/window/ElidedLabel.h"
#include "Corvale/window/FileDrop.h"
#include "Corvale/window/HeaderRowMenu.h"
#include "Corvale/window/ProgressBar.h"
#include "Corvale/window/RowLayout.h"
#include "Corvale/window/Wording.h"

namespace corvale {

namespace {

constexpr int captionMargin = 4;
constexpr int longestSheetName = 150;
constexpr int narrowestSheetName = 48;
constexpr int nameHeight = 20;
constexpr int detailsHeight = 22;
constexpr QSize busyBarSize(Metrics::busyBarWidth, Metrics::busyBarHeight);

}  // namespace

FileCard::FileCard(Side side, AppModel& model, Theme& theme, QWidget* parent)
    : QFrame(parent),
      m_side(side),
      m_model(model),
      m_theme(theme),
      m_sideBlock(new QSpacerItem(Metrics::cardSideWidth, 0, QSizePolicy::Fixed)),
      m_pages(new QStackedLayout),
      m_emptyPage(makeEmptyPage()),
      m_loadingPage(makeLoadingPage()),
      m_loadedPage(makeLoadedPage()) {
    for (QWidget* page : {m_emptyPage, m_loadingPage, m_loadedPage}) {
        m_pages->addWidget(page);
    }
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(1, 0, 0, 0);
    row->setSpacing(0);
    row->addItem(m_sideBlock);
    row->addLayout(m_pages);
    setMinimumHeight(Metrics::cardHeight);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    setAccessibleName(caption());
    setAcceptDrops(true);
    const auto fileChanged = side == Side::before ? &AppModel::beforeChanged : &AppModel::afterChanged;
    connect(&model, fileChanged, this, &FileCard::refresh);
    // What they list is of the file that was.
    connect(&model, fileChanged, m_sheet->menu(), &QMenu::close);
    connect(&model, fileChanged, m_headerRow->menu(), &QMenu::close);
    connect(&model, &AppModel::loadingChanged, this, &FileCard::refresh);
    connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
    refresh();
}

QWidget* FileCard::makeEmptyPage() {
    auto* const page = new QWidget(this);
    auto* const row = new QHBoxLayout(page);
    row->setContentsMargins(4, 0, 14, 0);
    m_invitation = new ElidedLabel(TextRole::cardName, m_theme, page);
    m_invitation->setText(tr("Drop a file here"));
    auto* const formats = new ElidedLabel(TextRole::secondary, m_theme, page);
    formats->setText(tr("Excel (.xlsx), CSV or TSV"));
    m_invitation->setLeastHeight(nameHeight);
    formats->setLeastHeight(detailsHeight);
    auto* const lines = new QVBoxLayout;
    lines->setSpacing(0);
    lines->addStretch();
    lines->addWidget(m_invitation);
    lines->addWidget(formats);
    lines->addStretch();
    row->addLayout(lines, 1);
    auto* const choose = new Button(Button::Face::bordered, m_theme, page);
    choose->setLabel(tr("Choose…"));
    choose->setHelp(m_side == Side::before ? tr("Choose the older file") : tr("Choose the newer file"));
    connect(choose, &Button::clicked, this, [this] { m_model.choose(m_side); });
    row->addWidget(choose);
    return page;
}

QWidget* FileCard::makeLoadingPage() {
    auto* const page = new QWidget(this);
    auto* const row = new QHBoxLayout(page);
    row->setContentsMargins(12, 0, 12, 0);
    auto* const bar = new ProgressBar(m_theme, page);
    bar->setRange(0, 0);
    bar->setFixedSize(busyBarSize);
    bar->setAccessibleName(tr("Opening…"));
    row->addWidget(bar);
    row->addStretch();
    return page;
}

QWidget* FileCard::makeLoadedPage() {
    auto* const page = new QWidget(this);
    m_name = new ElidedLabel(TextRole::cardName, m_theme, page);
    // The end tells months and versions apart.
    m_name->setElided(Qt::ElideMiddle);
    auto* const details = new QWidget(page);
    m_size = new ElidedLabel(TextRole::secondary, m_theme, details);
    m_sheet = new Button(Button::Face::inCard, m_theme, details);
    m_sheet->setHelp(tr("The sheet to compare"));
    m_sheet->setLongestText(longestSheetName);
    m_sheet->setNarrowest(narrowestSheetName);
    m_sheet->setMenu(PopupMenu::Checking::closes, [this](PopupMenu& menu) { fillSheets(menu); });
    m_headerRow = new HeaderRowMenu(m_side, m_model, m_theme, details);
    auto* const close = new Button(Button::Face::flat, m_theme, page);
    close->setSymbol(QStringLiteral("xmark"), 14);
    close->setHelp(m_side == Side::before ? tr("Close the Before file") : tr("Close the After file"));
    close->setAccessibleName(tr("Close this file"));
    connect(close, &Button::clicked, this, [this] { m_model.close(m_side); });

    m_name->setLeastHeight(nameHeight);
    details->setMinimumHeight(detailsHeight);
    auto* const detailsRow = new RowLayout(2, details);
    detailsRow->addWidget(m_size);
    detailsRow->addItem(new QSpacerItem(6, 0));
    detailsRow->addWidget(m_sheet);
    detailsRow->addWidget(m_headerRow);
    detailsRow->setGivingWay({m_sheet, m_size});
    auto* const nameRow = new QHBoxLayout;
    nameRow->setSpacing(8);
    nameRow->addWidget(m_name, 1, Qt::AlignBottom);
    nameRow->addWidget(close, 0, Qt::AlignTop);
    auto* const lines = new QVBoxLayout(page);
    lines->setContentsMargins(12, 7, 8, 0);
    lines->setSpacing(0);
    lines->addLayout(nameRow);
    lines->addWidget(details);
    lines->addStretch();
    return page;
}

void FileCard::refresh() {
    const auto& file = m_model.file(m_side);
    m_pages->setCurrentWidget(m_model.isLoading(m_side) ? m_loadingPage : file ? m_loadedPage : m_emptyPage);
    if (file) {
        m_name->setText(Wording::oneLine(file->name));
        m_size->setText(Wording::tableSize(file->table));
        m_sheet->setVisible(!file->sheetNames.empty());
        if (!file->sheetNames.empty()) {
            const auto sheet = static_cast<std::size_t>(file->sheet);
            m_sheet->setLabel(Wording::oneLine(file->sheetNames[sheet]), tr("Sheet: "));
        }
        m_headerRow->refresh();
    }
    update();
}

void FileCard::fillSheets(PopupMenu& menu) {
    const auto& file = m_model.file(m_side);
    for (std::int64_t sheet = 0; file && sheet < static_cast<std::int64_t>(file->sheetNames.size()); ++sheet) {
        menu.addItem(
            {.text = Wording::menuText(file->sheetNames[static_cast<std::size_t>(sheet)]),
             .action = [this, sheet] { m_model.setSheet(sheet, m_side); },
             .isChecked = [this, sheet] { return m_model.file(m_side) && m_model.file(m_side)->sheet == sheet; }});
    }
}

void FileCard::setTargeted(bool targeted) {
    if (targeted != m_targeted) {
        m_targeted = targeted;
        m_invitation->setHighlighted(targeted);
        m_name->setHighlighted(targeted);
        update();
    }
}

void FileCard::setNarrow(bool narrow) {
    if (narrow == m_narrow) {
        return;
    }
    m_narrow = narrow;
    m_sheet->setPrefixShown(!narrow);
    m_sideBlock->changeSize(sideWidth(), 0, QSizePolicy::Fixed);
    layout()->invalidate();
    update();
}

bool FileCard::isEmpty() const { return !m_model.file(m_side) && !m_model.isLoading(m_side); }

QString FileCard::caption() const { return m_side == Side::before ? tr("Before file") : tr("After file"); }

// Other languages have longer words for the two sides.
int FileCard::sideWidth() const {
    const int captionWidth = Drawing::textWidth(fontFor(TextRole::caption), caption()) + 2 * captionMargin;
    return std::max(captionWidth, m_narrow ? Metrics::cardSideWidthNarrow : Metrics::cardSideWidth);
}

void FileCard::dragEnterEvent(QDragEnterEvent* event) {
    const qsizetype files = FileDrop::take(*event).size();
    setTargeted(files == 1);
    // Two fill both sides wherever they are dropped: that is for the window to show.
    event->setAccepted(files == 1);
}

void FileCard::dragLeaveEvent(QDragLeaveEvent*) { setTargeted(false); }

void FileCard::dropEvent(QDropEvent* event) {
    setTargeted(false);
    if (const QList<QUrl> files = FileDrop::take(*event); !files.isEmpty()) {
        m_model.open(files, m_side);
    }
}

void FileCard::paintEvent(QPaintEvent*) {
    const Palette& palette = m_theme.palette();
    QPainter painter(this);
    const QRect side = QStyle::visualRect(layoutDirection(), rect(), QRect(0, 0, sideWidth(), height()));
    if (m_targeted) {
        Drawing::dashedBox(painter, rect(), Metrics::cardRadius, palette.accentTint, palette.accent, 2);
    } else if (isEmpty()) {
        Drawing::dashedBox(painter, rect(), Metrics::cardRadius, Qt::transparent, palette.field, 1);
    } else {
        Drawing::box(painter, rect(), Metrics::cardRadius, palette.surface, Qt::transparent);
        painter.setClipRect(side);
        Drawing::box(painter, rect(), Metrics::cardRadius, palette.surface2, Qt::transparent);
        painter.setClipping(false);
        const bool isRightToLeft = layoutDirection() == Qt::RightToLeft;
        painter.fillRect(isRightToLeft ? side.left() : side.right(), 1, 1, height() - 2, palette.line);
        Drawing::box(painter, rect(), Metrics::cardRadius, Qt::transparent, palette.border);
    }
    const QColor color = m_targeted ? palette.accent : palette.text2;
    const QFont font = fontFor(TextRole::caption);
    const QString shownCaption = isEmpty() ? caption() : Wording::side(m_side);
    Drawing::symbol(painter, QStringLiteral("doc.text.fill"), color, side.adjusted(0, 14, 0, -30), Metrics::cardIcon);
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(side.adjusted(2, 36, -2, -12), Qt::AlignCenter, shownCaption);
}

}  // namespace corvale

#include "Corvale/commands/WelcomeView.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "Corvale/commands/Scrim.h"
#include "Corvale/model/AppModel.h"
#include "Corvale/model/Edit.h"
#include "Corvale/style/Icons.h"
#include "Corvale/style/Look.h"
#include "Corvale/style/Metrics.h"
#include "Corvale/style/Theme.h"
#include "Corvale/style/Typography.h"
#include "Corvale/window/Drawing.h"

namespace corvale {

namespace {

constexpr int sheetWidth = 620;
constexpr int sideMargin = 48;
constexpr int footHeight = 61;
constexpr int tileSize = 44;
constexpr int appIconSize = 80;

// The symbol of a blurb on its tile.
class Tile : public QWidget {
public:
    Tile(QString symbol, Theme& theme, QWidget* parent) : QWidget(parent), m_symbol(std::move(symbol)), m_theme(theme) {
        setFixedSize(tileSize, tileSize);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const Palette& palette = m_theme.palette();
        QPainter painter(this);
        Drawing::box(painter, rect(), 10, palette.accentTint, palette.accentTint);
        Drawing::symbol(painter, m_symbol, palette.accent, rect(), 22);
    }

private:
    QString m_symbol;
    Theme& m_theme;
};

}  // namespace

WelcomeView::WelcomeView(AppModel& model, Theme& theme, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint),
      m_model(model),
      m_theme(theme),
      m_scrim(new Scrim(theme, parent)),
      m_help(new QPushButton(tr("Help"), this)),
      m_sample(new QPushButton(tr("Try the Sample"), this)),
      m_start(new QPushButton(tr("Get Started"), this)) {
    setWindowTitle(tr("Welcome to Corvale"));
    m_help->setAutoDefault(false);
    m_sample->setAutoDefault(false);
    m_start->setDefault(true);
    layOut();
    parent->installEventFilter(this);

    connect(m_help, &QPushButton::clicked, this, &WelcomeView::helpWanted);
    connect(m_sample, &QPushButton::clicked, this, [this] {
        m_model.openSamples();
        accept();
    });
    connect(m_start, &QPushButton::clicked, this, &QDialog::accept);
    connect(this, &QDialog::finished, this, &WelcomeView::beDone);
    connect(&model, &AppModel::sheetChanged, this, &WelcomeView::refresh);
    connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
}

void WelcomeView::layOut() {
    setFixedWidth(sheetWidth);
    auto* const icon = new QLabel(this);
    icon->setPixmap(Icons::application().pixmap(QSize(appIconSize, appIconSize), devicePixelRatioF()));
    auto* const title = new QLabel(tr("Welcome to Corvale"), this);
    title->setFont(fontFor(TextRole::welcomeTitle));
    auto* const column = new QVBoxLayout;
    column->setContentsMargins(sideMargin, 32, sideMargin, 28);
    column->setSpacing(0);
    column->addWidget(icon, 0, Qt::AlignHCenter);
    column->addSpacing(16);
    column->addWidget(title, 0, Qt::AlignHCenter);
    column->addSpacing(26);
    column->addWidget(makeBlurb(QStringLiteral("doc.on.doc"),
                                tr("Two files, one key"),
                                tr("Open the older and newer spreadsheet (.xlsx, CSV or TSV). Corvale suggests the "
                                   "column that identifies each row, like an ID or SKU.")));
    column->addSpacing(20);
    column->addWidget(makeBlurb(QStringLiteral("highlighter"),
                                tr("Every change, highlighted"),
                                tr("Added, removed and changed rows, with the changed cells marked. Ignore case, extra "
                                   "spaces, number formatting or column order.")));
    column->addSpacing(20);
    column->addWidget(makeBlurb(QStringLiteral("lock.shield"),
                                tr("Private by design"),
                                tr("Your files stay on this Mac. No account, no tracking, nothing uploaded.")));
    auto* const sheet = new QVBoxLayout(this);
    sheet->setContentsMargins(0, 0, 0, 0);
    sheet->setSpacing(0);
    sheet->addLayout(column);
    sheet->addLayout(makeButtons());
    sheet->setSizeConstraint(QLayout::SetFixedSize);
}

QWidget* WelcomeView::makeBlurb(const QString& symbol, const QString& title, const QString& text) {
    auto* const blurb = new QWidget(this);
    auto* const heading = new QLabel(title, blurb);
    heading->setFont(fontFor(TextRole::cardName));
    auto* const body = new QLabel(text, blurb);
    setLook(*body, Look::secondaryText);
    body->setFont(fontFor(TextRole::body));
    body->setWordWrap(true);
    body->setFixedWidth(sheetWidth - 2 * sideMargin - tileSize - 18);
    auto* const lines = new QVBoxLayout;
    lines->setContentsMargins(0, 1, 0, 0);
    lines->setSpacing(3);
    lines->addWidget(heading);
    lines->addWidget(body);
    lines->addStretch();
    auto* const row = new QHBoxLayout(blurb);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(18);
    row->addWidget(new Tile(symbol, m_theme, blurb), 0, Qt::AlignTop);
    row->addLayout(lines);
    return blurb;
}

QLayout* WelcomeView::makeButtons() {
    auto* const buttons = new QHBoxLayout;
    buttons->setContentsMargins(20, 14, 20, 14);
    buttons->setSpacing(8);
    buttons->addWidget(m_help);
    buttons->addStretch();
    buttons->addWidget(m_sample);
    buttons->addWidget(m_start);
    return buttons;
}

void WelcomeView::refresh() {
    const bool isWanted = m_model.sheet() == AppModel::Sheet::welcome;
    m_scrim->setVisible(isWanted);
    if (isWanted && !isVisible()) {
        open();
        placeOverWindow();
        m_start->setFocus(Qt::OtherFocusReason);
    } else if (!isWanted && isVisible()) {
        close();
    }
}

void WelcomeView::placeOverWindow() {
    const QRect window = parentWidget()->geometry();
    move(window.x() + (window.width() - width()) / 2, window.y() + std::max(0, (window.height() - height()) / 3));
}

bool WelcomeView::eventFilter(QObject* watched, QEvent* event) {
    const bool isMoved = event->type() == QEvent::Move || event->type() == QEvent::Resize;
    if (watched == parent() && isMoved && isVisible()) {
        placeOverWindow();
    }
    return QDialog::eventFilter(watched, event);
}

void WelcomeView::beDone() {
    Edit::settings(m_model, [](AppSettings& settings) { settings.onboardingDone = true; });
}

void WelcomeView::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    // Rounded also where nothing blends the windows of the screen.
    QPainterPath outline;
    outline.addRoundedRect(rect(), Metrics::panelRadius, Metrics::panelRadius);
    setMask(QRegion(outline.toFillPolygon().toPolygon()));
}

void WelcomeView::paintEvent(QPaintEvent*) {
    const Palette& palette = m_theme.palette();
    QPainter painter(this);
    Drawing::box(painter, rect(), Metrics::panelRadius, palette.window, palette.popupBorder);
    painter.setClipRect(0, 0, width(), height() - footHeight);
    Drawing::box(painter, rect(), Metrics::panelRadius, palette.surface, palette.popupBorder);
    painter.setClipping(false);
    painter.fillRect(1, height() - footHeight, width() - 2, 1, palette.border);
}

}  // namespace corvale

#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QString>
#include <cstdint>
#include <optional>

namespace corvale {

class Theme;

// A count that filters the list: symbol, title, count and perhaps a detail. Its checked state is only what
// setSelected() says, a click does not change it.
class ChipLabel : public QAbstractButton {
    Q_OBJECT

public:
    enum class Kind : std::uint8_t { added, removed, changed, unchanged };

    // The theme outlives the chip.
    ChipLabel(Kind kind, Theme& theme, QWidget* parent);

    const QString& symbol() const { return m_symbol; }
    QColor color() const;
    bool selected() const { return isChecked(); }

    void setCount(std::int64_t count, std::optional<QString> detail);
    void setSelected(bool selected);
    // Without a border, beside something more important.
    void setQuiet(bool quiet);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void nextCheckState() override {}
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QFont titleFont(bool selected) const;
    QFont countFont() const;
    QString countText() const;
    int padding() const;
    void paintFace(QPainter& painter) const;

    Kind m_kind;
    Theme& m_theme;
    QString m_symbol;
    QString m_title;
    std::int64_t m_count = 0;
    std::optional<QString> m_detail;
    bool m_quiet = false;
};

}  // namespace corvale

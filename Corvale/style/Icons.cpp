#include "Corvale/style/Icons.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <algorithm>
#include <utility>

#include "Corvale/style/Shapes.h"
#include "CorvaleKit/base/Require.h"

namespace corvale::Icons {

namespace {

QByteArray drawing(const QString& path) {
    QFile file(path);
    CORVALE_REQUIRE(file.open(QIODevice::ReadOnly), qPrintable(QStringLiteral("there is no drawing ") + path));
    return file.readAll();
}

QByteArray colored(const QString& symbol, const QColor& color) {
    const QString name = QString(symbol).replace(u'.', u'-');
    QByteArray svg = drawing(QStringLiteral(":/corvale/icons/%1.svg").arg(name));
    return svg.replace("currentColor", color.name().toLatin1());
}

QPixmap rendered(const QByteArray& svg, int deviceSize, double opacity) {
    QSvgRenderer renderer(svg);
    CORVALE_REQUIRE(renderer.isValid(), "a drawing is broken");
    QPixmap picture(deviceSize, deviceSize);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setOpacity(opacity);
    renderer.render(&painter, QRectF(0, 0, deviceSize, deviceSize));
    return picture;
}

// The cache key says all that the picture depends on.
QPixmap cached(const QString& symbol, const QColor& color, int deviceSize, qreal ratio) {
    const QString key =
        QStringLiteral("corvale/%1/%2/%3/%4")
            .arg(symbol, color.name(QColor::HexArgb), QString::number(deviceSize), QString::number(ratio));
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture = rendered(colored(symbol, color), deviceSize, color.alphaF());
        picture.setDevicePixelRatio(ratio);
        QPixmapCache::insert(key, picture);
    }
    return picture;
}

class SymbolEngine : public QIconEngine {
public:
    SymbolEngine(QString symbol, const Colors& colors) : m_symbol(std::move(symbol)), m_colors(colors) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const qreal ratio = painter->device()->devicePixelRatioF();
        const int side = std::min(rect.width(), rect.height());
        const QRect square = Shapes::centered(side, rect);
        painter->drawPixmap(square, Icons::pixmap(m_symbol, colorFor(mode, state), side, ratio));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return scaledPixmap(size, mode, state, 1);
    }

    // `size` is in device pixels.
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal ratio) override {
        return cached(m_symbol, colorFor(mode, state), std::min(size.width(), size.height()), ratio);
    }

    QIconEngine* clone() const override { return new SymbolEngine(*this); }

private:
    const QColor& colorFor(QIcon::Mode mode, QIcon::State state) const {
        if (mode == QIcon::Disabled) {
            return m_colors.disabled;
        }
        return state == QIcon::On || mode == QIcon::Selected ? m_colors.on : m_colors.normal;
    }

    QString m_symbol;
    Colors m_colors;
};

}  // namespace

QPixmap pixmap(const QString& symbol, const QColor& color, int size, qreal ratio) {
    return cached(symbol, color, qRound(size * ratio), ratio);
}

QIcon icon(const QString& symbol, const Colors& colors) { return QIcon(new SymbolEngine(symbol, colors)); }

QIcon application() {
    const QByteArray svg = drawing(QStringLiteral(":/corvale/app-icon.svg"));
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        icon.addPixmap(rendered(svg, size, 1));
    }
    return icon;
}

}  // namespace corvale::Icons

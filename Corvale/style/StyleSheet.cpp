#include "Corvale/style/StyleSheet.h"

#include <QFile>
#include <QHash>
#include <QRegularExpression>

#include "CorvaleKit/base/Require.h"

namespace corvale::StyleSheet {

namespace {

QString rules() {
    QFile file(QStringLiteral(":/corvale/style.qss"));
    CORVALE_REQUIRE(file.open(QIODevice::ReadOnly), "the style sheet is part of the program");
    return QString::fromUtf8(file.readAll());
}

QHash<QString, QString> writtenColors(const Palette& palette) {
    QHash<QString, QString> written;
    for (const auto& [name, color] : namedColors(palette)) {
        written.insert(name, color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb));
    }
    return written;
}

}  // namespace

QString make(const Palette& palette) {
    static const QRegularExpression name(QStringLiteral("@(\\w+)"));
    const QHash<QString, QString> colors = writtenColors(palette);
    const QString source = rules();
    QString sheet;
    qsizetype done = 0;
    for (auto match = name.globalMatch(source); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        const auto color = colors.constFind(found.captured(1));
        CORVALE_REQUIRE(color != colors.constEnd(), qPrintable(QStringLiteral("no colour ") + found.captured(1)));
        sheet += QStringView(source).mid(done, found.capturedStart() - done);
        sheet += *color;
        done = found.capturedEnd();
    }
    sheet += QStringView(source).mid(done);
    return sheet;
}

}  // namespace corvale::StyleSheet

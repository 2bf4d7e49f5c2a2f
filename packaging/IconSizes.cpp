#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdlib>
#include <iostream>

namespace {

bool draw(QSvgRenderer& drawing, int size, const QString& path) {
    QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter);
    painter.end();
    return picture.save(path);
}

int fail(const QString& path) {
    std::cerr << path.toStdString() << " cannot be read or written\n";
    return EXIT_FAILURE;
}

}  // namespace

// Draws a square SVG in sizes, at build time. Arguments: the SVG, the folder for the PNGs, the sizes in pixels.
int main(int argc, char** argv) {
    if (argc < 3) {
        return EXIT_FAILURE;
    }
    const QString source = QString::fromLocal8Bit(argv[1]);
    const QDir folder(QString::fromLocal8Bit(argv[2]));
    QSvgRenderer drawing(source);
    if (!drawing.isValid() || !folder.mkpath(QStringLiteral("."))) {
        return fail(source);
    }
    for (int index = 3; index < argc; ++index) {
        const QString size = QString::fromLatin1(argv[index]);
        const QString path = folder.filePath(size + QStringLiteral(".png"));
        if (!draw(drawing, size.toInt(), path)) {
            return fail(path);
        }
    }
    return EXIT_SUCCESS;
}

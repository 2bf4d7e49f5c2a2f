#include "Corvale/commands/AboutPanel.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QSysInfo>
#include <QVBoxLayout>

#include "Corvale/commands/Vendor.h"
#include "Corvale/style/Icons.h"
#include "Corvale/style/Look.h"
#include "Corvale/style/Typography.h"

namespace corvale {

namespace {

constexpr int iconSize = 80;
constexpr int textWidth = 420;

QLabel* makeText(const QString& text, QWidget* parent) {
    auto* const label = new QLabel(text, parent);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignHCenter);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setFixedWidth(textWidth);
    return label;
}

// The libraries that a build is linked with, and the licences under which we may.
QString licenses() {
    return QStringLiteral(
               "Qt %1 — GNU LGPL 3.0\n"
               "Abseil — Apache 2.0\n"
               "Expat — MIT\n"
               "libdeflate — MIT\n"
               "utf8proc — MIT\n"
               "JSON for Modern C++ — MIT")
        .arg(QString::fromLatin1(qVersion()));
}

}  // namespace

QString supportDetails() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return QStringLiteral("Corvale %1\nQt %2 on %3\n%4, %5, kernel %6\nLocale %7\nScreen scale %8")
        .arg(QString::fromUtf8(Vendor::version),
             QString::fromLatin1(qVersion()),
             QGuiApplication::platformName(),
             QSysInfo::prettyProductName(),
             QSysInfo::currentCpuArchitecture(),
             QSysInfo::kernelVersion(),
             QLocale::system().name(),
             screen ? QString::number(screen->devicePixelRatio()) : QStringLiteral("?"));
}

AboutPanel::AboutPanel(QWidget* parent) : AuxiliaryWindow(tr("About Corvale"), parent) { layOut(); }

void AboutPanel::layOut() {
    auto* const icon = new QLabel(this);
    icon->setPixmap(Icons::application().pixmap(QSize(iconSize, iconSize), devicePixelRatioF()));
    auto* const name = makeText(tr("Corvale"), this);
    name->setFont(fontFor(TextRole::helpTitle));
    auto* const version = makeText(tr("Version %1").arg(QString::fromUtf8(Vendor::version)), this);
    setLook(*version, Look::secondaryText);
    auto* const copy = new QPushButton(tr("Copy details for support"), this);
    copy->setAutoDefault(false);
    connect(copy, &QPushButton::clicked, this, [] { QGuiApplication::clipboard()->setText(supportDetails()); });
    auto* const close = new QPushButton(tr("Close"), this);
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(24, 24, 24, 20);
    column->setSpacing(6);
    column->addWidget(icon, 0, Qt::AlignHCenter);
    column->addSpacing(6);
    column->addWidget(name);
    column->addWidget(version);
    column->addSpacing(6);
    column->addWidget(makeText(tr("Compare two spreadsheets by key column and see every changed row and cell"), this));
    column->addWidget(makeText(
        tr("Your spreadsheets stay on this Mac. Questions? Write to %1").arg(QString::fromUtf8(Vendor::supportAddress)),
        this));
    column->addSpacing(10);
    column->addWidget(makeLicenses());
    column->addSpacing(10);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(copy);
    buttons->addStretch();
    buttons->addWidget(close);
    column->addLayout(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

QWidget* AboutPanel::makeLicenses() {
    auto* const text = new QPlainTextEdit(tr("Made with these libraries:") + u'\n' + licenses(), this);
    text->setAccessibleName(tr("Licenses"));
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setFixedHeight(text->fontMetrics().lineSpacing() * 8);
    return text;
}

}  // namespace corvale

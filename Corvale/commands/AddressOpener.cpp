#include "Corvale/commands/AddressOpener.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>
#include <utility>

#include "Corvale/commands/Alert.h"

namespace corvale {

namespace {

class Texts {
    Q_DECLARE_TR_FUNCTIONS(AddressOpener)
};

// As one would type it: of a message to write, whom it goes to.
QString forPeople(const QUrl& address) {
    return address.scheme() == u"mailto" ? address.path() : address.toString(QUrl::FullyEncoded);
}

void showAddress(const QUrl& address, QWidget& window) {
    const bool isMail = address.scheme() == u"mailto";
    const QString text = forPeople(address);
    QMessageBox* const alert = makeAlert(
        window,
        isMail ? Texts::tr("Couldn’t open a mail program") : Texts::tr("Couldn’t open a browser"),
        (isMail ? Texts::tr("The address to write to is %1.") : Texts::tr("The address of the page is %1.")).arg(text));
    alert->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    QObject::connect(
        alert->addButton(Texts::tr("Copy Address"), QMessageBox::ActionRole), &QPushButton::clicked, alert, [text] {
            QGuiApplication::clipboard()->setText(text);
        });
    QPushButton* const ok = alert->addButton(Texts::tr("OK"), QMessageBox::AcceptRole);
    alert->setDefaultButton(ok);
    alert->setEscapeButton(ok);
    alert->open();
}

}  // namespace

AddressOpener::AddressOpener() : AddressOpener(&QDesktopServices::openUrl) {}

AddressOpener::AddressOpener(Desktop desktop) : m_desktop(std::move(desktop)) {}

void AddressOpener::open(const QUrl& address, QWidget& window) const {
    if (!m_desktop(address)) {
        showAddress(address, window);
    }
}

}  // namespace corvale

#include "Corvale/commands/UpdateAlerts.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <algorithm>
#include <utility>

#include "Corvale/commands/Alert.h"

namespace corvale {

namespace {

// What a low screen has room for.
constexpr qsizetype longestNews = 1500;  // characters
constexpr qsizetype mostLinesOfNews = 20;

class Texts {
    Q_DECLARE_TR_FUNCTIONS(UpdateAlerts)
};

// Some publishers write HTML, others plain text, whose line breaks are all the form it has.
bool isHtml(const QString& text) {
    const QStringList lines = text.split(u'\n');
    return std::any_of(lines.begin(), lines.end(), &Qt::mightBeRichText);
}

QString newsOf(const AppcastItem& item) {
    QString news =
        isHtml(item.description) ? QTextDocumentFragment::fromHtml(item.description).toPlainText() : item.description;
    // Where the pictures would be.
    news = news.remove(QChar::ObjectReplacementCharacter).trimmed();
    const QString beginning = news.section(u'\n', 0, mostLinesOfNews - 1).left(longestNews);
    return beginning.size() == news.size() ? news : beginning + u'…';
}

}  // namespace

void UpdateAlerts::tell(const QString& title, const QString& message) {
    QMessageBox* const alert = makeAlert(m_window, title, message);
    alert->addButton(Texts::tr("OK"), QMessageBox::AcceptRole);
    alert->open();
}

void UpdateAlerts::askForConsent(std::function<void(bool)> answer) {
    QMessageBox* const alert = makeAlert(
        m_window,
        Texts::tr("Check for updates automatically?"),
        Texts::tr("About once a day, Corvale can ask whether there is a new version. Nothing about you or your "
                  "files is sent. You can always check yourself from the Help menu."));
    const QPushButton* const yes = alert->addButton(Texts::tr("Check Automatically"), QMessageBox::AcceptRole);
    alert->addButton(Texts::tr("Don’t Check"), QMessageBox::RejectRole);
    // Not only a button ends it: so does the one that closes its window.
    QObject::connect(alert, &QDialog::finished, alert, [alert, yes, answer = std::move(answer)] {
        answer(alert->clickedButton() == yes);
    });
    alert->open();
}

void UpdateAlerts::offer(const AppcastItem& item, std::function<void()> open) {
    const QString news = newsOf(item);
    QString message = Texts::tr("Version %1 is ready to download from our web page.").arg(item.version);
    if (!news.isEmpty()) {
        message += QStringLiteral("\n\n") + news;
    }
    QMessageBox* const alert = makeAlert(m_window, Texts::tr("A new version of Corvale is available"), message);
    const QPushButton* const get = alert->addButton(Texts::tr("Open Download Page"), QMessageBox::AcceptRole);
    const QPushButton* const notes =
        item.releaseNotes.isEmpty() ? nullptr : alert->addButton(Texts::tr("Release Notes"), QMessageBox::ActionRole);
    alert->addButton(Texts::tr("Not Now"), QMessageBox::RejectRole);
    QObject::connect(
        alert,
        &QMessageBox::buttonClicked,
        alert,
        [this, get, notes, page = item.releaseNotes, open = std::move(open)](const QAbstractButton* button) {
            if (button == get) {
                open();
            } else if (notes != nullptr && button == notes) {
                browse(page);
            }
        });
    alert->open();
}

void UpdateAlerts::browse(const QUrl& page) { m_opener.open(page, m_window); }

}  // namespace corvale

#include "Corvale/updates/UpdateRequest.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <utility>

namespace corvale {

namespace {

constexpr qint64 longestFeed = 4 * 1024 * 1024;  // bytes
constexpr int mostRedirections = 5;

QNetworkRequest requestOf(const QUrl& url) {
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(mostRedirections);
    // Those between us and the server keep copies too.
    request.setRawHeader("Cache-Control", "no-cache");
    // Nothing of the machine but what the program is; Qt would name the user’s language too.
    request.setRawHeader("User-Agent", "Corvale");
    request.setRawHeader("Accept-Language", "*");
    return request;
}

}  // namespace

UpdateRequest::UpdateRequest(Method method, const QUrl& url, Milliseconds timeout,
                             std::function<void(const Answer&)> answered, QObject* parent)
    : QObject(parent),
      m_network(new QNetworkAccessManager(this)),
      m_reply(method == Method::head ? m_network->head(requestOf(url)) : m_network->get(requestOf(url))),
      m_answered(std::move(answered)) {
    connect(m_reply, &QNetworkReply::finished, this, &UpdateRequest::finish);
    connect(m_reply, &QNetworkReply::readyRead, this, &UpdateRequest::refuseWhatIsTooLong);
    // Qt's own limit begins anew with every byte.
    QTimer::singleShot(timeout, m_reply, &QNetworkReply::abort);
}

UpdateRequest::~UpdateRequest() { m_reply->disconnect(this); }

void UpdateRequest::refuseWhatIsTooLong() {
    if (m_reply->bytesAvailable() > longestFeed) {
        // Not at once: Qt is in the middle of taking in what came.
        QMetaObject::invokeMethod(m_reply, &QNetworkReply::abort, Qt::QueuedConnection);
    }
}

void UpdateRequest::finish() {
    Answer answer;
    const QVariant status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    if (status.isValid()) {
        answer.status = status.toInt();
    }
    answer.isWhole = m_reply->error() == QNetworkReply::NoError && m_reply->bytesAvailable() <= longestFeed;
    if (answer.isWhole) {
        answer.body = m_reply->readAll();
    }
    const auto answered = std::exchange(m_answered, nullptr);
    deleteLater();
    answered(answer);
}

}  // namespace corvale

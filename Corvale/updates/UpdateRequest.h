#pragma once

#include <QByteArray>
#include <QObject>
#include <QUrl>
#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>

class QNetworkAccessManager;
class QNetworkReply;

namespace corvale {

// One HTTP request past every cache. It follows redirections that lose no security. On the thread of its parent.
class UpdateRequest : public QObject {
    Q_OBJECT

public:
    enum class Method : std::uint8_t { head, get };

    struct Answer {
        std::optional<int> status;  // none when no HTTP response came in time
        QByteArray body;            // empty unless it came whole
        bool isWhole = false;       // neither cut off, nor refused, nor longer than a feed may be
    };

    using Milliseconds = std::chrono::milliseconds;
    static constexpr std::chrono::seconds usualTimeout{15};

    UpdateRequest(Method method, const QUrl& url, Milliseconds timeout, std::function<void(const Answer&)> answered,
                  QObject* parent);
    // What is under way is given up without an answer.
    ~UpdateRequest() override;

private:
    void finish();
    void refuseWhatIsTooLong();

    QNetworkAccessManager* m_network;
    QNetworkReply* m_reply;
    std::function<void(const Answer&)> m_answered;
};

}  // namespace corvale

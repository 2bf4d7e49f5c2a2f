#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QHash>
#include <QObject>
#include <QTcpServer>
#include <QUrl>

namespace corvale::TestSupport {

// An HTTP server on this machine that answers each path with what a test lays down, and keeps what it was asked.
class LoopbackServer : public QObject {
public:
    LoopbackServer();

    QUrl url(const QString& path = QStringLiteral("/feed.xml"), const QString& scheme = QStringLiteral("http")) const;
    // A whole response: "HTTP/1.1 204 No Content\r\n\r\n". Unless a path has one, it gets no answer at all.
    void answer(const QString& path, const QByteArray& response);
    void answerWithStatus(const QString& path, int status, const QByteArray& furtherHeader = {});
    void answerWithBody(const QString& path, const QByteArray& body);
    // From now on says this to whoever connects, without a request.
    void greet(const QByteArray& greeting) { m_greeting = greeting; }
    // The heads of the requests that came, whole.
    const QByteArrayList& requests() const { return m_requests; }
    void close() { m_server.close(); }

private:
    void serve();

    QTcpServer m_server;
    quint16 m_port = 0;
    QByteArray m_greeting;
    QHash<QByteArray, QByteArray> m_answers;
    QByteArrayList m_requests;
};

}  // namespace corvale::TestSupport

#include "tests/Corvale/updates/LoopbackServer.h"

#include <gtest/gtest.h>

#include <QTcpSocket>

namespace corvale::TestSupport {

LoopbackServer::LoopbackServer() {
    EXPECT_TRUE(m_server.listen(QHostAddress::LocalHost)) << m_server.errorString().toStdString();
    m_port = m_server.serverPort();
    connect(&m_server, &QTcpServer::newConnection, this, &LoopbackServer::serve);
}

QUrl LoopbackServer::url(const QString& path, const QString& scheme) const {
    return QUrl(QStringLiteral("%1://127.0.0.1:%2%3").arg(scheme, QString::number(m_port), path));
}

void LoopbackServer::answer(const QString& path, const QByteArray& response) { m_answers[path.toLatin1()] = response; }

void LoopbackServer::answerWithStatus(const QString& path, int status, const QByteArray& furtherHeader) {
    answer(path,
           "HTTP/1.1 " + QByteArray::number(status) + " Whatever\r\nContent-Length: 0\r\n" + furtherHeader +
               "Connection: close\r\n\r\n");
}

void LoopbackServer::answerWithBody(const QString& path, const QByteArray& body) {
    answer(path,
           "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\nConnection: close\r\n\r\n" +
               body);
}

void LoopbackServer::serve() {
    while (QTcpSocket* const socket = m_server.nextPendingConnection()) {
        socket->setParent(this);
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        if (!m_greeting.isEmpty()) {
            socket->write(m_greeting);
            socket->disconnectFromHost();
            continue;
        }
        connect(socket, &QTcpSocket::readyRead, this, [this, socket, head = QByteArray()]() mutable {
            head += socket->readAll();
            if (!head.endsWith("\r\n\r\n")) {
                return;
            }
            m_requests.append(head);
            const QByteArray path = head.split(' ').value(1);
            if (const QByteArray response = m_answers.value(path); !response.isEmpty()) {
                socket->write(response);
                socket->disconnectFromHost();
            }
        });
    }
}

}  // namespace corvale::TestSupport

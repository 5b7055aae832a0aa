#include "support/FeedServer.h"

#include <QTcpSocket>
#include <QTimer>

FeedServer::FeedServer(QObject *parent)
    : QTcpServer(parent)
{
    listen(QHostAddress::LocalHost);
    connect(this, &QTcpServer::newConnection, this, &FeedServer::accept);
}

QUrl FeedServer::address() const
{
    return QUrl(QStringLiteral("http://127.0.0.1:%1/versions.json").arg(serverPort()));
}

void FeedServer::setAnswer(const QByteArray &answer, Manner manner)
{
    m_answer = answer;
    m_manner = manner;
}

QByteArray FeedServer::http(const QByteArray &status, const QByteArray &body,
                            const QByteArray &moreHeaders)
{
    return "HTTP/1.1 " + status + "\r\n" + moreHeaders +
           "Content-Length: " + QByteArray::number(body.size()) + "\r\nConnection: close\r\n\r\n" +
           body;
}

void FeedServer::accept()
{
    while (QTcpSocket *const socket = nextPendingConnection()) {
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { serve(socket); });
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    }
}

void FeedServer::serve(QTcpSocket *socket)
{
    const QByteArray request = socket->readAll();
    if (!request.contains("\r\n\r\n"))
        return;
    m_requests.append(request);
    if (m_manner == Manner::Silent) {
        connect(socket, &QTcpSocket::disconnected, this, [this] { ++m_givenUp; });
        return;
    }
    if (m_manner == Manner::Trickle) {
        trickle(socket);
        return;
    }

    socket->write(m_answer);
    if (m_manner == Manner::Answer) {
        socket->disconnectFromHost();
    } else if (m_manner == Manner::CutHalfway) {
        socket->flush();
        socket->abort();
    } else {
        connect(socket, &QTcpSocket::bytesWritten, this, [this, socket] { flood(socket); });
    }
}

void FeedServer::flood(QTcpSocket *socket)
{
    if (socket->bytesToWrite() > 0)
        return;
    const QByteArray block(64 * 1024, ' ');
    m_sent += socket->write(block);
}

void FeedServer::trickle(QTcpSocket *socket)
{
    auto *const timer = new QTimer(socket);
    connect(timer, &QTimer::timeout, socket, [this, socket, sent = qsizetype(0)]() mutable {
        if (sent == m_answer.size()) {
            socket->disconnectFromHost();
            return;
        }
        m_sent += socket->write(m_answer.mid(sent++, 1));
        socket->flush();
    });
    timer->start(m_pauseMs);
}

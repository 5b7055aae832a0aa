#pragma once

#include <QByteArray>
#include <QList>
#include <QTcpServer>
#include <QUrl>

class QTcpSocket;

/// A small HTTP server on the loopback address. It hands out one prepared answer, byte for byte.
class FeedServer : public QTcpServer
{
    Q_OBJECT

public:
    /// What becomes of a connection once a request has been read.
    enum class Manner {
        Answer,     ///< send everything, then close
        CutHalfway, ///< send everything, then break the connection
        Silent,     ///< never say a word
        Endless,    ///< send the answer, then blanks for ever
        Trickle     ///< send it byte for byte with a pause before each, then close
    };

    explicit FeedServer(QObject *parent = nullptr);

    QUrl address() const;
    void setAnswer(const QByteArray &answer, Manner manner = Manner::Answer);
    /// The pause in Manner::Trickle.
    void setPause(int pauseMs) { m_pauseMs = pauseMs; }
    /// A complete answer with a status line and a length.
    static QByteArray http(const QByteArray &status, const QByteArray &body,
                           const QByteArray &moreHeaders = {});

    /// The requests received, headers included.
    const QList<QByteArray> &requests() const { return m_requests; }
    /// How many connections in Manner::Silent the other side has given up.
    int givenUp() const { return m_givenUp; }
    /// The bytes sent in Manner::Endless and Manner::Trickle.
    qint64 sent() const { return m_sent; }

private:
    void accept();
    void serve(QTcpSocket *socket);
    void flood(QTcpSocket *socket);
    void trickle(QTcpSocket *socket);

    QByteArray m_answer;
    Manner m_manner = Manner::Answer;
    QList<QByteArray> m_requests;
    int m_givenUp = 0;
    qint64 m_sent = 0;
    int m_pauseMs = 10;
};

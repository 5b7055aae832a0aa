#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QUrl>

#include <memory>

class QNetworkAccessManager;
class QNetworkReply;

namespace Update {

/// Fetches the release feed, one request at a time: a new one replaces that in flight.
class UpdateChecker : public QObject
{
    Q_OBJECT

public:
    static constexpr int TransferTimeoutMs = 5000;
    static constexpr qint64 MaxFeedSize = 1024 * 1024; // bytes; a real feed has under a thousand

    /// @p version goes into the user agent.
    explicit UpdateChecker(const QString &version, QObject *parent = nullptr);
    ~UpdateChecker() override;

    /// The build's own address unless told otherwise.
    void setFeedAddress(const QUrl &address) { m_feedAddress = address; }

    /// The longest silence of the server, in milliseconds; TransferTimeoutMs unless told otherwise.
    void setTransferTimeout(int timeoutMs) { m_timeoutMs = timeoutMs; }

    void fetch();

signals:
    void fetched(QByteArray feed);
    /// No network, an HTTP error, a time-out, or a feed beyond MaxFeedSize.
    void failed(QString error);

private:
    void replyFinished();
    void boundReply();

    QString m_version;
    QUrl m_feedAddress;
    int m_timeoutMs = TransferTimeoutMs;
    // Made at the first request: it costs the start of the program more than all the rest of this.
    std::unique_ptr<QNetworkAccessManager> m_network;
    QPointer<QNetworkReply> m_reply;
};

} // namespace Update

#include "update/UpdateChecker.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

using namespace Update;

UpdateChecker::UpdateChecker(const QString &version, QObject *parent)
    : QObject(parent)
    , m_version(version)
    , m_feedAddress(QStringLiteral(TESSARIL_FEED_URL))
{
}

UpdateChecker::~UpdateChecker()
{
    if (m_reply)
        disconnect(m_reply, nullptr, this, nullptr);
}

void UpdateChecker::fetch()
{
    if (m_reply) {
        disconnect(m_reply, nullptr, this, nullptr);
        m_reply->abort();
        m_reply->deleteLater();
    }
    if (!m_network)
        m_network = std::make_unique<QNetworkAccessManager>();

    QNetworkRequest request(m_feedAddress);
    request.setHeader(
        QNetworkRequest::UserAgentHeader,
        QStringLiteral("Tessaril/%1 (+%2)").arg(m_version, QStringLiteral(TESSARIL_WEB_ADDRESS)));
    request.setTransferTimeout(m_timeoutMs);
    m_reply = m_network->get(request);
    m_reply->setReadBufferSize(MaxFeedSize + 1);
    connect(m_reply, &QNetworkReply::finished, this, &UpdateChecker::replyFinished);
    connect(m_reply, &QNetworkReply::readyRead, this, &UpdateChecker::boundReply);
}

void UpdateChecker::replyFinished()
{
    QNetworkReply *const reply = m_reply;
    m_reply = nullptr;
    reply->deleteLater();
    if (reply->error() != QNetworkReply::NoError)
        emit failed(reply->errorString());
    else
        emit fetched(reply->readAll());
}

void UpdateChecker::boundReply()
{
    if (m_reply->bytesAvailable() <= MaxFeedSize)
        return;

    QNetworkReply *const reply = m_reply;
    m_reply = nullptr;
    disconnect(reply, nullptr, this, nullptr);
    reply->abort();
    reply->deleteLater();
    emit failed(tr("The release feed is too large"));
}

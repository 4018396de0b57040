#include "firmwaredownloader.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

namespace tavrix {

FirmwareDownloader::FirmwareDownloader(QObject *parent)
    : QObject(parent)
    , m_network(new QNetworkAccessManager(this))
{}

FirmwareDownloader::~FirmwareDownloader()
{
    if (m_reply)
        m_reply->abort();
}

bool FirmwareDownloader::fetch(const QUrl &url, qint64 maxBytes)
{
    if (isBusy())
        return false;
    m_maxBytes = maxBytes;
    m_tooLarge = false;
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setTransferTimeout(30000);
    m_reply = m_network->get(request);
    m_reply->setReadBufferSize(0);
    connect(m_reply, &QNetworkReply::downloadProgress, this, [this](qint64 received, qint64 total) {
        if (received > m_maxBytes || total > m_maxBytes) {
            m_tooLarge = true;
            m_reply->abort();
            return;
        }
        emit progress(received, total);
    });
    connect(m_reply, &QNetworkReply::finished, this, &FirmwareDownloader::onFinished);
    return true;
}

void FirmwareDownloader::abort()
{
    if (m_reply)
        m_reply->abort();
}

void FirmwareDownloader::onFinished()
{
    QNetworkReply *reply = m_reply;
    m_reply = nullptr;
    reply->deleteLater();
    if (m_tooLarge) {
        emit failed(
            tr("%1 is larger than the %2 bytes expected.").arg(reply->url().toString()).arg(m_maxBytes));
        return;
    }
    if (reply->error() != QNetworkReply::NoError) {
        emit failed(tr("Downloading %1 failed: %2").arg(reply->url().toString(), reply->errorString()));
        return;
    }
    const QByteArray data = reply->readAll();
    if (data.size() > m_maxBytes) {
        emit failed(
            tr("%1 is larger than the %2 bytes expected.").arg(reply->url().toString()).arg(m_maxBytes));
        return;
    }
    emit fetched(data);
}

} // namespace tavrix

#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QUrl>

class QNetworkAccessManager;
class QNetworkReply;

namespace tavrix {

// Fetches one file over HTTP into memory, refusing anything larger than the caller allows
// (the transfer is aborted as soon as it grows past the limit, so a broken server cannot
// fill the memory). One transfer at a time; each ends with fetched() or failed().
class FirmwareDownloader : public QObject
{
    Q_OBJECT
public:
    explicit FirmwareDownloader(QObject *parent = nullptr);
    ~FirmwareDownloader() override;

    [[nodiscard]] bool isBusy() const { return !m_reply.isNull(); }

public slots:
    // False while a transfer is running.
    bool fetch(const QUrl &url, qint64 maxBytes);
    // Ends a transfer with failed().
    void abort();

signals:
    // total is -1 while the server has not said.
    void progress(qint64 received, qint64 total);
    void fetched(const QByteArray &data);
    void failed(const QString &error);

private:
    void onFinished();

    QNetworkAccessManager *m_network = nullptr;
    QPointer<QNetworkReply> m_reply;
    qint64 m_maxBytes = 0;
    bool m_tooLarge = false;
};

} // namespace tavrix

#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

class QSocketNotifier;

namespace tavrix {

// The far end of a serial line, played on the master side of a pseudo-terminal.
//
// Code under test opens slavePath() (or linkPath(), a stable symlink to it) with
// QSerialPort exactly as it would open a USB serial device. The peer reads what
// that code writes (readyRead/readAll) and answers with write(). hangUp() is an
// unplug: the line goes away and the link path disappears; plugIn() is the
// replug: a fresh pty appears under the same link path.
class PseudoTerminal : public QObject
{
    Q_OBJECT
public:
    explicit PseudoTerminal(QObject *parent = nullptr);
    ~PseudoTerminal() override;

    // Creates the pty (raw mode, no echo). With a link path, the symlink is
    // (re)pointed at the new slave. Returns false and fills errorString() on failure.
    bool open(const QString &linkPath = QString());
    bool isOpen() const { return m_masterFd >= 0; }

    QString slavePath() const { return m_slavePath; }
    QString linkPath() const { return m_linkPath; }
    // The path a client should open: the link when there is one.
    QString clientPath() const { return m_linkPath.isEmpty() ? m_slavePath : m_linkPath; }
    QString errorString() const { return m_error; }

    // Queues bytes for the client; returns false when the pty is not open.
    bool write(const QByteArray &bytes);
    QByteArray readAll();
    qsizetype bytesAvailable() const { return m_readBuffer.size(); }

    // A peer that stops reading: what the client writes piles up in the kernel and then
    // in the client's own buffer. Resuming takes everything that waited.
    void setReadingPaused(bool paused);

    // Simulated unplug: closes both sides and removes the link.
    void hangUp();
    // Simulated replug under the same link path.
    bool plugIn() { return open(m_linkPath); }

signals:
    void readyRead();
    void hungUp();

private:
    void onReadable();
    void onWritable();
    void flushPending();
    void closeFds();

    int m_masterFd = -1;
    int m_slaveFd = -1;
    QString m_slavePath;
    QString m_linkPath;
    QString m_error;
    QByteArray m_readBuffer;
    QByteArray m_pendingWrite;
    QSocketNotifier *m_readNotifier = nullptr;
    QSocketNotifier *m_writeNotifier = nullptr;
    bool m_readingPaused = false;
};

} // namespace tavrix

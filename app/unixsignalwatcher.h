#pragma once

#include <QList>
#include <QObject>

class QSocketNotifier;

namespace tavrix {

// Turns POSIX signals (SIGINT, SIGTERM, ...) into a Qt signal delivered in the event loop.
// The handler itself only writes the signal number into a socket pair; everything else
// happens in the loop, where it is safe. One watcher per process; elsewhere than on Unix it
// watches nothing.
class UnixSignalWatcher : public QObject
{
    Q_OBJECT
public:
    explicit UnixSignalWatcher(const QList<int> &signalNumbers, QObject *parent = nullptr);
    ~UnixSignalWatcher() override;

    // False when the socket pair or a handler could not be set up.
    [[nodiscard]] bool isActive() const { return m_notifier != nullptr; }

signals:
    void signalReceived(int signalNumber);

private:
    void onReadable();

    QList<int> m_signals;
    QSocketNotifier *m_notifier = nullptr;
    bool m_ownsSockets = false;
};

} // namespace tavrix

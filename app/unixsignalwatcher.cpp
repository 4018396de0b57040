#include "unixsignalwatcher.h"

#include <QSocketNotifier>

#ifdef Q_OS_UNIX
#include <csignal>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

namespace tavrix {

#ifdef Q_OS_UNIX

namespace {

// [0] is written by the handler, [1] read by the notifier.
int g_signalSocket[2] = {-1, -1};

void forwardSignal(int signalNumber)
{
    const char byte = char(signalNumber);
    [[maybe_unused]] const ssize_t written = ::write(g_signalSocket[0], &byte, 1);
}

} // namespace

UnixSignalWatcher::UnixSignalWatcher(const QList<int> &signalNumbers, QObject *parent)
    : QObject(parent)
    , m_signals(signalNumbers)
{
    if (g_signalSocket[0] >= 0 || ::socketpair(AF_UNIX, SOCK_STREAM, 0, g_signalSocket) != 0)
        return;
    m_ownsSockets = true;
    // A storm of signals must never block the handler on a full socket.
    ::fcntl(g_signalSocket[0], F_SETFL, ::fcntl(g_signalSocket[0], F_GETFL) | O_NONBLOCK);
    struct sigaction action = {};
    action.sa_handler = forwardSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (const int number : std::as_const(m_signals)) {
        if (::sigaction(number, &action, nullptr) != 0)
            return;
    }
    m_notifier = new QSocketNotifier(g_signalSocket[1], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &UnixSignalWatcher::onReadable);
}

UnixSignalWatcher::~UnixSignalWatcher()
{
    if (!m_ownsSockets)
        return;
    struct sigaction action = {};
    action.sa_handler = SIG_DFL;
    sigemptyset(&action.sa_mask);
    for (const int number : std::as_const(m_signals))
        ::sigaction(number, &action, nullptr);
    delete m_notifier;
    m_notifier = nullptr;
    ::close(g_signalSocket[0]);
    ::close(g_signalSocket[1]);
    g_signalSocket[0] = g_signalSocket[1] = -1;
}

void UnixSignalWatcher::onReadable()
{
    char byte = 0;
    if (::read(g_signalSocket[1], &byte, 1) == 1)
        emit signalReceived(int(byte));
}

#else

UnixSignalWatcher::UnixSignalWatcher(const QList<int> &signalNumbers, QObject *parent)
    : QObject(parent)
    , m_signals(signalNumbers)
{}

UnixSignalWatcher::~UnixSignalWatcher() = default;

void UnixSignalWatcher::onReadable() {}

#endif

} // namespace tavrix

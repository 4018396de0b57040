#include "receiverv4flasher.h"

#include "receiverv4flashsession.h"

#include <QThread>

namespace tavrix {

ReceiverV4Flasher::ReceiverV4Flasher(const ReceiverV4FlasherTimings &timings, QObject *parent)
    : QObject(parent)
    , m_timings(timings)
{}

ReceiverV4Flasher::~ReceiverV4Flasher()
{
    if (!m_thread)
        return;
    m_cancelled = true;
    m_thread->wait();
    delete m_thread;
}

bool ReceiverV4Flasher::readBoard(const QString &portName)
{
    return startRun([portName](ReceiverV4FlashSession &session) { session.readBoard(portName); });
}

bool ReceiverV4Flasher::update(const QString &portName, const ReceiverV4Image &image)
{
    // Only what the loader passes may reach the flash: whole write units, within the chip's share.
    if (image.bytes.size() < 8 || image.bytes.size() % 8 != 0 ||
        image.bytes.size() > ReceiverV4Image::kMaxFirmwareBytes)
        return false;
    return startRun([portName, image](ReceiverV4FlashSession &session) { session.update(portName, image); });
}

void ReceiverV4Flasher::cancel()
{
    if (m_thread)
        m_cancelled = true;
}

template<typename Work> bool ReceiverV4Flasher::startRun(Work work)
{
    if (m_thread)
        return false;
    m_cancelled = false;
    m_thread = QThread::create([this, work] {
        ReceiverV4FlashSession session(m_timings, m_cancelled);
        // Queued: the session runs on this worker thread, the flasher's listeners on theirs.
        connect(&session, &ReceiverV4FlashSession::logMessage, this, &ReceiverV4Flasher::logMessage,
                Qt::QueuedConnection);
        connect(&session, &ReceiverV4FlashSession::progress, this, &ReceiverV4Flasher::progress,
                Qt::QueuedConnection);
        connect(&session, &ReceiverV4FlashSession::powerCycleRequested, this,
                &ReceiverV4Flasher::powerCycleRequested, Qt::QueuedConnection);
        connect(&session, &ReceiverV4FlashSession::boardInfo, this, &ReceiverV4Flasher::boardInfo,
                Qt::QueuedConnection);
        connect(&session, &ReceiverV4FlashSession::finished, this, &ReceiverV4Flasher::onRunFinished,
                Qt::QueuedConnection);
        work(session);
    });
    m_thread->setObjectName(QStringLiteral("ReceiverV4Flasher"));
    m_thread->start();
    return true;
}

void ReceiverV4Flasher::onRunFinished(bool ok, const QString &message)
{
    // The worker has nothing left to do once the session ended: join it before reporting, so
    // a listener may start the next run from finished().
    if (m_thread) {
        m_thread->wait();
        delete m_thread;
        m_thread = nullptr;
    }
    emit finished(ok, message);
}

} // namespace tavrix

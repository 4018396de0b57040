#include "receivergyrocalibration.h"

#include "receiverelrslink.h"

#include <QTimer>

namespace tavrix {

namespace {

// The command field's status byte over the radio, as the parameter protocol defines it.
enum CommandStatus : uint8_t
{
    kCommandIdle = 0,
    kCommandStart = 1,
    kCommandProgress = 2,
    kCommandCancel = 5,
    kCommandPoll = 6,
};

QTimer *makeSingleShot(QObject *owner, std::chrono::milliseconds interval)
{
    auto *timer = new QTimer(owner);
    timer->setInterval(interval);
    timer->setSingleShot(true);
    return timer;
}

} // namespace

ReceiverGyroCalibration::ReceiverGyroCalibration(ReceiverElrsLink *link, const ReceiverConfigTimings &timings,
                                                 QObject *parent)
    : QObject(parent)
    , m_link(link)
    , m_usbCheckTimer(makeSingleShot(this, timings.usbGyroCalCheck))
    , m_elrsLimitTimer(makeSingleShot(this, timings.elrsGyroCalLimit))
    , m_elrsPollTimer(makeSingleShot(this, timings.elrsGyroCalPoll))
{
    connect(m_usbCheckTimer, &QTimer::timeout, this, &ReceiverGyroCalibration::onUsbCheck);
    connect(m_elrsLimitTimer, &QTimer::timeout, this, &ReceiverGyroCalibration::onElrsLimit);
    connect(m_elrsPollTimer, &QTimer::timeout, this, &ReceiverGyroCalibration::pollElrs);
    if (!m_link)
        return;
    connect(m_link, &ReceiverElrsLink::idle, this, &ReceiverGyroCalibration::onElrsLinkIdle);
    // Queued: a link that is dropped reports the unanswered write before it turns idle, and
    // the calibration must see the loss rather than a missing answer.
    connect(
        m_link, &ReceiverElrsLink::directWriteDone, this,
        [this](uint8_t param, bool, int value) { onElrsWriteDone(param, value); }, Qt::QueuedConnection);
}

bool ReceiverGyroCalibration::start(bool usbOpen)
{
    m_usbOpen = usbOpen;
    if (m_state == State::Running)
        return false;
    if (!usbOpen)
        return startOverElrs();
    m_usbResult = receiver::Reply::GyroCal::None;
    m_usbReason.clear();
    emit usbCommand(QStringLiteral("IMU_CAL"));
    m_usbCheckTimer->start();
    setState(State::Running, tr("Calibrating: keep the car still…"));
    return true;
}

void ReceiverGyroCalibration::onConsoleReply(receiver::Reply::GyroCal result, const QString &reason)
{
    if (result == receiver::Reply::GyroCal::None || !m_usbCheckTimer->isActive())
        return;
    m_usbResult = result;
    m_usbReason = reason;
}

void ReceiverGyroCalibration::onUsbCheck()
{
    using Result = receiver::Reply::GyroCal;
    if (m_usbResult == Result::Ok)
        finish(State::Done, tr("Gyro calibrated, yaw reset to 0"));
    else if (m_usbResult == Result::None)
        finish(State::Failed, tr("No answer from the receiver. Try again."));
    else if (m_usbReason.isEmpty())
        finish(State::Failed, tr("The receiver did not calibrate."));
    else
        finish(State::Failed, tr("The receiver says: %1").arg(m_usbReason));
}

bool ReceiverGyroCalibration::startOverElrs()
{
    if (!m_link || m_link->state() != ReceiverElrsLink::State::Ready)
        return false;
    const std::optional<uint8_t> field = m_link->fieldId(kElrsCommandField);
    if (!field || !m_link->writeParameter(*field, kCommandStart))
        return false;
    m_elrsField = *field;
    m_elrsCancelPending = false;
    m_elrsLimitTimer->start();
    setState(State::Running, tr("Starting over ELRS…"));
    return true;
}

// Each write of the command field is answered by the field read back: its status says
// whether the calibration still runs, ended, or was refused (with a message).
void ReceiverGyroCalibration::onElrsWriteDone(uint8_t param, int value)
{
    if (m_elrsField < 0 || param != m_elrsField)
        return;
    if (m_elrsCancelPending) {
        m_elrsCancelPending = false;
        if (m_link)
            m_link->writeParameter(param, kCommandCancel);
        return;
    }
    if (m_state != State::Running)
        return;
    if (value == kCommandStart || value == kCommandProgress) {
        m_elrsPollTimer->start();
        return;
    }
    if (value == kCommandIdle) {
        finish(State::Done, tr("Gyro calibrated, yaw reset to 0"));
        return;
    }
    if (value < 0) {
        finish(State::Failed, tr("No answer from the receiver. Try again."));
        return;
    }
    const QString said = m_link ? m_link->parameters().value(param).text : QString();
    finish(State::Failed,
           said.isEmpty() ? tr("The receiver did not calibrate.") : tr("The receiver says: %1").arg(said));
}

void ReceiverGyroCalibration::pollElrs()
{
    if (m_state == State::Running && m_link && m_elrsField >= 0)
        m_link->writeParameter(uint8_t(m_elrsField), kCommandPoll);
}

void ReceiverGyroCalibration::onElrsLimit()
{
    if (m_state != State::Running || m_elrsField < 0)
        return;
    // A poll may still be on its way; the cancel then goes out once it is answered.
    if (!m_link || !m_link->writeParameter(uint8_t(m_elrsField), kCommandCancel))
        m_elrsCancelPending = true;
    finish(State::Failed, tr("Not finished: the car must stand still. Try again."));
}

void ReceiverGyroCalibration::onElrsLinkIdle()
{
    if (m_state != State::Running || m_elrsField < 0 || m_usbOpen)
        return;
    m_elrsCancelPending = false;
    finish(State::Failed, tr("Lost the receiver during calibration."));
}

void ReceiverGyroCalibration::finish(State state, const QString &text)
{
    m_usbCheckTimer->stop();
    m_elrsLimitTimer->stop();
    m_elrsPollTimer->stop();
    if (!m_elrsCancelPending)
        m_elrsField = -1;
    setState(state, text);
}

void ReceiverGyroCalibration::setState(State state, const QString &text)
{
    m_state = state;
    m_text = text;
    emit changed();
}

} // namespace tavrix

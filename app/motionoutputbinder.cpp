#include "motionoutputbinder.h"

#include "motionoutputdialog.h"
#include "motiontelemetrysender.h"
#include "visiblerefresh.h"

namespace tavrix {

namespace {

constexpr std::chrono::milliseconds kStatusRefresh{500};
// The car's telemetry counts as live this long after its last acceleration reading.
constexpr qint64 kLiveWithinMs = 1000;
const QColor kStoppedColour(0x5B, 0x66, 0x75);
const QColor kLiveColour(0x12, 0xA6, 0x6A);
const QColor kWaitingColour(0xD9, 0x8A, 0x00);

} // namespace

MotionOutputBinder::MotionOutputBinder(MotionTelemetrySender *sender, QObject *parent)
    : QObject(parent)
    , m_sender(sender)
{}

MotionOutputBinder::Status MotionOutputBinder::status() const
{
    if (!m_sender)
        return {tr("Not available."), kStoppedColour};
    if (!m_sender->isEnabled())
        return {tr("Output stopped."), kStoppedColour};
    const qint64 age = m_sender->ageOfAccelerationMs();
    const bool live = age >= 0 && age < kLiveWithinMs;
    QString telemetry;
    if (age < 0)
        telemetry = tr("waiting for car telemetry (start a transmission) — output at rest");
    else if (live)
        telemetry = tr("car telemetry live");
    else
        telemetry = tr("car telemetry lost %1 s ago — output at rest").arg(age / 1000);
    return {tr("Streaming to %1:%2 — %3 packets sent · %4")
                .arg(m_sender->host())
                .arg(m_sender->port())
                .arg(m_sender->packetsSent())
                .arg(telemetry),
            live ? kLiveColour : kWaitingColour};
}

void MotionOutputBinder::bindDialog(MotionOutputDialog *dialog)
{
    if (!m_sender)
        return;
    MotionTelemetrySender *sender = m_sender;
    const auto show = [this, dialog, sender] {
        dialog->setStreaming(sender->isEnabled());
        const Status s = status();
        dialog->setStatus(s.text, s.colour);
    };
    connect(dialog, &MotionOutputDialog::targetEdited, sender,
            [sender](const QString &host, int port) { sender->setTarget(host, quint16(port)); });
    connect(dialog, &MotionOutputDialog::startRequested, sender, [sender](const QString &host, int port) {
        sender->setTarget(host, quint16(port));
        sender->setEnabled(true);
    });
    connect(dialog, &MotionOutputDialog::stopRequested, sender, [sender] { sender->setEnabled(false); });
    connect(sender, &MotionTelemetrySender::enabledChanged, dialog, show);
    new VisibleRefresh(dialog, kStatusRefresh, show, dialog);
    dialog->setAvailable(true);
    dialog->setTarget(sender->host(), sender->port());
    show();
}

} // namespace tavrix

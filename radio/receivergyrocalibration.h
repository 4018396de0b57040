#pragma once

#include "receiverconfigtimings.h"
#include "receiverline.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <cstdint>

class QTimer;

namespace tavrix {

class ReceiverElrsLink;

// Calibrates the gyro of the receiver in the car, which must stand still meanwhile: over
// USB with the console's "IMU_CAL" (sent through usbCommand), or over the radio by
// running the receiver's calibration command through the ReceiverElrsLink.
class ReceiverGyroCalibration : public QObject
{
    Q_OBJECT
public:
    enum class State
    {
        Idle,
        Running,
        Done,
        Failed,
    };
    Q_ENUM(State)

    // The receiver's command field, over the radio, that calibrates the gyro.
    static constexpr QLatin1String kElrsCommandField{"Calibrate IMU"};

    // link (not owned, may be null) reaches the receiver over the radio.
    explicit ReceiverGyroCalibration(ReceiverElrsLink *link, const ReceiverConfigTimings &timings = {},
                                     QObject *parent = nullptr);

    [[nodiscard]] State state() const { return m_state; }
    [[nodiscard]] QString text() const { return m_text; }

public slots:
    // Over USB when the console is open, else over the radio when the link is ready; false
    // when neither reaches the receiver or a calibration already runs.
    bool start(bool usbOpen);
    // The receiver's calibration reply on its console.
    void onConsoleReply(receiver::Reply::GyroCal result, const QString &reason);
    // The console closed or opened: the radio link's loss only counts without the cable.
    void setUsbOpen(bool open) { m_usbOpen = open; }

signals:
    void usbCommand(const QString &line);
    void changed();

private:
    bool startOverElrs();
    void onUsbCheck();
    void onElrsWriteDone(uint8_t param, int value);
    void onElrsLimit();
    void onElrsLinkIdle();
    void pollElrs();
    void finish(State state, const QString &text);
    void setState(State state, const QString &text);

    QPointer<ReceiverElrsLink> m_link;
    State m_state = State::Idle;
    QString m_text;
    bool m_usbOpen = false;
    receiver::Reply::GyroCal m_usbResult = receiver::Reply::GyroCal::None;
    QString m_usbReason;
    int m_elrsField = -1; // the command field of a calibration over the radio
    bool m_elrsCancelPending = false;

    QTimer *m_usbCheckTimer = nullptr;
    QTimer *m_elrsLimitTimer = nullptr;
    QTimer *m_elrsPollTimer = nullptr;
};

} // namespace tavrix

#pragma once

#include "receiverconfigtimings.h"
#include "receivergyrocalibration.h"
#include "receiverline.h"

#include <QElapsedTimer>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

class QTimer;

namespace tavrix {

class ReceiverElrsLink;

// Reads and changes the settings of the Orvane receiver in the car (OSD, GPS, IMU and
// motion telemetry, motion sensors), detects how it is mounted and calibrates its gyro.
// It speaks the receiver's text console over USB: lines come in through onReceiverLine()
// and go out through receiverWrite(), one per command tick. When only the radio link
// reaches the receiver, it works through the ReceiverElrsLink it is given.
class ReceiverConfigManager : public QObject
{
    Q_OBJECT
public:
    // The USB side of the conversation.
    enum class UsbState
    {
        Closed,
        Reading,  // asked for the settings, no answer yet
        NoReply,  // the settings query went unanswered
        Applying, // changes sent, waiting for the read-back
        Synced,
    };
    Q_ENUM(UsbState)

    using GyroCal = ReceiverGyroCalibration::State;

    enum class Mounting
    {
        Idle,
        WaitingFlat,
        NeedNoseUp,
        WaitingNoseUp,
        Saved,
        Failed,
    };
    Q_ENUM(Mounting)

    struct Caps
    {
        QString firmware;
        bool settings = false; // answers "GET_TELEM"
        bool olderOsd = false; // answers only the OSD query
        bool gps = false;
        bool imu = false;
        friend bool operator==(const Caps &, const Caps &) = default;
    };

    // link (not owned, may be null) reaches the receiver over the radio.
    explicit ReceiverConfigManager(ReceiverElrsLink *link, const ReceiverConfigTimings &timings = {},
                                   QObject *parent = nullptr);

    [[nodiscard]] UsbState usbState() const { return m_usbState; }
    [[nodiscard]] bool isUsbOpen() const { return m_usbState != UsbState::Closed; }
    // Only the radio link reaches the receiver.
    [[nodiscard]] bool isOverElrs() const;
    [[nodiscard]] const QMap<QString, int> &desiredSettings() const { return m_desired; }
    [[nodiscard]] const QMap<QString, int> &reportedSettings() const { return m_reported; }
    [[nodiscard]] const Caps &caps() const { return m_caps; }
    [[nodiscard]] QString imuAxes() const { return m_imuAxes; }
    [[nodiscard]] QString gpsStatusText() const;
    [[nodiscard]] GyroCal gyroCal() const { return m_gyroCal->state(); }
    [[nodiscard]] QString gyroCalText() const { return m_gyroCal->text(); }
    [[nodiscard]] Mounting mounting() const { return m_mounting; }
    [[nodiscard]] QString mountingText() const { return m_mountingText; }
    // The connection line of the Receiver tab, and its two halves.
    [[nodiscard]] QString statusText() const;
    [[nodiscard]] QString usbStatusText() const;
    [[nodiscard]] QString elrsStatusText() const;
    // Lines waiting for their command tick.
    [[nodiscard]] QStringList pendingCommands() const { return m_queue; }

public slots:
    // The receiver's USB console opened or closed.
    void setUsbOpen(bool open);
    // Settings are applied only while the active profile drives a car ("rc_car").
    void setVehicleType(const QString &vehicleType);
    // The transmitter streams, so the receiver may be reached over the radio.
    void setTransmitting(bool transmitting);
    // A telemetry frame from the car arrived.
    void noteCarTelemetry();
    // Unknown keys and values the receiver does not take are refused. A change is applied
    // at once when the receiver is on USB.
    bool setDesiredSetting(const QString &key, int value);
    // Sends every desired value the receiver does not report yet, then reads them back.
    bool applySettings();
    // Asks the receiver for its settings (USB), or reads them over the radio.
    bool requestSettings();
    bool calibrateGyro();
    // Step 0 with the car flat, step 1 with its front lifted.
    bool detectMountingStep(int step);
    // Starts (or restarts) the search for the receiver over the radio.
    void searchOverElrs();
    // A line typed by the user; refused when empty or when it would start the boot loader.
    bool sendConsoleCommand(const QString &line);
    // One line from the receiver's console, as read (not yet cleaned).
    void onReceiverLine(const QString &raw);

signals:
    // One console line with its line feed, for the receiver's USB port.
    void receiverWrite(const QByteArray &bytes);
    void consoleLine(const QString &line);
    void gyroCalChanged();
    void mountingChanged();
    void settingsChanged();
    void capsChanged();
    void stateChanged();

private:
    // The command lines that would bring the receiver to the desired values.
    [[nodiscard]] QStringList pendingChanges() const;
    void queueCommand(const QString &line);
    void sendNextCommand();
    void setUsbState(UsbState state);
    void applyReply(const receiver::Reply &reply);
    void storeReported(const QString &key, int value, bool &changed);
    void onSettingsReply(bool telemetry);
    void onSettingsReplyTimeout();
    void handleOrientReply(const receiver::Reply &reply);
    void setMounting(Mounting state, const QString &text);
    void onMountingTimeout();
    void updateElrsRefresh();
    void onElrsRefresh();

    QPointer<ReceiverElrsLink> m_link;
    ReceiverConfigTimings m_timings;
    UsbState m_usbState = UsbState::Closed;
    bool m_carActive = false;
    bool m_transmitting = false;
    QElapsedTimer m_lastTelemetry;

    QMap<QString, int> m_desired;
    QMap<QString, int> m_reported;
    Caps m_caps;
    QString m_imuAxes;
    std::optional<receiver::GpsStatus> m_gpsStatus;
    QStringList m_queue;

    ReceiverGyroCalibration *m_gyroCal = nullptr;

    Mounting m_mounting = Mounting::Idle;
    QString m_mountingText;

    QTimer *m_commandTimer = nullptr;
    QTimer *m_settingsReplyTimer = nullptr;
    QTimer *m_mountingTimer = nullptr;
    QTimer *m_elrsRefreshTimer = nullptr;
};

} // namespace tavrix

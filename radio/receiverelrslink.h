#pragma once

#include "receiverlinktimings.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

#include <array>

#include <cstdint>
#include <optional>

class QTimer;

namespace tavrix {

class CrsfProtocol;

// Reaches the Orvane receiver in the car over the radio link while the bridge runs its
// normal (not configuration) mode, so the receiver's settings can be read and written
// without a USB cable: a device ping finds it, its identity is checked, then its fields
// are read one by one. Every byte goes out through the parent's invokable
// serialWrite(QByteArray), so the parent is the only way to the wire.
class ReceiverElrsLink : public QObject
{
    Q_OBJECT
public:
    enum class State
    {
        Idle,
        Searching,
        Reading,
        Ready,
    };
    Q_ENUM(State)

    struct Parameter
    {
        QString name;
        uint8_t type = 0;
        std::optional<int> value; // the numeric and selection types, a command's status
        QString text;             // selection label list, info text, a command's message
    };

    // The receiver's fields in the order they are read.
    static constexpr std::array<uint8_t, 10> kReadOrder{14, 1, 3, 4, 7, 8, 9, 10, 12, 5};
    static constexpr int kMaxSearchAttempts = 5;

    // crsf (not owned, may be null) delivers the extended frames from the receiver.
    explicit ReceiverElrsLink(CrsfProtocol *crsf, const ReceiverLinkTimings &timings = {},
                              QObject *parent = nullptr);

    // The wait after search attempt `attempt` (1-based).
    [[nodiscard]] static std::chrono::milliseconds searchBackoff(const ReceiverLinkTimings &timings,
                                                                 int attempt);

    [[nodiscard]] State state() const { return m_state; }
    [[nodiscard]] bool isEnabled() const { return m_enabled; }
    [[nodiscard]] QString receiverName() const { return m_name; }
    [[nodiscard]] QString firmwareVersion() const { return m_firmware; }
    [[nodiscard]] bool isV4Receiver() const { return m_v4; }
    [[nodiscard]] const QHash<uint8_t, Parameter> &parameters() const { return m_parameters; }
    [[nodiscard]] std::optional<uint8_t> fieldId(const QString &name) const;

public slots:
    // The bridge is connected and not in configuration mode; false drops the link.
    void setEnabled(bool enabled);
    // The transmitter started or stopped: a start begins a search when the link is idle.
    void setTransmitterRunning(bool running);
    void startSearch();
    // Reads every field again (Ready only).
    bool readAll();
    // Writes one value byte and reads it back; the outcome comes as directWriteDone.
    bool writeParameter(uint8_t field, uint8_t value);
    void onExtendedFrame(uint8_t type, uint8_t dest, uint8_t origin, const QByteArray &payload);

signals:
    void stateChanged();
    void valueChanged(uint8_t param);
    void directWriteDone(uint8_t param, bool ok, int value);
    void idle();

private:
    void sendSearchPing();
    void onSearchTimeout();
    void onReSearchTimeout();
    void onReadTimeout();
    void onWatchdog();
    void handleDeviceInfo(const QByteArray &payload);
    void handleSettingsEntry(const QByteArray &payload);
    void storeEntry(uint8_t field, const QByteArray &data);
    void requestNextField();
    void sendRead();
    void finishDirectWrite(bool ok, int value);
    void dropLink();
    void setState(State state);
    bool writeToParent(const QByteArray &bytes);

    QPointer<CrsfProtocol> m_crsf;
    ReceiverLinkTimings m_timings;
    State m_state = State::Idle;
    bool m_enabled = false;
    bool m_transmitterRunning = false;
    int m_searchAttempts = 0;
    QElapsedTimer m_lastHeard;

    QList<uint8_t> m_readQueue;
    int m_field = -1; // the request in flight, -1 for none
    int m_chunk = 0;
    int m_attempts = 0;
    bool m_directWrite = false;
    int m_writeValue = 0;

    QString m_name;
    QString m_firmware;
    bool m_v4 = false;
    int m_reportedCount = 0;
    QByteArray m_buffer;
    QHash<uint8_t, Parameter> m_parameters;
    QHash<QString, uint8_t> m_idByName;

    QTimer *m_searchTimer = nullptr;
    QTimer *m_readTimer = nullptr;
    QTimer *m_reSearchTimer = nullptr;
    QTimer *m_watchdog = nullptr;
};

} // namespace tavrix

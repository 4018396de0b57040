#pragma once

#include "elrsfield.h"
#include "elrstimings.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

#include <cstdint>
#include <optional>

class QTimer;

namespace tavrix {

class CrsfProtocol;

// Reads the RF parameters of the ExpressLRS module behind the bridge and writes new
// values, only while the bridge is in configuration mode. Discovery normally runs over
// the bridge's text walk ("WALKRF"); a frame-based read (ping, device info, chunked
// settings entries) does the same over CRSF. Every byte goes out through the parent's
// invokable serialWrite(QByteArray), so the parent is the only way to the wire.
class ElrsParameterManager : public QObject
{
    Q_OBJECT
public:
    enum class State
    {
        Idle,
        Pinging,
        WalkingFields,
        Ready,
        Aborted,
    };
    Q_ENUM(State)

    // The walk path reports progress against this fixed total, whatever the real count;
    // the remote app expects it.
    static constexpr int kWalkProgressTotal = 8;

    // crsf (not owned, may be null) delivers the module's extended frames.
    explicit ElrsParameterManager(CrsfProtocol *crsf, const ElrsTimings &timings = {},
                                  QObject *parent = nullptr);

    [[nodiscard]] State state() const { return m_state; }
    [[nodiscard]] static QString stateName(State state);
    [[nodiscard]] bool isConfigModeActive() const { return m_configMode; }
    // In discovery order.
    [[nodiscard]] const QList<elrs::Parameter> &parameters() const { return m_parameters; }
    [[nodiscard]] std::optional<elrs::Parameter> parameter(const QString &name) const;

public slots:
    // Discovery over the bridge's text walk.
    void startDiscovery();
    // Discovery over CRSF frames: ping, device info, then every field chunk by chunk.
    void startFrameDiscovery();
    void setConfigModeActive(bool active);
    // Writes a text-selection parameter once; true when the frame was sent.
    bool setParameterByIndex(const QString &name, int optionIndex);
    // Writes a raw byte to a field three times (see ElrsTimings); true when the first went out.
    bool writeParamRaw(int fieldId, int value);

    void onTransmitterLine(const QString &line);
    void onExtendedFrame(uint8_t type, uint8_t dest, uint8_t origin, const QByteArray &payload);
    void onRequestTimeout();
    void onWalkTimeout();

signals:
    void discoveryStarted();
    void discoveryProgress(int done, int total);
    void discoveryComplete();
    void discoveryAborted();
    void parameterUpdated(const QString &name);
    void error(const QString &message);

private:
    enum class RequestKind
    {
        None,
        Ping,
        ParameterRead,
    };

    // Configuration mode and a codec; emits the refusal otherwise.
    bool checkCanTalk(const char *operation);
    void beginDiscovery(State state);
    void handleFieldLine(const QString &line);
    void handleWalkDone();
    void handleDeviceInfo(const QByteArray &payload);
    void handleSettingsEntry(const QByteArray &payload);
    void finishField();
    void requestField(int field);
    void sendCurrentRequest();
    void clearRequest();
    void failDiscovery(const QString &message);
    void clearParameters();
    void addParameter(const elrs::Parameter &parameter);
    void setState(State state);
    // Hands bytes to the parent's serialWrite; false when there is no parent to take them.
    bool writeToParent(const QByteArray &bytes);
    void sendWrite(const QByteArray &frame, int fieldId, int value);

    QPointer<CrsfProtocol> m_crsf;
    ElrsTimings m_timings;
    State m_state = State::Idle;
    bool m_configMode = false;

    QList<elrs::Parameter> m_parameters;
    QHash<QString, qsizetype> m_indexByName;

    // Frame-based read.
    int m_deviceParameterCount = 0;
    int m_field = 0;
    int m_chunk = 0;
    QByteArray m_fieldBuffer;
    bool m_firstChunkTaken = false;
    uint8_t m_fieldParent = 0;
    uint8_t m_fieldType = 0;
    RequestKind m_request = RequestKind::None;
    int m_retries = 0;

    int m_walkLinesSeen = 0;
    QTimer *m_requestTimer = nullptr;
    QTimer *m_walkTimer = nullptr;
};

} // namespace tavrix

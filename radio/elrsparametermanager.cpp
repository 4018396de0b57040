#include "elrsparametermanager.h"

#include "crsfprotocol.h"

#include <QDebug>
#include <QTimer>

#include <algorithm>

namespace tavrix {

namespace {

const QLatin1String kWalkStarting("WALK: starting");
const QLatin1String kWalkDone("WALK: done");
const QLatin1String kFieldMarker("FIELD ");
const QByteArray kWalkCommand = QByteArrayLiteral("WALKRF\n");

constexpr uint8_t kAddressBroadcast = 0x00;
constexpr uint8_t kAddressParameterClient = 0xEF;
constexpr uint8_t kTypeElrsStatus = crsf::kTypeCommand;
// Device info after the name's NUL: serial number, hardware id, software id (4 bytes
// each), then the parameter count and the protocol version.
constexpr qsizetype kDeviceInfoIdBytes = 12;
// The chunk number is one byte; a module claiming more chunks than that is not followed.
constexpr int kLastChunk = 0xFF;
constexpr int kWrites = 3;

QString optionsText(const elrs::Parameter &p)
{
    QStringList labels;
    for (const elrs::Option &o : p.options)
        labels.append(o.label);
    return labels.join(QLatin1Char(';'));
}

} // namespace

ElrsParameterManager::ElrsParameterManager(CrsfProtocol *crsf, const ElrsTimings &timings, QObject *parent)
    : QObject(parent)
    , m_crsf(crsf)
    , m_timings(timings)
    , m_requestTimer(new QTimer(this))
    , m_walkTimer(new QTimer(this))
{
    m_requestTimer->setSingleShot(true);
    m_requestTimer->setInterval(m_timings.requestTimeout);
    connect(m_requestTimer, &QTimer::timeout, this, &ElrsParameterManager::onRequestTimeout);
    m_walkTimer->setSingleShot(true);
    m_walkTimer->setInterval(m_timings.walkTimeout);
    connect(m_walkTimer, &QTimer::timeout, this, &ElrsParameterManager::onWalkTimeout);
    if (m_crsf)
        connect(m_crsf, &CrsfProtocol::extendedFrameReceived, this, &ElrsParameterManager::onExtendedFrame);
}

QString ElrsParameterManager::stateName(State state)
{
    switch (state) {
    case State::Idle:
        return QStringLiteral("Idle");
    case State::Pinging:
        return QStringLiteral("Pinging");
    case State::WalkingFields:
        return QStringLiteral("WalkingFields");
    case State::Ready:
        return QStringLiteral("Ready");
    case State::Aborted:
        return QStringLiteral("Aborted");
    }
    return QStringLiteral("?");
}

std::optional<elrs::Parameter> ElrsParameterManager::parameter(const QString &name) const
{
    const auto it = m_indexByName.constFind(name);
    if (it == m_indexByName.cend())
        return std::nullopt;
    return m_parameters.at(*it);
}

// --- discovery ---

bool ElrsParameterManager::checkCanTalk(const char *operation)
{
    if (!m_configMode) {
        qInfo().noquote()
            << QStringLiteral("[ELRS] %1 refused: config mode is not active").arg(QLatin1String(operation));
        emit error(tr("Start configuring to read/change ELRS RF settings."));
        return false;
    }
    if (!m_crsf) {
        emit error(tr("ELRS parameter manager: no CRSF protocol bound."));
        return false;
    }
    return true;
}

void ElrsParameterManager::beginDiscovery(State state)
{
    clearParameters();
    m_field = 0;
    m_chunk = 0;
    m_fieldBuffer.clear();
    m_firstChunkTaken = false;
    m_walkLinesSeen = 0;
    m_deviceParameterCount = 0;
    clearRequest();
    setState(state);
    emit discoveryStarted();
}

void ElrsParameterManager::startDiscovery()
{
    if (!checkCanTalk("startDiscovery"))
        return;
    if (m_state == State::Pinging || m_state == State::WalkingFields)
        return;
    qInfo().noquote() << QStringLiteral("[ELRS] startDiscovery: sending WALKRF");
    beginDiscovery(State::WalkingFields);
    emit discoveryProgress(0, kWalkProgressTotal);
    if (!writeToParent(kWalkCommand))
        qWarning().noquote() << QStringLiteral("[ELRS] startDiscovery: no parent writer; cannot send WALKRF");
    m_walkTimer->start();
}

void ElrsParameterManager::startFrameDiscovery()
{
    if (!checkCanTalk("startFrameDiscovery"))
        return;
    if (m_state == State::Pinging || m_state == State::WalkingFields)
        return;
    qInfo().noquote() << QStringLiteral("[ELRS] startFrameDiscovery: sending device ping");
    beginDiscovery(State::Pinging);
    m_request = RequestKind::Ping;
    sendCurrentRequest();
}

void ElrsParameterManager::setConfigModeActive(bool active)
{
    m_configMode = active;
    if (active)
        return;
    m_requestTimer->stop();
    m_walkTimer->stop();
    clearRequest();
    if (m_state != State::Pinging && m_state != State::WalkingFields)
        return;
    qInfo().noquote() << QStringLiteral("[ELRS] config mode stopped — aborting in-flight discovery");
    m_firstChunkTaken = false;
    setState(State::Aborted);
    emit discoveryAborted();
}

// --- the walk path: text lines from the bridge ---

void ElrsParameterManager::onTransmitterLine(const QString &rawLine)
{
    const QString line = rawLine.trimmed();
    if (line.contains(kWalkStarting)) {
        qInfo().noquote() << QStringLiteral("[ELRS] WALK: starting");
        clearParameters();
        m_walkLinesSeen = 0;
        if (m_state != State::WalkingFields)
            setState(State::WalkingFields);
        m_walkTimer->start();
        emit discoveryStarted();
        emit discoveryProgress(0, kWalkProgressTotal);
    } else if (m_state != State::WalkingFields) {
        return;
    } else if (line.contains(kFieldMarker)) {
        handleFieldLine(line);
    } else if (line.contains(kWalkDone)) {
        handleWalkDone();
    }
}

void ElrsParameterManager::handleFieldLine(const QString &line)
{
    const elrs::FieldLine field = elrs::parseFieldLine(line);
    switch (field.kind) {
    case elrs::FieldLine::Kind::NotAField:
        return;
    case elrs::FieldLine::Kind::MissingColon:
        qWarning().noquote() << QStringLiteral("[ELRS] malformed FIELD line (no colon):") << line;
        return;
    case elrs::FieldLine::Kind::MalformedId:
        qWarning().noquote() << QStringLiteral("[ELRS] malformed FIELD id:") << line;
        return;
    default:
        break;
    }

    m_walkTimer->start();
    ++m_walkLinesSeen;
    if (field.kind == elrs::FieldLine::Kind::ReadFailed) {
        qWarning().noquote() << QStringLiteral("[ELRS] FIELD %1 read failed; skipping").arg(field.fieldId);
    } else if (field.kind == elrs::FieldLine::Kind::UnparseableHex) {
        qWarning().noquote() << QStringLiteral("[ELRS] FIELD %1 unparseable hex:").arg(field.fieldId) << line;
    } else if (const std::optional<elrs::Parameter> p =
                   elrs::decodeFieldBytes(uint8_t(field.fieldId), field.bytes)) {
        addParameter(*p);
    }
    emit discoveryProgress(m_walkLinesSeen, kWalkProgressTotal);
}

void ElrsParameterManager::handleWalkDone()
{
    m_walkTimer->stop();
    clearRequest();
    if (!m_parameters.isEmpty()) {
        setState(State::Ready);
        qInfo().noquote() << QStringLiteral("[ELRS] WALK: done — params=%1").arg(m_parameters.size());
        emit discoveryComplete();
        return;
    }
    qWarning().noquote() << QStringLiteral(
        "[ELRS] WALK: done with zero params decoded — send-only board, falling back to Manual");
    setState(State::Idle);
    emit error(tr("No ELRS parameters could be read — this transmitter may be send-only (no half-duplex)."));
}

void ElrsParameterManager::onWalkTimeout()
{
    if (m_state != State::WalkingFields)
        return;
    qWarning().noquote() << QStringLiteral("[ELRS] WALK timed out after %1 ms; %2 fields seen")
                                .arg(m_timings.walkTimeout.count())
                                .arg(m_walkLinesSeen);
    clearRequest();
    setState(State::Idle);
    emit error(tr("ELRS walk timed out"));
}

// --- the frame path: CRSF extended frames from the module ---

void ElrsParameterManager::onExtendedFrame(uint8_t type, uint8_t dest, uint8_t origin,
                                           const QByteArray &payload)
{
    Q_UNUSED(dest);
    if (origin != crsf::kAddressTransmitterModule)
        return;
    if (type == crsf::kTypeDeviceInfo && m_state == State::Pinging)
        handleDeviceInfo(payload);
    else if (type == crsf::kTypeParameterEntry && m_state == State::WalkingFields)
        handleSettingsEntry(payload);
    else if (type == kTypeElrsStatus)
        qInfo().noquote() << QStringLiteral("[ELRS] ELRS_STATUS %1 bytes").arg(payload.size());
}

void ElrsParameterManager::handleDeviceInfo(const QByteArray &payload)
{
    m_requestTimer->stop();
    const qsizetype nameEnd = payload.indexOf('\0');
    const qsizetype countAt = nameEnd + 1 + kDeviceInfoIdBytes;
    if (nameEnd < 0 || payload.size() < countAt + 2) {
        qWarning().noquote() << QStringLiteral("[ELRS] DEVICE_INFO too short: %1 bytes").arg(payload.size());
        failDiscovery(tr("ELRS module returned a malformed DEVICE_INFO frame."));
        return;
    }
    m_deviceParameterCount = uint8_t(payload[countAt]);
    qInfo().noquote() << QStringLiteral("[ELRS] DEVICE_INFO: name=%1 paramCount=%2")
                             .arg(QString::fromUtf8(payload.left(nameEnd)))
                             .arg(m_deviceParameterCount);
    if (m_deviceParameterCount == 0) {
        qInfo().noquote() << QStringLiteral(
            "[ELRS] DEVICE_INFO reports 0 parameters; treating as Ready (empty)");
        clearRequest();
        setState(State::Ready);
        emit discoveryComplete();
        return;
    }
    setState(State::WalkingFields);
    emit discoveryProgress(0, m_deviceParameterCount);
    requestField(1);
}

void ElrsParameterManager::handleSettingsEntry(const QByteArray &payload)
{
    if (payload.size() < 2) {
        qWarning().noquote() << QStringLiteral("[ELRS] PARAMETER_SETTINGS_ENTRY too short");
        return;
    }
    const int fieldId = uint8_t(payload[0]);
    if (m_request != RequestKind::ParameterRead || fieldId != m_field) {
        // The request in flight stays armed: its time-out still resends it.
        qWarning().noquote() << QStringLiteral("[ELRS] stale param entry; expected field %1 got field %2")
                                    .arg(m_field)
                                    .arg(fieldId);
        return;
    }
    const int chunksRemaining = uint8_t(payload[1]);
    const QByteArray data = payload.mid(2);
    if (!m_firstChunkTaken) {
        if (data.size() < 3) {
            // Left to the request time-out, which asks for the chunk again.
            qWarning().noquote() << QStringLiteral("[ELRS] first chunk too short for field %1").arg(fieldId);
            return;
        }
        m_fieldParent = uint8_t(data[0]);
        m_fieldType = uint8_t(data[1]);
        m_fieldBuffer = data.mid(2);
        m_firstChunkTaken = true;
    } else {
        m_fieldBuffer.append(data);
    }
    m_requestTimer->stop();

    if (chunksRemaining > 0 && m_chunk < kLastChunk) {
        ++m_chunk;
        m_retries = 0;
        sendCurrentRequest();
        return;
    }
    finishField();
}

void ElrsParameterManager::finishField()
{
    addParameter(elrs::decodeSettingsEntry(uint8_t(m_field), m_fieldParent, m_fieldType, m_fieldBuffer));
    emit discoveryProgress(m_field, m_deviceParameterCount);
    if (m_field < m_deviceParameterCount) {
        requestField(m_field + 1);
        return;
    }
    clearRequest();
    setState(State::Ready);
    qInfo().noquote() << QStringLiteral("[ELRS] discoveryComplete params=%1").arg(m_parameters.size());
    emit discoveryComplete();
}

void ElrsParameterManager::requestField(int field)
{
    m_field = field;
    m_chunk = 0;
    m_fieldBuffer.clear();
    m_firstChunkTaken = false;
    m_request = RequestKind::ParameterRead;
    m_retries = 0;
    sendCurrentRequest();
}

void ElrsParameterManager::sendCurrentRequest()
{
    const QByteArray frame =
        m_request == RequestKind::Ping
            ? CrsfProtocol::buildPingFrame(kAddressBroadcast, crsf::kAddressRadioTransmitter)
            : CrsfProtocol::buildParameterReadFrame(uint8_t(m_field), uint8_t(m_chunk),
                                                    crsf::kAddressTransmitterModule, kAddressParameterClient);
    if (!writeToParent(frame))
        qWarning().noquote() << QStringLiteral(
                                    "[ELRS] sendCurrentRequest: no parent writer; cannot send %1 bytes")
                                    .arg(frame.size());
    m_requestTimer->start();
}

void ElrsParameterManager::onRequestTimeout()
{
    if (m_request == RequestKind::None)
        return;
    if (m_retries < m_timings.maxRetries) {
        ++m_retries;
        qInfo().noquote() << QStringLiteral("[ELRS] request timeout, retry %1 kind=%2 field=%3 chunk=%4")
                                 .arg(m_retries)
                                 .arg(m_request == RequestKind::Ping ? QStringLiteral("PING")
                                                                     : QStringLiteral("PARAM_READ"))
                                 .arg(m_field)
                                 .arg(m_chunk);
        sendCurrentRequest();
        return;
    }
    qWarning().noquote() << QStringLiteral("[ELRS] retries exhausted; aborting discovery");
    const QString what = m_request == RequestKind::Ping
                             ? tr("device ping")
                             : tr("parameter read (field %1, chunk %2)").arg(m_field).arg(m_chunk);
    failDiscovery(tr("ELRS module did not respond to %1.").arg(what));
}

void ElrsParameterManager::clearRequest()
{
    m_request = RequestKind::None;
    m_retries = 0;
    m_requestTimer->stop();
}

void ElrsParameterManager::failDiscovery(const QString &message)
{
    clearRequest();
    setState(State::Idle);
    emit error(message);
}

// --- writes ---

bool ElrsParameterManager::setParameterByIndex(const QString &name, int optionIndex)
{
    const auto refuse = [this](const QString &message) {
        emit error(message);
        return false;
    };
    if (!m_configMode)
        return refuse(tr("Start configuring to read/change ELRS RF settings."));
    if (m_state != State::Ready)
        return refuse(tr("ELRS parameters are not yet discovered."));
    const auto it = m_indexByName.constFind(name);
    if (it == m_indexByName.cend())
        return refuse(tr("Unknown ELRS parameter: %1").arg(name));
    elrs::Parameter &p = m_parameters[*it];
    if (p.type != elrs::TextSelection)
        return refuse(tr("Parameter '%1' is not an enum (text selection).").arg(name));
    if (optionIndex < 0 || optionIndex > p.maximum.value_or(-1) || optionIndex >= p.options.size())
        return refuse(tr("Option index %1 out of range for '%2'.").arg(optionIndex).arg(name));
    const QByteArray frame = CrsfProtocol::buildParameterWriteFrame(
        p.id, QByteArray(1, char(optionIndex)), crsf::kAddressTransmitterModule, kAddressParameterClient);
    if (!writeToParent(frame))
        return refuse(tr("ELRS parameter manager: no serial writer."));
    // The module answers a write with nothing; the next discovery shows what it kept.
    p.value = optionIndex;
    emit parameterUpdated(name);
    qInfo().noquote() << QStringLiteral("[ELRS] setParameterByIndex %1 -> %2 (%3)")
                             .arg(name)
                             .arg(optionIndex)
                             .arg(p.options.at(optionIndex).label);
    return true;
}

bool ElrsParameterManager::writeParamRaw(int fieldId, int value)
{
    if (!m_configMode) {
        emit error(tr("Start configuring to read/change ELRS RF settings."));
        return false;
    }
    if (!m_crsf) {
        emit error(tr("ELRS parameter manager: no CRSF protocol bound."));
        return false;
    }
    if (!parent()) {
        emit error(tr("ELRS parameter manager: no serial writer."));
        return false;
    }
    if (value < 0 || value > 0xFF) {
        emit error(tr("ELRS option index %1 out of byte range.").arg(value));
        return false;
    }
    const QByteArray frame =
        CrsfProtocol::buildParameterWriteFrame(uint8_t(fieldId), QByteArray(1, char(value)),
                                               crsf::kAddressTransmitterModule, kAddressParameterClient);
    sendWrite(frame, fieldId, value);
    // The repeats hold only a weak reference: a manager destroyed meanwhile sends nothing more.
    const QPointer<ElrsParameterManager> self(this);
    for (int repeat = 1; repeat < kWrites; ++repeat) {
        QTimer::singleShot(m_timings.writeRepeatInterval * repeat, this, [self, frame, fieldId, value] {
            if (self)
                self->sendWrite(frame, fieldId, value);
        });
    }
    return true;
}

void ElrsParameterManager::sendWrite(const QByteArray &frame, int fieldId, int value)
{
    qInfo().noquote() << QStringLiteral("[ELRS] writeParamRaw fire field=%1 value=%2 bytes=%3")
                             .arg(fieldId)
                             .arg(value)
                             .arg(QString::fromLatin1(frame.toHex(' ')));
    writeToParent(frame);
}

// --- parameters, state and the wire ---

void ElrsParameterManager::clearParameters()
{
    m_parameters.clear();
    m_indexByName.clear();
}

void ElrsParameterManager::addParameter(const elrs::Parameter &p)
{
    qInfo().noquote() << QStringLiteral("[ELRS] param name=%1 type=%2 current=%3 options=%4")
                             .arg(p.name)
                             .arg(p.type)
                             .arg(p.value ? QString::number(*p.value) : QStringLiteral("-"))
                             .arg(optionsText(p));
    // A field read twice (a repeated line or a retried read) replaces its first record.
    const auto sameId = std::find_if(m_parameters.begin(), m_parameters.end(),
                                     [&p](const elrs::Parameter &known) { return known.id == p.id; });
    if (sameId != m_parameters.end()) {
        m_indexByName.remove(sameId->name);
        *sameId = p;
        m_indexByName.insert(p.name, sameId - m_parameters.begin());
        return;
    }
    m_parameters.append(p);
    m_indexByName.insert(p.name, m_parameters.size() - 1);
}

void ElrsParameterManager::setState(State state)
{
    if (state == m_state)
        return;
    qInfo().noquote() << QStringLiteral("[ELRS] state %1 -> %2").arg(stateName(m_state), stateName(state));
    m_state = state;
}

bool ElrsParameterManager::writeToParent(const QByteArray &bytes)
{
    QObject *writer = parent();
    return writer &&
           QMetaObject::invokeMethod(writer, "serialWrite", Qt::DirectConnection, Q_ARG(QByteArray, bytes));
}

} // namespace tavrix

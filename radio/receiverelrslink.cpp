#include "receiverelrslink.h"

#include "crsfprotocol.h"
#include "elrsfield.h"

#include <QDebug>
#include <QTimer>

namespace tavrix {

namespace {

constexpr uint8_t kAddressBroadcast = 0x00;
// The receiver answers the parameter protocol as the flight controller would.
constexpr uint8_t kAddressReceiver = 0xC8;
constexpr uint8_t kAddressParameterClient = 0xEF;

// After the name's NUL: serial number, hardware id, software version (4 bytes each),
// parameter count; the protocol version byte may be missing on older firmware.
constexpr qsizetype kDeviceInfoTail = 13;

constexpr uint32_t fourCharacters(const char (&text)[5])
{
    return uint32_t(uint8_t(text[0])) << 24 | uint32_t(uint8_t(text[1])) << 16 |
           uint32_t(uint8_t(text[2])) << 8 | uint32_t(uint8_t(text[3]));
}
constexpr uint32_t kSerialV4 = fourCharacters("ORV4");
constexpr uint32_t kSerialV1 = fourCharacters("ORV1");

constexpr uint8_t kHiddenFlag = 0x80;

uint32_t bigEndian32(const QByteArray &bytes, qsizetype at)
{
    return uint32_t(uint8_t(bytes[at])) << 24 | uint32_t(uint8_t(bytes[at + 1])) << 16 |
           uint32_t(uint8_t(bytes[at + 2])) << 8 | uint32_t(uint8_t(bytes[at + 3]));
}

QTimer *makeTimer(QObject *owner, std::chrono::milliseconds interval, bool singleShot)
{
    auto *timer = new QTimer(owner);
    timer->setInterval(interval);
    timer->setSingleShot(singleShot);
    return timer;
}

} // namespace

ReceiverElrsLink::ReceiverElrsLink(CrsfProtocol *crsf, const ReceiverLinkTimings &timings, QObject *parent)
    : QObject(parent)
    , m_crsf(crsf)
    , m_timings(timings)
    , m_searchTimer(makeTimer(this, timings.searchBackoff.front(), true))
    , m_readTimer(makeTimer(this, timings.readTimeout, true))
    , m_reSearchTimer(makeTimer(this, timings.reSearchDelay, true))
    , m_watchdog(makeTimer(this, timings.watchdogInterval, false))
{
    connect(m_searchTimer, &QTimer::timeout, this, &ReceiverElrsLink::onSearchTimeout);
    connect(m_readTimer, &QTimer::timeout, this, &ReceiverElrsLink::onReadTimeout);
    connect(m_reSearchTimer, &QTimer::timeout, this, &ReceiverElrsLink::onReSearchTimeout);
    connect(m_watchdog, &QTimer::timeout, this, &ReceiverElrsLink::onWatchdog);
    if (!m_crsf)
        return;
    connect(m_crsf, &CrsfProtocol::extendedFrameReceived, this, &ReceiverElrsLink::onExtendedFrame);
    // A Ready receiver sends no parameter frames by itself; the car's own telemetry shows
    // it is still in reach. Link statistics do not count: the module sends them alone.
    connect(m_crsf, &CrsfProtocol::frameReceived, this, [this](uint8_t type, const QByteArray &) {
        if (crsf::isCarTelemetry(type))
            m_lastHeard.start();
    });
}

std::chrono::milliseconds ReceiverElrsLink::searchBackoff(const ReceiverLinkTimings &timings, int attempt)
{
    const auto index = std::size_t(std::max(attempt, 1) - 1);
    return index < timings.searchBackoff.size() ? timings.searchBackoff.at(index)
                                                : timings.backoffBeyondTable;
}

std::optional<uint8_t> ReceiverElrsLink::fieldId(const QString &name) const
{
    const auto it = m_idByName.constFind(name);
    return it == m_idByName.cend() ? std::nullopt : std::optional<uint8_t>(*it);
}

void ReceiverElrsLink::setEnabled(bool enabled)
{
    if (enabled == m_enabled)
        return;
    m_enabled = enabled;
    if (enabled) {
        if (m_transmitterRunning)
            startSearch();
        return;
    }
    // Configuration mode or a lost bridge: the receiver cannot be reached, and a
    // re-search must not fire into a bridge that is not streaming.
    dropLink();
    m_reSearchTimer->stop();
}

void ReceiverElrsLink::setTransmitterRunning(bool running)
{
    m_transmitterRunning = running;
    if (running)
        startSearch();
}

void ReceiverElrsLink::startSearch()
{
    if (!m_enabled || (m_state != State::Idle && m_state != State::Searching))
        return;
    m_reSearchTimer->stop();
    m_searchAttempts = 0;
    setState(State::Searching);
    sendSearchPing();
}

void ReceiverElrsLink::sendSearchPing()
{
    ++m_searchAttempts;
    writeToParent(CrsfProtocol::buildPingFrame(kAddressBroadcast, crsf::kAddressRadioTransmitter));
    m_searchTimer->start(searchBackoff(m_timings, m_searchAttempts));
}

void ReceiverElrsLink::onSearchTimeout()
{
    if (m_state != State::Searching)
        return;
    if (m_searchAttempts < kMaxSearchAttempts) {
        sendSearchPing();
        return;
    }
    const auto pause = std::chrono::duration_cast<std::chrono::seconds>(m_timings.reSearchDelay);
    qInfo().noquote()
        << QStringLiteral("[RX-ELRS] no Orvane receiver answered (firmware older than 4.3.0?) - retry in %1s")
               .arg(pause.count());
    setState(State::Idle);
    m_reSearchTimer->start();
}

void ReceiverElrsLink::onReSearchTimeout()
{
    if (m_state != State::Idle || !m_enabled || !m_transmitterRunning)
        return;
    qInfo().noquote() << QStringLiteral("[RX-ELRS] searching again");
    startSearch();
}

void ReceiverElrsLink::onExtendedFrame(uint8_t type, uint8_t dest, uint8_t origin, const QByteArray &payload)
{
    Q_UNUSED(dest)
    if (origin != kAddressReceiver)
        return;
    m_lastHeard.start();
    if (type == crsf::kTypeDeviceInfo && m_state == State::Searching)
        handleDeviceInfo(payload);
    else if (type == crsf::kTypeParameterEntry && m_field >= 0)
        handleSettingsEntry(payload);
}

void ReceiverElrsLink::handleDeviceInfo(const QByteArray &payload)
{
    const qsizetype nameEnd = payload.indexOf('\0');
    if (nameEnd < 0 || payload.size() < nameEnd + 1 + kDeviceInfoTail)
        return;
    const QString name = QString::fromLatin1(payload.left(nameEnd));
    const qsizetype serialAt = nameEnd + 1;
    const uint32_t serial = bigEndian32(payload, serialAt);
    const int count = uint8_t(payload[serialAt + 12]);
    const bool v4 = serial == kSerialV4;
    if (!v4 && !(serial == kSerialV1 && count > 0)) {
        qInfo().noquote() << QStringLiteral("[RX-ELRS] device 0xC8 is %1 - not a Orvane receiver").arg(name);
        return;
    }
    m_searchTimer->stop();
    m_name = name;
    m_v4 = v4;
    m_reportedCount = count;
    m_firmware = QStringLiteral("%1.%2.%3")
                     .arg(uint8_t(payload[serialAt + 9]))
                     .arg(uint8_t(payload[serialAt + 10]))
                     .arg(uint8_t(payload[serialAt + 11]));
    qInfo().noquote() << QStringLiteral("[RX-ELRS] found %1 firmware %2").arg(m_name, m_firmware);
    m_lastHeard.start();
    m_watchdog->start();
    setState(State::Reading);
    readAll();
}

bool ReceiverElrsLink::readAll()
{
    if (m_state != State::Reading && m_state != State::Ready)
        return false;
    if (m_field >= 0)
        return false; // one request at a time
    m_readQueue.clear();
    for (const uint8_t field : kReadOrder) {
        // An earlier receiver has fewer fields, numbered from 1; asking for one it lacks
        // would only run into the read time-outs and lose it.
        if (m_v4 || field <= m_reportedCount)
            m_readQueue.append(field);
    }
    setState(State::Reading);
    requestNextField();
    return true;
}

void ReceiverElrsLink::requestNextField()
{
    if (m_readQueue.isEmpty()) {
        m_field = -1;
        setState(State::Ready);
        return;
    }
    m_field = m_readQueue.takeFirst();
    m_chunk = 0;
    m_attempts = 0;
    m_buffer.clear();
    sendRead();
}

void ReceiverElrsLink::sendRead()
{
    ++m_attempts;
    writeToParent(CrsfProtocol::buildParameterReadFrame(uint8_t(m_field), uint8_t(m_chunk), kAddressReceiver,
                                                        kAddressParameterClient));
    m_readTimer->start();
}

bool ReceiverElrsLink::writeParameter(uint8_t field, uint8_t value)
{
    if (m_state != State::Ready || m_field >= 0)
        return false;
    writeToParent(CrsfProtocol::buildParameterWriteFrame(field, QByteArray(1, char(value)), kAddressReceiver,
                                                         kAddressParameterClient));
    // The receiver answers a write with nothing: reading the field back tells what it kept.
    m_directWrite = true;
    m_writeValue = value;
    m_field = field;
    m_chunk = 0;
    m_attempts = 0;
    m_buffer.clear();
    sendRead();
    return true;
}

void ReceiverElrsLink::handleSettingsEntry(const QByteArray &payload)
{
    if (payload.size() < 2 || uint8_t(payload[0]) != m_field)
        return; // a late answer to an earlier request; the read timer still covers this one
    const int chunksRemaining = uint8_t(payload[1]);
    m_buffer.append(payload.mid(2));
    if (chunksRemaining > 0) {
        ++m_chunk;
        m_attempts = 0;
        sendRead();
        return;
    }
    m_readTimer->stop();
    const auto field = uint8_t(m_field);
    storeEntry(field, m_buffer);
    m_buffer.clear();
    if (m_directWrite) {
        const Parameter &p = m_parameters.value(field);
        finishDirectWrite(p.value == m_writeValue, p.value.value_or(-1));
        m_field = -1;
        return;
    }
    requestNextField();
}

void ReceiverElrsLink::storeEntry(uint8_t field, const QByteArray &data)
{
    if (data.size() < 3)
        return;
    const auto type = uint8_t(uint8_t(data[1]) & ~kHiddenFlag);
    const elrs::Parameter decoded = elrs::decodeSettingsEntry(field, uint8_t(data[0]), type, data.mid(2));
    Parameter p;
    p.name = decoded.name;
    p.type = type;
    if (type == elrs::TextSelection || type == elrs::Info) {
        p.value = decoded.value;
        QStringList labels;
        for (const elrs::Option &option : decoded.options)
            labels.append(option.label);
        p.text = type == elrs::Info ? decoded.units : labels.join(QLatin1Char(';'));
    } else if (type == elrs::Command) {
        // A command's status byte follows its name: it tells whether the command runs,
        // ended or waits, and the text after it says why.
        const qsizetype statusAt = data.indexOf('\0', 2) + 1;
        if (statusAt > 0 && statusAt < data.size())
            p.value = uint8_t(data[statusAt]);
        p.text = decoded.units;
    } else {
        p.value = decoded.value;
    }
    const auto old = m_parameters.constFind(field);
    const bool changed = old == m_parameters.cend() || old->value != p.value || old->text != p.text;
    if (old != m_parameters.cend())
        m_idByName.remove(old->name);
    m_parameters.insert(field, p);
    m_idByName.insert(p.name, field);
    if (changed)
        emit valueChanged(field);
}

void ReceiverElrsLink::onReadTimeout()
{
    if (m_field < 0)
        return;
    if (m_attempts < m_timings.readAttempts) {
        sendRead();
        return;
    }
    if (m_directWrite) {
        qInfo().noquote()
            << QStringLiteral("[RX-ELRS] no answer to the direct write of param %1").arg(m_field);
        finishDirectWrite(false, -1);
        m_field = -1;
        return;
    }
    qInfo().noquote() << QStringLiteral("[RX-ELRS] no answer to param %1 - receiver lost").arg(m_field);
    dropLink();
}

void ReceiverElrsLink::onWatchdog()
{
    if (m_state != State::Reading && m_state != State::Ready)
        return;
    if (m_lastHeard.isValid() && !m_lastHeard.hasExpired(m_timings.silenceLimit.count()))
        return;
    qInfo().noquote() << QStringLiteral("[RX-ELRS] car silent - receiver lost");
    dropLink();
}

void ReceiverElrsLink::finishDirectWrite(bool ok, int value)
{
    const auto field = uint8_t(m_field);
    m_directWrite = false;
    emit directWriteDone(field, ok, value);
}

void ReceiverElrsLink::dropLink()
{
    if (m_directWrite)
        finishDirectWrite(false, -1);
    m_field = -1;
    m_readQueue.clear();
    m_readTimer->stop();
    m_searchTimer->stop();
    m_reSearchTimer->stop();
    m_watchdog->stop();
    m_buffer.clear();
    m_parameters.clear();
    m_idByName.clear();
    setState(State::Idle);
}

void ReceiverElrsLink::setState(State state)
{
    if (state == m_state)
        return;
    m_state = state;
    emit stateChanged();
    if (state == State::Idle)
        emit idle();
}

bool ReceiverElrsLink::writeToParent(const QByteArray &bytes)
{
    QObject *writer = parent();
    return writer &&
           QMetaObject::invokeMethod(writer, "serialWrite", Qt::DirectConnection, Q_ARG(QByteArray, bytes));
}

} // namespace tavrix

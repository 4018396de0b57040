#include "bridgesimulator.h"

#include "pseudoterminal.h"

#include <QDateTime>
#include <QTimer>

namespace tavrix::sim {

namespace {

const char *modeName(BridgeSimulator::Mode mode)
{
    switch (mode) {
    case BridgeSimulator::Mode::Transmitting:
        return "tx";
    case BridgeSimulator::Mode::Configuring:
        return "cfg";
    case BridgeSimulator::Mode::Idle:
        break;
    }
    return "idle";
}

bool isExtendedType(uint8_t type)
{
    return type >= crsfwire::kTypeDevicePing && type <= 0x2E;
}

} // namespace

BridgeSimulator::BridgeSimulator(const BridgeSimulatorSettings &settings, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_pty(new PseudoTerminal(this))
    , m_telemetry(new BridgeTelemetry(settings.telemetry, SimulatedCar(settings.car), this))
    , m_module(SimulatedParameterDevice::transmitterModule())
    , m_receiver(SimulatedParameterDevice::receiver(settings.receiver))
    , m_partialFrameTimer(new QTimer(this))
    , m_hostSilenceTimer(new QTimer(this))
    , m_walkTimer(new QTimer(this))
    , m_garbage(settings.garbageSeed)
    , m_linkUp(settings.linkUp)
{
    connect(m_pty, &PseudoTerminal::readyRead, this, &BridgeSimulator::onReadyRead);

    m_partialFrameTimer->setSingleShot(true);
    m_partialFrameTimer->setInterval(m_settings.partialFrameTimeoutMs);
    connect(m_partialFrameTimer, &QTimer::timeout, this, &BridgeSimulator::onPartialFrameTimeout);

    m_hostSilenceTimer->setSingleShot(true);
    m_hostSilenceTimer->setInterval(m_settings.hostSilenceTimeoutMs);
    connect(m_hostSilenceTimer, &QTimer::timeout, this, [this] {
        m_hostSilent = true;
        updateTelemetry();
    });

    m_walkTimer->setInterval(m_settings.walkLineIntervalMs);
    connect(m_walkTimer, &QTimer::timeout, this, &BridgeSimulator::sendNextWalkLine);

    connect(m_telemetry, &BridgeTelemetry::frameReady, this, [this](const QByteArray &frame) {
        sendToHost(frame);
        emit telemetryFrameSent(frame);
    });
    connect(m_telemetry, &BridgeTelemetry::statusLineReady, this, &BridgeSimulator::sendLine);
}

BridgeSimulator::~BridgeSimulator() = default;

bool BridgeSimulator::start(const QString &linkPath)
{
    return m_pty->open(linkPath);
}

QString BridgeSimulator::slavePath() const
{
    return m_pty->slavePath();
}

QString BridgeSimulator::linkPath() const
{
    return m_pty->linkPath();
}

QString BridgeSimulator::clientPath() const
{
    return m_pty->clientPath();
}

QString BridgeSimulator::errorString() const
{
    return m_pty->errorString();
}

bool BridgeSimulator::isPluggedIn() const
{
    return m_pty->isOpen();
}

QList<qint64> BridgeSimulator::channelFrameTimes() const
{
    return QList<qint64>(m_channelFrameTimes.cbegin(), m_channelFrameTimes.cend());
}

void BridgeSimulator::setLinkUp(bool up)
{
    if (up == m_linkUp)
        return;
    m_linkUp = up;
    if (m_mode == Mode::Transmitting)
        sendLine(up ? QStringLiteral("LINK: connected") : QStringLiteral("LINK: lost"));
    updateTelemetry();
}

void BridgeSimulator::hangUp()
{
    if (!m_pty->isOpen())
        return;
    m_walkTimer->stop();
    m_walkQueue.clear();
    m_partialFrameTimer->stop();
    m_hostSilenceTimer->stop();
    m_splitter.reset();
    m_pty->hangUp();
    setMode(Mode::Idle);
    updateTelemetry();
    emit hungUp();
}

bool BridgeSimulator::plugIn()
{
    if (m_pty->isOpen())
        return true;
    if (!m_pty->plugIn())
        return false;
    m_hostSilent = false;
    emit pluggedIn();
    return true;
}

void BridgeSimulator::setStalled(bool stalled)
{
    m_stalled = stalled;
    if (stalled)
        m_walkTimer->stop();
    else if (!m_walkQueue.isEmpty())
        m_walkTimer->start();
    updateTelemetry();
}

void BridgeSimulator::setReadingPaused(bool paused)
{
    m_pty->setReadingPaused(paused);
}

void BridgeSimulator::setGarbling(bool garbling)
{
    m_garbling = garbling;
}

void BridgeSimulator::injectToHost(const QByteArray &bytes)
{
    m_pty->write(bytes);
}

void BridgeSimulator::onReadyRead()
{
    const QByteArray bytes = m_pty->readAll();
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    if (m_settings.hostSilenceTimeoutMs > 0)
        m_hostSilenceTimer->start();
    if (m_hostSilent) {
        m_hostSilent = false;
        updateTelemetry();
    }
    handleItems(m_splitter.feed(bytes), now);
}

void BridgeSimulator::onPartialFrameTimeout()
{
    handleItems(m_splitter.abandonPartialFrame(), QDateTime::currentMSecsSinceEpoch());
}

void BridgeSimulator::handleItems(const QList<BridgeStreamSplitter::Item> &items, qint64 receivedMs)
{
    for (const BridgeStreamSplitter::Item &item : items) {
        switch (item.kind) {
        case BridgeStreamSplitter::Item::Kind::Frame:
            handleFrame(item.bytes, receivedMs);
            break;
        case BridgeStreamSplitter::Item::Kind::Line:
            handleLine(item.bytes, receivedMs);
            break;
        case BridgeStreamSplitter::Item::Kind::Garbage:
            m_garbageBytes += quint64(item.bytes.size());
            emit garbageReceived(item.bytes, receivedMs);
            break;
        }
    }
    if (m_splitter.hasPartialFrame())
        m_partialFrameTimer->start();
    else
        m_partialFrameTimer->stop();
}

void BridgeSimulator::handleFrame(const QByteArray &frame, qint64 receivedMs)
{
    emit frameReceived(frame, receivedMs);
    const auto type = uint8_t(frame[2]);
    const QByteArrayView payload = QByteArrayView(frame).sliced(3, frame.size() - 4);

    if (type == crsfwire::kTypeRcChannelsPacked) {
        const std::optional<ChannelArray> channels = crsfwire::unpackChannels(payload);
        if (!channels)
            return;
        m_lastChannels = *channels;
        ++m_channelFrameCount;
        m_channelFrameTimes.push_back(receivedMs);
        while (m_channelFrameTimes.size() > size_t(m_settings.maxRecordedTimestamps))
            m_channelFrameTimes.pop_front();
        emit channelFrameReceived(m_lastChannels, receivedMs);
        return;
    }
    if (isExtendedType(type) && !m_stalled)
        answerExtendedFrame(type, payload);
}

void BridgeSimulator::answerExtendedFrame(uint8_t type, QByteArrayView payload)
{
    if (payload.size() < 2)
        return;
    const auto destination = uint8_t(payload[0]);
    const bool broadcast = destination == 0x00;
    QList<QByteArray> answers;
    if (broadcast || destination == m_module.address())
        answers += m_module.handleExtendedFrame(type, payload, m_settings.parameterChunkSize);
    // The receiver is reached over the radio link, so only while the car is on.
    if (m_linkUp && (broadcast || destination == m_receiver.address()))
        answers += m_receiver.handleExtendedFrame(type, payload, m_settings.parameterChunkSize);
    for (const QByteArray &answer : std::as_const(answers))
        sendToHost(answer);
}

void BridgeSimulator::handleLine(const QByteArray &line, qint64 receivedMs)
{
    const QString command = QString::fromLatin1(line);
    m_commands.append(command);
    while (m_commands.size() > m_settings.maxRecordedCommands)
        m_commands.removeFirst();
    emit commandReceived(command, receivedMs);
    if (!m_stalled)
        answerCommand(line.trimmed());
}

void BridgeSimulator::answerCommand(const QByteArray &command)
{
    if (command.isEmpty()) { // keepalive
        sendLine(statusText());
        return;
    }
    if (command == "START") {
        if (m_mode == Mode::Configuring) {
            sendLine(QStringLiteral("ERR START refused: CFGMODE is on"));
            return;
        }
        setMode(Mode::Transmitting);
        sendLine(QStringLiteral("OK START"));
    } else if (command == "STOP") {
        if (m_mode == Mode::Transmitting)
            setMode(Mode::Idle);
        sendLine(QStringLiteral("OK STOP"));
    } else if (command == "CFGMODE ON") {
        if (m_mode == Mode::Transmitting) {
            sendLine(QStringLiteral("ERR CFGMODE refused: transmitting"));
            return;
        }
        setMode(Mode::Configuring);
        sendLine(QStringLiteral("OK CFGMODE ON"));
    } else if (command == "CFGMODE OFF") {
        if (m_mode == Mode::Configuring)
            setMode(Mode::Idle);
        m_walkTimer->stop();
        m_walkQueue.clear();
        sendLine(QStringLiteral("OK CFGMODE OFF"));
    } else if (command == "WALKRF") {
        if (m_mode != Mode::Configuring) {
            sendLine(QStringLiteral("ERR WALKRF needs CFGMODE ON"));
            return;
        }
        startWalk();
    } else {
        sendLine(QStringLiteral("ERR unknown command: %1").arg(QString::fromLatin1(command)));
    }
}

void BridgeSimulator::startWalk()
{
    sendLine(QStringLiteral("WALK: starting"));
    // The lines are taken now: a write during the walk shows in the next one.
    m_walkQueue.clear();
    for (const SimulatedParameterDevice::Field &field : m_module.fields())
        m_walkQueue.append(walkLine(field.id));
    m_walkQueue.append(QStringLiteral("WALK: done"));
    m_walkTimer->start();
}

QString BridgeSimulator::walkLine(uint8_t fieldId) const
{
    if (m_settings.walkReadFailures.contains(fieldId))
        return QStringLiteral("FIELD %1: (read failed)").arg(fieldId);
    QByteArray bytes = m_module.fieldData(fieldId);
    if (m_settings.walkRepeatedHeaders.contains(fieldId))
        bytes.prepend(m_module.fieldHeader(fieldId));
    return QStringLiteral("FIELD %1: %2").arg(fieldId).arg(QString::fromLatin1(bytes.toHex(' ').toUpper()));
}

void BridgeSimulator::sendNextWalkLine()
{
    if (m_walkQueue.isEmpty()) {
        m_walkTimer->stop();
        return;
    }
    sendLine(m_walkQueue.takeFirst());
    if (m_walkQueue.isEmpty())
        m_walkTimer->stop();
}

void BridgeSimulator::setMode(Mode mode)
{
    if (mode == m_mode)
        return;
    m_mode = mode;
    updateTelemetry();
    emit modeChanged(mode);
}

void BridgeSimulator::updateTelemetry()
{
    m_telemetry->setActive(m_pty->isOpen() && m_mode == Mode::Transmitting && m_linkUp && !m_stalled &&
                           !m_hostSilent);
}

void BridgeSimulator::sendLine(const QString &line)
{
    if (m_stalled || !m_pty->isOpen())
        return;
    sendToHost(line.toLatin1() + "\r\n");
    emit textLineSent(line);
}

void BridgeSimulator::sendToHost(const QByteArray &bytes)
{
    if (m_garbling) {
        QByteArray noise(1 + int(m_garbage.bounded(6)), Qt::Uninitialized);
        for (char &c : noise)
            c = char(m_garbage.bounded(256));
        m_pty->write(noise);
    }
    m_pty->write(bytes);
}

QString BridgeSimulator::statusText() const
{
    return QStringLiteral("STATUS mode=%1 link=%2 frames=%3")
        .arg(QLatin1String(modeName(m_mode)), m_linkUp ? QStringLiteral("up") : QStringLiteral("down"))
        .arg(m_channelFrameCount);
}

} // namespace tavrix::sim

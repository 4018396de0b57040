#include "bridgelog.h"

#include "bridgesimulator.h"
#include "crsfwire.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>

namespace tavrix::sim {

BridgeLog::BridgeLog(QObject *parent)
    : QObject(parent)
{}

bool BridgeLog::open(const QString &path)
{
    close();
    m_file.setFileName(path);
    return m_file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text);
}

void BridgeLog::close()
{
    if (m_file.isOpen())
        m_file.close();
}

void BridgeLog::attach(BridgeSimulator *simulator)
{
    connect(simulator, &BridgeSimulator::frameReceived, this, &BridgeLog::logFrame);
    connect(simulator, &BridgeSimulator::commandReceived, this, &BridgeLog::logCommand);
    connect(simulator, &BridgeSimulator::garbageReceived, this, &BridgeLog::logGarbage);
    connect(simulator, &BridgeSimulator::hungUp, this,
            [this] { logEvent(QStringLiteral("unplugged"), QDateTime::currentMSecsSinceEpoch()); });
    connect(simulator, &BridgeSimulator::pluggedIn, this,
            [this] { logEvent(QStringLiteral("plugged-in"), QDateTime::currentMSecsSinceEpoch()); });
}

void BridgeLog::logFrame(const QByteArray &frame, qint64 receivedMs)
{
    QJsonObject record{
        {QStringLiteral("kind"), QStringLiteral("frame")},
        {QStringLiteral("type"), int(uint8_t(frame[2]))},
        {QStringLiteral("hex"), QString::fromLatin1(frame.toHex())},
    };
    if (uint8_t(frame[2]) == crsfwire::kTypeRcChannelsPacked) {
        if (const auto channels = crsfwire::unpackChannels(QByteArrayView(frame).sliced(3))) {
            QJsonArray values;
            for (const int32_t v : *channels)
                values.append(int(v));
            record.insert(QStringLiteral("channels"), values);
        }
    }
    write(record, receivedMs);
}

void BridgeLog::logCommand(const QString &command, qint64 receivedMs)
{
    if (command.isEmpty())
        write({{QStringLiteral("kind"), QStringLiteral("keepalive")}}, receivedMs);
    else
        write({{QStringLiteral("kind"), QStringLiteral("command")}, {QStringLiteral("command"), command}},
              receivedMs);
}

void BridgeLog::logGarbage(const QByteArray &bytes, qint64 receivedMs)
{
    write({{QStringLiteral("kind"), QStringLiteral("garbage")},
           {QStringLiteral("hex"), QString::fromLatin1(bytes.toHex())}},
          receivedMs);
}

void BridgeLog::logEvent(const QString &event, qint64 atMs)
{
    write({{QStringLiteral("kind"), QStringLiteral("event")}, {QStringLiteral("event"), event}}, atMs);
}

void BridgeLog::logBootloaderCommand(const QString &name, const QJsonObject &details, qint64 receivedMs)
{
    QJsonObject record = details;
    record.insert(QStringLiteral("kind"), QStringLiteral("bootloader"));
    record.insert(QStringLiteral("command"), name);
    write(record, receivedMs);
}

void BridgeLog::write(QJsonObject record, qint64 atMs)
{
    if (!m_file.isOpen())
        return;
    record.insert(QStringLiteral("t"), double(atMs));
    m_file.write(QJsonDocument(record).toJson(QJsonDocument::Compact));
    m_file.write("\n");
    m_file.flush();
}

} // namespace tavrix::sim

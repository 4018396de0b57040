#pragma once

#include <QFile>
#include <QJsonObject>
#include <QObject>

namespace tavrix::sim {

class BridgeSimulator;

// Writes what the simulated bridge receives as JSON lines, one object per line,
// flushed as it goes so a reader (or a killed run) sees every record written so
// far. The format is described in tools/sim/README.md.
class BridgeLog : public QObject
{
    Q_OBJECT
public:
    explicit BridgeLog(QObject *parent = nullptr);

    // Truncates or creates the file. False with errorString() on failure.
    bool open(const QString &path);
    void close();
    [[nodiscard]] bool isOpen() const { return m_file.isOpen(); }
    [[nodiscard]] QString errorString() const { return m_file.errorString(); }

    // Logs everything this simulator receives from now on.
    void attach(BridgeSimulator *simulator);

    void logFrame(const QByteArray &frame, qint64 receivedMs);
    void logCommand(const QString &command, qint64 receivedMs);
    void logGarbage(const QByteArray &bytes, qint64 receivedMs);
    void logEvent(const QString &event, qint64 atMs);
    // A command of a simulated STM32 bootloader: its name and what it carried.
    void logBootloaderCommand(const QString &name, const QJsonObject &details, qint64 receivedMs);

private:
    void write(QJsonObject record, qint64 atMs);

    QFile m_file;
};

} // namespace tavrix::sim

#pragma once

#include "sessionstarter.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>

class QTextStream;

namespace tavrix {

class HeadlessMotion;
class HubServices;

// `orvanehub --headless`: brings the plan about through a SessionStarter and writes what
// happens as readable lines (transmitter, devices, transmission, car link on `out`; errors
// and refusals on `err`), with a short status every few seconds while transmitting. Knows
// nothing of windows or signals: the caller asks it to stop.
class HeadlessRunner : public QObject
{
    Q_OBJECT
public:
    struct Timings
    {
        std::chrono::milliseconds retryInterval = SessionStarter::kDefaultRetryInterval;
        std::chrono::milliseconds statusInterval{5000};
        // The same error again is printed after this long, not at every retry.
        std::chrono::milliseconds repeatErrorAfter{10000};
    };

    HeadlessRunner(HubServices &services, SessionPlan plan, QTextStream &out, QTextStream &err,
                   const Timings &timings, QObject *parent = nullptr);
    HeadlessRunner(HubServices &services, SessionPlan plan, QTextStream &out, QTextStream &err,
                   QObject *parent = nullptr);

    // Starts bringing the plan about. False (and finished(1)) when it cannot even begin. With a
    // motion board in the plan and no transmitter port known, the board runs alone.
    bool begin();
    // Releases the motion platform ("R"), stops transmission ("STOP" goes to the bridge) and,
    // a moment later, finishes with status 0.
    void stop(const QString &reason);

signals:
    void finished(int exitCode);

private:
    void watchController();
    void printLine(const QString &line);
    void printError(const QString &error);
    void printStatus();
    // Whether the mobile app can connect, and on which port.
    void printRemoteState();
    // Starts the drive recorder in the plan's folder; false (printed) when it cannot.
    bool beginRecording();

    HubServices &m_services;
    SessionStarter *m_starter;
    HeadlessMotion *m_motion = nullptr;
    QTextStream &m_out;
    QTextStream &m_err;
    Timings m_timings;
    QString m_recordingsFolder;
    QTimer m_statusTimer;
    QString m_lastError;
    QElapsedTimer m_sinceLastError;
    bool m_stopping = false;
};

} // namespace tavrix

#pragma once

#include <QObject>
#include <QString>

#include <optional>

namespace tavrix {

class MotionSystemController;

// The motion platform in a run without a window: connects its board once at the start, on
// the platform asked for, and tells what the board does as lines (the controller's own
// progress text, its state word, its refusals). Stopping sends Release and lets go of the
// port, so the board hears "R" last and the seat's motors are off once nobody watches them.
class HeadlessMotion : public QObject
{
    Q_OBJECT
public:
    HeadlessMotion(MotionSystemController *motion, QString port, std::optional<int> platform,
                   QObject *parent = nullptr);

    // False (with error() emitted) when the platform is refused or the port cannot be opened.
    bool begin();
    // Release ("R"), then the port closes with it written out; nothing is sent after it.
    void stop();

signals:
    void line(const QString &text);
    void error(const QString &text);

private:
    MotionSystemController *m_motion;
    QString m_port;
    std::optional<int> m_platform;
};

} // namespace tavrix

#pragma once

#include "motiontestcard.h"

#include <QElapsedTimer>
#include <QObject>

namespace tavrix {

class MotionChooserPage;
class MotionMoveThrottle;
class MotionPanelPage;
class MotionSystemController;
class PortPickerBinder;
class TavrixController;

// Ties the motion pages to the motion controller: the board's port (through the shared port
// picker, on the hub's serial port list), its state and heartbeat, the actuators and Free mode,
// the tests, the settings and the log; and the platform chosen on the chooser page. Release
// goes to the controller at any time, and drops any Free-mode move still waiting, so nothing
// reaches the board after it.
class MotionPanelBinder : public QObject
{
    Q_OBJECT
public:
    // ports: the transmission controller, whose serial port list the motion board shares.
    MotionPanelBinder(MotionPanelPage *page, MotionChooserPage *chooser, MotionSystemController *motion,
                      TavrixController *ports, QObject *parent = nullptr);

    // The ranges of the tests as the motion controller takes them.
    [[nodiscard]] static MotionTestLimits testLimits();

    // Makes `degreesOfFreedom` the platform; false, with the reason on the chooser page, while
    // a test runs on another one.
    bool choosePlatform(int degreesOfFreedom);

public slots:
    // A line for the page's log, with the time it was written.
    void appendLog(const QString &line);

private:
    void bindTests();
    void bindSettings();
    void showPlatform();
    void showState();
    void showHeartbeat();
    void onStatusLine(const QString &line);
    void onTestFinished();
    void release();

    MotionPanelPage *m_page;
    MotionChooserPage *m_chooser;
    MotionSystemController *m_motion;
    PortPickerBinder *m_ports = nullptr;
    MotionMoveThrottle *m_moves = nullptr;
    QElapsedTimer m_sinceHeartbeat;
    // The Full System test's lines go to its status while it runs.
    bool m_fullSystemShown = false;
    bool m_fullSystemEnded = false;
};

} // namespace tavrix

#pragma once

#include "motiontestcard.h"
#include "page.h"

class QPushButton;

namespace hub {
class LogView;
class Notice;
} // namespace hub

namespace tavrix {

class MotionActuatorsCard;
class MotionConnectionCard;
class MotionSettingsCard;

// The "motion-panel" page for one platform: the board's port and state, the actuators with
// Free mode, the tests, the settings and the board's log. Release sits in the page's header,
// outside the scrolling column, so it is on screen whatever the page is scrolled to. It only
// presents; a binder ties it to the motion controller.
class MotionPanelPage : public hub::Page
{
    Q_OBJECT
public:
    // Lines the board's log keeps; older ones drop off.
    static constexpr int kLogLines = 500;

    explicit MotionPanelPage(const MotionTestLimits &limits, QWidget *parent = nullptr);

    void setPlatform(int degreesOfFreedom);
    int platform() const { return m_dof; }

    // A refusal or fault the user should read; an empty text hides it.
    void showError(const QString &message);
    QString error() const;
    void appendLog(const QString &line);

    MotionConnectionCard *connectionCard() const { return m_connection; }
    MotionActuatorsCard *actuatorsCard() const { return m_actuators; }
    MotionTestCard *testCard() const { return m_tests; }
    MotionSettingsCard *settingsCard() const { return m_settings; }
    hub::LogView *log() const { return m_log; }
    QPushButton *releaseButton() const { return m_release; }
    QPushButton *webPanelButton() const { return m_webPanel; }

signals:
    void backRequested();
    void releaseRequested();
    // The phone web panel's dialog; whoever owns the dialogs opens it.
    void webPanelRequested();

private:
    MotionConnectionCard *m_connection = nullptr;
    MotionActuatorsCard *m_actuators = nullptr;
    MotionTestCard *m_tests = nullptr;
    MotionSettingsCard *m_settings = nullptr;
    hub::LogView *m_log = nullptr;
    hub::Notice *m_error = nullptr;
    QPushButton *m_release = nullptr;
    QPushButton *m_webPanel = nullptr;
    int m_dof = 0;
};

} // namespace tavrix

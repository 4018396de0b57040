#pragma once

#include "devicepickercard.h"
#include "vehiclepage.h"

class QLabel;

namespace hub {
class LevelBar;
class StatusPill;
} // namespace hub

namespace tavrix {

class DevicePickerCard;

// The "rc-heli" page: transmitter, joystick/throttle/pedals, arming, rate mode, live
// controls and channels. Like the car page it presents and asks; the owner binds it.
class HeliPage : public VehiclePage
{
    Q_OBJECT
public:
    explicit HeliPage(QWidget *parent = nullptr);

    // The helicopter's game-controller roles as its controls picker lists them.
    static QList<DevicePickerCard::Role> deviceRoles();

    DevicePickerCard *controlsCard() const { return m_controls; }
    // The buttons that open the settings dialogs: controls, rates, curves, arming, button mappings.
    QList<QPushButton *> configureButtons() const { return m_configureButtons; }
    QPushButton *armButton() const { return m_arm; }
    // The buttons of rate modes 0, 1 and 2.
    QPushButton *rateButton(int mode) const;
    bool isArmed() const { return m_armed; }
    // "Beginner", "Sport" and "3D" for modes 0, 1 and 2.
    static QString rateModeName(int mode);
    QString rateModeText() const;

public slots:
    void setArmed(bool armed);
    // Arming is offered only when it can work; the reason shows as the button's tool tip.
    void setArmAvailable(bool available, const QString &reason = {});
    void showRateMode(int mode);
    // The percentage each rate mode scales roll, pitch and yaw by; without rate modes the
    // sticks always have their full travel and the buttons are disabled.
    void showRatePercents(const QList<int> &percents, bool enabled);
    void showControls(double roll, double pitch, double collective, double yaw);
    void clearControls();

signals:
    void armRequested();
    void disarmRequested();
    void rateModeRequested(int mode);
    void controlsSettingsRequested();
    void ratesSettingsRequested();
    void curvesSettingsRequested();
    void armingSettingsRequested();
    void buttonsRequested();

private:
    QWidget *buildConfigureCard();
    QWidget *buildFlightCard();
    QWidget *buildLiveControlsCard();

    DevicePickerCard *m_controls = nullptr;
    hub::StatusPill *m_armedPill = nullptr;
    QPushButton *m_arm = nullptr;
    QList<QPushButton *> m_rateButtons;
    QList<QPushButton *> m_configureButtons;
    QLabel *m_rateName = nullptr;
    hub::LevelBar *m_roll = nullptr;
    hub::LevelBar *m_pitch = nullptr;
    hub::LevelBar *m_collective = nullptr;
    hub::LevelBar *m_yaw = nullptr;
    bool m_armed = false;
    bool m_armAvailable = false;
};

} // namespace tavrix

#pragma once

#include "devicepickercard.h"
#include "vehiclepage.h"

class QLabel;
class QPushButton;

namespace hub {
class Card;
class LevelBar;
class StatTile;
class StatusPill;
} // namespace hub

namespace tavrix {

class DevicePickerCard;
class ReceiverCard;

// The "rc-car" page: transmitter, game controllers per role, the configuration dialogs,
// live input, the car link, the car's receiver and the channels. It presents and asks; whoever owns the
// transmission binds its signals to the slots here and acts on the requests it emits.
class CarPage : public VehiclePage
{
    Q_OBJECT
public:
    explicit CarPage(QWidget *parent = nullptr);

    // The car's game-controller roles as its device picker lists them.
    static QList<DevicePickerCard::Role> deviceRoles();

    DevicePickerCard *deviceCard() const { return m_devices; }
    hub::Card *configureCard() const { return m_configure; }
    ReceiverCard *receiverCard() const { return m_receiver; }
    hub::LevelBar *steeringBar() const { return m_steering; }
    hub::LevelBar *throttleBar() const { return m_throttle; }
    hub::StatusPill *carLinkPill() const { return m_linkPill; }
    hub::StatTile *linkQualityTile() const { return m_linkQuality; }
    hub::StatTile *batteryTile() const { return m_battery; }
    hub::StatTile *gpsTile() const { return m_gps; }
    QString configureText() const;
    QPushButton *motionOutputButton() const { return m_motionOutput; }
    QPushButton *forceFeedbackButton() const { return m_forceFeedback; }
    // The Configure topics that open an editor, in the topics' order.
    QList<QPushButton *> configureButtons() const { return m_configureButtons; }

    // The settings of a car profile the Configure card names, in its order.
    static QStringList configureTopics();

public slots:
    void showInput(double steering, double throttle, double brake);
    void clearInput();
    void setCarLinked(bool linked);
    void showLinkQuality(int percent, int rssiDbm);
    void showBattery(double volts, int remainingPercent);
    void showGps(bool valid, int satellites);
    void clearTelemetry();
    // Names the profile whose settings the Configure card describes.
    void setProfileName(const QString &name);

signals:
    void motionOutputRequested();
    void forceFeedbackRequested();
    void axisSettingsRequested();
    void driveSettingsRequested();
    void buttonsRequested();

private:
    QWidget *buildLiveInputCard();
    QWidget *buildCarLinkCard();
    QWidget *buildConfigureCard();

    DevicePickerCard *m_devices = nullptr;
    hub::Card *m_configure = nullptr;
    ReceiverCard *m_receiver = nullptr;
    QLabel *m_configureText = nullptr;
    QPushButton *m_motionOutput = nullptr;
    QPushButton *m_forceFeedback = nullptr;
    QList<QPushButton *> m_configureButtons;
    hub::LevelBar *m_steering = nullptr;
    hub::LevelBar *m_throttle = nullptr;
    hub::LevelBar *m_brake = nullptr;
    hub::StatusPill *m_linkPill = nullptr;
    hub::StatTile *m_linkQuality = nullptr;
    hub::StatTile *m_rssi = nullptr;
    hub::StatTile *m_battery = nullptr;
    hub::StatTile *m_gps = nullptr;
};

} // namespace tavrix

#pragma once

#include <QDialog>
#include <QHash>

#include <array>

class QLabel;
class QPushButton;
class QStackedWidget;

namespace hub {
class ChoiceTile;
class Notice;
} // namespace hub

namespace tavrix {

class DevicePickerCard;
class PedalVerifyDialog;
class TransmitterCard;

// The "onboarding" dialog: the first drive, step by step. The vehicle, the transmitter's
// port, a game controller per role (picked, or found by moving it), the pedal check (cars
// only) and a first start with the safety notice. Back and Skip always work, Next once the
// owner says the step is done, and the guide can be closed at any step. It only presents:
// every choice goes out as a request, and the owner saves it when it is made, so closing
// the guide keeps what was chosen so far and nothing else.
class SetupGuide : public QDialog
{
    Q_OBJECT
public:
    enum class Step
    {
        Vehicle,
        Transmitter,
        Devices,
        Pedals,
        FirstStart
    };
    static constexpr int kStepCount = 5;

    // The pedal check's thresholds, as fractions of the travel (see PedalVerifyDialog).
    SetupGuide(double releasedLimit, double fullyPressed, QWidget *parent = nullptr);

    [[nodiscard]] Step currentStep() const { return m_step; }
    [[nodiscard]] bool isHelicopter() const { return m_helicopter; }

    hub::ChoiceTile *vehicleTile(bool helicopter) const { return helicopter ? m_heliTile : m_carTile; }
    TransmitterCard *transmitterCard() const { return m_transmitter; }
    DevicePickerCard *devicePicker(bool helicopter) const { return m_pickers.at(helicopter ? 1 : 0); }
    // The "Detect" button of a role (by the picker's role key: "wheel", "joystick", ...).
    QPushButton *detectButton(const QString &roleKey) const { return m_detectButtons.value(roleKey); }
    QString detectedText(const QString &roleKey) const;
    PedalVerifyDialog *pedalCheck() const { return m_pedals; }
    QPushButton *startButton() const { return m_start; }
    QPushButton *stopButton() const { return m_stop; }
    QPushButton *backButton() const { return m_back; }
    QPushButton *skipButton() const { return m_skip; }
    QPushButton *nextButton() const { return m_next; }

public slots:
    void goTo(tavrix::SetupGuide::Step step);
    // Which vehicle is chosen: its tile, its roles on the devices step, and whether the pedal
    // check (a car's) is one of the steps.
    void showVehicle(bool helicopter);
    // Next is offered once a step is done.
    void setStepDone(tavrix::SetupGuide::Step step, bool done);
    void showDetecting(const QString &roleKey);
    // found: "Test Wheel, axis lX"; empty when nothing is being looked for.
    void showDetected(const QString &roleKey, const QString &found);
    void showRunning(bool running);
    // A refused start, in the controller's own words; empty clears it.
    void showStartProblem(const QString &problem);

signals:
    void vehicleChosen(bool helicopter);
    void detectRequested(const QString &roleKey);
    void startRequested();
    void stopRequested();
    void stepChanged(tavrix::SetupGuide::Step step);

private:
    QWidget *buildVehicleStep();
    QWidget *buildTransmitterStep();
    QWidget *buildDevicesStep();
    QWidget *buildPedalStep(double releasedLimit, double fullyPressed);
    QWidget *buildStartStep();
    QWidget *buildVehicleDevices(const QString &title, bool helicopter);
    [[nodiscard]] bool isShown(Step step) const;
    void step(int direction);
    void refreshNavigation();

    Step m_step = Step::Vehicle;
    bool m_helicopter = false;
    std::array<bool, kStepCount> m_done{};
    QLabel *m_progress = nullptr;
    QStackedWidget *m_steps = nullptr;
    hub::ChoiceTile *m_carTile = nullptr;
    hub::ChoiceTile *m_heliTile = nullptr;
    TransmitterCard *m_transmitter = nullptr;
    QStackedWidget *m_vehicleDevices = nullptr;
    std::array<DevicePickerCard *, 2> m_pickers{};
    QHash<QString, QPushButton *> m_detectButtons;
    QHash<QString, QLabel *> m_detected;
    PedalVerifyDialog *m_pedals = nullptr;
    QStackedWidget *m_notices = nullptr;
    QPushButton *m_start = nullptr;
    QPushButton *m_stop = nullptr;
    QLabel *m_runState = nullptr;
    hub::Notice *m_problem = nullptr;
    QPushButton *m_back = nullptr;
    QPushButton *m_skip = nullptr;
    QPushButton *m_next = nullptr;
};

} // namespace tavrix

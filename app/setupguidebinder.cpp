#include "setupguidebinder.h"

#include "devicepickerbinder.h"
#include "devicepickercard.h"
#include "inputdevice.h"
#include "pedalverifydialogbinder.h"
#include "shellsettings.h"
#include "tavrixcontroller.h"
#include "transmittercardbinder.h"
#include "vehicleprofiles.h"

namespace tavrix {

namespace {

// The role a vehicle cannot go without: the first of its roles (wheel base, joystick).
DeviceRole drivingRole(VehicleType vehicle)
{
    return DeviceRoleSet::rolesFor(vehicle).constFirst();
}

std::optional<DeviceRole> roleOf(const QString &roleKey)
{
    for (const DeviceRoleInfo &info : deviceRoles()) {
        if (QString(info.option) == roleKey)
            return info.role;
    }
    return std::nullopt;
}

} // namespace

SetupGuideBinder::SetupGuideBinder(SetupGuide *guide, TavrixController *controller)
    : QObject(guide)
    , m_guide(guide)
    , m_controller(controller)
    , m_pedals(new PedalVerifyDialogBinder(guide->pedalCheck(), controller))
{
    new TransmitterCardBinder(guide->transmitterCard(), controller, this);
    for (VehicleType vehicle : {VehicleType::Car, VehicleType::Helicopter}) {
        // A device picked by hand ends the detection first (connected before the picker's binder),
        // so the detection lets go of the device before its role opens it.
        connect(guide->devicePicker(vehicle == VehicleType::Helicopter), &DevicePickerCard::deviceChosen,
                this, &SetupGuideBinder::cancelDetection);
        new DevicePickerBinder(guide->devicePicker(vehicle == VehicleType::Helicopter), controller,
                               DevicePickerBinder::rolesOf(vehicle), this);
    }

    connect(guide, &SetupGuide::vehicleChosen, this, &SetupGuideBinder::chooseVehicle);
    connect(guide, &SetupGuide::detectRequested, this, &SetupGuideBinder::detect);
    connect(guide, &SetupGuide::startRequested, this, &SetupGuideBinder::start);
    connect(guide, &SetupGuide::stopRequested, controller, &TavrixController::stopTransmission);
    connect(guide, &SetupGuide::stepChanged, this, &SetupGuideBinder::onStepChanged);
    connect(guide, &QDialog::finished, this, [this] {
        cancelDetection();
        // The guide's start was a trial on a stand; it does not outlive the guide.
        if (m_startedHere)
            m_controller->stopTransmission();
    });

    connect(controller->movedDeviceDetection(), &MovedDeviceDetection::found, this,
            &SetupGuideBinder::assignDetected);
    connect(controller, &TavrixController::runningChanged, guide, &SetupGuide::showRunning);
    // A run started elsewhere after the guide's own one stopped is not the guide's to stop.
    connect(controller, &TavrixController::runningChanged, this, [this](bool running) {
        if (!running)
            m_startedHere = false;
    });
    connect(controller, &TavrixController::errorOccurred, guide, &SetupGuide::showStartProblem);
    for (auto signal :
         {&TavrixController::serialConnectedChanged, &TavrixController::wheelBaseConnectedChanged,
          &TavrixController::heliJoystickConnectedChanged})
        connect(controller, signal, this, &SetupGuideBinder::showDone);
    connect(controller, &TavrixController::profileChanged, this, &SetupGuideBinder::showDone);
    // After the pedal binder (made above), so its verdict is up to date.
    connect(controller, &TavrixController::inputChanged, this,
            [this] { m_guide->setStepDone(SetupGuide::Step::Pedals, m_pedals->passed()); });

    guide->showRunning(controller->isRunning());
    showDone();
}

SetupGuideBinder::~SetupGuideBinder()
{
    // The guide is being torn down around this binder: only the controller is told.
    if (!m_detectingRole.isEmpty())
        m_controller->movedDeviceDetection()->stop();
}

void SetupGuideBinder::showDone()
{
    const VehicleType vehicle = m_controller->vehicleType();
    m_guide->showVehicle(vehicle == VehicleType::Helicopter);
    // A vehicle is always chosen: the active profile drives one.
    m_guide->setStepDone(SetupGuide::Step::Vehicle, true);
    m_guide->setStepDone(SetupGuide::Step::Transmitter, m_controller->isSerialConnected());
    m_guide->setStepDone(SetupGuide::Step::Devices,
                         m_controller->devices()->isConnected(drivingRole(vehicle)));
    m_guide->setStepDone(SetupGuide::Step::Pedals, m_pedals->passed());
}

void SetupGuideBinder::chooseVehicle(bool helicopter)
{
    activateProfileForVehicle(*m_controller->profileManager(),
                              helicopter ? QStringLiteral("rc_helicopter") : QStringLiteral("rc_car"),
                              helicopter ? tr("RC Helicopter") : tr("RC Car"));
    showDone();
}

void SetupGuideBinder::detect(const QString &roleKey)
{
    cancelDetection();
    m_detectingRole = roleKey;
    if (m_controller->movedDeviceDetection()->start()) {
        m_guide->showDetecting(roleKey);
        return;
    }
    m_detectingRole.clear();
    m_guide->showDetected(roleKey, tr("No game controller is attached."));
}

void SetupGuideBinder::assignDetected(const MovedControl &control)
{
    const QString roleKey = std::exchange(m_detectingRole, QString());
    const std::optional<DeviceRole> role = roleOf(roleKey);
    if (!role)
        return;
    // A refusal (while transmitting, or the device would not open) reports itself through the
    // controller's errorOccurred.
    if (!m_controller->connectDevice(*role, control.deviceIndex)) {
        m_guide->showDetected(roleKey, QString());
        return;
    }
    m_guide->showDetected(
        roleKey, control.axisSlot >= 0
                     ? tr("%1, axis %2").arg(control.deviceName, InputDevice::axisSlotName(control.axisSlot))
                     : tr("%1, button %2").arg(control.deviceName).arg(control.button + 1));
}

void SetupGuideBinder::start()
{
    m_guide->showStartProblem(QString());
    // The notice is on the step the user started from.
    hub::ShellSettings::setSafetyNoticeAccepted(m_guide->isHelicopter() ? hub::SafetyNotice::Helicopter
                                                                        : hub::SafetyNotice::Car);
    if (m_controller->startTransmission())
        m_startedHere = true;
}

void SetupGuideBinder::onStepChanged(SetupGuide::Step step)
{
    // What went wrong on the way (a device that would not open) is no reason to hold back here.
    if (step == SetupGuide::Step::FirstStart)
        m_guide->showStartProblem(QString());
    if (step != SetupGuide::Step::Devices)
        cancelDetection();
}

void SetupGuideBinder::cancelDetection()
{
    if (m_detectingRole.isEmpty())
        return;
    m_controller->movedDeviceDetection()->stop();
    m_guide->showDetected(std::exchange(m_detectingRole, QString()), QString());
}

} // namespace tavrix

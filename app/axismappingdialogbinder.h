#pragma once

#include "axismappingdialog.h"
#include "deviceroles.h"

#include <QObject>

namespace tavrix {

class AxisMotionWatcher;
class InputDevice;
class TavrixController;

// Binds a custom axis mapping dialog to the open device of one role (wheel base or pedals)
// for as long as the dialog lives. Each edit goes to the device at once and into the
// active profile as that product's own mapping, the way a chosen preset does; an axis is
// detected by moving it. Nothing is mapped while transmitting.
class AxisMappingDialogBinder : public QObject
{
    Q_OBJECT
public:
    // Parented to the dialog; the controller must outlive it.
    AxisMappingDialogBinder(AxisMappingDialog *dialog, TavrixController *controller, DeviceRole role);

    // How many axis slots a device can offer the list.
    [[nodiscard]] static int axisSlots();

private:
    [[nodiscard]] InputDevice *device() const;
    void showMapping();
    void showEditable();
    void apply(const AxisMappingDialog::Values &values);
    void detect(int input);
    void takeDetected(int slot);
    void stopDetecting();

    AxisMappingDialog *m_dialog;
    TavrixController *m_controller;
    DeviceRole m_role;
    AxisMotionWatcher *m_watch;
    int m_detecting = -1;
};

} // namespace tavrix

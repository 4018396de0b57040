#include "axismappingdialogbinder.h"

#include "axismappingchange.h"
#include "axismotionwatcher.h"
#include "deviceroleset.h"
#include "inputdevice.h"
#include "profileedits.h"
#include "profilemanager.h"
#include "tavrixcontroller.h"

namespace tavrix {

namespace {

AxisMappingDialog::Values valuesOf(const AxisPreset &mapping)
{
    static_assert(AxisMappingDialog::kInputCount == LogicalInputCount);
    AxisMappingDialog::Values v;
    for (int input = 0; input < LogicalInputCount; ++input) {
        const int slot = mapping.slot(LogicalInput(input));
        v.axes[std::size_t(input)] = slot == kUnmappedSlot ? AxisMappingDialog::kNoAxis : slot;
        v.inverted[std::size_t(input)] = mapping.isInverted(LogicalInput(input));
    }
    return v;
}

// The values laid over the device's mapping, so the combined-pedal split stays as it was.
AxisPreset withValues(AxisPreset mapping, const AxisMappingDialog::Values &v)
{
    for (int input = 0; input < LogicalInputCount; ++input) {
        const int axis = v.axes[std::size_t(input)];
        mapping.axisSlots[std::size_t(input)] = axis < 0 ? kUnmappedSlot : axis;
        mapping.inverted[std::size_t(input)] = v.inverted[std::size_t(input)];
    }
    // No longer a preset's; the hub names it after a preset again if it matches one.
    mapping.name.clear();
    return mapping;
}

} // namespace

AxisMappingDialogBinder::AxisMappingDialogBinder(AxisMappingDialog *dialog, TavrixController *controller,
                                                 DeviceRole role)
    : QObject(dialog)
    , m_dialog(dialog)
    , m_controller(controller)
    , m_role(role)
    , m_watch(new AxisMotionWatcher({}, this))
{
    connect(dialog, &AxisMappingDialog::edited, this, &AxisMappingDialogBinder::apply);
    connect(dialog, &AxisMappingDialog::detectRequested, this, &AxisMappingDialogBinder::detect);
    connect(dialog, &AxisMappingDialog::detectCancelled, this, &AxisMappingDialogBinder::stopDetecting);
    connect(m_watch, &AxisMotionWatcher::moved, this, &AxisMappingDialogBinder::takeDetected);
    connect(m_watch, &AxisMotionWatcher::timedOut, this, [this] {
        stopDetecting();
        m_dialog->showError(tr("No axis moved far enough. Press Detect again and move the control further."));
    });
    ProfileManager *profiles = controller->profileManager();
    connect(profiles, &ProfileManager::profileModified, this, &AxisMappingDialogBinder::showMapping);
    connect(profiles, &ProfileManager::activeProfileChanged, this, &AxisMappingDialogBinder::showMapping);
    connect(controller->devices(), &DeviceRoleSet::connectedChanged, this, [this](DeviceRole changed) {
        if (changed == m_role) {
            stopDetecting();
            showMapping();
        }
    });
    connect(controller, &TavrixController::runningChanged, this, [this](bool running) {
        if (running)
            stopDetecting();
        showEditable();
    });
    showMapping();
}

int AxisMappingDialogBinder::axisSlots()
{
    return AxisMotionWatcher::kSlots;
}

InputDevice *AxisMappingDialogBinder::device() const
{
    return m_controller->devices()->isConnected(m_role) ? m_controller->devices()->device(m_role) : nullptr;
}

void AxisMappingDialogBinder::showMapping()
{
    if (const InputDevice *open = device())
        m_dialog->showValues(valuesOf(open->preset()));
    showEditable();
}

void AxisMappingDialogBinder::showEditable()
{
    m_dialog->setEditable(device() && !m_controller->isRunning());
}

void AxisMappingDialogBinder::apply(const AxisMappingDialog::Values &values)
{
    InputDevice *open = device();
    // The dialog offers nothing while transmitting or without the device; a change since still wins.
    if (open && !m_controller->isRunning()) {
        ProfileManager &profiles = *m_controller->profileManager();
        const AxisPreset mapping = withValues(open->preset(), values);
        m_dialog->showError(
            storeRefusal(profiles, [&] { return applyAxisMapping(*open, profiles, m_role, mapping); }));
    }
    showMapping();
}

void AxisMappingDialogBinder::detect(int input)
{
    const InputDevice *open = device();
    if (!open || m_controller->isRunning())
        return;
    m_dialog->showError(QString());
    m_detecting = input;
    m_watch->watch(open);
    m_dialog->showDetecting(input);
}

void AxisMappingDialogBinder::takeDetected(int slot)
{
    const int input = m_detecting;
    stopDetecting();
    const InputDevice *open = device();
    if (input < 0 || !open)
        return;
    AxisMappingDialog::Values values = valuesOf(open->preset());
    values.axes[std::size_t(input)] = slot;
    apply(values);
}

void AxisMappingDialogBinder::stopDetecting()
{
    m_watch->cancel();
    m_detecting = -1;
    m_dialog->showDetecting(-1);
}

} // namespace tavrix

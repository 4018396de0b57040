#include "shiftergearsbinder.h"

#include "drivesettingsdialog.h"
#include "inputdetection.h"
#include "profileedits.h"
#include "profilemanager.h"
#include "repaintthrottle.h"
#include "shiftergearsview.h"
#include "tavrixcontroller.h"

namespace tavrix {

static_assert(ShifterGearsView::kSlots == ShifterMapping::kSlots,
              "the Gears tab has one row per stored slot");

ShifterGearsBinder::ShifterGearsBinder(DriveSettingsDialog *dialog, TavrixController *controller)
    : QObject(dialog)
    , m_dialog(dialog)
    , m_view(dialog->gearsView())
    , m_controller(controller)
    , m_detection(controller->inputDetection())
    , m_live(new RepaintThrottle([this] { showEngaged(); }, this))
{
    connect(m_view, &ShifterGearsView::detectRequested, this, &ShifterGearsBinder::detect);
    connect(m_view, &ShifterGearsView::clearRequested, this, &ShifterGearsBinder::clear);
    // A detection the remote app starts replaces this dialog's, which is then no longer ours to cancel.
    connect(m_detection, &InputDetection::shifterDetectionStarted, this, [this](int slot) {
        m_detecting = m_starting;
        m_view->showWaiting(slot);
    });
    connect(m_detection, &InputDetection::shifterDetectionResult, this, [this](int slot, int, bool success) {
        m_detecting = false;
        m_view->showDetected(slot, success);
    });
    // The mapping lives in the profile: a detection, the remote app and a profile switch all change it there.
    ProfileManager *profiles = controller->profileManager();
    connect(profiles, &ProfileManager::profileModified, this, &ShifterGearsBinder::showMapping);
    connect(profiles, &ProfileManager::activeProfileChanged, this, &ShifterGearsBinder::showMapping);
    // The gear moves with the controls, read on every tick or idle poll.
    connect(controller, &TavrixController::inputChanged, m_live, &RepaintThrottle::request);
    connect(controller, &TavrixController::shifterConnectedChanged, m_live, &RepaintThrottle::request);
    connect(dialog, &QDialog::finished, this, &ShifterGearsBinder::cancelOwnDetection);
    showMapping();
    showEngaged();
}

ShifterGearsBinder::~ShifterGearsBinder()
{
    disconnect(m_detection, nullptr, this, nullptr);
    cancelOwnDetection();
}

void ShifterGearsBinder::detect(int slot)
{
    const QString refusal = m_detection->shifterDetectionRefusal();
    if (!refusal.isEmpty()) {
        m_view->showRefusal(slot, refusal);
        return;
    }
    m_starting = true;
    m_detection->startShifterDetection(slot);
    m_starting = false;
}

void ShifterGearsBinder::clear(int slot)
{
    // An input of -1 is held by no other slot, so only this one changes.
    const ShifterMapping cleared = shifterMappingWith(m_detection->shifterMapping(), slot, -1);
    m_view->showRefusal(slot, storeRefusal(*m_controller->profileManager(),
                                           [&] { return m_detection->setShifterMapping(cleared); }));
}

void ShifterGearsBinder::showMapping()
{
    const ShifterMapping mapping = m_detection->shifterMapping();
    std::array<int, ShifterGearsView::kSlots> inputs{};
    std::copy(mapping.buttonIndex.begin(), mapping.buttonIndex.end(), inputs.begin());
    m_view->showInputs(inputs);
    m_dialog->showForwardGearMapped(mapping.hasForwardGear());
}

void ShifterGearsBinder::showEngaged()
{
    const QString unavailable = m_detection->shifterDetectionRefusal();
    if (unavailable.isEmpty())
        m_view->showEngaged(ShifterMapping::slotOfGear(m_controller->gear()));
    else
        m_view->showEngagedUnavailable(unavailable);
}

void ShifterGearsBinder::cancelOwnDetection()
{
    if (m_detecting)
        m_detection->cancelShifterDetection();
    m_detecting = false;
}

} // namespace tavrix

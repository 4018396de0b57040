#pragma once

#include <QObject>

namespace tavrix {

class DriveSettingsDialog;
class InputDetection;
class RepaintThrottle;
class ShifterGearsView;
class TavrixController;

// Binds the drive dialog's Gears tab to the controller's shifter detection for as long as
// the dialog lives. Detect runs the same detection the remote app starts (once a shifter
// is there to hear it), Clear writes the mapping through the same writer, so the profile
// and the car follow exactly as they do for the app; detections and mappings the app makes
// show up in the open dialog. The gear the shifter reports is shown at most once per
// repaint, not on every tick, and the Limits tab hears whether any forward gear is mapped.
class ShifterGearsBinder : public QObject
{
    Q_OBJECT
public:
    // Parented to the dialog; the controller must outlive it.
    ShifterGearsBinder(DriveSettingsDialog *dialog, TavrixController *controller);
    // A detection this dialog started is not left to assign a gear nobody watches.
    ~ShifterGearsBinder() override;

private:
    void detect(int slot);
    void clear(int slot);
    void showMapping();
    void showEngaged();
    void cancelOwnDetection();

    DriveSettingsDialog *m_dialog;
    ShifterGearsView *m_view;
    TavrixController *m_controller;
    InputDetection *m_detection;
    RepaintThrottle *m_live;
    // A detection started here is still waiting for its gear.
    bool m_detecting = false;
    // Set while this dialog starts one, to tell its start from the remote app's.
    bool m_starting = false;
};

} // namespace tavrix

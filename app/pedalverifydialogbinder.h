#pragma once

#include "pedalverification.h"

#include <QObject>

namespace tavrix {

class PedalVerifyDialog;
class RepaintThrottle;
class TavrixController;

// Binds one pedal-verification dialog to the controller's pedal readings for as long as
// the dialog lives: every reading is judged (so a quick full press is not missed between
// repaints), the dialog repaints at most about 30 times a second.
class PedalVerifyDialogBinder : public QObject
{
    Q_OBJECT
public:
    // Parented to the dialog; the controller must outlive it.
    PedalVerifyDialogBinder(PedalVerifyDialog *dialog, TavrixController *controller);

    [[nodiscard]] bool passed() const { return m_verification.passed(); }

private:
    [[nodiscard]] bool hasPedals() const;
    void judge();
    void show();

    PedalVerifyDialog *m_dialog;
    TavrixController *m_controller;
    RepaintThrottle *m_repaint;
    PedalVerification m_verification;
};

} // namespace tavrix

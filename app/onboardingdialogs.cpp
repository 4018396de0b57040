#include "carpage.h"
#include "dialogregistry.h"
#include "dialogwiring.h"
#include "hubservices.h"
#include "infopage.h"
#include "pedalverification.h"
#include "safetynoticedialog.h"
#include "setupguide.h"
#include "setupguidebinder.h"
#include "shellsettings.h"
#include "startconfirmation.h"

namespace tavrix {

namespace {

const QString kSetupGuide = QStringLiteral("onboarding");
const QString kSafetyNotice = QStringLiteral("disclaimer");

// Asks the vehicle's safety notice before a start from its page until it was accepted once.
StartConfirmation::Ask askNotice(hub::SafetyNotice which, QWidget *window)
{
    return [which, window](const StartConfirmation::Proceed &proceed) {
        if (hub::ShellSettings::safetyNoticeAccepted(which)) {
            proceed();
            return;
        }
        auto *notice = new SafetyNoticeDialog(which, window);
        notice->setAttribute(Qt::WA_DeleteOnClose);
        // Deleted when it closes, so a Cancel leaves nothing behind to start later.
        QObject::connect(notice, &QDialog::accepted, notice, [which, proceed] {
            hub::ShellSettings::setSafetyNoticeAccepted(which);
            proceed();
        });
        notice->open();
    };
}

} // namespace

void wireOnboardingDialogs(const DialogWiring &wiring)
{
    TavrixController *controller = wiring.services.controller();
    wiring.dialogs.add(kSetupGuide, [controller](QWidget *parent) {
        auto *guide =
            new SetupGuide(PedalVerification::kReleasedLimit, PedalVerification::kFullyPressed, parent);
        new SetupGuideBinder(guide, controller);
        // However it was opened, once closed the window stops offering it by itself.
        QObject::connect(guide, &QDialog::finished, guide,
                         [] { hub::ShellSettings::setSetupGuideDismissed(); });
        return guide;
    });
    QObject::connect(wiring.info, &InfoPage::setupGuideRequested, wiring.context, wiring.opener(kSetupGuide));

    wiring.dialogs.add(kSafetyNotice, [](QWidget *parent) {
        return new SafetyNoticeDialog(hub::SafetyNotice::Car, parent);
    });
    wiring.carStart.setAsk(askNotice(hub::SafetyNotice::Car, wiring.context));
    wiring.heliStart.setAsk(askNotice(hub::SafetyNotice::Helicopter, wiring.context));
}

} // namespace tavrix

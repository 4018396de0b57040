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

    wiring.dialogs.add(kSafetyNotice, [](QWidget *parent) { return new SafetyNoticeDialog(parent); });
    wiring.carStart.setAsk([open = wiring.open](const StartConfirmation::Proceed &proceed) {
        if (hub::ShellSettings::safetyNoticeAccepted()) {
            proceed();
            return;
        }
        auto *notice = qobject_cast<SafetyNoticeDialog *>(open(kSafetyNotice));
        if (!notice)
            return;
        // The notice is deleted when it closes, so a Cancel leaves nothing behind to start later.
        QObject::connect(notice, &QDialog::accepted, notice, [proceed] {
            hub::ShellSettings::setSafetyNoticeAccepted();
            proceed();
        });
    });
}

} // namespace tavrix

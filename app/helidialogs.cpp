#include "dialogregistry.h"
#include "dialogwiring.h"
#include "helidialogbinders.h"
#include "helipage.h"
#include "hubservices.h"

namespace tavrix {

namespace {

// Makes a dialog of that kind with its binder, both living as long as the dialog.
template<class Dialog, class Binder> DialogRegistry::Factory factory(TavrixController *controller)
{
    return [controller](QWidget *parent) {
        auto *dialog = new Dialog(HeliSettingsBinder::limits(), parent);
        new Binder(dialog, controller);
        return dialog;
    };
}

} // namespace

void wireHelicopterDialogs(const DialogWiring &wiring)
{
    TavrixController *controller = wiring.services.controller();
    struct Entry
    {
        QString key;
        DialogRegistry::Factory make;
        void (HeliPage::*requested)();
    };
    const QList<Entry> entries = {
        {QStringLiteral("heli-config"), factory<HeliConfigDialog, HeliConfigDialogBinder>(controller),
         &HeliPage::controlsSettingsRequested},
        {QStringLiteral("heli-fly"), factory<HeliFlyDialog, HeliFlyDialogBinder>(controller),
         &HeliPage::ratesSettingsRequested},
        {QStringLiteral("heli-curves"), factory<HeliCurvesDialog, HeliCurvesDialogBinder>(controller),
         &HeliPage::curvesSettingsRequested},
        {QStringLiteral("heli-arming"), factory<HeliArmingDialog, HeliArmingDialogBinder>(controller),
         &HeliPage::armingSettingsRequested},
    };
    for (const Entry &entry : entries) {
        wiring.dialogs.add(entry.key, entry.make);
        QObject::connect(wiring.heli, entry.requested, wiring.context, wiring.opener(entry.key));
    }
}

} // namespace tavrix

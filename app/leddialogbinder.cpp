#include "leddialogbinder.h"

#include "buttonmappingengine.h"
#include "ledconfigpush.h"
#include "ledstripsettings.h"
#include "tavrixcontroller.h"

namespace tavrix {

namespace {

QColor toQColor(LedColor color)
{
    return QColor(color.r, color.g, color.b);
}

LedColor fromQColor(const QColor &color)
{
    return LedColor::clamped(color.red(), color.green(), color.blue());
}

LedDialog::Values valuesOf(const LedStripSettings &s)
{
    LedDialog::Values v;
    v.powerOn = s.powerOn();
    v.ledCount = s.ledCount();
    v.brightness = s.brightness();
    v.activePercentage = s.activePercentage();
    v.powerButtonIndex = s.powerButtonIndex();
    v.mode = LedDialog::Mode(int(s.mode()));
    v.globalColor = toQColor(s.globalColor());
    v.selectedLed = s.selectedLedIndex();
    v.selectedLedColor = toQColor(s.ledColor(s.selectedLedIndex()));
    for (const LedZone &zone : s.zones())
        v.zones.append({zone.startPercent, zone.endPercent, toQColor(zone.color)});
    v.selectedZone = s.selectedZoneIndex();
    return v;
}

} // namespace

LedDialogBinder::LedDialogBinder(LedDialog *dialog, TavrixController *controller)
    : QObject(dialog)
    , m_dialog(dialog)
    , m_controller(controller)
{
    connect(dialog, &LedDialog::edited, this, &LedDialogBinder::apply);
    connect(dialog, &LedDialog::zoneAddRequested, this, &LedDialogBinder::addZone);
    connect(dialog, &LedDialog::zoneRemoveRequested, this, &LedDialogBinder::removeZone);
    connect(dialog, &LedDialog::sendRequested, this, &LedDialogBinder::send);

    ProfileManager *profiles = controller->profileManager();
    connect(profiles, &ProfileManager::profileModified, this, &LedDialogBinder::showSettings);
    connect(profiles, &ProfileManager::activeProfileChanged, this, &LedDialogBinder::showSettings);
    connect(controller, &TavrixController::ledSettingsChanged, this, &LedDialogBinder::showSettings);

    LedConfigPush *push = controller->ledPush();
    connect(push, &LedConfigPush::stateChanged, this, &LedDialogBinder::showPush);
    connect(push, &LedConfigPush::finished, this, [this](bool success, const QString &message) {
        m_outcomeTone = success ? hub::Tone::Good : hub::Tone::Danger;
        m_outcome = success ? tr("Sent") : tr("Failed");
        m_outcomeMessage = message;
        showPush();
    });
    showSettings();
    showPush();
}

LedDialog::Limits LedDialogBinder::limits()
{
    return {LedStripSettings::kMaxLeds, LedStripSettings::kMaxBrightness,
            ButtonMappingEngine::kSourceCount - 1};
}

LedStripSettings LedDialogBinder::current() const
{
    // The controller saves a power flip a moment later; its own state is the newer one.
    LedStripSettings settings = LedStripSettings::ofActiveProfile(*m_controller->profileManager());
    settings.setPowerOn(m_controller->isLedPowerOn());
    return settings;
}

void LedDialogBinder::save(const LedStripSettings &settings)
{
    settings.saveTo(*m_controller->profileManager());
    // What the store kept (clamped, or unchanged when it refused) is what the dialog shows.
    showSettings();
}

void LedDialogBinder::showSettings()
{
    m_dialog->showValues(valuesOf(current()));
}

void LedDialogBinder::apply(const LedDialog::Values &v)
{
    if (v.powerOn != m_controller->isLedPowerOn())
        m_controller->setLedPower(v.powerOn);
    LedStripSettings s = current();
    s.setLedCount(v.ledCount);
    s.setBrightness(v.brightness);
    s.setActivePercentage(v.activePercentage);
    s.setPowerButtonIndex(v.powerButtonIndex);
    s.setMode(LedStripSettings::Mode(int(v.mode)));
    s.setGlobalColor(fromQColor(v.globalColor));
    // The LED's colour is stored only once the user picked one for it, not merely by selecting it.
    const LedColor ledColor = fromQColor(v.selectedLedColor);
    if (v.selectedLed == s.selectedLedIndex() && ledColor != s.ledColor(v.selectedLed))
        s.setLedColor(v.selectedLed, ledColor);
    s.setSelectedLedIndex(v.selectedLed);
    for (int zone = 0; zone < v.zones.size(); ++zone) {
        const LedDialog::Zone &z = v.zones.at(zone);
        s.setZone(zone, {z.startPercent, z.endPercent, fromQColor(z.color)});
    }
    s.setSelectedZoneIndex(v.selectedZone);
    save(s);
}

void LedDialogBinder::addZone()
{
    LedStripSettings s = current();
    const int zone = s.addZone(LedStripSettings::defaultZone());
    if (zone >= 0)
        s.setSelectedZoneIndex(zone);
    save(s);
}

void LedDialogBinder::removeZone(int index)
{
    LedStripSettings s = current();
    if (s.removeZone(index))
        save(s);
}

void LedDialogBinder::send()
{
    switch (m_controller->ledPush()->start(current())) {
    case LedConfigPush::StartResult::Started:
        return;
    case LedConfigPush::StartResult::AlreadyRunning:
        m_outcomeMessage = tr("A push is already running.");
        break;
    case LedConfigPush::StartResult::NotConnected:
        m_outcomeMessage = tr("Connect the receiver's USB cable first.");
        break;
    case LedConfigPush::StartResult::NothingToSend:
        m_outcomeMessage = tr("Add a zone first.");
        break;
    }
    m_outcomeTone = hub::Tone::Danger;
    m_outcome = tr("Not sent");
    showPush();
}

void LedDialogBinder::showPush()
{
    const LedConfigPush *push = m_controller->ledPush();
    if (!push->isRunning()) {
        m_dialog->showPush(m_outcomeTone, m_outcome.isEmpty() ? tr("Idle") : m_outcome, false,
                           m_outcomeMessage);
        return;
    }
    const QString step = LedConfigPush::stateName(push->state());
    const QString detail = push->itemIndex() < 0 ? step : tr("%1, item %2").arg(step).arg(push->itemIndex());
    m_dialog->showPush(hub::Tone::Accent, tr("Sending"), true, detail);
}

} // namespace tavrix

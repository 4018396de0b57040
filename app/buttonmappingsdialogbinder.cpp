#include "buttonmappingsdialogbinder.h"

#include "buttonmappingbook.h"
#include "inputdetection.h"
#include "profileedits.h"
#include "profilemanager.h"
#include "tavrixcontroller.h"

#include <algorithm>

namespace tavrix {

namespace {

ButtonMappingsDialog::Mapping shown(const ButtonMapping &m)
{
    ButtonMappingsDialog::Mapping v;
    v.name = m.name;
    v.source = m.buttonIndex;
    // A negative further source does nothing; it is not shown and goes with the next edit.
    for (int32_t extra : m.extraButtons) {
        if (extra >= 0)
            v.extraSources.append(extra);
    }
    v.behaviour = ButtonMappingEditor::Behaviour(int(m.mode));
    v.channel = m.channel;
    v.pressedValue = m.outputValue;
    v.startValue = m.startValue;
    v.rate = m.rateUnitsPerSec;
    v.minimum = m.minValue;
    v.maximum = m.maxValue;
    v.pitLimiter = m.activatesPitLimiter;
    return v;
}

// The dialog's values laid over the stored mapping.
ButtonMapping edited(ButtonMapping m, const ButtonMappingsDialog::Mapping &v)
{
    m.name = v.name;
    m.buttonIndex = v.source;
    m.extraButtons = v.extraSources;
    m.mode = ButtonBehaviour(int(v.behaviour));
    m.channel = v.channel;
    m.outputValue = v.pressedValue;
    m.startValue = v.startValue;
    m.rateUnitsPerSec = v.rate;
    m.minValue = v.minimum;
    m.maxValue = v.maximum;
    m.activatesPitLimiter = v.pitLimiter;
    return m;
}

} // namespace

ButtonMappingsDialogBinder::ButtonMappingsDialogBinder(ButtonMappingsDialog *dialog,
                                                       TavrixController *controller)
    : QObject(dialog)
    , m_dialog(dialog)
    , m_controller(controller)
    , m_book(new ButtonMappingBook(controller->profileManager(), this))
{
    ProfileManager *profiles = controller->profileManager();
    connect(dialog, &ButtonMappingsDialog::pressRequested, this, [this](int row) { startPress(row, false); });
    connect(dialog, &ButtonMappingsDialog::extraPressRequested, this,
            [this](int row) { startPress(row, true); });
    connect(dialog, &ButtonMappingsDialog::pressCancelled, this, &ButtonMappingsDialogBinder::cancelPress);
    connect(dialog, &ButtonMappingsDialog::mappingEdited, this, &ButtonMappingsDialogBinder::edit);
    connect(dialog, &ButtonMappingsDialog::removeRequested, this, &ButtonMappingsDialogBinder::remove);
    connect(controller->inputDetection(), &InputDetection::buttonDetectionResult, this,
            &ButtonMappingsDialogBinder::takePress);
    connect(profiles, &ProfileManager::profileModified, this, [this] { showMappings(); });
    connect(profiles, &ProfileManager::activeProfileChanged, this, [this] { showMappings(); });
    // A press asked for and then left by closing the dialog is not taken later by nobody.
    connect(dialog, &QDialog::finished, this, &ButtonMappingsDialogBinder::cancelPress);
    showMappings();
}

ButtonMappingsDialogBinder::~ButtonMappingsDialogBinder()
{
    if (!m_pressFor)
        return;
    disconnect(m_controller->inputDetection(), nullptr, this, nullptr);
    m_controller->inputDetection()->stopButtonDetection();
}

ButtonMappingEditor::Limits ButtonMappingsDialogBinder::limits()
{
    ButtonMappingEditor::Limits l;
    l.valueMin = ButtonMappingBook::kValueMin;
    l.valueMax = ButtonMappingBook::kValueMax;
    l.rateMax = ButtonMappingBook::kRateMax;
    l.nameLength = ButtonMappingBook::kMaxNameLength;
    l.extraSources = ButtonMappingBook::kMaxExtraButtons;
    return l;
}

void ButtonMappingsDialogBinder::showMappings(int selected)
{
    QList<ButtonMappingsDialog::Mapping> rows;
    for (const ButtonMapping &mapping : m_book->mappings())
        rows.append(shown(mapping));
    // Switching profiles can switch the vehicle, and with it the channels on offer.
    const ButtonMappingEngine::ChannelRange channels = m_book->channels();
    m_dialog->editor()->showChannels(channels.first, channels.last);
    m_dialog->showMappings(rows, selected);
}

void ButtonMappingsDialogBinder::startPress(int row, bool extra)
{
    m_pressFor = PressTarget{row, extra};
    m_dialog->showError(QString());
    m_dialog->showWaitingForPress(true);
    // The device whose buttons the mappings read on every tick: a car's wheel base, a
    // helicopter's joystick.
    const bool helicopter = m_book->vehicle() == VehicleType::Helicopter;
    m_controller->inputDetection()->startButtonDetection(helicopter ? DeviceRole::HeliJoystick
                                                                    : DeviceRole::WheelBase);
}

void ButtonMappingsDialogBinder::cancelPress()
{
    if (m_pressFor)
        m_controller->inputDetection()->stopButtonDetection();
}

void ButtonMappingsDialogBinder::takePress(int source, bool success)
{
    if (!m_pressFor)
        return;
    const PressTarget target = *m_pressFor;
    m_pressFor.reset();
    m_dialog->showWaitingForPress(false);
    if (!success)
        return;
    if (target.row < 0) {
        ButtonMapping mapping;
        mapping.buttonIndex = source;
        mapping.channel = newMappingChannel(mapping.channel);
        const int added = int(m_book->mappings().size());
        change([&] { return m_book->add(mapping); }, added);
        return;
    }
    ButtonMappingsDialog::Mapping values = shown(m_book->mappings().value(target.row));
    if (!target.extra)
        values.source = source;
    else if (source != values.source && !values.extraSources.contains(source))
        values.extraSources.append(source);
    edit(target.row, values);
}

int ButtonMappingsDialogBinder::newMappingChannel(int usual) const
{
    // The usual channel, or the nearest one the vehicle offers; on a helicopter, the first from
    // there that no flight function, arm switch or motor is sent on, since those win the channel
    // and the new mapping would seem to do nothing.
    const ButtonMappingEngine::ChannelRange channels = m_book->channels();
    const int start = std::clamp(usual, channels.first, channels.last);
    if (m_book->vehicle() != VehicleType::Helicopter)
        return start;
    const HelicopterSettings &flight = m_controller->settings().helicopter;
    for (int channel = start; channel <= channels.last; ++channel) {
        if (!flight.sendsOnChannel(channel))
            return channel;
    }
    return start;
}

void ButtonMappingsDialogBinder::edit(int row, const ButtonMappingsDialog::Mapping &mapping)
{
    change([&] { return m_book->replace(row, edited(m_book->mappings().value(row), mapping)); }, row);
}

void ButtonMappingsDialogBinder::remove(int row)
{
    change([&] { return m_book->remove(row); }, row);
}

void ButtonMappingsDialogBinder::change(const std::function<bool()> &change, int selected)
{
    QString ruleRefusal;
    QObject listening;
    connect(m_book, &ButtonMappingBook::errorOccurred, &listening,
            [&ruleRefusal](const QString &message) { ruleRefusal = message; });
    const QString storeMessage = storeRefusal(*m_controller->profileManager(), change);
    m_dialog->showError(ruleRefusal.isEmpty() ? storeMessage : ruleRefusal);
    // What the store kept (or left unchanged when refused) is what the dialog shows.
    showMappings(selected);
}

} // namespace tavrix

#include "transmissiondialogbinder.h"

#include "elrsparametermanager.h"
#include "elrstimings.h"
#include "tavrixcontroller.h"
#include "transmissiondialog.h"
#include "transmittercard.h"
#include "transmittercardbinder.h"
#include "visiblerefresh.h"

#include <QDialog>
#include <QHash>

namespace tavrix {

namespace {

// The port list has no change signal; it is read again this often while the dialog is open.
constexpr std::chrono::milliseconds kPortRefresh{2000};

// Deeper nesting than any module uses; it also ends a chain of folders naming each other.
constexpr int kMaxFolderDepth = 8;

RadioSetting toSetting(const elrs::Parameter &parameter)
{
    RadioSetting setting;
    setting.name = parameter.name;
    switch (parameter.type) {
    case elrs::TextSelection:
        setting.kind = RadioSetting::Kind::Choice;
        for (const elrs::Option &option : parameter.options)
            setting.options.append({option.index, option.label});
        setting.current = parameter.value.value_or(-1);
        setting.units = parameter.units;
        break;
    case elrs::Command:
        setting.kind = RadioSetting::Kind::Command;
        break;
    case elrs::String:
    case elrs::Info:
        setting.value = parameter.units; // these kinds carry their text there
        break;
    default:
        setting.value = parameter.value ? QString::number(*parameter.value) : QString();
        break;
    }
    return setting;
}

} // namespace

QList<RadioSettingGroup> radioSettingGroups(const QList<elrs::Parameter> &parameters)
{
    QHash<uint8_t, const elrs::Parameter *> folders;
    for (const elrs::Parameter &parameter : parameters) {
        if (parameter.type == elrs::Folder && parameter.id != 0)
            folders.insert(parameter.id, &parameter);
    }
    const auto titleOf = [&folders](const elrs::Parameter &folder) {
        QString title = folder.name;
        const elrs::Parameter *above = folders.value(folder.parent);
        for (int depth = 0; above && depth < kMaxFolderDepth; ++depth) {
            title = above->name + QStringLiteral(" › ") + title;
            above = folders.value(above->parent);
        }
        return title;
    };

    // A parameter whose folder the module never described is shown at the top level.
    RadioSettingGroup top;
    QList<RadioSettingGroup> inFolders;
    QHash<uint8_t, qsizetype> folderGroup;
    for (const elrs::Parameter &parameter : parameters) {
        if (parameter.type == elrs::Folder) {
            if (folders.value(parameter.id) == &parameter) {
                folderGroup.insert(parameter.id, inFolders.size());
                inFolders.append({titleOf(parameter), {}});
            }
            continue;
        }
        const auto group = folderGroup.constFind(parameter.parent);
        if (group == folderGroup.cend())
            top.settings.append(toSetting(parameter));
        else
            inFolders[*group].settings.append(toSetting(parameter));
    }
    QList<RadioSettingGroup> groups;
    if (!top.settings.isEmpty())
        groups.append(top);
    for (const RadioSettingGroup &group : std::as_const(inFolders)) {
        if (!group.settings.isEmpty())
            groups.append(group);
    }
    return groups;
}

const QList<qint32> TransmissionDialogBinder::kBaudRates{115200, 230400, 400000, 420000, 460800, 921600};
// The same wait the mobile app's configuration start gives the module.
const std::chrono::milliseconds TransmissionDialogBinder::kModuleSettleTime{kElrsModuleSettleTime};

TransmissionDialogBinder::TransmissionDialogBinder(TransmissionDialog *dialog, TavrixController *controller,
                                                   QObject *parent,
                                                   std::chrono::milliseconds moduleSettleTime)
    : QObject(parent)
    , m_dialog(dialog)
    , m_controller(controller)
    , m_transmitter(new TransmitterCardBinder(dialog->transmitterCard(), controller, this))
{
    m_settle.setSingleShot(true);
    m_settle.setInterval(moduleSettleTime);
    connect(&m_settle, &QTimer::timeout, this, &TransmissionDialogBinder::startWalk);
    dialog->transmitterCard()->setBaudRates(kBaudRates, controller->transmitterLink()->rememberedBaudRate());
    new VisibleRefresh(
        dialog, kPortRefresh, [this] { m_transmitter->refreshPorts(); }, this);

    // Everything the controller and its parameter client report arrives with this binder as
    // the context: the destructor cuts it off before it leaves configuration mode, since by
    // then the dialog is half destroyed and must hear nothing more.
    dialog->setAutoStart(controller->autoStartEnabled());
    connect(controller, &TavrixController::autoStartEnabledChanged, this,
            [this](bool enabled) { m_dialog->setAutoStart(enabled); });
    connect(dialog, &TransmissionDialog::autoStartChanged, controller,
            &TavrixController::setAutoStartEnabled);

    ElrsParameterManager *parameters = controller->elrsParameters();
    connect(dialog, &TransmissionDialog::readRequested, this, &TransmissionDialogBinder::read);
    connect(dialog, &TransmissionDialog::choiceMade, parameters, &ElrsParameterManager::setParameterByIndex);
    connect(parameters, &ElrsParameterManager::discoveryStarted, this, [this] {
        m_dialog->setRadioSettings({});
        m_dialog->setReading(true);
    });
    connect(parameters, &ElrsParameterManager::discoveryProgress, this,
            [this](int done, int total) { m_dialog->setProgress(done, total); });
    connect(parameters, &ElrsParameterManager::discoveryComplete, this,
            &TransmissionDialogBinder::showSettings);
    connect(parameters, &ElrsParameterManager::discoveryAborted, this, [this] {
        m_dialog->setReading(false);
        m_dialog->showError(tr("Reading the radio settings stopped: configuration mode was left."));
    });
    connect(parameters, &ElrsParameterManager::error, this, &TransmissionDialogBinder::showDiscoveryError);
    // The manager reports its own writes here too; the selector only follows, it writes nothing.
    connect(parameters, &ElrsParameterManager::parameterUpdated, this,
            [this, parameters](const QString &name) {
                const std::optional<elrs::Parameter> parameter = parameters->parameter(name);
                if (parameter && parameter->value)
                    m_dialog->radioSettings()->setChoice(name, *parameter->value);
            });
    connect(controller, &TavrixController::errorOccurred, this,
            [this](const QString &error) { m_dialog->showError(error); });

    connect(controller, &TavrixController::runningChanged, this, &TransmissionDialogBinder::showReadState);
    connect(controller, &TavrixController::serialConnectedChanged, this,
            &TransmissionDialogBinder::showReadState);
    connect(controller, &TavrixController::configModeChanged, this, [this](bool active) {
        if (!active) {
            m_enteredConfigMode = false;
            if (m_settle.isActive()) {
                m_settle.stop();
                m_dialog->setReading(false);
            }
        }
        showReadState();
    });
    connect(dialog, &QDialog::finished, this, &TransmissionDialogBinder::leaveConfigMode);

    showReadState();
    if (parameters->state() == ElrsParameterManager::State::Ready)
        showSettings();
}

TransmissionDialogBinder::~TransmissionDialogBinder()
{
    if (!m_controller)
        return;
    m_controller->elrsParameters()->disconnect(this);
    m_controller->disconnect(this);
    leaveConfigMode();
}

void TransmissionDialogBinder::read()
{
    m_dialog->clearError();
    const bool wasOn = m_controller->isConfigMode();
    if (!m_controller->enterConfigMode())
        return; // the controller said why
    if (wasOn) {
        startWalk();
        return;
    }
    m_enteredConfigMode = true;
    m_dialog->setProgress(0, 0); // no progress to tell while the module settles
    m_dialog->setReading(true);
    m_settle.start();
}

void TransmissionDialogBinder::startWalk()
{
    if (m_controller->isConfigMode())
        m_controller->elrsParameters()->startDiscovery();
}

void TransmissionDialogBinder::leaveConfigMode()
{
    m_settle.stop();
    if (!m_enteredConfigMode || !m_controller)
        return;
    m_enteredConfigMode = false;
    m_controller->exitConfigMode();
}

void TransmissionDialogBinder::showReadState()
{
    if (m_controller->isRunning())
        m_dialog->setReadBlocked(tr("Transmission is running. Stop it to read or change the radio settings: "
                                    "the module takes settings only while no channels are sent."));
    else if (!m_controller->isSerialConnected())
        m_dialog->setReadBlocked(tr("Connect the transmitter to read its radio settings."));
    else
        m_dialog->setReadBlocked(QString());
    m_dialog->setSettingsEditable(m_controller->isConfigMode());
}

void TransmissionDialogBinder::showSettings()
{
    m_dialog->setReading(false);
    m_dialog->setRadioSettings(radioSettingGroups(m_controller->elrsParameters()->parameters()));
}

void TransmissionDialogBinder::showDiscoveryError(const QString &message)
{
    const ElrsParameterManager::State state = m_controller->elrsParameters()->state();
    m_dialog->setReading(state == ElrsParameterManager::State::Pinging ||
                         state == ElrsParameterManager::State::WalkingFields);
    m_dialog->showError(message);
}

} // namespace tavrix

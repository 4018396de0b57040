#include "elrsremotestate.h"

#include "elrstimings.h"

#include "elrsparametermanager.h"
#include "tavrixcontroller.h"

namespace tavrix {

namespace {

// The app's kind of a parameter, after the CRSF parameter type.
QString kindOf(uint8_t type)
{
    switch (type) {
    case elrs::TextSelection:
        return QStringLiteral("enum");
    case elrs::Folder:
        return QStringLiteral("folder");
    case elrs::Info:
        return QStringLiteral("info");
    case elrs::Command:
        return QStringLiteral("command");
    default:
        return QStringLiteral("int");
    }
}

QJsonObject parameterJson(const elrs::Parameter &parameter)
{
    QJsonObject json{
        {QStringLiteral("id"), parameter.id},
        {QStringLiteral("name"), parameter.name},
        {QStringLiteral("parent"), parameter.parent},
        {QStringLiteral("kind"), kindOf(parameter.type)},
        {QStringLiteral("currentValue"), parameter.value ? QJsonValue(*parameter.value) : QJsonValue()},
        {QStringLiteral("units"), parameter.units},
        {QStringLiteral("readonly"), parameter.readOnly}};
    if (parameter.type == elrs::TextSelection) {
        QJsonArray options;
        for (const elrs::Option &option : parameter.options)
            options.append(QJsonObject{{QStringLiteral("index"), option.index},
                                       {QStringLiteral("label"), option.label}});
        json.insert(QStringLiteral("options"), options);
    }
    return json;
}

} // namespace

ElrsRemoteState::ElrsRemoteState(TavrixController *controller, QObject *parent)
    : QObject(parent)
    , m_controller(controller)
{
    m_discoveryDelay.setSingleShot(true);
    m_discoveryDelay.setInterval(kElrsModuleSettleTime);
    connect(&m_discoveryDelay, &QTimer::timeout, this, &ElrsRemoteState::onDiscoveryDue);
    connect(controller, &TavrixController::configModeChanged, this, [this](bool on) {
        if (!on)
            m_discoveryDelay.stop();
        publishState();
    });

    ElrsParameterManager *manager = parameters();
    connect(manager, &ElrsParameterManager::discoveryStarted, this, [this] {
        m_progressDone = 0;
        m_progressTotal = 0;
        publishState();
    });
    connect(manager, &ElrsParameterManager::discoveryProgress, this, [this](int done, int total) {
        m_progressDone = done;
        m_progressTotal = total;
        publishState();
    });
    connect(manager, &ElrsParameterManager::discoveryComplete, this, [this] {
        publishState();
        emit paramsChanged(params());
    });
    connect(manager, &ElrsParameterManager::discoveryAborted, this, &ElrsRemoteState::publishState);
    connect(manager, &ElrsParameterManager::parameterUpdated, this, [this](const QString &name) {
        if (const std::optional<elrs::Parameter> parameter = parameters()->parameter(name)) {
            emit paramUpdated({{QStringLiteral("id"), parameter->id},
                               {QStringLiteral("currentValue"),
                                parameter->value ? QJsonValue(*parameter->value) : QJsonValue()}});
        }
    });
}

ElrsParameterManager *ElrsRemoteState::parameters() const
{
    return m_controller->elrsParameters();
}

bool ElrsRemoteState::startConfig()
{
    if (!m_controller->isConfigMode() && !m_controller->enterConfigMode())
        return false;
    m_discoveryDelay.start();
    return true;
}

bool ElrsRemoteState::isDiscovering() const
{
    const ElrsParameterManager::State state = parameters()->state();
    return state == ElrsParameterManager::State::Pinging ||
           state == ElrsParameterManager::State::WalkingFields;
}

void ElrsRemoteState::onDiscoveryDue()
{
    if (m_controller->isConfigMode() && !isDiscovering())
        parameters()->startDiscovery();
}

QJsonObject ElrsRemoteState::state() const
{
    return {{QStringLiteral("configMode"), m_controller->isConfigMode()},
            {QStringLiteral("discovering"), isDiscovering()},
            {QStringLiteral("ready"), parameters()->state() == ElrsParameterManager::State::Ready},
            // Parameters are always read from the module; there is no hand-entered list.
            {QStringLiteral("manualMode"), false},
            {QStringLiteral("progressDone"), m_progressDone},
            {QStringLiteral("progressTotal"), m_progressTotal}};
}

QJsonArray ElrsRemoteState::params() const
{
    QJsonArray list;
    for (const elrs::Parameter &parameter : parameters()->parameters())
        list.append(parameterJson(parameter));
    return list;
}

} // namespace tavrix

#include "motionwebroutes.h"

#include "motionpatterns.h"
#include "motionsystemcontroller.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <array>

namespace tavrix {

namespace {

using http::Reply;

// The phone's test is a gentle one: half a hertz for five seconds, at the chosen force.
constexpr int kTestFreqCentiHz = 50;
constexpr int kTestSeconds = 5;
constexpr int kPatternCount = kPatternHeave + 1;
constexpr int kMinForcePct = 1;
constexpr int kMaxForcePct = 100;

Reply badParams()
{
    return Reply::text(http::kBadRequest, QStringLiteral("bad params"));
}

Reply conflict(const QString &why)
{
    return Reply::text(http::kConflict, why);
}

QByteArray compact(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace

MotionWebRoutes::MotionWebRoutes(MotionSystemController &controller, QByteArray page)
    : m_controller(controller)
    , m_page(std::move(page))
{}

Reply MotionWebRoutes::handle(const http::Request &request)
{
    static const std::array<Route, 7> kRoutes{{
        {"GET", "/", &MotionWebRoutes::page},
        {"GET", "/status", &MotionWebRoutes::status},
        {"GET", "/cfg", &MotionWebRoutes::settings},
        {"POST", "/cfg", &MotionWebRoutes::saveSettings},
        {"POST", "/test", &MotionWebRoutes::startTest},
        {"POST", "/move", &MotionWebRoutes::move},
        {"POST", "/home", &MotionWebRoutes::home},
    }};
    for (const Route &route : kRoutes) {
        if (request.method == route.method && request.path == route.path)
            return (this->*route.handler)(request);
    }
    return Reply::text(http::kNotFound, QStringLiteral("not found"));
}

Reply MotionWebRoutes::page(const http::Request &)
{
    return {http::kOk, QByteArrayLiteral("text/html; charset=utf-8"), m_page};
}

Reply MotionWebRoutes::status(const http::Request &)
{
    QJsonObject axes;
    const QMap<int, int> positions = m_controller.axisPositions();
    for (auto it = positions.cbegin(); it != positions.cend(); ++it)
        axes.insert(QString::number(it.key()), it.value());
    return Reply::json(compact({
        {QStringLiteral("connected"), m_controller.isConnected()},
        {QStringLiteral("state"), m_controller.controllerState()},
        {QStringLiteral("platform"), m_controller.platformKind()},
        {QStringLiteral("testRunning"), m_controller.isTestRunning()},
        {QStringLiteral("axes"), axes},
    }));
}

Reply MotionWebRoutes::settings(const http::Request &)
{
    const MotionSystemSettings current = m_controller.settings();
    QJsonObject object;
    for (const MotionSettingField &field : kMotionSettingFields)
        object.insert(QString(QLatin1Char(field.echoLetter)), current.*field.member);
    return Reply::json(compact(object));
}

Reply MotionWebRoutes::saveSettings(const http::Request &request)
{
    if (m_controller.isTestRunning())
        return conflict(QStringLiteral("test running - wait"));
    MotionSystemSettings merged = m_controller.settings();
    bool any = false;
    for (const MotionSettingField &field : kMotionSettingFields) {
        const char letter[] = {field.echoLetter, '\0'};
        if (!request.hasParameter(letter))
            continue;
        // A value that is there but not a number is a mistake, not a reason to keep the old one.
        const std::optional<int> value = request.integer(letter);
        if (!value)
            return badParams();
        merged.*field.member = *value;
        any = true;
    }
    if (!any)
        return badParams();
    m_controller.applySettings(merged);
    return Reply::text(http::kOk, QStringLiteral("saved & applied"));
}

Reply MotionWebRoutes::startTest(const http::Request &request)
{
    const std::optional<int> dof = request.integer("dof");
    const std::optional<int> force = request.integer("force");
    if (!dof || !force || *dof < 0 || *dof >= kPatternCount || *force < kMinForcePct || *force > kMaxForcePct)
        return badParams();
    if (!m_controller.isConnected())
        return conflict(QStringLiteral("controller not connected"));
    if (m_controller.isTestRunning())
        return conflict(QStringLiteral("test already running"));
    const QString state = m_controller.controllerState();
    if (state != MotionSystemController::kReadyState)
        return conflict(QStringLiteral("state is \"%1\" - tests need \"ready\"").arg(state));
    if (!m_controller.startPatternTest(*dof, *force, kTestFreqCentiHz, kTestSeconds))
        return conflict(QStringLiteral("test refused"));
    return Reply::text(http::kOk, QStringLiteral("testing %1 at %2%").arg(patternName(*dof)).arg(*force));
}

Reply MotionWebRoutes::move(const http::Request &request)
{
    const std::optional<int> axis = request.integer("axis");
    const std::optional<int> mm = request.integer("mm");
    if (!axis || !mm)
        return badParams();
    // The controller refuses a move while its own pattern runs; a board test or the Full
    // System test moves the actuators too, so a phone must not reach into those either.
    if (*axis < 0 || m_controller.isTestRunning() || !m_controller.setActuatorPosition(*axis, *mm))
        return conflict(QStringLiteral("move refused (need connected + ready, no test)"));
    return Reply::text(http::kOk, QStringLiteral("ax%1 -> %2mm").arg(*axis).arg(*mm));
}

Reply MotionWebRoutes::home(const http::Request &)
{
    if (!m_controller.isConnected())
        return conflict(QStringLiteral("controller not connected"));
    // Homing moves every actuator: not in the middle of a test.
    if (m_controller.isTestRunning())
        return conflict(QStringLiteral("test running - wait"));
    m_controller.autoHome();
    return Reply::text(http::kOk, QStringLiteral("homing requested"));
}

} // namespace tavrix

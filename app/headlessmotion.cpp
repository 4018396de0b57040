#include "headlessmotion.h"

#include "motionsystemcontroller.h"

namespace tavrix {

HeadlessMotion::HeadlessMotion(MotionSystemController *motion, QString port, std::optional<int> platform,
                               QObject *parent)
    : QObject(parent)
    , m_motion(motion)
    , m_port(std::move(port))
    , m_platform(platform)
{
    const auto prefixed = [](const QString &text) { return QStringLiteral("motion: %1").arg(text); };
    connect(motion, &MotionSystemController::statusLine, this,
            [this, prefixed](const QString &text) { emit line(prefixed(text)); });
    connect(motion, &MotionSystemController::errorOccurred, this,
            [this, prefixed](const QString &text) { emit error(prefixed(text)); });
    connect(motion, &MotionSystemController::controllerStateChanged, this,
            [this, prefixed](const QString &state) {
                emit line(prefixed(QStringLiteral("state %1").arg(state)));
            });
}

bool HeadlessMotion::begin()
{
    if (m_platform && !m_motion->setPlatformKind(*m_platform)) {
        emit error(QStringLiteral("motion: platform %1DOF refused").arg(*m_platform));
        return false;
    }
    emit line(QStringLiteral("motion: %1DOF platform, connecting to the board on %2")
                  .arg(m_motion->platformKind())
                  .arg(m_port));
    return m_motion->connectPort(m_port);
}

void HeadlessMotion::stop()
{
    if (!m_motion->isConnected())
        return;
    m_motion->release();
    // Closing also forgets a heartbeat still awaited, which would otherwise send the
    // settings after the Release.
    m_motion->disconnectPort();
}

} // namespace tavrix

#include "autostarter.h"

#include "tavrixcontroller.h"

#include <QDebug>

namespace tavrix {

AutoStarter::AutoStarter(TavrixController *controller, std::chrono::milliseconds checkInterval)
    : QObject(controller)
    , m_controller(controller)
{
    m_checkTimer.setInterval(checkInterval);
    connect(&m_checkTimer, &QTimer::timeout, this, &AutoStarter::onAutoStartCheck);
    connect(controller, &TavrixController::autoStartEnabledChanged, this, &AutoStarter::setArmed);
    connect(controller, &TavrixController::runningChanged, this, [this](bool running) {
        if (!running)
            setArmed(false);
    });
    setArmed(controller->autoStartEnabled());
}

void AutoStarter::setArmed(bool armed)
{
    m_armed = armed;
    if (armed)
        m_checkTimer.start();
    else
        m_checkTimer.stop();
}

void AutoStarter::onAutoStartCheck()
{
    // Started by hand meanwhile: the arming is spent when that run stops.
    if (m_controller->isRunning() || m_controller->isConfigMode() || !m_controller->isReadyToTransmit())
        return;
    setArmed(false);
    qInfo().noquote() << QStringLiteral("AutoStarter: the hub is ready, starting transmission");
    m_controller->startTransmission();
}

} // namespace tavrix

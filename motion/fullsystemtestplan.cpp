#include "fullsystemtestplan.h"

#include "motionframes.h"
#include "motionpatterns.h"

#include <QtGlobal>

namespace tavrix {

namespace {

FullSystemStep boardStep(int actuator, int travelPct, int freqCentiHz, int seconds)
{
    return {FullSystemStep::Kind::BoardTest, 0, actuator, travelPct, freqCentiHz, seconds};
}

FullSystemStep hostStep(int pattern, int travelPct, int freqCentiHz, int seconds)
{
    return {FullSystemStep::Kind::HostPattern, pattern, -1, travelPct, freqCentiHz, seconds};
}

} // namespace

void FullSystemTestPlan::start(int platformKind, int minutes)
{
    clear();
    m_platformKind = platformKind;
    m_totalMs = qint64(qBound(kMinMinutes, minutes, kMaxMinutes)) * 60000;
}

void FullSystemTestPlan::clear()
{
    m_queue.clear();
    m_position = 0;
}

QList<FullSystemStep> FullSystemTestPlan::cycle(int platformKind)
{
    const int actuators = actuatorCount(platformKind);
    QList<FullSystemStep> steps;
    // Gentle full sweeps of each actuator, then punchy short throws.
    for (int actuator = 0; actuator < actuators; ++actuator)
        steps.append(boardStep(actuator, 80, 50, 8));
    for (int actuator = 0; actuator < actuators; ++actuator)
        steps.append(boardStep(actuator, 30, 200, 5));
    steps.append(boardStep(-1, 60, 100, 8));
    steps.append(boardStep(-1, 25, 250, 5));
    if (platformKind == kTwoDof) {
        steps.append(hostStep(kPatternYaw, 60, 100, 8));
        steps.append(hostStep(kPatternYaw, 30, 200, 5));
    } else {
        steps.append(hostStep(kPatternPitch, 60, 100, 8));
        steps.append(hostStep(kPatternRoll, 60, 100, 8));
    }
    return steps;
}

QString FullSystemTestPlan::label(const FullSystemStep &step, int platformKind)
{
    if (step.kind == FullSystemStep::Kind::HostPattern)
        return patternName(step.pattern, platformKind);
    if (step.actuator < 0)
        return tr("all actuators");
    return tr("actuator %1").arg(step.actuator + 1);
}

std::optional<FullSystemTestPlan::ScheduledStep> FullSystemTestPlan::next(qint64 elapsedMs)
{
    if (elapsedMs >= m_totalMs)
        return std::nullopt;
    if (m_position >= m_queue.size()) {
        m_queue = cycle(m_platformKind);
        m_position = 0;
    }
    FullSystemStep step = m_queue.at(m_position++);
    const qint64 remainingMs = m_totalMs - elapsedMs;
    const qint64 remainingSeconds = remainingMs / 1000;
    step.seconds = motionframes::testSeconds(int(qMin<qint64>(step.seconds, remainingSeconds)));

    const QString statusLine = tr("Full test [%1:%2 left]: %3 — travel %4%, %5 Hz, %6 s")
                                   .arg(remainingSeconds / 60)
                                   .arg(remainingSeconds % 60, 2, 10, QLatin1Char('0'))
                                   .arg(label(step, m_platformKind))
                                   .arg(step.travelPct)
                                   .arg(step.freqCentiHz / 100.0, 0, 'f', 2)
                                   .arg(step.seconds);
    return ScheduledStep{step, statusLine};
}

} // namespace tavrix

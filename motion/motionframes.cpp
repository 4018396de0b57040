#include "motionframes.h"

#include <QtGlobal>

namespace tavrix::motionframes {

namespace {

constexpr int kBoardTravelMin = 5;
constexpr int kBoardTravelMax = 100;
constexpr char kAllActuators = char(0xFF);

QByteArray frame(const QByteArray &payload)
{
    return QByteArrayLiteral("P") + payload + QByteArrayLiteral("!!");
}

void appendU16(QByteArray &payload, int value)
{
    const int v = qBound(0, value, 0xFFFF);
    payload.append(char((v >> 8) & 0xFF));
    payload.append(char(v & 0xFF));
}

bool isActuator(int actuator)
{
    return actuator >= 0 && actuator < kActuatorSlots;
}

} // namespace

QByteArray settings(const MotionSystemSettings &settings)
{
    const MotionSystemSettings clamped = settings.clamped();
    QByteArray payload("C");
    for (const MotionSettingField &field : kMotionSettingFields)
        appendU16(payload, clamped.*field.member);
    return frame(payload);
}

QByteArray querySettings()
{
    return frame(QByteArrayLiteral("Q"));
}

QByteArray home()
{
    return frame(QByteArrayLiteral("H"));
}

QByteArray toggleCalibration()
{
    return frame(QByteArrayLiteral("Z"));
}

QByteArray release()
{
    return frame(QByteArrayLiteral("R"));
}

std::optional<QByteArray> actuatorPosition(int actuator, int positionMm)
{
    if (!isActuator(actuator))
        return std::nullopt;
    QByteArray payload("M");
    payload.append(char(actuator));
    appendU16(payload, qBound(0, positionMm, kPositionMaxMm));
    return frame(payload);
}

int testSeconds(int seconds)
{
    return qBound(kTestSecondsMin, seconds, kTestSecondsMax);
}

int testFrequencyCentiHz(int freqCentiHz)
{
    return qBound(kFreqCentiHzMin, freqCentiHz, kFreqCentiHzMax);
}

int boardTestTravelPct(int travelPct)
{
    return qBound(kBoardTravelMin, travelPct, kBoardTravelMax);
}

std::optional<QByteArray> boardTest(int actuator, int travelPct, int freqCentiHz, int seconds)
{
    if (actuator >= kActuatorSlots)
        return std::nullopt;
    QByteArray payload("T");
    payload.append(actuator < 0 ? kAllActuators : char(actuator));
    payload.append(char(boardTestTravelPct(travelPct)));
    appendU16(payload, testFrequencyCentiHz(freqCentiHz));
    payload.append(char(testSeconds(seconds)));
    return frame(payload);
}

QByteArray setPoints(const SetPoints &points)
{
    QByteArray payload("6");
    for (const int point : points)
        appendU16(payload, qBound(0, point, kSetPointMax));
    return frame(payload);
}

} // namespace tavrix::motionframes

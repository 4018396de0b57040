#include "dirtrallypacket.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace tavrix::dirtrally {

namespace {

// The engine fields are made up: the car's motor has no rpm the hub knows, and motion
// software only needs a plausible, steady range for its dashboards.
constexpr float kIdleRpm = 100.0f;
constexpr float kMaxRpm = 800.0f;
constexpr float kRpmPerThrottle = kMaxRpm - kIdleRpm;
constexpr float kMaxGears = 6.0f;
// No shifter has more forward gears; a larger number is noise.
constexpr int kHighestForwardGear = 9;
constexpr float kMaxHeaveVelocity = 20.0f;

float bounded(float value, float low, float high)
{
    return std::isfinite(value) ? std::clamp(value, low, high) : 0.0f;
}

float finiteAngle(float radians)
{
    return std::isfinite(radians) ? radians : 0.0f;
}

} // namespace

QByteArray buildPacket(double secondsSinceStart, const MotionState &state,
                       const std::optional<MotionDriveState> &drive)
{
    std::array<float, kFieldCount> fields{};
    const float seconds = std::isfinite(secondsSinceStart) ? float(std::max(0.0, secondsSinceStart)) : 0.0f;
    fields[TotalTime] = seconds;
    fields[LapTime] = seconds;
    fields[VelocityY] = bounded(state.heaveVelocity, -kMaxHeaveVelocity, kMaxHeaveVelocity);

    // The car's right and forward unit vectors in the game's world frame (Y up).
    const float pitch = finiteAngle(state.pitch);
    const float roll = finiteAngle(state.roll);
    const float yaw = finiteAngle(state.yaw);
    fields[RollVectorX] = std::cos(roll) * std::cos(yaw);
    fields[RollVectorY] = -std::sin(roll);
    fields[RollVectorZ] = -std::sin(yaw) * std::cos(roll);
    fields[PitchVectorX] = std::cos(pitch) * std::sin(yaw);
    fields[PitchVectorY] = std::sin(pitch);
    fields[PitchVectorZ] = std::cos(pitch) * std::cos(yaw);

    fields[LateralG] = bounded(state.lateralG, -kMaxG, kMaxG);
    fields[LongitudinalG] = bounded(state.longitudinalG, -kMaxG, kMaxG);
    fields[EngineRpm] = kIdleRpm;
    if (drive) {
        const float throttle = bounded(drive->throttle, 0.0f, 1.0f);
        fields[Throttle] = throttle;
        fields[Steering] = bounded(drive->steering, -1.0f, 1.0f);
        fields[Brake] = bounded(drive->brake, 0.0f, 1.0f);
        fields[Clutch] = bounded(drive->clutch, 0.0f, 1.0f);
        fields[Gear] = drive->gear < 0 ? kReverseGear : float(std::min(drive->gear, kHighestForwardGear));
        fields[EngineRpm] = kIdleRpm + throttle * kRpmPerThrottle;
    }
    fields[MaxRpm] = kMaxRpm;
    fields[IdleRpm] = kIdleRpm;
    fields[MaxGears] = kMaxGears;

    QByteArray packet(kPacketSize, Qt::Uninitialized);
    for (int i = 0; i < kFieldCount; ++i)
        qToLittleEndian(fields[size_t(i)], packet.data() + i * 4);
    return packet;
}

float field(const QByteArray &packet, int index)
{
    if (index < 0 || (index + 1) * 4 > packet.size())
        return 0.0f;
    return qFromLittleEndian<float>(packet.constData() + index * 4);
}

} // namespace tavrix::dirtrally

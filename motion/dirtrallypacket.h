#pragma once

#include <QByteArray>

#include <optional>

namespace tavrix {

// The smoothed motion of the car as the motion output keeps it.
struct MotionState
{
    // In g: the car's first, second and third acceleration values.
    float longitudinalG = 0.0f;
    float lateralG = 0.0f;
    float verticalG = 0.0f;
    // Metres per second, from the leaky integration of the vertical acceleration.
    float heaveVelocity = 0.0f;
    // Radians; yaw is kept in -pi..pi.
    float pitch = 0.0f;
    float roll = 0.0f;
    float yaw = 0.0f;
};

// The driver's controls as the motion software shows them.
struct MotionDriveState
{
    float steering = 0.0f; // -1..+1
    float throttle = 0.0f; // 0..1
    float brake = 0.0f;    // 0..1
    float clutch = 0.0f;   // 0..1
    int gear = 0;          // 0 neutral, 1.. forward, negative for reverse
};

// One datagram in the layout DiRT Rally sends its telemetry in, which SimHub, FlyPT Mover
// and SimTools read: 66 little-endian 32-bit floats. Only the fields a motion rig and a
// dashboard use are filled; the rest stay 0.
namespace dirtrally {

inline constexpr int kFieldCount = 66;
inline constexpr int kPacketSize = kFieldCount * 4;

// Field indices, as the game numbers them.
enum Field : int
{
    TotalTime = 0,
    LapTime = 1,
    VelocityY = 9,
    RollVectorX = 11,
    RollVectorY = 12,
    RollVectorZ = 13,
    PitchVectorX = 14,
    PitchVectorY = 15,
    PitchVectorZ = 16,
    Throttle = 29,
    Steering = 30,
    Brake = 31,
    Clutch = 32,
    Gear = 33,
    LateralG = 34,
    LongitudinalG = 35,
    EngineRpm = 37,
    MaxRpm = 63,
    IdleRpm = 64,
    MaxGears = 65,
};

// The game's code for reverse in the gear field.
inline constexpr float kReverseGear = 10.0f;
// Far beyond any RC car; keeps a corrupt reading from throwing a rig to its end stops.
inline constexpr float kMaxG = 8.0f;

// Built from the state alone; the drive fields stay 0 without a drive state. Every value is
// clamped to its range here, so what leaves is finite whatever came in.
[[nodiscard]] QByteArray buildPacket(double secondsSinceStart, const MotionState &state,
                                     const std::optional<MotionDriveState> &drive);

// Reads one field back (0 for an index outside a packet of that size).
[[nodiscard]] float field(const QByteArray &packet, int index);

} // namespace dirtrally

} // namespace tavrix

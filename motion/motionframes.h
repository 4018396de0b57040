#pragma once

#include "motionsystemsettings.h"

#include <QByteArray>

#include <array>
#include <optional>

// The commands the Orvane Motion Controller board takes: "P", a payload whose first byte
// names the command, then "!!". Numbers wider than a byte go high byte first. Every
// function clamps what it is given to what the board accepts, so no caller can put a
// value on the wire that moves an actuator further than meant.
namespace tavrix::motionframes {

// Actuators the board drives, numbered from 0 here and in the "M" and "T" commands.
inline constexpr int kActuatorSlots = 6;
inline constexpr int kSetPointCentre = 32767;
inline constexpr int kSetPointMax = 65535;
// The stroke of an actuator, millimetres, for direct positioning.
inline constexpr int kPositionMaxMm = 150;
// What a test may ask of the platform, whoever runs it (the board or this PC).
inline constexpr int kFreqCentiHzMin = 10;
inline constexpr int kFreqCentiHzMax = 300;
inline constexpr int kTestSecondsMin = 1;
inline constexpr int kTestSecondsMax = 30;

using SetPoints = std::array<int, kActuatorSlots>;

// "C": the five settings in their table order, clamped.
[[nodiscard]] QByteArray settings(const MotionSystemSettings &settings);
// "Q": asks the board to echo its settings in a "#CFG" line.
[[nodiscard]] QByteArray querySettings();
// "H": the homing sequence, also the way out of the board's "FAIL" state.
[[nodiscard]] QByteArray home();
// "Z": toggles the board's calibration mode.
[[nodiscard]] QByteArray toggleCalibration();
// "R": motors off.
[[nodiscard]] QByteArray release();
// "M": one actuator (0..5) to a position, clamped to the stroke. No frame for an actuator
// the board does not have.
[[nodiscard]] std::optional<QByteArray> actuatorPosition(int actuator, int positionMm);
// "T": a test the board's firmware runs. A negative actuator means all of them; one above
// 5 gets no frame. Travel 5..100 %, frequency 0.10..3.00 Hz in hundredths, 1..30 s.
[[nodiscard]] std::optional<QByteArray> boardTest(int actuator, int travelPct, int freqCentiHz, int seconds);
// "6": one frame of set-points for actuators 1..6, each clamped to 0..65535 (32767 = centre).
[[nodiscard]] QByteArray setPoints(const SetPoints &points);

// A test's length and frequency brought into the ranges above.
[[nodiscard]] int testSeconds(int seconds);
[[nodiscard]] int testFrequencyCentiHz(int freqCentiHz);
// The travel a board test runs at, as the "T" command sends it.
[[nodiscard]] int boardTestTravelPct(int travelPct);

} // namespace tavrix::motionframes

#pragma once

#include "crsftypes.h"

#include <QByteArray>

namespace tavrix {

// One row of a drive recording: what the hub sent on one tick and what the car had reported last.
struct DriveSample
{
    // Since the recording started; the recorder stamps it when the row is queued.
    qint64 timeMs = 0;
    quint32 frame = 0;
    // The controls as the tick read them: steering -1..+1, pedals 0..1.
    float steering = 0.0f;
    float throttle = 0.0f;
    float brake = 0.0f;
    ChannelValues channels{};
    int linkQuality = 0;
    int rssiDbm = 0;
    int snr = 0;
    float lonG = 0.0f;
    float latG = 0.0f;
    float vertG = 0.0f;
    float batteryVolts = 0.0f;
};

// The CSV layout of a drive recording. Header and rows come from one column table, so a
// column can only be added, moved or renamed in one place.
namespace csvrowformat {

[[nodiscard]] int columnCount();
// The column names, comma separated, with the line end.
[[nodiscard]] QByteArray header();
// Appends one sample as a line.
void appendRow(const DriveSample &sample, QByteArray &out);

} // namespace csvrowformat

} // namespace tavrix

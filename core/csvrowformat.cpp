#include "csvrowformat.h"

#include <tuple>

namespace tavrix::csvrowformat {

namespace {

struct Column
{
    const char *name;
    // More than one for a group of numbered columns (ch1..ch16).
    int count;
    int decimals;
    double (*value)(const DriveSample &sample, int index);
};

constexpr int kChannelCount = int(std::tuple_size_v<ChannelValues>);

// Normalised controls keep four decimals (a count of the 11-bit span is about 0.0005);
// the car's motion and battery three.
constexpr Column kColumns[] = {
    {"time_ms", 1, 0, [](const DriveSample &s, int) { return double(s.timeMs); }},
    {"frame", 1, 0, [](const DriveSample &s, int) { return double(s.frame); }},
    {"steering", 1, 4, [](const DriveSample &s, int) { return double(s.steering); }},
    {"throttle", 1, 4, [](const DriveSample &s, int) { return double(s.throttle); }},
    {"brake", 1, 4, [](const DriveSample &s, int) { return double(s.brake); }},
    {"ch", kChannelCount, 0, [](const DriveSample &s, int i) { return double(s.channels[i]); }},
    {"link_quality", 1, 0, [](const DriveSample &s, int) { return double(s.linkQuality); }},
    {"rssi_dbm", 1, 0, [](const DriveSample &s, int) { return double(s.rssiDbm); }},
    {"snr_db", 1, 0, [](const DriveSample &s, int) { return double(s.snr); }},
    {"lon_g", 1, 3, [](const DriveSample &s, int) { return double(s.lonG); }},
    {"lat_g", 1, 3, [](const DriveSample &s, int) { return double(s.latG); }},
    {"vert_g", 1, 3, [](const DriveSample &s, int) { return double(s.vertG); }},
    {"battery_v", 1, 3, [](const DriveSample &s, int) { return double(s.batteryVolts); }},
};

} // namespace

int columnCount()
{
    int count = 0;
    for (const Column &column : kColumns)
        count += column.count;
    return count;
}

QByteArray header()
{
    QByteArray out;
    for (const Column &column : kColumns) {
        for (int i = 0; i < column.count; ++i) {
            if (!out.isEmpty())
                out.append(',');
            out.append(column.name);
            if (column.count > 1)
                out.append(QByteArray::number(i + 1));
        }
    }
    out.append('\n');
    return out;
}

void appendRow(const DriveSample &sample, QByteArray &out)
{
    bool first = true;
    for (const Column &column : kColumns) {
        for (int i = 0; i < column.count; ++i) {
            if (!first)
                out.append(',');
            first = false;
            out.append(QByteArray::number(column.value(sample, i), 'f', column.decimals));
        }
    }
    out.append('\n');
}

} // namespace tavrix::csvrowformat

#pragma once

#include <QJsonValue>
#include <QLatin1String>
#include <QList>
#include <QPair>
#include <QString>

#include <array>
#include <optional>
#include <span>

namespace tavrix::receiver {

inline constexpr std::array<int, 2> kOnOff{0, 1};
inline constexpr std::array<int, 6> kGpsRates{0, 1, 2, 4, 5, 10};
inline constexpr std::array<int, 4> kMotionRates{5, 10, 20, 25};

// One setting of the receiver: its key in the receiver's own reports, the console command
// that sets it ("%1" is the value), the only values the receiver takes for it, and its name
// where the hub keeps or exchanges it as JSON (the profile's receiverSettings, the app).
struct SettingKey
{
    QLatin1String key;
    QLatin1String command;
    std::span<const int> allowed;
    QLatin1String name;

    // An on/off setting: a switch in JSON, 0 or 1 on the console.
    [[nodiscard]] bool isSwitch() const;
};

// Every setting, in the order a change is applied: the GPS is powered before its rate and
// telemetry are set, the OSD and the sensors last.
inline constexpr std::array<SettingKey, 8> kSettings{{
    {QLatin1String("GPS_ON"), QLatin1String("SET_GPS %1"), kOnOff, QLatin1String("gpsEnabled")},
    {QLatin1String("GPS_RATE"), QLatin1String("GPS_RATE %1"), kGpsRates, QLatin1String("gpsRateHz")},
    {QLatin1String("GPS"), QLatin1String("SET_GPS_TELEM %1"), kOnOff, QLatin1String("gpsTelem")},
    {QLatin1String("IMU"), QLatin1String("SET_IMU_TELEM %1"), kOnOff, QLatin1String("imuTelem")},
    {QLatin1String("MOTION"), QLatin1String("SET_MOTION_TELEM %1"), kOnOff, QLatin1String("motionTelem")},
    {QLatin1String("MOTION_RATE"), QLatin1String("SET_MOTION_RATE %1"), kMotionRates,
     QLatin1String("motionRateHz")},
    {QLatin1String("OSD"), QLatin1String("SET_OSD %1"), kOnOff, QLatin1String("osdEnabled")},
    {QLatin1String("MOTION_SENSORS"), QLatin1String("SET_MOTION_SENSORS %1"), kOnOff,
     QLatin1String("motionSensors")},
}};

[[nodiscard]] std::optional<SettingKey> settingKey(QStringView key);

// The receiver's value for a JSON value (a switch may come as true/false or 0/1); nullopt
// when the receiver does not take it.
[[nodiscard]] std::optional<int> valueFromJson(const SettingKey &setting, const QJsonValue &value);
// A switch as true/false, a rate as its number.
[[nodiscard]] QJsonValue valueToJson(const SettingKey &setting, int value);

struct GpsStatus
{
    enum class Antenna
    {
        Ok,
        Open,
        Short,
    };
    bool fix = false;
    int satellites = 0;
    Antenna antenna = Antenna::Ok;
    friend bool operator==(const GpsStatus &, const GpsStatus &) = default;
};

// What one line of the receiver's console reports; a line can report several things
// (a "TELEM:" line also carries the OSD state).
struct Reply
{
    enum class Step
    {
        None,
        OrientFlatOk,
        OrientOk,
        OrientError,
    };
    enum class GyroCal
    {
        None,
        Ok,
        Error,
    };
    std::optional<QString> version;
    std::optional<QList<QPair<QString, int>>> telemetry; // "TELEM:" items in line order
    std::optional<int> osd;
    std::optional<int> gpsOn;
    std::optional<int> gpsRate;
    std::optional<QString> imuAxes;
    std::optional<GpsStatus> gpsStatus;
    Step orient = Step::None;
    GyroCal gyroCal = GyroCal::None;
    QString reason; // of an orientation or calibration error, from its brackets
};

// Longest line kept; the console's longest real line (the help text) is far shorter.
inline constexpr qsizetype kMaxLineLength = 512;

// The text of a raw console line: bytes outside printable ASCII go. A line with "$M" in it
// carries a frame of the receiver's binary protocol, so its text starts at the first known
// reply word and a line without one is dropped (nullopt). Capped at kMaxLineLength.
[[nodiscard]] std::optional<QString> cleanLine(QStringView raw);

// Parses a cleaned line.
[[nodiscard]] Reply parseLine(const QString &line);

// The message for a failed mounting step, from the reason the receiver gave.
[[nodiscard]] QString mountingErrorText(const QString &reason);

// The GPS line of the Receiver tab; gpsOn false: the GPS is switched off on the receiver.
[[nodiscard]] QString gpsStatusText(const GpsStatus &status, bool gpsOn);

} // namespace tavrix::receiver

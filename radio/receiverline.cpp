#include "receiverline.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>

namespace tavrix::receiver {

namespace {

// The receiver's replies are worded for the window by the manager that owns the line, so
// they are translated in its context.
struct ReceiverText
{
    Q_DECLARE_TR_FUNCTIONS(tavrix::ReceiverConfigManager)
};

// The words a text reply can start with; in a line polluted by a binary frame the text
// is taken from the first of them.
const QRegularExpression &replyStart()
{
    static const QRegularExpression re(
        QStringLiteral("(Orvane:|HW:|TYPE:|TELEM:|OSD|GPS|IMU|MOTION|CH12|CALIB|FAILSAFE|LED_|Commands)"));
    return re;
}

// "TELEM:" and "OSD" must not be the tail of a longer word ("GET_TELEM", "SET_OSD").
const QRegularExpression &telemetryLine()
{
    static const QRegularExpression re(QStringLiteral("(?:^|[^_A-Z])TELEM:(.*)$"));
    return re;
}

std::optional<int> captureInt(const QString &line, const QRegularExpression &re)
{
    const QRegularExpressionMatch m = re.match(line);
    bool ok = false;
    const int value = m.hasMatch() ? m.captured(1).toInt(&ok) : 0;
    return ok ? std::optional<int>(value) : std::nullopt;
}

QString bracketReason(const QString &line, QLatin1String word)
{
    const QRegularExpression re(QRegularExpression::escape(word) + QStringLiteral(" \\((.*)\\)"));
    return re.match(line).captured(1);
}

struct MountingError
{
    std::array<QLatin1String, 2> reasons;
    const char *message;
};

constexpr std::array<MountingError, 4> kMountingErrors{{
    {{QLatin1String("not flat"), QLatin1String("not level")},
     QT_TRANSLATE_NOOP("tavrix::ReceiverConfigManager",
                       "The car is not flat and still. Put it on a flat surface and try again.")},
    {{QLatin1String("nose more"), QLatin1String("tilt not detected")},
     QT_TRANSLATE_NOOP("tavrix::ReceiverConfigManager",
                       "No tilt seen: lift the front more (about 30°) and try again.")},
    {{QLatin1String("step 1"), QLatin1String("flat first")},
     QT_TRANSLATE_NOOP("tavrix::ReceiverConfigManager", "Start again from step 1.")},
    {{QLatin1String("no imu"), QLatin1String("imu not running")},
     QT_TRANSLATE_NOOP("tavrix::ReceiverConfigManager", "The receiver's IMU is not running.")},
}};

} // namespace

std::optional<SettingKey> settingKey(QStringView key)
{
    for (const SettingKey &s : kSettings) {
        if (s.key == key)
            return s;
    }
    return std::nullopt;
}

bool SettingKey::isSwitch() const
{
    return std::ranges::equal(allowed, kOnOff);
}

std::optional<int> valueFromJson(const SettingKey &setting, const QJsonValue &value)
{
    const int number = value.isBool() ? int(value.toBool()) : value.toInt(-1);
    if (std::ranges::find(setting.allowed, number) == setting.allowed.end())
        return std::nullopt;
    return number;
}

QJsonValue valueToJson(const SettingKey &setting, int value)
{
    return setting.isSwitch() ? QJsonValue(value != 0) : QJsonValue(value);
}

std::optional<QString> cleanLine(QStringView raw)
{
    QString text;
    text.reserve(std::min(raw.size(), kMaxLineLength));
    for (const QChar c : raw) {
        if (c.unicode() >= 32 && c.unicode() <= 126)
            text.append(c);
    }
    if (text.contains(QLatin1String("$M"))) {
        const qsizetype start = replyStart().match(text).capturedStart();
        if (start < 0)
            return std::nullopt;
        text = text.mid(start);
    }
    text.truncate(kMaxLineLength);
    return text;
}

Reply parseLine(const QString &line)
{
    Reply reply;
    static const QRegularExpression version(QStringLiteral("Orvane:(\\d+(?:\\.\\d+)*)"));
    if (const QRegularExpressionMatch m = version.match(line); m.hasMatch())
        reply.version = m.captured(1);

    if (const QRegularExpressionMatch m = telemetryLine().match(line); m.hasMatch()) {
        QList<QPair<QString, int>> items;
        for (const QString &part : m.captured(1).split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            const qsizetype colon = part.indexOf(QLatin1Char(':'));
            bool ok = false;
            const int value = colon > 0 ? part.mid(colon + 1).toInt(&ok) : 0;
            if (ok)
                items.append({part.left(colon), value});
        }
        reply.telemetry = items;
    }
    static const QRegularExpression osd(QStringLiteral("(?:^|[^_A-Z])OSD(?::|_OK )([01])"));
    static const QRegularExpression gpsOn(QStringLiteral("(?:^|[^_A-Z])GPS_OK ([01])"));
    static const QRegularExpression gpsRate(QStringLiteral("GPS_RATE_OK (\\d+)"));
    reply.osd = captureInt(line, osd);
    reply.gpsOn = captureInt(line, gpsOn);
    reply.gpsRate = captureInt(line, gpsRate);

    static const QRegularExpression axes(QStringLiteral("IMU_AXES:(.*)$"));
    if (const QRegularExpressionMatch m = axes.match(line); m.hasMatch())
        reply.imuAxes = m.captured(1).trimmed();

    static const QRegularExpression gps(
        QStringLiteral("^(Fix|No fix), (\\d+) sats(?:, antenna (open|short))?$"));
    if (const QRegularExpressionMatch m = gps.match(line); m.hasMatch()) {
        GpsStatus status;
        status.fix = m.captured(1) == QLatin1String("Fix");
        status.satellites = m.captured(2).toInt();
        const QString antenna = m.captured(3);
        status.antenna = antenna == QLatin1String("open")    ? GpsStatus::Antenna::Open
                         : antenna == QLatin1String("short") ? GpsStatus::Antenna::Short
                                                             : GpsStatus::Antenna::Ok;
        reply.gpsStatus = status;
    }

    // "IMU_ORIENT_FLAT_OK" does not contain "IMU_ORIENT_OK", so the order is free.
    if (line.contains(QLatin1String("IMU_ORIENT_FLAT_OK"))) {
        reply.orient = Reply::Step::OrientFlatOk;
    } else if (line.contains(QLatin1String("IMU_ORIENT_OK"))) {
        reply.orient = Reply::Step::OrientOk;
    } else if (line.contains(QLatin1String("IMU_ORIENT_ERR"))) {
        reply.orient = Reply::Step::OrientError;
        reply.reason = bracketReason(line, QLatin1String("IMU_ORIENT_ERR"));
    }
    if (line.contains(QLatin1String("IMU_CAL_OK"))) {
        reply.gyroCal = Reply::GyroCal::Ok;
    } else if (line.contains(QLatin1String("IMU_CAL_ERR"))) {
        reply.gyroCal = Reply::GyroCal::Error;
        reply.reason = bracketReason(line, QLatin1String("IMU_CAL_ERR"));
    }
    return reply;
}

QString mountingErrorText(const QString &reason)
{
    for (const MountingError &e : kMountingErrors) {
        for (const QLatin1String r : e.reasons) {
            if (reason.contains(r, Qt::CaseInsensitive))
                return ReceiverText::tr(e.message);
        }
    }
    return ReceiverText::tr("The receiver says: %1").arg(reason);
}

QString gpsStatusText(const GpsStatus &status, bool gpsOn)
{
    if (!gpsOn)
        return ReceiverText::tr("off on the receiver");
    QString text =
        status.fix ? ReceiverText::tr("fix, %1 satellites").arg(status.satellites)
                   : ReceiverText::tr("no fix yet, %1 satellites (needs open sky)").arg(status.satellites);
    if (status.antenna == GpsStatus::Antenna::Open)
        text += ReceiverText::tr(" · antenna not detected, check the GPS antenna cable");
    else if (status.antenna == GpsStatus::Antenna::Short)
        text += ReceiverText::tr(" · antenna short circuit");
    return text;
}

} // namespace tavrix::receiver

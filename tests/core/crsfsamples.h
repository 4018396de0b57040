#pragma once

// CRSF payloads that other implementations also sent (tests/data/crsf/vectors.json holds
// the whole frames), shared by the codec's and the telemetry catalogue's tests.

#include <QByteArray>

namespace tavrix::testing {

inline QByteArray hex(const char *text)
{
    return QByteArray::fromHex(QByteArray(text));
}

// Checked against the stored frames by tst_crsfprotocol::independentTelemetryMatchesTables.
inline constexpr const char *kLinkHex = "60a064f6010203a050fb";
inline constexpr const char *kGpsHex = "2160ec006127d380024b39c60d1109";
inline constexpr const char *kBatteryHex = "002101280004d243";
inline constexpr const char *kAttitudeHex = "2e3965ec855a";

} // namespace tavrix::testing

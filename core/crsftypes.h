#pragma once

#include "crsfchannels.h"

#include <QMetaType>

#include <array>
#include <cstdint>

namespace tavrix {

// Sixteen RC channel values as the controller keeps them; packed as 11 bits each.
using ChannelValues = std::array<int32_t, 16>;

// Link statistics (frame 0x14); all zero when the payload is too short.
struct LinkStatistics
{
    int32_t uplinkRssi1 = 0;
    int32_t uplinkRssi2 = 0;
    uint8_t linkQuality = 0;
    int8_t snr = 0;
    uint8_t antenna = 0;
    uint8_t rfMode = 0;
    uint8_t txPower = 0;
    int32_t downlinkRssi = 0;
    uint8_t downlinkLinkQuality = 0;
    int8_t downlinkSnr = 0;
};

// Battery sensor (frame 0x08); all zero when the payload is too short.
struct BatterySensor
{
    float voltage = 0.0f;
    float current = 0.0f;
    uint32_t capacity = 0;
    uint8_t remaining = 0;
    // The frame is long enough for a battery and its voltage is not marked absent (0xFFFF).
    // Whether that field is a voltage at all also depends on the receiver: see the
    // receiver generations below.
    bool present = false;
};

// GPS fix (frame 0x02).
struct GpsFix
{
    bool valid = false;
    double latitude = 0.0;
    double longitude = 0.0;
    float speedKmh = 0.0f;
    float headingDeg = 0.0f;
    int32_t altitudeM = 0;
    int32_t satellites = 0;
};

// Three-value vehicle record (frame 0x23 from the maker's receiver): the car's motion in g.
struct VehicleRecord
{
    bool valid = false;
    uint8_t tag = 0;
    float values[3] = {0.0f, 0.0f, 0.0f};
};

// CRSF frame types and addresses this program makes or reads.
namespace crsf {
inline constexpr uint8_t kSyncByte = 0xC8;
// Other sync/address bytes the parser accepts at the start of a frame.
inline constexpr uint8_t kAddressRadioTransmitter = 0xEA;
inline constexpr uint8_t kAddressTransmitterModule = 0xEE;
inline constexpr uint8_t kTypeGps = 0x02;
inline constexpr uint8_t kTypeBattery = 0x08;
inline constexpr uint8_t kTypeLinkStatistics = 0x14;
inline constexpr uint8_t kTypeRcChannelsPacked = 0x16;
inline constexpr uint8_t kTypeAttitude = 0x1E;
inline constexpr uint8_t kTypeVehicleRecord = 0x23;
inline constexpr uint8_t kTypeDevicePing = 0x28;
inline constexpr uint8_t kTypeDeviceInfo = 0x29;
inline constexpr uint8_t kTypeParameterEntry = 0x2B;
inline constexpr uint8_t kTypeParameterRead = 0x2C;
inline constexpr uint8_t kTypeParameterWrite = 0x2D;
inline constexpr uint8_t kTypeCommand = 0x2E;
inline constexpr uint8_t kTypeWrappedRecord = 0x50;
inline constexpr int kChannelFrameSize = 26;
inline constexpr int kChannelCount = 16;
// The longest frame on the wire: sync, length 255, then 255 bytes.
inline constexpr int kMaxFrameSize = 257;
// A battery payload: voltage, current, used capacity, remaining charge.
inline constexpr int kBatteryPayloadSize = 8;

// Receiver generation: it decides how a 0x08 frame is read.
inline constexpr int kReceiverGenerationUnknown = 0;
inline constexpr int kReceiverGenerationClassic = 1;
// Firmware major version 4 and later; any value at or above this counts as the newer kind,
// which carries an acceleration where the classic receiver puts the battery voltage.
inline constexpr int kReceiverGenerationNewer = 2;

// Frames only the car's receiver sends: they show the car is in reach. Link statistics do
// not count, the module sends them on its own.
constexpr bool isCarTelemetry(uint8_t type)
{
    return type == kTypeGps || type == kTypeBattery || type == kTypeAttitude || type == kTypeVehicleRecord ||
           type == kTypeWrappedRecord;
}
} // namespace crsf

} // namespace tavrix

Q_DECLARE_METATYPE(tavrix::LinkStatistics)
Q_DECLARE_METATYPE(tavrix::BatterySensor)
Q_DECLARE_METATYPE(tavrix::GpsFix)
Q_DECLARE_METATYPE(tavrix::VehicleRecord)

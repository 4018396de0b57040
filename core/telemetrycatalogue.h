#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <cstdint>

namespace tavrix {

// One named reading of the telemetry sensor catalogue.
struct TelemetrySensor
{
    QString key;
    QString value;
    QString detail;
    QString extra;
    qint64 updatedMs = 0;
};
using TelemetryCatalogue = QList<TelemetrySensor>;

// The telemetry sensor catalogue: turns any telemetry frame into named, formatted
// readings for the telemetry views. Pure; the bytes are read by the CRSF decoders.
namespace telemetrycatalogue {

// Merges the readings of one frame into the catalogue, replacing readings of the same key
// in place; frame types without readings change nothing. receiverGeneration is one of
// crsf::kReceiverGeneration*: it decides whether a 0x08 frame is a battery.
[[nodiscard]] TelemetryCatalogue update(TelemetryCatalogue catalogue, uint8_t frameType,
                                        const QByteArray &payload, int receiverGeneration);

// Every key a frame can bring into the catalogue, grouped by the frame that brings it.
[[nodiscard]] QStringList allKeys();

} // namespace telemetrycatalogue

} // namespace tavrix

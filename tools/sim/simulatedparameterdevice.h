#pragma once

#include "crsfwire.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <array>
#include <cstdint>

namespace tavrix::sim {

// A CRSF device with a parameter table, as ExpressLRS exposes it: the transmitter
// module behind the bridge (address 0xEE) or the car's receiver over the radio
// link (address 0xC8). It answers device pings and parameter reads with frames,
// takes parameter writes, and renders the bridge's text walk ("FIELD n: hex...").
class SimulatedParameterDevice
{
public:
    enum FieldType : uint8_t
    {
        Uint8 = 0,
        Int8 = 1,
        TextSelection = 9,
        String = 10,
        Folder = 11,
        Info = 12,
        Command = 13,
    };

    struct Field
    {
        uint8_t id = 0;
        uint8_t parent = 0;
        uint8_t type = TextSelection;
        QString name;
        QStringList options; // TextSelection only
        uint8_t value = 0;
        uint8_t minimum = 0;
        uint8_t maximum = 0;
        uint8_t defaultValue = 0;
        QString units; // TextSelection: after the values; String/Info: the text
    };

    struct Identity
    {
        uint8_t address = 0xEE;
        QString name;
        std::array<char, 4> serial{{'E', 'L', 'R', 'S'}};
        uint32_t hardwareId = 0;
        uint32_t softwareId = 0; // bytes 1..3: major, minor, patch
        uint8_t protocolVersion = 0;
    };

    // Who answers as the car's receiver: the serial-number field of its device info
    // is what tells an Orvane receiver from any other device.
    enum class ReceiverModel
    {
        OrvaneV4, // "ORV4", current hardware
        OrvaneV1, // "ORV1", the earlier hardware on the same firmware
        Foreign,  // "ELRS", a stock ExpressLRS receiver
    };

    SimulatedParameterDevice(Identity identity, QList<Field> fields);

    // The transmitter module and the car's receiver as the simulators present them.
    [[nodiscard]] static SimulatedParameterDevice transmitterModule();
    [[nodiscard]] static SimulatedParameterDevice receiver(ReceiverModel model = ReceiverModel::OrvaneV4);

    [[nodiscard]] uint8_t address() const { return m_identity.address; }
    [[nodiscard]] const QList<Field> &fields() const { return m_fields; }

    // The field's description as the parameter protocol carries it: parent, type,
    // name and NUL, then the type's data. Empty for an unknown id.
    [[nodiscard]] QByteArray fieldData(uint8_t id) const;
    // The opening of fieldData(): parent, type, name and its NUL.
    [[nodiscard]] QByteArray fieldHeader(uint8_t id) const;

    // Answers to one extended frame meant for this device (type and payload with the
    // destination and origin bytes first); each answer is a whole frame.
    // `chunkSize` is the field data carried per 0x2B frame; smaller than the most a
    // frame holds only to exercise reassembly.
    [[nodiscard]] QList<QByteArray> handleExtendedFrame(uint8_t type, QByteArrayView payload,
                                                        int chunkSize = crsfwire::kParameterChunkSize);

    // Applies a write; false (and no change) for an unknown field, a field without
    // a value, or a value out of range.
    bool write(uint8_t id, uint8_t value);

private:
    [[nodiscard]] const Field *field(uint8_t id) const;
    [[nodiscard]] QByteArray deviceInfoFrame(uint8_t destination) const;
    [[nodiscard]] QByteArray entryFrame(uint8_t destination, uint8_t id, uint8_t chunk, int chunkSize) const;

    Identity m_identity;
    QList<Field> m_fields;
};

} // namespace tavrix::sim

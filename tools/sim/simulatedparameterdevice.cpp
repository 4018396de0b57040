#include "simulatedparameterdevice.h"

#include "crsfwire.h"

#include <algorithm>

namespace tavrix::sim {

namespace {

void appendText(QByteArray &out, const QString &text)
{
    out.append(text.toLatin1());
    out.append('\0');
}

} // namespace

SimulatedParameterDevice::SimulatedParameterDevice(Identity identity, QList<Field> fields)
    : m_identity(std::move(identity))
    , m_fields(std::move(fields))
{}

SimulatedParameterDevice SimulatedParameterDevice::transmitterModule()
{
    Identity id;
    id.address = crsfwire::kAddressTransmitterModule;
    id.name = QStringLiteral("Orvane TX 2.4GHz");
    id.softwareId = 0x00030401; // 3.4.1
    QList<Field> fields = {
        // ExpressLRS labels each rate with its receive sensitivity, which makes this the
        // field whose data needs several settings entry frames.
        {1, 0, TextSelection, QStringLiteral("Packet Rate"),
         QStringList{QStringLiteral("50Hz(-115dBm)"), QStringLiteral("100Hz Full(-112dBm)"),
                     QStringLiteral("150Hz(-112dBm)"), QStringLiteral("250Hz(-108dBm)"),
                     QStringLiteral("333Hz Full(-105dBm)"), QStringLiteral("500Hz(-105dBm)")},
         3, 0, 5, 3, QString()},
        {2, 0, TextSelection, QStringLiteral("Telem Ratio"),
         QStringList{QStringLiteral("Std"), QStringLiteral("Off"), QStringLiteral("1:128"),
                     QStringLiteral("1:64"), QStringLiteral("1:32"), QStringLiteral("1:16"),
                     QStringLiteral("1:8"), QStringLiteral("1:4"), QStringLiteral("1:2")},
         0, 0, 8, 0, QString()},
        {3, 0, Folder, QStringLiteral("TX Power"), {}, 0, 0, 0, 0, QString()},
        {4, 3, TextSelection, QStringLiteral("Max Power"),
         QStringList{QStringLiteral("10"), QStringLiteral("25"), QStringLiteral("50"), QStringLiteral("100"),
                     QStringLiteral("250")},
         3, 0, 4, 3, QStringLiteral("mW")},
        {5, 3, TextSelection, QStringLiteral("Dynamic"),
         QStringList{QStringLiteral("Off"), QStringLiteral("Dyn"), QStringLiteral("AUX9")}, 0, 0, 2, 0,
         QString()},
        {6, 0, TextSelection, QStringLiteral("Model Match"),
         QStringList{QStringLiteral("Off"), QStringLiteral("On")}, 0, 0, 1, 0, QString()},
        {7, 0, Command, QStringLiteral("Bind"), {}, 0, 0, 0, 0, QString()},
        {8, 0, Info, QStringLiteral("Version"), {}, 0, 0, 0, 0, QStringLiteral("3.4.1 ORV")},
    };
    return SimulatedParameterDevice(id, fields);
}

SimulatedParameterDevice SimulatedParameterDevice::receiver(ReceiverModel model)
{
    Identity id;
    id.address = crsfwire::kAddressFlightController;
    id.softwareId = 0x00040301; // 4.3.1
    const QStringList offOn{QStringLiteral("Off"), QStringLiteral("On")};
    if (model == ReceiverModel::Foreign) {
        // Keeps the default serial "ELRS": a stock receiver that happens to sit at the same address.
        id.name = QStringLiteral("ExpressLRS RX");
        id.softwareId = 0x00030401; // 3.4.1
        return SimulatedParameterDevice(
            id,
            {{1, 0, TextSelection, QStringLiteral("Protocol"),
              QStringList{QStringLiteral("CRSF"), QStringLiteral("Inverted CRSF"), QStringLiteral("SBUS")}, 0,
              0, 2, 0, QString()},
             {2, 0, Info, QStringLiteral("Version"), {}, 0, 0, 0, 0, QStringLiteral("3.4.1")}});
    }
    // The earlier hardware runs the same firmware with the same settings; its name and
    // serial are what tell it apart.
    const bool v4 = model == ReceiverModel::OrvaneV4;
    id.name = v4 ? QStringLiteral("Orvane RX V4") : QStringLiteral("Orvane RX V1");
    id.serial = v4 ? std::array<char, 4>{{'O', 'R', 'V', '4'}} : std::array<char, 4>{{'O', 'R', 'V', '1'}};
    QList<Field> fields = {
        {1, 0, TextSelection, QStringLiteral("Protocol"),
         QStringList{QStringLiteral("CRSF"), QStringLiteral("Inverted CRSF"), QStringLiteral("SBUS")}, 0, 0,
         2, 0, QString()},
        {3, 0, TextSelection, QStringLiteral("Telemetry"), offOn, 1, 0, 1, 1, QString()},
        {4, 0, TextSelection, QStringLiteral("Motion Data"), offOn, 1, 0, 1, 1, QString()},
        {5, 0, Command, QStringLiteral("Calibrate IMU"), {}, 0, 0, 0, 0, QString()},
        {7, 0, Uint8, QStringLiteral("Motion Rate"), {}, 50, 10, 100, 50, QString()},
        {8, 0, TextSelection, QStringLiteral("GPS"), offOn, 1, 0, 1, 1, QString()},
        {9, 0, Uint8, QStringLiteral("LED Count"), {}, 16, 0, 120, 16, QString()},
        {10, 0, TextSelection, QStringLiteral("Mounting"),
         QStringList{QStringLiteral("Flat"), QStringLiteral("Upright"), QStringLiteral("Inverted")}, 0, 0, 2,
         0, QString()},
        {12, 0, Info, QStringLiteral("Firmware"), {}, 0, 0, 0, 0, QStringLiteral("4.3.1")},
        {14, 0, TextSelection, QStringLiteral("Failsafe"),
         QStringList{QStringLiteral("No Pulses"), QStringLiteral("Last Position")}, 0, 0, 1, 0, QString()},
    };
    return SimulatedParameterDevice(id, fields);
}

const SimulatedParameterDevice::Field *SimulatedParameterDevice::field(uint8_t id) const
{
    const auto it =
        std::find_if(m_fields.cbegin(), m_fields.cend(), [id](const Field &f) { return f.id == id; });
    return it == m_fields.cend() ? nullptr : &*it;
}

QByteArray SimulatedParameterDevice::fieldHeader(uint8_t id) const
{
    const Field *f = field(id);
    if (!f)
        return {};
    QByteArray header;
    header.append(char(f->parent));
    header.append(char(f->type));
    appendText(header, f->name);
    return header;
}

QByteArray SimulatedParameterDevice::fieldData(uint8_t id) const
{
    const Field *found = field(id);
    if (!found)
        return {};
    const Field &f = *found;
    QByteArray data = fieldHeader(id);
    switch (f.type) {
    case Uint8:
    case Int8:
        data.append(char(f.value));
        data.append(char(f.minimum));
        data.append(char(f.maximum));
        data.append(char(f.defaultValue));
        break;
    case TextSelection:
        appendText(data, f.options.join(QLatin1Char(';')));
        data.append(char(f.value));
        data.append(char(f.minimum));
        data.append(char(f.maximum));
        data.append(char(f.defaultValue));
        appendText(data, f.units);
        break;
    default:
        // Strings, folders, info and commands: two status bytes, then a text.
        data.append('\0');
        data.append('\0');
        appendText(data, f.units);
        break;
    }
    return data;
}

QList<QByteArray> SimulatedParameterDevice::handleExtendedFrame(uint8_t type, QByteArrayView payload,
                                                                int chunkSize)
{
    if (payload.size() < 2)
        return {};
    const uint8_t origin = uint8_t(payload[1]);
    const QByteArrayView body = payload.sliced(2);
    switch (type) {
    case crsfwire::kTypeDevicePing:
        return {deviceInfoFrame(origin)};
    case crsfwire::kTypeParameterRead:
        if (body.size() >= 2) {
            const QByteArray entry = entryFrame(origin, uint8_t(body[0]), uint8_t(body[1]), chunkSize);
            if (!entry.isEmpty())
                return {entry};
        }
        return {}; // an unknown field or chunk goes unanswered, as on the device
    case crsfwire::kTypeParameterWrite:
        if (body.size() >= 2)
            write(uint8_t(body[0]), uint8_t(body[1]));
        return {}; // ExpressLRS answers a write only by the next read
    default:
        return {};
    }
}

bool SimulatedParameterDevice::write(uint8_t id, uint8_t value)
{
    for (Field &f : m_fields) {
        if (f.id != id)
            continue;
        const bool hasValue = f.type == Uint8 || f.type == Int8 || f.type == TextSelection;
        if (!hasValue || value < f.minimum || value > f.maximum)
            return false;
        f.value = value;
        return true;
    }
    return false;
}

QByteArray SimulatedParameterDevice::deviceInfoFrame(uint8_t destination) const
{
    QByteArray p;
    p.append(char(destination));
    p.append(char(m_identity.address));
    appendText(p, m_identity.name);
    p.append(m_identity.serial.data(), 4);
    crsfwire::appendBigEndian32(p, m_identity.hardwareId);
    crsfwire::appendBigEndian32(p, m_identity.softwareId);
    p.append(char(m_fields.size()));
    p.append(char(m_identity.protocolVersion));
    return crsfwire::buildFrame(crsfwire::kTypeDeviceInfo, p, crsfwire::kAddressHandset);
}

QByteArray SimulatedParameterDevice::entryFrame(uint8_t destination, uint8_t id, uint8_t chunk,
                                                int chunkSize) const
{
    const QByteArray data = fieldData(id);
    if (data.isEmpty())
        return {};
    chunkSize = std::clamp(chunkSize, 1, crsfwire::kParameterChunkSize);
    const int chunks = int((data.size() + chunkSize - 1) / chunkSize);
    if (chunk >= chunks)
        return {};
    QByteArray p;
    p.append(char(destination));
    p.append(char(m_identity.address));
    p.append(char(id));
    p.append(char(chunks - 1 - chunk)); // chunks remaining after this one
    p.append(data.mid(qsizetype(chunk) * chunkSize, chunkSize));
    return crsfwire::buildFrame(crsfwire::kTypeParameterEntry, p, crsfwire::kAddressHandset);
}

} // namespace tavrix::sim

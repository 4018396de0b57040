#include "serialportdirectory.h"

#include "tavrixserialport.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace tavrix {

SerialPortDirectory::~SerialPortDirectory() = default;

bool SerialPortDirectory::contains(const QString &portName) const
{
    const QList<SerialPortDescription> list = ports();
    return std::any_of(list.cbegin(), list.cend(),
                       [&portName](const SerialPortDescription &port) { return port.portName == portName; });
}

QList<SerialPortDescription> SystemSerialPortDirectory::ports() const
{
    return TavrixSerialPort::availablePorts();
}

PathSerialPortDirectory::PathSerialPortDirectory(QStringList paths)
    : m_paths(std::move(paths))
{}

QList<SerialPortDescription> PathSerialPortDirectory::ports() const
{
    QList<SerialPortDescription> list;
    for (const QString &path : m_paths) {
        // exists() follows symlinks: a link whose pty has gone counts as unplugged.
        if (QFileInfo::exists(path))
            list.append(SerialPortDescription{path, QStringLiteral("Pseudo-terminal"), QString(), 0, 0});
    }
    return list;
}

CompositeSerialPortDirectory::CompositeSerialPortDirectory(
    QList<std::shared_ptr<const SerialPortDirectory>> parts)
    : m_parts(std::move(parts))
{}

QList<SerialPortDescription> CompositeSerialPortDirectory::ports() const
{
    QList<SerialPortDescription> list;
    QSet<QString> seen;
    for (const std::shared_ptr<const SerialPortDirectory> &part : m_parts) {
        if (!part)
            continue;
        for (const SerialPortDescription &port : part->ports()) {
            if (!seen.contains(port.portName)) {
                seen.insert(port.portName);
                list.append(port);
            }
        }
    }
    return list;
}

} // namespace tavrix

#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

namespace tavrix {

// One serial port as the port list shows it.
struct SerialPortDescription
{
    QString portName;
    QString description;
    QString manufacturer;
    quint16 vendorId = 0;
    quint16 productId = 0;
};

// Where the link looks for ports to (re)connect to. The system lists real serial
// ports; pseudo-terminals never show up there, so tests and the simulator demo
// use a directory of known paths instead.
class SerialPortDirectory
{
public:
    virtual ~SerialPortDirectory();

    [[nodiscard]] virtual QList<SerialPortDescription> ports() const = 0;
    // True when a listed port carries exactly this name.
    [[nodiscard]] bool contains(const QString &portName) const;
};

// The serial ports the operating system reports right now.
class SystemSerialPortDirectory final : public SerialPortDirectory
{
public:
    [[nodiscard]] QList<SerialPortDescription> ports() const override;
};

// A fixed set of device paths (typically stable symlinks to pseudo-terminals),
// listed only while the path exists, the way an unplugged device leaves the list.
class PathSerialPortDirectory final : public SerialPortDirectory
{
public:
    explicit PathSerialPortDirectory(QStringList paths = {});

    void setPaths(const QStringList &paths) { m_paths = paths; }
    QStringList paths() const { return m_paths; }

    [[nodiscard]] QList<SerialPortDescription> ports() const override;

private:
    QStringList m_paths;
};

// Several directories as one list, in the order given; a port name listed by more than one
// appears once, as the first lists it. The simulator demo lists the system's ports and the
// simulated bridge this way; a headless run adds the port it was told to use.
class CompositeSerialPortDirectory final : public SerialPortDirectory
{
public:
    explicit CompositeSerialPortDirectory(QList<std::shared_ptr<const SerialPortDirectory>> parts = {});

    [[nodiscard]] QList<SerialPortDescription> ports() const override;

private:
    QList<std::shared_ptr<const SerialPortDirectory>> m_parts;
};

} // namespace tavrix

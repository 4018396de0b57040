#include "deviceroleset.h"

#include "deviceguid.h"
#include "inputdevice.h"
#include "savedaxismapping.h"

#include <QDebug>

namespace tavrix {

int findSavedDevice(const DeviceIdentity &saved, const QList<InputDeviceInfo> &devices)
{
    if (!saved.instanceGuid.isEmpty()) {
        for (int i = 0; i < devices.size(); ++i) {
            const InputDeviceInfo &info = devices.at(i);
            const bool sameGuid =
                guidToString(info.instanceGuid).compare(saved.instanceGuid, Qt::CaseInsensitive) == 0;
            const bool sameProduct = saved.productName.isEmpty() || info.productName == saved.productName;
            if (sameGuid && sameProduct)
                return i;
        }
    }
    // GUIDs are not stable everywhere (another USB port, another machine): the product
    // name alone then decides, exactly as it decides whether a saved mapping applies.
    if (!saved.productName.isEmpty()) {
        for (int i = 0; i < devices.size(); ++i) {
            if (devices.at(i).productName == saved.productName)
                return i;
        }
    }
    return -1;
}

DeviceRoleSet::DeviceRoleSet(InputBackend *backend, ProfileManager *profiles, QObject *parent)
    : QObject(parent)
    , m_backend(backend)
    , m_profiles(profiles)
{
    for (int i = 0; i < kRoleCount; ++i)
        m_devices[i] = new InputDevice(backend, this);
}

DeviceRoleSet::~DeviceRoleSet()
{
    // Quietly: nobody listens any more while the owner is torn down.
    blockSignals(true);
    closeAll();
}

QList<DeviceRole> DeviceRoleSet::rolesFor(VehicleType vehicle)
{
    return deviceRolesFor(vehicle == VehicleType::Helicopter);
}

InputDevice *DeviceRoleSet::device(DeviceRole role) const
{
    return m_devices[slot(role)];
}

bool DeviceRoleSet::isConnected(DeviceRole role) const
{
    const InputDevice *d = device(role);
    return d->isOpen() && d->isConnected();
}

QList<InputDeviceInfo> DeviceRoleSet::availableDevices() const
{
    return m_backend ? InputDevice::enumerateDevices(*m_backend) : QList<InputDeviceInfo>();
}

QStringList DeviceRoleSet::problems(const QList<DeviceRole> &roles) const
{
    QStringList found = m_backend ? InputDevice::unusableDevices(*m_backend) : QStringList();
    for (const DeviceRole role : roles) {
        const QString failure = m_openFailures[size_t(slot(role))];
        const QString sharing = device(role)->sharingProblem();
        for (const QString &problem : {failure, sharing}) {
            if (!problem.isEmpty() && !found.contains(problem))
                found.append(problem);
        }
    }
    return found;
}

bool DeviceRoleSet::open(DeviceRole role, int enumerationIndex)
{
    InputDevice *d = device(role);
    if (!d->open(enumerationIndex)) {
        qWarning().noquote() << QStringLiteral("TavrixController: %1 (%2)")
                                    .arg(deviceOpenFailedMessage(role), d->lastOpenError());
        m_openFailures[size_t(slot(role))] =
            QStringLiteral("%1: %2").arg(deviceOpenFailedMessage(role), d->lastOpenError());
        emit errorOccurred(deviceOpenFailedMessage(role));
        updateConnected(role);
        return false;
    }
    m_openFailures[size_t(slot(role))].clear();
    activateCentredAxes(role);
    rememberInProfile(role);
    updateConnected(role);
    return true;
}

bool DeviceRoleSet::openSaved(DeviceRole role)
{
    const DeviceIdentity saved = m_profiles->deviceIdentity(role);
    if (saved.isEmpty())
        return false;
    const int index = findSavedDevice(saved, availableDevices());
    if (index < 0)
        return false;
    return open(role, index);
}

void DeviceRoleSet::close(DeviceRole role)
{
    if (device(role)->isOpen())
        emit aboutToClose(role);
    device(role)->close();
    m_openFailures[size_t(slot(role))].clear();
    updateConnected(role);
}

void DeviceRoleSet::closeAll()
{
    for (int i = 0; i < kRoleCount; ++i)
        close(DeviceRole(i));
}

void DeviceRoleSet::setCentredAxes(DeviceRole role, const QList<int> &centredSlots)
{
    m_centredAxes[slot(role)] = centredSlots;
    if (device(role)->isOpen())
        activateCentredAxes(role);
}

void DeviceRoleSet::activateCentredAxes(DeviceRole role)
{
    for (int axis : std::as_const(m_centredAxes[slot(role)]))
        device(role)->activateAxis(axis);
}

void DeviceRoleSet::pollAll()
{
    for (int i = 0; i < kRoleCount; ++i) {
        InputDevice *d = m_devices[i];
        if (!d->isOpen())
            continue;
        const bool wasConnected = m_connected[i];
        d->poll();
        updateConnected(DeviceRole(i));
        if (wasConnected && !m_connected[i])
            emit deviceLost(DeviceRole(i));
    }
}

void DeviceRoleSet::rememberInProfile(DeviceRole role)
{
    InputDevice *d = device(role);
    if (role == DeviceRole::WheelBase || role == DeviceRole::Pedals) {
        QJsonObject connection = m_profiles->deviceConnection(role);
        const AxisMappingRecord record = applySavedMapping(*d, AxisMappingRecord::fromConnection(connection));
        if (record == AxisMappingRecord::fromConnection(connection))
            return;
        record.writeTo(connection);
        m_profiles->setDeviceConnection(role, connection);
        return;
    }
    DeviceIdentity identity = m_profiles->deviceIdentity(role);
    if (identity.productName == d->productName() && identity.instanceGuid == d->instanceGuidString())
        return;
    identity.productName = d->productName();
    identity.instanceGuid = d->instanceGuidString();
    m_profiles->setDeviceIdentity(role, identity);
}

void DeviceRoleSet::updateConnected(DeviceRole role)
{
    const bool now = isConnected(role);
    if (m_connected[slot(role)] == now)
        return;
    m_connected[slot(role)] = now;
    emit connectedChanged(role, now);
}

} // namespace tavrix

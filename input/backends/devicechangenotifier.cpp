#include "devicechangenotifier.h"

#include "inputbackend.h"

#include <QPointer>
#include <QSocketNotifier>

namespace tavrix {

DeviceChangeNotifier::DeviceChangeNotifier(InputBackend *backend, QObject *parent)
    : QObject(parent)
    , m_backend(backend)
{
    if (!m_backend)
        return;
    if (const int fd = m_backend->changeDescriptor(); fd >= 0) {
        m_descriptor = new QSocketNotifier(fd, QSocketNotifier::Read, this);
        connect(m_descriptor, &QSocketNotifier::activated, this, &DeviceChangeNotifier::onDescriptorReadable);
    }
    m_backend->setChangeListener([self = QPointer<DeviceChangeNotifier>(this)] {
        if (self)
            QMetaObject::invokeMethod(self, &DeviceChangeNotifier::devicesChanged, Qt::QueuedConnection);
    });
}

DeviceChangeNotifier::~DeviceChangeNotifier()
{
    if (m_backend)
        m_backend->setChangeListener({});
}

void DeviceChangeNotifier::onDescriptorReadable()
{
    // One burst of node events (a device brings several) is one change.
    if (m_backend->takeChanges())
        emit devicesChanged();
}

} // namespace tavrix

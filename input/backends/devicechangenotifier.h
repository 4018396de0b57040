#pragma once

#include <QObject>

class QSocketNotifier;

namespace tavrix {

class InputBackend;

// The hub's one notion of "the set of game controllers may have changed", whatever the
// backend: its hot-plug descriptor watched on the event loop, or the changes it reports
// through its own calls, become one signal. Queued, so listeners never run inside a
// backend call. The backend must outlive the notifier.
class DeviceChangeNotifier : public QObject
{
    Q_OBJECT
public:
    explicit DeviceChangeNotifier(InputBackend *backend, QObject *parent = nullptr);
    ~DeviceChangeNotifier() override;

signals:
    // Read the enumeration again: controllers may have come or gone.
    void devicesChanged();

private:
    void onDescriptorReadable();

    InputBackend *m_backend;
    QSocketNotifier *m_descriptor = nullptr;
};

} // namespace tavrix

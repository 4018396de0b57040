#pragma once

#include "controllerrig.h"
#include "hubservices.h"
#include "logrouter.h"
#include "mainwindow.h"
#include "websocketserver.h"

#include <QComboBox>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>

namespace tavrix::testing {

// Picks a list entry the way a keyboard user does, so the widget sees a real activation
// (one for every step on the way).
inline void pick(QComboBox *box, int index)
{
    box->setFocus();
    while (box->currentIndex() < index)
        QTest::keyClick(box, Qt::Key_Down);
    while (box->currentIndex() > index)
        QTest::keyClick(box, Qt::Key_Up);
}

// The services a main window presents, on real parts: profiles in a temporary folder,
// virtual game controllers and, once startBridge() ran, the bridge simulator on a pty
// whose stable link is the one serial port the hub can see.
struct HubRig
{
    QTemporaryDir dir;
    VirtualBackend *backend = nullptr; // owned by the services
    std::shared_ptr<PathSerialPortDirectory> ports = std::make_shared<PathSerialPortDirectory>();
    sim::BridgeSimulator sim{ControllerRig::quietBridge()};
    std::unique_ptr<HubServices> services;
    std::unique_ptr<MainWindow> window; // made by showPage(), closed before the services go
    int firstDevice = -1;
    int secondDevice = -1;

    explicit HubRig(const ControllerTimings &timings = shortTimings())
    {
        auto input = std::make_unique<VirtualBackend>();
        backend = input.get();
        HubServices::Options options;
        options.inputBackend = std::move(input);
        options.ports = ports;
        options.dataDirectory = dir.path();
        options.timings = timings;
        services = std::make_unique<HubServices>(std::move(options));
    }

    TavrixController *controller() const { return services->controller(); }

    // Opens the main window on these services the first time, shown and exposed, and brings
    // the page `key` to the front. Null if either failed or the page is not a `Page`.
    template<class Page = QWidget> Page *showPage(const QString &key)
    {
        if (!window) {
            window = std::make_unique<MainWindow>(*services, QStringLiteral("light"), *LogRouter::instance());
            window->show();
            if (!QTest::qWaitForWindowExposed(window.get()))
                return nullptr;
        }
        return window->showPage(key) ? qobject_cast<Page *>(window->page(key)) : nullptr;
    }
    // The mobile app's server on 127.0.0.1 and a port the system picks, as if started with
    // --remote-port; call before showPage() so the window finds it listening.
    bool startRemote()
    {
        services->remoteServer()->setListenAddress(QHostAddress(QHostAddress::LocalHost));
        return services->remoteServer()->start(0);
    }

    // The active profile as saved on disk.
    QByteArray activeProfileBytes() const
    {
        ProfileManager *profiles = services->profiles();
        QFile file(profiles->profileDirectory() + QLatin1Char('/') + profiles->activeProfileId() +
                   QStringLiteral(".json"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // A value of the saved file by its path under a section ("Throttle/deadzone" under
    // axisSettings, "pitchCurve/points/0" under helicopterConfig); booleans read 0 or 1.
    double storedValue(QLatin1String section, const QString &path) const
    {
        QJsonValue value = QJsonDocument::fromJson(activeProfileBytes()).object().value(section);
        for (const QString &step : path.split(QLatin1Char('/'))) {
            bool index = false;
            const int at = step.toInt(&index);
            value = index ? value.toArray().at(at) : value.toObject().value(step);
        }
        return value.isBool() ? double(value.toBool()) : value.toDouble(-12345.0);
    }

    QString linkPath() const { return dir.filePath(QStringLiteral("ttyBRIDGE")); }

    bool startBridge()
    {
        ports->setPaths({linkPath()});
        return sim.start(linkPath());
    }

    // Car: a wheel and pedals of the "Generic" preset, released; helicopter: a stick and a
    // throttle. Plugged in only, not opened: the pages choose them.
    void plugCarControllers()
    {
        firstDevice = backend->addDevice({QStringLiteral("Test Wheel"), QString(), 8, 32, 1, true});
        secondDevice = backend->addDevice({QStringLiteral("Test Pedals"), QString(), 8, 8, 0, false});
        for (int device : {firstDevice, secondDevice}) {
            backend->setAxis(device, ControllerRig::kThrottleSlot, rawForGenericPedal(0.0));
            backend->setAxis(device, ControllerRig::kBrakeSlot, rawForGenericPedal(0.0));
        }
    }

    void plugHeliControllers()
    {
        firstDevice = backend->addDevice({QStringLiteral("Test Stick"), QString(), 8, 32, 1, false});
        secondDevice = backend->addDevice({QStringLiteral("Test Throttle"), QString(), 8, 8, 0, false});
    }

    // Everything a car needs to transmit, chosen directly on the controller.
    bool startCarTransmission()
    {
        plugCarControllers();
        TavrixController *c = controller();
        return startBridge() && c->connectDevice(DeviceRole::WheelBase, 0) &&
               c->connectDevice(DeviceRole::Pedals, 1) && c->connectTransmitter(linkPath()) &&
               c->startTransmission();
    }

    void setPedals(double throttle, double brake)
    {
        backend->setAxis(secondDevice, ControllerRig::kThrottleSlot, rawForGenericPedal(throttle));
        backend->setAxis(secondDevice, ControllerRig::kBrakeSlot, rawForGenericPedal(brake));
    }
};

} // namespace tavrix::testing

#pragma once

// The hub below the interface for the event-loop benchmarks: profiles in a temporary
// folder, a wheel and pedals at rest, the bridge simulator on a pty and the controller
// connected to all of them.

#include "bridgesimulator.h"
#include "profilemanager.h"
#include "serialportdirectory.h"
#include "tavrixcontroller.h"
#include "virtualbackend.h"

#include <QTemporaryDir>

#include <cstdio>
#include <memory>

namespace tavrix::bench {

struct BenchRig
{
    QTemporaryDir dir;
    ProfileManager profiles{dir.path()};
    VirtualBackend backend;
    sim::BridgeSimulator bridge{quietBridge()};
    std::unique_ptr<TavrixController> controller;

    static sim::BridgeSimulatorSettings quietBridge()
    {
        sim::BridgeSimulatorSettings settings;
        settings.telemetry.statusLineIntervalMs = 0;
        return settings;
    }

    // False, with the reason on stderr, when any part cannot be set up.
    bool setUp()
    {
        if (!dir.isValid() || !bridge.start()) {
            std::fprintf(stderr, "cannot set up the rig: %s\n", qPrintable(bridge.errorString()));
            return false;
        }
        profiles.loadProfiles();
        // The "Generic" preset's pedals are inverted, so rest is the top of the range.
        for (const char *name : {"Bench Wheel", "Bench Pedals"}) {
            const int id = backend.addDevice({QString::fromLatin1(name), QString(), 8, 32, 1, false});
            backend.setAxis(id, 3, kRawAxisMax);
            backend.setAxis(id, 5, kRawAxisMax);
        }
        controller = std::make_unique<TavrixController>(
            &backend, &profiles, std::make_shared<PathSerialPortDirectory>(QStringList{bridge.clientPath()}));
        QObject::connect(
            controller.get(), &TavrixController::errorOccurred, controller.get(),
            [](const QString &error) { std::fprintf(stderr, "controller: %s\n", qPrintable(error)); });
        if (controller->connectDevice(DeviceRole::WheelBase, 0) &&
            controller->connectDevice(DeviceRole::Pedals, 1) &&
            controller->connectTransmitter(bridge.clientPath())) {
            return true;
        }
        std::fprintf(stderr, "cannot connect the rig\n");
        return false;
    }
};

} // namespace tavrix::bench

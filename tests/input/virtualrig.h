#pragma once

#include "inputdevice.h"
#include "virtualbackend.h"

#include <QtGlobal>

#include <cmath>

namespace tavrix::testing {

// Raw 0..65535 for a wanted normalised value before the 2% device deadzone.
inline qint32 rawFor(double v)
{
    return qint32(std::lround((v + 1.0) / 2.0 * 65535.0));
}

// One virtual controller opened by an InputDevice: the usual starting point of these tests.
struct VirtualRig
{
    VirtualBackend backend;
    int id = -1;
    InputDevice device{&backend};

    explicit VirtualRig(const QString &product = QStringLiteral("Test Stick"), bool ffb = false)
    {
        id = backend.addDevice({product, product, 8, 32, 4, ffb});
    }

    bool open() { return device.open(0); }

    void pollTimes(int n)
    {
        for (int i = 0; i < n; ++i)
            device.poll();
    }

    void setAxis(int slot, double v) { backend.setAxis(id, slot, rawFor(v)); }
};

} // namespace tavrix::testing

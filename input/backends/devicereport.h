#pragma once

#include "inputbackend.h"

#include <QTextStream>

namespace tavrix {

// Prints every game controller the backend sees (list label, product, detected preset, GUID) and
// explains the devices it could not use. Used by `orvane-devices` and `orvanehub --list-devices`;
// needs no window and opens no device. Returns the number of controllers listed.
int writeDeviceReport(QTextStream &out, InputBackend &backend);

} // namespace tavrix

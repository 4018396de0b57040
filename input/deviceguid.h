#pragma once

#include "inputbackend.h"

#include <QString>

namespace tavrix {

// Braced text of a device GUID, "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}", upper case as Windows writes it.
// The 16 bytes are taken in printed order (Data1..Data3 big-endian, as RFC 4122), so a backend that
// holds a Windows GUID struct converts its little-endian Data1..Data3 before handing it over.
[[nodiscard]] QString guidToString(const DeviceGuid &guid);

} // namespace tavrix

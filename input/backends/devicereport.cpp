#include "devicereport.h"

#include "axispreset.h"
#include "deviceguid.h"
#include "inputdevice.h"

namespace tavrix {

int writeDeviceReport(QTextStream &out, InputBackend &backend)
{
    const Enumeration enumeration = backend.enumerate();
    if (enumeration.devices.empty()) {
        out << "No game controllers found.\n";
    } else {
        out << "Game controllers: " << enumeration.devices.size() << '\n';
        int index = 0;
        for (const DeviceListEntry &entry : enumeration.devices) {
            const InputDeviceInfo info = InputDeviceInfo::fromEntry(entry);
            out << "  [" << index++ << "] " << info.listLabel() << '\n';
            out << "      product: " << info.productName << '\n';
            out << "      preset: " << detectPreset(info.productName).name << '\n';
            out << "      povs: " << info.povCount << "  instance GUID: " << guidToString(info.instanceGuid)
                << '\n';
        }
    }
    if (!enumeration.problems.empty()) {
        out << "Not usable: " << enumeration.problems.size() << '\n';
        for (const DeviceProblem &problem : enumeration.problems) {
            out << "  ";
            if (!problem.path.empty())
                out << QString::fromStdString(problem.path) << ": ";
            out << QString::fromStdString(problem.message) << '\n';
        }
    }
    out.flush();
    return int(enumeration.devices.size());
}

} // namespace tavrix

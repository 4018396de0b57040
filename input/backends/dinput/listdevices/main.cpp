// Lists the game controllers DirectInput sees, with the numbers the hub shows, and
// opens each one once: a compile-and-run check of the DirectInput backend that CI
// builds with mingw-w64 and, where wine is installed, runs headless.

#include "dinputbackend.h"

#include <windows.h>

#include <cstdio>
#include <cstring>
#include <objbase.h>

namespace {

std::string guidText(const tavrix::DeviceGuid &bytes)
{
    GUID guid;
    std::memcpy(&guid, bytes.data(), sizeof(GUID));
    wchar_t wide[40] = {};
    StringFromGUID2(guid, wide, 40);
    char text[40] = {};
    WideCharToMultiByte(CP_UTF8, 0, wide, -1, text, sizeof(text), nullptr, nullptr);
    return text;
}

} // namespace

int main()
{
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    // Made the way the hub makes it, tied to this program's console window.
    const std::unique_ptr<tavrix::InputBackend> made = tavrix::createDirectInputBackend(GetConsoleWindow());
    tavrix::InputBackend &backend = *made;
    const tavrix::Enumeration found = backend.enumerate();
    for (const tavrix::DeviceProblem &problem : found.problems)
        std::printf("problem: %s\n", problem.message.c_str());
    std::printf("%zu game controller(s)\n", found.devices.size());
    for (size_t i = 0; i < found.devices.size(); ++i) {
        const tavrix::DeviceListEntry &entry = found.devices[i];
        std::printf("%zu: %s (%u axes, %u btn)%s\n   product %s, instance %s %s\n", i,
                    entry.instanceName.c_str(), entry.axisCount, entry.buttonCount,
                    entry.hasForceFeedback ? " [FFB]" : "", entry.productName.c_str(),
                    guidText(entry.productGuid).c_str(), guidText(entry.instanceGuid).c_str());
        std::string error;
        std::unique_ptr<tavrix::BackendDevice> device = backend.open(static_cast<int>(i), &error);
        if (!device) {
            std::printf("   cannot open: %s\n", error.c_str());
            continue;
        }
        tavrix::RawInputState state;
        const bool ok = device->poll(state) == tavrix::PollResult::Ok;
        std::printf("   opened%s, poll %s, lX=%d\n", device->isExclusive() ? " exclusively" : "",
                    ok ? "ok" : "lost", state.axes[tavrix::SlotX]);
    }
    CoUninitialize();
    return 0;
}

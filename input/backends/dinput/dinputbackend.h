#pragma once

// The Windows game-controller backend: DirectInput 8 enumeration, opening,
// polling and force-feedback effects, step by step as the hub has always done
// them. Plain C++ with no Qt: CI compiles it with mingw-w64, and the Linux build
// leaves it out.

#include "inputbackend.h"

#include <memory>

namespace tavrix {

class DInputBackend final : public InputBackend
{
public:
    DInputBackend();
    ~DInputBackend() override;
    DInputBackend(const DInputBackend &) = delete;
    DInputBackend &operator=(const DInputBackend &) = delete;

    Enumeration enumerate() override;
    std::unique_ptr<BackendDevice> open(int index, std::string *error = nullptr) override;

    // The window that cooperative levels are set for (one process-wide value, the
    // main window's native handle); without one the console or desktop window is used.
    static void setCooperativeWindow(void *nativeWindow);

    // The last HRESULT of a failed DirectInput call, for diagnostics.
    long lastResult() const { return m_lastResult; }

private:
    bool ensureInterface();

    void *m_directInput = nullptr; // IDirectInput8W, created once and kept
    long m_lastResult = 0;
};

// The hub's backend on Windows, with the devices it opens tied to that window (the main
// window's native handle; null leaves the console's or the desktop's).
[[nodiscard]] std::unique_ptr<InputBackend> createDirectInputBackend(void *nativeWindow);

} // namespace tavrix

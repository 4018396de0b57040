#pragma once

#include "inputbackend.h"

#include <QString>

#include <memory>
#include <vector>

namespace tavrix {

// What a virtual game controller claims to be.
struct VirtualDeviceSpec
{
    QString name;
    QString product; // empty: same as name
    int axes = 8;
    int buttons = 0;
    int povs = 0;
    bool ffb = false;
};

// The last force-feedback requests a virtual device received (it has no motor to drive).
struct VirtualFfbState
{
    double autocenter = -1.0; // -1: never set
    double gain = 1.0;
    double constantForce = 0.0;
    double spring = 0.0;
    bool constantPlaying = false;
    bool springPlaying = false;
    int constantSends = 0; // every playConstantForce, to see resends of an unchanged level
};

// Game controllers that live in memory: tests and replays add, move, unplug and lose them, and
// InputDevice reads them through the same seam as real hardware. Ids returned by addDevice stay
// valid for the backend's life; the enumeration index is the position among present devices.
class VirtualBackend : public InputBackend
{
public:
    VirtualBackend();
    ~VirtualBackend() override;

    int addDevice(const VirtualDeviceSpec &spec);
    // Unplugs the device: it leaves the enumeration and handles already open report it lost.
    void removeDevice(int id);
    // A lost device stays listed but every poll fails until it is found again.
    void setLost(int id, bool lost);
    // Makes open() of this device fail with that message (empty message: open works again).
    void setOpenRefusal(int id, const QString &message);
    void addProblem(const QString &path, const QString &message);

    void setState(int id, const RawInputState &state);
    [[nodiscard]] RawInputState state(int id) const;
    void setAxis(int id, int slot, qint32 raw);
    void setButton(int id, int button, bool down);
    // Hundredths of a degree, or -1 for centred.
    void setPov(int id, int hat, int hundredths);

    [[nodiscard]] int deviceCount() const;
    [[nodiscard]] bool isPresent(int id) const;
    [[nodiscard]] VirtualFfbState ffbState(int id) const;

    Enumeration enumerate() override;
    std::unique_ptr<BackendDevice> open(int index, std::string *error = nullptr) override;
    // Told after addDevice and removeDevice, like a hot-plug.
    void setChangeListener(std::function<void()> listener) override;

    struct Record; // shared with the open handles, so an unplugged device can still answer "lost"

private:
    Record *record(int id) const;

    std::vector<std::shared_ptr<Record>> m_records;
    std::vector<DeviceProblem> m_problems;
    std::function<void()> m_changeListener;
};

} // namespace tavrix

#include "virtualbackend.h"

#include <QCryptographicHash>

#include <algorithm>

namespace tavrix {

struct VirtualBackend::Record
{
    DeviceListEntry info;
    RawInputState state;
    bool present = true;
    bool lost = false;
    std::string refusal;
    VirtualFfbState ffb;
};

namespace {

// Stable across runs, so profiles saved during a replay find the same device again.
DeviceGuid guidFor(const QString &seed)
{
    const QByteArray hash = QCryptographicHash::hash(seed.toUtf8(), QCryptographicHash::Md5);
    DeviceGuid guid{};
    std::copy_n(hash.cbegin(), guid.size(), guid.begin());
    guid[6] = quint8((guid[6] & 0x0F) | 0x30); // version 3: name-based
    guid[8] = quint8((guid[8] & 0x3F) | 0x80);
    return guid;
}

class VirtualBackendDevice : public BackendDevice
{
public:
    explicit VirtualBackendDevice(std::shared_ptr<VirtualBackend::Record> record)
        : m_record(std::move(record))
    {}

    const DeviceListEntry &info() const override { return m_record->info; }

    PollResult poll(RawInputState &state) override
    {
        if (!m_record->present || m_record->lost)
            return PollResult::Lost;
        state = m_record->state;
        return PollResult::Ok;
    }

    bool isExclusive() const override { return m_record->info.hasForceFeedback; }

    bool setAutocenter(double strength) override
    {
        return record([&](VirtualFfbState &f) { f.autocenter = strength; });
    }
    bool setGain(double gain) override
    {
        return record([&](VirtualFfbState &f) { f.gain = gain; });
    }
    bool playConstantForce(double level) override
    {
        return record([&](VirtualFfbState &f) {
            f.constantForce = level;
            f.constantPlaying = true;
            ++f.constantSends;
        });
    }
    bool playSpring(double coefficient) override
    {
        return record([&](VirtualFfbState &f) {
            f.spring = coefficient;
            f.springPlaying = true;
        });
    }
    void stopConstantForce() override
    {
        m_record->ffb.constantPlaying = false;
        m_record->ffb.constantForce = 0.0;
    }
    void stopSpring() override { m_record->ffb.springPlaying = false; }
    void stopEffects() override
    {
        stopConstantForce();
        stopSpring();
    }
    ForceFeedbackProbe probeForceFeedback() override
    {
        ForceFeedbackProbe probe;
        probe.actuatorAxes = m_record->info.hasForceFeedback ? 1 : 0;
        probe.constantForce = probe.actuatorAxes > 0;
        return probe;
    }

private:
    template<typename Change> bool record(Change change)
    {
        if (!m_record->info.hasForceFeedback || !m_record->present || m_record->lost)
            return false;
        change(m_record->ffb);
        return true;
    }

    std::shared_ptr<VirtualBackend::Record> m_record;
};

} // namespace

VirtualBackend::VirtualBackend() = default;
VirtualBackend::~VirtualBackend() = default;

int VirtualBackend::addDevice(const VirtualDeviceSpec &spec)
{
    auto rec = std::make_shared<Record>();
    const QString product = spec.product.isEmpty() ? spec.name : spec.product;
    rec->info.instanceName = spec.name.toStdString();
    rec->info.productName = product.toStdString();
    rec->info.instanceGuid =
        guidFor(QStringLiteral("virtual-instance:%1:%2").arg(spec.name).arg(m_records.size()));
    rec->info.productGuid = guidFor(QStringLiteral("virtual-product:%1").arg(product));
    rec->info.axisCount = quint32(std::clamp(spec.axes, 0, int(AxisSlotCount)));
    // A virtual device of n axes has the first n slots.
    rec->info.axisSlots = quint8((1u << rec->info.axisCount) - 1u);
    rec->info.buttonCount = quint32(std::clamp(spec.buttons, 0, kRawButtonCount));
    rec->info.povCount = quint32(std::clamp(spec.povs, 0, kRawPovCount));
    rec->info.hasForceFeedback = spec.ffb;
    m_records.push_back(std::move(rec));
    if (m_changeListener)
        m_changeListener();
    return int(m_records.size()) - 1;
}

VirtualBackend::Record *VirtualBackend::record(int id) const
{
    return id >= 0 && id < int(m_records.size()) ? m_records[size_t(id)].get() : nullptr;
}

void VirtualBackend::removeDevice(int id)
{
    Record *r = record(id);
    if (!r || !r->present)
        return;
    r->present = false;
    if (m_changeListener)
        m_changeListener();
}

void VirtualBackend::setChangeListener(std::function<void()> listener)
{
    m_changeListener = std::move(listener);
}

void VirtualBackend::setLost(int id, bool lost)
{
    if (Record *r = record(id))
        r->lost = lost;
}

void VirtualBackend::setOpenRefusal(int id, const QString &message)
{
    if (Record *r = record(id))
        r->refusal = message.toStdString();
}

void VirtualBackend::addProblem(const QString &path, const QString &message)
{
    m_problems.push_back({path.toStdString(), message.toStdString()});
}

void VirtualBackend::setState(int id, const RawInputState &state)
{
    if (Record *r = record(id))
        r->state = state;
}

RawInputState VirtualBackend::state(int id) const
{
    const Record *r = record(id);
    return r ? r->state : RawInputState{};
}

void VirtualBackend::setAxis(int id, int slot, qint32 raw)
{
    Record *r = record(id);
    if (r && slot >= 0 && slot < AxisSlotCount)
        r->state.axes[size_t(slot)] = std::clamp(raw, 0, kRawAxisMax);
}

void VirtualBackend::setButton(int id, int button, bool down)
{
    Record *r = record(id);
    if (r && button >= 0 && button < kRawButtonCount)
        r->state.buttons[size_t(button)] = down ? 0x80 : 0x00;
}

void VirtualBackend::setPov(int id, int hat, int hundredths)
{
    Record *r = record(id);
    if (r && hat >= 0 && hat < kRawPovCount)
        r->state.povs[size_t(hat)] = hundredths < 0 ? kRawPovCentred : quint32(hundredths);
}

int VirtualBackend::deviceCount() const
{
    return int(m_records.size());
}

bool VirtualBackend::isPresent(int id) const
{
    const Record *r = record(id);
    return r && r->present;
}

VirtualFfbState VirtualBackend::ffbState(int id) const
{
    const Record *r = record(id);
    return r ? r->ffb : VirtualFfbState{};
}

Enumeration VirtualBackend::enumerate()
{
    Enumeration enumeration;
    for (const auto &r : m_records) {
        if (r->present)
            enumeration.devices.push_back(r->info);
    }
    enumeration.problems = m_problems;
    return enumeration;
}

std::unique_ptr<BackendDevice> VirtualBackend::open(int index, std::string *error)
{
    int position = 0;
    for (const auto &r : m_records) {
        if (!r->present)
            continue;
        if (position++ != index)
            continue;
        if (!r->refusal.empty()) {
            if (error)
                *error = r->refusal;
            return nullptr;
        }
        return std::make_unique<VirtualBackendDevice>(r);
    }
    if (error)
        *error = "no virtual device at that position";
    return nullptr;
}

} // namespace tavrix

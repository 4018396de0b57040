#pragma once

#include "buttonmapping.h"
#include "buttonmappingengine.h"
#include "controllertypes.h"
#include "profilemanager.h"

#include <QObject>
#include <QString>

namespace tavrix {

class ProfileManager;

// The active profile's button mappings under the rules every editor shares (the window's
// dialog and the mobile app): a mapping drives one of the channels the engine evaluates for
// the profile's vehicle (a car's CH3..CH12, a helicopter's CH5..CH16), values are
// channel values, the list stays short enough to walk on every tick. Changes are written to
// the profile store, which the controller follows, so a running car uses them on its next tick.
// Each refusal emits errorOccurred once and changes nothing; a refused write is reported by
// the profile store itself.
class ButtonMappingBook : public QObject
{
    Q_OBJECT

public:
    // The mapping engine walks the whole list on every 7 ms tick.
    // The store refuses an imported profile with more, so the book and the store agree.
    static constexpr int kMaxMappings = ProfileManager::kMaxButtonMappings;
    static constexpr int kMaxExtraButtons = 16;
    static constexpr int kMaxNameLength = 64;
    // Channel values, and the fastest hold rate: the full span in a tenth of a second.
    static constexpr int kValueMin = crsf::kChannelMin;
    static constexpr int kValueMax = crsf::kChannelMax;
    static constexpr int kRateMax = 10 * (crsf::kChannelMax - crsf::kChannelMin + 1);

    // profiles is not owned and must outlive the book.
    explicit ButtonMappingBook(ProfileManager *profiles, QObject *parent = nullptr);

    // The mapping as it is stored: values within the channel range, the rate within
    // 0..kRateMax (a negative one would turn raising into lowering), name and further
    // sources cut to their limits.
    [[nodiscard]] static ButtonMapping clamped(ButtonMapping mapping);

    [[nodiscard]] ButtonMappingList mappings() const;
    // The channels a vehicle's mappings may be put on: those the engine evaluates for it, as
    // it leaves every other one alone.
    [[nodiscard]] static constexpr ButtonMappingEngine::ChannelRange channelsOf(VehicleType vehicle)
    {
        return vehicle == VehicleType::Helicopter ? ButtonMappingEngine::kHelicopterChannels
                                                  : ButtonMappingEngine::kCarChannels;
    }
    // The active profile's vehicle, and its channels.
    [[nodiscard]] VehicleType vehicle() const;
    [[nodiscard]] ButtonMappingEngine::ChannelRange channels() const;
    // A new mapping, or one put in place of the mapping at index, must drive one of channels().
    bool add(const ButtonMapping &mapping);
    bool replace(int index, const ButtonMapping &mapping);
    bool remove(int index);
    // Takes the list as it is (a profile of another vehicle, a disabled mapping without a
    // source): the engine ignores what it cannot drive. Only its length is refused.
    bool setAll(const ButtonMappingList &mappings);
    bool clear();

signals:
    void errorOccurred(const QString &message);

private:
    bool refuseChannel(const ButtonMapping &mapping);
    bool refuseIndex(int index, qsizetype count);
    bool store(const ButtonMappingList &mappings);
    bool refuse(const QString &message);

    ProfileManager *m_profiles;
};

} // namespace tavrix

#include "steeringtrim.h"

#include "drivecomputation.h"
#include "profilekeys.h"
#include "profilemanager.h"
#include "profilesettings.h"

#include <QCoreApplication>

#include <algorithm>

namespace tavrix {

namespace {

namespace keys = profilekeys;

int32_t toChannel(double value)
{
    return int32_t(std::clamp(value, double(crsf::kChannelMin), double(crsf::kChannelMax)));
}

} // namespace

SteeringEndpoints SteeringEndpoints::of(const DriveSettings &settings)
{
    return {settings.steeringLeft, settings.steeringCenter, settings.steeringRight};
}

std::optional<SteeringEndpoints> SteeringEndpoints::checked(double left, double center, double right)
{
    const SteeringEndpoints endpoints{toChannel(left), toChannel(center), toChannel(right)};
    // Out of order, both halves of the wheel would turn the car the same way.
    if (endpoints.left > endpoints.center || endpoints.center > endpoints.right ||
        endpoints.left == endpoints.right)
        return std::nullopt;
    return endpoints;
}

QString SteeringEndpoints::outOfOrderMessage()
{
    return QCoreApplication::translate("tavrix::SteeringEndpoints", kOutOfOrder);
}

SteeringTrim::SteeringTrim(DriveComputation &drive, ProfileManager &profiles)
    : m_drive(drive)
    , m_profiles(profiles)
{}

SteeringEndpoints SteeringTrim::inForce() const
{
    return SteeringEndpoints::of(m_drive.settings());
}

SteeringEndpoints SteeringTrim::saved() const
{
    return SteeringEndpoints::of(ProfileSettings::fromProfile(m_profiles.activeProfile()).drive);
}

void SteeringTrim::applyLive(const SteeringEndpoints &endpoints)
{
    m_trial = Trial{endpoints, saved(), m_profiles.activeProfileId()};
    putInForce(endpoints);
}

void SteeringTrim::putInForce(const SteeringEndpoints &endpoints)
{
    DriveSettings settings = m_drive.settings();
    settings.steeringLeft = endpoints.left;
    settings.steeringCenter = endpoints.center;
    settings.steeringRight = endpoints.right;
    // Only the end points change, so reverse mode stays as it is.
    m_drive.setSettings(settings);
}

bool SteeringTrim::save(const SteeringEndpoints &endpoints)
{
    QJsonObject axisSettings = m_profiles.setting(keys::kAxisSettings).toObject();
    axisSettings.insert(keys::kSteeringLeft, endpoints.left);
    axisSettings.insert(keys::kSteeringCenter, endpoints.center);
    axisSettings.insert(keys::kSteeringRight, endpoints.right);
    if (!m_profiles.setSetting(keys::kAxisSettings, axisSettings))
        return false;
    // A store that held them already reads nothing again: the car keeps them either way.
    m_trial.reset();
    putInForce(endpoints);
    return true;
}

SteeringEndpoints SteeringTrim::revert()
{
    const SteeringEndpoints endpoints = saved();
    m_trial.reset();
    putInForce(endpoints);
    return endpoints;
}

void SteeringTrim::carryOver(DriveSettings &next)
{
    if (!m_trial)
        return;
    if (m_trial->profileId != m_profiles.activeProfileId() ||
        m_trial->savedUnder != SteeringEndpoints::of(next)) {
        m_trial.reset();
        return;
    }
    next.steeringLeft = m_trial->endpoints.left;
    next.steeringCenter = m_trial->endpoints.center;
    next.steeringRight = m_trial->endpoints.right;
}

} // namespace tavrix

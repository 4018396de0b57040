#include "steeringtrim.h"

#include "drivecomputation.h"

#include <algorithm>

namespace tavrix {

namespace {

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

SteeringTrim::SteeringTrim(DriveComputation &drive)
    : m_drive(drive)
{}

SteeringEndpoints SteeringTrim::inForce() const
{
    return SteeringEndpoints::of(m_drive.settings());
}

void SteeringTrim::applyLive(const SteeringEndpoints &endpoints)
{
    DriveSettings settings = m_drive.settings();
    settings.steeringLeft = endpoints.left;
    settings.steeringCenter = endpoints.center;
    settings.steeringRight = endpoints.right;
    // Only the end points change, so reverse mode stays as it is.
    m_drive.setSettings(settings);
}

} // namespace tavrix

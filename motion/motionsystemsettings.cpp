#include "motionsystemsettings.h"

#include <QtGlobal>

namespace tavrix {

MotionSystemSettings MotionSystemSettings::clamped() const
{
    MotionSystemSettings result = *this;
    for (const MotionSettingField &field : kMotionSettingFields)
        result.*field.member = qBound(field.minimum, result.*field.member, field.maximum);
    return result;
}

} // namespace tavrix

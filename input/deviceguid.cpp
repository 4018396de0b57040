#include "deviceguid.h"

#include <QUuid>

#include <algorithm>

namespace tavrix {

QString guidToString(const DeviceGuid &guid)
{
    const QByteArray bytes(reinterpret_cast<const char *>(guid.data()), qsizetype(guid.size()));
    return QUuid::fromRfc4122(bytes).toString(QUuid::WithBraces).toUpper();
}

std::optional<DeviceGuid> guidFromString(const QString &text)
{
    const QUuid uuid = QUuid::fromString(text.trimmed());
    if (uuid.isNull() && text.trimmed() != QLatin1StringView("{00000000-0000-0000-0000-000000000000}"))
        return std::nullopt;
    const QByteArray bytes = uuid.toRfc4122();
    DeviceGuid guid{};
    std::copy(bytes.cbegin(), bytes.cend(), guid.begin());
    return guid;
}

} // namespace tavrix

#include "deviceguid.h"

#include <QUuid>

namespace tavrix {

QString guidToString(const DeviceGuid &guid)
{
    const QByteArray bytes(reinterpret_cast<const char *>(guid.data()), qsizetype(guid.size()));
    return QUuid::fromRfc4122(bytes).toString(QUuid::WithBraces).toUpper();
}

} // namespace tavrix

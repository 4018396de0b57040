#include "versioncompare.h"

#include <QStringList>

namespace tavrix {

namespace {

qulonglong leadingNumber(const QString &part)
{
    qsizetype digits = 0;
    while (digits < part.size() && digits < 18 && part.at(digits).isDigit())
        ++digits;
    return part.left(digits).toULongLong();
}

} // namespace

int compareVersions(const QString &a, const QString &b)
{
    const QStringList left = a.trimmed().split(QLatin1Char('.'));
    const QStringList right = b.trimmed().split(QLatin1Char('.'));
    for (qsizetype i = 0; i < std::max(left.size(), right.size()); ++i) {
        const qulonglong x = i < left.size() ? leadingNumber(left.at(i)) : 0;
        const qulonglong y = i < right.size() ? leadingNumber(right.at(i)) : 0;
        if (x != y)
            return x < y ? -1 : 1;
    }
    return 0;
}

} // namespace tavrix

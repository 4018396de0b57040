#include "httprequest.h"

#include <QHostAddress>
#include <QString>
#include <QUrl>

#include <algorithm>
#include <limits>

namespace tavrix::http {

namespace {

const QByteArray kHeadEnd = QByteArrayLiteral("\r\n\r\n");
const QByteArray kLineEnd = QByteArrayLiteral("\r\n");

// Ten digits already overflow an int for most values; the range check below settles the rest.
constexpr qsizetype kMaxDigits = 10;

QByteArray reason(int status)
{
    switch (status) {
    case kOk:
        return QByteArrayLiteral("OK");
    case kBadRequest:
        return QByteArrayLiteral("Bad Request");
    case kForbidden:
        return QByteArrayLiteral("Forbidden");
    case kNotFound:
        return QByteArrayLiteral("Not Found");
    case kConflict:
        return QByteArrayLiteral("Conflict");
    case kRequestTooLarge:
        return QByteArrayLiteral("Request Header Fields Too Large");
    }
    return QByteArrayLiteral("Internal Server Error");
}

std::optional<int> decimal(QByteArrayView text)
{
    const bool negative = text.startsWith('-');
    const QByteArrayView digits = negative ? text.sliced(1) : text;
    if (digits.isEmpty() || digits.size() > kMaxDigits)
        return std::nullopt;
    qint64 value = 0;
    for (const char c : digits) {
        if (c < '0' || c > '9')
            return std::nullopt;
        value = value * 10 + (c - '0');
    }
    value = negative ? -value : value;
    if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max())
        return std::nullopt;
    return int(value);
}

QList<QPair<QByteArray, QByteArray>> splitQuery(QByteArrayView query)
{
    QList<QPair<QByteArray, QByteArray>> pairs;
    for (const QByteArrayView pair : query.toByteArray().split('&')) {
        if (pair.isEmpty())
            continue;
        const qsizetype equals = pair.indexOf('=');
        if (equals < 0)
            pairs.append({pair.toByteArray(), QByteArray()});
        else
            pairs.append({pair.first(equals).toByteArray(), pair.sliced(equals + 1).toByteArray()});
    }
    return pairs;
}

} // namespace

qsizetype headLength(QByteArrayView buffer)
{
    const qsizetype at = buffer.indexOf(kHeadEnd);
    return at < 0 ? -1 : at + kHeadEnd.size();
}

bool Request::hasParameter(QByteArrayView name) const
{
    return std::any_of(query.cbegin(), query.cend(), [name](const auto &pair) { return pair.first == name; });
}

std::optional<int> Request::integer(QByteArrayView name) const
{
    for (const auto &[key, value] : query) {
        if (key == name)
            return decimal(value);
    }
    return std::nullopt;
}

bool Request::isSameOrigin() const
{
    if (!hasOrigin)
        return true;
    // "null" (a sandboxed frame, a file) and anything that is not http:// come from elsewhere.
    const QUrl url(QString::fromLatin1(origin), QUrl::StrictMode);
    if (!url.isValid() || url.scheme() != QLatin1String("http") || url.host().isEmpty() || host.isEmpty())
        return false;
    const QString authority =
        url.port() < 0 ? url.host() : QStringLiteral("%1:%2").arg(url.host()).arg(url.port());
    return authority.compare(QString::fromLatin1(host), Qt::CaseInsensitive) == 0;
}

bool Request::isHostAnAddress() const
{
    if (host.isEmpty())
        return true;
    const QUrl url(QStringLiteral("http://") + QString::fromLatin1(host), QUrl::StrictMode);
    const QString name = url.host();
    return url.isValid() && (name.compare(QLatin1String("localhost"), Qt::CaseInsensitive) == 0 ||
                             !QHostAddress(name).isNull());
}

std::optional<Request> parseRequest(QByteArrayView head)
{
    const qsizetype lineEnd = head.indexOf(kLineEnd);
    const QByteArrayView requestLine = lineEnd < 0 ? head : head.first(lineEnd);
    const QList<QByteArray> words = requestLine.toByteArray().split(' ');
    QList<QByteArray> parts;
    for (const QByteArray &word : words) {
        if (!word.isEmpty())
            parts.append(word);
    }
    if (parts.size() < 2)
        return std::nullopt;

    Request request;
    request.method = parts.at(0);
    request.target = parts.at(1);
    const qsizetype question = request.target.indexOf('?');
    request.path = question < 0 ? request.target : request.target.first(question);
    if (question >= 0)
        request.query = splitQuery(QByteArrayView(request.target).sliced(question + 1));

    if (lineEnd < 0)
        return request;
    for (const QByteArrayView line : head.sliced(lineEnd + kLineEnd.size()).toByteArray().split('\n')) {
        const qsizetype colon = line.indexOf(':');
        if (colon <= 0)
            continue;
        const QByteArray name = line.first(colon).trimmed().toByteArray().toLower();
        const QByteArray value = line.sliced(colon + 1).trimmed().toByteArray();
        if (name == "host" && request.host.isEmpty()) {
            request.host = value;
        } else if (name == "origin" && !request.hasOrigin) {
            request.origin = value;
            request.hasOrigin = true;
        }
    }
    return request;
}

Reply Reply::text(int status, const QString &body)
{
    return {status, QByteArrayLiteral("text/plain"), body.toUtf8()};
}

Reply Reply::json(const QByteArray &body)
{
    return {kOk, QByteArrayLiteral("application/json"), body};
}

QByteArray Reply::toBytes() const
{
    QByteArray bytes = QByteArrayLiteral("HTTP/1.1 ") + QByteArray::number(status) + ' ' + reason(status) +
                       kLineEnd + QByteArrayLiteral("Content-Type: ") + contentType +
                       QByteArrayLiteral("\r\nContent-Length: ") + QByteArray::number(body.size()) +
                       QByteArrayLiteral("\r\nConnection: close\r\n\r\n");
    bytes += body;
    return bytes;
}

} // namespace tavrix::http

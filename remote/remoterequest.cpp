#include "remoterequest.h"

#include <cmath>

namespace tavrix {

RemoteRequest::RemoteRequest(QString event, QJsonObject data)
    : m_event(std::move(event))
    , m_data(std::move(data))
{}

int RemoteRequest::integer(QLatin1String key) const
{
    // A fraction or a number beyond int reads as missing too.
    return m_data.value(key).toInt(-1);
}

double RemoteRequest::number(QLatin1String key, double fallback) const
{
    const QJsonValue value = m_data.value(key);
    return value.isDouble() && std::isfinite(value.toDouble()) ? value.toDouble() : fallback;
}

QString RemoteRequest::text(QLatin1String key) const
{
    return m_data.value(key).toString();
}

bool RemoteRequest::flag(QLatin1String key, bool fallback) const
{
    return m_data.value(key).toBool(fallback);
}

QJsonObject RemoteRequest::answer(const QJsonObject &data) const
{
    return {{QStringLiteral("event"), m_event}, {QStringLiteral("data"), data}};
}

QJsonObject RemoteRequest::succeeded(const QJsonObject &extra) const
{
    QJsonObject reply = extra;
    reply.insert(QStringLiteral("event"), m_event);
    reply.insert(QStringLiteral("success"), true);
    return reply;
}

QJsonObject RemoteRequest::failed(const QString &message) const
{
    return {{QStringLiteral("event"), m_event},
            {QStringLiteral("success"), false},
            {QStringLiteral("message"), message}};
}

QJsonObject RemoteRequest::error(const QString &message) const
{
    return {{QStringLiteral("event"), QStringLiteral("error")},
            {QStringLiteral("source"), m_event},
            {QStringLiteral("message"), message}};
}

QJsonObject RemoteRequest::outcome(bool ok, const QString &message) const
{
    return ok ? succeeded() : failed(message);
}

} // namespace tavrix

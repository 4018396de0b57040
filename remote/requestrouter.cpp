#include "requestrouter.h"

#include "remoterequest.h"
#include "wshandler.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonParseError>

namespace tavrix {

namespace {

QJsonObject envelopeError(const QString &message)
{
    return {{QStringLiteral("event"), QStringLiteral("error")}, {QStringLiteral("message"), message}};
}

} // namespace

void RequestRouter::registerHandler(WsHandler *handler)
{
    const QStringList events = handler->handledEvents();
    for (const QString &event : events)
        m_routes.insert(event, handler);
}

QJsonObject RequestRouter::dispatch(const QString &message, QSet<QString> &subscriptions) const
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(message.toUtf8(), &parseError);
    // An array parses without error; it is refused with the parser's text all the same.
    if (parseError.error != QJsonParseError::NoError || !document.isObject())
        return envelopeError(QStringLiteral("Invalid JSON: ") + parseError.errorString());

    const QJsonObject request = document.object();
    const QString event = request.value(QLatin1String("event")).toString();
    if (event.isEmpty())
        return envelopeError(QStringLiteral("Missing 'event' field"));
    // A missing or non-object "data" reads as an empty object.
    const QJsonObject data = request.value(QLatin1String("data")).toObject();

    const bool subscribe = event == QLatin1String("action_subscribe");
    if (subscribe || event == QLatin1String("action_unsubscribe")) {
        const QJsonArray names = data.value(QLatin1String("events")).toArray();
        for (const QJsonValue &name : names) {
            if (!name.isString())
                continue;
            if (!subscribe)
                subscriptions.remove(name.toString());
            else if (subscriptions.size() < kMaxSubscriptions)
                subscriptions.insert(name.toString());
        }
        return RemoteRequest(event, {}).succeeded();
    }

    WsHandler *handler = m_routes.value(event);
    if (!handler)
        return RemoteRequest(event, {}).error(QStringLiteral("Unknown event: ") + event);
    return handler->handleMessage(event, data);
}

} // namespace tavrix

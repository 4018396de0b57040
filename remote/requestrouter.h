#pragma once

#include <QHash>
#include <QJsonObject>
#include <QSet>
#include <QString>

namespace tavrix {

class WsHandler;

// The protocol half of the remote service, apart from any socket: parses one text
// message as a request, serves the subscription requests itself and routes the rest by
// event name to the handler that listed it. Every message gets exactly one reply.
class RequestRouter
{
public:
    // How many event names one client may subscribe to; further names are ignored so
    // that a client cannot grow the hub's memory by subscribing to made-up names.
    static constexpr int kMaxSubscriptions = 256;

    // Enters each name the handler serves; a name entered twice points at the later handler.
    void registerHandler(WsHandler *handler);
    [[nodiscard]] bool routes(const QString &event) const { return m_routes.contains(event); }

    // The reply to message; subscriptions is the asking client's set, which
    // "action_subscribe" and "action_unsubscribe" change.
    QJsonObject dispatch(const QString &message, QSet<QString> &subscriptions) const;

private:
    QHash<QString, WsHandler *> m_routes;
};

} // namespace tavrix

#include "wstablehandler.h"

namespace tavrix {

WsTableHandler::WsTableHandler(TavrixController *controller, QString unhandledMessage, QObject *parent)
    : WsHandler(controller, parent)
    , m_unhandledMessage(std::move(unhandledMessage))
{}

QStringList WsTableHandler::handledEvents() const
{
    QStringList events;
    events.reserve(m_rows.size());
    for (const Row &row : m_rows)
        events.append(row.event);
    return events;
}

QJsonObject WsTableHandler::handleMessage(const QString &event, const QJsonObject &data)
{
    const RemoteRequest request(event, data);
    for (const Row &row : std::as_const(m_rows)) {
        if (row.event == event)
            return row.function(request);
    }
    return request.error(m_unhandledMessage);
}

void WsTableHandler::addRequest(const QString &event, Function function)
{
    m_rows.append({event, std::move(function)});
}

} // namespace tavrix

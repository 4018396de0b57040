#pragma once

#include "remoterequest.h"
#include "wshandler.h"

#include <QList>

#include <functional>
#include <initializer_list>
#include <utility>

namespace tavrix {

// A handler whose requests are a table: each request name maps to one small function
// that validates the request and builds its reply. Subclasses fill the table in their
// constructor, in the order the requests are listed to the server.
class WsTableHandler : public WsHandler
{
    Q_OBJECT

public:
    [[nodiscard]] QStringList handledEvents() const override;
    QJsonObject handleMessage(const QString &event, const QJsonObject &data) override;

protected:
    using Function = std::function<QJsonObject(const RemoteRequest &)>;

    // unhandledMessage answers a name the table does not hold, such as
    // "Unhandled event in device handler".
    WsTableHandler(TavrixController *controller, QString unhandledMessage, QObject *parent);

    void addRequest(const QString &event, Function function);

    // The table as member functions of the concrete handler:
    // addRequests<WsFooHandler>({{"get_foo", &WsFooHandler::foo}, ...}).
    template<class Handler>
    void addRequests(
        std::initializer_list<std::pair<const char *, QJsonObject (Handler::*)(const RemoteRequest &)>> rows)
    {
        auto *self = static_cast<Handler *>(this);
        for (const auto &row : rows) {
            const auto member = row.second; // a copy: clang before 16 cannot capture a structured binding
            addRequest(QString::fromLatin1(row.first),
                       [self, member](const RemoteRequest &request) { return (self->*member)(request); });
        }
    }

    // Publishes a push event with data.
    void push(const QString &event, const QJsonObject &data = {}) { emit pushEvent(event, data); }

private:
    struct Row
    {
        QString event;
        Function function;
    };
    QList<Row> m_rows;
    QString m_unhandledMessage;
};

} // namespace tavrix

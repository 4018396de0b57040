#pragma once

#include <QJsonObject>
#include <QObject>
#include <QStringList>

namespace tavrix {

class TavrixController;

// Base of every request handler of the remote control service. The server asks each
// handler which requests it serves and routes those to it; a handler answers at once
// (it never waits inside handleMessage: long work replies "started" and reports its
// progress as push events) and publishes unsolicited news through pushEvent.
class WsHandler : public QObject
{
    Q_OBJECT

public:
    // The controller is not owned and must outlive the handler.
    WsHandler(TavrixController *controller, QObject *parent);

    // The request names this handler serves, in the order it lists them.
    [[nodiscard]] virtual QStringList handledEvents() const = 0;
    // The complete reply (it carries its own "event" key) to a request this handler listed.
    virtual QJsonObject handleMessage(const QString &event, const QJsonObject &data) = 0;

signals:
    void pushEvent(const QString &event, const QJsonObject &data);

protected:
    [[nodiscard]] TavrixController *controller() const { return m_controller; }

private:
    TavrixController *m_controller;
};

} // namespace tavrix

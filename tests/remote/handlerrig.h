#pragma once

#include "controllerrig.h"
#include "wshandler.h"

#include <QJsonObject>
#include <QSignalSpy>

#include <memory>

namespace tavrix::testing {

// A request handler on the real hub below it (ControllerRig: profiles in a temporary
// folder, virtual controllers, the bridge simulator) and the pushes it publishes.
template<class Handler> struct HandlerRig : ControllerRig
{
    QObject parent;
    Handler *handler = nullptr;
    std::unique_ptr<QSignalSpy> pushes;

    bool setUp(const QString &vehicleType = QStringLiteral("rc_car"))
    {
        if (!ControllerRig::setUp(vehicleType))
            return false;
        handler = new Handler(controller.get(), &parent);
        pushes = std::make_unique<QSignalSpy>(handler, &WsHandler::pushEvent);
        return true;
    }

    QJsonObject ask(const QString &event, const QJsonObject &data = {})
    {
        return handler->handleMessage(event, data);
    }

    // The data of every push called event so far.
    QList<QJsonObject> pushed(const QString &event) const
    {
        QList<QJsonObject> found;
        for (const QList<QVariant> &args : *pushes) {
            if (args.at(0).toString() == event)
                found.append(args.at(1).toJsonObject());
        }
        return found;
    }
};

} // namespace tavrix::testing

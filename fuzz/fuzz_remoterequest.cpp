// Fuzzes the remote request dispatcher: arbitrary text in, as a phone on the network may
// send it, through the router and every request handler the hub registers, against a real
// controller (virtual game controllers, profiles in a private temporary folder, no
// transmitter). Every message must get exactly one reply object that names an event, and
// nothing may crash or grow without bound.
//
// Requests that reach outside the process (opening a serial port by name, searching for
// one) are answered by their handler's validation only: the fuzzer must never open the
// machine's real devices.

#include "profilemanager.h"
#include "remotehandlers.h"
#include "serialportdirectory.h"
#include "tavrixcontroller.h"
#include "virtualbackend.h"
#include "websocketserver.h"
#include "wshandler.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <memory>

using namespace tavrix;

namespace {

[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "fuzz_remoterequest: %s\n", what);
    std::abort();
}

struct Hub
{
    Hub()
    {
        backend.addDevice({QStringLiteral("Fuzz Wheel"), QString(), 8, 32, 1, true});
        backend.addDevice({QStringLiteral("Fuzz Pedals"), QString(), 8, 8, 0, false});
        backend.addDevice({QStringLiteral("Fuzz Shifter"), QString(), 0, 16, 0, false});
        profiles.loadProfiles();
        controller = std::make_unique<TavrixController>(&backend, &profiles,
                                                        std::make_shared<PathSerialPortDirectory>());
        server = std::make_unique<WebSocketServer>(controller.get());
        registerRemoteHandlers(*server, controller.get());
    }
    QTemporaryDir dir;
    VirtualBackend backend;
    ProfileManager profiles{dir.path()};
    std::unique_ptr<TavrixController> controller;
    std::unique_ptr<WebSocketServer> server;
};

bool reachesOutside(const QByteArray &message)
{
    return message.contains("connect_transmitter") || message.contains("auto_connect");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_remoterequest";
    static char *argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);
    static Hub hub;

    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    if (reachesOutside(bytes))
        return 0;
    QSet<QString> subscriptions;
    const QJsonObject reply = hub.server->router().dispatch(QString::fromUtf8(bytes), subscriptions);
    if (!reply.value(QLatin1String("event")).isString() ||
        reply.value(QLatin1String("event")).toString().isEmpty())
        fail("a reply without an event name");
    if (subscriptions.size() > RequestRouter::kMaxSubscriptions)
        fail("a client's subscriptions grew past their bound");
    // Pushes the handlers queued from the controller's signals go out now, as the event
    // loop would send them; otherwise they would pile up across inputs.
    QCoreApplication::processEvents();
    hub.controller->stopTransmission();
    return 0;
}

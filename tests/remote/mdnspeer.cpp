// Runs nothing but the hub's mDNS responder, for the network-namespace test: prints
// "listening" once it has joined the group, and quits when its standard input closes so
// it never outlives the test.
#include "mdnsresponder.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <cstdio>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    tavrix::MdnsResponder responder(QString(tavrix::MdnsResponder::kHubInstanceName));
    if (!responder.start())
        return 1;
    std::puts("listening");
    std::fflush(stdout);
    QSocketNotifier input(0, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &app, &QCoreApplication::quit);
    return app.exec();
}

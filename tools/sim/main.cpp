// orvane-sim: simulated peers of the hub on pseudo-terminals, for demos and manual checks.
#include "simcli.h"

#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char *argv[])
{
    using namespace tavrix::sim::cli;
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("orvane-sim"));
    if (!installSignalForwarding()) {
        QTextStream(stderr) << "orvane-sim: cannot install signal handlers\n";
        return 1;
    }
    const QStringList arguments = QCoreApplication::arguments();
    const QString device = arguments.value(1);
    if (device == QLatin1String("bridge"))
        return runBridge(app, arguments);
    if (device == QLatin1String("motion"))
        return runMotion(app, arguments);
    if (device == QLatin1String("receiver"))
        return runReceiver(app, arguments);
    if (device == QLatin1String("v4"))
        return runV4(app, arguments);
    QTextStream(stderr)
        << "usage: orvane-sim bridge|motion|receiver|v4 [options]   (orvane-sim bridge --help for the "
           "options)\n";
    return 2;
}

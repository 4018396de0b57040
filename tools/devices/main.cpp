// Lists the game controllers the hub would see, before any window exists.
// ORVANEHUB_INPUT=virtual:FILE lists the devices of a replay file instead of the real ones.

#include "devicereport.h"
#include "inputbackendfactory.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

#include <cstdio>

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("orvane-devices"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Lists game controllers with their labels and detected axis presets, and explains the "
        "ones that cannot be used. Set ORVANEHUB_INPUT=virtual:FILE to list a replay's devices."));
    parser.addHelpOption();
    parser.addOption(
        {QStringLiteral("list-devices"), QStringLiteral("List the game controllers (the default).")});
    parser.process(app);

    QTextStream out(stdout);
    QTextStream err(stderr);
    QString error;
    const std::unique_ptr<tavrix::InputBackend> backend = tavrix::createInputBackend(&error);
    if (!error.isEmpty()) {
        err << "orvane-devices: " << error << '\n';
        err.flush();
        return 2;
    }
    tavrix::writeDeviceReport(out, *backend);
    return 0;
}

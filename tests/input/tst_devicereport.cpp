#include "devicereport.h"
#include "inputbackendfactory.h"
#include "inputdevice.h"
#include "virtualbackend.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace tavrix;

namespace {

const QByteArray kRig =
    R"({"device": {"name": "Wheel", "product": "Logitech G29 Driving Force Racing Wheel PS3", "axes": 3, "buttons": 25, "povs": 1, "ffb": true}}
{"device": {"name": "Pedals", "product": "Fanatec ClubSport Pedals V3", "axes": 3}}
{"device": {"name": "Stick", "product": "Thrustmaster T.16000M", "axes": 4, "buttons": 16, "povs": 1}}
{"device": {"name": "Box", "product": "Button Box", "axes": 0, "buttons": 32}}
{"t": 0, "device": "Pedals", "axes": {"lRx": 0}}
)";

struct ToolRun
{
    int exitCode = -1;
    QString out;
    QString err;
};

ToolRun runTool(const QString &selection)
{
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("ORVANEHUB_INPUT"), selection);
    process.setProcessEnvironment(env);
    process.start(QStringLiteral(ORVANE_DEVICES_EXE), {QStringLiteral("--list-devices")});
    ToolRun run;
    if (!process.waitForFinished(30000))
        return run;
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}

} // namespace

class TestDeviceReport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_replay = m_dir.filePath(QStringLiteral("rig.jsonl"));
        QFile file(m_replay);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(kRig);
    }

    void toolListsReplayDevicesWithLabelsAndPresets()
    {
        const ToolRun run = runTool(QStringLiteral("virtual:") + m_replay);
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.err.isEmpty());
        // Each device with the preset its product name selects (the rule itself is tested with the presets).
        for (const char *line :
             {"Game controllers: 4", "  [0] Wheel (3 axes, 25 btn) [FFB]\n", "preset: Thrustmaster\n"})
            QVERIFY2(run.out.contains(QLatin1String(line)), qPrintable(run.out));
    }

    void reportExplainsUnusableDevices()
    {
        VirtualBackend backend;
        backend.addDevice({QStringLiteral("MOZA R5 Base"), QStringLiteral("MOZA R5 Base"), 1, 10, 0, true});
        backend.addProblem(QStringLiteral("/dev/input/event7"),
                           QStringLiteral("permission denied: add a udev rule granting access"));
        QString text;
        QTextStream out(&text);
        QCOMPARE(writeDeviceReport(out, backend), 1);
        QVERIFY(text.contains(
            QStringLiteral("Not usable: 1\n  /dev/input/event7: permission denied: add a udev rule")));
    }

    void factoryFallsBackToAnEmptyBackendWithTheReason()
    {
        QString error;
        std::unique_ptr<InputBackend> backend =
            createInputBackend(QStringLiteral("virtual:/nonexistent.jsonl"), &error);
        QVERIFY(backend);
        QVERIFY(error.contains(QStringLiteral("/nonexistent.jsonl")));
        const Enumeration enumeration = backend->enumerate();
        QVERIFY(enumeration.devices.empty());
        QCOMPARE(enumeration.problems.size(), size_t(1));

        error.clear();
        QVERIFY(createInputBackend(QStringLiteral("joysticks-please"), &error));
        QVERIFY(error.contains(QStringLiteral("unknown ORVANEHUB_INPUT value")));

        error.clear();
        backend = createInputBackend(QStringLiteral("virtual:") + m_replay, &error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(InputDevice::enumerateDevices(*backend).size(), 4);
    }

private:
    QTemporaryDir m_dir;
    QString m_replay;
};

QTEST_GUILESS_MAIN(TestDeviceReport)
#include "tst_devicereport.moc"

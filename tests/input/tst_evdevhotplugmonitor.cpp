// The hot-plug watch on the folder of event nodes: news for eventN nodes coming,
// going and changing permissions, nothing for other nodes or when nothing happened.

#include "devicechangenotifier.h"
#include "evdevbackend.h"
#include "evdevhotplugmonitor.h"

#include <QtTest>

#include <poll.h>

using namespace tavrix;

namespace {

bool readable(int fd)
{
    pollfd pfd{fd, POLLIN, 0};
    return ::poll(&pfd, 1, 0) == 1;
}

} // namespace

class TestEvdevHotplugMonitor : public QObject
{
    Q_OBJECT

private slots:
    void reportsEventNodesComingAndGoingOnly()
    {
        QTemporaryDir dir;
        EvdevHotplugMonitor monitor(dir.path().toStdString());
        QVERIFY(monitor.isValid());
        QVERIFY(!monitor.takeChanges());

        // Other nodes of the folder are no news.
        for (const QString &other : {QStringLiteral("js0"), QStringLiteral("mouse1")}) {
            QFile file(dir.filePath(other));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        QVERIFY(!monitor.takeChanges());

        QFile node(dir.filePath(QStringLiteral("event7")));
        QVERIFY(node.open(QIODevice::WriteOnly));
        node.close();
        QVERIFY(readable(monitor.fd()));
        QVERIFY(monitor.takeChanges());
        QVERIFY(!monitor.takeChanges());

        // udev granting access after the node appeared.
        QVERIFY(node.setPermissions(QFileDevice::ReadOwner | QFileDevice::ReadGroup));
        QVERIFY(monitor.takeChanges());

        QVERIFY(node.remove());
        QVERIFY(monitor.takeChanges());
    }

    // The backend's watch reaches the event loop as the hub's one change signal.
    void backendNewsBecomesTheChangeSignal()
    {
        QTemporaryDir dir;
        EvdevBackend backend({dir.path().toStdString(), dir.path().toStdString()});
        DeviceChangeNotifier notifier(&backend);
        QSignalSpy changed(&notifier, &DeviceChangeNotifier::devicesChanged);
        QFile node(dir.filePath(QStringLiteral("event3")));
        QVERIFY(node.open(QIODevice::WriteOnly));
        QVERIFY(changed.wait(10000));
    }

    void isInvalidForAMissingFolder()
    {
        EvdevHotplugMonitor monitor("/nonexistent/dev/input");
        QVERIFY(!monitor.isValid());
        QCOMPARE(monitor.fd(), -1);
        QVERIFY(!monitor.takeChanges());
    }
};

QTEST_GUILESS_MAIN(TestEvdevHotplugMonitor)
#include "tst_evdevhotplugmonitor.moc"

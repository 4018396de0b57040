#include "logcapture.h"
#include "pseudoterminal.h"
#include "serialportdirectory.h"
#include "tavrixserialport.h"

#include <QFile>
#include <QSerialPort>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using tavrix::PathSerialPortDirectory;
using tavrix::PseudoTerminal;
using tavrix::TavrixSerialPort;
using tavrix::testing::LogCapture;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kBaud = 115200;

TavrixSerialPort::Timings quickRetries(int attempts)
{
    TavrixSerialPort::Timings timings;
    timings.openAttempts = attempts;
    timings.openRetryDelay = 10ms;
    return timings;
}

} // namespace

class TestTavrixSerialPort : public QObject
{
    Q_OBJECT
private slots:
    void openAndCloseAnnounceInOrder();
    void busyPort_data();
    void busyPort();
    void missingPortFailsWithoutRetrying();
    void lossWithBytesStillQueuedClosesOnce_data();
    void lossWithBytesStillQueuedClosesOnce();
    void pathDirectoryListsPresentPortsOnly();
    void compositeDirectoryListsEachNameOnce_data();
    void compositeDirectoryListsEachNameOnce();
};

void TestTavrixSerialPort::openAndCloseAnnounceInOrder()
{
    PseudoTerminal pty;
    QVERIFY2(pty.open(), qPrintable(pty.errorString()));
    TavrixSerialPort port;
    QStringList events;
    connect(&port, &TavrixSerialPort::portNameChanged, this,
            [&](const QString &name) { events << QStringLiteral("name:") + name; });
    connect(&port, &TavrixSerialPort::connectedChanged, this, [&](bool connected) {
        // Listeners must find the port in the state it announces.
        events << QStringLiteral("connected:%1 open:%2").arg(connected).arg(port.isOpen());
    });
    QSignalSpy errors(&port, &TavrixSerialPort::errorOccurred);
    port.close(); // not open yet: nothing to announce
    QCOMPARE(port.write("STOP\n"), qint64(-1));

    QVERIFY(port.open(pty.slavePath(), kBaud));
    QVERIFY(port.isOpen());
    QVERIFY(!port.isOpening());
    QCOMPARE(port.portName(), pty.slavePath());
    // DTR/RTS are refused by a pty: logged, never reported.
    QCOMPARE(errors.size(), 0);

    port.close();
    QVERIFY(!port.isOpen());
    QCOMPARE(port.portName(), QString());
    QCOMPARE(events,
             (QStringList{QStringLiteral("name:") + pty.slavePath(), QStringLiteral("connected:1 open:1"),
                          QStringLiteral("name:"), QStringLiteral("connected:0 open:0")}));
}

void TestTavrixSerialPort::busyPort_data()
{
    QTest::addColumn<QString>("meanwhile"); // what happens while the port waits between tries
    QTest::addColumn<bool>("opens");
    QTest::addColumn<int>("errorsShown");
    QTest::newRow("nothing: reported once, after all attempts") << QString() << false << 1;
    QTest::newRow("the other program lets go") << u"release"_s << true << 0;
    QTest::newRow("the owner closes: given up quietly") << u"close"_s << false << 0;
    QTest::newRow("a second open is refused") << u"open other"_s << false << 1;
}

void TestTavrixSerialPort::busyPort()
{
    QFETCH(QString, meanwhile);
    QFETCH(bool, opens);
    QFETCH(int, errorsShown);

    PseudoTerminal pty;
    PseudoTerminal other;
    QVERIFY(pty.open());
    QVERIFY(other.open());
    QSerialPort holder(pty.slavePath());
    QVERIFY(holder.open(QIODevice::ReadWrite));
    LogCapture log;
    constexpr int kAttempts = 24;
    TavrixSerialPort port(quickRetries(kAttempts));
    QSignalSpy errors(&port, &TavrixSerialPort::errorOccurred);
    QSignalSpy connected(&port, &TavrixSerialPort::connectedChanged);
    bool wasOpening = false;
    bool nestedOpened = false;
    QTimer::singleShot(15ms, &port, [&] {
        wasOpening = port.isOpening();
        if (meanwhile == u"open other"_s)
            nestedOpened = port.open(other.slavePath(), kBaud);
        if (meanwhile == u"close"_s)
            port.close();
        if (meanwhile == u"close"_s || meanwhile == u"release"_s)
            holder.close(); // the next try succeeds if it still runs
    });

    QCOMPARE(port.open(pty.slavePath(), kBaud), opens);
    QVERIFY(wasOpening);
    QVERIFY(!nestedOpened);
    QCOMPARE(port.isOpen(), opens);
    QVERIFY(!port.isOpening());
    QCOMPARE(connected.size(), opens ? 1 : 0);
    QCOMPARE(errors.size(), errorsShown);
    if (errorsShown > 0)
        QVERIFY(errors.at(0).at(0).toString().contains(pty.slavePath() + u" stayed busy"_s));
    if (meanwhile.isEmpty())
        QCOMPARE(log.count(u"failed:"_s), kAttempts);
}

void TestTavrixSerialPort::missingPortFailsWithoutRetrying()
{
    QTemporaryDir dir;
    const QString missing = dir.filePath(QStringLiteral("ttyNothing"));
    LogCapture log;
    TavrixSerialPort port; // only a busy port is worth waiting for
    QSignalSpy errors(&port, &TavrixSerialPort::errorOccurred);
    QVERIFY(!port.open(missing, kBaud));
    QCOMPARE(errors.size(), 1);
    QVERIFY(!errors.at(0).at(0).toString().isEmpty());
    QVERIFY(!errors.at(0).at(0).toString().contains(QStringLiteral("stayed busy")));
    QCOMPARE(log.count(QStringLiteral("attempt")), 0);
}

void TestTavrixSerialPort::lossWithBytesStillQueuedClosesOnce_data()
{
    QTest::addColumn<bool>("ownerCloses");
    QTest::newRow("the port notices the loss") << false;
    QTest::newRow("the owner closes after the loss") << true;
}

void TestTavrixSerialPort::lossWithBytesStillQueuedClosesOnce()
{
    QFETCH(bool, ownerCloses);
    PseudoTerminal pty;
    QVERIFY(pty.open());
    TavrixSerialPort port;
    QVERIFY(port.open(pty.slavePath(), kBaud));
    QSignalSpy connected(&port, &TavrixSerialPort::connectedChanged);
    QSignalSpy errors(&port, &TavrixSerialPort::errorOccurred);

    // Queued in the port's buffer; the line goes before the event loop can write them, so
    // closing finds bytes it cannot deliver.
    QCOMPARE(port.write(QByteArray(64, 'x')), qint64(64));
    pty.hangUp();
    if (ownerCloses)
        port.close();
    else
        QVERIFY(connected.wait(2000));

    QCOMPARE(connected.size(), 1);
    QVERIFY(!port.isOpen());
    QCOMPARE(port.portName(), QString());
    QCOMPARE(port.bytesToWrite(), qint64(0));
    QCOMPARE(port.write("x"), qint64(-1));
    // Qt keeps reporting a hung-up pty as a read error for as long as it is open: one
    // report when the port finds the loss, then quiet.
    QVERIFY(!errors.wait(100));
    QCOMPARE(errors.size(), ownerCloses ? 0 : 1);
}

void TestTavrixSerialPort::pathDirectoryListsPresentPortsOnly()
{
    QTemporaryDir dir;
    const QString link = dir.filePath(QStringLiteral("ttyBridge"));
    const QString never = dir.filePath(QStringLiteral("ttyNever"));
    PseudoTerminal pty;
    QVERIFY2(pty.open(link), qPrintable(pty.errorString()));
    PathSerialPortDirectory ports({link, never});

    QCOMPARE(ports.ports().size(), 1);
    QCOMPARE(ports.ports().at(0).portName, link);
    QVERIFY(ports.contains(link));
    QVERIFY(!ports.contains(never));
    QVERIFY(!ports.contains(dir.filePath(QStringLiteral("ttyBridg")))); // exact names only

    pty.hangUp();
    QVERIFY(!ports.contains(link));
    QVERIFY(pty.plugIn());
    QVERIFY(ports.contains(link));
}

void TestTavrixSerialPort::compositeDirectoryListsEachNameOnce_data()
{
    QTest::addColumn<QStringList>("first");
    QTest::addColumn<QStringList>("second");
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QStringList>("expected");
    const auto names = [](const char *text) {
        return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    };
    QTest::newRow("union in order") << names("a b") << names("c") << names("a b c") << names("a b c");
    QTest::newRow("duplicate listed once, first place")
        << names("a b") << names("c a") << names("a b c") << names("a b c");
    QTest::newRow("absent paths of either part left out")
        << names("a b") << names("c") << names("b c") << names("b c");
    QTest::newRow("both empty") << names("") << names("") << names("a") << names("");
}

void TestTavrixSerialPort::compositeDirectoryListsEachNameOnce()
{
    QFETCH(QStringList, first);
    QFETCH(QStringList, second);
    QFETCH(QStringList, present);
    QFETCH(QStringList, expected);
    QTemporaryDir dir;
    const auto inDir = [&dir](const QStringList &names) {
        QStringList paths;
        for (const QString &name : names)
            paths.append(dir.filePath(name));
        return paths;
    };
    for (const QString &path : inDir(present)) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    const tavrix::CompositeSerialPortDirectory ports(
        {std::make_shared<PathSerialPortDirectory>(inDir(first)), nullptr,
         std::make_shared<PathSerialPortDirectory>(inDir(second))});
    QStringList names;
    for (const tavrix::SerialPortDescription &port : ports.ports())
        names.append(port.portName);
    QCOMPARE(names, inDir(expected));
}

QTEST_GUILESS_MAIN(TestTavrixSerialPort)
#include "tst_tavrixserialport.moc"

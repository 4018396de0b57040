#include "firmwareupdateservice.h"
#include "httpfileserver.h"
#include "uf2image.h"
#include "v4boardsimulator.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace tavrix;
using namespace Qt::StringLiterals;
using State = FirmwareUpdateService::State;

namespace {

constexpr int kGenerousMs = 120000;
const QString kDriveFile = u"FIRMWARE.UF2"_s;

QByteArray bridgeImage(quint32 family = Uf2Image::kFamilyRp2040)
{
    QByteArray image;
    for (quint32 i = 0; i < 40; ++i) // large enough for several progress reports
        image += Uf2Image::block(i, 40, 0x10000000 + i * 256, QByteArray(256, char(i)), family);
    return image;
}

QString sha256(const QByteArray &data)
{
    return QString::fromLatin1(QCryptographicHash::hash(data, QCryptographicHash::Sha256).toHex());
}

QByteArray manifest(const QString &device, qint64 size, const QString &hash, const QString &url)
{
    const QJsonObject entry{{u"version"_s, u"9.9.1"_s},
                            {u"url"_s, url},
                            {u"size"_s, size},
                            {u"sha256"_s, hash},
                            {u"hardware"_s, u"Orvane-V4-G0B1"_s}};
    return QJsonDocument(QJsonObject{{u"devices"_s, QJsonObject{{device, entry}}}}).toJson();
}

// A service reading its manifest from a local server, with its cache and the boot drives'
// search root in a temporary folder.
struct UpdateRig
{
    QTemporaryDir dir;
    testing::HttpFileServer server;
    std::unique_ptr<FirmwareUpdateService> service;
    std::unique_ptr<QSignalSpy> states;
    std::unique_ptr<QSignalSpy> finished;

    QString cache() const { return dir.filePath(u"cache"_s); }
    QString drive() const { return dir.filePath(u"media/RPI-RP2"_s); }

    bool setUp(std::chrono::milliseconds rebootWait = std::chrono::minutes(1))
    {
        if (!dir.isValid() || !server.start() || !QDir().mkpath(drive()))
            return false;
        FirmwareUpdateService::Options options;
        options.manifestUrl = server.url(u"/fw/manifest.json"_s);
        options.cacheFolder = cache();
        options.driveRoots = {dir.filePath(u"media"_s)};
        options.timings.drivePoll = std::chrono::milliseconds(20);
        options.timings.rebootWait = rebootWait;
        options.flasherTimings.powerCycleWait = std::chrono::seconds(30);
        options.flasherTimings.resyncLimit = std::chrono::milliseconds(800);
        service = std::make_unique<FirmwareUpdateService>(options);
        states = std::make_unique<QSignalSpy>(service.get(), &FirmwareUpdateService::stateChanged);
        finished = std::make_unique<QSignalSpy>(service.get(), &FirmwareUpdateService::finished);
        return true;
    }

    // Makes the drive look like the RP2040's boot drive (or not).
    bool showBootDrive(bool shown)
    {
        QFile info(QDir(drive()).filePath(u"INFO_UF2.TXT"_s));
        return shown ? info.open(QIODevice::WriteOnly) && info.write("UF2 Bootloader v3.0\n") > 0
                     : info.remove();
    }

    bool reached(State state)
    {
        return QTest::qWaitFor([&] { return service->state() == state; }, kGenerousMs);
    }
};

} // namespace

class TestFirmwareUpdateService : public QObject
{
    Q_OBJECT

private slots:
    void refusedDownloadsLeaveNothingBehind_data()
    {
        QTest::addColumn<QByteArray>("image");
        QTest::addColumn<qint64>("announcedSize");
        QTest::addColumn<QString>("announcedHash");
        QTest::addColumn<QString>("imagePath");
        QTest::addColumn<bool>("downloaded"); // the image arrived whole before it was refused

        const QByteArray good = bridgeImage();
        const QByteArray other = bridgeImage(0xADA52840);
        const QString path = u"tx.uf2"_s;
        QTest::newRow("hash mismatch") << good << qint64(good.size()) << sha256(other) << path << true;
        QTest::newRow("shorter than announced") << good << good.size() + 10 << sha256(good) << path << true;
        QTest::newRow("longer than announced") << good << good.size() - 512 << sha256(good) << path << false;
        QTest::newRow("not there") << good << qint64(good.size()) << sha256(good) << u"gone.uf2"_s << false;
        QTest::newRow("not an RP2040 image")
            << other << qint64(other.size()) << sha256(other) << path << true;
    }

    void refusedDownloadsLeaveNothingBehind()
    {
        QFETCH(QByteArray, image);
        QFETCH(qint64, announcedSize);
        QFETCH(QString, announcedHash);
        QFETCH(QString, imagePath);
        QFETCH(bool, downloaded);

        UpdateRig rig;
        QVERIFY(rig.setUp());
        QVERIFY(rig.showBootDrive(true)); // a drive ready to take whatever got through
        rig.server.serve(u"/fw/manifest.json"_s,
                         manifest(u"transmitter"_s, announcedSize, announcedHash, imagePath));
        rig.server.serve(u"/fw/tx.uf2"_s, image);
        QSignalSpy progress(rig.service.get(), &FirmwareUpdateService::progressChanged);

        QVERIFY(rig.service->update(FirmwareDevice::Transmitter, QString()));
        QTRY_COMPARE_WITH_TIMEOUT(rig.finished->count(), 1, kGenerousMs);
        QCOMPARE(rig.finished->at(0).at(0).toBool(), false);
        QCOMPARE(rig.service->state(), State::Error);
        QCOMPARE(progress.isEmpty(), !downloaded);
        QVERIFY(!QFileInfo::exists(QDir(rig.drive()).filePath(kDriveFile)));
        QCOMPARE(QDir(rig.cache()).entryList(QDir::Files), QStringList());
    }

    void bridgeUpdateWritesTheBootDriveAndWaitsForTheBridge_data()
    {
        QTest::addColumn<bool>("bridgeBack");
        QTest::newRow("bridge back on its port") << true;
        QTest::newRow("bridge never comes back") << false;
    }

    void bridgeUpdateWritesTheBootDriveAndWaitsForTheBridge()
    {
        QFETCH(bool, bridgeBack);
        UpdateRig rig;
        QVERIFY(rig.setUp(bridgeBack ? std::chrono::minutes(1) : std::chrono::milliseconds(0)));
        const QByteArray image = bridgeImage();
        rig.server.serve(u"/fw/manifest.json"_s,
                         manifest(u"transmitter"_s, image.size(), sha256(image), u"tx.uf2"_s));
        rig.server.serve(u"/fw/tx.uf2"_s, image);
        // As the image is copied the RP2040 restarts: its drive goes, and the bridge may come back.
        connect(rig.service.get(), &FirmwareUpdateService::stateChanged, &rig.server, [&](State state) {
            if (state == State::CopyingFirmware) {
                QVERIFY(rig.showBootDrive(false));
                rig.service->setBridgeConnected(bridgeBack);
            }
        });

        QVERIFY(rig.service->update(FirmwareDevice::Transmitter, QString()));
        QVERIFY(rig.reached(State::WaitingForDrive));
        QCOMPARE(rig.service->remoteVersion(), u"9.9.1"_s);
        QVERIFY(!QFileInfo::exists(QDir(rig.drive()).filePath(kDriveFile)));

        QVERIFY(rig.showBootDrive(true)); // the user plugged it in with BOOTSEL held
        QTRY_COMPARE_WITH_TIMEOUT(rig.finished->count(), 1, kGenerousMs);
        QFile written(QDir(rig.drive()).filePath(kDriveFile));
        QVERIFY(written.open(QIODevice::ReadOnly));
        QCOMPARE(written.readAll(), image);
        QCOMPARE(rig.finished->at(0).at(0).toBool(), bridgeBack);
        QList<State> path;
        for (const QList<QVariant> &args : *rig.states)
            path.append(args.at(0).value<State>());
        const QList<State> ending =
            bridgeBack ? QList<State>{State::VerifyingVersion, State::Done} : QList<State>{State::Error};
        QCOMPARE(path, (QList<State>{State::CheckingVersion, State::DownloadingVersion,
                                     State::DownloadingFirmware, State::EnteringDfu, State::WaitingForDrive,
                                     State::CopyingFirmware, State::WaitingForReboot} +
                        ending));
    }

    void receiverUpdateFromAServedManifest()
    {
        UpdateRig rig;
        QVERIFY(rig.setUp());
        sim::V4BoardSimulator board;
        QVERIFY(board.start());
        QByteArray image = sim::V4BoardSimulator::firmwareImage(u"9.9.1"_s);
        image += QByteArray(3000, 'z');
        rig.server.serve(u"/fw/manifest.json"_s,
                         manifest(u"receiver"_s, image.size(), sha256(image), u"rx.bin"_s));
        rig.server.serve(u"/fw/rx.bin"_s, image);
        connect(rig.service.get(), &FirmwareUpdateService::powerCycleRequested, &board,
                [&board](bool active) {
                    if (active)
                        board.powerCycle();
                });

        QVERIFY(rig.service->update(FirmwareDevice::Receiver, u"4.3.0"_s, board.clientPath()));
        QTRY_COMPARE_WITH_TIMEOUT(rig.finished->count(), 1, kGenerousMs);
        QVERIFY2(rig.finished->at(0).at(0).toBool(), qPrintable(rig.finished->at(0).at(1).toString()));
        QCOMPARE(board.firmwareVersion(), u"9.9.1"_s);
        QCOMPARE(rig.service->currentVersion(), u"9.9.1"_s);
        QCOMPARE(rig.service->state(), State::Done);
    }
};

QTEST_GUILESS_MAIN(TestFirmwareUpdateService)
#include "tst_firmwareupdateservice.moc"

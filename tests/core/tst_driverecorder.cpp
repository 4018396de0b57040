// The drive recorder on real files in a temporary folder, fed by a running controller.
#include "controllerrig.h"
#include "driverecorder.h"
#include "driverecordingfeed.h"
#include "profiletestfiles.h"

#include <QDir>
#include <QFile>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;

namespace {

QList<QByteArrayList> readCsv(const QString &path)
{
    QFile file(path);
    QList<QByteArrayList> rows;
    if (!file.open(QIODevice::ReadOnly))
        return rows;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (!line.isEmpty())
            rows.append(line.split(','));
    }
    return rows;
}

DriveSample sampleOfFrame(quint32 frame)
{
    DriveSample sample;
    sample.frame = frame;
    return sample;
}

} // namespace

class TestDriveRecorder : public QObject
{
    Q_OBJECT

private slots:
    void rowsAreTheFramesTheCarReceived()
    {
        ControllerRig rig;
        QVERIFY(rig.setUp());
        DriveRecorder recorder({.queueCapacity = 4096, .flushInterval = std::chrono::milliseconds(20)});
        DriveRecordingFeed feed(rig.controller.get(), &recorder);
        QList<sim::ChannelArray> received;
        connect(&rig.sim, &sim::BridgeSimulator::channelFrameReceived, this,
                [&received](const sim::ChannelArray &channels) { received.append(channels); });

        QVERIFY(recorder.start(rig.dir.filePath(QStringLiteral("recordings"))));
        QSignalSpy saved(&recorder, &DriveRecorder::saved);
        QVERIFY(rig.controller->startTransmission());
        rig.setSteering(0.6);
        QTRY_VERIFY(rig.controller->frameCount() > 40 && rig.controller->steering() > 0.5f);
        recorder.stop();
        rig.controller->stopTransmission();
        QVERIFY(saved.wait(5000));
        QCOMPARE(saved.at(0).at(1).toULongLong(), recorder.writtenRows());
        QVERIFY(rig.flushToBridge());

        const QList<QByteArrayList> rows = readCsv(recorder.filePath());
        QCOMPARE(rows.value(0).join(','), csvrowformat::header().trimmed());
        QCOMPARE(qsizetype(recorder.writtenRows()), rows.size() - 1);
        QVERIFY(rows.size() > 40);
        const qsizetype frameColumn = rows[0].indexOf("frame");
        const qsizetype ch1Column = rows[0].indexOf("ch1");
        bool steered = false;
        for (const QByteArrayList &row : rows.mid(1)) {
            QCOMPARE(row.size(), rows[0].size());
            // Frames count from 1 at the start; the bridge saw them in that order.
            const int frame = row[frameColumn].toInt();
            QVERIFY(frame >= 1 && frame <= received.size());
            for (int ch = 0; ch < 16; ++ch)
                QCOMPARE(row[ch1Column + ch].toInt(), received[frame - 1][ch]);
            steered = steered || row[ch1Column].toInt() > 1300;
        }
        QVERIFY2(steered, "the steering moved CH1 during the recording");
    }

    void fullQueueDropsAndCountsTheRest()
    {
        QTemporaryDir dir;
        // The timer never runs here: only stop() hands rows over.
        DriveRecorder recorder({.queueCapacity = 4, .flushInterval = std::chrono::hours(1)});
        QSignalSpy saved(&recorder, &DriveRecorder::saved);
        QVERIFY(recorder.start(dir.path()));
        for (quint32 frame = 1; frame <= 10; ++frame)
            recorder.record(sampleOfFrame(frame));
        recorder.stop();
        QVERIFY(!recorder.isRecording());
        QVERIFY(saved.wait(5000));
        QCOMPARE(recorder.writtenRows(), 4u);
        QCOMPARE(recorder.droppedRows(), 6u);
        const QList<QByteArrayList> rows = readCsv(recorder.filePath());
        QCOMPARE(rows.size(), 5);
        // The queued rows are kept, the ones that found it full are lost.
        QCOMPARE(rows[4][rows[0].indexOf("frame")], QByteArray("4"));

        // A second recording gets its own file and its own count.
        QVERIFY(recorder.start(dir.path()));
        recorder.stop();
        QVERIFY(saved.wait(5000));
        QCOMPARE(recorder.droppedRows(), 0u);
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files).size(), 2);
    }

    // A folder that cannot be made, and one the file cannot be made in (even as root).
    void unwritableFolderIsRefusedWithItsReason_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::newRow("under a file") << u"blocker/recordings"_s;
        QTest::newRow("a folder of the kernel's") << u"/proc/self"_s;
    }
    void unwritableFolderIsRefusedWithItsReason()
    {
        QFETCH(QString, folder);
        QTemporaryDir dir;
        QFile blocker(dir.filePath(u"blocker"_s));
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        blocker.close();
        DriveRecorder recorder;
        QSignalSpy errors(&recorder, &DriveRecorder::errorOccurred);
        QVERIFY(!recorder.start(QDir(dir.path()).filePath(folder)));
        QCOMPARE(errors.size(), 1);
        QVERIFY(errors.at(0).at(0).toString().contains(folder));
        QVERIFY(!recorder.isRecording());
    }

    // Whenever the writer has answered, the next rows go: with room for one chunk in flight,
    // a second batch still reaches the file while recording.
    void writerTakesTheNextChunkOnceItAnswered()
    {
        QTemporaryDir dir;
        DriveRecorder recorder(
            {.queueCapacity = 64, .flushInterval = std::chrono::milliseconds(10), .chunksInFlight = 1});
        QVERIFY(recorder.start(dir.path()));
        for (quint32 batch = 0; batch < 3; ++batch) {
            for (quint32 frame = 1; frame <= 5; ++frame)
                recorder.record(sampleOfFrame(batch * 5 + frame));
            QTRY_COMPARE_WITH_TIMEOUT(recorder.writtenRows(), quint64(batch + 1) * 5, 10000);
        }
        QVERIFY(recorder.isRecording());
        // The time column counts from the start of the recording.
        const QList<QByteArrayList> rows = readCsv(recorder.filePath());
        const qsizetype timeColumn = rows[0].indexOf("time_ms");
        for (const QByteArrayList &row : rows.mid(1))
            QVERIFY2(row[timeColumn].toLongLong() >= 0 && row[timeColumn].toLongLong() < 60000,
                     row[timeColumn]);
    }

    void aRecordingStillBeingSavedKeepsItsRowsApartFromTheNext()
    {
        QTemporaryDir dir;
        DriveRecorder recorder({.queueCapacity = 64, .flushInterval = std::chrono::hours(1)});
        QSignalSpy saved(&recorder, &DriveRecorder::saved);
        QVERIFY(recorder.start(dir.path()));
        for (quint32 frame = 1; frame <= 20; ++frame)
            recorder.record(sampleOfFrame(frame));
        recorder.stop();
        const QString first = recorder.filePath();
        // Started again before the writer has answered for the first one.
        QVERIFY(recorder.start(dir.path()));
        for (quint32 frame = 1; frame <= 3; ++frame)
            recorder.record(sampleOfFrame(frame));
        recorder.stop();
        QVERIFY(saved.wait(5000));
        QCOMPARE(saved.last().at(0).toString(), recorder.filePath());
        QCOMPARE(recorder.writtenRows(), 3u);
        QCOMPARE(readCsv(recorder.filePath()).size(), 4);
        QCOMPARE(readCsv(first).size(), 21);
    }

    void closingWritesWhatWasQueued()
    {
        QTemporaryDir dir;
        QString path;
        {
            DriveRecorder recorder({.queueCapacity = 64, .flushInterval = std::chrono::hours(1)});
            QVERIFY(recorder.start(dir.path()));
            path = recorder.filePath();
            for (quint32 frame = 1; frame <= 5; ++frame)
                recorder.record(sampleOfFrame(frame));
        }
        QCOMPARE(readCsv(path).size(), 6);
    }

    void writeErrorStopsWithTheMessageAndKeepsTheFile()
    {
        QTemporaryDir dir;
        DriveRecorder recorder({.queueCapacity = 4096, .flushInterval = std::chrono::milliseconds(10)});
        QSignalSpy errors(&recorder, &DriveRecorder::errorOccurred);
        QSignalSpy recording(&recorder, &DriveRecorder::recordingChanged);
        QVERIFY(recorder.start(dir.path()));
        const qint64 headerBytes = QFileInfo(recorder.filePath()).size();
        {
            FileSizeLimit full(rlim_t(headerBytes + 300));
            QVERIFY(full.isActive());
            for (quint32 frame = 1; frame <= 200; ++frame)
                recorder.record(sampleOfFrame(frame));
            QVERIFY(errors.wait(5000));
        }
        QCOMPARE(errors.size(), 1);
        QVERIFY(errors.at(0).at(0).toString().contains(QFileInfo(recorder.filePath()).fileName()));
        QVERIFY(!recorder.isRecording());
        QCOMPARE(recording.size(), 2);
        QCOMPARE(recording.last().at(0).toBool(), false);
        // What reached the disk stays: the header and the rows up to the limit.
        QCOMPARE(QFileInfo(recorder.filePath()).size(), headerBytes + 300);
        QCOMPARE(readCsv(recorder.filePath()).value(0).join(','), csvrowformat::header().trimmed());
    }
};

QTEST_GUILESS_MAIN(TestDriveRecorder)
#include "tst_driverecorder.moc"

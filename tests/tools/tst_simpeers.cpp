#include "crsftestcodec.h"
#include "simulatedcar.h"
#include "simulatedparameterdevice.h"

#include <QTest>

using tavrix::sim::SimulatedCar;
using tavrix::sim::SimulatedParameterDevice;

// The simulated car's payloads decoded the way the receiver's telemetry is laid
// out, and the simulated parameter devices read back through their own protocol.
class TestSimPeers : public QObject
{
    Q_OBJECT
private slots:
    void wrappedMotionHoldsTheRecordFromItsThirdByte()
    {
        const SimulatedCar car;
        const QByteArray wrapped = car.wrappedMotionPayload(4.0);
        QCOMPARE(uint8_t(wrapped[1]), uint8_t(0xCA));
        QCOMPARE(wrapped.mid(2), car.motionRecordPayload(4.0));
    }

    void chunkedEntriesReassembleToTheFieldData_data()
    {
        QTest::addColumn<int>("chunkSize");
        QTest::newRow("as much as an entry holds") << tavrix::sim::crsfwire::kParameterChunkSize;
        QTest::newRow("small chunks") << 5;
        QTest::newRow("one byte per chunk") << 1;
    }

    void chunkedEntriesReassembleToTheFieldData()
    {
        QFETCH(int, chunkSize);
        SimulatedParameterDevice module = SimulatedParameterDevice::transmitterModule();
        for (const auto &field : module.fields()) {
            QByteArray data;
            for (uint8_t chunk = 0;; ++chunk) {
                const QByteArray read = QByteArray::fromHex("eeef") + char(field.id) + char(chunk);
                const QList<QByteArray> answers = module.handleExtendedFrame(0x2C, read, chunkSize);
                QCOMPARE(answers.size(), 1);
                const QByteArray &f = answers.first();
                QCOMPARE(crsftest::crc8(QByteArrayView(f).sliced(2, f.size() - 3)), uint8_t(f.back()));
                QCOMPARE(uint8_t(f[2]), uint8_t(0x2B));
                QCOMPARE(uint8_t(f[3]), uint8_t(0xEF)); // back to the reader
                QCOMPARE(uint8_t(f[4]), uint8_t(0xEE));
                QCOMPARE(uint8_t(f[5]), field.id);
                data += f.mid(7, f.size() - 8);
                if (uint8_t(f[6]) == 0)
                    break;
                QVERIFY(chunk < 255);
            }
            QCOMPARE(data, module.fieldData(field.id));
        }
        // Reads of unknown fields or chunks past the end go unanswered.
        QVERIFY(module.handleExtendedFrame(0x2C, QByteArray::fromHex("eeef6300"), chunkSize).isEmpty());
        QVERIFY(module.handleExtendedFrame(0x2C, QByteArray::fromHex("eeef01ff"), chunkSize).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestSimPeers)
#include "tst_simpeers.moc"

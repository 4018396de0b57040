// The log on disk: rotation by size, and a writer that drops (and says so) rather than
// making the hub wait when the disk does not keep up.
#include "rotatinglogfile.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using tavrix::RotatingLogFile;

class TestRotatingLogFile : public QObject
{
    Q_OBJECT

private slots:
    void rotatesBySizeKeepingTheNewestLines_data()
    {
        QTest::addColumn<int>("lines");
        QTest::addColumn<int>("keptFiles");
        QTest::addColumn<QStringList>("expectedFiles");
        // 29-byte lines, three to a 100-byte file.
        QTest::newRow("fits one file") << 3 << 3 << QStringList{u"x.log"_qs};
        QTest::newRow("one rotation") << 4 << 3 << QStringList{u"x.log"_qs, u"x.log.1"_qs};
        QTest::newRow("oldest removed") << 20 << 3 << QStringList{u"x.log"_qs, u"x.log.1"_qs, u"x.log.2"_qs};
        QTest::newRow("one file only") << 7 << 1 << QStringList{u"x.log"_qs};
    }

    void rotatesBySizeKeepingTheNewestLines()
    {
        QFETCH(int, lines);
        QFETCH(int, keptFiles);
        QFETCH(QStringList, expectedFiles);
        QTemporaryDir dir;
        const QString path = dir.filePath(u"logs/x.log"_qs);
        QStringList written;
        {
            RotatingLogFile log(path, {100, keptFiles, 1000});
            QString error;
            QVERIFY2(log.open(&error), qPrintable(error));
            for (int i = 0; i < lines; ++i) {
                written.append(u"line %1 of the drive log...."_qs.arg(i, 4, 10, QLatin1Char('0')));
                log.append(written.last());
            }
        }
        const QDir logs(dir.filePath(u"logs"_qs));
        QCOMPARE(logs.entryList(QDir::Files, QDir::Name), expectedFiles);
        // Oldest file first, the lines they hold are the newest ones written, in order.
        QStringList kept;
        for (auto it = expectedFiles.crbegin(); it != expectedFiles.crend(); ++it) {
            QFile file(logs.filePath(*it));
            QVERIFY(file.open(QIODevice::ReadOnly));
            QVERIFY(file.size() <= 100);
            kept += QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        }
        QVERIFY(!kept.isEmpty());
        QCOMPARE(kept, written.mid(written.size() - kept.size()));
    }

    // The file is a pipe nobody drains yet, so the writer is stuck on its first line: what
    // arrives meanwhile beyond the queue's room is dropped, counted, and the count is written.
    void dropsAndCountsWhenTheDiskStalls()
    {
        // A failing check closes the pipe under the writer: it must end, not kill the test.
        std::signal(SIGPIPE, SIG_IGN);
        QTemporaryDir dir;
        const QString path = dir.filePath(u"stalled.log"_qs);
        QVERIFY(::mkfifo(QFile::encodeName(path).constData(), 0600) == 0);

        constexpr int kAppended = 1000;
        constexpr int kQueue = 5;
        RotatingLogFile log(path, {qint64(1) << 40, 2, kQueue});
        const int reader = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK);
        QVERIFY(reader >= 0);
        const auto closeReader = qScopeGuard([reader] { ::close(reader); });
        QString error;
        QVERIFY2(log.open(&error), qPrintable(error));

        log.append(QString(256 * 1024, QLatin1Char('#'))); // far more than a pipe holds
        for (int i = 0; i < kAppended; ++i)
            log.append(u"line %1"_qs.arg(i));
        const std::uint64_t dropped = log.droppedLines();
        // The writer took at most two queues' worth before it stalled on the pipe.
        QVERIFY2(dropped >= kAppended - 2 * kQueue, qPrintable(QString::number(dropped)));

        // Every line the writer kept and every count it reported, once it has caught up.
        QByteArray received;
        std::uint64_t kept = 0;
        std::uint64_t reported = 0;
        const auto drain = [&] {
            char buffer[65536];
            ssize_t n;
            while ((n = ::read(reader, buffer, sizeof buffer)) > 0)
                received.append(buffer, n);
            static const QRegularExpression report(u"^log: (\\d+) lines dropped"_qs);
            kept = reported = 0;
            for (const QByteArray &line : received.split('\n')) {
                kept += line.startsWith("line ") ? 1 : 0;
                if (const QRegularExpressionMatch match = report.match(QString::fromUtf8(line));
                    match.hasMatch())
                    reported += match.captured(1).toULongLong();
            }
            return kept + reported == std::uint64_t(kAppended);
        };
        QTRY_VERIFY_WITH_TIMEOUT(drain(), 30000);
        QCOMPARE(kept + dropped, std::uint64_t(kAppended));
        QCOMPARE(reported, dropped);
    }
};

QTEST_GUILESS_MAIN(TestRotatingLogFile)
#include "tst_rotatinglogfile.moc"

#include "pseudoterminal.h"

#include <QFileInfo>
#include <QSerialPort>
#include <QSignalSpy>
#include <QTest>

using tavrix::PseudoTerminal;

// The harness itself must behave like a serial line, or every link test lies.
class TestPseudoTerminal : public QObject
{
    Q_OBJECT
private slots:
    void bytesPassBothWaysUntouched()
    {
        PseudoTerminal pty;
        QVERIFY2(pty.open(), qPrintable(pty.errorString()));
        QSerialPort port(pty.clientPath());
        port.setBaudRate(115200);
        QVERIFY2(port.open(QIODevice::ReadWrite), qPrintable(port.errorString()));

        // Binary data with CR, LF and 0xFF must arrive as written in both directions.
        const QByteArray binary = QByteArray::fromHex("c8181600ff0d0a7f0a0d");
        port.write(binary);
        QTRY_COMPARE(pty.bytesAvailable(), binary.size());
        QCOMPARE(pty.readAll(), binary);

        QVERIFY(pty.write(binary));
        QByteArray got;
        QTRY_VERIFY((got += port.readAll()).size() >= binary.size());
        QCOMPARE(got, binary);
    }

    void hangUpRemovesLinkAndReplugRestoresIt()
    {
        const QString link = QDir::temp().filePath(QStringLiteral("orvane-pty-link"));
        PseudoTerminal pty;
        QVERIFY(pty.open(link));
        QVERIFY(QFileInfo::exists(link));
        QSignalSpy hung(&pty, &PseudoTerminal::hungUp);
        pty.hangUp();
        QCOMPARE(hung.size(), 1);
        QVERIFY(!QFileInfo::exists(link));
        QVERIFY(!pty.write("x"));
        QVERIFY(pty.plugIn());
        QVERIFY(QFileInfo::exists(link));
        QCOMPARE(QFileInfo(link).symLinkTarget(), pty.slavePath());
    }
};

QTEST_GUILESS_MAIN(TestPseudoTerminal)
#include "tst_pseudoterminal.moc"

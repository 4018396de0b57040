#include "logrouter.h"

#include <QSignalSpy>
#include <QTest>
#include <QThread>

using tavrix::LogRouter;

namespace {

// What reached whom, in order: "router <type> <text>" or "previous <type> <text>".
QStringList g_events;

void recordingHandler(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    g_events.append(QStringLiteral("previous %1 %2").arg(int(type)).arg(message));
}

} // namespace

class TestLogRouter : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        g_events.clear();
        // The handler installed before ours: a recorder standing in for Qt Test's own.
        m_testHandler = qInstallMessageHandler(recordingHandler);
        connect(LogRouter::instance(), &LogRouter::messageLogged, this,
                [](QtMsgType type, const QString &line) {
                    // Lines are "HH:mm:ss.zzz  level     text": the text starts at column 24.
                    g_events.append(QStringLiteral("router %1 %2").arg(int(type)).arg(line.mid(24)));
                });
    }

    void cleanup()
    {
        LogRouter::uninstallMessageHandler();
        disconnect(LogRouter::instance(), nullptr, this, nullptr);
        qInstallMessageHandler(m_testHandler);
    }

    void passesEachMessageToRouterFirstThenPreviousHandler_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("debug") << int(QtDebugMsg);
        QTest::newRow("info") << int(QtInfoMsg);
        QTest::newRow("warning") << int(QtWarningMsg);
        QTest::newRow("critical") << int(QtCriticalMsg);
    }

    void passesEachMessageToRouterFirstThenPreviousHandler()
    {
        QFETCH(int, type);
        LogRouter::installMessageHandler();
        QVERIFY(LogRouter::isMessageHandlerInstalled());
        const QString text = QStringLiteral("[ELRS] parameter walk done");
        qt_message_output(QtMsgType(type), QMessageLogContext(), text); // where qDebug() and the rest end
        const QStringList expected = {QStringLiteral("router %1 %2").arg(type).arg(text),
                                      QStringLiteral("previous %1 %2").arg(type).arg(text)};
        QCOMPARE(g_events, expected);
    }

    void installingTwiceKeepsOneLinkInTheChain()
    {
        LogRouter::installMessageHandler();
        LogRouter::installMessageHandler();
        qWarning("once");
        QCOMPARE(g_events.size(), 2);
        QCOMPARE(g_events.count(QStringLiteral("previous %1 once").arg(int(QtWarningMsg))), 1);
    }

    void uninstallingRestoresThePreviousHandler()
    {
        LogRouter::installMessageHandler();
        LogRouter::uninstallMessageHandler();
        qWarning("after");
        QCOMPARE(g_events, QStringList{QStringLiteral("previous %1 after").arg(int(QtWarningMsg))});
    }

    void messageLoggedWhileRoutingDoesNotRecurse()
    {
        // A console that logs from its slot must not feed itself forever. (Qt itself prints a
        // message raised inside a message handler straight to stderr.)
        connect(LogRouter::instance(), &LogRouter::messageLogged, this,
                [](QtMsgType, const QString &) { qDebug("console noticed a line"); });
        LogRouter::installMessageHandler();
        qWarning("outer");
        QCOMPARE(g_events.count(QStringLiteral("router %1 outer").arg(int(QtWarningMsg))), 1);
        QCOMPARE(g_events.count(QStringLiteral("previous %1 outer").arg(int(QtWarningMsg))), 1);
        QCOMPARE(g_events.filter(QStringLiteral("router")).size(), 1);
    }

    void keepsOnlyTheMostRecentLines()
    {
        LogRouter router;
        for (int i = 0; i < LogRouter::kHistoryLines + 5; ++i)
            router.route(QtDebugMsg, QStringLiteral("line %1").arg(i));
        const QStringList lines = router.recentLines();
        QCOMPARE(lines.size(), LogRouter::kHistoryLines);
        QVERIFY(lines.first().endsWith(QStringLiteral("line 5")));
        QVERIFY(lines.last().endsWith(QStringLiteral("line %1").arg(LogRouter::kHistoryLines + 4)));
    }

    void messagesFromAnotherThreadReachTheGuiThread()
    {
        LogRouter::installMessageHandler();
        QStringList received;
        QObject receiver;
        connect(
            LogRouter::instance(), &LogRouter::messageLogged, &receiver,
            [&received](QtMsgType, const QString &line) { received.append(line); }, Qt::QueuedConnection);
        QThread *worker = QThread::create([] { qWarning("from the worker"); });
        worker->start();
        QVERIFY(worker->wait(5000));
        delete worker;
        QTRY_COMPARE(received.size(), 1);
        QVERIFY(received.first().endsWith(QStringLiteral("from the worker")));
        QVERIFY(LogRouter::instance()->recentLines().last().endsWith(QStringLiteral("from the worker")));
    }

private:
    QtMessageHandler m_testHandler = nullptr;
};

QTEST_GUILESS_MAIN(TestLogRouter)
#include "tst_logrouter.moc"

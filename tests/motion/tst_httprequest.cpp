// The web panel's request reader: what a phone's browser (or anyone on the network) sends,
// read into a method, a path, parameters and the two headers the panel checks.

#include "httprequest.h"

#include <QTest>

using namespace tavrix::http;

class TestHttpRequest : public QObject
{
    Q_OBJECT

private slots:
    void readsRequestLineAndParameters_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<QByteArray>("path");
        // The "dof" parameter as a number; -1000: absent or not a decimal integer.
        QTest::addColumn<int>("dof");
        const auto row = [](const char *name, const char *line, bool valid, const char *path, int dof) {
            QTest::newRow(name) << QByteArray(line) << valid << QByteArray(path) << dof;
        };
        row("plain", "GET /status HTTP/1.1", true, "/status", -1000);
        row("one word", "GET", false, "", -1000);
        row("nothing", "", false, "", -1000);
        row("blanks around words", "GET  /cfg  HTTP/1.1", true, "/cfg", -1000);
        row("no version", "POST /test?dof=3", true, "/test", 3);
        row("negative", "POST /test?force=30&dof=-2 HTTP/1.1", true, "/test", -2);
        row("first of two wins", "POST /test?dof=4&dof=1 HTTP/1.1", true, "/test", 4);
        row("trailing letters", "POST /test?dof=3x HTTP/1.1", true, "/test", -1000);
        row("plus sign", "POST /test?dof=+3 HTTP/1.1", true, "/test", -1000);
        row("empty value", "POST /test?dof= HTTP/1.1", true, "/test", -1000);
        row("name only", "POST /test?dof HTTP/1.1", true, "/test", -1000);
        row("beyond int", "POST /test?dof=2147483648 HTTP/1.1", true, "/test", -1000);
        row("int's end", "POST /test?dof=-2147483648 HTTP/1.1", true, "/test",
            std::numeric_limits<int>::min());
    }

    void readsRequestLineAndParameters()
    {
        QFETCH(QByteArray, line);
        QFETCH(bool, valid);
        QFETCH(QByteArray, path);
        QFETCH(int, dof);
        const std::optional<Request> request = parseRequest(line + "\r\nHost: 10.0.0.5:8090\r\n\r\n");
        QCOMPARE(request.has_value(), valid);
        if (!valid)
            return;
        QCOMPARE(request->path, path);
        QCOMPARE(request->host, QByteArray("10.0.0.5:8090"));
        QCOMPARE(request->integer("dof").value_or(-1000), dof);
    }

    void tellsPagesFromElsewhere_data()
    {
        QTest::addColumn<QByteArray>("headers");
        QTest::addColumn<bool>("sameOrigin");
        QTest::newRow("no origin: not a browser's page") << QByteArray("Host: 10.0.0.5:8090\r\n") << true;
        QTest::newRow("the panel's own page")
            << QByteArray("host: 10.0.0.5:8090\r\nORIGIN: http://10.0.0.5:8090\r\n") << true;
        QTest::newRow("another site")
            << QByteArray("Host: 10.0.0.5:8090\r\nOrigin: http://evil.example\r\n") << false;
        QTest::newRow("another port")
            << QByteArray("Host: 10.0.0.5:8090\r\nOrigin: http://10.0.0.5:8091\r\n") << false;
        QTest::newRow("https") << QByteArray("Host: 10.0.0.5:8090\r\nOrigin: https://10.0.0.5:8090\r\n")
                               << false;
        QTest::newRow("sandboxed frame") << QByteArray("Host: 10.0.0.5:8090\r\nOrigin: null\r\n") << false;
        QTest::newRow("origin without host") << QByteArray("Origin: http://10.0.0.5:8090\r\n") << false;
    }

    void tellsPagesFromElsewhere()
    {
        QFETCH(QByteArray, headers);
        QFETCH(bool, sameOrigin);
        const std::optional<Request> request = parseRequest("POST /home HTTP/1.1\r\n" + headers + "\r\n");
        QVERIFY(request);
        QCOMPARE(request->isSameOrigin(), sameOrigin);
    }

    void tellsAddressesFromNames_data()
    {
        QTest::addColumn<QByteArray>("host");
        QTest::addColumn<bool>("address");
        QTest::newRow("IPv4 and port") << QByteArray("192.168.1.20:8090") << true;
        QTest::newRow("IPv6") << QByteArray("[::1]:8090") << true;
        QTest::newRow("localhost") << QByteArray("LocalHost:8090") << true;
        QTest::newRow("a name") << QByteArray("evil.example:8090") << false;
        QTest::newRow("a name that looks numeric") << QByteArray("192.168.1.20.nip.io:8090") << false;
    }

    void tellsAddressesFromNames()
    {
        QFETCH(QByteArray, host);
        QFETCH(bool, address);
        const std::optional<Request> request =
            parseRequest("POST /home HTTP/1.1\r\nHost: " + host + "\r\n\r\n");
        QVERIFY(request);
        QCOMPARE(request->isHostAnAddress(), address);
    }

    void headEndsAtTheBlankLine()
    {
        QCOMPARE(headLength("GET / HTTP/1.1\r\nHost: x\r\n"), -1);
        QCOMPARE(headLength("GET / HTTP/1.1\n\n"), -1);
        QCOMPARE(headLength("GET /\r\n\r\nbody"), 9);
    }
};

QTEST_GUILESS_MAIN(TestHttpRequest)
#include "tst_httprequest.moc"

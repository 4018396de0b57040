#include "card.h"
#include "channelbar.h"
#include "columnpair.h"
#include "levelbar.h"
#include "stattile.h"
#include "timeseriesring.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <array>
#include <optional>

using Span = std::pair<double, double>;
using Neutral = std::optional<int32_t>;

class TestHubWidgets : public QObject
{
    Q_OBJECT

private slots:
    // In a page's scroll area (which never scrolls sideways) the columns stack rather than
    // push the right one out of sight, and go back side by side when there is room again.
    void columnPairStacksWhenTooNarrow_data()
    {
        QTest::addColumn<int>("viewportWidth");
        QTest::addColumn<bool>("stacked");
        QTest::newRow("room for both") << 900 << false;
        QTest::newRow("just room for both") << 616 << false;
        QTest::newRow("one short") << 615 << true;
        QTest::newRow("narrow") << 400 << true;
    }

    void columnPairStacksWhenTooNarrow()
    {
        QFETCH(int, viewportWidth);
        QFETCH(bool, stacked);
        QScrollArea scroll;
        scroll.setWidgetResizable(true);
        scroll.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        scroll.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        scroll.setFrameShape(QFrame::NoFrame);
        auto *columns = new hub::ColumnPair(16);
        for (QVBoxLayout *column : {columns->left(), columns->right()}) {
            auto *card = new QWidget;
            card->setMinimumSize(300, 100);
            column->addWidget(card);
        }
        scroll.setWidget(columns);
        scroll.resize(viewportWidth + scroll.verticalScrollBar()->sizeHint().width(), 600);
        scroll.show();
        QTRY_COMPARE(columns->isStacked(), stacked);
        // Nothing is cut off: both columns lie inside what the viewport shows.
        QVERIFY(columns->width() <= scroll.viewport()->width());
        for (QVBoxLayout *column : {columns->left(), columns->right()})
            QVERIFY(column->geometry().right() < scroll.viewport()->width());
    }

    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("OrvaneLabs"));
        QCoreApplication::setApplicationName(QStringLiteral("OrvaneLabs HUB widget test"));
    }

    void init() { QSettings().clear(); }

    void cardRemembersItsExpandedState()
    {
        const QString key = QStringLiteral("ui/carDevicesOpen");
        {
            hub::Card card(QStringLiteral("Devices"));
            card.persistExpanded(key, true);
            QVERIFY(card.isExpanded());
            QVERIFY2(!QSettings().contains(key), "reading the default must not write it");
            QSignalSpy changed(&card, &hub::Card::expandedChanged);
            card.setExpanded(false);
            QCOMPARE(changed.size(), 1);
            QCOMPARE(QSettings().value(key).toBool(), false);
        }
        hub::Card again(QStringLiteral("Devices"));
        again.persistExpanded(key, true);
        QVERIFY(!again.isExpanded());
        QVERIFY(again.body()->parentWidget()->isHidden());

        // A click on the header unfolds it again, and that is remembered too.
        again.resize(400, 300);
        again.show();
        QVERIFY(QTest::qWaitForWindowExposed(&again));
        auto *header = again.findChild<QWidget *>(QStringLiteral("cardHeader"));
        QVERIFY(header);
        QTest::mouseClick(header, Qt::LeftButton, {}, QPoint(10, 10));
        QVERIFY(again.isExpanded());
        QCOMPARE(QSettings().value(key).toBool(), true);
    }

    void levelBarFillsFromItsOrigin_data()
    {
        QTest::addColumn<double>("minimum");
        QTest::addColumn<double>("maximum");
        QTest::addColumn<double>("origin");
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("start");
        QTest::addColumn<double>("end");
        QTest::newRow("steering left") << -1.0 << 1.0 << 0.0 << -0.5 << 0.25 << 0.5;
        QTest::newRow("steering beyond range clamps") << -1.0 << 1.0 << 0.0 << 3.0 << 0.5 << 1.0;
        QTest::newRow("pedal below range is empty") << 0.0 << 1.0 << 0.0 << -0.2 << 0.0 << 0.0;
        QTest::newRow("channel at centre is empty") << 172.0 << 1811.0 << 992.0 << 992.0 << 0.5003 << 0.5003;
        QTest::newRow("channel 0 clamps to low") << 172.0 << 1811.0 << 992.0 << 0.0 << 0.0 << 0.5003;
    }

    void levelBarFillsFromItsOrigin()
    {
        QFETCH(double, minimum);
        QFETCH(double, maximum);
        QFETCH(double, origin);
        QFETCH(double, value);
        QFETCH(double, start);
        QFETCH(double, end);
        hub::LevelBar bar(QStringLiteral("x"), minimum, maximum, origin);
        QCOMPARE(bar.filledSpan(), std::make_pair(0.0, 0.0));
        bar.setValue(value, QStringLiteral("v"));
        const auto [s, e] = bar.filledSpan();
        QVERIFY2(qAbs(s - start) < 1e-3 && qAbs(e - end) < 1e-3,
                 qPrintable(QStringLiteral("%1..%2").arg(s).arg(e)));
        bar.clear();
        QVERIFY(!bar.value());
        QCOMPARE(bar.valueText(), hub::StatTile::noValueText());
    }

    void channelBarShowsSixteenValuesAndClearsMissingOnes()
    {
        hub::ChannelBar channels;
        std::array<int32_t, 16> values{};
        for (int i = 0; i < 16; ++i)
            values[i] = 172 + i * 100;
        channels.setValues(values);
        QCOMPARE(channels.bar(15)->valueText(), QStringLiteral("1672"));
        QVERIFY(!channels.bar(16));

        const std::array<int32_t, 3> few{992, 2047, 0};
        channels.setValues(few);
        QCOMPARE(channels.bar(1)->valueText(), QStringLiteral("2047"));
        QCOMPARE(channels.bar(1)->filledSpan().second, 1.0);
        QVERIFY(!channels.bar(3)->value());
    }

    void channelBarFillsFromTheChannelsNeutral_data()
    {
        QTest::addColumn<Neutral>("neutral");
        QTest::addColumn<int>("value");
        QTest::addColumn<Span>("filled");
        const double centre = (992.0 - 172.0) / (1811.0 - 172.0);
        QTest::newRow("centred channel full right") << Neutral(992) << 1811 << Span(centre, 1.0);
        QTest::newRow("switch off") << Neutral(0) << 0 << Span(0.0, 0.0);
        QTest::newRow("switch on") << Neutral(0) << 2047 << Span(0.0, 1.0);
        QTest::newRow("unmapped channel at zero") << Neutral() << 0 << Span(0.0, 0.0);
    }

    void channelBarFillsFromTheChannelsNeutral()
    {
        QFETCH(Neutral, neutral);
        QFETCH(int, value);
        QFETCH(Span, filled);
        hub::ChannelBar channels;
        std::array<Neutral, 16> neutrals{};
        neutrals[4] = neutral;
        channels.setNeutrals(neutrals);
        std::array<int32_t, 16> values{};
        values[4] = value;
        channels.setValues(values);
        QCOMPARE(channels.bar(4)->filledSpan(), filled);
    }

    void timeSeriesRingKeepsExactlyTheLastWindow_data()
    {
        QTest::addColumn<int>("intervalMs");
        QTest::addColumn<int>("expectedSpacingMs");
        QTest::newRow("at the resolution") << 20 << 20;
        // Faster than the resolution: thinned out, the ring does not grow.
        QTest::newRow("every tick") << 7 << 21;
    }

    void timeSeriesRingKeepsExactlyTheLastWindow()
    {
        QFETCH(int, intervalMs);
        QFETCH(int, expectedSpacingMs);
        hub::TimeSeriesRing ring(std::chrono::seconds(60), std::chrono::milliseconds(20));
        const int capacity = ring.capacity();
        QCOMPARE(capacity, 3001);
        // A minute and a half of samples.
        for (qint64 t = 0; t <= 90000; t += intervalMs)
            ring.append(t, 1.0f);
        QCOMPARE(ring.capacity(), capacity);
        const qint64 newest = ring.newest().timeMs;
        QVERIFY(newest > 90000 - intervalMs * 3);
        QVERIFY(newest - ring.at(0).timeMs <= 60000);
        QVERIFY(newest - ring.at(0).timeMs > 60000 - expectedSpacingMs);
        QCOMPARE(ring.at(1).timeMs - ring.at(0).timeMs, expectedSpacingMs);
        QCOMPARE(ring.size(), int((newest - ring.at(0).timeMs) / expectedSpacingMs) + 1);
    }
};

QTEST_MAIN(TestHubWidgets)
#include "tst_hubwidgets.moc"

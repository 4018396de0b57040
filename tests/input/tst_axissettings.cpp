#include "axissettings.h"

#include <QJsonObject>
#include <QTest>

#include <cmath>

using namespace tavrix;
using namespace Qt::StringLiterals;
using Axis = AxisSettings; // rows name only what differs from the defaults

Q_DECLARE_METATYPE(tavrix::AxisSettings)

class TestAxisSettings : public QObject
{
    Q_OBJECT

private slots:
    void curves_data()
    {
        QTest::addColumn<int>("curve");
        QTest::addColumn<float>("exponent");
        QTest::addColumn<float>("x");
        QTest::addColumn<float>("expected");
        QTest::newRow("linear") << 0 << 2.0f << 0.3f << 0.3f;
        QTest::newRow("power 2") << 1 << 2.0f << 0.5f << 0.25f;
        QTest::newRow("power 0.5") << 1 << 0.5f << 0.25f << 0.5f;
        QTest::newRow("log k=2 at half") << 2 << 2.0f << 0.5f << 0.716886f; // ln((e^2-1)/2+1)/2
        QTest::newRow("log ends at 1") << 2 << 5.0f << 1.0f << 1.0f;
        QTest::newRow("unknown curve is linear") << 7 << 2.0f << 0.4f << 0.4f;
    }

    void curves()
    {
        QFETCH(int, curve);
        QFETCH(float, exponent);
        QFETCH(float, x);
        QFETCH(float, expected);
        QVERIFY(qAbs(applyAxisCurve(curve, exponent, x) - expected) < 1e-5f);
    }

    void bipolarPipeline_data()
    {
        QTest::addColumn<AxisSettings>("settings");
        QTest::addColumn<float>("input");
        QTest::addColumn<float>("expected");
        QTest::newRow("defaults pass through") << Axis{} << 0.37f << 0.37f;
        QTest::newRow("inverted") << Axis{.inverted = true} << 0.37f << -0.37f;
        QTest::newRow("inside deadzone is 0") << Axis{.deadzone = 0.1f} << -0.05f << 0.0f;
        QTest::newRow("deadzone rescales the rest") << Axis{.deadzone = 0.1f} << 0.55f << 0.5f;
        QTest::newRow("power curve keeps the sign") << Axis{.curve = 1} << -0.5f << -0.25f;
        QTest::newRow("inverted power curve") << Axis{.inverted = true, .curve = 1} << -0.5f << 0.25f;
        QTest::newRow("expo half at half") << Axis{.expo = 0.5f} << 0.5f << 0.3125f;
        QTest::newRow("output range moves the centre") << Axis{.minOutput = 0.2f} << 0.0f << 0.2f;
        QTest::newRow("output range left end") << Axis{.minOutput = 0.2f} << -1.0f << -0.6f;
        QTest::newRow("narrow output range")
            << Axis{.minOutput = 0.25f, .maxOutput = 0.75f} << -1.0f << -0.5f;
        QTest::newRow("calibrated centre")
            << Axis{.inputMin = -0.6f, .inputMax = 0.8f, .inputCenter = 0.2f, .useCalibration = true} << 0.2f
            << 0.0f;
        QTest::newRow("calibrated right half")
            << Axis{.inputMin = -0.6f, .inputMax = 0.8f, .inputCenter = 0.2f, .useCalibration = true} << 0.5f
            << 0.5f;
        QTest::newRow("centre equal to minimum gives 0 below it")
            << Axis{.inputMin = -0.5f, .inputCenter = -0.5f, .useCalibration = true} << -0.9f << 0.0f;
        QTest::newRow("calibration off ignores the values")
            << Axis{.inputMin = -0.5f, .inputCenter = 0.3f} << 0.3f << 0.3f;
    }

    void bipolarPipeline()
    {
        QFETCH(AxisSettings, settings);
        QFETCH(float, input);
        QFETCH(float, expected);
        const float out = settings.apply(input, true);
        QVERIFY2(qAbs(out - expected) < 1e-5f, qPrintable(QString::number(out)));
    }

    void unipolarPipeline_data()
    {
        QTest::addColumn<AxisSettings>("settings");
        QTest::addColumn<float>("input");
        QTest::addColumn<float>("expected");
        QTest::newRow("released") << Axis{} << -1.0f << 0.0f;
        QTest::newRow("half travel past the 2%") << Axis{} << 0.0f << 0.489796f;
        QTest::newRow("just past 2%") << Axis{} << -0.95f << 0.005102f;
        QTest::newRow("larger deadzone wins") << Axis{.deadzone = 0.1f} << -0.9f << 0.0f;
        QTest::newRow("larger deadzone rescales") << Axis{.deadzone = 0.1f} << 0.1f << 0.5f;
        QTest::newRow("inverted full") << Axis{.inverted = true} << -1.0f << 1.0f;
        QTest::newRow("power curve") << Axis{.curve = 1} << 0.0f << 0.239900f;
        QTest::newRow("expo is not used") << Axis{.expo = 0.9f} << 0.0f << 0.489796f;
        QTest::newRow("inside deadzone stays 0 above a floor") << Axis{.minOutput = 0.3f} << -0.98f << 0.0f;
        QTest::newRow("just past deadzone starts at the floor")
            << Axis{.minOutput = 0.3f} << -0.959f << 0.30036f;
        QTest::newRow("calibrated ceiling")
            << Axis{.inputMin = -0.5f, .inputMax = 0.5f, .useCalibration = true} << 1.0f << 0.75f;
        QTest::newRow("calibrated floor")
            << Axis{.inputMin = -0.5f, .inputMax = 0.5f, .useCalibration = true} << -0.959f << 0.25026f;
        QTest::newRow("calibration is no input rescale")
            << Axis{.inputMin = -1.0f, .inputMax = 0.0f, .useCalibration = true} << 1.0f << 0.5f;
        QTest::newRow("inverted calibration swaps floor and ceiling")
            << Axis{.inverted = true, .inputMin = -0.5f, .inputMax = 0.5f, .useCalibration = true} << -1.0f
            << 0.25f;
        QTest::newRow("output range ignores minOutput under calibration")
            << Axis{.minOutput = 0.6f, .useCalibration = true} << 1.0f << 1.0f;
    }

    void unipolarPipeline()
    {
        QFETCH(AxisSettings, settings);
        QFETCH(float, input);
        QFETCH(float, expected);
        const float out = settings.apply(input, false);
        QVERIFY2(qAbs(out - expected) < 2e-4f, qPrintable(QString::number(out)));
    }

    void jsonKeysAndDefaults()
    {
        AxisSettings s;
        s.name = QStringLiteral("Brake");
        s.inverted = true;
        s.deadzone = 0.05f;
        s.curve = 2;
        s.curveExponent = 3.5f;
        s.useCalibration = true;
        s.inputMin = -0.75f;
        const QJsonObject json = s.toJson();
        QCOMPARE(AxisSettings::fromJson(json, QStringLiteral("Brake")), s);

        // The name comes from the key; missing or mistyped members keep their defaults.
        const AxisSettings read =
            AxisSettings::fromJson(QJsonObject{{QStringLiteral("name"), QStringLiteral("Other")},
                                               {QStringLiteral("deadzone"), QStringLiteral("lots")},
                                               {QStringLiteral("maxOutput"), 0.9}},
                                   QStringLiteral("Throttle"));
        AxisSettings expected;
        expected.name = QStringLiteral("Throttle");
        expected.maxOutput = 0.9f;
        QCOMPARE(read, expected);
    }

    // A profile edited by hand or imported never gets a value into the computation that it
    // cannot take: each row would otherwise divide by zero or turn the wheel the wrong way.
    void outOfRangeValuesAreKeptWithinReach_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<double>("stored");
        QTest::addColumn<float>("input");
        QTest::addColumn<float>("expected");
        // At 0.95 of deadzone the last 5 % of travel spans the whole output.
        QTest::newRow("deadzone of the whole travel") << u"deadzone"_s << 1.0 << 0.975f << 0.5f;
        // An expo of 1: 0.5 cubed, still to the right.
        QTest::newRow("expo past one") << u"expo"_s << 5.0 << 0.5f << 0.125f;
        QTest::newRow("expo below zero") << u"expo"_s << -2.0 << 0.5f << 0.5f;
        QTest::newRow("output past full") << u"maxOutput"_s << 3.0 << 1.0f << 1.0f;
    }

    void outOfRangeValuesAreKeptWithinReach()
    {
        QFETCH(QString, key);
        QFETCH(double, stored);
        QFETCH(float, input);
        QFETCH(float, expected);
        const AxisSettings s = AxisSettings::fromJson(QJsonObject{{key, stored}}, u"Steering"_s);
        const float out = s.applyBipolar(input);
        QVERIFY2(qAbs(out - expected) < 1e-4f, qPrintable(QString::number(out)));
    }

    void curveNumbersOutsideTheKnownOnesReadAsTheNearest()
    {
        const AxisSettings s =
            AxisSettings::fromJson(QJsonObject{{u"curve"_s, 9}, {u"curveExponent"_s, 0.0}}, u"Brake"_s);
        QCOMPARE(s.curve, int(AxisCurve::Logarithmic));
        QCOMPARE(s.curveExponent, float(AxisSettings::kExponentMin));
        QVERIFY(std::isfinite(s.applyUnipolar(0.5f)));
    }
};

QTEST_GUILESS_MAIN(TestAxisSettings)
#include "tst_axissettings.moc"

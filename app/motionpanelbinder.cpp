#include "motionpanelbinder.h"

#include "fullsystemtestplan.h"
#include "motionactuatorscard.h"
#include "motionchooserpage.h"
#include "motionconnectioncard.h"
#include "motionframes.h"
#include "motionmovethrottle.h"
#include "motionpanelpage.h"
#include "motionpatterns.h"
#include "motionsettingscard.h"
#include "motionsystemcontroller.h"
#include "portpickerbinder.h"
#include "vehiclepagebinder.h"
#include "visiblerefresh.h"

#include <QCheckBox>
#include <QDateTime>

#include <algorithm>

namespace tavrix {

namespace {

// How often the heartbeat's age is shown again while the page is in front.
constexpr std::chrono::milliseconds kHeartbeatRefresh{500};

QString settingLabel(const char *key)
{
    static const QHash<QString, const char *> labels{
        {QStringLiteral("intensity"), QT_TRANSLATE_NOOP("tavrix::MotionPanelBinder", "Intensity")},
        {QStringLiteral("travelMm"), QT_TRANSLATE_NOOP("tavrix::MotionPanelBinder", "Travel")},
        {QStringLiteral("speedPct"), QT_TRANSLATE_NOOP("tavrix::MotionPanelBinder", "Speed")},
        {QStringLiteral("accelPct"), QT_TRANSLATE_NOOP("tavrix::MotionPanelBinder", "Smoothness")},
        {QStringLiteral("parkMm"), QT_TRANSLATE_NOOP("tavrix::MotionPanelBinder", "Park position")},
    };
    const char *label = labels.value(QLatin1String(key));
    return label ? MotionPanelBinder::tr(label) : QString(QLatin1String(key));
}

QMap<QString, int> settingsByKey(const MotionSystemSettings &settings)
{
    QMap<QString, int> values;
    for (const MotionSettingField &field : kMotionSettingFields)
        values.insert(QLatin1String(field.key), settings.*field.member);
    return values;
}

// The patterns that move at least one actuator this platform has.
QList<QPair<int, QString>> patternsFor(int platformKind)
{
    QList<QPair<int, QString>> patterns;
    const int actuators = actuatorCount(platformKind);
    for (const int pattern : {kPatternSurge, kPatternYaw, kPatternPitch, kPatternRoll, kPatternHeave}) {
        const PatternCoefficients c = patternCoefficients(platformKind, pattern);
        if (std::any_of(c.begin(), c.begin() + actuators, [](double k) { return k != 0.0; }))
            patterns.append({pattern, patternName(pattern, platformKind)});
    }
    return patterns;
}

} // namespace

MotionTestLimits MotionPanelBinder::testLimits()
{
    // Read from the clamps themselves, so the page offers exactly what the board will run.
    const PatternTest lowest = PatternTest::fromRequest(0, 0, 0, 0);
    const PatternTest highest = PatternTest::fromRequest(0, 1000, 100000, 1000);
    return {lowest.travelPct,
            motionframes::boardTestTravelPct(0),
            highest.travelPct,
            motionframes::kFreqCentiHzMin,
            motionframes::kFreqCentiHzMax,
            motionframes::kTestSecondsMin,
            motionframes::kTestSecondsMax,
            FullSystemTestPlan::kMinMinutes,
            FullSystemTestPlan::kMaxMinutes};
}

MotionPanelBinder::MotionPanelBinder(MotionPanelPage *page, MotionChooserPage *chooser,
                                     MotionSystemController *motion, TavrixController *ports, QObject *parent)
    : QObject(parent)
    , m_page(page)
    , m_chooser(chooser)
    , m_motion(motion)
{
    MotionConnectionCard *connection = page->connectionCard();
    m_ports = new PortPickerBinder(
        connection->picker(), ports,
        {[motion] { return motion->isConnected(); }, [motion] { return motion->portName(); },
         [motion](const QString &port, qint32) { motion->connectPort(port); },
         [motion] { motion->disconnectPort(); }, [] { return MotionSystemController::kBaudRate; }},
        this);
    new VisibleRefresh(
        connection, VehiclePageBinder::kListRefreshInterval, [this] { m_ports->refreshPorts(); }, this);
    new VisibleRefresh(
        page, kHeartbeatRefresh,
        [this] {
            // The web panel may have chosen another platform meanwhile.
            if (m_motion->platformKind() != m_page->platform())
                showPlatform();
            showHeartbeat();
        },
        this);

    connect(motion, &MotionSystemController::connectedChanged, this, [this](bool connected) {
        m_ports->refreshPorts();
        if (connected)
            m_page->showError(QString());
        showState();
    });
    connect(motion, &MotionSystemController::controllerStateChanged, this, &MotionPanelBinder::showState);
    connect(motion, &MotionSystemController::heartbeat, this, [this] {
        m_sinceHeartbeat.start();
        showHeartbeat();
    });
    connect(motion, &MotionSystemController::axisPositionsUpdated, page->actuatorsCard(),
            &MotionActuatorsCard::showPositions);
    connect(motion, &MotionSystemController::statusLine, this, &MotionPanelBinder::onStatusLine);
    connect(motion, &MotionSystemController::errorOccurred, this, [this](const QString &message) {
        m_page->showError(message);
        appendLog(tr("Error: %1").arg(message));
    });
    connect(connection, &MotionConnectionCard::homeRequested, motion, &MotionSystemController::autoHome);
    connect(connection, &MotionConnectionCard::calibrationToggleRequested, motion,
            &MotionSystemController::toggleCalibrationMode);
    connect(page, &MotionPanelPage::releaseRequested, this, &MotionPanelBinder::release);

    m_moves =
        new MotionMoveThrottle([motion](int actuator, int mm) { motion->setActuatorPosition(actuator, mm); },
                               MotionMoveThrottle::kDefaultInterval, this);
    MotionActuatorsCard *actuators = page->actuatorsCard();
    connect(actuators, &MotionActuatorsCard::moveRequested, m_moves, &MotionMoveThrottle::request);
    connect(actuators->freeModeSwitch(), &QCheckBox::toggled, m_moves, [this](bool on) {
        if (!on)
            m_moves->clear();
    });

    bindTests();
    bindSettings();
    showPlatform();
    showState();
}

void MotionPanelBinder::bindTests()
{
    MotionTestCard *tests = m_page->testCard();
    const PatternTest defaults;
    tests->setDefaults(defaults.travelPct, int(defaults.frequencyHz * 100), defaults.durationMs / 1000);
    connect(tests, &MotionTestCard::patternTestRequested, m_motion,
            &MotionSystemController::startPatternTest);
    connect(tests, &MotionTestCard::boardTestRequested, m_motion, &MotionSystemController::startBoardTest);
    connect(tests, &MotionTestCard::fullSystemTestRequested, this, [this](int minutes) {
        m_fullSystemShown = true;
        m_fullSystemEnded = false;
        if (!m_motion->startFullSystemTest(minutes))
            m_fullSystemShown = false;
    });
    connect(m_motion, &MotionSystemController::testStarted, this, [this] {
        // A test that starts moves the seat: no Free-mode move left over may follow it.
        m_moves->clear();
        m_page->showError(QString());
        showState();
    });
    connect(m_motion, &MotionSystemController::testFinished, this, &MotionPanelBinder::onTestFinished);
}

void MotionPanelBinder::bindSettings()
{
    MotionSettingsCard *card = m_page->settingsCard();
    for (const MotionSettingField &field : kMotionSettingFields) {
        const bool millimetres = QLatin1String(field.key).endsWith(QLatin1String("Mm"));
        card->addSetting(QLatin1String(field.key), settingLabel(field.key), field.minimum, field.maximum,
                         millimetres ? tr("mm") : tr("%"));
    }
    card->showSettings(settingsByKey(m_motion->settings()));
    connect(card, &MotionSettingsCard::applyRequested, this, [this](const QMap<QString, int> &values) {
        MotionSystemSettings settings = m_motion->settings();
        for (const MotionSettingField &field : kMotionSettingFields)
            settings.*field.member = values.value(QLatin1String(field.key), settings.*field.member);
        m_motion->applySettings(settings);
        m_page->settingsCard()->showSettings(settingsByKey(m_motion->settings()));
    });
    connect(m_motion, &MotionSystemController::settingsEchoed, card,
            [card](const MotionSystemSettings &settings) { card->showSettings(settingsByKey(settings)); });
}

bool MotionPanelBinder::choosePlatform(int degreesOfFreedom)
{
    if (degreesOfFreedom != m_motion->platformKind() && !m_motion->setPlatformKind(degreesOfFreedom)) {
        m_chooser->showRefusal(tr("The %1DOF platform cannot be chosen while a test runs on the %2DOF "
                                  "platform: let it finish or press Release first.")
                                   .arg(degreesOfFreedom)
                                   .arg(m_motion->platformKind()));
        return false;
    }
    m_chooser->showRefusal(QString());
    showPlatform();
    return true;
}

void MotionPanelBinder::showPlatform()
{
    const int kind = m_motion->platformKind();
    m_page->setPlatform(kind);
    m_chooser->setCurrentPlatform(kind);
    m_page->actuatorsCard()->setActuators(actuatorCount(kind), motionframes::kPositionMaxMm);
    m_page->actuatorsCard()->showPositions(m_motion->axisPositions());
    m_page->testCard()->setPatterns(patternsFor(kind));
    m_page->testCard()->setActuatorCount(actuatorCount(kind));
}

void MotionPanelBinder::showState()
{
    const bool connected = m_motion->isConnected();
    const QString state = m_motion->controllerState();
    MotionConnectionCard *card = m_page->connectionCard();
    if (!connected)
        card->showState(hub::Tone::Neutral, tr("Not connected"));
    else if (state.isEmpty())
        card->showState(hub::Tone::Warning, tr("Waiting for heartbeat"));
    else if (state == MotionSystemController::kReadyState)
        card->showState(hub::Tone::Good, state);
    else if (state == MotionSystemController::kFailState)
        card->showState(hub::Tone::Danger, state);
    else
        card->showState(hub::Tone::Accent, state);
    card->setCommandsEnabled(connected);
    const bool mayTest =
        connected && state == MotionSystemController::kReadyState && !m_motion->isTestRunning();
    m_page->testCard()->setStartEnabled(mayTest);
    m_page->actuatorsCard()->setFreeModeAvailable(mayTest);
    if (!connected)
        m_sinceHeartbeat.invalidate();
    showHeartbeat();
}

void MotionPanelBinder::showHeartbeat()
{
    MotionConnectionCard *card = m_page->connectionCard();
    if (!m_motion->isConnected()) {
        card->showHeartbeat(hub::Tone::Muted, QString());
    } else if (!m_sinceHeartbeat.isValid()) {
        card->showHeartbeat(hub::Tone::Warning, tr("Waiting for the first heartbeat…"));
    } else {
        const qint64 ageMs = m_sinceHeartbeat.elapsed();
        const bool stale = ageMs >= MotionSystemController::Timings{}.heartbeatWatchdog.count();
        card->showHeartbeat(stale ? hub::Tone::Danger : hub::Tone::Good,
                            tr("Last heartbeat %1 s ago").arg(double(ageMs) / 1000.0, 0, 'f', 1));
    }
}

void MotionPanelBinder::onStatusLine(const QString &line)
{
    appendLog(line);
    if (m_fullSystemShown) {
        m_page->testCard()->showFullSystemStatus(line);
        // The test's own last words ("complete", "stopped ...") come once it no longer runs.
        m_fullSystemEnded = !m_motion->isFullSystemTestRunning();
    }
}

void MotionPanelBinder::onTestFinished()
{
    if (m_fullSystemShown && !m_fullSystemEnded)
        m_page->testCard()->showFullSystemStatus(tr("Full system test stopped"));
    m_fullSystemShown = false;
    showState();
}

void MotionPanelBinder::release()
{
    m_moves->clear();
    m_motion->release();
}

void MotionPanelBinder::appendLog(const QString &line)
{
    m_page->appendLog(QDateTime::currentDateTime().toString(QStringLiteral("HH:mm:ss")) + QLatin1Char(' ') +
                      line);
}

} // namespace tavrix

#include "ledconfigpush.h"

#include <QLoggingCategory>
#include <QTimer>

#include <array>

namespace tavrix {

namespace {

Q_LOGGING_CATEGORY(lcLedPush, "orvane.radio.ledpush")

using Mode = LedStripSettings::Mode;

const QString kOkPrefix = QStringLiteral("LED_OK ");
const QString kErrPrefix = QStringLiteral("LED_ERR ");

// The strip's own names of the modes.
QString wireMode(Mode mode)
{
    switch (mode) {
    case Mode::PerLed:
        return QStringLiteral("PER_LED");
    case Mode::Range:
        return QStringLiteral("RANGE");
    case Mode::Global:
        break;
    }
    return QStringLiteral("GLOBAL");
}

QString colorValue(int item, LedColor color)
{
    return QStringLiteral("%1,%2,%3,%4").arg(item).arg(color.r).arg(color.g).arg(color.b);
}

QString percentValue(int item, int percent)
{
    return QStringLiteral("%1,%2").arg(item).arg(percent);
}

} // namespace

LedConfigPush::LedConfigPush(const Timings &timings, QObject *parent)
    : QObject(parent)
    , m_timings(timings)
    , m_replyTimer(new QTimer(this))
{
    m_replyTimer->setSingleShot(true);
    connect(m_replyTimer, &QTimer::timeout, this,
            [this] { fail(tr("The receiver did not answer LED_%1").arg(m_steps.at(m_current).key)); });
}

int LedConfigPush::itemIndex() const
{
    return m_running ? m_steps.at(m_current).item : -1;
}

QString LedConfigPush::stateName(State state)
{
    // In the order of State; these names are what the remote app shows.
    static constexpr std::array<const char *, 10> kNames{
        "idle",
        "waiting",
        "sending_led_count",
        "sending_brightness",
        "sending_mode",
        "sending_payload_count",
        "sending_color",
        "sending_range_start",
        "sending_range_end",
        "complete",
    };
    const auto index = std::size_t(state);
    return index < kNames.size() ? QLatin1String(kNames[index]) : QStringLiteral("unknown");
}

QList<LedConfigPush::Step> LedConfigPush::stepsFor(const LedStripSettings &settings)
{
    QList<Step> steps{
        {State::Waiting, QStringLiteral("ENABLE"), QString::number(settings.powerOn() ? 1 : 0)},
        {State::SendingLedCount, QStringLiteral("COUNT"), QString::number(settings.ledCount())},
        {State::SendingBrightness, QStringLiteral("BRIGHTNESS"), QString::number(settings.brightness())},
        {State::SendingMode, QStringLiteral("MODE"), wireMode(settings.mode())},
    };
    const auto payloadCount = [&steps](qsizetype count) {
        steps.append({State::SendingPayloadCount, QStringLiteral("PAYLOAD_COUNT"), QString::number(count)});
    };
    const auto color = [&steps](int item, LedColor c) {
        steps.append({State::SendingColor, QStringLiteral("COLOR"), colorValue(item, c), item});
    };
    switch (settings.mode()) {
    case Mode::Global:
        payloadCount(1);
        color(0, settings.globalColor());
        break;
    case Mode::PerLed:
        payloadCount(settings.ledCount());
        for (int led = 0; led < settings.ledCount(); ++led)
            color(led, settings.ledColor(led));
        break;
    case Mode::Range:
        // The strip takes at least one item: without zones there is nothing to show.
        if (settings.zones().isEmpty())
            return {};
        payloadCount(settings.zones().size());
        for (int zone = 0; zone < settings.zones().size(); ++zone) {
            const LedZone &z = settings.zones().at(zone);
            color(zone, z.color);
            steps.append({State::SendingRangeStart, QStringLiteral("RANGE_START"),
                          percentValue(zone, z.startPercent), zone});
            steps.append({State::SendingRangeEnd, QStringLiteral("RANGE_END"),
                          percentValue(zone, z.endPercent), zone});
        }
        break;
    }
    return steps;
}

LedConfigPush::StartResult LedConfigPush::start(const LedStripSettings &settings)
{
    if (m_running)
        return StartResult::AlreadyRunning;
    if (!m_portOpen)
        return StartResult::NotConnected;
    QList<Step> steps = stepsFor(settings);
    if (steps.isEmpty())
        return StartResult::NothingToSend;
    m_steps = std::move(steps);
    m_current = -1;
    m_running = true;
    emit started();
    sendNext();
    return StartResult::Started;
}

void LedConfigPush::setPortOpen(bool open)
{
    m_portOpen = open;
    if (!open && m_running)
        fail(tr("The receiver's USB connection closed"));
}

void LedConfigPush::onReceiverLine(const QString &line)
{
    if (!m_running)
        return;
    const Step &step = m_steps.at(m_current);
    const QString text = line.trimmed();
    // Only the answer to the command that is out counts: a late reply to an earlier push
    // names another key or value and is passed over.
    if (text == kOkPrefix + step.key + QLatin1Char('=') + step.value) {
        sendNext();
    } else if (text.startsWith(kErrPrefix + step.key + QLatin1Char(' '))) {
        fail(tr("The receiver refused LED_%1: %2").arg(step.key, text.mid(kErrPrefix.size())));
    }
}

void LedConfigPush::sendNext()
{
    ++m_current;
    if (m_current == m_steps.size()) {
        m_replyTimer->stop();
        m_running = false;
        setState(State::Complete);
        emit finished(true, tr("LED settings sent to the receiver"));
        return;
    }
    const Step &step = m_steps.at(m_current);
    setState(step.state);
    m_replyTimer->start(m_timings.replyTimeout);
    emit lineOut(QStringLiteral("LED_%1=%2").arg(step.key, step.value));
}

void LedConfigPush::fail(const QString &message)
{
    qCWarning(lcLedPush).noquote() << QStringLiteral("[LED] push failed: %1").arg(message);
    m_replyTimer->stop();
    m_running = false;
    setState(State::Idle);
    emit finished(false, message);
}

void LedConfigPush::setState(State state)
{
    if (m_state == state)
        return;
    m_state = state;
    emit stateChanged(state);
}

} // namespace tavrix

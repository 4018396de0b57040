#include "radiocalibrationdialog.h"

#include "card.h"
#include "levelbar.h"
#include "notice.h"
#include "stattile.h"
#include "statuspill.h"
#include "statusrow.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

namespace tavrix {

namespace {

// The receiver's pulse range and its centre.
constexpr double kMinUs = 988.0;
constexpr double kMaxUs = 2012.0;
constexpr double kCentreUs = 1500.0;

struct StepText
{
    hub::Glyph glyph;
    const char *title;
    const char *instruction;
};

constexpr std::array<StepText, RadioCalibrationDialog::kStepCount> kStepTexts{{
    {hub::Glyph::Gauge, QT_TRANSLATE_NOOP("tavrix::RadioCalibrationDialog", "Full throttle"),
     QT_TRANSLATE_NOOP("tavrix::RadioCalibrationDialog", "Hold full throttle and keep it there.")},
    {hub::Glyph::Gauge, QT_TRANSLATE_NOOP("tavrix::RadioCalibrationDialog", "Throttle neutral"),
     QT_TRANSLATE_NOOP("tavrix::RadioCalibrationDialog", "Let go of the throttle so it rests at neutral.")},
    {hub::Glyph::Gauge, QT_TRANSLATE_NOOP("tavrix::RadioCalibrationDialog", "Full reverse"),
     QT_TRANSLATE_NOOP("tavrix::RadioCalibrationDialog", "Hold full brake / reverse and keep it there.")},
    {hub::Glyph::Wheel, QT_TRANSLATE_NOOP("tavrix::RadioCalibrationDialog", "Full left"),
     QT_TRANSLATE_NOOP("tavrix::RadioCalibrationDialog", "Turn the steering fully left and hold it.")},
    {hub::Glyph::Wheel, QT_TRANSLATE_NOOP("tavrix::RadioCalibrationDialog", "Steering centre"),
     QT_TRANSLATE_NOOP("tavrix::RadioCalibrationDialog", "Let the steering return to the centre.")},
    {hub::Glyph::Wheel, QT_TRANSLATE_NOOP("tavrix::RadioCalibrationDialog", "Full right"),
     QT_TRANSLATE_NOOP("tavrix::RadioCalibrationDialog", "Turn the steering fully right and hold it.")},
}};

QString translated(const char *text)
{
    return QCoreApplication::translate("tavrix::RadioCalibrationDialog", text);
}

hub::LevelBar *channelBar(const QString &label, QWidget *parent)
{
    auto *bar = new hub::LevelBar(label, kMinUs, kMaxUs, kCentreUs, parent);
    bar->setTextWidths(96, 140);
    return bar;
}

} // namespace

RadioCalibrationDialog::RadioCalibrationDialog(QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Receiver end points"));
    setMinimumWidth(760);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(14);

    m_message = new hub::Notice(hub::Glyph::Antenna, QString(), this);
    m_message->hide();
    column->addWidget(m_message);

    auto *cards = new QHBoxLayout;
    cards->setSpacing(14);
    cards->addWidget(buildStepCard(), 3);
    cards->addWidget(buildResultCard(), 2);
    column->addLayout(cards);
    column->addStretch(1);

    auto *buttons = new QHBoxLayout;
    m_start = new QPushButton(this);
    m_start->setDefault(true);
    m_retry = new QPushButton(tr("Retry"), this);
    m_skip = new QPushButton(tr("Skip"), this);
    m_cancel = new QPushButton(tr("Cancel"), this);
    auto *close = new QPushButton(tr("Close"), this);
    for (QPushButton *button : {m_start, m_retry, m_skip, m_cancel})
        buttons->addWidget(button);
    buttons->addStretch(1);
    buttons->addWidget(close);
    column->addLayout(buttons);

    connect(m_start, &QPushButton::clicked, this, &RadioCalibrationDialog::startRequested);
    connect(m_retry, &QPushButton::clicked, this, &RadioCalibrationDialog::retryRequested);
    connect(m_skip, &QPushButton::clicked, this, &RadioCalibrationDialog::skipRequested);
    connect(m_cancel, &QPushButton::clicked, this, &RadioCalibrationDialog::cancelRequested);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);

    showStep(kNoStep, false, false);
    showCountdown(0);
    showHold(hub::Tone::Muted, tr("Idle"));
    for (int step = 0; step < kStepCount; ++step)
        showResult(step, 0);
    m_steering->clear();
    m_throttle->clear();
}

QWidget *RadioCalibrationDialog::buildStepCard()
{
    auto *card = new hub::Card(tr("Measure"), this);
    card->setSubtitle(tr("Hold each end point still until the countdown runs out."));
    m_hold = new hub::StatusPill(hub::Tone::Muted, QString(), card);
    card->addHeaderWidget(m_hold);

    m_stepTitle = new QLabel(card);
    m_stepTitle->setObjectName(QStringLiteral("radioCalStep"));
    m_instruction = new QLabel(card);
    m_instruction->setWordWrap(true);
    m_countdown = new hub::StatTile(tr("Hold for"), card);

    auto *text = new QVBoxLayout;
    text->addWidget(m_stepTitle);
    text->addWidget(m_instruction);
    auto *row = new QHBoxLayout;
    row->addLayout(text, 1);
    row->addWidget(m_countdown);
    card->body()->addLayout(row);

    m_steering = channelBar(tr("CH1 steer"), card);
    m_throttle = channelBar(tr("CH2 throttle"), card);
    card->body()->addWidget(m_steering);
    card->body()->addWidget(m_throttle);
    card->body()->addStretch(1);
    return card;
}

QWidget *RadioCalibrationDialog::buildResultCard()
{
    auto *card = new hub::Card(tr("End points"), this);
    card->setSubtitle(tr("CRSF values as the receiver sees them."));
    for (const StepText &step : kStepTexts) {
        auto *row = new hub::StatusRow(step.glyph, translated(step.title), QString(), card);
        m_results.append(row);
        card->body()->addWidget(row);
    }
    card->body()->addStretch(1);
    return card;
}

QString RadioCalibrationDialog::resultText(int step) const
{
    return step >= 0 && step < m_results.size() ? m_results[step]->pill()->text() : QString();
}

QString RadioCalibrationDialog::message() const
{
    return m_message->isVisible() ? m_message->text() : QString();
}

void RadioCalibrationDialog::showStep(int step, bool measuring, bool canRetry)
{
    const bool calibrating = step >= 0 && step < kStepCount;
    if (calibrating) {
        m_stepTitle->setText(
            tr("Step %1 of %2 · %3").arg(step + 1).arg(kStepCount).arg(translated(kStepTexts[step].title)));
        m_instruction->setText(translated(kStepTexts[step].instruction));
    } else if (step == kStepCount) {
        m_stepTitle->setText(tr("All end points measured"));
        m_instruction->setText(tr("Start again to measure them all anew."));
    } else {
        m_stepTitle->setText(tr("Ready"));
        m_instruction->setText(
            tr("Plug the car's receiver in over USB and switch the radio on, then press Start."));
    }
    m_start->setText(calibrating ? tr("Measure") : tr("Start"));
    m_start->setEnabled(!measuring);
    m_retry->setEnabled(calibrating && !measuring && canRetry);
    m_skip->setEnabled(calibrating && !measuring);
    m_cancel->setEnabled(calibrating);
}

void RadioCalibrationDialog::showChannels(int steeringUs, int steeringCrsf, int throttleUs, int throttleCrsf)
{
    const auto text = [this](int us, int crsf) { return tr("%1 µs · CRSF %2").arg(us).arg(crsf); };
    if (steeringUs > 0)
        m_steering->setValue(steeringUs, text(steeringUs, steeringCrsf));
    if (throttleUs > 0)
        m_throttle->setValue(throttleUs, text(throttleUs, throttleCrsf));
}

void RadioCalibrationDialog::showCountdown(int seconds)
{
    if (seconds > 0)
        m_countdown->setValue(QString::number(seconds), tr("s"));
    else
        m_countdown->clear();
}

void RadioCalibrationDialog::showHold(hub::Tone tone, const QString &word)
{
    m_hold->setStatus(tone, word);
}

void RadioCalibrationDialog::showResult(int step, int crsfValue)
{
    if (step < 0 || step >= m_results.size())
        return;
    if (crsfValue > 0)
        m_results[step]->setStatus(hub::Tone::Good, tr("CRSF %1").arg(crsfValue));
    else
        m_results[step]->setStatus(hub::Tone::Muted, tr("—"));
}

void RadioCalibrationDialog::showMessage(const QString &message, hub::Tone tone)
{
    m_message->setText(message);
    m_message->setTone(tone);
    m_message->setVisible(!message.isEmpty());
}

} // namespace tavrix

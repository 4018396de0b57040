#include "wheelffbdialog.h"

#include "card.h"
#include "levelbar.h"
#include "notice.h"
#include "statusrow.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QVBoxLayout>

namespace tavrix {

namespace {

// Strong enough to feel which way the wheel is pushed, weak enough not to yank it out of a
// hand that does not expect it.
constexpr double kTestPulseLevel = 0.4;
constexpr int kSliderSteps = 100;

QSlider *percentSlider(QWidget *parent)
{
    auto *slider = new QSlider(Qt::Horizontal, parent);
    slider->setRange(0, kSliderSteps);
    slider->setMinimumWidth(220);
    // One change when the handle is let go, not one per pixel: each change is saved.
    slider->setTracking(false);
    return slider;
}

} // namespace

WheelFfbDialog::WheelFfbDialog(QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Wheel force feedback"));
    setMinimumWidth(540);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(14);

    m_notice = hub::Notice::refusal(hub::Glyph::Wheel, this);
    column->addWidget(m_notice);
    column->addWidget(buildCheckCard());
    column->addWidget(buildControlCard());
    column->addStretch(1);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);

    showCheck(ForceFeedbackCheck{});
    setForceFeedbackOn(false);
    m_level->clear();
}

QWidget *WheelFfbDialog::buildCheckCard()
{
    auto *card = new hub::Card(tr("Compatibility"), this);
    card->setSubtitle(tr("What the wheel base allows; the first \"no\" is what to fix."));
    const QList<std::pair<hub::Glyph, QString>> lines = {
        {hub::Glyph::Wheel, tr("Wheel detected")},        {hub::Glyph::Sliders, tr("Force feedback capable")},
        {hub::Glyph::Link, tr("Exclusive access")},       {hub::Glyph::Wheel, tr("Steering FFB axis")},
        {hub::Glyph::Gauge, tr("Constant-force effect")},
    };
    for (const auto &[glyph, name] : lines) {
        auto *row = new hub::StatusRow(glyph, name, QString(), card);
        m_rows.append(row);
        card->body()->addWidget(row);
    }
    m_verdict = new QLabel(card);
    m_verdict->setObjectName(QStringLiteral("ffbVerdict"));
    m_verdict->setWordWrap(true);
    m_check = new QPushButton(tr("Run the check"), card);
    auto *row = new QHBoxLayout;
    row->addWidget(m_verdict, 1);
    row->addWidget(m_check);
    card->body()->addLayout(row);
    connect(m_check, &QPushButton::clicked, this, &WheelFfbDialog::checkRequested);
    return card;
}

QWidget *WheelFfbDialog::buildControlCard()
{
    auto *card = new hub::Card(tr("Feel the car"), this);
    card->setSubtitle(tr("The car's lateral and longitudinal G, bumps as a vibration."));
    m_enable = new QPushButton(card);
    m_enable->setCheckable(true);
    card->body()->addWidget(m_enable);

    auto *form = new QFormLayout;
    m_strength = percentSlider(card);
    m_centering = percentSlider(card);
    form->addRow(tr("Strength"), m_strength);
    form->addRow(tr("Centering spring"), m_centering);
    card->body()->addLayout(form);

    m_level = new hub::LevelBar(tr("Force"), -1.0, 1.0, 0.0, card);
    card->body()->addWidget(m_level);

    auto *tests = new QHBoxLayout;
    m_testLeft = new QPushButton(tr("◀ Test Left"), card);
    m_testRight = new QPushButton(tr("Test Right ▶"), card);
    tests->addWidget(m_testLeft);
    tests->addStretch(1);
    tests->addWidget(m_testRight);
    card->body()->addLayout(tests);

    connect(m_enable, &QPushButton::toggled, this, &WheelFfbDialog::enableToggled);
    connect(m_strength, &QSlider::valueChanged, this,
            [this](int value) { emit strengthChanged(double(value) / kSliderSteps); });
    connect(m_centering, &QSlider::valueChanged, this,
            [this](int value) { emit centeringChanged(double(value) / kSliderSteps); });
    connect(m_testLeft, &QPushButton::clicked, this, [this] { emit testRequested(-kTestPulseLevel); });
    connect(m_testRight, &QPushButton::clicked, this, [this] { emit testRequested(kTestPulseLevel); });
    return card;
}

QString WheelFfbDialog::verdictText() const
{
    return m_verdict->text();
}

void WheelFfbDialog::showCheck(const ForceFeedbackCheck &check)
{
    const bool answers[] = {check.detected, check.capable, check.exclusive, check.hasFfbAxis,
                            check.constantForce};
    for (int i = 0; i < m_rows.size(); ++i)
        m_rows[i]->setStatus(answers[i] ? hub::Tone::Good : hub::Tone::Muted,
                             answers[i] ? tr("Yes") : tr("No"));
    // A wheel that could not make the effect says why, for a bug report.
    const bool failedEffect = check.capable && !check.constantForce && check.errorCode != 0;
    m_rows.last()->setDetail(failedEffect ? tr("err %1").arg(check.errorCodeText()) : QString());
    m_rows.last()->setToolTip(check.diagnostic);
    setVerdict(check.verdict());
}

void WheelFfbDialog::setVerdict(ForceFeedbackCheck::Verdict verdict)
{
    m_verdict->setText(ForceFeedbackCheck::verdictText(verdict));
    const bool full = verdict == ForceFeedbackCheck::Verdict::Full;
    m_verdict->setProperty("tone", full ? QStringLiteral("good") : QStringLiteral("warning"));
    const bool usable = verdict == ForceFeedbackCheck::Verdict::Full ||
                        verdict == ForceFeedbackCheck::Verdict::PartialLimited ||
                        verdict == ForceFeedbackCheck::Verdict::PartialHeldElsewhere;
    m_testLeft->setEnabled(usable);
    m_testRight->setEnabled(usable);
}

void WheelFfbDialog::setForceFeedbackOn(bool on)
{
    const QSignalBlocker quiet(m_enable);
    m_enable->setChecked(on);
    m_enable->setText(on ? tr("FFB ON — streaming from car (click to stop)") : tr("Enable force feedback"));
}

void WheelFfbDialog::setStrength(double strength)
{
    const QSignalBlocker quiet(m_strength);
    m_strength->setValue(qRound(std::clamp(strength, 0.0, 1.0) * kSliderSteps));
}

void WheelFfbDialog::setCentering(double centering)
{
    const QSignalBlocker quiet(m_centering);
    m_centering->setValue(qRound(std::clamp(centering, 0.0, 1.0) * kSliderSteps));
}

void WheelFfbDialog::showLevel(double level)
{
    m_level->setValue(level, QString::number(level, 'f', 2));
}

void WheelFfbDialog::showError(const QString &message)
{
    m_notice->showMessage(message);
}

} // namespace tavrix

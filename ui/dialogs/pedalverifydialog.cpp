#include "pedalverifydialog.h"

#include "card.h"
#include "levelbar.h"
#include "statusrow.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrix {

namespace {

QString percent(double fraction)
{
    return QStringLiteral("%1 %").arg(qRound(fraction * 100.0));
}

} // namespace

PedalVerifyDialog::PedalVerifyDialog(double releasedLimit, double fullyPressed, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Verify pedals"));
    setMinimumWidth(520);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(12);

    auto *card = new hub::Card(tr("Press each pedal fully, then release it"), this);
    card->setSubtitle(tr("Released means at most %1 (the start refuses above it); fully pressed at least %2.")
                          .arg(percent(releasedLimit), percent(fullyPressed)));
    const QList<std::pair<Pedal, QString>> pedals = {{Pedal::Throttle, tr("Throttle")},
                                                     {Pedal::Brake, tr("Brake")}};
    for (const auto &[pedal, name] : pedals) {
        auto *bar = new hub::LevelBar(name, 0.0, 1.0, 0.0, card);
        bar->setTextWidths(72, 48);
        auto *row = new hub::StatusRow(hub::Glyph::Gauge, tr("%1 full and back").arg(name), QString(), card);
        m_bars[std::size_t(pedal)] = bar;
        m_rows[std::size_t(pedal)] = row;
        card->body()->addWidget(bar);
        card->body()->addWidget(row);
    }
    column->addWidget(card);

    auto *verdictRow = new QHBoxLayout;
    m_verdict = new QLabel(this);
    m_verdict->setObjectName(QStringLiteral("pedalVerdict"));
    m_verdict->setWordWrap(true);
    m_restart = new QPushButton(tr("Start over"), this);
    connect(m_restart, &QPushButton::clicked, this, &PedalVerifyDialog::restartRequested);
    verdictRow->addWidget(m_verdict, 1);
    verdictRow->addWidget(m_restart);
    column->addLayout(verdictRow);
    column->addStretch(1);

    m_buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(m_buttons);

    for (Pedal pedal : {Pedal::Throttle, Pedal::Brake})
        showStep(pedal, Step::PressFully);
    showVerdict(false);
    showNoPedals();
}

void PedalVerifyDialog::embed()
{
    setWindowFlags(Qt::Widget);
    m_buttons->hide();
    layout()->setContentsMargins(0, 0, 0, 0);
}

void PedalVerifyDialog::showPositions(double throttle, double brake)
{
    m_bars[std::size_t(Pedal::Throttle)]->setValue(throttle, percent(throttle));
    m_bars[std::size_t(Pedal::Brake)]->setValue(brake, percent(brake));
}

void PedalVerifyDialog::showStep(Pedal pedal, Step step)
{
    hub::StatusRow *row = m_rows[std::size_t(pedal)];
    switch (step) {
    case Step::PressFully:
        row->setStatus(hub::Tone::Muted, tr("Press fully"));
        break;
    case Step::Release:
        row->setStatus(hub::Tone::Accent, tr("Now release"));
        break;
    case Step::Done:
        row->setStatus(hub::Tone::Good, tr("Verified"));
        break;
    }
}

void PedalVerifyDialog::showVerdict(bool passed)
{
    m_passed = passed;
    m_verdict->setText(passed ? tr("Both pedals cover their travel and come back to released.")
                              : tr("Waiting for both pedals to go full and back."));
    m_verdict->setProperty("tone", passed ? QStringLiteral("good") : QStringLiteral("warning"));
}

void PedalVerifyDialog::showNoPedals()
{
    for (hub::LevelBar *bar : m_bars)
        bar->clear();
}

} // namespace tavrix

#include "shiftergearsview.h"

#include "buttonmappingeditor.h"
#include "tone.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrix {

namespace {

constexpr std::array<const char *, ShifterGearsView::kSlots> kSlotNames{
    QT_TRANSLATE_NOOP("tavrix::ShifterGearsView", "Neutral"),
    QT_TRANSLATE_NOOP("tavrix::ShifterGearsView", "Reverse"),
    QT_TRANSLATE_NOOP("tavrix::ShifterGearsView", "1st"),
    QT_TRANSLATE_NOOP("tavrix::ShifterGearsView", "2nd"),
    QT_TRANSLATE_NOOP("tavrix::ShifterGearsView", "3rd"),
    QT_TRANSLATE_NOOP("tavrix::ShifterGearsView", "4th"),
    QT_TRANSLATE_NOOP("tavrix::ShifterGearsView", "5th"),
    QT_TRANSLATE_NOOP("tavrix::ShifterGearsView", "6th"),
    QT_TRANSLATE_NOOP("tavrix::ShifterGearsView", "7th"),
};

QLabel *mutedLabel(QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(QStringLiteral("mutedText"));
    return label;
}

} // namespace

ShifterGearsView::ShifterGearsView(QWidget *parent)
    : QWidget(parent)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(12, 12, 12, 12);
    column->setSpacing(8);

    auto *engaged = new QHBoxLayout;
    engaged->addWidget(new QLabel(tr("Engaged now:"), this));
    m_engaged = new QLabel(this);
    QFont bold = m_engaged->font();
    bold.setBold(true);
    m_engaged->setFont(bold);
    engaged->addWidget(m_engaged, 1);
    column->addLayout(engaged);
    QLabel *explanation = mutedLabel(this);
    explanation->setWordWrap(true);
    explanation->setText(tr("Detect waits for you to engage that gear on the shifter and assigns it. "
                            "Without gears the shifter always reads neutral."));
    column->addWidget(explanation);

    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(2, 1);
    for (int slot = 0; slot < kSlots; ++slot) {
        Row &row = m_rows[std::size_t(slot)];
        row.input = new QLabel(this);
        row.status = mutedLabel(this);
        row.detect = new QPushButton(tr("Detect"), this);
        row.clear = new QPushButton(tr("Clear"), this);
        connect(row.detect, &QPushButton::clicked, this, [this, slot] { emit detectRequested(slot); });
        connect(row.clear, &QPushButton::clicked, this, [this, slot] { emit clearRequested(slot); });
        grid->addWidget(new QLabel(slotName(slot), this), slot, 0);
        grid->addWidget(row.input, slot, 1);
        grid->addWidget(row.status, slot, 2);
        grid->addWidget(row.detect, slot, 3);
        grid->addWidget(row.clear, slot, 4);
    }
    column->addLayout(grid);
    column->addStretch(1);
    showInputs({-1, -1, -1, -1, -1, -1, -1, -1, -1});
}

QString ShifterGearsView::slotName(int slot)
{
    return slot >= 0 && slot < kSlots ? tr(kSlotNames[std::size_t(slot)]) : QString();
}

void ShifterGearsView::showInputs(const std::array<int, kSlots> &inputs)
{
    for (int slot = 0; slot < kSlots; ++slot) {
        const int input = inputs[std::size_t(slot)];
        m_rows[std::size_t(slot)].input->setText(ButtonMappingEditor::sourceName(input));
        m_rows[std::size_t(slot)].clear->setEnabled(input >= 0);
    }
}

void ShifterGearsView::showEngaged(int slot)
{
    m_engaged->setText(slotName(slot));
}

void ShifterGearsView::showEngagedUnavailable(const QString &reason)
{
    m_engaged->setText(reason);
}

void ShifterGearsView::showWaiting(int slot)
{
    if (m_waiting >= 0 && m_waiting != slot)
        showStatus(m_waiting, QString(), false);
    m_waiting = slot;
    showStatus(slot, tr("Engage this gear now\u2026"), false);
}

void ShifterGearsView::showDetected(int slot, bool success)
{
    if (slot == m_waiting)
        m_waiting = -1;
    showStatus(slot, success ? tr("Detected") : tr("No gear engaged in time"), !success);
}

void ShifterGearsView::showRefusal(int slot, const QString &reason)
{
    showStatus(slot, reason, !reason.isEmpty());
}

void ShifterGearsView::showStatus(int slot, const QString &text, bool failed)
{
    QLabel *status = m_rows[std::size_t(slot)].status;
    status->setText(text);
    hub::setStyleProperty(status, "tone", failed ? hub::toneName(hub::Tone::Danger) : QString());
}

} // namespace tavrix

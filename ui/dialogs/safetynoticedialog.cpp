#include "safetynoticedialog.h"

#include "card.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrix {

SafetyNoticeDialog::SafetyNoticeDialog(QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Before the car moves"));
    setMinimumWidth(560);
    // Nothing else in the window may start the car while the question is open.
    setModal(true);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(12);
    column->addWidget(createNotice(this));
    column->addStretch(1);

    auto *buttons = new QDialogButtonBox(this);
    m_understood = buttons->addButton(tr("I understand"), QDialogButtonBox::AcceptRole);
    m_cancel = buttons->addButton(QDialogButtonBox::Cancel);
    // Cancel is the default: Enter out of habit must not start a car.
    m_cancel->setDefault(true);
    m_understood->setAutoDefault(false);
    m_cancel->setFocus();
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
}

hub::Card *SafetyNoticeDialog::createNotice(QWidget *parent)
{
    auto *card = new hub::Card(tr("Transmission drives a real car"), parent);
    card->setSubtitle(tr("From the first frame the car follows your wheel and pedals."));
    const QStringList points = {
        tr("Put the car on a stand with its wheels off the ground."),
        tr("Keep a hand near the car's power switch."),
        tr("Stop transmission in the HUB, or switch off the transmitter, to stop the car."),
    };
    for (const QString &point : points) {
        auto *label = new QLabel(QStringLiteral("\u2022  ") + point, card);
        label->setWordWrap(true);
        card->body()->addWidget(label);
    }
    return card;
}

} // namespace tavrix

#include "safetynoticedialog.h"

#include "card.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrix {

namespace {

struct NoticeText
{
    QString windowTitle;
    QString title;
    QString subtitle;
    QStringList points;
};

NoticeText noticeText(hub::SafetyNotice notice)
{
    if (notice == hub::SafetyNotice::Helicopter) {
        return {
            SafetyNoticeDialog::tr("Before the rotors turn"),
            SafetyNoticeDialog::tr("Transmission flies a real helicopter"),
            SafetyNoticeDialog::tr("Once armed, the motor follows your collective."),
            {
                SafetyNoticeDialog::tr("For the first start, take the rotor blades off or tie the helicopter "
                                       "down."),
                SafetyNoticeDialog::tr("Keep everyone clear of the rotor disc and a hand near the "
                                       "helicopter's power switch."),
                SafetyNoticeDialog::tr("Disarm, stop transmission in the HUB, or switch off the transmitter, "
                                       "to stop the motor."),
            },
        };
    }
    return {
        SafetyNoticeDialog::tr("Before the car moves"),
        SafetyNoticeDialog::tr("Transmission drives a real car"),
        SafetyNoticeDialog::tr("From the first frame the car follows your wheel and pedals."),
        {
            SafetyNoticeDialog::tr("Put the car on a stand with its wheels off the ground."),
            SafetyNoticeDialog::tr("Keep a hand near the car's power switch."),
            SafetyNoticeDialog::tr("Stop transmission in the HUB, or switch off the transmitter, to stop the "
                                   "car."),
        },
    };
}

} // namespace

SafetyNoticeDialog::SafetyNoticeDialog(hub::SafetyNotice notice, QWidget *parent)
    : QDialog(parent)
    , m_notice(notice)
{
    setWindowTitle(noticeText(notice).windowTitle);
    setMinimumWidth(560);
    // Nothing else in the window may start the car while the question is open.
    setModal(true);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(12);
    column->addWidget(createNotice(notice, this));
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

hub::Card *SafetyNoticeDialog::createNotice(hub::SafetyNotice notice, QWidget *parent)
{
    const NoticeText text = noticeText(notice);
    auto *card = new hub::Card(text.title, parent);
    card->setSubtitle(text.subtitle);
    for (const QString &point : text.points) {
        auto *label = new QLabel(QStringLiteral("\u2022  ") + point, card);
        label->setWordWrap(true);
        card->body()->addWidget(label);
    }
    return card;
}

} // namespace tavrix

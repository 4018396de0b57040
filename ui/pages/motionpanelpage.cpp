#include "motionpanelpage.h"

#include "card.h"
#include "emptystate.h"
#include "notice.h"
#include "pageheader.h"
#include "stattile.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace tavrix {

MotionPanelPage::MotionPanelPage(QWidget *parent)
    : hub::Page(tr("Motion platform"), QString(), parent)
{
    header()->setBackLink(tr("Motion"));
    connect(header(), &hub::PageHeader::backRequested, this, &MotionPanelPage::backRequested);

    content()->addWidget(new hub::Notice(
        hub::Glyph::Info,
        tr("Motion platforms come in a later version of the HUB. This page shows no live controls."), this));

    auto *row = new QHBoxLayout;
    row->setSpacing(kGap);
    auto *platform = new hub::Card(tr("Platform"), this);
    auto *tiles = new QHBoxLayout;
    tiles->setSpacing(8);
    m_dofTile = new hub::StatTile(tr("Degrees of freedom"), platform);
    m_actuatorsTile = new hub::StatTile(tr("Actuators"), platform);
    tiles->addWidget(m_dofTile);
    tiles->addWidget(m_actuatorsTile);
    platform->body()->addLayout(tiles);
    m_axes = new QLabel(platform);
    m_axes->setObjectName(QStringLiteral("mutedText"));
    m_axes->setWordWrap(true);
    platform->body()->addWidget(m_axes);
    platform->body()->addStretch(1);

    auto *controller = new hub::Card(tr("Motion controller"), this);
    m_controller =
        new hub::EmptyState(hub::Glyph::Motion, tr("Not available yet"),
                            tr("Connecting the USB motion controller, testing the actuators and the "
                               "phone web panel come with motion platform support."),
                            controller);
    controller->body()->addWidget(m_controller);
    row->addWidget(platform, 1);
    row->addWidget(controller, 1);
    content()->addLayout(row);
    content()->addStretch(1);
    setPlatform(2);
}

void MotionPanelPage::setPlatform(int degreesOfFreedom)
{
    m_dof = degreesOfFreedom;
    header()->setTitle(tr("%1DOF motion platform").arg(degreesOfFreedom));
    header()->setSubtitle(tr("What this platform will do once motion support arrives."));
    m_dofTile->setValue(QString::number(degreesOfFreedom));
    m_actuatorsTile->setValue(QString::number(degreesOfFreedom));
    switch (degreesOfFreedom) {
    case 2:
        m_axes->setText(tr("Moves the seat in pitch and roll."));
        break;
    case 3:
        m_axes->setText(tr("Moves the seat in pitch, roll and heave."));
        break;
    default:
        m_axes->setText(tr("Moves the seat in pitch, roll, heave, surge and sway."));
        break;
    }
}

} // namespace tavrix

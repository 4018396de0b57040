#include "motionchooserpage.h"

#include "choicetile.h"
#include "notice.h"

#include <QGridLayout>
#include <QVBoxLayout>

namespace tavrix {

MotionChooserPage::MotionChooserPage(QWidget *parent)
    : hub::Page(tr("Motion"), tr("Motion platforms that move your seat with the car."), parent)
{
    m_refusal = hub::Notice::refusal(hub::Glyph::Info, this);
    content()->addWidget(m_refusal);

    const QStringList descriptions = {
        tr("Two actuators for pitch and roll. A compact start for a seat or a cockpit."),
        tr("Four lifting actuators for pitch, roll and heave."),
        tr("Six actuators for full rigs: pitch, roll and heave, with yaw and surge."),
    };
    auto *grid = new QGridLayout;
    grid->setSpacing(kGap);
    const QList<int> dofs = platforms();
    for (int i = 0; i < dofs.size(); ++i) {
        auto *tile =
            new hub::ChoiceTile(hub::Glyph::Motion, tr("%1DOF").arg(dofs.at(i)), descriptions.at(i), this);
        grid->addWidget(tile, 0, i);
        m_tiles.append(tile);
        const int dof = dofs.at(i);
        connect(tile, &QAbstractButton::clicked, this, [this, dof] { emit platformChosen(dof); });
    }
    content()->addLayout(grid);
    content()->addStretch(1);
}

hub::ChoiceTile *MotionChooserPage::tile(int degreesOfFreedom) const
{
    return m_tiles.value(platforms().indexOf(degreesOfFreedom));
}

void MotionChooserPage::setCurrentPlatform(int degreesOfFreedom)
{
    const QList<int> dofs = platforms();
    for (int i = 0; i < dofs.size(); ++i)
        m_tiles.at(i)->setBadge(dofs.at(i) == degreesOfFreedom ? tr("Current") : QString());
}

void MotionChooserPage::showRefusal(const QString &message)
{
    m_refusal->showMessage(message);
}

QString MotionChooserPage::refusal() const
{
    return m_refusal->isHidden() ? QString() : m_refusal->text();
}

} // namespace tavrix

#include "motionchooserpage.h"

#include "choicetile.h"
#include "notice.h"

#include <QGridLayout>
#include <QVBoxLayout>

namespace tavrix {

MotionChooserPage::MotionChooserPage(QWidget *parent)
    : hub::Page(tr("Motion"), tr("Motion platforms that move your seat with the car."), parent)
{
    content()->addWidget(new hub::Notice(
        hub::Glyph::Info,
        tr("Motion platforms come in a later version of the HUB. You can look at the platforms here; "
           "none of them can be connected or driven yet."),
        this));

    const QStringList descriptions = {
        tr("Two actuators for pitch and roll. A compact start for a seat or a cockpit."),
        tr("Three actuators for pitch, roll and heave."),
        tr("Five axes for full rigs: pitch, roll, heave, surge and sway."),
    };
    auto *grid = new QGridLayout;
    grid->setSpacing(kGap);
    const QList<int> dofs = platforms();
    for (int i = 0; i < dofs.size(); ++i) {
        auto *tile =
            new hub::ChoiceTile(hub::Glyph::Motion, tr("%1DOF").arg(dofs.at(i)), descriptions.at(i), this);
        tile->setBadge(tr("Later version"));
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

} // namespace tavrix

#pragma once

#include "page.h"

namespace hub {
class ChoiceTile;
}

namespace tavrix {

// The "motion-chooser" page: the 2DOF, 3DOF and 5DOF platforms. Motion platforms are not
// driven by this version; the page says so and the choice only opens the platform's page.
class MotionChooserPage : public hub::Page
{
    Q_OBJECT
public:
    explicit MotionChooserPage(QWidget *parent = nullptr);

    hub::ChoiceTile *tile(int degreesOfFreedom) const;
    static QList<int> platforms() { return {2, 3, 5}; }

signals:
    void platformChosen(int degreesOfFreedom);

private:
    QList<hub::ChoiceTile *> m_tiles;
};

} // namespace tavrix

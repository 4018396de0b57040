#pragma once

#include "page.h"

namespace hub {
class ChoiceTile;
class Notice;
} // namespace hub

namespace tavrix {

// The "motion-chooser" page: the 2DOF, 3DOF and 5DOF platforms, the current one marked. A
// choice is only asked for; the owner decides and shows a refusal here.
class MotionChooserPage : public hub::Page
{
    Q_OBJECT
public:
    explicit MotionChooserPage(QWidget *parent = nullptr);

    hub::ChoiceTile *tile(int degreesOfFreedom) const;
    static QList<int> platforms() { return {2, 3, 5}; }

    void setCurrentPlatform(int degreesOfFreedom);
    // Why the last choice was refused; an empty text hides it.
    void showRefusal(const QString &message);
    QString refusal() const;

signals:
    void platformChosen(int degreesOfFreedom);

private:
    QList<hub::ChoiceTile *> m_tiles;
    hub::Notice *m_refusal = nullptr;
};

} // namespace tavrix

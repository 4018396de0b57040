#pragma once

#include "page.h"

class QLabel;

namespace hub {
class EmptyState;
class StatTile;
} // namespace hub

namespace tavrix {

// The "motion-panel" page for one platform. This version has no motion controller: the page
// shows the platform's figures and says plainly that driving it comes later.
class MotionPanelPage : public hub::Page
{
    Q_OBJECT
public:
    explicit MotionPanelPage(QWidget *parent = nullptr);

    void setPlatform(int degreesOfFreedom);
    int platform() const { return m_dof; }

signals:
    void backRequested();

private:
    hub::StatTile *m_dofTile = nullptr;
    hub::StatTile *m_actuatorsTile = nullptr;
    QLabel *m_axes = nullptr;
    hub::EmptyState *m_controller = nullptr;
    int m_dof = 0;
};

} // namespace tavrix

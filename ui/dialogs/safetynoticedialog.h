#pragma once

#include "shellsettings.h"

#include <QDialog>

class QPushButton;

namespace hub {
class Card;
}

namespace tavrix {

// The "disclaimer" dialog: what to make sure of before a vehicle's first start (a car's
// wheels off the ground, a helicopter's blades off or tied down, a hand near the switch) and
// what stops it, answered with "I understand" (accept) or "Cancel" (reject). It only
// presents; whoever opens it decides what follows.
class SafetyNoticeDialog : public QDialog
{
    Q_OBJECT
public:
    explicit SafetyNoticeDialog(hub::SafetyNotice notice, QWidget *parent = nullptr);

    // The notice itself, for a place that shows it outside this dialog (the setup guide).
    static hub::Card *createNotice(hub::SafetyNotice notice, QWidget *parent);

    [[nodiscard]] hub::SafetyNotice notice() const { return m_notice; }
    QPushButton *understoodButton() const { return m_understood; }
    QPushButton *cancelButton() const { return m_cancel; }

private:
    hub::SafetyNotice m_notice;
    QPushButton *m_understood = nullptr;
    QPushButton *m_cancel = nullptr;
};

} // namespace tavrix

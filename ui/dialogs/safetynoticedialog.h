#pragma once

#include <QDialog>

class QPushButton;

namespace hub {
class Card;
}

namespace tavrix {

// The "disclaimer" dialog: what to make sure of before the car's first start (wheels off
// the ground, a hand near the car's switch) and what stops it, answered with "I understand"
// (accept) or "Cancel" (reject). It only presents; whoever opens it decides what follows.
class SafetyNoticeDialog : public QDialog
{
    Q_OBJECT
public:
    explicit SafetyNoticeDialog(QWidget *parent = nullptr);

    // The notice itself, for a place that shows it outside this dialog (the setup guide).
    static hub::Card *createNotice(QWidget *parent);

    QPushButton *understoodButton() const { return m_understood; }
    QPushButton *cancelButton() const { return m_cancel; }

private:
    QPushButton *m_understood = nullptr;
    QPushButton *m_cancel = nullptr;
};

} // namespace tavrix

#pragma once

#include <QWidget>

#include <array>

class QLabel;
class QPushButton;

namespace tavrix {

// Which shifter input selects each gear: one row per gear slot with the assigned input, a
// line saying how the last detection went, Detect and Clear, and the gear the shifter
// reports now. It presents only; the owner runs the detection and stores the mapping.
class ShifterGearsView : public QWidget
{
    Q_OBJECT
public:
    // In the stored order: neutral, reverse, then gears 1 to 7.
    static constexpr int kSlots = 9;

    explicit ShifterGearsView(QWidget *parent = nullptr);

    // "Neutral", "Reverse", "1st" .. "7th".
    [[nodiscard]] static QString slotName(int slot);

    QPushButton *detectButton(int slot) const { return m_rows.at(std::size_t(slot)).detect; }
    QPushButton *clearButton(int slot) const { return m_rows.at(std::size_t(slot)).clear; }
    QLabel *inputLabel(int slot) const { return m_rows.at(std::size_t(slot)).input; }
    QLabel *statusLabel(int slot) const { return m_rows.at(std::size_t(slot)).status; }
    QLabel *engagedLabel() const { return m_engaged; }

public slots:
    // The unified input index assigned to each slot, -1 for none.
    void showInputs(const std::array<int, tavrix::ShifterGearsView::kSlots> &inputs);
    // The slot of the gear the shifter reports now.
    void showEngaged(int slot);
    // No gear can be read (why, e.g. no shifter connected).
    void showEngagedUnavailable(const QString &reason);
    // A detection now waits for this slot's gear; a wait shown on another row has ended.
    void showWaiting(int slot);
    // The detection of that slot ended: assigned, or nothing engaged in time (or cancelled).
    void showDetected(int slot, bool success);
    // A detection of that slot could not start, or its Clear was refused, for this reason;
    // empty clears the row's line.
    void showRefusal(int slot, const QString &reason);

signals:
    void detectRequested(int slot);
    void clearRequested(int slot);

private:
    struct Row
    {
        QLabel *input = nullptr;
        QLabel *status = nullptr;
        QPushButton *detect = nullptr;
        QPushButton *clear = nullptr;
    };
    void showStatus(int slot, const QString &text, bool failed);

    std::array<Row, kSlots> m_rows{};
    QLabel *m_engaged = nullptr;
    int m_waiting = -1;
};

} // namespace tavrix

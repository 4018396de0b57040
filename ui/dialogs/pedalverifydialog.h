#pragma once

#include <QDialog>

#include <array>

class QDialogButtonBox;
class QLabel;
class QPushButton;

namespace hub {
class LevelBar;
class StatusRow;
} // namespace hub

namespace tavrix {

// The "pedal-verify" dialog: press each pedal fully and let it go, watching its position
// against the two thresholds the start reads pedals by. It presents only; the owner judges
// the pedals and feeds positions, steps and the verdict back through the slots.
class PedalVerifyDialog : public QDialog
{
    Q_OBJECT
public:
    enum class Pedal
    {
        Throttle,
        Brake
    };
    enum class Step
    {
        PressFully,
        Release,
        Done
    };

    // Both as fractions of the travel: at most releasedLimit counts as released, at
    // least fullyPressed as pressed fully.
    PedalVerifyDialog(double releasedLimit, double fullyPressed, QWidget *parent = nullptr);

    hub::LevelBar *bar(Pedal pedal) const { return m_bars.at(std::size_t(pedal)); }
    hub::StatusRow *stepRow(Pedal pedal) const { return m_rows.at(std::size_t(pedal)); }
    QPushButton *restartButton() const { return m_restart; }
    [[nodiscard]] bool showsPassed() const { return m_passed; }
    // Shown as one step of another dialog: a plain child widget without its own Close.
    void embed();

public slots:
    void showPositions(double throttle, double brake);
    void showStep(tavrix::PedalVerifyDialog::Pedal pedal, tavrix::PedalVerifyDialog::Step step);
    void showVerdict(bool passed);
    // No pedals can be read (no wheel base or pedals connected).
    void showNoPedals();

signals:
    void restartRequested();

private:
    std::array<hub::LevelBar *, 2> m_bars{};
    std::array<hub::StatusRow *, 2> m_rows{};
    QLabel *m_verdict = nullptr;
    QPushButton *m_restart = nullptr;
    QDialogButtonBox *m_buttons = nullptr;
    bool m_passed = false;
};

} // namespace tavrix

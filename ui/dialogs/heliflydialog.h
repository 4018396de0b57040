#pragma once

#include "helisettingsdialog.h"

#include <array>

namespace tavrix {

// The "heli-fly" dialog: the three rate modes, the one in use, and which way the reported
// attitude is shown.
class HeliFlyDialog : public HeliSettingsDialog
{
    Q_OBJECT
public:
    static constexpr int kRateModes = 3;
    struct Values
    {
        bool ratesEnabled = true;
        std::array<int, kRateModes> ratePercent{60, 80, 100};
        int rateMode = 0;
        bool invertPitch = false;
        bool invertRoll = false;
        bool invertYaw = false;
    };

    explicit HeliFlyDialog(const Limits &limits, QWidget *parent = nullptr);

    [[nodiscard]] Values values() const;
    QCheckBox *ratesBox() const { return m_rates; }
    QSpinBox *ratePercentBox(int mode) const { return m_percent.at(std::size_t(mode)); }
    QComboBox *rateModeBox() const { return m_mode; }
    QCheckBox *invertPitchBox() const { return m_invertPitch; }
    QCheckBox *invertRollBox() const { return m_invertRoll; }
    QCheckBox *invertYawBox() const { return m_invertYaw; }

public slots:
    // Shows the stored values without echoing them back as an edit.
    void showValues(const tavrix::HeliFlyDialog::Values &values);

signals:
    // Every edit but the rate mode, which is chosen on its own.
    void edited(const tavrix::HeliFlyDialog::Values &values);
    void rateModeChosen(int mode);

protected:
    void userEdited() override;

private:
    QCheckBox *m_rates = nullptr;
    std::array<QSpinBox *, kRateModes> m_percent{};
    QComboBox *m_mode = nullptr;
    QCheckBox *m_invertPitch = nullptr;
    QCheckBox *m_invertRoll = nullptr;
    QCheckBox *m_invertYaw = nullptr;
};

} // namespace tavrix

#pragma once

#include "helisettingsdialog.h"

namespace tavrix {

// The "heli-arming" dialog: the arm switch and its channel values, the idle condition for
// arming, the collective's soft start, and what spike protection does.
class HeliArmingDialog : public HeliSettingsDialog
{
    Q_OBJECT
public:
    struct Values
    {
        bool armSwitch = false;
        int armChannel = 4;
        int armedMicros = 2012;
        int safeMicros = 988;
        bool armAtIdle = true;
        bool softStart = false;
        int softStartSec = 3;
    };

    explicit HeliArmingDialog(const Limits &limits, QWidget *parent = nullptr);

    [[nodiscard]] Values values() const;
    QCheckBox *armSwitchBox() const { return m_armSwitch; }
    QComboBox *armChannelBox() const { return m_armChannel; }
    QSpinBox *armedMicrosBox() const { return m_armed; }
    QSpinBox *safeMicrosBox() const { return m_safe; }
    QCheckBox *armAtIdleBox() const { return m_armAtIdle; }
    QCheckBox *softStartBox() const { return m_softStart; }
    QSpinBox *softStartSecondsBox() const { return m_softStartSec; }

public slots:
    // Shows the stored values without echoing them back as an edit.
    void showValues(const tavrix::HeliArmingDialog::Values &values);

signals:
    void edited(const tavrix::HeliArmingDialog::Values &values);

protected:
    void userEdited() override;

private:
    QWidget *buildArmCard();
    QWidget *buildSafetyCard();
    void updateEnabled();

    QCheckBox *m_armSwitch = nullptr;
    QComboBox *m_armChannel = nullptr;
    QSpinBox *m_armed = nullptr;
    QSpinBox *m_safe = nullptr;
    QCheckBox *m_armAtIdle = nullptr;
    QCheckBox *m_softStart = nullptr;
    QSpinBox *m_softStartSec = nullptr;
};

} // namespace tavrix

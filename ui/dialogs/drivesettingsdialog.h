#pragma once

#include <QDialog>

#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;
class QTabWidget;
class QVBoxLayout;

namespace hub {
class Notice;
} // namespace hub

namespace tavrix {

class ShifterGearsView;

// The "drive" dialog: the ESC mode and its preset, soft start, reverse, the per-gear limits,
// the pit limiter, smooth deceleration and the two throttle protections, each with a line
// saying what it does, the steering end points tried on the car before they are saved, and
// which shifter input selects each gear.
// It presents only; the owner stores every edit and shows back what the store kept.
class DriveSettingsDialog : public QDialog
{
    Q_OBJECT
public:
    static constexpr int kGears = 7;
    enum class EscMode
    {
        Standard = 0,
        Custom = 2
    };
    // The owner's clamps, so the boxes never offer what the store would cut.
    struct Limits
    {
        int channelMin = 0;
        int channelMax = 2047;
        int decelRateMax = 100;
        int softStartSecondsMax = 120;
        int buttonIndexMax = 0;
    };
    struct Values
    {
        EscMode escMode = EscMode::Standard;
        int escNeutral = 992;
        int escFullForward = 1811;
        int escFullReverse = 172;
        bool softStartEnabled = true;
        int softStartDurationSec = 30;
        int softStartFloorPercent = 10;
        bool reverseEnabled = false;
        int reverseButtonIndex = -1;
        int reverseMaxPercent = 100;
        bool gearLimitEnabled = false;
        std::array<int, kGears> gearLimitPercent{100, 100, 100, 100, 100, 100, 100};
        bool pitLimiterEnabled = false;
        int pitLimiterValue = 1200;
        bool smoothDeceleration = false;
        int decelRate = 20;
        bool spikeRejection = true;
        bool stuckThrottleDetection = true;
    };
    struct EscPresetEntry
    {
        QString id;
        QString name;
    };
    // The steering end points: CH1 at full left, centre and full right.
    struct Trim
    {
        int left = 0;
        int center = 1024;
        int right = 2047;
    };

    explicit DriveSettingsDialog(const Limits &limits, QWidget *parent = nullptr);

    [[nodiscard]] Values values() const;
    [[nodiscard]] Trim trim() const;
    QTabWidget *tabs() const { return m_tabs; }
    QComboBox *escModeBox() const { return m_escMode; }
    QComboBox *escPresetBox() const { return m_escPreset; }
    QPushButton *managePresetsButton() const { return m_managePresets; }
    QSpinBox *escNeutralBox() const { return m_escNeutral; }
    QCheckBox *softStartBox() const { return m_softStart; }
    QSpinBox *softStartSecondsBox() const { return m_softStartSeconds; }
    QCheckBox *reverseBox() const { return m_reverse; }
    QSpinBox *reverseMaxBox() const { return m_reverseMax; }
    QCheckBox *gearLimitBox() const { return m_gearLimit; }
    QSpinBox *gearLimitPercentBox(int gear) const { return m_gearPercent.at(std::size_t(gear)); }
    QCheckBox *pitLimiterBox() const { return m_pitLimiter; }
    QSpinBox *pitLimiterValueBox() const { return m_pitValue; }
    QCheckBox *smoothDecelerationBox() const { return m_smooth; }
    QSpinBox *decelRateBox() const { return m_decelRate; }
    QCheckBox *spikeRejectionBox() const { return m_spike; }
    QCheckBox *stuckThrottleBox() const { return m_stuck; }
    QSpinBox *steeringLeftBox() const { return m_steeringLeft; }
    QSpinBox *steeringCenterBox() const { return m_steeringCenter; }
    QSpinBox *steeringRightBox() const { return m_steeringRight; }
    QPushButton *saveTrimButton() const { return m_saveTrim; }
    QPushButton *revertTrimButton() const { return m_revertTrim; }
    ShifterGearsView *gearsView() const { return m_gears; }
    QLabel *gearLimitWarning() const { return m_gearLimitWarning; }
    hub::Notice *notice() const { return m_notice; }

public slots:
    // Shows the stored values without echoing them back as an edit.
    void showValues(const tavrix::DriveSettingsDialog::Values &values);
    // The saved ESC presets; selected names the one the profile uses (empty: none).
    void showEscPresets(const QList<tavrix::DriveSettingsDialog::EscPresetEntry> &presets,
                        const QString &selected);
    // The end points in force, without echoing them back as an edit; Save and Revert are
    // offered while they differ from the saved ones.
    void showTrim(const tavrix::DriveSettingsDialog::Trim &trim, bool unsaved);
    // Empty hides the notice.
    void showError(const QString &message);
    // Whether the shifter has an input for any forward gear: per-gear limits without one
    // keep the throttle at neutral, which the Limits tab then warns about.
    void showForwardGearMapped(bool mapped);

signals:
    void edited(const tavrix::DriveSettingsDialog::Values &values);
    void escPresetChosen(const QString &presetId);
    // The user wants to save, rename, update or delete ESC presets.
    void escPresetsRequested();
    // An end point changed: to be tried on the car at once, not saved.
    void trimEdited(const tavrix::DriveSettingsDialog::Trim &trim);
    void trimSaveRequested(const tavrix::DriveSettingsDialog::Trim &trim);
    // The saved end points are to be put back.
    void trimRevertRequested();

private:
    QWidget *buildEscPage(const Limits &limits);
    QWidget *buildSafetyPage(const Limits &limits);
    QWidget *buildLimitsPage(const Limits &limits);
    QWidget *buildSteeringPage(const Limits &limits);
    QSpinBox *spinBox(int minimum, int maximum, QWidget *parent);
    QCheckBox *checkBox(const QString &text, QWidget *parent);
    // An end point's box: each change is a trimEdited(), not an edited().
    QSpinBox *trimBox(const Limits &limits, QWidget *parent);
    void emitEdited();
    void updateEnabled();

    QTabWidget *m_tabs = nullptr;
    QComboBox *m_escMode = nullptr;
    QComboBox *m_escPreset = nullptr;
    QPushButton *m_managePresets = nullptr;
    QSpinBox *m_escNeutral = nullptr;
    QSpinBox *m_escForward = nullptr;
    QSpinBox *m_escReverse = nullptr;
    QCheckBox *m_softStart = nullptr;
    QSpinBox *m_softStartSeconds = nullptr;
    QSpinBox *m_softStartFloor = nullptr;
    QCheckBox *m_reverse = nullptr;
    QSpinBox *m_reverseButton = nullptr;
    QSpinBox *m_reverseMax = nullptr;
    QCheckBox *m_gearLimit = nullptr;
    std::array<QSpinBox *, kGears> m_gearPercent{};
    QCheckBox *m_pitLimiter = nullptr;
    QSpinBox *m_pitValue = nullptr;
    QCheckBox *m_smooth = nullptr;
    QSpinBox *m_decelRate = nullptr;
    QCheckBox *m_spike = nullptr;
    QCheckBox *m_stuck = nullptr;
    QSpinBox *m_steeringLeft = nullptr;
    QSpinBox *m_steeringCenter = nullptr;
    QSpinBox *m_steeringRight = nullptr;
    QPushButton *m_saveTrim = nullptr;
    QPushButton *m_revertTrim = nullptr;
    hub::Notice *m_notice = nullptr;
    QLabel *m_gearLimitWarning = nullptr;
    ShifterGearsView *m_gears = nullptr;
    bool m_forwardGearMapped = true;
    // The editors that showValues() fills; their signals are held while it does.
    QList<QWidget *> m_inputs;
};

} // namespace tavrix

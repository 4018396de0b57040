#pragma once

#include "axiseditor.h"

#include <QDialog>

#include <array>

class QCheckBox;
class QComboBox;
class QPushButton;
class QTabWidget;

namespace hub {
class Notice;
} // namespace hub

namespace tavrix {

// The "axis" dialog: one editor per driving input (steering, throttle, brake, clutch) and
// the axis presets of the wheel base and the pedals with their combined-pedal split. It
// presents only; the owner stores the edits and feeds the stored values and the live
// controls back through the slots.
class AxisSettingsDialog : public QDialog
{
    Q_OBJECT
public:
    // The inputs in the profile's order; the first is the steering.
    static constexpr int kInputCount = 4;
    enum class MappedDevice
    {
        WheelBase,
        Pedals
    };

    // presetNames: the presets offered for the wheel base and the pedals.
    AxisSettingsDialog(const AxisEditor::Limits &limits, const QStringList &presetNames,
                       QWidget *parent = nullptr);

    AxisEditor *editor(int input) const { return m_editors.at(std::size_t(input)); }
    QTabWidget *tabs() const { return m_tabs; }
    QComboBox *presetBox(MappedDevice device) const { return m_rows.at(std::size_t(device)).preset; }
    QCheckBox *combinedBox(MappedDevice device) const { return m_rows.at(std::size_t(device)).combined; }
    QPushButton *customButton(MappedDevice device) const { return m_rows.at(std::size_t(device)).custom; }
    QPushButton *verifyPedalsButton() const { return m_verifyPedals; }
    hub::Notice *notice() const { return m_notice; }

public slots:
    // presetName empty: a mapping made by hand. A device not connected cannot be mapped.
    void showMapping(tavrix::AxisSettingsDialog::MappedDevice device, bool connected,
                     const QString &presetName, bool combinedPedals);
    // Refused while transmitting: a mapping swapped under a running car could hand the throttle to another
    // axis.
    void setMappingEditable(bool editable);
    // Empty hides the notice.
    void showError(const QString &message);

signals:
    void axisEdited(int input, const tavrix::AxisEditor::Values &values);
    void captureRequested(int input, tavrix::AxisEditor::CalibrationPoint point);
    void presetChosen(tavrix::AxisSettingsDialog::MappedDevice device, const QString &presetName);
    void combinedPedalsToggled(tavrix::AxisSettingsDialog::MappedDevice device, bool combined);
    // The user wants to choose the device's axes one by one.
    void customMappingRequested(tavrix::AxisSettingsDialog::MappedDevice device);
    void pedalVerifyRequested();

private:
    struct MappingRow
    {
        QComboBox *preset = nullptr;
        QCheckBox *combined = nullptr;
        QPushButton *custom = nullptr;
        bool connected = false;
    };

    QWidget *buildMappingCard(const QStringList &presetNames);
    void enableRow(const MappingRow &row);

    QTabWidget *m_tabs = nullptr;
    std::array<AxisEditor *, kInputCount> m_editors{};
    std::array<MappingRow, 2> m_rows{};
    QPushButton *m_verifyPedals = nullptr;
    hub::Notice *m_notice = nullptr;
    bool m_mappingEditable = true;
};

} // namespace tavrix

#pragma once

#include <QDialog>

#include <array>

class QCheckBox;
class QComboBox;
class QPushButton;

namespace hub {
class Notice;
} // namespace hub

namespace tavrix {

// Which axis of one device (the wheel base or the pedals) feeds each driving input, for a
// device no preset fits: per input an axis chosen from the list or by moving the control,
// and whether it reads the other way round. It presents only; the owner stores each edit
// and shows back what the device now uses.
class AxisMappingDialog : public QDialog
{
    Q_OBJECT
public:
    // The inputs in the profile's order; the first is the steering.
    static constexpr int kInputCount = 4;
    static constexpr int kNoAxis = -1;
    struct Values
    {
        // An axis slot (0-based) per input, or kNoAxis.
        std::array<int, kInputCount> axes{0, 1, 2, 3};
        std::array<bool, kInputCount> inverted{};

        friend bool operator==(const Values &, const Values &) = default;
    };

    // axisSlots: how many axes a device can offer.
    AxisMappingDialog(const QString &deviceName, int axisSlots, QWidget *parent = nullptr);

    [[nodiscard]] Values values() const;
    QComboBox *axisBox(int input) const { return m_rows.at(std::size_t(input)).axis; }
    QCheckBox *invertedBox(int input) const { return m_rows.at(std::size_t(input)).inverted; }
    QPushButton *detectButton(int input) const { return m_rows.at(std::size_t(input)).detect; }
    hub::Notice *notice() const { return m_notice; }
    // The input waiting for its control to move, -1 for none.
    [[nodiscard]] int detecting() const { return m_detecting; }

public slots:
    // Shows the device's mapping without echoing it back as an edit.
    void showValues(const tavrix::AxisMappingDialog::Values &values);
    // While one input waits for a move, the others cannot be edited.
    void showDetecting(int input);
    // Not editable while transmitting: the throttle could pass to another axis under a running car.
    void setEditable(bool editable);
    // Empty hides the notice.
    void showError(const QString &message);

signals:
    void edited(const tavrix::AxisMappingDialog::Values &values);
    void detectRequested(int input);
    void detectCancelled();

private:
    struct Row
    {
        QComboBox *axis = nullptr;
        QCheckBox *inverted = nullptr;
        QPushButton *detect = nullptr;
    };
    [[nodiscard]] static QString inputName(int input);
    void emitEdited();
    void enableRows();

    std::array<Row, kInputCount> m_rows{};
    hub::Notice *m_notice = nullptr;
    hub::Notice *m_detectNotice = nullptr;
    int m_detecting = -1;
    bool m_editable = true;
};

} // namespace tavrix

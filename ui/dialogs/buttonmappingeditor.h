#pragma once

#include <QWidget>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace tavrix {

// The settings of one button mapping: its name, the control that drives it, the behaviour,
// the channel, and exactly the values that behaviour uses, each named for what it does
// there (a toggle's ON and OFF value, a hold's rate and range). It presents only.
class ButtonMappingEditor : public QWidget
{
    Q_OBJECT
public:
    // Stored behaviour numbers.
    enum class Behaviour
    {
        Momentary = 0,
        HoldToRaise = 1,
        HoldToLower = 2,
        Toggle = 3,
        SwitchPosition = 4
    };
    // The owner's clamps, so the boxes never offer what the store would cut.
    struct Limits
    {
        int valueMin = 0;
        int valueMax = 2047;
        int rateMax = 20480;
        int nameLength = 64;
        int extraSources = 16;
    };
    struct Values
    {
        QString name;
        int source = -1; // unified input index
        // Further controls that drive the mapping as the first one does.
        QList<int> extraSources;
        Behaviour behaviour = Behaviour::Momentary;
        int channel = 3; // CH1 = 0
        int pressedValue = 2047;
        int startValue = 0;
        int rate = 1024;
        int minimum = 0;
        int maximum = 2047;
        bool pitLimiter = false;

        friend bool operator==(const Values &, const Values &) = default;
    };

    explicit ButtonMappingEditor(const Limits &limits, QWidget *parent = nullptr);

    // What a unified input index means on the wheel: "Button 3", "Hat 1 left", "Axis 2 +".
    [[nodiscard]] static QString sourceName(int source);
    // Every control of a mapping, the first one first: "Button 3, Hat 1 up".
    [[nodiscard]] static QString controlsName(const Values &values);
    // The behaviour's name and a short account of what the mapping sends.
    [[nodiscard]] static QString behaviourName(Behaviour behaviour);
    [[nodiscard]] static QString summary(const Values &values);

    [[nodiscard]] Values values() const;
    QLineEdit *nameEdit() const { return m_name; }
    QComboBox *behaviourBox() const { return m_behaviour; }
    QComboBox *channelBox() const { return m_channel; }
    QPushButton *pressButton() const { return m_press; }
    QLabel *extrasLabel() const { return m_extras; }
    QPushButton *addExtraButton() const { return m_addExtra; }
    // Its menu has one entry per further control, which removes it.
    QPushButton *removeExtraButton() const { return m_removeExtra; }
    QSpinBox *pressedValueBox() const { return m_pressed; }
    QSpinBox *startValueBox() const { return m_start; }
    QSpinBox *rateBox() const { return m_rate; }
    QSpinBox *minimumBox() const { return m_minimum; }
    QSpinBox *maximumBox() const { return m_maximum; }
    QCheckBox *pitLimiterBox() const { return m_pitLimiter; }
    // Whether the behaviour's own field is on show (the others are hidden).
    [[nodiscard]] bool isShown(QWidget *field) const;

public slots:
    // Offers channels first..last (CH1 = 0) only, those the vehicle's mappings may drive.
    // Call showValues() after a change: the list loses its choice.
    void showChannels(int first, int last);
    // Shows the stored values without echoing them back as an edit.
    void showValues(const tavrix::ButtonMappingEditor::Values &values);

signals:
    void edited(const tavrix::ButtonMappingEditor::Values &values);
    // The user wants to pick the control by pressing it.
    void pressRequested();
    // The user wants to add a further control by pressing it.
    void extraPressRequested();

private:
    QSpinBox *valueBox(int minimum, int maximum);
    void emitEdited();
    // Shows the fields of the current behaviour under the names they have there.
    void showFieldsOfBehaviour();
    void showExtras();

    QFormLayout *m_form = nullptr;
    QLineEdit *m_name = nullptr;
    QComboBox *m_source = nullptr;
    QPushButton *m_press = nullptr;
    QLabel *m_extras = nullptr;
    QPushButton *m_addExtra = nullptr;
    QPushButton *m_removeExtra = nullptr;
    QList<int> m_extraSources;
    int m_extraLimit = 16;
    QComboBox *m_behaviour = nullptr;
    QComboBox *m_channel = nullptr;
    QSpinBox *m_pressed = nullptr;
    QSpinBox *m_start = nullptr;
    QSpinBox *m_rate = nullptr;
    QSpinBox *m_minimum = nullptr;
    QSpinBox *m_maximum = nullptr;
    QCheckBox *m_pitLimiter = nullptr;
    QList<QWidget *> m_inputs;
};

} // namespace tavrix

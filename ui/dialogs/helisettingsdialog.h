#pragma once

#include <QDialog>

#include <memory>
#include <vector>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QLabel;
class QSignalBlocker;
class QSpinBox;
class QVBoxLayout;

namespace hub {
class Notice;
} // namespace hub

namespace tavrix {

// What the four helicopter dialogs share: the refusal banner, a Close button, and editors
// that report every change the user makes (and none of the values shown back). Each dialog
// presents only; its owner stores the edit and shows back what the profile kept.
class HeliSettingsDialog : public QDialog
{
    Q_OBJECT
public:
    // The owner's limits, so the editors never offer what the profile would cut.
    struct Limits
    {
        int lastAxisSlot = 7;
        int lastChannel = 15;
        int percentMax = 100;
        int softStartSecMax = 60;
        int armMicrosMin = 880;
        int armMicrosMax = 2159;
        // A new curve's points, and how many a curve can have.
        int curvePoints = 5;
        int minCurvePoints = 2;
        int maxCurvePoints = 16;
        // Above this collective arming is refused while "arm only at idle" is on.
        int armIdlePercent = 10;
        // How spike protection judges a jump, for the line that explains it.
        int spikePercent = 60;
        int spikeHoldMs = 28;
    };
    static constexpr int kNotSent = -1;

    hub::Notice *notice() const { return m_notice; }
    [[nodiscard]] bool isLocked() const { return !m_body->isEnabledTo(this); }

public slots:
    // Empty hides the notice.
    void showError(const QString &message);
    // Shows why nothing can be changed now and disables the editors; empty unlocks them.
    void setLocked(const QString &reason);

protected:
    HeliSettingsDialog(const QString &title, const Limits &limits, QWidget *parent);

    // Where a dialog puts its content, between the notice and the Close button.
    QVBoxLayout *content() const { return m_content; }
    const Limits &limits() const { return m_limits; }
    // Called after every change the user makes; the dialog emits its values from here.
    virtual void userEdited() = 0;

    QSpinBox *spinBox(int minimum, int maximum, QWidget *parent);
    QCheckBox *checkBox(const QString &text, QWidget *parent);
    // "Not sent" and CH1..CH16; the item data is the channel index (-1 for not sent).
    QComboBox *channelBox(QWidget *parent);
    // "None" and Axis 1..8; the item data is the slot (-1 for none).
    QComboBox *axisBox(QWidget *parent);
    static void select(QComboBox *box, int value);
    static int selected(const QComboBox *box);
    static QLabel *explanation(const QString &text, QWidget *parent);
    static QFormLayout *form(QWidget *page);
    // Holds every editor's signals while stored values are shown.
    [[nodiscard]] std::vector<std::unique_ptr<QSignalBlocker>> quietEditors() const;

private:
    QComboBox *indexBox(const QString &none, const QString &pattern, int last, QWidget *parent);

    Limits m_limits;
    hub::Notice *m_notice = nullptr;
    hub::Notice *m_lockNotice = nullptr;
    QWidget *m_body = nullptr;
    QVBoxLayout *m_content = nullptr;
    QList<QWidget *> m_editors;
};

} // namespace tavrix

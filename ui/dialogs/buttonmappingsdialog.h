#pragma once

#include "buttonmappingeditor.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QTableWidget;

namespace hub {
class Notice;
} // namespace hub

namespace tavrix {

// The "buttons" dialog: the active profile's button mappings as a list (control, behaviour,
// channel, what it sends) beside the editor of the selected one. A mapping is added by
// pressing its control on the wheel or the joystick; the dialog then waits, cancellably, for the press.
// It presents only; the owner stores every edit and shows back what the store kept.
class ButtonMappingsDialog : public QDialog
{
    Q_OBJECT
public:
    using Mapping = ButtonMappingEditor::Values;

    explicit ButtonMappingsDialog(const ButtonMappingEditor::Limits &limits, QWidget *parent = nullptr);

    QTableWidget *table() const { return m_table; }
    ButtonMappingEditor *editor() const { return m_editor; }
    QPushButton *addButton() const { return m_add; }
    QPushButton *removeButton() const { return m_remove; }
    QPushButton *cancelPressButton() const { return m_cancelPress; }
    hub::Notice *notice() const { return m_notice; }
    // The selected row, -1 for none.
    [[nodiscard]] int selectedRow() const;
    [[nodiscard]] bool isWaitingForPress() const { return m_waiting; }

public slots:
    // Shows the stored list and selects a row (kept within the list; -1 keeps the selection).
    void showMappings(const QList<tavrix::ButtonMappingsDialog::Mapping> &mappings, int selected = -1);
    // While waiting, the dialog asks for a press and offers only to cancel it.
    void showWaitingForPress(bool waiting);
    // Empty hides the notice.
    void showError(const QString &message);

signals:
    // row -1: a new mapping for the control pressed next; otherwise that mapping's control.
    void pressRequested(int row);
    // A further control for that mapping, pressed next.
    void extraPressRequested(int row);
    void pressCancelled();
    void mappingEdited(int row, const tavrix::ButtonMappingsDialog::Mapping &mapping);
    void removeRequested(int row);

private:
    void showSelected();

    QTableWidget *m_table = nullptr;
    ButtonMappingEditor *m_editor = nullptr;
    QPushButton *m_add = nullptr;
    QPushButton *m_remove = nullptr;
    QPushButton *m_cancelPress = nullptr;
    hub::Notice *m_notice = nullptr;
    hub::Notice *m_pressNotice = nullptr;
    QList<Mapping> m_mappings;
    bool m_waiting = false;
};

} // namespace tavrix

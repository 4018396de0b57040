#pragma once

#include "buttonmappingsdialog.h"

#include <QObject>

#include <functional>
#include <optional>

namespace tavrix {

class ButtonMappingBook;
class TavrixController;

// Binds one buttons dialog to the active profile's button mappings for as long as the
// dialog lives. Edits go through the mapping book, whose rules the mobile app's edits meet
// too, into the profile store, which the controller follows at once; what the store kept,
// or the refusal, is shown back. Adding waits for the next press on the device the
// vehicle's mappings read (wheel base or joystick) through the controller's button detection.
class ButtonMappingsDialogBinder : public QObject
{
    Q_OBJECT
public:
    // Parented to the dialog; the controller must outlive it.
    ButtonMappingsDialogBinder(ButtonMappingsDialog *dialog, TavrixController *controller);
    // Ends a wait for a press that the dialog started.
    ~ButtonMappingsDialogBinder() override;

    // The dialog's limits are the clamps of the stored mappings.
    [[nodiscard]] static ButtonMappingEditor::Limits limits();

private:
    void showMappings(int selected = -1);
    // The press sets the row's control, or adds a further one (`extra`); row -1 adds a mapping.
    void startPress(int row, bool extra);
    void cancelPress();
    void takePress(int source, bool success);
    [[nodiscard]] int newMappingChannel(int usual) const;
    void edit(int row, const ButtonMappingsDialog::Mapping &mapping);
    void remove(int row);
    // Runs one change of the book and shows its refusal (or the store's), then what is stored.
    void change(const std::function<bool()> &change, int selected = -1);

    ButtonMappingsDialog *m_dialog;
    TavrixController *m_controller;
    ButtonMappingBook *m_book;
    struct PressTarget
    {
        int row;
        bool extra;
    };
    // What the next press sets. Set while waiting.
    std::optional<PressTarget> m_pressFor;
};

} // namespace tavrix

#pragma once

#include <QDialog>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace hub {
class Notice;
} // namespace hub

namespace tavrix {

// The saved ESC presets, opened from the drive dialog: save the current ESC values as a new
// preset, rename one, overwrite one with the current values, delete one. It presents only;
// the owner runs each request through the preset store and shows back what it kept.
class EscPresetsDialog : public QDialog
{
    Q_OBJECT
public:
    struct Entry
    {
        QString id;
        QString name;
        int neutral = 0;
        int fullForward = 0;
        int fullReverse = 0;
    };

    explicit EscPresetsDialog(int nameLength, QWidget *parent = nullptr);

    QListWidget *list() const { return m_list; }
    QLineEdit *nameEdit() const { return m_name; }
    QPushButton *createButton() const { return m_create; }
    QPushButton *renameButton() const { return m_rename; }
    QPushButton *updateButton() const { return m_update; }
    QPushButton *deleteButton() const { return m_delete; }
    hub::Notice *notice() const { return m_notice; }
    // The selected preset's identifier, empty for none.
    [[nodiscard]] QString selectedId() const;

public slots:
    // The stored list; selected names the preset to select (empty keeps the selection).
    void showPresets(const QList<tavrix::EscPresetsDialog::Entry> &presets, const QString &selected = {});
    // What "Save as new" and "Update" take: the drive settings' current ESC values.
    void showCurrentValues(int neutral, int fullForward, int fullReverse);
    // Empty hides the notice.
    void showError(const QString &message);

signals:
    void createRequested(const QString &name);
    void renameRequested(const QString &id, const QString &name);
    void updateRequested(const QString &id);
    void deleteRequested(const QString &id);

private:
    void showSelected();

    QListWidget *m_list = nullptr;
    QLineEdit *m_name = nullptr;
    QPushButton *m_create = nullptr;
    QPushButton *m_rename = nullptr;
    QPushButton *m_update = nullptr;
    QPushButton *m_delete = nullptr;
    hub::Notice *m_notice = nullptr;
    hub::Notice *m_current = nullptr;
};

} // namespace tavrix

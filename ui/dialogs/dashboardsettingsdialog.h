#pragma once

#include <QDialog>
#include <QList>
#include <QStringList>

class QCheckBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace hub {
class Notice;
} // namespace hub

namespace tavrix {

// The "dash-settings" dialog: which telemetry readings the dashboard shows as tiles, ticked
// in a list, and in which order, moved up and down; the label a known sensor goes by; and
// whether sensors the car reports for the first time join the list by themselves. It
// presents only; every change goes out at once, and the owner shows back what was kept.
class DashboardSettingsDialog : public QDialog
{
    Q_OBJECT
public:
    struct Tile
    {
        QString key;
        // The profile's name for the sensor; empty or the key itself: none of its own.
        QString label;
        bool shown = false;
        // Only a sensor the profile knows (or the car reports) can be given a label.
        bool renamable = false;
    };

    // maxLabelLength: the longest label the owner keeps.
    explicit DashboardSettingsDialog(int maxLabelLength, QWidget *parent = nullptr);

    QListWidget *tileList() const { return m_list; }
    QPushButton *upButton() const { return m_up; }
    QPushButton *downButton() const { return m_down; }
    QLineEdit *labelEdit() const { return m_label; }
    QCheckBox *discoveryBox() const { return m_discover; }
    hub::Notice *notice() const { return m_notice; }

    // The ticked keys, top to bottom.
    [[nodiscard]] QStringList chosenKeys() const;

public slots:
    // The tiles in the order listed; the highlighted one stays highlighted.
    void showTiles(const QList<tavrix::DashboardSettingsDialog::Tile> &tiles);
    void showDiscovery(bool enabled);
    // Empty hides the notice.
    void showError(const QString &message);

signals:
    void chosen(const QStringList &keys);
    // An empty label gives the sensor its key back as its name.
    void renamed(const QString &key, const QString &label);
    void discoveryToggled(bool enabled);

private:
    void move(int step);
    void updateButtons();
    void renameCurrent();
    [[nodiscard]] QString currentKey() const;

    QListWidget *m_list = nullptr;
    QPushButton *m_up = nullptr;
    QPushButton *m_down = nullptr;
    QLineEdit *m_label = nullptr;
    // The sensor whose label the edit shows.
    QString m_labelKey;
    QCheckBox *m_discover = nullptr;
    hub::Notice *m_notice = nullptr;
};

} // namespace tavrix

#pragma once

#include <QDialog>
#include <QList>
#include <QStringList>

class QListWidget;
class QPushButton;

namespace hub {
class Notice;
} // namespace hub

namespace tavrix {

// The "dash-settings" dialog: which telemetry readings the dashboard shows as tiles, ticked
// in a list, and in which order, moved up and down. It presents only; every change goes out
// at once as the ticked keys in order, and the owner shows back what was kept.
class DashboardSettingsDialog : public QDialog
{
    Q_OBJECT
public:
    struct Tile
    {
        QString key;
        bool shown = false;
    };

    explicit DashboardSettingsDialog(QWidget *parent = nullptr);

    QListWidget *tileList() const { return m_list; }
    QPushButton *upButton() const { return m_up; }
    QPushButton *downButton() const { return m_down; }
    hub::Notice *notice() const { return m_notice; }

    // The ticked keys, top to bottom.
    [[nodiscard]] QStringList chosenKeys() const;

public slots:
    // The tiles in the order listed; the highlighted one stays highlighted.
    void showTiles(const QList<tavrix::DashboardSettingsDialog::Tile> &tiles);
    // Empty hides the notice.
    void showError(const QString &message);

signals:
    void chosen(const QStringList &keys);

private:
    void move(int step);
    void updateButtons();

    QListWidget *m_list = nullptr;
    QPushButton *m_up = nullptr;
    QPushButton *m_down = nullptr;
    hub::Notice *m_notice = nullptr;
};

} // namespace tavrix

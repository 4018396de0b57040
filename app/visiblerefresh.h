#pragma once

#include <QObject>

#include <chrono>
#include <functional>

class QTimer;
class QWidget;

namespace tavrix {

// Runs a refresh when a widget is shown and then periodically while it stays visible, so
// lists that have no change signal (serial ports, game controllers) stay current without
// polling for pages nobody looks at.
class VisibleRefresh : public QObject
{
    Q_OBJECT
public:
    VisibleRefresh(QWidget *watched, std::chrono::milliseconds interval, std::function<void()> refresh,
                   QObject *parent = nullptr);

    bool isActive() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QTimer *m_timer;
    std::function<void()> m_refresh;
};

} // namespace tavrix

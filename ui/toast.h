#pragma once

#include <QLabel>

class QTimer;

namespace hub {

// A short confirmation floating at the bottom of its parent that goes away by itself,
// e.g. "Dark mode from the next start".
class Toast : public QLabel
{
    Q_OBJECT
public:
    explicit Toast(QWidget *parent);

    void showMessage(const QString &text);
    void setDuration(int milliseconds);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void place();

    QTimer *m_hideTimer = nullptr;
};

} // namespace hub

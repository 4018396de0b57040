#include "toast.h"

#include <QEvent>
#include <QTimer>

namespace hub {

Toast::Toast(QWidget *parent)
    : QLabel(parent)
{
    setAttribute(Qt::WA_StyledBackground);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAlignment(Qt::AlignCenter);
    hide();
    m_hideTimer = new QTimer(this);
    m_hideTimer->setSingleShot(true);
    m_hideTimer->setInterval(3500);
    connect(m_hideTimer, &QTimer::timeout, this, &QWidget::hide);
    parent->installEventFilter(this);
}

void Toast::showMessage(const QString &text)
{
    setText(text);
    adjustSize();
    place();
    show();
    raise();
    m_hideTimer->start();
}

void Toast::setDuration(int milliseconds)
{
    m_hideTimer->setInterval(milliseconds);
}

bool Toast::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parent() && event->type() == QEvent::Resize && isVisible())
        place();
    return QLabel::eventFilter(watched, event);
}

void Toast::place()
{
    const QWidget *host = parentWidget();
    move((host->width() - width()) / 2, host->height() - height() - 28);
}

} // namespace hub

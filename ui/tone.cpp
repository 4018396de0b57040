#include "tone.h"

#include <QStyle>
#include <QVariant>
#include <QWidget>

namespace hub {

QString toneName(Tone tone)
{
    switch (tone) {
    case Tone::Neutral:
        return QStringLiteral("neutral");
    case Tone::Good:
        return QStringLiteral("good");
    case Tone::Warning:
        return QStringLiteral("warning");
    case Tone::Danger:
        return QStringLiteral("danger");
    case Tone::Accent:
        return QStringLiteral("accent");
    case Tone::Muted:
        return QStringLiteral("muted");
    }
    return QStringLiteral("neutral");
}

void setStyleProperty(QWidget *widget, const char *name, const QString &value)
{
    if (widget->property(name).toString() == value)
        return;
    widget->setProperty(name, value);
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
    // Children styled by descendant selectors (e.g. "[tone=good] #statValue") follow too.
    for (QWidget *child : widget->findChildren<QWidget *>()) {
        child->style()->unpolish(child);
        child->style()->polish(child);
    }
    widget->update();
}

} // namespace hub

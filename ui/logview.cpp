#include "logview.h"

#include <QScrollBar>

namespace hub {

LogView::LogView(QWidget *parent)
    : QPlainTextEdit(parent)
{
    setObjectName(QStringLiteral("logView"));
    setReadOnly(true);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setMaximumBlockCount(kMaximumLines);
}

void LogView::appendLine(const QString &line)
{
    // Follow the tail only when the reader is already at the bottom.
    QScrollBar *bar = verticalScrollBar();
    const bool atEnd = bar->value() == bar->maximum();
    appendPlainText(line);
    if (atEnd)
        bar->setValue(bar->maximum());
}

} // namespace hub

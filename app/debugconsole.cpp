#include "debugconsole.h"

#include "logrouter.h"
#include "logview.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrix {

DebugConsole::DebugConsole(LogRouter *router, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Debug console"));
    resize(900, 520);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(12);
    m_view = new hub::LogView(this);
    column->addWidget(m_view, 1);

    auto *buttons = new QHBoxLayout;
    auto *copy = new QPushButton(tr("Copy all"), this);
    auto *clear = new QPushButton(tr("Clear"), this);
    auto *close = new QPushButton(tr("Close"), this);
    buttons->addWidget(copy);
    buttons->addWidget(clear);
    buttons->addStretch(1);
    buttons->addWidget(close);
    column->addLayout(buttons);
    connect(copy, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(m_view->toPlainText()); });
    connect(clear, &QPushButton::clicked, m_view, &QPlainTextEdit::clear);
    connect(close, &QPushButton::clicked, this, &QDialog::close);

    for (const QString &line : router->recentLines())
        m_view->appendLine(line);
    // Queued: a line may be routed from another thread, and appending must not log.
    connect(
        router, &LogRouter::messageLogged, m_view,
        [view = m_view](QtMsgType, const QString &line) { view->appendLine(line); }, Qt::QueuedConnection);
}

} // namespace tavrix

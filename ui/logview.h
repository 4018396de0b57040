#pragma once

#include <QPlainTextEdit>

namespace hub {

// A read-only, bounded view of log lines for the debug console; the oldest lines drop off.
class LogView : public QPlainTextEdit
{
    Q_OBJECT
public:
    static constexpr int kMaximumLines = 5000;

    explicit LogView(QWidget *parent = nullptr);

public slots:
    void appendLine(const QString &line);
};

} // namespace hub

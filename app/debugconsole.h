#pragma once

#include <QDialog>

namespace hub {
class LogView;
}

namespace tavrix {

class LogRouter;

// A window with the log so far and every new line as it is routed.
class DebugConsole : public QDialog
{
    Q_OBJECT
public:
    explicit DebugConsole(LogRouter *router, QWidget *parent = nullptr);

    hub::LogView *view() const { return m_view; }

private:
    hub::LogView *m_view = nullptr;
};

} // namespace tavrix

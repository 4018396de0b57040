#pragma once

#include <QWidget>

class QBoxLayout;
class QVBoxLayout;

namespace hub {

// Two columns of cards side by side that stack one above the other when the page is too
// narrow for both, so a small window scrolls the cards instead of cutting off the right
// column (the page's scroll area never scrolls sideways).
class ColumnPair : public QWidget
{
    Q_OBJECT
public:
    explicit ColumnPair(int gap, QWidget *parent = nullptr);

    QVBoxLayout *left() const { return m_left; }
    QVBoxLayout *right() const { return m_right; }
    [[nodiscard]] bool isStacked() const;

    // As narrow as the wider column: the columns stack below that.
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QBoxLayout *m_row;
    QVBoxLayout *m_left;
    QVBoxLayout *m_right;
};

} // namespace hub

#pragma once

#include <QLabel>

namespace tavrix {

// The addresses to enter in the mobile app, one per line in a monospaced, selectable
// label, or a sentence saying the app server is off when there are none.
class AppAddressList : public QLabel
{
    Q_OBJECT
public:
    explicit AppAddressList(QWidget *parent = nullptr);

    void setAddresses(const QStringList &addresses);
    QStringList addresses() const { return m_addresses; }

private:
    QStringList m_addresses;
};

} // namespace tavrix

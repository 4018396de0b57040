#include "appaddresslist.h"

#include "tone.h"

namespace tavrix {

AppAddressList::AppAddressList(QWidget *parent)
    : QLabel(parent)
{
    setObjectName(QStringLiteral("appAddresses"));
    setWordWrap(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setAddresses({});
}

void AppAddressList::setAddresses(const QStringList &addresses)
{
    m_addresses = addresses;
    // The style sheet sets the addresses in the monospaced face and the "off" sentence muted.
    hub::setStyleProperty(this, "off",
                          addresses.isEmpty() ? QStringLiteral("true") : QStringLiteral("false"));
    setText(addresses.isEmpty() ? tr("The app server is not listening, so the mobile app cannot connect.")
                                : addresses.join(QLatin1Char('\n')));
}

} // namespace tavrix

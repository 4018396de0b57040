#include "dialogregistry.h"

namespace tavrix {

QStringList DialogRegistry::allKeys()
{
    return {
        QStringLiteral("axis"),          QStringLiteral("drive"),        QStringLiteral("buttons"),
        QStringLiteral("led"),           QStringLiteral("transmission"), QStringLiteral("ffb"),
        QStringLiteral("motion-output"), QStringLiteral("radio-cal"),    QStringLiteral("pedal-verify"),
        QStringLiteral("onboarding"),    QStringLiteral("fw-receiver"),  QStringLiteral("fw-receiver-v4"),
        QStringLiteral("fw-soc-v2"),     QStringLiteral("web-status"),   QStringLiteral("profiles"),
        QStringLiteral("disclaimer"),    QStringLiteral("heli-config"),  QStringLiteral("heli-fly"),
        QStringLiteral("heli-curves"),   QStringLiteral("heli-arming"),  QStringLiteral("dash-settings"),
        QStringLiteral("motion-web"),    QStringLiteral("msgbox"),
    };
}

bool DialogRegistry::add(const QString &key, Factory factory)
{
    if (!factory || m_factories.contains(key) || !allKeys().contains(key))
        return false;
    m_factories.insert(key, std::move(factory));
    return true;
}

QWidget *DialogRegistry::create(const QString &key, QWidget *parent) const
{
    const auto it = m_factories.constFind(key);
    return it == m_factories.cend() ? nullptr : (*it)(parent);
}

QStringList DialogRegistry::keys() const
{
    QStringList result;
    for (const QString &key : allKeys()) {
        if (m_factories.contains(key))
            result.append(key);
    }
    return result;
}

} // namespace tavrix

#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

namespace tavrix {

// The dialogs the main window can open by key, in the fixed order the screenshot mode
// visits them. A dialog that does not exist yet is simply not registered.
class DialogRegistry
{
public:
    using Factory = std::function<QWidget *(QWidget *parent)>;

    // Every dialog key of the hub, in screenshot order.
    static QStringList allKeys();

    // Registers a factory under one of allKeys(); unknown or taken keys are refused.
    bool add(const QString &key, Factory factory);
    bool contains(const QString &key) const { return m_factories.contains(key); }
    // A new, not yet shown dialog, owned by the caller; null for an unknown key.
    QWidget *create(const QString &key, QWidget *parent) const;

    // The registered keys in screenshot order.
    QStringList keys() const;

private:
    QHash<QString, Factory> m_factories;
};

} // namespace tavrix

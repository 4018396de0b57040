#pragma once

#include "card.h"

#include <QMap>

class QFormLayout;
class QPushButton;
class QSpinBox;

namespace tavrix {

// The platform's settings as spin boxes in their ranges, applied together. It only presents:
// the owner adds the settings it knows and shows what the board holds.
class MotionSettingsCard : public hub::Card
{
    Q_OBJECT
public:
    explicit MotionSettingsCard(QWidget *parent = nullptr);

    void addSetting(const QString &key, const QString &label, int minimum, int maximum, const QString &unit);
    // The values by key; keys the card does not have are ignored.
    void showSettings(const QMap<QString, int> &values);
    QMap<QString, int> settings() const;

    QSpinBox *field(const QString &key) const { return m_fields.value(key); }
    QPushButton *applyButton() const { return m_apply; }

signals:
    void applyRequested(const QMap<QString, int> &values);

private:
    QFormLayout *m_form = nullptr;
    QMap<QString, QSpinBox *> m_fields;
    QPushButton *m_apply = nullptr;
};

} // namespace tavrix

#include "motionsettingscard.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace tavrix {

MotionSettingsCard::MotionSettingsCard(QWidget *parent)
    : hub::Card(tr("Platform settings"), parent)
{
    setSubtitle(tr("Kept on this PC and given to the board when it connects"));
    m_form = new QFormLayout;
    body()->addLayout(m_form);
    m_apply = new QPushButton(tr("Apply"), this);
    m_apply->setProperty("variant", QStringLiteral("primary"));
    auto *row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(m_apply);
    body()->addLayout(row);
    connect(m_apply, &QPushButton::clicked, this, [this] { emit applyRequested(settings()); });
}

void MotionSettingsCard::addSetting(const QString &key, const QString &label, int minimum, int maximum,
                                    const QString &unit)
{
    auto *box = new QSpinBox(this);
    box->setRange(minimum, maximum);
    box->setSuffix(QLatin1Char(' ') + unit);
    m_form->addRow(label, box);
    m_fields.insert(key, box);
}

void MotionSettingsCard::showSettings(const QMap<QString, int> &values)
{
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        if (QSpinBox *box = m_fields.value(it.key()))
            box->setValue(it.value());
    }
}

QMap<QString, int> MotionSettingsCard::settings() const
{
    QMap<QString, int> values;
    for (auto it = m_fields.cbegin(); it != m_fields.cend(); ++it)
        values.insert(it.key(), it.value()->value());
    return values;
}

} // namespace tavrix

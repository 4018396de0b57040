#include "devicepickercard.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>

namespace tavrix {

DevicePickerCard::DevicePickerCard(const QString &title, const QList<Role> &roles, QWidget *parent)
    : hub::Card(title, parent)
{
    auto *form = new QGridLayout;
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(14);
    form->setVerticalSpacing(10);
    form->setColumnStretch(1, 1);
    int row = 0;
    for (const Role &role : roles) {
        auto *box = new QComboBox(this);
        box->setMinimumContentsLength(8);
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        form->addWidget(new QLabel(role.label, this), row, 0, Qt::AlignVCenter);
        form->addWidget(box, row, 1);
        ++row;
        m_pickers.insert(role.key, box);
        const QString key = role.key;
        connect(box, &QComboBox::activated, this, [this, key, box](int index) {
            emit deviceChosen(key, index <= 0 ? QString() : box->itemText(index));
        });
    }
    body()->addLayout(form);

    m_hint = new QLabel(
        tr("No game controllers found. Connect a controller over USB and it appears in these lists."), this);
    m_hint->setObjectName(QStringLiteral("mutedText"));
    m_hint->setWordWrap(true);
    body()->addWidget(m_hint);
    setDevices({});
}

void DevicePickerCard::setDevices(const QStringList &names)
{
    m_devices = names;
    for (auto it = m_pickers.cbegin(); it != m_pickers.cend(); ++it) {
        QComboBox *box = it.value();
        const QString current = box->currentIndex() > 0 ? box->currentText() : QString();
        const QSignalBlocker blocker(box);
        box->clear();
        box->addItem(names.isEmpty() ? tr("No device found") : tr("None"));
        box->addItems(names);
        box->setCurrentIndex(std::max(0, int(names.indexOf(current)) + 1));
        box->setEnabled(!names.isEmpty());
    }
    m_hint->setVisible(names.isEmpty());
}

void DevicePickerCard::setCurrentDevice(const QString &role, const QString &name)
{
    if (QComboBox *box = m_pickers.value(role)) {
        const QSignalBlocker blocker(box);
        box->setCurrentIndex(std::max(0, int(m_devices.indexOf(name)) + 1));
    }
}

QString DevicePickerCard::currentDevice(const QString &role) const
{
    const QComboBox *box = m_pickers.value(role);
    return box && box->currentIndex() > 0 ? box->currentText() : QString();
}

} // namespace tavrix

#include "devicepickercard.h"

#include "notice.h"

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
        connect(box, &QComboBox::activated, this,
                [this, key](int index) { emit deviceChosen(key, index - 1); });
    }
    body()->addLayout(form);

    m_hint = new QLabel(
        tr("No game controllers found. Connect a controller over USB and it appears in these lists."), this);
    m_hint->setObjectName(QStringLiteral("mutedText"));
    m_hint->setWordWrap(true);
    body()->addWidget(m_hint);
    m_problems = new hub::Notice(hub::Glyph::Info, QString(), this);
    m_problems->setTone(hub::Tone::Warning);
    m_problems->hide();
    body()->addWidget(m_problems);
    setDevices({});
}

void DevicePickerCard::setProblems(const QStringList &problems)
{
    m_problemLines = problems;
    m_problems->setText(problems.join(QLatin1Char('\n')));
    m_problems->setVisible(!problems.isEmpty());
}

void DevicePickerCard::setDevices(const QStringList &labels)
{
    if (labels == m_devices && !m_pickers.isEmpty() && m_pickers.cbegin().value()->count() > 0)
        return;
    m_devices = labels;
    for (QComboBox *box : std::as_const(m_pickers)) {
        const QSignalBlocker blocker(box);
        box->clear();
        box->addItem(labels.isEmpty() ? tr("No device found") : tr("None"));
        box->addItems(labels);
        box->setEnabled(!labels.isEmpty());
        showFullName(box);
    }
    m_hint->setVisible(labels.isEmpty());
}

void DevicePickerCard::setCurrentDevice(const QString &role, int deviceIndex)
{
    if (QComboBox *box = m_pickers.value(role)) {
        const QSignalBlocker blocker(box);
        box->setCurrentIndex(deviceIndex >= 0 && deviceIndex < m_devices.size() ? deviceIndex + 1 : 0);
        showFullName(box);
    }
}

void DevicePickerCard::showFullName(QComboBox *box)
{
    // Long controller names are cut off in a narrow window; the tool tip keeps them whole.
    box->setToolTip(box->currentIndex() > 0 ? box->currentText() : QString());
}

int DevicePickerCard::currentDevice(const QString &role) const
{
    const QComboBox *box = m_pickers.value(role);
    return box ? box->currentIndex() - 1 : -1;
}

} // namespace tavrix

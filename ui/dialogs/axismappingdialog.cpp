#include "axismappingdialog.h"

#include "notice.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tavrix {

AxisMappingDialog::AxisMappingDialog(const QString &deviceName, int axisSlots, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Axis mapping: %1").arg(deviceName));
    setMinimumWidth(480);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(12);

    m_notice = hub::Notice::refusal(hub::Glyph::Sliders, this);
    column->addWidget(m_notice);
    m_detectNotice = new hub::Notice(hub::Glyph::Sliders, QString(), this);
    m_detectNotice->setTone(hub::Tone::Accent);
    auto *cancel = new QPushButton(tr("Cancel"), m_detectNotice);
    connect(cancel, &QPushButton::clicked, this, &AxisMappingDialog::detectCancelled);
    m_detectNotice->layout()->addWidget(cancel);
    m_detectNotice->hide();
    column->addWidget(m_detectNotice);

    auto *explanation =
        new QLabel(tr("Choose the axis that feeds each input, or press Detect and move the control. "
                      "The mapping is saved for this product in the profile."),
                   this);
    explanation->setWordWrap(true);
    explanation->setObjectName(QStringLiteral("mutedText"));
    column->addWidget(explanation);

    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    for (int input = 0; input < kInputCount; ++input) {
        Row &row = m_rows[std::size_t(input)];
        row.axis = new QComboBox(this);
        row.axis->addItem(tr("None"), kNoAxis);
        for (int slot = 0; slot < axisSlots; ++slot)
            row.axis->addItem(tr("Axis %1").arg(slot + 1), slot);
        connect(row.axis, &QComboBox::activated, this, &AxisMappingDialog::emitEdited);
        row.inverted = new QCheckBox(tr("Inverted"), this);
        connect(row.inverted, &QCheckBox::toggled, this, &AxisMappingDialog::emitEdited);
        row.detect = new QPushButton(tr("Detect"), this);
        connect(row.detect, &QPushButton::clicked, this, [this, input] { emit detectRequested(input); });
        grid->addWidget(new QLabel(inputName(input), this), input, 0);
        grid->addWidget(row.axis, input, 1);
        grid->addWidget(row.inverted, input, 2);
        grid->addWidget(row.detect, input, 3);
    }
    grid->setColumnStretch(1, 1);
    column->addLayout(grid);
    column->addStretch(1);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
}

QString AxisMappingDialog::inputName(int input)
{
    const std::array<QString, kInputCount> names{tr("Steering"), tr("Throttle"), tr("Brake"), tr("Clutch")};
    return names.at(std::size_t(input));
}

AxisMappingDialog::Values AxisMappingDialog::values() const
{
    Values v;
    for (int input = 0; input < kInputCount; ++input) {
        const Row &row = m_rows[std::size_t(input)];
        v.axes[std::size_t(input)] = row.axis->currentData().toInt();
        v.inverted[std::size_t(input)] = row.inverted->isChecked();
    }
    return v;
}

void AxisMappingDialog::showValues(const Values &v)
{
    for (int input = 0; input < kInputCount; ++input) {
        const Row &row = m_rows[std::size_t(input)];
        const QSignalBlocker quietAxis(row.axis);
        const QSignalBlocker quietInverted(row.inverted);
        // A slot the list does not offer shows as none: it reads nothing either.
        row.axis->setCurrentIndex(std::max(0, row.axis->findData(v.axes[std::size_t(input)])));
        row.inverted->setChecked(v.inverted[std::size_t(input)]);
    }
}

void AxisMappingDialog::showDetecting(int input)
{
    m_detecting = input;
    if (input >= 0)
        m_detectNotice->setText(
            tr("%1: move the control well away from where it rests\u2026").arg(inputName(input)));
    m_detectNotice->setVisible(input >= 0);
    enableRows();
}

void AxisMappingDialog::setEditable(bool editable)
{
    m_editable = editable;
    enableRows();
}

void AxisMappingDialog::showError(const QString &message)
{
    m_notice->showMessage(message);
}

void AxisMappingDialog::emitEdited()
{
    emit edited(values());
}

void AxisMappingDialog::enableRows()
{
    const bool enabled = m_editable && m_detecting < 0;
    for (const Row &row : m_rows) {
        row.axis->setEnabled(enabled);
        row.inverted->setEnabled(enabled);
        row.detect->setEnabled(enabled);
    }
}

} // namespace tavrix

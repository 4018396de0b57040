#include "axissettingsdialog.h"

#include "card.h"
#include "notice.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tavrix {

AxisSettingsDialog::AxisSettingsDialog(const AxisEditor::Limits &limits, const QStringList &presetNames,
                                       QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Axes and calibration"));
    setMinimumSize(820, 580);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(12);

    m_notice = hub::Notice::refusal(hub::Glyph::Sliders, this);
    column->addWidget(m_notice);

    m_tabs = new QTabWidget(this);
    const QStringList names = {tr("Steering"), tr("Throttle"), tr("Brake"), tr("Clutch")};
    for (int input = 0; input < kInputCount; ++input) {
        auto *editor = new AxisEditor(input == 0, limits, m_tabs);
        m_editors[std::size_t(input)] = editor;
        m_tabs->addTab(editor, names.at(input));
        connect(editor, &AxisEditor::edited, this,
                [this, input](const AxisEditor::Values &values) { emit axisEdited(input, values); });
        connect(editor, &AxisEditor::captureRequested, this,
                [this, input](AxisEditor::CalibrationPoint point) { emit captureRequested(input, point); });
    }
    column->addWidget(m_tabs, 1);
    column->addWidget(buildMappingCard(presetNames));

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);

    showMapping(MappedDevice::WheelBase, false, QString(), false);
    showMapping(MappedDevice::Pedals, false, QString(), false);
}

QWidget *AxisSettingsDialog::buildMappingCard(const QStringList &presetNames)
{
    auto *card = new hub::Card(tr("Wheel and pedal presets"), this);
    card->setSubtitle(tr("Which axis feeds each input; saved for this product in the profile."));
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    const QList<std::pair<MappedDevice, QString>> devices = {{MappedDevice::WheelBase, tr("Wheel base")},
                                                             {MappedDevice::Pedals, tr("Pedals")}};
    for (const auto &[device, name] : devices) {
        MappingRow &row = m_rows[std::size_t(device)];
        const int line = int(device);
        row.preset = new QComboBox(card);
        row.preset->addItems(presetNames);
        row.combined = new QCheckBox(tr("Gas and brake on one axis"), card);
        grid->addWidget(new QLabel(name, card), line, 0);
        grid->addWidget(row.preset, line, 1);
        grid->addWidget(row.combined, line, 2);
        row.custom = new QPushButton(tr("Customise\u2026"), card);
        row.custom->setToolTip(tr("Choose the axis of each input yourself"));
        grid->addWidget(row.custom, line, 3);
        connect(row.custom, &QPushButton::clicked, this,
                [this, d = device] { emit customMappingRequested(d); });
        connect(row.preset, &QComboBox::activated, this, [this, d = device](int index) {
            emit presetChosen(d, m_rows[std::size_t(d)].preset->itemText(index));
        });
        connect(row.combined, &QCheckBox::toggled, this,
                [this, d = device](bool on) { emit combinedPedalsToggled(d, on); });
    }
    grid->setColumnStretch(4, 1);
    m_verifyPedals = new QPushButton(tr("Verify pedals\u2026"), card);
    grid->addWidget(m_verifyPedals, 0, 5, 2, 1, Qt::AlignVCenter);
    connect(m_verifyPedals, &QPushButton::clicked, this, &AxisSettingsDialog::pedalVerifyRequested);
    card->body()->addLayout(grid);
    return card;
}

void AxisSettingsDialog::showMapping(MappedDevice device, bool connected, const QString &presetName,
                                     bool combinedPedals)
{
    MappingRow &row = m_rows[std::size_t(device)];
    row.connected = connected;
    const QSignalBlocker quietPreset(row.preset);
    const QSignalBlocker quietCombined(row.combined);
    // A mapping of no preset shows as "Custom", an entry that cannot be chosen back.
    const int custom = row.preset->findData(true);
    if (custom >= 0)
        row.preset->removeItem(custom);
    int index = row.preset->findText(presetName);
    if (index < 0 && connected) {
        row.preset->addItem(tr("Custom"), true);
        index = row.preset->count() - 1;
    }
    row.preset->setCurrentIndex(index);
    row.combined->setChecked(combinedPedals);
    enableRow(row);
}

void AxisSettingsDialog::setMappingEditable(bool editable)
{
    m_mappingEditable = editable;
    for (const MappingRow &row : m_rows)
        enableRow(row);
}

void AxisSettingsDialog::enableRow(const MappingRow &row)
{
    const bool enabled = row.connected && m_mappingEditable;
    for (QWidget *field : std::initializer_list<QWidget *>{row.preset, row.combined, row.custom})
        field->setEnabled(enabled);
}

void AxisSettingsDialog::showError(const QString &message)
{
    m_notice->showMessage(message);
}

} // namespace tavrix

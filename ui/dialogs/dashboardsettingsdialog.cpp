#include "dashboardsettingsdialog.h"

#include "notice.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tavrix {

namespace {

// The data roles of a list item: its catalogue key, the label of its own (or empty), whether it can have one.
constexpr int kKeyRole = Qt::UserRole;
constexpr int kLabelRole = Qt::UserRole + 1;
constexpr int kRenamableRole = Qt::UserRole + 2;

QString itemText(const DashboardSettingsDialog::Tile &tile)
{
    if (tile.label.isEmpty() || tile.label == tile.key)
        return tile.key;
    return QStringLiteral("%1 (%2)").arg(tile.label, tile.key);
}

} // namespace

DashboardSettingsDialog::DashboardSettingsDialog(int maxLabelLength, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Dashboard tiles"));
    setMinimumWidth(480);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(12);
    m_notice = hub::Notice::refusal(hub::Glyph::Gauge, this);
    column->addWidget(m_notice);

    auto *intro = new QLabel(tr("Tick the readings the dashboard shows as tiles and put them in order. The "
                                "active profile keeps the choice; with none ticked, every reading the car "
                                "sends is shown."),
                             this);
    intro->setObjectName(QStringLiteral("mutedText"));
    intro->setWordWrap(true);
    column->addWidget(intro);

    auto *row = new QHBoxLayout;
    row->setSpacing(12);
    m_list = new QListWidget(this);
    m_list->setMinimumHeight(260);
    row->addWidget(m_list, 1);
    auto *moves = new QVBoxLayout;
    moves->setSpacing(8);
    m_up = new QPushButton(tr("Move up"), this);
    m_down = new QPushButton(tr("Move down"), this);
    moves->addWidget(m_up);
    moves->addWidget(m_down);
    moves->addStretch(1);
    row->addLayout(moves);
    column->addLayout(row, 1);

    auto *form = new QFormLayout;
    m_label = new QLineEdit(this);
    m_label->setMaxLength(maxLabelLength);
    m_label->setPlaceholderText(tr("The sensor's own name"));
    form->addRow(tr("Label of the highlighted reading"), m_label);
    column->addLayout(form);
    m_discover = new QCheckBox(tr("Add readings the car reports for the first time to the list"), this);
    column->addWidget(m_discover);

    connect(m_list, &QListWidget::itemChanged, this, [this] { emit chosen(chosenKeys()); });
    connect(m_list, &QListWidget::currentRowChanged, this, &DashboardSettingsDialog::updateButtons);
    connect(m_up, &QPushButton::clicked, this, [this] { move(-1); });
    connect(m_down, &QPushButton::clicked, this, [this] { move(+1); });
    connect(m_label, &QLineEdit::editingFinished, this, &DashboardSettingsDialog::renameCurrent);
    connect(m_discover, &QCheckBox::toggled, this, &DashboardSettingsDialog::discoveryToggled);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
    updateButtons();
}

QStringList DashboardSettingsDialog::chosenKeys() const
{
    QStringList keys;
    for (int row = 0; row < m_list->count(); ++row) {
        if (m_list->item(row)->checkState() == Qt::Checked)
            keys.append(m_list->item(row)->data(kKeyRole).toString());
    }
    return keys;
}

void DashboardSettingsDialog::showTiles(const QList<Tile> &tiles)
{
    const QString current = currentKey();
    {
        const QSignalBlocker quiet(m_list);
        m_list->clear();
        for (const Tile &tile : tiles) {
            auto *item = new QListWidgetItem(itemText(tile), m_list);
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
            item->setCheckState(tile.shown ? Qt::Checked : Qt::Unchecked);
            item->setData(kKeyRole, tile.key);
            item->setData(kLabelRole, tile.label == tile.key ? QString() : tile.label);
            item->setData(kRenamableRole, tile.renamable);
            if (tile.key == current)
                m_list->setCurrentItem(item);
        }
    }
    updateButtons();
}

void DashboardSettingsDialog::showDiscovery(bool enabled)
{
    const QSignalBlocker quiet(m_discover);
    m_discover->setChecked(enabled);
}

QString DashboardSettingsDialog::currentKey() const
{
    const QListWidgetItem *item = m_list->currentItem();
    return item ? item->data(kKeyRole).toString() : QString();
}

void DashboardSettingsDialog::renameCurrent()
{
    const QListWidgetItem *item = m_list->currentItem();
    if (!item || !item->data(kRenamableRole).toBool())
        return;
    const QString label = m_label->text().trimmed();
    if (label != item->data(kLabelRole).toString())
        emit renamed(item->data(kKeyRole).toString(), label);
}

void DashboardSettingsDialog::showError(const QString &message)
{
    m_notice->showMessage(message);
}

void DashboardSettingsDialog::move(int step)
{
    const int from = m_list->currentRow();
    const int to = from + step;
    if (from < 0 || to < 0 || to >= m_list->count())
        return;
    {
        const QSignalBlocker quiet(m_list);
        m_list->insertItem(to, m_list->takeItem(from));
        m_list->setCurrentRow(to);
    }
    updateButtons();
    emit chosen(chosenKeys());
}

void DashboardSettingsDialog::updateButtons()
{
    const int row = m_list->currentRow();
    m_up->setEnabled(row > 0);
    m_down->setEnabled(row >= 0 && row < m_list->count() - 1);
    const QListWidgetItem *item = m_list->currentItem();
    const bool renamable = item && item->data(kRenamableRole).toBool();
    m_label->setEnabled(renamable);
    // A list refreshed while a label is being typed leaves the typing alone.
    if (!m_label->hasFocus() || currentKey() != m_labelKey) {
        m_label->setText(renamable ? item->data(kLabelRole).toString() : QString());
        m_labelKey = currentKey();
    }
}

} // namespace tavrix

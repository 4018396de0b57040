#include "dashboardsettingsdialog.h"

#include "notice.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tavrix {

DashboardSettingsDialog::DashboardSettingsDialog(QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Dashboard tiles"));
    setMinimumWidth(480);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(12);
    m_notice = new hub::Notice(hub::Glyph::Gauge, QString(), this);
    m_notice->setTone(hub::Tone::Danger);
    m_notice->hide();
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

    connect(m_list, &QListWidget::itemChanged, this, [this] { emit chosen(chosenKeys()); });
    connect(m_list, &QListWidget::currentRowChanged, this, &DashboardSettingsDialog::updateButtons);
    connect(m_up, &QPushButton::clicked, this, [this] { move(-1); });
    connect(m_down, &QPushButton::clicked, this, [this] { move(+1); });

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
            keys.append(m_list->item(row)->text());
    }
    return keys;
}

void DashboardSettingsDialog::showTiles(const QList<Tile> &tiles)
{
    const QListWidgetItem *current = m_list->currentItem();
    const QString currentKey = current ? current->text() : QString();
    {
        const QSignalBlocker quiet(m_list);
        m_list->clear();
        for (const Tile &tile : tiles) {
            auto *item = new QListWidgetItem(tile.key, m_list);
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
            item->setCheckState(tile.shown ? Qt::Checked : Qt::Unchecked);
            if (tile.key == currentKey)
                m_list->setCurrentItem(item);
        }
    }
    updateButtons();
}

void DashboardSettingsDialog::showError(const QString &message)
{
    m_notice->setText(message);
    m_notice->setVisible(!message.isEmpty());
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
}

} // namespace tavrix

#include "escpresetsdialog.h"

#include "notice.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tavrix {

namespace {

constexpr int kIdRole = Qt::UserRole;
constexpr int kNameRole = Qt::UserRole + 1;

} // namespace

EscPresetsDialog::EscPresetsDialog(int nameLength, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("ESC presets"));
    setMinimumWidth(520);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(12);
    m_notice = hub::Notice::refusal(hub::Glyph::Gauge, this);
    column->addWidget(m_notice);
    m_current = new hub::Notice(hub::Glyph::Gauge, QString(), this);
    column->addWidget(m_current);

    m_list = new QListWidget(this);
    connect(m_list, &QListWidget::itemSelectionChanged, this, &EscPresetsDialog::showSelected);
    column->addWidget(m_list, 1);

    auto *form = new QGridLayout;
    form->addWidget(new QLabel(tr("Name"), this), 0, 0);
    m_name = new QLineEdit(this);
    m_name->setMaxLength(nameLength);
    form->addWidget(m_name, 0, 1, 1, 3);
    m_create = new QPushButton(tr("Save as new"), this);
    m_rename = new QPushButton(tr("Rename"), this);
    m_update = new QPushButton(tr("Update with current values"), this);
    m_delete = new QPushButton(tr("Delete"), this);
    const QList<QPushButton *> actions = {m_create, m_rename, m_update, m_delete};
    for (int i = 0; i < actions.size(); ++i)
        form->addWidget(actions.at(i), 1, i);
    column->addLayout(form);
    connect(m_create, &QPushButton::clicked, this, [this] { emit createRequested(m_name->text()); });
    connect(m_rename, &QPushButton::clicked, this,
            [this] { emit renameRequested(selectedId(), m_name->text()); });
    connect(m_update, &QPushButton::clicked, this, [this] { emit updateRequested(selectedId()); });
    connect(m_delete, &QPushButton::clicked, this, [this] { emit deleteRequested(selectedId()); });

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
    showPresets({});
}

QString EscPresetsDialog::selectedId() const
{
    const QList<QListWidgetItem *> selected = m_list->selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->data(kIdRole).toString();
}

void EscPresetsDialog::showPresets(const QList<Entry> &presets, const QString &selected)
{
    const QString keep = selected.isEmpty() ? selectedId() : selected;
    {
        const QSignalBlocker quiet(m_list);
        m_list->clear();
        for (const Entry &preset : presets) {
            auto *item = new QListWidgetItem(tr("%1 \u2014 reverse %2, neutral %3, forward %4")
                                                 .arg(preset.name)
                                                 .arg(preset.fullReverse)
                                                 .arg(preset.neutral)
                                                 .arg(preset.fullForward),
                                             m_list);
            item->setData(kIdRole, preset.id);
            item->setData(kNameRole, preset.name);
            if (preset.id == keep)
                item->setSelected(true);
        }
    }
    showSelected();
}

void EscPresetsDialog::showCurrentValues(int neutral, int fullForward, int fullReverse)
{
    m_current->setText(tr("Current ESC values: reverse %1, neutral %2, forward %3")
                           .arg(fullReverse)
                           .arg(neutral)
                           .arg(fullForward));
}

void EscPresetsDialog::showError(const QString &message)
{
    m_notice->showMessage(message);
}

void EscPresetsDialog::showSelected()
{
    const QList<QListWidgetItem *> selected = m_list->selectedItems();
    if (!selected.isEmpty())
        m_name->setText(selected.first()->data(kNameRole).toString());
    for (QPushButton *action : {m_rename, m_update, m_delete})
        action->setEnabled(!selected.isEmpty());
}

} // namespace tavrix

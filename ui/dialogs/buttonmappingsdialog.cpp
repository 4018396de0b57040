#include "buttonmappingsdialog.h"

#include "notice.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tavrix {

namespace {

enum Column
{
    ControlColumn,
    BehaviourColumn,
    ChannelColumn,
    SummaryColumn,
    ColumnCount
};

} // namespace

ButtonMappingsDialog::ButtonMappingsDialog(const ButtonMappingEditor::Limits &limits, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Button mappings"));
    setMinimumWidth(900);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(12);
    m_notice = hub::Notice::refusal(hub::Glyph::Wheel, this);
    column->addWidget(m_notice);

    m_pressNotice =
        new hub::Notice(hub::Glyph::Wheel, tr("Press a button or a hat direction on the wheel\u2026"), this);
    m_pressNotice->setTone(hub::Tone::Accent);
    m_cancelPress = new QPushButton(tr("Cancel"), m_pressNotice);
    connect(m_cancelPress, &QPushButton::clicked, this, &ButtonMappingsDialog::pressCancelled);
    m_pressNotice->layout()->addWidget(m_cancelPress);
    m_pressNotice->hide();
    column->addWidget(m_pressNotice);

    auto *columns = new QHBoxLayout;
    columns->setSpacing(16);
    auto *list = new QVBoxLayout;
    m_table = new QTableWidget(0, ColumnCount, this);
    m_table->setHorizontalHeaderLabels({tr("Control"), tr("Behaviour"), tr("Channel"), tr("Sends")});
    m_table->verticalHeader()->hide();
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->horizontalHeader()->setStretchLastSection(true);
    connect(m_table, &QTableWidget::itemSelectionChanged, this, &ButtonMappingsDialog::showSelected);
    list->addWidget(m_table, 1);
    auto *actions = new QHBoxLayout;
    m_add = new QPushButton(tr("Add by pressing\u2026"), this);
    connect(m_add, &QPushButton::clicked, this, [this] { emit pressRequested(-1); });
    m_remove = new QPushButton(tr("Remove"), this);
    connect(m_remove, &QPushButton::clicked, this, [this] {
        if (selectedRow() >= 0)
            emit removeRequested(selectedRow());
    });
    actions->addWidget(m_add);
    actions->addWidget(m_remove);
    actions->addStretch(1);
    list->addLayout(actions);
    columns->addLayout(list, 5);

    m_editor = new ButtonMappingEditor(limits, this);
    connect(m_editor, &ButtonMappingEditor::edited, this, [this](const Mapping &mapping) {
        if (selectedRow() >= 0)
            emit mappingEdited(selectedRow(), mapping);
    });
    connect(m_editor, &ButtonMappingEditor::pressRequested, this, [this] {
        if (selectedRow() >= 0)
            emit pressRequested(selectedRow());
    });
    connect(m_editor, &ButtonMappingEditor::extraPressRequested, this, [this] {
        if (selectedRow() >= 0)
            emit extraPressRequested(selectedRow());
    });
    columns->addWidget(m_editor, 3);
    column->addLayout(columns, 1);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
    showMappings({});
}

int ButtonMappingsDialog::selectedRow() const
{
    const QList<QTableWidgetItem *> selected = m_table->selectedItems();
    return selected.isEmpty() ? -1 : selected.first()->row();
}

void ButtonMappingsDialog::showMappings(const QList<Mapping> &mappings, int selected)
{
    if (selected < 0)
        selected = selectedRow();
    m_mappings = mappings;
    {
        const QSignalBlocker quiet(m_table);
        m_table->setRowCount(int(mappings.size()));
        for (int row = 0; row < mappings.size(); ++row) {
            const Mapping &m = mappings.at(row);
            const QString controls = ButtonMappingEditor::controlsName(m);
            const QString control =
                m.name.isEmpty() ? controls : QStringLiteral("%1 (%2)").arg(m.name, controls);
            const QStringList cells = {control, ButtonMappingEditor::behaviourName(m.behaviour),
                                       tr("CH%1").arg(m.channel + 1), ButtonMappingEditor::summary(m)};
            for (int cell = 0; cell < ColumnCount; ++cell) {
                auto *item = new QTableWidgetItem(cells.at(cell));
                // A narrow column elides; the whole text is a hover away.
                item->setToolTip(cells.at(cell));
                m_table->setItem(row, cell, item);
            }
        }
        m_table->clearSelection();
        if (!mappings.isEmpty())
            m_table->selectRow(int(std::min<qsizetype>(std::max(selected, 0), mappings.size() - 1)));
    }
    showSelected();
}

void ButtonMappingsDialog::showWaitingForPress(bool waiting)
{
    m_waiting = waiting;
    m_pressNotice->setVisible(waiting);
    m_add->setEnabled(!waiting);
    m_remove->setEnabled(!waiting && selectedRow() >= 0);
    m_editor->setEnabled(!waiting && selectedRow() >= 0);
    m_table->setEnabled(!waiting);
}

void ButtonMappingsDialog::showError(const QString &message)
{
    m_notice->showMessage(message);
}

void ButtonMappingsDialog::showSelected()
{
    const int row = selectedRow();
    if (row >= 0)
        m_editor->showValues(m_mappings.at(row));
    m_editor->setEnabled(!m_waiting && row >= 0);
    m_remove->setEnabled(!m_waiting && row >= 0);
}

} // namespace tavrix

#include "radiosettingsview.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace tavrix {

RadioSettingsView::RadioSettingsView(QWidget *parent)
    : QWidget(parent)
{
    m_column = new QVBoxLayout(this);
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(12);
}

void RadioSettingsView::setGroups(const QList<RadioSettingGroup> &groups)
{
    for (const Group &group : std::as_const(m_groups))
        delete group.widget;
    m_groups.clear();
    m_choices.clear();

    for (const RadioSettingGroup &source : groups) {
        Group group{source.title, new QWidget(this), {}};
        auto *column = new QVBoxLayout(group.widget);
        column->setContentsMargins(0, 0, 0, 0);
        if (!source.title.isEmpty()) {
            auto *title = new QLabel(source.title, group.widget);
            title->setObjectName(QStringLiteral("sectionLabel"));
            column->addWidget(title);
        }
        auto *form = new QFormLayout;
        form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
        for (const RadioSetting &setting : source.settings) {
            QWidget *field = createField(setting, group.widget);
            group.fields.insert(setting.name, field);
            form->addRow(setting.name, field);
        }
        column->addLayout(form);
        m_column->addWidget(group.widget);
        m_groups.append(group);
    }
}

QWidget *RadioSettingsView::createField(const RadioSetting &setting, QWidget *parent)
{
    auto *field = new QWidget(parent);
    auto *row = new QHBoxLayout(field);
    row->setContentsMargins(0, 0, 0, 0);
    switch (setting.kind) {
    case RadioSetting::Kind::Choice:
        row->addWidget(createChoice(setting, field), 1);
        break;
    case RadioSetting::Kind::Value:
        row->addWidget(new QLabel(setting.value, field), 1);
        break;
    case RadioSetting::Kind::Command: {
        // Commands (bind, Wi-Fi update and the like) change the module's state in ways the
        // hub cannot follow; they are shown so the list matches the module's own menu.
        auto *note = new QLabel(tr("Command, run on the module itself"), field);
        note->setObjectName(QStringLiteral("mutedText"));
        row->addWidget(note, 1);
        break;
    }
    }
    if (!setting.units.isEmpty())
        row->addWidget(new QLabel(setting.units, field));
    return field;
}

QComboBox *RadioSettingsView::createChoice(const RadioSetting &setting, QWidget *parent)
{
    auto *box = new QComboBox(parent);
    for (const RadioSetting::Option &option : setting.options)
        box->addItem(option.label, option.index);
    box->setCurrentIndex(box->findData(setting.current));
    const QString name = setting.name;
    // activated, not currentIndexChanged: a value set from outside must not be written back.
    connect(box, &QComboBox::activated, this,
            [this, box, name](int row) { emit choiceMade(name, box->itemData(row).toInt()); });
    m_choices.insert(name, box);
    return box;
}

void RadioSettingsView::setChoice(const QString &name, int optionIndex)
{
    if (QComboBox *box = m_choices.value(name))
        box->setCurrentIndex(box->findData(optionIndex));
}

QStringList RadioSettingsView::groupTitles() const
{
    QStringList titles;
    for (const Group &group : m_groups)
        titles.append(group.title);
    return titles;
}

QWidget *RadioSettingsView::field(const QString &group, const QString &name) const
{
    for (const Group &candidate : m_groups) {
        if (candidate.title == group)
            return candidate.fields.value(name);
    }
    return nullptr;
}

} // namespace tavrix

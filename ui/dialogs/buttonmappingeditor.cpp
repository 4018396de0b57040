#include "buttonmappingeditor.h"

#include "inputdevice.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

#include <memory>
#include <vector>

namespace tavrix {

namespace {

using Behaviour = ButtonMappingEditor::Behaviour;

constexpr Behaviour kBehaviours[] = {Behaviour::Momentary, Behaviour::HoldToRaise, Behaviour::HoldToLower,
                                     Behaviour::Toggle, Behaviour::SwitchPosition};

bool isHold(Behaviour behaviour)
{
    return behaviour == Behaviour::HoldToRaise || behaviour == Behaviour::HoldToLower;
}

} // namespace

ButtonMappingEditor::ButtonMappingEditor(const Limits &limits, QWidget *parent)
    : QWidget(parent)
{
    m_form = new QFormLayout(this);
    m_form->setContentsMargins(0, 0, 0, 0);
    m_form->setVerticalSpacing(6);

    m_name = new QLineEdit(this);
    m_name->setMaxLength(limits.nameLength);
    m_name->setPlaceholderText(tr("Horn, lights, \u2026"));
    connect(m_name, &QLineEdit::editingFinished, this, [this] {
        if (m_name->isModified())
            emitEdited();
        m_name->setModified(false);
    });
    m_form->addRow(tr("Name"), m_name);

    m_source = new QComboBox(this);
    m_source->addItem(tr("None"), -1);
    for (int source = 0; source < InputDevice::kUnifiedIndexEnd; ++source)
        m_source->addItem(sourceName(source), source);
    m_source->setMaxVisibleItems(16);
    connect(m_source, &QComboBox::activated, this, &ButtonMappingEditor::emitEdited);
    m_inputs.append(m_source);
    m_press = new QPushButton(tr("Press\u2026"), this);
    m_press->setToolTip(tr("Pick the control by pressing it on the wheel"));
    connect(m_press, &QPushButton::clicked, this, &ButtonMappingEditor::pressRequested);
    auto *control = new QHBoxLayout;
    control->addWidget(m_source, 1);
    control->addWidget(m_press);
    m_form->addRow(tr("Control"), control);

    m_extraLimit = limits.extraSources;
    m_extras = new QLabel(this);
    m_extras->setWordWrap(true);
    m_addExtra = new QPushButton(tr("Add\u2026"), this);
    m_addExtra->setToolTip(tr("Add a further control by pressing it"));
    connect(m_addExtra, &QPushButton::clicked, this, &ButtonMappingEditor::extraPressRequested);
    m_removeExtra = new QPushButton(tr("Remove"), this);
    m_removeExtra->setMenu(new QMenu(m_removeExtra));
    auto *extras = new QHBoxLayout;
    extras->addWidget(m_extras, 1);
    extras->addWidget(m_addExtra);
    extras->addWidget(m_removeExtra);
    m_form->addRow(tr("Also pressed by"), extras);

    m_behaviour = new QComboBox(this);
    for (Behaviour behaviour : kBehaviours)
        m_behaviour->addItem(behaviourName(behaviour), int(behaviour));
    connect(m_behaviour, &QComboBox::activated, this, &ButtonMappingEditor::emitEdited);
    m_inputs.append(m_behaviour);
    m_form->addRow(tr("Behaviour"), m_behaviour);

    // Filled by showChannels(), for the vehicle of the profile shown.
    m_channel = new QComboBox(this);
    connect(m_channel, &QComboBox::activated, this, &ButtonMappingEditor::emitEdited);
    m_inputs.append(m_channel);
    m_form->addRow(tr("Channel"), m_channel);

    m_pressed = valueBox(limits.valueMin, limits.valueMax);
    m_form->addRow(tr("Pressed value"), m_pressed);
    m_start = valueBox(limits.valueMin, limits.valueMax);
    m_form->addRow(tr("Released value"), m_start);
    m_rate = valueBox(0, limits.rateMax);
    m_rate->setSuffix(tr(" per s"));
    m_form->addRow(tr("Rate"), m_rate);
    m_minimum = valueBox(limits.valueMin, limits.valueMax);
    m_form->addRow(tr("Lowest value"), m_minimum);
    m_maximum = valueBox(limits.valueMin, limits.valueMax);
    m_form->addRow(tr("Highest value"), m_maximum);

    m_pitLimiter = new QCheckBox(tr("Activate Pit Limiter when pressed"), this);
    connect(m_pitLimiter, &QCheckBox::toggled, this, &ButtonMappingEditor::emitEdited);
    m_inputs.append(m_pitLimiter);
    m_form->addRow(QString(), m_pitLimiter);
    showValues(Values{});
}

QString ButtonMappingEditor::sourceName(int source)
{
    if (source < 0 || source >= InputDevice::kUnifiedIndexEnd)
        return tr("None");
    if (source < InputDevice::kPovIndexBase)
        return tr("Button %1").arg(source + 1);
    if (source < InputDevice::kAxisButtonIndexBase) {
        const int hat = (source - InputDevice::kPovIndexBase) / 4 + 1;
        switch ((source - InputDevice::kPovIndexBase) % 4) {
        case 0:
            return tr("Hat %1 up").arg(hat);
        case 1:
            return tr("Hat %1 right").arg(hat);
        case 2:
            return tr("Hat %1 down").arg(hat);
        default:
            return tr("Hat %1 left").arg(hat);
        }
    }
    const int axis = (source - InputDevice::kAxisButtonIndexBase) / 2 + 1;
    return (source - InputDevice::kAxisButtonIndexBase) % 2 == 0 ? tr("Axis %1 +").arg(axis)
                                                                 : tr("Axis %1 \u2212").arg(axis);
}

QString ButtonMappingEditor::controlsName(const Values &values)
{
    QStringList names{sourceName(values.source)};
    for (int extra : values.extraSources)
        names.append(sourceName(extra));
    return names.join(QStringLiteral(", "));
}

QString ButtonMappingEditor::behaviourName(Behaviour behaviour)
{
    switch (behaviour) {
    case Behaviour::Momentary:
        return tr("Momentary");
    case Behaviour::HoldToRaise:
        return tr("Hold to raise");
    case Behaviour::HoldToLower:
        return tr("Hold to lower");
    case Behaviour::Toggle:
        return tr("Toggle");
    case Behaviour::SwitchPosition:
        return tr("Switch position");
    }
    return QString();
}

QString ButtonMappingEditor::summary(const Values &v)
{
    QString text;
    switch (v.behaviour) {
    case Behaviour::Momentary:
        text = tr("%1 pressed, %2 released").arg(v.pressedValue).arg(v.startValue);
        break;
    case Behaviour::HoldToRaise:
    case Behaviour::HoldToLower:
        text =
            tr("%1%2/s in %3\u2013%4, from %5")
                .arg(v.behaviour == Behaviour::HoldToRaise ? QStringLiteral("+") : QStringLiteral("\u2212"))
                .arg(v.rate)
                .arg(v.minimum)
                .arg(v.maximum)
                .arg(v.startValue);
        break;
    case Behaviour::Toggle:
        text = tr("on %1, off %2").arg(v.pressedValue).arg(v.startValue);
        break;
    case Behaviour::SwitchPosition:
        text = tr("%1, from %2").arg(v.pressedValue).arg(v.startValue);
        break;
    }
    return v.pitLimiter ? tr("%1, pit limiter").arg(text) : text;
}

QSpinBox *ButtonMappingEditor::valueBox(int minimum, int maximum)
{
    auto *box = new QSpinBox(this);
    box->setRange(minimum, maximum);
    // One edit when typing is done, not one per key: each edit is saved.
    box->setKeyboardTracking(false);
    connect(box, &QSpinBox::valueChanged, this, &ButtonMappingEditor::emitEdited);
    m_inputs.append(box);
    return box;
}

ButtonMappingEditor::Values ButtonMappingEditor::values() const
{
    Values v;
    v.name = m_name->text();
    v.source = m_source->currentData().toInt();
    v.extraSources = m_extraSources;
    v.behaviour = Behaviour(m_behaviour->currentData().toInt());
    v.channel = m_channel->currentData().toInt();
    v.pressedValue = m_pressed->value();
    v.startValue = m_start->value();
    v.rate = m_rate->value();
    v.minimum = m_minimum->value();
    v.maximum = m_maximum->value();
    v.pitLimiter = m_pitLimiter->isChecked();
    return v;
}

bool ButtonMappingEditor::isShown(QWidget *field) const
{
    return m_form->isRowVisible(field);
}

void ButtonMappingEditor::showChannels(int first, int last)
{
    if (m_channel->count() == last - first + 1 && m_channel->itemData(0).toInt() == first)
        return;
    const QSignalBlocker quiet(m_channel);
    m_channel->clear();
    for (int channel = first; channel <= last; ++channel)
        m_channel->addItem(tr("CH%1").arg(channel + 1), channel);
}

void ButtonMappingEditor::showValues(const Values &v)
{
    std::vector<std::unique_ptr<QSignalBlocker>> quiet;
    for (QWidget *input : std::as_const(m_inputs))
        quiet.push_back(std::make_unique<QSignalBlocker>(input));
    m_name->setText(v.name);
    m_name->setModified(false);
    m_source->setCurrentIndex(std::max(0, m_source->findData(v.source)));
    m_extraSources = v.extraSources;
    showExtras();
    m_behaviour->setCurrentIndex(std::max(0, m_behaviour->findData(int(v.behaviour))));
    // A stored channel outside the list (a hand-edited file, or a profile that changed its
    // vehicle) shows as the first one.
    m_channel->setCurrentIndex(std::max(0, m_channel->findData(v.channel)));
    m_pressed->setValue(v.pressedValue);
    m_start->setValue(v.startValue);
    m_rate->setValue(v.rate);
    m_minimum->setValue(v.minimum);
    m_maximum->setValue(v.maximum);
    m_pitLimiter->setChecked(v.pitLimiter);
    showFieldsOfBehaviour();
}

void ButtonMappingEditor::emitEdited()
{
    showFieldsOfBehaviour();
    emit edited(values());
}

void ButtonMappingEditor::showExtras()
{
    QStringList names;
    for (int extra : std::as_const(m_extraSources))
        names.append(sourceName(extra));
    m_extras->setText(names.isEmpty() ? tr("None") : names.join(QStringLiteral(", ")));
    m_addExtra->setEnabled(m_extraSources.size() < m_extraLimit);
    QMenu *menu = m_removeExtra->menu();
    menu->clear();
    for (qsizetype i = 0; i < m_extraSources.size(); ++i) {
        const int extra = m_extraSources.at(i);
        // Queued: the edit shows the stored mapping back, which rebuilds this menu, and an
        // action must not be deleted while it is still emitting.
        connect(
            menu->addAction(names.at(i)), &QAction::triggered, this,
            [this, extra] {
                m_extraSources.removeOne(extra);
                showExtras();
                emitEdited();
            },
            Qt::QueuedConnection);
    }
    m_removeExtra->setEnabled(!m_extraSources.isEmpty());
}

void ButtonMappingEditor::showFieldsOfBehaviour()
{
    const auto behaviour = Behaviour(m_behaviour->currentData().toInt());
    const bool hold = isHold(behaviour);
    m_form->setRowVisible(m_pressed, !hold);
    for (QWidget *field : {static_cast<QWidget *>(m_rate), static_cast<QWidget *>(m_minimum),
                           static_cast<QWidget *>(m_maximum)})
        m_form->setRowVisible(field, hold);
    QString pressed;
    QString start = tr("Start value");
    switch (behaviour) {
    case Behaviour::Momentary:
        pressed = tr("Pressed value");
        start = tr("Released value");
        break;
    case Behaviour::Toggle:
        pressed = tr("ON value");
        start = tr("OFF value");
        break;
    case Behaviour::SwitchPosition:
        pressed = tr("Position value");
        break;
    case Behaviour::HoldToRaise:
    case Behaviour::HoldToLower:
        break;
    }
    if (auto *label = qobject_cast<QLabel *>(m_form->labelForField(m_pressed)))
        label->setText(pressed);
    if (auto *label = qobject_cast<QLabel *>(m_form->labelForField(m_start)))
        label->setText(start);
}

} // namespace tavrix

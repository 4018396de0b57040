#include "helisettingsdialog.h"

#include "notice.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

namespace tavrix {

HeliSettingsDialog::HeliSettingsDialog(const QString &title, const Limits &limits, QWidget *parent)
    : QDialog(parent)
    , m_limits(limits)
{
    setWindowTitle(title);
    setMinimumWidth(640);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(12);
    m_notice = hub::Notice::refusal(hub::Glyph::Helicopter, this);
    column->addWidget(m_notice);
    m_lockNotice = new hub::Notice(hub::Glyph::Helicopter, QString(), this);
    m_lockNotice->setTone(hub::Tone::Warning);
    m_lockNotice->hide();
    column->addWidget(m_lockNotice);
    // One widget around the content, so a lock disables every editor and button in it.
    m_body = new QWidget(this);
    m_content = new QVBoxLayout(m_body);
    m_content->setContentsMargins(0, 0, 0, 0);
    m_content->setSpacing(12);
    column->addWidget(m_body, 1);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
}

void HeliSettingsDialog::showError(const QString &message)
{
    m_notice->showMessage(message);
}

void HeliSettingsDialog::setLocked(const QString &reason)
{
    m_lockNotice->showMessage(reason);
    m_body->setEnabled(reason.isEmpty());
}

QSpinBox *HeliSettingsDialog::spinBox(int minimum, int maximum, QWidget *parent)
{
    auto *box = new QSpinBox(parent);
    box->setRange(minimum, maximum);
    // One edit when typing is done, not one per key: each edit is saved.
    box->setKeyboardTracking(false);
    connect(box, &QSpinBox::valueChanged, this, &HeliSettingsDialog::userEdited);
    m_editors.append(box);
    return box;
}

QCheckBox *HeliSettingsDialog::checkBox(const QString &text, QWidget *parent)
{
    auto *box = new QCheckBox(text, parent);
    connect(box, &QCheckBox::toggled, this, &HeliSettingsDialog::userEdited);
    m_editors.append(box);
    return box;
}

QComboBox *HeliSettingsDialog::indexBox(const QString &none, const QString &pattern, int last,
                                        QWidget *parent)
{
    auto *box = new QComboBox(parent);
    box->addItem(none, kNotSent);
    for (int index = 0; index <= last; ++index)
        box->addItem(pattern.arg(index + 1), index);
    connect(box, &QComboBox::activated, this, &HeliSettingsDialog::userEdited);
    m_editors.append(box);
    return box;
}

QComboBox *HeliSettingsDialog::channelBox(QWidget *parent)
{
    return indexBox(tr("Not sent"), tr("CH%1"), m_limits.lastChannel, parent);
}

QComboBox *HeliSettingsDialog::axisBox(QWidget *parent)
{
    return indexBox(tr("None"), tr("Axis %1"), m_limits.lastAxisSlot, parent);
}

void HeliSettingsDialog::select(QComboBox *box, int value)
{
    // A stored index the box does not offer is one the profile does not use either.
    box->setCurrentIndex(std::max(0, box->findData(value)));
}

int HeliSettingsDialog::selected(const QComboBox *box)
{
    return box->currentData().toInt();
}

QLabel *HeliSettingsDialog::explanation(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setObjectName(QStringLiteral("mutedText"));
    label->setWordWrap(true);
    return label;
}

QFormLayout *HeliSettingsDialog::form(QWidget *page)
{
    auto *form = new QFormLayout(page);
    form->setContentsMargins(0, 0, 0, 0);
    form->setVerticalSpacing(6);
    return form;
}

std::vector<std::unique_ptr<QSignalBlocker>> HeliSettingsDialog::quietEditors() const
{
    std::vector<std::unique_ptr<QSignalBlocker>> quiet;
    for (QWidget *editor : m_editors)
        quiet.push_back(std::make_unique<QSignalBlocker>(editor));
    return quiet;
}

} // namespace tavrix

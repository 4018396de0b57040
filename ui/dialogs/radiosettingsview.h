#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QWidget>

class QComboBox;
class QVBoxLayout;

namespace tavrix {

// One setting of the transmitter's radio module as the dialog shows it.
struct RadioSetting
{
    enum class Kind
    {
        Choice,  // a selector over its options
        Value,   // a read-only number or text
        Command, // listed, never run from here
    };
    struct Option
    {
        // What the module is sent when this option is chosen.
        int index = 0;
        QString label;
    };

    QString name;
    Kind kind = Kind::Value;
    QList<Option> options;
    // Choice: the current option's index, -1 when unknown.
    int current = -1;
    // Value: the text shown.
    QString value;
    QString units;
};

// The settings of one folder of the module; an empty title is the top level.
struct RadioSettingGroup
{
    QString title;
    QList<RadioSetting> settings;
};

// The module's settings in titled groups, a selector per choice. Only a choice the user
// makes is reported; values set from outside never come back as choiceMade.
class RadioSettingsView : public QWidget
{
    Q_OBJECT
public:
    explicit RadioSettingsView(QWidget *parent = nullptr);

    void setGroups(const QList<RadioSettingGroup> &groups);
    // Shows another current option for a choice, without reporting it.
    void setChoice(const QString &name, int optionIndex);

    [[nodiscard]] QStringList groupTitles() const;
    // The field shown for `name` in the group titled `group` (the selector with its units, or
    // the value), or null when that group does not list it.
    [[nodiscard]] QWidget *field(const QString &group, const QString &name) const;
    [[nodiscard]] QComboBox *choiceBox(const QString &name) const { return m_choices.value(name); }

signals:
    void choiceMade(const QString &name, int optionIndex);

private:
    struct Group
    {
        QString title;
        QWidget *widget = nullptr;
        QHash<QString, QWidget *> fields;
    };
    [[nodiscard]] QWidget *createField(const RadioSetting &setting, QWidget *parent);
    [[nodiscard]] QComboBox *createChoice(const RadioSetting &setting, QWidget *parent);

    QVBoxLayout *m_column = nullptr;
    QList<Group> m_groups;
    QHash<QString, QComboBox *> m_choices;
};

} // namespace tavrix

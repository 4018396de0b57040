#include "profilesdialog.h"

#include "notice.h"

#include <QDateTime>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

namespace tavrix {

namespace {

enum Column
{
    NameColumn,
    StateColumn,
    ModifiedColumn,
    ColumnCount
};

constexpr int kIdRole = Qt::UserRole;
constexpr int kActiveRole = Qt::UserRole + 1;

QString jsonFilter()
{
    return ProfilesDialog::tr("Profiles (*.json)");
}

QString shownDate(const QString &iso)
{
    const QDateTime when = QDateTime::fromString(iso, Qt::ISODate);
    return when.isValid() ? QLocale().toString(when.toLocalTime(), QLocale::ShortFormat) : QString();
}

ProfilesDialog::Prompts filePrompts()
{
    ProfilesDialog::Prompts prompts;
    prompts.importPath = [](QWidget *parent) {
        return QFileDialog::getOpenFileName(parent, ProfilesDialog::tr("Import profile"), QString(),
                                            jsonFilter());
    };
    prompts.exportPath = [](QWidget *parent, const QString &suggested) {
        return QFileDialog::getSaveFileName(parent, ProfilesDialog::tr("Export profile"), suggested,
                                            jsonFilter());
    };
    prompts.confirmDelete = [](QWidget *parent, const QString &name) {
        return QMessageBox::question(parent, ProfilesDialog::tr("Delete profile"),
                                     ProfilesDialog::tr("Delete the profile \u201C%1\u201D and its file? "
                                                        "This cannot be undone.")
                                         .arg(name)) == QMessageBox::Yes;
    };
    return prompts;
}

// A file name the file systems of both platforms accept, from a profile's name.
QString fileNameFor(const QString &profileName)
{
    QString name = profileName;
    for (QChar &c : name) {
        if (QStringLiteral("\\/:*?\"<>|").contains(c) || c.unicode() < 0x20)
            c = QLatin1Char('_');
    }
    return name.trimmed().isEmpty() ? QStringLiteral("profile.json")
                                    : name.trimmed() + QStringLiteral(".json");
}

} // namespace

ProfilesDialog::ProfilesDialog(QWidget *parent)
    : QDialog(parent)
    , m_prompts(filePrompts())
{
    setWindowTitle(tr("Profiles"));
    setMinimumWidth(640);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(12);
    m_notice = hub::Notice::refusal(hub::Glyph::Info, this);
    column->addWidget(m_notice);

    auto *intro =
        new QLabel(tr("Each profile keeps a vehicle's settings. Transmission drives with the active one; "
                      "a switch while it runs takes effect once it stops."),
                   this);
    intro->setObjectName(QStringLiteral("mutedText"));
    intro->setWordWrap(true);
    column->addWidget(intro);

    auto *row = new QHBoxLayout;
    row->setSpacing(12);
    m_list = new QTreeWidget(this);
    m_list->setColumnCount(ColumnCount);
    m_list->setHeaderLabels({tr("Profile"), tr("State"), tr("Last changed")});
    m_list->setRootIsDecorated(false);
    m_list->setItemsExpandable(false);
    m_list->setUniformRowHeights(true);
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    m_list->header()->setSectionResizeMode(StateColumn, QHeaderView::ResizeToContents);
    m_list->header()->setSectionResizeMode(ModifiedColumn, QHeaderView::ResizeToContents);
    m_list->setMinimumHeight(220);
    connect(m_list, &QTreeWidget::itemSelectionChanged, this, &ProfilesDialog::selectionChanged);
    connect(m_list, &QTreeWidget::itemDoubleClicked, this, [this] {
        if (!selectedId().isEmpty())
            emit activateRequested(selectedId());
    });
    row->addWidget(m_list, 1);
    row->addWidget(buildActions());
    column->addLayout(row, 1);

    auto *nameRow = new QHBoxLayout;
    nameRow->setSpacing(8);
    nameRow->addWidget(new QLabel(tr("Name"), this));
    m_name = new QLineEdit(this);
    m_name->setPlaceholderText(tr("New Profile"));
    nameRow->addWidget(m_name, 1);
    m_create = new QPushButton(tr("Create"), this);
    m_rename = new QPushButton(tr("Rename"), this);
    nameRow->addWidget(m_create);
    nameRow->addWidget(m_rename);
    column->addLayout(nameRow);
    connect(m_create, &QPushButton::clicked, this, [this] { emit createRequested(m_name->text()); });
    connect(m_rename, &QPushButton::clicked, this,
            [this] { emit renameRequested(selectedId(), m_name->text()); });

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
    selectionChanged();
}

QWidget *ProfilesDialog::buildActions()
{
    auto *actions = new QWidget(this);
    auto *stack = new QVBoxLayout(actions);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(8);
    m_activate = new QPushButton(tr("Make active"), actions);
    m_activate->setProperty("variant", QStringLiteral("primary"));
    m_duplicate = new QPushButton(tr("Duplicate"), actions);
    m_delete = new QPushButton(tr("Delete\u2026"), actions);
    m_import = new QPushButton(tr("Import\u2026"), actions);
    m_export = new QPushButton(tr("Export\u2026"), actions);
    for (QPushButton *button : {m_activate, m_duplicate, m_delete})
        stack->addWidget(button);
    stack->addSpacing(12);
    stack->addWidget(m_import);
    stack->addWidget(m_export);
    stack->addStretch(1);

    connect(m_activate, &QPushButton::clicked, this, [this] { emit activateRequested(selectedId()); });
    connect(m_duplicate, &QPushButton::clicked, this, [this] { emit duplicateRequested(selectedId()); });
    connect(m_delete, &QPushButton::clicked, this, &ProfilesDialog::askDelete);
    connect(m_import, &QPushButton::clicked, this, &ProfilesDialog::askImport);
    connect(m_export, &QPushButton::clicked, this, &ProfilesDialog::askExport);
    return actions;
}

QString ProfilesDialog::selectedId() const
{
    const QList<QTreeWidgetItem *> selected = m_list->selectedItems();
    return selected.isEmpty() ? QString() : selected.constFirst()->data(NameColumn, kIdRole).toString();
}

QString ProfilesDialog::activeId() const
{
    for (QTreeWidgetItemIterator it(m_list); *it; ++it) {
        if ((*it)->data(NameColumn, kActiveRole).toBool())
            return (*it)->data(NameColumn, kIdRole).toString();
    }
    return QString();
}

void ProfilesDialog::showProfiles(const QList<Group> &groups)
{
    const QString selected = selectedId();
    {
        const QSignalBlocker quiet(m_list);
        m_list->clear();
        for (const Group &group : groups) {
            auto *heading = new QTreeWidgetItem(m_list, {group.title});
            // A heading only groups; it is never the profile an action works on.
            heading->setFlags(Qt::ItemIsEnabled);
            heading->setFirstColumnSpanned(true);
            QFont bold = heading->font(NameColumn);
            bold.setBold(true);
            heading->setFont(NameColumn, bold);
            for (const Entry &entry : group.entries) {
                auto *item =
                    new QTreeWidgetItem(heading, {entry.name, entry.active ? tr("Active") : QString(),
                                                  shownDate(entry.modifiedAt)});
                item->setData(NameColumn, kIdRole, entry.id);
                item->setData(NameColumn, kActiveRole, entry.active);
                if (entry.active)
                    item->setFont(NameColumn, bold);
            }
        }
        m_list->expandAll();
    }
    select(selected.isEmpty() ? activeId() : selected);
}

void ProfilesDialog::select(const QString &id)
{
    QTreeWidgetItem *item = itemFor(id);
    if (!item)
        item = itemFor(activeId());
    m_list->setCurrentItem(item);
    selectionChanged();
}

QTreeWidgetItem *ProfilesDialog::itemFor(const QString &id) const
{
    if (id.isEmpty())
        return nullptr;
    for (QTreeWidgetItemIterator it(m_list); *it; ++it) {
        if ((*it)->data(NameColumn, kIdRole).toString() == id)
            return *it;
    }
    return nullptr;
}

void ProfilesDialog::showError(const QString &message)
{
    m_notice->showMessage(message);
}

void ProfilesDialog::selectionChanged()
{
    const QString id = selectedId();
    for (QPushButton *button : {m_rename, m_duplicate, m_delete, m_export})
        button->setEnabled(!id.isEmpty());
    m_activate->setEnabled(!id.isEmpty() && id != activeId());
    if (QTreeWidgetItem *item = itemFor(id))
        m_name->setText(item->text(NameColumn));
}

void ProfilesDialog::askImport()
{
    const QString path = m_prompts.importPath(this);
    if (!path.isEmpty())
        emit importRequested(path);
}

void ProfilesDialog::askExport()
{
    const QString id = selectedId();
    const QTreeWidgetItem *item = itemFor(id);
    if (!item)
        return;
    const QString path = m_prompts.exportPath(this, fileNameFor(item->text(NameColumn)));
    if (!path.isEmpty())
        emit exportRequested(id, path);
}

void ProfilesDialog::askDelete()
{
    const QString id = selectedId();
    const QTreeWidgetItem *item = itemFor(id);
    if (item && m_prompts.confirmDelete(this, item->text(NameColumn)))
        emit deleteRequested(id);
}

} // namespace tavrix

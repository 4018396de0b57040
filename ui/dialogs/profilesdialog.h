#pragma once

#include <QDialog>
#include <QList>

#include <functional>

class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace hub {
class Notice;
} // namespace hub

namespace tavrix {

// The "profiles" dialog: the profiles of each vehicle type with the active one marked, and
// the buttons that create, rename, duplicate, delete, activate, import and export them. It
// presents only; the owner carries out each request and shows the list and any refusal back.
class ProfilesDialog : public QDialog
{
    Q_OBJECT
public:
    struct Entry
    {
        QString id;
        QString name;
        QString modifiedAt; // ISO 8601, as the store keeps it
        bool active = false;
    };
    // One vehicle type's profiles under its title.
    struct Group
    {
        QString title;
        QList<Entry> entries;
    };
    // How the dialog asks the user for a file or for a yes: file dialogs and a question box
    // unless replaced. An empty path or false means the user backed out.
    struct Prompts
    {
        std::function<QString(QWidget *parent)> importPath;
        std::function<QString(QWidget *parent, const QString &suggestedFileName)> exportPath;
        std::function<bool(QWidget *parent, const QString &profileName)> confirmDelete;
    };

    explicit ProfilesDialog(QWidget *parent = nullptr);

    void setPrompts(const Prompts &prompts) { m_prompts = prompts; }

    QTreeWidget *profileList() const { return m_list; }
    QLineEdit *nameEdit() const { return m_name; }
    QPushButton *createButton() const { return m_create; }
    QPushButton *renameButton() const { return m_rename; }
    QPushButton *duplicateButton() const { return m_duplicate; }
    QPushButton *deleteButton() const { return m_delete; }
    QPushButton *activateButton() const { return m_activate; }
    QPushButton *importButton() const { return m_import; }
    QPushButton *exportButton() const { return m_export; }
    hub::Notice *notice() const { return m_notice; }

    // The chosen profile, empty when none is.
    [[nodiscard]] QString selectedId() const;
    // The profile shown as active, empty when none is.
    [[nodiscard]] QString activeId() const;

public slots:
    // Keeps the chosen profile chosen when it is still listed.
    void showProfiles(const QList<tavrix::ProfilesDialog::Group> &groups);
    void select(const QString &id);
    // Empty hides the notice.
    void showError(const QString &message);

signals:
    // The name as typed; the owner decides what an empty one means.
    void createRequested(const QString &name);
    void renameRequested(const QString &id, const QString &name);
    void duplicateRequested(const QString &id);
    void deleteRequested(const QString &id);
    void activateRequested(const QString &id);
    void importRequested(const QString &filePath);
    void exportRequested(const QString &id, const QString &filePath);

private:
    QWidget *buildActions();
    QTreeWidgetItem *itemFor(const QString &id) const;
    void selectionChanged();
    void askImport();
    void askExport();
    void askDelete();

    QTreeWidget *m_list = nullptr;
    QLineEdit *m_name = nullptr;
    QPushButton *m_create = nullptr;
    QPushButton *m_rename = nullptr;
    QPushButton *m_duplicate = nullptr;
    QPushButton *m_delete = nullptr;
    QPushButton *m_activate = nullptr;
    QPushButton *m_import = nullptr;
    QPushButton *m_export = nullptr;
    hub::Notice *m_notice = nullptr;
    Prompts m_prompts;
};

} // namespace tavrix

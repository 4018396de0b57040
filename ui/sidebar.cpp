#include "sidebar.h"

#include "sidebarbutton.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <QVariantAnimation>

namespace hub {

Sidebar::Sidebar(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_StyledBackground);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(10, 16, 10, 14);
    column->setSpacing(4);

    auto *brand = new QHBoxLayout;
    brand->setContentsMargins(6, 0, 0, 14);
    brand->setSpacing(10);
    m_logo = new QLabel(this);
    m_logo->setFixedSize(32, 32);
    m_title = new QLabel(this);
    m_title->setObjectName(QStringLiteral("sidebarBrand"));
    m_title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    brand->addWidget(m_logo);
    brand->addWidget(m_title, 1);
    column->addLayout(brand);

    m_entries = new QVBoxLayout;
    m_entries->setSpacing(2);
    column->addLayout(m_entries);
    column->addStretch(1);

    m_themeButton = new SidebarButton(Glyph::Moon, QString(), this);
    m_collapseButton = new SidebarButton(Glyph::PanelCollapse, tr("Collapse"), this);
    column->addWidget(m_themeButton);
    column->addWidget(m_collapseButton);

    connect(m_themeButton, &QAbstractButton::clicked, this, &Sidebar::themeButtonClicked);
    connect(m_collapseButton, &QAbstractButton::clicked, this, [this] { setCollapsed(!m_collapsed); });

    m_animation = new QVariantAnimation(this);
    m_animation->setDuration(160);
    m_animation->setEasingCurve(QEasingCurve::OutCubic);
    connect(m_animation, &QVariantAnimation::valueChanged, this,
            [this](const QVariant &value) { setWidthNow(value.toInt()); });
    connect(m_animation, &QVariantAnimation::finished, this, [this] { m_title->setVisible(!m_collapsed); });

    setWidthNow(kExpandedWidth);
}

void Sidebar::setBrand(const QPixmap &logo, const QString &title)
{
    m_logo->setPixmap(
        logo.scaled(m_logo->size() * devicePixelRatioF(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
    m_title->setText(title);
}

void Sidebar::addEntry(const QString &pageKey, Glyph glyph, const QString &text, const QStringList &subPages)
{
    auto *button = new SidebarButton(glyph, text, this);
    m_entries->addWidget(button);
    m_buttons.insert(pageKey, button);
    m_ownerOf.insert(pageKey, pageKey);
    for (const QString &sub : subPages)
        m_ownerOf.insert(sub, pageKey);
    connect(button, &QAbstractButton::clicked, this, [this, pageKey] { emit entryActivated(pageKey); });
    applyCollapsedLook();
}

bool Sidebar::setCurrentPage(const QString &pageKey)
{
    const QString owner = m_ownerOf.value(pageKey);
    m_activeEntry = owner;
    for (auto it = m_buttons.cbegin(); it != m_buttons.cend(); ++it)
        it.value()->setActive(it.key() == owner);
    return !owner.isEmpty();
}

SidebarButton *Sidebar::entryButton(const QString &pageKey) const
{
    return m_buttons.value(pageKey);
}

void Sidebar::setThemeButton(Glyph glyph, const QString &text)
{
    m_themeButton->setGlyph(glyph);
    m_themeButton->setText(text);
    m_themeButton->setAccessibleName(text);
    applyCollapsedLook();
}

void Sidebar::setCollapsed(bool collapsed, bool animated)
{
    if (collapsed == m_collapsed)
        return;
    m_collapsed = collapsed;
    applyCollapsedLook();
    const int target = collapsed ? kCollapsedWidth : kExpandedWidth;
    m_animation->stop();
    if (animated && !m_reduceMotion) {
        if (!collapsed)
            m_title->setVisible(true);
        m_animation->setStartValue(width());
        m_animation->setEndValue(target);
        m_animation->start();
    } else {
        setWidthNow(target);
        m_title->setVisible(!collapsed);
    }
    emit collapsedChanged(collapsed);
}

void Sidebar::applyCollapsedLook()
{
    m_collapseButton->setGlyph(m_collapsed ? Glyph::PanelExpand : Glyph::PanelCollapse);
    m_collapseButton->setText(m_collapsed ? tr("Expand") : tr("Collapse"));
    // Collapsed entries show only a glyph, so the label moves into the tool tip.
    const QList<SidebarButton *> buttons = findChildren<SidebarButton *>();
    for (SidebarButton *button : buttons)
        button->setToolTip(m_collapsed ? button->text() : QString());
}

void Sidebar::setWidthNow(int width)
{
    setFixedWidth(width);
}

} // namespace hub

// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/checkbasemenu.h"

#include <QActionGroup>
#include <QMenu>

#include <utility>

CheckBaseMenu::CheckBaseMenu(QWidget *window)
    : QObject(window)
    , m_menu(new QMenu(tr("Complete check against"), window))
    , m_architectures(new QMenu(tr("Foreign architectures"), m_menu))
    , m_group(new QActionGroup(this))
    , m_otherRepository(nullptr)
{
    m_menu->setObjectName(QStringLiteral("m_checkBaseMenu"));
    m_architectures->setObjectName(QStringLiteral("m_foreignArchitecturesMenu"));
    addKind(CompleteCheckBase::Nothing, tr("The repository alone"));
    addKind(CompleteCheckBase::Essential, tr("Debian's essential packages"));
    addKind(CompleteCheckBase::Public, tr("What the public sources offer"));
    m_menu->addSeparator();
    m_otherRepository = m_menu->addAction(tr("Another repository..."));
    m_menu->addSeparator();
    m_menu->addMenu(m_architectures);
    connect(m_otherRepository, &QAction::triggered, this, &CheckBaseMenu::otherRepositoryWanted);
    connect(m_menu, &QMenu::aboutToShow, this, &CheckBaseMenu::aboutToShow);
}

void CheckBaseMenu::addKind(CompleteCheckBase::Kind kind, const QString &text)
{
    QAction *action = m_group->addAction(m_menu->addAction(text));
    action->setCheckable(true);
    action->setData(int(kind));
    connect(action, &QAction::triggered, this, [this, kind] {
        m_base.kind = kind;
        m_base.repository.clear();
        Q_EMIT chosen(m_base);
    });
}

void CheckBaseMenu::addRepository(const QString &path)
{
    // A single "&" would mark a key.
    auto *action = new QAction(QString(path).replace(QLatin1Char('&'), QLatin1String("&&")), m_menu);
    m_menu->insertAction(m_otherRepository, action);
    m_group->addAction(action);
    action->setCheckable(true);
    action->setChecked(m_base.kind == CompleteCheckBase::Repository && m_base.repository == path);
    m_repositories.append(action);
    connect(action, &QAction::triggered, this, [this, path] {
        m_base.kind = CompleteCheckBase::Repository;
        m_base.repository = path;
        Q_EMIT chosen(m_base);
    });
}

void CheckBaseMenu::addArchitecture(const QString &architecture)
{
    QAction *action = m_architectures->addAction(architecture);
    action->setCheckable(true);
    action->setChecked(m_base.foreignArchitectures.contains(architecture));
    connect(action, &QAction::toggled, this, [this, architecture](bool isWanted) {
        m_base.foreignArchitectures.removeAll(architecture);
        if (isWanted)
            m_base.foreignArchitectures.append(architecture);
        m_base.foreignArchitectures.sort();
        Q_EMIT chosen(m_base);
    });
}

void CheckBaseMenu::show(const CompleteCheckBase &base,
                         const QStringList &repositories,
                         const QStringList &architectures)
{
    m_base = base;
    const QList<QAction *> actions = m_group->actions();
    for (QAction *action : actions)
        action->setChecked(action->data().isValid() && action->data().toInt() == base.kind);
    for (QAction *action : std::as_const(m_repositories)) {
        // At once, because the menu is about to open.
        m_menu->removeAction(action);
        action->deleteLater();
    }
    m_repositories.clear();
    for (const QString &path : repositories)
        addRepository(path);
    m_architectures->clear();
    for (const QString &architecture : architectures)
        addArchitecture(architecture);
}

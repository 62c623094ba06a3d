// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "installability/completecheckbase.h"

#include <QList>
#include <QObject>
#include <QStringList>

class QAction;
class QActionGroup;
class QMenu;
class QWidget;

/** The menu with the choice of what complete checks look into, and for which architectures. */
class CheckBaseMenu : public QObject
{
    Q_OBJECT
public:
    explicit CheckBaseMenu(QWidget *window);

    QMenu *menu() const { return m_menu; }
    /**
     * Shows the choice. `repositories` are the paths that are offered; `architectures` are those that a system can have
     * in addition.
     */
    void
    show(const CompleteCheckBase &base, const QStringList &repositories, const QStringList &architectures);

Q_SIGNALS:
    /** The menu is about to be shown: call show() with what is there now. */
    void aboutToShow();
    void chosen(const CompleteCheckBase &base);
    /** The user wants to choose a repository that is not offered. */
    void otherRepositoryWanted();

private:
    QMenu *m_menu;
    QMenu *m_architectures;
    QActionGroup *m_group;
    QAction *m_otherRepository;
    QList<QAction *> m_repositories;
    CompleteCheckBase m_base;

    void addKind(CompleteCheckBase::Kind kind, const QString &text);
    void addRepository(const QString &path);
    void addArchitecture(const QString &architecture);
};

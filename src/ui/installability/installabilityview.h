// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/installability/companionsizes.h"
#include "engine/installability/cures.h"
#include "installability/completecheckrecord.h"
#include "ui/installability/backgroundquery.h"
#include "ui/installability/installabilityfacts.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>

class QAbstractButton;

namespace Ui
{
class InstallabilityView;
}

/**
 * The tab "Installability" of a package: what the complete check says, why, what would cure it, what comes along, and
 * who needs it. The answers that take time are worked out in the background while the tab is visible.
 */
class InstallabilityView : public QWidget
{
    Q_OBJECT
public:
    /** Gives the present packages and base for questions to the engine. */
    using ScopeSource = std::function<CheckScope()>;

    explicit InstallabilityView(QWidget *parent = nullptr);
    ~InstallabilityView() override;

    /** Without it, nothing is asked. */
    void setScopeSource(const ScopeSource &source);
    /** Shows this record; null shows nothing. */
    void setPackage(const PackageInfoPtr &package);
    PackageInfoPtr package() const { return m_facts.package; }
    /** The last complete check of the repository. */
    void setCheck(const CompleteCheckRecord &check);
    /** A job has ended: what the page has found out about other packages may be old. */
    void repositoryChanged();
    /** Whether the package can be checked now. */
    void setCheckEnabled(bool enabled);
    /** Whether the repository can be changed now. */
    void setCuresEnabled(bool enabled);

Q_SIGNALS:
    /** The user wants the package to be checked. */
    void checkRequested();
    /** The user wants to see what this cure changes. */
    void cureRequested(const Cure &cure);
    /** The user wants to see this package. `repository` is a path; empty: the one that is shown. */
    void packageChosen(const QString &repository, const NamedPackage &package);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    std::unique_ptr<Ui::InstallabilityView> m_ui;
    ScopeSource m_scope;
    InstallabilityFacts m_facts;
    CompleteCheckRecord m_check;
    QTimer m_pause; ///< the user may only be passing by
    BackgroundQuery m_ownQuery; ///< cures or companions
    BackgroundQuery m_needsQuery;
    QList<QAbstractButton *> m_cureButtons;
    bool m_isAsked = false; ///< the answers are here or on their way
    bool m_canCure = false;

    Installability state() const;
    void showState();
    void showIcon();
    /** Drops all answers, and asks again when the tab is visible. */
    void startOver();
    void ask();
    void askForNeeds(const CheckScope &scope);
    void showCures(const QVector<Cure> &cures);
    void addCure(const Cure &cure);
    void clearCures();
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/preview/previewmodel.h"

#include <QDialog>

class ElidedLabel;
class PreviewEffectView;
class PreviewFilter;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QSplitter;
class QTimer;
class QTreeView;

/**
 * Shows what a change would do, before it is done: a row for each package and architecture, and the effect below. Rows
 * can be switched off, and collisions are decided in their rows. The rows can be read while the effect is being found.
 */
class PreviewDialog : public QDialog
{
    Q_OBJECT
public:
    PreviewDialog(const ChangePreview &preview,
                  const PreviewModel::AliasLookup &aliases,
                  QWidget *parent = nullptr);

    /** Shows the same preview with its effect, or another preview. */
    void setPreview(const ChangePreview &preview);
    /** The preview with the rows as the user has switched them. */
    const ChangePreview &preview() const { return m_model->preview(); }
    /** Tells that an earlier preview of the same change did not hold any more. */
    void tellRepositoryChanged();
    /** Offers to carry the packages over to a new code name. Another choice makes another preview. */
    void offerCarrying(bool carries);
    /** Offers to give the repository what it lacks for the packages. Another choice makes another preview. */
    void offerExtending(bool extends);
    /** The effect is being found in this many steps; 0: not known. */
    void setSteps(int steps);
    void showProgress(int step);
    /** The search for the effect has ended, or was stopped. */
    void endProgress();

    /** Stores the place and the columns. */
    void done(int result) override;

Q_SIGNALS:
    /** The rows were switched; the effect of preview() is wanted. Comes after a pause of the user. */
    void effectWanted();
    void stopWanted();
    /** Another preview is wanted, and nothing can be applied before it comes. */
    void carryingChosen(bool carries);
    void extendingChosen(bool extends); ///< likewise
    void reportWanted();
    /** The files of a row are to be compared. */
    void differenceWanted(const PreviewRow &row);

private:
    void buildView();
    QWidget *buildRows();
    QWidget *buildEffect();
    void connectParts();
    void restore();
    void showPreview();
    void showCounts();
    void showCurrent();
    void showWorking();
    /** Ticks or unticks a choice that makes another preview. */
    void offer(QCheckBox *box, bool isTicked, void (PreviewDialog::*chosen)(bool));
    void rowsSwitched();
    void toggleSelected();
    void switchKind(bool on);
    const PreviewRow *currentRow() const;
    static QString headingOf(const ChangePreview &preview);

    PreviewModel *m_model;
    PreviewFilter *m_filter;
    QLabel *m_heading;
    QLabel *m_notice;
    QCheckBox *m_carrying;
    QCheckBox *m_extending;
    QWidget *m_collisions;
    QComboBox *m_ruleBox;
    QPushButton *m_replaceKind;
    QPushButton *m_keepKind;
    QLineEdit *m_filterEdit;
    QPushButton *m_difference;
    QTreeView *m_view;
    ElidedLabel *m_counts;
    QSplitter *m_splitter;
    QLabel *m_state;
    QProgressBar *m_progress;
    QPushButton *m_stop;
    PreviewEffectView *m_effect;
    QPushButton *m_apply = nullptr;
    QTimer *m_pause;
    bool m_isWorking = true; ///< the effect is being found
    bool m_isPending = false; ///< another preview is being made
};

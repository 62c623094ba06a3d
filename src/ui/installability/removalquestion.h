// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMessageBox>
#include <QPushButton>

class RemovalImpactSearch;

/**
 * The question before packages are removed. When other packages could not be installed any more without them, the
 * question says so, also when this is found out while the question is open.
 */
class RemovalQuestion : public QMessageBox
{
    Q_OBJECT
public:
    /** `about` stands below the text. `repository` is the path of the one from which packages are removed. */
    RemovalQuestion(const QString &title,
                    const QString &text,
                    const QString &about,
                    const RemovalImpactSearch &search,
                    const QString &repository,
                    QWidget *parent);

    /** For a removal that a preview cannot show alone. */
    void withoutPreview();
    /** Whether the question was closed with the button for the preview. */
    bool wantsPreview() const { return clickedButton() != nullptr && clickedButton() == m_preview; }

private:
    const RemovalImpactSearch &m_search;
    QString m_about;
    QString m_repository;
    QPushButton *m_preview;
    bool m_wasSearching = false;

    void showImpact();
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/search/addedlistsfetch.h"

#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

/**
 * Tells how new the lists of the sources are that the user added, fetches them when it is time, and by a button. Hidden
 * when apt knows them all.
 */
class AddedSourcesBar : public QWidget
{
    Q_OBJECT
public:
    /** Begins at once. */
    explicit AddedSourcesBar(const AddedSources &sources, QWidget *parent = nullptr);

Q_SIGNALS:
    /** The lists were fetched anew, at least some of them. */
    void listsChanged();

private:
    void showProgress(int percent);
    void showResult(const AddedListsFetch::Result &result);
    void press();

    AddedListsFetch m_fetch;
    QLabel *m_label;
    QProgressBar *m_progressBar;
    QPushButton *m_button;
    bool m_isFetching = false;
};

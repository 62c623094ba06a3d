// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/search/addedsourcesbar.h"

#include "ui/widgets/tooltiptext.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>

AddedSourcesBar::AddedSourcesBar(const AddedSources &sources, QWidget *parent)
    : QWidget(parent)
    , m_fetch(sources)
    , m_label(new QLabel(this))
    , m_progressBar(new QProgressBar(this))
    , m_button(new QPushButton(this))
{
    m_label->setObjectName(QStringLiteral("m_addedSourcesLabel"));
    m_label->setTextFormat(Qt::PlainText);
    m_label->setWordWrap(true);
    m_progressBar->setObjectName(QStringLiteral("m_addedSourcesProgress"));
    m_progressBar->setAccessibleName(tr("Fetching the lists of your own sources"));
    constexpr int ProgressWidth = 20; // in characters
    m_progressBar->setMaximumWidth(fontMetrics().averageCharWidth() * ProgressWidth);
    m_button->setObjectName(QStringLiteral("m_addedSourcesButton"));
    m_button->setText(tr("&Fetch again"));
    // Enter in the dialog means its own button.
    m_button->setAutoDefault(false);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label, 1);
    layout->addWidget(m_progressBar);
    layout->addWidget(m_button);
    hide();

    connect(&m_fetch, &AddedListsFetch::progressed, this, &AddedSourcesBar::showProgress);
    connect(&m_fetch, &AddedListsFetch::finished, this, &AddedSourcesBar::showResult);
    connect(m_button, &QPushButton::clicked, this, &AddedSourcesBar::press);
    m_fetch.start(AddedListsFetch::WhenDue);
}

void AddedSourcesBar::showProgress(int percent)
{
    m_isFetching = true;
    m_label->setText(tr("Fetching the lists of your own sources..."));
    m_label->setToolTip({});
    m_progressBar->setValue(percent);
    m_progressBar->show();
    m_button->setText(tr("&Stop"));
    show();
}

void AddedSourcesBar::showResult(const AddedListsFetch::Result &result)
{
    m_isFetching = false;
    QString text = tr("The lists of your own sources were not fetched.");
    if (!result.problems.isEmpty())
        text = tr("Your own sources: %1").arg(result.problems.join(QLatin1Char('\n')));
    else if (!result.isStopped && result.fetchedAt.isValid())
        text = tr("Lists of your own sources: %1")
                   .arg(QLocale().toString(result.fetchedAt, QLocale::ShortFormat));
    m_label->setText(text);
    m_label->setToolTip(toolTipText(result.details.trimmed()));
    m_progressBar->hide();
    m_button->setText(tr("&Fetch again"));
    m_button->setEnabled(true);
    // A stop before apt has told of its sources says nothing about them.
    if (!result.isStopped)
        setVisible(result.isAny);
    if (result.isFetched)
        Q_EMIT listsChanged();
}

void AddedSourcesBar::press()
{
    if (m_isFetching) {
        // apt ends in a moment.
        m_button->setEnabled(false);
        m_fetch.cancel();
        return;
    }
    m_fetch.start(AddedListsFetch::Now);
    showProgress(0);
}

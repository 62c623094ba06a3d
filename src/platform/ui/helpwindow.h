// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QUrl>

class QLabel;
class QLineEdit;
class QTextBrowser;

/**
 * Shows the help pages, with a history and a search that goes through all pages of the folder. Links to other places
 * are opened by the desktop.
 */
class HelpWindow : public QDialog
{
    Q_OBJECT
public:
    HelpWindow();

    /** `page` is a local file, with the anchor to be shown as its fragment. */
    void showPage(const QUrl &page);

    /**
     * Makes the window usable while `owner` or a dialog above it is modal: it becomes a child of the one that is open,
     * and goes back to what is below when that closes.
     */
    void moveTo(QWidget *owner);

private:
    enum class Direction { Forward, Backward };

    void build();
    void find(Direction direction);
    bool findOnPage(Direction direction, bool fromEdge);
    QUrl nextPageWithText(Direction direction) const;
    void showTitle();

    QTextBrowser *m_browser;
    QLineEdit *m_searchLine;
    QLabel *m_message;
    QUrl m_contents;
};

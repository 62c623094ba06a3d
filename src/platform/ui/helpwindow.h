// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QUrl>

class QLabel;
class QLineEdit;
class QTextBrowser;

/**
 * Shows the help pages, with a history and a search in all pages of the folder. The desktop opens links to other
 * places.
 */
class HelpWindow : public QDialog
{
    Q_OBJECT
public:
    HelpWindow();

    /** `page` is a local file. Its fragment is the anchor to show. */
    void showPage(const QUrl &page);

    /**
     * Makes the window usable while `owner` or a dialog above it is modal: the window becomes a child of the open
     * dialog. When that dialog closes, the window becomes a child of the window below.
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

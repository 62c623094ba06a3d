// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>

class QDialog;
class QMessageBox;
class QShortcut;
class QWidget;

/**
 * The one place that opens dialogs on the main window. It knows whether one is open, closes them all when the window
 * is being closed, and shows errors one at a time however many arrive.
 *
 * Whoever runs a dialog must expect that what it was opened for is gone when it returns.
 */
class Prompts : public QObject
{
    Q_OBJECT
public:
    struct Error
    {
        QString text;
        QString details;
        RepoEnums::ErrorType type;
        QString title; ///< of a box with this error alone; empty: by its weight
    };
    enum class Answer {
        Yes,
        No, ///< also for a box that was closed without an answer
        Dismissed ///< nobody was asked, because the window is being closed
    };

    explicit Prompts(QWidget *window);

    /** Runs a dialog and returns its result; QDialog::Rejected at once when the window is being closed. */
    int run(QDialog &dialog);

    /** `about` is shown smaller below the text. */
    Answer
    ask(const QString &title, const QString &text, const QString &about = {}, QWidget *parent = nullptr);
    /** Like ask(), for what cannot be undone: Enter in haste says no. */
    Answer askCarefully(const QString &title,
                        const QString &text,
                        const QString &about = {},
                        QWidget *parent = nullptr);
    /** A box to tick below a question. */
    struct Option
    {
        QString text;
        bool isTicked = false; ///< as it is at first, and as the user leaves it
        QString aboutTicked; ///< is shown smaller while it is ticked
    };
    /** Like askCarefully(), with a box to tick; `about` is shown while it is not. */
    Answer askCarefully(const QString &title,
                        const QString &text,
                        const QString &about,
                        Option *option,
                        QWidget *parent = nullptr);
    /** Like ask(), when what was wanted failed and the question offers a way out. */
    Answer askAfterFailure(const QString &title, const QString &text, QWidget *parent = nullptr);
    void inform(const QString &title, const QString &text, QWidget *parent = nullptr);
    void warn(const QString &title, const QString &text, QWidget *parent = nullptr);
    /** Like warn(), for what failed. */
    void fail(const QString &title, const QString &text, QWidget *parent = nullptr);
    /**
     * Shows an error without waiting for the user. What arrives while it is shown, or while a dialog is open that
     * would cover it, comes in one box afterwards.
     */
    void showError(const QString &text,
                   const QString &details = {},
                   RepoEnums::ErrorType type = RepoEnums::CRITICAL);

    /** Shows these errors in one box. */
    void showErrors(const QList<Error> &errors);

    /** Lets the help key show the page of a dialog that is not run() but shown. Once for each. */
    void offerHelp(QDialog &dialog);

    struct FileChoice
    {
        QString path; ///< empty when cancelled
        QString filter; ///< the one that the name fits, or else the one that was chosen
    };

    /**
     * Asks where to save a file, and again when there is one that shall stay. A name without a suffix gets that of the
     * filter's first pattern.
     */
    FileChoice
    saveFile(const QString &title, const QString &folder, const QString &name, const QStringList &filters);
    /** Asks for an existing file; empty when cancelled. */
    QString openFile(const QString &title, const QString &folder, const QString &filter);
    /** Asks for existing files; empty when cancelled. */
    QStringList openFiles(const QString &title, const QString &folder, const QString &filter);
    /** Asks for an existing folder; empty when cancelled. */
    QString directory(const QString &title, const QString &folder, QWidget *parent = nullptr);
    /** Asks for one of `items`, offering the one at `current` first; -1 when cancelled. */
    int choose(const QString &title, const QString &label, const QStringList &items, int current);

    /** What dialogs stand in front of. */
    QWidget *window() const { return m_window; }
    bool isOpen() const;
    /** Closes every open dialog without an answer and opens no more. */
    void dismissAll();
    bool isDismissed() const { return m_dismissed; }

Q_SIGNALS:
    /** The last open dialog has gone. */
    void freed();
    /** The user has asked for help in `dialog`, which is open. */
    void helpRequested(QDialog *dialog, const QString &page);

private:
    QWidget *parentOr(QWidget *parent) const { return parent == nullptr ? m_window : parent; }
    Answer askIn(QMessageBox &box, const QString &about);
    bool mayReplace(const QString &path);
    void tell(int icon, const QString &title, const QString &text, QWidget *parent);
    static QString named(const QList<Error> &errors);
    void showNextError();
    void announceFreed();
    void offerHelp(QDialog &dialog, QShortcut &key);

    QWidget *m_window;
    QList<QPointer<QDialog>> m_dialogs;
    QPointer<QMessageBox> m_errorBox;
    QList<Error> m_errors;
    bool m_dismissed = false;
};

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
 * Opens all dialogs on the main window. It knows whether a dialog is open, closes all dialogs when the window is being
 * closed, and shows errors one at a time.
 *
 * After a dialog returns, the object for which it was opened may no longer exist.
 */
class Prompts : public QObject
{
    Q_OBJECT
public:
    /** An error that is shown in a box. */
    struct Error
    {
        QString text;
        QString details;
        RepoEnums::ErrorType type;
        QString title; ///< title of a box with only this error; empty: a title for the error type
    };
    /** The answer to a question. */
    enum class Answer {
        Yes,
        No, ///< also when the box was closed without an answer
        Dismissed ///< there is no answer, because the window is being closed
    };

    explicit Prompts(QWidget *window);

    /** Runs a dialog and returns its result. Returns QDialog::Rejected at once when the window is being closed. */
    int run(QDialog &dialog);

    /** `about` is shown below the text in smaller letters. */
    Answer
    ask(const QString &title, const QString &text, const QString &about = {}, QWidget *parent = nullptr);
    /** Like ask(), for an action that cannot be undone: a hasty Enter means no. */
    Answer askCarefully(const QString &title,
                        const QString &text,
                        const QString &about = {},
                        QWidget *parent = nullptr);
    /** Like askCarefully(), with a text of its own on the button for yes. */
    Answer offer(const QString &title, const QString &text, const QString &yes, const QString &about = {});
    /** A check box below a question. */
    struct Option
    {
        QString text;
        bool isTicked = false; ///< the initial state, and the user's choice afterwards
        QString aboutTicked; ///< text in smaller letters while the box is checked
    };
    /** Like askCarefully(), with a check box; `about` is shown while the box is not checked. */
    Answer askCarefully(const QString &title,
                        const QString &text,
                        const QString &about,
                        Option *option,
                        QWidget *parent = nullptr);
    /** Like ask(), after a failure to which the question offers a solution. */
    Answer askAfterFailure(const QString &title, const QString &text, QWidget *parent = nullptr);
    void inform(const QString &title, const QString &text, QWidget *parent = nullptr);
    void warn(const QString &title, const QString &text, QWidget *parent = nullptr);
    /** Like warn(), for a failure. */
    void fail(const QString &title, const QString &text, QWidget *parent = nullptr);
    /**
     * Shows an error without waiting for the user. Errors that arrive meanwhile, or while an open dialog would cover
     * the box, are shown together in one box afterwards.
     */
    void showError(const QString &text,
                   const QString &details = {},
                   RepoEnums::ErrorType type = RepoEnums::CRITICAL);

    /** Shows these errors in one box. */
    void showErrors(const QList<Error> &errors);

    /** Makes the help key work in a dialog that is shown without run(). Call it once for each dialog. */
    void offerHelp(QDialog &dialog);

    /** The result of saveFile(). */
    struct FileChoice
    {
        QString path; ///< empty when cancelled
        QString filter; ///< the filter that matches the name, or else the chosen one
    };

    /**
     * Asks for the name of a file to save, and asks again when the user does not want to replace an existing file. A
     * name without a suffix gets the suffix of the filter's first pattern.
     */
    FileChoice
    saveFile(const QString &title, const QString &folder, const QString &name, const QStringList &filters);
    /** Asks for an existing file; empty when cancelled. */
    QString openFile(const QString &title, const QString &folder, const QString &filter);
    /** Asks for existing files; empty when cancelled. */
    QStringList openFiles(const QString &title, const QString &folder, const QString &filter);
    /** Asks for an existing folder; empty when cancelled. */
    QString directory(const QString &title, const QString &folder, QWidget *parent = nullptr);
    /** Asks for one of `items`; the item at `current` is selected at first. -1 when cancelled. */
    int choose(const QString &title, const QString &label, const QStringList &items, int current);

    /** The window to which the dialogs belong. */
    QWidget *window() const { return m_window; }
    bool isOpen() const;
    /** Closes every open dialog without an answer. No more dialogs are opened. */
    void dismissAll();
    bool isDismissed() const { return m_dismissed; }

Q_SIGNALS:
    /** The last open dialog was closed. */
    void freed();
    /** The user has asked for help in the open dialog `dialog`. */
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

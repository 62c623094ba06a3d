// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <functional>

/**
 * What the program says: results on standard output, everything else on standard error. Progress is shown and questions
 * are asked on a terminal only. With --json the result is one object, and so is each error.
 */
class Console
{
public:
    struct Style
    {
        bool isJson = false;
        bool isQuiet = false; ///< neither progress nor remarks
        QStringList answered; ///< the options that were given and answer questions with yes
    };
    explicit Console(const Style &style);
    ~Console();
    Console(const Console &) = delete;
    Console &operator=(const Console &) = delete;

    bool isJson() const { return m_style.isJson; }

    /** A line of the result, for people. Nothing with --json. */
    void line(const QString &text);
    /** The result for programs, printed as one line. Nothing without --json. */
    void object(const QJsonObject &result);
    /** Output that is made piece by piece, for both. */
    void write(const QByteArray &bytes);

    /** Whether all output has been written so far; if not, that is told. */
    bool flush();

    /** Something to know that is no error. */
    void remark(const QString &text);
    /**
     * An error: `code` is a word for programs that never changes, `details` are what a tool has said, and `file` is
     * what it is about; all but the text may be empty.
     */
    void
    error(const QString &code, const QString &text, const QString &details = {}, const QString &file = {});
    /** How far the job with this name has come, in percent; 0 to 100. */
    void progress(const QString &job, int percent);
    /** The job has ended: its progress is not shown any more. */
    void endProgress();

    struct Question
    {
        QString title; ///< can be empty
        QString text;
        bool safeAnswer = false;
        const char *option = "yes"; ///< the option that answers with yes; null: only a person does
    };
    /**
     * Asks on the terminal, where no option has answered already. Without one, with --json, and when `isStopped` is or
     * becomes true, the answer is the safe one.
     */
    bool ask(const Question &question, const std::function<bool()> &isStopped);

private:
    const Style m_style;
    const bool m_isTerminal; ///< standard input and standard error are one
    int m_shown = -1; ///< the percentage on the terminal

    void say(const QString &text);
};

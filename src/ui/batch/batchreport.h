// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <QVector>

/** What one command has done to several repositories, one after the other. */
struct BatchReport
{
    Q_DECLARE_TR_FUNCTIONS(BatchReport)

public:
    enum class State {
        Waiting,
        Running,
        Done,
        Troubled, ///< with errors; a part of the work can be done
        LeftOut ///< nothing was done
    };
    struct Entry
    {
        QString path; ///< of the repository
        State state = State::Waiting;
        QString message; ///< the last words of the work, or why it was left out
        QStringList troubles; ///< the errors, each with its details below

        QString stateText() const;
    };

    QString title; ///< the command
    QVector<Entry> entries;

    /** The numbers of repositories by their states. */
    QString summary() const;
    QString toText() const;
};

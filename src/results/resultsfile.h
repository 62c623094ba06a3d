// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "results/resultsdocument.h"

/**
 * A file with results of checks for all repositories of a user. Several objects in any threads and processes may use
 * the same file. If the file cannot be written, or another process works on it for more than ten seconds, only the
 * results of this save are lost. A file that is not such a document is kept under another name.
 */
class ResultsFile
{
public:
    using Outcome = ResultsDocument::Outcome;
    /** `indent` is the number of blanks for each level of the document. */
    ResultsFile(QString fileName, int indent);

    /** The file of the user for this subject, below the configuration folder and named after the application. */
    static QString userFileName(const QString &subject);

    const QString &fileName() const { return m_fileName; }
    /**
     * Calls `read` with the open file, again when the file was broken at first. False when there is nothing to read, or
     * it cannot be read. When a broken file was moved aside, `keptAs` is set to its new name.
     */
    bool read(const std::function<Outcome(QIODevice *)> &read, QString *keptAs) const;
    bool hasMember(const QStringList &repositories) const;
    /** Applies the change. A broken file is moved aside first, and `keptAs` set to its new name. */
    bool rewrite(const ResultsDocument::Change &change, QString *keptAs) const;

private:
    QString m_fileName;
    int m_indent;

    QString brokenName() const { return m_fileName + QLatin1String(".broken"); }
    Outcome readOnce(const std::function<Outcome(QIODevice *)> &read) const;
    Outcome rewriteOnce(const ResultsDocument::Change &change) const;
    bool moveAside(QString *keptAs) const;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/** The parts of a source, which is a line of a sources list after "deb ", and what can be read from them. */
struct SourceParts
{
    QStringList options;
    QString uri;
    QString suite;
    QStringList components; ///< none: the source is one folder

    /** Reads the form that ExternalRepos::normalised() gives. */
    static SourceParts of(const QString &normalised);
    /** Equal for sources that mean the same to apt. */
    static QString identity(const QString &normalised);
    /** The identity without the components. */
    QString place() const;
    /** Whether it is `earlier` with additional components. */
    bool hasGrownFrom(const SourceParts &earlier) const;

    /** URI, suite and architecture; a source that is one folder has no architecture. An address can hold blanks. */
    static QStringList originWords(const QString &origin);
    /** How well it matches an origin; 0: not at all. */
    int fit(const QStringList &originWords) const;

    /** The architectures to which the options limit it; none: there is no limit. */
    QStringList architectures() const;
    /**
     * The source without what the lists have of it for these architectures, of which none stand for any; empty when the
     * lists have all.
     */
    QString unlisted(const QVector<SourceParts> &lists, const QStringList &repositoryArchitectures) const;

private:
    bool
    isListed(const QString &component, const QString &architecture, const QVector<SourceParts> &lists) const;
};

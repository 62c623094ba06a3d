// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QHash>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <QVector>

/**
 * The list of external repositories: what apt knows, what the user added, what is switched off, and the names that the
 * user gave them. A source is written as it follows "deb " in a sources list. Sources are the same when they differ
 * only in blanks, in the order of their components, or in ways of writing an address that mean the same to apt.
 *
 * What is stored outlives what apt knows: a source may lie on a medium that is not there now.
 */
class ExternalRepos
{
    Q_DECLARE_TR_FUNCTIONS(ExternalRepos)
public:
    struct Entry
    {
        QString source;
        QString alias; ///< name to show in place of the origin; may be empty
        bool enabled = true;
        bool known = false; ///< apt itself knows the source, so it cannot be changed here
        bool added = false; ///< the user wants the source whether apt knows it or not

        /** Whether the source is asked. A name alone does not bring back what apt has forgotten. */
        bool isAsked() const { return enabled && (known || added); }
        friend bool operator==(const Entry &a, const Entry &b)
        {
            return a.source == b.source && a.alias == b.alias && a.enabled == b.enabled && a.known == b.known
                   && a.added == b.added;
        }
    };

    /** What was stored; an entry that is no source, or none any more, is left out. Knows nothing of apt yet. */
    static ExternalRepos load(QSettings &settings);
    /** Writes the list anew; false when it could not be stored. */
    bool save(QSettings &settings) const;

    /** Takes over what apt knows now, in the order given. Those come first, the others keep their order. */
    void merge(const QStringList &knownSources);

    const QVector<Entry> &entries() const { return m_entries; }
    /** The sources that the dependency check, the search and the upgrade ask. */
    QStringList enabledSources() const;
    /**
     * The user's name for an origin (URI, suite and architecture; the suite may be followed by a slash and the
     * component), or the origin itself when there is none.
     */
    QString aliasOf(const QString &origin) const;
    /** False when what the list holds for this origin is switched off; an origin that it does not hold is asked. */
    bool isOriginAsked(const QString &origin) const;

    /** The source as it is kept: single blanks, without a leading "deb". */
    static QString normalised(const QString &source);
    /** Why apt could not use a source, in words for the user; empty when it can. */
    static QString refusal(const QString &source);
    /** As above, and whether the list has it already; `row` is the entry to be replaced, if any. */
    QString refusalInList(const QString &source, int row = -1) const;

    /** Appends a source of the user's, or replaces the one at `row`; false when it is refused or apt's own. */
    bool setSource(const QString &source, int row = -1);
    void setAlias(int row, const QString &alias);
    void setEnabled(int row, bool enabled);
    /** Forgets an entry; false for one that apt knows. */
    bool remove(int row);

private:
    Entry &storedEntry(const QString &source);
    void append(const Entry &entry);
    void findRows();

    QVector<Entry> m_entries;
    QHash<QString, int> m_rows; ///< by what makes sources the same
};

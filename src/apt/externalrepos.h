// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QHash>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <QVector>

/**
 * The list of external repositories: sources that apt knows, sources that the user added, whether each is enabled, and
 * its name given by the user. A source has the form after "deb " in a sources list. Two sources are the same when they
 * differ only in blanks, in the order of their components, or in forms of an address that mean the same to apt.
 *
 * A stored source stays when apt no longer knows it, because it may be on a medium that is not present now.
 */
class ExternalRepos
{
    Q_DECLARE_TR_FUNCTIONS(ExternalRepos)
public:
    /** One source of the list. */
    struct Entry
    {
        QString source;
        QString alias; ///< name to show instead of the origin; may be empty
        bool enabled = true;
        bool known = false; ///< apt itself knows the source, so the user cannot change it here
        bool added = false; ///< the user wants the source even if apt does not know it

        /** Whether the source is used. An alias alone does not bring back a source that apt has forgotten. */
        bool isAsked() const { return enabled && (known || added); }
        friend bool operator==(const Entry &a, const Entry &b)
        {
            return a.source == b.source && a.alias == b.alias && a.enabled == b.enabled && a.known == b.known
                   && a.added == b.added;
        }
    };

    /** The stored list, without entries that are not valid sources. No source counts as known to apt yet. */
    static ExternalRepos load(QSettings &settings);
    /** Writes the list to the settings; false when they could not be stored. */
    bool save(QSettings &settings) const;

    /** Adds the sources that apt knows now. They come first, in the given order; the others keep their order. */
    void merge(const QStringList &knownSources);

    const QVector<Entry> &entries() const { return m_entries; }
    /**
     * The user's name for an origin, or the origin itself when there is none. An origin is URI, suite and architecture;
     * a slash and the component may follow the suite.
     */
    QString aliasOf(const QString &origin) const;
    /** False when all matching sources in the list are disabled. An origin without a matching source is used. */
    bool isOriginAsked(const QString &origin) const;
    /** Whether packages of this origin can come from the source. */
    static bool isOf(const QString &source, const QString &origin);

    /** Whether there are sources that the user wants even if apt does not know them. */
    bool isAnyAdded() const;
    /**
     * What apt lacks of the sources that the user added, for repositories of these architectures: a source can come
     * with fewer components and architectures than it has. `known` are the lists that apt has, each as a source.
     */
    QStringList beyond(const QStringList &known, const QStringList &architectures) const;

    /** The stored form of a source: single blanks, without a leading "deb". */
    static QString normalised(const QString &source);
    /** Text for the user: why apt could not use a source; empty when it can. */
    static QString refusal(const QString &source);
    /** The same, and checks that the list does not contain the source yet. `row` is the entry to replace, if any. */
    QString refusalInList(const QString &source, int row = -1) const;

    /** Appends a source of the user, or replaces the entry at `row`; false when it is refused or known to apt. */
    bool setSource(const QString &source, int row = -1);
    void setAlias(int row, const QString &alias);
    void setEnabled(int row, bool enabled);
    /** Deletes an entry; false for a source that apt knows. */
    bool remove(int row);

private:
    Entry &storedEntry(const QString &source);
    void append(const Entry &entry);
    void findRows();

    QVector<Entry> m_entries;
    QHash<QString, int> m_rows; ///< rows by the identity of the source
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>

/**
 * The trust options ("signed-by" and "trusted", sources.list(5)) of the sources in apt's own files. apt lists its
 * sources without options, and without them most third-party sources would not be trusted.
 *
 * libapt-pkg's own pkgSourceList is not used: it works on the configuration of the whole process, runs dpkg, and gives
 * up all sources for one bad line. Its reader of words decodes the options, which are written out again here.
 */
class SourceOptions
{
public:
    /** Reads the text of a file in the one-line style. */
    void addLines(const QString &text);
    /** Reads the text of a file in the deb822 style. A key whose text is in the file itself is left out. */
    void addStanzas(const QString &text);

    /** The source with the stored options for its address and suite, unless it has trust options of its own. */
    QString completed(const QString &source) const;

private:
    QHash<QString, QString> m_options; ///< by address and suite

    void add(const QString &uri, const QString &suite, const QString &options);
};

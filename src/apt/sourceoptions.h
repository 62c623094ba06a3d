// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>

/**
 * How apt's own files say that sources are to be trusted (the options "signed-by" and "trusted", sources.list(5)).
 * apt names its sources without options, and without them most sources of third parties would not be trusted.
 */
class SourceOptions
{
public:
    /** Takes in the text of a file in the one-line style. */
    void addLines(const QString &text);
    /** Takes in the text of a file in the deb822 style. A key that is written out in the file itself is left out. */
    void addStanzas(const QString &text);

    /** The source, with the options of the same address and suite in front when it has none of its own. */
    QString completed(const QString &source) const;

private:
    QHash<QString, QString> m_options; ///< by address and suite

    void add(const QString &uri, const QString &suite, const QString &options);
};

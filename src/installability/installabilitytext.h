// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/installabilityinfo.h"
#include "installability/completecheckbase.h"

#include <QCoreApplication>

/**
 * The results of complete checks in words. Relations and names come from packages: they can hold markup, so all texts
 * must be shown as plain text. Control characters are replaced, and long relations are shortened.
 */
class InstallabilityText
{
    Q_DECLARE_TR_FUNCTIONS(InstallabilityText)
public:
    /** "can be installed", "cannot be installed", "undecided after 10 seconds" or "not checked". */
    static QString state(const InstallabilityInfo &info);

    /** What the packages were checked against. */
    static QString base(const CompleteCheckBase &base);

    /** One sentence, without a full stop: "a needs b (>= 2); the newest b at hand is 1.5". */
    static QString sentence(const InstallabilityStep &step);
    /** One sentence for each step, in their order; what one package needs in consecutive steps is one sentence. */
    static QStringList sentences(const QVector<InstallabilityStep> &reason);
    /** One line for a tool tip: the sentences of a short reason, the first and the last one of a longer reason. */
    static QString summary(const InstallabilityInfo &info);

    /** The package as one that is not the checked one is named: "b", "b 1.5" or "b:i386". */
    static QString name(const NamedPackage &package, bool withVersion, bool withArchitecture);
    /** At most five of the texts as one list: "a, b and c". */
    static QString listed(const QStringList &texts);
    /** One line without control characters, with at most `length` characters: the middle is left out. */
    static QString shown(const QString &text, int length = 200);
};

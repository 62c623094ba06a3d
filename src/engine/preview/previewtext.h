// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/preview/changepreview.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

/**
 * Previews in words. Names and reasons come from packages: they can hold markup, so all texts must be shown as plain
 * text.
 */
class PreviewText
{
    Q_DECLARE_TR_FUNCTIONS(PreviewText)
public:
    /** What would be done: "Adding packages". */
    static QString job(ChangePreview::Kind kind);
    /** What would become of the row's place: "added", "replaced with a newer version", "kept", "refused". */
    static QString verdict(const PreviewRow &row);
    /** How the new version compares with the present one; empty when there is none. */
    static QString relation(PreviewRow::Relation relation);
    /** One line: "foo 1.0 → 2.0 (main, amd64): replaced with a newer version". */
    static QString line(const PreviewRow &row);
    /** How many packages come, are replaced, go and are refused. */
    static QString counts(const ChangePreview &preview);
    /** What clients that have the packages installed would get; sentences, and then what they must do. */
    static QStringList clients(const ChangePreview &preview);
    /** What comes, what goes and what is free on the disk. */
    static QString sizes(const PreviewEffect &effect);
    /** The packages that could be installed then; their reasons say that they held until now. */
    static QVector<PreviewLoss> gained(const PreviewEffect &effect);
    /** "foo 1.0 (amd64)" */
    static QString package(const PackageInfo &package);
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QVector>

#include <functional>

/** In what two package files differ: their control fields, the files that control the installation, and the files. */
struct PackageDifference
{
    Q_DECLARE_TR_FUNCTIONS(PackageDifference)
public:
    enum Part : quint8 { Field, ControlFile, File };
    /** One thing that differs. */
    struct Line
    {
        Part part = Field;
        QString name; ///< of the field, or path of the file
        QString before; ///< value, or size, mode and checksum; empty: it is not in the present package
        QString after; ///< the same of the new package
    };

    QVector<Line> lines;
    QString failure; ///< why the files could not be compared; empty: they were
    bool isCut = false; ///< a file is too large to be compared to its end

    /** Reads both files, until `stopped` answers true: not for the interface thread. */
    static PackageDifference
    between(const QString &before, const QString &after, const std::function<bool()> &stopped);
    /** A version that sorts directly after this one, for a package that was built again: 1.0-1+local1. */
    static QString nextVersion(const QString &version);
    static QString partText(Part part);
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/preview/changepreview.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QJsonObject>

/** A preview as a report for people or for programs. Pure. */
class PreviewReport
{
    Q_DECLARE_TR_FUNCTIONS(PreviewReport)
public:
    /** In UTF-8: lines without markup, without control characters from packages, with a newline behind the last one. */
    static QByteArray text(const ChangePreview &preview);
    /** The object that the manual page of the command line describes, with a newline behind it. */
    static QByteArray json(const ChangePreview &preview);
    static QJsonObject object(const ChangePreview &preview);
};

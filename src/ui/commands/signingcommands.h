// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "ui/commands/workbench.h"

#include <QObject>
#include <QPointer>

class RepoWidget;
struct KeyListing;

/** The commands that sign packages, and that copy or save the public key of a repository. */
class SigningCommands : public QObject
{
    Q_OBJECT
public:
    SigningCommands(const Workbench &bench, QObject *parent);

    /** Signs the selected packages of the current tab. A question before that names the key. */
    void signPackages();

private:
    /** What to sign, as it was at the time of the command. */
    struct Request
    {
        QPointer<RepoWidget> widget;
        QList<PackageInfoPtr> packages;
    };

    void readKey(const Request &request);
    void confirm(const Request &request, const KeyListing &listing);
    bool isPossible(const Request &request) const;
    void copyPublicKey(const QString &keyId);
    void savePublicKey(const RepoWidget &widget, const QString &keyId);

    Workbench m_bench;
    bool m_isReading = false; ///< the keys are being read
};

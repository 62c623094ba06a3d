// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "ui/commands/workbench.h"

#include <QObject>
#include <QPointer>

class RepoWidget;
struct KeyListing;

/** Signing packages, and handing out the public key of a signed repository. */
class SigningCommands : public QObject
{
    Q_OBJECT
public:
    SigningCommands(const Workbench &bench, QObject *parent);

    /** Signs the selected packages of the current tab after a question, in which the key is named. */
    void signPackages();

private:
    /** What is to be signed, as it was when the command was given. */
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
    bool m_isReading = false; ///< the keys
};

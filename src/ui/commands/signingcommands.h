// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QObject>
#include <QPointer>

class JobFeedback;
class Prompts;
class RepoTabs;
class RepoWidget;
class SettingsCommands;
struct KeyListing;

/** Signing packages, and handing out the public key of a signed repository. */
class SigningCommands : public QObject
{
    Q_OBJECT
public:
    SigningCommands(
        RepoTabs &tabs, Prompts &prompts, JobFeedback &feedback, SettingsCommands &settings, QObject *parent);

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

    RepoTabs &m_tabs;
    Prompts &m_prompts;
    JobFeedback &m_feedback;
    SettingsCommands &m_settings;
    bool m_isReading = false; ///< the keys
};

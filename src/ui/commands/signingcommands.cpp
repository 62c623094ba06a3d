// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/signingcommands.h"

#include "core/runinbackground.h"
#include "engine/reposhell.h"
#include "signing/keylisting.h"
#include "signing/repositorykey.h"
#include "signing/signprocess.h"
#include "ui/commands/settingscommands.h"
#include "ui/dialogs/prompts.h"
#include "ui/packages/packagedetails.h"
#include "ui/tab/jobfeedback.h"
#include "ui/tab/repositorypanel.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"

#include <QClipboard>
#include <QGuiApplication>

SigningCommands::SigningCommands(const Workbench &bench, QObject *parent)
    : QObject(parent)
    , m_bench(bench)
{
    connect(&m_bench.tabs, &RepoTabs::created, this, [this](const RepoWidget *widget) {
        const RepositoryPanel *panel = widget->repositoryPanel();
        connect(panel, &RepositoryPanel::copyKeyTriggered, this, &SigningCommands::copyPublicKey);
        connect(panel, &RepositoryPanel::saveKeyTriggered, this, [this, widget](const QString &keyId) {
            savePublicKey(*widget, keyId);
        });
    });
}

// --- packages ------------------------------------------------------------------------------------------------------

bool SigningCommands::isPossible(const Request &request) const
{
    return !request.widget.isNull() && !m_bench.tabs.isRunning(request.widget) && !request.packages.isEmpty();
}

void SigningCommands::signPackages()
{
    RepoWidget *widget = m_bench.tabs.current();
    if (widget == nullptr || m_isReading)
        return;
    const Request request{widget, widget->selectedPackages()};
    if (isPossible(request) && m_bench.settings.chooseKeyIfNone())
        readKey(request);
}

void SigningCommands::readKey(const Request &request)
{
    m_isReading = true;
    KeyListing::readInBackground(this, [this, request](const KeyListing &listing) {
        m_isReading = false;
        confirm(request, listing);
    });
}

void SigningCommands::confirm(const Request &request, const KeyListing &listing)
{
    if (!isPossible(request))
        return;
    const QString title = tr("Sign confirmation");
    const QString keyId = m_bench.settings.choices().signKeyId;
    const QString key = SignProcess::keyText(listing.keys, keyId);
    const QString obstacle = key.isEmpty() ? tr("not in the key ring") : listing.unusable.value(key);
    if (!obstacle.isEmpty()) {
        if (m_bench.prompts.ask(title,
                                tr("The chosen key cannot sign. Do you want to choose another one?"),
                                tr("%1 (%2)").arg(key.isEmpty() ? keyId : key, obstacle))
            != Prompts::Answer::Yes)
            return;
        m_bench.settings.showParametersDialog();
        if (m_bench.settings.choices().signKeyId != keyId)
            readKey(request);
        return;
    }
    QStringList about{PackageDetails::summary(request.packages, request.widget->repoShell()->repoInfo()),
                      tr("Key: %1").arg(key)};
    const QString warning = listing.warnings.value(key);
    if (!warning.isEmpty())
        about << warning;
    if (m_bench.prompts.ask(
            title, tr("Do you want to sign selected packages?"), about.join(QLatin1Char('\n')))
            == Prompts::Answer::Yes
        && isPossible(request))
        request.widget->repoShell()->signPackages(request.packages, keyId);
}

// --- the key of a repository ---------------------------------------------------------------------------------------

void SigningCommands::copyPublicKey(const QString &keyId)
{
    const auto read = [keyId] { return RepositoryKey::publicKey(keyId); };
    runInBackground(this, read, [this](const RepositoryKey::Export &exported) {
        if (exported.key.isEmpty()) {
            m_bench.feedback.error(tr("The public key cannot be exported."), exported.errorText);
            return;
        }
        QGuiApplication::clipboard()->setText(QString::fromLatin1(exported.key));
        m_bench.feedback.announce(tr("Public key is copied to clipboard"));
    });
}

void SigningCommands::savePublicKey(const RepoWidget &widget, const QString &keyId)
{
    // In the repository the key is served together with the packages.
    const QString name = QStringLiteral("repository-key.asc");
    const QString path
        = m_bench.prompts.saveFile(tr("Save public key"), widget.repoPath(), name, {tr("Keys (*.asc)")}).path;
    if (path.isEmpty())
        return;
    const auto save = [keyId, path] { return RepositoryKey::savePublicKey(keyId, path); };
    runInBackground(this, save, [this, path](const QString &failure) {
        if (failure.isEmpty())
            m_bench.feedback.announce(tr("The public key is saved in %1.").arg(path));
        else
            m_bench.feedback.error(tr("The public key cannot be saved in %1.").arg(path), failure);
    });
}

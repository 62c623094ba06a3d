// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/dryrun.h"

#include "cli/repositorysession.h"
#include "cli/terminal/console.h"
#include "engine/preview/previewreport.h"
#include "engine/preview/previewrequest.h"

#include <algorithm>

namespace
{
/** Whether the command would refuse something, or break something. */
bool hasFindings(const ChangePreview &preview, bool refusesCollisions)
{
    // Copying what is there already succeeds.
    const bool isCopy = preview.request && preview.request->options.copied;
    return preview.breaksSomething()
           || std::any_of(preview.rows.cbegin(), preview.rows.cend(), [&](const PreviewRow &row) {
                  return row.verdict == PreviewRow::Refused
                         || (refusesCollisions && row.verdict == PreviewRow::Collision
                             && !(isCopy && row.relation == PreviewRow::SameFile));
              });
}
} // namespace

ExitCode DryRun::show(RepositorySession &session,
                      Console &console,
                      const PreviewRequest &request,
                      const std::optional<PackageReplacementRules> &rule,
                      const QJsonObject &more)
{
    PreviewRequest complete = request;
    complete.extends = session.extends();
    complete.collisions = rule.value_or(session.collisionRule());
    std::optional<ChangePreview> shown;
    RepoShell &shell = session.shell();
    const auto connection
        = QObject::connect(&shell, &RepoShell::previewReady, &shell, [&shown](const ChangePreview &preview) {
              shown = preview;
          });
    session.run([&] { shell.preview(complete); });
    QObject::disconnect(connection);
    const ExitCode code = session.exitCode(shown.has_value());
    if (!shown || code >= ExitCode::Locked)
        return code;
    console.line(QString::fromUtf8(PreviewReport::text(*shown)).trimmed());
    QJsonObject object = PreviewReport::object(*shown);
    for (auto member = more.begin(); member != more.end(); ++member)
        object.insert(member.key(), member.value());
    console.object(object);
    if (!hasFindings(*shown, !rule && session.refusesCollisions()))
        return code;
    return shown->changesSomething() ? ExitCode::Findings : ExitCode::Failed;
}

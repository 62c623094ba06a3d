// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/terminal/exitcode.h"
#include "core/packagereplacementrules.h"

#include <QJsonObject>

#include <optional>

class Console;
struct PreviewRequest;
class RepositorySession;

/** The option --dry-run: what a command would do. */
namespace DryRun
{
/**
 * Prints the preview, with `more` in its object, and changes nothing. Done when all would be done and nothing would
 * break; Failed when nothing would be done, although that is wanted. `rule` says what becomes of packages that are
 * there already, instead of the option for that.
 */
ExitCode show(RepositorySession &session,
              Console &console,
              const PreviewRequest &request,
              const std::optional<PackageReplacementRules> &rule = {},
              const QJsonObject &more = {});
} // namespace DryRun

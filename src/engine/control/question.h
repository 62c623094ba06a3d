// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** What a yes to a question does, for those who answer without reading it. */
enum class QuestionKind {
    GoOn, ///< the job goes on with what it was asked for
    TrustPrograms, ///< programs that the settings of the repository name are run from now on
    GiveUp, ///< something is lost that the job was to keep
    Extend ///< the repository gets architectures or components that it has not
};

/** What stands beside the text of a question. */
struct QuestionTraits
{
    bool safeAnswer = false; ///< of somebody who knows nothing
    QuestionKind kind = QuestionKind::GoOn;
    QString yes = {}; ///< what the button for yes says; empty: the usual word
};

// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/jobcontext.h"

JobContext::JobContext(JobSignals &engineSignals)
    : listener(engineSignals)
    , control(engineSignals)
    , errors(engineSignals, control)
    , progress(engineSignals)
    , gate([this](const QString &title, const QString &text) {
        return control.ask(title, text, false, QuestionKind::TrustPrograms);
    })
    , reprepro(repository, gate, control, errors)
{ }

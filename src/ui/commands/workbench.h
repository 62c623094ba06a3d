// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class JobFeedback;
class PreviewCommands;
class Prompts;
class RepoTabs;
class SettingsCommands;

/** What all commands work with. Each class of commands keeps a copy. No destructor may use it: the window deletes these
 *  objects first. */
struct Workbench
{
    RepoTabs &tabs;
    Prompts &prompts; ///< asks the user
    JobFeedback &feedback; ///< tells the user
    SettingsCommands &settings; ///< the user's choices
    PreviewCommands &previews; ///< shows before what a change would do
};

// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/helptopics.h"

#include <QDialog>

#include <algorithm>
#include <cstring>

const QList<HelpTopics::Topic> &HelpTopics::all()
{
    static const QList<Topic> topics{
        {"AddPackageDialog", "external.html#add"},
        {"AddPkgSettingsDialog", "packages.html#settings"},
        {"CheckTableDialog", "upgrade.html"},
        {"CopyDialog", "copying.html"},
        {"CureDialog", "dependencies.html"},
        {"DifferenceDialog", "preview.html#difference"},
        {"ExternalRepoSourceDialog", "external.html#line"},
        {"ExternalReposDialog", "external.html#list"},
        {"GatherDialog", "dependencies.html#gather"},
        {"HistorySettingsDialog", "history.html#space"},
        {"NewRepoDialog", "repositories.html#fields"},
        {"PackageContentsDialog", "packages.html#closer"},
        {"PackageReplacementDialog", "packages.html#replace"},
        {"ParametersDialog", "signing.html#parameters"},
        {"PreviewDialog", "preview.html"},
        {"PublishedReposDialog", "publishing.html#list"},
        {"QMessageBox", "troubles.html"},
        {"StartSelectActionDialog", "packages.html#add"},
        {"StateDifferenceDialog", "history.html#undo"},
    };
    return topics;
}

QString HelpTopics::pageOf(const QDialog &dialog)
{
    for (const QMetaObject *type = dialog.metaObject(); type != nullptr; type = type->superClass()) {
        const auto topic = std::find_if(all().begin(), all().end(), [type](const Topic &each) {
            return std::strcmp(each.dialog, type->className()) == 0;
        });
        if (topic != all().end())
            return QLatin1String(topic->page);
    }
    return {};
}

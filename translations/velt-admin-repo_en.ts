<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>BatchReport</name>
    <message numerus="yes">
        <source>%n repository(ies) done</source>
        <translation>
            <numerusform>%n repository done</numerusform>
            <numerusform>%n repositories done</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n with errors</source>
        <translation>
            <numerusform>%n with errors</numerusform>
            <numerusform>%n with errors</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n left out</source>
        <translation>
            <numerusform>%n left out</numerusform>
            <numerusform>%n left out</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CompanionsTree</name>
    <message numerus="yes">
        <source>On a bare system %n package(s) come in: %1 to download, %2 on the disk</source>
        <translation>
            <numerusform>On a bare system %n package comes in: %1 to download, %2 on the disk</numerusform>
            <numerusform>On a bare system %n packages come in: %1 to download, %2 on the disk</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CureDialog</name>
    <message numerus="yes">
        <source>%n package(s) could be installed then</source>
        <translation>
            <numerusform>%n package could be installed then</numerusform>
            <numerusform>%n packages could be installed then</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) could no longer be installed</source>
        <translation>
            <numerusform>%n package could no longer be installed</numerusform>
            <numerusform>%n packages could no longer be installed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DependsReport</name>
    <message numerus="yes">
        <source>%1, by %n package(s)</source>
        <translation>
            <numerusform>%1, by %n package</numerusform>
            <numerusform>%1, by %n packages</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DescriptionEffect</name>
    <message numerus="yes">
        <source>apt on the clients refuses indices that are older than %n day(s), so the repository must be exported again before that.</source>
        <translation>
            <numerusform>apt on the clients refuses indices that are older than %n day, so the repository must be exported again before that.</numerusform>
            <numerusform>apt on the clients refuses indices that are older than %n days, so the repository must be exported again before that.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DifferenceDialog</name>
    <message numerus="yes">
        <source>%n difference(s):</source>
        <translation>
            <numerusform>%n difference:</numerusform>
            <numerusform>%n differences:</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FactsTree</name>
    <message numerus="yes">
        <source>%n package(s) directly</source>
        <translation>
            <numerusform>%n package directly</numerusform>
            <numerusform>%n packages directly</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) could no longer be installed without it</source>
        <translation>
            <numerusform>%n package could no longer be installed without it</numerusform>
            <numerusform>%n packages could no longer be installed without it</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GatherJob</name>
    <message numerus="yes">
        <source>%n package(s) to be fetched</source>
        <translation>
            <numerusform>%n package to be fetched</numerusform>
            <numerusform>%n packages to be fetched</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GatherText</name>
    <message numerus="yes">
        <source>%n dependency(ies) stay unmet.</source>
        <translation>
            <numerusform>%n dependency stays unmet.</numerusform>
            <numerusform>%n dependencies stay unmet.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 and %n more</numerusform>
            <numerusform>%1 and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HistoryCommands</name>
    <message numerus="yes">
        <source>No state was kept between this change and now, so %n change(s) will be undone.</source>
        <translation>
            <numerusform>No state was kept between this change and now, so %n change will be undone.</numerusform>
            <numerusform>No state was kept between this change and now, so %n changes will be undone.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n change(s) will be undone: this one and all later ones.</source>
        <translation>
            <numerusform>%n change will be undone.</numerusform>
            <numerusform>%n changes will be undone: this one and all later ones.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Do you want to delete %n restore point(s) of this repository?</source>
        <translation>
            <numerusform>Do you want to delete %n restore point of this repository?</numerusform>
            <numerusform>Do you want to delete %n restore points of this repository?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HistorySettingsDialog</name>
    <message numerus="yes">
        <source>%n restore point(s), %1</source>
        <translation>
            <numerusform>%n restore point, %1</numerusform>
            <numerusform>%n restore points, %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 (%n restore point(s))</source>
        <translation>
            <numerusform>%1 (%n restore point)</numerusform>
            <numerusform>%1 (%n restore points)</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HistoryText</name>
    <message numerus="yes">
        <source>%n added</source>
        <translation>
            <numerusform>%n added</numerusform>
            <numerusform>%n added</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n replaced</source>
        <translation>
            <numerusform>%n replaced</numerusform>
            <numerusform>%n replaced</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n removed</source>
        <translation>
            <numerusform>%n removed</numerusform>
            <numerusform>%n removed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HistoryView</name>
    <message numerus="yes">
        <source>%n restore point(s), %1</source>
        <translation>
            <numerusform>%n restore point, %1</numerusform>
            <numerusform>%n restore points, %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>InstallabilityReport</name>
    <message numerus="yes">
        <source>%1, of %n package(s)</source>
        <translation>
            <numerusform>%1, of %n package</numerusform>
            <numerusform>%1, of %n packages</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>InstallabilityText</name>
    <message numerus="yes">
        <source>undecided after %n second(s)</source>
        <translation>
            <numerusform>undecided after %n second</numerusform>
            <numerusform>undecided after %n seconds</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 and %n more</numerusform>
            <numerusform>%1 and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>NewRepoDialog</name>
    <message numerus="yes">
        <source>All %n package(s) will be deleted: %1</source>
        <translation>
            <numerusform>All packages (%n) will be deleted: %1</numerusform>
            <numerusform>All packages (%n) will be deleted: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) will be deleted: %1</source>
        <translation>
            <numerusform>%n package will be deleted: %1</numerusform>
            <numerusform>%n packages will be deleted: %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PackageCommands</name>
    <message numerus="yes">
        <source>Do you want to add %n package(s)?</source>
        <translation>
            <numerusform>Do you want to add %n package?</numerusform>
            <numerusform>Do you want to add %n packages?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n of them from %1</source>
        <translation>
            <numerusform>%n of them from %1</numerusform>
            <numerusform>%n of them from %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PackageContentsDialog</name>
    <message numerus="yes">
        <source>Found %n time(s)</source>
        <translation>
            <numerusform>Found %n time</numerusform>
            <numerusform>Found %n times</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PackageDetails</name>
    <message numerus="yes">
        <source>%n package(s): %1</source>
        <translation>
            <numerusform>%n package: %1</numerusform>
            <numerusform>%n packages: %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PackageFileCommands</name>
    <message numerus="yes">
        <source>Do you want to replace %n file(s) in %1?</source>
        <translation>
            <numerusform>Do you want to replace %n file in %1?</numerusform>
            <numerusform>Do you want to replace %n files in %1?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Saving %n package(s)...</source>
        <translation>
            <numerusform>Saving %n package...</numerusform>
            <numerusform>Saving %n packages...</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) saved.</source>
        <translation>
            <numerusform>%n package saved.</numerusform>
            <numerusform>%n packages saved.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) could not be saved.</source>
        <translation>
            <numerusform>%n package could not be saved.</numerusform>
            <numerusform>%n packages could not be saved.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PackageItem</name>
    <message numerus="yes">
        <source>%1 satisfies %2 of %n dependency(ies)</source>
        <translation>
            <numerusform>%1 satisfies %2 of %n dependency</numerusform>
            <numerusform>%1 satisfies %2 of %n dependencies</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PreviewEffectView</name>
    <message numerus="yes">
        <source>%n package(s) could be installed then</source>
        <translation>
            <numerusform>%n package could be installed then</numerusform>
            <numerusform>%n packages could be installed then</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) could no longer be installed</source>
        <translation>
            <numerusform>%n package could no longer be installed</numerusform>
            <numerusform>%n packages could no longer be installed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) that come in cannot be installed</source>
        <translation>
            <numerusform>%n package that comes in cannot be installed</numerusform>
            <numerusform>%n packages that come in cannot be installed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PreviewText</name>
    <message numerus="yes">
        <source>Clients that have them installed upgrade %n package(s).</source>
        <translation>
            <numerusform>Clients that have it installed upgrade %n package.</numerusform>
            <numerusform>Clients that have them installed upgrade %n packages.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Of %n package(s), clients keep the newer version that they have installed.</source>
        <translation>
            <numerusform>Of %n package, clients keep the newer version that they have installed.</numerusform>
            <numerusform>Of %n packages, clients keep the newer version that they have installed.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n removed package(s) stay installed where they are, without updates.</source>
        <translation>
            <numerusform>%n removed package stays installed where it is, without updates.</numerusform>
            <numerusform>%n removed packages stay installed where they are, without updates.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Clients that have it installed do not get the other contents of %n package(s) of the same version.</source>
        <translation>
            <numerusform>Clients that have it installed do not get the other contents of %n package of the same version.</numerusform>
            <numerusform>Clients that have them installed do not get the other contents of %n packages of the same version.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Prompts</name>
    <message numerus="yes">
        <source>%n further message(s) below.</source>
        <translation>
            <numerusform>%n further message below.</numerusform>
            <numerusform>%n further messages below.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PublicationConsent</name>
    <message numerus="yes">
        <source>and %n further file(s)</source>
        <translation>
            <numerusform>and %n further file</numerusform>
            <numerusform>and %n further files</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RemovalQuestion</name>
    <message numerus="yes">
        <source>%n package(s) could no longer be installed without this: %1</source>
        <translation>
            <numerusform>%n package could no longer be installed without this: %1</numerusform>
            <numerusform>%n packages could no longer be installed without this: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) of the repository %1 could no longer be installed without this: %2</source>
        <translation>
            <numerusform>%n package of the repository %1 could no longer be installed without this: %2</numerusform>
            <numerusform>%n packages of the repository %1 could no longer be installed without this: %2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RepoItemLook</name>
    <message numerus="yes">
        <source>%n package(s) cannot be installed.</source>
        <translation>
            <numerusform>%n package cannot be installed.</numerusform>
            <numerusform>%n packages cannot be installed.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) undecided: the search took too long.</source>
        <translation>
            <numerusform>%n package is undecided: the search took too long.</numerusform>
            <numerusform>%n packages are undecided: the search took too long.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RepoShell</name>
    <message numerus="yes">
        <source>%n package(s) had been imported before the stop.</source>
        <translation>
            <numerusform>%n package had been imported before the stop.</numerusform>
            <numerusform>%n packages had been imported before the stop.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) imported</source>
        <translation>
            <numerusform>%n package imported</numerusform>
            <numerusform>%n packages imported</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) depends checked</source>
        <translation>
            <numerusform>Operation stopped. Dependencies of %1 of %n package checked</numerusform>
            <numerusform>Operation stopped. Dependencies of %1 of %n packages checked</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Added %n package(s) to local repo: %1</source>
        <translation>
            <numerusform>Added %n package to local repo: %1</numerusform>
            <numerusform>Added %n packages to local repo: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) added to local repo: %2</source>
        <translation>
            <numerusform>Operation stopped. %1 of %n package added to local repo: %2</numerusform>
            <numerusform>Operation stopped. %1 of %n packages added to local repo: %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) added: %1</source>
        <translation>
            <numerusform>%n package added: %1</numerusform>
            <numerusform>%n packages added: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) added: %2</source>
        <translation>
            <numerusform>Operation stopped. %1 of %n package added: %2</numerusform>
            <numerusform>Operation stopped. %1 of %n packages added: %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n packages removed: %1</source>
        <translation>
            <numerusform>%n package removed: %1</numerusform>
            <numerusform>%n packages removed: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n packages(s) removed: %2</source>
        <translation>
            <numerusform>Operation stopped. %1 of %n package removed: %2</numerusform>
            <numerusform>Operation stopped. %1 of %n packages removed: %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) is signed: %1</source>
        <translation>
            <numerusform>%n package is signed: %1</numerusform>
            <numerusform>%n packages are signed: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) is signed: %2</source>
        <translation>
            <numerusform>Operation stopped. %1 of %n package is signed: %2</numerusform>
            <numerusform>Operation stopped. %1 of %n packages are signed: %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n link(s) of the repository lead to places outside of it and were left out. Such a link is followed only when it belongs to you or to root, and what it leads to has the same owner.</source>
        <translation>
            <numerusform>%n link of the repository leads to a place outside of it and was left out. Such a link is followed only when it belongs to you or to root, and what it leads to has the same owner.</numerusform>
            <numerusform>%n links of the repository lead to places outside of it and were left out. Such a link is followed only when it belongs to you or to root, and what it leads to has the same owner.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>... and %n more</source>
        <translation>
            <numerusform>... and %n more</numerusform>
            <numerusform>... and %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n dependency(ies) of the exported packages are not in the archive %1. The file %2 in it lists them all.</source>
        <translation>
            <numerusform>%n dependency of the exported packages is not in the archive %1. The file %2 in it lists it.</numerusform>
            <numerusform>%n dependencies of the exported packages are not in the archive %1. The file %2 in it lists them all.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) deleted: %1</source>
        <translation>
            <numerusform>%n package deleted: %1</numerusform>
            <numerusform>%n packages deleted: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) did not arrive under the new code name.</source>
        <translation>
            <numerusform>%n package did not arrive under the new code name.</numerusform>
            <numerusform>%n packages did not arrive under the new code name.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) added</source>
        <translation>
            <numerusform>%n package added</numerusform>
            <numerusform>%n packages added</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) replaced</source>
        <translation>
            <numerusform>%n package replaced</numerusform>
            <numerusform>%n packages replaced</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) removed</source>
        <translation>
            <numerusform>%n package removed</numerusform>
            <numerusform>%n packages removed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n installer package(s) need what the repository does not hold, and apt fetches no lists of installer packages: whether they can be installed is not known.</source>
        <translation>
            <numerusform>%n installer package needs what the repository does not hold, and apt fetches no lists of installer packages: whether it can be installed is not known.</numerusform>
            <numerusform>%n installer packages need what the repository does not hold, and apt fetches no lists of installer packages: whether they can be installed is not known.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) checked completely</source>
        <translation>
            <numerusform>Operation stopped. %1 of %n package checked completely</numerusform>
            <numerusform>Operation stopped. %1 of %n packages checked completely</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n restore point(s) deleted, %1 freed</source>
        <translation>
            <numerusform>%n restore point deleted, %1 freed</numerusform>
            <numerusform>%n restore points deleted, %1 freed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The repository cannot go back: %n file(s) of the earlier state are missing or have been changed.</source>
        <translation>
            <numerusform>The repository cannot go back: %n file of the earlier state is missing or has been changed.</numerusform>
            <numerusform>The repository cannot go back: %n files of the earlier state are missing or have been changed.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) moved: %1</source>
        <translation>
            <numerusform>%n package moved: %1</numerusform>
            <numerusform>%n packages moved: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) copied: %1</source>
        <translation>
            <numerusform>%n package copied: %1</numerusform>
            <numerusform>%n packages copied: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) moved: %2</source>
        <translation>
            <numerusform>Operation stopped. %1 of %n package moved: %2</numerusform>
            <numerusform>Operation stopped. %1 of %n packages moved: %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) copied: %2</source>
        <translation>
            <numerusform>Operation stopped. %1 of %n package copied: %2</numerusform>
            <numerusform>Operation stopped. %1 of %n packages copied: %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) stay(s) here, since the repository %1 does not have the same.</source>
        <translation>
            <numerusform>%n package stays here, since the repository %1 does not have the same.</numerusform>
            <numerusform>%n packages stay here, since the repository %1 does not have the same.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the architecture(s) %1</source>
        <translation>
            <numerusform>the architecture %1</numerusform>
            <numerusform>the architectures %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the component(s) %1</source>
        <translation>
            <numerusform>the component %1</numerusform>
            <numerusform>the components %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package file(s) cannot be added, because the repository lacks %1.</source>
        <translation>
            <numerusform>%n package file cannot be added, because the repository lacks %1.</numerusform>
            <numerusform>%n package files cannot be added, because the repository lacks %1.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SearchPackageWidget</name>
    <message numerus="yes">
        <source>%n package(s)</source>
        <translation>
            <numerusform>%n package</numerusform>
            <numerusform>%n packages</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n package(s)</source>
        <translation>
            <numerusform>%1 of %n package</numerusform>
            <numerusform>%1 of %n packages</numerusform>
        </translation>
    </message>
</context>
</TS>

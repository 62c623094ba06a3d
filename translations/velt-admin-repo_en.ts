<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
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

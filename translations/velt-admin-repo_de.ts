<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AddPackageDialog</name>
    <message>
        <source>Add package from external repo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter package name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AddPkgSettingsDialog</name>
    <message>
        <source>Package add settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Component:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The component to which packages will be added.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign the package for a closed software environment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check depends</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show dialog when adding packages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(each package&apos;s own component)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AptFetch</name>
    <message>
        <source>The source %1 does not have one of its components.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The source %1 is not trusted: its signature is missing or cannot be checked.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The source %1 does not exist there.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A part of the source is missing: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The server could not be reached: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The source could not be fetched: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>apt could not fetch the lists of packages.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AptUtils</name>
    <message>
        <source>Apt error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>apt has no list of the packages of any public source. &quot;apt update&quot; fetches the lists of the sources that it has been told of.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>apt-cache: error showing package %1 info</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Apt: download package %1 error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not the name of a package</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an architecture</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ArchiveCommands</name>
    <message>
        <source>Import packages from folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not imported: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select folder with packages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select export archive</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Archives (*.tgz *.tar.gzip)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not exported: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select archive with packages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select directory</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ArchiveUtils</name>
    <message>
        <source>Can&apos;t open archive for import!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can&apos;t umount archive!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder %1 cannot be used: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another import is reading an archive. Try again when it is done.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The archive of an earlier import is still mounted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The program %1 could not be started. Install the package %2.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ArchiveWriter</name>
    <message>
        <source>It is no file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is larger than the 8 GiB that an archive can hold of a file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It was changed by another program while it was read.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CheckTableDialog</name>
    <message>
        <source>&amp;Select all</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selected: %1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ClosingSequence</name>
    <message>
        <source>Warning</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is in progress, do you really want to close the program?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is in progress, do you really want to close the repository?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DependsCommands</name>
    <message>
        <source>Warning!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dependences checking is disabled.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add packages to local repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add package to local repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not added: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DependsModel</name>
    <message>
        <source>Package</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DependsReport</name>
    <message>
        <source>not checked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>provided by %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>needs %1, %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no source offers it, nor a suitable version of what provides it: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no source offers it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Packages with satisfied dependencies: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Packages with missing dependencies: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Packages not checked: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Most wanted:</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%1, by %n package(s)</source>
        <translation>
            <numerusform>%1, von %n Paket</numerusform>
            <numerusform>%1, von %n Paketen</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 offers %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DependsReportCommands</name>
    <message>
        <source>Copy report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save report...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Report is copied to clipboard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Text (*.txt)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>JSON (*.json)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The report is saved in %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The report cannot be saved in %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DependsView</name>
    <message>
        <source>Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dependencies in this state are not shown. The buttons above choose what is shown.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The package has no dependencies.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not checked yet: press &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The package has no dependencies that can be checked.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DpkgUtils</name>
    <message>
        <source>&quot;%1&quot; is not a version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The process dpkg crashed!</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>EmptyPage</name>
    <message>
        <source>No repository is open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create a repository or open one to add packages to it</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ExternalRepoSourceDialog</name>
    <message>
        <source>Add external repo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change external repo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Address, suite and components, as in a sources list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>name to show in place of the address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Source line:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A&amp;lias:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ExternalRepos</name>
    <message>
        <source>&quot;%1&quot; is not the address of a repository. It begins with http:, https:, ftp: or file:.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A disc that apt asks for cannot be searched. Mount it and use a file: address.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The path behind file: begins with a slash and holds no square brackets.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Addresses with &quot;%1:&quot; cannot be used. Use http:, https:, ftp: or file:.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The address names no host, or not as in http://example.org/debian.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The line holds a line break or another invisible character.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter the address, the suite and the components of the repository.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lines for source packages cannot be used.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The character %1 cannot stand in a source line.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The options in square brackets are not written as in [arch=amd64 trusted=yes].</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The suite is missing behind the address.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Square brackets stand only around the options, in front of the address.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A suite that ends in a slash has no components.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The components are missing. Only a suite that ends in a slash has none.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The list has this repository already.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ExternalReposDialog</name>
    <message>
        <source>No external repositories to show</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Add...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit external repos</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The repositories that are asked when dependencies are checked, packages are searched for and a repository is upgraded. The sources of the system itself stay as they are.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Asking apt which repositories it knows...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>External repositories</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>apt does not say which repositories it knows; only stored ones are shown. %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What apt knows from the sources of the system cannot be removed here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>apt knows this repository from the sources of the system, so it cannot be changed here.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ExternalReposModel</name>
    <message>
        <source>Repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Alias</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>apt knows this repository from the sources of the system. Here it can be switched off and named, but not changed or removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You added this repository.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>apt does not know this repository at present. It is asked again when apt knows it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>apt does not know this repository at present.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FoundPackagesModel</name>
    <message>
        <source>Package</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Architecture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GpgKeysWidget</name>
    <message>
        <source>Start KGpg</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Package signing key:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select GPG key for signing packages. Use KGpg to add/delete GPG keys. After add/delete GPG keys need reload program.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No key is selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The keys are being read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No keys are listed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No keys are listed (in use: %1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (not listed)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>JobFeedback</name>
    <message>
        <source>Stop</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LocalCandidates</name>
    <message>
        <source>Local</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recent repositories</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dependences checking</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Publication</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tool bar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New repository...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open repository...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add packages...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add packages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove packages...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove packages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Publish repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unpublish repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change repository...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add src list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add repository to local sources list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove src list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove repository from local sources list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Package add settings...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parameters...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign package(s)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Local repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Public repositories</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All repositories</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check depends</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add package to local repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Contents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export all packages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export selected packages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export repo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import packages from archive</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit sources lists</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add package from external repo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit external repos...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show published repos</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export package with depends</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Upgrade Repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>View...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hide status line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Changes the visibility of widget with dependencies counter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check depends in all repos</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check depends in public repos</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check depends in local repo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dependces checking disabled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Extended log</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show extended log</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About Qt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This program uses Qt version %1, a toolkit for applications under the GNU Lesser General Public License, version 3. See https://www.qt.io.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The help pages are not installed.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MissingPackage</name>
    <message>
        <source>Package %1 is not installed! Do you want to install it?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The package manager synaptic cannot be started. Install the package %1 in another way.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The program %1 cannot be started.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>NewRepoDialog</name>
    <message>
        <source>Repository creation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select a directory to create the repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This required field.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Code name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Suite</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This optional field.
Value: oldstable, stable, testing, unstable, current, experimental.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This optional field.
Example: 1.0.2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Architectures</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This required field. 
One or more values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Components</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This required field.
One or more values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create Contets-*.gz file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign the repository (apt)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start KGpg</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Will be use default GPG key for signing repository (apt). Use KGpg to select default GPG key.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository change</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository import</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Small letters a to z, digits and the characters %1 are allowed here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Small letters a to z, digits and hyphens are allowed here; one blank separates two values.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It looks like you are trying to edit a published repository. Please unpublish the repository first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please fill all required fields!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Architecture &quot;all&quot; is unallowable!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The path must be absolute: it starts with a slash.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The name or the code name cannot be used. They consist of letters, digits, dots, hyphens and underscores.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Changing fields Codename, Architectures, Components may result in packages deletion. Want to continue?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It holds a repository. Everything in it will be deleted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It holds no repository. Everything in it will be deleted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The directory %1 already exists. Replace it?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Overwriting a published repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You are trying to overwrite a published repository. It is highly recommended to first unpublish the repository and then make changes. Click &quot;Yes&quot; only if you know what you are doing. Continue?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PackageCommands</name>
    <message>
        <source>Not added: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There are no repositories to add a package to</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select the repository to add the package(s) to:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Adding Packages%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Packages (*.deb *.udeb)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only packages can be added: files whose name ends in .deb or .udeb, in small letters.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove confirmation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to remove selected packages?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PackageDependItem</name>
    <message>
        <source>%1 Provided by ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Provided by ... </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 offers %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>needs %1, %2 offers %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not checked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 does not offer it</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PackageDetails</name>
    <message numerus="yes">
        <source>%n package(s): %1</source>
        <translation>
            <numerusform>%n Paket: %1</numerusform>
            <numerusform>%n Pakete: %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PackageFile</name>
    <message>
        <source>The file is damaged: its end is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its control data lack the package&apos;s name, version or architecture.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PackageItem</name>
    <message>
        <source>Dependencies not checked yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Some dependencies are not satisfied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Depends on nothing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All dependencies are satisfied</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%1 satisfies %2 of %n dependency(ies)</source>
        <translation>
            <numerusform>%1 erfüllt %2 von %n Abhängigkeit</numerusform>
            <numerusform>%1 erfüllt %2 von %n Abhängigkeiten</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PackageReplacementDialog</name>
    <message>
        <source>The repository already contains a package %1 (%2) of a newer version. Do you want to replace it?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The repository already contains a package %1 (%2) of an earlier version. Do you want to replace it?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The package %1 (%2) already exists. Do you want to replace it?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Package replacement</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Apply to all</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version in the repository: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New version: %1 (%2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You can immediately choose what to do with all subsequent matches; to do this, select one of the options and click &quot;Apply to all&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Give preference to versions higer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>In case of matching package, preference will be given to the package with a higher version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Give preference to versions lower</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>In case of matching package, preference will be given to the package with a lower version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replace all packages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>If the package matches, always replace it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do not replace packages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Always give preference to packages already present in the repository</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PackageStatusLine</name>
    <message>
        <source>Dependences not checked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dependences not satisfied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dependences satisfied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Total: %1 package(s)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ParametersDialog</name>
    <message>
        <source>Show package version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parametrs</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Prompts</name>
    <message numerus="yes">
        <source>%n further message(s) below.</source>
        <translation>
            <numerusform>%n weitere Meldung unten.</numerusform>
            <numerusform>%n weitere Meldungen unten.</numerusform>
        </translation>
    </message>
    <message>
        <source>Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Warning</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Confirm replacement</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file %1 already exists. Do you want to replace it?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PublicationAccess</name>
    <message>
        <source>The access rights of %1 cannot be changed.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PublicationPanel</name>
    <message>
        <source>Choose a server type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Complete the IP address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Address is copied to clipboard</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PublicationText</name>
    <message>
        <source>Published</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Being started</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Being stopped</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not running</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RepoModel</name>
    <message>
        <source>Architecture: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Packages</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RepoShell</name>
    <message>
        <source>The database of the repository is missing. Any change would make a new one and take all packages out of the indices, so nothing was done.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The program reprepro could not be started. Is it installed?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The process reprepro crashed!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The repository %1 is being changed by another program. Try again when it is done.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository is locked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The database of the repository %1 is locked, but no program uses it: an earlier run was interrupted. Do you want to remove the lock and try again?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exporting repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository is not exported</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can&apos;t open repository dir</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Operation stopped. Repository not exported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository exported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exporting package</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exporting packages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file of the package %1 is not known.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Operation stopped. Package not exported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Operation stopped. Packages not exported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export finished</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can&apos;t create archive for export</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 lies in the repository itself. Choose a place outside of it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start repo import</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import error!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Package(s) not imported</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import failed: there are no packages by selected path</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) imported</source>
        <translation>
            <numerusform>%n Paket importiert</numerusform>
            <numerusform>%n Pakete importiert</numerusform>
        </translation>
    </message>
    <message>
        <source>Can&apos;t open archive for import!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No temporary folder could be made to unpack it in.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Checking depends</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) depends checked</source>
        <translation>
            <numerusform>Vorgang angehalten. Abhängigkeiten von %1 von %n Paket geprüft</numerusform>
            <numerusform>Vorgang angehalten. Abhängigkeiten von %1 von %n Paketen geprüft</numerusform>
        </translation>
    </message>
    <message>
        <source>Depends checked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The stored results of the dependency checks could not be read. The file is kept as %1; check the dependencies again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading package</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading packages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No source offers: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Added %n package(s) to local repo: %1</source>
        <translation>
            <numerusform>%n Paket zum lokalen Repository hinzugefügt: %1</numerusform>
            <numerusform>%n Pakete zum lokalen Repository hinzugefügt: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) added to local repo: %2</source>
        <translation>
            <numerusform>Vorgang angehalten. %1 von %n Paket zum lokalen Repository hinzugefügt: %2</numerusform>
            <numerusform>Vorgang angehalten. %1 von %n Paketen zum lokalen Repository hinzugefügt: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>No temporary folder could be made to fetch it into.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>apt has left no file of that version.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Impossible to delete directory %1!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Impossible to create directory %1!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is a directory of the system, or holds a home directory or an open repository.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to create repository!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Impossible to create file %1!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opening repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File %1/conf/distributions not found! Do you want to import repository?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File %1/conf/distributions not found!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File %1/conf/distributions names no distribution: its field Codename is missing or empty.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repositry is not opened</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repositry is opened</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An earlier job was interrupted, and the indices of the repository could not be brought up to date. The packages shown may not be all that it holds.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An earlier job was interrupted while it replaced a package. The replaced files are kept in %1; add them again if they are missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository changing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository not changed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository is changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to change repository!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository is not changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The repository holds several distributions. A change would delete all but the first, so nothing was done.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is the repository itself, lies in it or holds it, or it is a directory of the system, or holds a home directory or an open repository.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The repository could not be moved to %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to sign repository!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not added: %1. The repository holds version %2 (%3) already, which was kept.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not added: %1. The repository holds the newer version %2 (%3), which was kept.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not added: %1. The repository holds the older version %2 (%3), which was kept.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The indices of the repository could not be written. They will be written when the repository is opened the next time.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Adding package</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Adding packages</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) added: %1</source>
        <translation>
            <numerusform>%n Paket hinzugefügt: %1</numerusform>
            <numerusform>%n Pakete hinzugefügt: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) added: %2</source>
        <translation>
            <numerusform>Vorgang angehalten. %1 von %n Paket hinzugefügt: %2</numerusform>
            <numerusform>Vorgang angehalten. %1 von %n Paketen hinzugefügt: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>Error adding package!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Package is unsigned</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Package is added, but unsigned. Do you want to remove it?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not added: %1. The repository could not be signed with it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Added, but the repository could not be signed: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Error adding package %1!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot added package %1 with architecture all!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The present package could not be kept aside, so it was not replaced: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The present package could not be removed, so it was not replaced.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The replaced package %1 could not be put back: its file was missing already.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The replaced package %1 could not be put back. Its file is kept as %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Removing package</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Removing packages</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n packages removed: %1</source>
        <translation>
            <numerusform>%n Paket entfernt: %1</numerusform>
            <numerusform>%n Pakete entfernt: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n packages(s) removed: %2</source>
        <translation>
            <numerusform>Vorgang angehalten. %1 von %n Paket entfernt: %2</numerusform>
            <numerusform>Vorgang angehalten. %1 von %n Paketen entfernt: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>Error removing package %1!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Package signing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Packages signing</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) is signed: %1</source>
        <translation>
            <numerusform>%n Paket signiert: %1</numerusform>
            <numerusform>%n Pakete signiert: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) is signed: %2</source>
        <translation>
            <numerusform>Vorgang angehalten. %1 von %n Paket signiert: %2</numerusform>
            <numerusform>Vorgang angehalten. %1 von %n Paketen signiert: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>Failed to sign package %1!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No temporary folder could be made to sign it in.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The record of the signed packages could not be written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file that has come is of another package: %1 %2 (%3).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Information is not downloaded</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Canceled by user</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No packages for upgrading</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing to upgrade</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ready for upgrade</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Upgrading repo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repo is not upgraded</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unable to create cache folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repo upgraded</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The chosen sources offer no packages for this repository.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not upgraded: %1 (%2) is in the repository no longer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not upgraded: no source offers %1 %2 any more.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RepoWidget</name>
    <message>
        <source>Packages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Common</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Components:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Code name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Suite:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Architectures:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Signature (apt):</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Signing key:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Key for clients:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy public key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save public key...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Publication</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trusted repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Architecture:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Server type:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IP address:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Port number:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Source line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy to clipboard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>apt on Debian 12 uses FTP only when a file in the client&apos;s /etc/apt/apt.conf.d holds this line:
Dir::Bin::Methods::ftp &quot;ftp&quot;;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Publish</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unpublish</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Package:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Component:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Section:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Maintainer:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Description:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Signature:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dependences</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check dependences</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show depends undefined</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show depends error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show depends success</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Packet Filter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Packages search</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Signed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unsigned</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The indices of the repository hold no record of %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;b&gt;Failed to get package information&lt;/b&gt;&lt;br&gt; %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RepositoryCommands</name>
    <message>
        <source>Repository is not created.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The packages are imported from %1, so the repository can neither lie in it nor hold it. Choose another path or name.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository for import is not created</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The repository %1 is being deleted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository is created.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select repository directory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The directory %1 does not exist.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recent repositories</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The directory %1 does not exist. Do you want to remove it from the list of recent repositories?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File %1/conf/distributions not found!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove confirmation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to delete a repository %1?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository is deleted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The directory %1 does not exist, so there was nothing to delete. The repository was closed and is no longer among the recent ones.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository is not deleted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository is not deleted.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RepositoryKey</name>
    <message>
        <source>not in the key ring</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>gpg exported no key.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RepositoryKeyPanel</name>
    <message>
        <source>%1 (%2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save the public key, put it on each client as %1, and write signed-by=%1 into the brackets after &quot;deb&quot; in its source line.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RepositoryRemoval</name>
    <message>
        <source>The directory %1 holds no repository.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The directory %1 belongs to the system, or holds a home directory or an open repository.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not everything in %1 could be deleted.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SearchPackageWidget</name>
    <message>
        <source>Start typing the pacakge name here...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Package name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Searching</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Packages found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Architecture:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Repository:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The name of a package cannot begin with &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No packages found</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n package(s)</source>
        <translation>
            <numerusform>%n Paket</numerusform>
            <numerusform>%n Pakete</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n package(s)</source>
        <translation>
            <numerusform>%1 von %n Paket</numerusform>
            <numerusform>%1 von %n Paketen</numerusform>
        </translation>
    </message>
    <message>
        <source>Only the first %1 of %2 names are shown: type more of the name</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Sections</name>
    <message>
        <source>System Administration</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Base System</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mono/CLI Infrastructure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Communication</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Default</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Databases</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Development</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Documentation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Debug</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Editors</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Electronics</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Embedded Devices</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fonts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Games and Amusement</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GNOME Desktop Environment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Graphics</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GNU R statistical system</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gnustep Desktop Environment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Amateur Radio</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Haskell Programming Language</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Web servers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interpreted Computer Languages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Java Programming Language</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>KDE Desktop Environment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kernel and modules</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Libraries - Development</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Libraries</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lisp Programming Language</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Localization</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Email</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mathematics</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Miscellaneous</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Networking</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Newsgroup</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OCaml Programming Language</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Libraries - Old</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cross Platform</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Perl Programming Language</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PHP Programming Language</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Python Programming Language</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ruby Programming Language</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Science</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shells</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Multimedia</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tasks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TeX Authoring</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Word Processing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Utilities</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version Control Systems</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Video software</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>World Wide Web</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Miscellaneous  - Graphical</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Xfce Desktop Environment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zope/Plone Environment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Converted From RPM by Alien</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Internationalization and localization</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Meta Packages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Education</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GObject Introspection data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Restricted On Export</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>non free</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>contrib</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SettingsCommands</name>
    <message>
        <source>Package signing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No key is chosen to sign packages with. Do you want to choose one?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The list cannot be stored in %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SigningCommands</name>
    <message>
        <source>Sign confirmation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not in the key ring</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The chosen key cannot sign. Do you want to choose another one?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Key: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to sign selected packages?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The public key cannot be exported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Public key is copied to clipboard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save public key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys (*.asc)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The public key is saved in %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The public key cannot be saved in %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SigningKey</name>
    <message>
        <source>no secret key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expired on %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expired</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>revoked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>disabled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not meant for signing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>another key has the same id</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The key expires on %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SigningSwitch</name>
    <message>
        <source>Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Key verification error:
%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no key that can sign. Make one with KGpg first.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SourcesListCommand</name>
    <message>
        <source>The program %1 is not installed.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StartSelectActionDialog</name>
    <message>
        <source>Select action</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There are no repositories open at the moment to add packages, please select the next action</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create repo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open repo</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SystemFile</name>
    <message>
        <source>it is a link or no regular file</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TabBarActions</name>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close others</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy path</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TarReader</name>
    <message>
        <source>The archive is damaged.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The archive is damaged: its end is missing.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UpgradeCommands</name>
    <message>
        <source>No source selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Since you have not selected any source, the update will be canceled</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UpgradePackagesDialog</name>
    <message>
        <source>Choose packages to upgrade</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The chosen packages are fetched and take the places of the old versions.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Package</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Architecture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Old version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Source</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UpgradeSourcesDialog</name>
    <message>
        <source>Select sources to upgrade</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Newer versions of the packages are looked for in these sources. Which ones are offered here is set in Settings, Edit external repos.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Alias</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Asking apt which repositories it knows...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>apt does not say which repositories it knows; only your own are shown. %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VeltAboutDialog</name>
    <message>
        <source>About %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Free software under the GNU General Public License, version 3 or later. It comes without any warranty.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About Qt</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VeltHelp</name>
    <message>
        <source>Help</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>List of packages to add to the repository</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Package files (.deb, .udeb)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Velt admin repo tool</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>

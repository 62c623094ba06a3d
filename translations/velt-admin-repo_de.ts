<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AddPackageDialog</name>
    <message>
        <source>Add package from external repo</source>
        <translation>Paket aus externem Repository hinzufügen</translation>
    </message>
    <message>
        <source>Enter package name:</source>
        <translation>Paketnamen eingeben:</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
</context>
<context>
    <name>AddPkgSettingsDialog</name>
    <message>
        <source>Package add settings</source>
        <translation>Einstellungen zum Hinzufügen von Paketen</translation>
    </message>
    <message>
        <source>Component:</source>
        <translation>Komponente:</translation>
    </message>
    <message>
        <source>The component to which packages will be added.</source>
        <translation>Die Komponente, zu der Pakete hinzugefügt werden.</translation>
    </message>
    <message>
        <source>Sign the package for a closed software environment</source>
        <translation>Paket für eine geschlossene Softwareumgebung signieren</translation>
    </message>
    <message>
        <source>Check depends</source>
        <translation>Abhängigkeiten prüfen</translation>
    </message>
    <message>
        <source>Show dialog when adding packages</source>
        <translation>Diesen Dialog beim Hinzufügen von Paketen zeigen</translation>
    </message>
    <message>
        <source>(each package&apos;s own component)</source>
        <translation>(eigene Komponente jedes Pakets)</translation>
    </message>
    <message>
        <source>Preview...</source>
        <translation>Vorschau...</translation>
    </message>
</context>
<context>
    <name>AddedListsFetch</name>
    <message>
        <source>No files could be written in %1.</source>
        <translation>In %1 konnten keine Dateien geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>AddedSourcesBar</name>
    <message>
        <source>Fetching the lists of your own sources</source>
        <translation>Die Listen Ihrer eigenen Paketquellen werden geholt</translation>
    </message>
    <message>
        <source>&amp;Fetch again</source>
        <translation>&amp;Erneut holen</translation>
    </message>
    <message>
        <source>Fetching the lists of your own sources...</source>
        <translation>Die Listen Ihrer eigenen Paketquellen werden geholt...</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>A&amp;nhalten</translation>
    </message>
    <message>
        <source>The lists of your own sources were not fetched.</source>
        <translation>Die Listen Ihrer eigenen Paketquellen wurden nicht geholt.</translation>
    </message>
    <message>
        <source>Your own sources: %1</source>
        <translation>Ihre eigenen Paketquellen: %1</translation>
    </message>
    <message>
        <source>Lists of your own sources: %1</source>
        <translation>Listen Ihrer eigenen Paketquellen: %1</translation>
    </message>
</context>
<context>
    <name>ApplyJob</name>
    <message>
        <source>Nothing was done: there is no preview of this repository.</source>
        <translation>Es wurde nichts getan: Es gibt keine Vorschau für dieses Repository.</translation>
    </message>
    <message>
        <source>Applying the preview</source>
        <translation>Vorschau wird angewendet</translation>
    </message>
    <message>
        <source>Nothing was done.</source>
        <translation>Es wurde nichts getan.</translation>
    </message>
    <message>
        <source>Nothing was done: the repository or a file has changed since the preview was made.</source>
        <translation>Es wurde nichts getan: Das Repository oder eine Datei hat sich seit der Vorschau geändert.</translation>
    </message>
    <message>
        <source>Nothing was to be changed.</source>
        <translation>Es war nichts zu ändern.</translation>
    </message>
</context>
<context>
    <name>AptFetch</name>
    <message>
        <source>The source %1 does not have one of its components.</source>
        <translation>Der Paketquelle %1 fehlt eine ihrer Komponenten.</translation>
    </message>
    <message>
        <source>The source %1 is not trusted: its signature is missing or cannot be checked.</source>
        <translation>Der Paketquelle %1 wird nicht vertraut: Ihre Signatur fehlt oder kann nicht geprüft werden.</translation>
    </message>
    <message>
        <source>The source %1 does not exist there.</source>
        <translation>Die Paketquelle %1 gibt es dort nicht.</translation>
    </message>
    <message>
        <source>A part of the source is missing: %1.</source>
        <translation>Ein Teil der Paketquelle fehlt: %1.</translation>
    </message>
    <message>
        <source>The server could not be reached: %1.</source>
        <translation>Der Server war nicht erreichbar: %1.</translation>
    </message>
    <message>
        <source>The source could not be fetched: %1.</source>
        <translation>Die Paketquelle konnte nicht abgerufen werden: %1.</translation>
    </message>
    <message>
        <source>apt could not fetch the lists of packages.</source>
        <translation>apt konnte die Paketlisten nicht abrufen.</translation>
    </message>
    <message>
        <source>The source %1 has expired: it is no longer updated, or the clock of this machine is wrong.</source>
        <translation>Die Paketquelle %1 ist abgelaufen: Sie wird nicht mehr aktualisiert, oder die Uhr dieses Rechners geht falsch.</translation>
    </message>
    <message>
        <source>apt of this machine cannot use addresses with &quot;%1:&quot;.</source>
        <translation>apt auf diesem Rechner kann Adressen mit „%1:“ nicht verwenden.</translation>
    </message>
</context>
<context>
    <name>AptUtils</name>
    <message>
        <source>Apt error</source>
        <translation>apt-Fehler</translation>
    </message>
    <message>
        <source>apt has no list of the packages of any public source. &quot;apt update&quot; fetches the lists of the sources that it has been told of.</source>
        <translation>apt hat von keiner öffentlichen Paketquelle eine Paketliste. „apt update“ ruft die Listen der Paketquellen ab, die apt kennt.</translation>
    </message>
    <message>
        <source>apt-cache: error showing package %1 info</source>
        <translation>apt-cache: Fehler beim Anzeigen der Angaben zum Paket %1</translation>
    </message>
    <message>
        <source>Apt: download package %1 error</source>
        <translation>apt: Fehler beim Herunterladen des Pakets %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not the name of a package</source>
        <translation>„%1“ ist kein Paketname</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an architecture</source>
        <translation>„%1“ ist keine Architektur</translation>
    </message>
    <message>
        <source>apt on this computer does not know the architecture(s) %1, so it could not say what public sources offer for them. These commands make apt know: %2</source>
        <translation>apt auf diesem Rechner kennt folgende Architekturen nicht und konnte deshalb nicht sagen, was öffentliche Paketquellen für sie anbieten: %1. Mit diesen Befehlen lernt apt sie kennen: %2</translation>
    </message>
</context>
<context>
    <name>ArchiveCommands</name>
    <message>
        <source>Import packages from folder</source>
        <translation>Pakete aus Ordner importieren</translation>
    </message>
    <message>
        <source>Not imported: %1</source>
        <translation>Nicht importiert: %1</translation>
    </message>
    <message>
        <source>Select folder with packages</source>
        <translation>Ordner mit Paketen auswählen</translation>
    </message>
    <message>
        <source>Select export archive</source>
        <translation>Exportarchiv auswählen</translation>
    </message>
    <message>
        <source>Archives (*.tgz *.tar.gzip)</source>
        <translation>Archive (*.tgz *.tar.gzip)</translation>
    </message>
    <message>
        <source>Not exported: %1</source>
        <translation>Nicht exportiert: %1</translation>
    </message>
    <message>
        <source>Select archive with packages</source>
        <translation>Archiv mit Paketen auswählen</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Select directory</source>
        <translation>Verzeichnis auswählen</translation>
    </message>
</context>
<context>
    <name>ArchiveUtils</name>
    <message>
        <source>Can&apos;t open archive for import!</source>
        <translation>Das Archiv kann nicht für den Import geöffnet werden!</translation>
    </message>
    <message>
        <source>Can&apos;t umount archive!</source>
        <translation>Das Archiv kann nicht ausgehängt werden!</translation>
    </message>
    <message>
        <source>The folder %1 cannot be used: %2</source>
        <translation>Der Ordner %1 kann nicht verwendet werden: %2</translation>
    </message>
    <message>
        <source>Another import is reading an archive. Try again when it is done.</source>
        <translation>Ein anderer Import liest gerade ein Archiv. Versuchen Sie es erneut, wenn er fertig ist.</translation>
    </message>
    <message>
        <source>The archive of an earlier import is still mounted.</source>
        <translation>Das Archiv eines früheren Imports ist noch eingehängt.</translation>
    </message>
    <message>
        <source>The program %1 could not be started. Install the package %2.</source>
        <translation>Das Programm %1 konnte nicht gestartet werden. Installieren Sie das Paket %2.</translation>
    </message>
</context>
<context>
    <name>ArchiveWriter</name>
    <message>
        <source>It is no file.</source>
        <translation>Es ist keine Datei.</translation>
    </message>
    <message>
        <source>It is larger than the 8 GiB that an archive can hold of a file.</source>
        <translation>Sie ist größer als die 8 GiB, die ein Archiv von einer Datei aufnehmen kann.</translation>
    </message>
    <message>
        <source>It was changed by another program while it was read.</source>
        <translation>Sie wurde beim Lesen von einem anderen Programm geändert.</translation>
    </message>
</context>
<context>
    <name>BatchCommands</name>
    <message>
        <source>All open repositories</source>
        <translation>Alle geöffneten Repositorys</translation>
    </message>
    <message>
        <source>Check depends</source>
        <translation>Abhängigkeiten prüfen</translation>
    </message>
    <message>
        <source>Complete check</source>
        <translation>Vollständige Prüfung</translation>
    </message>
    <message>
        <source>Export...</source>
        <translation>Exportieren...</translation>
    </message>
    <message>
        <source>Upgrade...</source>
        <translation>Aktualisieren...</translation>
    </message>
    <message>
        <source>Publish</source>
        <translation>Veröffentlichen</translation>
    </message>
    <message>
        <source>Open repositories below a folder...</source>
        <translation>Repositorys unterhalb eines Ordners öffnen...</translation>
    </message>
    <message>
        <source>Folder with repositories</source>
        <translation>Ordner mit Repositorys</translation>
    </message>
    <message>
        <source>Open repositories</source>
        <translation>Repositorys öffnen</translation>
    </message>
    <message>
        <source>There is no repository in %1 and in the folders directly below it.</source>
        <translation>In %1 und in den Ordnern direkt darunter gibt es kein Repository.</translation>
    </message>
    <message>
        <source>Warning!</source>
        <translation>Warnung!</translation>
    </message>
    <message>
        <source>Dependences checking is disabled.</source>
        <translation>Die Abhängigkeitsprüfung ist ausgeschaltet.</translation>
    </message>
    <message>
        <source>Checking the dependences of all open repositories</source>
        <translation>Prüfung der Abhängigkeiten aller geöffneten Repositorys</translation>
    </message>
    <message>
        <source>Complete check of all open repositories</source>
        <translation>Vollständige Prüfung aller geöffneten Repositorys</translation>
    </message>
    <message>
        <source>Folder for the archives</source>
        <translation>Ordner für die Archive</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Do you want to replace the archives that are there?</source>
        <translation>Möchten Sie die vorhandenen Archive ersetzen?</translation>
    </message>
    <message>
        <source>The repository has moved.</source>
        <translation>Das Repository wurde verschoben.</translation>
    </message>
    <message>
        <source>Export of all open repositories</source>
        <translation>Export aller geöffneten Repositorys</translation>
    </message>
    <message>
        <source>You may not write to this repository.</source>
        <translation>Sie dürfen in diesem Repository nichts ändern.</translation>
    </message>
    <message>
        <source>The repository is empty.</source>
        <translation>Das Repository ist leer.</translation>
    </message>
    <message>
        <source>There are no newer packages.</source>
        <translation>Es gibt keine neueren Pakete.</translation>
    </message>
    <message>
        <source>Upgrade of all open repositories</source>
        <translation>Aktualisierung aller geöffneten Repositorys</translation>
    </message>
    <message>
        <source>Publication of all open repositories</source>
        <translation>Veröffentlichung aller geöffneten Repositorys</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Text (*.txt)</source>
        <translation>Text (*.txt)</translation>
    </message>
    <message>
        <source>Save report</source>
        <translation>Bericht speichern</translation>
    </message>
    <message>
        <source>The report is saved in %1.</source>
        <translation>Der Bericht ist in %1 gespeichert.</translation>
    </message>
    <message>
        <source>The report cannot be saved in %1.</source>
        <translation>Der Bericht kann nicht in %1 gespeichert werden.</translation>
    </message>
    <message>
        <source>Packages with missing dependencies: %1, not checked: %2</source>
        <translation>Pakete mit fehlenden Abhängigkeiten: %1, nicht geprüft: %2</translation>
    </message>
    <message>
        <source>Packages that cannot be installed: %1, not known: %2</source>
        <translation>Nicht installierbare Pakete: %1, nicht bekannt: %2</translation>
    </message>
    <message>
        <source>It is not known what is newer.</source>
        <translation>Es ist nicht bekannt, was neuer ist.</translation>
    </message>
</context>
<context>
    <name>BatchDialog</name>
    <message>
        <source>One repository after the other. You can go on working meanwhile.</source>
        <translation>Ein Repository nach dem anderen. Sie können währenddessen weiterarbeiten.</translation>
    </message>
    <message>
        <source>Repository</source>
        <translation>Repository</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Save as report...</source>
        <translation>Als Bericht speichern...</translation>
    </message>
</context>
<context>
    <name>BatchReport</name>
    <message>
        <source>Waiting</source>
        <translation>Wartet</translation>
    </message>
    <message>
        <source>At work</source>
        <translation>In Arbeit</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>Ausgelassen</translation>
    </message>
    <message numerus="yes">
        <source>%n repository(ies) done</source>
        <translation>
            <numerusform>%n Repository fertig</numerusform>
            <numerusform>%n Repositorys fertig</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n with errors</source>
        <translation>
            <numerusform>%n mit Fehlern</numerusform>
            <numerusform>%n mit Fehlern</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n left out</source>
        <translation>
            <numerusform>%n ausgelassen</numerusform>
            <numerusform>%n ausgelassen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BatchRun</name>
    <message>
        <source>The tab was closed.</source>
        <translation>Der Reiter wurde geschlossen.</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>Nothing was done.</source>
        <translation>Es wurde nichts getan.</translation>
    </message>
</context>
<context>
    <name>ChangesModel</name>
    <message>
        <source>Package</source>
        <translation>Paket</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Änderung</translation>
    </message>
    <message>
        <source>Architecture</source>
        <translation>Architektur</translation>
    </message>
    <message>
        <source>Component</source>
        <translation>Komponente</translation>
    </message>
    <message>
        <source>Old version</source>
        <translation>Alte Version</translation>
    </message>
    <message>
        <source>New version</source>
        <translation>Neue Version</translation>
    </message>
</context>
<context>
    <name>CheckBaseMenu</name>
    <message>
        <source>Complete check against</source>
        <translation>Vollständig prüfen gegen</translation>
    </message>
    <message>
        <source>Foreign architectures</source>
        <translation>Fremde Architekturen</translation>
    </message>
    <message>
        <source>The repository alone</source>
        <translation>Das Repository allein</translation>
    </message>
    <message>
        <source>Debian&apos;s essential packages</source>
        <translation>Die essenziellen Pakete von Debian</translation>
    </message>
    <message>
        <source>What the public sources offer</source>
        <translation>Was die öffentlichen Paketquellen anbieten</translation>
    </message>
    <message>
        <source>Another repository...</source>
        <translation>Anderes Repository...</translation>
    </message>
</context>
<context>
    <name>CheckTableDialog</name>
    <message>
        <source>&amp;Select all</source>
        <translation>&amp;Alle auswählen</translation>
    </message>
    <message>
        <source>Selected: %1 of %2</source>
        <translation>Ausgewählt: %1 von %2</translation>
    </message>
</context>
<context>
    <name>ClosingSequence</name>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>%1 is in progress, do you really want to close the program?</source>
        <translation>Es läuft noch: %1. Möchten Sie das Programm wirklich schließen?</translation>
    </message>
    <message>
        <source>%1 is in progress, do you really want to close the repository?</source>
        <translation>Es läuft noch: %1. Möchten Sie das Repository wirklich schließen?</translation>
    </message>
</context>
<context>
    <name>ColumnChoice</name>
    <message>
        <source>Columns</source>
        <translation>Spalten</translation>
    </message>
</context>
<context>
    <name>CompanionsTree</name>
    <message>
        <source>Package</source>
        <translation>Paket</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Download</translation>
    </message>
    <message>
        <source>Installed</source>
        <translation>Installiert</translation>
    </message>
    <message>
        <source>public sources</source>
        <translation>öffentliche Paketquellen</translation>
    </message>
    <message>
        <source>this repository</source>
        <translation>dieses Repository</translation>
    </message>
    <message numerus="yes">
        <source>On a bare system %n package(s) come in: %1 to download, %2 on the disk</source>
        <translation>
            <numerusform>Auf ein leeres System kommt %n Paket: %1 Download, %2 auf der Platte</numerusform>
            <numerusform>Auf ein leeres System kommen %n Pakete: %1 Download, %2 auf der Platte</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CopyCommands</name>
    <message>
        <source>Copy to repository...</source>
        <translation>In Repository kopieren...</translation>
    </message>
    <message>
        <source>Move to repository...</source>
        <translation>In Repository verschieben...</translation>
    </message>
    <message>
        <source>Not copied: %1</source>
        <translation>Nicht kopiert: %1</translation>
    </message>
    <message>
        <source>You cannot change the repository %1: its files belong to another user, or its disk is read-only.</source>
        <translation>Sie können das Repository %1 nicht ändern: Seine Dateien gehören einem anderen Benutzer, oder sein Datenträger ist schreibgeschützt.</translation>
    </message>
    <message>
        <source>The packages are in this component already.</source>
        <translation>Die Pakete sind schon in dieser Komponente.</translation>
    </message>
    <message>
        <source>Move confirmation</source>
        <translation>Verschieben bestätigen</translation>
    </message>
    <message>
        <source>Do you want to move the selected packages to %1?</source>
        <translation>Möchten Sie die ausgewählten Pakete nach %1 verschieben?</translation>
    </message>
    <message>
        <source>Will be copied next: %1</source>
        <translation>Wird als Nächstes kopiert: %1</translation>
    </message>
    <message>
        <source>The packages were copied, and stay in %1 too.</source>
        <translation>Die Pakete wurden kopiert und bleiben auch in %1.</translation>
    </message>
</context>
<context>
    <name>CopyDialog</name>
    <message>
        <source>With what they depend on</source>
        <translation>Mit ihren Abhängigkeiten</translation>
    </message>
    <message>
        <source>Move packages</source>
        <translation>Pakete verschieben</translation>
    </message>
    <message>
        <source>Copy packages</source>
        <translation>Pakete kopieren</translation>
    </message>
    <message>
        <source>%1 (another component)</source>
        <translation>%1 (andere Komponente)</translation>
    </message>
    <message>
        <source>Open another...</source>
        <translation>Anderes öffnen...</translation>
    </message>
    <message>
        <source>Also those packages that they need and that the other repository does not have. These are always copied.</source>
        <translation>Auch die Pakete, die sie brauchen und die das andere Repository nicht hat. Diese werden immer kopiert.</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Preview...</source>
        <translation>Vorschau...</translation>
    </message>
    <message>
        <source>Repository:</source>
        <translation>Repository:</translation>
    </message>
    <message>
        <source>Component:</source>
        <translation>Komponente:</translation>
    </message>
    <message>
        <source>as it is</source>
        <translation>wie sie ist</translation>
    </message>
</context>
<context>
    <name>CureDialog</name>
    <message>
        <source>What this would change</source>
        <translation>Was das ändern würde</translation>
    </message>
    <message>
        <source>Working out what this would change...</source>
        <translation>Ermitteln, was das ändern würde...</translation>
    </message>
    <message>
        <source>Fetch</source>
        <translation>Holen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Upgrade</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>What can be installed stays the same.</source>
        <translation>Was installierbar ist, bleibt gleich.</translation>
    </message>
    <message>
        <source>For the packages of this repository:</source>
        <translation>Für die Pakete dieses Repositorys:</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) could be installed then</source>
        <translation>
            <numerusform>%n Paket wäre dann installierbar</numerusform>
            <numerusform>%n Pakete wären dann installierbar</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) could no longer be installed</source>
        <translation>
            <numerusform>%n Paket wäre nicht mehr installierbar</numerusform>
            <numerusform>%n Pakete wären nicht mehr installierbar</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und %n weiteres</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Cures</name>
    <message>
        <source>Remove %1 %2</source>
        <translation>%1 %2 entfernen</translation>
    </message>
    <message>
        <source>Fetch %1 %2 from %3</source>
        <translation>%1 %2 von %3 holen</translation>
    </message>
    <message>
        <source>Take the newer %1 %2 from %3</source>
        <translation>Das neuere %1 %2 von %3 nehmen</translation>
    </message>
</context>
<context>
    <name>DependsCommands</name>
    <message>
        <source>Warning!</source>
        <translation>Warnung!</translation>
    </message>
    <message>
        <source>Dependences checking is disabled.</source>
        <translation>Die Abhängigkeitsprüfung ist ausgeschaltet.</translation>
    </message>
    <message>
        <source>Add packages to local repository</source>
        <translation>Pakete zum lokalen Repository hinzufügen</translation>
    </message>
    <message>
        <source>Add package to local repository</source>
        <translation>Paket zum lokalen Repository hinzufügen</translation>
    </message>
    <message>
        <source>Not added: %1</source>
        <translation>Nicht hinzugefügt: %1</translation>
    </message>
</context>
<context>
    <name>DependsModel</name>
    <message>
        <source>Package</source>
        <translation>Paket</translation>
    </message>
</context>
<context>
    <name>DependsReport</name>
    <message>
        <source>not checked</source>
        <translation>nicht geprüft</translation>
    </message>
    <message>
        <source>provided by %1</source>
        <translation>bereitgestellt von %1</translation>
    </message>
    <message>
        <source>needs %1, %2</source>
        <translation>benötigt %1, %2</translation>
    </message>
    <message>
        <source>no source offers it, nor a suitable version of what provides it: %1</source>
        <translation>keine Paketquelle bietet es an, auch keine passende Version dessen, was es bereitstellt: %1</translation>
    </message>
    <message>
        <source>no source offers it</source>
        <translation>keine Paketquelle bietet es an</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Packages with satisfied dependencies: %1</source>
        <translation>Pakete mit erfüllten Abhängigkeiten: %1</translation>
    </message>
    <message>
        <source>Packages with missing dependencies: %1</source>
        <translation>Pakete mit fehlenden Abhängigkeiten: %1</translation>
    </message>
    <message>
        <source>Packages not checked: %1</source>
        <translation>Nicht geprüfte Pakete: %1</translation>
    </message>
    <message>
        <source>Most wanted:</source>
        <translation>Am meisten verlangt:</translation>
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
        <translation>%1 bietet %2 an</translation>
    </message>
    <message>
        <source>Repository: %1</source>
        <translation>Repository: %1</translation>
    </message>
    <message>
        <source>Mode: %1</source>
        <translation>Modus: %1</translation>
    </message>
    <message>
        <source>Date: %1</source>
        <translation>Datum: %1</translation>
    </message>
    <message>
        <source>the repository does not hold it (public sources were not asked)</source>
        <translation>das Repository enthält es nicht (öffentliche Paketquellen wurden nicht befragt)</translation>
    </message>
    <message>
        <source>no public source offers it</source>
        <translation>keine öffentliche Paketquelle bietet es an</translation>
    </message>
    <message>
        <source>the repository does not hold it, nor a suitable version of what provides it: %1</source>
        <translation>das Repository enthält es nicht, auch keine passende Version dessen, was es bereitstellt: %1</translation>
    </message>
    <message>
        <source>no public source offers it, nor a suitable version of what provides it: %1</source>
        <translation>keine öffentliche Paketquelle bietet es an, auch keine passende Version dessen, was es bereitstellt: %1</translation>
    </message>
    <message>
        <source>not looked for, because apt does not know the architecture %1 (%2)</source>
        <translation>nicht gesucht, weil apt die Architektur %1 nicht kennt (%2)</translation>
    </message>
</context>
<context>
    <name>DependsReportCommands</name>
    <message>
        <source>Copy report</source>
        <translation>Bericht kopieren</translation>
    </message>
    <message>
        <source>Save report...</source>
        <translation>Bericht speichern...</translation>
    </message>
    <message>
        <source>Report is copied to clipboard</source>
        <translation>Der Bericht ist in die Zwischenablage kopiert</translation>
    </message>
    <message>
        <source>Text (*.txt)</source>
        <translation>Text (*.txt)</translation>
    </message>
    <message>
        <source>JSON (*.json)</source>
        <translation>JSON (*.json)</translation>
    </message>
    <message>
        <source>Save report</source>
        <translation>Bericht speichern</translation>
    </message>
    <message>
        <source>The report is saved in %1.</source>
        <translation>Der Bericht ist in %1 gespeichert.</translation>
    </message>
    <message>
        <source>The report cannot be saved in %1.</source>
        <translation>Der Bericht kann nicht in %1 gespeichert werden.</translation>
    </message>
</context>
<context>
    <name>DependsView</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Dependencies in this state are not shown. The buttons above choose what is shown.</source>
        <translation>Abhängigkeiten in diesem Zustand werden nicht angezeigt. Die Schaltflächen darüber bestimmen, was angezeigt wird.</translation>
    </message>
    <message>
        <source>The package has no dependencies.</source>
        <translation>Das Paket hat keine Abhängigkeiten.</translation>
    </message>
    <message>
        <source>Not checked yet: press &quot;%1&quot;.</source>
        <translation>Noch nicht geprüft: Betätigen Sie „%1“.</translation>
    </message>
    <message>
        <source>The package has no dependencies that can be checked.</source>
        <translation>Das Paket hat keine Abhängigkeiten, die geprüft werden können.</translation>
    </message>
    <message>
        <source>Check dependences</source>
        <translation>Abhängigkeiten prüfen</translation>
    </message>
    <message>
        <source>Show depends undefined</source>
        <translation>Nicht geprüfte Abhängigkeiten anzeigen</translation>
    </message>
    <message>
        <source>Show depends error</source>
        <translation>Nicht erfüllte Abhängigkeiten anzeigen</translation>
    </message>
    <message>
        <source>Show depends success</source>
        <translation>Erfüllte Abhängigkeiten anzeigen</translation>
    </message>
    <message>
        <source>Dependences</source>
        <translation>Abhängigkeiten</translation>
    </message>
</context>
<context>
    <name>DescriptionEffect</name>
    <message>
        <source>The repository moves from %1 to %2.</source>
        <translation>Das Repository zieht von %1 nach %2 um.</translation>
    </message>
    <message>
        <source>The indices are written below dists/%1, and dists/%2 is deleted.</source>
        <translation>Die Indexdateien werden unter dists/%1 geschrieben, und dists/%2 wird gelöscht.</translation>
    </message>
    <message>
        <source>All indices below dists/%1 are written anew.</source>
        <translation>Alle Indexdateien unter dists/%1 werden neu geschrieben.</translation>
    </message>
    <message>
        <source>The indices of these components are deleted: %1.</source>
        <translation>Die Indexdateien dieser Komponenten werden gelöscht: %1.</translation>
    </message>
    <message>
        <source>Indices of these components are added: %1.</source>
        <translation>Indexdateien dieser Komponenten kommen hinzu: %1.</translation>
    </message>
    <message>
        <source>The indices of these architectures are deleted: %1.</source>
        <translation>Die Indexdateien dieser Architekturen werden gelöscht: %1.</translation>
    </message>
    <message>
        <source>Indices of these architectures are added: %1.</source>
        <translation>Indexdateien dieser Architekturen kommen hinzu: %1.</translation>
    </message>
    <message>
        <source>The lists of the packages&apos; files (Contents) are added.</source>
        <translation>Die Listen der Dateien der Pakete (Contents) kommen hinzu.</translation>
    </message>
    <message>
        <source>The lists of the packages&apos; files (Contents) are deleted.</source>
        <translation>Die Listen der Dateien der Pakete (Contents) werden gelöscht.</translation>
    </message>
    <message>
        <source>These lines of the description are lost, and the file with them is kept as %1: %2</source>
        <translation>Diese Zeilen der Beschreibung gehen verloren; die Datei mit ihnen wird als %1 aufbewahrt: %2</translation>
    </message>
    <message>
        <source>In the line of the source on each client, %1 must be replaced with %2.</source>
        <translation>In der Quellzeile jedes Clients muss %1 durch %2 ersetzt werden.</translation>
    </message>
    <message>
        <source>apt on the clients refuses to update until the change of %1 is accepted. This command accepts it: %2</source>
        <translation>apt auf den Clients verweigert das Aktualisieren der Paketlisten, bis die Änderung von %1 angenommen ist. Dieser Befehl nimmt sie an: %2</translation>
    </message>
    <message>
        <source>apt on the clients tells of the change of Suite from %1 to %2, and old versions of apt refuse it. This command accepts it: %3</source>
        <translation>apt auf den Clients meldet die Änderung von Suite von %1 zu %2, und alte Versionen von apt verweigern sie. Dieser Befehl nimmt sie an: %3</translation>
    </message>
    <message>
        <source>Clients that use the folder itself need the new path in the line of the source.</source>
        <translation>Clients, die den Ordner selbst benutzen, brauchen den neuen Pfad in der Quellzeile.</translation>
    </message>
    <message>
        <source>Clients must take these components out of the line of the source: %1.</source>
        <translation>Clients müssen diese Komponenten aus der Quellzeile nehmen: %1.</translation>
    </message>
    <message>
        <source>Clients of these architectures get nothing from the repository any more: %1.</source>
        <translation>Clients dieser Architekturen bekommen nichts mehr aus dem Repository: %1.</translation>
    </message>
    <message>
        <source>The repository is not signed any more: apt refuses it unless the line of the source has [trusted=yes].</source>
        <translation>Das Repository ist nicht mehr signiert: apt lehnt es ab, wenn die Quellzeile nicht [trusted=yes] enthält.</translation>
    </message>
    <message>
        <source>The repository is signed from then on: clients need the public key to check that.</source>
        <translation>Das Repository ist von da an signiert: Clients brauchen den öffentlichen Schlüssel, um das zu prüfen.</translation>
    </message>
    <message>
        <source>The lists of the packages&apos; files (Contents) are written in another form.</source>
        <translation>Die Listen der Dateien der Pakete (Contents) werden in anderer Form geschrieben.</translation>
    </message>
    <message numerus="yes">
        <source>apt on the clients refuses indices that are older than %n day(s), so the repository must be exported again before that.</source>
        <translation>
            <numerusform>apt lehnt auf den Clients Indexdateien ab, die älter als %n Tag sind, deshalb muss das Repository vorher neu exportiert werden.</numerusform>
            <numerusform>apt lehnt auf den Clients Indexdateien ab, die älter als %n Tage sind, deshalb muss das Repository vorher neu exportiert werden.</numerusform>
        </translation>
    </message>
    <message>
        <source>The repository is signed with another key from then on: apt on the clients refuses it until they have the public part of that key.</source>
        <translation>Das Repository wird von da an mit einem anderen Schlüssel signiert: apt lehnt es auf den Clients ab, bis sie den öffentlichen Teil dieses Schlüssels haben.</translation>
    </message>
</context>
<context>
    <name>DifferenceDialog</name>
    <message>
        <source>Difference</source>
        <translation>Unterschied</translation>
    </message>
    <message>
        <source>Present file: %1</source>
        <translation>Vorhandene Datei: %1</translation>
    </message>
    <message>
        <source>New file: %1</source>
        <translation>Neue Datei: %1</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>apt takes packages of one version for the same, so clients that have the present one would not get the new one. Build it with the version %1, which sorts after %2 and before the next version of its maker.</source>
        <translation>apt hält Pakete einer Version für dasselbe Paket. Clients, die das vorhandene haben, bekämen das neue also nicht. Bauen Sie es mit der Version %1, die nach %2 und vor der nächsten Version des Herstellers einsortiert wird.</translation>
    </message>
    <message>
        <source>Comparing the files...</source>
        <translation>Die Dateien werden verglichen...</translation>
    </message>
    <message>
        <source>The packages are too large to compare their files. This is what else differs:</source>
        <translation>Die Pakete sind zu groß, um ihre Dateien zu vergleichen. Sonst unterscheiden sie sich darin:</translation>
    </message>
    <message>
        <source>Both packages hold the same. Only the way in which they were packed differs, such as times or the compression.</source>
        <translation>Beide Pakete haben denselben Inhalt. Nur die Art, wie sie gepackt sind, unterscheidet sich, zum Beispiel Zeiten oder die Kompression.</translation>
    </message>
    <message numerus="yes">
        <source>%n difference(s):</source>
        <translation>
            <numerusform>%n Unterschied:</numerusform>
            <numerusform>%n Unterschiede:</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DifferenceModel</name>
    <message>
        <source>Part</source>
        <translation>Teil</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Present file</source>
        <translation>Vorhandene Datei</translation>
    </message>
    <message>
        <source>New file</source>
        <translation>Neue Datei</translation>
    </message>
    <message>
        <source>(not there)</source>
        <translation>(nicht vorhanden)</translation>
    </message>
</context>
<context>
    <name>DpkgUtils</name>
    <message>
        <source>&quot;%1&quot; is not a version</source>
        <translation>„%1“ ist keine Version</translation>
    </message>
    <message>
        <source>The process dpkg crashed!</source>
        <translation>Der Prozess dpkg ist abgestürzt!</translation>
    </message>
    <message>
        <source>The control data of the package are too large.</source>
        <translation>Die Steuerdaten des Pakets sind zu groß.</translation>
    </message>
</context>
<context>
    <name>EmptyPage</name>
    <message>
        <source>No repository is open</source>
        <translation>Kein Repository ist geöffnet</translation>
    </message>
    <message>
        <source>Create a repository or open one to add packages to it</source>
        <translation>Legen Sie ein Repository an oder öffnen Sie eines, um Pakete hinzuzufügen</translation>
    </message>
</context>
<context>
    <name>ExternalRepoSourceDialog</name>
    <message>
        <source>Add external repo</source>
        <translation>Externes Repository hinzufügen</translation>
    </message>
    <message>
        <source>Change external repo</source>
        <translation>Externes Repository ändern</translation>
    </message>
    <message>
        <source>Address, suite and components, as in a sources list</source>
        <translation>Adresse, Suite und Komponenten wie in einer Paketquellenliste</translation>
    </message>
    <message>
        <source>name to show in place of the address</source>
        <translation>Name, der statt der Adresse angezeigt wird</translation>
    </message>
    <message>
        <source>&amp;Source line:</source>
        <translation>&amp;Quellzeile:</translation>
    </message>
    <message>
        <source>A&amp;lias:</source>
        <translation>A&amp;lias:</translation>
    </message>
</context>
<context>
    <name>ExternalRepos</name>
    <message>
        <source>&quot;%1&quot; is not the address of a repository. It begins with http:, https:, ftp: or file:.</source>
        <translation>„%1“ ist keine Adresse eines Repositorys. Sie beginnt mit http:, https:, ftp: oder file:.</translation>
    </message>
    <message>
        <source>A disc that apt asks for cannot be searched. Mount it and use a file: address.</source>
        <translation>Ein Datenträger, nach dem apt fragt, kann nicht durchsucht werden. Hängen Sie ihn ein und verwenden Sie eine file:-Adresse.</translation>
    </message>
    <message>
        <source>The path behind file: begins with a slash and holds no square brackets.</source>
        <translation>Der Pfad hinter file: beginnt mit einem Schrägstrich und enthält keine eckigen Klammern.</translation>
    </message>
    <message>
        <source>Addresses with &quot;%1:&quot; cannot be used. Use http:, https:, ftp: or file:.</source>
        <translation>Adressen mit „%1:“ können nicht verwendet werden. Verwenden Sie http:, https:, ftp: oder file:.</translation>
    </message>
    <message>
        <source>The address names no host, or not as in http://example.org/debian.</source>
        <translation>Die Adresse nennt keinen Rechner oder nicht wie in http://example.org/debian.</translation>
    </message>
    <message>
        <source>The line holds a line break or another invisible character.</source>
        <translation>Die Zeile enthält einen Zeilenumbruch oder ein anderes unsichtbares Zeichen.</translation>
    </message>
    <message>
        <source>Enter the address, the suite and the components of the repository.</source>
        <translation>Geben Sie die Adresse, die Suite und die Komponenten des Repositorys ein.</translation>
    </message>
    <message>
        <source>Lines for source packages cannot be used.</source>
        <translation>Zeilen für Quellpakete können nicht verwendet werden.</translation>
    </message>
    <message>
        <source>The character %1 cannot stand in a source line.</source>
        <translation>Das Zeichen %1 darf in einer Quellzeile nicht stehen.</translation>
    </message>
    <message>
        <source>The options in square brackets are not written as in [arch=amd64 trusted=yes].</source>
        <translation>Die Optionen in eckigen Klammern sind nicht wie in [arch=amd64 trusted=yes] geschrieben.</translation>
    </message>
    <message>
        <source>The suite is missing behind the address.</source>
        <translation>Hinter der Adresse fehlt die Suite.</translation>
    </message>
    <message>
        <source>Square brackets stand only around the options, in front of the address.</source>
        <translation>Eckige Klammern stehen nur um die Optionen vor der Adresse.</translation>
    </message>
    <message>
        <source>A suite that ends in a slash has no components.</source>
        <translation>Eine Suite, die mit einem Schrägstrich endet, hat keine Komponenten.</translation>
    </message>
    <message>
        <source>The components are missing. Only a suite that ends in a slash has none.</source>
        <translation>Die Komponenten fehlen. Nur eine Suite, die mit einem Schrägstrich endet, hat keine.</translation>
    </message>
    <message>
        <source>The list has this repository already.</source>
        <translation>Die Liste enthält dieses Repository bereits.</translation>
    </message>
</context>
<context>
    <name>ExternalReposDialog</name>
    <message>
        <source>No external repositories to show</source>
        <translation>Keine externen Repositorys vorhanden</translation>
    </message>
    <message>
        <source>&amp;Add...</source>
        <translation>&amp;Hinzufügen...</translation>
    </message>
    <message>
        <source>&amp;Edit...</source>
        <translation>&amp;Bearbeiten...</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Edit external repos</source>
        <translation>Externe Repositorys bearbeiten</translation>
    </message>
    <message>
        <source>The repositories that are asked when dependencies are checked, packages are searched for and a repository is upgraded. The sources of the system itself stay as they are.</source>
        <translation>Die Repositorys, die gefragt werden, wenn Abhängigkeiten geprüft, Pakete gesucht und Repositorys aktualisiert werden. Die Paketquellen des Systems selbst bleiben, wie sie sind.</translation>
    </message>
    <message>
        <source>Asking apt which repositories it knows...</source>
        <translation>apt wird gefragt, welche Repositorys es kennt...</translation>
    </message>
    <message>
        <source>External repositories</source>
        <translation>Externe Repositorys</translation>
    </message>
    <message>
        <source>apt does not say which repositories it knows; only stored ones are shown. %1</source>
        <translation>apt teilt nicht mit, welche Repositorys es kennt; nur gespeicherte werden angezeigt. %1</translation>
    </message>
    <message>
        <source>What apt knows from the sources of the system cannot be removed here.</source>
        <translation>Was apt aus den Paketquellen des Systems kennt, kann hier nicht entfernt werden.</translation>
    </message>
    <message>
        <source>apt knows this repository from the sources of the system, so it cannot be changed here.</source>
        <translation>apt kennt dieses Repository aus den Paketquellen des Systems, deshalb kann es hier nicht geändert werden.</translation>
    </message>
</context>
<context>
    <name>ExternalReposModel</name>
    <message>
        <source>Repository</source>
        <translation>Repository</translation>
    </message>
    <message>
        <source>Alias</source>
        <translation>Alias</translation>
    </message>
    <message>
        <source>apt knows this repository from the sources of the system. Here it can be switched off and named, but not changed or removed.</source>
        <translation>apt kennt dieses Repository aus den Paketquellen des Systems. Hier kann es ausgeschaltet und benannt, aber nicht geändert oder entfernt werden.</translation>
    </message>
    <message>
        <source>You added this repository.</source>
        <translation>Sie haben dieses Repository hinzugefügt.</translation>
    </message>
    <message>
        <source>apt does not know this repository at present. It is asked again when apt knows it.</source>
        <translation>apt kennt dieses Repository zurzeit nicht. Es wird wieder gefragt, sobald apt es kennt.</translation>
    </message>
    <message>
        <source>apt does not know this repository at present.</source>
        <translation>apt kennt dieses Repository zurzeit nicht.</translation>
    </message>
</context>
<context>
    <name>FactsTree</name>
    <message>
        <source>Why it cannot be installed</source>
        <translation>Warum es nicht installierbar ist</translation>
    </message>
    <message>
        <source>The reason was not found.</source>
        <translation>Der Grund wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>Recommended, but cannot be installed together with it</source>
        <translation>Empfohlen, aber nicht zusammen damit installierbar</translation>
    </message>
    <message>
        <source>Needed by</source>
        <translation>Benötigt von</translation>
    </message>
    <message>
        <source>Looking for packages that need it...</source>
        <translation>Suche nach Paketen, die es benötigen...</translation>
    </message>
    <message>
        <source>In the repository %1</source>
        <translation>Im Repository %1</translation>
    </message>
    <message>
        <source>No package of the open repositories needs it.</source>
        <translation>Kein Paket der offenen Repositorys benötigt es.</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) directly</source>
        <translation>
            <numerusform>%n Paket direkt</numerusform>
            <numerusform>%n Pakete direkt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) could no longer be installed without it</source>
        <translation>
            <numerusform>%n Paket wäre ohne es nicht mehr installierbar</numerusform>
            <numerusform>%n Pakete wären ohne es nicht mehr installierbar</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und %n weiteres</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>Show this package</source>
        <translation>Dieses Paket zeigen</translation>
    </message>
</context>
<context>
    <name>FileListModel</name>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Permissions</source>
        <translation>Rechte</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 Byte</translation>
    </message>
</context>
<context>
    <name>FilterLine</name>
    <message>
        <source>Remove the filter %1</source>
        <translation>Den Filter %1 entfernen</translation>
    </message>
    <message>
        <source>Show all</source>
        <translation>Alle zeigen</translation>
    </message>
    <message>
        <source>Remove all filters</source>
        <translation>Alle Filter entfernen</translation>
    </message>
    <message>
        <source>%1 of %2 packages shown</source>
        <translation>%1 von %2 Paketen werden gezeigt</translation>
    </message>
</context>
<context>
    <name>FoundPackagesModel</name>
    <message>
        <source>Package</source>
        <translation>Paket</translation>
    </message>
    <message>
        <source>Architecture</source>
        <translation>Architektur</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Repository</source>
        <translation>Repository</translation>
    </message>
    <message>
        <source>Here already</source>
        <translation>Schon vorhanden</translation>
    </message>
    <message>
        <source>%1, the same version</source>
        <translation>%1, dieselbe Version</translation>
    </message>
    <message>
        <source>%1, older</source>
        <translation>%1, älter</translation>
    </message>
    <message>
        <source>%1, newer</source>
        <translation>%1, neuer</translation>
    </message>
</context>
<context>
    <name>FurtherFields</name>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>Show the rarer fields of the description</source>
        <translation>Die selteneren Felder der Beschreibung zeigen</translation>
    </message>
    <message>
        <source>Origin</source>
        <translation>Ursprung</translation>
    </message>
    <message>
        <source>This required field.
Who makes the packages. Clients can select by it.</source>
        <translation>Dieses Feld ist erforderlich.
Wer die Pakete macht. Clients können danach auswählen.</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>Bezeichnung</translation>
    </message>
    <message>
        <source>This optional field.
Clients can select the repository by it.</source>
        <translation>Dieses Feld ist optional.
Clients können das Repository danach auswählen.</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>This optional field.
One line that tells what is in the repository.</source>
        <translation>Dieses Feld ist optional.
Eine Zeile, die sagt, was im Repository ist.</translation>
    </message>
    <message>
        <source>Signing key</source>
        <translation>Signierschlüssel</translation>
    </message>
    <message>
        <source>The key that signs the repository (apt). Clients need its public part.</source>
        <translation>Der Schlüssel, der das Repository signiert (apt). Clients brauchen seinen öffentlichen Teil.</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>How the lists of the packages&apos; files are compressed, and what they list.
Without a choice, .gz.</source>
        <translation>Wie die Listen der Dateien der Pakete komprimiert werden und was sie nennen.
Ohne Auswahl .gz.</translation>
    </message>
    <message>
        <source>Valid for (days)</source>
        <translation>Gültig (Tage)</translation>
    </message>
    <message>
        <source>Clients refuse the repository when its indices have not been written for so many days.</source>
        <translation>Clients lehnen das Repository ab, wenn seine Indexdateien so viele Tage nicht geschrieben wurden.</translation>
    </message>
    <message>
        <source>Other fields</source>
        <translation>Weitere Felder</translation>
    </message>
    <message>
        <source>What else is in the description. It stays as it is.</source>
        <translation>Was sonst in der Beschreibung steht. Es bleibt, wie es ist.</translation>
    </message>
    <message>
        <source>no limit</source>
        <translation>keine Grenze</translation>
    </message>
    <message>
        <source>Default key of gpg</source>
        <translation>Standardschlüssel von gpg</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1 (not listed)</source>
        <translation>%1 (nicht vorhanden)</translation>
    </message>
</context>
<context>
    <name>GatherCommands</name>
    <message>
        <source>Fetch missing packages...</source>
        <translation>Fehlende Pakete holen...</translation>
    </message>
    <message>
        <source>Fetch missing packages</source>
        <translation>Fehlende Pakete holen</translation>
    </message>
    <message>
        <source>Nothing is missing.</source>
        <translation>Es fehlt nichts.</translation>
    </message>
    <message>
        <source>Nothing can be fetched. %1</source>
        <translation>Nichts kann geholt werden. %1</translation>
    </message>
</context>
<context>
    <name>GatherDialog</name>
    <message>
        <source>Fetch missing packages</source>
        <translation>Fehlende Pakete holen</translation>
    </message>
    <message>
        <source>The chosen packages are fetched and added, so that what needs them finds them in the repository.</source>
        <translation>Die gewählten Pakete werden geholt und hinzugefügt, damit die Pakete, die sie brauchen, sie im Repository finden.</translation>
    </message>
    <message>
        <source>Package</source>
        <translation>Paket</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Architecture</source>
        <translation>Architektur</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Paketquelle</translation>
    </message>
    <message>
        <source>Needed by</source>
        <translation>Benötigt von</translation>
    </message>
    <message>
        <source>%1 instead of %2</source>
        <translation>%1 statt %2</translation>
    </message>
    <message>
        <source>What stays missing</source>
        <translation>Was weiterhin fehlt</translation>
    </message>
    <message>
        <source>Preview...</source>
        <translation>Vorschau...</translation>
    </message>
    <message>
        <source>Selected: %1 of %2, %3</source>
        <translation>Ausgewählt: %1 von %2, %3</translation>
    </message>
    <message>
        <source>Not needed any more: %1</source>
        <translation>Nicht mehr benötigt: %1</translation>
    </message>
</context>
<context>
    <name>GatherJob</name>
    <message>
        <source>Looking for missing packages</source>
        <translation>Fehlende Pakete werden gesucht</translation>
    </message>
    <message>
        <source>It is not known what is missing.</source>
        <translation>Es ist nicht bekannt, was fehlt.</translation>
    </message>
    <message>
        <source>The search for missing packages was stopped.</source>
        <translation>Die Suche nach fehlenden Paketen wurde angehalten.</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) to be fetched</source>
        <translation>
            <numerusform>%n Paket zu holen</numerusform>
            <numerusform>%n Pakete zu holen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GatherText</name>
    <message>
        <source>No source offers it.</source>
        <translation>Keine Paketquelle bietet es an.</translation>
    </message>
    <message>
        <source>No source offers a version that meets it, but only: %1.</source>
        <translation>Keine Paketquelle bietet eine passende Version an, sondern nur: %1.</translation>
    </message>
    <message>
        <source>What would meet it is older than %1 in the repository.</source>
        <translation>Was passen würde, ist älter als %1 im Repository.</translation>
    </message>
    <message>
        <source>It needs another version than %1, which another package needs.</source>
        <translation>Es braucht eine andere Version als %1, die ein anderes Paket braucht.</translation>
    </message>
    <message>
        <source>apt fetches no lists for the architecture %1.</source>
        <translation>apt holt keine Listen für die Architektur %1.</translation>
    </message>
    <message>
        <source>apt&apos;s sources offer no installer packages.</source>
        <translation>Die Paketquellen von apt bieten keine Installer-Pakete an.</translation>
    </message>
    <message>
        <source>What would meet it is not fetched.</source>
        <translation>Was passen würde, wird nicht geholt.</translation>
    </message>
    <message>
        <source>What meets it now is replaced by a newer version.</source>
        <translation>Was jetzt passt, wird durch eine neuere Version ersetzt.</translation>
    </message>
    <message>
        <source>%1 %2 (%3) needs %4. %5</source>
        <translation>%1 %2 (%3) braucht %4. %5</translation>
    </message>
    <message>
        <source>Nothing is missing any more.</source>
        <translation>Es fehlt nichts mehr.</translation>
    </message>
    <message numerus="yes">
        <source>%n dependency(ies) stay unmet.</source>
        <translation>
            <numerusform>%n Abhängigkeit bleibt unerfüllt.</numerusform>
            <numerusform>%n Abhängigkeiten bleiben unerfüllt.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 und %n weiteres</numerusform>
            <numerusform>%1 und %n weitere</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GpgKeysWidget</name>
    <message>
        <source>Start KGpg</source>
        <translation>KGpg starten</translation>
    </message>
    <message>
        <source>Package signing key:</source>
        <translation>Schlüssel zum Signieren von Paketen:</translation>
    </message>
    <message>
        <source>Select GPG key for signing packages. Use KGpg to add/delete GPG keys. After add/delete GPG keys need reload program.</source>
        <translation>Wählen Sie den GPG-Schlüssel zum Signieren von Paketen. Mit KGpg können Sie GPG-Schlüssel hinzufügen und löschen. Danach muss das Programm neu gestartet werden.</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>No key is selected</source>
        <translation>Kein Schlüssel ausgewählt</translation>
    </message>
    <message>
        <source>The keys are being read</source>
        <translation>Die Schlüssel werden gelesen</translation>
    </message>
    <message>
        <source>No keys are listed</source>
        <translation>Keine Schlüssel vorhanden</translation>
    </message>
    <message>
        <source>No keys are listed (in use: %1)</source>
        <translation>Keine Schlüssel vorhanden (in Gebrauch: %1)</translation>
    </message>
    <message>
        <source>%1 (not listed)</source>
        <translation>%1 (nicht vorhanden)</translation>
    </message>
</context>
<context>
    <name>HelpWindow</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Vorwärts</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Find previous</source>
        <translation>Vorheriges suchen</translation>
    </message>
    <message>
        <source>Find next</source>
        <translation>Nächstes suchen</translation>
    </message>
    <message>
        <source>Larger text</source>
        <translation>Größerer Text</translation>
    </message>
    <message>
        <source>Smaller text</source>
        <translation>Kleinerer Text</translation>
    </message>
    <message>
        <source>Find in the help</source>
        <translation>In der Hilfe suchen</translation>
    </message>
    <message>
        <source>Help: %1</source>
        <translation>Hilfe: %1</translation>
    </message>
    <message>
        <source>The help does not hold &quot;%1&quot;.</source>
        <translation>Die Hilfe enthält „%1“ nicht.</translation>
    </message>
</context>
<context>
    <name>HelperClient</name>
    <message>
        <source>Failed to add repository to local sources list!</source>
        <translation>Das Repository konnte nicht in die lokale Paketquellenliste eingetragen werden!</translation>
    </message>
    <message>
        <source>Failed to remove repository from local sources list!</source>
        <translation>Das Repository konnte nicht aus der lokalen Paketquellenliste ausgetragen werden!</translation>
    </message>
    <message>
        <source>The repository is not published!</source>
        <translation>Das Repository wurde nicht veröffentlicht!</translation>
    </message>
    <message>
        <source>The repository is not unpublished!</source>
        <translation>Die Veröffentlichung des Repositorys wurde nicht beendet!</translation>
    </message>
    <message>
        <source>The directory &quot;%1&quot; is not there.</source>
        <translation>Das Verzeichnis „%1“ gibt es nicht.</translation>
    </message>
    <message>
        <source>This takes the rights of an administrator. If no password was asked for, no authentication agent runs in this session, or a rule of this machine refuses.</source>
        <translation>Dafür sind die Rechte eines Administrators nötig. Wurde kein Passwort verlangt, so läuft in dieser Sitzung kein Authentifizierungsagent, oder eine Regel dieses Rechners lehnt ab.</translation>
    </message>
    <message>
        <source>The helper that does this with the rights of an administrator is not installed. Install the package of this program once more.</source>
        <translation>Das Hilfsprogramm, das dies mit den Rechten eines Administrators ausführt, ist nicht installiert. Installieren Sie das Paket dieses Programms erneut.</translation>
    </message>
    <message>
        <source>The system bus cannot be reached. Without it, nothing in the system can be changed. Start the service dbus, then this program once more.</source>
        <translation>Der Systembus ist nicht erreichbar. Ohne ihn lässt sich im System nichts ändern. Starten Sie den Dienst dbus, danach dieses Programm erneut.</translation>
    </message>
</context>
<context>
    <name>HistoryCommands</name>
    <message>
        <source>Undo last change</source>
        <translation>Letzte Änderung rückgängig machen</translation>
    </message>
    <message>
        <source>Go back to this point</source>
        <translation>Zu diesem Punkt zurückkehren</translation>
    </message>
    <message>
        <source>Bring back this package</source>
        <translation>Dieses Paket zurückholen</translation>
    </message>
    <message>
        <source>Show difference</source>
        <translation>Unterschied anzeigen</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Show history</source>
        <translation>Verlauf anzeigen</translation>
    </message>
    <message>
        <source>The history is switched off: no more states are kept.</source>
        <translation>Der Verlauf ist ausgeschaltet: Es werden keine Stände mehr aufbewahrt.</translation>
    </message>
    <message>
        <source>No repository is open.</source>
        <translation>Kein Repository ist geöffnet.</translation>
    </message>
    <message>
        <source>The history is being read...</source>
        <translation>Der Verlauf wird gelesen...</translation>
    </message>
    <message>
        <source>Wait until the running job has ended.</source>
        <translation>Warten Sie, bis die laufende Aufgabe beendet ist.</translation>
    </message>
    <message>
        <source>You may not write to this repository.</source>
        <translation>Sie dürfen in diesem Repository nichts ändern.</translation>
    </message>
    <message>
        <source>There is no change to undo.</source>
        <translation>Es gibt keine Änderung, die rückgängig gemacht werden kann.</translation>
    </message>
    <message>
        <source>No state was kept to go back to.</source>
        <translation>Es wurde kein Stand für eine Rückkehr aufbewahrt.</translation>
    </message>
    <message>
        <source>Show the history to choose a point.</source>
        <translation>Zeigen Sie den Verlauf an, um einen Punkt zu wählen.</translation>
    </message>
    <message>
        <source>Select one point.</source>
        <translation>Wählen Sie einen Punkt aus.</translation>
    </message>
    <message>
        <source>The state before this point: %1</source>
        <translation>Der Stand vor diesem Punkt: %1</translation>
    </message>
    <message>
        <source>Show the history to choose a package.</source>
        <translation>Zeigen Sie den Verlauf an, um ein Paket zu wählen.</translation>
    </message>
    <message>
        <source>Select one package below a point.</source>
        <translation>Wählen Sie ein Paket unter einem Punkt aus.</translation>
    </message>
    <message>
        <source>The package has no old version here.</source>
        <translation>Das Paket hat hier keine alte Version.</translation>
    </message>
    <message>
        <source>Select one point or two.</source>
        <translation>Wählen Sie einen oder zwei Punkte aus.</translation>
    </message>
    <message numerus="yes">
        <source>No state was kept between this change and now, so %n change(s) will be undone.</source>
        <translation>
            <numerusform>Seit dieser Änderung wurde kein Stand aufbewahrt, daher wird %n Änderung rückgängig gemacht.</numerusform>
            <numerusform>Seit dieser Änderung wurde kein Stand aufbewahrt, daher werden %n Änderungen rückgängig gemacht.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n change(s) will be undone: this one and all later ones.</source>
        <translation>
            <numerusform>%n Änderung wird rückgängig gemacht: diese und alle späteren.</numerusform>
            <numerusform>%n Änderungen werden rückgängig gemacht: diese und alle späteren.</numerusform>
        </translation>
    </message>
    <message>
        <source>What will change: %1.</source>
        <translation>Was sich ändern wird: %1.</translation>
    </message>
    <message>
        <source>What will change is not known, because a record is missing or damaged.</source>
        <translation>Was sich ändern wird, ist nicht bekannt, weil ein Eintrag fehlt oder beschädigt ist.</translation>
    </message>
    <message>
        <source>The description of the repository becomes the old one.</source>
        <translation>Die Beschreibung des Repositorys wird wieder die alte.</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Do you want to undo this change?
%1</source>
        <translation>Möchten Sie diese Änderung rückgängig machen?
%1</translation>
    </message>
    <message>
        <source>Do you want to go back to the state before this change?
%1</source>
        <translation>Möchten Sie zum Stand vor dieser Änderung zurückkehren?
%1</translation>
    </message>
    <message>
        <source>Do you want to bring back %1 %2 (%3)?</source>
        <translation>Möchten Sie %1 %2 (%3) zurückholen?</translation>
    </message>
    <message>
        <source>The file is added to component %1. A present version of the package is replaced.</source>
        <translation>Die Datei wird zur Komponente %1 hinzugefügt. Eine vorhandene Version des Pakets wird ersetzt.</translation>
    </message>
    <message numerus="yes">
        <source>Do you want to delete %n restore point(s) of this repository?</source>
        <translation>
            <numerusform>Möchten Sie %n Wiederherstellungspunkt dieses Repositorys löschen?</numerusform>
            <numerusform>Möchten Sie %n Wiederherstellungspunkte dieses Repositorys löschen?</numerusform>
        </translation>
    </message>
    <message>
        <source>The way back to the states before them is lost. These limits are stored too.</source>
        <translation>Die Rückkehr zu den Ständen davor ist dann nicht mehr möglich. Auch diese Grenzen werden gespeichert.</translation>
    </message>
    <message>
        <source>History settings...</source>
        <translation>Einstellungen des Verlaufs...</translation>
    </message>
    <message>
        <source>Preview...</source>
        <translation>Vorschau...</translation>
    </message>
</context>
<context>
    <name>HistoryModel</name>
    <message>
        <source>Time, package</source>
        <translation>Zeit, Paket</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Änderung</translation>
    </message>
    <message>
        <source>Architecture</source>
        <translation>Architektur</translation>
    </message>
    <message>
        <source>Old version</source>
        <translation>Alte Version</translation>
    </message>
    <message>
        <source>New version</source>
        <translation>Neue Version</translation>
    </message>
    <message>
        <source>User, origin</source>
        <translation>Benutzer, Herkunft</translation>
    </message>
    <message>
        <source>State before</source>
        <translation>Stand davor</translation>
    </message>
</context>
<context>
    <name>HistorySettingsDialog</name>
    <message>
        <source>Keep states to go back to</source>
        <translation>Stände für eine Rückkehr aufbewahren</translation>
    </message>
    <message>
        <source>Prune now</source>
        <translation>Jetzt aufräumen</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Before each change of a repository, its state is kept for a way back.</source>
        <translation>Vor jeder Änderung eines Repositorys wird sein Stand für eine Rückkehr aufbewahrt.</translation>
    </message>
    <message>
        <source>any age</source>
        <translation>beliebig alt</translation>
    </message>
    <message>
        <source> MiB</source>
        <translation> MiB</translation>
    </message>
    <message>
        <source>Restore points at most</source>
        <translation>Höchstens Wiederherstellungspunkte</translation>
    </message>
    <message>
        <source>Days at most</source>
        <translation>Höchstens Tage</translation>
    </message>
    <message>
        <source>Size at most</source>
        <translation>Höchstens Größe</translation>
    </message>
    <message>
        <source>This repository:</source>
        <translation>Dieses Repository:</translation>
    </message>
    <message numerus="yes">
        <source>%n restore point(s), %1</source>
        <translation>
            <numerusform>%n Wiederherstellungspunkt, %1</numerusform>
            <numerusform>%n Wiederherstellungspunkte, %1</numerusform>
        </translation>
    </message>
    <message>
        <source>not known</source>
        <translation>nicht bekannt</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
    <message>
        <source>Nothing is more than the limits allow.</source>
        <translation>Nichts überschreitet die Grenzen.</translation>
    </message>
    <message>
        <source>Deletes the oldest restore points of this repository.</source>
        <translation>Löscht die ältesten Wiederherstellungspunkte dieses Repositorys.</translation>
    </message>
    <message>
        <source>Pruning frees:</source>
        <translation>Aufräumen gibt frei:</translation>
    </message>
    <message numerus="yes">
        <source>%1 (%n restore point(s))</source>
        <translation>
            <numerusform>%1 (%n Wiederherstellungspunkt)</numerusform>
            <numerusform>%1 (%n Wiederherstellungspunkte)</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HistoryText</name>
    <message numerus="yes">
        <source>%n added</source>
        <translation>
            <numerusform>%n hinzugefügt</numerusform>
            <numerusform>%n hinzugefügt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n replaced</source>
        <translation>
            <numerusform>%n ersetzt</numerusform>
            <numerusform>%n ersetzt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n removed</source>
        <translation>
            <numerusform>%n entfernt</numerusform>
            <numerusform>%n entfernt</numerusform>
        </translation>
    </message>
    <message>
        <source>no package changed</source>
        <translation>kein Paket geändert</translation>
    </message>
    <message>
        <source>Added</source>
        <translation>Hinzugefügt</translation>
    </message>
    <message>
        <source>Replaced</source>
        <translation>Ersetzt</translation>
    </message>
    <message>
        <source>Removed</source>
        <translation>Entfernt</translation>
    </message>
    <message>
        <source>Unknown time</source>
        <translation>Unbekannte Zeit</translation>
    </message>
    <message>
        <source>The record is damaged</source>
        <translation>Der Eintrag ist beschädigt</translation>
    </message>
    <message>
        <source>Changed by another program</source>
        <translation>Von einem anderen Programm geändert</translation>
    </message>
    <message>
        <source>Gone back</source>
        <translation>Zurückgekehrt</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>Geändert</translation>
    </message>
    <message>
        <source>description changed</source>
        <translation>Beschreibung geändert</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Kept (%1)</source>
        <translation>Aufbewahrt (%1)</translation>
    </message>
    <message>
        <source>Not kept</source>
        <translation>Nicht aufbewahrt</translation>
    </message>
    <message>
        <source>Not kept: %1</source>
        <translation>Nicht aufbewahrt: %1</translation>
    </message>
    <message>
        <source>Before %1: %2</source>
        <translation>Vor %1: %2</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1: added, version %2</source>
        <translation>%1: hinzugefügt, Version %2</translation>
    </message>
    <message>
        <source>%1: %2 becomes %3</source>
        <translation>%1: aus %2 wird %3</translation>
    </message>
    <message>
        <source>%1: removed, version %2</source>
        <translation>%1: entfernt, Version %2</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und %n weiteres</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HistoryView</name>
    <message>
        <source>Changes of package</source>
        <translation>Änderungen des Pakets</translation>
    </message>
    <message>
        <source>Shows only changes of packages whose name contains this text.</source>
        <translation>Zeigt nur Änderungen von Paketen, deren Name diesen Text enthält.</translation>
    </message>
    <message>
        <source>Restore points</source>
        <translation>Wiederherstellungspunkte</translation>
    </message>
    <message numerus="yes">
        <source>%n restore point(s), %1</source>
        <translation>
            <numerusform>%n Wiederherstellungspunkt, %1</numerusform>
            <numerusform>%n Wiederherstellungspunkte, %1</numerusform>
        </translation>
    </message>
    <message>
        <source>%1. %2</source>
        <translation>%1. %2</translation>
    </message>
    <message>
        <source>No point has changed such a package.</source>
        <translation>Kein Punkt hat ein solches Paket geändert.</translation>
    </message>
    <message>
        <source>Each change of this repository will appear here.</source>
        <translation>Hier erscheint jede Änderung dieses Repositorys.</translation>
    </message>
</context>
<context>
    <name>InclusionPreview</name>
    <message>
        <source>Its version %1 cannot be compared with the present version %2.</source>
        <translation>Seine Version %1 lässt sich nicht mit der vorhandenen Version %2 vergleichen.</translation>
    </message>
    <message>
        <source>The repository has another file of this name, which further packages use: %1</source>
        <translation>Das Repository hat eine andere Datei dieses Namens, die weitere Pakete benutzen: %1</translation>
    </message>
    <message>
        <source>Several of the files are for the same place; only one of them can be there.</source>
        <translation>Mehrere der Dateien sind für denselben Platz; nur eine von ihnen kann dort sein.</translation>
    </message>
</context>
<context>
    <name>InstallabilityCommands</name>
    <message>
        <source>Complete check</source>
        <translation>Vollständige Prüfung</translation>
    </message>
    <message>
        <source>Complete check, against %1</source>
        <translation>Vollständige Prüfung, gegen: %1</translation>
    </message>
    <message>
        <source>Complete checks are made against %1.</source>
        <translation>Vollständig geprüft wird gegen: %1.</translation>
    </message>
    <message>
        <source>Repository to check against</source>
        <translation>Repository, gegen das geprüft wird</translation>
    </message>
    <message>
        <source>%1 is not in the repository any more.</source>
        <translation>%1 ist nicht mehr im Repository.</translation>
    </message>
</context>
<context>
    <name>InstallabilityReport</name>
    <message>
        <source>Complete check</source>
        <translation>Vollständige Prüfung</translation>
    </message>
    <message>
        <source>Checked against: %1</source>
        <translation>Geprüft gegen: %1</translation>
    </message>
    <message>
        <source>Date: %1</source>
        <translation>Datum: %1</translation>
    </message>
    <message>
        <source>The packages, or what they were checked against, have changed since: check again.</source>
        <translation>Die Pakete oder das, wogegen sie geprüft wurden, haben sich seither geändert: Prüfen Sie erneut.</translation>
    </message>
    <message>
        <source>Packages that can be installed: %1</source>
        <translation>Installierbare Pakete: %1</translation>
    </message>
    <message>
        <source>Packages that cannot be installed: %1</source>
        <translation>Nicht installierbare Pakete: %1</translation>
    </message>
    <message>
        <source>Packages undecided: %1</source>
        <translation>Unentschiedene Pakete: %1</translation>
    </message>
    <message>
        <source>Packages not checked: %1</source>
        <translation>Nicht geprüfte Pakete: %1</translation>
    </message>
    <message>
        <source>Most often in the way:</source>
        <translation>Am häufigsten im Weg:</translation>
    </message>
    <message numerus="yes">
        <source>%1, of %n package(s)</source>
        <translation>
            <numerusform>%1, bei %n Paket</numerusform>
            <numerusform>%1, bei %n Paketen</numerusform>
        </translation>
    </message>
    <message>
        <source>Recommended, but cannot be installed together with the package:</source>
        <translation>Empfohlen, aber nicht zusammen mit dem Paket installierbar:</translation>
    </message>
</context>
<context>
    <name>InstallabilityText</name>
    <message>
        <source>%1 needs %2 before it can be unpacked</source>
        <translation>%1 benötigt %2 schon vor dem Entpacken</translation>
    </message>
    <message>
        <source>%1 needs %2</source>
        <translation>%1 benötigt %2</translation>
    </message>
    <message>
        <source>every system has %1, because it is essential</source>
        <translation>jedes System hat %1, denn es ist essenziell</translation>
    </message>
    <message>
        <source>%1 needs %2, provided by %3, before it can be unpacked</source>
        <translation>%1 benötigt %2, bereitgestellt von %3, schon vor dem Entpacken</translation>
    </message>
    <message>
        <source>%1 needs %2, provided by %3</source>
        <translation>%1 benötigt %2, bereitgestellt von %3</translation>
    </message>
    <message>
        <source>%1 needs %2 before it can be unpacked; only %3 could meet this</source>
        <translation>%1 benötigt %2 schon vor dem Entpacken; nur %3 käme dafür in Frage</translation>
    </message>
    <message>
        <source>%1 needs %2; only %3 could meet this</source>
        <translation>%1 benötigt %2; nur %3 käme dafür in Frage</translation>
    </message>
    <message>
        <source>%1 needs %2; none of these is at hand as it is needed</source>
        <translation>%1 benötigt %2; nichts davon ist passend vorhanden</translation>
    </message>
    <message>
        <source>%1 needs %2; the newest %3 at hand is %4, and nothing meets the other alternatives</source>
        <translation>%1 benötigt %2; die neueste vorhandene Version von %3 ist %4, und nichts erfüllt die anderen Alternativen</translation>
    </message>
    <message>
        <source>%1 needs %2; nothing at hand is called %3</source>
        <translation>%1 benötigt %2; nichts Vorhandenes heißt %3</translation>
    </message>
    <message>
        <source>%1 needs %2; what is provided by %3 does not meet this</source>
        <translation>%1 benötigt %2; was %3 bereitstellt, genügt nicht</translation>
    </message>
    <message>
        <source>%1 needs %2; the newest %3 at hand is %4</source>
        <translation>%1 benötigt %2; die neueste vorhandene Version von %3 ist %4</translation>
    </message>
    <message>
        <source>%1 needs %2; the oldest %3 at hand is %4</source>
        <translation>%1 benötigt %2; die älteste vorhandene Version von %3 ist %4</translation>
    </message>
    <message>
        <source>%1 needs %2; all that is at hand is %3</source>
        <translation>%1 benötigt %2; vorhanden ist nur %3</translation>
    </message>
    <message>
        <source>%1 needs %2; %3 is at hand only for %4</source>
        <translation>%1 benötigt %2; %3 ist nur für %4 vorhanden</translation>
    </message>
    <message>
        <source>%1 needs %2; the field Multi-Arch of %3 does not allow this</source>
        <translation>%1 benötigt %2; das Feld Multi-Arch von %3 erlaubt das nicht</translation>
    </message>
    <message>
        <source>%1 cannot be installed together with %2</source>
        <translation>%1 kann nicht zusammen mit %2 installiert werden</translation>
    </message>
    <message>
        <source>%1 conflicts with %2, provided by %3</source>
        <translation>%1 steht in Konflikt mit %2, bereitgestellt von %3</translation>
    </message>
    <message>
        <source>%1 breaks %2, provided by %3</source>
        <translation>%1 beschädigt %2, bereitgestellt von %3</translation>
    </message>
    <message>
        <source>%1 conflicts with %2, which is true of %3</source>
        <translation>%1 steht in Konflikt mit %2, und das trifft auf %3 zu</translation>
    </message>
    <message>
        <source>%1 breaks %2, which is true of %3</source>
        <translation>%1 beschädigt %2, und das trifft auf %3 zu</translation>
    </message>
    <message>
        <source>%1 conflicts with %2</source>
        <translation>%1 steht in Konflikt mit %2</translation>
    </message>
    <message>
        <source>%1 breaks %2</source>
        <translation>%1 beschädigt %2</translation>
    </message>
    <message>
        <source>%1 conflicts with %2, and %3 is %4</source>
        <translation>%1 steht in Konflikt mit %2, und %3 hat die Version %4</translation>
    </message>
    <message>
        <source>%1 breaks %2, and %3 is %4</source>
        <translation>%1 beschädigt %2, und %3 hat die Version %4</translation>
    </message>
    <message>
        <source>only one version of %1 can be installed: %2 exclude each other</source>
        <translation>von %1 kann nur eine Version installiert werden: %2 schließen einander aus</translation>
    </message>
    <message>
        <source>%1 cannot be installed for %2 at the same time</source>
        <translation>%1 kann nicht gleichzeitig für %2 installiert werden</translation>
    </message>
    <message>
        <source>%1 cannot be installed at the same time</source>
        <translation>%1 können nicht gleichzeitig installiert werden</translation>
    </message>
    <message>
        <source>can be installed</source>
        <translation>kann installiert werden</translation>
    </message>
    <message>
        <source>cannot be installed</source>
        <translation>kann nicht installiert werden</translation>
    </message>
    <message numerus="yes">
        <source>undecided after %n second(s)</source>
        <translation>
            <numerusform>nach %n Sekunde unentschieden</numerusform>
            <numerusform>nach %n Sekunden unentschieden</numerusform>
        </translation>
    </message>
    <message>
        <source>not checked</source>
        <translation>nicht geprüft</translation>
    </message>
    <message>
        <source>the repository alone</source>
        <translation>das Repository allein</translation>
    </message>
    <message>
        <source>the repository and the essential packages of the public sources</source>
        <translation>das Repository und die essenziellen Pakete der öffentlichen Paketquellen</translation>
    </message>
    <message>
        <source>the repository and the public sources</source>
        <translation>das Repository und die öffentlichen Paketquellen</translation>
    </message>
    <message>
        <source>the repository and the repository %1</source>
        <translation>das Repository und das Repository %1</translation>
    </message>
    <message>
        <source>%1, on a system that also takes packages for %2</source>
        <translation>%1, auf einem System, das auch Pakete für %2 annimmt</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 und %n weiteres</numerusform>
            <numerusform>%1 und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 and %2</source>
        <translation>%1 und %2</translation>
    </message>
    <message>
        <source>undecided: there are too many relations between packages</source>
        <translation>unentschieden: Zwischen den Paketen gibt es zu viele Beziehungen</translation>
    </message>
</context>
<context>
    <name>InstallabilityView</name>
    <message>
        <source>What comes along</source>
        <translation>Was mitkommt</translation>
    </message>
    <message>
        <source>Reasons and needs</source>
        <translation>Gründe und Bedarf</translation>
    </message>
    <message>
        <source>Check again</source>
        <translation>Erneut prüfen</translation>
    </message>
    <message>
        <source>Complete check</source>
        <translation>Vollständige Prüfung</translation>
    </message>
    <message>
        <source>Not checked yet: press &quot;%1&quot;. This finds out whether the package can really be installed, with all that it needs.</source>
        <translation>Noch nicht geprüft: Drücken Sie „%1“. Das ermittelt, ob sich das Paket mit allem, was es benötigt, wirklich installieren lässt.</translation>
    </message>
    <message>
        <source>Checked: %1, against %2</source>
        <translation>Geprüft: %1, gegen: %2</translation>
    </message>
    <message>
        <source>Packages have changed since: press &quot;%1&quot;.</source>
        <translation>Seither haben sich Pakete geändert: Drücken Sie „%1“.</translation>
    </message>
    <message>
        <source>Looking for cures...</source>
        <translation>Suche nach Abhilfe...</translation>
    </message>
    <message>
        <source>Working out what comes along...</source>
        <translation>Ermitteln, was mitkommt...</translation>
    </message>
    <message>
        <source>What comes along is not known any more: check again.</source>
        <translation>Was mitkommt, ist nicht mehr bekannt: Prüfen Sie erneut.</translation>
    </message>
    <message>
        <source>No single change of the repository would cure this.</source>
        <translation>Keine einzelne Änderung des Repositorys würde abhelfen.</translation>
    </message>
    <message>
        <source>What would cure it:</source>
        <translation>Was abhelfen würde:</translation>
    </message>
    <message>
        <source>A first step to cure it:</source>
        <translation>Ein erster Schritt zur Abhilfe:</translation>
    </message>
    <message>
        <source>%1 (another contradiction is left then)</source>
        <translation>%1 (ein anderer Widerspruch bleibt dann)</translation>
    </message>
</context>
<context>
    <name>JobFeedback</name>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
</context>
<context>
    <name>LocalCandidates</name>
    <message>
        <source>Local</source>
        <translation>Lokal</translation>
    </message>
</context>
<context>
    <name>LocalSourceCommand</name>
    <message>
        <source>Looking how apt of this machine can use the repository</source>
        <translation>Es wird geprüft, wie apt auf diesem Rechner das Repository verwenden kann</translation>
    </message>
    <message>
        <source>Choose a server type, then add the repository once more.</source>
        <translation>Wählen Sie eine Serverart und tragen Sie das Repository dann noch einmal ein.</translation>
    </message>
    <message>
        <source>Waiting for the system to change the local sources list</source>
        <translation>Das System ändert die lokale Paketquellenliste</translation>
    </message>
    <message>
        <source>Repository is added to local sources list.</source>
        <translation>Das Repository wurde in die lokale Paketquellenliste eingetragen.</translation>
    </message>
    <message>
        <source>Local sources list</source>
        <translation>Lokale Paketquellenliste</translation>
    </message>
    <message>
        <source>The repository has no signature that can be checked, and other users of this machine can change it. Do you want to add it all the same?</source>
        <translation>Das Repository hat keine Signatur, die geprüft werden kann, und andere Benutzer dieses Rechners können es ändern. Möchten Sie es trotzdem eintragen?</translation>
    </message>
    <message>
        <source>As long as the line is in the list, they decide what is installed with the rights of root. Sign the repository, or see to it that nobody else may write in %1 and in the folders above.</source>
        <translation>Solange die Zeile in der Liste steht, entscheiden sie, was mit den Rechten von root installiert wird. Signieren Sie das Repository oder sorgen Sie dafür, dass niemand sonst in %1 und in die Ordner darüber schreiben darf.</translation>
    </message>
    <message>
        <source>As long as the line is in the list, whoever gets hold of the port %1 on this machine decides what is installed with the rights of root; any user can when the repository is not published. Sign the repository, or keep it in a folder of a local disk.</source>
        <translation>Solange die Zeile in der Liste steht, entscheidet, wer auf diesem Rechner den Port %1 belegt, was mit den Rechten von root installiert wird; das kann jeder Benutzer, wenn das Repository nicht veröffentlicht ist. Signieren Sie das Repository oder bewahren Sie es in einem Ordner auf einem lokalen Datenträger auf.</translation>
    </message>
    <message>
        <source>The repository is not published now.</source>
        <translation>Das Repository ist zurzeit nicht veröffentlicht.</translation>
    </message>
    <message>
        <source>The repository has no signature that can be checked, and apt of this machine can only get it over the network. Do you want to add it all the same?</source>
        <translation>Das Repository hat keine Signatur, die geprüft werden kann, und apt auf diesem Rechner kann es nur über das Netzwerk abrufen. Möchten Sie es trotzdem eintragen?</translation>
    </message>
    <message>
        <source>Repository is removed from local sources list.</source>
        <translation>Das Repository wurde aus der lokalen Paketquellenliste ausgetragen.</translation>
    </message>
    <message>
        <source>The local sources list still has a line of this repository, which was changed by hand. Remove it with an editor.</source>
        <translation>Die lokale Paketquellenliste enthält noch eine Zeile dieses Repositorys, die von Hand geändert wurde. Entfernen Sie sie mit einem Texteditor.</translation>
    </message>
    <message>
        <source>This machine&apos;s own apt uses the publication that ends. Do you want to remove its line from the local sources list?</source>
        <translation>apt auf diesem Rechner verwendet die Veröffentlichung, die beendet wird. Möchten Sie ihre Zeile aus der lokalen Paketquellenliste entfernen?</translation>
    </message>
    <message>
        <source>If the line stays, apt reports an error at each update, and with trusted=yes whoever takes the port decides what is installed with the rights of root.</source>
        <translation>Bleibt die Zeile stehen, meldet apt bei jeder Aktualisierung einen Fehler, und bei trusted=yes entscheidet, wer den Port belegt, was mit den Rechten von root installiert wird.</translation>
    </message>
    <message>
        <source>Choose HTTP as the server type, then add the repository once more: apt of this machine has no FTP.</source>
        <translation>Wählen Sie HTTP als Serverart und fügen Sie das Repository noch einmal hinzu: apt auf diesem Rechner kann kein FTP.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Recent repositories</source>
        <translation>Zuletzt geöffnete Repositorys</translation>
    </message>
    <message>
        <source>Dependences checking</source>
        <translation>Abhängigkeitsprüfung</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Publication</source>
        <translation>Veröffentlichung</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Tool bar</source>
        <translation>Werkzeugleiste</translation>
    </message>
    <message>
        <source>New repository...</source>
        <translation>Neues Repository...</translation>
    </message>
    <message>
        <source>New repository</source>
        <translation>Neues Repository</translation>
    </message>
    <message>
        <source>Open repository...</source>
        <translation>Repository öffnen...</translation>
    </message>
    <message>
        <source>Open repository</source>
        <translation>Repository öffnen</translation>
    </message>
    <message>
        <source>Remove repository</source>
        <translation>Repository löschen</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Add packages...</source>
        <translation>Pakete hinzufügen...</translation>
    </message>
    <message>
        <source>Add packages</source>
        <translation>Pakete hinzufügen</translation>
    </message>
    <message>
        <source>Remove packages...</source>
        <translation>Pakete entfernen...</translation>
    </message>
    <message>
        <source>Remove packages</source>
        <translation>Pakete entfernen</translation>
    </message>
    <message>
        <source>Publish repository</source>
        <translation>Repository veröffentlichen</translation>
    </message>
    <message>
        <source>Unpublish repository</source>
        <translation>Veröffentlichung beenden</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über das Programm</translation>
    </message>
    <message>
        <source>Change repository...</source>
        <translation>Repository ändern...</translation>
    </message>
    <message>
        <source>Add src list</source>
        <translation>Paketquelle eintragen</translation>
    </message>
    <message>
        <source>Add repository to local sources list</source>
        <translation>Repository in die lokale Paketquellenliste eintragen</translation>
    </message>
    <message>
        <source>Remove src list</source>
        <translation>Paketquelle austragen</translation>
    </message>
    <message>
        <source>Remove repository from local sources list</source>
        <translation>Repository aus der lokalen Paketquellenliste austragen</translation>
    </message>
    <message>
        <source>Package add settings...</source>
        <translation>Einstellungen zum Hinzufügen von Paketen...</translation>
    </message>
    <message>
        <source>Parameters...</source>
        <translation>Parameter...</translation>
    </message>
    <message>
        <source>Sign package(s)</source>
        <translation>Paket(e) signieren</translation>
    </message>
    <message>
        <source>Local repository</source>
        <translation>Lokales Repository</translation>
    </message>
    <message>
        <source>Public repositories</source>
        <translation>Öffentliche Repositorys</translation>
    </message>
    <message>
        <source>All repositories</source>
        <translation>Alle Repositorys</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>Ausschalten</translation>
    </message>
    <message>
        <source>Check depends</source>
        <translation>Abhängigkeiten prüfen</translation>
    </message>
    <message>
        <source>Add package to local repository</source>
        <translation>Paket zum lokalen Repository hinzufügen</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Export all packages</source>
        <translation>Alle Pakete exportieren</translation>
    </message>
    <message>
        <source>Export repository</source>
        <translation>Repository exportieren</translation>
    </message>
    <message>
        <source>Export selected packages</source>
        <translation>Ausgewählte Pakete exportieren</translation>
    </message>
    <message>
        <source>Export repo</source>
        <translation>Repository exportieren</translation>
    </message>
    <message>
        <source>Import repository</source>
        <translation>Repository importieren</translation>
    </message>
    <message>
        <source>Import packages from archive</source>
        <translation>Pakete aus Archiv importieren</translation>
    </message>
    <message>
        <source>Edit sources lists</source>
        <translation>Paketquellenlisten bearbeiten</translation>
    </message>
    <message>
        <source>Add package from external repo</source>
        <translation>Paket aus externem Repository hinzufügen</translation>
    </message>
    <message>
        <source>Edit external repos...</source>
        <translation>Externe Repositorys bearbeiten...</translation>
    </message>
    <message>
        <source>Show published repos</source>
        <translation>Veröffentlichte Repositorys anzeigen</translation>
    </message>
    <message>
        <source>Export package with depends</source>
        <translation>Paket mit Abhängigkeiten exportieren</translation>
    </message>
    <message>
        <source>Upgrade Repository</source>
        <translation>Repository aktualisieren</translation>
    </message>
    <message>
        <source>View...</source>
        <translation>Ansicht...</translation>
    </message>
    <message>
        <source>Hide status line</source>
        <translation>Statuszeile ausblenden</translation>
    </message>
    <message>
        <source>Changes the visibility of widget with dependencies counter</source>
        <translation>Zeigt oder verbirgt die Zeile mit den Abhängigkeitszählern</translation>
    </message>
    <message>
        <source>Check depends in all repos</source>
        <translation>Abhängigkeiten werden in allen Repositorys geprüft</translation>
    </message>
    <message>
        <source>Check depends in public repos</source>
        <translation>Abhängigkeiten werden in öffentlichen Repositorys geprüft</translation>
    </message>
    <message>
        <source>Check depends in local repo</source>
        <translation>Abhängigkeiten werden im lokalen Repository geprüft</translation>
    </message>
    <message>
        <source>Dependces checking disabled</source>
        <translation>Abhängigkeitsprüfung ausgeschaltet</translation>
    </message>
    <message>
        <source>Extended log</source>
        <translation>Ausführliches Protokoll</translation>
    </message>
    <message>
        <source>Show extended log</source>
        <translation>Ausführliches Protokoll anzeigen</translation>
    </message>
    <message>
        <source>About Qt</source>
        <translation>Über Qt</translation>
    </message>
    <message>
        <source>This program uses Qt version %1, a toolkit for applications under the GNU Lesser General Public License, version 3. See https://www.qt.io.</source>
        <translation>Dieses Programm verwendet Qt in der Version %1, einen Baukasten für Anwendungen unter der GNU Lesser General Public License, Version 3. Siehe https://www.qt.io.</translation>
    </message>
    <message>
        <source>The help pages are not installed.</source>
        <translation>Die Hilfeseiten sind nicht installiert.</translation>
    </message>
    <message>
        <source>The marks of the packages are those of the last check until the next one.</source>
        <translation>Die Zeichen der Pakete sind bis zur nächsten Prüfung die der letzten.</translation>
    </message>
    <message>
        <source>Select all packages</source>
        <translation>Alle Pakete auswählen</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Neu laden</translation>
    </message>
</context>
<context>
    <name>MissingPackage</name>
    <message>
        <source>Package %1 is not installed! Do you want to install it?</source>
        <translation>Das Paket %1 ist nicht installiert! Möchten Sie es installieren?</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>The package manager synaptic cannot be started. Install the package %1 in another way.</source>
        <translation>Die Paketverwaltung synaptic kann nicht gestartet werden. Installieren Sie das Paket %1 auf andere Weise.</translation>
    </message>
    <message>
        <source>The program %1 cannot be started.</source>
        <translation>Das Programm %1 kann nicht gestartet werden.</translation>
    </message>
</context>
<context>
    <name>NewRepoDialog</name>
    <message>
        <source>Repository creation</source>
        <translation>Repository anlegen</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Pfad</translation>
    </message>
    <message>
        <source>Select a directory to create the repository</source>
        <translation>Verzeichnis wählen, in dem das Repository angelegt wird</translation>
    </message>
    <message>
        <source>Repository information</source>
        <translation>Angaben zum Repository</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>This required field.</source>
        <translation>Dieses Feld ist erforderlich.</translation>
    </message>
    <message>
        <source>Code name</source>
        <translation>Codename</translation>
    </message>
    <message>
        <source>Suite</source>
        <translation>Suite</translation>
    </message>
    <message>
        <source>This optional field.
Value: oldstable, stable, testing, unstable, current, experimental.</source>
        <translation>Dieses Feld kann leer bleiben.
Werte: oldstable, stable, testing, unstable, current, experimental.</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>This optional field.
Example: 1.0.2</source>
        <translation>Dieses Feld kann leer bleiben.
Beispiel: 1.0.2</translation>
    </message>
    <message>
        <source>Architectures</source>
        <translation>Architekturen</translation>
    </message>
    <message>
        <source>This required field. 
One or more values</source>
        <translation>Dieses Feld ist erforderlich.
Ein oder mehrere Werte</translation>
    </message>
    <message>
        <source>Components</source>
        <translation>Komponenten</translation>
    </message>
    <message>
        <source>This required field.
One or more values</source>
        <translation>Dieses Feld ist erforderlich.
Ein oder mehrere Werte</translation>
    </message>
    <message>
        <source>Create Contets-*.gz file</source>
        <translation>Datei Contents-*.gz anlegen</translation>
    </message>
    <message>
        <source>Sign the repository (apt)</source>
        <translation>Repository signieren (apt)</translation>
    </message>
    <message>
        <source>Start KGpg</source>
        <translation>KGpg starten</translation>
    </message>
    <message>
        <source>Will be use default GPG key for signing repository (apt). Use KGpg to select default GPG key.</source>
        <translation>Das Repository (apt) wird mit dem Standard-GPG-Schlüssel signiert. Wählen Sie den Standardschlüssel in KGpg.</translation>
    </message>
    <message>
        <source>Repository change</source>
        <translation>Repository ändern</translation>
    </message>
    <message>
        <source>Repository import</source>
        <translation>Repository importieren</translation>
    </message>
    <message>
        <source>Small letters a to z, digits and the characters %1 are allowed here.</source>
        <translation>Hier sind die Kleinbuchstaben a bis z, Ziffern und die Zeichen %1 erlaubt.</translation>
    </message>
    <message>
        <source>Small letters a to z, digits and hyphens are allowed here; one blank separates two values.</source>
        <translation>Hier sind die Kleinbuchstaben a bis z, Ziffern und Bindestriche erlaubt; ein Leerzeichen trennt zwei Werte.</translation>
    </message>
    <message>
        <source>It looks like you are trying to edit a published repository. Please unpublish the repository first.</source>
        <translation>Sie versuchen offenbar, ein veröffentlichtes Repository zu bearbeiten. Bitte beenden Sie zuerst seine Veröffentlichung.</translation>
    </message>
    <message>
        <source>Please fill all required fields!</source>
        <translation>Bitte füllen Sie alle erforderlichen Felder aus!</translation>
    </message>
    <message>
        <source>Architecture &quot;all&quot; is unallowable!</source>
        <translation>Die Architektur „all“ ist nicht erlaubt!</translation>
    </message>
    <message>
        <source>The path must be absolute: it starts with a slash.</source>
        <translation>Der Pfad muss absolut sein: Er beginnt mit einem Schrägstrich.</translation>
    </message>
    <message>
        <source>The name or the code name cannot be used. They consist of letters, digits, dots, hyphens and underscores.</source>
        <translation>Der Name oder der Codename kann nicht verwendet werden. Beide bestehen aus Buchstaben, Ziffern, Punkten, Bindestrichen und Unterstrichen.</translation>
    </message>
    <message>
        <source>Changing fields Codename, Architectures, Components may result in packages deletion. Want to continue?</source>
        <translation>Änderungen an den Feldern Codename, Architekturen und Komponenten können dazu führen, dass Pakete gelöscht werden. Möchten Sie fortfahren?</translation>
    </message>
    <message>
        <source>It holds a repository. Everything in it will be deleted.</source>
        <translation>Es enthält ein Repository. Alles darin wird gelöscht.</translation>
    </message>
    <message>
        <source>It holds no repository. Everything in it will be deleted.</source>
        <translation>Es enthält kein Repository. Alles darin wird gelöscht.</translation>
    </message>
    <message>
        <source>The directory %1 already exists. Replace it?</source>
        <translation>Das Verzeichnis %1 ist bereits vorhanden. Ersetzen?</translation>
    </message>
    <message>
        <source>Overwriting a published repository</source>
        <translation>Überschreiben eines veröffentlichten Repositorys</translation>
    </message>
    <message>
        <source>You are trying to overwrite a published repository. It is highly recommended to first unpublish the repository and then make changes. Click &quot;Yes&quot; only if you know what you are doing. Continue?</source>
        <translation>Sie versuchen, ein veröffentlichtes Repository zu überschreiben. Es wird dringend empfohlen, zuerst die Veröffentlichung zu beenden und dann Änderungen vorzunehmen. Wählen Sie „Ja“ nur, wenn Sie wissen, was Sie tun. Fortfahren?</translation>
    </message>
    <message>
        <source>Do you want to move the repository from %1 to %2?</source>
        <translation>Möchten Sie das Repository von %1 nach %2 verschieben?</translation>
    </message>
    <message>
        <source>The directory %1 cannot be replaced, because it holds these repositories: %2</source>
        <translation>Das Verzeichnis %1 kann nicht ersetzt werden, weil es diese Repositorys enthält: %2</translation>
    </message>
    <message>
        <source>No package will be deleted.</source>
        <translation>Es wird kein Paket gelöscht.</translation>
    </message>
    <message numerus="yes">
        <source>All %n package(s) will be deleted: %1</source>
        <translation>
            <numerusform>Alle Pakete (%n) werden gelöscht: %1</numerusform>
            <numerusform>Alle Pakete (%n) werden gelöscht: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) will be deleted: %1</source>
        <translation>
            <numerusform>%n Paket wird gelöscht: %1</numerusform>
            <numerusform>%n Pakete werden gelöscht: %1</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Carry the packages over to the new code name</source>
        <translation>Die Pakete auf den neuen Codenamen ü&amp;bertragen</translation>
    </message>
    <message>
        <source>Preview...</source>
        <translation>Vorschau...</translation>
    </message>
</context>
<context>
    <name>OrphanedLines</name>
    <message>
        <source>These lines of this machine&apos;s local sources list lead to ports on which nothing is published. apt reports an error for them, and with trusted=yes whoever takes the port decides what is installed with the rights of root:</source>
        <translation>Diese Zeilen der lokalen Paketquellenliste dieses Rechners führen zu Ports, auf denen nichts veröffentlicht ist. apt meldet für sie einen Fehler, und bei trusted=yes entscheidet, wer den Port belegt, was mit den Rechten von root installiert wird:</translation>
    </message>
    <message>
        <source>Lines without a publication</source>
        <translation>Zeilen ohne Veröffentlichung</translation>
    </message>
    <message>
        <source>&amp;Remove line</source>
        <translation>&amp;Zeile entfernen</translation>
    </message>
</context>
<context>
    <name>PackageColumns</name>
    <message>
        <source>not checked</source>
        <translation>nicht geprüft</translation>
    </message>
    <message>
        <source>not satisfied</source>
        <translation>nicht erfüllt</translation>
    </message>
    <message>
        <source>satisfied</source>
        <translation>erfüllt</translation>
    </message>
    <message>
        <source>cannot be installed</source>
        <translation>kann nicht installiert werden</translation>
    </message>
    <message>
        <source>undecided</source>
        <translation>unentschieden</translation>
    </message>
    <message>
        <source>Packages</source>
        <translation>Pakete</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Architecture</source>
        <translation>Architektur</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Signature</source>
        <translation>Signatur</translation>
    </message>
    <message>
        <source>Added</source>
        <translation>Hinzugefügt</translation>
    </message>
    <message>
        <source>Unsigned</source>
        <translation>Nicht signiert</translation>
    </message>
</context>
<context>
    <name>PackageCommands</name>
    <message>
        <source>Not added: %1</source>
        <translation>Nicht hinzugefügt: %1</translation>
    </message>
    <message>
        <source>No repository</source>
        <translation>Kein Repository</translation>
    </message>
    <message>
        <source>There are no repositories to add a package to</source>
        <translation>Es gibt kein Repository, zu dem ein Paket hinzugefügt werden könnte</translation>
    </message>
    <message>
        <source>Choose repository</source>
        <translation>Repository wählen</translation>
    </message>
    <message>
        <source>Select the repository to add the package(s) to:</source>
        <translation>Wählen Sie das Repository, zu dem Pakete hinzugefügt werden:</translation>
    </message>
    <message>
        <source>(%1)</source>
        <translation>(%1)</translation>
    </message>
    <message>
        <source>Adding Packages%1</source>
        <translation>Pakete hinzufügen %1</translation>
    </message>
    <message>
        <source>Packages (*.deb *.udeb)</source>
        <translation>Pakete (*.deb *.udeb)</translation>
    </message>
    <message>
        <source>Only packages can be added: files whose name ends in .deb or .udeb, in small letters.</source>
        <translation>Nur Pakete können hinzugefügt werden: Dateien, deren Name auf .deb oder .udeb endet, in Kleinbuchstaben.</translation>
    </message>
    <message>
        <source>Remove confirmation</source>
        <translation>Entfernen bestätigen</translation>
    </message>
    <message>
        <source>Do you want to remove selected packages?</source>
        <translation>Möchten Sie die ausgewählten Pakete entfernen?</translation>
    </message>
    <message>
        <source>Will be added next: %1</source>
        <translation>Wird als Nächstes hinzugefügt: %1</translation>
    </message>
    <message>
        <source>There are no packages in what was dropped.</source>
        <translation>Was Sie abgelegt haben, enthält keine Pakete.</translation>
    </message>
    <message>
        <source>Adding packages</source>
        <translation>Pakete werden hinzugefügt</translation>
    </message>
    <message numerus="yes">
        <source>Do you want to add %n package(s)?</source>
        <translation>
            <numerusform>Möchten Sie %n Paket hinzufügen?</numerusform>
            <numerusform>Möchten Sie %n Pakete hinzufügen?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n of them from %1</source>
        <translation>
            <numerusform>%n davon aus %1</numerusform>
            <numerusform>%n davon aus %1</numerusform>
        </translation>
    </message>
    <message>
        <source>You cannot change the repository %1: its files belong to another user, or its disk is read-only.</source>
        <translation>Sie können das Repository %1 nicht ändern: Seine Dateien gehören einem anderen Benutzer, oder sein Datenträger ist schreibgeschützt.</translation>
    </message>
</context>
<context>
    <name>PackageContentsDialog</name>
    <message>
        <source>Changelog</source>
        <translation>Änderungsprotokoll</translation>
    </message>
    <message>
        <source>Copyright</source>
        <translation>Urheberrecht</translation>
    </message>
    <message>
        <source>Control files</source>
        <translation>Steuerdateien</translation>
    </message>
    <message>
        <source>Contents of %1</source>
        <translation>Inhalt von %1</translation>
    </message>
    <message>
        <source>Search in this page</source>
        <translation>Auf dieser Seite suchen</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Reading %1...</source>
        <translation>%1 wird gelesen...</translation>
    </message>
    <message>
        <source>The file %1 cannot be read, or it is damaged.</source>
        <translation>Die Datei %1 lässt sich nicht lesen oder ist beschädigt.</translation>
    </message>
    <message>
        <source>The documentation of this package is in the package %1.</source>
        <translation>Die Dokumentation dieses Pakets ist im Paket %1.</translation>
    </message>
    <message>
        <source>The package has no changelog.</source>
        <translation>Das Paket hat kein Änderungsprotokoll.</translation>
    </message>
    <message>
        <source>The package has no file about its copyright.</source>
        <translation>Das Paket hat keine Datei über sein Urheberrecht.</translation>
    </message>
    <message numerus="yes">
        <source>Found %n time(s)</source>
        <translation>
            <numerusform>%n Mal gefunden</numerusform>
            <numerusform>%n Mal gefunden</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2 files</source>
        <translation>%1 von %2 Dateien</translation>
    </message>
    <message>
        <source>The package is very large. Not all of it was read.</source>
        <translation>Das Paket ist sehr groß. Es wurde nicht ganz gelesen.</translation>
    </message>
</context>
<context>
    <name>PackageDependItem</name>
    <message>
        <source>%1 Provided by ...</source>
        <translation>%1 bereitgestellt von ...</translation>
    </message>
    <message>
        <source>Provided by ... </source>
        <translation>bereitgestellt von ... </translation>
    </message>
    <message>
        <source>%1 offers %2</source>
        <translation>%1 bietet %2 an</translation>
    </message>
    <message>
        <source>needs %1, %2 offers %3</source>
        <translation>benötigt %1, %2 bietet %3 an</translation>
    </message>
    <message>
        <source>%1 does not offer it</source>
        <translation>%1 bietet es nicht an</translation>
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
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>PackageDifference</name>
    <message>
        <source>%1 bytes, mode %2, SHA-256 %3</source>
        <translation>%1 Bytes, Rechte %2, SHA-256 %3</translation>
    </message>
    <message>
        <source>link to %1</source>
        <translation>Verknüpfung mit %1</translation>
    </message>
    <message>
        <source>folder, mode %1</source>
        <translation>Ordner, Rechte %1</translation>
    </message>
    <message>
        <source>special file, mode %1</source>
        <translation>besondere Datei, Rechte %1</translation>
    </message>
    <message>
        <source>The file %1 cannot be read.</source>
        <translation>Die Datei %1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Field</source>
        <translation>Feld</translation>
    </message>
    <message>
        <source>Control file</source>
        <translation>Steuerdatei</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
</context>
<context>
    <name>PackageExtractor</name>
    <message>
        <source>The packages in the archive need more room than there is: unpacking was given up at %1. %2 are left in %3, and %4 have to stay free.</source>
        <translation>Die Pakete im Archiv brauchen mehr Platz, als vorhanden ist: Das Entpacken wurde bei %1 aufgegeben. In %3 sind noch %2 frei, und %4 müssen frei bleiben.</translation>
    </message>
</context>
<context>
    <name>PackageFacts</name>
    <message>
        <source>%1 (%2 bytes)</source>
        <translation>%1 (%2 Byte)</translation>
    </message>
</context>
<context>
    <name>PackageFile</name>
    <message>
        <source>The file is damaged: its end is missing.</source>
        <translation>Die Datei ist beschädigt: Ihr Ende fehlt.</translation>
    </message>
    <message>
        <source>Its control data lack the package&apos;s name, version or architecture.</source>
        <translation>Seinen Steuerdaten fehlen Name, Version oder Architektur des Pakets.</translation>
    </message>
    <message>
        <source>There is no such file.</source>
        <translation>Die Datei gibt es nicht.</translation>
    </message>
    <message>
        <source>Its name does not end in .deb or .udeb.</source>
        <translation>Ihr Name endet nicht auf .deb oder .udeb.</translation>
    </message>
    <message>
        <source>It is no regular file.</source>
        <translation>Sie ist keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message>
        <source>The file is damaged: what it contains cannot be unpacked.</source>
        <translation>Die Datei ist beschädigt: Ihr Inhalt lässt sich nicht entpacken.</translation>
    </message>
</context>
<context>
    <name>PackageFileCommands</name>
    <message>
        <source>Package file</source>
        <translation>Paketdatei</translation>
    </message>
    <message>
        <source>Contents...</source>
        <translation>Inhalt...</translation>
    </message>
    <message>
        <source>Save package as...</source>
        <translation>Paket speichern unter...</translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Copy name</source>
        <translation>Namen kopieren</translation>
    </message>
    <message>
        <source>Copy as apt command</source>
        <translation>Als apt-Befehl kopieren</translation>
    </message>
    <message>
        <source>Save packages into a folder</source>
        <translation>Pakete in einen Ordner speichern</translation>
    </message>
    <message>
        <source>Save package as</source>
        <translation>Paket speichern unter</translation>
    </message>
    <message>
        <source>Packages (%1)</source>
        <translation>Pakete (%1)</translation>
    </message>
    <message>
        <source>These packages are left out: a file of the same name is saved.</source>
        <translation>Diese Pakete werden ausgelassen: Eine Datei desselben Namens wird gespeichert.</translation>
    </message>
    <message>
        <source>Save packages</source>
        <translation>Pakete speichern</translation>
    </message>
    <message numerus="yes">
        <source>Do you want to replace %n file(s) in %1?</source>
        <translation>
            <numerusform>Möchten Sie %n Datei in %1 ersetzen?</numerusform>
            <numerusform>Möchten Sie %n Dateien in %1 ersetzen?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Saving %n package(s)...</source>
        <translation>
            <numerusform>%n Paket wird gespeichert...</numerusform>
            <numerusform>%n Pakete werden gespeichert...</numerusform>
        </translation>
    </message>
    <message>
        <source>Saved: %1</source>
        <translation>Gespeichert: %1</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) saved.</source>
        <translation>
            <numerusform>%n Paket gespeichert.</numerusform>
            <numerusform>%n Pakete gespeichert.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) could not be saved.</source>
        <translation>
            <numerusform>%n Paket konnte nicht gespeichert werden.</numerusform>
            <numerusform>%n Pakete konnten nicht gespeichert werden.</numerusform>
        </translation>
    </message>
    <message>
        <source>No program opens the folder %1.</source>
        <translation>Kein Programm öffnet den Ordner %1.</translation>
    </message>
    <message>
        <source>Copied.</source>
        <translation>Kopiert.</translation>
    </message>
    <message>
        <source>Copied: %1</source>
        <translation>Kopiert: %1</translation>
    </message>
</context>
<context>
    <name>PackageItem</name>
    <message>
        <source>Dependencies not checked yet</source>
        <translation>Abhängigkeiten noch nicht geprüft</translation>
    </message>
    <message>
        <source>Some dependencies are not satisfied</source>
        <translation>Einige Abhängigkeiten sind nicht erfüllt</translation>
    </message>
    <message>
        <source>Depends on nothing</source>
        <translation>Hat keine Abhängigkeiten</translation>
    </message>
    <message>
        <source>All dependencies are satisfied</source>
        <translation>Alle Abhängigkeiten sind erfüllt</translation>
    </message>
    <message numerus="yes">
        <source>%1 satisfies %2 of %n dependency(ies)</source>
        <translation>
            <numerusform>%1 erfüllt %2 von %n Abhängigkeit</numerusform>
            <numerusform>%1 erfüllt %2 von %n Abhängigkeiten</numerusform>
        </translation>
    </message>
    <message>
        <source>Some dependencies could not be looked for</source>
        <translation>Einige Abhängigkeiten konnten nicht gesucht werden</translation>
    </message>
</context>
<context>
    <name>PackageMore</name>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>Size, source, place and checksum of the package file</source>
        <translation>Größe, Quelle, Ort und Prüfsumme der Paketdatei</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>Größe:</translation>
    </message>
    <message>
        <source>Installed size:</source>
        <translation>Installierte Größe:</translation>
    </message>
    <message>
        <source>Source package:</source>
        <translation>Quellpaket:</translation>
    </message>
    <message>
        <source>Homepage:</source>
        <translation>Homepage:</translation>
    </message>
    <message>
        <source>Added:</source>
        <translation>Hinzugefügt:</translation>
    </message>
    <message>
        <source>Pool file:</source>
        <translation>Datei im Pool:</translation>
    </message>
    <message>
        <source>SHA-256:</source>
        <translation>SHA-256:</translation>
    </message>
    <message>
        <source>The file is missing.</source>
        <translation>Die Datei fehlt.</translation>
    </message>
    <message>
        <source>The file has another size: %1</source>
        <translation>Die Datei hat eine andere Größe: %1</translation>
    </message>
</context>
<context>
    <name>PackagePanel</name>
    <message>
        <source>Package:</source>
        <translation>Paket:</translation>
    </message>
    <message>
        <source>Version:</source>
        <translation>Version:</translation>
    </message>
    <message>
        <source>Architecture:</source>
        <translation>Architektur:</translation>
    </message>
    <message>
        <source>Component:</source>
        <translation>Komponente:</translation>
    </message>
    <message>
        <source>Section:</source>
        <translation>Sektion:</translation>
    </message>
    <message>
        <source>Maintainer:</source>
        <translation>Betreuer:</translation>
    </message>
    <message>
        <source>Description:</source>
        <translation>Beschreibung:</translation>
    </message>
    <message>
        <source>Signature:</source>
        <translation>Signatur:</translation>
    </message>
    <message>
        <source>%1 (listed for %2)</source>
        <translation>%1 (verzeichnet für %2)</translation>
    </message>
    <message>
        <source>Unsigned</source>
        <translation>Nicht signiert</translation>
    </message>
</context>
<context>
    <name>PackageReplacementDialog</name>
    <message>
        <source>The repository already contains a package %1 (%2) of a newer version. Do you want to replace it?</source>
        <translation>Das Repository enthält bereits eine neuere Version des Pakets %1 (%2). Möchten Sie sie ersetzen?</translation>
    </message>
    <message>
        <source>The repository already contains a package %1 (%2) of an earlier version. Do you want to replace it?</source>
        <translation>Das Repository enthält bereits eine ältere Version des Pakets %1 (%2). Möchten Sie sie ersetzen?</translation>
    </message>
    <message>
        <source>The package %1 (%2) already exists. Do you want to replace it?</source>
        <translation>Das Paket %1 (%2) ist bereits vorhanden. Möchten Sie es ersetzen?</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Package replacement</source>
        <translation>Paket ersetzen</translation>
    </message>
    <message>
        <source>Apply to all</source>
        <translation>Für alle übernehmen</translation>
    </message>
    <message>
        <source>Version in the repository: %1</source>
        <translation>Version im Repository: %1</translation>
    </message>
    <message>
        <source>New version: %1 (%2)</source>
        <translation>Neue Version: %1 (%2)</translation>
    </message>
    <message>
        <source>You can immediately choose what to do with all subsequent matches; to do this, select one of the options and click &quot;Apply to all&quot;</source>
        <translation>Sie können sofort festlegen, was mit allen weiteren Übereinstimmungen geschehen soll; wählen Sie dazu eine der Möglichkeiten und betätigen Sie „Für alle übernehmen“</translation>
    </message>
    <message>
        <source>Give preference to versions higer</source>
        <translation>Höhere Versionen bevorzugen</translation>
    </message>
    <message>
        <source>In case of matching package, preference will be given to the package with a higher version</source>
        <translation>Bei übereinstimmenden Paketen wird das Paket mit der höheren Version bevorzugt</translation>
    </message>
    <message>
        <source>Give preference to versions lower</source>
        <translation>Niedrigere Versionen bevorzugen</translation>
    </message>
    <message>
        <source>In case of matching package, preference will be given to the package with a lower version</source>
        <translation>Bei übereinstimmenden Paketen wird das Paket mit der niedrigeren Version bevorzugt</translation>
    </message>
    <message>
        <source>Replace all packages</source>
        <translation>Alle Pakete ersetzen</translation>
    </message>
    <message>
        <source>If the package matches, always replace it</source>
        <translation>Übereinstimmende Pakete immer ersetzen</translation>
    </message>
    <message>
        <source>Do not replace packages</source>
        <translation>Keine Pakete ersetzen</translation>
    </message>
    <message>
        <source>Always give preference to packages already present in the repository</source>
        <translation>Immer die Pakete bevorzugen, die schon im Repository sind</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Keep this package and add no more</source>
        <translation>Dieses Paket behalten und keine weiteren hinzufügen</translation>
    </message>
    <message>
        <source>It is one file for several architectures, so the answer is for all of them: %1</source>
        <translation>Es ist eine Datei für mehrere Architekturen, daher gilt die Antwort für alle: %1</translation>
    </message>
    <message>
        <source>Preview...</source>
        <translation>Vorschau...</translation>
    </message>
    <message>
        <source>Stops here, and shows what is left in one window</source>
        <translation>Hält hier an und zeigt den Rest in einem Fenster</translation>
    </message>
</context>
<context>
    <name>PackageStatusLine</name>
    <message>
        <source>Dependences not checked</source>
        <translation>Abhängigkeiten nicht geprüft</translation>
    </message>
    <message>
        <source>Dependences not satisfied</source>
        <translation>Abhängigkeiten nicht erfüllt</translation>
    </message>
    <message>
        <source>Dependences satisfied</source>
        <translation>Abhängigkeiten erfüllt</translation>
    </message>
    <message>
        <source>Total: %1 package(s)</source>
        <translation>Pakete gesamt: %1</translation>
    </message>
</context>
<context>
    <name>ParametersDialog</name>
    <message>
        <source>Show package version</source>
        <translation>Paketversion anzeigen</translation>
    </message>
    <message>
        <source>Parametrs</source>
        <translation>Parameter</translation>
    </message>
</context>
<context>
    <name>PreviewCommands</name>
    <message>
        <source>Preview of changes</source>
        <translation>Vorschau von Änderungen</translation>
    </message>
    <message>
        <source>Always</source>
        <translation>Immer</translation>
    </message>
    <message>
        <source>When something would break</source>
        <translation>Wenn etwas nicht mehr ginge</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>Text (*.txt)</source>
        <translation>Text (*.txt)</translation>
    </message>
    <message>
        <source>JSON (*.json)</source>
        <translation>JSON (*.json)</translation>
    </message>
    <message>
        <source>Save report</source>
        <translation>Bericht speichern</translation>
    </message>
    <message>
        <source>The report cannot be saved in %1.</source>
        <translation>Der Bericht kann nicht in %1 gespeichert werden.</translation>
    </message>
    <message>
        <source>The report is saved in %1.</source>
        <translation>Der Bericht ist in %1 gespeichert.</translation>
    </message>
</context>
<context>
    <name>PreviewDialog</name>
    <message>
        <source>Replace all of this kind</source>
        <translation>Alle dieser Art ersetzen</translation>
    </message>
    <message>
        <source>Keep all of this kind</source>
        <translation>Alle dieser Art behalten</translation>
    </message>
    <message>
        <source>Difference...</source>
        <translation>Unterschied...</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Save as report...</source>
        <translation>Als Bericht speichern...</translation>
    </message>
    <message>
        <source>as chosen in the rows</source>
        <translation>wie in den Zeilen gewählt</translation>
    </message>
    <message>
        <source>Packages that are already there:</source>
        <translation>Schon vorhandene Pakete:</translation>
    </message>
    <message>
        <source>Name, or what happens</source>
        <translation>Name, oder was geschieht</translation>
    </message>
    <message>
        <source>Compare the present file with the new one</source>
        <translation>Vergleicht die vorhandene Datei mit der neuen</translation>
    </message>
    <message>
        <source>Filter:</source>
        <translation>Filter:</translation>
    </message>
    <message>
        <source>Packages that the change concerns</source>
        <translation>Pakete, die die Änderung betrifft</translation>
    </message>
    <message>
        <source>Effect</source>
        <translation>Wirkung</translation>
    </message>
    <message>
        <source>What adding these packages would change in %1. Nothing has been changed yet.</source>
        <translation>Was das Hinzufügen dieser Pakete in %1 ändern würde. Noch ist nichts geändert.</translation>
    </message>
    <message>
        <source>What removing these packages would change in %1. Nothing has been changed yet.</source>
        <translation>Was das Entfernen dieser Pakete in %1 ändern würde. Noch ist nichts geändert.</translation>
    </message>
    <message>
        <source>What fetching these packages would change in %1. Nothing has been changed yet.</source>
        <translation>Was das Holen dieser Pakete in %1 ändern würde. Noch ist nichts geändert.</translation>
    </message>
    <message>
        <source>What this import would change in %1. Nothing has been changed yet.</source>
        <translation>Was dieser Import in %1 ändern würde. Noch ist nichts geändert.</translation>
    </message>
    <message>
        <source>What this upgrade would change in %1. Nothing has been changed yet.</source>
        <translation>Was diese Aktualisierung in %1 ändern würde. Noch ist nichts geändert.</translation>
    </message>
    <message>
        <source>What the new description would change in %1. Nothing has been changed yet.</source>
        <translation>Was die neue Beschreibung in %1 ändern würde. Noch ist nichts geändert.</translation>
    </message>
    <message>
        <source>What going back would change in %1. Nothing has been changed yet.</source>
        <translation>Was das Zurückkehren in %1 ändern würde. Noch ist nichts geändert.</translation>
    </message>
    <message>
        <source>The repository has changed meanwhile, so nothing was done. This is what the change would do now.</source>
        <translation>Das Repository hat sich inzwischen geändert, deshalb wurde nichts getan. Das würde die Änderung jetzt bewirken.</translation>
    </message>
    <message>
        <source>Effect: something would break.</source>
        <translation>Wirkung: Etwas ginge nicht mehr.</translation>
    </message>
    <message>
        <source>Effect: nothing would break.</source>
        <translation>Wirkung: Alles ginge weiter.</translation>
    </message>
    <message>
        <source>Effect: is being worked out...</source>
        <translation>Wirkung: wird ermittelt...</translation>
    </message>
    <message>
        <source>Effect: not known, because the search was stopped.</source>
        <translation>Wirkung: nicht bekannt, weil die Suche angehalten wurde.</translation>
    </message>
    <message>
        <source>shown: %1 of %2</source>
        <translation>gezeigt: %1 von %2</translation>
    </message>
    <message>
        <source>Add %1 to the repository</source>
        <translation>%1 zum Repository hinzufügen</translation>
    </message>
</context>
<context>
    <name>PreviewEffectView</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>The description</source>
        <translation>Die Beschreibung</translation>
    </message>
    <message>
        <source>Clients</source>
        <translation>Clients</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) could be installed then</source>
        <translation>
            <numerusform>%n Paket wäre dann installierbar</numerusform>
            <numerusform>%n Pakete wären dann installierbar</numerusform>
        </translation>
    </message>
    <message>
        <source>What can be installed stays the same.</source>
        <translation>Was installierbar ist, bleibt gleich.</translation>
    </message>
    <message>
        <source>Checked against: %1</source>
        <translation>Geprüft gegen: %1</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) could no longer be installed</source>
        <translation>
            <numerusform>%n Paket wäre nicht mehr installierbar</numerusform>
            <numerusform>%n Pakete wären nicht mehr installierbar</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) that come in cannot be installed</source>
        <translation>
            <numerusform>%n hinzukommendes Paket kann nicht installiert werden</numerusform>
            <numerusform>%n hinzukommende Pakete können nicht installiert werden</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 in the repository %2</source>
        <translation>%1 im Repository %2</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und %n weiteres</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PreviewJob</name>
    <message>
        <source>Finding out what would change</source>
        <translation>Änderungen werden ermittelt</translation>
    </message>
    <message>
        <source>There is no preview.</source>
        <translation>Es gibt keine Vorschau.</translation>
    </message>
    <message>
        <source>The preview was stopped.</source>
        <translation>Die Vorschau wurde angehalten.</translation>
    </message>
    <message>
        <source>No source offers this version any more.</source>
        <translation>Keine Paketquelle bietet diese Version noch an.</translation>
    </message>
    <message>
        <source>The history has damaged records, so it is not known what going back would change.</source>
        <translation>Der Verlauf hat beschädigte Aufzeichnungen; daher ist nicht bekannt, was das Zurückkehren ändern würde.</translation>
    </message>
    <message>
        <source>Its file is missing, so there is no way back: %1</source>
        <translation>Seine Datei fehlt, daher gibt es keinen Weg zurück: %1</translation>
    </message>
    <message>
        <source>The preview is ready.</source>
        <translation>Die Vorschau ist fertig.</translation>
    </message>
    <message>
        <source>Finding out which packages can be installed then</source>
        <translation>Ermitteln, welche Pakete sich dann installieren lassen</translation>
    </message>
    <message>
        <source>It is not the file that its repository lists. Reload that repository.</source>
        <translation>Es ist nicht die Datei, die ihr Repository nennt. Laden Sie jenes Repository neu.</translation>
    </message>
</context>
<context>
    <name>PreviewModel</name>
    <message>
        <source>What happens</source>
        <translation>Was geschieht</translation>
    </message>
    <message>
        <source>Newer version</source>
        <translation>Höhere Version</translation>
    </message>
    <message>
        <source>Older version</source>
        <translation>Niedrigere Version</translation>
    </message>
    <message>
        <source>Same version, other content</source>
        <translation>Gleiche Version, anderer Inhalt</translation>
    </message>
    <message>
        <source>Same file</source>
        <translation>Dieselbe Datei</translation>
    </message>
    <message>
        <source>Refused: %1</source>
        <translation>Abgelehnt: %1</translation>
    </message>
    <message>
        <source>%1: replace</source>
        <translation>%1: ersetzen</translation>
    </message>
    <message>
        <source>%1: do not replace</source>
        <translation>%1: nicht ersetzen</translation>
    </message>
    <message>
        <source>Is added</source>
        <translation>Wird hinzugefügt</translation>
    </message>
    <message>
        <source>Is not added</source>
        <translation>Wird nicht hinzugefügt</translation>
    </message>
    <message>
        <source>Is removed</source>
        <translation>Wird entfernt</translation>
    </message>
    <message>
        <source>Stays</source>
        <translation>Bleibt</translation>
    </message>
    <message>
        <source>Is replaced</source>
        <translation>Wird ersetzt</translation>
    </message>
    <message>
        <source>Is replaced: %1</source>
        <translation>Wird ersetzt: %1</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Component: %1</source>
        <translation>Komponente: %1</translation>
    </message>
    <message>
        <source>It is one file for several rows, which are switched together.</source>
        <translation>Es ist eine Datei für mehrere Zeilen, die gemeinsam umgeschaltet werden.</translation>
    </message>
    <message>
        <source>Package</source>
        <translation>Paket</translation>
    </message>
    <message>
        <source>Architecture</source>
        <translation>Architektur</translation>
    </message>
    <message>
        <source>Old version</source>
        <translation>Alte Version</translation>
    </message>
    <message>
        <source>New version</source>
        <translation>Neue Version</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Aus</translation>
    </message>
</context>
<context>
    <name>PreviewReport</name>
    <message>
        <source>Packages</source>
        <translation>Pakete</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Can no longer be installed</source>
        <translation>Nicht mehr installierbar</translation>
    </message>
    <message>
        <source>Can be installed from then on</source>
        <translation>Von da an installierbar</translation>
    </message>
    <message>
        <source>Come in, and cannot be installed</source>
        <translation>Kommen hinzu und sind nicht installierbar</translation>
    </message>
    <message>
        <source>Clients</source>
        <translation>Clients</translation>
    </message>
    <message>
        <source>Disk</source>
        <translation>Datenträger</translation>
    </message>
    <message>
        <source>Signature</source>
        <translation>Signatur</translation>
    </message>
    <message>
        <source>Which packages can be installed then has not been found out.</source>
        <translation>Welche Pakete sich dann installieren lassen, wurde nicht ermittelt.</translation>
    </message>
    <message>
        <source>Whether packages can be installed was checked with: %1</source>
        <translation>Ob sich Pakete installieren lassen, wurde geprüft mit: %1</translation>
    </message>
</context>
<context>
    <name>PreviewRows</name>
    <message>
        <source>It is in the repository no longer.</source>
        <translation>Es ist nicht mehr im Repository.</translation>
    </message>
    <message>
        <source>The repository holds another version by now: %1</source>
        <translation>Das Repository enthält inzwischen eine andere Version: %1</translation>
    </message>
    <message>
        <source>The repository holds the version %1 by now.</source>
        <translation>Das Repository enthält inzwischen die Version %1.</translation>
    </message>
    <message>
        <source>No source offers this version any more.</source>
        <translation>Keine Paketquelle bietet diese Version noch an.</translation>
    </message>
</context>
<context>
    <name>PreviewText</name>
    <message>
        <source>Adding packages</source>
        <translation>Pakete werden hinzugefügt</translation>
    </message>
    <message>
        <source>Removing packages</source>
        <translation>Pakete werden entfernt</translation>
    </message>
    <message>
        <source>Fetching packages</source>
        <translation>Pakete holen</translation>
    </message>
    <message>
        <source>Importing packages</source>
        <translation>Pakete importieren</translation>
    </message>
    <message>
        <source>Upgrading packages</source>
        <translation>Pakete aktualisieren</translation>
    </message>
    <message>
        <source>Changing the description</source>
        <translation>Beschreibung ändern</translation>
    </message>
    <message>
        <source>Going back</source>
        <translation>Zurückkehren</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>abgelehnt</translation>
    </message>
    <message>
        <source>kept</source>
        <translation>bleibt</translation>
    </message>
    <message>
        <source>left out</source>
        <translation>ausgelassen</translation>
    </message>
    <message>
        <source>added</source>
        <translation>hinzugefügt</translation>
    </message>
    <message>
        <source>removed</source>
        <translation>entfernt</translation>
    </message>
    <message>
        <source>replaced with a newer version</source>
        <translation>durch eine neuere Version ersetzt</translation>
    </message>
    <message>
        <source>replaced with an older version</source>
        <translation>durch eine ältere Version ersetzt</translation>
    </message>
    <message>
        <source>replaced with the same file</source>
        <translation>durch dieselbe Datei ersetzt</translation>
    </message>
    <message>
        <source>replaced with the same version</source>
        <translation>durch dieselbe Version ersetzt</translation>
    </message>
    <message>
        <source>replaced</source>
        <translation>ersetzt</translation>
    </message>
    <message>
        <source>newer</source>
        <translation>neuer</translation>
    </message>
    <message>
        <source>older</source>
        <translation>älter</translation>
    </message>
    <message>
        <source>the same file</source>
        <translation>dieselbe Datei</translation>
    </message>
    <message>
        <source>same version, other contents</source>
        <translation>dieselbe Version, anderer Inhalt</translation>
    </message>
    <message>
        <source>Added: %1, replaced: %2, removed: %3, refused: %4, left as they are: %5</source>
        <translation>Hinzugefügt: %1, ersetzt: %2, entfernt: %3, abgelehnt: %4, unverändert: %5</translation>
    </message>
    <message numerus="yes">
        <source>Clients that have them installed upgrade %n package(s).</source>
        <translation>
            <numerusform>Clients, die es installiert haben, aktualisieren %n Paket.</numerusform>
            <numerusform>Clients, die sie installiert haben, aktualisieren %n Pakete.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Of %n package(s), clients keep the newer version that they have installed.</source>
        <translation>
            <numerusform>Von %n Paket behalten Clients die neuere Version, die sie installiert haben.</numerusform>
            <numerusform>Von %n Paketen behalten Clients die neuere Version, die sie installiert haben.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n removed package(s) stay installed where they are, without updates.</source>
        <translation>
            <numerusform>%n entferntes Paket bleibt dort installiert, wo es ist, ohne Aktualisierungen.</numerusform>
            <numerusform>%n entfernte Pakete bleiben dort installiert, wo sie sind, ohne Aktualisierungen.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Clients that have it installed do not get the other contents of %n package(s) of the same version.</source>
        <translation>
            <numerusform>Clients, die es installiert haben, bekommen den anderen Inhalt von %n Paket derselben Version nicht.</numerusform>
            <numerusform>Clients, die sie installiert haben, bekommen den anderen Inhalt von %n Paketen derselben Version nicht.</numerusform>
        </translation>
    </message>
    <message>
        <source>Comes into the pool: %1. Leaves it: %2.</source>
        <translation>Kommt in den Pool: %1. Verlässt ihn: %2.</translation>
    </message>
    <message>
        <source>Free on the disk: %1.</source>
        <translation>Frei auf dem Datenträger: %1.</translation>
    </message>
    <message>
        <source>Until now: %1</source>
        <translation>Bisher: %1</translation>
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
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Confirm replacement</source>
        <translation>Ersetzen bestätigen</translation>
    </message>
    <message>
        <source>The file %1 already exists. Do you want to replace it?</source>
        <translation>Die Datei %1 ist bereits vorhanden. Möchten Sie sie ersetzen?</translation>
    </message>
</context>
<context>
    <name>PublicationAccess</name>
    <message>
        <source>The access rights of %1 cannot be changed.</source>
        <translation>Die Zugriffsrechte von %1 können nicht geändert werden.</translation>
    </message>
</context>
<context>
    <name>PublicationCommands</name>
    <message>
        <source>Address is copied to clipboard</source>
        <translation>Die Adresse ist in die Zwischenablage kopiert</translation>
    </message>
    <message>
        <source>Another repo already published</source>
        <translation>Ein anderes Repository ist bereits veröffentlicht</translation>
    </message>
    <message>
        <source>The repository is not unpublished!</source>
        <translation>Die Veröffentlichung des Repositorys wurde nicht beendet!</translation>
    </message>
    <message>
        <source>The file /etc/vsftpd.conf was written by somebody else, or lets other users in, too. The FTP server may serve more than the repository and is not stopped. The administrator can stop it: systemctl disable --now vsftpd</source>
        <translation>Die Datei /etc/vsftpd.conf stammt von jemand anderem oder lässt auch andere Benutzer ein. Der FTP-Server bietet vielleicht mehr an als das Repository und wird nicht angehalten. Der Administrator kann ihn anhalten: systemctl disable --now vsftpd</translation>
    </message>
    <message>
        <source>No server type is chosen on its page.</source>
        <translation>Auf seiner Seite ist keine Art des Servers gewählt.</translation>
    </message>
</context>
<context>
    <name>PublicationConsent</name>
    <message numerus="yes">
        <source>and %n further file(s)</source>
        <translation>
            <numerusform>und %n weitere Datei</numerusform>
            <numerusform>und %n weitere Dateien</numerusform>
        </translation>
    </message>
    <message>
        <source>Access rights</source>
        <translation>Zugriffsrechte</translation>
    </message>
    <message>
        <source>The server cannot read everything in the repository. Do you want to let all users of this machine read it?</source>
        <translation>Der Server kann nicht alles im Repository lesen. Möchten Sie allen Benutzern dieses Rechners erlauben, es zu lesen?</translation>
    </message>
    <message>
        <source>Publication confirmation</source>
        <translation>Veröffentlichung bestätigen</translation>
    </message>
    <message>
        <source>Do you want to publish an empty repository?</source>
        <translation>Möchten Sie ein leeres Repository veröffentlichen?</translation>
    </message>
    <message>
        <source>The repository %1 is published over FTP now and will not be any more.</source>
        <translation>Das Repository %1 ist jetzt über FTP veröffentlicht und wird es danach nicht mehr sein.</translation>
    </message>
    <message>
        <source>The first file that is not the program&apos;s own is kept beside it.</source>
        <translation>Die erste Datei, die nicht vom Programm stammt, wird daneben aufbewahrt.</translation>
    </message>
    <message>
        <source>Rewrite confirmation</source>
        <translation>Überschreiben bestätigen</translation>
    </message>
    <message>
        <source>File /etc/vsftpd.conf will be rewrite. Do you want to continue?</source>
        <translation>Die Datei /etc/vsftpd.conf wird überschrieben. Möchten Sie fortfahren?</translation>
    </message>
    <message>
        <source>The port %1 belongs to the service of the repository %2, which does not run. Do you want to replace it?</source>
        <translation>Der Port %1 gehört zum Dienst des Repositorys %2, der nicht läuft. Möchten Sie ihn ersetzen?</translation>
    </message>
</context>
<context>
    <name>PublicationPanel</name>
    <message>
        <source>Choose a server type</source>
        <translation>Wählen Sie eine Serverart</translation>
    </message>
    <message>
        <source>Complete the IP address</source>
        <translation>Vervollständigen Sie die IP-Adresse</translation>
    </message>
    <message>
        <source>Address is copied to clipboard</source>
        <translation>Die Adresse ist in die Zwischenablage kopiert</translation>
    </message>
    <message>
        <source>Published at %1</source>
        <translation>Veröffentlicht unter %1</translation>
    </message>
    <message>
        <source>To be published at %1: %2</source>
        <translation>Zur Veröffentlichung unter %1 vorgesehen: %2</translation>
    </message>
    <message>
        <source>Not published</source>
        <translation>Nicht veröffentlicht</translation>
    </message>
    <message>
        <source>The local sources list of this machine has a line for it that leads to a port where nothing is published. Publish it there, or choose &quot;Remove src list&quot;.</source>
        <translation>Die lokale Paketquellenliste dieses Rechners enthält dafür eine Zeile, die zu einem Port führt, auf dem nichts veröffentlicht ist. Veröffentlichen Sie es dort oder wählen Sie „Paketquelle austragen“.</translation>
    </message>
    <message>
        <source>Trusted repository</source>
        <translation>Vertrauenswürdiges Repository</translation>
    </message>
    <message>
        <source>Architecture:</source>
        <translation>Architektur:</translation>
    </message>
    <message>
        <source>Server type:</source>
        <translation>Serverart:</translation>
    </message>
    <message>
        <source>IP address:</source>
        <translation>IP-Adresse:</translation>
    </message>
    <message>
        <source>Port number:</source>
        <translation>Portnummer:</translation>
    </message>
    <message>
        <source>Source line</source>
        <translation>Quellzeile</translation>
    </message>
    <message>
        <source>Copy to clipboard</source>
        <translation>In die Zwischenablage kopieren</translation>
    </message>
    <message>
        <source>Publish</source>
        <translation>Veröffentlichen</translation>
    </message>
    <message>
        <source>Unpublish</source>
        <translation>Veröffentlichung beenden</translation>
    </message>
    <message>
        <source>apt uses FTP only when a file in the client&apos;s /etc/apt/apt.conf.d holds this line:
Dir::Bin::Methods::ftp &quot;ftp&quot;;
From Debian 13 on it has no FTP at all.</source>
        <translation>apt verwendet FTP nur, wenn eine Datei in /etc/apt/apt.conf.d auf dem Client diese Zeile enthält:
Dir::Bin::Methods::ftp &quot;ftp&quot;;
Ab Debian 13 kann es gar kein FTP.</translation>
    </message>
</context>
<context>
    <name>PublicationRules</name>
    <message>
        <source>There is no repository</source>
        <translation>Es gibt kein Repository</translation>
    </message>
    <message>
        <source>Choose a server type</source>
        <translation>Wählen Sie eine Serverart</translation>
    </message>
    <message>
        <source>There is no port %1</source>
        <translation>Einen Port %1 gibt es nicht</translation>
    </message>
    <message>
        <source>The path %1 cannot be served. It may consist of letters, digits, blanks inside names and the characters %2.</source>
        <translation>Der Pfad %1 kann nicht veröffentlicht werden. Er darf aus Buchstaben, Ziffern, Leerzeichen innerhalb von Namen und den Zeichen %2 bestehen.</translation>
    </message>
    <message>
        <source>The repository is published already</source>
        <translation>Das Repository ist bereits veröffentlicht</translation>
    </message>
    <message>
        <source>Another repository is published</source>
        <translation>Ein anderes Repository ist veröffentlicht</translation>
    </message>
    <message>
        <source>The repository is published on this port over %1. Unpublish it first.</source>
        <translation>Das Repository ist auf diesem Port über %1 veröffentlicht. Beenden Sie zuerst diese Veröffentlichung.</translation>
    </message>
    <message>
        <source>Another program uses the port %1</source>
        <translation>Ein anderes Programm verwendet den Port %1</translation>
    </message>
    <message>
        <source>What lies below /tmp or /var/tmp cannot be published: services have these folders for themselves. Move the repository to another place.</source>
        <translation>Was unter /tmp oder /var/tmp liegt, kann nicht veröffentlicht werden: Dienste haben dort eigene Ordner. Verschieben Sie das Repository an einen anderen Ort.</translation>
    </message>
</context>
<context>
    <name>PublicationText</name>
    <message>
        <source>Published</source>
        <translation>Veröffentlicht</translation>
    </message>
    <message>
        <source>Being started</source>
        <translation>Wird gestartet</translation>
    </message>
    <message>
        <source>Being stopped</source>
        <translation>Wird angehalten</translation>
    </message>
    <message>
        <source>Not running</source>
        <translation>Läuft nicht</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
</context>
<context>
    <name>PublishCommand</name>
    <message>
        <source>Choose a server type, then publish the repository once more.</source>
        <translation>Wählen Sie eine Serverart und veröffentlichen Sie das Repository dann noch einmal.</translation>
    </message>
    <message>
        <source>The repository is not published!</source>
        <translation>Das Repository wurde nicht veröffentlicht!</translation>
    </message>
    <message>
        <source>Waiting for the system to publish %1</source>
        <translation>Das System veröffentlicht %1</translation>
    </message>
    <message>
        <source>Repository is published.</source>
        <translation>Das Repository wurde veröffentlicht.</translation>
    </message>
    <message>
        <source>The end of the server&apos;s log %1:</source>
        <translation>Das Ende des Serverprotokolls %1:</translation>
    </message>
    <message>
        <source>Repository is unpublished.</source>
        <translation>Die Veröffentlichung des Repositorys wurde beendet.</translation>
    </message>
    <message>
        <source>The repository %1 is busy. Unpublish it when that has ended.</source>
        <translation>Am Repository %1 wird gerade gearbeitet. Beenden Sie die Veröffentlichung, wenn das abgeschlossen ist.</translation>
    </message>
    <message>
        <source>Waiting for the system to unpublish %1</source>
        <translation>Das System beendet die Veröffentlichung von %1</translation>
    </message>
    <message>
        <source>The repository is not unpublished!</source>
        <translation>Die Veröffentlichung des Repositorys wurde nicht beendet!</translation>
    </message>
</context>
<context>
    <name>PublishedReposDialog</name>
    <message>
        <source>Published repositories</source>
        <translation>Veröffentlichte Repositorys</translation>
    </message>
    <message>
        <source>&amp;Log of the server:</source>
        <translation>Protokoll des &amp;Servers:</translation>
    </message>
    <message>
        <source>&amp;Open repository</source>
        <translation>Repository &amp;öffnen</translation>
    </message>
    <message>
        <source>&amp;Copy address</source>
        <translation>Adresse &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Unpublish</source>
        <translation>Veröffentlichung &amp;beenden</translation>
    </message>
    <message>
        <source>No repository is published from this machine.</source>
        <translation>Von diesem Rechner aus ist kein Repository veröffentlicht.</translation>
    </message>
    <message>
        <source>Asking the system what is published...</source>
        <translation>Das System wird gefragt, was veröffentlicht ist...</translation>
    </message>
    <message>
        <source>The log %1 is empty or cannot be read.</source>
        <translation>Das Protokoll %1 ist leer oder kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The FTP server keeps no log of its own for the repository.</source>
        <translation>Der FTP-Server führt kein eigenes Protokoll für das Repository.</translation>
    </message>
    <message>
        <source>Unpublish confirmation</source>
        <translation>Ende der Veröffentlichung bestätigen</translation>
    </message>
    <message>
        <source>Do you want to unpublish the repository %1?</source>
        <translation>Möchten Sie die Veröffentlichung des Repositorys %1 beenden?</translation>
    </message>
    <message>
        <source>Clients that use it get errors until it is published again.</source>
        <translation>Clients, die es verwenden, erhalten Fehler, bis es wieder veröffentlicht wird.</translation>
    </message>
</context>
<context>
    <name>PublishedReposModel</name>
    <message>
        <source>Repository</source>
        <translation>Repository</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
</context>
<context>
    <name>RegularFile</name>
    <message>
        <source>%1 is no regular file.</source>
        <translation>%1 ist keine gewöhnliche Datei.</translation>
    </message>
</context>
<context>
    <name>RemovalQuestion</name>
    <message>
        <source>Looking for packages that could no longer be installed...</source>
        <translation>Suche nach Paketen, die nicht mehr installierbar wären...</translation>
    </message>
    <message>
        <source>Whether other packages need them could not be found out in time.</source>
        <translation>Ob andere Pakete sie benötigen, ließ sich nicht rechtzeitig ermitteln.</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) could no longer be installed without this: %1</source>
        <translation>
            <numerusform>%n Paket wäre ohne dies nicht mehr installierbar: %1</numerusform>
            <numerusform>%n Pakete wären ohne dies nicht mehr installierbar: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) of the repository %1 could no longer be installed without this: %2</source>
        <translation>
            <numerusform>%n Paket des Repositorys %1 wäre ohne dies nicht mehr installierbar: %2</numerusform>
            <numerusform>%n Pakete des Repositorys %1 wären ohne dies nicht mehr installierbar: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>All other packages stay as they are.</source>
        <translation>Alle anderen Pakete bleiben, wie sie sind.</translation>
    </message>
    <message>
        <source>Preview...</source>
        <translation>Vorschau...</translation>
    </message>
</context>
<context>
    <name>RepoItemLook</name>
    <message numerus="yes">
        <source>%n package(s) cannot be installed.</source>
        <translation>
            <numerusform>%n Paket ist nicht installierbar.</numerusform>
            <numerusform>%n Pakete sind nicht installierbar.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) undecided: the search took too long.</source>
        <translation>
            <numerusform>%n Paket unentschieden: Die Suche dauerte zu lange.</numerusform>
            <numerusform>%n Pakete unentschieden: Die Suche dauerte zu lange.</numerusform>
        </translation>
    </message>
    <message>
        <source>Cannot be installed.</source>
        <translation>Nicht installierbar.</translation>
    </message>
    <message>
        <source>Can be installed.</source>
        <translation>Installierbar.</translation>
    </message>
    <message>
        <source>Undecided: the search took too long.</source>
        <translation>Unentschieden: Die Suche dauerte zu lange.</translation>
    </message>
    <message>
        <source>Breaks other packages.</source>
        <translation>Stört andere Pakete.</translation>
    </message>
    <message>
        <source>Packages have changed since the check.</source>
        <translation>Seit der Prüfung haben sich Pakete geändert.</translation>
    </message>
</context>
<context>
    <name>RepoModel</name>
    <message>
        <source>Architecture: %1</source>
        <translation>Architektur: %1</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>RepoShell</name>
    <message>
        <source>The database of the repository is missing. Any change would make a new one and take all packages out of the indices, so nothing was done.</source>
        <translation>Die Datenbank des Repositorys fehlt. Jede Änderung würde eine neue anlegen und alle Pakete aus den Indexdateien nehmen, deshalb wurde nichts getan.</translation>
    </message>
    <message>
        <source>The program reprepro could not be started. Is it installed?</source>
        <translation>Das Programm reprepro konnte nicht gestartet werden. Ist es installiert?</translation>
    </message>
    <message>
        <source>The process reprepro crashed!</source>
        <translation>Der Prozess reprepro ist abgestürzt!</translation>
    </message>
    <message>
        <source>The repository %1 is being changed by another program. Try again when it is done.</source>
        <translation>Das Repository %1 wird gerade von einem anderen Programm geändert. Versuchen Sie es erneut, wenn es fertig ist.</translation>
    </message>
    <message>
        <source>Repository is locked</source>
        <translation>Das Repository ist gesperrt</translation>
    </message>
    <message>
        <source>The database of the repository %1 is locked, but no program uses it: an earlier run was interrupted. Do you want to remove the lock and try again?</source>
        <translation>Die Datenbank des Repositorys %1 ist gesperrt, aber kein Programm verwendet sie: Ein früherer Lauf wurde unterbrochen. Möchten Sie die Sperre entfernen und es erneut versuchen?</translation>
    </message>
    <message>
        <source>Exporting repository</source>
        <translation>Repository wird exportiert</translation>
    </message>
    <message>
        <source>Repository is not exported</source>
        <translation>Das Repository wurde nicht exportiert</translation>
    </message>
    <message>
        <source>Can&apos;t open repository dir</source>
        <translation>Das Verzeichnis des Repositorys kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Operation stopped. Repository not exported.</source>
        <translation>Vorgang angehalten. Das Repository wurde nicht exportiert.</translation>
    </message>
    <message>
        <source>Repository exported.</source>
        <translation>Das Repository wurde exportiert.</translation>
    </message>
    <message>
        <source>Exporting package</source>
        <translation>Paket wird exportiert</translation>
    </message>
    <message>
        <source>Exporting packages</source>
        <translation>Pakete werden exportiert</translation>
    </message>
    <message>
        <source>The file of the package %1 is not known.</source>
        <translation>Die Datei des Pakets %1 ist nicht bekannt.</translation>
    </message>
    <message>
        <source>Operation stopped. Package not exported.</source>
        <translation>Vorgang angehalten. Das Paket wurde nicht exportiert.</translation>
    </message>
    <message>
        <source>Operation stopped. Packages not exported.</source>
        <translation>Vorgang angehalten. Die Pakete wurden nicht exportiert.</translation>
    </message>
    <message>
        <source>Export finished</source>
        <translation>Export beendet</translation>
    </message>
    <message>
        <source>Can&apos;t create archive for export</source>
        <translation>Das Archiv für den Export kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>%1 lies in the repository itself. Choose a place outside of it.</source>
        <translation>%1 liegt im Repository selbst. Wählen Sie einen Ort außerhalb.</translation>
    </message>
    <message>
        <source>Start repo import</source>
        <translation>Repository-Import beginnt</translation>
    </message>
    <message>
        <source>Import error!</source>
        <translation>Fehler beim Import!</translation>
    </message>
    <message>
        <source>Package(s) not imported</source>
        <translation>Pakete nicht importiert</translation>
    </message>
    <message>
        <source>Import failed: there are no packages by selected path</source>
        <translation>Import fehlgeschlagen: Unter dem gewählten Pfad gibt es keine Pakete</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) had been imported before the stop.</source>
        <translation>
            <numerusform>%n Paket war vor dem Anhalten schon importiert.</numerusform>
            <numerusform>%n Pakete waren vor dem Anhalten schon importiert.</numerusform>
        </translation>
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
        <translation>Das Archiv kann nicht für den Import geöffnet werden!</translation>
    </message>
    <message>
        <source>No temporary folder could be made to unpack it in.</source>
        <translation>Es konnte kein temporärer Ordner zum Entpacken angelegt werden.</translation>
    </message>
    <message>
        <source>Checking depends</source>
        <translation>Abhängigkeiten werden geprüft</translation>
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
        <translation>Abhängigkeiten geprüft</translation>
    </message>
    <message>
        <source>The stored results of the dependency checks could not be read. The file is kept as %1; check the dependencies again.</source>
        <translation>Die gespeicherten Ergebnisse der Abhängigkeitsprüfungen konnten nicht gelesen werden. Die Datei bleibt als %1 erhalten; prüfen Sie die Abhängigkeiten erneut.</translation>
    </message>
    <message>
        <source>Downloading package</source>
        <translation>Paket wird heruntergeladen</translation>
    </message>
    <message>
        <source>Downloading packages</source>
        <translation>Pakete werden heruntergeladen</translation>
    </message>
    <message>
        <source>No source offers: %1</source>
        <translation>Keine Paketquelle bietet an: %1</translation>
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
        <translation>Es konnte kein temporärer Ordner zum Abrufen angelegt werden.</translation>
    </message>
    <message>
        <source>apt has left no file of that version.</source>
        <translation>apt hat keine Datei dieser Version hinterlassen.</translation>
    </message>
    <message>
        <source>Impossible to delete directory %1!</source>
        <translation>Das Verzeichnis %1 kann nicht gelöscht werden!</translation>
    </message>
    <message>
        <source>Impossible to create directory %1!</source>
        <translation>Das Verzeichnis %1 kann nicht angelegt werden!</translation>
    </message>
    <message>
        <source>It is a directory of the system, or holds a home directory or an open repository.</source>
        <translation>Es ist ein Verzeichnis des Systems oder enthält ein Home-Verzeichnis oder ein geöffnetes Repository.</translation>
    </message>
    <message>
        <source>Failed to create repository!</source>
        <translation>Das Repository konnte nicht angelegt werden!</translation>
    </message>
    <message>
        <source>Impossible to create file %1!</source>
        <translation>Die Datei %1 kann nicht angelegt werden!</translation>
    </message>
    <message>
        <source>Opening repository</source>
        <translation>Repository wird geöffnet</translation>
    </message>
    <message>
        <source>File %1/conf/distributions not found! Do you want to import repository?</source>
        <translation>Die Datei %1/conf/distributions wurde nicht gefunden! Möchten Sie das Repository importieren?</translation>
    </message>
    <message>
        <source>File %1/conf/distributions not found!</source>
        <translation>Die Datei %1/conf/distributions wurde nicht gefunden!</translation>
    </message>
    <message>
        <source>File %1/conf/distributions names no distribution: its field Codename is missing or empty.</source>
        <translation>Die Datei %1/conf/distributions nennt keine Distribution: Ihr Feld Codename fehlt oder ist leer.</translation>
    </message>
    <message>
        <source>Repositry is not opened</source>
        <translation>Das Repository ist nicht geöffnet</translation>
    </message>
    <message>
        <source>Repositry is opened</source>
        <translation>Das Repository ist geöffnet</translation>
    </message>
    <message>
        <source>An earlier job was interrupted, and the indices of the repository could not be brought up to date. The packages shown may not be all that it holds.</source>
        <translation>Ein früherer Vorgang wurde unterbrochen, und die Indexdateien des Repositorys konnten nicht auf den neuesten Stand gebracht werden. Möglicherweise werden nicht alle enthaltenen Pakete angezeigt.</translation>
    </message>
    <message>
        <source>An earlier job was interrupted while it replaced a package. The replaced files are kept in %1; add them again if they are missing.</source>
        <translation>Ein früherer Vorgang wurde unterbrochen, während er ein Paket ersetzte. Die ersetzten Dateien werden in %1 aufbewahrt; fügen Sie sie wieder hinzu, falls sie fehlen.</translation>
    </message>
    <message>
        <source>Repository changing</source>
        <translation>Repository wird geändert</translation>
    </message>
    <message>
        <source>Repository not changed</source>
        <translation>Das Repository wurde nicht geändert</translation>
    </message>
    <message>
        <source>Repository is changed.</source>
        <translation>Das Repository wurde geändert.</translation>
    </message>
    <message>
        <source>Failed to change repository!</source>
        <translation>Das Repository konnte nicht geändert werden!</translation>
    </message>
    <message>
        <source>Repository is not changed.</source>
        <translation>Das Repository wurde nicht geändert.</translation>
    </message>
    <message>
        <source>The repository holds several distributions. A change would delete all but the first, so nothing was done.</source>
        <translation>Das Repository enthält mehrere Distributionen. Eine Änderung würde alle bis auf die erste löschen, deshalb wurde nichts getan.</translation>
    </message>
    <message>
        <source>It is the repository itself, lies in it or holds it, or it is a directory of the system, or holds a home directory or an open repository.</source>
        <translation>Es ist das Repository selbst, liegt darin oder enthält es, oder es ist ein Verzeichnis des Systems oder enthält ein Home-Verzeichnis oder ein geöffnetes Repository.</translation>
    </message>
    <message>
        <source>The repository could not be moved to %1.</source>
        <translation>Das Repository konnte nicht nach %1 verschoben werden.</translation>
    </message>
    <message>
        <source>Failed to sign repository!</source>
        <translation>Das Repository konnte nicht signiert werden!</translation>
    </message>
    <message>
        <source>Not added: %1. The repository holds version %2 (%3) already, which was kept.</source>
        <translation>Nicht hinzugefügt: %1. Das Repository enthält bereits die Version %2 (%3), sie wurde behalten.</translation>
    </message>
    <message>
        <source>Not added: %1. The repository holds the newer version %2 (%3), which was kept.</source>
        <translation>Nicht hinzugefügt: %1. Das Repository enthält die neuere Version %2 (%3), sie wurde behalten.</translation>
    </message>
    <message>
        <source>Not added: %1. The repository holds the older version %2 (%3), which was kept.</source>
        <translation>Nicht hinzugefügt: %1. Das Repository enthält die ältere Version %2 (%3), sie wurde behalten.</translation>
    </message>
    <message>
        <source>The indices of the repository could not be written. They will be written when the repository is opened the next time.</source>
        <translation>Die Indexdateien des Repositorys konnten nicht geschrieben werden. Sie werden geschrieben, wenn das Repository das nächste Mal geöffnet wird.</translation>
    </message>
    <message>
        <source>Adding package</source>
        <translation>Paket wird hinzugefügt</translation>
    </message>
    <message>
        <source>Adding packages</source>
        <translation>Pakete werden hinzugefügt</translation>
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
        <translation>Fehler beim Hinzufügen des Pakets!</translation>
    </message>
    <message>
        <source>Package is unsigned</source>
        <translation>Das Paket ist nicht signiert</translation>
    </message>
    <message>
        <source>Package is added, but unsigned. Do you want to remove it?</source>
        <translation>Das Paket wurde hinzugefügt, ist aber nicht signiert. Möchten Sie es entfernen?</translation>
    </message>
    <message>
        <source>Not added: %1. The repository could not be signed with it.</source>
        <translation>Nicht hinzugefügt: %1. Das Repository konnte damit nicht signiert werden.</translation>
    </message>
    <message>
        <source>Added, but the repository could not be signed: %1.</source>
        <translation>Hinzugefügt, aber das Repository konnte nicht signiert werden: %1.</translation>
    </message>
    <message>
        <source>Error adding package %1!</source>
        <translation>Fehler beim Hinzufügen des Pakets %1!</translation>
    </message>
    <message>
        <source>Cannot added package %1 with architecture all!</source>
        <translation>Das Paket %1 mit der Architektur all kann nicht hinzugefügt werden!</translation>
    </message>
    <message>
        <source>The present package could not be kept aside, so it was not replaced: %1</source>
        <translation>Das vorhandene Paket konnte nicht beiseitegelegt werden, deshalb wurde es nicht ersetzt: %1</translation>
    </message>
    <message>
        <source>The present package could not be removed, so it was not replaced.</source>
        <translation>Das vorhandene Paket konnte nicht entfernt werden, deshalb wurde es nicht ersetzt.</translation>
    </message>
    <message>
        <source>The replaced package %1 could not be put back: its file was missing already.</source>
        <translation>Das ersetzte Paket %1 konnte nicht zurückgelegt werden: Seine Datei fehlte bereits.</translation>
    </message>
    <message>
        <source>Removing package</source>
        <translation>Paket wird entfernt</translation>
    </message>
    <message>
        <source>Removing packages</source>
        <translation>Pakete werden entfernt</translation>
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
        <translation>Fehler beim Entfernen des Pakets %1!</translation>
    </message>
    <message>
        <source>Package signing</source>
        <translation>Paket wird signiert</translation>
    </message>
    <message>
        <source>Packages signing</source>
        <translation>Pakete werden signiert</translation>
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
        <translation>Das Paket %1 konnte nicht signiert werden!</translation>
    </message>
    <message>
        <source>No temporary folder could be made to sign it in.</source>
        <translation>Es konnte kein temporärer Ordner zum Signieren angelegt werden.</translation>
    </message>
    <message>
        <source>The record of the signed packages could not be written.</source>
        <translation>Die Liste der signierten Pakete konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The file that has come is of another package: %1 %2 (%3).</source>
        <translation>Die erhaltene Datei gehört zu einem anderen Paket: %1 %2 (%3).</translation>
    </message>
    <message>
        <source>Downloading information</source>
        <translation>Angaben werden heruntergeladen</translation>
    </message>
    <message>
        <source>Information is not downloaded</source>
        <translation>Die Angaben wurden nicht heruntergeladen</translation>
    </message>
    <message>
        <source>Canceled by user</source>
        <translation>Vom Benutzer abgebrochen</translation>
    </message>
    <message>
        <source>No packages for upgrading</source>
        <translation>Keine Pakete zu aktualisieren</translation>
    </message>
    <message>
        <source>Nothing to upgrade</source>
        <translation>Nichts zu aktualisieren</translation>
    </message>
    <message>
        <source>Ready for upgrade</source>
        <translation>Bereit zur Aktualisierung</translation>
    </message>
    <message>
        <source>Upgrading repo</source>
        <translation>Repository wird aktualisiert</translation>
    </message>
    <message>
        <source>Repo is not upgraded</source>
        <translation>Das Repository wurde nicht aktualisiert</translation>
    </message>
    <message>
        <source>Unable to create cache folder</source>
        <translation>Der Cache-Ordner kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>Repo upgraded</source>
        <translation>Das Repository wurde aktualisiert</translation>
    </message>
    <message>
        <source>The chosen sources offer no packages for this repository.</source>
        <translation>Die gewählten Paketquellen bieten keine Pakete für dieses Repository an.</translation>
    </message>
    <message>
        <source>Not upgraded: %1 (%2) is in the repository no longer.</source>
        <translation>Nicht aktualisiert: %1 (%2) ist nicht mehr im Repository.</translation>
    </message>
    <message>
        <source>Are you sure?</source>
        <translation>Sind Sie sicher?</translation>
    </message>
    <message>
        <source>Not upgraded: no source offers %1 %2 any more.</source>
        <translation>Nicht aktualisiert: Keine Paketquelle bietet %1 %2 noch an.</translation>
    </message>
    <message>
        <source>The database of the repository could not be copied, so nothing was changed. Is there room on the disk?</source>
        <translation>Die Datenbank des Repositorys konnte nicht kopiert werden, deshalb wurde nichts geändert. Ist auf dem Datenträger noch Platz?</translation>
    </message>
    <message>
        <source>The database of the repository is damaged and could not be put back. Make room on the disk, and open the repository again.</source>
        <translation>Die Datenbank des Repositorys ist beschädigt und konnte nicht wiederhergestellt werden. Schaffen Sie Platz auf dem Datenträger und öffnen Sie das Repository erneut.</translation>
    </message>
    <message>
        <source>The database of the repository was damaged while a job changed it. It was put back as it was before, and what the job had done is undone. Make room on the disk, and do it again.</source>
        <translation>Die Datenbank des Repositorys wurde beschädigt, während ein Vorgang sie änderte. Ihr früherer Stand wurde wiederhergestellt, und was der Vorgang getan hatte, ist rückgängig gemacht. Schaffen Sie Platz auf dem Datenträger und wiederholen Sie den Vorgang.</translation>
    </message>
    <message>
        <source>Failed to create file with selected sources</source>
        <translation>Die Datei mit den ausgewählten Paketquellen konnte nicht erstellt werden</translation>
    </message>
    <message>
        <source>Create source.list file error</source>
        <translation>Fehler beim Erstellen der Datei source.list</translation>
    </message>
    <message>
        <source>Recovering repository after an interrupted job</source>
        <translation>Repository wird nach einem unterbrochenen Vorgang wiederhergestellt</translation>
    </message>
    <message>
        <source>An earlier change of the repository was interrupted and has been undone. Do it again if it is still wanted.</source>
        <translation>Eine frühere Änderung des Repositorys wurde unterbrochen und ist rückgängig gemacht. Wiederholen Sie sie, falls sie noch gewünscht ist.</translation>
    </message>
    <message>
        <source>The database of the repository %1 stays locked, so nothing more was done.</source>
        <translation>Die Datenbank des Repositorys %1 bleibt gesperrt, deshalb wurde nichts weiter getan.</translation>
    </message>
    <message>
        <source>The package is for the architecture %1, and the repository has these: %2.</source>
        <translation>Das Paket ist für die Architektur %1, und das Repository hat diese: %2.</translation>
    </message>
    <message>
        <source>The description of the repository has been changed by another program meanwhile, so nothing was done. Look at it and try again.</source>
        <translation>Die Beschreibung des Repositorys wurde inzwischen von einem anderen Programm geändert, deshalb wurde nichts getan. Sehen Sie sie sich an und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>The description of the repository is written in a way that this program does not read fully. A change could delete packages, so nothing was done.</source>
        <translation>Die Beschreibung des Repositorys ist so geschrieben, dass dieses Programm sie nicht vollständig liest. Eine Änderung könnte Pakete löschen, deshalb wurde nichts getan.</translation>
    </message>
    <message>
        <source>It holds these repositories: %1</source>
        <translation>Es enthält diese Repositorys: %1</translation>
    </message>
    <message>
        <source>The change writes the description of the repository anew, without these lines:

%1

The file with them is kept as %2.</source>
        <translation>Die Änderung schreibt die Beschreibung des Repositorys neu, ohne diese Zeilen:

%1

Die Datei mit ihnen wird als %2 aufbewahrt.</translation>
    </message>
    <message>
        <source>The repository will be signed with the default key instead.</source>
        <translation>Das Repository wird stattdessen mit dem Standardschlüssel signiert.</translation>
    </message>
    <message>
        <source>The repository will no longer be signed, so that clients may refuse it.</source>
        <translation>Das Repository wird nicht mehr signiert sein, sodass Clients es ablehnen können.</translation>
    </message>
    <message>
        <source>Repository change</source>
        <translation>Repository ändern</translation>
    </message>
    <message>
        <source>Want to continue?</source>
        <translation>Möchten Sie fortfahren?</translation>
    </message>
    <message>
        <source>The repository holds packages in places that its description does not name: %1. The change would delete them.</source>
        <translation>Das Repository enthält Pakete an Stellen, die seine Beschreibung nicht nennt: %1. Die Änderung würde sie löschen.</translation>
    </message>
    <message numerus="yes">
        <source>%n link(s) of the repository lead to places outside of it and were left out. Such a link is followed only when it belongs to you or to root, and what it leads to has the same owner.</source>
        <translation>
            <numerusform>%n Verknüpfung des Repositorys führt an einen Ort außerhalb von ihm und wurde ausgelassen. Einer solchen Verknüpfung wird nur gefolgt, wenn sie Ihnen oder root gehört und ihr Ziel denselben Eigentümer hat.</numerusform>
            <numerusform>%n Verknüpfungen des Repositorys führen an Orte außerhalb von ihm und wurden ausgelassen. Einer solchen Verknüpfung wird nur gefolgt, wenn sie Ihnen oder root gehört und ihr Ziel denselben Eigentümer hat.</numerusform>
        </translation>
    </message>
    <message>
        <source>Left out, since it leads out of the repository: %1</source>
        <translation>Ausgelassen, weil es aus dem Repository hinausführt: %1</translation>
    </message>
    <message>
        <source>The archive %1 has %2, and its packages need more than %3. It may be damaged, or have been made to fill the disk. Do you want to go on with it?</source>
        <translation>Das Archiv %1 ist %2 groß, und seine Pakete brauchen mehr als %3. Vielleicht ist es beschädigt oder soll den Datenträger füllen. Möchten Sie damit fortfahren?</translation>
    </message>
    <message>
        <source>Nothing was done.</source>
        <translation>Es wurde nichts getan.</translation>
    </message>
    <message>
        <source>The directory %1 does not exist any more. Its disk may be absent.</source>
        <translation>Das Verzeichnis %1 gibt es nicht mehr. Vielleicht fehlt sein Datenträger.</translation>
    </message>
    <message>
        <source>Another program has changed the repository since it was read, which may be the reason. Reload it with F5, and try once more.</source>
        <translation>Ein anderes Programm hat das Repository geändert, seit es gelesen wurde; das kann der Grund sein. Laden Sie es mit F5 neu und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>A job on the repository %1 was interrupted. It belongs to another user. Do you want to bring it in order now?</source>
        <translation>Ein Vorgang am Repository %1 wurde unterbrochen. Es gehört einem anderen Benutzer. Möchten Sie es jetzt in Ordnung bringen?</translation>
    </message>
    <message>
        <source>No copy of the description can be kept in %1.</source>
        <translation>In %1 kann keine Kopie der Beschreibung aufbewahrt werden.</translation>
    </message>
    <message>
        <source>Reading repository again</source>
        <translation>Repository wird erneut gelesen</translation>
    </message>
    <message>
        <source>Its description or its indices are missing.</source>
        <translation>Seine Beschreibung oder seine Indexdateien fehlen.</translation>
    </message>
    <message>
        <source>The repository %1 cannot be read.</source>
        <translation>Das Repository %1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Repository is not read again</source>
        <translation>Das Repository wurde nicht erneut gelesen</translation>
    </message>
    <message>
        <source>Repository is unchanged</source>
        <translation>Das Repository ist unverändert</translation>
    </message>
    <message>
        <source>The repository %1 cannot be opened.</source>
        <translation>Das Repository %1 kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>You have not agreed to what the settings of the repository %1 would run or change.</source>
        <translation>Sie haben dem nicht zugestimmt, was die Einstellungen des Repositorys %1 ausführen oder ändern würden.</translation>
    </message>
    <message>
        <source>Programs of the repository</source>
        <translation>Programme des Repositorys</translation>
    </message>
    <message numerus="yes">
        <source>... and %n more</source>
        <translation>
            <numerusform>... und %n weiteres</numerusform>
            <numerusform>... und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>The settings of the repository %1 name programs, which would be run with your rights, or lead out of its folder:

%2

</source>
        <translation>Die Einstellungen des Repositorys %1 nennen Programme, die mit Ihren Rechten ausgeführt würden, oder führen aus seinem Ordner hinaus:

%2

</translation>
    </message>
    <message>
        <source>Other users can change this repository.</source>
        <translation>Andere Benutzer können dieses Repository ändern.</translation>
    </message>
    <message>
        <source>Do you trust these settings?</source>
        <translation>Vertrauen Sie diesen Einstellungen?</translation>
    </message>
    <message>
        <source>The folder %1 cannot be read.</source>
        <translation>Der Ordner %1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>%1 is a link to %2</source>
        <translation>%1 ist eine Verknüpfung mit %2</translation>
    </message>
    <message>
        <source>Other users can change the repository %1, and %2.</source>
        <translation>Andere Benutzer können das Repository %1 ändern, und %2.</translation>
    </message>
    <message>
        <source>its settings could not be copied</source>
        <translation>seine Einstellungen konnten nicht kopiert werden</translation>
    </message>
    <message>
        <source>%1 is no file that can be read</source>
        <translation>%1 ist keine lesbare Datei</translation>
    </message>
    <message>
        <source>%1 cannot be read, and may name any program</source>
        <translation>%1 kann nicht gelesen werden und nennt vielleicht beliebige Programme</translation>
    </message>
    <message>
        <source>What packages in this archive depend on and no package in it is or provides, with the packages that need it:</source>
        <translation>Wovon Pakete in diesem Archiv abhängen und was kein Paket darin ist oder bereitstellt, mit den Paketen, die es brauchen:</translation>
    </message>
    <message numerus="yes">
        <source>%n dependency(ies) of the exported packages are not in the archive %1. The file %2 in it lists them all.</source>
        <translation>
            <numerusform>%n Abhängigkeit der exportierten Pakete fehlt im Archiv %1. Die Datei %2 darin nennt sie.</numerusform>
            <numerusform>%n Abhängigkeiten der exportierten Pakete fehlen im Archiv %1. Die Datei %2 darin nennt sie alle.</numerusform>
        </translation>
    </message>
    <message>
        <source>No temporary folder could be made for the settings of reprepro.</source>
        <translation>Es konnte kein temporärer Ordner für die Einstellungen von reprepro angelegt werden.</translation>
    </message>
    <message>
        <source>There is too little room on the disk of the repository for a copy of its database, so nothing was changed. At least %1 must be free, and %2 are.</source>
        <translation>Auf dem Datenträger des Repositorys ist zu wenig Platz für eine Kopie seiner Datenbank, daher wurde nichts geändert. Mindestens %1 müssen frei sein, und %2 sind es.</translation>
    </message>
    <message>
        <source>Packages can be removed all the same.</source>
        <translation>Pakete können trotzdem entfernt werden.</translation>
    </message>
    <message>
        <source>No packages are to be read in %1. It holds none, is damaged, or has a link to a file that it lacks.</source>
        <translation>In %1 sind keine Pakete zu lesen. Das Archiv enthält keine, ist beschädigt oder hat eine Verknüpfung auf eine Datei, die ihm fehlt.</translation>
    </message>
    <message>
        <source>Not added: %1. The archive has only a link or a folder of this name, and no file.</source>
        <translation>Nicht hinzugefügt: %1. Das Archiv enthält unter diesem Namen nur eine Verknüpfung oder einen Ordner, keine Datei.</translation>
    </message>
    <message>
        <source>%1: %2 free</source>
        <translation>%1: %2 frei</translation>
    </message>
    <message>
        <source>There is too little room to unpack it: its packages need %1, and a part of what is free has to stay so.</source>
        <translation>Zum Entpacken ist zu wenig Platz: Die Pakete brauchen %1, und ein Teil des freien Platzes muss frei bleiben.</translation>
    </message>
    <message>
        <source>Disk is full</source>
        <translation>Der Datenträger ist voll</translation>
    </message>
    <message>
        <source>There is too little room on the disk of the repository for a copy of its database, which is kept as long as a job changes it, and there is none on another disk. The copy can be kept in memory: the repository may be damaged if the power fails or the system is shut down before the job ends. Do you want to go on?</source>
        <translation>Auf dem Datenträger des Repositorys ist zu wenig Platz für eine Kopie seiner Datenbank, die aufbewahrt wird, solange ein Vorgang sie ändert, und auf einem anderen ist auch keiner. Die Kopie kann im Arbeitsspeicher liegen: Fällt der Strom aus oder wird das System heruntergefahren, bevor der Vorgang endet, kann das Repository beschädigt werden. Möchten Sie fortfahren?</translation>
    </message>
    <message>
        <source>The indices of the repository %1 are not up to date. It belongs to another user. Do you want to write them now?</source>
        <translation>Die Indexdateien des Repositorys %1 sind nicht aktuell. Es gehört einem anderen Benutzer. Möchten Sie sie jetzt schreiben?</translation>
    </message>
    <message>
        <source>The indices of the repository could not be brought up to date. The packages shown may not be all that it holds.</source>
        <translation>Die Indexdateien des Repositorys konnten nicht aktualisiert werden. Möglicherweise enthält es mehr Pakete, als angezeigt werden.</translation>
    </message>
    <message>
        <source>An earlier job was interrupted. Its copy of the database lay on another disk, and is not there or belongs to another user. Look whether all packages are there.</source>
        <translation>Ein früherer Vorgang wurde unterbrochen. Seine Kopie der Datenbank lag auf einem anderen Datenträger und ist nicht da oder gehört einem anderen Benutzer. Sehen Sie nach, ob alle Pakete da sind.</translation>
    </message>
    <message>
        <source>Writing the indices of the repository</source>
        <translation>Indexdateien des Repositorys werden geschrieben</translation>
    </message>
    <message>
        <source>Choose another component when you add the package, or change the repository.</source>
        <translation>Wählen Sie beim Hinzufügen eine andere Komponente, oder ändern Sie das Repository.</translation>
    </message>
    <message>
        <source>The package is for the component %1, and the repository has these: %2.</source>
        <translation>Das Paket ist für die Komponente %1, und das Repository hat diese: %2.</translation>
    </message>
    <message>
        <source>The component %1 of the repository takes no packages for the installer (.udeb).</source>
        <translation>Die Komponente %1 des Repositorys nimmt keine Pakete für den Installer (.udeb) auf.</translation>
    </message>
    <message>
        <source>The packages were carried over to the code name %1.</source>
        <translation>Die Pakete wurden auf den Codenamen %1 übertragen.</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) deleted: %1</source>
        <translation>
            <numerusform>%n Paket gelöscht: %1</numerusform>
            <numerusform>%n Pakete gelöscht: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) did not arrive under the new code name.</source>
        <translation>
            <numerusform>%n Paket ist nicht unter dem neuen Codenamen angekommen.</numerusform>
            <numerusform>%n Pakete sind nicht unter dem neuen Codenamen angekommen.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) added</source>
        <translation>
            <numerusform>%n Paket hinzugefügt</numerusform>
            <numerusform>%n Pakete hinzugefügt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) replaced</source>
        <translation>
            <numerusform>%n Paket ersetzt</numerusform>
            <numerusform>%n Pakete ersetzt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) removed</source>
        <translation>
            <numerusform>%n Paket entfernt</numerusform>
            <numerusform>%n Pakete entfernt</numerusform>
        </translation>
    </message>
    <message>
        <source>Another program has changed the repository: %1</source>
        <translation>Ein anderes Programm hat das Repository geändert: %1</translation>
    </message>
    <message>
        <source>The copy differs from the original.</source>
        <translation>Die Kopie weicht vom Original ab.</translation>
    </message>
    <message>
        <source>Do you want to give the copy up?</source>
        <translation>Möchten Sie die Kopie aufgeben?</translation>
    </message>
    <message>
        <source>%1 is the root of a disk. Choose a folder in it.</source>
        <translation>%1 ist die Wurzel eines Datenträgers. Wählen Sie einen Ordner darin.</translation>
    </message>
    <message>
        <source>The link %1 leads out of the repository by a relative path, and would lead elsewhere from the new place. Make it absolute first.</source>
        <translation>Die Verknüpfung %1 führt über einen relativen Pfad aus dem Repository hinaus und würde vom neuen Ort aus woandershin führen. Machen Sie sie zuerst absolut.</translation>
    </message>
    <message>
        <source>%1 was not removed: the repository holds another version by now.</source>
        <translation>%1 wurde nicht entfernt: Das Repository enthält inzwischen eine andere Version.</translation>
    </message>
    <message>
        <source>The packages of the repository %1 could not be read.</source>
        <translation>Die Pakete des Repositorys %1 konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Complete check</source>
        <translation>Vollständige Prüfung</translation>
    </message>
    <message>
        <source>Complete check: nothing was checked</source>
        <translation>Vollständige Prüfung: Nichts wurde geprüft</translation>
    </message>
    <message numerus="yes">
        <source>%n installer package(s) need what the repository does not hold, and apt fetches no lists of installer packages: whether they can be installed is not known.</source>
        <translation>
            <numerusform>%n Installer-Paket braucht, was das Repository nicht enthält, und apt holt keine Listen von Installer-Paketen: Ob es installierbar ist, ist nicht bekannt.</numerusform>
            <numerusform>%n Installer-Pakete brauchen, was das Repository nicht enthält, und apt holt keine Listen von Installer-Paketen: Ob sie installierbar sind, ist nicht bekannt.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) checked completely</source>
        <translation>
            <numerusform>Vorgang angehalten. %1 von %n Paket vollständig geprüft</numerusform>
            <numerusform>Vorgang angehalten. %1 von %n Paketen vollständig geprüft</numerusform>
        </translation>
    </message>
    <message>
        <source>Complete check done. Installable: %1, not installable: %2, undecided: %3</source>
        <translation>Vollständige Prüfung beendet. Installierbar: %1, nicht installierbar: %2, unentschieden: %3</translation>
    </message>
    <message>
        <source>The stored results of the complete checks could not be read. The file is kept as %1; check completely again.</source>
        <translation>Die gespeicherten Ergebnisse der vollständigen Prüfungen konnten nicht gelesen werden. Die Datei bleibt als %1 erhalten; prüfen Sie erneut vollständig.</translation>
    </message>
    <message>
        <source>A repository takes only names of small letters, digits and the characters + - . This name has others: %1</source>
        <translation>Ein Repository nimmt nur Namen aus Kleinbuchstaben, Ziffern und den Zeichen + - . an. Dieser Name enthält andere: %1</translation>
    </message>
    <message>
        <source>Its version is no valid one: %1</source>
        <translation>Seine Version ist nicht gültig: %1</translation>
    </message>
    <message>
        <source>There is too little room on the disk of the repository for a restore point, so that this change could not be undone later. The copy of the database that every change needs would lie on another disk meanwhile. Do you want to go on without a restore point?</source>
        <translation>Auf dem Datenträger des Repositorys ist zu wenig Platz für einen Wiederherstellungspunkt, sodass sich diese Änderung später nicht rückgängig machen ließe. Die Kopie der Datenbank, die jede Änderung braucht, läge solange auf einem anderen Datenträger. Möchten Sie ohne Wiederherstellungspunkt fortfahren?</translation>
    </message>
    <message>
        <source>The replaced package %1 could not be put back.</source>
        <translation>Das ersetzte Paket %1 konnte nicht zurückgestellt werden.</translation>
    </message>
    <message>
        <source>There was too little room on the disk.</source>
        <translation>Auf dem Datenträger war zu wenig Platz.</translation>
    </message>
    <message>
        <source>The repository had no database yet.</source>
        <translation>Das Repository hatte noch keine Datenbank.</translation>
    </message>
    <message>
        <source>The history was switched off.</source>
        <translation>Der Verlauf war ausgeschaltet.</translation>
    </message>
    <message>
        <source>The files of the pool could not be kept as hard links.</source>
        <translation>Die Dateien des Pools konnten nicht als Hardlinks aufbewahrt werden.</translation>
    </message>
    <message>
        <source>Bringing back package</source>
        <translation>Zurückholen des Pakets</translation>
    </message>
    <message>
        <source>%1 was not brought back</source>
        <translation>%1 wurde nicht zurückgeholt</translation>
    </message>
    <message>
        <source>The file %1 is missing in the history, or has been changed.</source>
        <translation>Die Datei %1 fehlt im Verlauf oder wurde geändert.</translation>
    </message>
    <message>
        <source>%1 was brought back</source>
        <translation>%1 wurde zurückgeholt</translation>
    </message>
    <message>
        <source>It is not the package that the preview showed, so it was not added.</source>
        <translation>Es ist nicht das Paket, das die Vorschau gezeigt hat, und wurde daher nicht hinzugefügt.</translation>
    </message>
    <message>
        <source>Deleting old restore points</source>
        <translation>Alte Wiederherstellungspunkte werden gelöscht</translation>
    </message>
    <message>
        <source>No restore points deleted</source>
        <translation>Keine Wiederherstellungspunkte gelöscht</translation>
    </message>
    <message>
        <source>Not all of the old restore points could be deleted. May you write to the folder %1?</source>
        <translation>Nicht alle alten Wiederherstellungspunkte konnten gelöscht werden. Dürfen Sie in den Ordner %1 schreiben?</translation>
    </message>
    <message>
        <source>Not all restore points deleted</source>
        <translation>Nicht alle Wiederherstellungspunkte gelöscht</translation>
    </message>
    <message numerus="yes">
        <source>%n restore point(s) deleted, %1 freed</source>
        <translation>
            <numerusform>%n Wiederherstellungspunkt gelöscht, %1 freigegeben</numerusform>
            <numerusform>%n Wiederherstellungspunkte gelöscht, %1 freigegeben</numerusform>
        </translation>
    </message>
    <message>
        <source>Going back to an earlier state</source>
        <translation>Rückkehr zu einem früheren Stand</translation>
    </message>
    <message>
        <source>The repository could not go back to the earlier state.</source>
        <translation>Das Repository konnte nicht zum früheren Stand zurückkehren.</translation>
    </message>
    <message>
        <source>The history does not keep the state before this change.</source>
        <translation>Der Verlauf enthält den Stand vor dieser Änderung nicht.</translation>
    </message>
    <message>
        <source>The state before this change cannot be read.</source>
        <translation>Der Stand vor dieser Änderung kann nicht gelesen werden.</translation>
    </message>
    <message numerus="yes">
        <source>The repository cannot go back: %n file(s) of the earlier state are missing or have been changed.</source>
        <translation>
            <numerusform>Das Repository kann nicht zurückkehren: %n Datei des früheren Stands fehlt oder wurde geändert.</numerusform>
            <numerusform>Das Repository kann nicht zurückkehren: %n Dateien des früheren Stands fehlen oder wurden geändert.</numerusform>
        </translation>
    </message>
    <message>
        <source>Packages that another program has added after the interruption could not be taken in again. Their files are in the repository; add them once more.</source>
        <translation>Pakete, die ein anderes Programm nach der Unterbrechung hinzugefügt hat, konnten nicht wieder aufgenommen werden. Ihre Dateien liegen im Repository; fügen Sie sie noch einmal hinzu.</translation>
    </message>
    <message>
        <source>The job could not be brought to an end. What it had done is undone. Do it again if it is still wanted.</source>
        <translation>Der Auftrag konnte nicht zu Ende geführt werden. Was er getan hatte, ist rückgängig gemacht. Führen Sie ihn erneut aus, wenn er noch gewünscht ist.</translation>
    </message>
    <message>
        <source>Files that an interrupted job had taken out could not be put back.</source>
        <translation>Dateien, die ein unterbrochener Auftrag herausgenommen hatte, konnten nicht zurückgelegt werden.</translation>
    </message>
    <message>
        <source>Files could not be put back into the pool.</source>
        <translation>Dateien konnten nicht in den Pool zurückgelegt werden.</translation>
    </message>
    <message>
        <source>The database could not be copied. Is there room on the disk?</source>
        <translation>Die Datenbank konnte nicht kopiert werden. Ist Platz auf dem Datenträger?</translation>
    </message>
    <message>
        <source>You may not write to this repository.</source>
        <translation>Sie dürfen in diesem Repository nichts ändern.</translation>
    </message>
    <message>
        <source>Its folder cannot be written: %1</source>
        <translation>In seinen Ordner kann nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>Moving package</source>
        <translation>Paket wird verschoben</translation>
    </message>
    <message>
        <source>Moving packages</source>
        <translation>Pakete werden verschoben</translation>
    </message>
    <message>
        <source>Copying package</source>
        <translation>Paket wird kopiert</translation>
    </message>
    <message>
        <source>Copying packages</source>
        <translation>Pakete werden kopiert</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) moved: %1</source>
        <translation>
            <numerusform>%n Paket verschoben: %1</numerusform>
            <numerusform>%n Pakete verschoben: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) copied: %1</source>
        <translation>
            <numerusform>%n Paket kopiert: %1</numerusform>
            <numerusform>%n Pakete kopiert: %1</numerusform>
        </translation>
    </message>
    <message>
        <source>Already there: %1</source>
        <translation>Schon da: %1</translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) moved: %2</source>
        <translation>
            <numerusform>Vorgang angehalten. %1 von %n Paket verschoben: %2</numerusform>
            <numerusform>Vorgang angehalten. %1 von %n Paketen verschoben: %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) copied: %2</source>
        <translation>
            <numerusform>Vorgang angehalten. %1 von %n Paket kopiert: %2</numerusform>
            <numerusform>Vorgang angehalten. %1 von %n Paketen kopiert: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>the repository %1</source>
        <translation>das Repository %1</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) stay(s) here, since the repository %1 does not have the same.</source>
        <translation>
            <numerusform>%n Paket bleibt hier, denn das Repository %1 hat nicht dasselbe.</numerusform>
            <numerusform>%n Pakete bleiben hier, denn das Repository %1 hat nicht dieselben.</numerusform>
        </translation>
    </message>
    <message>
        <source>The repository will be signed with the key %1 instead.</source>
        <translation>Das Repository wird stattdessen mit dem Schlüssel %1 signiert.</translation>
    </message>
    <message>
        <source>It is not the file that its repository lists. Reload that repository.</source>
        <translation>Es ist nicht die Datei, die ihr Repository nennt. Laden Sie jenes Repository neu.</translation>
    </message>
    <message>
        <source>The database of the repository cannot be read, so nothing was removed.</source>
        <translation>Die Datenbank des Repositorys lässt sich nicht lesen, deshalb wurde nichts entfernt.</translation>
    </message>
    <message>
        <source>The repository is as it was before restore point %1</source>
        <translation>Das Repository ist, wie es vor dem Wiederherstellungspunkt %1 war</translation>
    </message>
    <message>
        <source>The change is done, but the history could not note it. It cannot be undone, and earlier states may lack its files.</source>
        <translation>Die Änderung ist ausgeführt, aber der Verlauf konnte sie nicht festhalten. Sie lässt sich nicht rückgängig machen, und früheren Ständen können ihre Dateien fehlen.</translation>
    </message>
    <message>
        <source>Contents cannot have the word %1, only these: %2</source>
        <translation>Contents kann das Wort %1 nicht haben, nur diese: %2</translation>
    </message>
    <message>
        <source>Contents cannot have allcomponents together with compatsymlink or nocompatsymlink.</source>
        <translation>Contents kann allcomponents nicht zusammen mit compatsymlink oder nocompatsymlink haben.</translation>
    </message>
    <message>
        <source>The value of %1 is one line without #.</source>
        <translation>Der Wert von %1 ist eine Zeile ohne #.</translation>
    </message>
    <message>
        <source>The value of %1 cannot begin with an exclamation mark.</source>
        <translation>Der Wert von %1 kann nicht mit einem Ausrufezeichen beginnen.</translation>
    </message>
    <message>
        <source>The origin cannot be empty.</source>
        <translation>Die Herkunft kann nicht leer sein.</translation>
    </message>
    <message>
        <source>A signing key is named by 8 to 40 hexadecimal digits: its fingerprint, or the end of it.</source>
        <translation>Ein Signierschlüssel wird durch 8 bis 40 hexadezimale Ziffern benannt: seinen Fingerabdruck oder dessen Ende.</translation>
    </message>
    <message>
        <source>Indices are valid for 1 to %1 days; 0 stands for no limit.</source>
        <translation>Indexdateien gelten 1 bis %1 Tage; 0 steht für keine Grenze.</translation>
    </message>
    <message>
        <source>The repository cannot be signed with the key %1: %2.</source>
        <translation>Das Repository kann mit dem Schlüssel %1 nicht signiert werden: %2.</translation>
    </message>
    <message>
        <source>The repository can get what it lacks, and then the files. This changes its description.</source>
        <translation>Das Repository kann das Fehlende erhalten, und danach die Dateien. Das ändert seine Beschreibung.</translation>
    </message>
    <message>
        <source>Its architecture-independent packages will serve the new architectures too.</source>
        <translation>Seine Pakete für alle Architekturen dienen dann auch den neuen Architekturen.</translation>
    </message>
    <message>
        <source>Add %1 to the repository and go on</source>
        <translation>%1 zum Repository hinzufügen und fortfahren</translation>
    </message>
    <message>
        <source>Adding %1 to the repository</source>
        <translation>%1 wird zum Repository hinzugefügt</translation>
    </message>
    <message>
        <source>Fetching the lists of your own sources</source>
        <translation>Die Listen Ihrer eigenen Paketquellen werden geholt</translation>
    </message>
    <message numerus="yes">
        <source>the architecture(s) %1</source>
        <translation>
            <numerusform>die Architektur %1</numerusform>
            <numerusform>die Architekturen %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the component(s) %1</source>
        <translation>
            <numerusform>die Komponente %1</numerusform>
            <numerusform>die Komponenten %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package file(s) cannot be added, because the repository lacks %1.</source>
        <translation>
            <numerusform>%n Paketdatei kann nicht hinzugefügt werden, weil das Repository dies nicht hat: %1.</numerusform>
            <numerusform>%n Paketdateien können nicht hinzugefügt werden, weil das Repository dies nicht hat: %1.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RepoWidget</name>
    <message>
        <source>Packages</source>
        <translation>Pakete</translation>
    </message>
    <message>
        <source>Common</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Publication</source>
        <translation>Veröffentlichung</translation>
    </message>
    <message>
        <source>Dependences</source>
        <translation>Abhängigkeiten</translation>
    </message>
    <message>
        <source>The indices of the repository hold no record of %1.</source>
        <translation>Die Indexdateien des Repositorys enthalten keinen Eintrag zu %1.</translation>
    </message>
    <message>
        <source>&lt;b&gt;Failed to get package information&lt;/b&gt;&lt;br&gt; %1</source>
        <translation>&lt;b&gt;Die Angaben zum Paket konnten nicht ermittelt werden&lt;/b&gt;&lt;br&gt; %1</translation>
    </message>
    <message>
        <source>Installability</source>
        <translation>Installierbarkeit</translation>
    </message>
</context>
<context>
    <name>RepositoryCommands</name>
    <message>
        <source>Repository is not created.</source>
        <translation>Das Repository wurde nicht angelegt.</translation>
    </message>
    <message>
        <source>The packages are imported from %1, so the repository can neither lie in it nor hold it. Choose another path or name.</source>
        <translation>Die Pakete werden aus %1 importiert, deshalb darf das Repository weder darin liegen noch es enthalten. Wählen Sie einen anderen Pfad oder Namen.</translation>
    </message>
    <message>
        <source>Repository for import is not created</source>
        <translation>Das Repository für den Import wurde nicht angelegt</translation>
    </message>
    <message>
        <source>The repository %1 is being deleted.</source>
        <translation>Das Repository %1 wird gelöscht.</translation>
    </message>
    <message>
        <source>Repository is created.</source>
        <translation>Das Repository wurde angelegt.</translation>
    </message>
    <message>
        <source>Select repository directory</source>
        <translation>Verzeichnis des Repositorys auswählen</translation>
    </message>
    <message>
        <source>The directory %1 does not exist.</source>
        <translation>Das Verzeichnis %1 gibt es nicht.</translation>
    </message>
    <message>
        <source>Recent repositories</source>
        <translation>Zuletzt geöffnete Repositorys</translation>
    </message>
    <message>
        <source>The directory %1 does not exist. Do you want to remove it from the list of recent repositories?</source>
        <translation>Das Verzeichnis %1 gibt es nicht. Möchten Sie es aus der Liste der zuletzt geöffneten Repositorys entfernen?</translation>
    </message>
    <message>
        <source>File %1/conf/distributions not found!</source>
        <translation>Die Datei %1/conf/distributions wurde nicht gefunden!</translation>
    </message>
    <message>
        <source>Remove confirmation</source>
        <translation>Löschen bestätigen</translation>
    </message>
    <message>
        <source>Do you want to delete a repository %1?</source>
        <translation>Möchten Sie das Repository %1 löschen?</translation>
    </message>
    <message>
        <source>Repository is deleted.</source>
        <translation>Das Repository wurde gelöscht.</translation>
    </message>
    <message>
        <source>The directory %1 does not exist, so there was nothing to delete. The repository was closed and is no longer among the recent ones.</source>
        <translation>Das Verzeichnis %1 gibt es nicht, deshalb gab es nichts zu löschen. Das Repository wurde geschlossen und steht nicht mehr unter den zuletzt geöffneten.</translation>
    </message>
    <message>
        <source>Repository is not deleted</source>
        <translation>Das Repository wurde nicht gelöscht</translation>
    </message>
    <message>
        <source>Repository is not deleted.</source>
        <translation>Das Repository wurde nicht gelöscht.</translation>
    </message>
    <message>
        <source>It is published, and clients use it.</source>
        <translation>Es ist veröffentlicht und wird von Clients verwendet.</translation>
    </message>
    <message>
        <source>It is in this machine&apos;s local sources list, and stays there if you do not remove it first. apt then reports an error at each update.</source>
        <translation>Es steht in der Paketquellenliste dieses Rechners und bleibt dort, wenn Sie es nicht vorher austragen. apt meldet dann bei jeder Aktualisierung einen Fehler.</translation>
    </message>
    <message>
        <source>Do you want to unpublish the repository first?</source>
        <translation>Möchten Sie zuerst die Veröffentlichung des Repositorys beenden?</translation>
    </message>
    <message>
        <source>Otherwise a service goes on that has nothing to serve.</source>
        <translation>Sonst läuft ein Dienst weiter, der nichts mehr auszuliefern hat.</translation>
    </message>
    <message>
        <source>The directory %1 is deleted with everything in it, and cannot be brought back.</source>
        <translation>Das Verzeichnis %1 wird mit allem, was darin ist, gelöscht und kann nicht zurückgeholt werden.</translation>
    </message>
</context>
<context>
    <name>RepositoryHistory</name>
    <message>
        <source>The record of this point is damaged.</source>
        <translation>Die Aufzeichnung dieses Punktes ist beschädigt.</translation>
    </message>
    <message>
        <source>The folders db and pool of the repository lie on different file systems.</source>
        <translation>Die Ordner db und pool des Repositorys liegen auf verschiedenen Dateisystemen.</translation>
    </message>
    <message>
        <source>The file system of the repository has no hard links.</source>
        <translation>Das Dateisystem des Repositorys kennt keine harten Links.</translation>
    </message>
    <message>
        <source>the state before restore point %1</source>
        <translation>der Stand vor dem Wiederherstellungspunkt %1</translation>
    </message>
    <message>
        <source>The folder of the history is a link or a file, or belongs to another user: %1</source>
        <translation>Der Ordner des Verlaufs ist eine Verknüpfung oder eine Datei oder gehört einem anderen Benutzer: %1</translation>
    </message>
</context>
<context>
    <name>RepositoryKey</name>
    <message>
        <source>not in the key ring</source>
        <translation>nicht im Schlüsselbund</translation>
    </message>
    <message>
        <source>gpg exported no key.</source>
        <translation>gpg hat keinen Schlüssel exportiert.</translation>
    </message>
</context>
<context>
    <name>RepositoryPanel</name>
    <message>
        <source>Components:</source>
        <translation>Komponenten:</translation>
    </message>
    <message>
        <source>Code name:</source>
        <translation>Codename:</translation>
    </message>
    <message>
        <source>Suite:</source>
        <translation>Suite:</translation>
    </message>
    <message>
        <source>Version:</source>
        <translation>Version:</translation>
    </message>
    <message>
        <source>Architectures:</source>
        <translation>Architekturen:</translation>
    </message>
    <message>
        <source>Signature (apt):</source>
        <translation>Signatur (apt):</translation>
    </message>
    <message>
        <source>Signing key:</source>
        <translation>Signierschlüssel:</translation>
    </message>
    <message>
        <source>Key for clients:</source>
        <translation>Schlüssel für Clients:</translation>
    </message>
    <message>
        <source>Copy public key</source>
        <translation>Öffentlichen Schlüssel kopieren</translation>
    </message>
    <message>
        <source>Save public key...</source>
        <translation>Öffentlichen Schlüssel speichern...</translation>
    </message>
    <message>
        <source>You cannot change this repository: its files belong to another user, or its disk is read-only.</source>
        <translation>Sie können dieses Repository nicht ändern: Seine Dateien gehören einem anderen Benutzer, oder sein Datenträger ist schreibgeschützt.</translation>
    </message>
    <message>
        <source>Signed</source>
        <translation>Signiert</translation>
    </message>
    <message>
        <source>Unsigned</source>
        <translation>Nicht signiert</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Save the public key, put it on each client as %1, and write signed-by=%1 into the brackets after &quot;deb&quot; in its source line.</source>
        <translation>Speichern Sie den öffentlichen Schlüssel, legen Sie ihn auf jedem Client als %1 ab und schreiben Sie signed-by=%1 in die Klammern hinter „deb“ in dessen Quellzeile.</translation>
    </message>
</context>
<context>
    <name>RepositoryRemoval</name>
    <message>
        <source>The directory %1 holds no repository.</source>
        <translation>Das Verzeichnis %1 enthält kein Repository.</translation>
    </message>
    <message>
        <source>The directory %1 belongs to the system, or holds a home directory or an open repository.</source>
        <translation>Das Verzeichnis %1 gehört zum System oder enthält ein Home-Verzeichnis oder ein geöffnetes Repository.</translation>
    </message>
    <message>
        <source>Not everything in %1 could be deleted.</source>
        <translation>Nicht alles in %1 konnte gelöscht werden.</translation>
    </message>
    <message>
        <source>It holds these repositories: %1</source>
        <translation>Es enthält diese Repositorys: %1</translation>
    </message>
    <message>
        <source>Nothing was deleted, because the directory %1 cannot be written.</source>
        <translation>Es wurde nichts gelöscht, weil in das Verzeichnis %1 nicht geschrieben werden kann.</translation>
    </message>
</context>
<context>
    <name>SearchPackageWidget</name>
    <message>
        <source>Start typing the pacakge name here...</source>
        <translation>Geben Sie hier den Paketnamen ein...</translation>
    </message>
    <message>
        <source>Package name</source>
        <translation>Paketname</translation>
    </message>
    <message>
        <source>Searching</source>
        <translation>Suche läuft</translation>
    </message>
    <message>
        <source>Packages found</source>
        <translation>Gefundene Pakete</translation>
    </message>
    <message>
        <source>&amp;Architecture:</source>
        <translation>&amp;Architektur:</translation>
    </message>
    <message>
        <source>&amp;Repository:</source>
        <translation>&amp;Repository:</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>Suche läuft...</translation>
    </message>
    <message>
        <source>The name of a package cannot begin with &quot;%1&quot;</source>
        <translation>Ein Paketname kann nicht mit „%1“ beginnen</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>No packages found</source>
        <translation>Keine Pakete gefunden</translation>
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
        <source>Search &amp;descriptions too</source>
        <translation>Auch &amp;Beschreibungen durchsuchen</translation>
    </message>
    <message>
        <source>Finds the packages with each of the words in the name or in the short description</source>
        <translation>Findet die Pakete, die jedes der Wörter im Namen oder in der Kurzbeschreibung haben</translation>
    </message>
</context>
<context>
    <name>Sections</name>
    <message>
        <source>System Administration</source>
        <translation>Systemverwaltung</translation>
    </message>
    <message>
        <source>Base System</source>
        <translation>Basissystem</translation>
    </message>
    <message>
        <source>Mono/CLI Infrastructure</source>
        <translation>Mono-/CLI-Infrastruktur</translation>
    </message>
    <message>
        <source>Communication</source>
        <translation>Kommunikation</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Databases</source>
        <translation>Datenbanken</translation>
    </message>
    <message>
        <source>Development</source>
        <translation>Entwicklung</translation>
    </message>
    <message>
        <source>Documentation</source>
        <translation>Dokumentation</translation>
    </message>
    <message>
        <source>Debug</source>
        <translation>Fehlersuche</translation>
    </message>
    <message>
        <source>Editors</source>
        <translation>Editoren</translation>
    </message>
    <message>
        <source>Electronics</source>
        <translation>Elektronik</translation>
    </message>
    <message>
        <source>Embedded Devices</source>
        <translation>Eingebettete Geräte</translation>
    </message>
    <message>
        <source>Fonts</source>
        <translation>Schriften</translation>
    </message>
    <message>
        <source>Games and Amusement</source>
        <translation>Spiele und Unterhaltung</translation>
    </message>
    <message>
        <source>GNOME Desktop Environment</source>
        <translation>GNOME-Arbeitsumgebung</translation>
    </message>
    <message>
        <source>Graphics</source>
        <translation>Grafik</translation>
    </message>
    <message>
        <source>GNU R statistical system</source>
        <translation>Statistiksystem GNU R</translation>
    </message>
    <message>
        <source>Gnustep Desktop Environment</source>
        <translation>GNUstep-Arbeitsumgebung</translation>
    </message>
    <message>
        <source>Amateur Radio</source>
        <translation>Amateurfunk</translation>
    </message>
    <message>
        <source>Haskell Programming Language</source>
        <translation>Programmiersprache Haskell</translation>
    </message>
    <message>
        <source>Web servers</source>
        <translation>Webserver</translation>
    </message>
    <message>
        <source>Interpreted Computer Languages</source>
        <translation>Interpretierte Programmiersprachen</translation>
    </message>
    <message>
        <source>Java Programming Language</source>
        <translation>Programmiersprache Java</translation>
    </message>
    <message>
        <source>KDE Desktop Environment</source>
        <translation>KDE-Arbeitsumgebung</translation>
    </message>
    <message>
        <source>Kernel and modules</source>
        <translation>Kernel und Module</translation>
    </message>
    <message>
        <source>Libraries - Development</source>
        <translation>Bibliotheken – Entwicklung</translation>
    </message>
    <message>
        <source>Libraries</source>
        <translation>Bibliotheken</translation>
    </message>
    <message>
        <source>Lisp Programming Language</source>
        <translation>Programmiersprache Lisp</translation>
    </message>
    <message>
        <source>Localization</source>
        <translation>Lokalisierung</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Mathematics</source>
        <translation>Mathematik</translation>
    </message>
    <message>
        <source>Miscellaneous</source>
        <translation>Verschiedenes</translation>
    </message>
    <message>
        <source>Networking</source>
        <translation>Netzwerk</translation>
    </message>
    <message>
        <source>Newsgroup</source>
        <translation>Newsgroups</translation>
    </message>
    <message>
        <source>OCaml Programming Language</source>
        <translation>Programmiersprache OCaml</translation>
    </message>
    <message>
        <source>Libraries - Old</source>
        <translation>Bibliotheken – alt</translation>
    </message>
    <message>
        <source>Cross Platform</source>
        <translation>Plattformübergreifend</translation>
    </message>
    <message>
        <source>Perl Programming Language</source>
        <translation>Programmiersprache Perl</translation>
    </message>
    <message>
        <source>PHP Programming Language</source>
        <translation>Programmiersprache PHP</translation>
    </message>
    <message>
        <source>Python Programming Language</source>
        <translation>Programmiersprache Python</translation>
    </message>
    <message>
        <source>Ruby Programming Language</source>
        <translation>Programmiersprache Ruby</translation>
    </message>
    <message>
        <source>Science</source>
        <translation>Wissenschaft</translation>
    </message>
    <message>
        <source>Shells</source>
        <translation>Shells</translation>
    </message>
    <message>
        <source>Multimedia</source>
        <translation>Multimedia</translation>
    </message>
    <message>
        <source>Tasks</source>
        <translation>Aufgaben</translation>
    </message>
    <message>
        <source>TeX Authoring</source>
        <translation>TeX-Textsatz</translation>
    </message>
    <message>
        <source>Word Processing</source>
        <translation>Textverarbeitung</translation>
    </message>
    <message>
        <source>Utilities</source>
        <translation>Hilfsprogramme</translation>
    </message>
    <message>
        <source>Version Control Systems</source>
        <translation>Versionsverwaltungssysteme</translation>
    </message>
    <message>
        <source>Video software</source>
        <translation>Videosoftware</translation>
    </message>
    <message>
        <source>World Wide Web</source>
        <translation>World Wide Web</translation>
    </message>
    <message>
        <source>Miscellaneous  - Graphical</source>
        <translation>Verschiedenes – grafisch</translation>
    </message>
    <message>
        <source>Xfce Desktop Environment</source>
        <translation>Xfce-Arbeitsumgebung</translation>
    </message>
    <message>
        <source>Zope/Plone Environment</source>
        <translation>Zope-/Plone-Umgebung</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>Converted From RPM by Alien</source>
        <translation>Mit Alien aus RPM umgewandelt</translation>
    </message>
    <message>
        <source>Internationalization and localization</source>
        <translation>Internationalisierung und Lokalisierung</translation>
    </message>
    <message>
        <source>Meta Packages</source>
        <translation>Metapakete</translation>
    </message>
    <message>
        <source>Education</source>
        <translation>Bildung</translation>
    </message>
    <message>
        <source>GObject Introspection data</source>
        <translation>GObject-Introspection-Daten</translation>
    </message>
    <message>
        <source>Restricted On Export</source>
        <translation>Exportbeschränkt</translation>
    </message>
    <message>
        <source>non free</source>
        <translation>unfrei</translation>
    </message>
    <message>
        <source>contrib</source>
        <translation>contrib</translation>
    </message>
</context>
<context>
    <name>ServerText</name>
    <message>
        <source>The path %1 cannot be served. It must be the directory of a repository, and its name may consist of letters, digits, blanks between them and the characters %2.</source>
        <translation>Der Pfad %1 kann nicht veröffentlicht werden. Er muss das Verzeichnis eines Repositorys sein, und sein Name darf aus Buchstaben, Ziffern, Leerzeichen dazwischen und den Zeichen %2 bestehen.</translation>
    </message>
    <message>
        <source>The service did not start, or ended at once. The administrator finds the reason in the system&apos;s journal: journalctl -u %1 -u velt-admin-repo-helper</source>
        <translation>Der Dienst wurde nicht gestartet oder endete sofort. Der Administrator findet den Grund im Journal des Systems: journalctl -u %1 -u velt-admin-repo-helper</translation>
    </message>
    <message>
        <source>The service %1 could not be stopped. &quot;systemctl status %1&quot; tells more.</source>
        <translation>Der Dienst %1 konnte nicht beendet werden. „systemctl status %1“ sagt mehr.</translation>
    </message>
    <message>
        <source>The system refused. The administrator finds the reason in its journal: journalctl -u velt-admin-repo-helper</source>
        <translation>Das System hat abgelehnt. Der Administrator findet den Grund in dessen Journal: journalctl -u velt-admin-repo-helper</translation>
    </message>
</context>
<context>
    <name>SettingsCommands</name>
    <message>
        <source>Package signing</source>
        <translation>Signieren von Paketen</translation>
    </message>
    <message>
        <source>No key is chosen to sign packages with. Do you want to choose one?</source>
        <translation>Es ist kein Schlüssel zum Signieren von Paketen gewählt. Möchten Sie einen wählen?</translation>
    </message>
    <message>
        <source>The list cannot be stored in %1.</source>
        <translation>Die Liste kann nicht in %1 gespeichert werden.</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>The settings cannot be stored in %1.</source>
        <translation>Die Einstellungen können nicht in %1 gespeichert werden.</translation>
    </message>
</context>
<context>
    <name>SignatureEffect</name>
    <message>
        <source>The repository is not signed.</source>
        <translation>Das Repository ist nicht signiert.</translation>
    </message>
    <message>
        <source>Signed with: %1</source>
        <translation>Signiert mit: %1</translation>
    </message>
    <message>
        <source>Signed with the default key: %1</source>
        <translation>Signiert mit dem Standardschlüssel: %1</translation>
    </message>
    <message>
        <source>Signed with the default key, which could not be found out.</source>
        <translation>Signiert mit dem Standardschlüssel, der nicht ermittelt werden konnte.</translation>
    </message>
    <message>
        <source>The repository is to be signed, but there is no key that can sign.</source>
        <translation>Das Repository soll signiert werden, aber es gibt keinen Schlüssel, der signieren kann.</translation>
    </message>
</context>
<context>
    <name>SigningAdvice</name>
    <message>
        <source>The passphrase of the key was not given.</source>
        <translation>Die Passphrase des Schlüssels wurde nicht eingegeben.</translation>
    </message>
    <message>
        <source>The passphrase of the key was wrong.</source>
        <translation>Die Passphrase des Schlüssels war falsch.</translation>
    </message>
    <message>
        <source>The key has a passphrase, and gpg could not ask for it. Install a pinentry program that opens a window, such as pinentry-qt, and try again.</source>
        <translation>Der Schlüssel hat eine Passphrase, und gpg konnte nicht nach ihr fragen. Installieren Sie ein pinentry-Programm, das ein Fenster öffnet, etwa pinentry-qt, und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>The key ring has no key of yours that can sign. Make one with KGpg first.</source>
        <translation>Der Schlüsselbund enthält keinen Schlüssel von Ihnen, der signieren kann. Legen Sie zuerst mit KGpg einen an.</translation>
    </message>
</context>
<context>
    <name>SigningCheck</name>
    <message>
        <source>gpg crashed.</source>
        <translation>gpg ist abgestürzt.</translation>
    </message>
    <message>
        <source>gpg ended with the code %1 and did not say why.</source>
        <translation>gpg endete mit dem Code %1 und nannte keinen Grund.</translation>
    </message>
</context>
<context>
    <name>SigningCommands</name>
    <message>
        <source>Sign confirmation</source>
        <translation>Signieren bestätigen</translation>
    </message>
    <message>
        <source>not in the key ring</source>
        <translation>nicht im Schlüsselbund</translation>
    </message>
    <message>
        <source>The chosen key cannot sign. Do you want to choose another one?</source>
        <translation>Mit dem gewählten Schlüssel kann nicht signiert werden. Möchten Sie einen anderen wählen?</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Key: %1</source>
        <translation>Schlüssel: %1</translation>
    </message>
    <message>
        <source>Do you want to sign selected packages?</source>
        <translation>Möchten Sie die ausgewählten Pakete signieren?</translation>
    </message>
    <message>
        <source>The public key cannot be exported.</source>
        <translation>Der öffentliche Schlüssel kann nicht exportiert werden.</translation>
    </message>
    <message>
        <source>Public key is copied to clipboard</source>
        <translation>Der öffentliche Schlüssel ist in die Zwischenablage kopiert</translation>
    </message>
    <message>
        <source>Save public key</source>
        <translation>Öffentlichen Schlüssel speichern</translation>
    </message>
    <message>
        <source>Keys (*.asc)</source>
        <translation>Schlüssel (*.asc)</translation>
    </message>
    <message>
        <source>The public key is saved in %1.</source>
        <translation>Der öffentliche Schlüssel ist in %1 gespeichert.</translation>
    </message>
    <message>
        <source>The public key cannot be saved in %1.</source>
        <translation>Der öffentliche Schlüssel kann nicht in %1 gespeichert werden.</translation>
    </message>
</context>
<context>
    <name>SigningKey</name>
    <message>
        <source>no secret key</source>
        <translation>kein geheimer Schlüssel</translation>
    </message>
    <message>
        <source>expired on %1</source>
        <translation>abgelaufen am %1</translation>
    </message>
    <message>
        <source>expired</source>
        <translation>abgelaufen</translation>
    </message>
    <message>
        <source>revoked</source>
        <translation>widerrufen</translation>
    </message>
    <message>
        <source>disabled</source>
        <translation>deaktiviert</translation>
    </message>
    <message>
        <source>not meant for signing</source>
        <translation>nicht zum Signieren bestimmt</translation>
    </message>
    <message>
        <source>another key has the same id</source>
        <translation>ein anderer Schlüssel hat dieselbe Kennung</translation>
    </message>
    <message>
        <source>The key expires on %1.</source>
        <translation>Der Schlüssel läuft am %1 ab.</translation>
    </message>
</context>
<context>
    <name>SigningSwitch</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Key verification error:
%1</source>
        <translation>Fehler bei der Prüfung des Schlüssels:
%1</translation>
    </message>
    <message>
        <source>There is no key that can sign. Make one with KGpg first.</source>
        <translation>Es gibt keinen Schlüssel, mit dem signiert werden kann. Legen Sie zuerst mit KGpg einen an.</translation>
    </message>
</context>
<context>
    <name>SourcesListCommand</name>
    <message>
        <source>The program %1 is not installed.</source>
        <translation>Das Programm %1 ist nicht installiert.</translation>
    </message>
</context>
<context>
    <name>StartSelectActionDialog</name>
    <message>
        <source>Select action</source>
        <translation>Aktion wählen</translation>
    </message>
    <message>
        <source>There are no repositories open at the moment to add packages, please select the next action</source>
        <translation>Zurzeit ist kein Repository geöffnet, zu dem Pakete hinzugefügt werden könnten. Bitte wählen Sie die nächste Aktion</translation>
    </message>
    <message>
        <source>Create repo</source>
        <translation>Repository anlegen</translation>
    </message>
    <message>
        <source>Open repo</source>
        <translation>Repository öffnen</translation>
    </message>
</context>
<context>
    <name>StateDifferenceDialog</name>
    <message>
        <source>Difference</source>
        <translation>Unterschied</translation>
    </message>
    <message>
        <source>From the state</source>
        <translation>Vom Stand</translation>
    </message>
    <message>
        <source>To the state</source>
        <translation>Zum Stand</translation>
    </message>
    <message>
        <source>Package name</source>
        <translation>Paketname</translation>
    </message>
    <message>
        <source>Changes between the states</source>
        <translation>Änderungen zwischen den Ständen</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>Jetzt</translation>
    </message>
    <message>
        <source>Comparing...</source>
        <translation>Es wird verglichen...</translation>
    </message>
    <message>
        <source>A record between these states is missing or damaged.</source>
        <translation>Ein Eintrag zwischen diesen Ständen fehlt oder ist beschädigt.</translation>
    </message>
    <message>
        <source>The packages are the same.</source>
        <translation>Die Pakete sind dieselben.</translation>
    </message>
</context>
<context>
    <name>SystemFile</name>
    <message>
        <source>it is a link or no regular file</source>
        <translation>es ist eine Verknüpfung oder keine reguläre Datei</translation>
    </message>
</context>
<context>
    <name>SystemdService</name>
    <message>
        <source>The system bus cannot be reached: %1</source>
        <translation>Der Systembus ist nicht erreichbar: %1</translation>
    </message>
    <message>
        <source>There is no service manager (systemd) on the system bus.</source>
        <translation>Am Systembus gibt es keine Dienstverwaltung (systemd).</translation>
    </message>
    <message>
        <source>The service manager allows this to the administrator only.</source>
        <translation>Die Dienstverwaltung erlaubt dies nur dem Administrator.</translation>
    </message>
    <message>
        <source>There is no such service: %1</source>
        <translation>Diesen Dienst gibt es nicht: %1</translation>
    </message>
    <message>
        <source>The administrator has masked the service: %1</source>
        <translation>Der Administrator hat den Dienst maskiert: %1</translation>
    </message>
    <message>
        <source>The service manager answers: %1</source>
        <translation>Die Dienstverwaltung antwortet: %1</translation>
    </message>
    <message>
        <source>The service %1 has ended right after its start (%2).</source>
        <translation>Der Dienst %1 hat sich gleich nach dem Start beendet (%2).</translation>
    </message>
    <message>
        <source>The service manager has not done with %1 in time.</source>
        <translation>Die Dienstverwaltung ist mit %1 nicht rechtzeitig fertig geworden.</translation>
    </message>
    <message>
        <source>The service %1 has failed.</source>
        <translation>Der Dienst %1 ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>The service %1 was not ready in time.</source>
        <translation>Der Dienst %1 war nicht rechtzeitig bereit.</translation>
    </message>
    <message>
        <source>Something that the service %1 needs has failed.</source>
        <translation>Etwas, das der Dienst %1 benötigt, ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>The job of the service %1 was cancelled.</source>
        <translation>Der Auftrag für den Dienst %1 wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The job of the service %1 did not apply to its state.</source>
        <translation>Der Auftrag für den Dienst %1 passte nicht zu dessen Zustand.</translation>
    </message>
    <message>
        <source>The job of the service %1 has ended with &quot;%2&quot;.</source>
        <translation>Der Auftrag für den Dienst %1 endete mit „%2“.</translation>
    </message>
    <message>
        <source>The service %1 has nothing that says when to start it.</source>
        <translation>Für den Dienst %1 ist nicht festgelegt, wann er gestartet wird.</translation>
    </message>
    <message>
        <source>The service %1 does not stay active.</source>
        <translation>Der Dienst %1 bleibt nicht aktiv.</translation>
    </message>
</context>
<context>
    <name>TabBarActions</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Close others</source>
        <translation>Andere schließen</translation>
    </message>
    <message>
        <source>Copy path</source>
        <translation>Pfad kopieren</translation>
    </message>
</context>
<context>
    <name>TarReader</name>
    <message>
        <source>The archive is damaged.</source>
        <translation>Das Archiv ist beschädigt.</translation>
    </message>
    <message>
        <source>The archive is damaged: its end is missing.</source>
        <translation>Das Archiv ist beschädigt: Sein Ende fehlt.</translation>
    </message>
</context>
<context>
    <name>TextPage</name>
    <message>
        <source>%1 is a program and no text.</source>
        <translation>%1 ist ein Programm und kein Text.</translation>
    </message>
    <message>
        <source>%1, of which this is the beginning. The whole text is in the package.</source>
        <translation>%1, davon ist dies der Anfang. Der ganze Text ist im Paket.</translation>
    </message>
</context>
<context>
    <name>TreeFilter</name>
    <message>
        <source>Packet Filter</source>
        <translation>Paketfilter</translation>
    </message>
    <message>
        <source>Packages search</source>
        <translation>Paketsuche</translation>
    </message>
    <message>
        <source>Show depends undefined</source>
        <translation>Nicht geprüfte Abhängigkeiten anzeigen</translation>
    </message>
    <message>
        <source>Show depends error</source>
        <translation>Nicht erfüllte Abhängigkeiten anzeigen</translation>
    </message>
    <message>
        <source>Show depends success</source>
        <translation>Erfüllte Abhängigkeiten anzeigen</translation>
    </message>
    <message>
        <source>Only packages that cannot be installed</source>
        <translation>Nur nicht installierbare Pakete</translation>
    </message>
    <message>
        <source>Only packages that break others</source>
        <translation>Nur Pakete, die andere stören</translation>
    </message>
    <message>
        <source>Architecture</source>
        <translation>Architektur</translation>
    </message>
    <message>
        <source>Component</source>
        <translation>Komponente</translation>
    </message>
    <message>
        <source>Section</source>
        <translation>Sektion</translation>
    </message>
    <message>
        <source>Signature</source>
        <translation>Signatur</translation>
    </message>
    <message>
        <source>Signed</source>
        <translation>Signiert</translation>
    </message>
    <message>
        <source>Unsigned</source>
        <translation>Nicht signiert</translation>
    </message>
    <message>
        <source>not checked</source>
        <translation>nicht geprüft</translation>
    </message>
    <message>
        <source>not satisfied</source>
        <translation>nicht erfüllt</translation>
    </message>
    <message>
        <source>satisfied</source>
        <translation>erfüllt</translation>
    </message>
    <message>
        <source>Dependences: %1</source>
        <translation>Abhängigkeiten: %1</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>Cannot be installed</source>
        <translation>Nicht installierbar</translation>
    </message>
    <message>
        <source>Breaks others</source>
        <translation>Verhindert andere</translation>
    </message>
    <message>
        <source>Architecture: %1</source>
        <translation>Architektur: %1</translation>
    </message>
    <message>
        <source>Component: %1</source>
        <translation>Komponente: %1</translation>
    </message>
    <message>
        <source>Section: %1</source>
        <translation>Sektion: %1</translation>
    </message>
    <message>
        <source>Signature: %1</source>
        <translation>Signatur: %1</translation>
    </message>
    <message>
        <source>signed</source>
        <translation>signiert</translation>
    </message>
    <message>
        <source>unsigned</source>
        <translation>unsigniert</translation>
    </message>
</context>
<context>
    <name>UpgradeCommands</name>
    <message>
        <source>No source selected</source>
        <translation>Keine Paketquelle ausgewählt</translation>
    </message>
    <message>
        <source>Since you have not selected any source, the update will be canceled</source>
        <translation>Da Sie keine Paketquelle ausgewählt haben, wird die Aktualisierung abgebrochen</translation>
    </message>
</context>
<context>
    <name>UpgradePackagesDialog</name>
    <message>
        <source>Choose packages to upgrade</source>
        <translation>Zu aktualisierende Pakete wählen</translation>
    </message>
    <message>
        <source>The chosen packages are fetched and take the places of the old versions.</source>
        <translation>Die gewählten Pakete werden abgerufen und treten an die Stelle der alten Versionen.</translation>
    </message>
    <message>
        <source>Package</source>
        <translation>Paket</translation>
    </message>
    <message>
        <source>Architecture</source>
        <translation>Architektur</translation>
    </message>
    <message>
        <source>Old version</source>
        <translation>Alte Version</translation>
    </message>
    <message>
        <source>New version</source>
        <translation>Neue Version</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Paketquelle</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Preview...</source>
        <translation>Vorschau...</translation>
    </message>
</context>
<context>
    <name>UpgradeSourcesDialog</name>
    <message>
        <source>Select sources to upgrade</source>
        <translation>Paketquellen für die Aktualisierung auswählen</translation>
    </message>
    <message>
        <source>Newer versions of the packages are looked for in these sources. Which ones are offered here is set in Settings, Edit external repos.</source>
        <translation>In diesen Paketquellen wird nach neueren Versionen der Pakete gesucht. Welche hier angeboten werden, legen Sie unter „Einstellungen“, „Externe Repositorys bearbeiten“ fest.</translation>
    </message>
    <message>
        <source>Repository</source>
        <translation>Repository</translation>
    </message>
    <message>
        <source>Alias</source>
        <translation>Alias</translation>
    </message>
    <message>
        <source>Asking apt which repositories it knows...</source>
        <translation>apt wird gefragt, welche Repositorys es kennt...</translation>
    </message>
    <message>
        <source>apt does not say which repositories it knows; only your own are shown. %1</source>
        <translation>apt teilt nicht mit, welche Repositorys es kennt; nur Ihre eigenen werden angezeigt. %1</translation>
    </message>
</context>
<context>
    <name>VeltAboutDialog</name>
    <message>
        <source>About %1</source>
        <translation>Über %1</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Free software under the GNU General Public License, version 3 or later. It comes without any warranty.</source>
        <translation>Freie Software unter der GNU General Public License, Version 3 oder neuer. Sie wird ohne jede Garantie bereitgestellt.</translation>
    </message>
    <message>
        <source>About Qt</source>
        <translation>Über Qt</translation>
    </message>
</context>
<context>
    <name>VeltAdminRepoInterface</name>
    <message>
        <source>The call failed.</source>
        <translation>Der Aufruf ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Out of memory.</source>
        <translation>Nicht genügend Speicher.</translation>
    </message>
    <message>
        <source>The called service is not known.</source>
        <translation>Der aufgerufene Dienst ist nicht bekannt.</translation>
    </message>
    <message>
        <source>Timeout reply.</source>
        <translation>Zeitüberschreitung bei der Antwort.</translation>
    </message>
    <message>
        <source>The address given is not valid.</source>
        <translation>Die angegebene Adresse ist ungültig.</translation>
    </message>
    <message>
        <source>The call/operation is not supported.</source>
        <translation>Der Aufruf oder Vorgang wird nicht unterstützt.</translation>
    </message>
    <message>
        <source>The limits allocated to this process/call/connection exceeded the pre-defined values.</source>
        <translation>Die Grenzwerte für diesen Prozess, Aufruf oder diese Verbindung wurden überschritten.</translation>
    </message>
    <message>
        <source>Authorization error.</source>
        <translation>Fehler bei der Berechtigungsprüfung.</translation>
    </message>
    <message>
        <source>No server found.</source>
        <translation>Kein Server gefunden.</translation>
    </message>
    <message>
        <source>No network found.</source>
        <translation>Kein Netzwerk gefunden.</translation>
    </message>
    <message>
        <source>QDBusServer tried to bind to an address that is already in use.</source>
        <translation>QDBusServer wollte eine Adresse belegen, die bereits verwendet wird.</translation>
    </message>
    <message>
        <source>The call/process/message was sent after QDBusConnection disconnected.</source>
        <translation>Der Aufruf, Prozess oder die Nachricht wurde gesendet, nachdem QDBusConnection getrennt worden war.</translation>
    </message>
    <message>
        <source>The arguments passed to this call/operation are not valid.</source>
        <translation>Die übergebenen Argumente dieses Aufrufs oder Vorgangs sind ungültig.</translation>
    </message>
    <message>
        <source>The method called was not found in this object/interface with the given parameters.</source>
        <translation>Die aufgerufene Methode wurde mit diesen Parametern in diesem Objekt oder dieser Schnittstelle nicht gefunden.</translation>
    </message>
    <message>
        <source>The type signature is not valid or compatible.</source>
        <translation>Die Typsignatur ist ungültig oder nicht kompatibel.</translation>
    </message>
    <message>
        <source>The interface is not known in this object.</source>
        <translation>Die Schnittstelle ist diesem Objekt nicht bekannt.</translation>
    </message>
    <message>
        <source>The object path points to an object that does not exist.</source>
        <translation>Der Objektpfad verweist auf ein Objekt, das es nicht gibt.</translation>
    </message>
    <message>
        <source>The property does not exist in this interface.</source>
        <translation>Diese Eigenschaft gibt es in dieser Schnittstelle nicht.</translation>
    </message>
    <message>
        <source>The property set failed because the property is read-only.</source>
        <translation>Die Eigenschaft konnte nicht gesetzt werden, weil sie nur gelesen werden kann.</translation>
    </message>
    <message>
        <source>An internal error occurred.</source>
        <translation>Ein interner Fehler ist aufgetreten.</translation>
    </message>
    <message>
        <source>The service requested is invalid.</source>
        <translation>Der angeforderte Dienst ist ungültig.</translation>
    </message>
    <message>
        <source>The object path provided is invalid.</source>
        <translation>Der angegebene Objektpfad ist ungültig.</translation>
    </message>
    <message>
        <source>The interface is invalid.</source>
        <translation>Die Schnittstelle ist ungültig.</translation>
    </message>
    <message>
        <source>The member is invalid.</source>
        <translation>Das Element ist ungültig.</translation>
    </message>
    <message>
        <source>Unknown error.</source>
        <translation>Unbekannter Fehler.</translation>
    </message>
</context>
<context>
    <name>cli</name>
    <message>
        <source>--packages names the packages to export.</source>
        <translation>--packages nennt die Pakete, die exportiert werden sollen.</translation>
    </message>
    <message>
        <source>%1 exists. Is it to be replaced?</source>
        <translation>%1 gibt es schon. Soll es ersetzt werden?</translation>
    </message>
    <message>
        <source>The archive was not written.</source>
        <translation>Das Archiv wurde nicht geschrieben.</translation>
    </message>
    <message>
        <source>Wrote %1.</source>
        <translation>%1 wurde geschrieben.</translation>
    </message>
    <message>
        <source>There is no file or folder %1.</source>
        <translation>Es gibt keine Datei und keinen Ordner %1.</translation>
    </message>
    <message>
        <source>There are no packages in %1.</source>
        <translation>In %1 gibt es keine Pakete.</translation>
    </message>
    <message>
        <source>%1 is not FIELD=VALUE with one of these fields, each once: %2</source>
        <translation>%1 ist nicht FELD=WERT mit einem dieser Felder, jedes einmal: %2</translation>
    </message>
    <message>
        <source>The path cannot be empty.</source>
        <translation>Der Pfad kann nicht leer sein.</translation>
    </message>
    <message>
        <source>The change deletes %1 packages: %2. Is that right?</source>
        <translation>Die Änderung löscht %1 Pakete: %2. Ist das richtig?</translation>
    </message>
    <message>
        <source>The description of the repository cannot be read.</source>
        <translation>Die Beschreibung des Repositorys kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>%1 is not empty, so the repository was not moved.</source>
        <translation>%1 ist nicht leer, daher wurde das Repository nicht verschoben.</translation>
    </message>
    <message>
        <source>The repository is published. Unpublish it first.</source>
        <translation>Das Repository ist veröffentlicht. Beenden Sie erst die Veröffentlichung.</translation>
    </message>
    <message>
        <source>The repository was not changed.</source>
        <translation>Das Repository wurde nicht geändert.</translation>
    </message>
    <message>
        <source>Changed the repository %1.</source>
        <translation>Das Repository %1 wurde geändert.</translation>
    </message>
    <message>
        <source>%1 lacks: %2</source>
        <translation>%1 fehlt: %2</translation>
    </message>
    <message>
        <source>Checked: %1, broken: %2</source>
        <translation>Geprüft: %1, unerfüllt: %2</translation>
    </message>
    <message>
        <source>Only packages of this component</source>
        <translation>Nur Pakete dieser Komponente</translation>
    </message>
    <message>
        <source>Only packages of this architecture</source>
        <translation>Nur Pakete dieser Architektur</translation>
    </message>
    <message>
        <source>What becomes of a package that is there already: fail (the default) refuses the file, newer and older replace by version, all replaces, none keeps</source>
        <translation>Was aus einem Paket wird, das schon da ist: fail (Vorgabe) weist die Datei ab, newer und older ersetzen nach der Version, all ersetzt, none behält</translation>
    </message>
    <message>
        <source>The component for all packages, instead of their own</source>
        <translation>Die Komponente für alle Pakete, statt ihrer eigenen</translation>
    </message>
    <message>
        <source>Sign a copy of each file with this key, and add that</source>
        <translation>Eine Kopie jeder Datei mit diesem Schlüssel signieren und diese hinzufügen</translation>
    </message>
    <message>
        <source>Also the packages on which they depend</source>
        <translation>Auch die Pakete, von denen sie abhängen</translation>
    </message>
    <message>
        <source>Where dependencies are looked for: local (the default) is the repository itself, public are apt&apos;s sources</source>
        <translation>Wo Abhängigkeiten gesucht werden: local (Vorgabe) ist das Repository selbst, public sind die Quellen von apt</translation>
    </message>
    <message>
        <source>Look in this source, written as after deb in a sources list; can be repeated; without it, in all that apt and the settings have</source>
        <translation>In dieser Quelle suchen, geschrieben wie hinter deb in einer Quellenliste; wiederholbar; ohne sie in allen, die apt und die Einstellungen haben</translation>
    </message>
    <message>
        <source>Only list the newer versions</source>
        <translation>Die neueren Versionen nur auflisten</translation>
    </message>
    <message>
        <source>Only these packages, separated by commas; can be repeated</source>
        <translation>Nur diese Pakete, durch Kommas getrennt; wiederholbar</translation>
    </message>
    <message>
        <source>The key to sign with, instead of that in the settings</source>
        <translation>Der Schlüssel zum Signieren, statt dessen in den Einstellungen</translation>
    </message>
    <message>
        <source>Delete the packages under a new code name, instead of carrying them over</source>
        <translation>Die Pakete bei einem neuen Codenamen löschen, statt sie zu übertragen</translation>
    </message>
    <message>
        <source>The code name of the distribution</source>
        <translation>Der Codename der Distribution</translation>
    </message>
    <message>
        <source>Architectures, separated by commas</source>
        <translation>Architekturen, durch Kommas getrennt</translation>
    </message>
    <message>
        <source>Components, separated by commas</source>
        <translation>Komponenten, durch Kommas getrennt</translation>
    </message>
    <message>
        <source>The suite, such as stable</source>
        <translation>Die Suite, zum Beispiel stable</translation>
    </message>
    <message>
        <source>The version of the distribution</source>
        <translation>Die Version der Distribution</translation>
    </message>
    <message>
        <source>Who makes the packages</source>
        <translation>Wer die Pakete macht</translation>
    </message>
    <message>
        <source>What clients can select the repository by</source>
        <translation>Woran Clients das Repository auswählen können</translation>
    </message>
    <message>
        <source>Sign the repository with the default key</source>
        <translation>Das Repository mit dem Standardschlüssel signieren</translation>
    </message>
    <message>
        <source>Make a repository in a new or empty folder</source>
        <translation>Ein Repository in einem neuen oder leeren Ordner anlegen</translation>
    </message>
    <message>
        <source>Show the description of a repository, and how much it holds</source>
        <translation>Die Beschreibung eines Repositorys zeigen, und wie viel es enthält</translation>
    </message>
    <message>
        <source>List the packages, or those whose names match one of the patterns</source>
        <translation>Die Pakete auflisten, oder die, deren Namen zu einem der Muster passen</translation>
    </message>
    <message>
        <source>Add package files, and those below folders; - reads their names from standard input</source>
        <translation>Paketdateien hinzufügen, und die unterhalb von Ordnern; - liest ihre Namen von der Standardeingabe</translation>
    </message>
    <message>
        <source>Remove packages</source>
        <translation>Pakete entfernen</translation>
    </message>
    <message>
        <source>Fetch packages from apt&apos;s sources, and add them</source>
        <translation>Pakete aus den Quellen von apt holen und hinzufügen</translation>
    </message>
    <message>
        <source>Check whether the dependencies of the packages can be met</source>
        <translation>Prüfen, ob die Abhängigkeiten der Pakete erfüllt werden können</translation>
    </message>
    <message>
        <source>Replace packages with newer versions from apt&apos;s sources</source>
        <translation>Pakete durch neuere Versionen aus den Quellen von apt ersetzen</translation>
    </message>
    <message>
        <source>Write the repository, or some of its packages, to a .tgz archive</source>
        <translation>Das Repository oder einige seiner Pakete in ein .tgz-Archiv schreiben</translation>
    </message>
    <message>
        <source>Add the packages in an archive, or those below a folder</source>
        <translation>Die Pakete in einem Archiv oder unterhalb eines Ordners hinzufügen</translation>
    </message>
    <message>
        <source>Sign packages</source>
        <translation>Pakete signieren</translation>
    </message>
    <message>
        <source>List the keys that can sign, and those that no longer can</source>
        <translation>Die Schlüssel auflisten, die signieren können, und die, die es nicht mehr können</translation>
    </message>
    <message>
        <source>Publish a repository to other machines, over HTTP on the port 8000 if nothing else is said</source>
        <translation>Ein Repository für andere Rechner veröffentlichen, über HTTP auf Port 8000, wenn nichts anderes gesagt ist</translation>
    </message>
    <message>
        <source>Over HTTP on this port</source>
        <translation>Über HTTP auf diesem Port</translation>
    </message>
    <message>
        <source>Over FTP on this port</source>
        <translation>Über FTP auf diesem Port</translation>
    </message>
    <message>
        <source>End the publications of a repository, or those on a port</source>
        <translation>Die Veröffentlichungen eines Repositorys oder die auf einem Port beenden</translation>
    </message>
    <message>
        <source>List what this machine publishes</source>
        <translation>Auflisten, was dieser Rechner veröffentlicht</translation>
    </message>
    <message>
        <source>Print the line with which other machines use a published repository</source>
        <translation>Die Zeile ausgeben, mit der andere Rechner ein veröffentlichtes Repository nutzen</translation>
    </message>
    <message>
        <source>The name or address of this machine for them</source>
        <translation>Der Name oder die Adresse dieses Rechners für sie</translation>
    </message>
    <message>
        <source>The publication on this port</source>
        <translation>Die Veröffentlichung auf diesem Port</translation>
    </message>
    <message>
        <source>Accept the repository without a valid signature</source>
        <translation>Das Repository ohne gültige Signatur annehmen</translation>
    </message>
    <message>
        <source>Print the result as JSON, and errors as JSON on standard error</source>
        <translation>Das Ergebnis als JSON ausgeben, Fehler als JSON auf der Standardfehlerausgabe</translation>
    </message>
    <message>
        <source>Print nothing but results and errors</source>
        <translation>Nur Ergebnisse und Fehler ausgeben</translation>
    </message>
    <message>
        <source>Wait so long for another job that works on the repository</source>
        <translation>So lange auf einen anderen Auftrag warten, der am Repository arbeitet</translation>
    </message>
    <message>
        <source>The answer is yes, since nobody is there to ask.</source>
        <translation>Die Antwort ist Ja, da niemand gefragt werden kann.</translation>
    </message>
    <message>
        <source>Yes or no? [y/N]</source>
        <translation>Ja oder nein? [j/N]</translation>
    </message>
    <message>
        <source>yes</source>
        <comment>answer to a question</comment>
        <translation>ja</translation>
    </message>
    <message>
        <source>Names have small letters, digits, hyphens and, for code names and suites, dots.</source>
        <translation>Namen haben Kleinbuchstaben, Ziffern, Bindestriche und, bei Codenamen und Suites, Punkte.</translation>
    </message>
    <message>
        <source>The value of %1 is one line without #.</source>
        <translation>Der Wert von %1 ist eine Zeile ohne #.</translation>
    </message>
    <message>
        <source>The value of %1 is yes or no.</source>
        <translation>Der Wert von %1 ist yes oder no.</translation>
    </message>
    <message>
        <source>A code name, architectures and components are needed.</source>
        <translation>Ein Codename, Architekturen und Komponenten sind nötig.</translation>
    </message>
    <message>
        <source>A repository cannot have the architecture all: packages for all go to each of its own.</source>
        <translation>Ein Repository kann nicht die Architektur all haben: Pakete für all kommen in jede seiner eigenen.</translation>
    </message>
    <message>
        <source>The path or the code name is not valid.</source>
        <translation>Der Pfad oder der Codename ist ungültig.</translation>
    </message>
    <message>
        <source>%1 %2: %3 instead of %4, from %5</source>
        <translation>%1 %2: %3 statt %4, aus %5</translation>
    </message>
    <message>
        <source>No source of apt offers %1.</source>
        <translation>Keine Quelle von apt bietet %1 an.</translation>
    </message>
    <message>
        <source>--%1 needs a number of seconds, and not %2</source>
        <translation>--%1 braucht eine Zahl von Sekunden und nicht %2</translation>
    </message>
    <message>
        <source>--%1 cannot be %2; it can be: %3</source>
        <translation>--%1 kann nicht %2 sein, sondern: %3</translation>
    </message>
    <message>
        <source>A command is missing.</source>
        <translation>Es fehlt ein Befehl.</translation>
    </message>
    <message>
        <source>There is no command %1.</source>
        <translation>Es gibt keinen Befehl %1.</translation>
    </message>
    <message>
        <source>The command is: %1</source>
        <translation>Der Befehl ist: %1</translation>
    </message>
    <message>
        <source>velt-admin-repo-cli --help shows all commands.</source>
        <translation>velt-admin-repo-cli --help zeigt alle Befehle.</translation>
    </message>
    <message>
        <source>There are no package files.</source>
        <translation>Es gibt keine Paketdateien.</translation>
    </message>
    <message>
        <source>There is no port %1.</source>
        <translation>Es gibt keinen Port %1.</translation>
    </message>
    <message>
        <source>Stopped. The system may still do what it was asked for.</source>
        <translation>Angehalten. Das System tut vielleicht noch, worum es gebeten wurde.</translation>
    </message>
    <message>
        <source>The package %1, which serves the repository, is not installed.</source>
        <translation>Das Paket %1, das das Repository anbietet, ist nicht installiert.</translation>
    </message>
    <message>
        <source>%1 is published already, over %2 on the port %3.</source>
        <translation>%1 ist schon veröffentlicht, über %2 auf Port %3.</translation>
    </message>
    <message>
        <source>The repository is not published.</source>
        <translation>Das Repository ist nicht veröffentlicht.</translation>
    </message>
    <message>
        <source>%1 is published over %2 on the port %3.</source>
        <translation>%1 ist über %2 auf Port %3 veröffentlicht.</translation>
    </message>
    <message>
        <source>--http and --ftp cannot stand together.</source>
        <translation>--http und --ftp können nicht zusammen stehen.</translation>
    </message>
    <message>
        <source>The repository is not unpublished.</source>
        <translation>Die Veröffentlichung des Repositorys wurde nicht beendet.</translation>
    </message>
    <message>
        <source>%1 is not published.</source>
        <translation>%1 ist nicht veröffentlicht.</translation>
    </message>
    <message>
        <source>Somebody else has set up its server.</source>
        <translation>Seinen Server hat jemand anderes eingerichtet.</translation>
    </message>
    <message>
        <source>%1 is no longer published over %2 on the port %3.</source>
        <translation>%1 ist nicht mehr über %2 auf Port %3 veröffentlicht.</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <source>%1 is no name or address.</source>
        <translation>%1 ist kein Name und keine Adresse.</translation>
    </message>
    <message>
        <source>With --port the line is that of a publication over HTTP.</source>
        <translation>Mit --port ist die Zeile die einer Veröffentlichung über HTTP.</translation>
    </message>
    <message>
        <source>%1 is not published on the port %2 now.</source>
        <translation>%1 ist zurzeit nicht auf Port %2 veröffentlicht.</translation>
    </message>
    <message>
        <source>%1 is not empty. Is everything in it to be deleted?</source>
        <translation>%1 ist nicht leer. Soll alles darin gelöscht werden?</translation>
    </message>
    <message>
        <source>No repository was made.</source>
        <translation>Es wurde kein Repository angelegt.</translation>
    </message>
    <message>
        <source>Made the repository %1.</source>
        <translation>Das Repository %1 wurde angelegt.</translation>
    </message>
    <message>
        <source>Path: %1</source>
        <translation>Pfad: %1</translation>
    </message>
    <message>
        <source>Code name: %1</source>
        <translation>Codename: %1</translation>
    </message>
    <message>
        <source>Suite: %1</source>
        <translation>Suite: %1</translation>
    </message>
    <message>
        <source>Version: %1</source>
        <translation>Version: %1</translation>
    </message>
    <message>
        <source>Origin: %1</source>
        <translation>Herkunft: %1</translation>
    </message>
    <message>
        <source>Label: %1</source>
        <translation>Bezeichnung: %1</translation>
    </message>
    <message>
        <source>Architectures: %1</source>
        <translation>Architekturen: %1</translation>
    </message>
    <message>
        <source>Components: %1</source>
        <translation>Komponenten: %1</translation>
    </message>
    <message>
        <source>Signed with the default key</source>
        <translation>Mit dem Standardschlüssel signiert</translation>
    </message>
    <message>
        <source>Not signed with the default key</source>
        <translation>Nicht mit dem Standardschlüssel signiert</translation>
    </message>
    <message>
        <source>Packages for %1: %2</source>
        <translation>Pakete für %1: %2</translation>
    </message>
    <message>
        <source>The repository %1 cannot be read.</source>
        <translation>Das Repository %1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>It has no file conf/distributions.</source>
        <translation>Es hat keine Datei conf/distributions.</translation>
    </message>
    <message>
        <source>Its file conf/distributions names no distribution.</source>
        <translation>Seine Datei conf/distributions nennt keine Distribution.</translation>
    </message>
    <message>
        <source>Its indices are missing.</source>
        <translation>Seine Indizes fehlen.</translation>
    </message>
    <message>
        <source>The repository has no package %1.</source>
        <translation>Das Repository hat kein Paket %1.</translation>
    </message>
    <message>
        <source>The folder %1 is no repository.</source>
        <translation>Der Ordner %1 ist kein Repository.</translation>
    </message>
    <message>
        <source>Another job still works on the repository %1.</source>
        <translation>Ein anderer Auftrag arbeitet noch am Repository %1.</translation>
    </message>
    <message>
        <source>Added: %1</source>
        <translation>Hinzugefügt: %1</translation>
    </message>
    <message>
        <source>Replaced: %1</source>
        <translation>Ersetzt: %1</translation>
    </message>
    <message>
        <source>Removed: %1</source>
        <translation>Entfernt: %1</translation>
    </message>
    <message>
        <source>No key is chosen to sign packages with. Name one with --key.</source>
        <translation>Es ist kein Schlüssel zum Signieren von Paketen gewählt. Nennen Sie einen mit --key.</translation>
    </message>
    <message>
        <source>not in the key ring</source>
        <translation>nicht im Schlüsselbund</translation>
    </message>
    <message>
        <source>The key %1 cannot sign: %2</source>
        <translation>Der Schlüssel %1 kann nicht signieren: %2</translation>
    </message>
    <message>
        <source>Signed: %1</source>
        <translation>Signiert: %1</translation>
    </message>
    <message>
        <source>gpg does not list its keys.</source>
        <translation>gpg listet seine Schlüssel nicht auf.</translation>
    </message>
    <message>
        <source>chosen</source>
        <translation>gewählt</translation>
    </message>
    <message>
        <source>Administers local repositories of Debian packages.</source>
        <translation>Verwaltet lokale Repositorys mit Debian-Paketen.</translation>
    </message>
    <message>
        <source>Usage: %1 COMMAND ...</source>
        <translation>Aufruf: %1 BEFEHL ...</translation>
    </message>
    <message>
        <source>Options of all commands:</source>
        <translation>Optionen aller Befehle:</translation>
    </message>
    <message>
        <source>%1 COMMAND --help explains a command.</source>
        <translation>%1 BEFEHL --help erklärt einen Befehl.</translation>
    </message>
    <message>
        <source>Usage: %1</source>
        <translation>Aufruf: %1</translation>
    </message>
    <message>
        <source>Options:</source>
        <translation>Optionen:</translation>
    </message>
    <message>
        <source>Delete what is in the folder; --yes does not do that</source>
        <translation>Löschen, was in dem Ordner ist; --yes tut das nicht</translation>
    </message>
    <message>
        <source>Answer questions with yes, but not to delete a folder, give up a package or trust programs</source>
        <translation>Fragen mit Ja beantworten, aber nicht, um einen Ordner zu löschen, ein Paket aufzugeben oder Programmen zu vertrauen</translation>
    </message>
    <message>
        <source>Trust programs that the settings of the repository name</source>
        <translation>Programmen vertrauen, die die Einstellungen des Repositorys nennen</translation>
    </message>
    <message>
        <source>The result could not be written.</source>
        <translation>Das Ergebnis konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The answer is no, since nobody is there to ask.</source>
        <translation>Die Antwort ist Nein, da niemand gefragt werden kann.</translation>
    </message>
    <message>
        <source>The option %1 answers with yes.</source>
        <translation>Die Option %1 antwortet mit Ja.</translation>
    </message>
    <message>
        <source>The indices of the repository may be older than its database, so they may not name all that it holds.</source>
        <translation>Die Indizes des Repositorys sind vielleicht älter als seine Datenbank und nennen dann nicht alles, was es enthält.</translation>
    </message>
    <message>
        <source>Checked: %1, not installable: %2, undecided: %3</source>
        <translation>Geprüft: %1, nicht installierbar: %2, unentschieden: %3</translation>
    </message>
    <message>
        <source>%1 recommends what cannot be installed with it: %2</source>
        <translation>%1 empfiehlt, was sich nicht mit ihm installieren lässt: %2</translation>
    </message>
    <message>
        <source>--%1 is an option of --complete.</source>
        <translation>--%1 gehört zu --complete.</translation>
    </message>
    <message>
        <source>--against is for the check of names; --complete has --base.</source>
        <translation>--against gehört zur Prüfung der Namen; --complete hat --base.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an architecture.</source>
        <translation>„%1“ ist keine Architektur.</translation>
    </message>
    <message>
        <source>Check whether the packages can really be installed, with all that they need, and say why the others cannot</source>
        <translation>Prüfen, ob sich die Pakete mit allem, was sie brauchen, wirklich installieren lassen, und sagen, warum nicht</translation>
    </message>
    <message>
        <source>With --complete, what else there is: public (the default) are apt&apos;s sources, essential is what every system has, nothing is the repository alone; or another REPOSITORY</source>
        <translation>Mit --complete: was es sonst gibt: public (Vorgabe) sind die Quellen von apt, essential ist, was jedes System hat, nothing das Repository allein; oder ein anderes REPOSITORY</translation>
    </message>
    <message>
        <source>With --complete, a further architecture of the system, as dpkg knows foreign architectures; can be repeated</source>
        <translation>Mit --complete: eine weitere Architektur des Systems, wie dpkg fremde Architekturen kennt; wiederholbar</translation>
    </message>
    <message>
        <source>Only show what would change, and what could not be installed then</source>
        <translation>Nur zeigen, was sich ändern würde und was sich dann nicht mehr installieren ließe</translation>
    </message>
    <message>
        <source>List the restore points of a repository, or those that have changed a package, with their changes</source>
        <translation>Die Wiederherstellungspunkte eines Repositorys mit ihren Änderungen auflisten, oder nur die, die ein Paket geändert haben</translation>
    </message>
    <message>
        <source>Only so many of the newest</source>
        <translation>Nur so viele der neuesten</translation>
    </message>
    <message>
        <source>First delete the oldest restore points that are more than the settings allow</source>
        <translation>Zuerst die ältesten Wiederherstellungspunkte löschen, die mehr sind, als die Einstellungen erlauben</translation>
    </message>
    <message>
        <source>Show what has changed from the state before a restore point until now, or until the state before another one</source>
        <translation>Zeigen, was sich vom Stand vor einem Wiederherstellungspunkt bis jetzt oder bis zum Stand vor einem anderen geändert hat</translation>
    </message>
    <message>
        <source>Go back to the state before a restore point, or bring back a package</source>
        <translation>Zum Stand vor einem Wiederherstellungspunkt zurückkehren oder ein Paket zurückholen</translation>
    </message>
    <message>
        <source>Only bring back this package, as it was before the restore point</source>
        <translation>Nur dieses Paket zurückholen, wie es vor dem Wiederherstellungspunkt war</translation>
    </message>
    <message>
        <source>The preview is without the packages on which these depend.</source>
        <translation>Die Vorschau enthält die Pakete nicht, von denen diese abhängen.</translation>
    </message>
    <message>
        <source>The history has no restore point %1.</source>
        <translation>Der Verlauf hat keinen Wiederherstellungspunkt %1.</translation>
    </message>
    <message>
        <source>The history has damaged records, so it is not known what has changed since.</source>
        <translation>Der Verlauf hat beschädigte Aufzeichnungen; darum ist nicht bekannt, was sich seither geändert hat.</translation>
    </message>
    <message>
        <source>Changed by another program</source>
        <translation>Von einem anderen Programm geändert</translation>
    </message>
    <message>
        <source>%1 (no way back: %2)</source>
        <translation>%1 (kein Weg zurück: %2)</translation>
    </message>
    <message>
        <source>The description was changed</source>
        <translation>Die Beschreibung wurde geändert</translation>
    </message>
    <message>
        <source>And %1 more changes.</source>
        <translation>Und %1 weitere Änderungen.</translation>
    </message>
    <message>
        <source>The description of the repository changes too.</source>
        <translation>Auch die Beschreibung des Repositorys ändert sich.</translation>
    </message>
    <message>
        <source>Do you want to go back to the state before the restore point %1 (%2)?</source>
        <translation>Möchten Sie zum Stand vor dem Wiederherstellungspunkt %1 (%2) zurückkehren?</translation>
    </message>
    <message>
        <source>Before the restore point %1 the repository had no other version of %2 than now.</source>
        <translation>Vor dem Wiederherstellungspunkt %1 hatte das Repository keine andere Version von %2 als jetzt.</translation>
    </message>
    <message>
        <source>Do you want to bring back %1?</source>
        <translation>Möchten Sie %1 zurückholen?</translation>
    </message>
    <message>
        <source>--limit needs a number greater than 0, and not %1</source>
        <translation>--limit braucht eine Zahl größer als 0 und nicht %1</translation>
    </message>
    <message>
        <source>No states are kept: %1</source>
        <translation>Es werden keine Stände aufbewahrt: %1</translation>
    </message>
    <message>
        <source>The history takes %1.</source>
        <translation>Der Verlauf belegt %1.</translation>
    </message>
    <message>
        <source>Freed: %1</source>
        <translation>Freigegeben: %1</translation>
    </message>
    <message>
        <source>The state before the newest change is not kept, so this goes back further.</source>
        <translation>Der Stand vor der neuesten Änderung ist nicht aufbewahrt; darum geht es weiter zurück.</translation>
    </message>
    <message>
        <source>The history has no state to go back to.</source>
        <translation>Der Verlauf hat keinen Stand, zu dem man zurückkehren kann.</translation>
    </message>
    <message>
        <source>%1, from %2</source>
        <translation>%1, aus %2</translation>
    </message>
    <message>
        <source>The state before the newest change is not kept. Name a point to go back further.</source>
        <translation>Der Stand vor der neuesten Änderung wurde nicht aufbewahrt. Nennen Sie einen Punkt, um weiter zurückzukehren.</translation>
    </message>
    <message>
        <source>What is in the repository, in one line</source>
        <translation>Was im Repository ist, in einer Zeile</translation>
    </message>
    <message>
        <source>Sign the repository with this key: its fingerprint, or the end of it</source>
        <translation>Das Repository mit diesem Schlüssel signieren: sein Fingerabdruck oder dessen Ende</translation>
    </message>
    <message>
        <source>Write lists of the packages&apos; files: yes, or words of reprepro separated by commas, such as .xz,udebs</source>
        <translation>Listen der Dateien der Pakete schreiben: yes oder Wörter von reprepro, durch Kommas getrennt, etwa .xz,udebs</translation>
    </message>
    <message>
        <source>Clients refuse indices that have not been written for so many days</source>
        <translation>Clients lehnen Indexdateien ab, die so viele Tage nicht geschrieben wurden</translation>
    </message>
    <message>
        <source>Copy packages from a repository to another one, or to another component of the same</source>
        <translation>Pakete aus einem Repository in ein anderes oder in eine andere Komponente desselben kopieren</translation>
    </message>
    <message>
        <source>The component into which the packages go</source>
        <translation>Die Komponente, in die die Pakete kommen</translation>
    </message>
    <message>
        <source>Remove the packages where they were, once they are there</source>
        <translation>Die Pakete entfernen, wo sie waren, sobald sie dort sind</translation>
    </message>
    <message>
        <source>Change the description of a repository: codename, suite, version, architectures, components, origin, label, description, sign=yes|no, sign-key=KEY|default, contents=yes|no|LIST, valid-for=DAYS, or path, which moves it</source>
        <translation>Die Beschreibung eines Repositorys ändern: codename, suite, version, architectures, components, origin, label, description, sign=yes|no, sign-key=SCHLÜSSEL|default, contents=yes|no|LISTE, valid-for=TAGE oder path, was es verschiebt</translation>
    </message>
    <message>
        <source>Go back to the state before the newest restore point, so that a second time undoes the first; restore goes further back</source>
        <translation>Zum Stand vor dem neuesten Wiederherstellungspunkt zurückkehren, sodass ein zweites Mal das erste rückgängig macht; restore kehrt weiter zurück</translation>
    </message>
    <message>
        <source>Would be removed from %1: %2</source>
        <translation>Würde aus %1 entfernt: %2</translation>
    </message>
    <message>
        <source>Removed from %1: %2</source>
        <translation>Aus %1 entfernt: %2</translation>
    </message>
    <message>
        <source>Within one repository, --component must name another component.</source>
        <translation>Innerhalb eines Repositorys muss --component eine andere Komponente nennen.</translation>
    </message>
    <message>
        <source>You cannot change the repository %1.</source>
        <translation>Sie können das Repository %1 nicht ändern.</translation>
    </message>
    <message>
        <source>The packages are in this component already.</source>
        <translation>Die Pakete sind schon in dieser Komponente.</translation>
    </message>
    <message>
        <source>The value of %1 is a number of days, such as 30, of %2 at most; 0 stands for no limit.</source>
        <translation>Der Wert von %1 ist eine Zahl von Tagen, zum Beispiel 30, höchstens %2; 0 steht für keine Grenze.</translation>
    </message>
    <message>
        <source>The value of %1 is a key, or default.</source>
        <translation>Der Wert von %1 ist ein Schlüssel oder default.</translation>
    </message>
    <message>
        <source>The repository is as it was before restore point %1.</source>
        <translation>Das Repository ist, wie es vor dem Wiederherstellungspunkt %1 war.</translation>
    </message>
    <message>
        <source>No packages differ.</source>
        <translation>Keine Pakete unterscheiden sich.</translation>
    </message>
    <message>
        <source>Description: %1</source>
        <translation>Beschreibung: %1</translation>
    </message>
    <message>
        <source>Contents: %1</source>
        <translation>Contents: %1</translation>
    </message>
    <message>
        <source>Valid for days: %1</source>
        <translation>Gültig, in Tagen: %1</translation>
    </message>
    <message>
        <source>Signed with the key %1</source>
        <translation>Signiert mit dem Schlüssel %1</translation>
    </message>
    <message>
        <source>Other field: %1</source>
        <translation>Weiteres Feld: %1</translation>
    </message>
    <message>
        <source>All that the packages of the repository lack, or those that are named, with what that needs in turn</source>
        <translation>Alles, was den Paketen des Repositorys oder den genannten fehlt, samt dem, was dieses wiederum braucht</translation>
    </message>
    <message>
        <source>Name the packages to fetch, or give --missing.</source>
        <translation>Nennen Sie die Pakete, die geholt werden sollen, oder geben Sie --missing an.</translation>
    </message>
    <message>
        <source>%1 %2 %3, %4, from %5, needed by %6</source>
        <translation>%1 %2 %3, %4, aus %5, benötigt von %6</translation>
    </message>
    <message>
        <source>To be fetched: %1, %2</source>
        <translation>Zu holen: %1, %2</translation>
    </message>
    <message>
        <source>Give the repository the architectures and components that it lacks for them</source>
        <translation>Dem Repository die Architekturen und Komponenten geben, die ihm dafür fehlen</translation>
    </message>
    <message>
        <source>Fetching the lists of your own sources</source>
        <translation>Die Listen Ihrer eigenen Paketquellen werden geholt</translation>
    </message>
    <message>
        <source>--missing brings all that is needed, without --with-depends.</source>
        <translation>--missing bringt alles Nötige mit, ohne --with-depends.</translation>
    </message>
</context>
<context>
    <name>copyFile</name>
    <message>
        <source>This is the file itself.</source>
        <translation>Das ist die Datei selbst.</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>List of packages to add to the repository</source>
        <translation>Liste der Pakete, die zum Repository hinzugefügt werden</translation>
    </message>
    <message>
        <source>Package files (.deb, .udeb)</source>
        <translation>Paketdateien (.deb, .udeb)</translation>
    </message>
    <message>
        <source>Velt admin repo tool</source>
        <translation>Werkzeug zur Verwaltung von Paket-Repositorys</translation>
    </message>
    <message>
        <source>These are too many files for one start of the program.</source>
        <translation>Das sind zu viele Dateien für einen Start des Programms.</translation>
    </message>
    <message>
        <source>The program is running already and does not answer.</source>
        <translation>Das Programm läuft bereits und antwortet nicht.</translation>
    </message>
    <message>
        <source>Nothing has been added.</source>
        <translation>Es wurde nichts hinzugefügt.</translation>
    </message>
</context>
</TS>

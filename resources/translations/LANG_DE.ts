<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>AboutDlg</name>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Programmversion %1</translation>
    </message>
    <message>
        <source>System: %1</source>
        <translation>Betriebssystem: %1</translation>
    </message>
    <message>
        <source>License</source>
        <translation>Lizenz</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>AdvancedRepairDlg</name>
    <message>
        <source>Add Sample Video</source>
        <translation>Beispielvideo hinzufügen</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;Advance Repair&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Use this option to repair severely damaged videos. &lt;/p&gt;&lt;p&gt;Click &amp;quot;Next&amp;quot; to add a &apos;sample video&apos; of the same format, shot using the same device.&lt;/p&gt;&lt;p&gt;The sample and the damaged video remain unchanged during repair process.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;Erweiterte Reparatur&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Verwenden Sie diese Option, um schwer beschädigte Videos zu reparieren. &lt;/p&gt;&lt;p&gt;Klicken Sie auf &amp;quot;Weiter&amp;quot;, um ein „Beispielvideo“ im selben Format hinzuzufügen, das mit demselben Gerät aufgenommen wurde.&lt;/p&gt;&lt;p&gt;Das Beispielvideo und das beschädigte Video bleiben während der Reparatur unverändert.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Learn More</source>
        <translation>Mehr erfahren</translation>
    </message>
</context>
<context>
    <name>CloseApplicationDlg</name>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
</context>
<context>
    <name>DownloadUpdate</name>
    <message>
        <source>Software Update</source>
        <translation>Software-Update</translation>
    </message>
    <message>
        <source>Downloading Files</source>
        <translation>Dateien werden heruntergeladen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>InsufficientDlg</name>
    <message>
        <source>Insufficient Space</source>
        <translation>Nicht genügend Speicherplatz</translation>
    </message>
    <message>
        <source>Insufficient space at selected destination.
</source>
        <translation>Nicht genügend Speicherplatz am gewählten Zielort.
</translation>
    </message>
    <message>
        <source>Click &apos;Browse&apos; to change destination .
</source>
        <translation>Klicken Sie auf „Durchsuchen“, um den Zielort zu ändern.
</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Durchsuchen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>InsufficientSpaceDlg</name>
    <message>
        <source>Available Space: %1, Required Space: %2
</source>
        <translation>Verfügbarer Speicherplatz: %1, benötigter Speicherplatz: %2
</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Ordner auswählen</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>English</source>
        <translation>Englisch</translation>
    </message>
    <message>
        <source>German</source>
        <translation>Deutsch</translation>
    </message>
    <message>
        <source>French</source>
        <translation>Französisch</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>Italienisch</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>Spanisch</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>Japanisch</translation>
    </message>
    <message>
        <source>Chinese</source>
        <translation>Chinesisch</translation>
    </message>
    <message>
        <source>Korean</source>
        <translation>Koreanisch</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>Niederländisch</translation>
    </message>
    <message>
        <source>Portuguese Brazil</source>
        <translation>Portugiesisch (Brasilien)</translation>
    </message>
    <message>
        <source>Hindi</source>
        <translation>Hindi</translation>
    </message>
</context>
<context>
    <name>MessageDlg</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>Messages</name>
    <message>
        <source>Exit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Halvern Videomend</source>
        <translation>Halvern Videomend</translation>
    </message>
    <message>
        <source>Halvern Videomend is already running.</source>
        <translation>Halvern Videomend wird bereits ausgeführt.</translation>
    </message>
</context>
<context>
    <name>QCheckUpdate</name>
    <message>
        <source>Update</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>No update available.</source>
        <translation>Kein Update verfügbar.</translation>
    </message>
</context>
<context>
    <name>QDownloadApp</name>
    <message>
        <source>no address of the update server is set</source>
        <translation>es ist keine Adresse des Update-Servers eingestellt</translation>
    </message>
    <message>
        <source>the folder %1 can&apos;t be used</source>
        <translation>der Ordner %1 kann nicht verwendet werden</translation>
    </message>
    <message>
        <source>Unable to save the file </source>
        <translation>Datei kann nicht gespeichert werden </translation>
    </message>
    <message>
        <source>Time Elapsed: </source>
        <translation>Verstrichene Zeit: </translation>
    </message>
    <message>
        <source> sec </source>
        <translation> s </translation>
    </message>
    <message>
        <source> MB copied) </source>
        <translation> MB kopiert) </translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Update failed 

 Update failed due to partial download.</source>
        <translation>Update fehlgeschlagen 

 Das Update ist fehlgeschlagen, weil der Download unvollständig ist.</translation>
    </message>
    <message>
        <source>The installer could not be started.</source>
        <translation>Das Installationsprogramm konnte nicht gestartet werden.</translation>
    </message>
    <message>
        <source> MB of  </source>
        <translation> MB von  </translation>
    </message>
    <message>
        <source>Transfer Rate: </source>
        <translation>Übertragungsrate: </translation>
    </message>
    <message>
        <source> KB/sec </source>
        <translation> KB/s </translation>
    </message>
</context>
<context>
    <name>QShowUpdate</name>
    <message>
        <source>A new minor update </source>
        <translation>Ein neues kleines Update </translation>
    </message>
    <message>
        <source> is available. Click Update to proceed further.</source>
        <translation> ist verfügbar. Klicken Sie auf „Aktualisieren“, um fortzufahren.</translation>
    </message>
    <message>
        <source>A new major release </source>
        <translation>Eine neue Hauptversion </translation>
    </message>
</context>
<context>
    <name>QuestionDlg</name>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlg</name>
    <message>
        <source>Choose Video</source>
        <translation>Video auswählen</translation>
    </message>
    <message>
        <source>Add a sample video:</source>
        <translation>Beispielvideo hinzufügen:</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Durchsuchen</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Reparieren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Apply to all files of same format.</source>
        <translation>Auf alle Dateien desselben Formats anwenden.</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>Datei hinzufügen</translation>
    </message>
</context>
<context>
    <name>ReferenceRepairedDlg</name>
    <message>
        <source>Video file repaired successfully!</source>
        <translation>Die Videodatei wurde erfolgreich repariert!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>SaveDlgClass</name>
    <message>
        <source>Save Files</source>
        <translation>Dateien speichern</translation>
    </message>
    <message>
        <source>Save repaired file at source location.</source>
        <translation>Reparierte Datei am Speicherort der Quelldatei speichern.</translation>
    </message>
    <message>
        <source>Save file at custom location.</source>
        <translation>Datei an einem anderen Speicherort speichern.</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Durchsuchen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Ordner auswählen</translation>
    </message>
</context>
<context>
    <name>ShowUpdateAvail</name>
    <message>
        <source>Software Update</source>
        <translation>Software-Update</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>Sizes</name>
    <message>
        <source>%1 bytes</source>
        <translation>%1 Byte</translation>
    </message>
</context>
<context>
    <name>StopDlg</name>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
</context>
<context>
    <name>VideoRepairWin</name>
    <message>
        <source>More Tools</source>
        <translation>Weitere Tools</translation>
    </message>
    <message>
        <source>Minimise</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>Sprachen</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Add Your Corrupt Videos to Repair</source>
        <translation>Beschädigte Videos zur Reparatur hinzufügen</translation>
    </message>
    <message>
        <source>Add Videos</source>
        <translation>Videos hinzufügen</translation>
    </message>
    <message>
        <source>Repair Your Videos</source>
        <translation>Videos reparieren</translation>
    </message>
    <message>
        <source>Click &apos;Repair&apos; button to fix corrupted videos. This may take a while depending on the number of videos and their size</source>
        <translation>Klicken Sie auf „Reparieren“, um beschädigte Videos zu reparieren. Je nach Anzahl und Größe der Videos kann dies eine Weile dauern</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alle auswählen</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Click here</source>
        <translation>Hier klicken</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Reparieren</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Overall Progress</source>
        <translation>Gesamtfortschritt</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>What is a reference file?</source>
        <translation>Was ist eine Referenzdatei?</translation>
    </message>
    <message>
        <source>Save Repaired Files</source>
        <translation>Reparierte Dateien speichern</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
</context>
<context>
    <name>VideoRepairWindow</name>
    <message>
        <source>Queued</source>
        <translation>In Warteschlange</translation>
    </message>
    <message>
        <source>Processing</source>
        <translation>In Bearbeitung</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>Abgeschlossen</translation>
    </message>
    <message>
        <source>Awaiting Action</source>
        <translation>Aktion nötig</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Advance Repair</source>
        <translation>Erw. Reparatur</translation>
    </message>
    <message>
        <source>FFmpeg Not Found</source>
        <translation>FFmpeg nicht gefunden</translation>
    </message>
    <message>
        <source>FFmpeg is not installed, so damaged videos can be checked but not rebuilt.
Install it with: sudo apt-get install ffmpeg</source>
        <translation>FFmpeg ist nicht installiert: Beschädigte Videos können geprüft, aber nicht neu aufgebaut werden.
Installieren Sie es mit: sudo apt-get install ffmpeg</translation>
    </message>
    <message>
        <source> : Repairing file</source>
        <translation> : Reparatur von Datei</translation>
    </message>
    <message>
        <source>of</source>
        <translation>von</translation>
    </message>
    <message>
        <source>Repairing </source>
        <translation>Reparatur: </translation>
    </message>
    <message>
        <source>Repair Complete</source>
        <translation>Reparatur abgeschlossen</translation>
    </message>
    <message>
        <source>Repair process completed.
Check &apos;Status&apos; column to view the repair outcome.</source>
        <translation>Der Reparaturvorgang ist abgeschlossen.
Das Ergebnis steht in der Spalte „Status“.</translation>
    </message>
    <message>
        <source>Advance Repair Required</source>
        <translation>Erweiterte Reparatur erforderlich</translation>
    </message>
    <message>
        <source>This video is severely damaged. Run advance repair option to repair it before saving.</source>
        <translation>Dieses Video ist schwer beschädigt. Führen Sie vor dem Speichern die erweiterte Reparatur aus.</translation>
    </message>
    <message>
        <source>Process Aborted</source>
        <translation>Vorgang abgebrochen</translation>
    </message>
    <message>
        <source>Repair process was aborted. Go back to the previous screen to restart the repair process.</source>
        <translation>Der Reparaturvorgang wurde abgebrochen. Kehren Sie zum vorherigen Bildschirm zurück, um die Reparatur neu zu starten.</translation>
    </message>
    <message>
        <source>Severely Corrupted Video</source>
        <translation>Schwer beschädigtes Video</translation>
    </message>
    <message>
        <source>This video is severely corrupted and cannot be repaired.</source>
        <translation>Dieses Video ist schwer beschädigt und kann nicht repariert werden.</translation>
    </message>
    <message>
        <source>Stop Repair</source>
        <translation>Reparatur anhalten</translation>
    </message>
    <message>
        <source>This process will stop after processing the current file.</source>
        <translation>Der Vorgang wird nach der aktuellen Datei angehalten.</translation>
    </message>
    <message>
        <source>Do you want to stop the process?</source>
        <translation>Möchten Sie den Vorgang anhalten?</translation>
    </message>
    <message>
        <source>Do you want to stop the current process?</source>
        <translation>Möchten Sie den laufenden Vorgang anhalten?</translation>
    </message>
    <message>
        <source>You can&apos;t resume the process from this point. All the changes will be discarded. </source>
        <translation>Der Vorgang kann an dieser Stelle nicht fortgesetzt werden. Alle Änderungen werden verworfen. </translation>
    </message>
    <message>
        <source>This action will clear repair results.
Do you want to go back to previous screen?</source>
        <translation>Dabei werden die Reparaturergebnisse verworfen.
Möchten Sie zum vorherigen Bildschirm zurückkehren?</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted video before leaving this page?</source>
        <translation>Möchten Sie vor dem Verlassen dieser Seite die erweiterte Reparatur für das schwer beschädigte Video ausführen?</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>Sprachen</translation>
    </message>
    <message>
        <source>List of video files</source>
        <translation>Liste der Videodateien</translation>
    </message>
    <message>
        <source> File Name</source>
        <translation> Dateiname</translation>
    </message>
    <message>
        <source> Path</source>
        <translation> Pfad</translation>
    </message>
    <message>
        <source> Size (MB)</source>
        <translation> Größe (MB)</translation>
    </message>
    <message>
        <source> Modified Date</source>
        <translation> Geändert am</translation>
    </message>
    <message>
        <source> Created Date</source>
        <translation> Erstellt am</translation>
    </message>
    <message>
        <source>  Path</source>
        <translation>  Pfad</translation>
    </message>
    <message>
        <source> Status</source>
        <translation> Status</translation>
    </message>
    <message>
        <source> Action</source>
        <translation> Aktion</translation>
    </message>
    <message>
        <source>Repaired files will be saved in %1.</source>
        <translation>Reparierte Dateien werden in %1 gespeichert.</translation>
    </message>
    <message>
        <source>Repaired files will be saved at the source file location.</source>
        <translation>Reparierte Dateien werden am Speicherort der Quelldatei gespeichert.</translation>
    </message>
    <message>
        <source>To change location</source>
        <translation>Um den Speicherort zu ändern</translation>
    </message>
    <message>
        <source>Repairing selected videos</source>
        <translation>Ausgewählte Videos werden repariert</translation>
    </message>
    <message>
        <source>This may take a while, depending on the number of videos and their file size. Please wait while the process is completed.</source>
        <translation>Je nach Anzahl und Größe der Videos kann dies eine Weile dauern. Bitte warten Sie, bis der Vorgang abgeschlossen ist.</translation>
    </message>
    <message>
        <source>Repair Process Completed</source>
        <translation>Reparaturvorgang abgeschlossen</translation>
    </message>
    <message>
        <source>Click on the &apos;Save Repaired Files&apos; to save all your repaired videos. Click the &apos;Preview&apos; under Action column to preview repaired videos. </source>
        <translation>Klicken Sie auf „Reparierte Dateien speichern“, um alle reparierten Videos zu speichern. Mit „Vorschau“ in der Spalte „Aktion“ sehen Sie sich ein repariertes Video an. </translation>
    </message>
    <message>
        <source>Advance Repair Running</source>
        <translation>Erweiterte Reparatur läuft</translation>
    </message>
    <message>
        <source>Please wait while the &apos;Advance Repair&apos; process is running.</source>
        <translation>Bitte warten Sie, während die erweiterte Reparatur läuft.</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>Datei hinzufügen</translation>
    </message>
    <message>
        <source>Already added files</source>
        <translation>Bereits hinzugefügte Dateien</translation>
    </message>
    <message>
        <source>Files already added to list will be skipped.</source>
        <translation>Dateien, die bereits in der Liste stehen, werden übersprungen.</translation>
    </message>
    <message>
        <source>Choose Location</source>
        <translation>Speicherort wählen</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Application Running! 
Please halt the current process to Exit.</source>
        <translation>Die Anwendung arbeitet noch!
Bitte halten Sie den laufenden Vorgang an, um das Programm zu beenden.</translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted files before exiting?</source>
        <translation>Möchten Sie vor dem Beenden die erweiterte Reparatur für die schwer beschädigten Dateien ausführen?</translation>
    </message>
    <message>
        <source>Are you sure you want to exit?</source>
        <translation>Möchten Sie das Programm wirklich beenden?</translation>
    </message>
    <message>
        <source>File Not Found</source>
        <translation>Datei nicht gefunden</translation>
    </message>
    <message>
        <source>The repaired file is no longer there:
%1</source>
        <translation>Die reparierte Datei ist nicht mehr vorhanden:
%1</translation>
    </message>
    <message>
        <source>Player Not Found</source>
        <translation>Player nicht gefunden</translation>
    </message>
    <message>
        <source>Preview needs MPlayer, which could not be started.
Install it with: sudo apt-get install mplayer</source>
        <translation>Für die Vorschau wird MPlayer benötigt, der nicht gestartet werden konnte.
Installieren Sie ihn mit: sudo apt-get install mplayer</translation>
    </message>
    <message>
        <source>Saving Complete</source>
        <translation>Speichern abgeschlossen</translation>
    </message>
    <message>
        <source>Repaired files saved successfully.</source>
        <translation>Die reparierten Dateien wurden erfolgreich gespeichert.</translation>
    </message>
    <message>
        <source>Files Not Saved</source>
        <translation>Dateien nicht gespeichert</translation>
    </message>
    <message>
        <source>These files could not be saved:
%1</source>
        <translation>Diese Dateien konnten nicht gespeichert werden:
%1</translation>
    </message>
    <message>
        <source>Wait while repaired files are being saved.</source>
        <translation>Bitte warten Sie, während die reparierten Dateien gespeichert werden.</translation>
    </message>
    <message>
        <source>No Files</source>
        <translation>Keine Dateien</translation>
    </message>
    <message>
        <source>No Files Selected.</source>
        <translation>Keine Dateien ausgewählt.</translation>
    </message>
    <message>
        <source>Choose Another Folder</source>
        <translation>Anderen Ordner wählen</translation>
    </message>
    <message>
        <source>This folder holds the program&apos;s work files and is removed at exit.
Choose another folder to save the repaired files.</source>
        <translation>Dieser Ordner enthält die Arbeitsdateien des Programms und wird beim Beenden gelöscht.
Wählen Sie einen anderen Ordner zum Speichern der reparierten Dateien.</translation>
    </message>
    <message>
        <source>Cannot Save Here</source>
        <translation>Speichern hier nicht möglich</translation>
    </message>
    <message>
        <source>Files can&apos;t be written to this folder:
%1
Choose another folder.</source>
        <translation>In diesen Ordner können keine Dateien geschrieben werden:
%1
Wählen Sie einen anderen Ordner.</translation>
    </message>
</context>
<context>
    <name>repairFinishDialog</name>
    <message>
        <source>What is a reference file?</source>
        <translation>Was ist eine Referenzdatei?</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
</TS>

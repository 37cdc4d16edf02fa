<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="nl_NL">
<context>
    <name>AboutDlg</name>
    <message>
        <source>About</source>
        <translation>Over</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Versie %1</translation>
    </message>
    <message>
        <source>System: %1</source>
        <translation>Systeem: %1</translation>
    </message>
    <message>
        <source>License</source>
        <translation>Licentie</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Ondersteuning</translation>
    </message>
</context>
<context>
    <name>AdvancedRepairDlg</name>
    <message>
        <source>Add Sample Video</source>
        <translation>Voorbeeldvideo toevoegen</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;Advance Repair&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Use this option to repair severely damaged videos. &lt;/p&gt;&lt;p&gt;Click &amp;quot;Next&amp;quot; to add a &apos;sample video&apos; of the same format, shot using the same device.&lt;/p&gt;&lt;p&gt;The sample and the damaged video remain unchanged during repair process.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;Geavanceerd herstel&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Gebruik deze optie om ernstig beschadigde video&apos;s te herstellen. &lt;/p&gt;&lt;p&gt;Klik op &amp;quot;Volgende&amp;quot; om een &apos;voorbeeldvideo&apos; in hetzelfde formaat toe te voegen, opgenomen met hetzelfde apparaat.&lt;/p&gt;&lt;p&gt;De voorbeeldvideo en de beschadigde video blijven tijdens het herstel ongewijzigd.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Volgende</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuleren</translation>
    </message>
    <message>
        <source>Learn More</source>
        <translation>Meer informatie</translation>
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
        <translation>Nee</translation>
    </message>
</context>
<context>
    <name>DownloadUpdate</name>
    <message>
        <source>Software Update</source>
        <translation>Software-update</translation>
    </message>
    <message>
        <source>Downloading Files</source>
        <translation>Bestanden downloaden</translation>
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
        <translation>Onvoldoende ruimte</translation>
    </message>
    <message>
        <source>Insufficient space at selected destination.
</source>
        <translation>Onvoldoende ruimte op de gekozen bestemming.
</translation>
    </message>
    <message>
        <source>Click &apos;Browse&apos; to change destination .
</source>
        <translation>Klik op &apos;Bladeren&apos; om de bestemming te wijzigen.
</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Bladeren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuleren</translation>
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
        <translation>Beschikbare ruimte: %1, benodigde ruimte: %2
</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Map selecteren</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>English</source>
        <translation>Engels</translation>
    </message>
    <message>
        <source>German</source>
        <translation>Duits</translation>
    </message>
    <message>
        <source>French</source>
        <translation>Frans</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>Italiaans</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>Spaans</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>Japans</translation>
    </message>
    <message>
        <source>Chinese</source>
        <translation>Chinees</translation>
    </message>
    <message>
        <source>Korean</source>
        <translation>Koreaans</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>Nederlands</translation>
    </message>
    <message>
        <source>Portuguese Brazil</source>
        <translation>Portugees (Brazilië)</translation>
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
        <translation>Afsluiten</translation>
    </message>
    <message>
        <source>Halvern Videomend</source>
        <translation>Halvern Videomend</translation>
    </message>
    <message>
        <source>Halvern Videomend is already running.</source>
        <translation>Halvern Videomend is al actief.</translation>
    </message>
</context>
<context>
    <name>QCheckUpdate</name>
    <message>
        <source>Update</source>
        <translation>Bijwerken</translation>
    </message>
    <message>
        <source>No update available.</source>
        <translation>Geen update beschikbaar.</translation>
    </message>
</context>
<context>
    <name>QDownloadApp</name>
    <message>
        <source>no address of the update server is set</source>
        <translation>er is geen adres van de updateserver ingesteld</translation>
    </message>
    <message>
        <source>the folder %1 can&apos;t be used</source>
        <translation>de map %1 kan niet worden gebruikt</translation>
    </message>
    <message>
        <source>Unable to save the file </source>
        <translation>Kan het bestand niet opslaan </translation>
    </message>
    <message>
        <source>Time Elapsed: </source>
        <translation>Verstreken tijd: </translation>
    </message>
    <message>
        <source> sec </source>
        <translation> s </translation>
    </message>
    <message>
        <source> MB copied) </source>
        <translation> MB gekopieerd) </translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Bijwerken</translation>
    </message>
    <message>
        <source>Update failed 

 Update failed due to partial download.</source>
        <translation>Update mislukt 

 De update is mislukt omdat de download onvolledig is.</translation>
    </message>
    <message>
        <source>The installer could not be started.</source>
        <translation>Het installatieprogramma kon niet worden gestart.</translation>
    </message>
    <message>
        <source> MB of  </source>
        <translation> MB van  </translation>
    </message>
    <message>
        <source>Transfer Rate: </source>
        <translation>Overdrachtssnelheid: </translation>
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
        <translation>Een nieuwe kleine update </translation>
    </message>
    <message>
        <source> is available. Click Update to proceed further.</source>
        <translation> is beschikbaar. Klik op Bijwerken om verder te gaan.</translation>
    </message>
    <message>
        <source>A new major release </source>
        <translation>Een nieuwe hoofdversie </translation>
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
        <translation>Nee</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlg</name>
    <message>
        <source>Choose Video</source>
        <translation>Video kiezen</translation>
    </message>
    <message>
        <source>Add a sample video:</source>
        <translation>Voeg een voorbeeldvideo toe:</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Bladeren</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Herstellen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuleren</translation>
    </message>
    <message>
        <source>Apply to all files of same format.</source>
        <translation>Toepassen op alle bestanden met hetzelfde formaat.</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>Bestand toevoegen</translation>
    </message>
</context>
<context>
    <name>ReferenceRepairedDlg</name>
    <message>
        <source>Video file repaired successfully!</source>
        <translation>Videobestand is hersteld!</translation>
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
        <translation>Bestanden opslaan</translation>
    </message>
    <message>
        <source>Save repaired file at source location.</source>
        <translation>Hersteld bestand opslaan op de bronlocatie.</translation>
    </message>
    <message>
        <source>Save file at custom location.</source>
        <translation>Bestand opslaan op een andere locatie.</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Bladeren</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Opslaan</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuleren</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Map selecteren</translation>
    </message>
</context>
<context>
    <name>ShowUpdateAvail</name>
    <message>
        <source>Software Update</source>
        <translation>Software-update</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Bijwerken</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuleren</translation>
    </message>
</context>
<context>
    <name>Sizes</name>
    <message>
        <source>%1 bytes</source>
        <translation>%1 bytes</translation>
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
        <translation>Nee</translation>
    </message>
</context>
<context>
    <name>VideoRepairWin</name>
    <message>
        <source>More Tools</source>
        <translation>Meer hulpmiddelen</translation>
    </message>
    <message>
        <source>Minimise</source>
        <translation>Minimaliseren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Sluiten</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menu</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>Talen</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Help</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Bijwerken</translation>
    </message>
    <message>
        <source>Add Your Corrupt Videos to Repair</source>
        <translation>Voeg uw beschadigde video&apos;s toe om ze te herstellen</translation>
    </message>
    <message>
        <source>Add Videos</source>
        <translation>Video&apos;s toevoegen</translation>
    </message>
    <message>
        <source>Repair Your Videos</source>
        <translation>Herstel uw video&apos;s</translation>
    </message>
    <message>
        <source>Click &apos;Repair&apos; button to fix corrupted videos. This may take a while depending on the number of videos and their size</source>
        <translation>Klik op de knop &apos;Herstellen&apos; om beschadigde video&apos;s te herstellen. Dit kan even duren, afhankelijk van het aantal video&apos;s en hun grootte</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles selecteren</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Toevoegen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Verwijderen</translation>
    </message>
    <message>
        <source>Click here</source>
        <translation>Klik hier</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Herstellen</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Terug</translation>
    </message>
    <message>
        <source>Overall Progress</source>
        <translation>Totale voortgang</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Voorbeeld</translation>
    </message>
    <message>
        <source>What is a reference file?</source>
        <translation>Wat is een referentiebestand?</translation>
    </message>
    <message>
        <source>Save Repaired Files</source>
        <translation>Herstelde bestanden opslaan</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stoppen</translation>
    </message>
</context>
<context>
    <name>VideoRepairWindow</name>
    <message>
        <source>Queued</source>
        <translation>In wachtrij</translation>
    </message>
    <message>
        <source>Processing</source>
        <translation>Bezig</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>Voltooid</translation>
    </message>
    <message>
        <source>Awaiting Action</source>
        <translation>Actie vereist</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Mislukt</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>Afgebroken</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Voorbeeld</translation>
    </message>
    <message>
        <source>Advance Repair</source>
        <translation>Geav. herstel</translation>
    </message>
    <message>
        <source>FFmpeg Not Found</source>
        <translation>FFmpeg niet gevonden</translation>
    </message>
    <message>
        <source>FFmpeg is not installed, so damaged videos can be checked but not rebuilt.
Install it with: sudo apt-get install ffmpeg</source>
        <translation>FFmpeg is niet geïnstalleerd: beschadigde video&apos;s kunnen worden gecontroleerd, maar niet opnieuw opgebouwd.
Installeer het met: sudo apt-get install ffmpeg</translation>
    </message>
    <message>
        <source> : Repairing file</source>
        <translation> : Bestand herstellen</translation>
    </message>
    <message>
        <source>of</source>
        <translation>van</translation>
    </message>
    <message>
        <source>Repairing </source>
        <translation>Herstellen: </translation>
    </message>
    <message>
        <source>Repair Complete</source>
        <translation>Herstel voltooid</translation>
    </message>
    <message>
        <source>Repair process completed.
Check &apos;Status&apos; column to view the repair outcome.</source>
        <translation>Het herstelproces is voltooid.
Bekijk de kolom &apos;Status&apos; voor het resultaat.</translation>
    </message>
    <message>
        <source>Advance Repair Required</source>
        <translation>Geavanceerd herstel vereist</translation>
    </message>
    <message>
        <source>This video is severely damaged. Run advance repair option to repair it before saving.</source>
        <translation>Deze video is ernstig beschadigd. Voer geavanceerd herstel uit voordat u de video opslaat.</translation>
    </message>
    <message>
        <source>Process Aborted</source>
        <translation>Proces afgebroken</translation>
    </message>
    <message>
        <source>Repair process was aborted. Go back to the previous screen to restart the repair process.</source>
        <translation>Het herstelproces is afgebroken. Ga terug naar het vorige scherm om het herstel opnieuw te starten.</translation>
    </message>
    <message>
        <source>Severely Corrupted Video</source>
        <translation>Ernstig beschadigde video</translation>
    </message>
    <message>
        <source>This video is severely corrupted and cannot be repaired.</source>
        <translation>Deze video is ernstig beschadigd en kan niet worden hersteld.</translation>
    </message>
    <message>
        <source>Stop Repair</source>
        <translation>Herstel stoppen</translation>
    </message>
    <message>
        <source>This process will stop after processing the current file.</source>
        <translation>Het proces stopt nadat het huidige bestand is verwerkt.</translation>
    </message>
    <message>
        <source>Do you want to stop the process?</source>
        <translation>Wilt u het proces stoppen?</translation>
    </message>
    <message>
        <source>Do you want to stop the current process?</source>
        <translation>Wilt u het huidige proces stoppen?</translation>
    </message>
    <message>
        <source>You can&apos;t resume the process from this point. All the changes will be discarded. </source>
        <translation>U kunt het proces vanaf dit punt niet hervatten. Alle wijzigingen gaan verloren. </translation>
    </message>
    <message>
        <source>This action will clear repair results.
Do you want to go back to previous screen?</source>
        <translation>Hiermee worden de herstelresultaten gewist.
Wilt u teruggaan naar het vorige scherm?</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Terug</translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted video before leaving this page?</source>
        <translation>Wilt u geavanceerd herstel uitvoeren op de ernstig beschadigde video voordat u deze pagina verlaat?</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>Talen</translation>
    </message>
    <message>
        <source>List of video files</source>
        <translation>Lijst met videobestanden</translation>
    </message>
    <message>
        <source> File Name</source>
        <translation> Bestandsnaam</translation>
    </message>
    <message>
        <source> Path</source>
        <translation> Pad</translation>
    </message>
    <message>
        <source> Size (MB)</source>
        <translation> Grootte (MB)</translation>
    </message>
    <message>
        <source> Modified Date</source>
        <translation> Gewijzigd op</translation>
    </message>
    <message>
        <source> Created Date</source>
        <translation> Gemaakt op</translation>
    </message>
    <message>
        <source>  Path</source>
        <translation>  Pad</translation>
    </message>
    <message>
        <source> Status</source>
        <translation> Status</translation>
    </message>
    <message>
        <source> Action</source>
        <translation> Actie</translation>
    </message>
    <message>
        <source>Repaired files will be saved in %1.</source>
        <translation>Herstelde bestanden worden opgeslagen in %1.</translation>
    </message>
    <message>
        <source>Repaired files will be saved at the source file location.</source>
        <translation>Herstelde bestanden worden opgeslagen op de locatie van het bronbestand.</translation>
    </message>
    <message>
        <source>To change location</source>
        <translation>Om de locatie te wijzigen</translation>
    </message>
    <message>
        <source>Repairing selected videos</source>
        <translation>Geselecteerde video&apos;s worden hersteld</translation>
    </message>
    <message>
        <source>This may take a while, depending on the number of videos and their file size. Please wait while the process is completed.</source>
        <translation>Dit kan even duren, afhankelijk van het aantal video&apos;s en hun bestandsgrootte. Wacht tot het proces is voltooid.</translation>
    </message>
    <message>
        <source>Repair Process Completed</source>
        <translation>Herstelproces voltooid</translation>
    </message>
    <message>
        <source>Click on the &apos;Save Repaired Files&apos; to save all your repaired videos. Click the &apos;Preview&apos; under Action column to preview repaired videos. </source>
        <translation>Klik op &apos;Herstelde bestanden opslaan&apos; om al uw herstelde video&apos;s op te slaan. Klik op &apos;Voorbeeld&apos; in de kolom Actie om een herstelde video te bekijken. </translation>
    </message>
    <message>
        <source>Advance Repair Running</source>
        <translation>Geavanceerd herstel bezig</translation>
    </message>
    <message>
        <source>Please wait while the &apos;Advance Repair&apos; process is running.</source>
        <translation>Even geduld, geavanceerd herstel is bezig.</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>Bestand toevoegen</translation>
    </message>
    <message>
        <source>Already added files</source>
        <translation>Al toegevoegde bestanden</translation>
    </message>
    <message>
        <source>Files already added to list will be skipped.</source>
        <translation>Bestanden die al in de lijst staan, worden overgeslagen.</translation>
    </message>
    <message>
        <source>Choose Location</source>
        <translation>Locatie kiezen</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Afsluiten</translation>
    </message>
    <message>
        <source>Application Running! 
Please halt the current process to Exit.</source>
        <translation>De toepassing is actief! 
Stop het huidige proces om af te sluiten.</translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted files before exiting?</source>
        <translation>Wilt u geavanceerd herstel uitvoeren op de ernstig beschadigde bestanden voordat u afsluit?</translation>
    </message>
    <message>
        <source>Are you sure you want to exit?</source>
        <translation>Weet u zeker dat u wilt afsluiten?</translation>
    </message>
    <message>
        <source>File Not Found</source>
        <translation>Bestand niet gevonden</translation>
    </message>
    <message>
        <source>The repaired file is no longer there:
%1</source>
        <translation>Het herstelde bestand bestaat niet meer:
%1</translation>
    </message>
    <message>
        <source>Player Not Found</source>
        <translation>Speler niet gevonden</translation>
    </message>
    <message>
        <source>Preview needs MPlayer, which could not be started.
Install it with: sudo apt-get install mplayer</source>
        <translation>Voor het voorbeeld is MPlayer nodig, maar die kon niet worden gestart.
Installeer het met: sudo apt-get install mplayer</translation>
    </message>
    <message>
        <source>Saving Complete</source>
        <translation>Opslaan voltooid</translation>
    </message>
    <message>
        <source>Repaired files saved successfully.</source>
        <translation>De herstelde bestanden zijn opgeslagen.</translation>
    </message>
    <message>
        <source>Files Not Saved</source>
        <translation>Bestanden niet opgeslagen</translation>
    </message>
    <message>
        <source>These files could not be saved:
%1</source>
        <translation>Deze bestanden konden niet worden opgeslagen:
%1</translation>
    </message>
    <message>
        <source>Wait while repaired files are being saved.</source>
        <translation>Even geduld, de herstelde bestanden worden opgeslagen.</translation>
    </message>
    <message>
        <source>No Files</source>
        <translation>Geen bestanden</translation>
    </message>
    <message>
        <source>No Files Selected.</source>
        <translation>Geen bestanden geselecteerd.</translation>
    </message>
    <message>
        <source>Choose Another Folder</source>
        <translation>Andere map kiezen</translation>
    </message>
    <message>
        <source>This folder holds the program&apos;s work files and is removed at exit.
Choose another folder to save the repaired files.</source>
        <translation>Deze map bevat de werkbestanden van het programma en wordt bij het afsluiten verwijderd.
Kies een andere map om de herstelde bestanden op te slaan.</translation>
    </message>
    <message>
        <source>Cannot Save Here</source>
        <translation>Kan hier niet opslaan</translation>
    </message>
    <message>
        <source>Files can&apos;t be written to this folder:
%1
Choose another folder.</source>
        <translation>In deze map kunnen geen bestanden worden geschreven:
%1
Kies een andere map.</translation>
    </message>
</context>
<context>
    <name>repairFinishDialog</name>
    <message>
        <source>What is a reference file?</source>
        <translation>Wat is een referentiebestand?</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
</TS>

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it_IT">
<context>
    <name>AboutDlg</name>
    <message>
        <source>About</source>
        <translation>Informazioni</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Versione %1</translation>
    </message>
    <message>
        <source>System: %1</source>
        <translation>Sistema: %1</translation>
    </message>
    <message>
        <source>License</source>
        <translation>Licenza</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Assistenza</translation>
    </message>
</context>
<context>
    <name>AdvancedRepairDlg</name>
    <message>
        <source>Add Sample Video</source>
        <translation>Aggiungi video di esempio</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;Advance Repair&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Use this option to repair severely damaged videos. &lt;/p&gt;&lt;p&gt;Click &amp;quot;Next&amp;quot; to add a &apos;sample video&apos; of the same format, shot using the same device.&lt;/p&gt;&lt;p&gt;The sample and the damaged video remain unchanged during repair process.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;Riparazione avanzata&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Usa questa opzione per riparare video gravemente danneggiati. &lt;/p&gt;&lt;p&gt;Fai clic su &amp;quot;Avanti&amp;quot; per aggiungere un “video di esempio” dello stesso formato, girato con lo stesso dispositivo.&lt;/p&gt;&lt;p&gt;Il video di esempio e quello danneggiato restano invariati durante la riparazione.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Avanti</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Learn More</source>
        <translation>Scopri di più</translation>
    </message>
</context>
<context>
    <name>CloseApplicationDlg</name>
    <message>
        <source>Yes</source>
        <translation>Sì</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
</context>
<context>
    <name>DownloadUpdate</name>
    <message>
        <source>Software Update</source>
        <translation>Aggiornamento software</translation>
    </message>
    <message>
        <source>Downloading Files</source>
        <translation>Download dei file</translation>
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
        <translation>Spazio insufficiente</translation>
    </message>
    <message>
        <source>Insufficient space at selected destination.
</source>
        <translation>Spazio insufficiente nella destinazione selezionata.
</translation>
    </message>
    <message>
        <source>Click &apos;Browse&apos; to change destination .
</source>
        <translation>Fai clic su “Sfoglia” per cambiare destinazione.
</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Sfoglia</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
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
        <translation>Spazio disponibile: %1, spazio richiesto: %2
</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Seleziona cartella</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>English</source>
        <translation>Inglese</translation>
    </message>
    <message>
        <source>German</source>
        <translation>Tedesco</translation>
    </message>
    <message>
        <source>French</source>
        <translation>Francese</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>Italiano</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>Spagnolo</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>Giapponese</translation>
    </message>
    <message>
        <source>Chinese</source>
        <translation>Cinese</translation>
    </message>
    <message>
        <source>Korean</source>
        <translation>Coreano</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>Olandese</translation>
    </message>
    <message>
        <source>Portuguese Brazil</source>
        <translation>Portoghese (Brasile)</translation>
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
        <translation>Esci</translation>
    </message>
    <message>
        <source>Halvern Videomend</source>
        <translation>Halvern Videomend</translation>
    </message>
    <message>
        <source>Halvern Videomend is already running.</source>
        <translation>Halvern Videomend è già in esecuzione.</translation>
    </message>
</context>
<context>
    <name>QCheckUpdate</name>
    <message>
        <source>Update</source>
        <translation>Aggiorna</translation>
    </message>
    <message>
        <source>No update available.</source>
        <translation>Nessun aggiornamento disponibile.</translation>
    </message>
</context>
<context>
    <name>QDownloadApp</name>
    <message>
        <source>no address of the update server is set</source>
        <translation>nessun indirizzo del server di aggiornamento impostato</translation>
    </message>
    <message>
        <source>the folder %1 can&apos;t be used</source>
        <translation>la cartella %1 non può essere usata</translation>
    </message>
    <message>
        <source>Unable to save the file </source>
        <translation>Impossibile salvare il file </translation>
    </message>
    <message>
        <source>Time Elapsed: </source>
        <translation>Tempo trascorso: </translation>
    </message>
    <message>
        <source> sec </source>
        <translation> s </translation>
    </message>
    <message>
        <source> MB copied) </source>
        <translation> MB copiati) </translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aggiorna</translation>
    </message>
    <message>
        <source>Update failed 

 Update failed due to partial download.</source>
        <translation>Aggiornamento non riuscito 

 Aggiornamento non riuscito: download incompleto.</translation>
    </message>
    <message>
        <source>The installer could not be started.</source>
        <translation>Impossibile avviare il programma di installazione.</translation>
    </message>
    <message>
        <source> MB of  </source>
        <translation> MB di  </translation>
    </message>
    <message>
        <source>Transfer Rate: </source>
        <translation>Velocità di trasferimento: </translation>
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
        <translation>Un nuovo aggiornamento minore </translation>
    </message>
    <message>
        <source> is available. Click Update to proceed further.</source>
        <translation> è disponibile. Fare clic su Aggiorna per continuare.</translation>
    </message>
    <message>
        <source>A new major release </source>
        <translation>Una nuova versione principale </translation>
    </message>
</context>
<context>
    <name>QuestionDlg</name>
    <message>
        <source>Yes</source>
        <translation>Sì</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlg</name>
    <message>
        <source>Choose Video</source>
        <translation>Scegli video</translation>
    </message>
    <message>
        <source>Add a sample video:</source>
        <translation>Aggiungi un video di esempio:</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Sfoglia</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Ripara</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Apply to all files of same format.</source>
        <translation>Applica a tutti i file dello stesso formato.</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>Aggiungi file</translation>
    </message>
</context>
<context>
    <name>ReferenceRepairedDlg</name>
    <message>
        <source>Video file repaired successfully!</source>
        <translation>File video riparato correttamente!</translation>
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
        <translation>Salva file</translation>
    </message>
    <message>
        <source>Save repaired file at source location.</source>
        <translation>Salva il file riparato nella posizione di origine.</translation>
    </message>
    <message>
        <source>Save file at custom location.</source>
        <translation>Salva il file in un&apos;altra posizione.</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Sfoglia</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Salva</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Seleziona cartella</translation>
    </message>
</context>
<context>
    <name>ShowUpdateAvail</name>
    <message>
        <source>Software Update</source>
        <translation>Aggiornamento software</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aggiorna</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
</context>
<context>
    <name>Sizes</name>
    <message>
        <source>%1 bytes</source>
        <translation>%1 byte</translation>
    </message>
</context>
<context>
    <name>StopDlg</name>
    <message>
        <source>Yes</source>
        <translation>Sì</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
</context>
<context>
    <name>VideoRepairWin</name>
    <message>
        <source>More Tools</source>
        <translation>Altri strumenti</translation>
    </message>
    <message>
        <source>Minimise</source>
        <translation>Riduci a icona</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menu</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>Lingue</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Informazioni</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Guida</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aggiorna</translation>
    </message>
    <message>
        <source>Add Your Corrupt Videos to Repair</source>
        <translation>Aggiungi i video danneggiati da riparare</translation>
    </message>
    <message>
        <source>Add Videos</source>
        <translation>Aggiungi video</translation>
    </message>
    <message>
        <source>Repair Your Videos</source>
        <translation>Ripara i tuoi video</translation>
    </message>
    <message>
        <source>Click &apos;Repair&apos; button to fix corrupted videos. This may take a while depending on the number of videos and their size</source>
        <translation>Fai clic sul pulsante “Ripara” per correggere i video danneggiati. L&apos;operazione può richiedere del tempo, a seconda del numero e delle dimensioni dei video</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Seleziona tutto</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Aggiungi</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Rimuovi</translation>
    </message>
    <message>
        <source>Click here</source>
        <translation>Fai clic qui</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Ripara</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Indietro</translation>
    </message>
    <message>
        <source>Overall Progress</source>
        <translation>Avanzamento totale</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Anteprima</translation>
    </message>
    <message>
        <source>What is a reference file?</source>
        <translation>Che cos&apos;è un file di riferimento?</translation>
    </message>
    <message>
        <source>Save Repaired Files</source>
        <translation>Salva file riparati</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Interrompi</translation>
    </message>
</context>
<context>
    <name>VideoRepairWindow</name>
    <message>
        <source>Queued</source>
        <translation>In coda</translation>
    </message>
    <message>
        <source>Processing</source>
        <translation>In elaborazione</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>Completato</translation>
    </message>
    <message>
        <source>Awaiting Action</source>
        <translation>Azione richiesta</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Non riuscito</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>Interrotto</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Anteprima</translation>
    </message>
    <message>
        <source>Advance Repair</source>
        <translation>Rip. avanzata</translation>
    </message>
    <message>
        <source>FFmpeg Not Found</source>
        <translation>FFmpeg non trovato</translation>
    </message>
    <message>
        <source>FFmpeg is not installed, so damaged videos can be checked but not rebuilt.
Install it with: sudo apt-get install ffmpeg</source>
        <translation>FFmpeg non è installato: i video danneggiati possono essere analizzati, ma non ricostruiti.
Installalo con: sudo apt-get install ffmpeg</translation>
    </message>
    <message>
        <source> : Repairing file</source>
        <translation> : Riparazione del file</translation>
    </message>
    <message>
        <source>of</source>
        <translation>di</translation>
    </message>
    <message>
        <source>Repairing </source>
        <translation>Riparazione di </translation>
    </message>
    <message>
        <source>Repair Complete</source>
        <translation>Riparazione completata</translation>
    </message>
    <message>
        <source>Repair process completed.
Check &apos;Status&apos; column to view the repair outcome.</source>
        <translation>Il processo di riparazione è terminato.
Controlla la colonna “Stato” per vedere il risultato.</translation>
    </message>
    <message>
        <source>Advance Repair Required</source>
        <translation>Riparazione avanzata necessaria</translation>
    </message>
    <message>
        <source>This video is severely damaged. Run advance repair option to repair it before saving.</source>
        <translation>Questo video è gravemente danneggiato. Esegui la riparazione avanzata prima di salvarlo.</translation>
    </message>
    <message>
        <source>Process Aborted</source>
        <translation>Processo interrotto</translation>
    </message>
    <message>
        <source>Repair process was aborted. Go back to the previous screen to restart the repair process.</source>
        <translation>Il processo di riparazione è stato interrotto. Torna alla schermata precedente per riavviare la riparazione.</translation>
    </message>
    <message>
        <source>Severely Corrupted Video</source>
        <translation>Video gravemente danneggiato</translation>
    </message>
    <message>
        <source>This video is severely corrupted and cannot be repaired.</source>
        <translation>Questo video è gravemente danneggiato e non può essere riparato.</translation>
    </message>
    <message>
        <source>Stop Repair</source>
        <translation>Interrompi riparazione</translation>
    </message>
    <message>
        <source>This process will stop after processing the current file.</source>
        <translation>Il processo si fermerà dopo l&apos;elaborazione del file corrente.</translation>
    </message>
    <message>
        <source>Do you want to stop the process?</source>
        <translation>Vuoi interrompere il processo?</translation>
    </message>
    <message>
        <source>Do you want to stop the current process?</source>
        <translation>Vuoi interrompere il processo in corso?</translation>
    </message>
    <message>
        <source>You can&apos;t resume the process from this point. All the changes will be discarded. </source>
        <translation>Non potrai riprendere il processo da questo punto. Tutte le modifiche andranno perse. </translation>
    </message>
    <message>
        <source>This action will clear repair results.
Do you want to go back to previous screen?</source>
        <translation>Questa azione cancellerà i risultati della riparazione.
Vuoi tornare alla schermata precedente?</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Indietro</translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted video before leaving this page?</source>
        <translation>Vuoi eseguire la riparazione avanzata sul video gravemente danneggiato prima di lasciare questa pagina?</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>Lingue</translation>
    </message>
    <message>
        <source>List of video files</source>
        <translation>Elenco dei file video</translation>
    </message>
    <message>
        <source> File Name</source>
        <translation> Nome file</translation>
    </message>
    <message>
        <source> Path</source>
        <translation> Percorso</translation>
    </message>
    <message>
        <source> Size (MB)</source>
        <translation> Dimensione (MB)</translation>
    </message>
    <message>
        <source> Modified Date</source>
        <translation> Data modifica</translation>
    </message>
    <message>
        <source> Created Date</source>
        <translation> Data creazione</translation>
    </message>
    <message>
        <source>  Path</source>
        <translation>  Percorso</translation>
    </message>
    <message>
        <source> Status</source>
        <translation> Stato</translation>
    </message>
    <message>
        <source> Action</source>
        <translation> Azione</translation>
    </message>
    <message>
        <source>Repaired files will be saved in %1.</source>
        <translation>I file riparati verranno salvati in %1.</translation>
    </message>
    <message>
        <source>Repaired files will be saved at the source file location.</source>
        <translation>I file riparati verranno salvati nella posizione dei file di origine.</translation>
    </message>
    <message>
        <source>To change location</source>
        <translation>Per cambiare posizione</translation>
    </message>
    <message>
        <source>Repairing selected videos</source>
        <translation>Riparazione dei video selezionati</translation>
    </message>
    <message>
        <source>This may take a while, depending on the number of videos and their file size. Please wait while the process is completed.</source>
        <translation>L&apos;operazione può richiedere del tempo, a seconda del numero di video e delle loro dimensioni. Attendi il completamento del processo.</translation>
    </message>
    <message>
        <source>Repair Process Completed</source>
        <translation>Processo di riparazione completato</translation>
    </message>
    <message>
        <source>Click on the &apos;Save Repaired Files&apos; to save all your repaired videos. Click the &apos;Preview&apos; under Action column to preview repaired videos. </source>
        <translation>Fai clic su “Salva file riparati” per salvare tutti i video riparati. Fai clic su “Anteprima” nella colonna Azione per visualizzare un video riparato. </translation>
    </message>
    <message>
        <source>Advance Repair Running</source>
        <translation>Riparazione avanzata in corso</translation>
    </message>
    <message>
        <source>Please wait while the &apos;Advance Repair&apos; process is running.</source>
        <translation>Attendi il termine della riparazione avanzata.</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>Aggiungi file</translation>
    </message>
    <message>
        <source>Already added files</source>
        <translation>File già aggiunti</translation>
    </message>
    <message>
        <source>Files already added to list will be skipped.</source>
        <translation>I file già presenti nell&apos;elenco verranno ignorati.</translation>
    </message>
    <message>
        <source>Choose Location</source>
        <translation>Scegli posizione</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Esci</translation>
    </message>
    <message>
        <source>Application Running! 
Please halt the current process to Exit.</source>
        <translation>Applicazione in esecuzione! 
Interrompi il processo in corso per uscire.</translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted files before exiting?</source>
        <translation>Vuoi eseguire la riparazione avanzata sui file gravemente danneggiati prima di uscire?</translation>
    </message>
    <message>
        <source>Are you sure you want to exit?</source>
        <translation>Vuoi davvero uscire?</translation>
    </message>
    <message>
        <source>File Not Found</source>
        <translation>File non trovato</translation>
    </message>
    <message>
        <source>The repaired file is no longer there:
%1</source>
        <translation>Il file riparato non esiste più:
%1</translation>
    </message>
    <message>
        <source>Player Not Found</source>
        <translation>Lettore non trovato</translation>
    </message>
    <message>
        <source>Preview needs MPlayer, which could not be started.
Install it with: sudo apt-get install mplayer</source>
        <translation>L&apos;anteprima richiede MPlayer, che non è stato possibile avviare.
Installalo con: sudo apt-get install mplayer</translation>
    </message>
    <message>
        <source>Saving Complete</source>
        <translation>Salvataggio completato</translation>
    </message>
    <message>
        <source>Repaired files saved successfully.</source>
        <translation>File riparati salvati correttamente.</translation>
    </message>
    <message>
        <source>Files Not Saved</source>
        <translation>File non salvati</translation>
    </message>
    <message>
        <source>These files could not be saved:
%1</source>
        <translation>Impossibile salvare questi file:
%1</translation>
    </message>
    <message>
        <source>Wait while repaired files are being saved.</source>
        <translation>Attendi il salvataggio dei file riparati.</translation>
    </message>
    <message>
        <source>No Files</source>
        <translation>Nessun file</translation>
    </message>
    <message>
        <source>No Files Selected.</source>
        <translation>Nessun file selezionato.</translation>
    </message>
    <message>
        <source>Choose Another Folder</source>
        <translation>Scegli un&apos;altra cartella</translation>
    </message>
    <message>
        <source>This folder holds the program&apos;s work files and is removed at exit.
Choose another folder to save the repaired files.</source>
        <translation>Questa cartella contiene i file di lavoro del programma e viene eliminata all&apos;uscita.
Scegli un&apos;altra cartella per salvare i file riparati.</translation>
    </message>
    <message>
        <source>Cannot Save Here</source>
        <translation>Impossibile salvare qui</translation>
    </message>
    <message>
        <source>Files can&apos;t be written to this folder:
%1
Choose another folder.</source>
        <translation>Impossibile scrivere file in questa cartella:
%1
Scegli un&apos;altra cartella.</translation>
    </message>
</context>
<context>
    <name>repairFinishDialog</name>
    <message>
        <source>What is a reference file?</source>
        <translation>Che cos&apos;è un file di riferimento?</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
</TS>

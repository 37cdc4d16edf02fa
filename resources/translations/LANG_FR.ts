<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>AboutDlg</name>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version du logiciel %1</translation>
    </message>
    <message>
        <source>System: %1</source>
        <translation>Système : %1</translation>
    </message>
    <message>
        <source>License</source>
        <translation>Licence</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Assistance</translation>
    </message>
</context>
<context>
    <name>AdvancedRepairDlg</name>
    <message>
        <source>Add Sample Video</source>
        <translation>Ajouter une vidéo d&apos;exemple</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;Advance Repair&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Use this option to repair severely damaged videos. &lt;/p&gt;&lt;p&gt;Click &amp;quot;Next&amp;quot; to add a &apos;sample video&apos; of the same format, shot using the same device.&lt;/p&gt;&lt;p&gt;The sample and the damaged video remain unchanged during repair process.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;Réparation avancée&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Utilisez cette option pour réparer des vidéos gravement endommagées. &lt;/p&gt;&lt;p&gt;Cliquez sur &amp;quot;Suivant&amp;quot; pour ajouter une « vidéo d&apos;exemple » de même format, filmée avec le même appareil.&lt;/p&gt;&lt;p&gt;La vidéo d&apos;exemple et la vidéo endommagée restent inchangées pendant la réparation.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Learn More</source>
        <translation>En savoir plus</translation>
    </message>
</context>
<context>
    <name>CloseApplicationDlg</name>
    <message>
        <source>Yes</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Non</translation>
    </message>
</context>
<context>
    <name>DownloadUpdate</name>
    <message>
        <source>Software Update</source>
        <translation>Mise à jour du logiciel</translation>
    </message>
    <message>
        <source>Downloading Files</source>
        <translation>Téléchargement des fichiers</translation>
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
        <translation>Espace insuffisant</translation>
    </message>
    <message>
        <source>Insufficient space at selected destination.
</source>
        <translation>Espace insuffisant à l&apos;emplacement choisi.
</translation>
    </message>
    <message>
        <source>Click &apos;Browse&apos; to change destination .
</source>
        <translation>Cliquez sur « Parcourir » pour changer de destination.
</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Parcourir</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
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
        <translation>Espace disponible : %1, espace requis : %2
</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Sélectionner un dossier</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>English</source>
        <translation>Anglais</translation>
    </message>
    <message>
        <source>German</source>
        <translation>Allemand</translation>
    </message>
    <message>
        <source>French</source>
        <translation>Français</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>Italien</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>Espagnol</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>Japonais</translation>
    </message>
    <message>
        <source>Chinese</source>
        <translation>Chinois</translation>
    </message>
    <message>
        <source>Korean</source>
        <translation>Coréen</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>Néerlandais</translation>
    </message>
    <message>
        <source>Portuguese Brazil</source>
        <translation>Portugais (Brésil)</translation>
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
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Halvern Videomend</source>
        <translation>Halvern Videomend</translation>
    </message>
    <message>
        <source>Halvern Videomend is already running.</source>
        <translation>Halvern Videomend est déjà en cours d&apos;exécution.</translation>
    </message>
</context>
<context>
    <name>QCheckUpdate</name>
    <message>
        <source>Update</source>
        <translation>Mise à jour</translation>
    </message>
    <message>
        <source>No update available.</source>
        <translation>Aucune mise à jour disponible.</translation>
    </message>
</context>
<context>
    <name>QDownloadApp</name>
    <message>
        <source>no address of the update server is set</source>
        <translation>aucune adresse de serveur de mise à jour n&apos;est définie</translation>
    </message>
    <message>
        <source>the folder %1 can&apos;t be used</source>
        <translation>le dossier %1 ne peut pas être utilisé</translation>
    </message>
    <message>
        <source>Unable to save the file </source>
        <translation>Impossible d&apos;enregistrer le fichier </translation>
    </message>
    <message>
        <source>Time Elapsed: </source>
        <translation>Temps écoulé : </translation>
    </message>
    <message>
        <source> sec </source>
        <translation> s </translation>
    </message>
    <message>
        <source> MB copied) </source>
        <translation> Mo copiés) </translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Mise à jour</translation>
    </message>
    <message>
        <source>Update failed 

 Update failed due to partial download.</source>
        <translation>Échec de la mise à jour 

 La mise à jour a échoué : téléchargement incomplet.</translation>
    </message>
    <message>
        <source>The installer could not be started.</source>
        <translation>Le programme d&apos;installation n&apos;a pas pu être lancé.</translation>
    </message>
    <message>
        <source> MB of  </source>
        <translation> Mo sur  </translation>
    </message>
    <message>
        <source>Transfer Rate: </source>
        <translation>Débit : </translation>
    </message>
    <message>
        <source> KB/sec </source>
        <translation> Ko/s </translation>
    </message>
</context>
<context>
    <name>QShowUpdate</name>
    <message>
        <source>A new minor update </source>
        <translation>Une nouvelle mise à jour mineure </translation>
    </message>
    <message>
        <source> is available. Click Update to proceed further.</source>
        <translation> est disponible. Cliquez sur « Mise à jour » pour continuer.</translation>
    </message>
    <message>
        <source>A new major release </source>
        <translation>Une nouvelle version majeure </translation>
    </message>
</context>
<context>
    <name>QuestionDlg</name>
    <message>
        <source>Yes</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Non</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlg</name>
    <message>
        <source>Choose Video</source>
        <translation>Choisir une vidéo</translation>
    </message>
    <message>
        <source>Add a sample video:</source>
        <translation>Ajoutez une vidéo d&apos;exemple :</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Parcourir</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Réparer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Apply to all files of same format.</source>
        <translation>Appliquer à tous les fichiers du même format.</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>Ajouter un fichier</translation>
    </message>
</context>
<context>
    <name>ReferenceRepairedDlg</name>
    <message>
        <source>Video file repaired successfully!</source>
        <translation>Fichier vidéo réparé avec succès !</translation>
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
        <translation>Enregistrer les fichiers</translation>
    </message>
    <message>
        <source>Save repaired file at source location.</source>
        <translation>Enregistrer le fichier réparé à l&apos;emplacement d&apos;origine.</translation>
    </message>
    <message>
        <source>Save file at custom location.</source>
        <translation>Enregistrer le fichier à un autre emplacement.</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Parcourir</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Sélectionner un dossier</translation>
    </message>
</context>
<context>
    <name>ShowUpdateAvail</name>
    <message>
        <source>Software Update</source>
        <translation>Mise à jour du logiciel</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Mise à jour</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>Sizes</name>
    <message>
        <source>%1 bytes</source>
        <translation>%1 octets</translation>
    </message>
</context>
<context>
    <name>StopDlg</name>
    <message>
        <source>Yes</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Non</translation>
    </message>
</context>
<context>
    <name>VideoRepairWin</name>
    <message>
        <source>More Tools</source>
        <translation>Plus d&apos;outils</translation>
    </message>
    <message>
        <source>Minimise</source>
        <translation>Réduire</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menu</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>Langues</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Mise à jour</translation>
    </message>
    <message>
        <source>Add Your Corrupt Videos to Repair</source>
        <translation>Ajoutez vos vidéos corrompues à réparer</translation>
    </message>
    <message>
        <source>Add Videos</source>
        <translation>Ajouter des vidéos</translation>
    </message>
    <message>
        <source>Repair Your Videos</source>
        <translation>Réparez vos vidéos</translation>
    </message>
    <message>
        <source>Click &apos;Repair&apos; button to fix corrupted videos. This may take a while depending on the number of videos and their size</source>
        <translation>Cliquez sur le bouton « Réparer » pour corriger les vidéos corrompues. Cela peut prendre un certain temps selon le nombre et la taille des vidéos</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Tout sélectionner</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Ajouter</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Click here</source>
        <translation>Cliquez ici</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Réparer</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
    <message>
        <source>Overall Progress</source>
        <translation>Progression globale</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Aperçu</translation>
    </message>
    <message>
        <source>What is a reference file?</source>
        <translation>Qu&apos;est-ce qu&apos;une référence ?</translation>
    </message>
    <message>
        <source>Save Repaired Files</source>
        <translation>Enregistrer les fichiers réparés</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
</context>
<context>
    <name>VideoRepairWindow</name>
    <message>
        <source>Queued</source>
        <translation>En attente</translation>
    </message>
    <message>
        <source>Processing</source>
        <translation>En cours</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>Terminé</translation>
    </message>
    <message>
        <source>Awaiting Action</source>
        <translation>Action requise</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Échec</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>Interrompu</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Aperçu</translation>
    </message>
    <message>
        <source>Advance Repair</source>
        <translation>Rép. avancée</translation>
    </message>
    <message>
        <source>FFmpeg Not Found</source>
        <translation>FFmpeg introuvable</translation>
    </message>
    <message>
        <source>FFmpeg is not installed, so damaged videos can be checked but not rebuilt.
Install it with: sudo apt-get install ffmpeg</source>
        <translation>FFmpeg n&apos;est pas installé : les vidéos endommagées peuvent être analysées, mais pas reconstruites.
Installez-le avec : sudo apt-get install ffmpeg</translation>
    </message>
    <message>
        <source> : Repairing file</source>
        <translation> : Réparation du fichier</translation>
    </message>
    <message>
        <source>of</source>
        <translation>sur</translation>
    </message>
    <message>
        <source>Repairing </source>
        <translation>Réparation de </translation>
    </message>
    <message>
        <source>Repair Complete</source>
        <translation>Réparation terminée</translation>
    </message>
    <message>
        <source>Repair process completed.
Check &apos;Status&apos; column to view the repair outcome.</source>
        <translation>Le processus de réparation est terminé.
Consultez la colonne « État » pour voir le résultat.</translation>
    </message>
    <message>
        <source>Advance Repair Required</source>
        <translation>Réparation avancée requise</translation>
    </message>
    <message>
        <source>This video is severely damaged. Run advance repair option to repair it before saving.</source>
        <translation>Cette vidéo est gravement endommagée. Lancez la réparation avancée avant de l&apos;enregistrer.</translation>
    </message>
    <message>
        <source>Process Aborted</source>
        <translation>Processus interrompu</translation>
    </message>
    <message>
        <source>Repair process was aborted. Go back to the previous screen to restart the repair process.</source>
        <translation>Le processus de réparation a été interrompu. Revenez à l&apos;écran précédent pour relancer la réparation.</translation>
    </message>
    <message>
        <source>Severely Corrupted Video</source>
        <translation>Vidéo gravement corrompue</translation>
    </message>
    <message>
        <source>This video is severely corrupted and cannot be repaired.</source>
        <translation>Cette vidéo est gravement corrompue et ne peut pas être réparée.</translation>
    </message>
    <message>
        <source>Stop Repair</source>
        <translation>Arrêter la réparation</translation>
    </message>
    <message>
        <source>This process will stop after processing the current file.</source>
        <translation>Le processus s&apos;arrêtera après le traitement du fichier en cours.</translation>
    </message>
    <message>
        <source>Do you want to stop the process?</source>
        <translation>Voulez-vous arrêter le processus ?</translation>
    </message>
    <message>
        <source>Do you want to stop the current process?</source>
        <translation>Voulez-vous arrêter le processus en cours ?</translation>
    </message>
    <message>
        <source>You can&apos;t resume the process from this point. All the changes will be discarded. </source>
        <translation>Vous ne pourrez pas reprendre le processus à partir de ce point. Toutes les modifications seront perdues. </translation>
    </message>
    <message>
        <source>This action will clear repair results.
Do you want to go back to previous screen?</source>
        <translation>Cette action effacera les résultats de la réparation.
Voulez-vous revenir à l&apos;écran précédent ?</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted video before leaving this page?</source>
        <translation>Voulez-vous lancer la réparation avancée sur la vidéo gravement corrompue avant de quitter cette page ?</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>Langues</translation>
    </message>
    <message>
        <source>List of video files</source>
        <translation>Liste des fichiers vidéo</translation>
    </message>
    <message>
        <source> File Name</source>
        <translation> Nom du fichier</translation>
    </message>
    <message>
        <source> Path</source>
        <translation> Chemin</translation>
    </message>
    <message>
        <source> Size (MB)</source>
        <translation> Taille (Mo)</translation>
    </message>
    <message>
        <source> Modified Date</source>
        <translation> Date de modification</translation>
    </message>
    <message>
        <source> Created Date</source>
        <translation> Date de création</translation>
    </message>
    <message>
        <source>  Path</source>
        <translation>  Chemin</translation>
    </message>
    <message>
        <source> Status</source>
        <translation> État</translation>
    </message>
    <message>
        <source> Action</source>
        <translation> Action</translation>
    </message>
    <message>
        <source>Repaired files will be saved in %1.</source>
        <translation>Les fichiers réparés seront enregistrés dans %1.</translation>
    </message>
    <message>
        <source>Repaired files will be saved at the source file location.</source>
        <translation>Les fichiers réparés seront enregistrés à l&apos;emplacement des fichiers source.</translation>
    </message>
    <message>
        <source>To change location</source>
        <translation>Pour changer d&apos;emplacement</translation>
    </message>
    <message>
        <source>Repairing selected videos</source>
        <translation>Réparation des vidéos sélectionnées</translation>
    </message>
    <message>
        <source>This may take a while, depending on the number of videos and their file size. Please wait while the process is completed.</source>
        <translation>Cela peut prendre un certain temps selon le nombre de vidéos et leur taille. Veuillez patienter jusqu&apos;à la fin du traitement.</translation>
    </message>
    <message>
        <source>Repair Process Completed</source>
        <translation>Processus de réparation terminé</translation>
    </message>
    <message>
        <source>Click on the &apos;Save Repaired Files&apos; to save all your repaired videos. Click the &apos;Preview&apos; under Action column to preview repaired videos. </source>
        <translation>Cliquez sur « Enregistrer les fichiers réparés » pour enregistrer toutes vos vidéos réparées. Cliquez sur « Aperçu » dans la colonne Action pour visionner une vidéo réparée. </translation>
    </message>
    <message>
        <source>Advance Repair Running</source>
        <translation>Réparation avancée en cours</translation>
    </message>
    <message>
        <source>Please wait while the &apos;Advance Repair&apos; process is running.</source>
        <translation>Veuillez patienter pendant la réparation avancée.</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>Ajouter un fichier</translation>
    </message>
    <message>
        <source>Already added files</source>
        <translation>Fichiers déjà ajoutés</translation>
    </message>
    <message>
        <source>Files already added to list will be skipped.</source>
        <translation>Les fichiers déjà présents dans la liste seront ignorés.</translation>
    </message>
    <message>
        <source>Choose Location</source>
        <translation>Choisir un emplacement</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Application Running! 
Please halt the current process to Exit.</source>
        <translation>Application en cours d&apos;exécution ! 
Veuillez arrêter le processus en cours pour quitter.</translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted files before exiting?</source>
        <translation>Voulez-vous lancer la réparation avancée sur les fichiers gravement corrompus avant de quitter ?</translation>
    </message>
    <message>
        <source>Are you sure you want to exit?</source>
        <translation>Voulez-vous vraiment quitter ?</translation>
    </message>
    <message>
        <source>File Not Found</source>
        <translation>Fichier introuvable</translation>
    </message>
    <message>
        <source>The repaired file is no longer there:
%1</source>
        <translation>Le fichier réparé n&apos;existe plus :
%1</translation>
    </message>
    <message>
        <source>Player Not Found</source>
        <translation>Lecteur introuvable</translation>
    </message>
    <message>
        <source>Preview needs MPlayer, which could not be started.
Install it with: sudo apt-get install mplayer</source>
        <translation>L&apos;aperçu nécessite MPlayer, qui n&apos;a pas pu être lancé.
Installez-le avec : sudo apt-get install mplayer</translation>
    </message>
    <message>
        <source>Saving Complete</source>
        <translation>Enregistrement terminé</translation>
    </message>
    <message>
        <source>Repaired files saved successfully.</source>
        <translation>Les fichiers réparés ont été enregistrés.</translation>
    </message>
    <message>
        <source>Files Not Saved</source>
        <translation>Fichiers non enregistrés</translation>
    </message>
    <message>
        <source>These files could not be saved:
%1</source>
        <translation>Ces fichiers n&apos;ont pas pu être enregistrés :
%1</translation>
    </message>
    <message>
        <source>Wait while repaired files are being saved.</source>
        <translation>Veuillez patienter pendant l&apos;enregistrement des fichiers réparés.</translation>
    </message>
    <message>
        <source>No Files</source>
        <translation>Aucun fichier</translation>
    </message>
    <message>
        <source>No Files Selected.</source>
        <translation>Aucun fichier sélectionné.</translation>
    </message>
    <message>
        <source>Choose Another Folder</source>
        <translation>Choisir un autre dossier</translation>
    </message>
    <message>
        <source>This folder holds the program&apos;s work files and is removed at exit.
Choose another folder to save the repaired files.</source>
        <translation>Ce dossier contient les fichiers de travail du programme et sera supprimé à la fermeture.
Choisissez un autre dossier pour enregistrer les fichiers réparés.</translation>
    </message>
    <message>
        <source>Cannot Save Here</source>
        <translation>Impossible d&apos;enregistrer ici</translation>
    </message>
    <message>
        <source>Files can&apos;t be written to this folder:
%1
Choose another folder.</source>
        <translation>Impossible d&apos;écrire des fichiers dans ce dossier :
%1
Choisissez un autre dossier.</translation>
    </message>
</context>
<context>
    <name>repairFinishDialog</name>
    <message>
        <source>What is a reference file?</source>
        <translation>Qu&apos;est-ce qu&apos;un fichier de référence ?</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
</TS>

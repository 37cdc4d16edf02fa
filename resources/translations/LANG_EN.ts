<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
<context>
    <name>AboutDlg</name>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>System: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>License</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Support</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AdvancedRepairDlg</name>
    <message>
        <source>Add Sample Video</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;Advance Repair&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Use this option to repair severely damaged videos. &lt;/p&gt;&lt;p&gt;Click &amp;quot;Next&amp;quot; to add a &apos;sample video&apos; of the same format, shot using the same device.&lt;/p&gt;&lt;p&gt;The sample and the damaged video remain unchanged during repair process.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Learn More</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CloseApplicationDlg</name>
    <message>
        <source>Yes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DownloadUpdate</name>
    <message>
        <source>Software Update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading Files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>InsufficientDlg</name>
    <message>
        <source>Insufficient Space</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Insufficient space at selected destination.
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click &apos;Browse&apos; to change destination .
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Browse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>InsufficientSpaceDlg</name>
    <message>
        <source>Available Space: %1, Required Space: %2
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>English</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>German</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>French</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Italian</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Chinese</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Korean</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Portuguese Brazil</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hindi</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MessageDlg</name>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Messages</name>
    <message>
        <source>Exit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Halvern Videomend</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Halvern Videomend is already running.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QCheckUpdate</name>
    <message>
        <source>Update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No update available.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QDownloadApp</name>
    <message>
        <source>no address of the update server is set</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the folder %1 can&apos;t be used</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unable to save the file </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time Elapsed: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> sec </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> MB copied) </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Update failed 

 Update failed due to partial download.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The installer could not be started.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> MB of  </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transfer Rate: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> KB/sec </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QShowUpdate</name>
    <message>
        <source>A new minor update </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> is available. Click Update to proceed further.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A new major release </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QuestionDlg</name>
    <message>
        <source>Yes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlg</name>
    <message>
        <source>Choose Video</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add a sample video:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Browse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repair</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Apply to all files of same format.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add File</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReferenceRepairedDlg</name>
    <message>
        <source>Video file repaired successfully!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SaveDlgClass</name>
    <message>
        <source>Save Files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save repaired file at source location.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save file at custom location.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Browse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ShowUpdateAvail</name>
    <message>
        <source>Software Update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Sizes</name>
    <message>
        <source>%1 bytes</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StopDlg</name>
    <message>
        <source>Yes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VideoRepairWin</name>
    <message>
        <source>More Tools</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Minimise</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Menu</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Languages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Your Corrupt Videos to Repair</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Videos</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repair Your Videos</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click &apos;Repair&apos; button to fix corrupted videos. This may take a while depending on the number of videos and their size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click here</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repair</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Overall Progress</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preview</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What is a reference file?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save Repaired Files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VideoRepairWindow</name>
    <message>
        <source>Queued</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Processing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Completed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Awaiting Action</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preview</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Advance Repair</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FFmpeg Not Found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FFmpeg is not installed, so damaged videos can be checked but not rebuilt.
Install it with: sudo apt-get install ffmpeg</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> : Repairing file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>of</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repairing </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repair Complete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repair process completed.
Check &apos;Status&apos; column to view the repair outcome.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Advance Repair Required</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This video is severely damaged. Run advance repair option to repair it before saving.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Process Aborted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repair process was aborted. Go back to the previous screen to restart the repair process.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Severely Corrupted Video</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This video is severely corrupted and cannot be repaired.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop Repair</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This process will stop after processing the current file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to stop the process?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to stop the current process?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You can&apos;t resume the process from this point. All the changes will be discarded. </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This action will clear repair results.
Do you want to go back to previous screen?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted video before leaving this page?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Languages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>List of video files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> File Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Size (MB)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Modified Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Created Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  Path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Status</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Action</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repaired files will be saved in %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repaired files will be saved at the source file location.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>To change location</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repairing selected videos</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This may take a while, depending on the number of videos and their file size. Please wait while the process is completed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repair Process Completed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click on the &apos;Save Repaired Files&apos; to save all your repaired videos. Click the &apos;Preview&apos; under Action column to preview repaired videos. </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Advance Repair Running</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please wait while the &apos;Advance Repair&apos; process is running.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Already added files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files already added to list will be skipped.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose Location</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Application Running! 
Please halt the current process to Exit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted files before exiting?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure you want to exit?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File Not Found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The repaired file is no longer there:
%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Player Not Found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preview needs MPlayer, which could not be started.
Install it with: sudo apt-get install mplayer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saving Complete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repaired files saved successfully.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files Not Saved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These files could not be saved:
%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wait while repaired files are being saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Files Selected.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose Another Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This folder holds the program&apos;s work files and is removed at exit.
Choose another folder to save the repaired files.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot Save Here</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files can&apos;t be written to this folder:
%1
Choose another folder.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>repairFinishDialog</name>
    <message>
        <source>What is a reference file?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>

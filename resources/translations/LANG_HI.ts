<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="hi_IN">
<context>
    <name>AboutDlg</name>
    <message>
        <source>About</source>
        <translation>परिचय</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>संस्करण %1</translation>
    </message>
    <message>
        <source>System: %1</source>
        <translation>सिस्टम: %1</translation>
    </message>
    <message>
        <source>License</source>
        <translation>लाइसेंस</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>सहायता</translation>
    </message>
</context>
<context>
    <name>AdvancedRepairDlg</name>
    <message>
        <source>Add Sample Video</source>
        <translation>नमूना वीडियो जोड़ें</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;Advance Repair&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Use this option to repair severely damaged videos. &lt;/p&gt;&lt;p&gt;Click &amp;quot;Next&amp;quot; to add a &apos;sample video&apos; of the same format, shot using the same device.&lt;/p&gt;&lt;p&gt;The sample and the damaged video remain unchanged during repair process.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;उन्नत मरम्मत&lt;/b&gt;&lt;/p&gt;&lt;p&gt;बुरी तरह क्षतिग्रस्त वीडियो की मरम्मत के लिए इस विकल्प का उपयोग करें। &lt;/p&gt;&lt;p&gt;उसी डिवाइस से शूट किया गया, उसी फ़ॉर्मेट का &apos;नमूना वीडियो&apos; जोड़ने के लिए &amp;quot;आगे&amp;quot; पर क्लिक करें।&lt;/p&gt;&lt;p&gt;मरम्मत के दौरान नमूना वीडियो और क्षतिग्रस्त वीडियो में कोई बदलाव नहीं होता।&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>आगे</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
    <message>
        <source>Learn More</source>
        <translation>और जानें</translation>
    </message>
</context>
<context>
    <name>CloseApplicationDlg</name>
    <message>
        <source>Yes</source>
        <translation>हाँ</translation>
    </message>
    <message>
        <source>No</source>
        <translation>नहीं</translation>
    </message>
</context>
<context>
    <name>DownloadUpdate</name>
    <message>
        <source>Software Update</source>
        <translation>सॉफ़्टवेयर अपडेट</translation>
    </message>
    <message>
        <source>Downloading Files</source>
        <translation>फ़ाइलें डाउनलोड हो रही हैं</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>ठीक है</translation>
    </message>
</context>
<context>
    <name>InsufficientDlg</name>
    <message>
        <source>Insufficient Space</source>
        <translation>अपर्याप्त स्थान</translation>
    </message>
    <message>
        <source>Insufficient space at selected destination.
</source>
        <translation>चुने गए गंतव्य पर पर्याप्त स्थान नहीं है।
</translation>
    </message>
    <message>
        <source>Click &apos;Browse&apos; to change destination .
</source>
        <translation>गंतव्य बदलने के लिए &apos;ब्राउज़ करें&apos; पर क्लिक करें।
</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>ब्राउज़ करें</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>ठीक है</translation>
    </message>
</context>
<context>
    <name>InsufficientSpaceDlg</name>
    <message>
        <source>Available Space: %1, Required Space: %2
</source>
        <translation>उपलब्ध स्थान: %1, आवश्यक स्थान: %2
</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>फ़ोल्डर चुनें</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>English</source>
        <translation>अंग्रेज़ी</translation>
    </message>
    <message>
        <source>German</source>
        <translation>जर्मन</translation>
    </message>
    <message>
        <source>French</source>
        <translation>फ़्रेंच</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>इतालवी</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>स्पेनिश</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>जापानी</translation>
    </message>
    <message>
        <source>Chinese</source>
        <translation>चीनी</translation>
    </message>
    <message>
        <source>Korean</source>
        <translation>कोरियाई</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>डच</translation>
    </message>
    <message>
        <source>Portuguese Brazil</source>
        <translation>पुर्तगाली (ब्राज़ील)</translation>
    </message>
    <message>
        <source>Hindi</source>
        <translation>हिन्दी</translation>
    </message>
</context>
<context>
    <name>MessageDlg</name>
    <message>
        <source>OK</source>
        <translation>ठीक है</translation>
    </message>
</context>
<context>
    <name>Messages</name>
    <message>
        <source>Exit</source>
        <translation>बाहर निकलें</translation>
    </message>
    <message>
        <source>Halvern Videomend</source>
        <translation>Halvern Videomend</translation>
    </message>
    <message>
        <source>Halvern Videomend is already running.</source>
        <translation>Halvern Videomend पहले से चल रहा है।</translation>
    </message>
</context>
<context>
    <name>QCheckUpdate</name>
    <message>
        <source>Update</source>
        <translation>अपडेट</translation>
    </message>
    <message>
        <source>No update available.</source>
        <translation>कोई अपडेट उपलब्ध नहीं है।</translation>
    </message>
</context>
<context>
    <name>QDownloadApp</name>
    <message>
        <source>no address of the update server is set</source>
        <translation>अपडेट सर्वर का पता सेट नहीं है</translation>
    </message>
    <message>
        <source>the folder %1 can&apos;t be used</source>
        <translation>फ़ोल्डर %1 का उपयोग नहीं किया जा सकता</translation>
    </message>
    <message>
        <source>Unable to save the file </source>
        <translation>फ़ाइल सहेजी नहीं जा सकी </translation>
    </message>
    <message>
        <source>Time Elapsed: </source>
        <translation>बीता समय: </translation>
    </message>
    <message>
        <source> sec </source>
        <translation> सेकंड </translation>
    </message>
    <message>
        <source> MB copied) </source>
        <translation> MB कॉपी हुए) </translation>
    </message>
    <message>
        <source>Update</source>
        <translation>अपडेट</translation>
    </message>
    <message>
        <source>Update failed 

 Update failed due to partial download.</source>
        <translation>अपडेट विफल 

 अधूरे डाउनलोड के कारण अपडेट विफल हो गया।</translation>
    </message>
    <message>
        <source>The installer could not be started.</source>
        <translation>इंस्टॉलर शुरू नहीं हो सका।</translation>
    </message>
    <message>
        <source> MB of  </source>
        <translation> MB में से  </translation>
    </message>
    <message>
        <source>Transfer Rate: </source>
        <translation>स्थानांतरण दर: </translation>
    </message>
    <message>
        <source> KB/sec </source>
        <translation> KB/सेकंड </translation>
    </message>
</context>
<context>
    <name>QShowUpdate</name>
    <message>
        <source>A new minor update </source>
        <translation>एक नया छोटा अपडेट </translation>
    </message>
    <message>
        <source> is available. Click Update to proceed further.</source>
        <translation> उपलब्ध है। आगे बढ़ने के लिए अपडेट पर क्लिक करें।</translation>
    </message>
    <message>
        <source>A new major release </source>
        <translation>एक नई प्रमुख रिलीज़ </translation>
    </message>
</context>
<context>
    <name>QuestionDlg</name>
    <message>
        <source>Yes</source>
        <translation>हाँ</translation>
    </message>
    <message>
        <source>No</source>
        <translation>नहीं</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlg</name>
    <message>
        <source>Choose Video</source>
        <translation>वीडियो चुनें</translation>
    </message>
    <message>
        <source>Add a sample video:</source>
        <translation>नमूना वीडियो जोड़ें:</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>ब्राउज़ करें</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>मरम्मत करें</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
    <message>
        <source>Apply to all files of same format.</source>
        <translation>समान फ़ॉर्मेट की सभी फ़ाइलों पर लागू करें।</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>फ़ाइल जोड़ें</translation>
    </message>
</context>
<context>
    <name>ReferenceRepairedDlg</name>
    <message>
        <source>Video file repaired successfully!</source>
        <translation>वीडियो फ़ाइल की मरम्मत सफल रही!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>ठीक है</translation>
    </message>
</context>
<context>
    <name>SaveDlgClass</name>
    <message>
        <source>Save Files</source>
        <translation>फ़ाइलें सहेजें</translation>
    </message>
    <message>
        <source>Save repaired file at source location.</source>
        <translation>मरम्मत की गई फ़ाइल को मूल स्थान पर सहेजें।</translation>
    </message>
    <message>
        <source>Save file at custom location.</source>
        <translation>फ़ाइल को अपने चुने हुए स्थान पर सहेजें।</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>ब्राउज़ करें</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>सहेजें</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>फ़ोल्डर चुनें</translation>
    </message>
</context>
<context>
    <name>ShowUpdateAvail</name>
    <message>
        <source>Software Update</source>
        <translation>सॉफ़्टवेयर अपडेट</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>अपडेट</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
</context>
<context>
    <name>Sizes</name>
    <message>
        <source>%1 bytes</source>
        <translation>%1 बाइट</translation>
    </message>
</context>
<context>
    <name>StopDlg</name>
    <message>
        <source>Yes</source>
        <translation>हाँ</translation>
    </message>
    <message>
        <source>No</source>
        <translation>नहीं</translation>
    </message>
</context>
<context>
    <name>VideoRepairWin</name>
    <message>
        <source>More Tools</source>
        <translation>और टूल</translation>
    </message>
    <message>
        <source>Minimise</source>
        <translation>छोटा करें</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>बंद करें</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>मेनू</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>भाषाएँ</translation>
    </message>
    <message>
        <source>About</source>
        <translation>परिचय</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>सहायता</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>अपडेट</translation>
    </message>
    <message>
        <source>Add Your Corrupt Videos to Repair</source>
        <translation>मरम्मत के लिए अपने क्षतिग्रस्त वीडियो जोड़ें</translation>
    </message>
    <message>
        <source>Add Videos</source>
        <translation>वीडियो जोड़ें</translation>
    </message>
    <message>
        <source>Repair Your Videos</source>
        <translation>अपने वीडियो की मरम्मत करें</translation>
    </message>
    <message>
        <source>Click &apos;Repair&apos; button to fix corrupted videos. This may take a while depending on the number of videos and their size</source>
        <translation>क्षतिग्रस्त वीडियो ठीक करने के लिए &apos;मरम्मत करें&apos; बटन पर क्लिक करें। वीडियो की संख्या और आकार के अनुसार इसमें कुछ समय लग सकता है</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>सभी चुनें</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>जोड़ें</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>हटाएँ</translation>
    </message>
    <message>
        <source>Click here</source>
        <translation>यहाँ क्लिक करें</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>मरम्मत करें</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>वापस</translation>
    </message>
    <message>
        <source>Overall Progress</source>
        <translation>कुल प्रगति</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>पूर्वावलोकन</translation>
    </message>
    <message>
        <source>What is a reference file?</source>
        <translation>संदर्भ फ़ाइल क्या है?</translation>
    </message>
    <message>
        <source>Save Repaired Files</source>
        <translation>मरम्मत की गई फ़ाइलें सहेजें</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>रोकें</translation>
    </message>
</context>
<context>
    <name>VideoRepairWindow</name>
    <message>
        <source>Queued</source>
        <translation>कतार में</translation>
    </message>
    <message>
        <source>Processing</source>
        <translation>जारी है</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>पूर्ण</translation>
    </message>
    <message>
        <source>Awaiting Action</source>
        <translation>कार्रवाई आवश्यक</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>विफल</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>रद्द किया गया</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>पूर्वावलोकन</translation>
    </message>
    <message>
        <source>Advance Repair</source>
        <translation>उन्नत मरम्मत</translation>
    </message>
    <message>
        <source>FFmpeg Not Found</source>
        <translation>FFmpeg नहीं मिला</translation>
    </message>
    <message>
        <source>FFmpeg is not installed, so damaged videos can be checked but not rebuilt.
Install it with: sudo apt-get install ffmpeg</source>
        <translation>FFmpeg इंस्टॉल नहीं है, इसलिए क्षतिग्रस्त वीडियो की जाँच हो सकती है, पर उन्हें फिर से बनाया नहीं जा सकता।
इसे इस कमांड से इंस्टॉल करें: sudo apt-get install ffmpeg</translation>
    </message>
    <message>
        <source> : Repairing file</source>
        <translation> : फ़ाइल की मरम्मत</translation>
    </message>
    <message>
        <source>of</source>
        <translation>/</translation>
    </message>
    <message>
        <source>Repairing </source>
        <translation>मरम्मत जारी: </translation>
    </message>
    <message>
        <source>Repair Complete</source>
        <translation>मरम्मत पूर्ण</translation>
    </message>
    <message>
        <source>Repair process completed.
Check &apos;Status&apos; column to view the repair outcome.</source>
        <translation>मरम्मत प्रक्रिया पूरी हो गई।
परिणाम देखने के लिए &apos;स्थिति&apos; कॉलम देखें।</translation>
    </message>
    <message>
        <source>Advance Repair Required</source>
        <translation>उन्नत मरम्मत आवश्यक</translation>
    </message>
    <message>
        <source>This video is severely damaged. Run advance repair option to repair it before saving.</source>
        <translation>यह वीडियो बुरी तरह क्षतिग्रस्त है। सहेजने से पहले उन्नत मरम्मत चलाएँ।</translation>
    </message>
    <message>
        <source>Process Aborted</source>
        <translation>प्रक्रिया रद्द की गई</translation>
    </message>
    <message>
        <source>Repair process was aborted. Go back to the previous screen to restart the repair process.</source>
        <translation>मरम्मत प्रक्रिया रद्द कर दी गई। मरम्मत फिर से शुरू करने के लिए पिछली स्क्रीन पर वापस जाएँ।</translation>
    </message>
    <message>
        <source>Severely Corrupted Video</source>
        <translation>बुरी तरह क्षतिग्रस्त वीडियो</translation>
    </message>
    <message>
        <source>This video is severely corrupted and cannot be repaired.</source>
        <translation>यह वीडियो बुरी तरह क्षतिग्रस्त है और इसकी मरम्मत नहीं हो सकती।</translation>
    </message>
    <message>
        <source>Stop Repair</source>
        <translation>मरम्मत रोकें</translation>
    </message>
    <message>
        <source>This process will stop after processing the current file.</source>
        <translation>वर्तमान फ़ाइल पूरी होने के बाद यह प्रक्रिया रुक जाएगी।</translation>
    </message>
    <message>
        <source>Do you want to stop the process?</source>
        <translation>क्या आप प्रक्रिया रोकना चाहते हैं?</translation>
    </message>
    <message>
        <source>Do you want to stop the current process?</source>
        <translation>क्या आप वर्तमान प्रक्रिया रोकना चाहते हैं?</translation>
    </message>
    <message>
        <source>You can&apos;t resume the process from this point. All the changes will be discarded. </source>
        <translation>आप इस बिंदु से प्रक्रिया फिर से शुरू नहीं कर सकेंगे। सभी बदलाव छोड़ दिए जाएँगे। </translation>
    </message>
    <message>
        <source>This action will clear repair results.
Do you want to go back to previous screen?</source>
        <translation>इससे मरम्मत के परिणाम मिट जाएँगे।
क्या आप पिछली स्क्रीन पर वापस जाना चाहते हैं?</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>वापस</translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted video before leaving this page?</source>
        <translation>क्या आप यह पेज छोड़ने से पहले बुरी तरह क्षतिग्रस्त वीडियो पर उन्नत मरम्मत चलाना चाहते हैं?</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>भाषाएँ</translation>
    </message>
    <message>
        <source>List of video files</source>
        <translation>वीडियो फ़ाइलों की सूची</translation>
    </message>
    <message>
        <source> File Name</source>
        <translation> फ़ाइल का नाम</translation>
    </message>
    <message>
        <source> Path</source>
        <translation> पथ</translation>
    </message>
    <message>
        <source> Size (MB)</source>
        <translation> आकार (MB)</translation>
    </message>
    <message>
        <source> Modified Date</source>
        <translation> बदलने की तिथि</translation>
    </message>
    <message>
        <source> Created Date</source>
        <translation> बनाने की तिथि</translation>
    </message>
    <message>
        <source>  Path</source>
        <translation>  पथ</translation>
    </message>
    <message>
        <source> Status</source>
        <translation> स्थिति</translation>
    </message>
    <message>
        <source> Action</source>
        <translation> कार्रवाई</translation>
    </message>
    <message>
        <source>Repaired files will be saved in %1.</source>
        <translation>मरम्मत की गई फ़ाइलें %1 में सहेजी जाएँगी।</translation>
    </message>
    <message>
        <source>Repaired files will be saved at the source file location.</source>
        <translation>मरम्मत की गई फ़ाइलें मूल फ़ाइल के स्थान पर सहेजी जाएँगी।</translation>
    </message>
    <message>
        <source>To change location</source>
        <translation>स्थान बदलने के लिए</translation>
    </message>
    <message>
        <source>Repairing selected videos</source>
        <translation>चुने गए वीडियो की मरम्मत हो रही है</translation>
    </message>
    <message>
        <source>This may take a while, depending on the number of videos and their file size. Please wait while the process is completed.</source>
        <translation>वीडियो की संख्या और फ़ाइल के आकार के अनुसार इसमें कुछ समय लग सकता है। प्रक्रिया पूरी होने तक प्रतीक्षा करें।</translation>
    </message>
    <message>
        <source>Repair Process Completed</source>
        <translation>मरम्मत प्रक्रिया पूर्ण</translation>
    </message>
    <message>
        <source>Click on the &apos;Save Repaired Files&apos; to save all your repaired videos. Click the &apos;Preview&apos; under Action column to preview repaired videos. </source>
        <translation>मरम्मत किए गए सभी वीडियो सहेजने के लिए &apos;मरम्मत की गई फ़ाइलें सहेजें&apos; पर क्लिक करें। किसी वीडियो का पूर्वावलोकन करने के लिए &apos;कार्रवाई&apos; कॉलम में &apos;पूर्वावलोकन&apos; पर क्लिक करें। </translation>
    </message>
    <message>
        <source>Advance Repair Running</source>
        <translation>उन्नत मरम्मत जारी है</translation>
    </message>
    <message>
        <source>Please wait while the &apos;Advance Repair&apos; process is running.</source>
        <translation>&apos;उन्नत मरम्मत&apos; पूरी होने तक प्रतीक्षा करें।</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>फ़ाइल जोड़ें</translation>
    </message>
    <message>
        <source>Already added files</source>
        <translation>पहले से जोड़ी गई फ़ाइलें</translation>
    </message>
    <message>
        <source>Files already added to list will be skipped.</source>
        <translation>सूची में पहले से मौजूद फ़ाइलें छोड़ दी जाएँगी।</translation>
    </message>
    <message>
        <source>Choose Location</source>
        <translation>स्थान चुनें</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>बाहर निकलें</translation>
    </message>
    <message>
        <source>Application Running! 
Please halt the current process to Exit.</source>
        <translation>एप्लिकेशन चल रहा है! 
बाहर निकलने के लिए वर्तमान प्रक्रिया रोकें।</translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted files before exiting?</source>
        <translation>क्या आप बाहर निकलने से पहले बुरी तरह क्षतिग्रस्त फ़ाइलों पर उन्नत मरम्मत चलाना चाहते हैं?</translation>
    </message>
    <message>
        <source>Are you sure you want to exit?</source>
        <translation>क्या आप वाकई बाहर निकलना चाहते हैं?</translation>
    </message>
    <message>
        <source>File Not Found</source>
        <translation>फ़ाइल नहीं मिली</translation>
    </message>
    <message>
        <source>The repaired file is no longer there:
%1</source>
        <translation>मरम्मत की गई फ़ाइल अब मौजूद नहीं है:
%1</translation>
    </message>
    <message>
        <source>Player Not Found</source>
        <translation>प्लेयर नहीं मिला</translation>
    </message>
    <message>
        <source>Preview needs MPlayer, which could not be started.
Install it with: sudo apt-get install mplayer</source>
        <translation>पूर्वावलोकन के लिए MPlayer आवश्यक है, जिसे शुरू नहीं किया जा सका।
इसे इस कमांड से इंस्टॉल करें: sudo apt-get install mplayer</translation>
    </message>
    <message>
        <source>Saving Complete</source>
        <translation>सहेजना पूर्ण</translation>
    </message>
    <message>
        <source>Repaired files saved successfully.</source>
        <translation>मरम्मत की गई फ़ाइलें सफलतापूर्वक सहेजी गईं।</translation>
    </message>
    <message>
        <source>Files Not Saved</source>
        <translation>फ़ाइलें सहेजी नहीं गईं</translation>
    </message>
    <message>
        <source>These files could not be saved:
%1</source>
        <translation>ये फ़ाइलें सहेजी नहीं जा सकीं:
%1</translation>
    </message>
    <message>
        <source>Wait while repaired files are being saved.</source>
        <translation>मरम्मत की गई फ़ाइलें सहेजे जाने तक प्रतीक्षा करें।</translation>
    </message>
    <message>
        <source>No Files</source>
        <translation>कोई फ़ाइल नहीं</translation>
    </message>
    <message>
        <source>No Files Selected.</source>
        <translation>कोई फ़ाइल नहीं चुनी गई।</translation>
    </message>
    <message>
        <source>Choose Another Folder</source>
        <translation>दूसरा फ़ोल्डर चुनें</translation>
    </message>
    <message>
        <source>This folder holds the program&apos;s work files and is removed at exit.
Choose another folder to save the repaired files.</source>
        <translation>इस फ़ोल्डर में प्रोग्राम की कार्य फ़ाइलें हैं और यह बाहर निकलने पर हटा दिया जाता है।
मरम्मत की गई फ़ाइलें सहेजने के लिए दूसरा फ़ोल्डर चुनें।</translation>
    </message>
    <message>
        <source>Cannot Save Here</source>
        <translation>यहाँ सहेजा नहीं जा सकता</translation>
    </message>
    <message>
        <source>Files can&apos;t be written to this folder:
%1
Choose another folder.</source>
        <translation>इस फ़ोल्डर में फ़ाइलें नहीं लिखी जा सकतीं:
%1
दूसरा फ़ोल्डर चुनें।</translation>
    </message>
</context>
<context>
    <name>repairFinishDialog</name>
    <message>
        <source>What is a reference file?</source>
        <translation>संदर्भ फ़ाइल क्या है?</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>ठीक है</translation>
    </message>
</context>
</TS>

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>AboutDlg</name>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>版本 %1</translation>
    </message>
    <message>
        <source>System: %1</source>
        <translation>系统：%1</translation>
    </message>
    <message>
        <source>License</source>
        <translation>许可</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>支持</translation>
    </message>
</context>
<context>
    <name>AdvancedRepairDlg</name>
    <message>
        <source>Add Sample Video</source>
        <translation>添加样本视频</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;Advance Repair&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Use this option to repair severely damaged videos. &lt;/p&gt;&lt;p&gt;Click &amp;quot;Next&amp;quot; to add a &apos;sample video&apos; of the same format, shot using the same device.&lt;/p&gt;&lt;p&gt;The sample and the damaged video remain unchanged during repair process.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;高级修复&lt;/b&gt;&lt;/p&gt;&lt;p&gt;使用此选项修复严重损坏的视频。 &lt;/p&gt;&lt;p&gt;单击“下一步”，添加一个用同一设备拍摄、格式相同的“样本视频”。&lt;/p&gt;&lt;p&gt;修复过程中，样本视频和损坏的视频都不会被更改。&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>下一步</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Learn More</source>
        <translation>了解更多</translation>
    </message>
</context>
<context>
    <name>CloseApplicationDlg</name>
    <message>
        <source>Yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>No</source>
        <translation>否</translation>
    </message>
</context>
<context>
    <name>DownloadUpdate</name>
    <message>
        <source>Software Update</source>
        <translation>软件更新</translation>
    </message>
    <message>
        <source>Downloading Files</source>
        <translation>正在下载文件</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
</context>
<context>
    <name>InsufficientDlg</name>
    <message>
        <source>Insufficient Space</source>
        <translation>空间不足</translation>
    </message>
    <message>
        <source>Insufficient space at selected destination.
</source>
        <translation>所选目标位置的空间不足。
</translation>
    </message>
    <message>
        <source>Click &apos;Browse&apos; to change destination .
</source>
        <translation>单击“浏览”更改目标位置。
</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>浏览</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
</context>
<context>
    <name>InsufficientSpaceDlg</name>
    <message>
        <source>Available Space: %1, Required Space: %2
</source>
        <translation>可用空间：%1，所需空间：%2
</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>选择文件夹</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>English</source>
        <translation>英语</translation>
    </message>
    <message>
        <source>German</source>
        <translation>德语</translation>
    </message>
    <message>
        <source>French</source>
        <translation>法语</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>意大利语</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>西班牙语</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>日语</translation>
    </message>
    <message>
        <source>Chinese</source>
        <translation>中文</translation>
    </message>
    <message>
        <source>Korean</source>
        <translation>韩语</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>荷兰语</translation>
    </message>
    <message>
        <source>Portuguese Brazil</source>
        <translation>葡萄牙语（巴西）</translation>
    </message>
    <message>
        <source>Hindi</source>
        <translation>印地语</translation>
    </message>
</context>
<context>
    <name>MessageDlg</name>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
</context>
<context>
    <name>Messages</name>
    <message>
        <source>Exit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Halvern Videomend</source>
        <translation>Halvern Videomend</translation>
    </message>
    <message>
        <source>Halvern Videomend is already running.</source>
        <translation>Halvern Videomend 已在运行。</translation>
    </message>
</context>
<context>
    <name>QCheckUpdate</name>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>No update available.</source>
        <translation>没有可用的更新。</translation>
    </message>
</context>
<context>
    <name>QDownloadApp</name>
    <message>
        <source>no address of the update server is set</source>
        <translation>未设置更新服务器地址</translation>
    </message>
    <message>
        <source>the folder %1 can&apos;t be used</source>
        <translation>无法使用文件夹 %1</translation>
    </message>
    <message>
        <source>Unable to save the file </source>
        <translation>无法保存文件 </translation>
    </message>
    <message>
        <source>Time Elapsed: </source>
        <translation>已用时间: </translation>
    </message>
    <message>
        <source> sec </source>
        <translation> 秒 </translation>
    </message>
    <message>
        <source> MB copied) </source>
        <translation> MB 已复制) </translation>
    </message>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Update failed 

 Update failed due to partial download.</source>
        <translation>更新失败 

 由于下载不完整，更新失败。</translation>
    </message>
    <message>
        <source>The installer could not be started.</source>
        <translation>无法启动安装程序。</translation>
    </message>
    <message>
        <source> MB of  </source>
        <translation> MB /  </translation>
    </message>
    <message>
        <source>Transfer Rate: </source>
        <translation>传输速率: </translation>
    </message>
    <message>
        <source> KB/sec </source>
        <translation> KB/秒 </translation>
    </message>
</context>
<context>
    <name>QShowUpdate</name>
    <message>
        <source>A new minor update </source>
        <translation>新的次要更新 </translation>
    </message>
    <message>
        <source> is available. Click Update to proceed further.</source>
        <translation> 已可用。单击“更新”继续。</translation>
    </message>
    <message>
        <source>A new major release </source>
        <translation>新的主要版本 </translation>
    </message>
</context>
<context>
    <name>QuestionDlg</name>
    <message>
        <source>Yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>No</source>
        <translation>否</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlg</name>
    <message>
        <source>Choose Video</source>
        <translation>选择视频</translation>
    </message>
    <message>
        <source>Add a sample video:</source>
        <translation>添加样本视频：</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>浏览</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>修复</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Apply to all files of same format.</source>
        <translation>应用于所有相同格式的文件。</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>添加文件</translation>
    </message>
</context>
<context>
    <name>ReferenceRepairedDlg</name>
    <message>
        <source>Video file repaired successfully!</source>
        <translation>视频文件修复成功！</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
</context>
<context>
    <name>SaveDlgClass</name>
    <message>
        <source>Save Files</source>
        <translation>保存文件</translation>
    </message>
    <message>
        <source>Save repaired file at source location.</source>
        <translation>将修复后的文件保存到源文件位置。</translation>
    </message>
    <message>
        <source>Save file at custom location.</source>
        <translation>将文件保存到自定义位置。</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>浏览</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>选择文件夹</translation>
    </message>
</context>
<context>
    <name>ShowUpdateAvail</name>
    <message>
        <source>Software Update</source>
        <translation>软件更新</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>Sizes</name>
    <message>
        <source>%1 bytes</source>
        <translation>%1 字节</translation>
    </message>
</context>
<context>
    <name>StopDlg</name>
    <message>
        <source>Yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>No</source>
        <translation>否</translation>
    </message>
</context>
<context>
    <name>VideoRepairWin</name>
    <message>
        <source>More Tools</source>
        <translation>更多工具</translation>
    </message>
    <message>
        <source>Minimise</source>
        <translation>最小化</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>菜单</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Add Your Corrupt Videos to Repair</source>
        <translation>添加要修复的损坏视频</translation>
    </message>
    <message>
        <source>Add Videos</source>
        <translation>添加视频</translation>
    </message>
    <message>
        <source>Repair Your Videos</source>
        <translation>修复视频</translation>
    </message>
    <message>
        <source>Click &apos;Repair&apos; button to fix corrupted videos. This may take a while depending on the number of videos and their size</source>
        <translation>单击“修复”按钮修复损坏的视频。根据视频的数量和大小，这可能需要一些时间</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>添加</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
    <message>
        <source>Click here</source>
        <translation>单击此处</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>修复</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
    <message>
        <source>Overall Progress</source>
        <translation>总体进度</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>预览</translation>
    </message>
    <message>
        <source>What is a reference file?</source>
        <translation>什么是参考文件？</translation>
    </message>
    <message>
        <source>Save Repaired Files</source>
        <translation>保存修复的文件</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
</context>
<context>
    <name>VideoRepairWindow</name>
    <message>
        <source>Queued</source>
        <translation>排队中</translation>
    </message>
    <message>
        <source>Processing</source>
        <translation>处理中</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>已完成</translation>
    </message>
    <message>
        <source>Awaiting Action</source>
        <translation>等待操作</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>失败</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>已中止</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>预览</translation>
    </message>
    <message>
        <source>Advance Repair</source>
        <translation>高级修复</translation>
    </message>
    <message>
        <source>FFmpeg Not Found</source>
        <translation>未找到 FFmpeg</translation>
    </message>
    <message>
        <source>FFmpeg is not installed, so damaged videos can be checked but not rebuilt.
Install it with: sudo apt-get install ffmpeg</source>
        <translation>未安装 FFmpeg，因此只能检查损坏的视频，无法重建。
安装命令：sudo apt-get install ffmpeg</translation>
    </message>
    <message>
        <source> : Repairing file</source>
        <translation> : 正在修复文件</translation>
    </message>
    <message>
        <source>of</source>
        <translation>/</translation>
    </message>
    <message>
        <source>Repairing </source>
        <translation>正在修复 </translation>
    </message>
    <message>
        <source>Repair Complete</source>
        <translation>修复完成</translation>
    </message>
    <message>
        <source>Repair process completed.
Check &apos;Status&apos; column to view the repair outcome.</source>
        <translation>修复过程已完成。
请在“状态”列中查看修复结果。</translation>
    </message>
    <message>
        <source>Advance Repair Required</source>
        <translation>需要高级修复</translation>
    </message>
    <message>
        <source>This video is severely damaged. Run advance repair option to repair it before saving.</source>
        <translation>此视频严重损坏。请在保存前运行高级修复。</translation>
    </message>
    <message>
        <source>Process Aborted</source>
        <translation>过程已中止</translation>
    </message>
    <message>
        <source>Repair process was aborted. Go back to the previous screen to restart the repair process.</source>
        <translation>修复过程已中止。请返回上一屏幕重新开始修复。</translation>
    </message>
    <message>
        <source>Severely Corrupted Video</source>
        <translation>严重损坏的视频</translation>
    </message>
    <message>
        <source>This video is severely corrupted and cannot be repaired.</source>
        <translation>此视频严重损坏，无法修复。</translation>
    </message>
    <message>
        <source>Stop Repair</source>
        <translation>停止修复</translation>
    </message>
    <message>
        <source>This process will stop after processing the current file.</source>
        <translation>处理完当前文件后，此过程将停止。</translation>
    </message>
    <message>
        <source>Do you want to stop the process?</source>
        <translation>是否要停止此过程？</translation>
    </message>
    <message>
        <source>Do you want to stop the current process?</source>
        <translation>是否要停止当前过程？</translation>
    </message>
    <message>
        <source>You can&apos;t resume the process from this point. All the changes will be discarded. </source>
        <translation>此过程无法从此处继续，所有更改都将被放弃。 </translation>
    </message>
    <message>
        <source>This action will clear repair results.
Do you want to go back to previous screen?</source>
        <translation>此操作将清除修复结果。
是否返回上一屏幕？</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted video before leaving this page?</source>
        <translation>离开此页面前，是否要对严重损坏的视频运行高级修复？</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>List of video files</source>
        <translation>视频文件列表</translation>
    </message>
    <message>
        <source> File Name</source>
        <translation> 文件名</translation>
    </message>
    <message>
        <source> Path</source>
        <translation> 路径</translation>
    </message>
    <message>
        <source> Size (MB)</source>
        <translation> 大小 (MB)</translation>
    </message>
    <message>
        <source> Modified Date</source>
        <translation> 修改日期</translation>
    </message>
    <message>
        <source> Created Date</source>
        <translation> 创建日期</translation>
    </message>
    <message>
        <source>  Path</source>
        <translation>  路径</translation>
    </message>
    <message>
        <source> Status</source>
        <translation> 状态</translation>
    </message>
    <message>
        <source> Action</source>
        <translation> 操作</translation>
    </message>
    <message>
        <source>Repaired files will be saved in %1.</source>
        <translation>修复的文件将保存在 %1 中。</translation>
    </message>
    <message>
        <source>Repaired files will be saved at the source file location.</source>
        <translation>修复的文件将保存在源文件所在位置。</translation>
    </message>
    <message>
        <source>To change location</source>
        <translation>要更改位置</translation>
    </message>
    <message>
        <source>Repairing selected videos</source>
        <translation>正在修复所选视频</translation>
    </message>
    <message>
        <source>This may take a while, depending on the number of videos and their file size. Please wait while the process is completed.</source>
        <translation>根据视频的数量和文件大小，这可能需要一些时间。请等待该过程完成。</translation>
    </message>
    <message>
        <source>Repair Process Completed</source>
        <translation>修复过程已完成</translation>
    </message>
    <message>
        <source>Click on the &apos;Save Repaired Files&apos; to save all your repaired videos. Click the &apos;Preview&apos; under Action column to preview repaired videos. </source>
        <translation>单击“保存修复的文件”保存所有修复的视频。单击“操作”列中的“预览”可预览修复的视频。 </translation>
    </message>
    <message>
        <source>Advance Repair Running</source>
        <translation>正在进行高级修复</translation>
    </message>
    <message>
        <source>Please wait while the &apos;Advance Repair&apos; process is running.</source>
        <translation>正在进行高级修复，请稍候。</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>添加文件</translation>
    </message>
    <message>
        <source>Already added files</source>
        <translation>已添加的文件</translation>
    </message>
    <message>
        <source>Files already added to list will be skipped.</source>
        <translation>将跳过列表中已有的文件。</translation>
    </message>
    <message>
        <source>Choose Location</source>
        <translation>选择位置</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Application Running! 
Please halt the current process to Exit.</source>
        <translation>应用程序正在运行！ 
请先停止当前过程再退出。</translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted files before exiting?</source>
        <translation>退出前是否要对严重损坏的文件运行高级修复？</translation>
    </message>
    <message>
        <source>Are you sure you want to exit?</source>
        <translation>确定要退出吗？</translation>
    </message>
    <message>
        <source>File Not Found</source>
        <translation>未找到文件</translation>
    </message>
    <message>
        <source>The repaired file is no longer there:
%1</source>
        <translation>修复的文件已不存在：
%1</translation>
    </message>
    <message>
        <source>Player Not Found</source>
        <translation>未找到播放器</translation>
    </message>
    <message>
        <source>Preview needs MPlayer, which could not be started.
Install it with: sudo apt-get install mplayer</source>
        <translation>预览需要 MPlayer，但无法启动它。
安装命令：sudo apt-get install mplayer</translation>
    </message>
    <message>
        <source>Saving Complete</source>
        <translation>保存完成</translation>
    </message>
    <message>
        <source>Repaired files saved successfully.</source>
        <translation>修复的文件已成功保存。</translation>
    </message>
    <message>
        <source>Files Not Saved</source>
        <translation>文件未保存</translation>
    </message>
    <message>
        <source>These files could not be saved:
%1</source>
        <translation>以下文件无法保存：
%1</translation>
    </message>
    <message>
        <source>Wait while repaired files are being saved.</source>
        <translation>正在保存修复的文件，请稍候。</translation>
    </message>
    <message>
        <source>No Files</source>
        <translation>没有文件</translation>
    </message>
    <message>
        <source>No Files Selected.</source>
        <translation>未选择文件。</translation>
    </message>
    <message>
        <source>Choose Another Folder</source>
        <translation>选择其他文件夹</translation>
    </message>
    <message>
        <source>This folder holds the program&apos;s work files and is removed at exit.
Choose another folder to save the repaired files.</source>
        <translation>此文件夹存放程序的工作文件，退出时将被删除。
请选择其他文件夹来保存修复的文件。</translation>
    </message>
    <message>
        <source>Cannot Save Here</source>
        <translation>无法保存到此处</translation>
    </message>
    <message>
        <source>Files can&apos;t be written to this folder:
%1
Choose another folder.</source>
        <translation>无法向此文件夹写入文件：
%1
请选择其他文件夹。</translation>
    </message>
</context>
<context>
    <name>repairFinishDialog</name>
    <message>
        <source>What is a reference file?</source>
        <translation>什么是参考文件？</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
</context>
</TS>

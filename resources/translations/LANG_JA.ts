<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP">
<context>
    <name>AboutDlg</name>
    <message>
        <source>About</source>
        <translation>バージョン情報</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>バージョン %1</translation>
    </message>
    <message>
        <source>System: %1</source>
        <translation>システム: %1</translation>
    </message>
    <message>
        <source>License</source>
        <translation>ライセンス</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>サポート</translation>
    </message>
</context>
<context>
    <name>AdvancedRepairDlg</name>
    <message>
        <source>Add Sample Video</source>
        <translation>サンプル動画を追加</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;Advance Repair&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Use this option to repair severely damaged videos. &lt;/p&gt;&lt;p&gt;Click &amp;quot;Next&amp;quot; to add a &apos;sample video&apos; of the same format, shot using the same device.&lt;/p&gt;&lt;p&gt;The sample and the damaged video remain unchanged during repair process.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;高度な修復&lt;/b&gt;&lt;/p&gt;&lt;p&gt;重度に破損した動画を修復するには、このオプションを使用します。 &lt;/p&gt;&lt;p&gt;[次へ] をクリックして、同じデバイスで撮影した同じ形式の「サンプル動画」を追加します。&lt;/p&gt;&lt;p&gt;修復中も、サンプル動画と破損した動画は変更されません。&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>次へ</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Learn More</source>
        <translation>詳細情報</translation>
    </message>
</context>
<context>
    <name>CloseApplicationDlg</name>
    <message>
        <source>Yes</source>
        <translation>はい</translation>
    </message>
    <message>
        <source>No</source>
        <translation>いいえ</translation>
    </message>
</context>
<context>
    <name>DownloadUpdate</name>
    <message>
        <source>Software Update</source>
        <translation>ソフトウェア更新</translation>
    </message>
    <message>
        <source>Downloading Files</source>
        <translation>ファイルをダウンロード中</translation>
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
        <translation>空き容量不足</translation>
    </message>
    <message>
        <source>Insufficient space at selected destination.
</source>
        <translation>選択した保存先の空き容量が不足しています。
</translation>
    </message>
    <message>
        <source>Click &apos;Browse&apos; to change destination .
</source>
        <translation>保存先を変更するには [参照] をクリックしてください。
</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>参照</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
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
        <translation>空き容量: %1、必要な容量: %2
</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>フォルダーの選択</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>English</source>
        <translation>英語</translation>
    </message>
    <message>
        <source>German</source>
        <translation>ドイツ語</translation>
    </message>
    <message>
        <source>French</source>
        <translation>フランス語</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>イタリア語</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>スペイン語</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>日本語</translation>
    </message>
    <message>
        <source>Chinese</source>
        <translation>中国語</translation>
    </message>
    <message>
        <source>Korean</source>
        <translation>韓国語</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>オランダ語</translation>
    </message>
    <message>
        <source>Portuguese Brazil</source>
        <translation>ポルトガル語 (ブラジル)</translation>
    </message>
    <message>
        <source>Hindi</source>
        <translation>ヒンディー語</translation>
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
        <translation>終了</translation>
    </message>
    <message>
        <source>Halvern Videomend</source>
        <translation>Halvern Videomend</translation>
    </message>
    <message>
        <source>Halvern Videomend is already running.</source>
        <translation>Halvern Videomend は既に実行中です。</translation>
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
        <translation>利用可能な更新はありません。</translation>
    </message>
</context>
<context>
    <name>QDownloadApp</name>
    <message>
        <source>no address of the update server is set</source>
        <translation>更新サーバーのアドレスが設定されていません</translation>
    </message>
    <message>
        <source>the folder %1 can&apos;t be used</source>
        <translation>フォルダー %1 は使用できません</translation>
    </message>
    <message>
        <source>Unable to save the file </source>
        <translation>ファイルを保存できません </translation>
    </message>
    <message>
        <source>Time Elapsed: </source>
        <translation>経過時間: </translation>
    </message>
    <message>
        <source> sec </source>
        <translation> 秒 </translation>
    </message>
    <message>
        <source> MB copied) </source>
        <translation> MB コピー済み) </translation>
    </message>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Update failed 

 Update failed due to partial download.</source>
        <translation>更新に失敗しました 

 ダウンロードが不完全なため、更新に失敗しました。</translation>
    </message>
    <message>
        <source>The installer could not be started.</source>
        <translation>インストーラーを起動できませんでした。</translation>
    </message>
    <message>
        <source> MB of  </source>
        <translation> MB /  </translation>
    </message>
    <message>
        <source>Transfer Rate: </source>
        <translation>転送速度: </translation>
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
        <translation>新しいマイナーアップデート </translation>
    </message>
    <message>
        <source> is available. Click Update to proceed further.</source>
        <translation> が利用可能です。続行するには［更新］をクリックしてください。</translation>
    </message>
    <message>
        <source>A new major release </source>
        <translation>新しいメジャーリリース </translation>
    </message>
</context>
<context>
    <name>QuestionDlg</name>
    <message>
        <source>Yes</source>
        <translation>はい</translation>
    </message>
    <message>
        <source>No</source>
        <translation>いいえ</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlg</name>
    <message>
        <source>Choose Video</source>
        <translation>動画の選択</translation>
    </message>
    <message>
        <source>Add a sample video:</source>
        <translation>サンプル動画を追加:</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>参照</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>修復</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Apply to all files of same format.</source>
        <translation>同じ形式のすべてのファイルに適用します。</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>ファイルを追加</translation>
    </message>
</context>
<context>
    <name>ReferenceRepairedDlg</name>
    <message>
        <source>Video file repaired successfully!</source>
        <translation>動画ファイルは正常に修復されました。</translation>
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
        <translation>ファイルの保存</translation>
    </message>
    <message>
        <source>Save repaired file at source location.</source>
        <translation>修復したファイルを元の場所に保存します。</translation>
    </message>
    <message>
        <source>Save file at custom location.</source>
        <translation>ファイルを指定した場所に保存します。</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>参照</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>フォルダーの選択</translation>
    </message>
</context>
<context>
    <name>ShowUpdateAvail</name>
    <message>
        <source>Software Update</source>
        <translation>ソフトウェア更新</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>Sizes</name>
    <message>
        <source>%1 bytes</source>
        <translation>%1 バイト</translation>
    </message>
</context>
<context>
    <name>StopDlg</name>
    <message>
        <source>Yes</source>
        <translation>はい</translation>
    </message>
    <message>
        <source>No</source>
        <translation>いいえ</translation>
    </message>
</context>
<context>
    <name>VideoRepairWin</name>
    <message>
        <source>More Tools</source>
        <translation>その他のツール</translation>
    </message>
    <message>
        <source>Minimise</source>
        <translation>最小化</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>メニュー</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>言語</translation>
    </message>
    <message>
        <source>About</source>
        <translation>バージョン情報</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Add Your Corrupt Videos to Repair</source>
        <translation>修復する破損した動画を追加してください</translation>
    </message>
    <message>
        <source>Add Videos</source>
        <translation>動画を追加</translation>
    </message>
    <message>
        <source>Repair Your Videos</source>
        <translation>動画の修復</translation>
    </message>
    <message>
        <source>Click &apos;Repair&apos; button to fix corrupted videos. This may take a while depending on the number of videos and their size</source>
        <translation>[修復] ボタンをクリックすると、破損した動画を修復します。動画の数とサイズによっては時間がかかる場合があります</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>すべて選択</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>追加</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Click here</source>
        <translation>ここをクリック</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>修復</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>Overall Progress</source>
        <translation>全体の進行状況</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>プレビュー</translation>
    </message>
    <message>
        <source>What is a reference file?</source>
        <translation>参照ファイルとは？</translation>
    </message>
    <message>
        <source>Save Repaired Files</source>
        <translation>修復したファイルを保存</translation>
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
        <translation>待機中</translation>
    </message>
    <message>
        <source>Processing</source>
        <translation>処理中</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>完了</translation>
    </message>
    <message>
        <source>Awaiting Action</source>
        <translation>操作が必要</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>失敗</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>中止</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>プレビュー</translation>
    </message>
    <message>
        <source>Advance Repair</source>
        <translation>高度な修復</translation>
    </message>
    <message>
        <source>FFmpeg Not Found</source>
        <translation>FFmpeg が見つかりません</translation>
    </message>
    <message>
        <source>FFmpeg is not installed, so damaged videos can be checked but not rebuilt.
Install it with: sudo apt-get install ffmpeg</source>
        <translation>FFmpeg がインストールされていないため、破損した動画の確認はできますが、再構築はできません。
インストール方法: sudo apt-get install ffmpeg</translation>
    </message>
    <message>
        <source> : Repairing file</source>
        <translation> : 修復中のファイル</translation>
    </message>
    <message>
        <source>of</source>
        <translation>/</translation>
    </message>
    <message>
        <source>Repairing </source>
        <translation>修復中: </translation>
    </message>
    <message>
        <source>Repair Complete</source>
        <translation>修復完了</translation>
    </message>
    <message>
        <source>Repair process completed.
Check &apos;Status&apos; column to view the repair outcome.</source>
        <translation>修復処理が完了しました。
修復結果は [状態] 列で確認できます。</translation>
    </message>
    <message>
        <source>Advance Repair Required</source>
        <translation>高度な修復が必要です</translation>
    </message>
    <message>
        <source>This video is severely damaged. Run advance repair option to repair it before saving.</source>
        <translation>この動画は重度に破損しています。保存する前に高度な修復を実行してください。</translation>
    </message>
    <message>
        <source>Process Aborted</source>
        <translation>処理を中止しました</translation>
    </message>
    <message>
        <source>Repair process was aborted. Go back to the previous screen to restart the repair process.</source>
        <translation>修復処理は中止されました。修復をやり直すには、前の画面に戻ってください。</translation>
    </message>
    <message>
        <source>Severely Corrupted Video</source>
        <translation>重度に破損した動画</translation>
    </message>
    <message>
        <source>This video is severely corrupted and cannot be repaired.</source>
        <translation>この動画は重度に破損しているため、修復できません。</translation>
    </message>
    <message>
        <source>Stop Repair</source>
        <translation>修復の停止</translation>
    </message>
    <message>
        <source>This process will stop after processing the current file.</source>
        <translation>現在のファイルの処理が終わった後で停止します。</translation>
    </message>
    <message>
        <source>Do you want to stop the process?</source>
        <translation>処理を停止しますか？</translation>
    </message>
    <message>
        <source>Do you want to stop the current process?</source>
        <translation>現在の処理を停止しますか？</translation>
    </message>
    <message>
        <source>You can&apos;t resume the process from this point. All the changes will be discarded. </source>
        <translation>ここから処理を再開することはできません。すべての変更は破棄されます。 </translation>
    </message>
    <message>
        <source>This action will clear repair results.
Do you want to go back to previous screen?</source>
        <translation>修復結果が消去されます。
前の画面に戻りますか？</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted video before leaving this page?</source>
        <translation>このページを離れる前に、重度に破損した動画に高度な修復を実行しますか？</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>言語</translation>
    </message>
    <message>
        <source>List of video files</source>
        <translation>動画ファイルの一覧</translation>
    </message>
    <message>
        <source> File Name</source>
        <translation> ファイル名</translation>
    </message>
    <message>
        <source> Path</source>
        <translation> パス</translation>
    </message>
    <message>
        <source> Size (MB)</source>
        <translation> サイズ (MB)</translation>
    </message>
    <message>
        <source> Modified Date</source>
        <translation> 更新日時</translation>
    </message>
    <message>
        <source> Created Date</source>
        <translation> 作成日時</translation>
    </message>
    <message>
        <source>  Path</source>
        <translation>  パス</translation>
    </message>
    <message>
        <source> Status</source>
        <translation> 状態</translation>
    </message>
    <message>
        <source> Action</source>
        <translation> 操作</translation>
    </message>
    <message>
        <source>Repaired files will be saved in %1.</source>
        <translation>修復したファイルは %1 に保存されます。</translation>
    </message>
    <message>
        <source>Repaired files will be saved at the source file location.</source>
        <translation>修復したファイルは元のファイルと同じ場所に保存されます。</translation>
    </message>
    <message>
        <source>To change location</source>
        <translation>保存先を変更するには</translation>
    </message>
    <message>
        <source>Repairing selected videos</source>
        <translation>選択した動画を修復しています</translation>
    </message>
    <message>
        <source>This may take a while, depending on the number of videos and their file size. Please wait while the process is completed.</source>
        <translation>動画の数とファイル サイズによっては時間がかかる場合があります。処理が完了するまでお待ちください。</translation>
    </message>
    <message>
        <source>Repair Process Completed</source>
        <translation>修復処理が完了しました</translation>
    </message>
    <message>
        <source>Click on the &apos;Save Repaired Files&apos; to save all your repaired videos. Click the &apos;Preview&apos; under Action column to preview repaired videos. </source>
        <translation>修復したすべての動画を保存するには [修復したファイルを保存] をクリックします。修復した動画をプレビューするには、[操作] 列の [プレビュー] をクリックします。 </translation>
    </message>
    <message>
        <source>Advance Repair Running</source>
        <translation>高度な修復を実行中</translation>
    </message>
    <message>
        <source>Please wait while the &apos;Advance Repair&apos; process is running.</source>
        <translation>高度な修復を実行しています。しばらくお待ちください。</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>ファイルを追加</translation>
    </message>
    <message>
        <source>Already added files</source>
        <translation>追加済みのファイル</translation>
    </message>
    <message>
        <source>Files already added to list will be skipped.</source>
        <translation>既に一覧にあるファイルはスキップされます。</translation>
    </message>
    <message>
        <source>Choose Location</source>
        <translation>保存先の選択</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Application Running! 
Please halt the current process to Exit.</source>
        <translation>アプリケーションは実行中です。 
終了するには、現在の処理を停止してください。</translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted files before exiting?</source>
        <translation>終了する前に、重度に破損したファイルに高度な修復を実行しますか？</translation>
    </message>
    <message>
        <source>Are you sure you want to exit?</source>
        <translation>終了してもよろしいですか？</translation>
    </message>
    <message>
        <source>File Not Found</source>
        <translation>ファイルが見つかりません</translation>
    </message>
    <message>
        <source>The repaired file is no longer there:
%1</source>
        <translation>修復したファイルが見つかりません:
%1</translation>
    </message>
    <message>
        <source>Player Not Found</source>
        <translation>プレーヤーが見つかりません</translation>
    </message>
    <message>
        <source>Preview needs MPlayer, which could not be started.
Install it with: sudo apt-get install mplayer</source>
        <translation>プレビューには MPlayer が必要ですが、起動できませんでした。
インストール方法: sudo apt-get install mplayer</translation>
    </message>
    <message>
        <source>Saving Complete</source>
        <translation>保存完了</translation>
    </message>
    <message>
        <source>Repaired files saved successfully.</source>
        <translation>修復したファイルを保存しました。</translation>
    </message>
    <message>
        <source>Files Not Saved</source>
        <translation>ファイルを保存できませんでした</translation>
    </message>
    <message>
        <source>These files could not be saved:
%1</source>
        <translation>次のファイルを保存できませんでした:
%1</translation>
    </message>
    <message>
        <source>Wait while repaired files are being saved.</source>
        <translation>修復したファイルを保存しています。しばらくお待ちください。</translation>
    </message>
    <message>
        <source>No Files</source>
        <translation>ファイルがありません</translation>
    </message>
    <message>
        <source>No Files Selected.</source>
        <translation>ファイルが選択されていません。</translation>
    </message>
    <message>
        <source>Choose Another Folder</source>
        <translation>別のフォルダーを選択</translation>
    </message>
    <message>
        <source>This folder holds the program&apos;s work files and is removed at exit.
Choose another folder to save the repaired files.</source>
        <translation>このフォルダーにはプログラムの作業ファイルが含まれ、終了時に削除されます。
修復したファイルの保存先には別のフォルダーを選択してください。</translation>
    </message>
    <message>
        <source>Cannot Save Here</source>
        <translation>ここには保存できません</translation>
    </message>
    <message>
        <source>Files can&apos;t be written to this folder:
%1
Choose another folder.</source>
        <translation>このフォルダーにはファイルを書き込めません:
%1
別のフォルダーを選択してください。</translation>
    </message>
</context>
<context>
    <name>repairFinishDialog</name>
    <message>
        <source>What is a reference file?</source>
        <translation>参照ファイルとは？</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
</TS>

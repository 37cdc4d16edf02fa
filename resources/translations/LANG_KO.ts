<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko_KR">
<context>
    <name>AboutDlg</name>
    <message>
        <source>About</source>
        <translation>정보</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>버전 %1</translation>
    </message>
    <message>
        <source>System: %1</source>
        <translation>시스템: %1</translation>
    </message>
    <message>
        <source>License</source>
        <translation>라이선스</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>지원</translation>
    </message>
</context>
<context>
    <name>AdvancedRepairDlg</name>
    <message>
        <source>Add Sample Video</source>
        <translation>샘플 동영상 추가</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;Advance Repair&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Use this option to repair severely damaged videos. &lt;/p&gt;&lt;p&gt;Click &amp;quot;Next&amp;quot; to add a &apos;sample video&apos; of the same format, shot using the same device.&lt;/p&gt;&lt;p&gt;The sample and the damaged video remain unchanged during repair process.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;고급 복구&lt;/b&gt;&lt;/p&gt;&lt;p&gt;심하게 손상된 동영상을 복구하려면 이 옵션을 사용하십시오. &lt;/p&gt;&lt;p&gt;&amp;quot;다음&amp;quot;을 클릭하여 같은 장치로 촬영한 같은 형식의 ‘샘플 동영상’을 추가하십시오.&lt;/p&gt;&lt;p&gt;복구하는 동안 샘플 동영상과 손상된 동영상은 변경되지 않습니다.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>다음</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
    <message>
        <source>Learn More</source>
        <translation>자세히 알아보기</translation>
    </message>
</context>
<context>
    <name>CloseApplicationDlg</name>
    <message>
        <source>Yes</source>
        <translation>예</translation>
    </message>
    <message>
        <source>No</source>
        <translation>아니요</translation>
    </message>
</context>
<context>
    <name>DownloadUpdate</name>
    <message>
        <source>Software Update</source>
        <translation>소프트웨어 업데이트</translation>
    </message>
    <message>
        <source>Downloading Files</source>
        <translation>파일 다운로드 중</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>확인</translation>
    </message>
</context>
<context>
    <name>InsufficientDlg</name>
    <message>
        <source>Insufficient Space</source>
        <translation>공간 부족</translation>
    </message>
    <message>
        <source>Insufficient space at selected destination.
</source>
        <translation>선택한 대상 위치의 공간이 부족합니다.
</translation>
    </message>
    <message>
        <source>Click &apos;Browse&apos; to change destination .
</source>
        <translation>대상 위치를 변경하려면 &apos;찾아보기&apos;를 클릭하십시오.
</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>찾아보기</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>확인</translation>
    </message>
</context>
<context>
    <name>InsufficientSpaceDlg</name>
    <message>
        <source>Available Space: %1, Required Space: %2
</source>
        <translation>사용 가능한 공간: %1, 필요한 공간: %2
</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>폴더 선택</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>English</source>
        <translation>영어</translation>
    </message>
    <message>
        <source>German</source>
        <translation>독일어</translation>
    </message>
    <message>
        <source>French</source>
        <translation>프랑스어</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>이탈리아어</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>스페인어</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>일본어</translation>
    </message>
    <message>
        <source>Chinese</source>
        <translation>중국어</translation>
    </message>
    <message>
        <source>Korean</source>
        <translation>한국어</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>네덜란드어</translation>
    </message>
    <message>
        <source>Portuguese Brazil</source>
        <translation>포르투갈어(브라질)</translation>
    </message>
    <message>
        <source>Hindi</source>
        <translation>힌디어</translation>
    </message>
</context>
<context>
    <name>MessageDlg</name>
    <message>
        <source>OK</source>
        <translation>확인</translation>
    </message>
</context>
<context>
    <name>Messages</name>
    <message>
        <source>Exit</source>
        <translation>종료</translation>
    </message>
    <message>
        <source>Halvern Videomend</source>
        <translation>Halvern Videomend</translation>
    </message>
    <message>
        <source>Halvern Videomend is already running.</source>
        <translation>Halvern Videomend가 이미 실행 중입니다.</translation>
    </message>
</context>
<context>
    <name>QCheckUpdate</name>
    <message>
        <source>Update</source>
        <translation>업데이트</translation>
    </message>
    <message>
        <source>No update available.</source>
        <translation>사용 가능한 업데이트가 없습니다.</translation>
    </message>
</context>
<context>
    <name>QDownloadApp</name>
    <message>
        <source>no address of the update server is set</source>
        <translation>업데이트 서버 주소가 설정되지 않았습니다</translation>
    </message>
    <message>
        <source>the folder %1 can&apos;t be used</source>
        <translation>폴더 %1을(를) 사용할 수 없습니다</translation>
    </message>
    <message>
        <source>Unable to save the file </source>
        <translation>파일을 저장할 수 없습니다 </translation>
    </message>
    <message>
        <source>Time Elapsed: </source>
        <translation>경과 시간: </translation>
    </message>
    <message>
        <source> sec </source>
        <translation> 초 </translation>
    </message>
    <message>
        <source> MB copied) </source>
        <translation> MB 복사됨) </translation>
    </message>
    <message>
        <source>Update</source>
        <translation>업데이트</translation>
    </message>
    <message>
        <source>Update failed 

 Update failed due to partial download.</source>
        <translation>업데이트 실패 

 다운로드가 완료되지 않아 업데이트에 실패했습니다.</translation>
    </message>
    <message>
        <source>The installer could not be started.</source>
        <translation>설치 프로그램을 시작할 수 없습니다.</translation>
    </message>
    <message>
        <source> MB of  </source>
        <translation> MB /  </translation>
    </message>
    <message>
        <source>Transfer Rate: </source>
        <translation>전송 속도: </translation>
    </message>
    <message>
        <source> KB/sec </source>
        <translation> KB/초 </translation>
    </message>
</context>
<context>
    <name>QShowUpdate</name>
    <message>
        <source>A new minor update </source>
        <translation>새 마이너 업데이트 </translation>
    </message>
    <message>
        <source> is available. Click Update to proceed further.</source>
        <translation> 버전을 사용할 수 있습니다. 계속하려면 [업데이트]을(를) 클릭하십시오.</translation>
    </message>
    <message>
        <source>A new major release </source>
        <translation>새 메이저 릴리스 </translation>
    </message>
</context>
<context>
    <name>QuestionDlg</name>
    <message>
        <source>Yes</source>
        <translation>예</translation>
    </message>
    <message>
        <source>No</source>
        <translation>아니요</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlg</name>
    <message>
        <source>Choose Video</source>
        <translation>동영상 선택</translation>
    </message>
    <message>
        <source>Add a sample video:</source>
        <translation>샘플 동영상 추가:</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>찾아보기</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>복구</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
    <message>
        <source>Apply to all files of same format.</source>
        <translation>같은 형식의 모든 파일에 적용합니다.</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>파일 추가</translation>
    </message>
</context>
<context>
    <name>ReferenceRepairedDlg</name>
    <message>
        <source>Video file repaired successfully!</source>
        <translation>동영상 파일을 복구했습니다!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>확인</translation>
    </message>
</context>
<context>
    <name>SaveDlgClass</name>
    <message>
        <source>Save Files</source>
        <translation>파일 저장</translation>
    </message>
    <message>
        <source>Save repaired file at source location.</source>
        <translation>복구된 파일을 원본 위치에 저장합니다.</translation>
    </message>
    <message>
        <source>Save file at custom location.</source>
        <translation>파일을 사용자 지정 위치에 저장합니다.</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>찾아보기</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>저장</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>폴더 선택</translation>
    </message>
</context>
<context>
    <name>ShowUpdateAvail</name>
    <message>
        <source>Software Update</source>
        <translation>소프트웨어 업데이트</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>업데이트</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
</context>
<context>
    <name>Sizes</name>
    <message>
        <source>%1 bytes</source>
        <translation>%1바이트</translation>
    </message>
</context>
<context>
    <name>StopDlg</name>
    <message>
        <source>Yes</source>
        <translation>예</translation>
    </message>
    <message>
        <source>No</source>
        <translation>아니요</translation>
    </message>
</context>
<context>
    <name>VideoRepairWin</name>
    <message>
        <source>More Tools</source>
        <translation>추가 도구</translation>
    </message>
    <message>
        <source>Minimise</source>
        <translation>최소화</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>닫기</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>메뉴</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>언어</translation>
    </message>
    <message>
        <source>About</source>
        <translation>정보</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>도움말</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>업데이트</translation>
    </message>
    <message>
        <source>Add Your Corrupt Videos to Repair</source>
        <translation>복구할 손상된 동영상을 추가하십시오</translation>
    </message>
    <message>
        <source>Add Videos</source>
        <translation>동영상 추가</translation>
    </message>
    <message>
        <source>Repair Your Videos</source>
        <translation>동영상 복구</translation>
    </message>
    <message>
        <source>Click &apos;Repair&apos; button to fix corrupted videos. This may take a while depending on the number of videos and their size</source>
        <translation>손상된 동영상을 복구하려면 &apos;복구&apos; 버튼을 클릭하십시오. 동영상의 수와 크기에 따라 시간이 걸릴 수 있습니다</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>모두 선택</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>추가</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>제거</translation>
    </message>
    <message>
        <source>Click here</source>
        <translation>여기를 클릭</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>복구</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>뒤로</translation>
    </message>
    <message>
        <source>Overall Progress</source>
        <translation>전체 진행률</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>미리 보기</translation>
    </message>
    <message>
        <source>What is a reference file?</source>
        <translation>참조 파일이란?</translation>
    </message>
    <message>
        <source>Save Repaired Files</source>
        <translation>복구된 파일 저장</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>중지</translation>
    </message>
</context>
<context>
    <name>VideoRepairWindow</name>
    <message>
        <source>Queued</source>
        <translation>대기 중</translation>
    </message>
    <message>
        <source>Processing</source>
        <translation>처리 중</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>완료</translation>
    </message>
    <message>
        <source>Awaiting Action</source>
        <translation>조치 필요</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>실패</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>중단됨</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>미리 보기</translation>
    </message>
    <message>
        <source>Advance Repair</source>
        <translation>고급 복구</translation>
    </message>
    <message>
        <source>FFmpeg Not Found</source>
        <translation>FFmpeg를 찾을 수 없음</translation>
    </message>
    <message>
        <source>FFmpeg is not installed, so damaged videos can be checked but not rebuilt.
Install it with: sudo apt-get install ffmpeg</source>
        <translation>FFmpeg가 설치되어 있지 않아 손상된 동영상을 검사할 수는 있지만 다시 만들 수는 없습니다.
설치 명령: sudo apt-get install ffmpeg</translation>
    </message>
    <message>
        <source> : Repairing file</source>
        <translation> : 파일 복구 중</translation>
    </message>
    <message>
        <source>of</source>
        <translation>/</translation>
    </message>
    <message>
        <source>Repairing </source>
        <translation>복구 중: </translation>
    </message>
    <message>
        <source>Repair Complete</source>
        <translation>복구 완료</translation>
    </message>
    <message>
        <source>Repair process completed.
Check &apos;Status&apos; column to view the repair outcome.</source>
        <translation>복구 과정이 완료되었습니다.
복구 결과는 &apos;상태&apos; 열에서 확인하십시오.</translation>
    </message>
    <message>
        <source>Advance Repair Required</source>
        <translation>고급 복구 필요</translation>
    </message>
    <message>
        <source>This video is severely damaged. Run advance repair option to repair it before saving.</source>
        <translation>이 동영상은 심하게 손상되었습니다. 저장하기 전에 고급 복구를 실행하십시오.</translation>
    </message>
    <message>
        <source>Process Aborted</source>
        <translation>과정 중단됨</translation>
    </message>
    <message>
        <source>Repair process was aborted. Go back to the previous screen to restart the repair process.</source>
        <translation>복구 과정이 중단되었습니다. 복구를 다시 시작하려면 이전 화면으로 돌아가십시오.</translation>
    </message>
    <message>
        <source>Severely Corrupted Video</source>
        <translation>심하게 손상된 동영상</translation>
    </message>
    <message>
        <source>This video is severely corrupted and cannot be repaired.</source>
        <translation>이 동영상은 심하게 손상되어 복구할 수 없습니다.</translation>
    </message>
    <message>
        <source>Stop Repair</source>
        <translation>복구 중지</translation>
    </message>
    <message>
        <source>This process will stop after processing the current file.</source>
        <translation>현재 파일을 처리한 후 과정이 중지됩니다.</translation>
    </message>
    <message>
        <source>Do you want to stop the process?</source>
        <translation>과정을 중지하시겠습니까?</translation>
    </message>
    <message>
        <source>Do you want to stop the current process?</source>
        <translation>현재 과정을 중지하시겠습니까?</translation>
    </message>
    <message>
        <source>You can&apos;t resume the process from this point. All the changes will be discarded. </source>
        <translation>이 지점부터 과정을 다시 시작할 수 없습니다. 모든 변경 사항이 취소됩니다. </translation>
    </message>
    <message>
        <source>This action will clear repair results.
Do you want to go back to previous screen?</source>
        <translation>복구 결과가 지워집니다.
이전 화면으로 돌아가시겠습니까?</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>뒤로</translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted video before leaving this page?</source>
        <translation>이 페이지를 떠나기 전에 심하게 손상된 동영상에 고급 복구를 실행하시겠습니까?</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>언어</translation>
    </message>
    <message>
        <source>List of video files</source>
        <translation>동영상 파일 목록</translation>
    </message>
    <message>
        <source> File Name</source>
        <translation> 파일 이름</translation>
    </message>
    <message>
        <source> Path</source>
        <translation> 경로</translation>
    </message>
    <message>
        <source> Size (MB)</source>
        <translation> 크기(MB)</translation>
    </message>
    <message>
        <source> Modified Date</source>
        <translation> 수정한 날짜</translation>
    </message>
    <message>
        <source> Created Date</source>
        <translation> 만든 날짜</translation>
    </message>
    <message>
        <source>  Path</source>
        <translation>  경로</translation>
    </message>
    <message>
        <source> Status</source>
        <translation> 상태</translation>
    </message>
    <message>
        <source> Action</source>
        <translation> 작업</translation>
    </message>
    <message>
        <source>Repaired files will be saved in %1.</source>
        <translation>복구된 파일은 %1에 저장됩니다.</translation>
    </message>
    <message>
        <source>Repaired files will be saved at the source file location.</source>
        <translation>복구된 파일은 원본 파일 위치에 저장됩니다.</translation>
    </message>
    <message>
        <source>To change location</source>
        <translation>위치를 변경하려면</translation>
    </message>
    <message>
        <source>Repairing selected videos</source>
        <translation>선택한 동영상 복구 중</translation>
    </message>
    <message>
        <source>This may take a while, depending on the number of videos and their file size. Please wait while the process is completed.</source>
        <translation>동영상의 수와 파일 크기에 따라 시간이 걸릴 수 있습니다. 과정이 완료될 때까지 기다려 주십시오.</translation>
    </message>
    <message>
        <source>Repair Process Completed</source>
        <translation>복구 과정 완료</translation>
    </message>
    <message>
        <source>Click on the &apos;Save Repaired Files&apos; to save all your repaired videos. Click the &apos;Preview&apos; under Action column to preview repaired videos. </source>
        <translation>복구된 동영상을 모두 저장하려면 &apos;복구된 파일 저장&apos;을 클릭하십시오. 복구된 동영상을 미리 보려면 &apos;작업&apos; 열의 &apos;미리 보기&apos;를 클릭하십시오. </translation>
    </message>
    <message>
        <source>Advance Repair Running</source>
        <translation>고급 복구 실행 중</translation>
    </message>
    <message>
        <source>Please wait while the &apos;Advance Repair&apos; process is running.</source>
        <translation>&apos;고급 복구&apos;가 실행되는 동안 기다려 주십시오.</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>파일 추가</translation>
    </message>
    <message>
        <source>Already added files</source>
        <translation>이미 추가된 파일</translation>
    </message>
    <message>
        <source>Files already added to list will be skipped.</source>
        <translation>목록에 이미 있는 파일은 건너뜁니다.</translation>
    </message>
    <message>
        <source>Choose Location</source>
        <translation>위치 선택</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>종료</translation>
    </message>
    <message>
        <source>Application Running! 
Please halt the current process to Exit.</source>
        <translation>애플리케이션이 실행 중입니다! 
종료하려면 현재 과정을 중지하십시오.</translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted files before exiting?</source>
        <translation>종료하기 전에 심하게 손상된 파일에 고급 복구를 실행하시겠습니까?</translation>
    </message>
    <message>
        <source>Are you sure you want to exit?</source>
        <translation>종료하시겠습니까?</translation>
    </message>
    <message>
        <source>File Not Found</source>
        <translation>파일을 찾을 수 없음</translation>
    </message>
    <message>
        <source>The repaired file is no longer there:
%1</source>
        <translation>복구된 파일이 더 이상 없습니다:
%1</translation>
    </message>
    <message>
        <source>Player Not Found</source>
        <translation>플레이어를 찾을 수 없음</translation>
    </message>
    <message>
        <source>Preview needs MPlayer, which could not be started.
Install it with: sudo apt-get install mplayer</source>
        <translation>미리 보기에는 MPlayer가 필요하지만 시작할 수 없습니다.
설치 명령: sudo apt-get install mplayer</translation>
    </message>
    <message>
        <source>Saving Complete</source>
        <translation>저장 완료</translation>
    </message>
    <message>
        <source>Repaired files saved successfully.</source>
        <translation>복구된 파일을 저장했습니다.</translation>
    </message>
    <message>
        <source>Files Not Saved</source>
        <translation>파일이 저장되지 않음</translation>
    </message>
    <message>
        <source>These files could not be saved:
%1</source>
        <translation>다음 파일을 저장할 수 없습니다:
%1</translation>
    </message>
    <message>
        <source>Wait while repaired files are being saved.</source>
        <translation>복구된 파일을 저장하는 동안 기다려 주십시오.</translation>
    </message>
    <message>
        <source>No Files</source>
        <translation>파일 없음</translation>
    </message>
    <message>
        <source>No Files Selected.</source>
        <translation>선택한 파일이 없습니다.</translation>
    </message>
    <message>
        <source>Choose Another Folder</source>
        <translation>다른 폴더 선택</translation>
    </message>
    <message>
        <source>This folder holds the program&apos;s work files and is removed at exit.
Choose another folder to save the repaired files.</source>
        <translation>이 폴더에는 프로그램의 작업 파일이 있으며 종료할 때 삭제됩니다.
복구된 파일을 저장할 다른 폴더를 선택하십시오.</translation>
    </message>
    <message>
        <source>Cannot Save Here</source>
        <translation>여기에 저장할 수 없음</translation>
    </message>
    <message>
        <source>Files can&apos;t be written to this folder:
%1
Choose another folder.</source>
        <translation>이 폴더에 파일을 쓸 수 없습니다:
%1
다른 폴더를 선택하십시오.</translation>
    </message>
</context>
<context>
    <name>repairFinishDialog</name>
    <message>
        <source>What is a reference file?</source>
        <translation>참조 파일이란?</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>확인</translation>
    </message>
</context>
</TS>

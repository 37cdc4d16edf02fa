#pragma once
// The one window of the program: the add page, where damaged videos are
// collected, and the results page, where a run shows its rows. The repair
// itself runs in ThreadVideoRepair; this class only reacts to its signals.

#include "Dialogs.h"
#include "Languages.h"
#include "MyTreeWidget.h"
#include "SampleDialogs.h"
#include "SaveDialogs.h"
#include "WorkFolders.h"
#include "repair/Outcome.h"
#include "repair/ThreadVideoRepair.h"
#include "ui_VideoRepairWin.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QPoint>
#include <QSet>
#include <QStringList>
#include <QUrl>
#include <QWidget>
#include <atomic>
#include <memory>

class AboutDlg;
class QMenu;
class QProcess;
class QTimer;
namespace update { class Host; }

// Room on one volume for the files of a save.
struct VolumeResult
{
    QString strRootPath;
    quint64 ullAvailable = 0;
    quint64 ullRequired = 0;
    bool bEnough = true;
};

struct RowButtonRec
{
    quint32 nID = 0;
    QString strSourcePath;
    CustomButton *pButton = nullptr;
};

class VideoRepairWindow : public QWidget, public Ui::VideoRepairWin
{
    Q_OBJECT
public:
    explicit VideoRepairWindow(QWidget *parent = nullptr);
    ~VideoRepairWindow() override;

    // Columns of pFileList.
    enum FileColumn { fcName, fcPath, fcSize, fcFileId, fcParentId, fcExactSize, fcFullPath, fcModified, fcCreated };
    // Columns of pRepairList; 10, 11, 13 and 14 hold the row's state.
    enum RepairColumn {
        rcName, rcPath, rcSize, rcFileId, rcParentId, rcTempPath, rcModified, rcCreated, rcStatus,
        rcAction, rcProgressMark, rcVerdict, rcSource, rcQueueMark, rcDefaultCode
    };
    // What a row shows; kept beside the text so that a language change can
    // say it again and no logic reads a translated text.
    enum class RowStatus { None, Queued, Processing, Completed, Awaiting, Failed, Aborted };
    enum class RowAction { None, Preview, AdvanceRepair };
    static RowStatus StatusOf(const QTreeWidgetItem *item);
    static RowAction ActionOf(const QPushButton *button);

    // The answer of the add dialog, as it returned it.
    void AddFiles(const QStringList &paths);
    // Files named on the command line or handed over by a later start:
    // added as the add button adds them, and the window comes to the front.
    void TakeFiles(const QStringList &paths);
    // The answer of "Choose Location"; empty clears the choice.
    void SetDestPath(const QString &folder);
    void StartFadeIn();
    QString HelpPagePath() const;
    // What help opens: the variant's link, the brand's language file, or
    // the topic page; empty when there is nothing to open.
    QUrl HelpUrl() const;
    languages::HelpTopic HelpTopicNow() const;
    ThreadVideoRepair &RepairThread() { return m_repairThread; }
    // Looks for a newer version: silently after start-up, aloud from the
    // update buttons. An offer or download already open comes to the front.
    void CheckForUpdate(bool manual);
    // Before the installer takes over: a run stops as Stop stops it, a save
    // finishes its copies, the exit's clean-up runs, then the program quits.
    void EndForUpdate();

    MyTreeWidget *pFileList = nullptr;
    MyTreeWidget *pRepairList = nullptr;
    quint32 nNextFileId = 2;
    bool bListShown = false;
    QStringList lstPendingPaths;
    QList<RowButtonRec *> lstRowButtons;
    float fScale = 1.0f;
    int nLanguage = 0;

    // Marks of a run.
    int nRepairedCount = 0;
    int nAwaitingCount = 0;
    bool bAborted = false;
    bool bAdvanceRepairRunning = false;
    bool bHasAwaiting = false;
    bool bSpaceDialogShown = false;
    bool bApplyToAll = false;
    bool bKeepWorkFolder = false;
    QString strFailedFileName;
    QString strFailedFilePath;
    QStringList lstSameFormat;
    int nRowTotal = 0;
    int nRowUnchecked = 0;

    StopDlg *pStopDlg = nullptr;
    MessageDlg *pMessageDlg = nullptr;
    QuestionDlg *pQuestionDlg = nullptr;
    CloseApplicationDlg *pCloseApplicationDlg = nullptr;
    repairFinishDialog *pRepairFinishDlg = nullptr;
    AdvancedRepairDlg *pAdvancedRepairDlg = nullptr; // while one is open
    ReferenceFileDlg *pReferenceFileDlg = nullptr;
    ReferenceRepairedDlg *pReferenceRepairedDlg = nullptr;
    SaveDlgClass *pSaveDlg = nullptr;
    QProcess *pPlayerProcess = nullptr;
    bool bSaving = false;
    QMenu *pLanguageMenu = nullptr;
    QMenu *pLanguageMenu2 = nullptr;
    QMenu *pMoreToolsMenu = nullptr;
    QMenu *pMoreToolsMenu2 = nullptr;
    AboutDlg *pAboutDlg = nullptr;

    // The toolbar strips: each tick adds the step to the phase; at 0.1 the
    // first item shows (or the last hides), at 0.2 the next, and so on.
    float fToolbarPhase = 0.0f;
    static constexpr int nToolbarInterval = 15; // ms
    static constexpr float fToolbarStep = 0.05f;
    QTimer *pToolbarTimer = nullptr;
    // The items of a page's strip that this program has, in order from the menu button.
    QList<QWidget *> StripItems(int page) const;

public Q_SLOTS:
    void OnTimerSlot();

    void LoadEnglishLanguages();
    void LoadGermanLanguages();
    void LoadFrenchLanguages();
    void LoadItalianLanguages();
    void LoadSpanishLanguages();
    void LoadChineseLanguages();
    void LoadJapaneseLanguages();
    void LoadKoreanLanguages();
    void LoadDutchLanguages();
    void LoadBrazilLanguages();
    void LoadHindiLanguages();
    void LoadEnglishLanguages2();
    void LoadGermanLanguages2();
    void LoadFrenchLanguages2();
    void LoadItalianLanguages2();
    void LoadSpanishLanguages2();
    void LoadChineseLanguages2();
    void LoadJapaneseLanguages2();
    void LoadKoreanLanguages2();
    void LoadDutchLanguages2();
    void LoadBrazilLanguages2();
    void LoadHindiLanguages2();

    void UiInit();
    void Init();
    void CreateMenuBar();
    void CreateMenuBar2();
    void OpenHelp();
    void CloseProcess();
    void MinimiseWin();
    void OnMenuProduct();
    void OnSecondMenuProduct();
    void OnToolBarTimerSlot();
    void OnToolBarTimerSlot2();
    void MoreTool();
    // Would restore the window's geometry; nothing is connected to it, so
    // the window always opens centred.
    void OnThisPage(bool bMaximised);

    // The add page.
    void OnAddMOVFile();
    void OnRemoveMOVFile();
    void OnCheckBoxbtnClicked(bool checked);
    void OnItemClicked(QTreeWidgetItem *pItem, int nCol);
    void ChangeDestPath();

    // The run.
    void OnRepairMOVFiles();
    void OnRepairItemClicked(QTreeWidgetItem *pItem, int ncol);
    void OnSelectAllClicked(bool checked);
    void OnStop();
    void OnStopProcess();
    void OnRunProcess();
    void OnBackBtnClicked();
    void OnRepairRefrenceFile();
    bool TwoRepairedValidFilesCreated(QString strRepairedPath);

    // The worker's signals.
    void OndisableAddReferenceBtn();
    void OnFileNameLabel(const QString &name);
    void OnWriteStatus(bool bRepaired, bool hasVideo_Strh, const QString &FileName, bool bDefaultCode);
    void OnWriteAVIFileStatus(bool hasVideo_Strh, const QString &FileName);
    void OnWriteProcessingStatus(const QString &name);
    void OnShowProgressBar();
    void OnSetProgressBarRange(qint64 range);
    void OnsetProgressvalue(qint64 value);
    void OnShowOverAllProgressBar();
    void OnOverAllProgressBarMax(int files);
    void OnOverAllProgressValue(int nFile, int nPercent, int nFiles);
    void OnRepairFinish();
    void OnProcessAborted();
    void OnProcessAborted1();
    void OnFileReported(int index, const QString &fileName, const outcome::FileReport &report);

    // The sample dialogs.
    void OnClickPreviewBtn(unsigned int id);
    void OnclickedNextDialog();
    void onlearnmorelinkclicked();
    void OnRefe_CheckBoxClicked();

    // Preview.
    void PlayFile(const QString &path);
    void OnDoubleClicked(QTreeWidgetItem *pItem, int nCol);
    void OnQuickLookSlot();

    // Saving.
    void OnClickedSaveButton();
    void OnSavedMsg();
    void OnUnhide();
    void OnCustomLocation(const QString &strPath);
    void OnProgressValue(unsigned int n);
    void OnProgressFinish();

    // About comes with its own dialog later; the update lives in UpdateGlue.cpp.
    void OnAboutBtnClicked();
    void onUpdateWizard();

protected:
    // Where a run starts; tests replace it to drive the rows by hand.
    virtual void StartRun(const QStringList &list, bool sampleRun);
    // Free bytes of the volume mounted at rootPath.
    virtual qint64 BytesAvailable(const QString &rootPath) const;
public:
    QMap<QString, VolumeResult> CheckDestinationSpace(const QStringList &list, const QString &strDestination) const;
    ThreadFileSaving &SavingThread() { return m_saveThread; }
protected:

    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    enum class PageText { None, Repairing, Completed, AdvanceRunning };

    void ChangeLanguage(int n);
    void TickLanguageMenus();
    QMenu *BuildLanguageMenu(QPushButton *button, bool secondPage);
    void RetranslateAll();
    void RetranslateRows();
    void ApplyColumnWidths();
    void SetUpFileList();
    void SetUpRepairList();
    void ShowLocationLine();
    void SetPageText(PageText text);
    void SetElidedText(QLabel *label, const QString &text);
    void PlaceAfter(QWidget *left, QWidget *right, int gap);
    // A run keeps its language: the language buttons wait for its end.
    void EnableLanguageButtons(bool enabled);
    void StartStrip(int page);
    void StepStrip(int page);
    void SetUpBrand();
    // The language's rectangles times fScale; again on every language switch.
    void ApplyLayout();
    // The image sheets of the scale's folder and the language.
    void ApplyImages();

    bool IsListed(const QString &path) const;
    void AddFileRow(const QString &path);
    static void ApplyTriState(QCheckBox *box, int rows, int checked);

    RowButtonRec *RecordOf(int row) const;
    void MarkRowRepaired(QTreeWidgetItem *item, RowButtonRec *rec);
    void MarkRowAwaiting(QTreeWidgetItem *item, RowButtonRec *rec);
    void EnableButtonsAbove(int row);
    void SetRowStatus(QTreeWidgetItem *item, RowStatus status, const QColor &colour,
                      Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter);
    void SetRowButton(CustomButton *button, RowAction action, const QString &alignCss, const QColor &colour);
    void HideRowButton(CustomButton *button);
    QString ResultFileOf(const QTreeWidgetItem *item) const;
    // A result that is there, big enough, and not judged to lack a picture.
    bool RowUsable(const QTreeWidgetItem *item) const;
    // Rows that reached their final status get what their result holds as
    // the status tooltip; ffprobe runs on a thread of its own.
    void JudgeRows();
    void ApplyJudged(const QString &source, RowStatus judgedAs, const outcome::Judged &judged);
    void ShowAwaitingInBlue(QTreeWidgetItem *item, CustomButton *button);
    void ClearRepairRows();
    void BeginRun(const QStringList &list, bool sampleRun);
    bool CheckFreeSpace();
    void AbortedCommon();
    void ResetToList();
    void ClearRunWork();
    void ExitCleanup();
    // The run's folders: where results are made, and removed at exit.
    bool IsInsideWorkFolder(const QString &folder) const;
    void ShowRowsAfterSaving();
    void StartPlayer(const QStringList &arguments);

    ThreadVideoRepair m_repairThread;
    std::unique_ptr<update::Host> m_updateHost;
    WorkFolderLedger m_workFolders;
    ThreadFileSaving m_saveThread;
    QTimer *pFadeTimer = nullptr;
    double m_fadeOpacity = 0.0;
    bool m_dragging = false;
    QPoint m_dragOffset;
    int m_progressShift = 0;
    PageText m_pageText = PageText::None;
    QString m_currentFileName;
    int m_overallFile = -1, m_overallFiles = 0;
    bool m_ffmpegNoticeShown = false;
    bool bAdvanceClicked = false;     // for help; set by the sample dialogs
    bool bPreviewOrSaveUsed = false;  // for help; set by preview and saving

    // What the worker said of each file, by source path, and what was judged.
    struct RowReport
    {
        outcome::FileReport report;
        bool sample = false; // the run that made it had a sample
    };
    QStringList m_runList;
    bool m_runSample = false;
    QHash<QString, RowReport> m_reports;
    QSet<QString> m_judged;
    int m_judgeBatch = 0; // judgements of rows since cleared are dropped
    QObject m_judgeThreads; // parent of the judging threads
    std::shared_ptr<std::atomic<bool>> m_judgeCancel = std::make_shared<std::atomic<bool>>(false);
};

// The window, its add page and what holds for both pages: languages,
// help, closing, dragging. The run on the results page is RepairWorkflow.cpp.

#include "VideoRepairWindow.h"

#include "Languages.h"
#include "Look.h"
#include "SizeText.h"
#include "Startup.h"
#include "mux/FfmpegRunner.h"
#include "UpdateHost.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDateTime>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QHeaderView>
#include <QMenu>
#include <QMouseEvent>
#include <QProcess>
#include <QSettings>
#include <QThread>
#include <QTimer>
#include <QUrl>
#include <sys/stat.h>

namespace {
const char kAddFilter[] =
    "Video (*.MOV *.mov *.RSV *.rsv  *.mp4 *.MP4 *.Mp4 *.f4v *.m4v *.3g2 *.3gp *.AVI *.avi *.DIVX "
    "*.divx *.FLV *.flv *.MPG *.mpg *.mpeg *.MPEG *.mkv *.MKV *.webm *.WEBM *.MTS *.mts *.asf *.ASF "
    "*.wmv *.WMV *.webm *.WEBM *.dat *.DAT *.voc *.VOC)";

// Exactly these spellings are taken; "Mov" and the like are dropped.
const QStringList kSuffixes = {
    "MOV", "mov", "Mp4", "MP4", "mp4", "m4v", "M4V", "3GP", "3gp", "MTS", "mts", "3G2", "3g2",
    "F4V", "f4v", "asf", "RSV", "rsv", "ASF", "wmv", "WMV", "AVI", "avi", "divx", "DIVX", "FLV",
    "flv", "MPG", "mpg", "MPEG", "mpeg", "MKV", "mkv", "WEBM", "webm", "DAT", "dat", "VOC", "voc"};

// right | horizontal centre | vertical centre: the value the size column always had.
constexpr int kSizeAlignment = 134;

QString FileKey(const QString &path)
{
    struct stat st;
    if (::stat(QFile::encodeName(path).constData(), &st) == 0)
        return QStringLiteral("%1:%2").arg(quint64(st.st_dev)).arg(quint64(st.st_ino));
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}
} // namespace

VideoRepairWindow::VideoRepairWindow(QWidget *parent) : QWidget(parent)
{
    look::InstallFontSubstitutes();
    setupUi(this);
    fScale = startup::ReadResizeAppforDpi() ? shellApp.fDpiScale : 1.0f;
    nLanguage = startup::ReadLanguage();
    shellApp.nLanguage = nLanguage;
    setFixedSize(look::Scaled(850, fScale), look::Scaled(600, fScale));
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(look::StyleSheet());
    setWindowIcon(look::ProductIcon());
    setWindowTitle(startup::ProductName().trimmed());

    // Fixed fonts and looks of the form.
    label_5->setFont(look::Font("Segoe UI semibold", 14, true));
    for (QLabel *l : {label_6, stringLabl})
        l->setFont(look::Font("Segoe UI semibold", 13, true));
    for (QLabel *l : {ProductLabl_1, label_2})
        l->setFont(look::TitleFont());
    for (QLabel *l : {label_7, stringLabl_2, MainString_labl, chnageLoc_Labl, FileNameLabl, OverAllProgessLabl,
                      OverAllProgessCheck, PercentLabl, Frame1_ListLabl_2, Frame2_ListLabl})
        l->setFont(look::ListFont());
    for (QPushButton *b : {pushButton, RepairBtn, stopBtn, saveBtn, PreviewBtn}) {
        b->setFont(look::ButtonFont());
        b->setProperty("accent", true);
        b->setCursor(Qt::PointingHandCursor);
    }
    for (QPushButton *b : {ChnageLoc_Btn, ChnageLoc_Btn_2, referenceLinkBtn}) {
        b->setProperty("link", true);
        b->setFont(look::ListFont());
        b->setCursor(Qt::PointingHandCursor);
    }
    add_filebtn->setProperty("bigAdd", true);
    add_filebtn->setFont(look::Font("Segoe UI", 40));
    add_filebtn->setCursor(Qt::PointingHandCursor);
    for (QPushButton *b : findChildren<QPushButton *>()) {
        if (b->objectName().contains("Btn") && b->property("accent").isNull() && b->property("link").isNull()) {
            b->setProperty("tool", true);
            b->setCursor(Qt::PointingHandCursor);
            // The toolbar draws its icons as glyphs.
            b->setFont(b->objectName().startsWith("LanguageBtn") ? look::ListFont() : look::Font("Segoe UI", 13));
        }
    }
    for (QLabel *l : findChildren<QLabel *>())
        if (l->objectName().startsWith("SeperateLbl"))
            l->setProperty("separator", true);
    for (QCheckBox *c : {SelectAllBtn, Select_All})
        c->setFont(look::ListFont());
    const QPixmap logo = look::ProductIcon().pixmap(look::Scaled(28, fScale));
    logoLabl_1->setPixmap(logo);
    logoLabl_2->setPixmap(logo);
    SetUpBrand();
    ApplyLayout();

    CreateMenuBar();
    Init();
    MoreTool();
    UiInit();
    RetranslateAll();
    connect(pRepairList, &QTreeWidget::itemClicked, this, &VideoRepairWindow::OnRepairItemClicked);
    setWindowFlags(Qt::WindowFlags(0x2000801));
}

VideoRepairWindow::~VideoRepairWindow()
{
    // No judging thread may outlive the window.
    *m_judgeCancel = true;
    for (QThread *t : m_judgeThreads.findChildren<QThread *>())
        t->wait();
    qDeleteAll(lstRowButtons);
}

void VideoRepairWindow::StartFadeIn()
{
    setWindowOpacity(0.0);
    m_fadeOpacity = 0.0;
    setWindowIcon(look::ProductIcon());
    pFadeTimer = new QTimer(this);
    connect(pFadeTimer, &QTimer::timeout, this, &VideoRepairWindow::OnTimerSlot);
    pFadeTimer->start(30);
}

void VideoRepairWindow::OnTimerSlot()
{
    setWindowOpacity(m_fadeOpacity);
    m_fadeOpacity += 0.1;
    if (m_fadeOpacity >= 1.0 && pFadeTimer) {
        setWindowOpacity(1.0);
        pFadeTimer->stop();
        pFadeTimer->deleteLater();
        pFadeTimer = nullptr;
    }
}

// --- Making the window ---

void VideoRepairWindow::UiInit()
{
    pFileList = new MyTreeWidget(AddFile_frame);
    pFileList->setObjectName("pFileList");
    pRepairList = new MyTreeWidget(frame_2);
    pRepairList->setObjectName("pRepairList");
    SetUpFileList();
    SetUpRepairList();
    pFileList->hide();
    pRepairList->hide();
    frame_2->hide();

    pStopDlg = new StopDlg(this);
    pMessageDlg = new MessageDlg(this);
    pQuestionDlg = new QuestionDlg(this);
    pCloseApplicationDlg = new CloseApplicationDlg(this);
    pRepairFinishDlg = new repairFinishDialog(this);
    pReferenceFileDlg = new ReferenceFileDlg(this, QString());
    pReferenceRepairedDlg = new ReferenceRepairedDlg(this);
    pSaveDlg = new SaveDlgClass(this);
    pPlayerProcess = startup::PlayerProcess();

    for (QWidget *w : std::initializer_list<QWidget *>{label_6, label_7, MainString_labl, chnageLoc_Labl,
                                                       ChnageLoc_Btn, SelectAllBtn, AddFileBtn, Frame1_ListLabl_2,
                                                       Frame2_ListLabl, PreviewBtn, referenceLinkBtn,
                                                       MainString_labl_2, chnageLoc_Labl_2, ChnageLoc_Btn_2})
        w->hide();
    RemoveBtn->hide();
    RepairBtn->hide();
    RemoveBtn->setEnabled(false);
    RepairBtn->setEnabled(false);
    PercentLabl->setText("0%");

    // The add page.
    connect(add_filebtn, &QPushButton::clicked, this, &VideoRepairWindow::OnAddMOVFile);
    connect(pushButton, &QPushButton::clicked, this, &VideoRepairWindow::OnAddMOVFile);
    connect(AddFileBtn, &QPushButton::clicked, this, &VideoRepairWindow::OnAddMOVFile);
    connect(RemoveBtn, &QPushButton::clicked, this, &VideoRepairWindow::OnRemoveMOVFile);
    connect(RepairBtn, &QPushButton::clicked, this, &VideoRepairWindow::OnRepairMOVFiles);
    connect(SelectAllBtn, &QCheckBox::clicked, this, &VideoRepairWindow::OnCheckBoxbtnClicked);
    connect(pFileList, &QTreeWidget::itemClicked, this, &VideoRepairWindow::OnItemClicked);
    connect(ChnageLoc_Btn, &QPushButton::clicked, this, &VideoRepairWindow::ChangeDestPath);

    // The results page.
    connect(stopBtn, &QPushButton::clicked, this, &VideoRepairWindow::OnStop);
    connect(saveBtn, &QPushButton::clicked, this, &VideoRepairWindow::OnClickedSaveButton);
    connect(BackBtn, &QPushButton::clicked, this, &VideoRepairWindow::OnBackBtnClicked);
    connect(Select_All, &QCheckBox::clicked, this, &VideoRepairWindow::OnSelectAllClicked);

    // The sample dialog.
    connect(pReferenceFileDlg->refe_CheckBox, &QCheckBox::clicked, this, &VideoRepairWindow::OnRefe_CheckBoxClicked);
    connect(pReferenceFileDlg->RefRepairBtn, &QPushButton::clicked, this, &VideoRepairWindow::OnRepairRefrenceFile);
    connect(pReferenceFileDlg, &ReferenceFileDlg::SampleChosen, &m_repairThread, &ThreadVideoRepair::SetSampleFile);
    connect(pReferenceFileDlg, &ReferenceFileDlg::Cancelled, this, [this] { bApplyToAll = false; });

    // Saving.
    connect(pSaveDlg, &SaveDlgClass::SavedMsg, this, &VideoRepairWindow::OnSavedMsg);
    connect(pSaveDlg, &SaveDlgClass::CustomLocation, this, &VideoRepairWindow::OnCustomLocation);
    connect(pSaveDlg, &SaveDlgClass::KeepWorkFolder, this, [this](bool keep) { bKeepWorkFolder = keep; });
    connect(&m_saveThread, &ThreadFileSaving::ProgressValue, this, &VideoRepairWindow::OnProgressValue);
    connect(&m_saveThread, &ThreadFileSaving::ProgressFinish, this, &VideoRepairWindow::OnProgressFinish);

    // Toolbars of both pages.
    for (QPushButton *b : {closeBtn, closeBtn_2})
        connect(b, &QPushButton::clicked, this, &VideoRepairWindow::CloseProcess);
    for (QPushButton *b : {MiniMaBtn, MiniMiseBtn2})
        connect(b, &QPushButton::clicked, this, &VideoRepairWindow::MinimiseWin);
    for (QPushButton *b : {HelpBtn_1, HelpBtn_2})
        connect(b, &QPushButton::clicked, this, &VideoRepairWindow::OpenHelp);
    for (QPushButton *b : {AbutBtn_1, AbutBtn_2})
        connect(b, &QPushButton::clicked, this, &VideoRepairWindow::OnAboutBtnClicked);
    for (QPushButton *b : {UpdateBtn_1, UpdateBtn_2})
        connect(b, &QPushButton::clicked, this, &VideoRepairWindow::onUpdateWizard);
    connect(MenuBtn_1, &QPushButton::clicked, this, &VideoRepairWindow::OnMenuProduct);
    connect(MenuBtn_2, &QPushButton::clicked, this, &VideoRepairWindow::OnSecondMenuProduct);

    // The worker. All queued: it runs in its own thread.
    ThreadVideoRepair *t = &m_repairThread;
    connect(t, &ThreadVideoRepair::disableAddReferenceBtn, this, &VideoRepairWindow::OndisableAddReferenceBtn);
    connect(t, &ThreadVideoRepair::FileNamelabel, this, &VideoRepairWindow::OnFileNameLabel);
    connect(t, &ThreadVideoRepair::WriteStatus, this, &VideoRepairWindow::OnWriteStatus);
    connect(t, &ThreadVideoRepair::WriteAVIFileStatus, this, &VideoRepairWindow::OnWriteAVIFileStatus);
    connect(t, &ThreadVideoRepair::WriteProcessingStatus, this, &VideoRepairWindow::OnWriteProcessingStatus);
    connect(t, &ThreadVideoRepair::ShowProgressBar, this, &VideoRepairWindow::OnShowProgressBar);
    connect(t, &ThreadVideoRepair::SetProgressBarRange, this, &VideoRepairWindow::OnSetProgressBarRange);
    connect(t, &ThreadVideoRepair::setProgressvalue, this, &VideoRepairWindow::OnsetProgressvalue);
    // Connected twice, as it always was; showing widgets twice is harmless.
    connect(t, &ThreadVideoRepair::ShowOverAllProgressBar, this, &VideoRepairWindow::OnShowOverAllProgressBar);
    connect(t, &ThreadVideoRepair::ShowOverAllProgressBar, this, &VideoRepairWindow::OnShowOverAllProgressBar);
    connect(t, &ThreadVideoRepair::OverAllProgressBarMax, this, &VideoRepairWindow::OnOverAllProgressBarMax);
    connect(t, &ThreadVideoRepair::OverAllProgressValue, this, &VideoRepairWindow::OnOverAllProgressValue);
    connect(t, &ThreadVideoRepair::RepairFinish, this, &VideoRepairWindow::OnRepairFinish);
    connect(t, &ThreadVideoRepair::ProcessAborted, this, &VideoRepairWindow::OnProcessAborted);
    connect(t, &ThreadVideoRepair::ProcessAborted1, this, &VideoRepairWindow::OnProcessAborted1);
    connect(t, &ThreadVideoRepair::FileReported, this, &VideoRepairWindow::OnFileReported);
}

void VideoRepairWindow::TickLanguageMenus()
{
    for (QMenu *menu : {pLanguageMenu, pLanguageMenu2}) {
        if (!menu)
            continue;
        for (QAction *a : menu->actions())
            a->setChecked(a->data().toInt() == nLanguage);
    }
}

// --- Languages ---

void VideoRepairWindow::LoadEnglishLanguages() { ChangeLanguage(0); }
void VideoRepairWindow::LoadGermanLanguages() { ChangeLanguage(1); }
void VideoRepairWindow::LoadFrenchLanguages() { ChangeLanguage(2); }
void VideoRepairWindow::LoadItalianLanguages() { ChangeLanguage(3); }
void VideoRepairWindow::LoadSpanishLanguages() { ChangeLanguage(4); }
void VideoRepairWindow::LoadJapaneseLanguages() { ChangeLanguage(5); }
void VideoRepairWindow::LoadChineseLanguages() { ChangeLanguage(6); }
void VideoRepairWindow::LoadKoreanLanguages() { ChangeLanguage(7); }
void VideoRepairWindow::LoadDutchLanguages() { ChangeLanguage(8); }
void VideoRepairWindow::LoadBrazilLanguages() { ChangeLanguage(9); }
void VideoRepairWindow::LoadHindiLanguages() { ChangeLanguage(10); }
void VideoRepairWindow::LoadEnglishLanguages2() { ChangeLanguage(0); }
void VideoRepairWindow::LoadGermanLanguages2() { ChangeLanguage(1); }
void VideoRepairWindow::LoadFrenchLanguages2() { ChangeLanguage(2); }
void VideoRepairWindow::LoadItalianLanguages2() { ChangeLanguage(3); }
void VideoRepairWindow::LoadSpanishLanguages2() { ChangeLanguage(4); }
void VideoRepairWindow::LoadJapaneseLanguages2() { ChangeLanguage(5); }
void VideoRepairWindow::LoadChineseLanguages2() { ChangeLanguage(6); }
void VideoRepairWindow::LoadKoreanLanguages2() { ChangeLanguage(7); }
void VideoRepairWindow::LoadDutchLanguages2() { ChangeLanguage(8); }
void VideoRepairWindow::LoadBrazilLanguages2() { ChangeLanguage(9); }
void VideoRepairWindow::LoadHindiLanguages2() { ChangeLanguage(10); }

void VideoRepairWindow::ChangeLanguage(int n)
{
    nLanguage = n;
    shellApp.nLanguage = n;
    startup::WriteLanguage(n);
    TickLanguageMenus();
    languages::Install(n, shellApp.strAppDir);
    // Qt sends LanguageChange when a translator comes or goes; when none
    // did (English to English without files) the widths still change.
    RetranslateAll();
}

void VideoRepairWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange && pFileList)
        RetranslateAll();
    QWidget::changeEvent(event);
}

void VideoRepairWindow::RetranslateAll()
{
    retranslateUi(this);
    ApplyLayout();
    ApplyImages();
    ProductLabl_1->setText(startup::ProductName());
    label_2->setText(startup::ProductName());
    const QString languageText = languages::ByType(nLanguage) ? languages::MenuText(nLanguage) : tr("Languages");
    for (QPushButton *b : {LanguageBtn_1, LanguageBtn_2})
        b->setText(languageText + QStringLiteral(" \u25BE"));
    for (QMenu *menu : {pLanguageMenu, pLanguageMenu2}) {
        if (!menu)
            continue;
        menu->setTitle(tr("Languages"));
        for (QAction *a : menu->actions())
            a->setText(languages::MenuText(a->data().toInt()));
    }

    ShowLocationLine();
    if (Frame1_ListLabl_2->property("set").toBool())
        Frame1_ListLabl_2->setText(tr("List of video files"));
    SetPageText(m_pageText);
    if (m_overallFile >= 0)
        OverAllProgessCheck->setText(tr(" : Repairing file") + " " + QString::number(m_overallFile) + " " + tr("of") +
                                     " " + QString::number(m_overallFiles));
    if (!m_currentFileName.isEmpty())
        SetElidedText(FileNameLabl, tr("Repairing ") + m_currentFileName);
    PlaceAfter(OverAllProgessLabl, OverAllProgessCheck, 4);

    pFileList->setHeaderLabels({tr(" File Name"), tr(" Path"), tr(" Size (MB)"), "FileID", "ParentID", "Status",
                                "TemporaryPath", tr(" Modified Date"), tr(" Created Date")});
    pRepairList->setHeaderLabels({tr(" File Name"), tr("  Path"), tr(" Size (MB)"), "FileID", "ParentID",
                                  "TemporaryPath", tr(" Modified Date"), tr(" Created Date"), tr(" Status"),
                                  tr(" Action"), " Action2", "Repairing status", "Source Path", ""});
    QFont headerFont = look::ListFont();
    if (nLanguage == 4)
        headerFont.setPointSize(8);
    pRepairList->header()->setFont(headerFont);
    ApplyColumnWidths();
    RetranslateRows();
}

void VideoRepairWindow::ApplyColumnWidths()
{
    const languages::Language *l = languages::ByType(nLanguage);
    if (!l)
        return; // a value outside the table sets no widths
    const int fileCols[] = {fcName, fcPath, fcSize, fcModified, fcCreated};
    for (int i = 0; i < 5; ++i)
        pFileList->setColumnWidth(fileCols[i], look::Scaled(l->fileListWidths[i], fScale));
    const int repairCols[] = {rcName, rcPath, rcSize, rcModified, rcCreated, rcStatus, rcAction};
    for (int i = 0; i < 7; ++i)
        pRepairList->setColumnWidth(repairCols[i], look::Scaled(l->repairListWidths[i], fScale));
}

void VideoRepairWindow::ShowLocationLine()
{
    const QFileInfo chosen(pApp.strChosenLocation);
    if (!pApp.strChosenLocation.isEmpty() && chosen.isDir())
        MainString_labl->setText(tr("Repaired files will be saved in %1.").arg(QDir::toNativeSeparators(
            pApp.strChosenLocation)));
    else
        MainString_labl->setText(tr("Repaired files will be saved at the source file location."));
    chnageLoc_Labl->setText(tr("To change location"));
    chnageLoc_Labl->adjustSize();
    chnageLoc_Labl->setFixedHeight(look::Scaled(20, fScale));
    PlaceAfter(chnageLoc_Labl, ChnageLoc_Btn, 4);
}

void VideoRepairWindow::PlaceAfter(QWidget *left, QWidget *right, int gap)
{
    const int width = left->fontMetrics().horizontalAdvance(left->property("text").toString());
    right->move(left->x() + width + look::Scaled(gap, fScale), right->y());
}

void VideoRepairWindow::SetPageText(PageText text)
{
    m_pageText = text;
    switch (text) {
    case PageText::None:
        break;
    case PageText::Repairing:
        stringLabl->setText(tr("Repairing selected videos"));
        stringLabl_2->setText(tr("This may take a while, depending on the number of videos and their file size. "
                                 "Please wait while the process is completed."));
        break;
    case PageText::Completed:
        stringLabl->setText(tr("Repair Process Completed"));
        stringLabl_2->setText(tr("Click on the 'Save Repaired Files' to save all your repaired videos. Click the "
                                 "'Preview' under Action column to preview repaired videos. "));
        break;
    case PageText::AdvanceRunning:
        stringLabl->setText(tr("Advance Repair Running"));
        stringLabl_2->setText(tr("Please wait while the 'Advance Repair' process is running."));
        break;
    }
}

void VideoRepairWindow::SetElidedText(QLabel *label, const QString &text)
{
    const QFontMetrics fm = label->fontMetrics();
    if (fm.horizontalAdvance(text) > label->width()) {
        label->setToolTip(text);
        label->setText(fm.elidedText(text, Qt::ElideMiddle, label->width()));
    } else {
        label->setToolTip(QString());
        label->setText(text);
    }
}

// --- The two lists ---

void VideoRepairWindow::SetUpFileList()
{
    MyTreeWidget *l = pFileList;
    l->setColumnCount(9);
    l->setHeaderHidden(false);
    for (int c = fcFileId; c <= fcFullPath; ++c)
        l->setColumnHidden(c, true);
    look::Place(l, fScale, 22, 200, 805, 245);
    l->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    l->setAutoFillBackground(true);
    l->setAlternatingRowColors(true);
    l->setTextElideMode(Qt::ElideMiddle);
    l->setFont(look::ListFont());
    l->setFocusPolicy(Qt::NoFocus);
    l->setRootIsDecorated(false);
    l->setIconSize(QSize(look::Scaled(16, fScale), look::Scaled(16, fScale)));
}

void VideoRepairWindow::SetUpRepairList()
{
    MyTreeWidget *l = pRepairList;
    l->setColumnCount(15);
    l->setHeaderHidden(false);
    for (int c : {rcFileId, rcParentId, rcTempPath, rcProgressMark, rcVerdict, rcSource, rcQueueMark, rcDefaultCode})
        l->setColumnHidden(c, true);
    look::Place(l, fScale, 22, 170, 805, 265);
    l->setSelectionMode(QAbstractItemView::SingleSelection);
    l->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    l->setAutoFillBackground(true);
    l->setAlternatingRowColors(true);
    l->setTextElideMode(Qt::ElideMiddle);
    l->setFont(look::ListFont());
    l->setRootIsDecorated(false);
}

// --- The add page ---

void VideoRepairWindow::OnAddMOVFile()
{
    AddFiles(QFileDialog::getOpenFileNames(this, tr("Add File"), QString(), kAddFilter));
}

bool VideoRepairWindow::IsListed(const QString &path) const
{
    // Case matters on Linux: clip.mov and CLIP.mov are two files. One file
    // under another spelling (relative, through a link) is the same file.
    const QString key = FileKey(path);
    for (int i = 0; i < pFileList->topLevelItemCount(); ++i)
        if (FileKey(pFileList->topLevelItem(i)->text(fcFullPath)) == key)
            return true;
    return false;
}

void VideoRepairWindow::AddFileRow(const QString &path)
{
    const QFileInfo info(path);
    const QFileIconProvider icons;
    const QString dateFormat = QString::fromLatin1(brand::Market().dateFormat);
    const QDateTime created = info.birthTime().isValid() ? info.birthTime() : info.metadataChangeTime();

    auto *item = new QTreeWidgetItem(pFileList);
    item->setText(fcName, info.fileName());
    item->setCheckState(fcName, Qt::Checked);
    item->setIcon(fcName, icons.icon(info));
    // The column cuts long names in the middle; the tooltip has the whole path.
    item->setToolTip(fcName, info.absoluteFilePath());
    item->setText(fcPath, path);
    item->setText(fcSize, FormatSizeMb(quint64(qMax<qint64>(0, info.size()))));
    item->setTextAlignment(fcSize, kSizeAlignment);
    item->setText(fcFileId, QString::number(nNextFileId));
    item->setText(fcParentId, "1");
    item->setText(fcExactSize, QString::number(qMax<qint64>(0, info.size())));
    item->setText(fcFullPath, info.absoluteFilePath());
    item->setText(fcModified, info.lastModified().toString(dateFormat));
    item->setText(fcCreated, created.toString(dateFormat));
    item->setSizeHint(fcName, QSize(0, look::Scaled(20, fScale)));
    ++nNextFileId;
}

void VideoRepairWindow::AddFiles(const QStringList &paths)
{
    if (paths.isEmpty())
        return;
    if (!bListShown) {
        add_filebtn->hide();
        pFileList->show();
        bListShown = true;
    }
    bool duplicate = false;
    for (const QString &path : paths) {
        QCoreApplication::processEvents();
        if (IsListed(path)) {
            duplicate = true;
            continue;
        }
        const QFileInfo info(path);
        if (!kSuffixes.contains(info.suffix()))
            continue;
        // Only regular files: a folder named x.mov or a name that is gone has
        // nothing to repair, and a pipe would block the worker's read.
        if (!info.isFile())
            continue;
        AddFileRow(path);
    }
    if (duplicate)
        pMessageDlg->ShowMessage("VideoRepairWindow", QT_TR_NOOP("Already added files"),
                                 QT_TR_NOOP("Files already added to list will be skipped."));

    int checked = 0;
    const int rows = pFileList->topLevelItemCount();
    for (int i = 0; i < rows; ++i)
        checked += pFileList->topLevelItem(i)->checkState(fcName) == Qt::Checked;
    if (checked > 0)
        RepairBtn->setEnabled(true);

    for (QWidget *w : std::initializer_list<QWidget *>{AddFileBtn, RemoveBtn, label_6, label_7, RepairBtn,
                                                       MainString_labl, chnageLoc_Labl, ChnageLoc_Btn})
        w->show();
    pushButton->hide();
    label_5->hide();
    RemoveBtn->setEnabled(true);
    look::Place(Frame1_ListLabl_2, fScale, 22, 210, 141, 20);
    Frame1_ListLabl_2->setProperty("set", true);
    Frame1_ListLabl_2->setText(tr("List of video files"));
    Frame1_ListLabl_2->hide();
    look::Place(SelectAllBtn, fScale, 22, 180, 150, 20);
    SelectAllBtn->show();
    ShowLocationLine();

    SelectAllBtn->setTristate(true);
    ApplyTriState(SelectAllBtn, rows, checked);
    SelectAllBtn->setEnabled(true);
}

void VideoRepairWindow::TakeFiles(const QStringList &paths)
{
    if (isMinimized())
        setWindowState((windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    raise();
    activateWindow();
    AddFiles(paths);
}

void VideoRepairWindow::ApplyTriState(QCheckBox *box, int rows, int checked)
{
    if (checked == 0)
        box->setCheckState(Qt::Unchecked);
    else if (checked == rows)
        box->setCheckState(Qt::Checked);
    else
        box->setCheckState(Qt::PartiallyChecked);
}

void VideoRepairWindow::OnCheckBoxbtnClicked(bool checked)
{
    SelectAllBtn->setTristate(false);
    SelectAllBtn->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
    for (int i = 0; i < pFileList->topLevelItemCount(); ++i)
        pFileList->topLevelItem(i)->setCheckState(fcName, checked ? Qt::Checked : Qt::Unchecked);
    RepairBtn->setEnabled(checked);
    RemoveBtn->setEnabled(checked);
}

void VideoRepairWindow::OnItemClicked(QTreeWidgetItem *, int)
{
    if (pApp.bRepairRunning)
        return;
    const int rows = pFileList->topLevelItemCount();
    int unchecked = 0;
    for (int i = 0; i < rows; ++i)
        unchecked += pFileList->topLevelItem(i)->checkState(fcName) != Qt::Checked;
    const bool any = unchecked < rows;
    RepairBtn->setEnabled(any);
    RemoveBtn->setEnabled(any);
    SelectAllBtn->setTristate(true);
    ApplyTriState(SelectAllBtn, rows, rows - unchecked);
}

void VideoRepairWindow::OnRemoveMOVFile()
{
    for (int i = 0; i < pFileList->topLevelItemCount(); ++i) {
        QTreeWidgetItem *top = pFileList->topLevelItem(i);
        if (top->checkState(fcName) == Qt::Checked) {
            delete pFileList->takeTopLevelItem(i);
            --i;
            continue;
        }
        for (int c = 0; c < top->childCount(); ++c) {
            if (top->child(c)->checkState(fcName) == Qt::Checked) {
                delete top->takeChild(c);
                --c;
            }
        }
    }
    const int rows = pFileList->topLevelItemCount();
    int checked = 0;
    for (int i = 0; i < rows; ++i)
        checked += pFileList->topLevelItem(i)->checkState(fcName) == Qt::Checked;
    if (rows == 0) {
        RemoveBtn->setEnabled(false);
        SelectAllBtn->setCheckState(Qt::Unchecked);
        SelectAllBtn->setEnabled(false);
    } else {
        ApplyTriState(SelectAllBtn, rows, checked);
        SelectAllBtn->setEnabled(true);
    }
    RepairBtn->setEnabled(checked > 0);
}

void VideoRepairWindow::ChangeDestPath()
{
    SetDestPath(QFileDialog::getExistingDirectory(this, tr("Choose Location"), QDir::homePath()));
}

void VideoRepairWindow::SetDestPath(const QString &folder)
{
    pApp.strChosenLocation = folder;
    ShowLocationLine();
}

// --- Help, closing, dragging ---

QString VideoRepairWindow::HelpPagePath() const
{
    return languages::HelpPage(shellApp.strAppDir, nLanguage, HelpTopicNow());
}

languages::HelpTopic VideoRepairWindow::HelpTopicNow() const
{
    using languages::HelpTopic;
    HelpTopic topic = HelpTopic::About;
    if (bPreviewOrSaveUsed)
        topic = HelpTopic::PreviewAndSave;
    else if (bAdvanceClicked)
        topic = HelpTopic::AdvancedRepair;
    else if (pApp.bOnResultsPage)
        topic = HelpTopic::Repairing;
    else if (bListShown)
        topic = HelpTopic::AddingFiles;
    return topic;
}

QUrl VideoRepairWindow::HelpUrl() const
{
    return languages::HelpUrl(shellApp.strAppDir, nLanguage, HelpTopicNow());
}

void VideoRepairWindow::OpenHelp()
{
    const QUrl url = HelpUrl();
    if (!url.isEmpty())
        QDesktopServices::openUrl(url);
}

void VideoRepairWindow::CloseProcess() { close(); }

void VideoRepairWindow::MinimiseWin() { showMinimized(); }

void VideoRepairWindow::ExitCleanup()
{
    if (!bKeepWorkFolder)
        ClearRunWork();
    QProcess *player = startup::PlayerProcess();
    if (player->state() != QProcess::NotRunning) {
        player->kill();
        player->waitForFinished(2000);
    }
    mux::KillRunning();
}

void VideoRepairWindow::closeEvent(QCloseEvent *event)
{
    if (pApp.bRepairRunning || m_repairThread.isRunning() || bSaving || m_saveThread.isRunning()) {
        pRepairFinishDlg->ShowResult(
            UiText("VideoRepairWindow", QT_TR_NOOP("Exit")),
            UiText("VideoRepairWindow", QT_TR_NOOP("Application Running! \nPlease halt the current process to Exit.")));
        event->ignore();
        return;
    }
    bool awaiting = false;
    if (pApp.bOnResultsPage) {
        for (int i = 0; i < pRepairList->topLevelItemCount() && !awaiting; ++i)
            awaiting = pRepairList->topLevelItem(i)->text(rcVerdict) == "0";
    }
    if (awaiting) {
        const QString answer = pCloseApplicationDlg->Ask(
            "VideoRepairWindow",
            QT_TR_NOOP("Do you want to run advance repair on the severely corrupted files before exiting?"));
        if (answer == "NoBtn") {
            ExitCleanup();
            event->accept();
        } else {
            event->ignore();
        }
        return;
    }
    if (pCloseApplicationDlg->Ask("VideoRepairWindow", QT_TR_NOOP("Are you sure you want to exit?")) == "YesBtn") {
        ExitCleanup();
        event->accept();
    } else {
        event->ignore();
    }
}

void VideoRepairWindow::mousePressEvent(QMouseEvent *event)
{
    // Only the top band drags the frameless window.
    if (event->button() == Qt::LeftButton && event->pos().y() < 30) {
        m_dragging = true;
        m_dragOffset = event->globalPos() - frameGeometry().topLeft();
    }
    QWidget::mousePressEvent(event);
}

void VideoRepairWindow::mouseMoveEvent(QMouseEvent *event)
{
    if (m_dragging && (event->buttons() & Qt::LeftButton)) {
        move(event->globalPos() - m_dragOffset);
        event->accept();
        return;
    }
    QWidget::mouseMoveEvent(event);
}

void VideoRepairWindow::mouseReleaseEvent(QMouseEvent *event)
{
    m_dragging = false;
    QWidget::mouseReleaseEvent(event);
}



// The results page: from a click on Repair to rows that say "Completed",
// driven only by the worker's signals. A row's state lives in its hidden
// columns (10 progress mark, 11 verdict, 13 queue mark, 14 default code).

#include "VideoRepairWindow.h"

#include "Languages.h"
#include "Look.h"
#include "repair/RowFile.h"
#include "SizeText.h"
#include "Startup.h"
#include "mux/FfmpegRunner.h"

#include <QDesktopServices>
#include <QUrl>
#include <QDir>
#include <QFileInfo>
#include <QMap>
#include <QSettings>
#include <QProcess>
#include <QStorageInfo>
#include <QThread>
#include <QtDebug>
#include <climits>

namespace {
const QColor kGray("#808080");
const QColor kBlue("#1a5fc8");
const QColor kBlack("#202020");
const QColor kRed("#d32f2f");

constexpr int kSizeAlignment = 134;
// Set on the verdict cell of a row whose result turned out to hold no video.
constexpr int kNoPictureRole = Qt::UserRole + 1;

const char *const kStatusTexts[] = {
    "",
    QT_TRANSLATE_NOOP("VideoRepairWindow", "Queued"),
    QT_TRANSLATE_NOOP("VideoRepairWindow", "Processing"),
    QT_TRANSLATE_NOOP("VideoRepairWindow", "Completed"),
    QT_TRANSLATE_NOOP("VideoRepairWindow", "Awaiting Action"),
    QT_TRANSLATE_NOOP("VideoRepairWindow", "Failed"),
    QT_TRANSLATE_NOOP("VideoRepairWindow", "Aborted"),
};
const char *const kActionTexts[] = {
    "",
    QT_TRANSLATE_NOOP("VideoRepairWindow", "Preview"),
    QT_TRANSLATE_NOOP("VideoRepairWindow", "Advance Repair"),
};

const char kRowButtonCss[] = "QPushButton {border: none;outline: none;background-color: transparent;%1}"
                             "QPushButton:focus {border: none;outline: none;background-color: transparent;}";
} // namespace

// --- Row helpers ---

VideoRepairWindow::RowStatus VideoRepairWindow::StatusOf(const QTreeWidgetItem *item)
{
    return RowStatus(item->data(rcStatus, Qt::UserRole).toInt());
}

VideoRepairWindow::RowAction VideoRepairWindow::ActionOf(const QPushButton *button)
{
    return RowAction(button->property("action").toInt());
}

RowButtonRec *VideoRepairWindow::RecordOf(int row) const
{
    return lstRowButtons.value(row, nullptr);
}

void VideoRepairWindow::SetRowStatus(QTreeWidgetItem *item, RowStatus status, const QColor &colour,
                                     Qt::Alignment alignment)
{
    item->setData(rcStatus, Qt::UserRole, int(status));
    item->setText(rcStatus, tr(kStatusTexts[int(status)]));
    item->setForeground(rcStatus, colour);
    item->setTextAlignment(rcStatus, int(alignment));
    item->setFont(rcStatus, look::ListFont());
}

void VideoRepairWindow::SetRowButton(CustomButton *button, RowAction action, const QString &alignCss,
                                     const QColor &colour)
{
    button->setProperty("action", int(action));
    button->setText(tr(kActionTexts[int(action)]));
    button->setStyleSheet(QString::fromLatin1(kRowButtonCss).arg(alignCss + "color:" + colour.name() + ";"));
    button->setFocusPolicy(Qt::NoFocus);
    button->SetHiddenInRow(false);
}

void VideoRepairWindow::HideRowButton(CustomButton *button)
{
    button->setProperty("action", int(RowAction::None));
    button->setText(QString());
    button->SetHiddenInRow(true);
    button->setEnabled(false);
}

QString VideoRepairWindow::ResultFileOf(const QTreeWidgetItem *item) const
{
    return FileOfRow(item->text(rcPath), item->text(rcName));
}

bool VideoRepairWindow::RowUsable(const QTreeWidgetItem *item) const
{
    return !item->data(rcVerdict, kNoPictureRole).toBool() && IsUsableResult(ResultFileOf(item));
}

void VideoRepairWindow::ShowAwaitingInBlue(QTreeWidgetItem *item, CustomButton *button)
{
    SetRowStatus(item, RowStatus::Awaiting, kBlue, Qt::AlignLeft | Qt::AlignTop);
    item->setFont(rcStatus, look::Font("Segoe UI Semibold", 10, false, true));
    if (button) {
        SetRowButton(button, RowAction::AdvanceRepair, "text-align: top left;", kBlue);
        button->setEnabled(true);
    }
}

void VideoRepairWindow::RetranslateRows()
{
    const int width = look::Scaled(nLanguage == 0 ? 110 : 100, fScale);
    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = pRepairList->topLevelItem(i);
        item->setText(rcStatus, tr(kStatusTexts[int(StatusOf(item))]));
        if (RowButtonRec *rec = RecordOf(i)) {
            rec->pButton->setText(tr(kActionTexts[int(ActionOf(rec->pButton))]));
            rec->pButton->setFixedWidth(width);
        }
    }
}

void VideoRepairWindow::ClearRepairRows()
{
    pRepairList->clear(); // the row buttons go with their items
    qDeleteAll(lstRowButtons);
    lstRowButtons.clear();
    m_reports.clear();
    m_judged.clear();
    ++m_judgeBatch;
}

// --- Starting a run ---

void VideoRepairWindow::OnRepairMOVFiles()
{
    bAborted = false;
    nLanguage = startup::ReadLanguage();
    pApp.bStopRepair = false;
    // A first run: a sample run before it must not make this one read a sample.
    pApp.bSampleRun = false;
    pApp.bOnResultsPage = true;

    AddFile_frame->hide();
    frame_2->show();
    BackBtn->show();
    BackBtn->setEnabled(false);
    CreateMenuBar2();
    UpdateBtn_1->setEnabled(false);
    UpdateBtn_2->setEnabled(false);
    EnableLanguageButtons(false);
    lstPendingPaths.clear();
    for (QWidget *w : std::initializer_list<QWidget *>{ChnageLoc_Btn_2, chnageLoc_Labl_2, MainString_labl_2,
                                                       referenceLinkBtn, Frame2_ListLabl})
        w->hide();
    Select_All->setTristate(false);
    Select_All->setChecked(true);
    Select_All->setEnabled(false);
    Select_All->show();
    SetPageText(PageText::Repairing);

    // Nothing of an earlier run stays on screen.
    FileProgress->reset();
    overAllProgess_2->reset();
    PercentLabl->setText("0%");
    OverAllProgessCheck->clear();
    m_overallFile = -1;
    m_currentFileName.clear();
    FileNameLabl->clear();
    FileNameLabl->hide();

    pRepairList->show();
    // Made anew on each run, as it always was: after n runs a double click runs the slot n times.
    connect(pRepairList, &QTreeWidget::itemDoubleClicked, this, &VideoRepairWindow::OnDoubleClicked);
    RetranslateAll();
    label_2->setText(startup::ProductName());
    label_2->setFont(look::TitleFont());

    ClearRepairRows();
    // A folder picked in the space dialog holds for the rest of the session,
    // as the worker uses it; the rows say so.
    const QString location = pApp.bCustomFolderChosen ? pApp.strCustomFolder : pApp.strChosenLocation;
    const bool useChosen = !location.isEmpty() && QFileInfo(location).isDir();
    const int buttonWidth = look::Scaled(nLanguage == 0 ? 110 : 100, fScale);
    for (int i = 0; i < pFileList->topLevelItemCount(); ++i) {
        QTreeWidgetItem *src = pFileList->topLevelItem(i);
        if (src->checkState(fcName) != Qt::Checked)
            continue;
        const QString name = src->text(fcName);
        const QString source = src->text(fcFullPath);
        QString folder = location;
        if (!useChosen) {
            folder = QFileInfo(source).absolutePath();
            if (folder.endsWith('/'))
                folder.chop(1);
        }

        auto *item = new QTreeWidgetItem(pRepairList);
        item->setText(rcName, name);
        item->setToolTip(rcName, source);
        item->setCheckState(rcName, Qt::Checked);
        item->setText(rcPath, folder + "/Repaired/" + name);
        item->setText(rcSource, source);
        item->setText(rcProgressMark, "0");
        item->setText(rcSize, src->text(fcSize));
        item->setTextAlignment(rcSize, kSizeAlignment);
        item->setText(rcModified, src->text(fcModified));
        item->setText(rcCreated, src->text(fcCreated));
        SetRowStatus(item, RowStatus::Queued, kBlack);
        item->setText(rcQueueMark, "4");
        item->setSizeHint(rcName, QSize(0, look::Scaled(20, fScale)));
        for (int c = 0; c < pRepairList->columnCount(); ++c)
            item->setFont(c, look::ListFont());

        auto *button = new CustomButton(quint32(i));
        button->setFixedSize(buttonWidth, look::Scaled(20, fScale));
        button->setCursor(Qt::PointingHandCursor);
        button->setFont(look::ListFont());
        pRepairList->setItemWidget(item, rcAction, button);
        lstRowButtons << new RowButtonRec{quint32(i), source, button};
        connect(button, &CustomButton::MousePressed, this, &VideoRepairWindow::OnClickPreviewBtn);
        lstPendingPaths << source;
    }

    PreviewBtn->hide();
    saveBtn->hide();
    pRepairList->setEnabled(false);
    stopBtn->show();
    if (CheckFreeSpace())
        BeginRun(lstPendingPaths, false);
}

bool VideoRepairWindow::CheckFreeSpace()
{
    // Grouped by the volume that receives the results: the sources' own,
    // unless a location was chosen. The measure is the sources' sizes, once.
    struct Need
    {
        qint64 required = 0;
        qint64 available = 0;
    };
    QMap<QString, Need> roots;
    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *item = pRepairList->topLevelItem(i);
        const QFileInfo source(item->text(rcSource));
        if (!source.isFile())
            continue;
        const QString parent = QFileInfo(QFileInfo(item->text(rcPath)).path()).path();
        const QString root = QStorageInfo(parent).rootPath();
        roots[root].required += source.size();
    }
    bool room = true;
    for (auto it = roots.begin(); it != roots.end(); ++it) {
        it->available = BytesAvailable(it.key());
        room = room && it->available >= it->required;
    }
    if (room)
        return true;

    bSpaceDialogShown = true;
    for (QWidget *w : std::initializer_list<QWidget *>{overAllProgess_2, FileProgress, OverAllProgessLabl, PercentLabl})
        w->hide();
    InsufficientSpaceDlg dlg(this);
    dlg.OkBtn->hide();
    // The dialog names one volume: a later one overwrites an earlier.
    for (auto it = roots.cbegin(); it != roots.cend(); ++it)
        if (it->available < it->required)
            dlg.SetSpaceLine(FormatBytes(it->available), FormatBytes(it->required));
    dlg.CentreOnScreen();
    dlg.exec();
    if (pApp.bCustomFolderChosen && !dlg.strChosenFolder.isEmpty()) {
        // The dialog led on to a run after all: Back must ask again.
        bSpaceDialogShown = false;
        for (QWidget *w : std::initializer_list<QWidget *>{overAllProgess_2, FileProgress, PercentLabl})
            w->show();
        // The rows say where their results now go.
        for (int i = 0; i < pRepairList->topLevelItemCount(); ++i) {
            QTreeWidgetItem *item = pRepairList->topLevelItem(i);
            item->setText(rcPath, pApp.strCustomFolder + "/Repaired/" + item->text(rcName));
        }
        return true;
    }
    OnBackBtnClicked();
    return false;
}

void VideoRepairWindow::BeginRun(const QStringList &list, bool sampleRun)
{
    if (!m_ffmpegNoticeShown && mux::FindFfmpeg().isEmpty()) {
        m_ffmpegNoticeShown = true;
        pMessageDlg->ShowMessage(
            "VideoRepairWindow", QT_TR_NOOP("FFmpeg Not Found"),
            QT_TR_NOOP("FFmpeg is not installed, so damaged videos can be checked but not rebuilt.\n"
                       "Install it with: sudo apt-get install ffmpeg"));
    }
    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i)
        m_workFolders.Note(QFileInfo(pRepairList->topLevelItem(i)->text(rcPath)).path());
    if (pApp.bCustomFolderChosen)
        m_workFolders.Note(pApp.strCustomFolder + "/Repaired");
    m_runList = list;
    m_runSample = sampleRun;
    StartRun(list, sampleRun);
}

void VideoRepairWindow::StartRun(const QStringList &list, bool sampleRun)
{
    m_repairThread.StartRepair(list, sampleRun);
}

qint64 VideoRepairWindow::BytesAvailable(const QString &rootPath) const
{
    return QStorageInfo(rootPath).bytesAvailable();
}

// --- The worker's signals ---

void VideoRepairWindow::OnShowProgressBar()
{
    FileProgress->show();
    stopBtn->show();
    for (QWidget *w : std::initializer_list<QWidget *>{PreviewBtn, MainString_labl_2, chnageLoc_Labl_2,
                                                       ChnageLoc_Btn_2, saveBtn})
        w->hide();
    BackBtn->setEnabled(false);
    PercentLabl->show();
}

void VideoRepairWindow::OnSetProgressBarRange(qint64 range)
{
    // The bar holds an int; a range given as a file size is shifted down so
    // that a 5 GB file still fills it.
    FileProgress->reset();
    m_progressShift = 0;
    const qint64 r = qMax<qint64>(0, range);
    while ((r >> m_progressShift) > INT_MAX)
        ++m_progressShift;
    FileProgress->setMaximum(int(r >> m_progressShift));
    if (pApp.bRepairRunning)
        Select_All->setEnabled(false);
}

void VideoRepairWindow::OnsetProgressvalue(qint64 value)
{
    const qint64 v = qMax<qint64>(0, value) >> m_progressShift;
    FileProgress->setValue(int(qMin<qint64>(v, FileProgress->maximum())));
}

void VideoRepairWindow::OnShowOverAllProgressBar()
{
    for (QWidget *w : std::initializer_list<QWidget *>{OverAllProgessLabl, OverAllProgessCheck, overAllProgess_2,
                                                       PercentLabl})
        w->show();
}

void VideoRepairWindow::OnOverAllProgressBarMax(int)
{
    overAllProgess_2->reset();
    overAllProgess_2->setMaximum(100);
}

void VideoRepairWindow::OnOverAllProgressValue(int nFile, int nPercent, int nFiles)
{
    if (nPercent != 0)
        overAllProgess_2->setValue(nPercent);
    PercentLabl->setText(QString::number(nPercent) + "%");
    m_overallFile = nFile;
    m_overallFiles = nFiles;
    OverAllProgessCheck->setText(tr(" : Repairing file") + " " + QString::number(nFile) + " " + tr("of") + " " +
                                 QString::number(nFiles));
}

void VideoRepairWindow::OnFileNameLabel(const QString &name)
{
    FileNameLabl->show();
    m_currentFileName = name;
    SetElidedText(FileNameLabl, tr("Repairing ") + name);
    for (QWidget *w : std::initializer_list<QWidget *>{OverAllProgessLabl, OverAllProgessCheck, overAllProgess_2,
                                                       PercentLabl})
        w->setVisible(!bAdvanceRepairRunning);
}

void VideoRepairWindow::OnWriteProcessingStatus(const QString &)
{
    // The first queued row is the one the worker took, whatever name it gives.
    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i) {
        if (pApp.bStopRepair)
            return;
        QTreeWidgetItem *item = pRepairList->topLevelItem(i);
        if (item->text(rcQueueMark) != "4")
            continue;
        SetRowStatus(item, RowStatus::Processing, kGray);
        item->setText(rcProgressMark, "1");
        item->setText(rcQueueMark, "5");
        if (RowButtonRec *rec = RecordOf(i))
            rec->pButton->SetHiddenInRow(true);
        return;
    }
}

void VideoRepairWindow::OnWriteStatus(bool bRepaired, bool hasVideo_Strh, const QString &FileName, bool bDefaultCode)
{
    int match = -1;
    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i) {
        if (pApp.bStopRepair)
            break;
        QTreeWidgetItem *item = pRepairList->topLevelItem(i);
        if (item->text(rcProgressMark) != "1")
            continue;
        const QString name = item->text(rcName);
        bool same;
        if (QFileInfo(name).suffix().compare("rsv", Qt::CaseInsensitive) == 0)
            same = QFileInfo(name).completeBaseName().compare(QFileInfo(FileName).completeBaseName(),
                                                               Qt::CaseInsensitive) == 0;
        else
            same = name == FileName;
        if (!same)
            continue;
        RowButtonRec *rec = RecordOf(i);
        item->setText(rcDefaultCode, bDefaultCode ? "1" : "0");
        if (bRepaired || hasVideo_Strh) {
            MarkRowRepaired(item, rec);
        } else {
            MarkRowAwaiting(item, rec);
        }
        match = i;
        break;
    }
    EnableButtonsAbove(match);
}

// The two verdicts a processing row can take, shared by both status slots.
void VideoRepairWindow::MarkRowRepaired(QTreeWidgetItem *item, RowButtonRec *rec)
{
    SetRowStatus(item, RowStatus::Completed, kGray);
    item->setText(rcProgressMark, "2");
    item->setText(rcVerdict, "1");
    if (rec)
        SetRowButton(rec->pButton, RowAction::Preview, "text-align:left;", kGray);
    ++nRepairedCount;
}

void VideoRepairWindow::MarkRowAwaiting(QTreeWidgetItem *item, RowButtonRec *rec)
{
    SetRowStatus(item, RowStatus::Awaiting, kGray, Qt::AlignLeft | Qt::AlignTop);
    item->setText(rcVerdict, "0");
    item->setCheckState(rcName, Qt::Unchecked);
    if (rec) {
        SetRowButton(rec->pButton, RowAction::AdvanceRepair, "text-align: top left;", kGray);
        rec->pButton->setEnabled(true);
    }
    ++nAwaitingCount;
}

void VideoRepairWindow::EnableButtonsAbove(int row)
{
    for (int j = 0; j < row; ++j)
        if (RowButtonRec *rec = RecordOf(j))
            rec->pButton->setEnabled(true);
}

void VideoRepairWindow::OnWriteAVIFileStatus(bool hasVideo_Strh, const QString &FileName)
{
    int match = -1;
    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i) {
        if (pApp.bStopRepair)
            break;
        QTreeWidgetItem *item = pRepairList->topLevelItem(i);
        if (item->text(rcProgressMark) != "1" || item->text(rcName) != FileName)
            continue;
        RowButtonRec *rec = RecordOf(i);
        if (item->text(rcVerdict) == "0") {
            // A waiting row that a run with a sample has repaired.
            if (hasVideo_Strh) {
                SetRowStatus(item, RowStatus::Completed, kGray);
                item->setText(rcVerdict, "1");
                if (rec)
                    HideRowButton(rec->pButton);
            }
        } else if (hasVideo_Strh) {
            MarkRowRepaired(item, rec);
        } else {
            MarkRowAwaiting(item, rec);
        }
        match = i;
        break;
    }
    EnableButtonsAbove(match);
}

void VideoRepairWindow::OndisableAddReferenceBtn()
{
    pRepairList->setEnabled(false);
    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i)
        if (StatusOf(pRepairList->topLevelItem(i)) == RowStatus::Failed)
            if (RowButtonRec *rec = RecordOf(i))
                rec->pButton->setEnabled(false);
}

// --- The end of a run ---

void VideoRepairWindow::OnRepairFinish()
{
    for (QWidget *w : std::initializer_list<QWidget *>{FileProgress, overAllProgess_2, stopBtn, OverAllProgessLabl,
                                                       OverAllProgessCheck, FileNameLabl, PreviewBtn, PercentLabl})
        w->hide();
    BackBtn->show();
    BackBtn->setEnabled(true);
    pApp.bRepairRunning = false;
    SetPageText(PageText::Completed);
    Select_All->setTristate(false);
    Select_All->setChecked(true);
    Select_All->setEnabled(true);
    UpdateBtn_1->setEnabled(true);
    UpdateBtn_2->setEnabled(brand::Current().updateAfterRun);
    EnableLanguageButtons(true);
    saveBtn->show();
    startup::PlayerProcess()->close();
    pRepairList->setEnabled(true);

    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = pRepairList->topLevelItem(i);
        CustomButton *button = RecordOf(i) ? RecordOf(i)->pButton : nullptr;
        const QString verdict = item->text(rcVerdict);
        if (verdict == "0") {
            ShowAwaitingInBlue(item, button);
            bHasAwaiting = true;
            continue;
        }
        const QString file = ResultFileOf(item);
        if (verdict == "1" && RowUsable(item)) {
            if (button) {
                SetRowButton(button, ActionOf(button), "text-align:left;", kBlue);
                button->setEnabled(true);
            }
            SetRowStatus(item, RowStatus::Completed, kBlack);
            continue;
        }
        // Too small, missing, or a row the worker never gave a verdict.
        if (button)
            HideRowButton(button);
        SetRowStatus(item, RowStatus::Failed, kBlack);
        item->setCheckState(rcName, Qt::Unchecked);
        if (verdict != "1" || !QFileInfo::exists(file))
            item->setFlags(item->flags() & ~Qt::ItemIsUserCheckable);
    }

    int checked = 0;
    const int rows = pRepairList->topLevelItemCount();
    for (int i = 0; i < rows; ++i)
        checked += pRepairList->topLevelItem(i)->checkState(rcName) == Qt::Checked;
    if (checked == rows) {
        Select_All->setChecked(true);
    } else if (checked == 0) {
        Select_All->setChecked(false);
        saveBtn->setEnabled(false);
    } else {
        // Some of each still shows the box checked, as it always did.
        Select_All->setChecked(true);
        saveBtn->setEnabled(true);
    }

    JudgeRows();
    pStopDlg->hide();
    pRepairFinishDlg->ShowResult(
        UiText("VideoRepairWindow", QT_TR_NOOP("Repair Complete")),
        UiText("VideoRepairWindow",
               QT_TR_NOOP("Repair process completed.\nCheck 'Status' column to view the repair outcome.")));
    saveBtn->setEnabled(checked > 0);
    BackBtn->setEnabled(true);
}

// --- What each row came to ---

void VideoRepairWindow::OnFileReported(int index, const QString &, const outcome::FileReport &report)
{
    const QString source = m_runList.value(index);
    if (source.isEmpty())
        return;
    m_reports.insert(source, RowReport{report, m_runSample});
    m_judged.remove(source);
}

void VideoRepairWindow::JudgeRows()
{
    struct Job
    {
        QString source;
        RowStatus status;
        QString result;
        RowReport report;
        outcome::Judged judged;
    };
    auto jobs = std::make_shared<QVector<Job>>();
    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *item = pRepairList->topLevelItem(i);
        const QString source = item->text(rcSource);
        const RowStatus status = StatusOf(item);
        if (m_judged.contains(source) ||
            (status != RowStatus::Completed && status != RowStatus::Awaiting && status != RowStatus::Failed))
            continue;
        m_judged.insert(source);
        jobs->push_back({source, status, ResultFileOf(item), m_reports.value(source), {}});
    }
    if (jobs->isEmpty())
        return;
    const std::shared_ptr<std::atomic<bool>> cancel = m_judgeCancel;
    QThread *thread = QThread::create([jobs, cancel] {
        for (Job &j : *jobs) {
            if (*cancel)
                return;
            j.judged = outcome::Judge(QString::fromLatin1(kStatusTexts[int(j.status)]), j.result, j.report.report,
                                      j.report.sample);
        }
    });
    thread->setParent(&m_judgeThreads);
    const int batch = m_judgeBatch;
    connect(thread, &QThread::finished, this, [this, thread, jobs, batch] {
        thread->deleteLater();
        if (batch != m_judgeBatch || *m_judgeCancel)
            return;
        for (const Job &j : *jobs)
            ApplyJudged(j.source, j.status, j.judged);
    });
    thread->start(QThread::LowPriority);
}

void VideoRepairWindow::ApplyJudged(const QString &source, RowStatus judgedAs, const outcome::Judged &judged)
{
    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = pRepairList->topLevelItem(i);
        // A row that moved on since (a run with a sample) is judged again at its end.
        if (item->text(rcSource) != source || StatusOf(item) != judgedAs)
            continue;
        item->setToolTip(rcStatus, judged.summary);
        qInfo().noquote() << QStringLiteral("%1: %2%3").arg(source, judged.status,
                                                            judged.summary.isEmpty() ? QString() : "; " + judged.summary);
        if (judgedAs == RowStatus::Completed && judged.status != QLatin1String("Completed")) {
            item->setData(rcVerdict, kNoPictureRole, true);
            SetRowStatus(item, RowStatus::Failed, kBlack);
            item->setCheckState(rcName, Qt::Unchecked);
            if (RowButtonRec *rec = RecordOf(i))
                HideRowButton(rec->pButton);
            int checked = 0;
            for (int r = 0; r < pRepairList->topLevelItemCount(); ++r)
                checked += pRepairList->topLevelItem(r)->checkState(rcName) == Qt::Checked;
            saveBtn->setEnabled(checked > 0);
            Select_All->setChecked(checked > 0);
        }
        return;
    }
}

void VideoRepairWindow::OnRepairItemClicked(QTreeWidgetItem *pItem, int)
{
    if (!pItem)
        return;
    const QString verdict = pItem->text(rcVerdict);
    const QString queue = pItem->text(rcQueueMark);
    if (verdict == "0" && queue != "-1") {
        pItem->setCheckState(rcName, Qt::Unchecked);
        pApp.bMoovParsed = false;
        saveBtn->show();
        saveBtn->setEnabled(false);
        pMessageDlg->ShowMessage("VideoRepairWindow", QT_TR_NOOP("Advance Repair Required"),
                                 QT_TR_NOOP("This video is severely damaged. Run advance repair option to repair it "
                                            "before saving."));
    } else if (queue == "-1") {
        pMessageDlg->ShowMessage("VideoRepairWindow", QT_TR_NOOP("Process Aborted"),
                                 QT_TR_NOOP("Repair process was aborted. Go back to the previous screen to restart "
                                            "the repair process."));
    } else if (verdict == "1" && !RowUsable(pItem)) {
        pItem->setCheckState(rcName, Qt::Unchecked);
        pApp.bMoovParsed = false;
        saveBtn->show();
        saveBtn->setEnabled(false);
        pMessageDlg->ShowMessage("VideoRepairWindow", QT_TR_NOOP("Severely Corrupted Video"),
                                 QT_TR_NOOP("This video is severely corrupted and cannot be repaired."));
    }

    nRowTotal = pRepairList->topLevelItemCount();
    nRowUnchecked = 0;
    for (int i = 0; i < nRowTotal; ++i)
        nRowUnchecked += pRepairList->topLevelItem(i)->checkState(rcName) != Qt::Checked;
    saveBtn->setEnabled(nRowTotal > 0 && nRowUnchecked < nRowTotal);
    Select_All->setTristate(true);
    ApplyTriState(Select_All, nRowTotal, nRowTotal - nRowUnchecked);
    const QString mark = pItem->text(rcProgressMark);
    if (mark == "0" || mark == "1")
        saveBtn->setEnabled(false);
}

void VideoRepairWindow::OnSelectAllClicked(bool checked)
{
    Select_All->setTristate(false);
    Select_All->setChecked(checked);
    const int rows = pRepairList->topLevelItemCount();
    if (!checked) {
        for (int i = 0; i < rows; ++i)
            pRepairList->topLevelItem(i)->setCheckState(rcName, Qt::Unchecked);
        saveBtn->setEnabled(false);
    } else {
        for (int i = 0; i < rows; ++i) {
            QTreeWidgetItem *item = pRepairList->topLevelItem(i);
            if (item->text(rcVerdict) != "1")
                continue;
            const bool usable = RowUsable(item);
            item->setCheckState(rcName, usable ? Qt::Checked : Qt::Unchecked);
            saveBtn->setEnabled(usable);
        }
    }
    int unchecked = 0;
    for (int i = 0; i < rows; ++i)
        unchecked += pRepairList->topLevelItem(i)->checkState(rcName) != Qt::Checked;
    // Running totals, reset only by a click on a row: they add up over clicks, as they always did.
    nRowTotal += rows;
    nRowUnchecked += unchecked;
    if (nRowTotal == nRowUnchecked)
        saveBtn->setEnabled(false);
    else if (nRowTotal > nRowUnchecked)
        saveBtn->setEnabled(true);
}

bool VideoRepairWindow::TwoRepairedValidFilesCreated(QString strRepairedPath)
{
    const QFileInfo info(strRepairedPath);
    const QFileInfoList entries = QDir(info.path()).entryInfoList({"*.mp4", "*.mov", "*.MOV", "*.MP4", "*.m4v", "*.M4V"},
                                                                  QDir::Files | QDir::NoDotAndDotDot);
    int count = 0;
    for (const QFileInfo &e : entries) {
        const bool named = e.fileName().compare(info.fileName(), Qt::CaseInsensitive) == 0 ||
                           e.fileName().compare("1_" + info.fileName(), Qt::CaseInsensitive) == 0;
        count += named && e.size() != 0;
    }
    return count == 2;
}

// --- Stopping ---

void VideoRepairWindow::OnStop()
{
    if (pApp.bInMuxStage)
        pStopDlg->SetTexts(UiText("VideoRepairWindow", QT_TR_NOOP("Stop Repair")),
                           UiText("VideoRepairWindow", QT_TR_NOOP("This process will stop after processing the "
                                                                  "current file.")),
                           UiText("VideoRepairWindow", QT_TR_NOOP("Do you want to stop the process?")));
    else
        pStopDlg->SetTexts(UiText("VideoRepairWindow", QT_TR_NOOP("Stop Repair")),
                           UiText("VideoRepairWindow", QT_TR_NOOP("Do you want to stop the current process?")),
                           UiText("VideoRepairWindow", QT_TR_NOOP("You can't resume the process from this point. All "
                                                                  "the changes will be discarded. ")));
    // Wired at each click, but only once.
    connect(pStopDlg->YesBtn(), &QPushButton::clicked, this, &VideoRepairWindow::OnStopProcess, Qt::UniqueConnection);
    connect(pStopDlg->NoBtn(), &QPushButton::clicked, this, &VideoRepairWindow::OnRunProcess, Qt::UniqueConnection);
    pStopDlg->CentreOnScreen();
    pStopDlg->open();
}

void VideoRepairWindow::OnStopProcess()
{
    pApp.bStopRepair = true;
    bAdvanceRepairRunning = false;
    pStopDlg->hide();
}

void VideoRepairWindow::OnRunProcess() { pStopDlg->hide(); }

void VideoRepairWindow::AbortedCommon()
{
    m_repairThread.quit();
    pRepairList->setEnabled(true);
    for (QWidget *w : std::initializer_list<QWidget *>{FileProgress, stopBtn, referenceLinkBtn, PreviewBtn,
                                                       overAllProgess_2, OverAllProgessLabl, OverAllProgessCheck,
                                                       FileNameLabl, PercentLabl})
        w->hide();
    Select_All->show();
    Select_All->setEnabled(true);
    saveBtn->show();
    BackBtn->setEnabled(true);
    UpdateBtn_1->setEnabled(true);
    UpdateBtn_2->setEnabled(true);
    EnableLanguageButtons(true);
    bApplyToAll = false;
    pStopDlg->hide();
    // Nothing of a stopped run can be saved.
    ClearRunWork();
}

void VideoRepairWindow::OnProcessAborted()
{
    AbortedCommon();
    Select_All->setChecked(true);
    bool repairedRow = false;
    bool allUnfinished = true;
    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = pRepairList->topLevelItem(i);
        CustomButton *button = RecordOf(i) ? RecordOf(i)->pButton : nullptr;
        const QString mark = item->text(rcProgressMark);
        const QString verdict = item->text(rcVerdict);
        const bool unfinished = mark == "0" || mark == "1";
        allUnfinished = allUnfinished && unfinished;
        if (unfinished) {
            item->setText(rcStatus, QString());
            SetRowStatus(item, RowStatus::Aborted, kRed);
            item->setText(rcQueueMark, "-1");
            item->setCheckState(rcName, Qt::Unchecked);
            saveBtn->show();
            saveBtn->setEnabled(true);
            if (button) {
                SetRowButton(button, RowAction::None, QString(), kBlue);
                button->setEnabled(true);
            }
        }
        if (verdict == "0") {
            SetRowStatus(item, RowStatus::Awaiting, kBlue, Qt::AlignLeft | Qt::AlignTop);
            saveBtn->setEnabled(false);
            if (!bAdvanceRepairRunning) {
                SetPageText(PageText::Completed);
                if (button)
                    SetRowButton(button, RowAction::AdvanceRepair, "text-align: top left;", kBlue);
            } else if (button && !unfinished) {
                SetRowButton(button, ActionOf(button), "text-align: top left;", kBlue);
            }
        } else if (verdict == "1") {
            SetRowStatus(item, RowStatus::Completed, kBlack);
            if (button) {
                SetRowButton(button, ActionOf(button), "text-align:left;", kBlue);
                button->setEnabled(true);
            }
            repairedRow = true;
        }
    }
    saveBtn->setEnabled(repairedRow && !allUnfinished);
}

void VideoRepairWindow::OnProcessAborted1()
{
    // Runs right after OnProcessAborted and overwrites it: every row ends "Aborted".
    AbortedCommon();
    Select_All->setChecked(false);
    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = pRepairList->topLevelItem(i);
        SetRowStatus(item, RowStatus::Aborted, kRed);
        item->setText(rcQueueMark, "-1");
        item->setCheckState(rcName, Qt::Unchecked);
        item->setFlags(item->flags() & ~Qt::ItemIsEnabled);
        if (RowButtonRec *rec = RecordOf(i))
            HideRowButton(rec->pButton);
    }
    saveBtn->setEnabled(false);
    Select_All->setChecked(false);
    Select_All->setEnabled(false);
    bAborted = true;
}

// --- Going back ---

void VideoRepairWindow::OnBackBtnClicked()
{
    mux::KillRunning();
    bApplyToAll = false;
    TickLanguageMenus();
    bool awaiting = false;
    for (int i = 0; i < pRepairList->topLevelItemCount() && !awaiting; ++i)
        awaiting = pRepairList->topLevelItem(i)->text(rcVerdict) == "0";

    const char *const clearQuestion =
        QT_TR_NOOP("This action will clear repair results.\nDo you want to go back to previous screen?");
    if (bAborted) {
        if (!pQuestionDlg->Ask("VideoRepairWindow", QT_TR_NOOP("Back"), clearQuestion))
            return;
    } else if (awaiting) {
        // Here Yes means "stay and repair".
        if (pQuestionDlg->Ask("VideoRepairWindow", QT_TR_NOOP("Back"),
                              QT_TR_NOOP("Do you want to run advance repair on the severely corrupted video before "
                                         "leaving this page?")))
            return;
    } else if (bSpaceDialogShown) {
        bSpaceDialogShown = false;
    } else if (!pQuestionDlg->Ask("VideoRepairWindow", QT_TR_NOOP("Back"), clearQuestion)) {
        return;
    }
    ResetToList();
}

void VideoRepairWindow::ResetToList()
{
    frame_2->hide();
    AddFile_frame->show();
    for (QWidget *w : std::initializer_list<QWidget *>{AddFileBtn, pFileList, RemoveBtn, RepairBtn, SelectAllBtn,
                                                       MainString_labl, chnageLoc_Labl, ChnageLoc_Btn})
        w->show();
    for (QWidget *w : std::initializer_list<QWidget *>{pushButton, Frame1_ListLabl_2, BackBtn})
        w->hide();
    ClearRepairRows();
    lstPendingPaths.clear();
    pApp.bMoovParsed = false;
    PercentLabl->setText("0%");
    nRepairedCount = 0;
    nAwaitingCount = 0;
    bAdvanceRepairRunning = false;
    bHasAwaiting = false;
    pApp.bOnResultsPage = false;
    UpdateBtn_1->setEnabled(true);
    // Results that were not saved go with the page.
    if (!pApp.bSaveClicked)
        ClearRunWork();
}

void VideoRepairWindow::ClearRunWork()
{
    m_workFolders.ClearAll();
}

// --- The run with a sample ---

void VideoRepairWindow::OnRepairRefrenceFile()
{
    pApp.bSampleRun = true;
    pApp.bStopRepair = false;
    bAdvanceRepairRunning = true;
    UpdateBtn_1->setEnabled(false);
    UpdateBtn_2->setEnabled(false);
    EnableLanguageButtons(false);
    PercentLabl->setText("0%");
    pReferenceFileDlg->hide();

    QStringList list;
    if (!bApplyToAll) {
        if (!strFailedFilePath.isEmpty())
            list << strFailedFilePath;
    } else {
        bApplyToAll = false;
        list = lstSameFormat;
    }

    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i) {
        if (pApp.bStopRepair)
            break;
        QTreeWidgetItem *item = pRepairList->topLevelItem(i);
        CustomButton *button = RecordOf(i) ? RecordOf(i)->pButton : nullptr;
        const QString verdict = item->text(rcVerdict);
        if (verdict == "1") {
            SetRowStatus(item, RowStatus::Completed, kGray);
            if (button)
                SetRowButton(button, RowAction::Preview, "text-align:left;", kGray);
        } else if (verdict == "0") {
            SetRowStatus(item, RowStatus::Awaiting, kGray);
            item->setCheckState(rcName, Qt::Unchecked);
            if (button)
                SetRowButton(button, RowAction::AdvanceRepair, "text-align: left;", kGray);
            SetPageText(PageText::AdvanceRunning);
        }
    }

    if (list.isEmpty()) {
        OnRepairFinish();
        return;
    }
    // By source path: two rows may share a file name.
    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i)
        if (list.contains(pRepairList->topLevelItem(i)->text(rcSource)))
            pRepairList->topLevelItem(i)->setCheckState(rcName, Qt::Checked);
    BeginRun(list, true);
}

// --- The sample dialogs ---

void VideoRepairWindow::OnClickPreviewBtn(unsigned int id)
{
    lstPendingPaths.clear();
    const int rows = qMin(lstRowButtons.size(), pRepairList->topLevelItemCount());
    for (int i = 0; i < rows; ++i) {
        RowButtonRec *rec = lstRowButtons.at(i);
        if (rec->nID != id)
            continue;
        QTreeWidgetItem *item = pRepairList->topLevelItem(i);
        const QString verdict = item->text(rcVerdict);
        if (verdict == "1") {
            PlayFile(ResultFileOf(item));
        } else if (verdict == "0") {
            strFailedFileName = item->text(rcName);
            lstPendingPaths << rec->strSourcePath;
        }
        break;
    }
    if (lstPendingPaths.isEmpty())
        return;

    bAdvanceClicked = true;
    pReferenceFileDlg->Prepare();
    AdvancedRepairDlg dlg(this, lstPendingPaths.first());
    strFailedFilePath = dlg.strFailedFilePath;
    connect(&dlg, &AdvancedRepairDlg::NextDialog, this, &VideoRepairWindow::OnclickedNextDialog);
    connect(&dlg, &AdvancedRepairDlg::LearnMore, this, &VideoRepairWindow::onlearnmorelinkclicked);
    pAdvancedRepairDlg = &dlg;
    dlg.CentreOnScreen();
    dlg.exec();
    pAdvancedRepairDlg = nullptr;
}

void VideoRepairWindow::OnclickedNextDialog()
{
    if (pAdvancedRepairDlg)
        pAdvancedRepairDlg->hide();
    pReferenceFileDlg->OpenChooseVideo();
}

void VideoRepairWindow::onlearnmorelinkclicked()
{
    const languages::Language *lang = languages::ByType(nLanguage);
    const QString code = QString::fromLatin1(lang ? lang->folder : "EN");
    const QString url = startup::OpenSettings()->value(code + "/Learn_more").toString();
    if (!url.isEmpty())
        QDesktopServices::openUrl(QUrl(url));
}

void VideoRepairWindow::OnRefe_CheckBoxClicked()
{
    lstSameFormat.clear();
    bApplyToAll = pReferenceFileDlg->refe_CheckBox->isChecked();
    QString sampleFormat;
    if (!pReferenceFileDlg->strSamplePathCopy.isEmpty())
        sampleFormat = QFileInfo(pReferenceFileDlg->strSamplePathCopy).suffix().toUpper();
    // By the name's suffix alone: what the sample is worth is the run's to find out.
    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *item = pRepairList->topLevelItem(i);
        if (item->text(rcVerdict) != "0")
            continue;
        const QString source = item->text(rcSource);
        const QString format = QFileInfo(source).suffix().toUpper();
        if (format == sampleFormat || (format == "RSV" && (sampleFormat == "MP4" || sampleFormat == "MOV")))
            lstSameFormat << source;
    }
}

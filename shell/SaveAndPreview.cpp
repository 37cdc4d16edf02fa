// Saving finished files (at their place, or copied to a folder of the
// user's) and handing them to an outside player.

#include "VideoRepairWindow.h"

#include "Look.h"
#include "repair/RowFile.h"
#include "SizeText.h"
#include "Startup.h"
#include "repair/WorkFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QProcess>
#include <QSet>
#include <QStorageInfo>
#include <QTemporaryFile>

namespace {
const QColor kGray("#808080");
const QColor kBlue("#1a5fc8");
const QColor kBlack("#202020");

const char kLinkCss[] = "text-align:left;color:blue;text-decoration:underline; border:none; background:transparent;";

// Resolved where it exists, so that a link can't hide a work folder.
QString Comparable(const QString &path)
{
    const QFileInfo info(path);
    const QString canonical = info.canonicalFilePath();
    return canonical.isEmpty() ? QDir::cleanPath(info.absoluteFilePath()) : canonical;
}

QString FileNames(const QStringList &paths)
{
    QStringList names;
    for (const QString &p : paths)
        names << QFileInfo(p).fileName();
    return names.join('\n');
}
} // namespace

// --- Preview ---

void VideoRepairWindow::PlayFile(const QString &path)
{
    if (!QFileInfo(path).isFile()) {
        pMessageDlg->ShowMessage("VideoRepairWindow", QT_TR_NOOP("File Not Found"),
                                 QT_TR_NOOP("The repaired file is no longer there:\n%1"), {path});
        return;
    }
    const QString file = pApp.bCustomFolderChosen ? QDir::toNativeSeparators(path) : path;
    StartPlayer(shellApp.nPlayerMode == 2 ? QStringList{file} : QStringList{"-nofs", "1", file});
}

void VideoRepairWindow::OnDoubleClicked(QTreeWidgetItem *pItem, int nCol)
{
    if (!pItem)
        return;
    // Whatever cell was hit: only the path column holds a file name.
    const QString text = pItem->text(nCol);
    if (text.isEmpty())
        return;
    StartPlayer(shellApp.nPlayerMode == 2 ? QStringList{text} : QStringList{"-vfm", "1", text});
}

void VideoRepairWindow::StartPlayer(const QStringList &arguments)
{
    // One player at a time: a click while it plays does nothing.
    if (pPlayerProcess->state() != QProcess::NotRunning)
        return;
    bPreviewOrSaveUsed = true;
    // Looked up at each click, so that installing it needs no restart.
    startup::FindPlayer(shellApp.strAppDir);
    if (!shellApp.strPlayerPath.isEmpty()) {
        // The player's chatter would fill a pipe nobody reads and stall it.
        pPlayerProcess->setStandardOutputFile(QProcess::nullDevice());
        pPlayerProcess->setStandardErrorFile(QProcess::nullDevice());
        pPlayerProcess->start(shellApp.strPlayerPath, arguments, QIODevice::ReadWrite);
        if (pPlayerProcess->waitForStarted(5000))
            return;
    }
    pMessageDlg->ShowMessage("VideoRepairWindow", QT_TR_NOOP("Player Not Found"),
                             QT_TR_NOOP("Preview needs MPlayer, which could not be started.\n"
                                        "Install it with: sudo apt-get install mplayer"));
}

void VideoRepairWindow::OnQuickLookSlot() {}

// --- Saving ---

void VideoRepairWindow::OnClickedSaveButton()
{
    if (bSaving)
        return;
    pApp.bSaveClicked = true;
    bAdvanceClicked = false;
    bPreviewOrSaveUsed = true;
    pSaveDlg->Prepare();
    pSaveDlg->CentreOnScreen();
    pSaveDlg->exec();
}

void VideoRepairWindow::OnSavedMsg()
{
    bKeepWorkFolder = true;
    OnUnhide();
    // Nothing is copied; a result that went missing is still named.
    QStringList gone;
    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = pRepairList->topLevelItem(i);
        if (item->checkState(rcName) == Qt::Checked && item->text(rcVerdict) == "1" &&
            !IsUsableResult(ResultFileOf(item))) {
            gone << ResultFileOf(item);
            SetRowStatus(item, RowStatus::Failed, kBlack);
            if (RowButtonRec *rec = RecordOf(i))
                HideRowButton(rec->pButton);
            item->setFlags(item->flags() & ~Qt::ItemIsUserCheckable);
        }
        item->setCheckState(rcName, Qt::Unchecked);
    }
    Select_All->setChecked(false);
    saveBtn->setEnabled(false);
    pSaveDlg->close();
    if (gone.isEmpty())
        pMessageDlg->ShowMessage("VideoRepairWindow", QT_TR_NOOP("Saving Complete"),
                                 QT_TR_NOOP("Repaired files saved successfully."));
    else
        pMessageDlg->ShowMessage("VideoRepairWindow", QT_TR_NOOP("Files Not Saved"),
                                 QT_TR_NOOP("These files could not be saved:\n%1"), {FileNames(gone)});
}

void VideoRepairWindow::OnUnhide()
{
    QSet<QString> parents;
    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i) {
        const QString folder = QFileInfo(ResultFileOf(pRepairList->topLevelItem(i))).absolutePath();
        parents.insert(QFileInfo(folder).absolutePath());
        // Saved in place: from now on the folder is the user's, not work to clear.
        m_workFolders.Forget(folder);
    }
    for (const QString &parent : parents)
        if (workfolder::IsHidden(parent))
            workfolder::MakeVisible(parent);
}

QMap<QString, VolumeResult> VideoRepairWindow::CheckDestinationSpace(const QStringList &list,
                                                                     const QString &strDestination) const
{
    VolumeResult v;
    v.strRootPath = QStorageInfo(strDestination).rootPath();
    v.ullAvailable = quint64(qMax<qint64>(0, BytesAvailable(v.strRootPath)));
    for (const QString &f : list) {
        const QFileInfo info(f);
        if (info.isFile())
            v.ullRequired += quint64(info.size());
    }
    v.bEnough = v.ullAvailable >= v.ullRequired;
    QMap<QString, VolumeResult> out;
    out.insert(v.strRootPath, v);
    return out;
}

bool VideoRepairWindow::IsInsideWorkFolder(const QString &folder) const
{
    QStringList work = m_workFolders.Folders();
    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i)
        work << QFileInfo(ResultFileOf(pRepairList->topLevelItem(i))).absolutePath();
    const QString target = Comparable(folder);
    for (const QString &w : work) {
        const QString f = Comparable(w);
        if (target == f || target.startsWith(f + "/"))
            return true;
    }
    return false;
}

void VideoRepairWindow::ShowRowsAfterSaving()
{
    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = pRepairList->topLevelItem(i);
        CustomButton *button = RecordOf(i) ? RecordOf(i)->pButton : nullptr;
        const QString verdict = item->text(rcVerdict);
        if (StatusOf(item) == RowStatus::Failed)
            continue;
        if (verdict == "1") {
            SetRowStatus(item, RowStatus::Completed, kBlack);
            if (button && ActionOf(button) != RowAction::None) {
                SetRowButton(button, RowAction::Preview, kLinkCss, kBlue);
                button->setEnabled(true);
            }
        } else if (verdict == "0") {
            SetRowStatus(item, RowStatus::Awaiting, kGray, Qt::AlignLeft | Qt::AlignTop);
            item->setCheckState(rcName, Qt::Unchecked);
            if (button) {
                SetRowButton(button, RowAction::AdvanceRepair, kLinkCss, kBlue);
                button->setEnabled(true);
            }
        }
    }
    FileNameLabl->hide();
    FileProgress->hide();
    pRepairList->setEnabled(true);
    BackBtn->setEnabled(true);
    Select_All->setEnabled(true);
}

void VideoRepairWindow::OnCustomLocation(const QString &strPath)
{
    int count = 0;
    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i)
        count += pRepairList->topLevelItem(i)->checkState(rcName) == Qt::Checked;
    pSaveDlg->close();

    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i) {
        if (pApp.bStopRepair)
            break;
        QTreeWidgetItem *item = pRepairList->topLevelItem(i);
        CustomButton *button = RecordOf(i) ? RecordOf(i)->pButton : nullptr;
        const QString verdict = item->text(rcVerdict);
        if (StatusOf(item) == RowStatus::Failed)
            continue;
        if (verdict == "1") {
            SetRowStatus(item, RowStatus::Completed, kGray);
            if (button && ActionOf(button) != RowAction::None)
                SetRowButton(button, RowAction::Preview, "text-align:left;", kGray);
        } else if (verdict == "0") {
            SetRowStatus(item, RowStatus::Awaiting, kGray, Qt::AlignLeft | Qt::AlignTop);
            item->setCheckState(rcName, Qt::Unchecked);
            if (button)
                SetRowButton(button, RowAction::AdvanceRepair, "text-align: top left;", kGray);
        }
    }
    pRepairList->setEnabled(false);
    BackBtn->setEnabled(false);
    Select_All->setEnabled(false);
    FileProgress->reset();
    FileProgress->setMaximum(qMax(1, count));
    FileProgress->show();
    FileNameLabl->show();
    FileNameLabl->setText(tr("Wait while repaired files are being saved."));

    QStringList list;
    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *item = pRepairList->topLevelItem(i);
        if (item->text(rcVerdict) == "1" && item->checkState(rcName) == Qt::Checked)
            list << ResultFileOf(item);
    }
    if (list.isEmpty()) {
        QMessageBox::warning(this, tr("No Files"), tr("No Files Selected."), QMessageBox::Ok);
        ShowRowsAfterSaving();
        return;
    }

    // The work folders go at exit, and with them anything saved into them.
    if (IsInsideWorkFolder(strPath)) {
        pMessageDlg->ShowMessage("VideoRepairWindow", QT_TR_NOOP("Choose Another Folder"),
                                 QT_TR_NOOP("This folder holds the program's work files and is removed at exit.\n"
                                            "Choose another folder to save the repaired files."));
        ShowRowsAfterSaving();
        return;
    }
    // Permissions don't tell (root ignores them, a folder may be gone): try.
    QTemporaryFile probe(strPath + "/.videomend-XXXXXX");
    if (!QFileInfo(strPath).isDir() || !probe.open()) {
        pMessageDlg->ShowMessage("VideoRepairWindow", QT_TR_NOOP("Cannot Save Here"),
                                 QT_TR_NOOP("Files can't be written to this folder:\n%1\nChoose another folder."),
                                 {strPath});
        ShowRowsAfterSaving();
        return;
    }
    probe.remove();

    const VolumeResult room = CheckDestinationSpace(list, strPath).first();
    if (!room.bEnough) {
        for (QWidget *w : std::initializer_list<QWidget *>{overAllProgess_2, FileProgress, FileNameLabl})
            w->hide();
        InsufficientSpaceDlg dlg(this);
        // Only OK: the way out is another try with another folder.
        for (QWidget *w : std::initializer_list<QWidget *>{dlg.BrowseBtn, dlg.label_4, dlg.CancelBtn})
            w->hide();
        dlg.SetSpaceLine(FormatBytes(qint64(room.ullAvailable)), FormatBytes(qint64(room.ullRequired)));
        dlg.CentreOnScreen();
        dlg.exec();
        ShowRowsAfterSaving();
        return;
    }
    bSaving = true;
    m_saveThread.StartSaving(list, strPath);
}

void VideoRepairWindow::OnProgressValue(unsigned int n)
{
    FileProgress->setValue(int(n));
    saveBtn->setEnabled(false);
}

void VideoRepairWindow::OnProgressFinish()
{
    bSaving = false;
    const QStringList unsaved = m_saveThread.Unsaved();
    bool anyLeft = false;
    for (int i = 0; i < pRepairList->topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = pRepairList->topLevelItem(i);
        CustomButton *button = RecordOf(i) ? RecordOf(i)->pButton : nullptr;
        const QString verdict = item->text(rcVerdict);
        bool keepChecked = false;
        if (verdict == "0") {
            SetRowStatus(item, RowStatus::Awaiting, kBlue, Qt::AlignLeft | Qt::AlignTop);
            if (button) {
                SetRowButton(button, RowAction::AdvanceRepair, "text-align: top left;", kBlue);
                button->setEnabled(true);
            }
        } else if (verdict == "1") {
            const QString file = ResultFileOf(item);
            if (RowUsable(item)) {
                SetRowStatus(item, RowStatus::Completed, kBlack);
                if (button) {
                    SetRowButton(button, RowAction::Preview, "text-align:left;", kBlue);
                    button->setEnabled(true);
                }
                // Not copied: still checked, ready for another try.
                keepChecked = item->checkState(rcName) == Qt::Checked && unsaved.contains(file);
            } else {
                SetRowStatus(item, RowStatus::Failed, kBlack);
                if (button)
                    HideRowButton(button);
                item->setFlags(item->flags() & ~Qt::ItemIsUserCheckable);
            }
        }
        if (!keepChecked)
            item->setCheckState(rcName, Qt::Unchecked);
        anyLeft = anyLeft || keepChecked;
    }
    BackBtn->setEnabled(true);
    Select_All->setEnabled(true);
    Select_All->setChecked(false);
    FileNameLabl->hide();
    FileProgress->hide();
    saveBtn->setEnabled(anyLeft);
    if (unsaved.isEmpty())
        pMessageDlg->ShowMessage("VideoRepairWindow", QT_TR_NOOP("Saving Complete"),
                                 QT_TR_NOOP("Repaired files saved successfully."));
    else
        pMessageDlg->ShowMessage("VideoRepairWindow", QT_TR_NOOP("Files Not Saved"),
                                 QT_TR_NOOP("These files could not be saved:\n%1"), {FileNames(unsaved)});
    pRepairList->setEnabled(true);
}

// The results page: real runs of the worker through the window, verdicts
// given by hand, the stop, the lack of room, and the run with a sample.

#include "repair/RepairState.h"
#include "repair/WorkFolder.h"
#include "shell_support.h"
#include "support/Fixtures.h"

#include <QCryptographicHash>
#include <QSemaphore>
#include <QSignalSpy>

using fixtures::digest;

namespace {
QStringList column(QTreeWidget *list, int c)
{
    QStringList out;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        out << list->topLevelItem(i)->text(c);
    return out;
}
} // namespace

class TestShellRun : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        pApp.reset();
        startup::OpenSettings()->clear();
    }

    void realRunOfDamagedAndMissingFiles()
    {
        VM_FIXTURE(healthy, fixtures::healthy("h264_aac.mp4"));
        VM_FIXTURE(damaged, fixtures::moovRemoved(healthy));
        QTemporaryDir dir;
        const QString clip = dir.filePath("clip.mp4");
        QVERIFY(QFile::copy(damaged, clip));
        writeFile(dir.filePath("zero.mov"), 0);
        writeFile(dir.filePath("gone.mov"), 5000);
        const QByteArray before = digest(clip);

        TestWindow w;
        w.realRun = true;
        w.show();
        DialogAnswerer answers;
        QSignalSpy ranges(&w.RepairThread(), &ThreadVideoRepair::SetProgressBarRange);
        w.AddFiles({clip, dir.filePath("zero.mov"), dir.filePath("gone.mov")});
        QVERIFY(QFile::remove(dir.filePath("gone.mov")));
        w.RepairBtn->click();
        QVERIFY(w.frame_2->isVisibleTo(&w));
        QCOMPARE(column(w.pRepairList, 8), (QStringList{"Queued", "Queued", "Queued"}));

        QTRY_VERIFY_WITH_TIMEOUT(!answers.seen.isEmpty(), 120000);
        QTRY_VERIFY(w.RepairThread().isFinished());
        QCOMPARE(answers.seen, QStringList{"Repair Complete | Repair process completed.\nCheck 'Status' column to "
                                           "view the repair outcome."});

        // Without an index the clip waits for a sample; the empty and the
        // vanished file get the worker's verdict like any other.
        QCOMPARE(column(w.pRepairList, 8), (QStringList{"Awaiting Action", "Awaiting Action", "Awaiting Action"}));
        QCOMPARE(column(w.pRepairList, 11), (QStringList{"0", "0", "0"}));
        QCOMPARE(column(w.pRepairList, 13), (QStringList{"5", "5", "5"}));
        QCOMPARE(w.lstRowButtons.first()->pButton->text(), QString("Advance Repair"));
        QVERIFY(w.lstRowButtons.first()->pButton->isEnabled());
        QCOMPARE(w.pRepairList->topLevelItem(0)->checkState(0), Qt::Unchecked);

        // Both bars ran; the end texts are up.
        QVERIFY(ranges.count() > 0);
        QCOMPARE(w.FileProgress->maximum(), int(ranges.last().at(0).toLongLong()));
        QCOMPARE(w.overAllProgess_2->value(), 100);
        QCOMPARE(w.PercentLabl->text(), QString("100%"));
        QCOMPARE(w.OverAllProgessCheck->text(), QString(" : Repairing file 3 of 3"));
        QCOMPARE(w.stringLabl->text(), QString("Repair Process Completed"));
        QVERIFY(!w.stopBtn->isVisibleTo(&w));
        QVERIFY(w.saveBtn->isVisibleTo(&w));
        QVERIFY(!w.saveBtn->isEnabled());
        QVERIFY(w.pRepairList->isEnabled());
        QVERIFY(w.BackBtn->isEnabled());
        QVERIFY(w.bHasAwaiting);

        // The user's file is untouched; the work folder sits hidden beside it.
        QCOMPARE(digest(clip), before);
        QVERIFY(QFileInfo(dir.filePath("Repaired")).isDir());
        QVERIFY(workfolder::IsHidden(dir.path()));

        // A click on a waiting row says what to do.
        w.OnRepairItemClicked(w.pRepairList->topLevelItem(0), 8);
        QCOMPARE(answers.seen.last(), QString("Advance Repair Required | This video is severely damaged. Run advance "
                                              "repair option to repair it before saving."));

        // Going back without repairing clears what the run made, and only that.
        answers.queueButton("NoBtn");
        w.OnBackBtnClicked();
        QVERIFY(w.AddFile_frame->isVisibleTo(&w));
        QVERIFY(!QFileInfo::exists(dir.filePath("Repaired")));
        QVERIFY(!QFileInfo::exists(dir.filePath(".hidden")));
        QCOMPARE(QDir(dir.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 (QStringList{"clip.mp4", "zero.mov"}));
        QCOMPARE(digest(clip), before);
    }

    void verdictsGivenByHand()
    {
        QTemporaryDir dir;
        QDir(dir.path()).mkpath("src/other");
        QDir(dir.path()).mkpath("out/Repaired");
        const QStringList names = {"a.mov", "b.mov", "c.mov", "d.DAT", "e.RSV"};
        QStringList sources;
        for (const QString &n : names) {
            sources << dir.filePath("src/" + n);
            writeFile(sources.last(), 100);
        }
        // A second a.mov from another folder.
        sources << dir.filePath("src/other/a.mov");
        writeFile(sources.last(), 100);
        writeFile(dir.filePath("out/Repaired/a.mov"), 2047);
        writeFile(dir.filePath("out/Repaired/b.mov"), 2048);
        writeFile(dir.filePath("out/Repaired/d.mov"), 4096);
        writeFile(dir.filePath("out/Repaired/e.mp4"), 4096);

        TestWindow w;
        DialogAnswerer answers;
        w.SetDestPath(dir.filePath("out"));
        w.AddFiles(sources);
        w.OnRepairMOVFiles();
        QCOMPARE(w.runs.size(), 1);
        QCOMPARE(w.runs.first().list, sources);
        QCOMPARE(w.runs.first().sample, false);
        QCOMPARE(w.pRepairList->columnCount(), 15);
        QCOMPARE(w.pRepairList->topLevelItem(3)->text(1), dir.filePath("out/Repaired/d.DAT"));
        QCOMPARE(w.pRepairList->topLevelItem(5)->text(12), sources.last());
        for (int c = 0; c < 15; ++c)
            QCOMPARE(w.pRepairList->isColumnHidden(c), QList<int>({3, 4, 5, 10, 11, 12, 13, 14}).contains(c));

        ThreadVideoRepair &t = w.RepairThread();
        Q_EMIT t.SetProgressBarRange(5LL << 30);
        Q_EMIT t.setProgressvalue(5LL << 29);
        QCOMPARE(w.FileProgress->value(), w.FileProgress->maximum() / 2 + w.FileProgress->maximum() % 2);
        Q_EMIT t.setProgressvalue(5LL << 30);
        QCOMPARE(w.FileProgress->value(), w.FileProgress->maximum());
        Q_EMIT t.OverAllProgressValue(2, 40, 6);
        QCOMPARE(w.OverAllProgessCheck->text(), QString(" : Repairing file 2 of 6"));
        QCOMPARE(w.PercentLabl->text(), QString("40%"));

        Q_EMIT t.WriteProcessingStatus("ignored");
        QTreeWidgetItem *a = w.pRepairList->topLevelItem(0);
        QCOMPARE(a->text(8), QString("Processing"));
        QCOMPARE(a->text(10), QString("1"));
        QCOMPARE(a->text(13), QString("5"));
        Q_EMIT t.WriteStatus(true, false, "a.mov", true);
        QCOMPARE(a->text(8), QString("Completed"));
        QCOMPARE((QStringList{a->text(10), a->text(11), a->text(14)}), (QStringList{"2", "1", "1"}));
        QCOMPARE(w.lstRowButtons.at(0)->pButton->text(), QString("Preview"));
        for (const char *n : {"b.mov", "c.mov", "d.DAT", "E.mp4"}) {
            Q_EMIT t.WriteProcessingStatus(n);
            Q_EMIT t.WriteStatus(true, false, n, false);
        }
        // The second a.mov: the first row still processing takes the verdict.
        Q_EMIT t.WriteProcessingStatus("a.mov");
        Q_EMIT t.WriteStatus(false, false, "a.mov", false);
        QCOMPARE(w.pRepairList->topLevelItem(5)->text(8), QString("Awaiting Action"));
        QCOMPARE(w.pRepairList->topLevelItem(0)->text(8), QString("Completed"));

        Q_EMIT t.RepairFinish();
        QCOMPARE(answers.seen.size(), 1);
        QCOMPARE(column(w.pRepairList, 8), (QStringList{"Failed", "Completed", "Failed", "Completed", "Completed",
                                                        "Awaiting Action"}));
        QCOMPARE(w.pRepairList->topLevelItem(0)->checkState(0), Qt::Unchecked);
        QVERIFY(w.pRepairList->topLevelItem(0)->flags() & Qt::ItemIsUserCheckable);
        QVERIFY(!(w.pRepairList->topLevelItem(2)->flags() & Qt::ItemIsUserCheckable));
        QVERIFY(!w.lstRowButtons.at(0)->pButton->isVisibleTo(&w));
        QVERIFY(w.saveBtn->isEnabled());

        // A click on the 2047-byte row tells why it can't be saved.
        w.OnRepairItemClicked(w.pRepairList->topLevelItem(0), 0);
        QCOMPARE(answers.seen.last(), QString("Severely Corrupted Video | This video is severely corrupted and "
                                              "cannot be repaired."));
        w.OnSelectAllClicked(false);
        QCOMPARE(w.pRepairList->topLevelItem(1)->checkState(0), Qt::Unchecked);
        w.OnSelectAllClicked(true);
        QCOMPARE(column(w.pRepairList, 0).size(), 6);
        QList<Qt::CheckState> states;
        for (int i = 0; i < 6; ++i)
            states << w.pRepairList->topLevelItem(i)->checkState(0);
        QCOMPARE(states, (QList<Qt::CheckState>{Qt::Unchecked, Qt::Checked, Qt::Unchecked, Qt::Checked, Qt::Checked,
                                                Qt::Unchecked}));
        QVERIFY(w.saveBtn->isEnabled());

        // The waiting row gets a run with a sample of its own.
        w.strFailedFilePath = sources.last();
        w.OnRepairRefrenceFile();
        QVERIFY(pApp.bSampleRun);
        QCOMPARE(w.runs.size(), 2);
        QCOMPARE(w.runs.last().list, QStringList{sources.last()});
        QCOMPARE(w.runs.last().sample, true);
        QCOMPARE(w.stringLabl->text(), QString("Advance Repair Running"));
        QCOMPARE(w.pRepairList->topLevelItem(5)->checkState(0), Qt::Checked);
        // Nothing to run: the results come back at once.
        w.strFailedFilePath.clear();
        answers.seen.clear();
        w.OnRepairRefrenceFile();
        QCOMPARE(w.runs.size(), 2);
        QCOMPARE(answers.seen.size(), 1);
        QCOMPARE(w.stringLabl->text(), QString("Repair Process Completed"));
    }

    void stopInARealRun()
    {
        VM_FIXTURE(healthy, fixtures::healthy("h264_aac.mp4"));
        VM_FIXTURE(damaged, fixtures::moovRemoved(healthy));
        QTemporaryDir dir;
        QStringList files;
        for (const char *n : {"one.mp4", "two.mp4", "three.mp4"}) {
            files << dir.filePath(n);
            QVERIFY(QFile::copy(damaged, files.last()));
        }
        // A "Repaired" folder of the user's own, with a file in it.
        QVERIFY(QDir(dir.path()).mkdir("Repaired"));
        writeFile(dir.filePath("Repaired/mine.mov"), 3000);

        // Hold the worker on its first file until the window has had its say.
        QSemaphore release;
        bool held = false;
        TestWindow w;
        w.realRun = true;
        w.show();
        DialogAnswerer answers;
        connect(&w.RepairThread(), &ThreadVideoRepair::WriteProcessingStatus, &w.RepairThread(),
                [&](const QString &) {
                    if (!held) {
                        held = true;
                        release.acquire();
                    }
                },
                Qt::DirectConnection);
        w.AddFiles(files);
        w.OnRepairMOVFiles();
        QTRY_COMPARE_WITH_TIMEOUT(w.pRepairList->topLevelItem(0)->text(8), QString("Processing"), 60000);

        w.OnStop();
        QVERIFY(w.pStopDlg->isVisible());
        QCOMPARE(w.pStopDlg->Title(), QString("Stop Repair"));
        QCOMPARE(w.pStopDlg->Text(), QString("Do you want to stop the current process?\nYou can't resume the "
                                             "process from this point. All the changes will be discarded. "));
        w.pStopDlg->NoBtn()->click();
        QVERIFY(!w.pStopDlg->isVisible());
        QVERIFY(!pApp.bStopRepair);
        pApp.bInMuxStage = true;
        w.OnStop();
        QCOMPARE(w.pStopDlg->Text(), QString("This process will stop after processing the current file.\nDo you "
                                             "want to stop the process?"));
        pApp.bInMuxStage = false;

        // Closing is refused while the run goes on.
        QVERIFY(!w.close());
        QCOMPARE(answers.seen, QStringList{"Exit | Application Running! \nPlease halt the current process to Exit."});

        w.pStopDlg->YesBtn()->click();
        QVERIFY(pApp.bStopRepair);
        release.release();
        QTRY_VERIFY_WITH_TIMEOUT(w.bAborted, 60000);
        QTRY_VERIFY(w.RepairThread().isFinished());

        QCOMPARE(column(w.pRepairList, 8), (QStringList{"Aborted", "Aborted", "Aborted"}));
        QCOMPARE(column(w.pRepairList, 13), (QStringList{"-1", "-1", "-1"}));
        for (int i = 0; i < 3; ++i) {
            QTreeWidgetItem *row = w.pRepairList->topLevelItem(i);
            QVERIFY(!(row->flags() & Qt::ItemIsEnabled));
            QCOMPARE(row->checkState(0), Qt::Unchecked);
            QVERIFY(!w.lstRowButtons.at(i)->pButton->isVisibleTo(&w));
        }
        QVERIFY(!w.Select_All->isEnabled());
        QVERIFY(!w.saveBtn->isEnabled());
        QVERIFY(w.BackBtn->isEnabled());
        QVERIFY(!w.stopBtn->isVisibleTo(&w));

        // The user's folder and file stay; what the run added is gone.
        QCOMPARE(QDir(dir.filePath("Repaired")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 QStringList{"mine.mov"});
        QVERIFY(!workfolder::IsHidden(dir.path()));

        answers.seen.clear();
        answers.queueButton("YesBtn");
        w.OnBackBtnClicked();
        QCOMPARE(answers.seen, QStringList{"Back | This action will clear repair results.\nDo you want to go back to "
                                           "previous screen?"});
        QVERIFY(w.AddFile_frame->isVisibleTo(&w));
        QVERIFY(QFileInfo::exists(dir.filePath("Repaired/mine.mov")));
    }

    void noRoomAndNoFfmpeg()
    {
        QTemporaryDir dir;
        writeFile(dir.filePath("big.mov"), 5000);
        TestWindow w;
        w.freeBytes = 1000;
        DialogAnswerer answers;
        w.AddFiles({dir.filePath("big.mov")});

        // Cancel: back to the list, rows intact, no question.
        answers.queue([](QWidget *d) {
            auto *space = qobject_cast<InsufficientSpaceDlg *>(d);
            QVERIFY(space);
            QVERIFY(!space->OkBtn->isVisibleTo(space));
            QVERIFY(space->BrowseBtn->isVisibleTo(space));
            space->CancelBtn->click();
        });
        w.OnRepairMOVFiles();
        QCOMPARE(answers.seen, QStringList{"Insufficient Space | Insufficient space at selected destination.\nClick "
                                           "'Browse' to change destination .\nAvailable Space: 1000 bytes, Required "
                                           "Space: 4.88 KB\n"});
        QVERIFY(w.AddFile_frame->isVisibleTo(&w));
        QCOMPARE(w.pFileList->topLevelItemCount(), 1);
        QVERIFY(w.runs.isEmpty());
        QVERIFY(!w.bSpaceDialogShown);

        // Browse to another folder: the run starts there. Without ffmpeg on
        // PATH the user hears about it once.
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", "");
        const QString custom = dir.filePath("elsewhere");
        QDir().mkpath(custom);
        answers.seen.clear();
        answers.queue([custom](QWidget *d) { qobject_cast<InsufficientSpaceDlg *>(d)->ChooseFolder(custom); });
        w.OnRepairMOVFiles();
        QCOMPARE(w.runs.size(), 1);
        QVERIFY(pApp.bCustomFolderChosen);
        QCOMPARE(pApp.strCustomFolder, custom);
        QCOMPARE(w.pRepairList->topLevelItem(0)->text(1), custom + "/Repaired/big.mov");
        QVERIFY(w.FileProgress->isVisibleTo(&w));

        w.freeBytes = -1;
        answers.queueButton("YesBtn");
        w.OnBackBtnClicked();
        w.OnRepairMOVFiles();
        qputenv("PATH", path);
        QCOMPARE(w.runs.size(), 2);
        QCOMPARE(answers.seen.filter("FFmpeg Not Found").size(), 1);
        QVERIFY(answers.seen.filter("FFmpeg Not Found").first().contains("sudo apt-get install ffmpeg"));
    }
};

VM_SHELL_TEST_MAIN(TestShellRun)
#include "tst_shell_run.moc"

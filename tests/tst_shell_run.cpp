// The results page: real runs of the worker through the window, verdicts
// given by hand, the stop and the lack of room.

#include "repair/RepairState.h"
#include "repair/WorkFolder.h"
#include "shell_support.h"
#include "support/Fixtures.h"

using fixtures::digest;

class TestShellRun : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { pApp.reset(); startup::OpenSettings()->clear(); }

    void realRunOfDamagedAndMissingFiles()
    {
        VM_FIXTURE(healthy, fixtures::healthy("h264_aac.mp4"));
        VM_FIXTURE(damaged, fixtures::moovRemoved(healthy));
        QTemporaryDir dir;
        const QString clip = dir.filePath("clip.mp4");
        QVERIFY(QFile::copy(damaged, clip));
        makeFiles(dir.path(), {"zero.mov"}, 0);
        makeFiles(dir.path(), {"gone.mov"}, 5000);
        const QByteArray before = digest(clip);

        TestWindow w;
        w.realRun = true;
        w.show();
        DialogAnswerer answers;
        w.AddFiles({clip, dir.filePath("zero.mov"), dir.filePath("gone.mov")});
        QVERIFY(QFile::remove(dir.filePath("gone.mov")));
        w.RepairBtn->click();
        QTRY_VERIFY_WITH_TIMEOUT(!answers.seen.isEmpty() && w.RepairThread().isFinished(), 120000);
        QCOMPARE(answers.seen.size(), 1);
        QVERIFY(answers.seen.first().startsWith("Repair Complete"));

        // Without an index the clip waits for a sample; the empty and the
        // vanished file get the worker's verdict like any other.
        QCOMPARE(column(w.pRepairList, 8), (QStringList{"Awaiting Action", "Awaiting Action", "Awaiting Action"}));

        // The user's file is untouched; the work folder sits hidden beside it.
        QCOMPARE(digest(clip), before);
        QVERIFY(QFileInfo(dir.filePath("Repaired")).isDir());
        QVERIFY(workfolder::IsHidden(dir.path()));

        // Going back without repairing clears what the run made, and only that.
        answers.queueButton("NoBtn");
        w.OnBackBtnClicked();
        QCOMPARE(entries(dir.path()), (QStringList{"clip.mp4", "zero.mov"}));
        QCOMPARE(digest(clip), before);
    }

    void verdictsGivenByHand()
    {
        QTemporaryDir dir;
        const QStringList sources =
            makeFiles(dir.filePath("src"), {"a.mov", "b.mov", "c.mov", "d.DAT", "e.RSV", "other/a.mov"});
        // Results under 2 KB are no use.
        makeFiles(dir.filePath("out/Repaired"), {"a.mov"}, 2047);
        makeFiles(dir.filePath("out/Repaired"), {"b.mov"}, 2048);
        makeFiles(dir.filePath("out/Repaired"), {"d.mov", "e.mp4"}, 4096);

        TestWindow w;
        DialogAnswerer answers;
        w.SetDestPath(dir.filePath("out"));
        w.AddFiles(sources);
        w.OnRepairMOVFiles();
        QCOMPARE(w.runs.size(), 1);
        QCOMPARE(w.runs.first().list, sources);
        QVERIFY(!w.runs.first().sample);
        QCOMPARE(w.pRepairList->topLevelItem(3)->text(1), dir.filePath("out/Repaired/d.DAT"));

        ThreadVideoRepair &t = w.RepairThread();

        // A verdict goes to the first processing row of its name; an RSV row
        // answers to its base name in any case.
        for (const char *n : {"a.mov", "b.mov", "c.mov", "d.DAT", "E.mp4"}) {
            Q_EMIT t.WriteProcessingStatus(n);
            Q_EMIT t.WriteStatus(true, false, n, false);
        }
        Q_EMIT t.WriteProcessingStatus("a.mov");
        Q_EMIT t.WriteStatus(false, false, "a.mov", false);
        Q_EMIT t.RepairFinish();
        QCOMPARE(answers.seen.size(), 1);
        // A result too small or missing fails; only usable ones can be checked.
        QCOMPARE(column(w.pRepairList, 8), (QStringList{"Failed", "Completed", "Failed", "Completed", "Completed",
                                                        "Awaiting Action"}));
        w.OnSelectAllClicked(true);
        QList<Qt::CheckState> states;
        for (int i = 0; i < 6; ++i)
            states << w.pRepairList->topLevelItem(i)->checkState(0);
        QCOMPARE(states, (QList<Qt::CheckState>{Qt::Unchecked, Qt::Checked, Qt::Unchecked, Qt::Checked, Qt::Checked,
                                                Qt::Unchecked}));
    }

    void outcomeOfEachRow()
    {
        // A result with sound alone fails, and can't be chosen for saving.
        QTemporaryDir dir;
        const QStringList sources = makeFiles(dir.path(), {"a.mov", "b.mov"});
        TestWindow w;
        DialogAnswerer answers;
        w.AddFiles(sources);
        w.OnRepairMOVFiles();
        QDir().mkpath(dir.filePath("Repaired"));
        QCOMPARE(QProcess::execute(fixtures::ffmpeg(), {"-v", "error", "-f", "lavfi", "-i", "sine=duration=1",
                                                        dir.filePath("Repaired/a.mov")}), 0);
        ThreadVideoRepair &t = w.RepairThread();
        for (bool repaired : {true, false}) {
            Q_EMIT t.WriteProcessingStatus(repaired ? "a.mov" : "b.mov");
            Q_EMIT t.WriteStatus(repaired, false, repaired ? "a.mov" : "b.mov", false);
        }
        Q_EMIT t.FileReported(0, "a.mov", {});
        Q_EMIT t.RepairFinish();
        QTRY_COMPARE(column(w.pRepairList, 8), (QStringList{"Failed", "Awaiting Action"}));
        w.OnSelectAllClicked(true);
        QCOMPARE(w.pRepairList->topLevelItem(0)->checkState(0), Qt::Unchecked);
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
        makeFiles(dir.filePath("Repaired"), {"mine.mov"}, 3000);

        // Hold the worker on its first file until the window has had its say.
        QSemaphore release;
        std::atomic<bool> held{false};
        TestWindow w;
        w.realRun = true;
        w.show();
        DialogAnswerer answers;
        holdFirst(&w.RepairThread(), &ThreadVideoRepair::WriteProcessingStatus, release, held);
        w.AddFiles(files);
        w.OnRepairMOVFiles();
        QTRY_COMPARE_WITH_TIMEOUT(w.pRepairList->topLevelItem(0)->text(8), QString("Processing"), 60000);

        // No lets the run go on; closing is refused meanwhile.
        w.OnStop();
        w.pStopDlg->NoBtn()->click();
        QVERIFY(!pApp.bStopRepair);
        QVERIFY(!w.close());
        QCOMPARE(answers.seen.size(), 1);
        QVERIFY(answers.seen.first().contains("halt the current process"));

        w.OnStop();
        w.pStopDlg->YesBtn()->click();
        QVERIFY(pApp.bStopRepair);
        release.release();
        QTRY_VERIFY_WITH_TIMEOUT(w.bAborted && w.RepairThread().isFinished(), 60000);
        QCOMPARE(column(w.pRepairList, 8), (QStringList{"Aborted", "Aborted", "Aborted"}));

        // The user's folder and file stay; what the run added is gone.
        QCOMPARE(entries(dir.filePath("Repaired")), QStringList{"mine.mov"});
        QVERIFY(!workfolder::IsHidden(dir.path()));
        answers.queueButton("YesBtn");
        w.OnBackBtnClicked();
        QVERIFY(!pApp.bOnResultsPage);
        QVERIFY(QFileInfo::exists(dir.filePath("Repaired/mine.mov")));
    }

    void noRoomAndNoFfmpeg()
    {
        QTemporaryDir dir;
        makeFiles(dir.path(), {"big.mov"}, 5000);
        TestWindow w;
        w.freeBytes = 1000;
        DialogAnswerer answers;
        w.AddFiles({dir.filePath("big.mov")});

        // Cancel: no run, and the list stays as it was.
        answers.queueButton("CancelBtn");
        w.OnRepairMOVFiles();
        QCOMPARE(answers.seen.size(), 1);
        QVERIFY(answers.seen.first().contains("Available Space: 1000 bytes, Required Space: 4.88 KB"));
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
        QCOMPARE(w.pRepairList->topLevelItem(0)->text(1), custom + "/Repaired/big.mov");

        w.freeBytes = -1;
        answers.queueButton("YesBtn");
        w.OnBackBtnClicked();
        w.OnRepairMOVFiles();
        qputenv("PATH", path);
        QCOMPARE(w.runs.size(), 2);
        QCOMPARE(answers.seen.filter("FFmpeg Not Found").size(), 1);
    }
};

VM_SHELL_TEST_MAIN(TestShellRun)
#include "tst_shell_run.moc"
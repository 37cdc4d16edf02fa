// Saving finished files: the copying thread on its own, then the window's
// two ways of saving, what goes wrong on the way, and what stays at exit.

#include "repair/RepairState.h"
#include "repair/SavedCopy.h"
#include "repair/WorkFolder.h"
#include "shell_support.h"
#include "support/Fixtures.h"

#include <QCryptographicHash>
#include <QRadioButton>

using fixtures::digest;

namespace {
// Saves the checked rows to `folder` (chosen, then `beforeSave` runs) and
// waits for the message unless told not to. A cancelled folder dialog
// leaves nothing to save to.
void saveTo(TestWindow &w, DialogAnswerer &answers, const QString &folder,
            const std::function<void()> &beforeSave = {}, bool wait = true)
{
    answers.queue([folder, beforeSave](QWidget *d) {
        auto *dlg = qobject_cast<SaveDlgClass *>(d);
        QVERIFY(dlg);
        dlg->customLoc->click();
        dlg->ChooseFolder(folder);
        if (beforeSave)
            beforeSave();
        dlg->Save->click();
    });
    answers.seen.clear();
    w.saveBtn->click();
    if (wait)
        QTRY_VERIFY_WITH_TIMEOUT(!answers.seen.isEmpty() && !w.bSaving && !w.SavingThread().isRunning(), 30000);
}
} // namespace

class TestShellSave : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { pApp.reset(); startup::OpenSettings()->clear(); }

    void threadAlone()
    {
        QTemporaryDir dir;
        QVERIFY(QDir(dir.path()).mkpath("src/other") && QDir(dir.path()).mkpath("dest"));
        // Each source and the name its copy gets.
        const QList<QPair<QString, QString>> names = {
            {"clip.mp4", "clip(1).mp4"}, {"other/clip.mp4", "clip(2).mp4"}, {"a.b.mp4", "a.mp4"},
            {"README", "README"}, {"with blank.mov", "with blank.mov"},
            {QString::fromUtf8("Vidéo 日本.mov"), QString::fromUtf8("Vidéo 日本.mov")}, {"-lead.mov", "-lead.mov"}};
        QStringList files;
        for (int i = 0; i < names.size(); ++i) {
            files << dir.filePath("src/" + names[i].first);
            writeBytes(files.last(), QByteArray(3000 + i * 7, char('0' + i)));
        }
        writeBytes(dir.filePath("dest/clip.mp4"), "the user's own");

        ThreadFileSaving t;
        QStringList events;
        connect(&t, &ThreadFileSaving::ProgressValue, this, [&](unsigned n) { events << QString::number(n); });
        connect(&t, &ThreadFileSaving::ProgressFinish, this, [&] { events << "finish"; });
        QVERIFY(t.StartSaving(files, dir.filePath("dest")));
        QTRY_COMPARE(events, (QStringList{"0", "1", "2", "3", "4", "5", "6", "finish"}));
        QVERIFY(t.Unsaved().isEmpty());

        // Never over a file that is there, the user's own or another copy.
        for (int i = 0; i < files.size(); ++i) {
            QCOMPARE(t.Saved().at(i), dir.filePath("dest/" + names[i].second));
            QCOMPARE(digest(t.Saved().at(i)), digest(files[i]));
        }
        QCOMPARE(digest(dir.filePath("dest/clip.mp4")), QCryptographicHash::hash("the user's own", QCryptographicHash::Sha1));

        // A second list into the same folder goes on counting; a missing
        // source is reported and leaves nothing.
        events.clear();
        QVERIFY(t.StartSaving({files[0], dir.filePath("src/missing.mp4")}, dir.filePath("dest")));
        QTRY_COMPARE(events.size(), 3);
        QCOMPARE(t.Saved(), QStringList{dir.filePath("dest/clip(3).mp4")});
        QCOMPARE(t.Unsaved(), QStringList{dir.filePath("src/missing.mp4")});
        QVERIFY(!QFileInfo::exists(dir.filePath("dest/missing.mp4")));
    }

    void shortWriteLeavesNothing()
    {
        // A real short write: a child whose files may not grow past 8 KB.
        QTemporaryDir dir;
        QDir(dir.path()).mkdir("dest");
        const QString big = dir.filePath("big.mp4");
        writeBytes(big, QByteArray(64 * 1024, 'v'));
        const int status = fixtures::inChildWithFileLimit(8192, [&] {
            ThreadFileSaving t;
            t.StartSaving({big}, dir.filePath("dest"));
            t.wait();
            return t.Unsaved() == QStringList{big} && t.Saved().isEmpty() ? 0 : 1;
        });
        if (status < 0)
            QSKIP("no file size limit here");
        QCOMPARE(status, 0);
        QCOMPARE(entries(dir.filePath("dest")), QStringList());
        QCOMPARE(QFileInfo(big).size(), 64 * 1024);
    }

    void savingByCopy()
    {
        QTemporaryDir dir;
        QDir(dir.path()).mkpath("dest");
        const QStringList sources = makeFiles(dir.filePath("src"), {"a.mov", "b.DAT", "c.RSV", "d.mov"});
        const QString work = dir.filePath("src/Repaired");
        TestWindow w;
        w.show();
        DialogAnswerer answers;
        finishedRun(w, answers, sources);
        const qint64 required = 4096 * 4 + 0 + 1 + 2 + 3;

        // One byte short: refused with both sizes, nothing copied, rows still checked.
        w.freeBytes = required - 1;
        saveTo(w, answers, dir.filePath("dest"));
        QCOMPARE(answers.seen.size(), 2);
        QVERIFY(answers.seen.last().startsWith("Insufficient Space"));
        QCOMPARE(entries(dir.filePath("dest")), QStringList());
        QCOMPARE(w.pRepairList->topLevelItem(0)->checkState(0), Qt::Checked);

        // Exactly enough: the files of the rows, DAT as .mov and RSV as .mp4.
        w.freeBytes = required;
        saveTo(w, answers, dir.filePath("dest"));
        QVERIFY(answers.seen.last().startsWith("Saving Complete"));
        QCOMPARE(entries(dir.filePath("dest")), (QStringList{"a.mov", "b.mov", "c.mp4", "d.mov"}));
        for (const char *n : {"a.mov", "b.mov", "c.mp4", "d.mov"})
            QCOMPARE(digest(dir.filePath(QString("dest/") + n)), digest(work + "/" + n));
        QCOMPARE(w.pRepairList->topLevelItem(0)->checkState(0), Qt::Unchecked);

        // Again, with one result gone behind our back: the rest get (1), the
        // gone one is named and fails.
        w.freeBytes = -1;
        w.OnSelectAllClicked(true);
        QVERIFY(QFile::remove(work + "/d.mov"));
        saveTo(w, answers, dir.filePath("dest"));
        QCOMPARE(answers.seen.last(), QString("Files Not Saved | These files could not be saved:\nd.mov"));
        QCOMPARE(entries(dir.filePath("dest")),
                 (QStringList{"a(1).mov", "a.mov", "b(1).mov", "b.mov", "c(1).mp4", "c.mp4", "d.mov"}));
        QCOMPARE(column(w.pRepairList, 8), (QStringList{"Completed", "Completed", "Completed", "Failed"}));

        // A folder removed after it was chosen, and the work folder itself:
        // refused, nothing copied, the rows still to save.
        w.OnSelectAllClicked(true);
        const QString gone = dir.filePath("gone");
        QDir().mkpath(gone);
        saveTo(w, answers, gone, [gone] { QDir(gone).removeRecursively(); });
        QVERIFY(answers.seen.last().startsWith("Cannot Save Here"));
        QVERIFY(!QFileInfo::exists(gone));
        saveTo(w, answers, work);
        QVERIFY(answers.seen.last().startsWith("Choose Another Folder"));
        QCOMPARE(entries(work), (QStringList{"a.mov", "b.mov", "c.mp4"}));
        QCOMPARE(w.pRepairList->topLevelItem(0)->checkState(0), Qt::Checked);

        // Closing while the copy runs is refused like during a run.
        QSemaphore release;
        std::atomic<bool> held{false};
        holdFirst(&w.SavingThread(), &ThreadFileSaving::ProgressValue, release, held);
        saveTo(w, answers, dir.filePath("dest"), {}, false);
        QTRY_VERIFY(held);
        QVERIFY(!w.close());
        QTRY_COMPARE(answers.seen.size(), 2);
        QVERIFY(answers.seen.last().contains("halt the current process"));
        release.release();
        QTRY_VERIFY(!w.bSaving);

        // Back after a save keeps the work; exit removes what the run made.
        answers.queueButton("YesBtn");
        w.OnBackBtnClicked();
        QVERIFY(QFileInfo::exists(work + "/a.mov"));
        answers.queueButton("YesBtn");
        QVERIFY(w.close());
        QVERIFY(!QFileInfo::exists(work));
        QVERIFY(!workfolder::IsHidden(dir.filePath("src")));
        QCOMPARE(entries(dir.filePath("dest")).size(), 10);
    }

    void savingInPlace()
    {
        QTemporaryDir dir;
        makeFiles(dir.filePath("out/Repaired"), {"mine.txt"});
        writeBytes(dir.filePath("out/.hidden"), "notes\n");
        TestWindow w;
        w.show();
        DialogAnswerer answers;
        w.SetDestPath(dir.filePath("out"));
        finishedRun(w, answers, makeFiles(dir.filePath("src"), {"a.mov", "b.mov", "c.mp4"}));
        QVERIFY(workfolder::IsHidden(dir.filePath("out")));

        // At the chosen location, one row unchecked: nothing moves, the
        // folder shows, the user's other hidden names stay.
        w.pRepairList->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
        answers.queueButton("Save");
        w.saveBtn->click();
        QCOMPARE(answers.seen.size(), 2);
        QVERIFY(answers.seen.last().startsWith("Saving Complete"));
        QCOMPARE(entries(dir.filePath("out/Repaired")), (QStringList{"a.mov", "b.mov", "c.mp4", "mine.txt"}));
        QVERIFY(!workfolder::IsHidden(dir.filePath("out")));
        QCOMPARE(digest(dir.filePath("out/.hidden")), QCryptographicHash::hash("notes\n", QCryptographicHash::Sha1));

        // Back and exit: what was saved in place stays, and so does the user's file.
        answers.queueButton("YesBtn");
        w.OnBackBtnClicked();
        answers.queueButton("YesBtn");
        QVERIFY(w.close());
        QCOMPARE(entries(dir.filePath("out/Repaired")), (QStringList{"a.mov", "b.mov", "c.mp4", "mine.txt"}));
    }
};

VM_SHELL_TEST_MAIN(TestShellSave)
#include "tst_shell_save.moc"
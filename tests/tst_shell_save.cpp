// Saving finished files: the copying thread on its own, then the window's
// two ways of saving, what goes wrong on the way, and what stays at exit.

#include "repair/RepairState.h"
#include "repair/SavedCopy.h"
#include "repair/WorkFolder.h"
#include "SizeText.h"
#include "shell_support.h"

#include <QCryptographicHash>
#include <QRadioButton>
#include <QSemaphore>
#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include "support/Fixtures.h"

using fixtures::digest;

namespace {

QStringList entries(const QString &folder)
{
    QStringList names = QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    names.sort();
    return names;
}

QStringList column(QTreeWidget *list, int c)
{
    QStringList out;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        out << list->topLevelItem(i)->text(c);
    return out;
}

// Save to `folder` (chosen, then `beforeSave` runs) and wait for the message.
void saveTo(TestWindow &w, DialogAnswerer &answers, const QString &folder,
            const std::function<void()> &beforeSave = {}, const DialogAnswerer::Answer &next = {})
{
    answers.queue([folder, beforeSave](QWidget *d) {
        auto *dlg = qobject_cast<SaveDlgClass *>(d);
        QVERIFY(dlg);
        QVERIFY(dlg->defaultLoc->isChecked());
        QVERIFY(!dlg->LocBrowse_Btn->isEnabled());
        dlg->customLoc->click();
        QVERIFY(!dlg->Save->isEnabled());
        dlg->ChooseFolder(QString()); // a cancelled folder dialog
        QVERIFY(!dlg->Save->isEnabled());
        dlg->ChooseFolder(folder);
        if (beforeSave)
            beforeSave();
        dlg->Save->click();
    });
    if (next)
        answers.queue(next);
    answers.seen.clear();
    w.saveBtn->click();
    QTRY_VERIFY_WITH_TIMEOUT(!answers.seen.isEmpty() && !w.bSaving && !w.SavingThread().isRunning(), 30000);
}

void checkAll(TestWindow &w)
{
    for (int i = 0; i < w.pRepairList->topLevelItemCount(); ++i)
        if (w.pRepairList->topLevelItem(i)->flags() & Qt::ItemIsUserCheckable)
            w.pRepairList->topLevelItem(i)->setCheckState(0, Qt::Checked);
    w.saveBtn->setEnabled(true);
}
} // namespace

class TestShellSave : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        pApp.reset();
        startup::OpenSettings()->clear();
    }

    void threadAlone()
    {
        QTemporaryDir dir;
        QDir(dir.path()).mkpath("src/other");
        QDir(dir.path()).mkpath("dest");
        const QStringList names = {"clip.mp4", "other/clip.mp4", "a.b.mp4", "README", "with blank.mov",
                                   QString::fromUtf8("Vidéo 日本.mov"), "-lead.mov"};
        QStringList files;
        for (int i = 0; i < names.size(); ++i) {
            files << dir.filePath("src/" + names[i]);
            writeBytes(files.last(), QByteArray(3000 + i * 7, char('0' + i)));
        }
        writeBytes(dir.filePath("dest/clip.mp4"), "the user's own");

        ThreadFileSaving t;
        QStringList events;
        connect(&t, &ThreadFileSaving::ProgressValue, this, [&](unsigned n) { events << QString::number(n); });
        connect(&t, &ThreadFileSaving::ProgressFinish, this, [&] { events << "finish"; });
        QVERIFY(t.StartSaving(files, dir.filePath("dest")));
        QTRY_COMPARE(events.size(), names.size() + 1);
        QCOMPARE(events, (QStringList{"0", "1", "2", "3", "4", "5", "6", "finish"}));
        QVERIFY(t.Unsaved().isEmpty());

        const QStringList expected = {"clip(1).mp4", "clip(2).mp4", "a.mp4", "README", "with blank.mov",
                                      QString::fromUtf8("Vidéo 日本.mov"), "-lead.mov"};
        for (int i = 0; i < files.size(); ++i) {
            QCOMPARE(t.Saved().at(i), dir.filePath("dest/" + expected[i]));
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
        const pid_t pid = fork();
        QVERIFY(pid >= 0);
        if (pid == 0) {
            std::signal(SIGXFSZ, SIG_IGN);
            rlimit lim{8192, 8192};
            if (setrlimit(RLIMIT_FSIZE, &lim) != 0)
                _exit(3);
            ThreadFileSaving t;
            t.StartSaving({big}, dir.filePath("dest"));
            t.wait();
            _exit(t.Unsaved() == QStringList{big} && t.Saved().isEmpty() ? 0 : 1);
        }
        int status = 0;
        QCOMPARE(waitpid(pid, &status, 0), pid);
        QVERIFY(WIFEXITED(status));
        if (WEXITSTATUS(status) == 3)
            QSKIP("no file size limit here");
        QCOMPARE(WEXITSTATUS(status), 0);
        QCOMPARE(entries(dir.filePath("dest")), QStringList());
        QCOMPARE(QFileInfo(big).size(), 64 * 1024);
    }

    void savingByCopy()
    {
        QTemporaryDir dir;
        QDir(dir.path()).mkpath("src");
        QDir(dir.path()).mkpath("dest");
        QStringList sources;
        for (const char *n : {"a.mov", "b.DAT", "c.RSV", "d.mov"}) {
            sources << dir.filePath(QString("src/") + n);
            writeFile(sources.last(), 100);
        }
        const QString work = dir.filePath("src/Repaired");
        TestWindow w;
        w.show();
        DialogAnswerer answers;
        finishedRun(w, answers, sources);
        QCOMPARE(column(w.pRepairList, 8), (QStringList{"Completed", "Completed", "Completed", "Completed"}));
        const qint64 required = 4096 * 4 + 0 + 1 + 2 + 3;

        // One byte short: the dialog with OK alone, no copy, rows still checked.
        w.freeBytes = required - 1;
        saveTo(w, answers, dir.filePath("dest"), {}, [](QWidget *d) {
            auto *space = qobject_cast<InsufficientSpaceDlg *>(d);
            QVERIFY(space);
            QVERIFY(space->OkBtn->isVisibleTo(space));
            QVERIFY(!space->BrowseBtn->isVisibleTo(space));
            QVERIFY(!space->CancelBtn->isVisibleTo(space));
            space->OkBtn->click();
        });
        QCOMPARE(answers.seen.size(), 2);
        QVERIFY(answers.seen.last().startsWith("Insufficient Space | Insufficient space at selected destination.\n"));
        QVERIFY(answers.seen.last().endsWith(
            QString("Available Space: %1, Required Space: %2\n").arg(FormatBytes(required - 1), FormatBytes(required))));
        QCOMPARE(entries(dir.filePath("dest")), QStringList());
        QVERIFY(w.pRepairList->isEnabled());
        QVERIFY(w.BackBtn->isEnabled());
        QCOMPARE(w.pRepairList->topLevelItem(0)->checkState(0), Qt::Checked);

        // Exactly enough: the files of the rows, DAT as .mov and RSV as .mp4.
        w.freeBytes = required;
        QSignalSpy progress(&w.SavingThread(), &ThreadFileSaving::ProgressValue);
        saveTo(w, answers, dir.filePath("dest"));
        QCOMPARE(answers.seen.last(), QString("Saving Complete | Repaired files saved successfully."));
        QCOMPARE(entries(dir.filePath("dest")), (QStringList{"a.mov", "b.mov", "c.mp4", "d.mov"}));
        for (const char *n : {"a.mov", "b.mov", "c.mp4", "d.mov"})
            QCOMPARE(digest(dir.filePath(QString("dest/") + n)), digest(work + "/" + n));
        QCOMPARE(progress.count(), 4);
        QCOMPARE(w.FileProgress->maximum(), 4);
        QCOMPARE(w.pRepairList->topLevelItem(0)->checkState(0), Qt::Unchecked);
        QVERIFY(!w.saveBtn->isEnabled());
        QVERIFY(w.Select_All->isEnabled());

        // Twice, with one result gone behind our back: the rest get (1), the
        // gone one is named and fails.
        w.freeBytes = -1;
        checkAll(w);
        QVERIFY(QFile::remove(work + "/d.mov"));
        saveTo(w, answers, dir.filePath("dest"));
        QCOMPARE(answers.seen.last(), QString("Files Not Saved | These files could not be saved:\nd.mov"));
        QCOMPARE(entries(dir.filePath("dest")),
                 (QStringList{"a(1).mov", "a.mov", "b(1).mov", "b.mov", "c(1).mp4", "c.mp4", "d.mov"}));
        QCOMPARE(column(w.pRepairList, 8), (QStringList{"Completed", "Completed", "Completed", "Failed"}));

        // A folder removed after it was chosen, and the work folder itself:
        // refused with a message, nothing copied, the rows still to save.
        checkAll(w);
        const QString gone = dir.filePath("gone");
        QDir().mkpath(gone);
        saveTo(w, answers, gone, [gone] { QDir(gone).removeRecursively(); });
        QVERIFY(answers.seen.last().startsWith("Cannot Save Here | "));
        QVERIFY(!QFileInfo::exists(gone));
        saveTo(w, answers, work);
        QVERIFY(answers.seen.last().startsWith("Choose Another Folder | "));
        QCOMPARE(entries(work), (QStringList{"a.mov", "b.mov", "c.mp4"}));
        QCOMPARE(w.pRepairList->topLevelItem(0)->checkState(0), Qt::Checked);
        QVERIFY(w.pRepairList->isEnabled());

        // Closing while the copy runs is refused like during a run.
        QSemaphore release;
        bool held = false;
        auto hold = connect(&w.SavingThread(), &ThreadFileSaving::ProgressValue, &w.SavingThread(),
                            [&](unsigned) {
                                if (!held) {
                                    held = true;
                                    release.acquire();
                                }
                            },
                            Qt::DirectConnection);
        answers.queue([&](QWidget *d) {
            qobject_cast<SaveDlgClass *>(d)->customLoc->click();
            qobject_cast<SaveDlgClass *>(d)->ChooseFolder(dir.filePath("dest"));
            qobject_cast<SaveDlgClass *>(d)->Save->click();
        });
        answers.seen.clear();
        w.saveBtn->click();
        QTRY_VERIFY(held);
        QVERIFY(!w.close());
        QTRY_COMPARE(answers.seen.size(), 2);
        QCOMPARE(answers.seen.last(), QString("Exit | Application Running! \nPlease halt the current process to Exit."));
        release.release();
        QTRY_VERIFY(!w.bSaving);
        disconnect(hold);

        // Back after a save keeps the work; exit removes what the run made.
        answers.queueButton("YesBtn");
        w.OnBackBtnClicked();
        QVERIFY(w.AddFile_frame->isVisibleTo(&w));
        QVERIFY(QFileInfo::exists(work + "/a.mov"));
        answers.queueButton("YesBtn");
        QVERIFY(w.close());
        QVERIFY(!QFileInfo::exists(work));
        QVERIFY(!workfolder::IsHidden(dir.filePath("src")));
        QCOMPARE(entries(dir.filePath("dest")).size(), 10);
    }

    void savingInPlaceAndChosenLocation()
    {
        QTemporaryDir dir;
        QDir(dir.path()).mkpath("src");
        QDir(dir.path()).mkpath("out/Repaired");
        writeBytes(dir.filePath("out/Repaired/mine.txt"), "the user's");
        writeBytes(dir.filePath("out/.hidden"), "notes\n");
        QStringList sources;
        for (const char *n : {"a.mov", "b.mov", "c.mp4"}) {
            sources << dir.filePath(QString("src/") + n);
            writeFile(sources.last(), 100);
        }
        TestWindow w;
        w.show();
        DialogAnswerer answers;
        w.SetDestPath(dir.filePath("out"));
        finishedRun(w, answers, sources);
        QVERIFY(workfolder::IsHidden(dir.filePath("out")));

        // At the source location with one row unchecked: nothing moves, the
        // folder shows, the user's other hidden names stay.
        w.pRepairList->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
        answers.queue([](QWidget *d) {
            auto *dlg = qobject_cast<SaveDlgClass *>(d);
            QVERIFY(dlg);
            QCOMPARE(dlg->size(), QSize(494, 177));
            dlg->Save->click();
        });
        w.saveBtn->click();
        QCOMPARE(answers.seen, (QStringList{"SaveDlgClass", "Saving Complete | Repaired files saved successfully."}));
        QVERIFY(w.bKeepWorkFolder);
        QCOMPARE(entries(dir.filePath("out/Repaired")), (QStringList{"a.mov", "b.mov", "c.mp4", "mine.txt"}));
        QVERIFY(!workfolder::IsHidden(dir.filePath("out")));
        QFile hidden(dir.filePath("out/.hidden"));
        QVERIFY(hidden.open(QIODevice::ReadOnly));
        QCOMPARE(hidden.readAll(), QByteArray("notes\n"));
        QVERIFY(!w.saveBtn->isEnabled());

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

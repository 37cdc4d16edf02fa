// The add page: which paths become rows, duplicates, check marks and
// removal; the size texts; and what Back and closing ask in each state.

#include "SizeText.h"
#include "repair/RepairState.h"
#include "shell_support.h"

#include <QDir>
#include <sys/stat.h>
#include <unistd.h>

class TestShellAddPage : public QObject
{
    Q_OBJECT

    enum State { AddPage, Waiting, AllRepaired, Running };

private Q_SLOTS:
    void init() { pApp.reset(); startup::OpenSettings()->clear(); }

    void sizeTexts()
    {
        // Megabytes cut (not rounded) to two places, never in exponent form;
        // other sizes in their unit; sizes past 32 bits.
        const struct { bool inMb; qint64 bytes; const char *text; } rows[] = {
            {true, 0, "0"}, {true, 50, "0.00"}, {true, 524288, "0.5"}, {true, 1234567, "1.17"},
            {true, 5368709120LL + 1, "5120"}, {false, -5, "0 KB"}, {false, 0, "0 bytes"}, {false, 1536, "1.50 KB"},
            {false, 5368709120LL, "5.00 GB"},
        };
        for (const auto &r : rows)
            QCOMPARE(r.inMb ? FormatSizeMb(quint64(r.bytes)) : FormatBytes(r.bytes), QString(r.text));
    }

    void rowsDuplicatesAndRemoval()
    {
        QTemporaryDir dir;
        const QString clip = makeFiles(dir.path(), {"clip.mov"}, 3 * 1048576 + 5).first();
        // CLIP.mov is another file on Linux; .Mov is a suffix spelling outside the list.
        makeFiles(dir.path(), {"CLIP.mov", "zero.mp4", "clip.Mov"}, 0);
        QVERIFY(QDir(dir.path()).mkdir("folder.mov"));
        QVERIFY(QFile::link(clip, dir.filePath("link.mov")));
        QCOMPARE(::mkfifo(QFile::encodeName(dir.filePath("pipe.mp4")).constData(), 0600), 0);

        TestWindow w;
        DialogAnswerer answers;
        w.AddFiles({clip, dir.filePath("CLIP.mov"), dir.filePath("zero.mp4"), dir.filePath("clip.Mov"),
                    dir.filePath("folder.mov"), dir.filePath("missing.mov"), dir.filePath("pipe.mp4")});
        QCOMPARE(column(w.pFileList, 0), (QStringList{"clip.mov", "CLIP.mov", "zero.mp4"}));
        QVERIFY(answers.seen.isEmpty());
        QTreeWidgetItem *row = w.pFileList->topLevelItem(0);
        QCOMPARE(row->text(1), clip);
        QCOMPARE(row->text(2), QString("3.00"));
        QCOMPARE(row->text(5), QString::number(3 * 1048576 + 5));
        QCOMPARE(w.SelectAllBtn->checkState(), Qt::Checked);

        // The same file again, also under other spellings: skipped, one message for the lot.
        const QString cwd = QDir::currentPath();
        QDir::setCurrent(dir.path());
        w.AddFiles({clip, "clip.mov", "./clip.mov", dir.filePath("link.mov")});
        QDir::setCurrent(cwd);
        QCOMPARE(answers.seen.size(), 1);
        QVERIFY(answers.seen.first().startsWith("Already added files"));
        QCOMPARE(w.pFileList->topLevelItemCount(), 3);

        // Unreadable is still a file: a row, which the run will judge.
        if (::geteuid() != 0) {
            const QString locked = makeFiles(dir.path(), {"locked.mts"}).first();
            QFile::setPermissions(locked, QFileDevice::WriteOwner);
            w.AddFiles({locked});
            QCOMPARE(w.pFileList->topLevelItemCount(), 4);
        }

        // The select-all box follows the rows; with none checked there is
        // nothing to repair, and Space checks nothing.
        QTreeWidgetItem *second = w.pFileList->topLevelItem(1);
        second->setCheckState(0, Qt::Unchecked);
        w.OnItemClicked(second, 0);
        QCOMPARE(w.SelectAllBtn->checkState(), Qt::PartiallyChecked);
        w.OnCheckBoxbtnClicked(false);
        QVERIFY(!w.RepairBtn->isEnabled());

        // Only the checked rows go; ids are never reused.
        w.OnCheckBoxbtnClicked(true);
        row->setCheckState(0, Qt::Unchecked);
        w.OnRemoveMOVFile();
        QCOMPARE(column(w.pFileList, 0), QStringList{"clip.mov"});
        QCOMPARE(w.SelectAllBtn->checkState(), Qt::Unchecked);
        const quint32 next = w.nNextFileId;
        QVERIFY(next >= 5);
        w.AddFiles({dir.filePath("zero.mp4")});
        QCOMPARE(w.pFileList->topLevelItem(1)->text(3), QString::number(next));
    }

    void backAndClose()
    {
        // The state, Back or closing the window, the answer, words of the
        // question, and whether the page or the program is left.
        const QString exit = "sure you want to exit", advance = "advance repair", clear = "clear repair results";
        const struct { State state; bool back; const char *answer; QString asked; bool leaves; } rows[] = {
            {AddPage, false, "NoBtn", exit, false},        {AddPage, false, "YesBtn", exit, true},
            {Waiting, false, "YesBtn", advance, false},    {Waiting, false, "NoBtn", advance, true},
            {Waiting, true, "YesBtn", advance, false},     {Waiting, true, "NoBtn", advance, true},
            {AllRepaired, true, "NoBtn", clear, false},    {AllRepaired, true, "YesBtn", clear, true},
            {AllRepaired, false, "YesBtn", exit, true},    {Running, false, "", "halt the current process", false},
        };
        for (const auto &r : rows) {
            init();
            QTemporaryDir dir;
            TestWindow w;
            w.show();
            DialogAnswerer answers;
            w.AddFiles(makeFiles(dir.path(), {"a.mov", "b.mov"}));
            if (r.state == Waiting || r.state == AllRepaired) {
                w.OnRepairMOVFiles();
                QVERIFY(!w.BackBtn->isEnabled());
                ThreadVideoRepair &t = w.RepairThread();
                for (const char *n : {"a.mov", "b.mov"}) {
                    Q_EMIT t.WriteProcessingStatus(n);
                    Q_EMIT t.WriteStatus(r.state == AllRepaired || QByteArray(n) == "a.mov", false, n, true);
                }
                Q_EMIT t.RepairFinish();
                QVERIFY(w.BackBtn->isEnabled());
                QVERIFY(answers.seen.takeFirst().startsWith("Repair Complete"));
            }
            pApp.bRepairRunning = r.state == Running;
            if (*r.answer)
                answers.queueButton(r.answer);
            if (r.back) {
                w.OnBackBtnClicked();
                QCOMPARE(!pApp.bOnResultsPage, r.leaves);
                QCOMPARE(w.pRepairList->topLevelItemCount(), r.leaves ? 0 : 2);
                QCOMPARE(w.pFileList->topLevelItemCount(), 2);
            } else {
                QCOMPARE(w.close(), r.leaves);
            }
            pApp.bRepairRunning = false;
            QCOMPARE(answers.seen.size(), 1);
            QVERIFY2(answers.seen.first().contains(r.asked), qPrintable(answers.seen.first()));
        }
    }
};

VM_SHELL_TEST_MAIN(TestShellAddPage)
#include "tst_shell_addpage.moc"
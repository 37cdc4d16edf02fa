// The add page: what a row holds, which paths become rows, the check marks;
// the size texts; and the questions of Back and of closing, by state.

#include "SizeText.h"
#include "repair/RepairState.h"
#include "shell_support.h"

#include <QDir>
#include <QHeaderView>
#include <sys/stat.h>
#include <unistd.h>

class TestShellAddPage : public QObject
{
    Q_OBJECT

    static QStringList names(QTreeWidget *list)
    {
        QStringList out;
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            out << list->topLevelItem(i)->text(0);
        return out;
    }

private Q_SLOTS:
    void init()
    {
        pApp.reset();
        startup::OpenSettings()->clear();
    }

    void sizeTexts()
    {
        const struct { quint64 bytes; const char *text; } mb[] = {
            {0, "0"},
            {50, "0.00"},           // 'g' would write 4.7683716e-05
            {1000, "0.00"},
            {10486, "0.01"},
            {524288, "0.5"},
            {1048576, "1"},
            {1234567, "1.17"},      // cut, not rounded
            {3221225472ULL, "3072"},
            {5368709120ULL + 1, "5120"},
        };
        for (const auto &r : mb)
            QCOMPARE(FormatSizeMb(r.bytes), QString(r.text));

        const struct { qint64 bytes; const char *text; } b[] = {
            {-5, "0 KB"},
            {0, "0 bytes"},
            {512, "512 bytes"},
            {1023, "1023 bytes"},
            {1024, "1.00 KB"},
            {1536, "1.50 KB"},
            {1048576, "1.00 MB"},
            {1073741824, "1.00 GB"},
            {5368709120LL, "5.00 GB"},
        };
        for (const auto &r : b)
            QCOMPARE(FormatBytes(r.bytes), QString(r.text));
    }

    void rowsAndWhichPathsBecomeRows()
    {
        QTemporaryDir dir;
        const QString clip = dir.filePath("clip.mov");
        writeFile(clip, 3 * 1048576 + 5);
        writeFile(dir.filePath("CLIP.mov"), 10);       // another file on Linux
        writeFile(dir.filePath("zero.mp4"), 0);
        writeFile(dir.filePath("clip.Mov"), 10);       // a suffix spelling outside the list
        QVERIFY(QDir(dir.path()).mkdir("folder.mov"));
        QVERIFY(QFile::link(clip, dir.filePath("link.mov")));
        QCOMPARE(::mkfifo(QFile::encodeName(dir.filePath("pipe.mp4")).constData(), 0600), 0);

        TestWindow w;
        DialogAnswerer answers;
        QVERIFY(w.add_filebtn->isVisibleTo(&w));
        QVERIFY(!w.pFileList->isVisibleTo(&w));

        w.AddFiles({clip, dir.filePath("CLIP.mov"), dir.filePath("zero.mp4"), dir.filePath("clip.Mov"),
                    dir.filePath("folder.mov"), dir.filePath("missing.mov"), dir.filePath("pipe.mp4")});
        QCOMPARE(names(w.pFileList), (QStringList{"clip.mov", "CLIP.mov", "zero.mp4"}));
        QVERIFY(answers.seen.isEmpty());

        // Every column, shown and hidden.
        QTreeWidgetItem *row = w.pFileList->topLevelItem(0);
        QCOMPARE(w.pFileList->columnCount(), 9);
        QCOMPARE(row->checkState(0), Qt::Checked);
        QCOMPARE(row->text(1), clip);
        QCOMPARE(row->text(2), QString("3.00"));
        QCOMPARE(row->textAlignment(2), 134);
        QCOMPARE(row->text(3), QString("2"));
        QCOMPARE(row->text(4), QString("1"));
        QCOMPARE(row->text(5), QString::number(3 * 1048576 + 5));
        QCOMPARE(row->text(6), clip);
        QCOMPARE(row->text(7), QFileInfo(clip).lastModified().toString("ddd MMM dd yyyy hh:mm:ss"));
        QVERIFY(!row->text(8).isEmpty());
        for (int c = 0; c < 9; ++c)
            QCOMPARE(w.pFileList->isColumnHidden(c), c >= 3 && c <= 6);
        QCOMPARE(w.pFileList->headerItem()->text(2), QString(" Size (MB)"));
        QCOMPARE(w.pFileList->topLevelItem(2)->text(2), QString("0"));
        QCOMPARE(w.pFileList->topLevelItem(2)->text(3), QString("4"));
        QCOMPARE(w.pFileList->geometry(), QRect(22, 200, 805, 245));

        // The List state.
        QVERIFY(!w.add_filebtn->isVisibleTo(&w));
        QVERIFY(!w.pushButton->isVisibleTo(&w));
        QVERIFY(!w.label_5->isVisibleTo(&w));
        for (QWidget *shown : std::initializer_list<QWidget *>{w.pFileList, w.AddFileBtn, w.RemoveBtn, w.RepairBtn,
                                                               w.SelectAllBtn, w.label_6, w.label_7})
            QVERIFY2(shown->isVisibleTo(&w), qPrintable(shown->objectName()));
        QVERIFY(w.RepairBtn->isEnabled());
        QCOMPARE(w.MainString_labl->text(), QString("Repaired files will be saved at the source file location."));

        // The same file again, also under other spellings: one message for the lot.
        const QString cwd = QDir::currentPath();
        QDir::setCurrent(dir.path());
        w.AddFiles({clip, "clip.mov", "./clip.mov", dir.filePath("link.mov")});
        QDir::setCurrent(cwd);
        QCOMPARE(answers.seen, QStringList{"Already added files | Files already added to list will be skipped."});
        QCOMPARE(w.pFileList->topLevelItemCount(), 3);

        // Unreadable is still a file: a row, which the run will judge.
        if (::geteuid() != 0) {
            const QString locked = dir.filePath("locked.mts");
            writeFile(locked, 100);
            QFile::setPermissions(locked, QFileDevice::WriteOwner);
            w.AddFiles({locked});
            QCOMPARE(w.pFileList->topLevelItemCount(), 4);
        }

        // Removing everything keeps the list on screen; numbering goes on.
        w.OnCheckBoxbtnClicked(true);
        w.OnRemoveMOVFile();
        QCOMPARE(w.pFileList->topLevelItemCount(), 0);
        QVERIFY(w.pFileList->isVisibleTo(&w));
        QVERIFY(!w.SelectAllBtn->isEnabled());
        QVERIFY(!w.RepairBtn->isEnabled());
        QVERIFY(!w.RemoveBtn->isEnabled());
        const quint32 next = w.nNextFileId;
        w.AddFiles({dir.filePath("zero.mp4")});
        QCOMPARE(w.pFileList->topLevelItem(0)->text(3), QString::number(next));
        QVERIFY(next >= 5);
    }

    void checkMarksAndSpace()
    {
        QTemporaryDir dir;
        QStringList files;
        for (const char *n : {"a.mp4", "b.MTS", "c.avi"}) {
            writeFile(dir.filePath(n), 10);
            files << dir.filePath(n);
        }
        TestWindow w;
        w.AddFiles(files);
        QCOMPARE(w.SelectAllBtn->checkState(), Qt::Checked);

        QTreeWidgetItem *b = w.pFileList->topLevelItem(1);
        b->setCheckState(0, Qt::Unchecked);
        w.OnItemClicked(b, 0);
        QCOMPARE(w.SelectAllBtn->checkState(), Qt::PartiallyChecked);
        QVERIFY(w.RepairBtn->isEnabled());

        w.OnCheckBoxbtnClicked(false);
        QCOMPARE(w.SelectAllBtn->checkState(), Qt::Unchecked);
        QVERIFY(!w.RepairBtn->isEnabled());
        QVERIFY(!w.RemoveBtn->isEnabled());
        w.OnItemClicked(b, 0);
        QCOMPARE(w.SelectAllBtn->checkState(), Qt::Unchecked);

        // Space toggles nothing in either list.
        w.pFileList->setCurrentItem(b);
        QTest::keyClick(w.pFileList, Qt::Key_Space);
        QCOMPARE(b->checkState(0), Qt::Unchecked);
        w.OnCheckBoxbtnClicked(true);
        w.OnRepairMOVFiles();
        QTreeWidgetItem *r = w.pRepairList->topLevelItem(0);
        w.pRepairList->setEnabled(true);
        w.pRepairList->setCurrentItem(r);
        QTest::keyClick(w.pRepairList, Qt::Key_Space);
        QCOMPARE(r->checkState(0), Qt::Checked);

        // Removing only the checked rows.
        DialogAnswerer answers;
        answers.queueButton("YesBtn");
        w.OnBackBtnClicked();
        QVERIFY(w.AddFile_frame->isVisibleTo(&w));
        w.pFileList->topLevelItem(0)->setCheckState(0, Qt::Unchecked);
        w.OnRemoveMOVFile();
        QCOMPARE(names(w.pFileList), QStringList{"a.mp4"});
        QVERIFY(!w.RepairBtn->isEnabled());
        QCOMPARE(w.SelectAllBtn->checkState(), Qt::Unchecked);
    }

    void backAndCloseAskByState()
    {
        QTemporaryDir dir;
        writeFile(dir.filePath("a.mov"), 10);
        writeFile(dir.filePath("b.mov"), 10);
        TestWindow w;
        w.show();
        DialogAnswerer answers;

        // Add page: the plain question; No keeps the window.
        answers.queueButton("NoBtn");
        QVERIFY(!w.close());
        QCOMPARE(answers.seen.takeFirst(), QString("Exit | Are you sure you want to exit?"));
        QVERIFY(w.isVisible());

        w.AddFiles({dir.filePath("a.mov"), dir.filePath("b.mov")});
        w.OnRepairMOVFiles();
        QVERIFY(w.frame_2->isVisibleTo(&w));
        QVERIFY(!w.BackBtn->isEnabled());
        QVERIFY(!w.pRepairList->isEnabled());
        QVERIFY(!w.saveBtn->isVisibleTo(&w));
        QVERIFY(!w.UpdateBtn_1->isEnabled());
        QCOMPARE(w.pRepairList->topLevelItem(0)->text(1), dir.filePath("Repaired/a.mov"));

        // One repaired, one waiting for a sample.
        ThreadVideoRepair &t = w.RepairThread();
        Q_EMIT t.WriteProcessingStatus("a.mov");
        Q_EMIT t.WriteStatus(true, false, "a.mov", true);
        Q_EMIT t.WriteProcessingStatus("b.mov");
        Q_EMIT t.WriteStatus(false, false, "b.mov", false);
        Q_EMIT t.RepairFinish();
        QCOMPARE(answers.seen.takeFirst(), QString("Repair Complete | Repair process completed.\nCheck 'Status' "
                                                   "column to view the repair outcome."));
        QVERIFY(w.BackBtn->isEnabled());

        // Closing with a waiting row asks about advance repair; Yes stays.
        answers.queueButton("YesBtn");
        QVERIFY(!w.close());
        QCOMPARE(answers.seen.takeFirst(), QString("Exit | Do you want to run advance repair on the severely "
                                                   "corrupted files before exiting?"));
        // Back asks the same way; Yes stays on the page.
        answers.queueButton("YesBtn");
        w.OnBackBtnClicked();
        QCOMPARE(answers.seen.takeFirst(), QString("Back | Do you want to run advance repair on the severely "
                                                   "corrupted video before leaving this page?"));
        QVERIFY(w.frame_2->isVisibleTo(&w));
        answers.queueButton("NoBtn");
        w.OnBackBtnClicked();
        QVERIFY(w.AddFile_frame->isVisibleTo(&w));
        QVERIFY(!w.frame_2->isVisibleTo(&w));
        QCOMPARE(w.pRepairList->topLevelItemCount(), 0);
        QCOMPARE(w.pFileList->topLevelItemCount(), 2);
        QVERIFY(!pApp.bOnResultsPage);

        // Results without a waiting row: Back asks to clear; closing asks the plain question.
        w.OnRepairMOVFiles();
        Q_EMIT t.WriteProcessingStatus("a.mov");
        Q_EMIT t.WriteStatus(true, false, "a.mov", true);
        Q_EMIT t.WriteProcessingStatus("b.mov");
        Q_EMIT t.WriteStatus(true, false, "b.mov", true);
        Q_EMIT t.RepairFinish();
        answers.seen.clear();
        answers.queueButton("NoBtn");
        w.OnBackBtnClicked();
        QCOMPARE(answers.seen.takeFirst(), QString("Back | This action will clear repair results.\nDo you want to "
                                                   "go back to previous screen?"));
        QVERIFY(w.frame_2->isVisibleTo(&w));
        answers.queueButton("YesBtn");
        QVERIFY(w.close());
        QCOMPARE(answers.seen.takeFirst(), QString("Exit | Are you sure you want to exit?"));
    }

    void closingDuringARunIsRefused()
    {
        TestWindow w;
        w.show();
        DialogAnswerer answers;
        pApp.bRepairRunning = true;
        QVERIFY(!w.close());
        pApp.bRepairRunning = false;
        QCOMPARE(answers.seen, QStringList{"Exit | Application Running! \nPlease halt the current process to Exit."});
        QVERIFY(w.isVisible());
    }
};

VM_SHELL_TEST_MAIN(TestShellAddPage)
#include "tst_shell_addpage.moc"

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

    void sizeTexts_data()
    {
        QTest::addColumn<bool>("inMb");
        QTest::addColumn<qint64>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("mb zero") << true << qint64(0) << "0";
        QTest::newRow("mb tiny, not exponent") << true << qint64(50) << "0.00";
        QTest::newRow("mb hundredth") << true << qint64(10486) << "0.01";
        QTest::newRow("mb half") << true << qint64(524288) << "0.5";
        QTest::newRow("mb cut, not rounded") << true << qint64(1234567) << "1.17";
        QTest::newRow("mb past 32 bits") << true << qint64(5368709120LL + 1) << "5120";
        QTest::newRow("negative") << false << qint64(-5) << "0 KB";
        QTest::newRow("zero") << false << qint64(0) << "0 bytes";
        QTest::newRow("one KB") << false << qint64(1024) << "1.00 KB";
        QTest::newRow("KB fraction") << false << qint64(1536) << "1.50 KB";
        QTest::newRow("past 32 bits") << false << qint64(5368709120LL) << "5.00 GB";
    }
    void sizeTexts()
    {
        QFETCH(bool, inMb);
        QFETCH(qint64, bytes);
        QFETCH(QString, text);
        QCOMPARE(inMb ? FormatSizeMb(quint64(bytes)) : FormatBytes(bytes), text);
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
        QVERIFY(w.RepairBtn->isEnabled());
        w.OnCheckBoxbtnClicked(false);
        QVERIFY(!w.RepairBtn->isEnabled());
        QVERIFY(!w.RemoveBtn->isEnabled());
        w.pFileList->setCurrentItem(second);
        QTest::keyClick(w.pFileList, Qt::Key_Space);
        QCOMPARE(second->checkState(0), Qt::Unchecked);

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

    void backAndClose_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<bool>("back");     // else close the window
        QTest::addColumn<QString>("answer");
        QTest::addColumn<QString>("asked"); // words of the question
        QTest::addColumn<bool>("leaves");
        const QString exit = "sure you want to exit", advance = "advance repair", clear = "clear repair results";
        QTest::newRow("close, add page, no") << int(AddPage) << false << "NoBtn" << exit << false;
        QTest::newRow("close, add page, yes") << int(AddPage) << false << "YesBtn" << exit << true;
        QTest::newRow("close, waiting, yes stays") << int(Waiting) << false << "YesBtn" << advance << false;
        QTest::newRow("close, waiting, no exits") << int(Waiting) << false << "NoBtn" << advance << true;
        QTest::newRow("back, waiting, yes stays") << int(Waiting) << true << "YesBtn" << advance << false;
        QTest::newRow("back, waiting, no leaves") << int(Waiting) << true << "NoBtn" << advance << true;
        QTest::newRow("back, repaired, no stays") << int(AllRepaired) << true << "NoBtn" << clear << false;
        QTest::newRow("back, repaired, yes leaves") << int(AllRepaired) << true << "YesBtn" << clear << true;
        QTest::newRow("close, repaired") << int(AllRepaired) << false << "YesBtn" << exit << true;
        QTest::newRow("close, running") << int(Running) << false << "" << "halt the current process" << false;
    }
    void backAndClose()
    {
        QFETCH(int, state);
        QFETCH(bool, back);
        QFETCH(QString, answer);
        QFETCH(QString, asked);
        QFETCH(bool, leaves);
        QTemporaryDir dir;
        TestWindow w;
        w.show();
        DialogAnswerer answers;
        w.AddFiles(makeFiles(dir.path(), {"a.mov", "b.mov"}));
        if (state == Waiting || state == AllRepaired) {
            w.OnRepairMOVFiles();
            QVERIFY(!w.BackBtn->isEnabled());
            ThreadVideoRepair &t = w.RepairThread();
            for (const char *n : {"a.mov", "b.mov"}) {
                Q_EMIT t.WriteProcessingStatus(n);
                Q_EMIT t.WriteStatus(state == AllRepaired || QByteArray(n) == "a.mov", false, n, true);
            }
            Q_EMIT t.RepairFinish();
            QVERIFY(w.BackBtn->isEnabled());
            QVERIFY(answers.seen.takeFirst().startsWith("Repair Complete"));
        }
        pApp.bRepairRunning = state == Running;
        if (!answer.isEmpty())
            answers.queueButton(answer);
        if (back) {
            w.OnBackBtnClicked();
            QCOMPARE(!pApp.bOnResultsPage, leaves);
            QCOMPARE(w.pRepairList->topLevelItemCount(), leaves ? 0 : 2);
            QCOMPARE(w.pFileList->topLevelItemCount(), 2);
        } else {
            QCOMPARE(w.close(), leaves);
        }
        pApp.bRepairRunning = false;
        QCOMPARE(answers.seen.size(), 1);
        QVERIFY2(answers.seen.first().contains(asked), qPrintable(answers.seen.first()));
    }
};

VM_SHELL_TEST_MAIN(TestShellAddPage)
#include "tst_shell_addpage.moc"
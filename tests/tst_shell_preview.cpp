// Preview through an outside player: which player, which arguments, one at
// a time, and what the user hears when there is none or the file is gone.

#include "repair/RepairState.h"
#include "shell_support.h"

#include <csignal>

namespace {
// A stand-in player: writes its name and arguments, then waits to be stopped.
void writePlayer(const QString &path, const QString &record)
{
    writeBytes(path, QString("#!/bin/sh\nprintf '%s|' \"$0\" \"$@\" >> '%1'\necho >> '%1'\nexec /bin/sleep 30\n")
                         .arg(record)
                         .toUtf8());
    QFile::setPermissions(path, QFile::permissions(path) | QFile::ExeOwner);
}

QStringList recorded(const QString &record)
{
    QFile f(record);
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()).split('\n', Qt::SkipEmptyParts) : QStringList();
}
} // namespace

class TestShellPreview : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { pApp.reset(); startup::OpenSettings()->clear(); }

    void playerAndArguments()
    {
        QTemporaryDir dir;
        QVERIFY(QDir(dir.path()).mkpath("app") && QDir(dir.path()).mkpath("bin"));
        const QString record = dir.filePath("record.txt");
        const QString appDir = shellApp.strAppDir;
        const QByteArray path = qgetenv("PATH");
        shellApp.strAppDir = dir.filePath("app");
        qputenv("PATH", dir.filePath("bin").toUtf8());
        writePlayer(dir.filePath("bin/mplayer"), record);

        TestWindow w;
        w.show();
        DialogAnswerer answers;
        finishedRun(w, answers, makeFiles(dir.filePath("src"), {"a.mov", "b.DAT"}));
        const QString work = dir.filePath("src/Repaired");
        auto stopPlayer = [&] { w.pPlayerProcess->kill(), w.pPlayerProcess->waitForFinished(5000); };

        // From PATH; a second click while it plays starts nothing.
        Q_EMIT w.lstRowButtons.at(1)->pButton->MousePressed(1);
        QTRY_COMPARE(recorded(record).size(), 1);
        Q_EMIT w.lstRowButtons.at(0)->pButton->MousePressed(0);
        w.OnDoubleClicked(w.pRepairList->topLevelItem(0), 1);
        QTest::qWait(300);
        QCOMPARE(recorded(record), QStringList{dir.filePath("bin/mplayer") + "|-nofs|1|" + work + "/b.mov|"});

        stopPlayer();
        // A double click hands over the cell's text as it stands.
        w.OnDoubleClicked(w.pRepairList->topLevelItem(1), 1);
        QTRY_COMPARE(recorded(record).size(), 2);
        QCOMPARE(recorded(record).last(), dir.filePath("bin/mplayer") + "|-vfm|1|" + work + "/b.DAT|");
        stopPlayer();

        // The application folder's player wins over PATH.
        writePlayer(dir.filePath("app/mplayer"), record);
        Q_EMIT w.lstRowButtons.at(0)->pButton->MousePressed(0);
        QTRY_COMPARE(recorded(record).size(), 3);
        QCOMPARE(recorded(record).last(), dir.filePath("app/mplayer") + "|-nofs|1|" + work + "/a.mov|");
        stopPlayer();
        QVERIFY(answers.seen.isEmpty());

        // A result deleted behind our back: said so, no player.
        QVERIFY(QFile::remove(work + "/a.mov"));
        Q_EMIT w.lstRowButtons.at(0)->pButton->MousePressed(0);
        QCOMPARE(answers.seen.size(), 1);
        QVERIFY(answers.seen.first().startsWith("File Not Found"));
        QCOMPARE(recorded(record).size(), 3);

        // No player at all, or one that can't start: how to install it.
        QFile::remove(dir.filePath("app/mplayer"));
        qputenv("PATH", "");
        answers.seen.clear();
        Q_EMIT w.lstRowButtons.at(1)->pButton->MousePressed(1);
        QCOMPARE(answers.seen.filter("Player Not Found").size(), 1);
        writeBytes(dir.filePath("app/mplayer"), "#!/nonexistent/interpreter\n");
        QFile::setPermissions(dir.filePath("app/mplayer"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        w.OnDoubleClicked(w.pRepairList->topLevelItem(1), 1);
        QCOMPARE(answers.seen.filter("Player Not Found").size(), 2);
        QCOMPARE(recorded(record).size(), 3);

        // Exit stops a player that still runs.
        writePlayer(dir.filePath("app/mplayer"), record);
        Q_EMIT w.lstRowButtons.at(1)->pButton->MousePressed(1);
        QTRY_COMPARE(recorded(record).size(), 4);
        const qint64 pid = w.pPlayerProcess->processId();
        QVERIFY(pid > 0);
        answers.queueButton("YesBtn");
        QVERIFY(w.close());
        QCOMPARE(w.pPlayerProcess->state(), QProcess::NotRunning);
        QVERIFY(::kill(pid_t(pid), 0) != 0);

        qputenv("PATH", path);
        shellApp.strAppDir = appDir;
    }
};

VM_SHELL_TEST_MAIN(TestShellPreview)
#include "tst_shell_preview.moc"

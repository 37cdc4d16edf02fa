// Whole runs of the worker thread: the signals the window relies on, the work
// folder, the stop, and that the user's files are never changed.

#include "repair/ThreadVideoRepair.h"
#include "repair/WorkFolder.h"
#include "support/MediaCompare.h"
#include "support/MovBuilder.h"

#include <QCryptographicHash>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using fixtures::digest;

namespace {
struct Verdict
{
    QString name;
    bool repaired;
    quint32 code;
    bool viaAviStatus;
};
} // namespace

class TestRepairRun : public QObject
{
    Q_OBJECT
    QTemporaryDir m_dir;

    QString copy(const QString &src, const QString &name)
    {
        const QString dst = m_dir.filePath(name);
        QFile::remove(dst);
        return QFile::copy(src, dst) ? dst : QString();
    }

    // Runs the thread to its end and collects the verdicts with the format
    // code each file had when it was given.
    static QList<Verdict> run(ThreadVideoRepair &t, const QStringList &files, bool sampleRun = false,
                              const QString &sample = QString())
    {
        QList<Verdict> out;
        auto c1 = QObject::connect(&t, &ThreadVideoRepair::WriteStatus, &t,
                                   [&](bool a, bool b, const QString &n, bool) {
                                       out << Verdict{n, a || b, pApp.nFormatCode, false};
                                   }, Qt::DirectConnection);
        auto c2 = QObject::connect(&t, &ThreadVideoRepair::WriteAVIFileStatus, &t,
                                   [&](bool b, const QString &n) { out << Verdict{n, b, pApp.nFormatCode, true}; },
                                   Qt::DirectConnection);
        pApp.bSampleRun = sampleRun;
        t.SetSampleFile(sample);
        t.StartRepair(files, true);
        t.wait();
        QObject::disconnect(c1);
        QObject::disconnect(c2);
        return out;
    }

private Q_SLOTS:
    void init() { pApp.reset(); }

    void emptyListOpensAndFinishes()
    {
        ThreadVideoRepair t;
        QSignalSpy finish(&t, &ThreadVideoRepair::RepairFinish);
        QSignalSpy aborted(&t, &ThreadVideoRepair::ProcessAborted);
        run(t, {});
        QVERIFY(finish.count() == 1 && aborted.isEmpty() && !pApp.bRepairRunning);
    }

    void firstRunGivesVerdictsAndLeavesSourcesAlone()
    {
        VM_FIXTURE(mov, fixtures::healthy("h264_aac.mov"));
        VM_FIXTURE(noMoovSrc, fixtures::moovRemoved(fixtures::healthy("h264_aac.mp4")));
        const QString healthy = copy(mov, "healthy.mov");
        const QString noMoov = copy(noMoovSrc, "nomoov.mp4");
        const QString empty = m_dir.filePath("empty.mov");
        mov::write(empty, {});
        const QString oddCase = copy(noMoovSrc, "clip.Avi"); // not the AVI path: the atom path
        const QString missing = m_dir.filePath("gone.mov");
        const QStringList files = {healthy, noMoov, empty, oddCase, missing};
        QMap<QString, QByteArray> before;
        for (const QString &f : files)
            before[f] = digest(f);

        ThreadVideoRepair t;
        QSignalSpy processing(&t, &ThreadVideoRepair::WriteProcessingStatus);
        const QList<Verdict> v = run(t, files);

        QCOMPARE(processing.count(), files.size());
        QCOMPARE(processing.at(3).at(0).toString(), QString("clip.Avi"));

        // The healthy file's index still points at frames: remuxed, repaired.
        // The others wait for a sample.
        QStringList names;
        for (const Verdict &x : v) {
            names << x.name;
            QCOMPARE(x.repaired, x.name == "healthy.mov");
            QVERIFY(!x.viaAviStatus);
        }
        QCOMPARE(names, (QStringList{"healthy.mov", "nomoov.mp4", "empty.mov", "clip.Avi", "gone.mov"}));
        QCOMPARE(v.at(0).code, 0u);
        QVERIFY(QFileInfo(m_dir.filePath("Repaired/healthy.mov")).size() > 2048);

        for (const QString &f : files)
            QCOMPARE(digest(f), before[f]);

        // The work folder lies beside the sources, hidden, with the log of the last file.
        QVERIFY(workfolder::IsHidden(m_dir.path()));
        QVERIFY(QFileInfo(m_dir.filePath("Repaired/logFile.txt")).exists());
    }

    void containersAreDispatchedBySuffixSpelling()
    {
        VM_FIXTURE(src, fixtures::healthy("h264_aac.mp4"));
        const QStringList files = {copy(src, "a.AVI"), copy(src, "b.mkv"), copy(src, "c.mpg"),
                                   copy(src, "d.flv"), copy(src, "e.wmv"), copy(src, "f.Mkv")};
        ThreadVideoRepair t;
        const QList<Verdict> v = run(t, files);
        QStringList seen;
        for (const Verdict &x : v)
            seen << x.name + (x.viaAviStatus ? ":avi" : ":status");
        // ASF reports twice in a first run; "Mkv" isn't a spelling of the MKV
        // path, so that file goes the atom way (and, being a healthy MP4, is remuxed).
        // The FLV path finds no tags in an MP4 and gives no verdict.
        QCOMPARE(seen, (QStringList{"a.AVI:avi", "b.mkv:avi", "c.mpg:avi", "e.wmv:status",
                                    "e.wmv:status", "f.Mkv:status"}));
    }

    void threeGpFlagCarriesOverToTheNextFile()
    {
        // es26 counts only in a 3GP; the flag set by one 3GP file stays for the run.
        using namespace mov;
        const QByteArray body = ftyp() + atom("mdat", QByteArray(512, 'x')) + moov({videoTrak("es26")});
        const QString first = m_dir.filePath("first.3gp");
        const QString second = m_dir.filePath("second.mp4");
        QVERIFY(write(first, body));
        QVERIFY(write(second, body));
        ThreadVideoRepair t;
        QList<Verdict> v = run(t, {second});
        QCOMPARE(v.first().code, 0u);
        pApp.reset();
        v = run(t, {first, second});
        QCOMPARE(v.first().code, 14u);
        QVERIFY(v.last().name == "second.mp4" && v.last().code == 14u);
    }

    void workFolderFollowsTheChosenLocation()
    {
        VM_FIXTURE(src, fixtures::moovRemoved(fixtures::healthy("h264_aac.mp4")));
        QTemporaryDir chosen;
        const QString clip = copy(src, "chosen.mp4");
        pApp.strChosenLocation = chosen.path();
        ThreadVideoRepair t;
        run(t, {clip});
        // A chosen folder isn't hidden.
        QVERIFY(QFileInfo(chosen.filePath("Repaired")).isDir() && !workfolder::IsHidden(chosen.path()));

        // A chosen folder that has gone: back to the source's folder, hidden.
        pApp.reset();
        QTemporaryDir gone;
        pApp.strChosenLocation = gone.path();
        gone.remove();
        QDir(m_dir.path()).rmdir("Repaired");
        workfolder::MakeVisible(m_dir.path());
        QVERIFY(!workfolder::IsHidden(m_dir.path()));
        run(t, {clip});
        QVERIFY(workfolder::IsHidden(m_dir.path()));

        // An existing Repaired folder with a user's file is reused as it is.
        const QString keep = m_dir.filePath("Repaired/mine.txt");
        QVERIFY(mov::write(keep, "user data"));
        pApp.reset();
        run(t, {clip});
        QCOMPARE(digest(keep), QCryptographicHash::hash("user data", QCryptographicHash::Sha1));
    }

    void hiddenListKeepsOtherNames()
    {
        QTemporaryDir d;
        QVERIFY(mov::write(d.filePath(".hidden"), "notes\nphotos"));
        QVERIFY(workfolder::MarkHidden(d.path()));
        QVERIFY(workfolder::MarkHidden(d.path())); // once only
        auto names = [&] { return QString::fromUtf8(media::readAll(d.filePath(".hidden"))).split('\n', Qt::SkipEmptyParts); };
        QCOMPARE(names(), (QStringList{"notes", "photos", "Repaired"}));
        QVERIFY(workfolder::MakeVisible(d.path()));
        QCOMPARE(names(), (QStringList{"notes", "photos"}));
    }

    void sampleRunUsesTheSample()
    {
        VM_FIXTURE(sampleSrc, fixtures::healthy("hevc_pcm.mov"));
        VM_FIXTURE(src, fixtures::moovRemoved(fixtures::healthy("hevc_aac.mp4")));
        const QString clip = copy(src, "waiting.mp4");
        const QString sample = copy(sampleSrc, "sample.mov");
        const QByteArray s0 = digest(sample), c0 = digest(clip);
        ThreadVideoRepair t;
        QSignalSpy disable(&t, &ThreadVideoRepair::disableAddReferenceBtn);
        QSignalSpy label(&t, &ThreadVideoRepair::FileNamelabel);
        const QList<Verdict> v = run(t, {clip}, true, sample);
        QCOMPARE(disable.count(), 1);
        QVERIFY(!label.isEmpty() && label.at(0).at(0).toString() == "sample.mov"); // the sample is scanned first
        QVERIFY(!v.isEmpty() && v.first().code == 5u); // the sample decided: HEVC with big-endian PCM
        QVERIFY(!pApp.bHevcWithPcm);  // consumed by the switch
        QCOMPARE(digest(sample), s0);
        QCOMPARE(digest(clip), c0);

        // A sample that isn't there: the verdict is as for nothing found.
        pApp.reset();
        const QList<Verdict> w = run(t, {clip}, true, m_dir.filePath("no-sample.mov"));
        QCOMPARE(w.size(), 1);
        QVERIFY(!w.first().repaired);
    }

    void stopDuringALongScanAborts()
    {
        // 48 MiB without a moov: the tail scans have millions of steps to go.
        const QString big = m_dir.filePath("big.mov");
        QVERIFY(QFile(big).open(QIODevice::WriteOnly) && QFile::resize(big, 48 << 20));
        ThreadVideoRepair t;
        // Stop at the first step of the tail scan, from the worker itself, so
        // the test doesn't depend on timing.
        connect(&t, &ThreadVideoRepair::setProgressvalue, &t, [](qint64 v) {
            if (v == 10)
                pApp.bStopRepair = true;
        }, Qt::DirectConnection);
        QSignalSpy finish(&t, &ThreadVideoRepair::RepairFinish);
        QList<int> sequence;
        connect(&t, &ThreadVideoRepair::ProcessAborted, &t, [&] { sequence << 1; }, Qt::DirectConnection);
        connect(&t, &ThreadVideoRepair::ProcessAborted1, &t, [&] { sequence << 2; }, Qt::DirectConnection);
        const QList<Verdict> v = run(t, {big, big});
        QCOMPARE(sequence, (QList<int>{1, 2}));
        QCOMPARE(finish.count(), 0);
        QVERIFY(v.isEmpty()); // no verdict on a stopped file
        QVERIFY(!pApp.bStopRepair && !pApp.bRepairRunning);
    }
};

QTEST_GUILESS_MAIN(TestRepairRun)
#include "tst_repairrun.moc"

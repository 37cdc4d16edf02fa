// videomend-cli as a script would use it: result lines, JSON, exit status,
// inspect output, names that look like options, what a run leaves behind,
// Ctrl-C, and the progress line.

#include "cli/ProgressLine.h"
#include "support/MediaCompare.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>
#include <csignal>

using fixtures::digest;

namespace {
struct Result
{
    int code = -1;
    QString out;
    QString err;
};

// tmp: the child's TMPDIR, when given.
Result cli(const QStringList &args, const QString &cwd = QString(), const QString &tmp = QString())
{
    QProcess p;
    if (!cwd.isEmpty())
        p.setWorkingDirectory(cwd);
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    if (!tmp.isEmpty())
        env.insert("TMPDIR", tmp);
    p.setProcessEnvironment(env);
    p.start(VM_CLI_PATH, args);
    p.waitForFinished(300000);
    return {p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1, QString::fromUtf8(p.readAllStandardOutput()),
            QString::fromUtf8(p.readAllStandardError())};
}

QMap<QString, QString> keyValues(const QString &text)
{
    QMap<QString, QString> m;
    for (const QString &line : text.split('\n', Qt::SkipEmptyParts))
        m.insert(line.section('=', 0, 0), line.section('=', 1));
    return m;
}

// Every entry of a folder, hidden ones too, with the digest of each file.
QStringList listing(const QString &dir)
{
    QStringList l;
    for (const QFileInfo &i : QDir(dir).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
        l << i.fileName() + " " + digest(i.filePath()).toHex();
    return l;
}

// A recording of some seventeen minutes without its index: long enough to stop midway.
QString longDamaged()
{
    const QString src = fixtures::healthy("h264_aac.mp4"), big = fixtures::dir() + "/cli_long.mp4";
    if (!src.isEmpty() && !QFileInfo::exists(big)
        && QProcess::execute(fixtures::ffmpeg(), {"-nostdin", "-v", "error", "-y", "-stream_loop", "500", "-i", src,
                                                  "-c", "copy", "-f", "mp4", big + ".part"}) == 0)
        QFile::rename(big + ".part", big);
    return QFileInfo::exists(big) ? fixtures::moovRemoved(big) : QString();
}

} // namespace

class TestCli : public QObject
{
    Q_OBJECT
    QTemporaryDir m_dir;

private Q_SLOTS:
    void usageErrorsExitTwo()
    {
        Result r = cli({});
        QVERIFY(r.code == 2 && r.err.contains("usage"));
        r = cli({"repair", m_dir.filePath("nope.mov")});
        QVERIFY(r.code == 2 && r.err.contains("nope.mov") && r.out.isEmpty());
        QCOMPARE(cli({"repair", "--frobnicate", "x"}).code, 2);
        QCOMPARE(cli({"inspect", m_dir.path()}).code, 2);
    }

    void inspectPrintsTheFigures()
    {
        VM_FIXTURE(hevc, fixtures::healthy("hevc_pcm.mov"));
        Result r = cli({"inspect", hevc});
        QCOMPARE(r.code, 0);
        auto kv = keyValues(r.out);
        QCOMPARE(QStringList({kv["moov"], kv["FormatCode"], kv["bHevcWithPcm"], kv["bSampleHasAudio"]}),
                 QStringList({"found", "5", "1", "1"}));

        VM_FIXTURE(noMoov, fixtures::moovRemoved(fixtures::healthy("h264_aac.mp4")));
        r = cli({"inspect", "--damaged", noMoov});
        QCOMPARE(r.code, 0);
        kv = keyValues(r.out);
        QCOMPARE(QStringList({kv["moov"], kv["classified"]}), QStringList({"missing", "no"}));
    }

    void repairReportsEachFile()
    {
        VM_FIXTURE(src, fixtures::moovRemoved(fixtures::healthy("h264_aac.mp4")));
        VM_FIXTURE(sampleSrc, fixtures::healthy("h264_aac.mp4"));
        // Names that look like options or need quoting stay one argument each.
        const QStringList names = {"-y.mp4", "my clip.mp4", "a\"b.mp4", "clip ü.mp4"};
        QStringList paths;
        for (const QString &n : names) {
            QVERIFY(QFile::copy(src, m_dir.filePath(n)));
            paths << n;
        }
        const QByteArray before = digest(m_dir.filePath(names.first()));
        Result r = cli(QStringList{"repair", "--"} + paths, m_dir.path());
        QCOMPARE(r.code, 1);
        const QStringList lines = r.out.split('\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), names.size());
        for (int i = 0; i < names.size(); ++i)
            QCOMPARE(lines.at(i), QString("Awaiting Action\t%1\t-").arg(paths.at(i)));
        QVERIFY(!r.err.contains('\r')); // not a terminal: no progress line
        QCOMPARE(r.err.count("no sample given"), names.size()); // why, for each file

        // With a sample the waiting files get the second run; JSON carries the
        // code, and --out saves without overwriting.
        QTemporaryDir work, out;
        QVERIFY(QFile::copy(sampleSrc, m_dir.filePath("sample.mp4")));
        QVERIFY(QFile::copy(sampleSrc, out.filePath("-y.mp4"))); // already there: "-y(1).mp4"
        r = cli({"repair", "--json", "--work", work.path(), "--out", out.path(), "--sample", "sample.mp4", "--",
                 "-y.mp4"},
                m_dir.path());
        QCOMPARE(r.code, 0);
        const QJsonArray a = QJsonDocument::fromJson(r.out.toUtf8()).array();
        QCOMPARE(a.size(), 1);
        const QJsonObject o = a.at(0).toObject();
        QCOMPARE(QStringList({o["status"].toString(), o["source"].toString(), o["output"].toString()}),
                 QStringList({"Completed", "-y.mp4", out.filePath("-y(1).mp4")}));
        QCOMPARE(o["formatCode"].toInt(), 0);
        QVERIFY(QFileInfo(out.filePath("-y(1).mp4")).size() > 2048);
        QVERIFY(o["videoFrames"].toInt() > 40 && o["audioSeconds"].toDouble() > 1.5);
        QVERIFY(o["mediaUsed"].toDouble() > 0.9 && o["reason"].isNull());
        QVERIFY(QDir(work.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
        QCOMPARE(digest(out.filePath("-y.mp4")), digest(sampleSrc)); // never overwritten

        // Without ffmpeg the run still ends, with one clear line and status 2.
        QProcess p;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("PATH", "");
        p.setProcessEnvironment(env);
        p.setWorkingDirectory(m_dir.path());
        p.start(VM_CLI_PATH, {"repair", "--", "-y.mp4"});
        QVERIFY(p.waitForFinished(60000));
        QCOMPARE(p.exitCode(), 2);
        const QString err = QString::fromUtf8(p.readAllStandardError());
        QCOMPARE(err.count("ffmpeg was not found"), 1);
        QVERIFY(err.contains("apt install ffmpeg"));
        QCOMPARE(QString::fromUtf8(p.readAllStandardOutput()), QString("Awaiting Action\t-y.mp4\t-\n"));
        QCOMPARE(digest(m_dir.filePath("-y.mp4")), before);
        // Nothing appeared beside the sources but the work folder.
        QStringList left = QDir(m_dir.path()).entryList(QDir::Files | QDir::NoDotAndDotDot), expected = names + QStringList{"sample.mp4"};
        left.sort(), expected.sort();
        QCOMPARE(left, expected);
    }

    // A file that waits for the sample run is still reported before one
    // finished in the first run, a file named twice once; with --out nothing
    // is left beside the sources or in TMPDIR.
    void resultsInOrderAndOnlyInOut()
    {
        VM_FIXTURE(damaged, fixtures::moovRemoved(fixtures::healthy("h264_aac.mp4")));
        VM_FIXTURE(healthy, fixtures::healthy("h264_aac.mov"));
        QTemporaryDir src, out, tmp;
        QVERIFY(QFile::copy(damaged, src.filePath("damaged.mp4")) && QFile::copy(healthy, src.filePath("healthy.mov")));
        QVERIFY(QFile::copy(fixtures::healthy("h264_aac.mp4"), src.filePath("sample.mp4")));
        QVERIFY(media::writeAll(src.filePath("notes.txt"), "not a video\n") && media::writeAll(src.filePath(".hidden"), "other\n"));
        const QStringList before = listing(src.path());
        Result r = cli({"repair", "--sample", "sample.mp4", "--out", out.path(), "damaged.mp4", "healthy.mov",
                        "./damaged.mp4", "notes.txt"},
                       src.path(), tmp.path());
        QCOMPARE(r.code, 1);
        QCOMPARE(r.out.split('\n', Qt::SkipEmptyParts),
                 QStringList({"Completed\tdamaged.mp4\t" + out.filePath("damaged.mp4"),
                              "Completed\thealthy.mov\t" + out.filePath("healthy.mov"), "Failed\tnotes.txt\t-"}));
        QCOMPARE(listing(src.path()), before);
        QCOMPARE(QDir(out.path()).entryList(QDir::Files | QDir::Hidden), QStringList({"damaged.mp4", "healthy.mov"}));
        QVERIFY(QDir(tmp.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));

        // A file not repaired: the figures are unknown and the reason is said.
        r = cli({"repair", "--json", "notes.txt"}, src.path(), tmp.path());
        const QJsonObject o = QJsonDocument::fromJson(r.out.toUtf8()).array().at(0).toObject();
        for (const char *key : {"videoFrames", "audioSeconds", "mediaUsed"})
            QVERIFY2(o.contains(key) && o[key].isNull(), key);
        QVERIFY(!o["reason"].toString().isEmpty());
    }

    void ctrlCLeavesNothingBehind()
    {
        VM_FIXTURE(damaged, longDamaged());
        for (bool elsewhere : {false, true}) { // beside the source, or --out and --work
            QTemporaryDir src, out, work, tmp;
            QVERIFY(QFile::copy(damaged, src.filePath("long.mp4")));
            QVERIFY(QFile::copy(fixtures::healthy("h264_aac.mp4"), src.filePath("sample.mp4")));
            QVERIFY(media::writeAll(src.filePath(".hidden"), "other\n"));
            const QStringList before = listing(src.path());
            QStringList args = {"repair", "--verbose", "--sample", "sample.mp4", "long.mp4"};
            if (elsewhere)
                args << "--out" << out.path() << "--work" << work.path();
            QProcess p;
            QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
            env.insert("TMPDIR", tmp.path());
            p.setProcessEnvironment(env);
            p.setWorkingDirectory(src.path());
            p.setReadChannel(QProcess::StandardError);
            p.start(VM_CLI_PATH, args);
            QByteArray err;
            while (!err.contains("long.mp4: carving") && p.waitForReadyRead(60000))
                err += p.readAllStandardError();
            QVERIFY2(err.contains("carving"), err.constData());
            ::kill(pid_t(p.processId()), SIGINT);
            QVERIFY(p.waitForFinished(60000));
            QCOMPARE(p.exitCode(), 130);
            QCOMPARE(listing(src.path()), before);
            for (const QTemporaryDir *d : {&out, &work, &tmp})
                QVERIFY2(QDir(d->path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), qPrintable(d->path()));
        }
    }

    void progressNeverGoesBack()
    {
        // Values that go back, stages that start again, a total that shrinks
        // when a file needs no sample run and grows back.
        const struct { int done, total, stage; qint64 value, range; } steps[] = {
            {0, 4, 0, 50, 100}, {0, 4, 0, 10, 100}, {0, 4, 1, 0, 100}, {1, 3, 0, 0, 0},
            {1, 3, 0, 90, 100}, {1, 4, 0, 0, 100}, {2, 4, 3, 5, 10}, {3, 3, 0, 0, 0}};
        cliprogress::Line line;
        int percent = -1, bar = -1;
        for (const auto &s : steps) {
            const QString text = line.text(cliprogress::Overall(s.done, s.total, s.stage, s.value, s.range), "clip.mp4",
                                           "carving", 5000);
            const int now = QRegularExpression("(\\d+)%").match(text).captured(1).toInt();
            QVERIFY2(now >= percent && text.count('#') >= bar, qPrintable(text));
            percent = now, bar = text.count('#');
        }
        QCOMPARE(percent, 100);
    }
};

QTEST_GUILESS_MAIN(TestCli)
#include "tst_cli.moc"

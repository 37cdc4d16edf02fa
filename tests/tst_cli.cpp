// videomend-cli as a script would use it: result lines, JSON, exit status,
// inspect output, and names that look like options.

#include "support/Fixtures.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using fixtures::digest;

namespace {
struct Result
{
    int code = -1;
    QString out;
    QString err;
};

Result cli(const QStringList &args, const QString &cwd = QString())
{
    QProcess p;
    if (!cwd.isEmpty())
        p.setWorkingDirectory(cwd);
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

} // namespace

class TestCli : public QObject
{
    Q_OBJECT
    QTemporaryDir m_dir;

private Q_SLOTS:
    void usageErrorsExitTwo()
    {
        Result r = cli({});
        QCOMPARE(r.code, 2);
        QVERIFY(r.err.contains("usage"));
        r = cli({"repair", m_dir.filePath("nope.mov")});
        QCOMPARE(r.code, 2);
        QVERIFY(r.err.contains("nope.mov"));
        QVERIFY(r.out.isEmpty());
        r = cli({"repair", "--frobnicate", "x"});
        QCOMPARE(r.code, 2);
        r = cli({"inspect", m_dir.path()});
        QCOMPARE(r.code, 2);
    }

    void inspectPrintsTheFigures()
    {
        VM_FIXTURE(hevc, fixtures::healthy("hevc_pcm.mov"));
        Result r = cli({"inspect", hevc});
        QCOMPARE(r.code, 0);
        auto kv = keyValues(r.out);
        QCOMPARE(kv["moov"], QString("found"));
        QCOMPARE(kv["FormatCode"], QString("5"));
        QCOMPARE(kv["bHevcWithPcm"], QString("1"));
        QCOMPARE(kv["FrameWidth"], QString("320"));
        QCOMPARE(kv["FrameHeight"], QString("240"));
        QCOMPARE(kv["TimeScaleSound"], QString("48000"));
        QCOMPARE(kv["bSampleHasAudio"], QString("1"));
        for (const char *key : {"nTimeScaleVideo", "nSoundSampleRate", "nVideoDelta", "nSoundDelta",
                                "nSoundFrameSize", "bHasCtts"})
            QVERIFY2(kv.contains(key), key);

        VM_FIXTURE(noMoov, fixtures::moovRemoved(fixtures::healthy("h264_aac.mp4")));
        r = cli({"inspect", "--damaged", noMoov});
        QCOMPARE(r.code, 0);
        kv = keyValues(r.out);
        QCOMPARE(kv["moov"], QString("missing"));
        QCOMPARE(kv["classified"], QString("no"));
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
        QVERIFY(r.err.isEmpty()); // not a terminal: no progress bar

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
        QCOMPARE(o["status"].toString(), QString("Completed"));
        QCOMPARE(o["source"].toString(), QString("-y.mp4"));
        QCOMPARE(o["formatCode"].toInt(), 0);
        QCOMPARE(o["output"].toString(), out.filePath("-y(1).mp4"));
        QVERIFY(QFileInfo(out.filePath("-y(1).mp4")).size() > 2048);
        QCOMPARE(digest(out.filePath("-y(1).mp4")), digest(work.filePath("Repaired/-y.mp4")));
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
        QStringList left = QDir(m_dir.path()).entryList(QDir::Files | QDir::NoDotAndDotDot);
        left.sort();
        QStringList expected = names;
        expected << "sample.mp4";
        expected.sort();
        QCOMPARE(left, expected);
    }
};

QTEST_GUILESS_MAIN(TestCli)
#include "tst_cli.moc"

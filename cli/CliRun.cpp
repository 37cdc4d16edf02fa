#include "cli/CliRun.h"

#include "mux/FfmpegRunner.h"
#include "repair/RowFile.h"
#include "repair/WorkFolder.h"

#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>
#include <cstdio>
#include <sys/ioctl.h>
#include <unistd.h>

const char *const CliRun::kCompleted = "Completed";
const char *const CliRun::kAwaiting = "Awaiting Action";
const char *const CliRun::kFailed = "Failed";
const char *const CliRun::kAborted = "Aborted";
std::atomic<int> CliRun::interrupts{0};

namespace {
const QString kChecking = QStringLiteral("checking");
const QString kReadingSample = QStringLiteral("reading the sample");
const QString kCarving = QStringLiteral("carving");
const QString kMuxing = QStringLiteral("muxing");

int columns()
{
    winsize w{};
    return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &w) == 0 && w.ws_col > 20 ? w.ws_col : 80;
}
} // namespace

CliRun::CliRun(const CliOptions &opt, QObject *parent) : QObject(parent), m_opt(opt)
{
    m_tty = !opt.quiet && ::isatty(STDERR_FILENO);
    m_sampleName = QFileInfo(opt.sample).fileName();
    // The bookkeeping runs on the worker thread as the signals are emitted, so
    // that each verdict sees the state of its own file and each file is judged
    // and moved before the next one starts.
    const auto direct = Qt::DirectConnection;
    connect(&m_thread, &ThreadVideoRepair::WriteProcessingStatus, this, [this] { onProcessing(); }, direct);
    connect(&m_thread, &ThreadVideoRepair::WriteStatus, this,
            [this](bool a, bool b, const QString &, bool) { onVerdict(a, b, false); }, direct);
    connect(&m_thread, &ThreadVideoRepair::WriteAVIFileStatus, this,
            [this](bool b, const QString &) { onVerdict(false, b, true); }, direct);
    connect(&m_thread, &ThreadVideoRepair::FileReported, this,
            [this](int i, const QString &, const outcome::FileReport &r) { onReported(i, r); }, direct);
    connect(&m_thread, &ThreadVideoRepair::FileNamelabel, this, [this](const QString &name) {
        QMutexLocker lock(&m_lock);
        const bool sample = name == m_sampleName && m_current >= 0 && name != m_rows.at(m_current).name;
        m_stage = !m_sampleRun ? kChecking : sample ? kReadingSample : kCarving;
    }, direct);
    connect(&m_thread, &ThreadVideoRepair::SetProgressBarRange, this, [this](qint64 r) {
        m_value = 0;
        m_range = r;
        ++m_stageIndex;
    }, direct);
    connect(&m_thread, &ThreadVideoRepair::setProgressvalue, this, [this](qint64 v) { m_value = v; }, direct);
}

CliRun::~CliRun() = default;

bool CliRun::setUp()
{
    m_private.reset(new QTemporaryDir(QDir::tempPath() + "/videomend-cli-XXXXXX"));
    if (!m_private->isValid()) {
        std::fprintf(stderr, "videomend-cli: cannot make a work folder in %s: %s\n", qPrintable(QDir::tempPath()),
                     qPrintable(m_private->errorString()));
        return false;
    }
    // The engine clears the "Repaired" folder of its temporary base when a run
    // starts; under this command's own folder it can't be another session's.
    qputenv("TMPDIR", QFile::encodeName(m_private->path()));

    QString base;
    if (!m_opt.workDir.isEmpty())
        base = QFileInfo(m_opt.workDir).absoluteFilePath();
    else if (!m_opt.outDir.isEmpty())
        base = m_private->path(); // nothing is written beside the sources
    pApp.strChosenLocation = base;

    QSet<QString> seen;
    QStringList bases;
    for (const QString &f : m_opt.files) {
        const QFileInfo info(f);
        if (seen.contains(info.canonicalFilePath()))
            continue; // a file named twice is repaired once
        seen << info.canonicalFilePath();
        Row r;
        r.source = f;
        r.name = info.fileName();
        const QString b = base.isEmpty() ? info.absolutePath() : base;
        r.result = FileOfRow(workfolder::OutputPathFor(b, r.name), r.name);
        r.place = bases.indexOf(b);
        if (r.place < 0) {
            r.place = bases.size();
            bases << b;
        }
        m_rows << r;
    }
    for (const QString &b : bases)
        m_places.emplace_back(b);
    m_totalUnits = m_rows.size() * (m_opt.sample.isEmpty() ? 1 : 2);
    return true;
}

void CliRun::onProcessing()
{
    if (interrupts > 0)
        pApp.bStopRepair = true; // the driver clears the flag when it starts
    if (m_started >= m_runRows.size())
        return;
    m_current = m_runRows.at(m_started++);
    Row &r = m_rows[m_current];
    r.stage = Stage::Processing;
    m_stageIndex = -1;
    m_value = m_range = 0;
    QMutexLocker lock(&m_lock);
    m_file = r.name;
    m_stage = m_sampleRun ? kReadingSample : kChecking;
    if (m_opt.verbose) {
        clearLine();
        std::fprintf(stderr, "Processing %s\n", qPrintable(r.source));
    }
}

void CliRun::onVerdict(bool repaired, bool strh, bool aviStyle)
{
    if (m_current < 0)
        return;
    Row &r = m_rows[m_current];
    if (r.stage == Stage::Processing) {
        r.stage = Stage::Reported;
        r.verdict = (repaired || strh) ? 1 : 0;
        r.formatCode = pApp.nFormatCode;
    } else if (aviStyle && strh && r.verdict == 0) {
        r.verdict = 1; // a path that reads the sample can turn a waiting file into a result
    }
}

void CliRun::onReported(int index, const outcome::FileReport &report)
{
    if (index < 0 || index >= m_runRows.size())
        return;
    const int k = m_runRows.at(index);
    if (m_rows.at(k).final || m_rows.at(k).pending)
        return;
    m_rows[k].report = report;
    settle(k);
}

QString CliRun::statusOf(const Row &r) const
{
    if (r.verdict == 1)
        return IsUsableResult(r.result) ? kCompleted : kFailed;
    return r.verdict == 0 ? kAwaiting : kFailed; // no verdict at all: a path that failed
}

void CliRun::settle(int k)
{
    const QString status = statusOf(m_rows.at(k));
    const bool firstOfTwo = !m_sampleRun && !m_opt.sample.isEmpty();
    {
        QMutexLocker lock(&m_lock);
        ++m_doneUnits;
        if (firstOfTwo && status != kAwaiting)
            --m_totalUnits; // it won't take part in the sample run
    }
    if (firstOfTwo && status == kAwaiting)
        m_rows[k].pending = true;
    else
        finalize(k, status);
}

void CliRun::finalize(int k, const QString &status)
{
    {
        QMutexLocker lock(&m_lock);
        m_stage = kChecking;
    }
    Row &r = m_rows[k];
    r.judged = outcome::Judge(status, r.result, r.report, !m_opt.sample.isEmpty());
    r.shown = "-";
    if (r.judged.status == kCompleted)
        deliver(r);
    QMutexLocker lock(&m_lock);
    r.final = true;
    printReady();
}

void CliRun::deliver(Row &r)
{
    if (m_opt.outDir.isEmpty()) {
        r.shown = r.result;
        // A later file of the same name would be written over this result.
        for (const Row &o : m_rows) {
            if (&o != &r && !o.final && o.result == r.result) {
                const savedcopy::Result s = MoveToFolder(r.result, QFileInfo(r.result).path());
                if (s.ok)
                    r.shown = s.target;
                break;
            }
        }
        m_keep << r.shown;
        return;
    }
    const savedcopy::Result s = MoveToFolder(r.result, m_opt.outDir);
    if (s.ok) {
        r.shown = s.target;
        return;
    }
    m_keep << r.result; // the only copy of the repair
    r.judged.status = kFailed;
    r.judged.reason = QStringLiteral("not saved in %1 (%2); the repaired file stays at %3")
                          .arg(m_opt.outDir, s.error, r.result);
    r.judged.summary = r.judged.reason;
}

void CliRun::clearLine()
{
    if (m_lineShown)
        std::fputs("\r\033[K", stderr);
    m_lineShown = false;
}

void CliRun::printReady()
{
    while (m_nextPrint < m_rows.size() && m_rows.at(m_nextPrint).final) {
        const Row &r = m_rows.at(m_nextPrint++);
        const outcome::Judged &j = r.judged;
        clearLine();
        if (!m_opt.json) {
            std::printf("%s\t%s\t%s\n", qPrintable(j.status), qPrintable(r.source), qPrintable(r.shown));
            std::fflush(stdout);
        }
        // Quiet leaves out the summaries of repaired files, never why one wasn't.
        if (!m_opt.quiet || j.status != kCompleted)
            std::fprintf(stderr, "%s: %s%s\n", qPrintable(r.source), qPrintable(j.status),
                         j.summary.isEmpty() ? "" : qPrintable(" - " + j.summary));
    }
}

void CliRun::tick()
{
    if (interrupts > 0) {
        pApp.bStopRepair = true;
        mux::KillRunning();
    }
    QMutexLocker lock(&m_lock);
    if (interrupts > 0 && !m_told) {
        m_told = true;
        clearLine();
        if (!m_opt.quiet)
            std::fputs("videomend-cli: stopping; Ctrl-C again to quit at once\n", stderr);
    }
    if (m_file.isEmpty())
        return;
    const QString stage = pApp.bInMuxStage ? kMuxing : m_stage;
    const QString logged = m_file + ": " + stage;
    if (m_opt.verbose && logged != m_logged) {
        m_logged = logged;
        clearLine();
        std::fprintf(stderr, "%s\n", qPrintable(logged));
    }
    if (!m_tty)
        return;
    const double done = cliprogress::Overall(m_doneUnits, m_totalUnits, qMax(0, m_stageIndex.load()), m_value,
                                             m_range);
    const QString text = m_line.text(done, m_file, stage, m_clock.elapsed(), columns());
    if (m_lineShown && text == m_lastText)
        return;
    m_lastText = text;
    std::fprintf(stderr, "\r\033[K%s", qPrintable(text));
    std::fflush(stderr);
    m_lineShown = true;
}

void CliRun::runOnce(bool sampleRun)
{
    QStringList files;
    m_runRows.clear();
    for (int k = 0; k < m_rows.size(); ++k) {
        Row &r = m_rows[k];
        if (r.final || (sampleRun && !r.pending))
            continue;
        r.stage = Stage::Queued;
        r.verdict = -1;
        r.pending = false;
        m_runRows << k;
        files << r.source;
    }
    if (files.isEmpty() || interrupts > 0)
        return;
    m_started = 0;
    m_current = -1;
    m_sampleRun = sampleRun;
    pApp.bStopRepair = false;
    pApp.bSampleRun = sampleRun;
    if (sampleRun)
        m_thread.SetSampleFile(m_opt.sample);
    QEventLoop loop;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [this] { tick(); });
    timer.start(100);
    auto c1 = connect(&m_thread, &ThreadVideoRepair::RepairFinish, &loop, &QEventLoop::quit, Qt::QueuedConnection);
    auto c2 = connect(&m_thread, &ThreadVideoRepair::ProcessAborted1, &loop, [&] {
        m_aborted = true;
        loop.quit();
    }, Qt::QueuedConnection);
    m_thread.StartRepair(files, true);
    loop.exec();
    m_thread.wait();
    disconnect(c1);
    disconnect(c2);
    timer.stop();
    m_current = -1;
    m_aborted = m_aborted || interrupts > 0;
    if (m_aborted)
        return;
    for (int k : qAsConst(m_runRows))
        if (!m_rows.at(k).final && !m_rows.at(k).pending)
            settle(k); // no report came for it: judged by its verdict alone
}

void CliRun::cleanUp()
{
    // Work files stay when asked for, but not those of an interrupted run.
    const bool keepWork = m_opt.keepWork && !m_aborted;
    bool privateHolds = keepWork && m_opt.workDir.isEmpty() && !m_opt.outDir.isEmpty();
    for (const WorkPlace &place : m_places) {
        if (!keepWork)
            place.cleanUp(m_keep);
        else if (!m_opt.quiet)
            std::fprintf(stderr, "videomend-cli: work files kept in %s/%s\n", qPrintable(place.base()),
                         workfolder::kRepairedName);
    }
    for (const QString &k : qAsConst(m_keep))
        privateHolds = privateHolds || k.startsWith(m_private->path() + "/");
    if (privateHolds)
        m_private->setAutoRemove(false);
    m_private.reset();
}

int CliRun::exec()
{
    if (!setUp())
        return 2;
    m_clock.start();
    runOnce(false);
    if (!m_opt.sample.isEmpty() && !m_aborted)
        runOnce(true);
    for (int k = 0; k < m_rows.size(); ++k)
        if (!m_rows.at(k).final)
            finalize(k, m_aborted ? QString(kAborted) : statusOf(m_rows.at(k)));
    {
        QMutexLocker lock(&m_lock);
        clearLine();
    }
    cleanUp();

    if (m_opt.json) {
        QJsonArray a;
        for (const Row &r : qAsConst(m_rows)) {
            const outcome::Judged &j = r.judged;
            QJsonObject o;
            o["status"] = j.status;
            o["source"] = r.source;
            o["output"] = j.status == kCompleted ? QJsonValue(r.shown) : QJsonValue();
            o["formatCode"] = int(r.formatCode);
            o["videoFrames"] = j.videoFrames >= 0 ? QJsonValue(j.videoFrames) : QJsonValue();
            o["audioSeconds"] = j.audioSeconds >= 0 ? QJsonValue(j.audioSeconds) : QJsonValue();
            o["mediaUsed"] = j.mediaUsed >= 0 ? QJsonValue(j.mediaUsed) : QJsonValue();
            o["reason"] = j.reason.isEmpty() ? QJsonValue() : QJsonValue(j.reason);
            a << o;
        }
        std::printf("%s\n", QJsonDocument(a).toJson().constData());
    }
    if (m_aborted)
        return 130;
    for (const Row &r : qAsConst(m_rows))
        if (r.judged.status != kCompleted)
            return 1;
    return 0;
}

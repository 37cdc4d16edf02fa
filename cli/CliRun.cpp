#include "cli/CliRun.h"

#include "repair/RowFile.h"
#include "repair/SavedCopy.h"
#include "repair/WorkFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstdio>
#include <unistd.h>

const char *const CliRun::kCompleted = "Completed";
const char *const CliRun::kAwaiting = "Awaiting Action";
const char *const CliRun::kFailed = "Failed";
const char *const CliRun::kAborted = "Aborted";


CliRun::CliRun(const CliOptions &opt, QObject *parent) : QObject(parent), m_opt(opt)
{
    m_tty = !opt.quiet && ::isatty(STDERR_FILENO);
    // Row bookkeeping runs on the worker thread as the signals are emitted,
    // so that each verdict sees the format code of its own file.
    connect(&m_thread, &ThreadVideoRepair::WriteProcessingStatus, this, [this] { onProcessing(); },
            Qt::DirectConnection);
    connect(&m_thread, &ThreadVideoRepair::WriteStatus, this,
            [this](bool a, bool b, const QString &n, bool) { onWriteStatus(a, b, n, false); },
            Qt::DirectConnection);
    connect(&m_thread, &ThreadVideoRepair::WriteAVIFileStatus, this,
            [this](bool b, const QString &n) { onWriteStatus(false, b, n, true); }, Qt::DirectConnection);
    connect(&m_thread, &ThreadVideoRepair::SetProgressBarRange, this,
            [this](qint64 r) { m_range = qMax<qint64>(1, r); m_value = 0; drawProgress(); },
            Qt::DirectConnection);
    connect(&m_thread, &ThreadVideoRepair::setProgressvalue, this,
            [this](qint64 v) { m_value = v; drawProgress(); }, Qt::DirectConnection);
    connect(&m_thread, &ThreadVideoRepair::OverAllProgressValue, this,
            [this](int f, int p, int n) { m_file = f; m_percent = p; m_files = n; drawProgress(); },
            Qt::DirectConnection);
    m_drawClock.start();
}

void CliRun::onProcessing()
{
    QMutexLocker lock(&m_lock);
    for (Row &r : m_rows) {
        if (r.stage == Stage::Queued) {
            r.stage = Stage::Processing;
            if (m_opt.verbose)
                std::fprintf(stderr, "Processing %s\n", qPrintable(r.source));
            return;
        }
    }
}

void CliRun::onWriteStatus(bool repaired, bool strh, const QString &name, bool aviStyle)
{
    QMutexLocker lock(&m_lock);
    for (Row &r : m_rows) {
        bool match = false;
        if (!aviStyle && QFileInfo(r.name).suffix().compare("rsv", Qt::CaseInsensitive) == 0)
            match = QFileInfo(r.name).completeBaseName().compare(QFileInfo(name).completeBaseName(),
                                                                 Qt::CaseInsensitive) == 0;
        else
            match = r.name == name;
        if (!match)
            continue;
        if (r.stage == Stage::Processing) {
            r.stage = Stage::Reported;
            r.verdict = (repaired || strh) ? 1 : 0;
            r.formatCode = pApp.nFormatCode;
            return;
        }
        // A path that reads the sample can turn a waiting row into a result.
        if (aviStyle && strh && r.verdict == 0) {
            r.verdict = 1;
            return;
        }
    }
}

void CliRun::drawProgress()
{
    if (!m_tty || m_drawClock.elapsed() < 100)
        return;
    m_drawClock.restart();
    const int width = 30;
    const int filled = int(qBound<qint64>(0, m_value * width / m_range, width));
    std::fprintf(stderr, "\r[%s%s] file %d of %d  %3d%% overall ", QByteArray(filled, '#').constData(),
                 QByteArray(width - filled, '.').constData(), m_file, m_files, m_percent);
    std::fflush(stderr);
}

void CliRun::runOnce(const QStringList &files, bool sampleRun)
{
    pApp.bStopRepair = false;
    pApp.bSampleRun = sampleRun;
    if (sampleRun)
        m_thread.SetSampleFile(m_opt.sample);
    QEventLoop loop;
    bool aborted = false;
    auto c1 = connect(&m_thread, &ThreadVideoRepair::RepairFinish, &loop, &QEventLoop::quit,
                      Qt::QueuedConnection);
    auto c2 = connect(&m_thread, &ThreadVideoRepair::ProcessAborted1, &loop,
                      [&] { aborted = true; loop.quit(); }, Qt::QueuedConnection);
    m_thread.StartRepair(files, true);
    loop.exec();
    m_thread.wait();
    disconnect(c1);
    disconnect(c2);
    if (m_tty)
        std::fprintf(stderr, "\r%*s\r", 70, "");
    finishRows(aborted);
}

void CliRun::finishRows(bool aborted)
{
    QMutexLocker lock(&m_lock);
    for (Row &r : m_rows) {
        if (r.printed || !r.status.isEmpty())
            continue;
        if (aborted) {
            r.status = kAborted;
            continue;
        }
        if (r.verdict == 1) {
            r.output = FileOfRow(r.output, r.name);
            r.status = IsUsableResult(r.output) ? kCompleted : kFailed;
        } else if (r.verdict == 0) {
            r.status = kAwaiting;
        } else if (r.stage != Stage::Queued) {
            r.status = kFailed; // a path that gave no verdict at all
        }
    }
    m_aborted = m_aborted || aborted;
}

void CliRun::printFinal(bool all)
{
    for (Row &r : m_rows) {
        if (r.printed || r.status.isEmpty())
            continue;
        if (!all && r.status == kAwaiting)
            continue;
        r.printed = true;
        const bool done = r.status == kCompleted;
        if (done && !m_opt.outDir.isEmpty()) {
            const savedcopy::Result s = savedcopy::CopyToDestination(r.output, m_opt.outDir);
            if (s.ok) {
                r.saved = s.target;
            } else {
                std::fprintf(stderr, "videomend-cli: not saved: %s (%s)\n", qPrintable(r.output),
                             qPrintable(s.error));
                r.status = kFailed;
            }
        }
        const QString shown = r.status == kCompleted ? (r.saved.isEmpty() ? r.output : r.saved) : "-";
        if (m_opt.json) {
            QJsonObject o;
            o["status"] = r.status;
            o["source"] = r.source;
            o["output"] = r.status == kCompleted ? QJsonValue(shown) : QJsonValue();
            o["formatCode"] = int(r.formatCode);
            m_json << o.toVariantMap();
        } else {
            std::printf("%s\t%s\t%s\n", qPrintable(r.status), qPrintable(r.source), qPrintable(shown));
            std::fflush(stdout);
        }
    }
}

int CliRun::exec()
{
    if (!m_opt.workDir.isEmpty())
        pApp.strChosenLocation = QFileInfo(m_opt.workDir).absoluteFilePath();
    for (const QString &f : m_opt.files) {
        Row r;
        r.source = f;
        r.name = QFileInfo(f).fileName();
        QString base = pApp.strChosenLocation;
        if (base.isEmpty() || !QFileInfo(base).isDir())
            base = QFileInfo(f).absolutePath();
        r.output = workfolder::OutputPathFor(base, r.name);
        m_rows << r;
    }

    runOnce(m_opt.files, false);
    printFinal(m_opt.sample.isEmpty() || m_aborted);

    if (!m_opt.sample.isEmpty() && !m_aborted) {
        QStringList again;
        for (Row &r : m_rows) {
            if (r.status == kAwaiting && !r.printed) {
                again << r.source;
                r.status.clear();
                r.stage = Stage::Queued;
                r.verdict = -1;
            }
        }
        if (!again.isEmpty()) {
            // Only the waiting rows take part; the others are final already.
            for (Row &r : m_rows)
                if (r.printed)
                    r.stage = Stage::Reported;
            runOnce(again, true);
        }
        printFinal(true);
    }

    if (m_opt.json)
        std::printf("%s\n", QJsonDocument(QJsonArray::fromVariantList(m_json)).toJson().constData());
    for (const Row &r : m_rows)
        if (r.status != kCompleted)
            return 1;
    return 0;
}

#include "repair/ThreadVideoRepair.h"

#include "repair/RepairConstants.h"
#include "repair/WorkFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QtDebug>

ThreadVideoRepair::ThreadVideoRepair(QObject *parent) : QThread(parent)
{
    qRegisterMetaType<outcome::FileReport>();
}

ThreadVideoRepair::~ThreadVideoRepair()
{
    pApp.bStopRepair = true;
    wait();
}

void ThreadVideoRepair::StartRepair(const QStringList &list, bool flag)
{
    QMutexLocker lock(&m_mutex);
    lstFiles = list;
    bStartFlag = flag;
    if (isRunning()) {
        pApp.bStopRepair = true;
        m_wait.wakeAll();
    } else {
        start(QThread::LowPriority);
    }
}

void ThreadVideoRepair::SetSampleFile(const QString &path) { pApp.strSampleFile = path; }

void ThreadVideoRepair::run()
{
    QMutexLocker lock(&m_mutex);
    pApp.bRepairRunning = true;
    if (!pApp.bStopRepair) {
        const QString sample = pApp.strSampleFile;
        const QStringList list = lstFiles;
        RepairDriver(list, sample);
    }
    if (!pApp.bStopRepair) {
        Q_EMIT RepairFinish();
    } else {
        Q_EMIT ProcessAborted();
        Q_EMIT ProcessAborted1();
    }
    pApp.bStopRepair = false;
    pApp.bRepairRunning = false;
}

void ThreadVideoRepair::CleanTemporaryWorkFolder()
{
    pApp.strWorkBase = workfolder::TemporaryBase();
    QDir repaired(pApp.strWorkBase + "/" + workfolder::kRepairedName);
    if (repaired.exists())
        repaired.removeRecursively();
}

void ThreadVideoRepair::SetUpWorkFolder()
{
    if (pApp.bCustomFolderChosen)
        pApp.strChosenLocation = pApp.strCustomFolder;
    const QFileInfo chosen(pApp.strChosenLocation);
    if (!pApp.strChosenLocation.isEmpty() && chosen.isDir()) {
        pApp.strWorkBase = pApp.strChosenLocation;
        QDir(pApp.strWorkBase).mkdir(workfolder::kRepairedName);
    } else {
        if (pApp.bCustomFolderChosen)
            pApp.strWorkBase = pApp.strCustomFolder;
        else
            pApp.strWorkBase = QFileInfo(strEntryCopy).absolutePath();
        // The result of mkdir isn't judged: an existing folder is reused as it
        // is, and a missing one makes the stages fail when they write.
        QDir(pApp.strWorkBase).mkdir(workfolder::kRepairedName);
        if (QFileInfo(pApp.strWorkBase + "/" + workfolder::kRepairedName).isDir())
            workfolder::MarkHidden(pApp.strWorkBase);
    }
}

bool ThreadVideoRepair::CreateLog()
{
    CloseLog();
    hLog.setFileName(strLogPath);
    return hLog.open(QIODevice::ReadWrite | QIODevice::Truncate);
}

void ThreadVideoRepair::CloseLog()
{
    if (hLog.isOpen())
        hLog.close();
}

void ThreadVideoRepair::RepairDriver(const QStringList &list, const QString &sampleArg)
{
    pSource.close();
    pApp.bStopRepair = false;
    bAviSample = false;
    hasVideo_Strh = false;
    pApp.bMpegSampleInUse = false;
    pApp.bMkvSampleInUse = false;
    strFileName.clear();
    if (pApp.bSampleRun)
        Q_EMIT disableAddReferenceBtn();
    const int count = list.size();
    Q_EMIT ShowOverAllProgressBar();
    Q_EMIT OverAllProgressBarMax(count);
    Q_EMIT OverAllProgressValue(0, 0, count);
    if (!pApp.bSampleRun)
        CleanTemporaryWorkFolder();

    for (int i = 0; i < count; ++i) {
        Q_EMIT OverAllProgressValue(i + 1, i * 100 / count, count);
        pApp.nFormatCode = 0;
        pApp.carve = RepairState::CarveReport();
        if (pApp.bStopRepair)
            break;
        const QString entry = list.at(i);
        strEntryCopy = entry;
        SetUpWorkFolder();
        if (!entry.isEmpty()) {
            strSourcePath = entry;
            pSource.open(entry);
        }
        strRepairedDir = pApp.strWorkBase + "/" + workfolder::kRepairedName;
        strLogPath = strRepairedDir + "/" + workfolder::kLogName;
        QString sample = sampleArg;
        if (!pApp.bSampleRun)
            sample.clear(); // a first run never opens a sample, even one left from before

        const QFileInfo info(entry);
        ullFileLeft = pApp.ullFileSize = quint64(qMax<qint64>(0, info.size()));
        strFileName = info.fileName();
        strSourceName = info.absolutePath() + "/" + info.fileName();
        const QString suffix = info.suffix();
        if (suffix == "3gp" || suffix == "3g2")
            pApp.b3gpFile = true;
        Q_EMIT WriteProcessingStatus(strFileName);
        CreateLog();

        bool leave = false;
        if (suffix == "AVI" || suffix == "avi" || suffix == "DIVX" || suffix == "divx") {
            if (!pApp.strSampleFile.isEmpty() && pSample.open(sample)) {
                bAviSample = true;
                pApp.ullScanPos = 0;
                pApp.ullSampleLeft = pApp.ullSampleSize = pSample.size();
                pApp.nMoovSize = 0;
                pApp.ullMoovPos = 0;
                pApp.ullScanPos = SampleWindowStart(pApp.ullSampleSize);
                // The AVI path sets the value, not the range, of the bar; so it stands.
                Q_EMIT setProgressvalue(pApp.ullSampleSize < walk::kSmallFile ? walk::kRangeSmall
                                                                              : walk::kRangeLarge);
            }
            RepairAviFile(strFileName);
            CloseLog();
            pSource.close();
        } else if (suffix == "FLV" || suffix == "flv") {
            Q_EMIT ShowProgressBar();
            Q_EMIT FileNamelabel(strFileName);
            RepairFlvFile(strFileName);
            pSource.close();
        } else if (suffix == "DAT" || suffix == "dat") {
            Q_EMIT ShowProgressBar();
            Q_EMIT FileNamelabel(strFileName);
            RepairDatFile(strSourceName);
            if (pSource.isOpen()) {
                bool repaired = false;
                if (!pApp.bStopRepair) {
                    if (pApp.bDatRepaired) {
                        pApp.bDatRepaired = false;
                        pApp.bDatDone = true;
                        repaired = true;
                    }
                    Q_EMIT WriteStatus(repaired, hasVideo_Strh, strFileName, false);
                }
                pSource.close();
            }
        } else if (suffix == "wmv" || suffix == "asf" || suffix == "WMV" || suffix == "ASF") {
            AsfPath(sample);
        } else if (suffix == "MTS" || suffix == "mts") {
            Q_EMIT ShowProgressBar();
            Q_EMIT FileNamelabel(strFileName);
            if (pSource.isOpen()) {
                RepairMtsFile();
                bool repaired = false;
                if (!pApp.bStopRepair) {
                    if (pApp.bMtsRepaired) {
                        pApp.bMtsRepaired = false;
                        repaired = true;
                    }
                    Q_EMIT WriteStatus(repaired, hasVideo_Strh, strFileName, false);
                }
                pSource.close();
            }
        } else if (suffix == "MKV" || suffix == "mkv" || suffix == "WEBM" || suffix == "webm") {
            MkvOrMpegPath(sample, true);
        } else if (suffix == "MPEG" || suffix == "MPG" || suffix == "mpeg" || suffix == "mpg") {
            MkvOrMpegPath(sample, false);
        } else {
            leave = AtomPath(entry, sample);
        }
        CloseLog();
        pSource.close();
        if (!pApp.bStopRepair) {
            outcome::FileReport report;
            report.why = pApp.carve.why;
            report.detail = pApp.carve.whyDetail;
            report.carved = pApp.carve.carved;
            report.mediaBytes = pApp.carve.mediaBytes;
            report.claimedBytes = pApp.carve.claimedBytes;
            Q_EMIT FileReported(i, strFileName.isEmpty() ? info.fileName() : strFileName, report);
        }
        if (leave)
            break;
        Q_EMIT OverAllProgressValue(i + 1, (i + 1) * 100 / count, count);
    }
    pSample.close();
}

quint64 ThreadVideoRepair::SampleWindowStart(quint64 size)
{
    if (size < walk::kSmallFile)
        return 0;
    if (size <= walk::kHugeSample)
        return size - walk::kSampleWin1;
    return size - walk::kSampleWin1Huge;
}

void ThreadVideoRepair::AsfPath(const QString &sample)
{
    Q_EMIT ShowProgressBar();
    Q_EMIT FileNamelabel(strFileName);
    strAsfSource = strSourcePath;
    if (!sample.isEmpty()) {
        pSource.close();
        strAsfSample = sample;
        pSource.open(sample);
        hasVideo_Strh = true;
        ReadAsfHeaders();
    } else {
        ReadAsfHeaders();
    }
    pSource.open(strEntryCopy);
    bool repaired = false;
    if (pApp.bAsfHeadersFound) {
        pApp.bAsfHeadersFound = false;
        repaired = true;
        RepairAsfFile(strRepairedDir);
    }
    if (!pApp.bSampleRun) {
        if (pApp.bAsfMuxFailed) {
            pApp.bAsfMuxFailed = false;
            repaired = false;
        }
        if (!pApp.bStopRepair)
            Q_EMIT WriteStatus(repaired, hasVideo_Strh, strFileName, false);
    } else if (!pApp.bAsfMuxFailed) {
        repaired = true;
        hasVideo_Strh = true;
    }
    // A first run reports such a file twice; the second report finds no row
    // still processing, so it changes nothing.
    if (!pApp.bStopRepair)
        Q_EMIT WriteStatus(repaired, hasVideo_Strh, strFileName, false);
    pSource.close();
}

void ThreadVideoRepair::MkvOrMpegPath(const QString &sample, bool mkv)
{
    bool &inUse = mkv ? pApp.bMkvSampleInUse : pApp.bMpegSampleInUse;
    if (mkv)
        strMkvSample.clear();
    Q_EMIT ShowProgressBar();
    Q_EMIT FileNamelabel(strFileName);
    if (!pApp.strSampleFile.isEmpty()) {
        if (mkv)
            strMkvSample = sample;
        if (pSample.open(sample)) {
            inUse = true;
            pApp.ullSampleLeft = pApp.ullSampleSize = pSample.size();
            if (mkv) {
                Q_EMIT ShowProgressBar();
                Q_EMIT FileNamelabel(QFileInfo(sample).fileName());
            }
            pApp.nMoovSize = 0;
            pApp.ullMoovPos = 0;
            pApp.ullScanPos = SampleWindowStart(pApp.ullSampleSize);
            Q_EMIT SetProgressBarRange(pApp.ullSampleSize < walk::kSmallFile ? walk::kRangeSmall
                                                                             : walk::kRangeLarge);
        }
    }
    pApp.bMuxedResult = false;
    if (mkv) {
        if (inUse) {
            RepairMkvFile(pApp.ullSampleLeft, pSample);
            pSample.close();
        } else {
            RepairMkvFile(ullFileLeft, pSource);
        }
    } else {
        // The first audio (C0) or video (E0) packet start of the damaged file.
        static const char kAudioPes[] = "\x00\x00\x01\xC0", kVideoPes[] = "\x00\x00\x01\xE0";
        quint64 p = 0;
        for (; p < ullFileLeft && !pApp.bStopRepair; ++p) {
            const quint8 *b = pSource.peek(p, 4);
            quint8 tmp[4];
            if (!b) {
                pSource.readAt(p, tmp, 4);
                b = tmp;
            }
            if (b[0] || b[1] || b[2] != 1)
                continue;
            if (std::memcmp(b, kAudioPes, 4) == 0 || std::memcmp(b, kVideoPes, 4) == 0)
                break;
        }
        const quint64 found = p;
        if (inUse)
            RepairMpegFile(found, pSample, pApp.ullSampleLeft);
        else
            RepairMpegFile(found, pSource, ullFileLeft);
    }
    CloseLog();
    pSource.close();
}

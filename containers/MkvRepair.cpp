// The MKV and WebM path of the repair thread: its named stages over the mkv
// engine. A file whose H.264 codec ID is readable is remuxed by ffmpeg, or,
// with a sample, carved block by block and muxed again; any other file is
// rebuilt from its Info, Tracks (its own or the sample's) and clusters.

#include "carve/video/WorkFiles.h"
#include "containers/ContainerConstants.h"
#include "containers/Mkv.h"
#include "mux/FfmpegRunner.h"
#include "mux/MuxStages.h"
#include "repair/RepairLine.h"
#include "repair/ThreadVideoRepair.h"

#include <QFile>
#include <QFileInfo>
#include <QtDebug>

namespace {
bool sameFile(const QString &a, const QString &b)
{
    const QString ca = QFileInfo(a).canonicalFilePath();
    return !ca.isEmpty() && ca == QFileInfo(b).canonicalFilePath();
}
} // namespace

void ThreadVideoRepair::RepairMkvFile(quint64 size, BufferedReader &file)
{
    pApp.bMuxedResult = false;
    if (!strOutputPath.isEmpty())
        pApp.lstMuxedFiles << strOutputPath;
    pApp.ullScanPos = 0;
    ThreadProgress progress(*this);
    if (size > mkv::kSmallFile) {
        Q_EMIT ShowProgressBar();
        Q_EMIT FileNamelabel(strFileName);
        Q_EMIT SetProgressBarRange(mkv::kPercentRange);
        const quint64 codecId = mkv::FindAvcCodecId(file, size / mkv::kCodecSearchShare, &progress, pApp.bStopRepair);
        if (codecId != mkv::kNotFound) {
            if (!pApp.bMkvSampleInUse)
                RemuxMkv();
            else
                CarveMkvWithSample(file, codecId);
            return;
        }
    }
    if (pApp.bStopRepair)
        return;
    const bool fromFile = !pApp.bMkvSampleInUse;
    mkvHeads = mkv::FindHeads(file, size, pApp.bStopRepair);
    if (!mkvHeads.found()) {
        if (!pApp.bStopRepair)
            Q_EMIT WriteAVIFileStatus(false, strFileName);
        return;
    }
    ListMkvClusters();
    if (pApp.bStopRepair)
        return;
    if (mkvClusters.clusters == 0) {
        // The structure was read but holds nothing to copy: no file is made,
        // and the row shows that none came of it.
        pApp.carve.fail(outcome::Why::NothingFound, tr("no cluster of the file could be read"));
        Q_EMIT WriteAVIFileStatus(true, strFileName);
        return;
    }
    const QString error = WriteMkvFile(fromFile, fromFile);
    if (pApp.bStopRepair)
        return;
    if (!error.isEmpty()) {
        pApp.carve.fail(outcome::Why::WriteFailed, error);
        Q_EMIT WriteAVIFileStatus(false, strFileName);
        return;
    }
    Q_EMIT WriteAVIFileStatus(true, strFileName);
}

void ThreadVideoRepair::RemuxMkv()
{
    const QString out = workfiles::OutputFolder() + "/" + strFileName;
    bool exists = false;
    if (sameFile(out, strSourcePath)) {
        qWarning().noquote() << "The result would replace the damaged file" << strSourcePath;
    } else {
        CarverArgs args;
        args.strSource = strSourceName;
        bool finished = false;
        RunMuxRow(QStringLiteral("MkvRemux"), args, QString(), &finished);
        // A copy ffmpeg hadn't finished within its time is no result.
        if (!finished)
            QFile::remove(out);
        exists = QFileInfo(out).isFile();
    }
    pApp.bMuxedResult = true;
    WriteMkvFile(exists, exists);
    if (!pApp.bStopRepair)
        Q_EMIT WriteAVIFileStatus(exists, strFileName);
}

void ThreadVideoRepair::CarveMkvWithSample(BufferedReader &file, quint64 codecId)
{
    pApp.bMuxedResult = false;
    QFile video(workfiles::Path(workfiles::kVideoH264));
    if (!video.open(QIODevice::ReadWrite | QIODevice::Truncate)) {
        pApp.carve.fail(outcome::Why::WriteFailed, video.errorString());
        Q_EMIT WriteAVIFileStatus(false, strFileName);
        return;
    }
    video.write(mkv::ParameterSets(file, codecId));

    const QString ffmpeg = mux::FindFfmpeg();
    qDebug().noquote() << "Input file:" << strMkvSample;
    qDebug().noquote() << "FFmpeg base path:" << mux::FfmpegDir();
    qDebug().noquote() << "Full FFmpeg path:" << ffmpeg;
    pApp.strProbedFps = ffmpeg.isEmpty() ? QString() : mux::ProbeFrameRate(strMkvSample, ffmpeg);
    if (pApp.strProbedFps.isEmpty())
        qDebug() << "Required codecs not found or FFmpeg failed!"; // the mux goes on at 30
    else
        qDebug().noquote() << "Frame rate:" << pApp.strProbedFps << "fps";
    CarveMkvBlocks(video);
}

void ThreadVideoRepair::CarveMkvBlocks(QFile &video)
{
    CarverArgs args;
    args.strVideo = video.fileName();
    args.strAudio = workfiles::Path(workfiles::kAudioAac);
    QFile audio(args.strAudio);
    pApp.bMuxedResult = true;
    Q_EMIT SetProgressBarRange(mkv::kPercentRange);
    pApp.ullScanPos = 0;
    mkv::Carved carved;
    if (audio.open(QIODevice::ReadWrite | QIODevice::Truncate)) {
        ThreadProgress progress(*this);
        carved = mkv::CarveBlocks(pSource, video, audio, pApp, &progress, pApp.bStopRepair);
    } else {
        carved.written = false;
    }
    video.close();
    audio.close();
    if (video.error() != QFileDevice::NoError || audio.error() != QFileDevice::NoError)
        carved.written = false;
    pApp.carve.carved = true;
    pApp.carve.videoUnits = carved.videoUnits;
    pApp.carve.soundFrames = carved.audioFrames;
    pApp.carve.soundBytes = carved.audioBytes;
    pApp.carve.mediaBytes = pSource.size();
    pApp.carve.claimedBytes = carved.videoBytes + carved.audioBytes;
    if (pApp.bStopRepair || !carved.written) {
        if (!carved.written)
            pApp.carve.fail(outcome::Why::WriteFailed, tr("the stream files could not be written"));
        mux::RemoveWorkFiles(mux::StageId::Mkv);
        if (!pApp.bStopRepair)
            Q_EMIT WriteAVIFileStatus(false, strFileName);
        return;
    }
    MuxMkvStreams(args);
}

void ThreadVideoRepair::MuxMkvStreams(CarverArgs &args)
{
    MuxMkv(args);
    // An .mkv name gets a .mov written; it is named as the row expects it.
    const QString dir = workfiles::OutputFolder(), out = dir + "/" + strFileName;
    const QString written = dir + "/" + strFileName.section('.', 0, 0) + ".mov";
    strFinalName = strFileName;
    if (QFileInfo(strFileName).suffix().toUpper() == "MKV" && QFileInfo(written).isFile()) {
        if (sameFile(out, strSourcePath)) {
            qWarning().noquote() << "Result left as" << written << "so as not to replace the source";
        } else {
            QFile::remove(out);
            if (!QFile::rename(written, out))
                qWarning().noquote() << "Cannot rename" << written << "to" << out;
        }
    }
    const bool exists = QFileInfo(out).isFile() && !sameFile(out, strSourcePath);
    if (!pApp.bStopRepair)
        Q_EMIT WriteAVIFileStatus(exists, strFileName);
}

void ThreadVideoRepair::ListMkvClusters()
{
    pApp.bMuxedResult = false;
    RepairLine cipher;
    ThreadProgress progress(*this);
    mkvClusters = mkv::ListClusters(pSource, pApp.ullScanPos, hLog, cipher, &progress, pApp.bStopRepair);
}

QString ThreadVideoRepair::WriteMkvFile(int tracksFromFile, int infoFromFile)
{
    if (pApp.bMuxedResult) {
        const QString muxed = workfiles::OutputFolder() + "/" + strFileName;
        if (tracksFromFile && QFileInfo(muxed).isFile())
            pApp.lstRepairedFiles << muxed;
        return QString();
    }
    const QString out = strRepairedDir + "/" + strFileName;
    QString error;
    hLog.flush();
    if (!mkvClusters.written) {
        error = hLog.error() != QFileDevice::NoError ? hLog.errorString() : tr("the cluster list could not be written");
    } else if (sameFile(out, pSource.path())) {
        error = tr("the result would replace the damaged file");
    } else {
        CloseLog();
        error = mkv::WriteFile(out, mkvHeads, infoFromFile ? pSource : pSample, tracksFromFile ? pSource : pSample,
                               pSource, strLogPath, mkvClusters, pApp.bStopRepair);
        if (error.isEmpty())
            pApp.lstRepairedFiles << out;
    }
    pApp.bMkvSampleInUse = false;
    mkvHeads = mkv::Heads();
    mkvClusters = mkv::ClusterList();
    return error;
}

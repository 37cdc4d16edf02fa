// The atom path of the driver: classify, run the pipeline of the format code,
// rebuild, give the verdict.

#include "repair/ThreadVideoRepair.h"

#include "containers/Mp4Info.h"

#include <QFileInfo>
#include <QtDebug>

namespace {
using Entry = void (ThreadVideoRepair::*)(CarverArgs &);

// One row per test of the format switch, in the order the tests are made.
// Each test reads the code anew, so a pipeline that changes it steers the
// tests after it.
struct PipelineRow
{
    quint32 code;
    bool closeSourceFirst;
    bool reopenAfter;
    Entry h264;
    Entry hevc; // taken instead when bHevcWithPcm is set (and it is then cleared)
};

const PipelineRow kPipelines[] = {
    {3, false, false, &ThreadVideoRepair::RepairImkhFile, nullptr},
    {2, true, false, &ThreadVideoRepair::CarveMpegPsInMov, nullptr},
    {18, false, false, &ThreadVideoRepair::RepairTsInMov, nullptr},
    {14, false, false, &ThreadVideoRepair::Repair3gpStream, nullptr},
    {17, false, false, &ThreadVideoRepair::RepairMotionJpeg, nullptr},
    {16, false, false, &ThreadVideoRepair::RepairProResStream, nullptr},
    {9, true, true, &ThreadVideoRepair::CarveH264WithImaAdpcm, nullptr},
    {10, true, true, &ThreadVideoRepair::CarveH264WithOpus, nullptr},
    {11, true, true, &ThreadVideoRepair::CarveH264WithAlaw, &ThreadVideoRepair::CarveHevcWithAlaw},
    {8, true, true, &ThreadVideoRepair::CarveH264WithAc3, nullptr},
    {15, true, true, &ThreadVideoRepair::CarveAv1Video, nullptr},
    {7, true, true, &ThreadVideoRepair::CarveMpeg4Video, nullptr},
    {13, true, true, &ThreadVideoRepair::CarveH264WithUlaw, &ThreadVideoRepair::CarveHevcWithUlaw},
    {12, true, true, &ThreadVideoRepair::CarveH264WithLpcm, &ThreadVideoRepair::CarveHevcWithLpcm},
    {6, true, true, &ThreadVideoRepair::CarveHevcWithAac, nullptr},
    {5, true, true, &ThreadVideoRepair::CarveH264WithTwosPcm, &ThreadVideoRepair::CarveHevcWithTwosPcm},
    {1, true, true, &ThreadVideoRepair::CarveH264WithSowtPcm, nullptr},
    {4, true, true, &ThreadVideoRepair::CarveH264WithMp3, nullptr},
    {0, true, true, &ThreadVideoRepair::CarveH264WithAac, nullptr},
};
} // namespace

bool ThreadVideoRepair::RunAtomPipelines(CarverArgs &args, const QString &entry)
{
    for (const PipelineRow &row : kPipelines) {
        if (pApp.nFormatCode != row.code)
            continue;
        if (row.closeSourceFirst)
            pSource.close();
        Entry call = row.h264;
        if (row.hevc && pApp.bHevcWithPcm) {
            pApp.bHevcWithPcm = false;
            call = row.hevc;
        }
        (this->*call)(args);
        if (row.reopenAfter)
            pSource.open(entry);
        if (pApp.bStopRepair)
            return true;
    }
    return false;
}

bool ThreadVideoRepair::SampleDiffers(const QString &entry, const QString &sample)
{
    BufferedReader recording(size_t(1) << 20);
    if (!recording.open(entry))
        return false;
    const mp4info::Info rec = mp4info::Read(recording), smp = mp4info::ReadFile(sample);
    // Units are only probed for when the sample's codec has them to compare.
    const mp4info::Codec sampleCodec = mp4info::CodecOf(smp.video.codec);
    const bool probe = !rec.video.present && (sampleCodec == mp4info::Codec::H264 || sampleCodec == mp4info::Codec::Hevc);
    const mp4info::Codec codec = probe ? mp4info::DetectNalCodec(recording, sampleCodec) : mp4info::Codec::Unknown;
    const QString differs = mp4info::Differences(rec, codec, smp);
    if (differs.isEmpty())
        return false;
    qDebug().noquote() << "Sample and recording differ:" << differs;
    pApp.carve.fail(outcome::Why::WrongSample, differs);
    return true;
}

void ThreadVideoRepair::NoteEmptyFile(const QString &entry)
{
    BufferedReader file(size_t(1) << 20);
    if (file.open(entry) && !mp4info::StartsLikeMp4(file) &&
        mp4info::DetectNalCodec(file) == mp4info::Codec::Unknown)
        pApp.carve.fail(outcome::Why::NothingFound, QStringLiteral("no video data in the file"));
}

bool ThreadVideoRepair::AtomPath(const QString &entry, const QString &sample)
{
    // A sample from another camera or with other settings would teach the
    // carve patterns the recording doesn't have: the file waits, saying why.
    if (pApp.bSampleRun && !sample.isEmpty() && SampleDiffers(entry, sample)) {
        if (!pApp.bStopRepair)
            Q_EMIT WriteStatus(false, hasVideo_Strh, strFileName, false);
        pSource.close();
        return false;
    }
    if (pApp.bSampleRun)
        NoteEmptyFile(entry);
    bool moovFound = false;
    if (!sample.isEmpty() || pApp.bSampleRun)
        moovFound = ScanSampleFile(sample);
    else if (pSource.isOpen())
        moovFound = WalkDamagedFile();

    bool runSwitch = moovFound;
    if (!moovFound && !pApp.bSampleRun)
        NoteEmptyFile(entry);
    if (!moovFound) {
        if (!pApp.bStopRepair)
            Q_EMIT WriteStatus(false, hasVideo_Strh, strFileName, false);
        runSwitch = hasVideo_Strh;
    }

    if (runSwitch) {
        if (!strFileName.isEmpty() && !pApp.bStopRepair)
            Q_EMIT FileNamelabel(strFileName);
        CarverArgs args;
        args.strSource = strSourceName;
        args.strSample = strSampleName;
        if (pApp.nFormatCode == 3)
            moovFound = false;
        if (RunAtomPipelines(args, entry)) {
            pPlaced.reset();
            return true;
        }

        CloseLog();
        if (!pApp.bStopRepair)
            WriteRebuiltFile(strLogPath);
        pPlaced.reset(); // pieces no rebuild took over are removed
        if (!pApp.bStopRepair) {
            if (pApp.nFormatCode == 3) {
                Q_EMIT WriteStatus(true, hasVideo_Strh, strFileName, false);
                moovFound = false;
            }
            if (pApp.bCarveFailed) {
                pApp.bCarveFailed = false;
                moovFound = false;
            }
            Q_EMIT WriteStatus(moovFound, hasVideo_Strh, strFileName, pApp.nFormatCode == 0);
        }
        pSource.close();
        lstSoundChunkSamples.clear();
        lstVideoChunkSamples.clear();
    }

    // Close-down of the file.
    if (pApp.nFormatCode != 3 && !moovFound && !pApp.bKeepLogHandle)
        CloseLog();
    pSource.close();
    if (pApp.bSampleRun)
        pSample.close();
    return false;
}

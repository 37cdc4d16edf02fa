// The mux stages as data, and the one routine that runs any of them in the
// fixed order: flags, work folder, old output removed, frame rate, command,
// judging and fallback, work files removed.

#include "mux/MuxStages.h"

#include "carve/video/WorkFiles.h"
#include "containers/Mp4Info.h"
#include "mux/CompositionTimes.h"
#include "repair/ThreadVideoRepair.h"

#include <QDir>
#include <QFileInfo>
#include <QtDebug>
#include <atomic>

namespace mux {

namespace {
using namespace workfiles;
const QList<const char *> kH264Aac = {kVideoH264, kAudioAac, kVideoHeads, kAudioHeads, kIndexing, kVideoUnique,
                                      kAudioUnique};
const QList<const char *> kHevcAac = {kVideoHevc, kAudioAac, kVideoHeads, kAudioHeads, kIndexing, kVideoUnique,
                                      kAudioUnique};
const QList<const char *> kAv1 = {kVideoAv1, kAudioAac, kAudioHeads, kAudioUnique};
const QList<const char *> kMpeg4 = {kVideoM4v, kAudioAac, kAudioHeads, kAudioUnique};
const QList<const char *> kH264Ac3 = {kVideoH264, kAudioAc3, kVideoHeads, kAudioHeads, kIndexing, kVideoUnique,
                                      kAudioUnique};
const QList<const char *> kH264Wav = {kVideoH264, kAudioWav, kAudioWavFull, kVideoHeads, kAudioHeads, kIndexing,
                                      kVideoUnique, kAudioUnique};
const QList<const char *> kHevcWav = {kVideoHevc, kAudioWav, kAudioWavFull, kVideoHeads, kAudioHeads, kIndexing,
                                      kVideoUnique, kAudioUnique};
const QList<const char *> kH264Lpcm = {kVideoH264, kAudioPcmGaps, kVideoHeads, kAudioHeads, kIndexing, kVideoUnique,
                                       kAudioUnique};
const QList<const char *> kHevcLpcm = {kVideoHevc, kAudioPcmGaps, kVideoHeads, kAudioHeads, kIndexing, kVideoUnique,
                                       kAudioUnique};
const QList<const char *> kH264Sowt = {kVideoH264, kAudioWav, kAudioWavFull};
const QList<const char *> kH264Twos = {kVideoH264, kAudioPcm};
const QList<const char *> kHevcTwos = {kVideoHevc, kAudioPcm};
const QList<const char *> kH264AacPair = {kVideoH264, kAudioAac};
// The program-stream stage names the HEVC file, as it always has.
const QList<const char *> kMpegPs = {kVideoHevc, kAudioAac};

constexpr RowId kNone = RowId::Count;

const Stage kStages[] = {
    {StageId::H264Aac, "H264Aac", RowId::H264AacMux, RowId::H264AacVideoOnly, RowId::H264AacVideoFallback,
     Choose::SampleHasAudio, Fallback::EmptyOutputVideoNotEmpty, kSecondTryAtSampleRate | kInMuxStageVideoOnly,
     kH264Aac},
    {StageId::HevcAac, "HevcAac", RowId::HevcAacMux, RowId::HevcAacVideoOnly, RowId::HevcAacVideoFallback,
     Choose::SampleHasAudio, Fallback::EmptyOutputVideoNotEmpty,
     kDashTreatment | kInMuxStageVideoOnly | kLogVideoOnlyExit, kHevcAac},
    {StageId::Av1, "Av1", RowId::Av1AacMux, RowId::Av1Reencode, kNone, Choose::Av1, Fallback::None, 0, kAv1},
    {StageId::H264Ac3, "H264Ac3", RowId::H264Ac3Mux, kNone, kNone, Choose::Always, Fallback::None, 0, kH264Ac3},
    {StageId::Ts, "Ts", RowId::TsMux, kNone, RowId::TsVideoFallback, Choose::Always, Fallback::EmptyOutput, 0,
     kH264AacPair},
    {StageId::H264Alaw, "H264Alaw", RowId::H264AlawMux, RowId::H264WavVideoOnly, kNone, Choose::NoAudioFlag,
     Fallback::None, 0, kH264Wav},
    {StageId::H264Ulaw, "H264Ulaw", RowId::H264UlawMux, RowId::H264WavVideoOnly, kNone, Choose::NoAudioFlag,
     Fallback::None, 0, kH264Wav},
    {StageId::HevcAlaw, "HevcAlaw", RowId::HevcAlawMux, RowId::HevcWavVideoOnly, kNone, Choose::NoAudioFlag,
     Fallback::None, 0, kHevcWav},
    {StageId::HevcUlaw, "HevcUlaw", RowId::HevcUlawMux, RowId::HevcWavVideoOnly, kNone, Choose::NoAudioFlag,
     Fallback::None, 0, kHevcWav},
    // The WAV stage built the sound, but this chain never muxes it; so it stays.
    {StageId::H264Opus, "H264Opus", kNone, RowId::H264OpusMux, kNone, Choose::NeverAudio, Fallback::None, 0,
     kH264Wav},
    {StageId::H264Ima, "H264Ima", RowId::H264ImaMux, RowId::H264ImaVideoOnly, kNone, Choose::NoAudioFlag,
     Fallback::None, 0, kH264Wav},
    {StageId::H264Sowt, "H264Sowt", RowId::H264SowtMux, kNone, RowId::H264SowtVideoFallback, Choose::Always,
     Fallback::EmptyOutput, kAudioIsWavPath, kH264Sowt},
    {StageId::H264Lpcm, "H264Lpcm", RowId::H264LpcmMux, kNone, kNone, Choose::Always, Fallback::None,
     kPcmDescription, kH264Lpcm},
    {StageId::HevcLpcm, "HevcLpcm", RowId::HevcLpcmMux, kNone, kNone, Choose::Always, Fallback::None,
     kPcmDescription, kHevcLpcm},
    {StageId::H264Twos, "H264Twos", RowId::H264TwosMux, kNone, kNone, Choose::Always, Fallback::None,
     kRsvAsMp4 | kPcmDescription | kClearArgsAfter, kH264Twos},
    {StageId::HevcTwos, "HevcTwos", RowId::HevcTwosMux, kNone, kNone, Choose::Always, Fallback::None, kRsvAsMp4,
     kHevcTwos},
    {StageId::H264Mp3, "H264Mp3", RowId::H264Mp3Mux, kNone, RowId::H264Mp3VideoFallback, Choose::Always,
     Fallback::EmptyOutput, 0, kH264AacPair},
    {StageId::Mpeg4, "Mpeg4", RowId::Mpeg4AacMux, RowId::Mpeg4VideoOnly, kNone, Choose::SampleHasAudio,
     Fallback::None, 0, kMpeg4},
    {StageId::MpegPs, "MpegPs", RowId::MpegPsMux, kNone, RowId::MpegPsVideoFallback, Choose::Always,
     Fallback::EmptyOutput, 0, kMpegPs},
    {StageId::Mkv, "Mkv", RowId::MkvAacMux, RowId::MkvVideoOnly, kNone, Choose::AudioFileSize, Fallback::None,
     kMkvAsMov | kProbedFps, kH264AacPair},
};
static_assert(sizeof kStages / sizeof kStages[0] == size_t(StageId::Count), "one stage per StageId, in order");

qint64 sizeOf(const QString &path) { return QFileInfo(path).size(); }

// The sample's exact frame rate, in a run that has a sample; empty otherwise.
QString sampleRate(RepairState &s)
{
    s.strExactRate.clear();
    if (s.bSampleRun && !s.strSampleFile.isEmpty()) {
        const mp4info::Rate rate = mp4info::ExactRate(mp4info::ReadFile(s.strSampleFile).video);
        if (rate.known())
            s.strExactRate = rate.text();
    }
    return s.strExactRate;
}
} // namespace

const Stage &StageOf(StageId id) { return kStages[int(id)]; }

namespace {
std::atomic<bool> g_keepWorkFiles{false};
}
void SetKeepWorkFiles(bool keep) { g_keepWorkFiles = keep; }
bool KeepWorkFiles() { return g_keepWorkFiles; }

const Stage *StageByName(const QString &name)
{
    for (const Stage &s : kStages)
        if (name == QLatin1String(s.name))
            return &s;
    return nullptr;
}

void RemoveWorkFiles(StageId id)
{
    if (KeepWorkFiles())
        return;
    for (const char *name : StageOf(id).removes)
        QFile::remove(workfiles::Path(name));
}

} // namespace mux

using namespace mux;

void ThreadVideoRepair::RunMuxStage(StageId id, CarverArgs &args, int withSound)
{
    const Stage &stage = StageOf(id);
    RepairState &s = pApp;
    s.bMuxedResult = s.bMuxStageRan = s.bListMuxedFiles = true;
    const QString workDir = workfiles::EnsureWorkFolder();
    const QString outDir = workfiles::OutputFolder();

    // The output's name.
    const QFileInfo source(args.strSource.isEmpty() ? strFileName : args.strSource);
    if ((stage.flags & kRsvAsMp4) && source.suffix().compare("rsv", Qt::CaseInsensitive) == 0) {
        strFileName = source.completeBaseName() + ".mp4";
        strFinalName = strFileName;
    }
    QString out = strFileName;
    if ((stage.flags & kMkvAsMov) && QFileInfo(strFileName).suffix().toUpper() == "MKV")
        out = strFileName.section('.', 0, 0) + ".mov";
    bool renamed = false;
    if (stage.flags & kDashTreatment) {
        strFinalName = strFileName;
        qDebug().noquote() << "Original filename :" << QFileInfo(strFinalName).fileName();
        const QString fixed = FixLeadingDashes(strFinalName);
        renamed = fixed != strFinalName;
        qDebug().noquote() << "Fixed filename    :" << fixed;
        strFinalName = fixed;
        qDebug().noquote() << "Final full path   :" << strFinalName;
        out = strFinalName;
    }
    strAltName = "1_" + strFileName;
    const QString outPath = outDir + "/" + out;
    const QString altPath = outDir + "/" + strAltName;
    // ffmpeg is never asked to overwrite: an old result can't survive a failure.
    QFile::remove(outPath);
    if (stage.flags & kSecondTryAtSampleRate)
        QFile::remove(altPath);

    // The frame rate.
    Values v;
    v.video = args.strVideo;
    v.audio = (stage.flags & kAudioIsWavPath) ? s.strAudioWavPath : args.strAudio;
    v.source = args.strSource;
    v.out = out;
    v.alt = strAltName;
    if (stage.flags & kProbedFps) {
        v.fps = s.strProbedFps;
        if (v.fps.isEmpty()) {
            v.fps = QString::number(kDefaultFps);
            s.nMuxFps = kDefaultFps;
        }
    } else {
        s.nMuxFps = FrameRate(s.nSampleFrames, s.nSampleDuration, s.nSampleTimeScale);
        v.fps = QString::number(s.nMuxFps);
    }
    v.exactRate = sampleRate(s);
    // With the exact rate there is no second result at a whole rate to offer.
    const bool secondTry = (stage.flags & kSecondTryAtSampleRate) && v.exactRate.isEmpty();
    if (stage.flags & kPcmDescription) {
        const PcmDescription pcm = DescribePcm(s.nSoundBits, s.nSoundSampleRate, s.nSoundChannels);
        v.fmt = pcm.fmt;
        s.nMuxRate = pcm.rate;
        s.nMuxChannels = pcm.channels;
        v.rate = QString::number(pcm.rate);
        v.ch = QString::number(pcm.channels);
    }

    // The display order of a raw H.264 stream, read once for the stage's runs.
    bool orderRead = false;
    carve::PictureOrder order;
    auto run = [&](RowId row, const QString &name) {
        Values w = v;
        w.out = name;
        const Row &r = RowOf(row);
        const QStringList a = BuildArguments(r, w);
        const RunResult res = Run(r.form, a, workDir);
        // At the sample's rate, B-frames get their presentation times from
        // the stream's own picture order.
        if (res.exitCode == 0 && !v.exactRate.isEmpty() && GivesRawVideoARate(r) &&
            v.video.endsWith(QLatin1String(".h264"))) {
            if (!orderRead) {
                order = carve::H264DisplayOrderOfFile(v.video);
                orderRead = true;
            }
            if (AddCompositionTimes(outDir + "/" + name, order))
                qDebug().noquote() << "Presentation times from the picture order, delay" << order.delay;
        }
        if (r.logOutput && !res.output.isEmpty())
            qDebug().noquote() << res.output;
        // A result the disk couldn't take whole is no result.
        for (const char *why : {"No space left on device", "File too large", "Input/output error",
                                "Disk quota exceeded"}) {
            if (res.exitCode != 0 && res.output.contains(QLatin1String(why))) {
                QFile::remove(outDir + "/" + name);
                s.carve.failReason = QStringLiteral("Could not write %1: %2").arg(name, QLatin1String(why));
                qWarning().noquote() << s.carve.failReason;
                s.carve.fail(outcome::Why::WriteFailed, QLatin1String(why));
                break;
            }
        }
        return res;
    };

    // Choose and run.
    bool withAudio = true;
    switch (stage.choose) {
    case Choose::Always: withAudio = true; break;
    case Choose::SampleHasAudio: withAudio = s.bSampleHasAudio; break;
    case Choose::NoAudioFlag: withAudio = !s.bNoAudioForMux; break;
    case Choose::AudioFileSize: withAudio = sizeOf(v.audio) > 0; break;
    case Choose::Av1:
        if (sizeOf(v.audio) == 0)
            s.bNoAudioForMux = true;
        withAudio = !s.bNoAudioForMux && s.bSampleHasAudio;
        break;
    case Choose::NeverAudio:
        s.bNoAudioForMux = true;
        withAudio = false;
        break;
    }
    // A splitter knows which branch it took; it has cleared the sample's flag by now.
    if (withSound >= 0 && stage.videoOnly != RowId::Count && stage.choose == Choose::SampleHasAudio)
        withAudio = withSound == 1;

    if (withAudio) {
        run(stage.first, out);
        const bool unusualRate = secondTry && RateOutsideUsual(s.nMuxFps);
        if (unusualRate)
            run(RowId::H264AacMuxAlt, strAltName);
        bool fallBack = false;
        if (stage.fallbackWhen != Fallback::None && sizeOf(outPath) == 0) {
            QFile::remove(outPath);
            fallBack = stage.fallbackWhen == Fallback::EmptyOutput || sizeOf(v.video) > 0;
        }
        if (fallBack && stage.fallback != RowId::Count) {
            // The sound was refused: the picture alone, and no half of a pair.
            if (unusualRate)
                QFile::remove(altPath);
            run(stage.fallback, out);
        }
    } else {
        if (stage.flags & kInMuxStageVideoOnly)
            s.bInMuxStage = true;
        const RunResult res = run(stage.videoOnly, out);
        if (stage.flags & kLogVideoOnlyExit)
            qDebug() << "ffmpeg exit code" << res.exitCode;
        if (secondTry && RateOutsideUsual(s.nMuxFps))
            run(stage.videoOnly, strAltName);
    }

    if (renamed)
        QFile::rename(outDir + "/" + strFinalName, outDir + "/" + strFileName);
    if (stage.flags & kClearArgsAfter) {
        args.strSource.clear();
        args.strSample.clear();
        args.strVideoHeads.clear();
        args.strIndexing.clear();
    }
    RemoveWorkFiles(id);
    s.bInMuxStage = false;
}

#define VM_MUX_ENTRY(name) \
    void ThreadVideoRepair::Mux##name(CarverArgs &args) { RunMuxStage(StageId::name, args); }
VM_MUX_ENTRY(H264Aac)
VM_MUX_ENTRY(HevcAac)
VM_MUX_ENTRY(Av1)
VM_MUX_ENTRY(H264Ac3)
VM_MUX_ENTRY(Ts)
VM_MUX_ENTRY(H264Alaw)
VM_MUX_ENTRY(H264Ulaw)
VM_MUX_ENTRY(HevcAlaw)
VM_MUX_ENTRY(HevcUlaw)
VM_MUX_ENTRY(H264Opus)
VM_MUX_ENTRY(H264Ima)
VM_MUX_ENTRY(H264Sowt)
VM_MUX_ENTRY(H264Lpcm)
VM_MUX_ENTRY(HevcLpcm)
VM_MUX_ENTRY(H264Twos)
VM_MUX_ENTRY(HevcTwos)
VM_MUX_ENTRY(H264Mp3)
VM_MUX_ENTRY(Mpeg4)
VM_MUX_ENTRY(MpegPs)
VM_MUX_ENTRY(Mkv)
#undef VM_MUX_ENTRY

bool ThreadVideoRepair::RunMuxRow(const QString &rowName, CarverArgs &args, const QString &outName, bool *finished)
{
    const Row *row = RowByName(rowName);
    if (!row)
        return false;
    RepairState &s = pApp;
    s.bMuxedResult = s.bMuxStageRan = s.bListMuxedFiles = true;
    const QString workDir = workfiles::EnsureWorkFolder();
    const QString out = outName.isEmpty() ? strFileName : outName;
    QFile::remove(workfiles::OutputFolder() + "/" + out);
    Values v;
    v.video = args.strVideo;
    v.audio = args.strAudio;
    v.source = args.strSource;
    v.in = args.strSource;
    v.out = out;
    strAltName = "1_" + strFileName;
    v.alt = strAltName;
    v.stem = QFileInfo(out).fileName().section('.', 0, 0);
    s.nMuxFps = FrameRate(s.nSampleFrames, s.nSampleDuration, s.nSampleTimeScale);
    v.fps = QString::number(s.nMuxFps);
    v.exactRate = sampleRate(s);
    const PcmDescription pcm = DescribePcm(s.nSoundBits, s.nSoundSampleRate, s.nSoundChannels);
    v.fmt = pcm.fmt;
    v.rate = QString::number(pcm.rate);
    v.ch = QString::number(pcm.channels);
    const RunResult r = Run(row->form, BuildArguments(*row, v), workDir);
    if (row->logOutput && !r.output.isEmpty())
        qDebug().noquote() << r.output;
    s.bInMuxStage = false;
    if (finished)
        *finished = r.finished;
    return r.started;
}

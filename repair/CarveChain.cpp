// The carving chains on the repair thread: each stage of carve/ runs as a
// function over the chain's files, and this driver takes the chain's row
// through its stages in turn (harvest, unique list, sound harvest, unique
// list, splitter, mux stage), reporting by the thread's signals. The named
// members are the stages under the names the rest of the engine knows.

#include "carve/video/CarveStages.h"
#include "carve/video/WorkFiles.h"
#include "mux/MuxStages.h"
#include "repair/ThreadVideoRepair.h"

#include <QFileInfo>
#include <QtDebug>

using namespace carve;

namespace {

// The mux stage that wraps what each built splitter writes.
mux::StageId muxStageOf(Splitter id)
{
    static const struct { Splitter splitter; mux::StageId stage; } kStages[] = {
        {Splitter::H264Aac, mux::StageId::H264Aac},   {Splitter::H264Mp3, mux::StageId::H264Mp3},
        {Splitter::H264Lpcm, mux::StageId::H264Lpcm}, {Splitter::H264Twos, mux::StageId::H264Twos},
        {Splitter::H264Sowt, mux::StageId::H264Sowt}, {Splitter::AlawWav, mux::StageId::H264Alaw},
        {Splitter::UlawWav, mux::StageId::H264Ulaw},  {Splitter::ImaWav, mux::StageId::H264Ima},
        {Splitter::OpusWav, mux::StageId::H264Opus},  {Splitter::Ac3, mux::StageId::H264Ac3},
        {Splitter::HevcAlawWav, mux::StageId::HevcAlaw}, {Splitter::HevcUlawWav, mux::StageId::HevcUlaw},
        {Splitter::HevcAac, mux::StageId::HevcAac},   {Splitter::HevcLpcm, mux::StageId::HevcLpcm},
        {Splitter::HevcTwos, mux::StageId::HevcTwos},  {Splitter::Mpeg4Aac, mux::StageId::Mpeg4},
        {Splitter::Av1Aac, mux::StageId::Av1},
    };
    for (const auto &k : kStages)
        if (k.splitter == id)
            return k.stage;
    return mux::StageId::H264Aac;
}

} // namespace

// A stage's surroundings for the file in hand; the count of bytes searched
// comes back to the thread with carveDone().
#define VM_STAGE_ENV                                       \
    ThreadProgress progress(*this);                        \
    Env env{pApp, &progress, strFileName, ullFileLeft, true, false, hLog.isOpen() ? &hLog : nullptr}

void ThreadVideoRepair::CarveH264(quint32 code, CarverArgs &args) { CarveChain(H264CarverRow(code), args); }
void ThreadVideoRepair::CarveHevc(quint32 code, CarverArgs &args) { CarveChain(HevcCarverRow(code), args); }

void ThreadVideoRepair::CarveChain(const CarverRow &row, CarverArgs &args)
{
    RepairState &s = pApp;
    s.bMuxedResult = s.bMuxStageRan = s.bListMuxedFiles = true;
    strFileName = QFileInfo(args.strSource).fileName();
    strCarvedName = strFileName;
    if (row.djiTag)
        s.bSampleHasDjiTag = false;
    if (!s.bSampleRun) {
        H264FirstRunCheck(row, args);
        return;
    }
    HarvestH264Sample(row, args);
    if (row.fullHarvest)
        WriteUniqueSequences(true, args);
    const Learned learned = LearnAudio(row.learner, args);
    if (learned.toUnique)
        WriteUniqueSequences(false, args);
    RunSplitter(learned.next, args);
}

void ThreadVideoRepair::H264FirstRunCheck(const CarverRow &row, CarverArgs &args)
{
    VM_STAGE_ENV;
    const FirstRun outcome = carve::H264FirstRunCheck(row, args, env);
    ullFileLeft = env.fileLeft;
    strOutputPath = pApp.lstMuxedFiles.value(pApp.lstMuxedFiles.size() - 1);
    if (outcome == FirstRun::Remux)
        RunFinaliser(row.finaliser, args);
    else
        Q_EMIT WriteStatus(false, hasVideo_Strh, strFileName, false);
}

void ThreadVideoRepair::HarvestH264Sample(const CarverRow &row, CarverArgs &args)
{
    VM_STAGE_ENV;
    carve::HarvestH264Sample(row, args, env);
    ullFileLeft = env.fileLeft;
    strOutputPath = pApp.lstMuxedFiles.value(pApp.lstMuxedFiles.size() - 1);
}

void ThreadVideoRepair::WriteUniqueSequences(bool video, CarverArgs &args)
{
    VM_STAGE_ENV;
    carve::WriteUniqueSequences(video, args, env);
    strRepairedDir = workfiles::Path("").chopped(1);
}

Learned ThreadVideoRepair::LearnAudio(Learner id, CarverArgs &args)
{
    VM_STAGE_ENV;
    const Learned next = carve::LearnAudio(id, args, env);
    ullFileLeft = env.fileLeft;
    return next;
}

void ThreadVideoRepair::RunSplitter(Splitter id, CarverArgs &args)
{
    if (!SplitterBuilt(id)) {
        // The walk of this member's recordings isn't built yet: what the sample
        // taught stays in the work folder, and the file waits as not repaired.
        args.fpVideo.reset();
        args.fpAudio.reset();
        StageNotBuilt(SplitterName(id), true);
        return;
    }
    strSpliceName = QFileInfo(args.strSource).fileName();
    VM_STAGE_ENV;
    const Split split = SplitStreams(id, args, env);
    switch (split.outcome) {
    case Split::Muxable:
        // A stopped carve leaves partial streams: no result is made of them.
        if (pApp.bStopRepair)
            break;
        pApp.carve.carved = true;
        RunMuxStage(muxStageOf(id), args, split.withSound);
        break;
    case Split::Refused:
        Q_EMIT WriteStatus(false, hasVideo_Strh, strFileName, false);
        break;
    case Split::WriteFailed:
        // No result: nothing of the chain is left behind.
        if (!mux::KeepWorkFiles()) {
            QFile::remove(args.strVideo);
            QFile::remove(args.strAudio);
        }
        mux::RemoveWorkFiles(muxStageOf(id));
        break;
    case Split::NotBuilt:
        StageNotBuilt(SplitterName(id), true);
        break;
    }
}

void ThreadVideoRepair::SplitH264Aac(CarverArgs &args) { RunSplitter(Splitter::H264Aac, args); }
void ThreadVideoRepair::SplitH264Mp3(CarverArgs &args) { RunSplitter(Splitter::H264Mp3, args); }
void ThreadVideoRepair::SplitHevcAac(CarverArgs &args) { RunSplitter(Splitter::HevcAac, args); }
void ThreadVideoRepair::SplitHevcLpcm(CarverArgs &args) { RunSplitter(Splitter::HevcLpcm, args); }
void ThreadVideoRepair::SplitHevcTwos(CarverArgs &args) { RunSplitter(Splitter::HevcTwos, args); }
void ThreadVideoRepair::SplitMpeg4Aac(CarverArgs &args) { RunSplitter(Splitter::Mpeg4Aac, args); }
void ThreadVideoRepair::CarveMpeg4Video(CarverArgs &args) { CarveChain(Mpeg4CarverRow(), args); }
void ThreadVideoRepair::SplitAv1Aac(CarverArgs &args) { RunSplitter(Splitter::Av1Aac, args); }
void ThreadVideoRepair::CarveAv1Video(CarverArgs &args) { CarveChain(Av1CarverRow(), args); }
void ThreadVideoRepair::SplitH264Lpcm(CarverArgs &args) { RunSplitter(Splitter::H264Lpcm, args); }
void ThreadVideoRepair::SplitH264Twos(CarverArgs &args) { RunSplitter(Splitter::H264Twos, args); }
void ThreadVideoRepair::SplitH264Sowt(CarverArgs &args) { RunSplitter(Splitter::H264Sowt, args); }
void ThreadVideoRepair::SplitAc3(CarverArgs &args) { RunSplitter(Splitter::Ac3, args); }
void ThreadVideoRepair::BuildAlawWav(CarverArgs &args) { RunSplitter(Splitter::AlawWav, args); }
void ThreadVideoRepair::BuildUlawWav(CarverArgs &args) { RunSplitter(Splitter::UlawWav, args); }
void ThreadVideoRepair::BuildImaWav(CarverArgs &args) { RunSplitter(Splitter::ImaWav, args); }
void ThreadVideoRepair::BuildOpusWav(CarverArgs &args) { RunSplitter(Splitter::OpusWav, args); }
void ThreadVideoRepair::BuildHevcAlawWav(CarverArgs &args) { RunSplitter(Splitter::HevcAlawWav, args); }
void ThreadVideoRepair::BuildHevcUlawWav(CarverArgs &args) { RunSplitter(Splitter::HevcUlawWav, args); }


#define VM_H264_ENTRY(name, code) \
    void ThreadVideoRepair::name(CarverArgs &args) { CarveH264(code, args); }
VM_H264_ENTRY(CarveH264WithAac, 0)
VM_H264_ENTRY(CarveH264WithSowtPcm, 1)
VM_H264_ENTRY(CarveH264WithMp3, 4)
VM_H264_ENTRY(CarveH264WithTwosPcm, 5)
VM_H264_ENTRY(CarveH264WithAc3, 8)
VM_H264_ENTRY(CarveH264WithImaAdpcm, 9)
VM_H264_ENTRY(CarveH264WithOpus, 10)
VM_H264_ENTRY(CarveH264WithAlaw, 11)
VM_H264_ENTRY(CarveH264WithLpcm, 12)
VM_H264_ENTRY(CarveH264WithUlaw, 13)
#undef VM_H264_ENTRY

#define VM_HEVC_ENTRY(name, code) \
    void ThreadVideoRepair::name(CarverArgs &args) { CarveHevc(code, args); }
VM_HEVC_ENTRY(CarveHevcWithAac, 6)
VM_HEVC_ENTRY(CarveHevcWithTwosPcm, 5)
VM_HEVC_ENTRY(CarveHevcWithAlaw, 11)
VM_HEVC_ENTRY(CarveHevcWithLpcm, 12)
VM_HEVC_ENTRY(CarveHevcWithUlaw, 13)
#undef VM_HEVC_ENTRY

void ThreadVideoRepair::CarveMpegPsInMov(CarverArgs &args)
{
    RepairState &s = pApp;
    s.bMuxedResult = s.bMuxStageRan = s.bListMuxedFiles = true;
    strFileName = QFileInfo(args.strSource).fileName();
    strCarvedName = strFileName;
    VM_STAGE_ENV;
    if (!s.bSampleRun) {
        MpegPsFirstRun(args, env);
        s.lstMuxedFiles << workfiles::EnsureWorkFolder() + "/" + strFileName;
        strOutputPath = s.lstMuxedFiles.last();
        RunFinaliser(Finaliser::MpegPs, args);
        return;
    }
    const Split split = SplitMpegPsInMov(args, env);
    if (split.outcome == Split::Muxable && !s.bStopRepair) {
        s.carve.carved = true;
        RunMuxStage(mux::StageId::MpegPs, args);
    } else if (split.outcome != Split::WriteFailed) {
        Q_EMIT WriteStatus(false, hasVideo_Strh, strFileName, false);
    }
}

#undef VM_STAGE_ENV

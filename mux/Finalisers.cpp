// The finalisers: when the first-run check finds a usable index, the damaged
// file itself is remuxed by ffmpeg. One routine; a row per finaliser.

#include "carve/video/CarveFamily.h"
#include "carve/video/WorkFiles.h"
#include "mux/FfmpegRunner.h"
#include "mux/MuxTable.h"
#include "repair/ThreadVideoRepair.h"

#include <QFileInfo>
#include <QtDebug>

using namespace carve;
using mux::RowId;

namespace {
enum class OutName { FileName, Carved, FileNameDash, Final };

struct FinaliserRow
{
    Finaliser id;
    RowId withSound;
    RowId videoOnly; // RowId::Count: the sound row whatever the flag
    OutName name;
    bool sizeCheck;         // an empty output is removed and the picture alone is tried
    bool dropVideoHeads;    // removes "/videotext.txt" from the output folder afterwards
};

const FinaliserRow kFinalisers[] = {
    {Finaliser::H264Lpcm, RowId::H264RemuxLpcmAudio, RowId::H264RemuxLpcmVideo, OutName::FileName, false, false},
    {Finaliser::H264Aac, RowId::RemuxCopyAudio, RowId::RemuxVideoOnly, OutName::FileName, false, false},
    {Finaliser::H264Mp3, RowId::RemuxCopyAudio, RowId::RemuxVideoOnly, OutName::Carved, false, false},
    {Finaliser::Mpeg4, RowId::RemuxCopyAudio, RowId::RemuxVideoOnly, OutName::Carved, false, false},
    {Finaliser::HevcTwos, RowId::RemuxCopyAudio, RowId::RemuxVideoOnly, OutName::Carved, false, false},
    {Finaliser::HevcAac, RowId::RemuxCopyAudio, RowId::RemuxVideoOnly, OutName::FileNameDash, false, false},
    {Finaliser::HevcLpcm, RowId::RemuxCopyAudio, RowId::Count, OutName::Carved, false, false},
    {Finaliser::H264Twos, RowId::H264TwosRemux, RowId::Count, OutName::FileName, true, false},
    {Finaliser::Aac192, RowId::H264RemuxAac192, RowId::Count, OutName::Carved, false, false},
    {Finaliser::Aac192Opus, RowId::H264RemuxAac192Opus, RowId::Count, OutName::Carved, false, false},
    {Finaliser::H264Sowt, RowId::H264RemuxSowt, RowId::Count, OutName::FileName, false, true},
    {Finaliser::Av1, RowId::Av1Remux, RowId::Count, OutName::Carved, false, false},
    {Finaliser::MpegPs, RowId::MpegPsRemux, RowId::Count, OutName::Final, false, false},
};
static_assert(sizeof kFinalisers / sizeof kFinalisers[0] == size_t(Finaliser::Count), "one row per finaliser");
} // namespace

void ThreadVideoRepair::RunFinaliser(Finaliser id, CarverArgs &args)
{
    const FinaliserRow &row = kFinalisers[int(id)];
    RepairState &s = pApp;
    Q_EMIT SetProgressBarRange(100);
    s.bMuxedResult = s.bMuxStageRan = s.bListMuxedFiles = true;
    const QString workDir = workfiles::EnsureWorkFolder();
    const QString outDir = workfiles::OutputFolder();

    QString name = row.name == OutName::Carved ? strCarvedName
                   : row.name == OutName::Final ? strFinalName
                                                : strFileName;
    bool renamed = false;
    if (row.name == OutName::FileNameDash) {
        strFinalName = strFileName;
        qDebug().noquote() << "Original filename :" << strFinalName;
        name = mux::FixLeadingDashes(strFinalName);
        renamed = name != strFileName;
        qDebug().noquote() << "Fixed filename    :" << name;
        strFinalName = name;
        qDebug().noquote() << "Final full path   :" << strFinalName;
    }
    if (name.isEmpty())
        name = strFileName;
    const QString outPath = outDir + "/" + name;
    QFile::remove(outPath);
    Q_EMIT setProgressvalue(50);

    const RowId chosen = (s.bSampleHasAudio || row.videoOnly == RowId::Count) ? row.withSound : row.videoOnly;
    mux::Values v;
    v.source = args.strSource;
    v.out = name;
    const mux::Row &r = mux::RowOf(chosen);
    const mux::RunResult res = mux::Run(r.form, mux::BuildArguments(r, v), workDir);
    if (r.logOutput && !res.output.isEmpty())
        qDebug().noquote() << res.output;

    if (row.sizeCheck && QFileInfo(outPath).size() == 0) {
        // The sound was refused: the picture alone is worth more than nothing.
        QFile::remove(outPath);
        const mux::Row &vo = mux::RowOf(RowId::RemuxVideoOnly);
        mux::Run(vo.form, mux::BuildArguments(vo, v), workDir);
    }
    if (row.dropVideoHeads)
        QFile::remove(outDir + workfiles::kVideoHeads);
    if (renamed)
        QFile::rename(outDir + "/" + strFinalName, outDir + "/" + strFileName);
    s.bSampleHasAudio = false;
}

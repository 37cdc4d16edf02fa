// Entries of the carving pipelines of the atom path. Each is named after the
// recording it mends; the ones whose chain isn't built yet end as a carver
// that failed, so the file waits for a sample instead of being lost.

#include "repair/ThreadVideoRepair.h"

#include <QtDebug>

void ThreadVideoRepair::StageNotBuilt(const char *what, bool atomPipeline)
{
    qDebug().noquote() << "Recording type not handled yet:" << what << "in" << strFileName;
    if (!atomPipeline)
        return;
    pApp.bCarveFailed = true;
    pApp.bKeepLogHandle = true;
    pApp.bMoovParsed = false;
    Q_EMIT WriteStatus(false, hasVideo_Strh, strFileName, false);
}

#define VM_PENDING_ENTRY(name, what) \
    void ThreadVideoRepair::name(CarverArgs &) { StageNotBuilt(what, true); }

VM_PENDING_ENTRY(RepairImkhFile, "IMKH surveillance stream")
VM_PENDING_ENTRY(CarveMpegPsInMov, "MPEG program stream")
VM_PENDING_ENTRY(RepairTsInMov, "MPEG transport stream")
VM_PENDING_ENTRY(Repair3gpStream, "3GP stream")
VM_PENDING_ENTRY(RepairMotionJpeg, "Motion JPEG")
VM_PENDING_ENTRY(RepairProResStream, "ProRes")
VM_PENDING_ENTRY(CarveH264WithImaAdpcm, "H.264 with IMA ADPCM")
VM_PENDING_ENTRY(CarveH264WithOpus, "H.264 with Opus")
VM_PENDING_ENTRY(CarveHevcWithAlaw, "HEVC with A-law")
VM_PENDING_ENTRY(CarveH264WithAlaw, "H.264 with A-law")
VM_PENDING_ENTRY(CarveH264WithAc3, "H.264 with AC-3")
VM_PENDING_ENTRY(CarveAv1Video, "AV1")
VM_PENDING_ENTRY(CarveMpeg4Video, "MPEG-4 Visual")
VM_PENDING_ENTRY(CarveHevcWithUlaw, "HEVC with u-law")
VM_PENDING_ENTRY(CarveH264WithUlaw, "H.264 with u-law")
VM_PENDING_ENTRY(CarveHevcWithLpcm, "HEVC with linear PCM")
VM_PENDING_ENTRY(CarveH264WithLpcm, "H.264 with linear PCM")
VM_PENDING_ENTRY(CarveHevcWithAac, "HEVC with AAC")
VM_PENDING_ENTRY(CarveHevcWithTwosPcm, "HEVC with big-endian PCM")
VM_PENDING_ENTRY(CarveH264WithTwosPcm, "H.264 with big-endian PCM")
VM_PENDING_ENTRY(CarveH264WithSowtPcm, "H.264 with little-endian PCM")
VM_PENDING_ENTRY(CarveH264WithMp3, "H.264 with MP3")
VM_PENDING_ENTRY(CarveH264WithAac, "H.264 with AAC")

#undef VM_PENDING_ENTRY

// Repair paths of the other containers. Until a container's own source
// lands, its path reports the file as not repaired, the way that path
// reports a failure.

#include "repair/ThreadVideoRepair.h"

void ThreadVideoRepair::RepairMtsFile() { StageNotBuilt("MTS", false); }

void ThreadVideoRepair::RepairMpegFile(quint64, BufferedReader &, quint64)
{
    StageNotBuilt("MPEG program stream", false);
    Q_EMIT WriteAVIFileStatus(hasVideo_Strh, strFileName);
}

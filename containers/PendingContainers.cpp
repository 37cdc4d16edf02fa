// Repair paths of the other containers. Until a container's own source
// lands, its path reports the file as not repaired, the way that path
// reports a failure.

#include "repair/ThreadVideoRepair.h"

void ThreadVideoRepair::RepairFlvFile(const QString &fileName)
{
    StageNotBuilt("FLV", false);
    Q_EMIT WriteStatus(false, hasVideo_Strh, fileName, false);
}

void ThreadVideoRepair::ReadAsfHeaders() { StageNotBuilt("ASF/WMV", false); }
void ThreadVideoRepair::RepairAsfFile(const QString &) {}

void ThreadVideoRepair::RepairMkvFile(quint64, BufferedReader &)
{
    StageNotBuilt("MKV/WebM", false);
    Q_EMIT WriteAVIFileStatus(hasVideo_Strh, strFileName);
}

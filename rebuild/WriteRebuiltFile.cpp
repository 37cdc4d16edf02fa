#include "repair/ThreadVideoRepair.h"

#include <QtDebug>

void ThreadVideoRepair::WriteRebuiltFile(const QString &)
{
    if (pApp.bMuxedResult) {
        // The muxer or a container path wrote the result; only list it.
        pApp.lstRepairedFiles << strRepairedDir + "/" + strFileName;
        return;
    }
    // Rebuilding a MOV from the pieces in the work log is not built yet: no
    // file is written, so nothing half-made can be taken for a result.
    qDebug().noquote() << "Index rebuild not handled yet for" << strFileName;
}

void ThreadVideoRepair::BuildVideoTrak() {}
void ThreadVideoRepair::BuildSoundTrak() {}

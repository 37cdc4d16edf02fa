// A carving stage that a splitter can't serve ends as a carver that failed,
// so the file waits for a sample instead of being lost.

#include "repair/ThreadVideoRepair.h"

#include <QtDebug>

void ThreadVideoRepair::StageNotBuilt(const char *what, bool atomPipeline)
{
    qDebug().noquote() << "Recording type not handled yet:" << what << "in" << strFileName;
    pApp.carve.fail(outcome::Why::NotHandled, QString::fromLatin1(what));
    if (!atomPipeline)
        return;
    pApp.bCarveFailed = true;
    // Nothing was listed for a rebuild: no empty file is made of the log.
    pApp.bMuxedResult = true;
    pApp.bKeepLogHandle = true;
    pApp.bMoovParsed = false;
    Q_EMIT WriteStatus(false, hasVideo_Strh, strFileName, false);
}

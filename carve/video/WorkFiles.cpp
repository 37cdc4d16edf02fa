#include "carve/video/WorkFiles.h"

#include "repair/RepairState.h"
#include "repair/WorkFolder.h"

#include <QDir>

namespace workfiles {

QString EnsureWorkFolder()
{
    QDir dir(pApp.strWorkBase);
    dir.mkdir(workfolder::kRepairedName);
    dir.cd(workfolder::kRepairedName);
    return dir.absolutePath();
}

QString Path(const char *name) { return pApp.strWorkBase + "/" + workfolder::kRepairedName + name; }

QString OutputFolder()
{
    if (pApp.bCustomFolderChosen)
        return pApp.strCustomFolder + "/" + workfolder::kRepairedName;
    return QDir(pApp.strWorkBase + "/" + workfolder::kRepairedName).absolutePath();
}

} // namespace workfiles

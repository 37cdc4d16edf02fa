#include "carve/video/WorkFiles.h"

#include "repair/RepairState.h"
#include "repair/WorkFolder.h"

#include <QDir>

namespace workfiles {

QString EnsureWorkFolderIn(const QString &workBase)
{
    QDir dir(workBase);
    dir.mkdir(workfolder::kRepairedName);
    dir.cd(workfolder::kRepairedName);
    return dir.absolutePath();
}

QString EnsureWorkFolder() { return EnsureWorkFolderIn(pApp.strWorkBase); }

QString PathIn(const QString &workBase, const char *name) { return workBase + "/" + workfolder::kRepairedName + name; }

QString Path(const char *name) { return PathIn(pApp.strWorkBase, name); }

QString OutputFolder()
{
    if (pApp.bCustomFolderChosen)
        return pApp.strCustomFolder + "/" + workfolder::kRepairedName;
    return QDir(pApp.strWorkBase + "/" + workfolder::kRepairedName).absolutePath();
}

} // namespace workfiles

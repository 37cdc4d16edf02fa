#include "repair/RowFile.h"

#include "repair/RepairState.h"

#include <QFileInfo>

QString FileOfRow(const QString &outputPath, const QString &fileName)
{
    const QString path = pApp.bCustomFolderChosen ? pApp.strCustomFolder + "/Repaired/" + fileName : outputPath;
    const QFileInfo info(path);
    const QString suffix = info.suffix().toUpper();
    const QString stem = info.fileName().section('.', 0, 0);
    if (suffix == "DAT")
        return info.path() + "/" + stem + ".mov";
    if (suffix == "RSV")
        return info.path() + "/" + stem + ".mp4";
    return path;
}

bool IsUsableResult(const QString &path)
{
    const QFileInfo info(path);
    return info.isFile() && info.size() >= kMinResultBytes;
}

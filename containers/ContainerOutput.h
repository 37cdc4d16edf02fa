#pragma once
// The new file a container path writes in the work folder.

#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QtDebug>

namespace containers {

// Opens `out` for writing from empty; false (and nothing touched) when it is
// the damaged file itself, which may lie in the work folder.
inline bool OpenNewOutput(QFile &out, const QString &source)
{
    const QString canonical = QFileInfo(out.fileName()).canonicalFilePath();
    if (!canonical.isEmpty() && canonical == QFileInfo(source).canonicalFilePath()) {
        qWarning().noquote() << "The output would replace the damaged file:" << out.fileName();
        return false;
    }
    return out.open(QIODevice::WriteOnly | QIODevice::Truncate);
}

} // namespace containers

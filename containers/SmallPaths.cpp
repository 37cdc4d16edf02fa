// Files that ffmpeg reads as they are, so the repair hands it the whole file:
// a program stream behind a surveillance exporter's "IMKH" header is copied
// into Matroska, which then keeps the source's own name; a Video CD's .dat
// (bare, or as sectors copied off the disc) is re-encoded to a .mov named
// after the file up to its first dot. One routine, a row each.

#include "carve/video/WorkFiles.h"
#include "repair/ThreadVideoRepair.h"

#include <QFile>
#include <QFileInfo>
#include <QtDebug>

namespace {

struct SmallPath
{
    const char *command;                          // row of the command table
    QString (*written)(const QString &fileName);  // what ffmpeg writes in the work folder
    bool keepsSourceName;                         // renamed to the source's name afterwards
    bool marksDatRepaired;                        // the DAT path's verdict, set whatever ffmpeg does
};

QString imkhWritten(const QString &fileName) { return "1_" + fileName + ".mkv"; }
QString datWritten(const QString &fileName) { return fileName.section('.', 0, 0) + ".mov"; }

const SmallPath kImkh{"ImkhRemux", imkhWritten, true, false};
const SmallPath kDat{"DatRecode", datWritten, false, true};

bool sameFile(const QString &a, const QString &b)
{
    const QString ca = QFileInfo(a).canonicalFilePath();
    return !ca.isEmpty() && ca == QFileInfo(b).canonicalFilePath();
}

void runSmallPath(ThreadVideoRepair &t, const SmallPath &path, const QString &sourceName)
{
    RepairState &s = pApp;
    if (path.marksDatRepaired)
        s.bDatRepaired = true; // the size of the result judges it
    t.ullFileLeft = s.ullFileSize = quint64(qMax<qint64>(0, QFileInfo(sourceName).size()));
    Q_EMIT t.SetProgressBarRange(qint64(s.ullFileSize));
    Q_EMIT t.setProgressvalue(qint64(s.ullFileSize / 2));

    CarverArgs args;
    args.strSource = sourceName;
    const QString written = path.written(t.strFileName);
    t.RunMuxRow(QString::fromLatin1(path.command), args, written);
    if (!path.keepsSourceName)
        return;

    const QString dir = workfiles::EnsureWorkFolder();
    const QString from = dir + "/" + written, to = dir + "/" + t.strFileName;
    if (!QFileInfo(from).isFile())
        return;
    // The damaged file itself may lie in the work folder: it is never replaced.
    if (sameFile(to, sourceName)) {
        qWarning().noquote() << "Result left as" << from << "so as not to replace the source";
        return;
    }
    QFile::remove(to); // an earlier run's result of this file
    if (!QFile::rename(from, to))
        qWarning().noquote() << "Cannot rename" << from << "to" << to;
}

} // namespace

void ThreadVideoRepair::RepairImkhFile(CarverArgs &) { runSmallPath(*this, kImkh, strSourceName); }

void ThreadVideoRepair::RepairDatFile(const QString &sourceName)
{
    // A file that can't be opened gets no verdict, so nothing is run for it.
    if (!pSource.isOpen())
        return;
    runSmallPath(*this, kDat, sourceName);
}

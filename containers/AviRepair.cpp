// The AVI path of the repair thread: its named stages over the avi engine.

#include "containers/Avi.h"
#include "containers/ContainerConstants.h"
#include "repair/RepairLine.h"
#include "repair/ThreadVideoRepair.h"

#include <QFile>
#include <QFileInfo>

void ThreadVideoRepair::RepairAviFile(const QString &fileName)
{
    pApp.bMuxedResult = false;
    pApp.bMuxStageRan = true;
    pApp.bListMuxedFiles = true;
    Q_EMIT ShowProgressBar();
    Q_EMIT FileNamelabel(fileName);
    Q_EMIT SetProgressBarRange(avi::kProgressRange);
    ThreadProgress progress(*this);
    const bool sound = avi::HasSoundChunks(pSource, ullFileLeft, &progress);
    if (bAviSample)
        ReadAviHeadersOfSample(sound);
    else
        ReadAviHeaders(sound);
}

void ThreadVideoRepair::ReadAviHeaders(bool hasSoundChunks)
{
    AviHeaderSearch(pSource, ullFileLeft, hasSoundChunks, 1);
}

void ThreadVideoRepair::ReadAviHeadersOfSample(bool hasSoundChunks)
{
    AviHeaderSearch(pSample, pApp.ullSampleLeft, hasSoundChunks, 0);
}

void ThreadVideoRepair::AviHeaderSearch(BufferedReader &file, quint64 size, bool hasSoundChunks, int fromDamaged)
{
    pApp.bMuxedResult = false;
    Q_EMIT SetProgressBarRange(avi::kProgressRange);
    ThreadProgress progress(*this);
    aviHeaders = avi::FindHeaders(file, size, hasSoundChunks, &progress, pApp.bStopRepair);
    if (!aviHeaders.meets(hasSoundChunks)) {
        if (!pApp.bStopRepair)
            Q_EMIT WriteAVIFileStatus(false, strFileName);
        return;
    }
    if (pApp.bStopRepair)
        return;
    ListAviChunks();
    const QString error = WriteAviFile(hasSoundChunks, fromDamaged, fromDamaged, fromDamaged, fromDamaged);
    if (pApp.bStopRepair)
        return; // what was written stays, and no verdict is given
    if (!error.isEmpty()) {
        pApp.carve.fail(outcome::Why::WriteFailed, error);
        Q_EMIT WriteAVIFileStatus(false, strFileName);
        return;
    }
    Q_EMIT WriteAVIFileStatus(true, strFileName);
}

QString ThreadVideoRepair::AviIndexPath() const
{
    // A recording named like the index work file keeps its result: the work
    // file takes another name.
    QString name = QString::fromLatin1(avi::kIndexName);
    while (name == strFileName)
        name += QStringLiteral(".part");
    return strRepairedDir + "/" + name;
}

void ThreadVideoRepair::ListAviChunks()
{
    pApp.bMuxedResult = false;
    aviChunks = avi::ChunkList();
    QFile index(AviIndexPath());
    if (!index.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        aviChunks.written = false;
        return;
    }
    RepairLine cipher;
    ThreadProgress progress(*this);
    aviChunks = avi::ListChunks(pSource, ullFileLeft, hLog, cipher, index, &progress, pApp.bStopRepair);
    index.close();
    if (index.error() != QFileDevice::NoError)
        aviChunks.written = false;
}

QString ThreadVideoRepair::WriteAviFile(bool hasSoundChunks, int videoHeader, int videoFormat, int soundHeader,
                                        int soundFormat)
{
    auto pick = [this](int fromDamaged) { return fromDamaged ? &pSource : &pSample; };
    const avi::Sources from{pick(videoHeader), pick(videoFormat), pick(soundHeader), pick(soundFormat)};
    const QString out = strRepairedDir + "/" + strFileName;
    const QString indexPath = AviIndexPath();
    QString error;
    hLog.flush();
    if (!aviChunks.written) {
        error = hLog.error() != QFileDevice::NoError ? hLog.errorString() : tr("the chunk list could not be written");
    } else if (const QString c = QFileInfo(out).canonicalFilePath();
               !c.isEmpty() && c == QFileInfo(pSource.path()).canonicalFilePath()) {
        error = tr("the result would replace the damaged file");
    } else {
        CloseLog();
        error = avi::WriteFile(out, aviHeaders, from, pSource, aviChunks, hasSoundChunks, strLogPath, indexPath,
                               pApp.bStopRepair);
        if (error.isEmpty())
            pApp.lstRepairedFiles << out;
    }
    QFile::remove(indexPath);
    aviHeaders = avi::Headers();
    aviChunks = avi::ChunkList();
    return error;
}

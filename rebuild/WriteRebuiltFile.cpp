// The rebuilt file's frame: ftyp, the mdat with the listed pieces, the moov
// header and mvhd; the track writers add the traks. Also the repair thread's
// members of the rebuild, which hand the stages the thread's own members.

#include "rebuild/LogReader.h"
#include "rebuild/PlacedPieces.h"
#include "rebuild/RebuildConstants.h"
#include "rebuild/RebuildOutput.h"
#include "rebuild/RebuildStages.h"
#include "repair/ThreadVideoRepair.h"

#include <QFileInfo>
#include <QtDebug>

namespace rebuild {

namespace {

// The damaged file's own ftyp when it has one of a sane size, else the
// template. Sets state.nLeadAtomSize to where the mdat goes.
void writeLead(Env &env, Output &out)
{
    RepairState &s = env.state;
    BufferedReader &src = env.source;
    const quint32 size = src.isOpen() ? src.be32(0) : 0;
    // A size beyond the damaged file is no ftyp's: the template stands in.
    if (!src.isOpen() || !src.tagAt(4, kFtypTag) || size > s.ullFileSize) {
        if (src.isOpen())
            out.put(kFtyp);
        s.nLeadAtomSize = kTemplateLead;
        return;
    }
    s.nLeadAtomSize = size;
    // An ftyp of kMaxCopiedFtyp bytes or more isn't copied, yet the mdat still
    // starts behind it: a hole of zeros stands in its place.
    if (size < kMaxCopiedFtyp) {
        quint8 ftyp[kMaxCopiedFtyp];
        src.readAt(0, ftyp, size);
        out.write(ftyp, size);
    }
}

// Copies the listed pieces behind the mdat header, in log order, and counts
// them in state.ullMdatSize. Ends early on a stop. With `placed` the pieces
// stand in the file already: they are only counted, and false is returned
// (nothing changed) when the log lists other pieces than were placed.
bool copyPieces(Env &env, const QString &logPath, Output &out, const PlacedPieces *placed)
{
    RepairState &s = env.state;
    LogReader log(logPath);
    if (s.ullFileSize > kBigFile && env.progress)
        env.progress->setRange(kProgressRange);
    std::unique_ptr<quint8[]> buffer;
    // A piece that doesn't end before the end of the damaged file (nor one
    // ending exactly there) is counted but not copied, so the tables still
    // describe every listed piece. The count stops at the damaged file's
    // size, so no size field can make the output gigabytes long; pieces past
    // that aren't copied.
    PieceCount count;
    count.fileSize = s.ullFileSize;
    count.sourceOpen = env.source.isOpen();
    const quint64 start = out.pos();
    Piece piece;
    bool soundListed = false;
    while (!s.bStopRepair && !out.failed() && log.next(piece)) {
        if (piece.kind == PieceKind::Sound)
            soundListed = true;
        const bool copy = count.add(piece.offset, piece.size);
        s.ullMdatSize = count.mdatSize;
        if (!copy)
            continue;
        if (!placed) {
            if (!buffer)
                buffer.reset(new quint8[kCopyBuffer]);
            out.copyFrom(env.source, piece.offset, piece.size, buffer.get(), s.bStopRepair);
        }
        if (!s.bStopRepair && env.progress)
            env.progress->setValue(qint64(quint32(s.ullMdatSize)));
    }
    if (placed) {
        const PieceCount &was = placed->count();
        if (!s.bStopRepair && (count.pieces != was.pieces || count.copied != was.copied || count.hash != was.hash))
            return false;
        // What the walk would have copied by now, and no more.
        out.resizeTo(start + count.copied);
        out.seek(start + count.copied);
    }
    s.bInSoundTrak = s.bInSoundTrak || soundListed;
    return true;
}

bool sameFile(const QString &a, const QString &b)
{
    const QString x = QFileInfo(a).canonicalFilePath();
    return !x.isEmpty() && x == QFileInfo(b).canonicalFilePath();
}

} // namespace

void WriteRebuiltFile(Env &env, const QString &logPath, const QString &outputPath)
{
    RepairState &s = env.state;
    if (s.bMuxedResult) {
        // The muxer or a container path wrote the result; only list it.
        s.lstRepairedFiles << outputPath;
        return;
    }
    s.ullMdatSize = 0;
    s.ullScanPos = 0;
    // From here on the flag says whether the log lists sound; what the moov
    // parse left in it doesn't count.
    s.bInSoundTrak = false;
    if (sameFile(outputPath, env.source.path())) {
        qWarning().noquote() << "Rebuild: the output would overwrite the damaged file" << outputPath;
        return;
    }
    // Pieces a scan copied into this very file while it ran are taken as
    // they stand when the log lists the same; otherwise they are copied anew.
    PlacedPieces *placed = env.placed && env.placed->target() == outputPath && env.placed->finish()
                                   && env.placed->count().fileSize == s.ullFileSize && env.placed->handOver()
                               ? env.placed : nullptr;
    if (env.placed && !placed)
        env.placed->discard();
    env.output.reset(new QFile(outputPath));
    if (!env.output->open(placed ? QIODevice::ReadWrite : QIODevice::ReadWrite | QIODevice::Truncate)) {
        qWarning().noquote() << "Rebuild: can't create" << outputPath << env.output->errorString();
        env.output.reset();
        if (placed)
            QFile::remove(outputPath); // the scan's copy, which nothing will finish
        return;
    }
    s.lstRepairedFiles << outputPath;
    Output out(*env.output);
    auto frame = [&](const PlacedPieces *in) {
        s.ullMdatSize = 0;
        writeLead(env, out);
        out.seek(s.nLeadAtomSize);
        out.put(kMdatHead);
        return (!in || in->lead() == s.nLeadAtomSize) && copyPieces(env, logPath, out, in);
    };
    // After a stop the file is still closed off, on what was copied so far.
    if (!frame(placed)) {
        out.resizeTo(0);
        out.seek(0);
        frame(nullptr);
    }
    if (out.failed()) {
        qWarning().noquote() << "Rebuild: copying into" << outputPath << "failed:" << out.errorString();
        s.carve.fail(outcome::Why::WriteFailed, out.errorString());
        s.bCarveFailed = true;
    }
    out.patch64(s.nLeadAtomSize + kMdatSizeAt, s.ullMdatSize + kMdatHead.size());

    s.ullScanPos = s.nLeadAtomSize + kMdatHead.size() + s.ullMdatSize;
    out.seek(s.ullScanPos);
    s.ullMoovPos = s.ullScanPos;
    out.put(kMoovHead);
    out.put(kMvhd);
    s.ullScanPos = out.pos();
    BuildVideoTrak(env, logPath);
    if (s.bInSoundTrak)
        BuildSoundTrak(env, logPath);
}

} // namespace rebuild


#define VM_REBUILD_ENV                                                                                  \
    ThreadProgress progress(*this);                                                                     \
    rebuild::Env env{pApp,      pSource,   pOutput, pVideoStsd, pSoundStsd, lstVideoChunkSamples, \
                     lstSoundChunkSamples, &progress, strBaseCopy, pPlaced.get()}

void ThreadVideoRepair::WriteRebuiltFile(const QString &logPath)
{
    VM_REBUILD_ENV;
    const QString output = strRepairedDir + "/" + strFileName;
    if (!pApp.bMuxedResult)
        strOutputPath = output;
    rebuild::WriteRebuiltFile(env, logPath, output);
}

void ThreadVideoRepair::BuildVideoTrak()
{
    VM_REBUILD_ENV;
    rebuild::BuildVideoTrak(env, strLogPath);
}

void ThreadVideoRepair::BuildSoundTrak()
{
    VM_REBUILD_ENV;
    rebuild::BuildSoundTrak(env, strLogPath);
}

#undef VM_REBUILD_ENV

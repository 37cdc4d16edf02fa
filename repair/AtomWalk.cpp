// Finding the moov of a damaged file or of a sample: the atom walk with its
// probes, the transport-stream check, the tail scan and the window scans.
//
// Reads go through the stdio-like cursor of BufferedReader on purpose: a
// position below zero (a small file's window start) makes the seek fail and
// the read go on wherever the file stood, and the scans keep that behaviour.

#include "repair/RepairConstants.h"
#include "repair/ThreadVideoRepair.h"

#include <QFileInfo>
#include <cstring>

namespace {

bool readTag(BufferedReader &f, quint64 pos, quint8 out[4])
{
    f.seek(qint64(pos));
    return f.read(out, 4) == 4;
}

quint32 readBe32(BufferedReader &f, quint64 pos)
{
    quint8 b[4];
    f.seek(qint64(pos));
    f.read(b, 4);
    return quint32(b[0]) << 24 | quint32(b[1]) << 16 | quint32(b[2]) << 8 | b[3];
}

quint64 readBe64(BufferedReader &f, quint64 pos)
{
    quint8 b[8];
    f.seek(qint64(pos));
    f.read(b, 8);
    quint64 v = 0;
    for (quint8 x : b)
        v = v << 8 | x;
    return v;
}

bool is(const quint8 *b, const char *tag) { return std::memcmp(b, tag, 4) == 0; }

} // namespace

bool ThreadVideoRepair::WalkDamagedFile()
{
    Q_EMIT ShowProgressBar();
    Q_EMIT FileNamelabel(strFileName);
    Q_EMIT SetProgressBarRange(walk::kRangeLarge);
    pApp.ullScanPos = 4;
    bool moovFound = false;
    if (!pApp.bStopRepair)
        WalkAtoms(pSource, false, moovFound);
    if (moovFound)
        return true;
    return TailScan(moovFound);
}

void ThreadVideoRepair::WalkAtoms(BufferedReader &f, bool sample, bool &moovFound)
{
    quint64 &P = pApp.ullScanPos;
    quint8 block[walk::kProbeBlock];
    for (;;) {
        if (sample && P > pApp.ullSampleSize)
            break;
        const quint64 probeAt = sample ? P : P - 4;
        quint8 b[4] = {};
        readTag(f, probeAt, b);
        if (!sample && is(b, tag::IMKH)) {
            pApp.nFormatCode = 3;
            moovFound = true;
        }
        if (is(b, tag::packStart)) {
            pApp.nFormatCode = 2;
            moovFound = true;
        }
        f.seek(qint64(probeAt));
        std::memset(block, 0, sizeof block);
        const size_t got = f.read(block, sizeof block);
        if (got >= 4) {
            for (size_t off = 0; off + 4 <= got; ++off) {
                if (block[off] == walk::kTsSync && is(block + off, tag::tsPatHeader) && !pApp.bStopRepair)
                    TsCheck(f, moovFound);
            }
        }

        quint8 t[4] = {};
        readTag(f, P, t);
        const quint64 before = P;
        if (is(t, tag::ftyp) || is(t, tag::wide) || is(t, tag::free_) || is(t, tag::meta) || is(t, tag::uuid)) {
            pApp.nLeadAtomSize = readBe32(f, P - 4);
            if (pApp.nLeadAtomSize == 0)
                break;
            P += pApp.nLeadAtomSize;
        } else if (is(t, tag::mdat)) {
            pApp.ullMdatSize = readBe32(f, P - 4);
            if (pApp.ullMdatSize == 0)
                break;
            if (pApp.ullMdatSize == 1) {
                pApp.ullMdatSize = readBe64(f, P + 4);
                if (pApp.ullMdatSize == 0)
                    break;
            }
            P += pApp.ullMdatSize;
        } else if (is(t, tag::moov)) {
            moovFound = true;
            pApp.nMoovSize = readBe32(f, P - 4);
            pApp.ullMoovPos = P;
            if (pApp.nMoovSize == 0)
                return;
            const quint64 end = P + pApp.nMoovSize;
            quint64 q = P;
            for (; q < end; ++q) {
                if (f.tagAt(q, tag::mvhd))
                    break;
            }
            if (q < end) {
                P = q;
                if (sample) {
                    ParseMoovOfSample();
                } else {
                    ParseMoovOfDamagedFile();
                }
                Q_EMIT setProgressvalue(walk::kRangeLarge);
            } else {
                P = end;
            }
        } else {
            break;
        }
        if (pApp.bStopRepair)
            break;
        // Sizes that wrap the position around (absurd 64-bit mdat sizes) would
        // let a walk run in circles; a step must move forward.
        if (P <= before)
            break;
    }
}

void ThreadVideoRepair::TsCheck(BufferedReader &f, bool &moovFound)
{
    quint32 pmtPid = 0;
    quint8 pkt[walk::kTsPacket];
    while (!pApp.bStopRepair) {
        if (f.read(pkt, sizeof pkt) < sizeof pkt)
            return;
        if (pkt[0] == walk::kTsSync) {
            const quint32 pid = (pkt[1] & 0x1F) * 256u + pkt[2];
            if (pid == 0) {
                pmtPid = (pkt[15] & 0x1F) * 256u + pkt[16];
                continue;
            }
            if (pid != pmtPid)
                continue;
            const quint32 L = pkt[16];
            if (L >= 167)
                continue;
            const quint32 t1 = pkt[17 + L];
            const quint32 e = pkt[21 + L];
            const quint32 q = 17 + L + 5 + e;
            if (q >= 186)
                continue;
            const quint32 t2 = pkt[q];
            if ((t1 == walk::kTsStreamH264 && t2 == walk::kTsStreamAac)
                || (t1 == walk::kTsStreamAac && t2 == walk::kTsStreamH264)) {
                pApp.nFormatCode = 18;
                moovFound = true;
                return;
            }
            continue;
        }
        // Lost sync: back to just behind the packet start, then byte by byte
        // to a 0x47 that has three more at packet distance.
        f.seek(qint64(f.tell()) - (walk::kTsPacket - 1));
        for (;;) {
            if (pApp.bStopRepair)
                return;
            quint8 c = 0;
            if (f.read(&c, 1) != 1)
                return;
            if (c != walk::kTsSync)
                continue;
            const quint64 x = f.tell() - 1;
            bool run = true;
            for (int k = 1; k < 4 && run; ++k)
                run = f.u8(x + quint64(k) * walk::kTsPacket) == walk::kTsSync;
            if (run) {
                f.seek(qint64(x));
                break;
            }
            f.seek(qint64(x + 1));
        }
    }
}

bool ThreadVideoRepair::SearchStep(BufferedReader &f, bool sample, quint64 pos, bool &moovFound)
{
    quint8 b[4] = {};
    readTag(f, pos, b);
    if (is(b, tag::moov)) {
        moovFound = true;
        pApp.nMoovSize = readBe32(f, pos - 4);
        pApp.ullMoovPos = pos;
    } else if (moovFound && is(b, tag::mvhd)) {
        pApp.ullScanPos = pos;
        if (sample)
            ParseMoovOfSample();
        else
            ParseMoovOfDamagedFile();
        return true;
    }
    return false;
}

bool ThreadVideoRepair::TailScan(bool &moovFound)
{
    pApp.ullFileSize = ullFileLeft;
    const quint64 S = pApp.ullFileSize;
    const bool small = S < walk::kSmallFile;
    const qint64 R = small ? walk::kRangeSmall : walk::kRangeLarge;
    quint64 N = 0;

    // Stages 1 and 3 share the counter, so the second runs on from where the
    // first stopped counting.
    auto stage = [&](quint64 start, quint64 stepLimit) {
        Q_EMIT SetProgressBarRange(R);
        for (quint64 P = start; N <= stepLimit && !pApp.bStopRepair; ++P, ++N) {
            if (SearchStep(pSource, false, P, moovFound)) {
                Q_EMIT setProgressvalue(R);
                return true;
            }
            if (qint64(N) < R)
                Q_EMIT setProgressvalue(qint64(N));
        }
        return false;
    };

    // A file of 3 to 4 MiB starts below zero: its seeks fail until the
    // position comes round, and that is how it has always scanned.
    if (stage(small ? 0 : S - walk::kTailStart1, walk::kTailSteps1))
        return true;
    if (moovFound)
        return true;
    if (S > walk::kSmallFile) {
        for (quint64 P = 0; P < walk::kHeadScanEnd && !pApp.bStopRepair; ++P) {
            if (SearchStep(pSource, false, P, moovFound))
                return true;
        }
    }
    if (moovFound)
        return true;
    if (stage(small ? 0 : S - walk::kTailStart2, walk::kTailSteps2))
        return true;
    return moovFound;
}

bool ThreadVideoRepair::ScanSampleFile(const QString &sample)
{
    const QFileInfo info(sample);
    strSampleName = info.absolutePath() + "/" + info.fileName();
    if (sample.isEmpty() || !pSample.open(sample))
        return false;
    bool moovFound = false;
    pApp.ullScanPos = 0;
    pApp.ullSampleLeft = pApp.ullSampleSize = pSample.size();
    pApp.nMoovSize = 0;
    pApp.ullMoovPos = 0;
    Q_EMIT ShowProgressBar();
    Q_EMIT FileNamelabel(info.fileName());
    Q_EMIT SetProgressBarRange(walk::kRangeLarge);
    WalkAtoms(pSample, true, moovFound);
    if (moovFound)
        return true;

    const quint64 size = pApp.ullSampleSize;
    const bool small = size < walk::kSmallFile;
    const qint64 R = small ? walk::kRangeSmall : walk::kRangeLarge;
    quint64 N = 0;
    bool parsed = false;
    auto window = [&](quint64 start, quint64 stepLimit, bool counted, quint64 endPos) {
        if (counted)
            Q_EMIT SetProgressBarRange(R);
        for (quint64 P = start; !pApp.bStopRepair; ++P) {
            if (counted && N > stepLimit)
                break;
            if (!counted && P >= endPos)
                break;
            // The parse has not yet counted ullSampleLeft down when this is tested.
            if (P > pApp.ullSampleLeft)
                break;
            if (SearchStep(pSample, true, P, moovFound)) {
                if (counted)
                    Q_EMIT setProgressvalue(R);
                parsed = true;
                return;
            }
            if (counted) {
                if (qint64(N) < R)
                    Q_EMIT setProgressvalue(qint64(N));
                ++N;
            }
        }
    };

    quint64 start1 = 0;
    if (!small)
        start1 = size > walk::kHugeSample ? size - walk::kSampleWin1Huge : size - walk::kSampleWin1;
    window(start1, walk::kSampleWin1Steps, true, 0);
    if (parsed || moovFound)
        return true;
    if (size > walk::kSmallFile) {
        window(0, 0, false, walk::kSampleHeadEnd);
        if (parsed || moovFound)
            return true;
    }
    for (const walk::SampleWindow &w : walk::kSampleWindows) {
        window(small ? 0 : size - w.back, w.steps, true, 0);
        if (parsed || moovFound)
            return true;
    }
    return false;
}

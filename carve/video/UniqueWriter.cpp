// Reduces a head file of 3-byte records to its distinct records, in order of
// first appearance, at most 10000: the lists the splitters compare against.

#include "carve/video/CarveStages.h"
#include "carve/video/WorkFiles.h"
#include "repair/RepairState.h"

#include <QFile>
#include <QSet>
#include <cstdio>

namespace carve {

void WriteUniqueSequences(bool video, CarverArgs &args, Env &env)
{
    const QString base = env.state.strWorkBase;
    workfiles::EnsureWorkFolderIn(base);
    const QString input = video ? args.strVideoHeads : args.strAudioHeads;
    QString &output = video ? args.strVideoUnique : args.strAudioUnique;
    output = workfiles::PathIn(base, video ? workfiles::kVideoUnique : workfiles::kAudioUnique);

    QFile in(input), out(output);
    const bool inOk = in.open(QIODevice::ReadOnly);
    const bool outOk = out.open(QIODevice::WriteOnly | QIODevice::Truncate);
    if (!inOk || !outOk)
        std::fputs("Error opening file.\n", stdout);
    if (inOk && outOk) {
        const QByteArray all = in.readAll();
        QSet<quint32> seen;
        QByteArray unique;
        // A short tail of 1 or 2 bytes is dropped.
        for (int i = 0; i + workfiles::kRecordBytes <= all.size(); i += workfiles::kRecordBytes) {
            const quint32 key = quint32(quint8(all[i])) << 16 | quint32(quint8(all[i + 1])) << 8 | quint8(all[i + 2]);
            if (seen.contains(key))
                continue;
            unique.append(all.constData() + i, workfiles::kRecordBytes);
            seen.insert(key);
            if (seen.size() == workfiles::kMaxUniqueRecords) {
                std::fputs("Maximum unique sequences reached.\n", stdout);
                break;
            }
        }
        out.write(unique);
    }
    std::fflush(stdout);
}

} // namespace carve

#pragma once
// Test and bench recordings whose P slices are written with NAL header 61
// instead of libx264's 41 (nal_ref_idc 3 for 2; decoding is unchanged), as
// the cameras of some chains write them. Header-only, so the benchmarks
// can use it too.

#include <QByteArray>
#include <QFile>
#include <QString>

namespace annexb {

// Rewrites the Annex B stream file in place; false when it can't be read or written.
inline bool PSlicesAs61(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadWrite))
        return false;
    QByteArray d = f.readAll();
    const QByteArray start("\0\0\1", 3);
    for (int i = d.indexOf(start); i >= 0 && i + 3 < d.size(); i = d.indexOf(start, i + 3))
        if (d.at(i + 3) == '\x41')
            d[i + 3] = '\x61';
    return f.seek(0) && f.write(d) == d.size();
}

} // namespace annexb

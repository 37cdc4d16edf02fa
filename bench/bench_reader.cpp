// Throughput of the buffered reader: a sequential 4-byte tag scan over a file,
// the access pattern of the tail scans, in MB/s.

#include "repair/BufferedReader.h"

#include <QElapsedTimer>
#include <cstdio>

int main(int argc, char **argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: vm-bench-reader FILE\n");
        return 2;
    }
    BufferedReader r;
    if (!r.open(QString::fromLocal8Bit(argv[1]))) {
        std::fprintf(stderr, "cannot open %s\n", argv[1]);
        return 2;
    }
    QElapsedTimer clock;
    clock.start();
    quint64 hits = 0;
    const quint64 size = r.size();
    for (quint64 p = 0; p < size; ++p)
        hits += r.tagAt(p, "moov");
    const double secs = clock.nsecsElapsed() / 1e9;
    std::printf("reader: %.1f MB in %.2f s = %.0f MB/s (byte-stepped tag scan, %llu hits, %llu window loads)\n",
                size / 1e6, secs, size / 1e6 / secs, (unsigned long long)hits,
                (unsigned long long)r.diskReads());
    return 0;
}

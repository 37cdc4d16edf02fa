#include "carve/audio/HeadList.h"

#include "repair/BufferedReader.h"

#include <algorithm>

MemoryHeadList::MemoryHeadList(const QByteArray &records) : m_first2(size_t(1) << 10), m_present(size_t(1) << 18)
{
    m_bytes = quint64(records.size());
    // A short last record is compared with zeros behind it, as a read past
    // the end of the file would give.
    QByteArray padded = records;
    while (padded.size() % 3)
        padded.append('\0');
    const int n = padded.size() / 3;
    m_index.reserve(size_t(n));
    for (int i = 0; i < n; ++i) {
        const quint32 key = quint32(quint8(padded[3 * i])) << 16 | quint32(quint8(padded[3 * i + 1])) << 8
                            | quint8(padded[3 * i + 2]);
        m_present[key >> 6] |= quint64(1) << (key & 63);
        m_first2[key >> 14] |= quint64(1) << ((key >> 8) & 63);
        m_index.emplace_back(key, quint32(i));
    }
    std::sort(m_index.begin(), m_index.end());
}

quint32 MemoryHeadList::lookup(quint32 key) const
{
    // The first record of this value at or after the place; none: past the end.
    auto it = std::lower_bound(m_index.begin(), m_index.end(), std::make_pair(key, m_next));
    return (it != m_index.end() && it->first == key) ? it->second : ~quint32(0) - 1;
}

DiskHeadList::DiskHeadList(const QString &path) : m_file(new BufferedReader(256 * 1024))
{
    if (m_file->open(path))
        m_size = m_file->size();
}

DiskHeadList::~DiskHeadList() = default;

bool DiskHeadList::match(const quint8 *b)
{
    // Record by record from the running place; past the end, back to 0.
    for (;;) {
        if (m_size == 0 || m_pos > m_size - 1) {
            m_pos = 0;
            return false;
        }
        quint8 rec[3];
        m_file->readAt(m_pos, rec, 3);
        m_pos += 3;
        if (rec[0] == b[0] && rec[1] == b[1] && rec[2] == b[2])
            return true;
    }
}

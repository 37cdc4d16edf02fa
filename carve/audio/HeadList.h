#pragma once
// The walk through a list of 3-byte heads ("/AudioUNIQUEfile.txt"), as the
// splitters ask it at each position: from where the last match left off to
// the end of the list; a match moves the place behind it, reaching the end
// sets the place back to the start and answers no.
//
// DiskHeadList reads the records from the file one at a time, the plain way;
// MemoryHeadList gives the same answers from a lookup table. A
// unique list holds each value once, so "a match at or after the place" is
// one lookup (a list with repeats, one binary search).

#include <QString>
#include <QtGlobal>
#include <memory>
#include <vector>

class BufferedReader;

class HeadList
{
public:
    virtual ~HeadList() = default;
    // Walks the list for the 3 bytes at b.
    virtual bool match(const quint8 *b) = 0;
    // The place in the list goes back to the first record.
    virtual void reset() = 0;
    virtual quint64 size() const = 0; // bytes in the list
};

class MemoryHeadList : public HeadList
{
public:
    explicit MemoryHeadList(const QByteArray &records);
    bool match(const quint8 *b) override
    {
        const quint32 key = quint32(b[0]) << 16 | quint32(b[1]) << 8 | b[2];
        // A small filter on the first two bytes answers most questions from cache.
        if ((m_first2[key >> 14] >> ((key >> 8) & 63) & 1) && (m_present[key >> 6] >> (key & 63) & 1)) {
            const quint32 index = lookup(key);
            if (index != ~quint32(0) - 1) {
                m_next = index + 1;
                return true;
            }
        }
        m_next = 0;
        return false;
    }
    void reset() override { m_next = 0; }
    quint64 size() const override { return m_bytes; }

private:
    quint32 lookup(quint32 key) const;
    std::vector<quint64> m_first2;  // 2^16 bits: is any value with these first two bytes in the list
    std::vector<quint64> m_present; // 2^24 bits: is the value in the list at all
    std::vector<std::pair<quint32, quint32>> m_index; // (value, record number), sorted by value
    quint32 m_next = 0;             // record number where the next walk starts
    quint64 m_bytes = 0;
};

class DiskHeadList : public HeadList
{
public:
    explicit DiskHeadList(const QString &path);
    ~DiskHeadList() override;
    bool match(const quint8 *b) override;
    void reset() override { m_pos = 0; }
    quint64 size() const override { return m_size; }

private:
    std::unique_ptr<BufferedReader> m_file;
    quint64 m_size = 0;
    quint64 m_pos = 0; // byte place in the list, steps of 3
};

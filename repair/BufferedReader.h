#pragma once
// Random-access, read-only view of a file through one large window.
//
// Every scanner of the engine reads the damaged file and the sample through
// this class. It answers exactly what a stdio fseeko()+fread() of the same
// bytes would answer (a short count at the end of the file, zeros in the part
// of the caller's buffer that could not be read), but it only goes to the disk
// when a position falls outside the window it already holds.
//
// Besides positional reads it keeps a stdio-like cursor, because several scans
// depend on what a failed seek (below zero) leaves: the next read then goes on
// wherever the file stood.

#include <QString>
#include <QtGlobal>
#include <cstddef>
#include <cstring>
#include <memory>
#include <vector>

class BufferedReader
{
public:
    static constexpr size_t kDefaultWindow = size_t(4) << 20;

    explicit BufferedReader(size_t windowBytes = kDefaultWindow);
    ~BufferedReader();
    BufferedReader(const BufferedReader &) = delete;
    BufferedReader &operator=(const BufferedReader &) = delete;

    // Opens read-only (never for writing, whatever a caller wants). The name
    // is passed to the system as its UTF-8 bytes.
    bool open(const QString &path);
    void close();
    bool isOpen() const { return m_fd >= 0; }
    quint64 size() const { return m_size; }
    const QString &path() const { return m_path; }
    // The descriptor, for copies the kernel can make file to file.
    int fd() const { return m_fd; }
    // Different for every open() of any reader: tells whether fd() still
    // names the file it named before.
    quint64 openId() const { return m_openId; }

    // Copies up to n bytes from pos into dst and returns how many the file
    // held; the rest of dst is zeroed.
    size_t readAt(quint64 pos, void *dst, size_t n);

    quint8 u8(quint64 pos)
    {
        if (pos - m_winPos < m_winLen)
            return m_buf.get()[size_t(pos - m_winPos)];
        quint8 b = 0;
        readAt(pos, &b, 1);
        return b;
    }
    quint16 be16(quint64 pos) { quint8 b[2]; readAt(pos, b, 2); return quint16(b[0] << 8 | b[1]); }
    quint32 be32(quint64 pos)
    {
        const quint8 *p = peek(pos, 4);
        quint8 b[4];
        if (!p) { readAt(pos, b, 4); p = b; }
        return quint32(p[0]) << 24 | quint32(p[1]) << 16 | quint32(p[2]) << 8 | p[3];
    }
    quint64 be64(quint64 pos) { return quint64(be32(pos)) << 32 | be32(pos + 4); }
    quint16 le16(quint64 pos) { quint8 b[2]; readAt(pos, b, 2); return quint16(b[1] << 8 | b[0]); }
    quint32 le32(quint64 pos)
    {
        quint8 b[4];
        readAt(pos, b, 4);
        return quint32(b[3]) << 24 | quint32(b[2]) << 16 | quint32(b[1]) << 8 | b[0];
    }
    // True when the 4 bytes at pos equal tag (bytes in file order).
    bool tagAt(quint64 pos, const char *tag)
    {
        const quint8 *p = peek(pos, 4);
        if (p)
            return std::memcmp(p, tag, 4) == 0;
        quint8 b[4];
        readAt(pos, b, 4);
        return std::memcmp(b, tag, 4) == 0;
    }

    // A pointer to n bytes at pos, valid until the next call, when all n lie
    // inside the file; nullptr otherwise. Loads the window as needed.
    const quint8 *peek(quint64 pos, size_t n)
    {
        if (pos - m_winPos < m_winLen && m_winLen - (pos - m_winPos) >= n)
            return m_buf.get() + (pos - m_winPos);
        return peekSlow(pos, n);
    }

    // The bytes from pos to the end of the window, loading it as needed;
    // nullptr and 0 past the end of the file. For scans that step through
    // many positions at once.
    const quint8 *span(quint64 pos, size_t *len)
    {
        if (!(pos - m_winPos < m_winLen) && !load(pos)) {
            *len = 0;
            return nullptr;
        }
        *len = size_t(m_winLen - (pos - m_winPos));
        return m_buf.get() + (pos - m_winPos);
    }

    // The n bytes at pos, shared with the caller when the window holds them
    // all (nullptr otherwise; nothing is read). They stay as they are while
    // the handle lives, on any thread: a window loaded meanwhile goes into
    // another buffer. Lets a writer thread write them without a copy.
    std::shared_ptr<const quint8> share(quint64 pos, size_t n)
    {
        if (n && pos - m_winPos < m_winLen && m_winLen - (pos - m_winPos) >= n)
            return std::shared_ptr<const quint8>(m_buf, m_buf.get() + (pos - m_winPos));
        return nullptr;
    }

    // The bytes a buffer of the window takes.
    size_t windowBytes() const { return m_bufSize; }

    // The walk goes on from pos: the window should hold it. A scan that hops
    // from unit to unit says so, since each hop alone looks like a far look.
    void moveTo(quint64 pos)
    {
        if (!(pos - m_winPos < m_winLen))
            load(pos);
    }

    // --- stdio-like cursor ---
    // Fails, leaving the cursor where it was, for a position below zero.
    bool seek(qint64 pos);
    bool seekU(quint64 pos) { return seek(qint64(pos)); }
    quint64 tell() const { return m_cursor; }
    // Reads at the cursor and moves it on by what was read.
    size_t read(void *dst, size_t n);

    // Count of window loads, for tests that prove no position is read twice.
    quint64 diskReads() const { return m_diskReads; }
    // Bytes those reads brought in.
    quint64 diskBytes() const { return m_diskBytes; }

private:
    const quint8 *peekSlow(quint64 pos, size_t n);
    bool load(quint64 pos);
    // A buffer nobody else holds: a spare one, or a new one.
    std::shared_ptr<quint8> freeBuffer();
    // A small read far from the window (a length field probing ahead) goes
    // through a small side buffer, so the window the scan walks stays put.
    const quint8 *probe(quint64 pos, size_t n);
    bool isFar(quint64 pos) const;

    int m_fd = -1;
    QString m_path;
    quint64 m_size = 0;
    size_t m_window;                 // the window size asked for
    size_t m_bufSize = 0;            // what is allocated: no more than the file needs
    std::shared_ptr<quint8> m_buf; // left uninitialised; only loaded bytes are read
    std::vector<std::shared_ptr<quint8>> m_bufs; // buffers made, reused once nobody else holds them
    quint64 m_winPos = 0;
    quint64 m_winLen = 0;
    quint64 m_cursor = 0;
    quint64 m_diskReads = 0;
    quint64 m_diskBytes = 0;
    quint64 m_openId = 0;
    static constexpr size_t kProbeBytes = 1024;
    quint8 m_probe[kProbeBytes];
    quint64 m_probePos = 0;
    quint64 m_probeLen = 0;
};

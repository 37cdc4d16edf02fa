#include "repair/BufferedReader.h"

#include <QFile>
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
// Windows start on this boundary so that scans which look a few bytes back
// (P - 4) don't force a reload at every window edge.
constexpr quint64 kAlign = 64 * 1024;
// Window buffers kept for reuse, at most.
constexpr size_t kMaxBuffers = 12;

std::shared_ptr<quint8> newBuffer(size_t n)
{
    return std::shared_ptr<quint8>(new quint8[n], std::default_delete<quint8[]>());
}

size_t preadFull(int fd, quint8 *dst, size_t n, quint64 pos)
{
    size_t got = 0;
    while (got < n) {
        ssize_t r = ::pread(fd, dst + got, n - got, off_t(pos + got));
        if (r < 0 && errno == EINTR)
            continue;
        if (r <= 0)
            break;
        got += size_t(r);
    }
    return got;
}
} // namespace

BufferedReader::BufferedReader(size_t windowBytes)
    : m_window(qMax<size_t>(windowBytes, 4 * kAlign))
{
}

BufferedReader::~BufferedReader() { close(); }

bool BufferedReader::open(const QString &path)
{
    close();
    const QByteArray name = QFile::encodeName(path);
    // Non-blocking, so that a FIFO or a device named as a video can't hang
    // the open; only regular files are read.
    int fd = ::open(name.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0)
        return false;
    struct stat st;
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(fd);
        return false;
    }
    static std::atomic<quint64> opens{0};
    m_fd = fd;
    m_openId = ++opens;
    m_path = path;
    m_size = quint64(st.st_size);
    // A small file gets a small window (plus the alignment slack).
    const size_t need = size_t(qMin<quint64>(m_window, m_size + 2 * kAlign));
    if (need > m_bufSize) {
        m_buf.reset();
        m_bufs.clear();
        m_bufSize = need;
    }
    m_winPos = m_winLen = 0;
    m_probePos = m_probeLen = 0;
    m_cursor = 0;
    return true;
}

void BufferedReader::close()
{
    if (m_fd >= 0)
        ::close(m_fd);
    m_fd = -1;
    m_size = 0;
    m_winPos = m_winLen = 0;
    m_probePos = m_probeLen = 0;
    m_cursor = 0;
}

bool BufferedReader::load(quint64 pos)
{
    if (m_fd < 0 || pos >= m_size)
        return false;
    quint64 start = pos - pos % kAlign;
    // Keep a little history behind pos for backward-looking probes.
    if (start >= kAlign && m_bufSize >= 4 * kAlign)
        start -= kAlign;
    const size_t want = size_t(qMin<quint64>(m_bufSize, m_size - start));
    m_buf.reset(); // free again, unless a writer still holds its bytes
    m_buf = freeBuffer();
    m_winPos = start;
    m_winLen = preadFull(m_fd, m_buf.get(), want, start);
    ++m_diskReads;
    m_diskBytes += m_winLen;
    return pos - m_winPos < m_winLen;
}

std::shared_ptr<quint8> BufferedReader::freeBuffer()
{
    // A count of one means no other holder is left (a writer thread, the
    // window), and none can take it again; the fence orders their last
    // reads of it before our writes.
    for (const std::shared_ptr<quint8> &b : m_bufs) {
        if (b.use_count() == 1) {
            std::atomic_thread_fence(std::memory_order_acquire);
            return b;
        }
    }
    std::shared_ptr<quint8> b = newBuffer(m_bufSize);
    if (m_bufs.size() < kMaxBuffers)
        m_bufs.push_back(b);
    return b;
}

bool BufferedReader::isFar(quint64 pos) const
{
    if (m_winLen == 0)
        return false;
    // A read that starts inside the window and runs past its end is the walk
    // moving on.
    if (pos >= m_winPos && pos < m_winPos + m_winLen)
        return false;
    // So is a read at the end of the side buffer: the walk went on from a
    // place it first looked at from afar, and now deserves the window.
    if (m_probeLen && pos >= m_probePos && pos <= m_probePos + m_probeLen)
        return false;
    // Anything else is a look somewhere else (a length read ahead), which
    // must not move the window the walk still needs.
    return true;
}

const quint8 *BufferedReader::probe(quint64 pos, size_t n)
{
    if (pos - m_probePos < m_probeLen && m_probeLen - (pos - m_probePos) >= n)
        return m_probe + (pos - m_probePos);
    const quint64 start = pos - pos % 512;
    if (pos + n - start > kProbeBytes)
        return nullptr;
    const size_t want = size_t(qMin<quint64>(kProbeBytes, m_size - start));
    m_probePos = start;
    m_probeLen = preadFull(m_fd, m_probe, want, start);
    ++m_diskReads;
    m_diskBytes += m_probeLen;
    if (pos - m_probePos < m_probeLen && m_probeLen - (pos - m_probePos) >= n)
        return m_probe + (pos - m_probePos);
    return nullptr;
}

const quint8 *BufferedReader::peekSlow(quint64 pos, size_t n)
{
    if (m_fd < 0 || n > m_bufSize / 2 || pos >= m_size || m_size - pos < n)
        return nullptr;
    if (n <= kProbeBytes && pos - m_probePos < m_probeLen && m_probeLen - (pos - m_probePos) >= n)
        return m_probe + (pos - m_probePos);
    if (n <= kProbeBytes && isFar(pos)) {
        if (const quint8 *p = probe(pos, n))
            return p;
    }
    if (!load(pos) || m_winLen - (pos - m_winPos) < n)
        return nullptr;
    return m_buf.get() + (pos - m_winPos);
}

size_t BufferedReader::readAt(quint64 pos, void *dst, size_t n)
{
    quint8 *out = static_cast<quint8 *>(dst);
    if (n == 0)
        return 0;
    size_t avail = 0;
    if (m_fd >= 0 && pos < m_size)
        avail = size_t(qMin<quint64>(n, m_size - pos));
    size_t done = 0;
    while (done < avail) {
        const quint64 p = pos + done;
        if (!(p - m_winPos < m_winLen) && avail - done <= kProbeBytes
            && ((p - m_probePos < m_probeLen && m_probeLen - (p - m_probePos) >= avail - done) || isFar(p))) {
            if (const quint8 *src = probe(p, avail - done)) {
                std::memcpy(out + done, src, avail - done);
                done = avail;
                break;
            }
        }
        if (!(p - m_winPos < m_winLen)) {
            // A big read, or one behind the window (a unit written after the
            // walk has gone on), goes straight to the disk and leaves the
            // window where the walk is.
            if (avail - done >= m_bufSize || (p < m_winPos && avail - done > kProbeBytes)) {
                const size_t got = preadFull(m_fd, out + done, avail - done, p);
                ++m_diskReads;
                m_diskBytes += got;
                done += got;
                break;
            }
            if (!load(p))
                break;
        }
        const size_t off = size_t(p - m_winPos);
        const size_t chunk = qMin<size_t>(avail - done, size_t(m_winLen) - off);
        std::memcpy(out + done, m_buf.get() + off, chunk);
        done += chunk;
    }
    if (done < n)
        std::memset(out + done, 0, n - done);
    return done;
}

bool BufferedReader::seek(qint64 pos)
{
    if (pos < 0 || m_fd < 0)
        return false;
    m_cursor = quint64(pos);
    return true;
}

size_t BufferedReader::read(void *dst, size_t n)
{
    const size_t got = readAt(m_cursor, dst, n);
    m_cursor += got;
    return got;
}

#include "carve/audio/StreamOut.h"

#include "carve/video/CarveConstants.h"
#include "repair/BufferedReader.h"

#include <QFile>
#include <atomic>
#include <cstring>
#include <cerrno>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <unistd.h>

namespace {
constexpr int kFlush = 4 << 20;
// A system call costs more than copying tens of kilobytes here, and each
// start code is one more: the kernel copies only chains of large units.
constexpr quint64 kKernelCopy = 1 << 20;
constexpr quint64 kKernelCopyUnit = 256 << 10;
constexpr quint64 kChainLimit = 64ull << 20; // bounds the start codes held back
constexpr size_t kPiece = 1 << 20;
std::atomic<bool> g_kernelCopy{true};
std::atomic<bool> g_background{true};

// Writes all n bytes, or notes in `error` why not (the first reason stays).
void writeAllAt(int fd, const char *p, size_t n, quint64 at, std::atomic<int> &error)
{
    if (fd < 0 && n) {
        int none = 0;
        error.compare_exchange_strong(none, EBADF);
        return;
    }
    while (n) {
        const ssize_t w = ::pwrite(fd, p, n, off_t(at));
        if (w < 0 && errno == EINTR)
            continue;
        if (w <= 0) {
            int none = 0;
            error.compare_exchange_strong(none, w < 0 ? errno : ENOSPC); // a full disk, a file too large
            return;
        }
        p += w;
        n -= size_t(w);
        at += quint64(w);
    }
}
} // namespace

// Writes full buffers while the splitter goes on scanning. Writes are
// positional, so their order doesn't matter; at most two buffers wait.
class BackgroundWriter
{
public:
    BackgroundWriter(int fd, std::atomic<int> &error) : m_fd(fd), m_error(error), m_thread([this] { run(); }) {}
    ~BackgroundWriter()
    {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_stop = true;
        }
        m_wake.notify_all();
        m_thread.join();
    }
    void submit(QByteArray &&buf, quint64 at)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_done.wait(lock, [this] { return m_queue.size() < 2; });
        m_queue.emplace_back(std::move(buf), at);
        m_wake.notify_one();
    }
    // An empty buffer, from those written already where there is one.
    QByteArray spare()
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_spares.empty())
            return QByteArray();
        QByteArray b = std::move(m_spares.back());
        m_spares.pop_back();
        return b;
    }
    void drain()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_done.wait(lock, [this] { return m_queue.empty() && !m_busy; });
    }

private:
    void run()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        for (;;) {
            m_wake.wait(lock, [this] { return m_stop || !m_queue.empty(); });
            if (m_queue.empty())
                return; // stopped, nothing left
            auto job = std::move(m_queue.front());
            m_queue.pop_front();
            m_busy = true;
            lock.unlock();
            writeAllAt(m_fd, job.first.constData(), size_t(job.first.size()), job.second, m_error);
            job.first.resize(0); // keeps its capacity for the next round
            lock.lock();
            m_busy = false;
            m_spares.push_back(std::move(job.first));
            m_done.notify_all();
        }
    }

    int m_fd;
    std::atomic<int> &m_error;
    std::mutex m_mutex;
    std::condition_variable m_wake, m_done;
    std::deque<std::pair<QByteArray, quint64>> m_queue;
    std::vector<QByteArray> m_spares;
    bool m_busy = false, m_stop = false;
    std::thread m_thread; // last: starts once the rest is ready
};

void StreamOut::SetKernelCopy(bool on) { g_kernelCopy = on; }

QString StreamOut::errorText() const
{
    const int e = m_error.load();
    return e ? QString::fromLocal8Bit(std::strerror(e)) : QString();
}
void StreamOut::SetBackgroundWrites(bool on) { g_background = on; }

StreamOut::StreamOut(QFile *file, bool kernelCopy) : m_file(file), m_kernelCopy(kernelCopy && g_kernelCopy)
{
    if (m_file && m_file->isOpen()) {
        m_file->flush(); // what earlier stages wrote through the QFile
        m_fd = m_file->handle();
        m_off = quint64(m_file->size());
    }
    m_buf.reserve(kFlush + int(kPiece));
}

StreamOut::~StreamOut()
{
    flush();
    m_writer.reset();
}

void StreamOut::detach()
{
    flush();
    m_file = nullptr;
    m_fd = -1;
}

void StreamOut::write(const void *p, size_t n)
{
    flushChain();
    append(p, n);
}

void StreamOut::copy(BufferedReader &src, quint64 pos, quint64 len)
{
    flushChain();
    appendFrom(src, pos, len);
}

void StreamOut::unit(BufferedReader &src, quint64 pos, quint64 len)
{
    if (m_chainSrc != &src || m_chainEnd != pos || m_chainEnd - m_chainBegin >= kChainLimit) {
        flushChain();
        m_chainSrc = &src;
        m_chainBegin = m_chainEnd = pos;
    }
    m_codes.push_back(pos - m_chainBegin);
    m_chainEnd = pos + 4 + len;
}

void StreamOut::flush()
{
    flushChain();
    flushBuffer();
    if (m_writer)
        m_writer->drain();
}

void StreamOut::append(const void *p, size_t n)
{
    m_buf.append(static_cast<const char *>(p), int(n));
    if (m_buf.size() >= kFlush)
        flushBuffer();
}

void StreamOut::appendFrom(BufferedReader &src, quint64 pos, quint64 len)
{
    while (len) {
        const size_t chunk = size_t(qMin<quint64>(len, kPiece));
        const int at = m_buf.size();
        m_buf.resize(at + int(chunk));
        src.readAt(pos, m_buf.data() + at, chunk);
        pos += chunk;
        len -= chunk;
        if (m_buf.size() >= kFlush)
            flushBuffer();
    }
}

// The chain read piece by piece into the buffer, each start code put over
// its length there (a code may span two pieces).
void StreamOut::appendChainByHand(BufferedReader &src, quint64 len)
{
    size_t next = 0;
    for (quint64 done = 0; done < len;) {
        const size_t chunk = size_t(qMin<quint64>(len - done, kPiece));
        const int at = m_buf.size();
        m_buf.resize(at + int(chunk));
        src.readAt(m_chainBegin + done, m_buf.data() + at, chunk);
        while (next < m_codes.size() && m_codes[next] + 4 <= done)
            ++next;
        for (size_t k = next; k < m_codes.size() && m_codes[k] < done + chunk; ++k)
            for (quint64 b = 0; b < 4; ++b)
                if (m_codes[k] + b >= done && m_codes[k] + b < done + chunk)
                    m_buf[at + int(m_codes[k] + b - done)] = char(carve::kStartCode[b]);
        done += chunk;
        if (m_buf.size() >= kFlush)
            flushBuffer();
    }
}

void StreamOut::flushChain()
{
    if (!m_chainSrc)
        return;
    BufferedReader &src = *m_chainSrc;
    m_chainSrc = nullptr;
    const quint64 len = m_chainEnd - m_chainBegin;
    const bool kernel = m_kernelCopy && len >= kKernelCopy && len / m_codes.size() >= kKernelCopyUnit && m_fd >= 0
                        && src.fd() >= 0 && m_chainEnd <= src.size();
    if (!kernel) {
        appendChainByHand(src, len);
        m_codes.clear();
        return;
    }
    flushBuffer();
    const quint64 begin = m_off;
    loff_t in = loff_t(m_chainBegin), out = loff_t(m_off);
    quint64 left = len;
    while (left) {
        const ssize_t n = ::copy_file_range(src.fd(), &in, m_fd, &out, size_t(qMin<quint64>(left, 1 << 30)), 0);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0 && (errno == ENOSPC || errno == EIO || errno == EFBIG || errno == EDQUOT)) {
            int none = 0;
            m_error.compare_exchange_strong(none, errno);
            return;
        }
        if (n <= 0)
            break;
        left -= quint64(n);
    }
    m_off = quint64(out);
    if (left) {
        // The kernel can't copy between these files: by hand from here on.
        m_kernelCopy = false;
        appendFrom(src, m_chainBegin + (len - left), left);
        flushBuffer();
    }
    for (quint64 c : m_codes)
        writeAllAt(m_fd, reinterpret_cast<const char *>(carve::kStartCode), 4, begin + c, m_error);
    m_codes.clear();
}

void StreamOut::flushBuffer()
{
    const quint64 n = quint64(m_buf.size());
    if (n >= quint64(kFlush) && m_fd >= 0 && g_background) {
        if (!m_writer)
            m_writer.reset(new BackgroundWriter(m_fd, m_error));
        m_writer->submit(std::move(m_buf), m_off);
        m_off += n;
        m_buf = m_writer->spare();
        if (m_buf.capacity() < kFlush)
            m_buf.reserve(kFlush + int(kPiece));
        return;
    }
    writeAllAt(m_fd, m_buf.constData(), size_t(n), m_off, m_error);
    m_off += n;
    m_buf.clear();
}

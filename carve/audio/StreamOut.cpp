#include "carve/audio/StreamOut.h"

#include "carve/video/CarveConstants.h"
#include "repair/BufferedReader.h"

#include <QFile>
#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <cstring>
#include <deque>
#include <fcntl.h>
#include <limits.h>
#include <mutex>
#include <pthread.h>
#include <sys/uio.h>
#include <thread>
#include <unistd.h>

namespace {
// A job is handed to the writer once it holds this much.
constexpr quint64 kJobBytes = 4 << 20;
constexpr size_t kMaxPieces = 4096;
// Pieces shorter than this are copied into the job: an entry of a gathered
// write costs about as much as copying them.
constexpr quint64 kSharedMin = 512;
// A stretch the reader's window doesn't hold, this long or longer, is
// copied file to file by the kernel, on the writer's thread.
constexpr quint64 kKernelCopy = 64 << 10;
constexpr quint64 kPiece = 1 << 20;
constexpr size_t kMaxJobs = 64;                  // jobs waiting for the writer, at most
constexpr quint64 kMaxQueuedBytes = 4 * kJobBytes; // memory they hold, at most
// Windows a job holds, at most: sound frames spread thinly over the file
// would otherwise keep every window they lie in.
constexpr size_t kMaxHolds = 2;
#ifndef IOV_MAX
constexpr int IOV_MAX = 1024;
#endif
std::atomic<bool> g_kernelCopy{true};
std::atomic<bool> g_background{true};
std::atomic<bool> g_shared{true};

void noteError(std::atomic<int> &error, int e)
{
    int none = 0;
    error.compare_exchange_strong(none, e); // the first reason stays
}

// Writes all n bytes, or notes in `error` why not.
void writeAllAt(int fd, const char *p, size_t n, quint64 at, std::atomic<int> &error)
{
    if (fd < 0 && n) {
        noteError(error, EBADF);
        return;
    }
    while (n) {
        const ssize_t w = ::pwrite(fd, p, n, off_t(at));
        if (w < 0 && errno == EINTR)
            continue;
        if (w <= 0) {
            noteError(error, w < 0 ? errno : ENOSPC); // a full disk, a file too large
            return;
        }
        p += w;
        n -= size_t(w);
        at += quint64(w);
    }
}

// Up to n bytes at pos; zeros for what the file doesn't hold (any more).
void readOrZero(int fd, char *dst, size_t n, quint64 pos)
{
    size_t got = 0;
    while (got < n) {
        const ssize_t r = ::pread(fd, dst + got, n - got, off_t(pos + got));
        if (r < 0 && errno == EINTR)
            continue;
        if (r <= 0)
            break;
        got += size_t(r);
    }
    std::memset(dst + got, 0, n - got);
}
} // namespace

// Bytes for one place of the output: pieces written in order, each from a
// window of the reader, from the job's own bytes or from a constant; or a
// stretch of the source copied file to file.
struct WriteJob
{
    struct Piece
    {
        const quint8 *bytes; // nullptr: the next len bytes of `own`
        size_t len;
    };
    std::vector<Piece> pieces;
    QByteArray own;
    std::vector<std::shared_ptr<const quint8>> holds; // the windows pieces lie in
    quint64 bytes = 0;  // of all pieces
    quint64 memory = 0; // what `own` and the windows held take

    int srcFd = -1; // a stretch: len bytes of the source from srcPos
    quint64 srcPos = 0, len = 0;
    quint64 at = 0; // where it goes in the output

    void add(const quint8 *b, size_t n)
    {
        if (!pieces.empty() && pieces.back().bytes && b && pieces.back().bytes + pieces.back().len == b)
            pieces.back().len += n;
        else if (!pieces.empty() && !pieces.back().bytes && !b)
            pieces.back().len += n;
        else
            pieces.push_back({b, n});
        bytes += n;
    }
    bool holdsLast(const std::shared_ptr<const quint8> &h) const
    {
        return !holds.empty() && !holds.back().owner_before(h) && !h.owner_before(holds.back());
    }
};

// Carries out jobs on one thread.
struct JobRunner
{
    JobRunner(int out, bool kernel, std::atomic<int> &error) : m_out(out), m_kernel(kernel), m_error(error) {}

    void run(const WriteJob &job)
    {
        if (job.srcFd >= 0)
            copyStretch(job);
        else
            gather(job);
    }

private:
    void gather(const WriteJob &job)
    {
        if (!job.bytes)
            return;
        if (m_out < 0) {
            noteError(m_error, EBADF);
            return;
        }
        std::vector<iovec> iov;
        iov.reserve(job.pieces.size());
        const char *own = job.own.constData();
        for (const WriteJob::Piece &p : job.pieces) {
            const char *b = p.bytes ? reinterpret_cast<const char *>(p.bytes) : own;
            if (!p.bytes)
                own += p.len;
            iov.push_back({const_cast<char *>(b), p.len});
        }
        quint64 at = job.at;
        for (size_t i = 0; i < iov.size();) {
            const int count = int(qMin<size_t>(iov.size() - i, size_t(IOV_MAX)));
            const ssize_t w = ::pwritev(m_out, iov.data() + i, count, off_t(at));
            if (w < 0 && errno == EINTR)
                continue;
            if (w <= 0) {
                noteError(m_error, w < 0 ? errno : ENOSPC);
                return;
            }
            at += quint64(w);
            // Past what got written; a piece written in part goes on from there.
            size_t left = size_t(w);
            while (i < iov.size() && left >= iov[i].iov_len)
                left -= iov[i++].iov_len;
            if (left) {
                iov[i].iov_base = static_cast<char *>(iov[i].iov_base) + left;
                iov[i].iov_len -= left;
            }
        }
    }

    void copyStretch(const WriteJob &job)
    {
        if (m_out < 0) {
            noteError(m_error, EBADF);
            return;
        }
        quint64 done = 0;
        if (m_kernel) {
            loff_t in = loff_t(job.srcPos), out = loff_t(job.at);
            while (done < job.len) {
                const ssize_t n =
                    ::copy_file_range(job.srcFd, &in, m_out, &out, size_t(qMin<quint64>(job.len - done, 1 << 30)), 0);
                if (n < 0 && errno == EINTR)
                    continue;
                if (n < 0 && (errno == ENOSPC || errno == EIO || errno == EFBIG || errno == EDQUOT)) {
                    noteError(m_error, errno);
                    return;
                }
                if (n <= 0)
                    break;
                done += quint64(n);
            }
            if (done < job.len)
                m_kernel = false; // the kernel can't copy between these files: by hand from here on
        }
        if (done < job.len && m_piece.empty())
            m_piece.resize(kPiece);
        while (done < job.len) {
            const size_t chunk = size_t(qMin<quint64>(job.len - done, kPiece));
            readOrZero(job.srcFd, m_piece.data(), chunk, job.srcPos + done);
            writeAllAt(m_out, m_piece.data(), chunk, job.at + done, m_error);
            done += chunk;
        }
    }

    int m_out;
    bool m_kernel;
    std::atomic<int> &m_error;
    std::vector<char> m_piece;
};

// Carries out jobs while the splitter goes on scanning. Writes are
// positional, so their order doesn't matter; a bounded number of jobs, and
// of bytes they hold, wait.
class BackgroundWriter
{
public:
    BackgroundWriter(int fd, bool kernel, std::atomic<int> &error)
        : m_runner(fd, kernel, error), m_thread([this] { run(); })
    {
    }
    ~BackgroundWriter()
    {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_stop = true;
        }
        m_wake.notify_all();
        m_thread.join();
    }
    void submit(std::unique_ptr<WriteJob> job)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_done.wait(lock, [&] {
            return m_queue.empty() || (m_queue.size() < kMaxJobs && m_queuedBytes + job->memory <= kMaxQueuedBytes);
        });
        m_queuedBytes += job->memory;
        m_queue.push_back(std::move(job));
        m_wake.notify_one();
    }
    void drain()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_done.wait(lock, [this] { return m_queue.empty() && !m_busy; });
    }

private:
    void run()
    {
        pthread_setname_np(pthread_self(), "StreamOut");
        std::unique_lock<std::mutex> lock(m_mutex);
        for (;;) {
            m_wake.wait(lock, [this] { return m_stop || !m_queue.empty(); });
            if (m_queue.empty())
                return; // stopped, nothing left
            std::unique_ptr<WriteJob> job = std::move(m_queue.front());
            m_queue.pop_front();
            m_busy = true;
            lock.unlock();
            m_runner.run(*job);
            const quint64 memory = job->memory;
            job.reset(); // lets go of the windows before the reader may want them again
            lock.lock();
            m_busy = false;
            m_queuedBytes -= memory;
            m_done.notify_all();
        }
    }

    JobRunner m_runner; // used by the thread only
    std::mutex m_mutex;
    std::condition_variable m_wake, m_done;
    std::deque<std::unique_ptr<WriteJob>> m_queue;
    quint64 m_queuedBytes = 0;
    bool m_busy = false, m_stop = false;
    std::thread m_thread; // last: starts once the rest is ready
};

void StreamOut::SetKernelCopy(bool on) { g_kernelCopy = on; }
void StreamOut::SetBackgroundWrites(bool on) { g_background = on; }
void StreamOut::SetSharedWindows(bool on) { g_shared = on; }

QString StreamOut::errorText() const
{
    const int e = m_error.load();
    return e ? QString::fromLocal8Bit(std::strerror(e)) : QString();
}

StreamOut::StreamOut(QFile *file, bool kernelCopy) : StreamOut(file, kernelCopy, file && file->isOpen() ? quint64(file->size()) : 0)
{
}

StreamOut::StreamOut(QFile *file, bool kernelCopy, quint64 at) : m_file(file), m_off(at), m_kernelCopy(kernelCopy && g_kernelCopy)
{
    if (m_file && m_file->isOpen()) {
        m_file->flush(); // what earlier stages wrote through the QFile
        m_fd = m_file->handle();
    }
}

StreamOut::~StreamOut()
{
    flush();
    m_writer.reset();
    if (m_srcFd >= 0)
        ::close(m_srcFd);
}

void StreamOut::detach()
{
    flush();
    m_writer.reset();
    m_inline.reset();
    m_file = nullptr;
    m_fd = -1;
}

WriteJob &StreamOut::job()
{
    if (!m_job) {
        m_job.reset(new WriteJob);
        m_job->at = m_off;
    }
    return *m_job;
}

void StreamOut::write(const void *p, size_t n)
{
    if (!n)
        return;
    WriteJob &j = job();
    j.own.append(static_cast<const char *>(p), int(n));
    j.add(nullptr, n);
    j.memory += n;
    m_off += n;
    if (j.bytes >= kJobBytes || j.pieces.size() >= kMaxPieces)
        dispatchJob();
}

void StreamOut::copy(BufferedReader &src, quint64 pos, quint64 len)
{
    if (!len)
        return;
    const quint64 size = src.size();
    const bool inFile = pos < size && len <= size - pos;
    if (inFile && len >= kSharedMin && g_shared) {
        if (std::shared_ptr<const quint8> h = src.share(pos, size_t(len))) {
            if (m_job && !m_job->holdsLast(h) && m_job->holds.size() >= kMaxHolds)
                dispatchJob();
            WriteJob &j = job();
            j.add(h.get(), size_t(len));
            if (!j.holdsLast(h)) {
                j.memory += src.windowBytes();
                j.holds.push_back(std::move(h));
            }
            m_off += len;
            if (j.bytes >= kJobBytes || j.pieces.size() >= kMaxPieces)
                dispatchJob();
            return;
        }
    }
    if (inFile && m_kernelCopy && len >= kKernelCopy) {
        const int fd = sourceFd(src);
        if (fd >= 0) {
            dispatchJob();
            std::unique_ptr<WriteJob> stretch(new WriteJob);
            stretch->srcFd = fd;
            stretch->srcPos = pos;
            stretch->len = len;
            stretch->at = m_off;
            m_off += len;
            dispatch(std::move(stretch));
            return;
        }
    }
    // Into the job, a piece at a time (zeros past the end of the file).
    while (len) {
        const size_t chunk = size_t(qMin<quint64>(len, kPiece));
        WriteJob &j = job();
        const int at = j.own.size();
        j.own.resize(at + int(chunk));
        src.readAt(pos, j.own.data() + at, chunk);
        j.add(nullptr, chunk);
        j.memory += chunk;
        m_off += chunk;
        pos += chunk;
        len -= chunk;
        if (j.bytes >= kJobBytes || j.pieces.size() >= kMaxPieces)
            dispatchJob();
    }
}

void StreamOut::unit(BufferedReader &src, quint64 pos, quint64 len)
{
    WriteJob &j = job();
    j.add(carve::kStartCode, 4);
    m_off += 4;
    copy(src, pos + 4, len);
}

void StreamOut::flush()
{
    dispatchJob();
    if (m_writer)
        m_writer->drain();
}

int StreamOut::sourceFd(BufferedReader &src)
{
    if (src.fd() < 0)
        return -1;
    if (m_srcReader == &src && m_srcOpenId == src.openId())
        return m_srcFd;
    // Another source: the jobs that read the last one finish first.
    flush();
    if (m_srcFd >= 0)
        ::close(m_srcFd);
    m_srcFd = ::fcntl(src.fd(), F_DUPFD_CLOEXEC, 0);
    m_srcReader = &src;
    m_srcOpenId = src.openId();
    return m_srcFd;
}

void StreamOut::dispatchJob()
{
    if (m_job)
        dispatch(std::move(m_job));
}

void StreamOut::dispatch(std::unique_ptr<WriteJob> job)
{
    if (m_fd >= 0 && g_background) {
        if (!m_writer)
            m_writer.reset(new BackgroundWriter(m_fd, m_kernelCopy, m_error));
        m_writer->submit(std::move(job));
        return;
    }
    if (!m_inline)
        m_inline.reset(new JobRunner(m_fd, m_kernelCopy, m_error));
    m_inline->run(*job);
}

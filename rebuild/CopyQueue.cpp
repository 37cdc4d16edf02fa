#include "rebuild/CopyQueue.h"

#include "rebuild/RebuildConstants.h"

#include <cerrno>
#include <memory>
#include <unistd.h>

namespace rebuild {

namespace {
// Jobs waiting at most: the scan never runs far ahead of the disk.
constexpr size_t kMaxJobs = 256;
} // namespace

CopyQueue::CopyQueue(int srcFd, int outFd, const std::atomic<bool> &stop)
    : m_src(srcFd), m_out(outFd), m_stop(stop), m_thread([this] { run(); })
{
}

CopyQueue::~CopyQueue() { finish(); }

void CopyQueue::copy(quint64 from, quint64 n, quint64 at)
{
    if (n)
        push(Job{from, n, at, QByteArray()});
}

void CopyQueue::write(const QByteArray &bytes, quint64 at)
{
    if (!bytes.isEmpty())
        push(Job{0, quint64(bytes.size()), at, bytes});
}

void CopyQueue::push(Job &&job)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_room.wait(lock, [this] { return m_jobs.size() < kMaxJobs; });
    m_jobs.push_back(std::move(job));
    m_wake.notify_one();
}

int CopyQueue::finish()
{
    if (m_thread.joinable()) {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_closing = true;
        }
        m_wake.notify_one();
        m_thread.join();
    }
    return m_error.load();
}

void CopyQueue::fail(int error)
{
    int none = 0;
    m_error.compare_exchange_strong(none, error ? error : EIO);
}

void CopyQueue::run()
{
    for (;;) {
        Job job;
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            m_wake.wait(lock, [this] { return m_closing || !m_jobs.empty(); });
            if (m_jobs.empty())
                return;
            job = std::move(m_jobs.front());
            m_jobs.pop_front();
        }
        m_room.notify_one();
        // After a stop or a failure the rest is passed over: that output is
        // no result anyway.
        if (m_stop.load(std::memory_order_relaxed) || m_error.load())
            continue;
        if (!job.bytes.isEmpty()) {
            for (quint64 done = 0; done < job.n;) {
                const ssize_t w = ::pwrite(m_out, job.bytes.constData() + done, size_t(job.n - done), off_t(job.at + done));
                if (w < 0 && errno == EINTR)
                    continue;
                if (w <= 0) {
                    fail(w < 0 ? errno : EIO);
                    break;
                }
                done += quint64(w);
            }
        } else {
            doCopy(job);
        }
    }
}

void CopyQueue::doCopy(const Job &job)
{
    quint64 done = 0;
    while (m_kernel && done < job.n) {
        loff_t in = loff_t(job.from + done), out = loff_t(job.at + done);
        const ssize_t k = ::copy_file_range(m_src, &in, m_out, &out, size_t(qMin<quint64>(job.n - done, kCopyBuffer)), 0);
        if (k < 0 && errno == EINTR)
            continue;
        if (k < 0 && (errno == ENOSPC || errno == EIO || errno == EFBIG || errno == EDQUOT)) {
            fail(errno);
            return;
        }
        if (k <= 0) {
            m_kernel = false; // the kernel can't copy between these files: by hand from here on
            break;
        }
        done += quint64(k);
    }
    std::unique_ptr<char[]> buffer;
    while (done < job.n) {
        if (!buffer)
            buffer.reset(new char[kCopyBuffer]);
        const size_t want = size_t(qMin<quint64>(job.n - done, kCopyBuffer));
        const ssize_t r = ::pread(m_src, buffer.get(), want, off_t(job.from + done));
        if (r < 0 && errno == EINTR)
            continue;
        if (r <= 0) {
            fail(r < 0 ? errno : EIO); // the source ended early: the copy would be short
            return;
        }
        for (ssize_t put = 0; put < r;) {
            const ssize_t w = ::pwrite(m_out, buffer.get() + put, size_t(r - put), off_t(job.at + done + quint64(put)));
            if (w < 0 && errno == EINTR)
                continue;
            if (w <= 0) {
                fail(w < 0 ? errno : EIO);
                return;
            }
            put += w;
        }
        done += quint64(r);
    }
}

} // namespace rebuild

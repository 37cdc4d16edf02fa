#pragma once
// Copies runs of one file into another on a thread of its own, in the order
// they were given, each to its own offset: the scan that finds them goes on
// meanwhile. The kernel copies file to file where it can; otherwise the bytes
// go through a buffer here.

#include <QByteArray>
#include <QtGlobal>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace rebuild {

class CopyQueue
{
public:
    // Neither descriptor is closed here; both must stay open until finish().
    CopyQueue(int srcFd, int outFd, const std::atomic<bool> &stop);
    ~CopyQueue();
    CopyQueue(const CopyQueue &) = delete;
    CopyQueue &operator=(const CopyQueue &) = delete;

    // n bytes of the source from `from`, to `at` in the output.
    void copy(quint64 from, quint64 n, quint64 at);
    // Bytes of this program's own, to `at` in the output.
    void write(const QByteArray &bytes, quint64 at);
    // Waits until every job is done (or skipped after a stop); the errno of the
    // first failure, 0 when every byte got there.
    int finish();

private:
    struct Job
    {
        quint64 from, n, at;
        QByteArray bytes; // a write when not empty
    };
    void push(Job &&job);
    void run();
    void doCopy(const Job &job);
    void fail(int error);

    const int m_src, m_out;
    const std::atomic<bool> &m_stop;
    bool m_kernel = true;
    std::atomic<int> m_error{0};
    std::mutex m_mutex;
    std::condition_variable m_wake, m_room;
    std::deque<Job> m_jobs;
    bool m_closing = false;
    std::thread m_thread;
};

} // namespace rebuild

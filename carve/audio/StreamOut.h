#pragma once
// Appends to a work file of a splitter.
//
// What is appended is gathered into jobs of a few megabytes that a
// background thread writes while the splitter goes on scanning. Bytes the
// reader's window holds are not copied: the job keeps the window's buffer
// and writes straight from it. Other bytes of the damaged file (a stretch
// the window doesn't hold) are copied into the job, or, when large, file
// to file by the kernel. A video unit is a start code and the unit's bytes
// behind its length.
//
// Writes go to the descriptor at an offset kept here; the QFile is only
// flushed at the start and must not be written to until detach(). A
// BufferedReader given to copy() or unit() must stay open until the next
// flush() or detach().

#include <QByteArray>
#include <QString>
#include <atomic>
#include <QtGlobal>
#include <memory>
#include <vector>

class BufferedReader;
class QFile;
class BackgroundWriter;
struct JobRunner;
struct WriteJob;

class StreamOut
{
public:
    // kernelCopy false: every byte goes through this process.
    explicit StreamOut(QFile *file, bool kernelCopy = true);
    // Appends from `at` on instead of the end of the file.
    StreamOut(QFile *file, bool kernelCopy, quint64 at);
    ~StreamOut();
    StreamOut(const StreamOut &) = delete;
    StreamOut &operator=(const StreamOut &) = delete;

    // Flushes and lets go of the file, which its owner is about to close.
    void detach();
    void write(const void *p, size_t n);
    // len bytes from pos; zeros for what lies past the end of the file.
    void copy(BufferedReader &src, quint64 pos, quint64 len);
    // A start code, then the len bytes of the unit whose length stands at
    // pos. pos + 4 + len must lie within the file.
    void unit(BufferedReader &src, quint64 pos, quint64 len);
    void flush();
    // Where the next bytes go.
    quint64 end() const { return m_off; }
    // Why a write failed (an errno value; 0 while every byte got there).
    // Call after flush() or detach() for the whole story.
    int error() const { return m_error.load(); }
    QString errorText() const;

    // Off: every byte goes through this process (what happens anyway where
    // the kernel can't copy between the two files).
    static void SetKernelCopy(bool on);
    // Off: jobs are written on the caller's thread.
    static void SetBackgroundWrites(bool on);
    // Off: bytes the reader's window holds are copied into the job too.
    static void SetSharedWindows(bool on);

private:
    WriteJob &job();
    void dispatch(std::unique_ptr<WriteJob> job);
    void dispatchJob();
    // The descriptor a stretch of src is copied from by the kernel: a
    // duplicate this object owns; -1 where src can't be copied from.
    int sourceFd(BufferedReader &src);

    QFile *m_file;
    int m_fd = -1;
    quint64 m_off = 0; // where the job being gathered goes in the file
    bool m_kernelCopy = true;
    std::unique_ptr<WriteJob> m_job; // being gathered
    const BufferedReader *m_srcReader = nullptr;
    quint64 m_srcOpenId = 0;
    int m_srcFd = -1;
    std::atomic<int> m_error{0};
    std::unique_ptr<JobRunner> m_inline;        // jobs on the caller's thread
    std::unique_ptr<BackgroundWriter> m_writer; // made at the first job for it
};

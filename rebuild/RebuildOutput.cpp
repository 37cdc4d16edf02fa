#include "rebuild/RebuildOutput.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace rebuild {

QString Output::errorString() const
{
    return m_copyError ? QString::fromLocal8Bit(std::strerror(m_copyError)) : m_file.errorString();
}

void Output::copyFrom(BufferedReader &src, quint64 from, quint64 n, quint8 *buffer, const std::atomic<bool> &stop)
{
    quint64 done = 0;
    if (m_kernelCopy && src.isOpen() && m_file.flush()) {
        // Straight from file to file: no pass through this process, and on a
        // filesystem that shares extents no copy at all.
        loff_t in = loff_t(from), out = loff_t(m_file.pos());
        const int outFd = m_file.handle();
        while (done < n && !stop) {
            const ssize_t k = ::copy_file_range(src.fd(), &in, outFd, &out, size_t(qMin<quint64>(n - done, kCopyBuffer)), 0);
            if (k < 0 && errno == EINTR)
                continue;
            if (k < 0 && (errno == ENOSPC || errno == EIO || errno == EFBIG || errno == EDQUOT)) {
                m_copyError = errno;
                return;
            }
            if (k <= 0) {
                // The kernel can't copy between these files: by hand from here on.
                m_kernelCopy = false;
                break;
            }
            done += quint64(k);
        }
        m_file.seek(qint64(out));
    }
    while (done < n && !stop && !failed()) {
        const size_t k = size_t(qMin<quint64>(kCopyBuffer, n - done));
        src.readAt(from + done, buffer, k);
        write(buffer, k);
        done += k;
    }
}

} // namespace rebuild

// videomend-cli: the repair engine without a window, for scripts, batch work
// and tests.

#include "cli/CliRun.h"
#include "mux/FfmpegRunner.h"
#include "mux/MuxStages.h"
#include "repair/ThreadVideoRepair.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <csignal>
#include <cstdio>
#include <unistd.h>

namespace {

const char kUsage[] =
    "usage: videomend-cli repair [--sample FILE] [--out DIR] [--work DIR] [--json] [--quiet|--verbose] [--keep-work-files] FILE...\n"
    "       videomend-cli inspect [--damaged] FILE\n";

int usage(const char *msg)
{
    if (msg)
        std::fprintf(stderr, "videomend-cli: %s\n", msg);
    std::fputs(kUsage, stderr);
    return 2;
}

volatile std::sig_atomic_t g_interrupts = 0;

void onInterrupt(int)
{
    // First Ctrl-C asks the run to stop; a second one ends the process.
    if (g_interrupts++ > 0)
        ::_exit(130);
    pApp.bStopRepair = true;
}

void quietMessages(QtMsgType type, const QMessageLogContext &, const QString &msg)
{
    if (type == QtDebugMsg || type == QtInfoMsg)
        return;
    std::fprintf(stderr, "%s\n", qPrintable(msg));
}

int inspect(const QStringList &args)
{
    bool damaged = false;
    QString file;
    for (const QString &a : args) {
        if (a == "--damaged")
            damaged = true;
        else if (a.startsWith("--") && file.isEmpty())
            return usage(qPrintable("unknown option " + a));
        else if (file.isEmpty())
            file = a;
        else
            return usage("inspect takes one file");
    }
    if (file.isEmpty())
        return usage("no file named");
    const QFileInfo info(file);
    if (!info.isFile() || !info.isReadable()) {
        std::fprintf(stderr, "videomend-cli: cannot read %s: check the path and permissions\n",
                     qPrintable(file));
        return 2;
    }

    pApp.reset();
    ThreadVideoRepair t;
    bool found = false;
    if (damaged) {
        t.pSource.open(file);
        t.ullFileLeft = pApp.ullFileSize = t.pSource.size();
        t.strFileName = info.fileName();
        const QString suffix = info.suffix();
        pApp.b3gpFile = suffix == "3gp" || suffix == "3g2";
        found = t.WalkDamagedFile();
    } else {
        found = t.ScanSampleFile(file);
    }
    const RepairState &s = pApp;
    std::printf("moov=%s\n", s.ullMoovPos != 0 ? "found" : "missing");
    std::printf("classified=%s\n", found ? "yes" : "no");
    std::printf("FormatCode=%u\n", s.nFormatCode);
    std::printf("FrameWidth=%u\nFrameHeight=%u\n", s.FrameWidth, s.FrameHeight);
    std::printf("nTimeScaleVideo=%u\nTimeScaleSound=%u\nnSoundSampleRate=%u\n", s.nTimeScaleVideo,
                s.TimeScaleSound, s.nSoundSampleRate);
    std::printf("nVideoDelta=%u\nnSoundDelta=%u\nnSoundFrameSize=%u\n", s.nVideoDelta, s.nSoundDelta,
                s.nSoundFrameSize);
    std::printf("bHasCtts=%d\nbHevcWithPcm=%d\nbSampleHasAudio=%d\n", int(s.bHasCtts), int(s.bHevcWithPcm),
                int(s.bSampleHasAudio));
    return 0;
}

int repair(const QStringList &args)
{
    CliOptions opt;
    for (int i = 0; i < args.size(); ++i) {
        const QString &a = args.at(i);
        auto value = [&](QString &into) {
            if (i + 1 >= args.size())
                return false;
            into = args.at(++i);
            return true;
        };
        if (a == "--") {
            opt.files << args.mid(i + 1);
            break;
        } else if (a == "--sample") {
            if (!value(opt.sample))
                return usage("--sample needs a file");
        } else if (a == "--out") {
            if (!value(opt.outDir))
                return usage("--out needs a folder");
        } else if (a == "--work") {
            if (!value(opt.workDir))
                return usage("--work needs a folder");
        } else if (a == "--keep-work-files") {
            mux::SetKeepWorkFiles(true);
        } else if (a == "--json") {
            opt.json = true;
        } else if (a == "--quiet") {
            opt.quiet = true;
        } else if (a == "--verbose") {
            opt.verbose = true;
        } else if (a.startsWith("--")) {
            return usage(qPrintable("unknown option " + a));
        } else {
            opt.files << a;
        }
    }
    if (opt.files.isEmpty())
        return usage("no file to repair");
    if (opt.quiet && opt.verbose)
        return usage("--quiet and --verbose exclude each other");
    for (const QString &f : opt.files) {
        if (!QFileInfo(f).isFile()) {
            std::fprintf(stderr, "videomend-cli: %s is not a file: check the path\n", qPrintable(f));
            return 2;
        }
    }
    if (!opt.sample.isEmpty() && !QFileInfo(opt.sample).isFile()) {
        std::fprintf(stderr, "videomend-cli: sample %s is not a file: check the path\n", qPrintable(opt.sample));
        return 2;
    }
    for (const QString *dir : {&opt.outDir, &opt.workDir}) {
        if (!dir->isEmpty() && !QFileInfo(*dir).isDir()) {
            std::fprintf(stderr, "videomend-cli: %s is not a folder: create it first\n", qPrintable(*dir));
            return 2;
        }
    }
    if (!opt.verbose)
        qInstallMessageHandler(quietMessages);
    pApp.strFfmpegDir = mux::FfmpegDir();
    const bool noFfmpeg = mux::FindFfmpeg().isEmpty();
    if (noFfmpeg)
        std::fprintf(stderr,
                     "videomend-cli: ffmpeg was not found, so repaired files can't be written. Install it with "
                     "'sudo apt install ffmpeg', or put an ffmpeg program in %s/\n",
                     qPrintable(pApp.strFfmpegDir));
    std::signal(SIGINT, onInterrupt);
    CliRun run(opt);
    const int status = run.exec();
    // A set-up error, not the files' fault, when ffmpeg was what was missing.
    return status == 1 && noFfmpeg ? 2 : status;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setOrganizationName("Halvern Works");
    QCoreApplication::setApplicationName("Halvern Videomend");
    QStringList args = app.arguments().mid(1);
    if (args.isEmpty())
        return usage(nullptr);
    const QString cmd = args.takeFirst();
    if (cmd == "repair")
        return repair(args);
    if (cmd == "inspect")
        return inspect(args);
    if (cmd == "--help" || cmd == "-h") {
        std::fputs(kUsage, stdout);
        return 0;
    }
    return usage(qPrintable("unknown command " + cmd));
}

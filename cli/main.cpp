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
    "usage: videomend-cli repair [--sample FILE] [--out DIR] [--work DIR] [--json] [--quiet|--verbose]\n"
    "                            [--keep-work-files] [--] FILE...\n"
    "       videomend-cli inspect [--damaged] FILE\n"
    "       videomend-cli --help | --version\n";

const char kHelp[] =
    "videomend-cli repairs damaged video recordings (MP4, MOV, 3GP, AVI, MKV, WMV, MTS, MPEG...).\n"
    "The damaged files are only read; each result is a new file.\n"
    "\n"
    "Commands:\n"
    "  repair FILE...      repair each FILE, one after the other\n"
    "  inspect FILE        print what the index (moov) of FILE says: format code, frame size,\n"
    "                      time scales, sound; useful to see whether a sample fits\n"
    "  help                this text (also --help, -h, and --help after a command)\n"
    "  --version           print the version (also -V)\n"
    "\n"
    "Options of repair:\n"
    "  --sample FILE       a sample: a healthy recording made with the same camera or phone and\n"
    "                      the same settings (resolution, frame rate, sound) as the damaged files.\n"
    "                      A file whose index is lost is rebuilt from what the sample shows;\n"
    "                      without one such a file ends \"Awaiting Action\".\n"
    "  --out DIR           save each repaired file in DIR, never over an existing file\n"
    "                      (clip.mp4, then clip(1).mp4...); nothing is written beside the FILEs.\n"
    "                      Without --out and --work, results stay in a folder \"Repaired\" beside\n"
    "                      each FILE (hidden from file managers by its .hidden list).\n"
    "  --work DIR          work in DIR/Repaired instead (a disk with room for a second copy);\n"
    "                      without --out the results stay there\n"
    "  --keep-work-files   keep the stream files and logFile.txt of the work, to look into a repair\n"
    "  --json              print the results as one JSON array (status, source, output, formatCode,\n"
    "                      videoFrames, audioSeconds, mediaUsed, reason) instead of lines\n"
    "  --quiet             no progress and no summaries; why a file wasn't repaired is still said\n"
    "  --verbose           also log each file's stages and the engine's messages\n"
    "  --                  what follows are files, even names that start with \"-\"\n"
    "\n"
    "Options of inspect:\n"
    "  --damaged           read FILE as a damaged recording (walk it) rather than as a sample\n"
    "\n"
    "Output: a line per FILE on standard output, in the order given:\n"
    "  status<TAB>FILE<TAB>result or \"-\", the status one of Completed, Awaiting Action, Failed,\n"
    "  Aborted. Standard error has what the result holds or why there is none, and a progress\n"
    "  line when it is a terminal.\n"
    "\n"
    "Exit status:\n"
    "  0    every file repaired\n"
    "  1    some file not repaired\n"
    "  2    usage or set-up error (unknown option, missing file or folder, no ffmpeg)\n"
    "  130  interrupted (Ctrl-C): what the run made for unfinished files is removed; a second\n"
    "       Ctrl-C quits at once\n"
    "\n"
    "Examples:\n"
    "  videomend-cli repair --sample good.mp4 --out ~/Videos/repaired broken.mp4\n"
    "  videomend-cli repair --json --sample camera-test.mov --out fixed *.MOV > results.json\n";

int usage(const char *msg)
{
    if (msg)
        std::fprintf(stderr, "videomend-cli: %s\n", msg);
    std::fputs(kUsage, stderr);
    std::fputs("Try 'videomend-cli --help' for more.\n", stderr);
    return 2;
}

int help()
{
    std::fputs(kUsage, stdout);
    std::fputs("\n", stdout);
    std::fputs(kHelp, stdout);
    return 0;
}

bool isHelp(const QString &a) { return a == "--help" || a == "-h"; }

void onInterrupt(int)
{
    // The first asks the run to stop and ends a running ffmpeg; the run then
    // tidies up. A second one ends the process.
    if (CliRun::interrupts.fetch_add(1) > 0)
        ::_exit(130);
    pApp.bStopRepair = true;
    mux::KillRunning();
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
        if (isHelp(a))
            return help();
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
        if (isHelp(a)) {
            return help();
        } else if (a == "--") {
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
            opt.keepWork = true;
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
    struct sigaction sa = {};
    sa.sa_handler = onInterrupt;
    sa.sa_flags = SA_RESTART;
    sigemptyset(&sa.sa_mask);
    sigaction(SIGINT, &sa, nullptr);
    sigaction(SIGTERM, &sa, nullptr);
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
    if (isHelp(cmd) || cmd == "help")
        return help();
    if (cmd == "--version" || cmd == "-V") {
        std::printf("videomend-cli %s\n", VM_VERSION);
        return 0;
    }
    return usage(qPrintable("unknown command " + cmd));
}

#!/usr/bin/env bash
# Throughput from the page cache: the buffered reader on 1 GB of bytes, the
# sample-guided carves of 1 GB recordings without moov, the stream scanners
# with the rebuild, the work-log reader and the container paths that write a
# new file without ffmpeg.
#
# Every path writes about as much as it reads, so beside cat of its input
# stands cat of that input into a new file (what writing it again costs on
# this disk). Writes into the page cache vary a lot from run to run on this
# machine; each figure is the best of five, and the table at the end puts
# every path beside both.
set -euo pipefail
bin="$1"
dir="$2"
mkdir -p "$dir"
summary="$dir/summary.txt"
: > "$summary"
CAT=0
CATW=0

rate() { awk -v s="$1" -v e="$2" -v b="$3" 'BEGIN { printf "%.0f", b / 1e6 / (e - s) }'; }
max() { awk -v a="$1" -v b="$2" 'BEGIN { print (a + 0 > b + 0 ? a : b) }'; }

# cat of a file (warm), and cat of it into a new file after a sync: best of five each.
cats() {
  local size start end i
  size=$(stat -c %s "$1")
  fresh "$1"
  CAT=0
  CATW=0
  for i in 1 2 3 4 5; do
    start=$(date +%s.%N); cat "$1" > /dev/null; end=$(date +%s.%N)
    CAT=$(max "$CAT" "$(rate "$start" "$end" "$size")")
    rm -f "$dir/copy.tmp"; sync
    start=$(date +%s.%N); cat "$1" > "$dir/copy.tmp"; end=$(date +%s.%N)
    CATW=$(max "$CATW" "$(rate "$start" "$end" "$size")")
  done
  rm -f "$dir/copy.tmp"
  printf "cat:    %.1f MB, best of 5 = %s MB/s; cat > file: best of 5 = %s MB/s\n" "$(awk -v b="$size" 'BEGIN { print b / 1e6 }')" "$CAT" "$CATW"
}

# The fastest line of a stage in a log ("<stage>: ... N MB/s ..."), printed
# and put in the table beside the last cats (under a label of its own if given).
best() {
  local log="$1" what="$2" label="${3:-$2}" line
  line=$(grep "^$what:" "$log" | awk '{ for (i = 1; i <= NF; ++i) if ($i ~ /^MB\/s/) r = $(i - 1); if (r + 0 > m) { m = r + 0; line = $0 } }
    END { print line }')
  echo "$line"
  awk -v w="$label" -v l="$line" -v c="$CAT" -v cw="$CATW" 'BEGIN {
    n = split(l, f, " "); for (i = 1; i <= n; ++i) if (f[i] ~ /^MB\/s/) r = f[i - 1]
    printf "%-16s %6.0f %6.0f %5.0f%% %6.0f %5.0f%%\n", w, r, c, 100 * r / c, cw, 100 * r / cw }' >> "$summary"
}

# A file out of the page cache and read back in. How a file came into the
# cache changes how fast it reads from there (a file just written reads a
# third slower than one read in), so every input is brought in the same way
# before cat or a program is timed on it.
fresh() {
  local f
  for f in "$@"; do
    dd if="$f" iflag=nocache count=0 status=none
    cat "$f" > /dev/null
  done
}

# A bench program five times into a log: its inputs (named before "--") are
# made by the first run, then brought in afresh for the other four.
fivefold() {
  local log="$1" inputs=() i; shift
  while [ "$1" != "--" ]; do inputs+=("$1"); shift; done
  shift
  "$@" > "$log" 2>&1 || { cat "$log"; exit 1; }
  fresh "${inputs[@]}"
  for i in 2 3 4 5; do "$@" >> "$log" 2>&1; done
}

# ffmpeg's own stream copy of a file (best of two, each after a sync).
ffcopy() {
  local in="$1" size="$2" ext="${1##*.}" fmt=() start end i r=0
  [ "$#" -ge 3 ] && fmt=(-f "$3")
  for i in 1 2; do
    rm -f "$dir/ffcopy.$ext"; sync
    start=$(date +%s.%N); ffmpeg -v quiet -nostdin -y "${fmt[@]}" -i "$in" -c copy "$dir/ffcopy.$ext" || true; end=$(date +%s.%N)
    r=$(max "$r" "$(rate "$start" "$end" "$size")")
  done
  rm -f "$dir/ffcopy.$ext"
  echo "ffmpeg -c copy: best of 2 = $r MB/s"
}

f="$dir/bench-1g.bin"
if [ ! -f "$f" ]; then
  echo "Making $f (1 GB, once)..."
  head -c 1000000000 /dev/urandom > "$f.tmp" && mv "$f.tmp" "$f"
fi
cats "$f"
"$bin/bench/vm-bench-reader" "$f"

# The sample-guided carves (no ffmpeg): H.264+AAC with a frame or two per
# chunk, the same pictures with 96 kHz LPCM and 48 kHz sowt sound in 0.5 s
# chunks, HEVC, MPEG-4 and AV1 recordings with AAC.
for kind in aac lpcm sowt hevc mpeg4 av1; do
  [ "$kind" = aac ] && big="$dir/bench-1g.mov" || big="$dir/bench-$kind-1g.mov"
  fivefold "$dir/carve-$kind.log" "$big" -- "$bin/bench/vm-bench-carve" "$dir" "$kind"
  cats "$big"
  best "$dir/carve-$kind.log" "carve $kind"
done

# The stream scanners alone and with the rebuild (a ProRes recording without
# its moov, a cut Motion JPEG one).
for kind in prores mjpeg; do
  fivefold "$dir/scan-$kind.log" "$dir/scan-$kind-1g.mov" -- "$bin/bench/vm-bench-scan" "$dir" "$kind"
  cats "$dir/scan-$kind-1g.mov"
  grep "^scan alone:" "$dir/scan-$kind.log" | sort -t' ' -k4 -n | tail -1
  best "$dir/scan-$kind.log" "scan + rebuild" "$kind rebuild"
done

# The work log of a one-hour 3GP recording, read by the rebuild.
"$bin/bench/vm-bench-log" "$dir"

# The container paths, beside ffmpeg's own stream copy of the same file.
fivefold "$dir/avi.log" "$dir/bench-avi-1g.avi" -- "$bin/bench/vm-bench-avi" "$dir"
cats "$dir/bench-avi-1g.avi"
ffcopy "$dir/bench-avi-1g.avi" "$(stat -c %s "$dir/bench-avi-1g.avi")"
best "$dir/avi.log" "avi repair"

# ffmpeg no longer knows the FLV without its head: it is told the format.
fivefold "$dir/flv.log" "$dir/bench-flv-1g.flv" -- "$bin/bench/vm-bench-flv" "$dir"
cats "$dir/bench-flv-1g.flv"
ffcopy "$dir/bench-flv-1g.flv" "$(stat -c %s "$dir/bench-flv-1g.flv")" flv
best "$dir/flv.log" "flv"

# ffmpeg can't read the WMV without its Header Object: it copies the rebuilt one.
fivefold "$dir/asf.log" "$dir/bench-asf-1g.wmv" -- "$bin/bench/vm-bench-asf" "$dir"
cats "$dir/bench-asf-1g.wmv"
ffcopy "$dir/bench-asf-rebuilt.wmv" "$(stat -c %s "$dir/bench-asf-1g.wmv")"
rm -f "$dir/bench-asf-rebuilt.wmv"
best "$dir/asf.log" "wmv"

fivefold "$dir/mkv.log" "$dir/bench-mkv-1g.mkv" -- "$bin/bench/vm-bench-mkv" "$dir"
cats "$dir/bench-mkv-1g.mkv"
best "$dir/mkv.log" "mkv rebuild"
best "$dir/mkv.log" "mkv carve"

fivefold "$dir/ts.log" "$dir/bench-ts-1g.MTS" "$dir/bench-ts-1g.mov" -- "$bin/bench/vm-bench-ts" "$dir"
cats "$dir/bench-ts-1g.MTS"
best "$dir/ts.log" "mts filter"
cats "$dir/bench-ts-1g.mov"
best "$dir/ts.log" "ts demux"

echo
echo "path               MB/s    cat  share  cat>file  share"
cat "$summary"
# What the last runs wrote (each run removes its predecessor's output first).
rm -rf "$dir/Repaired" "$dir/video.h264" "$dir/audio.aac" "$dir/mkv-video.h264" "$dir/mkv-audio.aac"

#!/usr/bin/env bash
# Throughput against cat, from the page cache: the buffered reader on 1 GB of
# bytes, and the whole sample-guided carve on a 1 GB recording without moov.
set -euo pipefail
bin="$1"
dir="$2"
mkdir -p "$dir"
f="$dir/bench-1g.bin"
if [ ! -f "$f" ]; then
  echo "Making $f (1 GB, once)..."
  head -c 1000000000 /dev/urandom > "$f.tmp" && mv "$f.tmp" "$f"
fi
catspeed() {
  cat "$1" > /dev/null   # warm the page cache
  local size start end
  size=$(stat -c %s "$1")
  start=$(date +%s.%N); cat "$1" > /dev/null; end=$(date +%s.%N)
  awk -v s="$start" -v e="$end" -v b="$size" 'BEGIN { printf "cat:    %.1f MB in %.2f s = %.0f MB/s\n", b / 1e6, e - s, b / 1e6 / (e - s) }'
}
catspeed "$f"
"$bin/bench/vm-bench-reader" "$f"
"$bin/bench/vm-bench-carve" "$dir" > "$dir/carve.log" 2>&1 || { cat "$dir/carve.log"; exit 1; }
catspeed "$dir/bench-1g.mov"
grep -v "^Making" "$dir/carve.log" || true

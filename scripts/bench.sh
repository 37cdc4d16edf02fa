#!/usr/bin/env bash
# Reader throughput on a 1 GB file from the page cache, beside cat's.
set -euo pipefail
bin="$1"
dir="$2"
mkdir -p "$dir"
f="$dir/bench-1g.bin"
if [ ! -f "$f" ]; then
  echo "Making $f (1 GB, once)..."
  head -c 1000000000 /dev/urandom > "$f.tmp" && mv "$f.tmp" "$f"
fi
cat "$f" > /dev/null   # warm the page cache
start=$(date +%s.%N); cat "$f" > /dev/null; end=$(date +%s.%N)
awk -v s="$start" -v e="$end" 'BEGIN { printf "cat:    1000.0 MB in %.2f s = %.0f MB/s\n", e - s, 1000 / (e - s) }'
"$bin/bench/vm-bench-reader" "$f"

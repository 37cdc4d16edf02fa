#!/usr/bin/env bash
# Makes a recording and a sample "from the same camera" with ffmpeg, damages
# the recording the way a camera that lost power does (the index at the end
# never written), repairs it with videomend-cli and says what the result holds.
# Usage: demo.sh CLI DIR [LOG]; what ffmpeg says while making the clips goes to LOG.
set -euo pipefail
cli="$1"
dir="$2"
log="${3:-/dev/null}"
mkdir -p "$dir"
cd "$dir"
rm -rf out
mkdir out
common=(-nostdin -y -hide_banner -loglevel error -c:v libx264 -preset veryfast -pix_fmt yuv420p -c:a aac -b:a 128k)
{
  [ -f sample.mov ] || ffmpeg -f lavfi -i testsrc2=s=640x360:r=30:d=4 -f lavfi -i sine=f=440:r=48000:d=4 "${common[@]}" sample.mov
  if [ ! -f clip.mov ]; then
    ffmpeg -f lavfi -i mandelbrot=s=640x360:r=30 -f lavfi -i sine=f=660:r=48000 -t 8 "${common[@]}" healthy.mov
    # Cut the file before its index: what a recording looks like when the camera stops.
    size=$(stat -c %s healthy.mov)
    head -c $((size * 9 / 10)) healthy.mov > clip.mov
    rm -f healthy.mov
  fi
} >>"$log" 2>&1

# Standard error shows the progress and the line that sums the result up.
set +e
lines=$("$cli" repair --sample sample.mov --out out clip.mov)
rc=$?
set -e
result=$(printf '%s\n' "$lines" | awk -F'\t' '$1 == "Completed" { print $3 }')
if [ -z "$result" ]; then
  echo "The damaged clip $dir/clip.mov was not repaired (videomend-cli exit status $rc)."
  exit 1
fi

duration=$(ffprobe -v error -show_entries format=duration -of default=nw=1:nk=1 "$result")
streams=$(ffprobe -v error -show_entries stream=codec_type,codec_name,width,height,avg_frame_rate,sample_rate,channels \
  -of compact=p=0 "$result" | awk -F'|' '{
    delete k
    for (i = 1; i <= NF; i++) { split($i, kv, "="); k[kv[1]] = kv[2] }
    if (k["codec_type"] == "video") {
      split(k["avg_frame_rate"], r, "/")
      printf "%svideo %s %sx%s at %g fps", sep, k["codec_name"], k["width"], k["height"], (r[2] > 0 ? r[1] / r[2] : 0)
    } else if (k["codec_type"] == "audio") {
      printf "%ssound %s %s Hz, %s channel(s)", sep, k["codec_name"], k["sample_rate"], k["channels"]
    } else {
      printf "%s%s %s", sep, k["codec_type"], k["codec_name"]
    }
    sep = "; "
  }')
printf '%s: %.1f s; %s\n' "$result" "$duration" "$streams"

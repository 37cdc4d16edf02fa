#!/usr/bin/env bash
# Makes a recording and a sample "from the same camera" with ffmpeg, damages
# the recording the way a camera that lost power does (the index at the end
# never written), and repairs it with videomend-cli.
set -euo pipefail
cli="$1"
dir="$2"
mkdir -p "$dir"
cd "$dir"
rm -rf Repaired .hidden out
mkdir -p out
common=(-nostdin -y -hide_banner -loglevel error -c:v libx264 -preset veryfast -pix_fmt yuv420p -c:a aac -b:a 128k)
[ -f sample.mov ] || ffmpeg -f lavfi -i testsrc2=s=640x360:r=30:d=4 -f lavfi -i sine=f=440:r=48000:d=4 "${common[@]}" sample.mov
if [ ! -f clip.mov ]; then
  ffmpeg -f lavfi -i mandelbrot=s=640x360:r=30 -f lavfi -i sine=f=660:r=48000 -t 8 "${common[@]}" healthy.mov
  # Cut the file before its index: what a recording looks like when the camera stops.
  size=$(stat -c %s healthy.mov)
  head -c $((size * 9 / 10)) healthy.mov > clip.mov
  rm -f healthy.mov
fi
echo "Damaged clip: $dir/clip.mov ($(stat -c %s clip.mov) bytes), sample: $dir/sample.mov"
set +e
"$cli" repair --sample sample.mov --out out clip.mov
rc=$?
set -e
echo "videomend-cli exit status: $rc (0 = every file repaired, 1 = some file not repaired)"
if [ -f out/clip.mov ]; then
  echo "Repaired file $dir/out/clip.mov holds (stream, packets):"
  ffprobe -v error -count_packets -show_entries stream=codec_type,nb_read_packets -of csv=p=0 out/clip.mov | sed 's/^/  /'
fi
exit 0

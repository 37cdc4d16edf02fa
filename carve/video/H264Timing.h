#pragma once
// The display order of a carved H.264 stream. The stream file holds units in
// decoding order behind start codes, without timestamps; with B-frames the
// pictures are shown in another order, given by their picture order counts.
// Reading the parameter sets and slice headers is enough to know it, and the
// mux then gives each frame its presentation time.

#include <QString>
#include <QVector>

class BufferedReader;

namespace carve {

struct PictureOrder
{
    // For each access unit in decoding order, its place in display order.
    QVector<int> display;
    // The most any picture is shown ahead of its decoding: the frames that
    // decoding runs ahead, so that no presentation time falls before its
    // decoding time.
    int delay = 0;
    bool reordered() const { return delay > 0; }
};

// From an Annex B stream (units behind 00 00 00 01 or 00 00 01). Empty when
// the stream has no sequence parameter set or one this reader can't follow
// (field coding): the caller then leaves the timing to the muxer.
PictureOrder H264DisplayOrder(BufferedReader &stream);
PictureOrder H264DisplayOrderOfFile(const QString &path);

} // namespace carve

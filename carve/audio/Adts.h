#pragma once
// ADTS headers for raw AAC frames cut out of media data.
//
// A frame length that overflows its 13-bit field widens the text the header
// is assembled from, field by field in header order, and that text is read
// back as numbers; every other header is put together in place.

#include <QString>
#include <QtGlobal>

struct RepairState;

namespace adts {

enum class Variant { Av1, Mpeg4, H264Hevc, Mkv };

// "0101": value in binary, padded with zeros on the left to width.
QString BinaryText(int value, int width);
// "FF F1 ...": four digits a hex digit, a blank after each pair. The H.264 and
// HEVC variant pads the bits on the left to a multiple of four first.
QString BitsToHexPairs(const QString &bits, bool padToNibble);
// Four binary digits of the sampling frequency index; empty for a rate the
// AAC table doesn't have.
QString SampleRateBits(qint32 rate);

// Fills pApp.nAdtsBytes for a raw frame of payloadLength bytes. Fixes the
// rate (0 or 1000 become 48000, for good) and the channels (always 2). False,
// with a log line naming the rate, when the rate has no index: the caller then
// takes its failure path instead of ending the process.
bool BuildAdtsHeader(quint32 payloadLength, Variant variant = Variant::H264Hevc);
// The same on a given repair state.
bool BuildAdtsHeader(RepairState &s, quint32 payloadLength, Variant variant = Variant::H264Hevc);

} // namespace adts

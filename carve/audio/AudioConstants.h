#pragma once
// Sizes and byte patterns of the audio side of a carve.

#include <QtGlobal>

namespace audio {
constexpr int kAdtsHeaderBytes = 7;
constexpr quint32 kMaxAdtsPayload = 8184; // 13-bit frame length less the header
constexpr quint32 kDefaultRate = 48000;
constexpr quint32 kUnsetRate = 1000;      // a sample that says 1000 Hz means "unknown"
constexpr quint32 kFallbackFrame = 2000;  // when even the sample's mean is no ADTS size
constexpr quint32 kTypicalFrame = 400;    // an AAC frame's size when the sample gives none
constexpr quint32 kMinFrame = 8;          // no AAC frame of sound is shorter
constexpr int kRecord = 3;                // one head record
constexpr quint8 kEmptyAudioFill = 0xFF;  // seven of these stand for "no audio found"
} // namespace audio

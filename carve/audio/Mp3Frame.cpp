#include "carve/audio/Mp3Frame.h"

#include "repair/RepairState.h"

int Mp3FrameLength(const quint8 *h)
{
    pApp.nMp3FrameLength = Mp3FrameSize(h);
    return pApp.nMp3FrameLength;
}

int Mp3FrameSize(const quint8 *h)
{
    int result = -1;
    [&] {
        if (h[0] != 0xFF || (h[1] & 0xE0) != 0xE0)
            return;
        const int version = (h[1] >> 3) & 3; // 0: MPEG 2.5, 1: reserved, 2: MPEG 2, 3: MPEG 1
        const int layer = (h[1] >> 1) & 3;   // 1: III, 2: II, 3: I
        if (version == 1 || layer == 0)
            return;
        const int rateIndex = h[2] >> 4;
        const int freqIndex = (h[2] >> 2) & 3;
        if (rateIndex == 0 || rateIndex == 15 || freqIndex == 3)
            return;
        static const int kFreq[3][3] = {{11025, 12000, 8000}, {22050, 24000, 16000}, {44100, 48000, 32000}};
        const int rate = kFreq[version == 0 ? 0 : version == 2 ? 1 : 2][freqIndex];
        const int padding = (h[2] >> 1) & 1;
        // kbit/s by index: MPEG 1 layer III, MPEG 2/2.5 layer III (and II), MPEG 1 layer II.
        static const int kL3v1[16] = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0};
        static const int kLowV2[16] = {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, 0};
        static const int kL2v1[16] = {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384, 0};
        const bool mpeg1 = version == 3;
        if (layer == 1) {
            const int kbps = mpeg1 ? kL3v1[rateIndex] : kLowV2[rateIndex];
            result = (mpeg1 ? kbps * 144000 : kbps * 72000) / rate + padding;
        } else if (layer == 2) {
            const int kbps = mpeg1 ? kL2v1[rateIndex] : kLowV2[rateIndex];
            result = kbps * 144000 / rate + (padding ? 4 : 0);
        }
    }();
    return result;
}

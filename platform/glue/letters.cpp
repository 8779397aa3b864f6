#include "platform/glue/letters.h"

namespace {

// Capital letters first..last have their small ones `distance` further on; distance 1: capital and small letter take
// turns, starting with the capital `first`.
struct CaseRange {
    UWORD first, last;
    UWORD distance;
};

const CaseRange kLatin[] = {
    {0x0041, 0x005A, 0x20},                       // A to Z
    {0x00C0, 0x00D6, 0x20},                       // Latin-1, around the multiplication sign
    {0x00D8, 0x00DE, 0x20}, {0x0100, 0x012F, 1},  // Latin Extended-A
    {0x0132, 0x0137, 1},    {0x0139, 0x0148, 1}, {0x014A, 0x0177, 1}, {0x0179, 0x017E, 1},
};
const CaseRange kGreekAndCyrillic[] =
    {
        {0x0386, 0x0386, 38},  // accented
        {0x0388, 0x038A, 37},   {0x038C, 0x038C, 64},   {0x038E, 0x038F, 63},
        {0x0391, 0x03A1, 0x20},                          // Alpha to Rho, Sigma to Upsilon with dialytika
        {0x03A3, 0x03AB, 0x20}, {0x0400, 0x040F, 0x50},  // Cyrillic
        {0x0410, 0x042F, 0x20}, {0x0460, 0x0481, 1},    {0x048A, 0x04BF, 1},
        {0x04C1, 0x04CE, 1},    {0x04D0, 0x052F, 1},
};

const UWORD kDottedCapitalI = 0x0130, kDotlessI = 0x0131, kCapitalYDiaeresis = 0x0178, kSmallYDiaeresis = 0x00FF;
const UWORD kLongS = 0x017F, kFinalSigma = 0x03C2, kCapitalSigma = 0x03A3;

template <std::size_t count>
UWORD Lower(UWORD letter, const CaseRange (&ranges)[count]) {
    for (const CaseRange &range : ranges) {
        if (letter < range.first || letter > range.last) continue;
        if (range.distance > 1) return UWORD(letter + range.distance);
        return UWORD((letter - range.first) % 2 == 0 ? letter + 1 : letter);
    }
    return letter;
}

template <std::size_t count>
UWORD Upper(UWORD letter, const CaseRange (&ranges)[count]) {
    for (const CaseRange &range : ranges) {
        if (range.distance > 1) {
            if (letter >= range.first + range.distance && letter <= range.last + range.distance)
                return UWORD(letter - range.distance);
        } else if (letter >= range.first && letter <= range.last) {
            return UWORD((letter - range.first) % 2 == 1 ? letter - 1 : letter);
        }
    }
    return letter;
}

}  // namespace

UWORD LowerLetter(UWORD letter) {
    if (letter == kDottedCapitalI) return 'i';
    if (letter == kCapitalYDiaeresis) return kSmallYDiaeresis;
    return letter < 0x0180 ? Lower(letter, kLatin) : Lower(letter, kGreekAndCyrillic);
}

UWORD UpperLetter(UWORD letter) {
    if (letter == kDotlessI) return 'I';
    if (letter == kSmallYDiaeresis) return kCapitalYDiaeresis;
    if (letter == kLongS) return 'S';
    if (letter == kFinalSigma) return kCapitalSigma;
    return letter < 0x0180 ? Upper(letter, kLatin) : Upper(letter, kGreekAndCyrillic);
}

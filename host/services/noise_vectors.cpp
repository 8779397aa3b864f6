#include "host/services/noise_vectors.h"

#ifdef TREMOLUX_NOISE_SSE2

#include <immintrin.h>

#include "host/services/noise_corners.h"
#include "host/services/noise_lattice.h"

// Each corner's value is the sum that the plain way adds up, in the same order, and mixed in the same order: x, y, z,
// t.
namespace host::noise {
namespace {

// Gradient times distance, summed up in pairs, of the two corners whose keys are these: along z.
inline __m128d TwoCorners(std::uint64_t low_key, std::uint64_t high_key, __m128d xy, __m128d zt_low, __m128d zt_high) {
    const double *low = GradientOf(low_key), *high = GradientOf(high_key);
    const __m128d low_xy = _mm_mul_pd(_mm_load_pd(low), xy), high_xy = _mm_mul_pd(_mm_load_pd(high), xy),
                  low_zt = _mm_mul_pd(_mm_load_pd(low + 2), zt_low),
                  high_zt = _mm_mul_pd(_mm_load_pd(high + 2), zt_high);
    return _mm_add_pd(_mm_add_pd(_mm_unpacklo_pd(low_xy, high_xy), _mm_unpackhi_pd(low_xy, high_xy)),
                      _mm_add_pd(_mm_unpacklo_pd(low_zt, high_zt), _mm_unpackhi_pd(low_zt, high_zt)));
}

inline __m128d MixPairs(__m128d low, __m128d high, __m128d share) {
    return _mm_add_pd(low, _mm_mul_pd(_mm_sub_pd(high, low), share));
}

}  // namespace

double WithSse2(double x, double y, double z, double t) {
    if (!IsInReach(x, y, z, t)) return 0;
    const Cell cell = CellAt(x, y, z, t);
    const __m128d fade_x = _mm_set1_pd(cell.x.fade), fade_y = _mm_set1_pd(cell.y.fade);
    double along_t[2];
    for (int late = 0; late < 2; ++late) {
        const __m128d zt_low = _mm_setr_pd(cell.z.from[0], cell.t.from[late]),
                      zt_high = _mm_setr_pd(cell.z.from[1], cell.t.from[late]);
        const std::uint64_t low = cell.z.key[0] + cell.t.key[late], high = cell.z.key[1] + cell.t.key[late];
        __m128d along_y[2];
        for (int above = 0; above < 2; ++above) {
            const std::uint64_t left = cell.x.key[0] + cell.y.key[above], right = cell.x.key[1] + cell.y.key[above];
            along_y[above] = MixPairs(
                TwoCorners(low + left, high + left, _mm_setr_pd(cell.x.from[0], cell.y.from[above]), zt_low, zt_high),
                TwoCorners(low + right, high + right, _mm_setr_pd(cell.x.from[1], cell.y.from[above]), zt_low, zt_high),
                fade_x);
        }
        const __m128d along_z = MixPairs(along_y[0], along_y[1], fade_y);
        along_t[late] = Mix(_mm_cvtsd_f64(along_z), _mm_cvtsd_f64(_mm_unpackhi_pd(along_z, along_z)), cell.z.fade);
    }
    return Spread(Mix(along_t[0], along_t[1], cell.t.fade));
}

#ifdef TREMOLUX_NOISE_AVX2
#define TREMOLUX_AVX2 __attribute__((target("avx2")))

namespace {

// The low halves of products of 64 bits.
TREMOLUX_AVX2 inline __m256i Times(__m256i value, __m256i factor) {
    const __m256i crossed = _mm256_add_epi64(_mm256_mul_epu32(_mm256_srli_epi64(value, 32), factor),
                                             _mm256_mul_epu32(value, _mm256_srli_epi64(factor, 32)));
    return _mm256_add_epi64(_mm256_mul_epu32(value, factor), _mm256_slli_epi64(crossed, 32));
}

TREMOLUX_AVX2 inline __m256i TimesMixer(__m256i value) {
    return Times(value, _mm256_set1_epi64x(static_cast<std::int64_t>(kMixer)));
}

TREMOLUX_AVX2 inline bool AreInReach(__m256d sample) {
    const __m256d size = _mm256_andnot_pd(_mm256_set1_pd(-0.0), sample);
    return _mm256_movemask_pd(_mm256_cmp_pd(size, _mm256_set1_pd(kFarthest), _CMP_LE_OQ)) == 0xF;
}

// A Cell with its four axes side by side.
struct AxesCell {
    alignas(32) std::uint64_t number[4];
    alignas(32) double from[2][4];
    alignas(32) double fade[4];
};

TREMOLUX_AVX2 inline AxesCell AxesCellAt(__m256d sample) {
    const __m256d shifted = _mm256_add_pd(sample, _mm256_setr_pd(kShiftX, kShiftY, kShiftZ, kShiftTime)),
                  below = _mm256_floor_pd(shifted), u = _mm256_sub_pd(shifted, below);
    // 1.5 * 2^52: added to it, a whole number in reach stands in the last bits of the sum.
    const __m256d last_bits = _mm256_set1_pd(6755399441055744.0);
    const __m256i number =
        _mm256_sub_epi64(_mm256_castpd_si256(_mm256_add_pd(below, last_bits)), _mm256_castpd_si256(last_bits));
    const __m256d bent = _mm256_add_pd(
        _mm256_mul_pd(u, _mm256_sub_pd(_mm256_mul_pd(u, _mm256_set1_pd(6)), _mm256_set1_pd(15))), _mm256_set1_pd(10));
    AxesCell cell;
    _mm256_store_si256(reinterpret_cast<__m256i *>(cell.number), number);
    _mm256_store_pd(cell.from[0], u);
    _mm256_store_pd(cell.from[1], _mm256_sub_pd(u, _mm256_set1_pd(1)));
    _mm256_store_pd(cell.fade, _mm256_mul_pd(_mm256_mul_pd(_mm256_mul_pd(u, u), u), bent));
    return cell;
}

// Where the gradients begin in their table: GradientOf for four keys.
TREMOLUX_AVX2 inline __m256i GradientsOf(__m256i keys) {
    keys = TimesMixer(_mm256_xor_si256(keys, _mm256_srli_epi64(keys, 32)));
    keys = TimesMixer(_mm256_xor_si256(keys, _mm256_srli_epi64(keys, 29)));
    // Two bits more than a gradient's number has, and none in them: four times the number.
    return _mm256_and_si256(_mm256_srli_epi64(keys, 64 - kGradientBits - 2), _mm256_set1_epi64x(-4));
}

TREMOLUX_AVX2 inline __m256i ToAll(std::uint64_t value) { return _mm256_set1_epi64x(static_cast<std::int64_t>(value)); }

// The corners of a cell by z and t: z below, z above, and both again at the later time; of each of these by x and y.
constexpr int kRight = 1, kUp = 2, kAbove = 4, kLaterBelow = 8, kLaterAbove = 12;

TREMOLUX_AVX2 inline Corners FindCorners(std::uint64_t key) {
    static_assert(4 * kGradients <= 256, "a place in the table of gradients is a byte");
    const __m256i keys = _mm256_add_epi64(
        ToAll(key), _mm256_setr_epi64x(0, static_cast<std::int64_t>(kKeyZ), static_cast<std::int64_t>(kKeyTime),
                                       static_cast<std::int64_t>(kKeyZ + kKeyTime)));
    const auto at = [keys](std::uint64_t xy, int number) TREMOLUX_AVX2 {
        return _mm256_slli_epi64(GradientsOf(_mm256_add_epi64(keys, ToAll(xy))), 8 * number);
    };
    const __m256i four = _mm256_or_si256(_mm256_or_si256(at(0, 0), at(kKeyX, kRight)),
                                         _mm256_or_si256(at(kKeyY, kUp), at(kKeyX + kKeyY, kUp + kRight)));
    // Of each 64 bits the first 32, side by side.
    const __m128i corners =
        _mm256_castsi256_si128(_mm256_permutevar8x32_epi32(four, _mm256_setr_epi32(0, 2, 4, 6, 0, 0, 0, 0)));
    return {static_cast<std::uint64_t>(_mm_cvtsi128_si64(corners)),
            static_cast<std::uint64_t>(_mm_extract_epi64(corners, 1))};
}

KnownCorners known_corners;

// The halves of two gradients, x and y or z and t, side by side.
TREMOLUX_AVX2 inline __m256d TwoHalves(const double *low, const double *high) {
    return _mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_load_pd(low)), _mm_load_pd(high), 1);
}

// Distances along two axes by turns.
TREMOLUX_AVX2 inline __m256d InTurn(__m256d first, __m256d second) { return _mm256_blend_pd(first, second, 0xA); }

// The values of the four corners at one place in x and y, the first of them here.
TREMOLUX_AVX2 inline __m256d FourCorners(const std::uint8_t *corners, __m256d xy, __m256d zt_below, __m256d zt_above) {
    const double *below = kTable.component + corners[0], *above = kTable.component + corners[kAbove],
                 *later_below = kTable.component + corners[kLaterBelow],
                 *later_above = kTable.component + corners[kLaterAbove];
    return _mm256_add_pd(_mm256_hadd_pd(_mm256_mul_pd(TwoHalves(below, later_below), xy),
                                        _mm256_mul_pd(TwoHalves(above, later_above), xy)),
                         _mm256_hadd_pd(_mm256_mul_pd(TwoHalves(below + 2, later_below + 2), zt_below),
                                        _mm256_mul_pd(TwoHalves(above + 2, later_above + 2), zt_above)));
}

TREMOLUX_AVX2 inline __m256d MixFours(__m256d low, __m256d high, __m256d share) {
    return _mm256_add_pd(low, _mm256_mul_pd(_mm256_sub_pd(high, low), share));
}

}  // namespace

TREMOLUX_AVX2 double WithAvx2(double x, double y, double z, double t) {
    const __m256d sample = _mm256_setr_pd(x, y, z, t);
    if (!AreInReach(sample)) return 0;
    const AxesCell cell = AxesCellAt(sample);
    const Corners known = known_corners.At(
        cell.number[0] * kKeyX + cell.number[1] * kKeyY + cell.number[2] * kKeyZ + cell.number[3] * kKeyTime,
        FindCorners);
    alignas(16) std::uint8_t corners[16];
    _mm_store_si128(reinterpret_cast<__m128i *>(corners),
                    _mm_set_epi64x(static_cast<std::int64_t>(known.high), static_cast<std::int64_t>(known.low)));
    const auto from = [&cell](int above, int axis)
                          TREMOLUX_AVX2 { return _mm256_broadcast_sd(&cell.from[above][axis]); };
    const __m256d times = _mm256_blend_pd(from(0, 3), from(1, 3), 0xC), zt_below = InTurn(from(0, 2), times),
                  zt_above = InTurn(from(1, 2), times), fade_x = _mm256_broadcast_sd(&cell.fade[0]);
    __m256d along_y[2];
    for (int above = 0; above < 2; ++above) {
        const __m256d height = from(above, 1);
        const std::uint8_t *const left = corners + (above == 0 ? 0 : kUp);
        along_y[above] = MixFours(FourCorners(left, InTurn(from(0, 0), height), zt_below, zt_above),
                                  FourCorners(left + kRight, InTurn(from(1, 0), height), zt_below, zt_above), fade_x);
    }
    const __m256d along_z = MixFours(along_y[0], along_y[1], _mm256_broadcast_sd(&cell.fade[1]));
    alignas(32) double value[4];
    _mm256_store_pd(value, along_z);
    return Spread(Mix(Mix(value[0], value[1], cell.fade[2]), Mix(value[2], value[3], cell.fade[2]), cell.fade[3]));
}
#endif

}  // namespace host::noise

#endif

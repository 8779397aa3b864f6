#include "host/services/noise_vectors.h"

#ifdef TREMOLUX_NOISE_SSE2

#include <immintrin.h>

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

// The cell's corners along z and t: z below, z above, and both again at the later time.
struct ZtCorners {
    __m256i keys;
    __m128d from[4];
};

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
    alignas(32) std::uint64_t key[2][4];
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
    const __m256i axis_keys = _mm256_setr_epi64x(static_cast<std::int64_t>(kKeyX), static_cast<std::int64_t>(kKeyY),
                                                 static_cast<std::int64_t>(kKeyZ), static_cast<std::int64_t>(kKeyTime));
    const __m256i key = Times(number, axis_keys);
    const __m256d bent = _mm256_add_pd(
        _mm256_mul_pd(u, _mm256_sub_pd(_mm256_mul_pd(u, _mm256_set1_pd(6)), _mm256_set1_pd(15))), _mm256_set1_pd(10));
    AxesCell cell;
    _mm256_store_si256(reinterpret_cast<__m256i *>(cell.key[0]), key);
    _mm256_store_si256(reinterpret_cast<__m256i *>(cell.key[1]), _mm256_add_epi64(key, axis_keys));
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

TREMOLUX_AVX2 inline __m256d Products(std::int64_t place, __m128d xy, __m128d zt) {
    return _mm256_mul_pd(_mm256_load_pd(kTable.component + place), _mm256_set_m128d(zt, xy));
}

// The values of the four corners at one place in x and y.
TREMOLUX_AVX2 inline __m256d FourCorners(std::uint64_t key, __m128d xy, const ZtCorners &zt) {
    const __m256i gradients =
        GradientsOf(_mm256_add_epi64(zt.keys, _mm256_set1_epi64x(static_cast<std::int64_t>(key))));
    const __m256d early = _mm256_hadd_pd(Products(_mm256_extract_epi64(gradients, 0), xy, zt.from[0]),
                                         Products(_mm256_extract_epi64(gradients, 1), xy, zt.from[1])),
                  late = _mm256_hadd_pd(Products(_mm256_extract_epi64(gradients, 2), xy, zt.from[2]),
                                        Products(_mm256_extract_epi64(gradients, 3), xy, zt.from[3]));
    return _mm256_add_pd(_mm256_permute2f128_pd(early, late, 0x20), _mm256_permute2f128_pd(early, late, 0x31));
}

TREMOLUX_AVX2 inline __m256d MixFours(__m256d low, __m256d high, __m256d share) {
    return _mm256_add_pd(low, _mm256_mul_pd(_mm256_sub_pd(high, low), share));
}

}  // namespace

TREMOLUX_AVX2 double WithAvx2(double x, double y, double z, double t) {
    const __m256d sample = _mm256_setr_pd(x, y, z, t);
    if (!AreInReach(sample)) return 0;
    const AxesCell cell = AxesCellAt(sample);
    const __m128i early = _mm_set1_epi64x(static_cast<std::int64_t>(cell.key[0][3])),
                  late = _mm_set1_epi64x(static_cast<std::int64_t>(cell.key[1][3]));
    const __m128i key_z =
        _mm_set_epi64x(static_cast<std::int64_t>(cell.key[1][2]), static_cast<std::int64_t>(cell.key[0][2]));
    const ZtCorners zt = {
        _mm256_add_epi64(_mm256_set_m128i(late, early), _mm256_broadcastsi128_si256(key_z)),
        {_mm_loadu_pd(&cell.from[0][2]), _mm_loadh_pd(_mm_load_sd(&cell.from[1][2]), &cell.from[0][3]),
         _mm_loadh_pd(_mm_load_sd(&cell.from[0][2]), &cell.from[1][3]), _mm_loadu_pd(&cell.from[1][2])}};
    const __m256d fade_x = _mm256_broadcast_sd(&cell.fade[0]);
    __m256d along_y[2];
    for (int above = 0; above < 2; ++above) {
        const __m128d xy_left = _mm_loadh_pd(_mm_load_sd(&cell.from[0][0]), &cell.from[above][1]),
                      xy_right = _mm_loadh_pd(_mm_load_sd(&cell.from[1][0]), &cell.from[above][1]);
        along_y[above] = MixFours(FourCorners(cell.key[0][0] + cell.key[above][1], xy_left, zt),
                                  FourCorners(cell.key[1][0] + cell.key[above][1], xy_right, zt), fade_x);
    }
    const __m256d along_z = MixFours(along_y[0], along_y[1], _mm256_broadcast_sd(&cell.fade[1]));
    alignas(32) double corners[4];
    _mm256_store_pd(corners, along_z);
    return Spread(
        Mix(Mix(corners[0], corners[1], cell.fade[2]), Mix(corners[2], corners[3], cell.fade[2]), cell.fade[3]));
}
#endif

}  // namespace host::noise

#endif

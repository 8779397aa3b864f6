#include "host/services/noise.h"

#include "host/services/noise_lattice.h"
#include "host/services/noise_vectors.h"

namespace host {

namespace noise {
namespace {

// The share of a corner pair along x.
double AlongX(const Place &x, std::uint64_t key, double y, double z, double t) {
    const double *low = GradientOf(key + x.key[0]), *high = GradientOf(key + x.key[1]);
    return Mix((low[0] * x.from[0] + low[1] * y) + (low[2] * z + low[3] * t),
               (high[0] * x.from[1] + high[1] * y) + (high[2] * z + high[3] * t), x.fade);
}

double AlongXy(const Place &x, const Place &y, std::uint64_t key, double z, double t) {
    return Mix(AlongX(x, key + y.key[0], y.from[0], z, t), AlongX(x, key + y.key[1], y.from[1], z, t), y.fade);
}

double AlongXyz(const Place &x, const Place &y, const Place &z, std::uint64_t key, double t) {
    return Mix(AlongXy(x, y, key + z.key[0], z.from[0], t), AlongXy(x, y, key + z.key[1], z.from[1], t), z.fade);
}

}  // namespace

double Plain(double x, double y, double z, double t) {
    if (!IsInReach(x, y, z, t)) return 0;
    const Cell cell = CellAt(x, y, z, t);
    return Spread(Mix(AlongXyz(cell.x, cell.y, cell.z, cell.t.key[0], cell.t.from[0]),
                      AlongXyz(cell.x, cell.y, cell.z, cell.t.key[1], cell.t.from[1]), cell.t.fade));
}

std::vector<Method> Methods() {
    std::vector<Method> methods{{"plain", Plain}};
#ifdef TREMOLUX_NOISE_SSE2
    methods.push_back({"SSE2", WithSse2});
#endif
#ifdef TREMOLUX_NOISE_AVX2
    if (__builtin_cpu_supports("avx2") != 0) methods.push_back({"AVX2", WithAvx2});
#endif
    return methods;
}

}  // namespace noise

namespace {
double (*const kFastest)(double, double, double, double) = noise::Methods().back().sample;
}  // namespace

double SignedNoise(double x, double y, double z, double t) { return kFastest(x, y, z, t); }

double SignedNoise(double x, double y, double z) { return SignedNoise(x, y, z, 0); }

}  // namespace host

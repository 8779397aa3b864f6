// The curves that amounts are bent along: two knots with tangents, built and asked for one value.
#include <benchmark/benchmark.h>

#include <memory>

#include "host/value/custom.h"

namespace {

void AddKnots(host::Spline *spline) {
    spline->Insert(0, 0, 0);
    spline->Insert(1, 1, 0);
    spline->knots[0].tangent_right = {0.019, 0.063, 0};
    spline->knots[1].tangent_left = {-0.531, -0.109, 0};
}

}  // namespace

static void CurveBuild(benchmark::State &state) {
    for ([[maybe_unused]] auto _ : state) {
        const std::unique_ptr<HostCustomData> data(host::CreateCustomData(host::kDataSpline));
        AddKnots(static_cast<host::Spline *>(data.get()));
        benchmark::DoNotOptimize(data.get());
    }
}
BENCHMARK(CurveBuild);

static void CurveValue(benchmark::State &state) {
    host::Spline spline;
    AddKnots(&spline);
    double x = 0;
    for ([[maybe_unused]] auto _ : state) {
        x = x < 1 ? x + 0.0137 : 0;
        benchmark::DoNotOptimize(spline.ValueAt(x));
    }
}
BENCHMARK(CurveValue);

// Every way of computing the noise gives the bits of the plain one: a scene looks the same on every machine.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <thread>
#include <vector>

#include "host/services/noise.h"

namespace host {
namespace {

std::uint64_t Bits(double value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

void ExpectTheSameBits(double x, double y, double z, double t) {
    const std::uint64_t expected = Bits(noise::Plain(x, y, z, t));
    for (const noise::Method &method : noise::Methods())
        ASSERT_EQ(Bits(method.sample(x, y, z, t)), expected)
            << method.name << " at " << x << ", " << y << ", " << z << ", " << t;
    ASSERT_EQ(Bits(SignedNoise(x, y, z, t)), expected);
}

TEST(NoiseMethods, BeginWithThePlainOneAndHaveAnotherOnThisKindOfProcessor) {
    const std::vector<noise::Method> methods = noise::Methods();
    ASSERT_FALSE(methods.empty());
    EXPECT_EQ(methods.front().sample, noise::Plain);
#ifdef __x86_64__
    EXPECT_GT(methods.size(), 1u);
#endif
}

TEST(NoiseMethods, AgreeToTheLastBitAnywhere) {
    std::mt19937_64 random(20120914);
    for (double reach : {1e-300, 1e-9, 1.0, 40.0, 1e5, 1e9, 1e13, 1e15}) {
        std::uniform_real_distribution<double> anywhere(-reach, reach);
        for (int i = 0; i < 4000; ++i)
            ExpectTheSameBits(anywhere(random), anywhere(random), anywhere(random), anywhere(random));
    }
}

TEST(NoiseMethods, AgreeAtWholeNumbersAsTimeCreepsOn) {
    double time = -100;
    for (int i = 0; i < 20000; ++i) ExpectTheSameBits(1335 - i, 5946 + i, 87855, time += 0.035);
}

TEST(NoiseMethods, AgreeForThreadsThatSampleTheSamePlacesAndOthersAtOnce) {
    constexpr int kThreads = 4, kPlaces = 300, kTimes = 40;  // of a place most fall into a cell that was sampled before
    const auto at = [](int place, int time, auto sample) {
        return Bits(sample(place % 7, 5946 - place, 87855, time * 0.05));
    };
    std::vector<std::uint64_t> expected;
    for (int i = 0; i < kPlaces * kTimes; ++i) expected.push_back(at(i / kTimes, i % kTimes, noise::Plain));
    std::vector<std::vector<std::uint64_t>> found(kThreads);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&, thread] {
            const auto sample = [](double x, double y, double z, double t) { return SignedNoise(x, y, z, t); };
            for (int i = 0; i < kPlaces * kTimes; ++i) {
                const int place = (i / kTimes + thread * kPlaces / 8) % kPlaces;
                found[thread].push_back(at(place, i % kTimes, sample));
            }
        });
    }
    for (std::thread &thread : threads) thread.join();
    for (int thread = 0; thread < kThreads; ++thread)
        for (int i = 0; i < kPlaces * kTimes; ++i) {
            const int place = (i / kTimes + thread * kPlaces / 8) % kPlaces;
            ASSERT_EQ(found[thread][i], expected[place * kTimes + i % kTimes]) << thread << ", " << i;
        }
}

TEST(NoiseMethods, AgreeOnTheLatticeAndNextToIt) {
    constexpr double kShift[] = {0.12, 0.15, 0.18, 0.37}, kNothing = std::numeric_limits<double>::epsilon();
    for (int corner = -50; corner <= 50; ++corner)
        for (double beside : {-kNothing, 0.0, kNothing})
            ExpectTheSameBits(corner - kShift[0] + beside, -corner - kShift[1], corner - kShift[2] - beside,
                              -corner - kShift[3] + beside);
}

TEST(NoiseMethods, AgreeWhereThereIsNoNoise) {
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    for (double far :
         {1e15, -1e15, 1.0000001e15, -2e15, 1e300, kInfinite, -kInfinite, std::numeric_limits<double>::quiet_NaN()}) {
        ExpectTheSameBits(far, 0, 0, 0);
        ExpectTheSameBits(0, far, 0, 0);
        ExpectTheSameBits(0, 0, far, 0);
        ExpectTheSameBits(0, 0, 0, far);
    }
}

}  // namespace
}  // namespace host

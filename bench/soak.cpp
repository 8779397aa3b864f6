// Evaluates millions of frames with edits and jumps in between, and looks for what creeps: memory that grows, clocks
// that part from those of a fresh start. Ends with status 1 when it finds some.
#include <malloc.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <random>
#include <string_view>

#include "bench/scene.h"
#include "generated/module_ids.h"
#include "host/ui/attribute_manager.h"
#include "host/value/descid.h"

namespace {

constexpr std::int64_t kDefaultFrames = 10000000, kCheckEvery = 1000000, kLastFrame = 20000;
constexpr int kFramesBetweenEdits = 211, kFramesBetweenJumps = 503, kEditsBetweenPanelEdits = 10;
constexpr std::int32_t kClocks[] = {ids::kClockStep, ids::kShakeClock,     ids::kFocusClock, ids::kZoomDriftClock,
                                    ids::kJoltClock, ids::kAuxiliaryClock, ids::kZoomClock};
constexpr double kMostDrift = 1e-9;
constexpr std::size_t kMostGrowth = std::size_t{64} * 1024;  // bytes: what the library keeps for itself

std::size_t HeapInUse() { return mallinfo2().uordblks; }

class Soak {
  public:
    // All that is random comes from one seed: a finding can be looked at again.
    void Run(std::int64_t frames) {
        scene_.SetLastFrame(kLastFrame);
        for (std::int64_t done = 1; done <= frames; ++done) {
            if (done % kFramesBetweenEdits == 0) Edit();
            frame_ = done % kFramesBetweenJumps == 0 || frame_ == kLastFrame ? AnyFrame() : frame_ + 1;
            scene_.Evaluate(frame_);
            if (!host::IsFinite(scene_.Camera().GlobalMatrix())) Fail(done, "the camera is not finite");
            if (done % kCheckEvery == 0 || done == frames) Check(done);
        }
    }

  private:
    [[noreturn]] static void Fail(std::int64_t done, const char *what) {
        std::fprintf(stderr, "soak: frame %lld: %s\n", static_cast<long long>(done), what);
        std::exit(1);
    }
    double Share() { return std::uniform_real_distribution<double>(0, 1)(random_); }
    std::int64_t AnyFrame() { return std::uniform_int_distribution<std::int64_t>(0, kLastFrame)(random_); }

    void Edit() {
        host::Container &settings = scene_.Tag().Data();
        const std::int32_t id =
            std::uniform_int_distribution<std::int32_t>(ids::kFirstPresetId, ids::kLastPresetId)(random_);
        const host::Data *present = settings.Find(id);
        if (present == nullptr || (present->type != host::kDataReal && present->type != host::kDataWhole)) return;
        const host::Data value =
            present->type == host::kDataReal ? host::Data(Share()) : host::Data(Share() < 0.8 ? 1 : 0);
        if (++edits_ % kEditsBetweenPanelEdits == 0) {
            host::EditParameter(&scene_.Tag(), host::MakeId(id), value);
            scene_.Document().Undo().Flush();
        } else {
            settings.Set(id, value);
        }
        scene_.Evaluate(frame_ = AnyFrame());  // the clocks then go by the new settings from the start
    }

    // Plays on for a while, and compares with a shot that knows nothing of all this.
    void Check(std::int64_t done) {
        frame_ = kLastFrame - kFramesBetweenJumps;  // always the same, as what is remembered of a jump grows with it
        scene_.Evaluate(frame_ + 7);
        for (const std::int64_t last = frame_ + kFramesBetweenJumps; frame_ < last; ++frame_) scene_.Evaluate(frame_);
        scene_.Evaluate(frame_);
        double played[std::size(kClocks)];
        for (std::size_t i = 0; i < std::size(kClocks); ++i) played[i] = scene_.Tag().Data().Real(kClocks[i]);

        const host::Container settings = scene_.Tag().Data();
        scene_.NewShot();
        scene_.SetLastFrame(kLastFrame);
        for (std::int32_t id = ids::kFirstPresetId; id <= ids::kLastPresetId; ++id) {
            const host::Data *value = settings.Find(id);
            if (value != nullptr && value->type != host::kDataLink) scene_.Tag().Data().Set(id, *value);
        }
        scene_.Evaluate(frame_);
        double drift = 0;
        for (std::size_t i = 0; i < std::size(kClocks); ++i) {
            const double fresh = scene_.Tag().Data().Real(kClocks[i]);
            drift = std::max(drift, std::fabs(fresh - played[i]) / std::max(1.0, std::fabs(fresh)));
        }
        const std::size_t heap = HeapInUse();
        if (first_heap_ == 0) first_heap_ = heap;
        std::printf("soak: %lld frames, %d edits, %zu bytes in use, clocks within %.1e\n", static_cast<long long>(done),
                    edits_, heap, drift);
        std::fflush(stdout);
        if (!(drift <= kMostDrift)) Fail(done, "the clocks are not those of a fresh start");
        if (heap > first_heap_ + kMostGrowth) Fail(done, "memory has grown");
    }

    bench::Scene scene_;
    std::mt19937_64 random_{20120914};
    std::int64_t frame_ = 0;
    int edits_ = 0;
    std::size_t first_heap_ = 0;
};

}  // namespace

int main(int argc, char **argv) {
    std::int64_t frames = kDefaultFrames;
    const std::string_view given = argc > 1 ? argv[argc - 1] : "";
    const std::from_chars_result read = std::from_chars(given.data(), given.data() + given.size(), frames);
    const bool is_number = read.ec == std::errc() && read.ptr == given.data() + given.size() && frames > 0;
    if (argc > 2 || (argc == 2 && !is_number)) {
        std::fprintf(stderr, "soak: found '%s', expected one number of frames\n", argv[argc - 1]);
        return 2;
    }
    Soak().Run(frames);
}

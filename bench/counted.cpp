// Does one job so many times, for a tool that counts instructions: tremolux_counted JOB TIMES. Without arguments it
// prints the jobs. bench/count_instructions runs it.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "bench/scene.h"
#include "generated/module_ids.h"
#include "host/animation/track.h"
#include "host/files/scenefile.h"
#include "host/services/noise.h"
#include "host/value/descid.h"
#include "tremolux/program.h"

namespace bench {
namespace {

constexpr std::int64_t kJumpTo = 1000, kLastKey = 1000;

void Require(bool done, const std::string &error) {
    if (done) return;
    std::fprintf(stderr, "tremolux_counted: %s\n", error.c_str());
    std::exit(1);
}

// Its making is not counted, its work is.
class Job {
  public:
    virtual ~Job() = default;
    virtual void Work(int times) = 0;
};

class Noise : public Job {
  public:
    explicit Noise(int) {}
    void Work(int times) override {
        // Sampled as the module does: whole numbers in space, a time that creeps on.
        for (int i = 0; i < times; ++i) sample_ = host::SignedNoise(1335, 5946, 87855, i * 0.035);
    }

  private:
    volatile double sample_ = 0;
};

class InScene : public Job {
  protected:
    Scene scene_;
};

// Everything that the time slider sets off for one frame, with every layer on.
class Frame : public InScene {
  public:
    explicit Frame(int) {}
    void Work(int times) override {
        for (int frame = 1; frame <= times; ++frame) scene_.Evaluate(frame % kLastKey);
    }
};

class TagAlone : public InScene {
  public:
    explicit TagAlone(int) {}
    void Work(int times) override {
        host::Tag &tag = scene_.Tag();
        for (int frame = 1; frame <= times; ++frame) {
            scene_.Document().SetFrame(frame % kLastKey);
            tag.Registration().execute(tag.Plugin(), &tag, &scene_.Document(), &scene_.Camera(), nullptr, 0, 0);
        }
    }
};

// Neither frame follows the other; the clocks of the first one are known.
class Jump : public InScene {
  public:
    explicit Jump(int) {
        scene_.SetLastFrame(kJumpTo);
        scene_.Evaluate(kJumpTo);
    }
    void Work(int times) override {
        for (int i = 0; i < times; ++i) scene_.Evaluate(i % 2 == 0 ? kJumpTo - 10 : kJumpTo);
    }
};

// With a seed that is new each time the clocks are counted from the start.
class FirstJump : public InScene {
  public:
    explicit FirstJump(int) { scene_.SetLastFrame(kJumpTo); }
    void Work(int times) override {
        for (int seed = 1; seed <= times; ++seed) {
            scene_.Tag().Data().SetReal(ids::kSeed, seed);
            scene_.Evaluate(seed % 2 == 0 ? kJumpTo - 10 : kJumpTo);
        }
    }
};

template <std::int32_t kButton>
class BakedFrame : public InScene {
  public:
    explicit BakedFrame(int frames) { scene_.SetLastFrame(frames - 1); }
    void Work(int) override { scene_.Press(kButton); }
};

class Copy : public InScene {
  public:
    explicit Copy(int) {}
    void Work(int times) override {
        for (int i = 0; i < times; ++i) delete scene_.Tag().Clone(0, nullptr);
    }
};

class Keys : public InScene {
  public:
    explicit Keys(int keys) {
        std::unique_ptr<host::Track> track =
            host::Track::Create(&scene_.Camera(), host::MakeId(host::kParamRelPosition, host::kVectorX));
        for (int frame = 0; frame < keys; ++frame)
            track->GetCurve()->AddKey(host::MakeTime(frame, 30))->SetValue(frame * 0.1);
        scene_.Camera().InsertTrack(track.release());
    }

  protected:
    void Save() {
        std::string error;
        Require(host::SaveDocument(&scene_.Document(), File(), &error), error);
    }
    std::filesystem::path File() const { return scene_.UserFolder() / "keys.scene"; }
};

class SavedKey : public Keys {
  public:
    explicit SavedKey(int keys) : Keys(keys) {}
    void Work(int) override { Save(); }
};

class LoadedKey : public Keys {
  public:
    explicit LoadedKey(int keys) : Keys(keys) { Save(); }
    void Work(int) override {
        std::string error;
        Require(host::LoadDocument(File(), &error) != nullptr, error);
    }
};

constexpr char kShake[] = "shake", kConvert[] = "convert";

// What a frame costs a user of the program, beside what its start does: read, computed and written.
template <const auto &command>
class FrameOfProgram : public InScene {
  public:
    explicit FrameOfProgram(int frames) {
        std::ofstream move(File("move.csv"));
        move << "frame,x,y,z,h,p,b,focal_length,focus_distance\n";
        for (int i = 0; i < frames; ++i)
            move << i << "," << 0.25 * i << ",150," << -2.5 * i << "," << 0.1 * i << ",-5,2," << 36 + 0.01 * i
                 << ",500\n";
    }
    void Work(int) override {
        std::vector<std::string> arguments = {command, File("move.csv")};
        if (arguments.front() == kShake)
            arguments.insert(arguments.end(), {"--module", TREMOLUX_MODULE_FILE, "--user-folder", File("home"), "-o"});
        arguments.push_back(File("out.json"));
        Require(tremolux::RunProgram(arguments) == 0, "the program failed");
    }

  private:
    std::string File(const char *name) const { return (scene_.UserFolder() / name).string(); }
};

template <class T>
std::unique_ptr<Job> Make(int times) {
    return std::make_unique<T>(times);
}

constexpr struct {
    const char *name;
    std::unique_ptr<Job> (*make)(int times);
} kJobs[] = {{"noise sample", Make<Noise>},
             {"frame", Make<Frame>},
             {"frame, the tag alone", Make<TagAlone>},
             {"quickly baked frame", Make<BakedFrame<ids::kQuickBake>>},
             {"brutely baked frame", Make<BakedFrame<ids::kBruteForceBake>>},
             {"jump", Make<Jump>},
             {"first jump to frame 1000", Make<FirstJump>},
             {"copy of a tag", Make<Copy>},
             {"saved key", Make<SavedKey>},
             {"loaded key", Make<LoadedKey>},
             {"frame that tremolux shakes", Make<FrameOfProgram<kShake>>},
             {"frame that tremolux converts", Make<FrameOfProgram<kConvert>>}};

}  // namespace

// By its name what is counted is told from the rest.
[[gnu::noinline]] void CountedWork(Job *job, int times) { job->Work(times); }

}  // namespace bench

int main(int count, char **arguments) {
    for (const auto &job : bench::kJobs) {
        if (count == 1) std::printf("%s\n", job.name);
        if (count == 3 && std::strcmp(arguments[1], job.name) == 0) {
            const int times = std::atoi(arguments[2]);
            const std::unique_ptr<bench::Job> made = job.make(times);
            bench::CountedWork(made.get(), times);
            return 0;
        }
    }
    return count == 1 ? 0 : 2;
}

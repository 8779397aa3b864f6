// Jolts on events: tables, music, edits, sound.
#include "library/events/events.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <random>
#include <sstream>

#include "library/failure.h"
#include "tests/program/run.h"
#include "tests/support/tools.h"

namespace {

using namespace program_test;
using namespace tremolux;

constexpr double kPi = 3.14159265358979323846;

CameraMove MoveOf(std::int64_t first, std::size_t frames, FrameRate rate) {
    CameraMove move;
    move.first_frame = first;
    move.rate = rate;
    move.samples.resize(frames);
    return move;
}

std::vector<std::int64_t> Frames(const EventList &list, const CameraMove &move) {
    std::size_t outside = 0;
    std::vector<std::int64_t> frames;
    for (const EventFrame &event : FramesOf(list, move, &outside)) frames.push_back(event.frame);
    return frames;
}

template <typename Read>
std::string RefusalOf(Read read) {
    try {
        read();
    } catch (const Failure &failure) {
        return failure.what();
    }
    return "nothing refused";
}

TEST(Events, ATableHasFramesOrTimesAndStrengths) {
    const CameraMove move = MoveOf(10, 100, {25, 1});
    EXPECT_EQ(Frames(ReadEventTable("a.csv", "frame\n12\n50\n12\n"), move), (std::vector<std::int64_t>{12, 50}));
    // Times begin with the move: 0.5 s are 12.5 frames, the nearest of which is 13.
    const EventList timed = ReadEventTable("a.csv", "strength,time\n2,0\n8,0.5\n");
    EXPECT_EQ(Frames(timed, move), (std::vector<std::int64_t>{10, 23}));
    EXPECT_EQ(timed.events[0].strength, 0.25);
    EXPECT_EQ(timed.events[1].strength, 1);
    EXPECT_EQ(Frames(ReadEventLines("a.txt", "11 12\n\n30\n"), move), (std::vector<std::int64_t>{11, 12, 30}));
}

TEST(Events, WhatIsBeyondTheMoveIsCounted) {
    std::size_t outside = 0;
    const auto frames = FramesOf(ReadEventLines("a.txt", "-3 4 109 110 1e11"), MoveOf(-5, 115, {30, 1}), &outside);
    ASSERT_EQ(frames.size(), 2u);  // the last frame is 109; the tag takes none before 0
    EXPECT_EQ(frames[0].frame, 4);
    EXPECT_EQ(frames[1].frame, 109);
    EXPECT_EQ(outside, 3u);
}

TEST(Events, AWrongTableIsRefusedAtItsPlace) {
    EXPECT_EQ(RefusalOf([] { ReadEventTable("a.csv", "frame,time\n1,2\n"); }),
              "a.csv:1:1: found the columns frame and time, expected one of frame and time");
    EXPECT_EQ(
        RefusalOf([] { ReadEventTable("a.csv", "strength\n1\n"); }).rfind("a.csv:1:1: found neither frame nor time", 0),
        0u);
    EXPECT_EQ(RefusalOf([] { ReadEventTable("a.csv", "frame\nsoon\n"); }).rfind("a.csv:2:1: found 'soon'", 0), 0u);
    EXPECT_EQ(RefusalOf([] { ReadEventLines("a.txt", "1 x\n"); }).rfind("a.txt:1:3: found 'x'", 0), 0u);
    EXPECT_EQ(RefusalOf([] { ReadEventLines("a.txt", "\n"); }).rfind("a.txt:", 0), 0u);
}

// ---- Music

std::string Bytes(std::initializer_list<int> bytes) {
    std::string text;
    for (const int byte : bytes) text += static_cast<char>(byte);
    return text;
}

std::string Chunk(const std::string &kind, const std::string &body) {
    const auto size = static_cast<int>(body.size());
    return kind + Bytes({size >> 24 & 255, size >> 16 & 255, size >> 8 & 255, size & 255}) + body;
}

TEST(Midi, NotesComeAtTheTimesThatTempoAndDivisionSay) {
    // 96 ticks a quarter, at first half a second each; from tick 192 on a quarter takes a second.
    const std::string track =
        Chunk("MTrk", Bytes({0, 0x90, 60, 127}) +                         // 0 s
                          Bytes({96, 60, 0}) +                            // note off by running status
                          Bytes({0, 0x90, 62, 64}) +                      // tick 96: 0.5 s
                          Bytes({96, 0xFF, 0x51, 3, 0x0F, 0x42, 0x40}) +  // tick 192, 1 s: 1000000 us
                          Bytes({0x81, 0x40, 0x90, 64, 1}) +              // 192 ticks on, at tick 384: 1 s + 2 s
                          Bytes({0, 0xC0, 5, 0, 0xB0, 7, 100, 0, 0xF0, 2, 1, 0xF7, 0, 0xFF, 0x2F, 0}));
    const EventList list = ReadMidi("a.mid", Chunk("MThd", Bytes({0, 0, 0, 1, 0, 96})) + track);
    ASSERT_EQ(list.events.size(), 3u);
    EXPECT_DOUBLE_EQ(list.events[0].time, 0);
    EXPECT_DOUBLE_EQ(list.events[1].time, 0.5);
    EXPECT_DOUBLE_EQ(list.events[2].time, 3);
    EXPECT_DOUBLE_EQ(list.events[0].strength, 1);
    EXPECT_DOUBLE_EQ(list.events[1].strength, 64.0 / 127);
}

TEST(Midi, TracksShareTheTempoOfTheFirstAndMayCountFrames) {
    const std::string tempo =
        Chunk("MTrk", Bytes({0, 0xFF, 0x51, 3, 0x03, 0xD0, 0x90, 0, 0xFF, 0x2F, 0}));  // 250000 us
    const std::string notes = Chunk("MTrk", Bytes({96, 0x95, 60, 100, 0, 0xFF, 0x2F, 0}));
    const std::string other = Chunk("XYZW", "what others put there");
    const EventList list = ReadMidi("a.mid", Chunk("MThd", Bytes({0, 1, 0, 2, 0, 96})) + tempo + other + notes);
    ASSERT_EQ(list.events.size(), 1u);
    EXPECT_DOUBLE_EQ(list.events[0].time, 0.25);
    // 25 frames a second of 40 parts: 96 parts are 96 ms, whatever the tempo.
    const EventList frames = ReadMidi("a.mid", Chunk("MThd", Bytes({0, 1, 0, 2, 256 - 25, 40})) + tempo + notes);
    EXPECT_DOUBLE_EQ(frames.events.at(0).time, 0.096);
}

TEST(Midi, WhatIsNoneIsRefusedAtItsByte) {
    const std::string head = Chunk("MThd", Bytes({0, 0, 0, 1, 0, 96}));
    EXPECT_EQ(RefusalOf([] { ReadMidi("a.mid", "RIFF"); }),
              "a.mid: byte 4: found another head, expected a MIDI file, which begins with MThd");
    EXPECT_NE(RefusalOf([&] { ReadMidi("a.mid", head); }).find("found the end of the file"), std::string::npos);
    EXPECT_NE(RefusalOf([&] {
                  ReadMidi("a.mid", head + "MTrk" + Bytes({255, 255, 255, 255}));
              }).find("a part of 4294967295 bytes"),
              std::string::npos);
    EXPECT_NE(RefusalOf([&] {
                  ReadMidi("a.mid", head + Chunk("MTrk", Bytes({0, 60, 60})));
              }).find("without a status"),
              std::string::npos);
    EXPECT_NE(RefusalOf([&] {
                  ReadMidi("a.mid", head + Chunk("MTrk", Bytes({0, 0xFF, 0x2F, 0})));
              }).find("found no notes"),
              std::string::npos);
    EXPECT_NE(RefusalOf([] {
                  ReadMidi("a.mid", Chunk("MThd", Bytes({0, 2, 0, 1, 0, 96})));
              }).find("the format 2"),
              std::string::npos);
}

// ---- Edits

std::string Edit(int number, const std::string &in, const std::string &out) {
    return "00" + std::to_string(number) + "  REEL V  C  00:00:00:00 00:00:05:00 " + in + " " + out + "\n";
}

TEST(EditList, HasAJoltOnEachCut) {
    const std::string list = "TITLE: A SCENE\nFCM: NON-DROP FRAME\n\n" + Edit(1, "01:00:00:00", "01:00:02:12") +
                             "* FROM CLIP NAME: A\n" + Edit(2, "01:00:02:12", "01:00:04:00") +
                             Edit(3, "01:00:04:00", "01:00:05:00");
    // At 25 frames a second the cuts are 62 and 100 frames after the first edit.
    EXPECT_EQ(Frames(ReadEditList("a.edl", list, {25, 1}), MoveOf(1001, 200, {25, 1})),
              (std::vector<std::int64_t>{1063, 1101}));
}

TEST(EditList, CountsDropFrames) {
    // From 00:00:59;29 to 00:01:00;02 it is one frame: two numbers are left out. From 00:09:59;29 to 00:10:00;00 one as
    // well.
    const FrameRate ntsc{30000, 1001};
    EXPECT_EQ(Frames(ReadEditList("a.edl", Edit(1, "00:00:59;29", "x") + Edit(2, "00:01:00;02", "x"), ntsc),
                     MoveOf(0, 9, ntsc)),
              (std::vector<std::int64_t>{1}));
    EXPECT_EQ(
        Frames(ReadEditList("a.edl", "FCM: DROP FRAME\n" + Edit(1, "00:09:59:29", "x") + Edit(2, "00:10:00:00", "x"),
                            ntsc),
               MoveOf(0, 9, ntsc)),
        (std::vector<std::int64_t>{1}));
}

TEST(EditList, WhatIsNoneIsRefused) {
    EXPECT_NE(RefusalOf([] {
                  ReadEditList("a.edl", "TITLE: NOTHING\n", {25, 1});
              }).find("expected at least two"),
              std::string::npos);
    EXPECT_NE(RefusalOf([] {
                  ReadEditList("a.edl", Edit(1, "01:00:00:30", "x"), {25, 1});
              }).find("a.edl:1:41: found '01:00:00:30'"),
              std::string::npos)
        << RefusalOf([] {
               ReadEditList("a.edl", Edit(1, "01:00:00:30", "x"), {25, 1});
           });
}

// ---- Sound

std::string Little(std::uint64_t number, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(number >> (8 * i) & 255);
    return text;
}

std::string Wave(const std::vector<double> &samples, int rate, int kind = 1, int bits = 16, int channels = 1) {
    std::string data;
    for (const double sample : samples) {
        for (int channel = 0; channel < channels; ++channel) {
            if (kind == 3 && bits == 32) {
                const auto value = static_cast<float>(sample);
                std::uint32_t number;
                std::memcpy(&number, &value, 4);
                data += Little(number, 4);
            } else if (kind == 3) {
                std::uint64_t number;
                std::memcpy(&number, &sample, 8);
                data += Little(number, 8);
            } else if (bits == 8) {
                data += Little(static_cast<std::uint64_t>(std::lround(sample * 127 + 128)), 1);
            } else {
                data +=
                    Little(static_cast<std::uint64_t>(std::llround(sample * (std::ldexp(1, bits - 1) - 1))), bits / 8);
            }
        }
    }
    const std::string format =
        Little(static_cast<std::uint64_t>(kind), 2) + Little(static_cast<std::uint64_t>(channels), 2) +
        Little(static_cast<std::uint64_t>(rate), 4) + Little(0, 6) + Little(static_cast<std::uint64_t>(bits), 2);
    return "RIFF" + Little(36 + data.size(), 4) + "WAVEfmt " + Little(16, 4) + format + "data" +
           Little(data.size(), 4) + data;
}

TEST(WaveFile, IsReadInEveryKindOfSamples) {
    const std::vector<double> wave = {0, 0.5, -0.5, 0.25, -1};
    for (const auto &[kind, bits] :
         std::vector<std::pair<int, int>>{{1, 8}, {1, 16}, {1, 24}, {1, 32}, {3, 32}, {3, 64}}) {
        for (const int channels : {1, 2, 6}) {
            const Sound sound = ReadWave("a.wav", Wave(wave, 44100, kind, bits, channels));
            EXPECT_EQ(sound.rate, 44100);
            ASSERT_EQ(sound.samples.size(), wave.size());
            for (std::size_t i = 0; i < wave.size(); ++i)
                EXPECT_NEAR(sound.samples[i], wave[i], bits == 8 ? 0.01 : 1e-4)
                    << kind << " " << bits << " " << channels;
        }
    }
}

TEST(WaveFile, WhatIsNoneIsRefusedAtItsByte) {
    const std::string good = Wave({0, 0.5}, 44100);
    EXPECT_EQ(RefusalOf([] { ReadWave("a.wav", "ID3"); }).rfind("a.wav: byte 0: found the end of the file", 0), 0u);
    EXPECT_NE(RefusalOf([] { ReadWave("a.wav", "OggSxxxxxxxx"); }).find("expected a .wav file, which begins with RIFF"),
              std::string::npos);
    EXPECT_NE(RefusalOf([&] { ReadWave("a.wav", good.substr(0, 36)); }).find("found no samples"), std::string::npos);
    EXPECT_NE(RefusalOf([] { ReadWave("a.wav", Wave({0}, 44100, 1, 12)); }).find("12 bits"), std::string::npos);
    EXPECT_NE(RefusalOf([] { ReadWave("a.wav", Wave({0}, 44100, 85, 16)); }).find("kind 85"), std::string::npos);
    EXPECT_NE(RefusalOf([] { ReadWave("a.wav", Wave({0}, 10)); }).find("at 10 samples a second"), std::string::npos);
    // A cut end only means fewer samples.
    EXPECT_EQ(ReadWave("a.wav", good.substr(0, good.size() - 1)).samples.size(), 1u);
}

class Noise {
  public:
    explicit Noise(unsigned seed) : engine_(seed) {}
    double Next() { return distribution_(engine_); }

  private:
    std::mt19937 engine_;
    std::normal_distribution<double> distribution_;
};

// A burst of 5 ms that rises at once and falls away.
void AddClick(double seconds, double hertz, double level, int rate, std::vector<double> *sound) {
    const auto start = static_cast<std::size_t>(std::ceil(seconds * rate));
    for (std::size_t i = 0; i < static_cast<std::size_t>(0.02 * rate) && start + i < sound->size(); ++i) {
        const double t = static_cast<double>(i) / rate;
        (*sound)[start + i] += level * std::exp(-t / 0.005) * std::cos(2 * kPi * hertz * t);
    }
}

struct ClickTrack {
    FrameRate rate;
    int samples_per_second;
    double hertz;
    SoundBand band;
};

class Clicks : public testing::TestWithParam<ClickTrack> {};

// At 20 dB the power of a click's first 5 ms is a hundred times that of the noise.
TEST_P(Clicks, AreFoundToTheFrameNoneAddedAndNoneLostAtTwentyDecibels) {
    const ClickTrack &track = GetParam();
    for (const unsigned seed : {1U, 2U, 3U}) {
        std::mt19937 places(seed);
        const double frames_per_second = track.rate.PerSecond();
        std::vector<std::int64_t> wanted;
        const auto least = static_cast<std::int64_t>(std::ceil(0.15 * frames_per_second));
        for (std::int64_t frame = 3; frame < static_cast<std::int64_t>(19 * frames_per_second);
             frame += least + static_cast<std::int64_t>(places() % 30))
            wanted.push_back(frame);
        std::vector<double> sound(static_cast<std::size_t>(20 * track.samples_per_second), 0);
        for (const std::int64_t frame : wanted)
            AddClick(static_cast<double>(frame) / frames_per_second, track.hertz, 0.8, track.samples_per_second,
                     &sound);
        // The mean square of 0.8 exp(-t / 5 ms) cos over 5 ms is 0.64 / 2 * (1 - exp(-2)) / 2.
        const double power = 0.32 * (1 - std::exp(-2.0)) / 2;
        Noise noise(seed);
        for (double &sample : sound) sample = std::clamp(sample + std::sqrt(power / 100) * noise.Next(), -1.0, 1.0);
        const EventList found = ReadSound("clicks.wav", Wave(sound, track.samples_per_second), {50, track.band});
        EXPECT_EQ(Frames(found, MoveOf(0, 2000, track.rate)), wanted) << "seed " << seed;
    }
}

INSTANTIATE_TEST_SUITE_P(RatesAndBands, Clicks,
                         testing::Values(ClickTrack{{24, 1}, 44100, 1500, SoundBand::kAll},
                                         ClickTrack{{24000, 1001}, 48000, 1500, SoundBand::kAll},
                                         ClickTrack{{25, 1}, 48000, 3000, SoundBand::kHigh},
                                         ClickTrack{{30000, 1001}, 44100, 700, SoundBand::kMid},
                                         ClickTrack{{60, 1}, 48000, 1000, SoundBand::kAll},
                                         ClickTrack{{60, 1}, 96000, 4000, SoundBand::kHigh},
                                         ClickTrack{{25, 1}, 22050, 1000, SoundBand::kAll}));

TEST(Onsets, SilenceAndASteadyToneHaveNone) {
    OnsetCurve curve;
    Sound sound;
    EXPECT_TRUE(FindOnsets(sound, {}, &curve).empty());
    sound.samples.assign(96000, 0.0F);
    EXPECT_TRUE(FindOnsets(sound, {}, &curve).empty());
    for (std::size_t i = 0; i < sound.samples.size(); ++i)
        sound.samples[i] = static_cast<float>(0.5 * std::sin(2 * kPi * 440 * static_cast<double>(i) / 48000));
    const auto onsets = FindOnsets(sound, {}, &curve);
    for (const Onset &onset : onsets) EXPECT_TRUE(onset.seconds < 0.05 || onset.seconds > 1.95) << onset.seconds;
}

TEST(Onsets, MoreSensitiveFindsFainter) {
    std::vector<double> sound(48000 * 6, 0);
    for (int i = 1; i < 12; ++i) AddClick(0.5 * i, 1000, i % 2 == 0 ? 0.9 : 0.05, 48000, &sound);
    Noise noise(5);
    for (double &sample : sound) sample += 0.003 * noise.Next();
    const std::string wave = Wave(sound, 48000);
    const auto count = [&](double sensitivity) {
        return ReadSound("a.wav", wave, {sensitivity, SoundBand::kAll}).events.size();
    };
    EXPECT_EQ(count(90), 11u);
    EXPECT_LE(count(0), count(50));
    EXPECT_LE(count(50), count(90));
}

// ---- Through the program

class JoltsFrom : public testing::Test {
  protected:
    JoltsFrom() {
        std::string move = "frame,x,y,z,h,p,b\n";
        for (int frame = 0; frame < 60; ++frame) move += std::to_string(frame) + ",0,0,0,0,0,0\n";
        move_ = workplace_.Write("move.csv", move);
    }
    std::string Shaken(const std::vector<std::string> &more) {
        std::vector<std::string> arguments = {
            "shake", move_, "-o", workplace_.Path("out.csv"), "--set", "Jolt Pos Intensity=0.5"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Outcome outcome = workplace_.Run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return workplace_.Read("out.csv");
    }
    Workplace workplace_;
    std::string move_;
};

TEST_F(JoltsFrom, ATableAreTheTagsOwnJolts) {
    const std::string typed = Shaken({"--set", "Custom Trigger=12,40", "--set", "6145=on"});
    EXPECT_EQ(Shaken({"--jolts-from", workplace_.Write("hits.csv", "frame\n40\n12\n")}), typed);
    EXPECT_EQ(Shaken({"--jolts-from", workplace_.Write("hits.txt", "12\n40\n")}), typed);
    EXPECT_NE(typed, Shaken({}));
}

TEST_F(JoltsFrom, StrengthsAreKeysOfTheIntensities) {
    const std::string keyed =
        Shaken({"--set", "Custom Trigger=12,40", "--set", "6145=on", "--key", "Jolt Pos Intensity@12=0.5 hold,40=0.125",
                "--key", "Jolt Rot Intensity@12=15% hold,40=3.75%"});
    EXPECT_EQ(Shaken({"--jolts-from", workplace_.Write("hits.csv", "frame,strength\n12,4\n40,1\n")}), keyed);
}

TEST_F(JoltsFrom, TwoListsOfFramesAreRefused) {
    const std::string hits = workplace_.Write("hits.txt", "12\n");
    for (const char *trigger : {"Custom Trigger=3", "6181=3"}) {
        const Outcome outcome =
            workplace_.Run({"shake", move_, "-o", workplace_.Path("x.csv"), "--jolts-from", hits, "--set", trigger});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_NE(outcome.err.find("--jolts-from: found '" + std::string(trigger) + "' as well"), std::string::npos)
            << outcome.err;
    }
}

TEST_F(JoltsFrom, EventsBeyondTheMoveAreSaidInOneLine) {
    const std::string hits = workplace_.Write("hits.txt", "12 400\n");
    const Outcome outcome = workplace_.Run({"shake", move_, "-o", workplace_.Path("x.csv"), "--jolts-from", hits});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, hits + ": 1 of 2 events are beyond the move's frames, or before frame 0, and left out\n");
}

TEST_F(JoltsFrom, OtherSoundsComeThroughFfmpeg) {
    if (!test_support::CanRun("ffmpeg", workplace_.Settings())) GTEST_SKIP() << "no ffmpeg on this system";
    std::vector<double> sound(48000 * 2, 0);
    AddClick(0.4, 1000, 0.8, 48000, &sound);
    AddClick(1.2, 1000, 0.8, 48000, &sound);
    const std::string wave = workplace_.Write("hits.wav", Wave(sound, 48000));
    const std::string direct = Shaken({"--jolts-from", wave});
    std::filesystem::rename(wave, workplace_.Path("hits.sound"));
    EXPECT_EQ(Shaken({"--jolts-from", workplace_.Path("hits.sound")}), direct);
    // 0.4 s are frame 12: there the camera moves for the first time.
    EXPECT_NE(direct.find("\n11,0,0,0,0,0,0,"), std::string::npos);
    EXPECT_EQ(direct.find("\n12,0,0,0,"), std::string::npos);
    const Outcome outcome = workplace_.Run(
        {"shake", move_, "-o", workplace_.Path("x.csv"), "--jolts-from", workplace_.Write("a.mp3", "no sound")});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
    EXPECT_NE(outcome.err.find("found nothing that can be heard"), std::string::npos) << outcome.err;
}

// Drums and plucked tones, and where each begins.
std::vector<double> Music(unsigned seed, std::vector<double> *onsets) {
    constexpr int kRate = 44100;
    std::mt19937 random(seed);
    Noise noise(seed);
    std::vector<double> sound(static_cast<std::size_t>(kRate) * 20, 0);
    for (double time = 0.3; time < 19; time += 0.25 + 0.05 * static_cast<double>(random() % 7)) {
        onsets->push_back(time);
        const auto start = static_cast<std::size_t>(time * kRate);
        const auto kind = random() % 3;
        const double pitch = 110 * std::pow(2.0, static_cast<double>(random() % 24) / 12),
                     level = 0.2 + 0.2 * static_cast<double>(random() % 3);
        for (std::size_t i = 0; i < static_cast<std::size_t>(kRate) / 2 && start + i < sound.size(); ++i) {
            const double t = static_cast<double>(i) / kRate, attack = std::min(1.0, t / 0.005);
            double value = 0;
            if (kind == 0) value = std::exp(-t / 0.08) * std::sin(2 * kPi * (50 * t + 4 * (1 - std::exp(-t / 0.03))));
            if (kind == 1) value = std::exp(-t / 0.05) * noise.Next() * 0.4;
            if (kind == 2)
                for (int partial = 1; partial < 6; ++partial)
                    value += std::exp(-t * partial / 0.25) * std::sin(2 * kPi * pitch * partial * t) / (2 * partial);
            sound[start + i] += level * attack * value;
        }
    }
    for (double &sample : sound) sample = std::clamp(sample + 0.001 * noise.Next(), -1.0, 1.0);
    return sound;
}

// Twice the matches within 50 ms over the number of both.
double Agreement(const std::vector<double> &a, const std::vector<double> &b) {
    std::vector<bool> taken(b.size(), false);
    int matches = 0;
    for (const double time : a) {
        for (std::size_t i = 0; i < b.size(); ++i) {
            if (taken[i] || std::abs(b[i] - time) > 0.05) continue;
            taken[i] = true;
            ++matches;
            break;
        }
    }
    return 2.0 * matches / static_cast<double>(a.size() + b.size());
}

std::vector<double> TimesOf(const EventList &list) {
    std::vector<double> times;
    for (const Event &event : list.events) times.push_back(event.time);
    return times;
}

TEST(Onsets, OfMusicAreWhereItsNotesBegin) {
    for (const unsigned seed : {1U, 2U, 3U, 4U}) {
        std::vector<double> onsets;
        const std::string wave = Wave(Music(seed, &onsets), 44100);
        EXPECT_GE(Agreement(TimesOf(ReadSound("a.wav", wave, {})), onsets), 0.95) << seed;
    }
}

TEST_F(JoltsFrom, AnIndependentFinderAgreesOnMusic) {
    if (!test_support::CanRun("aubioonset", workplace_.Settings())) GTEST_SKIP() << "no aubioonset on this system";
    for (const unsigned seed : {1U, 2U, 3U, 4U}) {
        std::vector<double> onsets;
        const std::string wave = Wave(Music(seed, &onsets), 44100), file = workplace_.Write("music.wav", wave);
        const std::string list = workplace_.Path("onsets.txt");
        ASSERT_EQ(std::system(("aubioonset -O energy -i \"" + file + "\" > \"" + list + "\" 2>/dev/null").c_str()), 0);
        std::vector<double> theirs;
        std::ifstream stream(list);
        for (double time; stream >> time;) theirs.push_back(time);
        EXPECT_GE(Agreement(TimesOf(ReadSound("a.wav", wave, {})), theirs), 0.9)
            << "seed " << seed << ", they found " << Agreement(theirs, onsets);
    }
}

}  // namespace

// Films: where the motion lies by their index, whatever lies between.
#include <filesystem>
#include <fstream>

#include "library/formats/format.h"
#include "library/gyro/gpmf_log.h"
#include "library/gyro/gyro_move.h"
#include "library/gyro/mp4_index.h"
#include "tests/program/gyro/payload_writer.h"
#include "tests/program/gyro/support.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace gyro_test;
using namespace tremolux;

// Rates about the picture's z that count up from `first`.
std::string FilmPayloadFrom(int first, int samples) {
    std::vector<int> numbers;
    for (int i = 0; i < samples; ++i) numbers.insert(numbers.end(), {0, 0, first + i});
    return Device(1, "Test camera",
                  Stream(TextItem("ORIN", "XZY") + ShortsItem("SCAL", 1, {100}) + ShortsItem("GYRO", 3, numbers)));
}

GyroLog FilmLogOf(const std::string &bytes) {
    MemorySource source("a.mp4", bytes);
    return ReadFilmLog("a.mp4", &source);
}

std::string FilmRefusal(const std::string &bytes) {
    return RefusalOf([&] { FilmLogOf(bytes); });
}

// With one part replaced by another of its length.
std::string Replaced(std::string bytes, const std::string &part, const std::string &other) {
    const std::size_t place = bytes.find(part);
    EXPECT_NE(place, std::string::npos);
    return bytes.replace(place, other.size(), other);
}

TEST(Film, SamplesOfEachPayloadLieEvenlyInItsSpan) {
    // 1.001 s each: the second payload's first sample is at 1.001 s, its second one a fourth of that later.
    const GyroLog log = FilmLogOf(FilmBytes({FilmPayloadFrom(1, 2), FilmPayloadFrom(3, 4)}));
    ASSERT_EQ(log.rates.size(), 6U);
    EXPECT_NEAR(log.rates[1].time, 0.5005, 1e-12);
    EXPECT_NEAR(log.rates[2].time, 1.001, 1e-12);
    EXPECT_NEAR(log.rates[3].time, 1.25125, 1e-12);
    EXPECT_EQ(log.rates[5].value, Eigen::Vector3d(0, 0, 0.06));
    EXPECT_EQ(log.camera, "Test camera");
    EXPECT_EQ(log.frame_rate, (FrameRate{30000, 1001}));
}

TEST(Film, PayloadsAreFoundHoweverTheIndexSaysThem) {
    const std::vector<std::string> payloads = {FilmPayloadFrom(1, 1), FilmPayloadFrom(2, 2), FilmPayloadFrom(4, 1)};
    for (const bool wide : {false, true}) {
        for (const int in_chunk : {1, 2, 3}) {
            FilmShape shape;
            shape.wide_offsets = shape.long_boxes = wide;
            shape.payloads_in_chunk = in_chunk;
            const GyroLog log = FilmLogOf(FilmBytes(payloads, shape));
            ASSERT_EQ(log.rates.size(), 4U);
            for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(log.rates[i].value.z(), 0.01 * static_cast<double>(i + 1));
        }
    }
}

TEST(Film, FiveGigabytesOfPicturesStayOnTheDisk) {
    FilmShape shape;
    shape.pictures = std::uint64_t{5} << 30;
    shape.wide_offsets = true;
    const WrittenFilm film = WriteFilm({FilmPayloadFrom(1, 30)}, shape);
    const test_support::TemporaryFolder folder;
    const std::filesystem::path file = folder.Write("long.mp4", film.front);
    // A hole: the system keeps no bytes for it. Reading them all would be refused as more than any file may hold.
    std::filesystem::resize_file(file, film.front.size() + shape.pictures);
    std::ofstream(file, std::ios::binary | std::ios::app) << film.index;
    const CameraMove move = ReadMove(file, {});
    EXPECT_EQ(move.recorded->log.rates.size(), 30U);
    EXPECT_EQ(move.rate, (FrameRate{30000, 1001}));
}

TEST(Film, MotionInTheNameOfAnotherExtensionIsReadFromBytesToo) {
    const CameraMove move = MoveFromBytes("clip.MOV", FilmBytes({FilmPayloadFrom(1, 30)}), {});
    EXPECT_EQ(move.samples.size(), 30U);  // 30 samples in 1.001 s: one at each frame of 30000/1001 a second
}

TEST(Film, WithoutATrackOfMotionIsRefused) {
    FilmShape shape;
    shape.motion_format = "tmcd";
    EXPECT_EQ(FilmRefusal(FilmBytes({FilmPayloadFrom(1, 1)}, shape)),
              "a.mp4: found a film without a track of motion, expected one of 'gpmd', as action cameras write it");
}

TEST(Film, CutOffAnywhereIsRefusedWithALine) {
    const std::string whole = FilmBytes({FilmPayloadFrom(1, 2), FilmPayloadFrom(3, 1)});
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_EQ(FilmRefusal(whole.substr(0, size)).find("a.mp4: "), 0U) << size;
}

TEST(Film, WhatIsNoFilmIsRefused) {
    EXPECT_EQ(FilmRefusal("frame,x,y,z,h,p,b\n0,0,0,0,0,0,0\n"),
              "a.mp4: byte 0: found 'e,x,', expected a film (.mp4 or .mov)");
    EXPECT_EQ(FilmRefusal(""),
              "a.mp4: byte 0: found the end of the file, expected a film (.mp4 or .mov) with its index ('moov')");
}

TEST(Film, NumbersBeyondTheFileAreRefusedBeforeTheySizeAnything) {
    const std::string whole = FilmBytes({FilmPayloadFrom(1, 2)});
    const std::string rows = BigEndian(0, 4) + BigEndian(1, 4), many = BigEndian(0, 4) + BigEndian(0xFFFFFFFF, 4);
    const auto after = [&whole](const std::string &kind, const std::string &replaced, const std::string &other) {
        const std::size_t place = whole.rfind(kind);
        EXPECT_EQ(whole.compare(place + 4, replaced.size(), replaced), 0);
        return std::string(whole).replace(place + 4, other.size(), other);
    };
    for (const std::string kind : {"stts", "stsc", "stco"})
        EXPECT_NE(FilmRefusal(after(kind, rows, many)).find("found 4294967295 rows, expected at most 1"),
                  std::string::npos)
            << kind;
    const std::string sizes = BigEndian(0, 8);
    EXPECT_NE(
        FilmRefusal(after("stsz", sizes, BigEndian(0, 8) + BigEndian(0xFFFFFFFF, 4))).find("found 4294967295 sizes"),
        std::string::npos);
    EXPECT_NE(FilmRefusal(after("stsz", sizes, BigEndian(0, 4) + BigEndian(0x7FFFFFFF, 4)))
                  .find("have their places in the file"),
              std::string::npos);
    EXPECT_NE(FilmRefusal(after("stco", rows, rows + BigEndian(0xFFFFFFF0, 4))).find("the film may be cut off"),
              std::string::npos);
    EXPECT_NE(FilmRefusal(after("stsc", rows, rows + BigEndian(0, 4))).find("expected rising numbers from 1 on"),
              std::string::npos);
    EXPECT_NE(FilmRefusal(Replaced(whole, "moov", "mOOv")).find("expected a film (.mp4 or .mov) with its index"),
              std::string::npos);
}

TEST(Film, WithoutTicksASecondIsRefused) {
    FilmShape shape;
    shape.ticks_per_second = 0;
    EXPECT_NE(
        FilmRefusal(FilmBytes({FilmPayloadFrom(1, 2)}, shape)).find("found no ticks a second, expected at least one"),
        std::string::npos);
}

TEST(Film, PayloadsWithoutDurationsDoNotCountTwice) {
    FilmShape shape;
    shape.payload_ticks = 0;
    const GyroLog log = FilmLogOf(FilmBytes({FilmPayloadFrom(1, 2)}, shape));
    EXPECT_EQ(log.rates.size(), 1U);
    EXPECT_EQ(log.notes.back(), "1 sample is left out, for times that repeat or jump back");
}

}  // namespace

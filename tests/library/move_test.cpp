#include <limits>

#include "tests/library/support.h"

using namespace library_tests;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

std::string BytesOf(const Move &move, const char *name) {
    tremolux_buffer buffer{};
    EXPECT_EQ(TREMOLUX_OK, tremolux_move_to_bytes(move.get(), name, &buffer)) << tremolux_last_error(move.get());
    EXPECT_EQ(0, buffer.bytes[buffer.size]);
    std::string bytes(buffer.bytes, buffer.size);
    tremolux_buffer_free(&buffer);
    EXPECT_EQ(nullptr, buffer.bytes);
    tremolux_buffer_free(&buffer);
    return bytes;
}

// The line of a call that is refused, and nothing but that.
std::string Refused(tremolux_status status, const void *handle = nullptr) {
    EXPECT_EQ(TREMOLUX_INPUT, status);
    return tremolux_last_error(handle);
}

std::string RefusedNumber(std::size_t place, double number) {
    const tremolux_move_info info = Info(2);
    std::vector<double> numbers = Numbers(2);
    numbers[place] = number;
    tremolux_move move = nullptr;
    std::string line = Refused(tremolux_move_from_numbers(&info, numbers.data(), numbers.size(), &move));
    EXPECT_EQ(nullptr, move);
    return line;
}

template <typename Change>
std::string RefusedInfo(Change change) {
    tremolux_move_info info = Info(2);
    change(&info);
    const std::vector<double> numbers = Numbers(2);
    tremolux_move move = nullptr;
    return Refused(tremolux_move_from_numbers(&info, numbers.data(), numbers.size(), &move));
}

TEST(Move, GivesItsNumbersBack) {
    const Move move = MakeMove(7);
    std::vector<double> numbers(7 * kNumbers);
    EXPECT_EQ(TREMOLUX_OK, tremolux_move_numbers(move.get(), numbers.data(), numbers.size()));
    EXPECT_EQ(Numbers(7), numbers);
    tremolux_move_info info{};
    info.size = sizeof(info);
    EXPECT_EQ(TREMOLUX_OK, tremolux_move_info_of(move.get(), &info));
    EXPECT_EQ(7u, info.frame_count);
    EXPECT_EQ(0, info.first_frame);
    EXPECT_EQ(30, info.rate_numerator);
    EXPECT_EQ(1, info.rate_denominator);
    EXPECT_EQ(36, info.aperture_width);
}

TEST(Move, GoesThroughTheBytesOfAFile) {
    const Move move = MakeMove(5);
    const std::string bytes = BytesOf(move, "camera.json");
    tremolux_move read = nullptr;
    ASSERT_EQ(TREMOLUX_OK, tremolux_move_from_bytes("shots/camera.JSON", bytes.data(), bytes.size(), &read))
        << tremolux_last_error(nullptr);
    const Move again(read);
    EXPECT_EQ(bytes, BytesOf(again, "x.json"));
}

// What a format makes of a move, read again.
Move Again(const Move &move, const std::string &name) {
    const std::string bytes = BytesOf(move, name.c_str());
    tremolux_move read = nullptr;
    EXPECT_EQ(TREMOLUX_OK, tremolux_move_from_bytes(name.c_str(), bytes.data(), bytes.size(), &read))
        << tremolux_last_error(nullptr);
    return Move(read);
}

tremolux_move_info InfoOf(const Move &move) {
    tremolux_move_info info{};
    info.size = sizeof(info);
    EXPECT_EQ(TREMOLUX_OK, tremolux_move_info_of(move.get(), &info));
    return info;
}

Move MakeMoveAt(std::int32_t numerator, std::int32_t denominator, std::int64_t first_frame, std::uint64_t frames) {
    tremolux_move_info info = Info(frames);
    info.rate_numerator = numerator;
    info.rate_denominator = denominator;
    info.first_frame = first_frame;
    const std::vector<double> numbers = Numbers(frames);
    tremolux_move move = nullptr;
    EXPECT_EQ(TREMOLUX_OK, tremolux_move_from_numbers(&info, numbers.data(), numbers.size(), &move))
        << tremolux_last_error(nullptr);
    return Move(move);
}

const char *const kFormatsWithARate[] = {"a.json", "a.usda", "a.usd", "a.gltf", "a.glb"};

TEST(Move, KeepsTheFractionOfItsRateThroughEveryFormatThatHasOne) {
    const std::pair<std::int32_t, std::int32_t> rates[] = {{24000, 1001},  {24, 1}, {25, 1},       {30000, 1001},
                                                           {48000, 1001},  {30, 1}, {60000, 1001}, {60, 1},
                                                           {120000, 1001}, {25, 2}, {2500, 1},     {1, 1}};
    for (const auto &[numerator, denominator] : rates) {
        for (const char *name : kFormatsWithARate) {
            const Move again = Again(MakeMoveAt(numerator, denominator, 101, 3), name);
            const tremolux_move_info info = InfoOf(again);
            EXPECT_EQ(numerator, info.rate_numerator) << name;
            EXPECT_EQ(denominator, info.rate_denominator) << name << " of " << numerator;
            EXPECT_EQ(101, info.first_frame) << name;
            EXPECT_EQ(3u, info.frame_count) << name;
        }
    }
}

TEST(Move, HasItsFramesWhereTheyWereAfterTenThousand) {
    const Move move = MakeMoveAt(24000, 1001, -20, 10000);
    for (const char *name : kFormatsWithARate) {
        const Move again = Again(move, name);
        const tremolux_move_info info = InfoOf(again);
        EXPECT_EQ(24000, info.rate_numerator) << name;
        EXPECT_EQ(1001, info.rate_denominator) << name;
        EXPECT_EQ(-20, info.first_frame) << name;
        ASSERT_EQ(10000u, info.frame_count) << name;
        std::vector<double> numbers(10000 * kNumbers);
        EXPECT_EQ(TREMOLUX_OK, tremolux_move_numbers(again.get(), numbers.data(), numbers.size()));
        const std::vector<double> last = {numbers.end() - kNumbers, numbers.end()};
        const std::vector<double> whole = Numbers(10000), expected = {whole.end() - kNumbers, whole.end()};
        for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(expected[i], last[i], 1e-6) << name;
        EXPECT_NEAR(0, std::remainder(expected[3] - last[3], 2 * 3.14159265358979323846), 1e-7) << name;
        EXPECT_NEAR(expected[6], last[6], 1e-6) << name;
    }
}

TEST(Move, OfBytesThatAreNoneIsRefusedByTheReadersLine) {
    tremolux_move move = nullptr;
    EXPECT_EQ("a.json:1:1: found '{', expected JSON", Refused(tremolux_move_from_bytes("a.json", "{", 1, &move)));
    EXPECT_EQ(
        "a.avi: found the extension '.avi', expected .csv, .json, .chan, .usda, .usd, .usdz, .gltf, .glb, .mp4, .mov, "
        ".gcsv or .raw",
        Refused(tremolux_move_from_bytes("a.avi", "", 0, &move)));
    EXPECT_EQ("bytes: found NULL, expected a pointer", Refused(tremolux_move_from_bytes("a.csv", nullptr, 9, &move)));
    EXPECT_EQ(nullptr, move);
}

TEST(Move, IsWrittenInKnownFormatsAlone) {
    const Move move = MakeMove(1);
    tremolux_buffer buffer{};
    EXPECT_EQ(
        "a.mov: found the extension '.mov', expected .csv, .transforms.json, .camera_path.json, .json, .chan, .usda, "
        ".usd, "
        ".gltf, .glb, .py or .txt",
        Refused(tremolux_move_to_bytes(move.get(), "a.mov", &buffer), move.get()));
    EXPECT_EQ(nullptr, buffer.bytes);
}

TEST(Move, HasNumbersThatACameraCanHave) {
    EXPECT_EQ("numbers[3]: found nan, expected a number up to 1e12", RefusedNumber(3, kNaN));
    EXPECT_EQ("numbers[8]: found inf, expected a number up to 1e12",
              RefusedNumber(8, std::numeric_limits<double>::infinity()));
    EXPECT_EQ("numbers[14]: found 0, expected a focal length from 1 to 10000 mm", RefusedNumber(14, 0));
    EXPECT_EQ("numbers[15]: found -0.5, expected a focus distance from 0 to 1e12", RefusedNumber(15, -0.5));
}

TEST(Move, HasFramesAndARateThatThereAre) {
    EXPECT_EQ("info->frame_count: found 0, expected 1 to 1000000",
              RefusedInfo([](auto *info) { info->frame_count = 0; }));
    EXPECT_EQ("info->frame_count: found 1000001, expected 1 to 1000000",
              RefusedInfo([](auto *info) { info->frame_count = 1000001; }));
    EXPECT_EQ("count: found 16, expected 24", RefusedInfo([](auto *info) { info->frame_count = 3; }));
    EXPECT_EQ("info->first_frame: found 10000001, expected at most 10000000",
              RefusedInfo([](auto *info) { info->first_frame = 10000001; }));
    const std::string rate = "a rate from 1 to 2500 frames per second, such as 24, 23.976 or 24000/1001";
    EXPECT_EQ("info->rate_numerator and info->rate_denominator: found 0 / 1, expected " + rate,
              RefusedInfo([](auto *info) { info->rate_numerator = 0; }));
    EXPECT_EQ("info->rate_numerator and info->rate_denominator: found 25 / 0, expected " + rate,
              RefusedInfo([](auto *info) {
                  info->rate_numerator = 25;
                  info->rate_denominator = 0;
              }));
    EXPECT_EQ("info->rate_numerator and info->rate_denominator: found -24 / -1, expected " + rate,
              RefusedInfo([](auto *info) {
                  info->rate_numerator = -24;
                  info->rate_denominator = -1;
              }));
    EXPECT_EQ("info->rate_numerator and info->rate_denominator: found 2147483647 / 1, expected " + rate,
              RefusedInfo([](auto *info) { info->rate_numerator = 2147483647; }));
    EXPECT_EQ("info->rate_numerator and info->rate_denominator: found 1 / 3, expected " + rate,
              RefusedInfo([](auto *info) {
                  info->rate_numerator = 1;
                  info->rate_denominator = 3;
              }));
    EXPECT_EQ("info->aperture_width: found nan, expected millimetres from 1 to 2000",
              RefusedInfo([](auto *info) { info->aperture_width = kNaN; }));
    EXPECT_EQ("info: found the size 4, expected " + std::to_string(sizeof(tremolux_move_info)),
              RefusedInfo([](auto *info) { info->size = 4; }));
}

TEST(Move, WritesNoFurtherThanThereIsRoom) {
    const Move move = MakeMove(3);
    std::vector<double> numbers(24, 7);
    EXPECT_EQ("count: found 23, expected room for 24 numbers",
              Refused(tremolux_move_numbers(move.get(), numbers.data(), 23), move.get()));
    EXPECT_EQ(std::vector<double>(24, 7), numbers);
}

TEST(Handles, ThatAreNullFreedOrForeignAreTold) {
    tremolux_move freed = MakeMove(1).release();
    EXPECT_EQ(TREMOLUX_OK, tremolux_move_free(freed));
    double number = 0;
    const std::string line = "found no valid handle, expected one of a move";
    const Shot shot = MakeShot(1);
    for (tremolux_move wrong : {tremolux_move{}, freed, reinterpret_cast<tremolux_move>(shot.get()),
                                reinterpret_cast<tremolux_move>(&number)}) {
        EXPECT_EQ(TREMOLUX_HANDLE, tremolux_move_numbers(wrong, &number, 1));
        EXPECT_EQ(line, tremolux_last_error(nullptr));
        EXPECT_EQ(wrong == nullptr ? TREMOLUX_OK : TREMOLUX_HANDLE, tremolux_move_free(wrong));
    }
    EXPECT_EQ(TREMOLUX_OK, tremolux_move_free(nullptr));
    EXPECT_EQ(TREMOLUX_HANDLE, tremolux_shot_play(reinterpret_cast<tremolux_shot>(freed), nullptr, nullptr));
}

TEST(Handles, KeepTheirOwnErrors) {
    const Move a = MakeMove(1), b = MakeMove(1);
    double number = 0;
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_move_numbers(a.get(), &number, 1));
    EXPECT_STREQ("count: found 1, expected room for 8 numbers", tremolux_last_error(a.get()));
    EXPECT_STREQ("", tremolux_last_error(b.get()));
    std::vector<double> room(8);
    EXPECT_EQ(TREMOLUX_OK, tremolux_move_numbers(a.get(), room.data(), room.size()));
    EXPECT_STREQ("", tremolux_last_error(a.get()));
}

}  // namespace
